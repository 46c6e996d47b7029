#include "TextCodec.h"

#include "LibraryConverters.h"
#include "OwnTables.h"
#include "VHEncoding.h"

#include <QStringDecoder>
#include <QStringEncoder>

#include <algorithm>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>

using namespace Qt::StringLiterals;
using LibraryConverters::Result;

namespace {
bool failWith(QString *error, const QString &reason)
{
    if (error)
        *error = reason;
    return false;
}

QString unsupported(EncodingId encoding)
{
    if (encoding == Encodings::None)
        return u"No text encoding fits the file."_s;
    return u"The text encoding %1 is not supported."_s.arg(encoding);
}

// Whether `bytes` is well-formed UTF-8 by Unicode's table of well-formed byte sequences: no
// stray continuation bytes, no overlong forms, no surrogates, nothing above U+10FFFF, no
// sequence cut short. Stops at the first fault, which in a file in a legacy code page is
// usually the first letter beyond ASCII; runs of ASCII are skipped eight bytes at a time.
bool isWellFormedUtf8(QByteArrayView bytes)
{
    const auto *p = reinterpret_cast<const uchar *>(bytes.data());
    const uchar *const end = p + bytes.size();
    const auto isContinuation = [](uchar byte) { return (byte & 0xC0) == 0x80; };
    while (p < end) {
        if (end - p >= 8) {
            quint64 word;
            std::memcpy(&word, p, 8);
            if ((word & 0x8080808080808080ull) == 0) {
                p += 8;
                continue;
            }
        }
        const uchar lead = *p;
        if (lead < 0x80) {
            ++p;
            continue;
        }
        // The bounds of the second byte depend on the lead (no overlong forms, surrogates
        // or values above U+10FFFF); the bytes after it are plain continuation bytes.
        int length = 0;
        uchar low = 0x80;
        uchar high = 0xBF;
        if (lead >= 0xC2 && lead <= 0xDF) {
            length = 2;
        } else if (lead >= 0xE0 && lead <= 0xEF) {
            length = 3;
            if (lead == 0xE0)
                low = 0xA0;
            else if (lead == 0xED)
                high = 0x9F;
        } else if (lead >= 0xF0 && lead <= 0xF4) {
            length = 4;
            if (lead == 0xF0)
                low = 0x90;
            else if (lead == 0xF4)
                high = 0x8F;
        } else {
            return false; // a continuation byte without a lead, or a byte UTF-8 never uses
        }
        if (end - p < length || p[1] < low || p[1] > high)
            return false;
        for (int k = 2; k < length; ++k) {
            if (!isContinuation(p[k]))
                return false;
        }
        p += length;
    }
    return true;
}

bool decodeStrictUtf8(QByteArrayView bytes, QString *text)
{
    // Qt's decoder converts the whole input before it reports a fault: a quick check first
    // turns most text in other encodings away within its first line.
    if (!isWellFormedUtf8(bytes))
        return false;
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString decoded = decoder.decode(bytes);
    if (decoder.hasError())
        return false;
    *text = std::move(decoded);
    return true;
}

bool encodeStrictUtf8(const QString &text, QByteArray *bytes)
{
    QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
    QByteArray encoded = encoder.encode(text);
    if (encoder.hasError())
        return false;
    *bytes = std::move(encoded);
    return true;
}

bool decodeWithTable(const QByteArray &bytes, const TextCodec::ByteTable &table, QString *text)
{
    QString out(bytes.size(), Qt::Uninitialized);
    char16_t *target = reinterpret_cast<char16_t *>(out.data());
    for (const char byte : bytes) {
        const char16_t unit = table[uchar(byte)];
        if (unit == TextCodec::kNoUnit)
            return false;
        *target++ = unit;
    }
    *text = std::move(out);
    return true;
}

bool encodeWithTable(const QString &text, const TextCodec::ByteTable &table, QByteArray *bytes)
{
    QByteArray out(text.size(), Qt::Uninitialized);
    char *target = out.data();
    for (const QChar c : text) {
        // ASCII maps to itself in every table we hold; search the rest.
        int byte = c.unicode() < 0x80 && table[c.unicode()] == c.unicode() ? c.unicode() : -1;
        for (int b = 0x80; byte < 0 && b < 0x100; ++b) {
            if (table[b] == c.unicode())
                byte = b;
        }
        if (byte < 0)
            return false;
        *target++ = char(byte);
    }
    *bytes = std::move(out);
    return true;
}

// ASCII where every other character stands as \uXXXX and a backslash as two; three octal
// digits after a backslash are read as well, as some writers escape Latin-1 that way.
bool decodeNonLossyAscii(const QByteArray &bytes, QString *text)
{
    QString out;
    out.reserve(bytes.size());
    const qsizetype n = bytes.size();
    auto hexValue = [](char c) {
        if (c >= '0' && c <= '9')
            return c - '0';
        if (c >= 'a' && c <= 'f')
            return c - 'a' + 10;
        if (c >= 'A' && c <= 'F')
            return c - 'A' + 10;
        return -1;
    };
    for (qsizetype i = 0; i < n; ++i) {
        const char c = bytes[i];
        if (uchar(c) >= 0x80)
            return false;
        if (c != '\\' || i + 1 >= n) {
            out.append(QChar(char16_t(uchar(c))));
            continue;
        }
        const char next = bytes[i + 1];
        if (next == '\\') {
            out.append(u'\\');
            ++i;
        } else if (next == 'u' && i + 5 < n) {
            int value = 0;
            for (int k = 2; k < 6 && value >= 0; ++k) {
                const int digit = hexValue(bytes[i + k]);
                value = digit < 0 ? -1 : value * 16 + digit;
            }
            if (value < 0) {
                out.append(u'\\');
                continue;
            }
            out.append(QChar(char16_t(value)));
            i += 5;
        } else if (i + 3 < n && next >= '0' && next <= '3' && bytes[i + 2] >= '0' && bytes[i + 2] <= '7' &&
                   bytes[i + 3] >= '0' && bytes[i + 3] <= '7') {
            out.append(QChar(char16_t((next - '0') * 64 + (bytes[i + 2] - '0') * 8 + (bytes[i + 3] - '0'))));
            i += 3;
        } else {
            out.append(u'\\');
        }
    }
    *text = std::move(out);
    return true;
}

QByteArray encodeNonLossyAscii(const QString &text)
{
    QByteArray out;
    out.reserve(text.size());
    for (const QChar c : text) {
        if (c == u'\\')
            out.append("\\\\");
        else if (c.unicode() < 0x80)
            out.append(char(c.unicode()));
        else
            out.append("\\u" + QByteArray::number(c.unicode(), 16).rightJustified(4, '0'));
    }
    return out;
}

// UTF-16 or UTF-32 whose byte order comes from a leading mark, little-endian without one.
// Returns the converter for the body and strips the mark from `bytes`.
const char *orderFromMark(QByteArray *bytes, bool utf32)
{
    if (utf32) {
        if (bytes->startsWith(QByteArrayView("\x00\x00\xFE\xFF", 4))) {
            bytes->remove(0, 4);
            return "UTF-32BE";
        }
        if (bytes->startsWith(QByteArrayView("\xFF\xFE\x00\x00", 4)))
            bytes->remove(0, 4);
        return "UTF-32LE";
    }
    if (bytes->startsWith("\xFE\xFF")) {
        bytes->remove(0, 2);
        return "UTF-16BE";
    }
    if (bytes->startsWith("\xFF\xFE"))
        bytes->remove(0, 2);
    return "UTF-16LE";
}

bool decodeLibrary(const EncodingInfo &info, const QByteArray &bytes, QString *text, QString *error)
{
    const Result result = info.kind == ConverterKind::Iconv
                              ? LibraryConverters::iconvDecode(info.converter, bytes, text)
                              : LibraryConverters::icuDecode(info.converter, bytes, text);
    if (result == Result::Unavailable)
        return failWith(error, unsupported(info.id));
    if (result == Result::Invalid)
        return failWith(
            error, u"The text is not valid in the encoding '%1'."_s.arg(TextCodec::displayName(info.id)));
    return true;
}

bool encodeLibrary(const EncodingInfo &info, const char *converter, QStringView text, QByteArray *bytes,
                   QString *error)
{
    const Result result = info.kind == ConverterKind::Iconv
                              ? LibraryConverters::iconvEncode(converter, text, bytes)
                              : LibraryConverters::icuEncode(converter, text, bytes);
    if (result == Result::Unavailable)
        return failWith(error, unsupported(info.id));
    if (result == Result::Invalid)
        return failWith(error, u"The text has characters that the encoding '%1' cannot represent."_s.arg(
                                   TextCodec::displayName(info.id)));
    return true;
}
} // namespace

QString TextCodec::displayName(EncodingId encoding)
{
    const QString name = VHEncoding::nameForEncoding(encoding);
    if (name != u"unknown encoding"_s)
        return name;
    if (const EncodingInfo *info = encodingInfo(encoding))
        return QString::fromLatin1(info->converter);
    return QString::number(encoding);
}

bool TextCodec::isSupported(EncodingId encoding)
{
    const EncodingInfo *info = encodingInfo(encoding);
    if (!info)
        return false;
    QByteArray bytes;
    if (info->kind != ConverterKind::Icu && info->kind != ConverterKind::Iconv)
        return true;
    return encode(QString(), encoding, &bytes);
}

const TextCodec::ByteTable *TextCodec::singleByteTable(EncodingId encoding)
{
    static std::mutex mutex;
    static std::map<EncodingId, std::unique_ptr<ByteTable>> tables;
    std::lock_guard lock(mutex);
    if (const auto it = tables.find(encoding); it != tables.end())
        return it->second.get();

    std::unique_ptr<ByteTable> table;
    const EncodingInfo *info = encodingInfo(encoding);
    if (info && info->kind == ConverterKind::OwnTable) {
        if (const HighHalfTable *high = ownHighHalfTable(info->converter)) {
            table = std::make_unique<ByteTable>();
            for (int b = 0; b < 0x80; ++b)
                (*table)[b] = char16_t(b);
            std::copy(high->begin(), high->end(), table->begin() + 0x80);
        }
    } else if (info && info->kind == ConverterKind::Icu &&
               LibraryConverters::icuIsSingleByte(info->converter)) {
        table = std::make_unique<ByteTable>();
        if (!LibraryConverters::icuByteUnits(info->converter, table.get(), kNoUnit))
            table.reset();
    }
    return tables.emplace(encoding, std::move(table)).first->second.get();
}

bool TextCodec::decode(const QByteArray &bytes, EncodingId encoding, QString *text, QString *error)
{
    const EncodingInfo *info = encodingInfo(encoding);
    if (!info)
        return failWith(error, unsupported(encoding));
    switch (info->kind) {
    case ConverterKind::Utf8:
        if (decodeStrictUtf8(bytes, text))
            return true;
        return failWith(error, u"The file is not valid UTF-8 text."_s);
    case ConverterKind::NonLossyAscii:
        if (decodeNonLossyAscii(bytes, text))
            return true;
        return failWith(
            error, u"The text is not valid in the encoding '%1'."_s.arg(TextCodec::displayName(encoding)));
    case ConverterKind::Utf16WithMark:
    case ConverterKind::Utf32WithMark: {
        QByteArray body = bytes;
        const char *converter = orderFromMark(&body, info->kind == ConverterKind::Utf32WithMark);
        const EncodingInfo ordered{encoding, ConverterKind::Icu, converter};
        return decodeLibrary(ordered, body, text, error);
    }
    case ConverterKind::OwnTable:
    case ConverterKind::Icu:
        if (const ByteTable *table = singleByteTable(encoding)) {
            if (decodeWithTable(bytes, *table, text))
                return true;
            return failWith(error, u"The text is not valid in the encoding '%1'."_s.arg(
                                       TextCodec::displayName(encoding)));
        }
        if (info->kind == ConverterKind::OwnTable)
            return failWith(error, unsupported(encoding));
        return decodeLibrary(*info, bytes, text, error);
    case ConverterKind::Iconv:
        return decodeLibrary(*info, bytes, text, error);
    }
    return failWith(error, unsupported(encoding));
}

bool TextCodec::encode(const QString &text, EncodingId encoding, QByteArray *bytes, QString *error)
{
    const EncodingInfo *info = encodingInfo(encoding);
    if (!info)
        return failWith(error, unsupported(encoding));
    const QString cannot = u"The text has characters that the encoding '%1' cannot represent."_s;
    switch (info->kind) {
    case ConverterKind::Utf8:
        if (encodeStrictUtf8(text, bytes))
            return true;
        return failWith(error, cannot.arg(TextCodec::displayName(encoding)));
    case ConverterKind::NonLossyAscii:
        *bytes = encodeNonLossyAscii(text);
        return true;
    case ConverterKind::Utf16WithMark:
    case ConverterKind::Utf32WithMark: {
        const bool utf32 = info->kind == ConverterKind::Utf32WithMark;
        QByteArray body;
        if (!encodeLibrary(*info, utf32 ? "UTF-32LE" : "UTF-16LE", text, &body, error))
            return false;
        *bytes = (utf32 ? QByteArray("\xFF\xFE\x00\x00", 4) : QByteArray("\xFF\xFE")) + body;
        return true;
    }
    case ConverterKind::OwnTable:
        if (const ByteTable *table = singleByteTable(encoding)) {
            if (encodeWithTable(text, *table, bytes))
                return true;
            return failWith(error, cannot.arg(TextCodec::displayName(encoding)));
        }
        return failWith(error, unsupported(encoding));
    case ConverterKind::Icu:
    case ConverterKind::Iconv:
        return encodeLibrary(*info, info->converter, text, bytes, error);
    }
    return failWith(error, unsupported(encoding));
}

namespace {
// UTF-32 or UTF-16 without a byte-order mark, told from where the zero bytes stand. Text in
// a byte-oriented encoding has no zero bytes at all, while UTF-16 text has one in every
// character below U+0100 (the high byte: odd positions little-endian, even ones big-endian)
// and UTF-32 text two or three per character. The order whose zero bytes all fall on its
// side, and whose decoding is valid and holds no U+0000, is taken.
bool decodeByZeroPattern(const QByteArray &bytes, QString *text, EncodingId *used)
{
    if (!bytes.contains('\0')) // most files: one fast search instead of counting
        return false;
    const qsizetype n = bytes.size();
    std::array<qsizetype, 4> zeros{}; // zero bytes by position modulo 4
    for (qsizetype i = 0; i < n; ++i)
        zeros[i & 3] += bytes[i] == 0;
    const qsizetype total = zeros[0] + zeros[1] + zeros[2] + zeros[3];
    if (total == 0)
        return false;
    const auto tryDecode = [&](EncodingId encoding) {
        QString decoded;
        if (!TextCodec::decode(bytes, encoding, &decoded) || decoded.contains(QChar(0)))
            return false;
        *text = std::move(decoded);
        *used = encoding;
        return true;
    };
    if (n % 4 == 0) {
        // The top byte of every UTF-32 unit is zero: position 3 little-endian, 0 big-endian.
        const qsizetype units = n / 4;
        if (zeros[3] == units && zeros[0] < units && tryDecode(Encodings::UTF32LE))
            return true;
        if (zeros[0] == units && zeros[3] < units && tryDecode(Encodings::UTF32BE))
            return true;
    }
    if (n % 2 != 0)
        return false;
    // Most zero bytes on one side: at least four in five of them (a character like U+4E00
    // puts its zero on the other side), and at least one in sixty-four of the characters, as
    // the line feeds of East-Asian prose give (a few stray zeros in a text in another
    // encoding are not a pattern).
    const qsizetype odd = zeros[1] + zeros[3];
    const qsizetype even = zeros[0] + zeros[2];
    const qsizetype units = n / 2;
    if (odd * 64 >= units && even * 5 <= total && tryDecode(Encodings::UTF16LE))
        return true;
    if (even * 64 >= units && odd * 5 <= total && tryDecode(Encodings::UTF16BE))
        return true;
    return false;
}

// ISO-2022-JP is seven-bit and so also valid UTF-8: it is told by its escape sequences
// into the two-byte sets (JIS X 0208 of 1978 and 1983, JIS X 0212).
bool decodeIso2022Jp(const QByteArray &bytes, QString *text, EncodingId *used)
{
    static const QByteArrayView escapes[] = {"\x1B$B", "\x1B$@", "\x1B$(D"};
    // Without an escape character at all (one fast search) there is no escape sequence.
    if (!bytes.contains('\x1B'))
        return false;
    if (!std::any_of(std::begin(escapes), std::end(escapes),
                     [&](QByteArrayView escape) { return bytes.contains(escape); }))
        return false;
    if (std::any_of(bytes.begin(), bytes.end(), [](char byte) { return uchar(byte) >= 0x80; }))
        return false;
    if (!TextCodec::decode(bytes, Encodings::ISO2022JP, text))
        return false;
    *used = Encodings::ISO2022JP;
    return true;
}
} // namespace

bool TextCodec::decodeAutomatically(const QByteArray &bytes, QString *text, EncodingId *used)
{
    struct Mark
    {
        QByteArrayView bytes;
        EncodingId encoding;
    };
    // UTF-32 LE before UTF-16 LE: its mark begins with the UTF-16 LE mark.
    static const Mark marks[] = {
        {QByteArrayView("\xEF\xBB\xBF", 3), Encodings::UTF8},
        {QByteArrayView("\xFF\xFE\x00\x00", 4), Encodings::UTF32},
        {QByteArrayView("\x00\x00\xFE\xFF", 4), Encodings::UTF32},
        {QByteArrayView("\xFF\xFE", 2), Encodings::UTF16},
        {QByteArrayView("\xFE\xFF", 2), Encodings::UTF16},
    };
    for (const Mark &mark : marks) {
        if (!bytes.startsWith(mark.bytes))
            continue;
        const bool ok = mark.encoding == Encodings::UTF8
                            ? decodeStrictUtf8(QByteArrayView(bytes).sliced(3), text)
                            : decode(bytes, mark.encoding, text);
        if (ok) {
            *used = mark.encoding;
            return true;
        }
    }
    // Zero bytes and escape sequences first: both kinds of file are also valid UTF-8.
    if (decodeByZeroPattern(bytes, text, used) || decodeIso2022Jp(bytes, text, used))
        return true;
    if (decodeStrictUtf8(bytes, text)) {
        *used = Encodings::UTF8;
        return true;
    }
    return false;
}

#include "TextCodec.h"
#include "EncodingTable.h"
#include "LibraryConverters.h"
#include "TestSupport.h"
#include "VHEncoding.h"

#include <QStringDecoder>

#include <gtest/gtest.h>

#include <future>
#include <optional>

using namespace Qt::StringLiterals;
using namespace Encodings;

namespace {
QByteArray hex(const char *digits)
{
    return QByteArray::fromHex(digits);
}
} // namespace

// Every row of the catalogue converts a text of its script both ways, back to the same text.
TEST(TextCodecRoundTrip, EveryCatalogueRowConvertsItsScriptBothWays)
{
    // The first sample whose key the row's name contains.
    const std::pair<QString, QString> samples[] = {
        {u"Chinese Trad"_s, u"我們沒時間了。"_s}, {u"Chinese"_s, u"我们没时间了。"_s},
        {u"Japanese"_s, u"時間がない。カメラ"_s}, {u"Korean"_s, u"시간이 없어."_s},
        {u"Cyrillic"_s, u"Нет времени."_s},       {u"Greek"_s, u"Δεν έχουμε χρόνο."_s},
        {u"Hebrew"_s, u"אין לנו זמן."_s},         {u"Latin 2"_s, u"Żółć, přítel."_s},
        {u"CP1250"_s, u"Żółć, přítel."_s},        {u"Latin 5"_s, u"Şimdi ığdır."_s},
        {u"CP1254"_s, u"Şimdi ığdır."_s},         {u"Latin 3"_s, u"Ĉu ĝi?"_s},
        {u"Latin 4"_s, u"Ūdens ļoti."_s},         {QString(), u"Déjà vu, naïve café."_s}};
    int rows = 0;
    for (const VHEncoding &row : VHEncoding::catalogue()) {
        if (row.isSeparator() || row.codePage() == None)
            continue;
        ++rows;
        EXPECT_TRUE(TextCodec::isSupported(row.codePage())) << row.name().toStdString();
        const QString text = std::find_if(std::begin(samples), std::end(samples),
                                          [&](const auto &s) { return row.name().contains(s.first); })
                                 ->second +
                             u" Time, 9:00"_s;
        QByteArray bytes;
        QString back;
        ASSERT_TRUE(TextCodec::encode(text, row.codePage(), &bytes)) << row.name().toStdString();
        ASSERT_TRUE(TextCodec::decode(bytes, row.codePage(), &back)) << row.name().toStdString();
        EXPECT_EQ(back, text) << row.name().toStdString();
    }
    EXPECT_EQ(rows, 46);
}

// Bytes as other programs write them, so that a converter picked by the wrong name shows;
// each also decodes back. No bytes: the encoding lacks a character and the encoding fails.
TEST(TextCodecEncoding, TextsBecomeTheBytesOtherWritersProduceOrFail)
{
    const struct
    {
        QString text;
        EncodingId encoding;
        std::optional<QByteArray> bytes;
    } cases[] = {
        {u"Привет"_s, KOI8R, hex("f0d2c9d7c5d4")},
        {u"Ґанок і їжак"_s, KOI8U, hex("bdc1cecfcb20a620a7d6c1cb")},
        {u"日本語"_s, ShiftJIS, hex("93fa967b8cea")},
        {u"日本"_s, JapaneseEUC, hex("c6fccbdc")},
        {u"日本"_s, ISO2022JP, hex("1b2442467c4b5c1b2842")},
        {u"한글"_s, WindowsKoreanJohab, hex("d0658b69")},
        {u"한국"_s, EUCKR, hex("c7d1b1b9")},
        {u"한국어"_s, DOSKorean, hex("c7d1b1b9beee")},
        {u"中文€"_s, GB18030, hex("d6d0cec4a2e3")},
        {u"中文"_s, DOSChineseTrad, hex("a4a4a4e5")},
        {u"שלום"_s, WindowsHebrew, hex("f9ece5ed")},
        {u"مرحبا"_s, WindowsArabic, hex("e3d1cdc8c7")},
        {u"Ελλάδα"_s, DOSGreek, hex("84a2a2e19b98")},
        {u"Ελλάδα"_s, MacGreek, hex("b6ececc0e4e1")},
        {u"Œuvre €"_s, ISOLatin9, hex("bc7576726520a4")},
        {u"Ăști"_s, ISOLatin10, hex("c3ba7469")},
        {u"é€"_s, WindowsCP1252, hex("e980")},
        {u"Hi €"_s, UTF7, "Hi +IKw-"},
        // Our own tables.
        {u"é fi"_s, NeXTSTEP, hex("dd206669")},
        {u"אב ₪"_s, MacHebrew, hex("e0e120a6")},
        // Non-lossy ASCII: \uXXXX for everything outside ASCII, a backslash doubled.
        {u"a\\é"_s, NonLossyASCII, "a\\\\\\u00e9"},
        // Unicode without endianness: a byte-order mark, then little-endian.
        {u"h"_s, UTF16, hex("fffe6800")},
        {u"h"_s, UTF32, hex("fffe000068000000")},
        // Characters the encoding lacks.
        {u"Ж"_s, WindowsCP1252, {}},
        {u"€"_s, ISOLatin1, {}},
        {u"한"_s, ShiftJIS, {}},
        {u"ش"_s, MacHebrew, {}},
        {u"Ж"_s, NeXTSTEP, {}},
        {QString(QChar(0xD800)), UTF8, {}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.encoding);
        QByteArray bytes;
        QString error;
        EXPECT_EQ(TextCodec::encode(c.text, c.encoding, &bytes, &error), c.bytes.has_value());
        if (!c.bytes) {
            EXPECT_FALSE(error.isEmpty());
            continue;
        }
        EXPECT_EQ(bytes.toHex(), c.bytes->toHex());
        QString text;
        EXPECT_TRUE(TextCodec::decode(*c.bytes, c.encoding, &text));
        EXPECT_EQ(text, c.text);
    }
}

// Decoding is strict: bytes not valid in the encoding, or an encoding without converter,
// fail with a reason and leave the text alone.
TEST(TextCodecDecoding, ReadsWhatTheEncodingAllowsAndFailsOnAnythingElse)
{
    const struct
    {
        QByteArray bytes;
        EncodingId encoding;
        std::optional<QString> text;
    } cases[] = {
        {hex("ddae"), NeXTSTEP, u"éﬁ"_s},
        {"a\\\\\\u00e9\\351", NonLossyASCII, u"a\\éé"_s},
        // Unicode without endianness reads the byte-order mark, else little-endian.
        {hex("feff00680069"), UTF16, u"hi"_s},
        {hex("fffe68006900"), UTF16, u"hi"_s},
        {hex("68006900"), UTF16, u"hi"_s},
        {hex("0000feff00000068"), UTF32, u"h"_s},
        {hex("68000000"), UTF32, u"h"_s},
        {"caf\xC3(", UTF8, {}},
        {"\x81", ShiftJIS, {}}, // lead byte without its trail
        {"\xA1", JapaneseEUC, {}},
        {"\x81 ", GB18030, {}},
        {"\xA1", ISOLatinHebrew, {}}, // unassigned
        {"\xD2", WindowsCP1253, {}},
        {"\xFF", WindowsCP1253, {}},
        {"\xFE", NeXTSTEP, {}},
        {"\xC0", MacHebrew, {}},
        {"caf\xE9", NonLossyASCII, {}}, // not ASCII
        {"abc", UTF16LE, {}},           // odd length
        {hex("00d84100"), UTF16LE, {}}, // lone surrogate
        {"\xA4", DOSChineseTrad, {}},
        {"\x84\x44\x84", WindowsKoreanJohab, {}},
        {"abc", None, {}},
        {"abc", 123456, {}}, // no converter
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.bytes.toHex().toStdString() + " in " + std::to_string(c.encoding));
        QString text = u"untouched"_s;
        QString error;
        EXPECT_EQ(TextCodec::decode(c.bytes, c.encoding, &text, &error), c.text.has_value());
        EXPECT_EQ(text, c.text.value_or(u"untouched"_s));
        EXPECT_EQ(error.isEmpty(), c.text.has_value());
    }
    EXPECT_FALSE(TextCodec::isSupported(None));
}

// UTF-8 is checked byte by byte before Qt's decoder runs: the two must agree on every
// sequence, at the edges of every range a lead byte allows (overlong forms, surrogates,
// values above U+10FFFF, sequences cut short at the end or by another byte).
TEST(TextCodecDecoding, StrictUtf8AgreesWithQtsDecoderOnEverySequence)
{
    const uchar after[] = {0x00, 0x41, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0,
                           0xBF, 0xC0, 0xC2, 0xDF, 0xE0, 0xED, 0xF4, 0xFF};
    qsizetype valid = 0;
    for (int lead = 0x80; lead < 0x100; ++lead) {
        for (const uchar second : after) {
            for (const uchar third : after) {
                for (const uchar fourth : after) {
                    // After nine ASCII bytes, so the sequence also meets the eight-byte steps
                    // at an odd offset; with and without ASCII behind it, and cut short.
                    QByteArray bytes("abcdefghi");
                    bytes.append(char(lead)).append(char(second)).append(char(third)).append(char(fourth));
                    const QByteArray samples[] = {bytes, bytes + QByteArray("xyz"), bytes.chopped(1),
                                                  bytes.chopped(2)};
                    for (const QByteArray &sample : samples) {
                        QStringDecoder qt(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
                        const QString expected = qt.decode(sample);
                        QString text;
                        const bool ok = TextCodec::decode(sample, UTF8, &text);
                        ASSERT_EQ(ok, !qt.hasError()) << sample.toHex().constData();
                        if (ok) {
                            EXPECT_EQ(text, expected) << sample.toHex().constData();
                            ++valid;
                        }
                    }
                }
            }
        }
    }
    EXPECT_GT(valid, 1000); // the ranges were met from both sides
}

TEST(TextCodecAutomatic, ByteOrderMarksThenStrictUtf8AndNothingElse)
{
    const std::pair<QByteArray, EncodingId> cases[] = {
        {hex("efbbbf6869"), UTF8},
        {hex("fffe00006800000069000000"), UTF32},
        {hex("0000feff0000006800000069"), UTF32},
        {hex("fffe68006900"), UTF16},
        {hex("feff00680069"), UTF16},
        {"hi", UTF8},
    };
    for (const auto &[bytes, encoding] : cases) {
        QString text;
        EncodingId used = None;
        EXPECT_TRUE(TextCodec::decodeAutomatically(bytes, &text, &used)) << bytes.toHex().constData();
        EXPECT_EQ(text, u"hi"_s) << bytes.toHex().constData();
        EXPECT_EQ(used, encoding) << bytes.toHex().constData();
    }
    QString text;
    EncodingId used = None;
    EXPECT_FALSE(TextCodec::decodeAutomatically("caf\xE9", &text, &used));
    EXPECT_FALSE(TextCodec::decodeAutomatically(hex("efbbbf636166e9"), &text, &used));
}

// Real dialogue in Unicode without a byte-order mark, and Japanese in ISO-2022-JP: the
// loader reads them before any guessing, from where the zero bytes or the escapes stand.
TEST(TextCodecAutomatic, UnicodeWithoutMarkByItsZeroBytesAndIso2022JpByItsEscapes)
{
    const QString languages[] = {u"English"_s, u"French"_s,   u"Russian"_s,           u"Greek"_s,
                                 u"Hebrew"_s,  u"Japanese"_s, u"ChineseSimplified"_s, u"Korean"_s};
    for (const QString &language : languages) {
        // As a subtitle file: the cue numbers and times are ASCII, as in every real one.
        const QStringList lines =
            QString::fromUtf8(fixtureBytes(u"encoding"_s, u"texts/"_s + language + u".txt"_s)).split(u'\n');
        QString text;
        for (qsizetype i = 0; i < 12 && i < lines.size(); ++i)
            text += u"%1\n00:00:%2,000 --> 00:00:%3,500\n%4\n\n"_s.arg(i + 1)
                        .arg(i * 3 + 10)
                        .arg(i * 3 + 11)
                        .arg(lines[i]);
        // And as plain lines of text only, where only the spaces and punctuation are ASCII.
        const QString prose = lines.mid(0, 6).join(u'\n');
        for (const QString &sample : {text, prose}) {
            for (const EncodingId encoding : {UTF16LE, UTF16BE, UTF32LE, UTF32BE}) {
                QByteArray bytes;
                ASSERT_TRUE(TextCodec::encode(sample, encoding, &bytes));
                QString decoded;
                EncodingId used = None;
                EXPECT_TRUE(TextCodec::decodeAutomatically(bytes, &decoded, &used))
                    << language.toStdString() << " in " << encoding;
                EXPECT_EQ(used, encoding) << language.toStdString();
                EXPECT_EQ(decoded, sample) << language.toStdString() << " in " << encoding;
            }
        }
        if (language == u"Japanese"_s) {
            QByteArray bytes;
            ASSERT_TRUE(TextCodec::encode(text, ISO2022JP, &bytes));
            ASSERT_TRUE(bytes.contains("\x1B$B"));
            QString decoded;
            EncodingId used = None;
            EXPECT_TRUE(TextCodec::decodeAutomatically(bytes, &decoded, &used));
            EXPECT_EQ(used, ISO2022JP);
            EXPECT_EQ(decoded, text);
        }
    }

    QString text;
    EncodingId used = None;
    // Seven-bit text with an escape that starts no two-byte set stays UTF-8.
    EXPECT_TRUE(TextCodec::decodeAutomatically("\x1B[1mbold\x1B[0m caf\x1B(B", &text, &used));
    EXPECT_EQ(used, UTF8);
    // Zero bytes on both sides, or too few of them, are no pattern: a Latin-1 text with one
    // stray zero, a binary file.
    EXPECT_FALSE(TextCodec::decodeAutomatically(QByteArray("Ol\xE1, est\xE1s bien? S\xED, gracias\0", 24),
                                                &text, &used));
    QByteArray binary;
    for (int i = 0; i < 512; ++i)
        binary.append(char(i % 3 == 0 ? 0 : 0x80 + i % 97));
    EXPECT_FALSE(TextCodec::decodeAutomatically(binary, &text, &used));
    // UTF-16 with a lone surrogate is not valid, whatever its zero bytes say.
    EXPECT_FALSE(TextCodec::decodeAutomatically(hex("680069000ad8200068006900"), &text, &used));
}

// The detector scores single-byte code pages from these tables.
TEST(TextCodecTables, OnlySingleByteEncodingsHaveAByteTable)
{
    const TextCodec::ByteTable *greek = TextCodec::singleByteTable(WindowsCP1253);
    ASSERT_NE(greek, nullptr);
    EXPECT_EQ((*greek)[0xE1], u'α');
    EXPECT_EQ((*greek)[0xD2], TextCodec::kNoUnit);
    EXPECT_NE(TextCodec::singleByteTable(MacHebrew), nullptr);
    for (const EncodingId encoding : {ShiftJIS, UTF16, WindowsKoreanJohab})
        EXPECT_EQ(TextCodec::singleByteTable(encoding), nullptr) << encoding;

    // Each table holds what ICU decodes each byte to on its own, for every code page of
    // the catalogue and of the rules.
    std::vector<EncodingId> numbers;
    for (quint32 n = 0; n < 0xC00; ++n)
        numbers.insert(numbers.end(), {n, fromLowLevel(n)});
    qsizetype checked = 0;
    for (const EncodingId encoding : numbers) {
        const EncodingInfo *info = encodingInfo(encoding);
        const TextCodec::ByteTable *table = TextCodec::singleByteTable(encoding);
        if (!info || info->kind != ConverterKind::Icu || !table)
            continue;
        for (int b = 0; b < 256; ++b) {
            QString unit;
            const bool ok = LibraryConverters::icuDecode(info->converter, QByteArray(1, char(b)), &unit) ==
                            LibraryConverters::Result::Ok;
            EXPECT_EQ((*table)[b], ok && unit.size() == 1 ? unit[0].unicode() : TextCodec::kNoUnit)
                << info->converter << " " << b;
        }
        ++checked;
    }
    EXPECT_GE(checked, 15);
}

// Converters are cached per thread; conversions on several threads at once must not
// disturb each other.
TEST(TextCodecThreads, ConcurrentConversionsGiveTheSameResults)
{
    const std::pair<QString, EncodingId> work[] = {{u"日本語のテキスト"_s, ShiftJIS},
                                                   {u"Привет, мир"_s, KOI8R},
                                                   {u"한국어 텍스트"_s, WindowsKoreanJohab},
                                                   {u"中文文本"_s, GB18030},
                                                   {u"Ελληνικά"_s, WindowsCP1253}};
    auto run = [&work] {
        for (int round = 0; round < 300; ++round) {
            for (const auto &[text, encoding] : work) {
                QByteArray bytes;
                QString back;
                if (!TextCodec::encode(text, encoding, &bytes) ||
                    !TextCodec::decode(bytes, encoding, &back) || back != text)
                    return false;
            }
        }
        return true;
    };
    std::vector<std::future<bool>> threads;
    for (int i = 0; i < 4; ++i)
        threads.push_back(std::async(std::launch::async, run));
    for (auto &thread : threads)
        EXPECT_TRUE(thread.get());
}

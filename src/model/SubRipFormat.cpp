#include "VHSubtitle.h"

#include "AtomicFile.h"
#include "Log.h"
#include "SubRipReader.h"
#include "TimeText.h"
#include "VHTimeValueTransformer.h"

#include <QStringEncoder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
const SubRipDialect &subRipDialect()
{
    static const SubRipDialect dialect{u",", u".", false,
                                       [](const QString &string, double start, double end, bool forced) {
                                           return std::make_shared<VHSubtitle>(string, start, end, forced);
                                       }};
    return dialect;
}
} // namespace

std::optional<SubtitleList> VHSubtitle::subtitlesFromSubRipString(const QString &text)
{
    return readSubRipText(text, subRipDialect());
}

TolerantRead readSubRipTolerantly(const QString &text)
{
    TolerantRead read;
    read.cues = readSubRipText(text, subRipDialect(), &read.skipped).value_or(SubtitleList());
    if (read.skipped.isEmpty())
        read.reason = QString::fromLatin1(QT_TRANSLATE_NOOP("SubtitleSalvage", "found no cue"));
    return read;
}

QString VHSubtitle::subRipText(const SubtitleList &subtitles, bool useWindowsLineBreak)
{
    QString text;
    qsizetype estimate = 0;
    for (const SubtitlePtr &cue : subtitles)
        estimate += cue->string().size() + 48;
    text.reserve(estimate);
    qint64 number = 0;
    for (const SubtitlePtr &cue : subtitles) {
        TimeText::appendPadded(text, ++number, 1);
        text.append(u'\n');
        cue->appendDescription(text);
        text.append(u"\n\n");
    }
    if (useWindowsLineBreak)
        text.replace(u"\n"_s, u"\r\n"_s);
    return text;
}

namespace {
// Appends `value` in decimal, zero-padded to `width` characters, as TimeText::appendPadded
// does for texts.
char *putPadded(char *out, qint64 value, int width)
{
    // The fields of a time: two or three digits, written straight into place.
    if (value >= 0 && value < 1000 && width >= 1 && width <= 3) {
        const int count = std::max(width, value >= 100 ? 3 : value >= 10 ? 2 : 1);
        unsigned rest = unsigned(value);
        for (int i = count - 1; i >= 0; --i) {
            out[i] = char('0' + rest % 10);
            rest /= 10;
        }
        return out + count;
    }
    char digits[24];
    int count = 0;
    quint64 magnitude = value < 0 ? 0ull - quint64(value) : quint64(value);
    do {
        digits[count++] = char('0' + magnitude % 10);
        magnitude /= 10;
    } while (magnitude);
    if (value < 0) {
        *out++ = '-';
        --width;
    }
    for (int i = count; i < width; ++i)
        *out++ = '0';
    while (count)
        *out++ = digits[--count];
    return out;
}

// hh:mm:ss,mmm, as VHTimeValueTransformer::appendTime() writes it with ",".
char *putTime(char *out, double seconds)
{
    const VHTimeValueTransformer::Fields f = VHTimeValueTransformer::fields(seconds);
    out = putPadded(out, f.hours, 2);
    *out++ = ':';
    out = putPadded(out, f.minutes, 2);
    *out++ = ':';
    out = putPadded(out, f.seconds, 2);
    *out++ = ',';
    return putPadded(out, f.milliseconds, 3);
}
} // namespace

std::optional<QByteArray> subRipUtf8(const SubtitleList &subtitles, bool useWindowsLineBreak)
{
    // The number, two times and markers of a cue take at most this many bytes.
    constexpr qsizetype kCueFrame = 128;
    QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
    QByteArray bytes;
    qsizetype estimate = 0;
    for (const SubtitlePtr &cue : subtitles)
        estimate += cue->string().size() + 48;
    bytes.resize(estimate);
    qsizetype size = 0;
    qint64 number = 0;
    for (const SubtitlePtr &cue : subtitles) {
        const QString &string = cue->string();
        const qsizetype needed = size + kCueFrame + encoder.requiredSpace(string.size());
        if (needed > bytes.size())
            bytes.resize(std::max(needed, bytes.size() + bytes.size() / 2));
        char *out = bytes.data() + size;
        out = putPadded(out, ++number, 1);
        *out++ = '\n';
        out = putTime(out, cue->start());
        out = std::copy_n(" --> ", 5, out);
        out = putTime(out, cue->end());
        if (cue->forced())
            out = std::copy_n(" !!!", 4, out);
        *out++ = '\n';
        out = encoder.appendToBuffer(out, string);
        // A lone surrogate has no strict UTF-8 form: the caller takes the text path, which
        // refuses it with the reason.
        if (encoder.hasError())
            return std::nullopt;
        out = std::copy_n("\n\n", 2, out);
        size = out - bytes.constData();
    }
    bytes.truncate(size);
    if (useWindowsLineBreak)
        bytes.replace("\n", "\r\n");
    return bytes;
}

bool writeSubRipFile(const SubtitleList &subtitles, const QString &path, EncodingId encoding,
                     bool useWindowsLineBreak, QString *error)
{
    // UTF-8, the usual case, is built as bytes directly: the same bytes as encoding the
    // text, without a UTF-16 copy of the whole file on the way.
    if (encoding == Encodings::None || encoding == Encodings::UTF8) {
        if (const std::optional<QByteArray> bytes = subRipUtf8(subtitles, useWindowsLineBreak)) {
            QString reason;
            if (writeFileAtomically(path, *bytes, &reason))
                return true;
            logLine(u"Warning: Could not save file, because: %1"_s.arg(reason));
            if (error)
                *error = reason;
            return false;
        }
    }
    return writeSubtitleText(VHSubtitle::subRipText(subtitles, useWindowsLineBreak), path, encoding, error);
}

bool VHSubtitle::writeSubtitles(const SubtitleList &subtitles, const QString &path, EncodingId encoding,
                                bool useWindowsLineBreak)
{
    return writeSubRipFile(subtitles, path, encoding, useWindowsLineBreak);
}

bool VHSubtitle::writeSubtitles(const SubtitleList &subtitles, const QString &path)
{
    return writeSubtitles(subtitles, path, Encodings::UTF8, false);
}

bool writeSubtitleText(const QString &text, const QString &path, EncodingId encoding, QString *error)
{
    QByteArray bytes;
    QString reason;
    if (!TextCodec::encode(text, encoding == Encodings::None ? Encodings::UTF8 : encoding, &bytes, &reason) ||
        !writeFileAtomically(path, bytes, &reason)) {
        logLine(u"Warning: Could not save file, because: %1"_s.arg(reason));
        if (error)
            *error = reason;
        return false;
    }
    return true;
}

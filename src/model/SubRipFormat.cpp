#include "VHSubtitle.h"

#include "AtomicFile.h"
#include "Log.h"
#include "SubRipReader.h"
#include "TimeText.h"

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

bool VHSubtitle::writeSubtitles(const SubtitleList &subtitles, const QString &path, EncodingId encoding,
                                bool useWindowsLineBreak)
{
    return writeSubtitleText(subRipText(subtitles, useWindowsLineBreak), path, encoding);
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

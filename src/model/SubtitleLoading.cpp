#include "VHSubtitle.h"

#include "Log.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {
// Reads the whole file; a file of any size is read completely.
bool readWholeFile(const QString &path, QByteArray *bytes, QString *error)
{
    QFile file(path);
    if (QFileInfo(path).isDir()) {
        *error = u"'%1' is a folder"_s.arg(path);
        return false;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        *error = file.errorString();
        return false;
    }
    *bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        *error = file.errorString();
        return false;
    }
    return true;
}
} // namespace

std::optional<QString> VHSubtitle::stringWithContentsOfURL(const QString &path, EncodingId encoding,
                                                           bool encodingIsOptional)
{
    QByteArray bytes;
    QString error;
    if (!readWholeFile(path, &bytes, &error)) {
        logLine(u"Warning: Could not load subtitle '%1', because: %2"_s.arg(path, error));
        return std::nullopt;
    }
    QString text;
    // 1. The encoding asked for, when it is not merely a suggestion.
    if (!encodingIsOptional && TextCodec::decode(bytes, encoding, &text, &error))
        return text;
    // 2. Byte-order marks and strict UTF-8.
    EncodingId detected = Encodings::None;
    if (TextCodec::decodeAutomatically(bytes, &text, &detected))
        return text;
    // 3. The suggested encoding.
    if (encodingIsOptional && TextCodec::decode(bytes, encoding, &text, &error))
        return text;
    logLine(u"Warning: Could not load subtitle '%1', because: %2"_s.arg(path, error));
    return std::nullopt;
}

std::optional<SubtitleList> VHSubtitle::subtitlesFromFileAtURL(const QString &path, double fps, double length,
                                                               EncodingId encoding, bool encodingIsOptional)
{
    const std::optional<QString> text = stringWithContentsOfURL(path, encoding, encodingIsOptional);
    if (!text)
        return std::nullopt;
    // The format is decided by content, in a fixed order: SubRip first, so that a text with
    // "-->" lines that SubRip accepts is never taken for MicroDVD; a SubRip text with a line
    // it cannot place falls through to the others. Plain text accepts any text, so only a
    // file named as one is read that way.
    std::optional<SubtitleList> cues = subtitlesFromSubRipString(*text);
    if (!cues)
        cues = subtitlesFromSubViewerString(*text);
    if (!cues)
        cues = subtitlesFromMicroDVDString(*text, fps == 0 ? 25 : fps);
    if (!cues)
        cues = subtitlesFromSubStationAlphaString(*text);
    if (!cues && QFileInfo(path).suffix().toLower() == u"txt")
        cues = subtitlesFromText(*text, length);
    if (!cues)
        return std::nullopt;
    correctSubtitles(*cues);
    return cues;
}

std::optional<SubtitleList> VHSubtitle::subtitlesFromFileAtURL(const QString &path, double fps, double length)
{
    return subtitlesFromFileAtURL(path, fps, length, Encodings::None, true);
}

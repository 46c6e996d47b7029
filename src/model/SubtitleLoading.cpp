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
    Q_UNUSED(fps);
    Q_UNUSED(length);
    const std::optional<QString> text = stringWithContentsOfURL(path, encoding, encodingIsOptional);
    if (!text)
        return std::nullopt;
    std::optional<SubtitleList> cues = subtitlesFromSubRipString(*text);
    if (!cues)
        return std::nullopt;
    correctSubtitles(*cues);
    return cues;
}

std::optional<SubtitleList> VHSubtitle::subtitlesFromFileAtURL(const QString &path, double fps, double length)
{
    return subtitlesFromFileAtURL(path, fps, length, Encodings::None, true);
}

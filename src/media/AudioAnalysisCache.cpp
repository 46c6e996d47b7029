// The analyses' cache on disk: one file per movie file, track and channel choice.
#include "AudioAnalysis.h"

#include "AtomicFile.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace AudioAnalysisCache {

namespace {

constexpr quint32 magic = 0x43544155; // "CTAU"
constexpr quint32 version = 1;
constexpr qint64 hashedBytes = 1 << 20;
// A cache file larger than this is not one of ours.
constexpr qint64 largestEntry = 64 << 20;
// The peaks are written as they lie in memory: a low and a high byte per bin.
static_assert(sizeof(PeakBin) == 2);

// The key inside a cache file: the file's identity and the choices of the request.
QString entryKey(const AudioAnalysisRequest &request)
{
    const QString identity = fileIdentity(request.moviePath);
    if (identity.isEmpty())
        return {};
    return QStringLiteral("%1 track %2 %3 v%4")
        .arg(identity)
        .arg(request.audioTrack)
        .arg(request.centreChannelOnly ? QStringLiteral("centre") : QStringLiteral("mix"))
        .arg(version);
}

QString folderOf(const AudioAnalysisRequest &request)
{
    return request.cacheFolder.isEmpty() ? defaultFolder() : request.cacheFolder;
}

} // namespace

QString defaultFolder()
{
    QString base = qEnvironmentVariable("XDG_CACHE_HOME");
    // The base directory specification ignores relative paths.
    if (base.isEmpty() || !QDir::isAbsolutePath(base))
        base = QDir::homePath() + QStringLiteral("/.cache");
    return base + QStringLiteral("/captora");
}

QString fileIdentity(const QString &moviePath)
{
    const QFileInfo info(moviePath);
    if (!info.isFile())
        return {};
    QFile file(moviePath);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const qint64 size = file.size();
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(file.read(hashedBytes));
    if (size > hashedBytes) {
        if (!file.seek(std::max(hashedBytes, size - hashedBytes)))
            return {};
        hash.addData(file.read(hashedBytes));
    }
    const qint64 modified = info.lastModified().toMSecsSinceEpoch();
    return QStringLiteral("%1-%2-%3").arg(size).arg(modified).arg(QString::fromLatin1(hash.result().toHex()));
}

QString cacheFilePath(const AudioAnalysisRequest &request)
{
    const QString key = entryKey(request);
    if (key.isEmpty())
        return {};
    const QByteArray name = QCryptographicHash::hash(key.toUtf8(), QCryptographicHash::Sha1).toHex();
    return folderOf(request) + QLatin1Char('/') + QString::fromLatin1(name) + QStringLiteral(".audio");
}

bool load(const AudioAnalysisRequest &request, AudioAnalysis &analysis)
{
    const QString key = entryKey(request);
    if (key.isEmpty())
        return false;
    const QByteArray name = QCryptographicHash::hash(key.toUtf8(), QCryptographicHash::Sha1).toHex();
    QFile file(folderOf(request) + QLatin1Char('/') + QString::fromLatin1(name) + QStringLiteral(".audio"));
    if (!QFileInfo(file.fileName()).isFile() || file.size() > largestEntry || !file.open(QIODevice::ReadOnly))
        return false;
    QDataStream in(&file);
    in.setVersion(QDataStream::Qt_6_0);
    quint32 fileMagic = 0;
    quint32 fileVersion = 0;
    QString fileKey;
    qint64 binCount = 0;
    in >> fileMagic >> fileVersion >> fileKey >> binCount;
    if (in.status() != QDataStream::Ok || fileMagic != magic || fileVersion != version || fileKey != key ||
        binCount < 0 || binCount * 2 > file.size())
        return false;
    std::vector<PeakBin> peaks(static_cast<size_t>(binCount));
    const auto peakBytes = int(binCount * qint64(sizeof(PeakBin)));
    if (in.readRawData(reinterpret_cast<char *>(peaks.data()), peakBytes) != peakBytes)
        return false;
    quint32 segmentCount = 0;
    in >> segmentCount;
    if (in.status() != QDataStream::Ok || qint64(segmentCount) * 16 > file.size())
        return false;
    QList<SpeechSegment> speech;
    speech.reserve(segmentCount);
    for (quint32 i = 0; i < segmentCount; ++i) {
        SpeechSegment segment;
        in >> segment.start >> segment.end;
        speech.append(segment);
    }
    if (in.status() != QDataStream::Ok || !in.atEnd())
        return false;
    analysis.assign(std::move(peaks), std::move(speech));
    return true;
}

bool store(const AudioAnalysisRequest &request, const AudioAnalysis &analysis, QString *error)
{
    const QString key = entryKey(request);
    if (key.isEmpty()) {
        if (error)
            *error = QStringLiteral("the movie cannot be read");
        return false;
    }
    const QString folder = folderOf(request);
    if (!QDir().mkpath(folder)) {
        if (error)
            *error = QStringLiteral("cannot create the folder '%1'").arg(folder);
        return false;
    }
    const std::vector<PeakBin> peaks = analysis.peaks();
    const QList<SpeechSegment> speech = analysis.speech();
    QByteArray data;
    data.reserve(qsizetype(peaks.size() * 2 + size_t(speech.size()) * 16 + 256));
    QDataStream out(&data, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_6_0);
    out << magic << version << key << qint64(peaks.size());
    out.writeRawData(reinterpret_cast<const char *>(peaks.data()), int(peaks.size() * sizeof(PeakBin)));
    out << quint32(speech.size());
    for (const SpeechSegment &segment : speech)
        out << segment.start << segment.end;
    return writeFileAtomically(cacheFilePath(request), data, error);
}

} // namespace AudioAnalysisCache

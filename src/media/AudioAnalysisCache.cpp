// The analyses' cache on disk: one file per movie file, track and channel choice.
#include "AudioAnalysis.h"

#include "AtomicFile.h"
#include "FileNames.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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
    // XDG folders must be absolute: a relative value is ignored, as other programs ignore it.
    if (base.isEmpty() || !QDir::isAbsolutePath(base))
        base = QDir::homePath() + QStringLiteral("/.cache");
    return base + QStringLiteral("/captora");
}

QString fileIdentity(const QString &moviePath)
{
    // The file's own bytes of name (FileNames.h), and only a regular file: a FIFO would block.
    const QByteArray name = encodeFileName(moviePath);
    const int descriptor = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return {};
    struct stat info;
    QCryptographicHash hash(QCryptographicHash::Sha1);
    bool ok = ::fstat(descriptor, &info) == 0 && S_ISREG(info.st_mode);
    if (ok) {
        const qint64 size = info.st_size;
        QByteArray block(int(std::min(size, hashedBytes)), Qt::Uninitialized);
        for (const qint64 offset : {qint64(0), std::max<qint64>(0, size - hashedBytes)}) {
            ok = ok && ::pread(descriptor, block.data(), size_t(block.size()), off_t(offset)) == block.size();
            hash.addData(block);
            if (size <= hashedBytes)
                break;
        }
    }
    ::close(descriptor);
    if (!ok)
        return {};
    const qint64 modified = qint64(info.st_mtim.tv_sec) * 1000 + info.st_mtim.tv_nsec / 1'000'000;
    return QStringLiteral("%1-%2-%3")
        .arg(qint64(info.st_size))
        .arg(modified)
        .arg(QString::fromLatin1(hash.result().toHex()));
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

#include "RecoveryStore.h"

#include "AtomicFile.h"
#include "EncodingTable.h"
#include "FileNames.h"
#include "Log.h"
#include "VHVideoText.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
const QString kPathSuffix = u".path"_s;
} // namespace

QString RecoveryStore::defaultFolder()
{
    QString state = qEnvironmentVariable("XDG_STATE_HOME");
    // Only an absolute path counts, as the base directory rules say.
    if (state.isEmpty() || !QDir::isAbsolutePath(state))
        state = QDir::homePath() + u"/.local/state"_s;
    return state + u"/captora/recovery"_s;
}

RecoveryStore::RecoveryStore(const QString &folder)
    : m_folder(folder)
    , m_worker([this] { run(); })
{}

RecoveryStore::~RecoveryStore()
{
    {
        std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_wake.notify_all();
    m_worker.join();
}

QString RecoveryStore::baseName(const QString &path) const
{
    const QByteArray hash =
        QCryptographicHash::hash(encodeFileName(path), QCryptographicHash::Sha256).toHex();
    return m_folder + u'/' + QString::fromLatin1(hash.left(32));
}

void RecoveryStore::post(std::function<void()> job)
{
    {
        std::lock_guard lock(m_mutex);
        m_jobs.push_back(std::move(job));
    }
    m_wake.notify_all();
}

void RecoveryStore::run()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_wake.wait(lock, [this] { return m_stopping || !m_jobs.empty(); });
        if (m_jobs.empty()) {
            if (m_stopping)
                return;
            continue;
        }
        std::function<void()> job = std::move(m_jobs.front());
        m_jobs.pop_front();
        m_busy = true;
        lock.unlock();
        job();
        lock.lock();
        m_busy = false;
        if (m_jobs.empty())
            m_idle.notify_all();
    }
}

void RecoveryStore::waitUntilIdle()
{
    std::unique_lock lock(m_mutex);
    m_idle.wait(lock, [this] { return m_jobs.empty() && !m_busy; });
}

void RecoveryStore::write(const QString &path, const SubtitleList &cues, bool chapterMarks)
{
    if (path.isEmpty())
        return;
    // The values, not the cues: the cues go on changing on the main thread.
    std::vector<CueState> values;
    values.reserve(size_t(cues.size()));
    for (const SubtitlePtr &cue : cues)
        values.push_back(cue->values());
    const QString base = baseName(path);
    const QString folder = m_folder;
    post([values = std::move(values), base, folder, path, chapterMarks] {
        if (!QDir().mkpath(folder)) {
            logLine(u"Warning: Could not create the recovery folder '%1'"_s.arg(folder));
            return;
        }
        SubtitleList list;
        list.reserve(qsizetype(values.size()));
        for (const CueState &v : values) {
            list.append(chapterMarks ? SubtitlePtr(VHVideoText::create(v.string, v.start, v.end, v.forced))
                                     : VHSubtitle::create(v.string, v.start, v.end, v.forced));
        }
        // The name of the edited file first: a copy is only ever found through it.
        QString error;
        const QString namePath = base + kPathSuffix;
        if (!QFileInfo::exists(namePath) && !writeFileAtomically(namePath, encodeFileName(path), &error)) {
            logLine(u"Warning: Could not write the recovery copy of '%1': %2"_s.arg(path, error));
            return;
        }
        const bool written = chapterMarks
                                 ? VHVideoText::writeVideoText(list, base + u".vtt"_s, Encodings::UTF8, false)
                                 : VHSubtitle::writeSubtitles(list, base + u".srt"_s, Encodings::UTF8, false);
        if (!written)
            logLine(u"Warning: Could not write the recovery copy of '%1'"_s.arg(path));
    });
}

void RecoveryStore::remove(const QString &path)
{
    if (path.isEmpty())
        return;
    const QString base = baseName(path);
    post([base] {
        for (const QString &suffix : {u".srt"_s, u".vtt"_s, kPathSuffix})
            QFile::remove(base + suffix);
    });
}

std::optional<RecoveryStore::Copy> RecoveryStore::copyFor(const QString &path)
{
    waitUntilIdle();
    const QString base = baseName(path);
    for (const bool chapterMarks : {false, true}) {
        const QString copyPath = base + (chapterMarks ? u".vtt"_s : u".srt"_s);
        const QFileInfo info(copyPath);
        if (info.isFile() && QFileInfo(base + kPathSuffix).isFile())
            return Copy{path, copyPath, info.lastModified(), chapterMarks};
    }
    return std::nullopt;
}

QList<RecoveryStore::Copy> RecoveryStore::copies()
{
    waitUntilIdle();
    QList<Copy> found;
    const QFileInfoList names =
        QDir(m_folder).entryInfoList({u"*"_s + kPathSuffix}, QDir::Files | QDir::Hidden, QDir::Name);
    for (const QFileInfo &name : names) {
        QFile file(name.absoluteFilePath());
        if (name.size() > 64 * 1024 || !file.open(QIODevice::ReadOnly))
            continue;
        const QString path = decodeFileName(file.readAll());
        // Only a copy that is really this path's (the name was not tampered with).
        if (path.isEmpty() || QFileInfo(baseName(path)).fileName() + kPathSuffix != name.fileName())
            continue;
        if (const auto copy = copyFor(path))
            found.append(*copy);
    }
    std::sort(found.begin(), found.end(), [](const Copy &a, const Copy &b) { return a.time < b.time; });
    return found;
}

bool RecoveryStore::isNewerThanFile(const Copy &copy)
{
    const QFileInfo file(copy.path);
    return !file.exists() || copy.time > file.lastModified();
}

std::optional<SubtitleList> RecoveryStore::readCopy(const Copy &copy, double fps, double movieDuration)
{
    // All lines deleted: the copy is an empty file.
    if (QFileInfo(copy.copyPath).size() == 0 && !copy.chapterMarks)
        return SubtitleList();
    return copy.chapterMarks
               ? VHVideoText::videoTextsFromFileAtURL(copy.copyPath, movieDuration, Encodings::UTF8, false)
               : VHSubtitle::subtitlesFromFileAtURL(copy.copyPath, fps, movieDuration, Encodings::UTF8,
                                                    false);
}

// The unzip wrapper over arbitrary bytes as a downloaded archive: never a crash, and never a
// file outside the folder it unpacks into. Seeded from the archives the web search tests
// make (scripts/fuzz-briefly runs tests/websearch/make_archives.py).
#include "ArchiveUnzip.h"
#include "Log.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

// The readers' FUZZ_CHECK, without their cue helpers.
#define FUZZ_CHECK(condition)                                                                                \
    do {                                                                                                     \
        if (!(condition)) {                                                                                  \
            std::fprintf(stderr, "invariant broken: %s (%s:%d)\n", #condition, __FILE__, __LINE__);          \
            std::abort();                                                                                    \
        }                                                                                                    \
    } while (false)

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    LogCapture quiet;
    // One folder per process: the archive and the folder it unpacks into, side by side.
    static QTemporaryDir root;
    const QString archive = root.filePath(QStringLiteral("download.zip"));
    const QString out = root.filePath(QStringLiteral("out"));
    {
        QFile file(archive);
        FUZZ_CHECK(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        FUZZ_CHECK(file.write(reinterpret_cast<const char *>(data), qint64(size)) == qint64(size));
    }
    FUZZ_CHECK(QDir().mkpath(out));
    QStringList problems;
    const bool ok = ArchiveUnzip::unzip(archive, out, &problems);
    // A failure always says why; success has nothing to say.
    FUZZ_CHECK(ok == problems.isEmpty());
    // Beside the archive there is only the folder; nothing in it is a link.
    const QStringList beside =
        QDir(root.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    FUZZ_CHECK(beside == (QStringList{QStringLiteral("download.zip"), QStringLiteral("out")}));
    qint64 total = 0;
    QDirIterator it(out, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QFileInfo info(it.next());
        FUZZ_CHECK(!info.isSymLink());
        total += info.isFile() ? info.size() : 0;
    }
    FUZZ_CHECK(total <= ArchiveUnzip::MaxTotalBytes);
    FUZZ_CHECK(QDir(out).removeRecursively());
    return 0;
}

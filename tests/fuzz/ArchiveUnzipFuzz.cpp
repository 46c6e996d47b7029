// The unzip wrapper over arbitrary bytes as a downloaded archive: never a crash, and never a
// file outside the folder it unpacks into. Seeded from the archives the web search tests
// make (scripts/fuzz-briefly runs tests/websearch/make_archives.py).
#include "ArchiveUnzip.h"
#include "Log.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

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
    // Beside the archive there is only the folder; nothing in it is a link. Names are walked
    // as bytes: an archive may name its files in any encoding.
    namespace fs = std::filesystem;
    const fs::path base(QFile::encodeName(root.path()).toStdString());
    std::vector<std::string> beside;
    for (const fs::directory_entry &entry : fs::directory_iterator(base))
        beside.push_back(entry.path().filename().string());
    std::sort(beside.begin(), beside.end());
    FUZZ_CHECK((beside == std::vector<std::string>{"download.zip", "out"}));
    std::uintmax_t total = 0;
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(base / "out")) {
        FUZZ_CHECK(!entry.is_symlink());
        if (entry.is_regular_file())
            total += entry.file_size();
    }
    FUZZ_CHECK(total <= std::uintmax_t(ArchiveUnzip::MaxTotalBytes));
    std::error_code error;
    fs::remove_all(base / "out", error);
    FUZZ_CHECK(!error);
    return 0;
}

#include "AtomicFile.h"
#include "FileNames.h"
#include "TestSupport.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
const QByteArray OldCues =
    QByteArray("1\r\n00:00:01,000 --> 00:00:02,000\r\n\xc3\xa9t\xc3\xa9 und noch mehr Text\r\n\r\n")
        .repeated(200);

QByteArray nativeName(const QString &path)
{
    return encodeFileName(path);
}

struct ChildResult
{
    bool written = false;
    QString error;
};

// Runs writeFileAtomically in a forked child after `prepare` (which lowers a limit or drops
// privileges there), and returns what it answered.
template <typename Prepare>
ChildResult writeInChild(const QString &path, const QByteArray &data, Prepare prepare)
{
    int pipeFds[2];
    if (::pipe(pipeFds) != 0) {
        ADD_FAILURE() << "no pipe";
        return {};
    }
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(pipeFds[0]);
        prepare();
        QString error;
        const bool written = writeFileAtomically(path, data, &error);
        const QByteArray answer = (written ? "1" : "0") + error.toUtf8();
        (void)::write(pipeFds[1], answer.constData(), size_t(answer.size()));
        ::_exit(0);
    }
    ::close(pipeFds[1]);
    QByteArray answer;
    char buffer[512];
    for (ssize_t got; (got = ::read(pipeFds[0], buffer, sizeof buffer)) > 0;)
        answer.append(buffer, got);
    ::close(pipeFds[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "the writing child died";
    return {answer.startsWith('1'), QString::fromUtf8(answer.mid(1))};
}

// The child's file size limit is `limit` bytes, with SIGXFSZ as the program leaves it.
ChildResult writeUnderSizeLimit(const QString &path, const QByteArray &data, rlim_t limit)
{
    return writeInChild(path, data, [limit] {
        rlimit lowered{limit, limit};
        ::setrlimit(RLIMIT_FSIZE, &lowered);
    });
}

pid_t deadProcessId()
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(0);
    ::waitpid(child, nullptr, 0);
    return child;
}
} // namespace

TEST(AtomicFile, ReplacesTheWholeFile)
{
    TempDir dir;
    const QString target = dir.write(u"cues.srt"_s, "an older and much longer content");
    QString error;
    EXPECT_TRUE(writeFileAtomically(target, "new", &error)) << qPrintable(error);
    EXPECT_EQ(dir.read(u"cues.srt"_s), "new");
    EXPECT_TRUE(writeFileAtomically(dir.path(u"fresh.srt"_s), "made", &error)) << qPrintable(error);
    EXPECT_EQ(dir.read(u"fresh.srt"_s), "made");
    EXPECT_EQ(dir.entries(), (QStringList{u"cues.srt"_s, u"fresh.srt"_s}));
}

// Small payloads used to die inside a write buffer and be renamed over the target anyway.
TEST(AtomicFile, ASizeLimitKeepsTheOldFileByteForByteForSmallAndLargePayloads)
{
    struct Case
    {
        rlim_t limit;
        qsizetype size;
    };
    for (const Case c :
         {Case{2048, 3000}, Case{4096, 10 * 1024}, Case{4096, 15 * 1024}, Case{4096, 1 << 20}}) {
        SCOPED_TRACE(c.size);
        TempDir dir;
        const QString target = dir.write(u"cues.srt"_s, OldCues.left(qsizetype(c.limit) - 1));
        const ChildResult replaced = writeUnderSizeLimit(target, QByteArray(c.size, 'x'), c.limit);
        EXPECT_FALSE(replaced.written);
        EXPECT_EQ(replaced.error, u"File too large"_s);
        EXPECT_TRUE(dir.read(u"cues.srt"_s) == OldCues.left(qsizetype(c.limit) - 1))
            << "the old file changed";

        const ChildResult created =
            writeUnderSizeLimit(dir.path(u"new.srt"_s), QByteArray(c.size, 'x'), c.limit);
        EXPECT_FALSE(created.written);
        EXPECT_EQ(created.error, u"File too large"_s);
        EXPECT_EQ(dir.entries(), QStringList{u"cues.srt"_s});
    }
}

TEST(AtomicFile, AFullFilesystemKeepsTheOldFileAndSaysWhy)
{
    SmallTmpfs disk(256 * 1024);
    if (!disk.mounted())
        GTEST_SKIP() << qPrintable(disk.why());
    const QByteArray old = OldCues.left(10219);
    const QString target = disk.writeAndFill(u"cues.srt"_s, old);
    ASSERT_EQ(::link(nativeName(target).constData(), nativeName(disk.path(u"second-name.srt"_s)).constData()),
              0);
    for (const qsizetype size :
         {qsizetype(1000), qsizetype(10 * 1024), qsizetype(15 * 1024), qsizetype(1 << 20)}) {
        SCOPED_TRACE(size);
        QString error;
        // Two names: written in place. One name: through a temporary.
        EXPECT_FALSE(writeFileAtomically(target, QByteArray(size, 'n'), &error));
        EXPECT_TRUE(error.endsWith(u"No space left on device"_s)) << qPrintable(error);
        EXPECT_TRUE(disk.read(u"cues.srt"_s) == old) << "the old file changed";
        EXPECT_TRUE(disk.read(u"second-name.srt"_s) == old) << "the old file changed";
        ASSERT_TRUE(QFile::remove(disk.path(u"second-name.srt"_s)));
        error.clear();
        EXPECT_FALSE(writeFileAtomically(target, QByteArray(size, 'n'), &error));
        EXPECT_EQ(error, u"No space left on device"_s);
        EXPECT_TRUE(disk.read(u"cues.srt"_s) == old) << "the old file changed";
        ASSERT_EQ(
            ::link(nativeName(target).constData(), nativeName(disk.path(u"second-name.srt"_s)).constData()),
            0);
        EXPECT_EQ(
            QDir(disk.path(QString())).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
            (QStringList{u"cues.srt"_s, u"filler"_s, u"second-name.srt"_s}));
    }
}

TEST(AtomicFile, RefusesEverythingButARegularFileAndLeavesItAsItIs)
{
    TempDir dir;
    ASSERT_TRUE(QDir().mkdir(dir.path(u"movie.srt"_s)));
    dir.write(u"movie.srt/inside"_s, "kept");
    ASSERT_EQ(::mkfifo(nativeName(dir.path(u"pipe.srt"_s)).constData(), 0644), 0);
    ASSERT_TRUE(QFile::link(u"loop-b.srt"_s, dir.path(u"loop-a.srt"_s)));
    ASSERT_TRUE(QFile::link(u"loop-a.srt"_s, dir.path(u"loop-b.srt"_s)));
    ASSERT_TRUE(QFile::link(u"gone.srt"_s, dir.path(u"dangling.srt"_s)));
    const int sock = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray socketPath = nativeName(dir.path(u"socket.srt"_s));
    ASSERT_LT(size_t(socketPath.size()), sizeof address.sun_path);
    std::memcpy(address.sun_path, socketPath.constData(), size_t(socketPath.size()));
    ASSERT_EQ(::bind(sock, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
    // A character device of our own (the one /dev/null is); root may make one.
    const bool haveDevice =
        ::mknod(nativeName(dir.path(u"null.srt"_s)).constData(), S_IFCHR | 0666, makedev(1, 3)) == 0;
    if (haveDevice) {
        ASSERT_TRUE(QFile::link(u"null.srt"_s, dir.path(u"to-device.srt"_s)));
    }
    const QStringList before = dir.entries();

    struct Case
    {
        QString name, reason;
    };
    QList<Case> cases{{u"movie.srt"_s, u"is a folder, not a regular file"_s},
                      {u"pipe.srt"_s, u"is a FIFO, not a regular file"_s},
                      {u"socket.srt"_s, u"is a socket, not a regular file"_s},
                      {u"loop-a.srt"_s, u"Too many levels of symbolic links"_s},
                      {u"dangling.srt"_s, u"is a symbolic link to a file that does not exist"_s},
                      {u"no/such/folder.srt"_s, u"No such file or directory"_s}};
    if (haveDevice) {
        cases.append({u"null.srt"_s, u"is a character device, not a regular file"_s});
        cases.append({u"to-device.srt"_s, u"is a character device, not a regular file"_s});
    }
    for (const Case &c : cases) {
        QString error;
        EXPECT_FALSE(writeFileAtomically(dir.path(c.name), "text", &error)) << qPrintable(c.name);
        EXPECT_TRUE(error.contains(c.reason)) << qPrintable(c.name) << ": " << qPrintable(error);
    }
    ::close(sock);
    EXPECT_EQ(dir.entries(), before);
    EXPECT_EQ(dir.read(u"movie.srt/inside"_s), "kept");
    struct stat info
    {
    };
    ASSERT_EQ(::lstat(nativeName(dir.path(u"pipe.srt"_s)).constData(), &info), 0);
    EXPECT_TRUE(S_ISFIFO(info.st_mode));
    if (haveDevice) {
        ASSERT_EQ(::lstat(nativeName(dir.path(u"null.srt"_s)).constData(), &info), 0);
        EXPECT_TRUE(S_ISCHR(info.st_mode));
    }
}

TEST(AtomicFile, WritesThroughASymbolicLinkAndKeepsTheLink)
{
    TempDir dir;
    ASSERT_TRUE(QDir().mkdir(dir.path(u"real"_s)));
    dir.write(u"real/cues.srt"_s, "old");
    ASSERT_TRUE(QFile::link(u"real/cues.srt"_s, dir.path(u"link.srt"_s)));
    QString error;
    ASSERT_TRUE(writeFileAtomically(dir.path(u"link.srt"_s), "new", &error)) << qPrintable(error);
    EXPECT_EQ(QFileInfo(dir.path(u"link.srt"_s)).symLinkTarget(), dir.path(u"real/cues.srt"_s));
    EXPECT_EQ(dir.read(u"real/cues.srt"_s), "new");
    EXPECT_EQ(QDir(dir.path(u"real"_s)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList{u"cues.srt"_s});
}

TEST(AtomicFile, KeepsOwnerGroupModeSetgidAndExtendedAttributes)
{
    TempDir dir;
    const QString target = dir.write(u"cues.srt"_s, "old");
    const QByteArray name = nativeName(target);
    const bool root = ::geteuid() == 0;
    if (root) {
        ASSERT_EQ(::chown(name.constData(), 1234, 5678), 0);
    }
    ASSERT_EQ(::chmod(name.constData(), root ? 02640 : 0640), 0);
    const bool haveXattr = ::setxattr(name.constData(), "user.captora.note", "kept", 4, 0) == 0;

    QString error;
    ASSERT_TRUE(writeFileAtomically(target, "new", &error)) << qPrintable(error);
    EXPECT_EQ(dir.read(u"cues.srt"_s), "new");
    struct stat info
    {
    };
    ASSERT_EQ(::stat(name.constData(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, root ? 02640u : 0640u);
    if (root) {
        EXPECT_EQ(info.st_uid, 1234u);
        EXPECT_EQ(info.st_gid, 5678u);
    }
    if (haveXattr) {
        char value[16] = {};
        EXPECT_EQ(::getxattr(name.constData(), "user.captora.note", value, sizeof value), 4);
        EXPECT_STREQ(value, "kept");
    }
    EXPECT_EQ(dir.entries(), QStringList{u"cues.srt"_s});
}

TEST(AtomicFile, AFileWithSeveralHardLinksIsWrittenInPlaceForEveryName)
{
    TempDir dir;
    const QString target = dir.write(u"cues.srt"_s, OldCues);
    ASSERT_EQ(::link(nativeName(target).constData(), nativeName(dir.path(u"other-name.srt"_s)).constData()),
              0);
    struct stat before
    {
    }, after{};
    ASSERT_EQ(::stat(nativeName(target).constData(), &before), 0);
    QString error;
    ASSERT_TRUE(writeFileAtomically(target, "short", &error)) << qPrintable(error);
    EXPECT_EQ(dir.read(u"cues.srt"_s), "short");
    EXPECT_EQ(dir.read(u"other-name.srt"_s), "short");
    ASSERT_TRUE(writeFileAtomically(target, OldCues + OldCues, &error)) << qPrintable(error);
    EXPECT_EQ(dir.read(u"other-name.srt"_s), OldCues + OldCues);
    ASSERT_EQ(::stat(nativeName(target).constData(), &after), 0);
    EXPECT_EQ(after.st_ino, before.st_ino);
    EXPECT_EQ(after.st_nlink, 2u);
    EXPECT_EQ(dir.entries(), (QStringList{u"cues.srt"_s, u"other-name.srt"_s}));

    // A size limit met while writing in place puts the old content back.
    const ChildResult limited = writeUnderSizeLimit(target, QByteArray(1 << 20, 'x'), 64 * 1024);
    EXPECT_FALSE(limited.written);
    EXPECT_EQ(limited.error, u"File too large"_s);
    EXPECT_EQ(dir.read(u"other-name.srt"_s), OldCues + OldCues);
    EXPECT_EQ(dir.entries(), (QStringList{u"cues.srt"_s, u"other-name.srt"_s}));
}

TEST(AtomicFile, RemovesStaleTemporariesOfDeadWritersBesideTheTargetOnly)
{
    TempDir dir;
    const QString target = dir.write(u"cues.srt"_s, "old");
    const QString dead = QString::number(deadProcessId());
    const QString stale = u".cues.srt.captora-%1-1a2b3c.tmp"_s.arg(dead);
    dir.write(stale, QByteArray(100000, 'p'));
    const QStringList kept{u".cues.srt.captora-1-1a2b3c.tmp"_s,             // pid 1 runs
                           u".cues.srt.captora-%1-1a2b3c.old"_s.arg(dead),  // a copy of old content
                           u".other.srt.captora-%1-1a2b3c.tmp"_s.arg(dead), // beside another target
                           u".cues.srt.captora-%1-xyz.tmp"_s.arg(dead)};    // not our pattern
    for (const QString &name : kept)
        dir.write(name, "keep");
    QString error;
    ASSERT_TRUE(writeFileAtomically(target, "new", &error)) << qPrintable(error);
    QStringList expected = kept;
    expected.append(u"cues.srt"_s);
    expected.sort();
    EXPECT_EQ(dir.entries(), expected);
}

TEST(AtomicFile, AReadOnlyFileInAWritableFolderStaysAsItWas)
{
    TempDir dir;
    const QString target = dir.write(u"cues.srt"_s, "old");
    ASSERT_EQ(::chmod(nativeName(target).constData(), 0444), 0);
    ASSERT_EQ(::chmod(nativeName(dir.path(QString())).constData(), 0777), 0);
    // Root may write any file: the writer runs as nobody when the test runs as root.
    const ChildResult result = writeInChild(target, "new", [] {
        if (::geteuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0))
            ::_exit(3);
    });
    EXPECT_FALSE(result.written);
    EXPECT_EQ(result.error, u"Permission denied"_s);
    EXPECT_EQ(dir.read(u"cues.srt"_s), "old");
    EXPECT_EQ(dir.entries(), QStringList{u"cues.srt"_s});
}

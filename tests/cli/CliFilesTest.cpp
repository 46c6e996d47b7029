// captora-cli against files that are not what they seem: FIFOs, devices, full disks, names
// that are not UTF-8, lines of megabytes.
#include "FileNames.h"
#include "TestSupport.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {
struct CliRun
{
    int status = -1; // -1: crashed or hung
    QByteArray out, err;
    qint64 milliseconds = 0;

    QStringList errorLines() const { return QString::fromUtf8(err).split(u'\n').filter(u"Error: "_s); }
};

CliRun runProgram(const QString &program, const QStringList &args, const QString &folder = QString())
{
    QProcess process;
    process.setWorkingDirectory(folder);
    QElapsedTimer timer;
    timer.start();
    process.start(program, args);
    process.closeWriteChannel();
    if (!process.waitForFinished(20000))
        ADD_FAILURE() << "did not finish: " << qPrintable(args.join(u' '));
    return {process.exitStatus() == QProcess::NormalExit && process.state() == QProcess::NotRunning
                ? process.exitCode()
                : -1,
            process.readAllStandardOutput(), process.readAllStandardError(), timer.elapsed()};
}

CliRun cli(const QStringList &args)
{
    return runProgram(QStringLiteral(CAPTORA_CLI), args);
}

// A SubRip file of `size` bytes or a little more.
QByteArray cuesOfSize(qsizetype size)
{
    QByteArray text;
    for (int n = 1; text.size() < size; ++n)
        text += QByteArray::number(n) + "\n00:00:" + QByteArray::number(10 + n % 50) +
                ",000 --> 00:00:" + QByteArray::number(10 + n % 50) + ",500\nLine number " +
                QByteArray::number(n) + "\n\n";
    return text;
}
} // namespace

TEST(CliFiles, AFullDiskKeepsTheOldFileAndConvertAndShiftInPlaceExitWithOneError)
{
    SmallTmpfs disk(512 * 1024);
    if (!disk.mounted())
        GTEST_SKIP() << qPrintable(disk.why());
    TempDir elsewhere;
    const QString input = elsewhere.write(u"in.srt"_s, cuesOfSize(10 * 1024));
    const QByteArray old = cuesOfSize(10219);
    const QString target = disk.writeAndFill(u"target.srt"_s, old);

    for (const QStringList &args :
         {QStringList{u"convert"_s, input, target}, QStringList{u"shift"_s, u"--by"_s, u"1"_s, target},
          QStringList{u"shift"_s, u"--by"_s, u"1"_s, u"-o"_s, target, input}}) {
        SCOPED_TRACE(args.join(u' ').toStdString());
        const CliRun run = cli(args);
        EXPECT_EQ(run.status, 1);
        ASSERT_EQ(run.errorLines().size(), 1) << run.err.toStdString();
        EXPECT_EQ(run.errorLines()[0], u"Error: Could not write '%1': No space left on device"_s.arg(target));
        EXPECT_EQ(disk.read(u"target.srt"_s), old);
    }
    EXPECT_EQ(QDir(disk.path(QString())).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              (QStringList{u"filler"_s, u"target.srt"_s}));
}

TEST(CliFiles, FifosDevicesAndLinkLoopsAreRefusedAtOnceAndNeverReplaced)
{
    TempDir dir;
    const QString input = dir.write(u"in.srt"_s, cuesOfSize(500));
    ASSERT_EQ(::mkfifo(encodeFileName(dir.path(u"pipe.srt"_s)).constData(), 0644), 0);
    ASSERT_TRUE(QFile::link(u"/dev/zero"_s, dir.path(u"zero.srt"_s)));
    ASSERT_TRUE(QFile::link(u"/dev/null"_s, dir.path(u"null.srt"_s)));
    ASSERT_TRUE(QFile::link(u"loop-b.srt"_s, dir.path(u"loop-a.srt"_s)));
    ASSERT_TRUE(QFile::link(u"loop-a.srt"_s, dir.path(u"loop-b.srt"_s)));
    const QStringList before = dir.entries();

    struct Case
    {
        QStringList args;
        QString error;
    };
    const QString pipe = dir.path(u"pipe.srt"_s), zero = dir.path(u"zero.srt"_s),
                  loop = dir.path(u"loop-a.srt"_s);
    const QList<Case> cases{
        {{u"dump"_s, pipe}, u"Could not read '%1': it is a FIFO, not a regular file"_s.arg(pipe)},
        {{u"convert"_s, pipe, dir.path(u"out.srt"_s)}, u"Could not read '%1': it is a FIFO"_s.arg(pipe)},
        {{u"shift"_s, u"--by"_s, u"1"_s, pipe}, u"it is a FIFO, not a regular file"_s},
        {{u"detect-encoding"_s, pipe}, u"it is a FIFO, not a regular file"_s},
        {{u"dump"_s, u"/dev/zero"_s}, u"it is a character device, not a regular file"_s},
        {{u"dump"_s, zero}, u"it is a character device, not a regular file"_s},
        {{u"dump"_s, loop}, u"Too many levels of symbolic links"_s},
        {{u"convert"_s, input, pipe}, u"is a FIFO, not a regular file; it was left as it is"_s},
        {{u"convert"_s, input, dir.path(u"null.srt"_s)}, u"is a character device, not a regular file"_s},
        {{u"convert"_s, input, loop}, u"Could not write '%1': Too many levels of symbolic links"_s.arg(loop)},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.args.join(u' ').toStdString());
        const CliRun run = cli(c.args);
        EXPECT_EQ(run.status, 1);
        EXPECT_LT(run.milliseconds, 10000);
        ASSERT_EQ(run.errorLines().size(), 1) << run.err.toStdString();
        EXPECT_TRUE(run.errorLines()[0].contains(c.error)) << run.err.toStdString();
    }
    EXPECT_EQ(dir.entries(), before);
    struct stat info
    {
    };
    ASSERT_EQ(::lstat(encodeFileName(pipe).constData(), &info), 0);
    EXPECT_TRUE(S_ISFIFO(info.st_mode));
    ASSERT_EQ(::stat("/dev/null", &info), 0);
    EXPECT_TRUE(S_ISCHR(info.st_mode));
}

TEST(CliFiles, ASubtitleFileAboveTheLimitIsRefusedNamingItsSize)
{
    TempDir dir;
    QFile sparse(dir.path(u"huge.srt"_s));
    ASSERT_TRUE(sparse.open(QIODevice::WriteOnly) && sparse.resize(qint64(300) << 20));
    sparse.close();
    const CliRun run = cli({u"dump"_s, sparse.fileName()});
    EXPECT_EQ(run.status, 1);
    EXPECT_LT(run.milliseconds, 10000);
    ASSERT_EQ(run.errorLines().size(), 1);
    EXPECT_EQ(run.errorLines()[0],
              u"Error: Could not read '%1': it is 300 MB (314572800 bytes), more than the "
              u"256 MB read at most"_s.arg(sparse.fileName()));
}

TEST(CliFiles, NamesThatAreNotUtf8AreReadAndWrittenWithTheirExactBytes)
{
    TempDir dir;
    const QByteArray folder = encodeFileName(dir.path(QString()));
    QFile input(QString::fromLatin1(folder + "/in")); // written under an ASCII name, then renamed
    ASSERT_TRUE(input.open(QIODevice::WriteOnly));
    input.write(cuesOfSize(300));
    input.close();
    ASSERT_EQ(
        ::rename(QByteArray(folder + "/in").constData(), QByteArray(folder + "/caf\xe9.srt").constData()), 0);

    // bash turns $'\xe9' into the byte 0xE9, which no QString argument can carry.
    const CliRun run = runProgram(
        u"/bin/bash"_s,
        {u"-c"_s, u"exec \"$0\" convert $'caf\\xe9.srt' $'caf\\xe9 out.srt'"_s, QStringLiteral(CAPTORA_CLI)},
        dir.path(QString()));
    EXPECT_EQ(run.status, 0) << run.err.toStdString();
    QFile output(QString::fromLatin1(folder + "/check"));
    ASSERT_EQ(::rename(QByteArray(folder + "/caf\xe9 out.srt").constData(),
                       QByteArray(folder + "/check").constData()),
              0)
        << "no file with the exact bytes of the output name";
    ASSERT_TRUE(output.open(QIODevice::ReadOnly));
    EXPECT_TRUE(output.readAll().startsWith("1\n00:00:11,000 --> 00:00:11,500\nLine number 1\n"));
}

TEST(CliFiles, AHugeBadLineIsQuotedCutWithItsLength)
{
    TempDir dir;
    const QByteArray line(2'000'000, 'z');
    const QString path = dir.write(u"bad.srt"_s, "1\n\n" + line + "\n");
    const CliRun run = cli({u"dump"_s, path});
    EXPECT_EQ(run.status, 1);
    EXPECT_LT(run.err.size(), 4000) << "standard error holds " << run.err.size() << " bytes";
    const QByteArray shown = QByteArray(200, 'z') + "\xe2\x80\xa6 (2000000 characters)";
    EXPECT_TRUE(run.err.contains(QByteArray("Warning: Parsing SRT fails in line (3) '" + shown + "'")))
        << run.err.left(2000).toStdString();
}

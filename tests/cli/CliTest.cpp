#include "TestSupport.h"
#include "VHSubtitle.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
struct CliRun
{
    bool crashed = true;
    int status = -1;
    QByteArray out, err;

    qsizetype errorLines() const { return QString::fromUtf8(err).split(u'\n').filter(u"Error: "_s).size(); }
};

CliRun cli(const QStringList &args)
{
    QProcess process;
    process.start(QStringLiteral(CAPTORA_CLI), args);
    process.closeWriteChannel(); // nobody answers questions
    CliRun run;
    if (!process.waitForFinished(30000)) {
        process.kill();
        process.waitForFinished();
        ADD_FAILURE() << "captora-cli did not finish";
        return run;
    }
    run.crashed = process.exitStatus() != QProcess::NormalExit;
    run.status = process.exitCode();
    run.out = process.readAllStandardOutput();
    run.err = process.readAllStandardError();
    return run;
}

const QByteArray Clean = "1\r\n00:00:01,500 --> 00:00:02,750 !!!\r\nSay \"hi\" \\ a\tb\x01\r\n  second line\r\n\r\n"
                         "2\r\n00:00:03,100 --> 00:00:04,000\r\nGr\xc3\xbc\xc3\x9f" "e \xf0\x9f\x98\x80\r\n\r\n";
} // namespace

TEST(CliDump, PrintsEveryCueAsJsonWithShortestRoundTripNumbers)
{
    TempDir dir;
    const CliRun run = cli({u"dump"_s, dir.write(u"in.srt"_s, Clean)});
    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(run.err.isEmpty()) << run.err.toStdString();

    QJsonParseError error;
    const QJsonArray cues = QJsonDocument::fromJson(run.out, &error).array();
    ASSERT_EQ(error.error, QJsonParseError::NoError) << run.out.toStdString();
    ASSERT_EQ(cues.size(), 2);
    EXPECT_EQ(cues[0][u"start"_s].toDouble(), 1.5);
    EXPECT_EQ(cues[0][u"end"_s].toDouble(), 2.75);
    EXPECT_TRUE(cues[0][u"forced"_s].toBool());
    EXPECT_EQ(cues[0][u"text"_s].toString(), u"Say \"hi\" \\ a\tb\x01\nsecond line"_s);
    EXPECT_FALSE(cues[1][u"forced"_s].toBool());
    EXPECT_EQ(cues[1][u"text"_s].toString(), u"Grüße \U0001F600"_s);
    for (char c : run.out) // JSON strings hold no raw control characters
        EXPECT_TRUE(static_cast<unsigned char>(c) >= 0x20 || c == '\n') << int(c);

    // Numbers are the model's doubles exactly, in their shortest text (3.1, not 3.1000000000000001).
    const auto model = VHSubtitle::subtitlesFromSubRipString(QString::fromUtf8(Clean));
    ASSERT_TRUE(model.has_value());
    EXPECT_EQ(cues[1][u"start"_s].toDouble(), model->at(1)->start());
    EXPECT_TRUE(run.out.contains("\"start\": 1.5, \"end\": 2.75,"));
    const QRegularExpression number(u"\"(start|end)\": ([-0-9.eE+]+)"_s);
    for (const auto &match : number.globalMatch(QString::fromUtf8(run.out)))
        EXPECT_FALSE(match.captured(2).contains(QRegularExpression(u"0000|9999"_s))) << match.captured(2).toStdString();
}

TEST(CliUsage, ExitStatusesTellSuccessFailureAndMisuseApart)
{
    TempDir dir;
    const QString input = dir.write(u"in.srt"_s, Clean);
    EXPECT_EQ(cli({u"dump"_s, input}).status, 0);
    EXPECT_EQ(cli({u"convert"_s, u"--help"_s}).status, 0);
    EXPECT_EQ(cli({u"dump"_s, dir.path(u"missing.srt"_s)}).status, 1);
    for (const QStringList &misuse : {QStringList{}, QStringList{u"frobnicate"_s}, QStringList{u"dump"_s, input, input},
                                      QStringList{u"dump"_s, u"--fps"_s, u"abc"_s, input}}) {
        const CliRun run = cli(misuse);
        EXPECT_EQ(run.status, 2) << misuse.join(u' ').toStdString();
        EXPECT_TRUE(run.out.isEmpty());
    }
}

TEST(CliBadInput, EveryUnreadableInputGivesOneErrorLineAndTouchesNoOutput)
{
    TempDir dir;
    ASSERT_TRUE(QDir().mkdir(dir.path(u"folder.srt"_s)));
    QByteArray noise = "\x89PNG\r\n\x1a\n\xc3\x28\xff\xfe";
    QRandomGenerator random(20240601);
    while (noise.size() < 4096)
        noise.append(char(random.bounded(256)));
    const QStringList inputs{dir.path(u"missing.srt"_s), dir.path(u"folder.srt"_s), dir.write(u"noise.srt"_s, noise),
                             dir.write(u"blank.srt"_s, "\n\r\n  \n\t\n"), dir.write(u"empty.srt"_s, {})};
    const QByteArray existing = "kept as it was\n";
    dir.write(u"existing.srt"_s, existing);

    for (const QString &input : inputs) {
        SCOPED_TRACE(QFileInfo(input).fileName().toStdString());
        for (const QStringList &args : {QStringList{u"dump"_s, input}, {u"convert"_s, input, dir.path(u"new.srt"_s)},
                                        {u"convert"_s, input, dir.path(u"existing.srt"_s)}}) {
            const CliRun run = cli(args);
            EXPECT_FALSE(run.crashed);
            EXPECT_EQ(run.status, 1);
            EXPECT_EQ(run.errorLines(), 1) << run.err.toStdString();
            EXPECT_TRUE(run.out.isEmpty());
        }
        EXPECT_EQ(dir.read(u"existing.srt"_s), existing);
    }
    EXPECT_EQ(dir.entries(), (QStringList{u"blank.srt"_s, u"empty.srt"_s, u"existing.srt"_s, u"folder.srt"_s,
                                          u"noise.srt"_s}));
}

TEST(CliConvert, WritesCanonicalSubRipInEitherLineBreakStyle)
{
    TempDir dir;
    const QString input = dir.write(u"in.srt"_s, "00:00:01,5 --> 00:00:02.75\r\n   Hello\r\nthere   \r\n\r\n"
                                                 "00:00:03,000 --> 00:00:04,000 !!!\r\nForced\r\n\r\n"
                                                 "00:00:05,000 --> 00:00:06,000\r\nEnd\r\n");
    const QByteArray expected = "1\n00:00:01,500 --> 00:00:02,750\nHello\nthere\n\n"
                                "2\n00:00:03,000 --> 00:00:04,000 !!!\nForced\n\n"
                                "3\n00:00:05,000 --> 00:00:06,000\nEnd\n\n";
    dir.write(u"out.srt"_s, QByteArray(10000, 'x'));

    EXPECT_EQ(cli({u"convert"_s, input, dir.path(u"out.srt"_s)}).status, 0);
    EXPECT_EQ(dir.read(u"out.srt"_s), expected);
    EXPECT_EQ(cli({u"convert"_s, u"--windows-line-breaks"_s, input, dir.path(u"crlf.srt"_s)}).status, 0);
    EXPECT_EQ(dir.read(u"crlf.srt"_s), QByteArray(expected).replace("\n", "\r\n"));
    EXPECT_EQ(dir.entries(), (QStringList{u"crlf.srt"_s, u"in.srt"_s, u"out.srt"_s}));
}

TEST(CliConvert, UnwritableOutputIsReportedAndLeftUntouched)
{
    TempDir dir;
    const QString input = dir.write(u"in.srt"_s, Clean);
    ASSERT_TRUE(QDir().mkdir(dir.path(u"out.srt"_s)));
    dir.write(u"out.srt/inside"_s, "kept");

    for (const QString &out : {dir.path(u"out.srt"_s), dir.path(u"no/such/folder.srt"_s)}) {
        const CliRun run = cli({u"convert"_s, input, out});
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.errorLines(), 1) << run.err.toStdString();
    }
    EXPECT_EQ(dir.read(u"out.srt/inside"_s), "kept");
    EXPECT_EQ(QDir(dir.path(u"out.srt"_s)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList{u"inside"_s});
    EXPECT_EQ(dir.entries(), (QStringList{u"in.srt"_s, u"out.srt"_s}));
}

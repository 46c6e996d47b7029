// captora-cli, run as a user runs it.
#include "Resources.h"
#include "TestSupport.h"
#include "TextCodec.h"
#include "VHEncoding.h"
#include "VHSubtitle.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QRandomGenerator>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
struct CliRun
{
    int status = -1; // -1: crashed or hung
    QByteArray out, err;

    qsizetype errorLines() const { return QString::fromUtf8(err).split(u'\n').filter(u"Error: "_s).size(); }
};

CliRun cli(const QStringList &args)
{
    QProcess process;
    process.start(QStringLiteral(CAPTORA_CLI), args);
    process.closeWriteChannel(); // nobody answers questions
    if (!process.waitForFinished(30000))
        ADD_FAILURE() << "captora-cli did not finish"; // killed as the process object goes
    return {process.exitStatus() == QProcess::NormalExit && process.state() == QProcess::NotRunning
                ? process.exitCode()
                : -1,
            process.readAllStandardOutput(), process.readAllStandardError()};
}

const QByteArray Clean = "1\r\n00:00:01,500 --> 00:00:02,750 !!!\r\nSay \"hi\" \\ a\tb\x01\r\n  second line\r\n\r\n"
                         "2\r\n00:00:03,100 --> 00:00:04,000\r\nGr\xc3\xbc\xc3\x9f" "e \xf0\x9f\x98\x80\r\n\r\n";

QByteArray russianInCp1251()
{
    QByteArray bytes;
    EXPECT_TRUE(TextCodec::encode(u"1\n00:00:01,000 --> 00:00:02,000\nГде ты был вчера вечером?\n\n"
                                  u"2\n00:00:03,000 --> 00:00:04,000\nЗнаю, прости. У меня сел телефон.\n"_s,
                                  Encodings::WindowsCP1251, &bytes));
    return bytes;
}
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
    EXPECT_TRUE(run.out.contains("\"start\": 3.1, \"end\": 4,")) << run.out.toStdString();
}

TEST(CliDump, SalvageReadsWhatCanBePlacedAndWarnsOfEverySkippedLine)
{
    TempDir dir;
    const QString broken = dir.write(u"broken.srt"_s, "1\n00:00:01,000 --> 00:00:02,000\nOne\n\n"
                                                      "2\n00:00:03,000 - > 00:00:04,000\nTwo\n\n"
                                                      "3\n00:00:05,000 --> 00:00:06,000\nThree\n");
    const CliRun refused = cli({u"dump"_s, broken});
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(refused.out.isEmpty());
    EXPECT_EQ(refused.errorLines(), 1);

    const CliRun run = cli({u"dump"_s, u"--salvage"_s, broken});
    EXPECT_EQ(run.status, 0) << run.err.toStdString();
    const QJsonArray cues = QJsonDocument::fromJson(run.out).array();
    ASSERT_EQ(cues.size(), 2);
    EXPECT_EQ(cues[1][u"text"_s].toString(), u"Three"_s);
    const QStringList err = QString::fromUtf8(run.err).split(u'\n', Qt::SkipEmptyParts);
    EXPECT_EQ(err, (QStringList{u"Warning: Parsing SRT fails in line (6) '00:00:03,000 - > 00:00:04,000'"_s,
                                u"Warning: Parsing fails, in line 1 (9223372036854775807, 9223372036854775807)"_s,
                                u"Info: SubRip stopped at line 6 '00:00:03,000 - > 00:00:04,000'"_s,
                                u"Info: MicroDVD stopped at line 1 '1'"_s,
                                u"Warning: Skipped line (6) '00:00:03,000 - > 00:00:04,000'"_s,
                                u"Warning: Skipped line (7) 'Two'"_s,
                                u"Info: Read 2 cues of '%1' as SubRip, leaving out 2 lines"_s.arg(broken)}));

    // convert takes the same option and writes a clean file; the input stays as it was.
    const QString out = dir.path(u"clean.srt"_s);
    EXPECT_EQ(cli({u"convert"_s, u"--salvage"_s, broken, out}).status, 0);
    EXPECT_EQ(dir.read(u"clean.srt"_s), "1\n00:00:01,000 --> 00:00:02,000\nOne\n\n"
                                        "2\n00:00:05,000 --> 00:00:06,000\nThree\n\n");
    EXPECT_EQ(cli({u"dump"_s, u"--salvage"_s, u"--chapters"_s, broken}).status, 2);
}

TEST(CliUsage, MisuseExitsWithTwoAndHelpWithZero)
{
    TempDir dir;
    const QString input = dir.write(u"in.srt"_s, Clean);
    EXPECT_EQ(cli({u"convert"_s, u"--help"_s}).status, 0);
    for (const QStringList &misuse :
         {QStringList{}, {u"frobnicate"_s}, {u"dump"_s, input, input}, {u"dump"_s, u"--fps"_s, u"abc"_s, input},
          {u"detect-encoding"_s}, {u"detect-encoding"_s, u"--ratio"_s, u"-1"_s, input}, {u"encodings"_s, u"extra"_s}}) {
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
            EXPECT_EQ(run.status, 1);
            EXPECT_EQ(run.errorLines(), 1) << run.err.toStdString();
            EXPECT_TRUE(run.out.isEmpty());
        }
        EXPECT_EQ(dir.read(u"existing.srt"_s), existing);
    }
    EXPECT_EQ(dir.entries(), (QStringList{u"blank.srt"_s, u"empty.srt"_s, u"existing.srt"_s, u"folder.srt"_s,
                                          u"noise.srt"_s}));

    // The detector rejects noise, and says it cannot read a missing file.
    const CliRun noiseRun = cli({u"detect-encoding"_s, dir.path(u"noise.srt"_s)});
    EXPECT_EQ(noiseRun.status, 1);
    EXPECT_TRUE(noiseRun.out.contains("decision: rejected")) << noiseRun.out.toStdString();
    const CliRun missing = cli({u"detect-encoding"_s, dir.path(u"missing.srt"_s)});
    EXPECT_EQ(missing.status, 1);
    EXPECT_TRUE(missing.err.startsWith("Error: Could not read")) << missing.err.toStdString();
}

// Also over a longer file, leaving nothing else behind.
TEST(CliConvert, WritesSubRipInEitherLineBreakStyle)
{
    TempDir dir;
    const QString input = dir.write(u"in.srt"_s, Clean);
    const QByteArray expected = "1\n00:00:01,500 --> 00:00:02,750 !!!\nSay \"hi\" \\ a\tb\x01\nsecond line\n\n"
                                "2\n00:00:03,100 --> 00:00:04,000\nGr\xc3\xbc\xc3\x9f" "e \xf0\x9f\x98\x80\n\n";
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

TEST(CliEncodings, EncodingsListsTheCatalogueWithNumbersAndItsSeparator)
{
    const CliRun run = cli({u"encodings"_s});
    EXPECT_EQ(run.status, 0);
    const QStringList lines = QString::fromUtf8(run.out).split(u'\n', Qt::SkipEmptyParts);
    const QList<VHEncoding> &rows = VHEncoding::catalogue();
    ASSERT_EQ(lines.size(), rows.size());
    for (qsizetype i = 0; i < rows.size(); ++i)
        EXPECT_EQ(lines[i].simplified(), rows[i].isSeparator() ? u"----------"_s
                                                               : QString::number(rows[i].codePage()) + u' ' + rows[i].name());
}

TEST(CliEncodings, DetectEncodingReportsTheWinnerEveryScoreAndBadCharactersOnlyWhenAsked)
{
    TempDir dir;
    const QString path = dir.write(u"russian.srt"_s, russianInCp1251());
    const CliRun run = cli({u"detect-encoding"_s, path});
    EXPECT_EQ(run.status, 0) << run.err.toStdString();
    EXPECT_TRUE(run.out.contains("encoding: Cyrillic (Windows) (11)\n")) << run.out.toStdString();
    EXPECT_TRUE(run.out.contains("rules:    Russian"));
    EXPECT_TRUE(run.out.contains("decision: accepted at ratio 0.6\n"));
    EXPECT_FALSE(run.err.contains("Character '"));

    const CliRun all = cli({u"detect-encoding"_s, u"--all"_s, u"--log-characters"_s, path});
    EXPECT_EQ(all.status, 0);
    const qsizetype rulesFiles = QDir(resourcePath(u"encodings"_s)).entryList({u"*.encoding"_s}, QDir::Files).size();
    EXPECT_EQ(QString::fromUtf8(all.out).section(u"\n\n"_s, 0, 0).split(u'\n').size(), rulesFiles);
    EXPECT_TRUE(all.err.contains("Character '"));

    // Unicode without a byte-order mark is read as loading reads it, before any rules.
    QByteArray utf16;
    ASSERT_TRUE(
        TextCodec::encode(u"1\n00:00:01,000 --> 00:00:02,000\nПривет, мир.\n"_s, Encodings::UTF16LE, &utf16));
    const CliRun unicode = cli({u"detect-encoding"_s, dir.write(u"utf16.srt"_s, utf16)});
    EXPECT_EQ(unicode.status, 0);
    EXPECT_EQ(unicode.out, "platform: UTF-16 Little Endian (" + QByteArray::number(Encodings::UTF16LE) +
                               ")\ndecision: read before any rules\n");
}

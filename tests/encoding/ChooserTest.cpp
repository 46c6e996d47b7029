#include "DecodedFile.h"
#include "FileReadError.h"
#include "Log.h"
#include "Resources.h"
#include "TestSupport.h"
#include "TextCodec.h"
#include "VHEncodingChooser.h"

#include <QDir>
#include <QLoggingCategory>

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace {
std::unique_ptr<VHEncodingTester> tester(const QString &rules)
{
    return VHEncodingTester::encodingTesterFromData(rules.toUtf8(), u"test.encoding"_s);
}

VHEncodingChooser chooserOf(const QStringList &rules)
{
    VHEncodingChooser chooser;
    for (const QString &r : rules)
        chooser.addEncodingTester(tester(r));
    return chooser;
}

class ChooserTest : public testing::Test
{
protected:
    QString write(const QByteArray &bytes) { return dir.write(u"file%1.srt"_s.arg(++m_files), bytes); }

    TempDir dir;

private:
    int m_files = 0;
};
} // namespace

TEST_F(ChooserTest, ScoreIsGoodWeightsTimesFactorMinusBadWeightsTimesFactor)
{
    const QString western = u"nsstring: 12\ngoodfactor: 2\nbadfactor: 0.5\ngood:\na\t1\né\t3\nbad:\n€\t4\n"_s;
    const QString huge = u"nsstring: 12\ngood:\na\t3000000000.5\nbad:\nb\t1e300\n"_s;
    const struct
    {
        QString rules;
        QByteArray bytes;
        double score;
    } cases[] = {
        {western,
         "a\xE9\x80"
         "a",
         8.0}, // "aé€a" in code page 1252: (1 + 3 + 1) x 2 - 4 x 0.5
        {western, "", 0},
        {u"nsstring: 13\ngood:\na\t1\n"_s, "aaa\xD2", 0}, // not text in the tester's encoding
        {u"nsstring: 8\ngood:\n日\t2\n本\t1.5\n"_s, "\x93\xFA\x96\x7B!", 3.5}, // multi-byte: its decoded text
        // Weights too large for integer sums are added as doubles.
        {huge, "aaa", 3000000000.5 * 3},
        {huge, "ab", 3000000000.5 - 1e300},
        {u"nsstring: 12\ngoodfactor: 1e308\ngood:\na\t1e10\n"_s, "a",
         std::numeric_limits<double>::infinity()},
    };
    LogCapture quiet;
    for (const auto &c : cases)
        EXPECT_EQ(tester(c.rules)->testFile(write(c.bytes)), c.score) << c.bytes.toHex().constData();
    EXPECT_EQ(tester(western)->testFile(dir.path(u"missing.srt"_s)), 0.0);
}

// The sum is taken in text order; with weights that are not exact in binary the result must
// be that of adding them one by one, whichever way the scorer takes.
TEST_F(ChooserTest, ScoresAreSummedAsInTextOrder)
{
    const auto inexact = tester(u"nsstring: 12\ngood:\na\t0.1\nb\t0.7\nbad:\nc\t0.3\n"_s);
    const QByteArray bytes = QByteArray("abcab").repeated(7);
    double good = 0;
    double bad = 0;
    for (const char c : bytes)
        (c == 'c' ? bad : good) += c == 'a' ? 0.1 : c == 'b' ? 0.7 : 0.3;
    LogCapture quiet;
    EXPECT_EQ(inexact->testFile(write(bytes)), good - bad);
    EXPECT_EQ(inexact->scoreText(QString::fromLatin1(bytes)), good - bad);

    // Exact weights: the count-based and the sequential scorer agree on a long text too.
    const auto exact = tester(u"nsstring: 12\ngood:\na\t0.125\nb\t3\nbad:\nc\t1.5\n"_s);
    const QByteArray large = QByteArray("abcabx").repeated(20000);
    QLoggingCategory::setFilterRules(u"captora.encoding.characters=false"_s);
    EXPECT_EQ(exact->testFile(write(large)), 20000 * (2 * 0.125 + 2 * 3 - 1.5));
    EXPECT_EQ(exact->scoreText(QString::fromLatin1(large)), 20000 * (2 * 0.125 + 2 * 3 - 1.5));
    QLoggingCategory::setFilterRules(QString());
}

TEST_F(ChooserTest, LogsEveryOccurrenceOfABadCharacterUnlessTheCategoryIsOff)
{
    const auto western = tester(u"nsstring: 12\ngood:\na\t1\nbad:\né\t1\n€\t0\n"_s);
    const QString path = write("\xE9"
                               "a\xE9\x80\xE9");
    {
        LogCapture log;
        EXPECT_EQ(western->testFile(path), -2.0);
        // A bad character with weight 0 is still found in the bad list.
        EXPECT_EQ(log.lines(), (QStringList{u"Character 'é'"_s, u"Character 'é'"_s, u"Character '€'"_s,
                                            u"Character 'é'"_s}));
        log.clear();
        EXPECT_EQ(western->scoreText(u"éaé"_s), -1.0);
        EXPECT_EQ(log.count(u"Character 'é'"_s), 2);
    }
    QLoggingCategory::setFilterRules(u"captora.encoding.characters=false"_s);
    LogCapture log;
    EXPECT_EQ(western->testFile(path), -2.0);
    EXPECT_TRUE(log.lines().isEmpty());
    QLoggingCategory::setFilterRules(QString());
}

TEST_F(ChooserTest, TheBestPositiveScoreWinsAndATieGoesToTheTesterAddedFirst)
{
    const VHEncodingChooser chooser = chooserOf({u"name: latin1\nnsstring: 5\ngood:\na\t1\n"_s,
                                                 u"name: cp1252\nnsstring: 12\ngood:\na\t1\n"_s,
                                                 u"name: greek\nnsstring: 13\ngood:\na\t1\nα\t0.5\n"_s});
    EXPECT_EQ(chooser.chooseEncodingFor(write("aa"))->name(), u"latin1"_s);
    const QString path = write("aa\xE1");
    EXPECT_EQ(chooser.chooseEncodingFor(path)->name(), u"greek"_s);
    const VHEncodingChooser::Choice choice = chooser.choose(path, 0.6);
    EXPECT_EQ(choice.scores, (std::vector<double>{2, 2, 2.5}));
    EXPECT_EQ(choice.best->name(), u"greek"_s);
    EXPECT_EQ(choice.text, u"aaα"_s);

    EXPECT_EQ(chooserOf({u"name: w\nnsstring: 12\nbad:\nb\t1\n"_s}).chooseEncodingFor(write("bbb")), nullptr);
    EXPECT_EQ(VHEncodingChooser().chooseEncodingFor(path), nullptr);
}

TEST_F(ChooserTest, TheTextIsTakenOnlyAboveRatioTimesItsLengthElseTheErrorSaysWhy)
{
    const VHEncodingChooser western = chooserOf({u"name: w\nnsstring: 12\ngood:\na\t1\n"_s});
    const VHEncodingChooser negative = chooserOf({u"name: w\nnsstring: 12\nbad:\nb\t1\n"_s});
    const VHEncodingChooser greek = chooserOf({u"name: g\nnsstring: 13\ngood:\na\t1\n"_s});
    // Seven of ten characters weigh 1: enough.
    EXPECT_EQ(western.contentOfFile(write("aaaaaaabbb"), 0.6), u"aaaaaaabbb"_s);
    const struct
    {
        const VHEncodingChooser &chooser;
        QString path;
        int code;
        EncodingId encoding;
    } cases[] = {
        {western, write("aaaaaabbbb"), 261, 12}, // six of ten: exactly 0.6 x 10, which is not enough
        {negative, write("bbb"), 261, 0},        // no positive score, no winner
        {greek, write("aaa\xD2"), 261, 0},       // no tester could read it, so none won
        {western, dir.path(u"missing.srt"_s), FileReadError::NoSuchFile, 0},
        {western, dir.path(QString()), FileReadError::UnknownReadError, 0}, // a folder
    };
    for (const auto &c : cases) {
        FileReadError error;
        EXPECT_FALSE(c.chooser.contentOfFile(c.path, 0.6, &error));
        EXPECT_EQ(error.domain, FileReadError::kDomain);
        EXPECT_EQ(error.code, c.code) << c.path.toStdString();
        EXPECT_EQ(error.path, c.path);
        EXPECT_EQ(error.encoding, c.encoding) << c.path.toStdString();
        EXPECT_FALSE(error.description.isEmpty());
        if (c.code == FileReadError::UnknownReadError) {
            EXPECT_TRUE(error.description.contains(u"folder"_s)) << error.description.toStdString();
        }
    }
}

// Asked for the length only, the choice is the same but for the text it does not make.
TEST_F(ChooserTest, AChoiceWithoutItsTextHasTheSameLengthDecisionAndError)
{
    const VHEncodingChooser chooser = chooserOf({u"name: w\nnsstring: 12\ngood:\na\t1\n"_s,
                                                 u"name: j\nnsstring: 8\ngood:\n日\t2\n本\t1.5\n"_s,
                                                 u"name: g\nnsstring: 13\ngood:\nα\t1\n"_s});
    const QString paths[] = {
        write("aaaaaaabbb"),        // accepted in code page 1252, ten units
        write("aaaaaabbbb"),        // rejected: exactly the ratio
        write("\x93\xFA\x96\x7B!"), // Shift-JIS: three units of five bytes
        write("\x81\xFF"),          // no tester reads it
        write(""),
        dir.path(u"missing.srt"_s),
    };
    LogCapture quiet;
    for (const QString &path : paths) {
        SCOPED_TRACE(path.toStdString());
        DecodedFile withText = DecodedFile::read(path);
        DecodedFile lengthOnly = DecodedFile::read(path);
        const VHEncodingChooser::Choice made = chooser.choose(withText, 0.6);
        const VHEncodingChooser::Choice counted =
            chooser.choose(lengthOnly, 0.6, VHEncodingChooser::Text::LengthOnly);
        EXPECT_FALSE(counted.text);
        EXPECT_EQ(counted.scores, made.scores);
        EXPECT_EQ(counted.best, made.best);
        EXPECT_EQ(counted.length, made.length);
        EXPECT_EQ(counted.accepted, made.accepted);
        ASSERT_EQ(counted.error.has_value(), made.error.has_value());
        if (made.error) {
            EXPECT_EQ(counted.error->code, made.error->code);
            EXPECT_EQ(counted.error->encoding, made.error->encoding);
            EXPECT_EQ(counted.error->description, made.error->description);
        }
    }
    DecodedFile japanese = DecodedFile::read(paths[2]);
    EXPECT_EQ(chooser.choose(japanese, 0.6, VHEncodingChooser::Text::LengthOnly).length, 3);
    DecodedFile western = DecodedFile::read(paths[0]);
    EXPECT_TRUE(chooser.choose(western, 0.6, VHEncodingChooser::Text::LengthOnly).accepted);
}

TEST_F(ChooserTest, TheSharedChooserReadsEveryRulesFileInNameOrder)
{
    const VHEncodingChooser &shared = VHEncodingChooser::sharedEncodingChooser();
    EXPECT_EQ(&shared, &VHEncodingChooser::sharedEncodingChooser());
    QStringList names = QDir(resourcePath(u"encodings"_s)).entryList({u"*.encoding"_s}, QDir::Files);
    std::sort(names.begin(), names.end());
    ASSERT_EQ(shared.testers().size(), size_t(names.size()));
    for (size_t i = 0; i < shared.testers().size(); ++i) {
        EXPECT_EQ(QFileInfo(shared.testers()[i]->path()).fileName(), names[qsizetype(i)]);
        EXPECT_TRUE(TextCodec::isSupported(shared.testers()[i]->stringEncoding()))
            << names[qsizetype(i)].toStdString();
    }
}

TEST_F(ChooserTest, AFolderOfRulesSkipsFilesThatGiveNoTester)
{
    QDir(dir.path({})).mkdir(u"rules"_s);
    dir.write(u"rules/b.encoding"_s, "name: b\n");
    dir.write(u"rules/a.encoding"_s, "name: a\n");
    dir.write(u"rules/c.encoding"_s, "name: \xFF\n");
    dir.write(u"rules/d.txt"_s, "name: d\n");
    LogCapture log;
    const VHEncodingChooser chooser = VHEncodingChooser::fromFolder(dir.path(u"rules"_s));
    ASSERT_EQ(chooser.testers().size(), 2u);
    EXPECT_EQ(chooser.testers()[0]->name(), u"a"_s);
    EXPECT_EQ(chooser.testers()[1]->name(), u"b"_s);
    EXPECT_EQ(log.lines().size(), 1);
}

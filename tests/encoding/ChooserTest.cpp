#include "FileReadError.h"
#include "Log.h"
#include "Resources.h"
#include "TextCodec.h"
#include "VHEncodingChooser.h"

#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {
std::unique_ptr<VHEncodingTester> tester(const QString &rules)
{
    return VHEncodingTester::encodingTesterFromData(rules.toUtf8(), u"test.encoding"_s);
}

class ChooserTest : public testing::Test
{
protected:
    QString write(const QByteArray &bytes, const QString &name = u"file.srt"_s)
    {
        const QString path = m_folder.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return path;
    }

    QTemporaryDir m_folder;
};
} // namespace

TEST_F(ChooserTest, ScoreIsGoodWeightsTimesFactorMinusBadWeightsTimesFactor)
{
    const auto western =
        tester(u"nsstring: 12\ngoodfactor: 2\nbadfactor: 0.5\ngood:\na\t1\né\t3\nbad:\n€\t4\n"_s);
    // "aé€a" in code page 1252: (1 + 3 + 1) x 2 - 4 x 0.5
    EXPECT_EQ(western->testFile(write("a\xE9\x80"
                                      "a")),
              8.0);
    EXPECT_EQ(western->testFile(write("")), 0.0);
    EXPECT_EQ(western->testFile(m_folder.filePath(u"missing.srt"_s)), 0.0);
    // Bytes that are not text in the tester's encoding score 0.
    const auto greek = tester(u"nsstring: 13\ngood:\na\t1\n"_s);
    EXPECT_EQ(greek->testFile(write("aaa\xD2")), 0.0);
    // A multi-byte encoding is scored on its decoded text.
    const auto japanese = tester(u"nsstring: 8\ngood:\n日\t2\n本\t1.5\n"_s);
    EXPECT_EQ(japanese->testFile(write("\x93\xFA\x96\x7B!")), 3.5);
}

// The sum is taken in text order; with weights that are not exact in binary the result must
// be that of adding them one by one, whichever way the scorer takes.
TEST_F(ChooserTest, ScoresAreSummedAsInTextOrder)
{
    const auto inexact = tester(u"nsstring: 12\ngood:\na\t0.1\nb\t0.7\nbad:\nc\t0.3\n"_s);
    const QByteArray bytes = QByteArray("abcab").repeated(7);
    double good = 0;
    double bad = 0;
    for (const char c : bytes) {
        good += c == 'a' ? 0.1 : c == 'b' ? 0.7 : 0;
        bad += c == 'c' ? 0.3 : 0;
    }
    QLoggingCategory::setFilterRules(u"captora.encoding.characters=false"_s);
    EXPECT_EQ(inexact->testFile(write(bytes)), good - bad);
    EXPECT_EQ(inexact->scoreText(QString::fromLatin1(bytes)), good - bad);
    QLoggingCategory::setFilterRules(QString());

    // Exact weights: the count-based and the sequential scorer agree on a long text too.
    const auto exact = tester(u"nsstring: 12\ngood:\na\t0.125\nb\t3\nbad:\nc\t1.5\n"_s);
    const QByteArray large = QByteArray("abcabx").repeated(20000);
    LogCapture quiet;
    EXPECT_EQ(exact->testFile(write(large)), exact->scoreText(QString::fromLatin1(large)));
    EXPECT_EQ(exact->scoreText(QString::fromLatin1(large)), 20000 * (2 * 0.125 + 2 * 3 - 1.5));
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

TEST_F(ChooserTest, TheBestScoreWinsAndATieGoesToTheTesterAddedFirst)
{
    VHEncodingChooser chooser;
    chooser.addEncodingTester(tester(u"name: latin1\nnsstring: 5\ngood:\na\t1\n"_s));
    chooser.addEncodingTester(tester(u"name: cp1252\nnsstring: 12\ngood:\na\t1\n"_s));
    chooser.addEncodingTester(tester(u"name: greek\nnsstring: 13\ngood:\na\t1\nα\t0.5\n"_s));
    EXPECT_EQ(chooser.chooseEncodingFor(write("aa", u"tie.srt"_s))->name(), u"latin1"_s);
    const QString path = write("aa\xE1");
    EXPECT_EQ(chooser.chooseEncodingFor(path)->name(), u"greek"_s);
    const VHEncodingChooser::Choice choice = chooser.choose(path, 0.6);
    EXPECT_EQ(choice.scores, (std::vector<double>{2, 2, 2.5}));
    EXPECT_EQ(choice.best->name(), u"greek"_s);
    EXPECT_EQ(choice.text, u"aaα"_s);
}

TEST_F(ChooserTest, TheWinnerMustScoreMoreThanRatioTimesTheLength)
{
    VHEncodingChooser chooser;
    chooser.addEncodingTester(tester(u"name: w\nnsstring: 12\ngood:\na\t1\n"_s));
    // Six of ten characters weigh 1: the score is exactly 0.6 x 10, which is not enough.
    const QString exact = write("aaaaaabbbb");
    FileReadError error;
    EXPECT_FALSE(chooser.contentOfFile(exact, 0.6, &error));
    EXPECT_EQ(error.domain, FileReadError::kDomain);
    EXPECT_EQ(error.code, 261);
    EXPECT_EQ(error.path, exact);
    EXPECT_EQ(error.encoding, 12u);
    EXPECT_FALSE(error.description.isEmpty());

    EXPECT_EQ(chooser.contentOfFile(write("aaaaaaabbb"), 0.6), u"aaaaaaabbb"_s);
}

TEST_F(ChooserTest, WithoutAPositiveScoreThereIsNoWinnerAndNoText)
{
    VHEncodingChooser chooser;
    chooser.addEncodingTester(tester(u"name: w\nnsstring: 12\nbad:\nb\t1\n"_s));
    const QString path = write("bbb");
    EXPECT_EQ(chooser.chooseEncodingFor(path), nullptr);
    FileReadError error;
    EXPECT_FALSE(chooser.contentOfFile(path, 0.6, &error));
    EXPECT_EQ(error.code, 261);
    EXPECT_EQ(error.encoding, 0u);

    // An unreadable file reports why it could not be read.
    EXPECT_FALSE(chooser.contentOfFile(m_folder.filePath(u"missing.srt"_s), 0.6, &error));
    EXPECT_EQ(error.code, FileReadError::NoSuchFile);
    EXPECT_EQ(VHEncodingChooser().chooseEncodingFor(path), nullptr);
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
    QDir(m_folder.path()).mkdir(u"rules"_s);
    write("name: b\n", u"rules/b.encoding"_s);
    write("name: a\n", u"rules/a.encoding"_s);
    write("name: \xFF\n", u"rules/c.encoding"_s);
    write("name: d\n", u"rules/d.txt"_s);
    LogCapture log;
    const VHEncodingChooser chooser = VHEncodingChooser::fromFolder(m_folder.filePath(u"rules"_s));
    ASSERT_EQ(chooser.testers().size(), 2u);
    EXPECT_EQ(chooser.testers()[0]->name(), u"a"_s);
    EXPECT_EQ(chooser.testers()[1]->name(), u"b"_s);
    EXPECT_EQ(log.lines().size(), 1);
}

TEST_F(ChooserTest, WeightsTooLargeForIntegerSumsAreAddedAsDoubles)
{
    const auto huge = tester(u"nsstring: 12\ngood:\na\t3000000000.5\nbad:\nb\t1e300\n"_s);
    LogCapture quiet;
    EXPECT_EQ(huge->testFile(write("aaa")), 3000000000.5 * 3);
    EXPECT_EQ(huge->testFile(write("ab")), 3000000000.5 - 1e300);
    const auto infinite = tester(u"nsstring: 12\ngoodfactor: 1e308\ngood:\na\t1e10\n"_s);
    EXPECT_TRUE(std::isinf(infinite->testFile(write("a"))));
}

TEST_F(ChooserTest, FilesThatCannotBeReadSayWhy)
{
    VHEncodingChooser chooser;
    chooser.addEncodingTester(tester(u"name: w\nnsstring: 12\ngood:\na\t1\n"_s));
    FileReadError error;
    EXPECT_FALSE(chooser.contentOfFile(m_folder.path(), 0.6, &error));
    EXPECT_EQ(error.code, FileReadError::UnknownReadError);
    EXPECT_EQ(error.path, m_folder.path());
    EXPECT_TRUE(error.description.contains(u"folder"_s)) << error.description.toStdString();

    // Bytes the winner's encoding cannot read are the decoding's own error.
    VHEncodingChooser greek;
    greek.addEncodingTester(tester(u"name: g\nnsstring: 13\ngood:\na\t1\n"_s));
    EXPECT_FALSE(greek.contentOfFile(write("aaa\xD2"), 0.6, &error));
    EXPECT_EQ(error.code, 261);
    EXPECT_EQ(error.encoding, 0u); // no tester could read it, so none won
}

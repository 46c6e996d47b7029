// captora-cli encodings and detect-encoding, run as a user runs them.
#include "TextCodec.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
struct CommandResult
{
    int status = -1;
    QString out;
    QString err;
};

CommandResult run(const QStringList &arguments)
{
    QProcess process;
    process.start(QStringLiteral(CAPTORA_CLI), arguments);
    process.waitForFinished(60000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

class EncodingCommands : public testing::Test
{
protected:
    QString write(const QByteArray &bytes)
    {
        const QString path = m_folder.filePath(u"file%1.srt"_s.arg(++m_count));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return path;
    }

    QString russianFile()
    {
        QByteArray bytes;
        EXPECT_TRUE(
            TextCodec::encode(u"1\n00:00:01,000 --> 00:00:02,000\nГде ты был вчера вечером?\n\n"
                              u"2\n00:00:03,000 --> 00:00:04,000\nЗнаю, прости. У меня сел телефон.\n"_s,
                              Encodings::WindowsCP1251, &bytes));
        return write(bytes);
    }

    QTemporaryDir m_folder;
    int m_count = 0;
};
} // namespace

TEST_F(EncodingCommands, EncodingsListsTheCatalogueWithItsSeparator)
{
    const CommandResult result = run({u"encodings"_s});
    EXPECT_EQ(result.status, 0);
    const QStringList lines = result.out.split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 48);
    EXPECT_EQ(lines[0].simplified(), u"0 Automatic"_s);
    EXPECT_EQ(lines[14].simplified(), u"12 Window Latin 1"_s);
    EXPECT_EQ(lines[23], u"----------"_s);
    EXPECT_EQ(lines[47].simplified(), u"2147484944 Korean (Windows)"_s);
}

TEST_F(EncodingCommands, DetectEncodingReportsTheWinnerAndAcceptsIt)
{
    const CommandResult result = run({u"detect-encoding"_s, russianFile()});
    EXPECT_EQ(result.status, 0) << result.err.toStdString();
    EXPECT_TRUE(result.out.contains(u"encoding: Cyrillic (Windows) (11)\n"_s)) << result.out.toStdString();
    EXPECT_TRUE(result.out.contains(u"rules:    Russian"_s)) << result.out.toStdString();
    EXPECT_TRUE(result.out.contains(u"decision: accepted at ratio 0.6\n"_s));
}

TEST_F(EncodingCommands, AllPrintsEveryRulesFileScore)
{
    const CommandResult result = run({u"detect-encoding"_s, u"--all"_s, russianFile()});
    EXPECT_EQ(result.status, 0);
    const qsizetype rulesFiles =
        QDir(QStringLiteral(CAPTORA_RESOURCES "/encodings")).entryList({u"*.encoding"_s}, QDir::Files).size();
    const QStringList table = result.out.section(u"\n\n"_s, 0, 0).split(u'\n');
    EXPECT_EQ(table.size(), rulesFiles);
}

TEST_F(EncodingCommands, RejectedOrUnreadableFilesExitOneAndUsageErrorsTwo)
{
    const QByteArray binaryBytes = QByteArray("\x00\x01\x02\x03\xFF\xFE\x00", 7).repeated(50);
    const CommandResult binary = run({u"detect-encoding"_s, write(binaryBytes)});
    EXPECT_EQ(binary.status, 1);
    EXPECT_TRUE(binary.out.contains(u"decision: rejected"_s)) << binary.out.toStdString();

    const CommandResult missing = run({u"detect-encoding"_s, m_folder.filePath(u"missing.srt"_s)});
    EXPECT_EQ(missing.status, 1);
    EXPECT_TRUE(missing.err.startsWith(u"Error: Could not read"_s)) << missing.err.toStdString();

    EXPECT_EQ(run({u"detect-encoding"_s}).status, 2);
    EXPECT_EQ(run({u"detect-encoding"_s, u"--ratio"_s, u"-1"_s, russianFile()}).status, 2);
    EXPECT_EQ(run({u"encodings"_s, u"extra"_s}).status, 2);
}

TEST_F(EncodingCommands, BadCharactersAreLoggedOnlyWhenAskedFor)
{
    const QString path = russianFile();
    EXPECT_FALSE(run({u"detect-encoding"_s, path}).err.contains(u"Character '"_s));
    EXPECT_TRUE(run({u"detect-encoding"_s, u"--log-characters"_s, path}).err.contains(u"Character '"_s));
}

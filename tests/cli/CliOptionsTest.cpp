// captora-cli's number options, re-timing commands and names under the user's locale.
#include "NumberOptions.h"
#include "TestSupport.h"
#include "TextCodec.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {
struct CliResult
{
    int status = -1; // -1: crashed or hung
    QByteArray out, err;
};

// Runs captora-cli; `environment` replaces the locale variables of this process's own.
CliResult run(const QStringList &args, const QStringList &environment = {})
{
    QProcess process;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    if (!environment.isEmpty()) {
        for (const char *name : {"LANG", "LC_ALL", "LC_MESSAGES", "LC_NUMERIC", "LANGUAGE"})
            env.remove(QString::fromLatin1(name));
        for (const QString &assignment : environment)
            env.insert(assignment.section(u'=', 0, 0), assignment.section(u'=', 1));
    }
    process.setProcessEnvironment(env);
    process.start(QStringLiteral(CAPTORA_CLI), args);
    process.closeWriteChannel();
    if (!process.waitForFinished(30000))
        ADD_FAILURE() << "captora-cli did not finish";
    return {process.exitStatus() == QProcess::NormalExit && process.state() == QProcess::NotRunning
                ? process.exitCode()
                : -1,
            process.readAllStandardOutput(), process.readAllStandardError()};
}

// Three lines: 5-6 s, 10-11 s, 20-21 s.
const QByteArray Three = "1\n00:00:05,000 --> 00:00:06,000\none\n\n2\n00:00:10,000 --> 00:00:11,000\ntwo\n\n"
                         "3\n00:00:20,000 --> 00:00:21,000\nthree\n\n";

QList<double> startsOf(const QByteArray &json)
{
    QList<double> starts;
    for (const QJsonValue &cue : QJsonDocument::fromJson(json).array())
        starts << cue[u"start"_s].toDouble();
    return starts;
}
} // namespace

// A decimal comma is a decimal comma, as in the window's fields and in time texts; grouping
// separators are refused rather than guessed at.
TEST(CliNumbers, ADecimalCommaIsAcceptedAndGroupingIsRefused)
{
    using NumberOptions::parseNumber;
    EXPECT_EQ(parseNumber(u"1,5"), 1.5);
    EXPECT_EQ(parseNumber(u" 1.5 "), 1.5);
    EXPECT_EQ(parseNumber(u"1,000"), 1.0);
    EXPECT_EQ(parseNumber(u"-15"), -15.0);
    EXPECT_EQ(parseNumber(u",5"), 0.5);
    for (const char16_t *bad : {u"1,000,000", u"1.000,5", u"1,000.5", u"1 000", u"1'000", u"", u"abc", u"inf",
                                u"nan", u"1e400", u"5s", u"1,,5"})
        EXPECT_FALSE(parseNumber(bad).has_value()) << QStringView(bad).toString().toStdString();

    using NumberOptions::parseFix;
    const auto fix = [](QStringView text) { return parseFix(text); };
    EXPECT_EQ(fix(u"2=1,000")->time, 1.0);
    EXPECT_EQ(fix(u"2=1,000")->index, 2);
    EXPECT_EQ(fix(u"12=754.2")->time, 754.2);
    EXPECT_EQ(fix(u" 300 = 01:23:10,500 ")->time, 4990.5);
    EXPECT_EQ(fix(u"0=1:05.5")->time, 65.5);
    for (const char16_t *bad : {u"2=1,000.5", u"2=", u"=5", u"x=5", u"-1=5", u"+1=5", u"2=-5", u"2=1:2:3:4",
                                u"2=1:xx", u"2=:5", u"2=5=6", u"99999999999999999999=5", u"2=1e400"})
        EXPECT_FALSE(fix(bad).has_value()) << QStringView(bad).toString().toStdString();

    TempDir dir;
    const QString file = dir.write(u"in.srt"_s, Three);
    CliResult r = run({u"sync"_s, file, u"--fix"_s, u"1=7,5"_s, u"--mode"_s, u"single"_s, u"--json"_s,
                       u"-o"_s, dir.path(u"out.srt"_s)});
    EXPECT_EQ(r.status, 0) << r.err.toStdString();
    EXPECT_EQ(startsOf(r.out), (QList<double>{5, 7.5, 20}));
    // Not line 1 at 1000 s: a decimal comma, and then beyond its range.
    r = run({u"sync"_s, file, u"--fix"_s, u"1=1,000"_s, u"--mode"_s, u"single"_s, u"--json"_s});
    EXPECT_EQ(r.status, 1) << r.out.toStdString();
    EXPECT_TRUE(r.err.contains("Line 1 cannot start at 00:00:01,000")) << r.err.toStdString();
    r = run({u"sync"_s, file, u"--fix"_s, u"1=1,000.5"_s});
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(run({u"shift"_s, u"--by"_s, u"1.000,5"_s, file}).status, 2);
    EXPECT_EQ(run({u"shift"_s, u"--by"_s, u"1,5"_s, file, u"-o"_s, dir.path(u"shifted.srt"_s)}).status, 0);
    EXPECT_TRUE(dir.read(u"shifted.srt"_s).startsWith("1\n00:00:06,500 --> 00:00:07,500\n"));
    EXPECT_EQ(dir.read(u"in.srt"_s), Three);
}

// Without --length the last line has no anchor after it and moves freely; without --fps the
// default 25 frames per second decides how far outside its range a fix may land.
TEST(CliSync, TheLastLineFixesWithoutLengthAndTheDefaultFrameRateLimitsFixes)
{
    TempDir dir;
    const QString file = dir.write(u"in.srt"_s, Three);
    for (const QString &mode : {u"fix"_s, u"shift"_s, u"single"_s}) {
        SCOPED_TRACE(mode.toStdString());
        const CliResult r = run({u"sync"_s, file, u"--fix"_s, u"2=30"_s, u"--mode"_s, mode, u"--json"_s,
                                 u"-o"_s, dir.path(u"out.srt"_s)});
        EXPECT_EQ(r.status, 0) << r.err.toStdString();
        const QList<double> starts = startsOf(r.out);
        ASSERT_EQ(starts.size(), 3);
        EXPECT_EQ(starts[2], 30);
    }
    // Line 1 becomes an anchor at 10 s; line 2 may then not start before it. Half a frame
    // early (at 25 fps: 0.02 s) is taken as the anchor's time; more is refused.
    for (const QStringList &fps : {QStringList{}, QStringList{u"--fps"_s, u"25"_s}}) {
        CliResult r = run(QStringList{u"sync"_s, file, u"--fix"_s, u"1=10"_s, u"--fix"_s, u"2=9.5"_s} + fps);
        EXPECT_EQ(r.status, 1);
        EXPECT_TRUE(r.err.contains("Line 2 cannot start at 00:00:09,500")) << r.err.toStdString();
        r = run(QStringList{u"sync"_s, file, u"--fix"_s, u"1=10"_s, u"--fix"_s, u"2=9.99"_s, u"--json"_s,
                            u"-o"_s, dir.path(u"out.srt"_s)} +
                fps);
        EXPECT_EQ(r.status, 0) << r.err.toStdString();
        EXPECT_EQ(startsOf(r.out).value(2), 10);
    }
    EXPECT_EQ(dir.read(u"in.srt"_s), Three);
}

// No negative time is written: a shift that would take the first line before the start is
// refused and the file kept; a shift that takes it exactly to 0 is fine.
TEST(CliShift, AShiftBeforeTheStartIsRefusedAndTheFileKept)
{
    TempDir dir;
    const QString file = dir.write(u"in.srt"_s, Three);
    CliResult r = run({u"shift"_s, u"--by"_s, u"-15"_s, file});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(
        r.err.startsWith("Error: Shifting by -15 s would move the first line (at 00:00:05,000) before the "
                         "start; the largest shift earlier is -5 s"))
        << r.err.toStdString();
    EXPECT_EQ(dir.read(u"in.srt"_s), Three);
    r = run({u"shift"_s, u"--by"_s, u"-5"_s, file});
    EXPECT_EQ(r.status, 0) << r.err.toStdString();
    EXPECT_TRUE(dir.read(u"in.srt"_s).startsWith("1\n00:00:00,000 --> 00:00:01,000\none\n\n2\n00:00:05,000"));
}

// --strict-encoding reads in the given encoding or not at all; without it, a file that does
// not decode as given goes on to detection.
TEST(CliStrictEncoding, StrictMeansNoDetectionAfterTheGivenEncoding)
{
    TempDir dir;
    QByteArray cp1251;
    ASSERT_TRUE(TextCodec::encode(u"1\n00:00:01,000 --> 00:00:02,000\nГде ты был вчера вечером?\n\n"
                                  u"2\n00:00:03,000 --> 00:00:04,000\nЗнаю, прости. У меня сел телефон.\n"_s,
                                  Encodings::WindowsCP1251, &cp1251));
    const QString file = dir.write(u"ru.srt"_s, cp1251);
    CliResult r = run({u"dump"_s, u"--encoding"_s, u"4"_s, file});
    EXPECT_EQ(r.status, 0) << r.err.toStdString();
    EXPECT_TRUE(QString::fromUtf8(r.out).contains(u"Где ты был"_s));
    r = run({u"dump"_s, u"--encoding"_s, u"4"_s, u"--strict-encoding"_s, file});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.out.isEmpty());
    EXPECT_TRUE(r.err.contains("Warning: Could not load subtitle")) << r.err.toStdString();
    r = run({u"dump"_s, u"--encoding"_s, u"11"_s, u"--strict-encoding"_s, file});
    EXPECT_EQ(r.status, 0) << r.err.toStdString();
    EXPECT_TRUE(QString::fromUtf8(r.out).contains(u"Где ты был"_s));
}

TEST(CliAdjustDurations, AnIndexTheFileDoesNotHaveIsAUsageError)
{
    TempDir dir;
    const QString file = dir.write(u"in.srt"_s, Three);
    const QStringList common{u"adjust-durations"_s,
                             u"--per-char"_s,
                             u"0,1"_s,
                             u"--min"_s,
                             u"1"_s,
                             u"--max"_s,
                             u"3"_s,
                             u"--gap"_s,
                             u"0.1"_s};
    for (const QString &only : {u"3"_s, u"0,7-9"_s, u""_s}) {
        const CliResult r = run(common + QStringList{u"--only"_s, only, file});
        EXPECT_EQ(r.status, 2) << only.toStdString();
    }
    EXPECT_EQ(dir.read(u"in.srt"_s), Three);
    EXPECT_EQ(run(common + QStringList{u"--only"_s, u"0-2"_s, file}).status, 0);
}

// As the window's export: a name without extension gets the format's.
TEST(CliConvert, ANameWithoutExtensionGetsTheFormats)
{
    TempDir dir;
    const QString file = dir.write(u"in.srt"_s, Three);
    EXPECT_EQ(run({u"convert"_s, file, dir.path(u"copy"_s)}).status, 0);
    EXPECT_EQ(run({u"convert"_s, u"--format"_s, u"vtt"_s, file, dir.path(u"marks"_s)}).status, 0);
    EXPECT_EQ(run({u"convert"_s, file, dir.path(u"notes.txt"_s)}).status, 0);
    EXPECT_EQ(dir.entries(), (QStringList{u"copy.srt"_s, u"in.srt"_s, u"marks.vtt"_s, u"notes.txt"_s}));
    EXPECT_EQ(dir.read(u"copy.srt"_s), Three);
    EXPECT_TRUE(dir.read(u"marks.vtt"_s).startsWith("WEBVTT"));
}

// Language names under each locale environment users have; a German one names them in
// German, every other one here in English, and none of them calls a language unknown.
TEST(CliLanguages, EveryLocaleEnvironmentNamesTheLanguages)
{
    TempDir dir;
    const QString movie = dir.write(u"Film.m4v"_s, "movie");
    dir.write(u"Film.en.srt"_s, Three);
    dir.write(u"Film.pt_BR.srt"_s, Three);
    const struct
    {
        QStringList environment;
        QString english, portuguese;
    } cases[] = {
        {{u"LANG=C.UTF-8"_s}, u"English Subtitle"_s, u"Portuguese (Brazil) Subtitle"_s},
        {{u"LANG=en_US.UTF-8"_s}, u"English Subtitle"_s, u"Portuguese (Brazil) Subtitle"_s},
        {{u"LANG=de_DE.UTF-8"_s}, u"Englisch Subtitle"_s, u"Portugiesisch (Brasilien) Subtitle"_s},
        {{u"LC_ALL=C.UTF-8"_s, u"LANGUAGE=en"_s}, u"English Subtitle"_s, u"Portuguese (Brazil) Subtitle"_s},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.environment.join(u' ').toStdString());
        const CliResult r = run({u"languages"_s, movie}, c.environment);
        ASSERT_EQ(r.status, 0) << r.err.toStdString();
        QStringList titles;
        for (const QJsonValue &row : QJsonDocument::fromJson(r.out).array())
            titles << row[u"title"_s].toString();
        EXPECT_TRUE(titles.contains(c.english)) << titles.join(u" | "_s).toStdString();
        EXPECT_TRUE(titles.contains(c.portuguese)) << titles.join(u" | "_s).toStdString();
        EXPECT_FALSE(r.out.contains("Unknown")) << r.out.toStdString();
    }
}

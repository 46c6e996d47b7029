#include "Log.h"
#include "TestSupport.h"
#include "VHEncodingTester.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {
std::unique_ptr<VHEncodingTester> parse(const QString &rules)
{
    return VHEncodingTester::encodingTesterFromData(rules.toUtf8(), u"test.encoding"_s);
}
} // namespace

TEST(RulesKeys, KeysAreCaseInsensitiveAndValuesTrimmedButAKeyWithSpacesAroundItMatchesNothing)
{
    LogCapture log;
    const auto tester = parse(u"Name: Western \nLOCALE:\tfr_FR\nNSString: 12 (Windows)\ngoodFactor: 1.5x\n"
                              u"BadFactor:  2e1\n"_s);
    ASSERT_TRUE(tester);
    EXPECT_EQ(tester->name(), u"Western"_s);
    EXPECT_EQ(tester->locale(), u"fr_FR"_s);
    EXPECT_EQ(tester->stringEncoding(), 12u);
    EXPECT_EQ(tester->goodFactor(), 1.5);
    EXPECT_EQ(tester->badFactor(), 20.0);
    EXPECT_TRUE(parse(u" name: Western\nname : Other\n"_s)->name().isEmpty());
    EXPECT_TRUE(log.lines().isEmpty());
}

TEST(RulesKeys, DefaultsAndValuesThatAreNotNumbers)
{
    const auto defaults = parse(u"name: x\n"_s);
    EXPECT_EQ(defaults->goodFactor(), 1.0);
    EXPECT_EQ(defaults->badFactor(), 1.0);
    EXPECT_EQ(defaults->stringEncoding(), 0u);

    // Encoding numbers beyond 32 bits (written as 0x8000... ones must be decimal) name none.
    const auto tester = parse(u"nsstring: 0x80000A02\ngoodfactor: abc\n"_s);
    EXPECT_EQ(tester->stringEncoding(), 0u);
    EXPECT_EQ(tester->goodFactor(), 0.0);
    EXPECT_EQ(parse(u"nsstring: 2147486210\n"_s)->stringEncoding(), 0x80000A02u);
    EXPECT_EQ(parse(u"nsstring: 99999999999\n"_s)->stringEncoding(), 0u);
}

TEST(RulesSections, CharacterLinesBelongToTheLastGoodOrBadKey)
{
    LogCapture log;
    const auto tester =
        parse(u"x\t1\ngood:\na\t2\nbad:\nb\t3\nunknown: key\nc\t4\nname: n\nd\t5\ngood\ne\t6\n"_s);
    EXPECT_EQ(tester->good(), (QHash<char16_t, double>{{u'a', 2}}));
    EXPECT_EQ(tester->bad(), (QHash<char16_t, double>{{u'b', 3}, {u'c', 4}}));
    // Before any section, after a key that ends it, and a "good" without its ':'.
    EXPECT_EQ(log.lines(), (QStringList{u"Unparsable line (neither in 'good' or 'bad' status): 'x\t1'"_s,
                                        u"Unparsable line (neither in 'good' or 'bad' status): 'd\t5'"_s,
                                        u"Unparsable line: 'good'"_s,
                                        u"Unparsable line (neither in 'good' or 'bad' status): 'e\t6'"_s}));
}

TEST(RulesCharacters, TheCharacterIsTheUnitBeforeTheFirstTab)
{
    LogCapture log;
    const auto tester = parse(u"good:\n:\t2\n \t0.5\nab\t3\nw\t 7kg\nz\t4\t9\nz\t1.25\n😀\t8\n"_s);
    ASSERT_TRUE(tester);
    const QHash<char16_t, double> expected = {
        {u':', 2},    // a ':' at position 0 is a character, not a key
        {u' ', 0.5},  // the line is not trimmed
        {u'b', 3},    // the unit right before the tab
        {u'w', 7},    // leading space skipped, trailing junk ignored
        {u'z', 1.25}, // the weight ends at the next tab; a later line replaces
        {QChar::lowSurrogate(0x1F600), 8},
    };
    EXPECT_EQ(tester->good(), expected);
    EXPECT_TRUE(log.lines().isEmpty()) << log.lines().join(u'\n').toStdString();
}

// Weights are read as strtod reads them in the C locale, to the last bit: short decimals
// take a quicker way than long ones or those with an exponent, and must not differ.
TEST(RulesCharacters, WeightsAreTheNearestDoubleLikeStrtods)
{
    const char *const weights[] = {"0.75",
                                   "0.1",
                                   "0.7",
                                   "-0.3",
                                   "+2.5",
                                   "-0",
                                   "7.",
                                   ".5",
                                   "123456789012345",
                                   "1234567890123456789",
                                   "0.000000000000000000001",
                                   "0.1000000000000000055511151231257827",
                                   "9007199254740993",
                                   "2.03125e2",
                                   "1e-5",
                                   "3.3333333333333335",
                                   "0.123456789012345"};
    QString rules = u"good:\n"_s;
    char16_t unit = u'A';
    for (const char *weight : weights)
        rules += QChar(unit++) + u"\t"_s + QString::fromLatin1(weight) + u'\n';
    // The same weight on consecutive lines, and again after another one.
    rules += u"a\t0.1\nb\t0.1\nc\t0.75\nd\t0.1\n"_s;
    const auto tester = parse(rules);
    ASSERT_TRUE(tester);
    const QHash<char16_t, double> good = tester->good();
    unit = u'A';
    for (const char *weight : weights) {
        const double value = good.value(unit++);
        const double expected = std::strtod(weight, nullptr);
        EXPECT_EQ(std::memcmp(&value, &expected, sizeof value), 0) << weight << ": " << value;
    }
    EXPECT_EQ(good.value(u'a'), 0.1);
    EXPECT_EQ(good.value(u'b'), 0.1);
    EXPECT_EQ(good.value(u'c'), 0.75);
    EXPECT_EQ(good.value(u'd'), 0.1);
}

// A later line replaces an earlier one wherever the lines stand, in either list.
TEST(RulesCharacters, ALaterLineForACharacterReplacesTheEarlierOneInAnyOrder)
{
    const auto tester = parse(u"good:\nz\t1\na\t2\nz\t3\nm\t4\na\t5\nbad:\nq\t1\nb\t2\nq\t0\n"_s);
    EXPECT_EQ(tester->good(), (QHash<char16_t, double>{{u'z', 3}, {u'a', 5}, {u'm', 4}}));
    EXPECT_EQ(tester->bad(), (QHash<char16_t, double>{{u'q', 0}, {u'b', 2}}));
    // The replaced weights are the ones scored.
    LogCapture quiet;
    EXPECT_EQ(tester->scoreText(u"zamqb"_s), 3 + 5 + 4 - 0 - 2);
}

TEST(RulesCharacters, LinesWithoutTabOrKeyAreLoggedAndSkipped)
{
    LogCapture log;
    const auto tester = parse(u"good:\n\tx\njust words\n   \n\r\na\t1\r\n"_s);
    EXPECT_EQ(tester->good(), (QHash<char16_t, double>{{u'a', 1}}));
    EXPECT_EQ(log.lines(), (QStringList{u"Unparsable line: '\tx'"_s, u"Unparsable line: 'just words'"_s}));
}

TEST(RulesCharacters, ACharacterInBothListsIsLoggedAndKeepsBothWeights)
{
    LogCapture log;
    const auto tester = parse(u"good:\né\t2\nè\t1\nbad:\né\t3\n"_s);
    EXPECT_EQ(tester->good().value(u'é'), 2);
    EXPECT_EQ(tester->bad().value(u'é'), 3);
    EXPECT_EQ(log.lines(), QStringList{u"Good Unicode is also bad: é"_s});
}

TEST(RulesFiles, AFileThatIsNotUtf8GivesNoTester)
{
    LogCapture log;
    EXPECT_FALSE(VHEncodingTester::encodingTesterFromData("name: caf\xE9\n", u"/r/latin.encoding"_s));
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines()[0].startsWith(u"Could not read encoding file (/r/latin.encoding), because '"_s));

    log.clear();
    EXPECT_FALSE(VHEncodingTester::encodingTesterFor(u"/nonexistent/x.encoding"_s));
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(
        log.lines()[0].startsWith(u"Could not read encoding file (/nonexistent/x.encoding), because '"_s));
}

TEST(RulesFiles, ReadsAFileWithWindowsLineBreaks)
{
    TempDir dir;
    const QString path = dir.write(u"crlf.encoding"_s, "name: CRLF\r\nnsstring: 12\r\ngood:\r\na\t1\r\n");
    const auto tester = VHEncodingTester::encodingTesterFor(path);
    ASSERT_TRUE(tester);
    EXPECT_EQ(tester->name(), u"CRLF"_s);
    EXPECT_EQ(tester->good(), (QHash<char16_t, double>{{u'a', 1}}));
    EXPECT_EQ(tester->path(), path);
    EXPECT_TRUE(tester->description().startsWith(u"Encoding 'CRLF' (12) <VHEncodingTester: 0x"_s));
}

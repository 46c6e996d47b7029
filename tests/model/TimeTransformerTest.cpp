#include "TestSupport.h"
#include "TimeText.h"
#include "VHSubtitle.h"
#include "VHTimeValueTransformer.h"

#include <QLocale>
#include <QRegularExpression>

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
template <typename Transformer> Transformer withSymbol(const QString &symbol)
{
    Transformer t;
    t.setDecimalSymbol(symbol);
    return t;
}
} // namespace

TEST(TimeTransformerWriting, FullFormShowsEveryFieldSuccinctDropsLeadingZeroOnesBothTruncate)
{
    const auto full = withSymbol<VHTimeValueTransformer>(u","_s);
    const auto succinct = withSymbol<VHSuccinctTimeTransformer>(u","_s);
    const struct
    {
        double seconds;
        QString full, succinct;
    } cases[] = {
        {3723.045, u"01:02:03,045"_s, u"01:02:03,045"_s}, {3599.5, u"00:59:59,500"_s, u"59:59,500"_s},
        {65.25, u"00:01:05,250"_s, u"01:05,250"_s},       {59.9999, u"00:00:59,999"_s, u"59,999"_s},
        {1.9999, u"00:00:01,999"_s, u"1,999"_s},          {360000.25, u"100:00:00,250"_s, u"100:00:00,250"_s},
        {3.9, u"00:00:03,900"_s, u"3,900"_s},             {61.3, u"00:01:01,300"_s, u"01:01,300"_s},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(full.transformedValue(c.seconds), c.full);
        EXPECT_EQ(succinct.transformedValue(c.seconds), c.succinct);
    }
    EXPECT_EQ(withSymbol<VHTimeValueTransformer>(u"."_s).transformedValue(3723.045), u"01:02:03.045"_s);
}

// A time a billionth below a full second (or minute, or hour) is that full second, and the
// fraction never grows a fourth digit.
TEST(TimeTransformerWriting, AFractionThatRoundsUpCarriesIntoTheSecondsNeverToFourDigits)
{
    const auto full = withSymbol<VHTimeValueTransformer>(u","_s);
    const auto succinct = withSymbol<VHSuccinctTimeTransformer>(u","_s);
    EXPECT_EQ(full.transformedValue(1.9999999995), u"00:00:02,000"_s);
    EXPECT_EQ(full.transformedValue(59.9999999995), u"00:01:00,000"_s);
    EXPECT_EQ(succinct.transformedValue(59.9999999995), u"01:00,000"_s);
    EXPECT_EQ(full.transformedValue(3599.9999999995), u"01:00:00,000"_s);
    EXPECT_EQ(succinct.transformedValue(3599.9999999995), u"01:00:00,000"_s);
    EXPECT_EQ(succinct.transformedValue(0.9999999999), u"1,000"_s);
    // A negative time too small to leave a full hour below 0 is 0, not -1 hours and 60 minutes.
    EXPECT_EQ(full.transformedValue(-1e-230), u"00:00:00,000"_s);

    const QRegularExpression form(u"^\\d{2,}:\\d{2}:\\d{2},\\d{3}$"_s);
    for (int second = 1; second < 20000; ++second) {
        for (double below : {1e-6, 5e-7, 1e-9, 5e-10, 1e-12}) {
            const QString text = full.transformedValue(second - below);
            ASSERT_TRUE(form.match(text).hasMatch())
                << second << " - " << below << ": " << text.toStdString();
        }
    }
}

// A time text holds an int's worth of hours; beyond that it says the largest (or smallest)
// time it can, which reads back as itself. No time is written as a negative one.
TEST(TimeTransformerWriting, TimesNoTextCanHoldAreWrittenAsTheNearestOneNeverNegative)
{
    const double inf = std::numeric_limits<double>::infinity();
    const double limit = 2147483648.0 * 3600; // 2^31 hours
    const QString largest = u"2147483647:59:59,999"_s, smallest = u"-2147483648:00:00,000"_s;
    const auto full = withSymbol<VHTimeValueTransformer>(u","_s);
    const auto succinct = withSymbol<VHSuccinctTimeTransformer>(u","_s);
    for (double t : {inf, 1e300, limit, limit * 2, std::nextafter(limit, 0.0) + 0.0}) {
        SCOPED_TRACE(t);
        EXPECT_EQ(full.transformedValue(t), largest);
        EXPECT_EQ(succinct.transformedValue(t), largest);
    }
    for (double t : {-inf, -1e300, -limit * 2}) {
        SCOPED_TRACE(t);
        EXPECT_EQ(full.transformedValue(t), smallest);
    }
    EXPECT_EQ(full.transformedValue(-limit), smallest);
    EXPECT_EQ(full.transformedValue(std::nan("")), u"00:00:00,000"_s);
    EXPECT_EQ(succinct.transformedValue(std::nan("")), u"0,000"_s);
    // Each of them reads back as the time it says, and is written the same again.
    for (const QString &text : {largest, smallest}) {
        const double read = full.reverseTransformedValue(text);
        EXPECT_TRUE(std::isfinite(read));
        EXPECT_EQ(full.transformedValue(read), text);
    }
    EXPECT_GT(full.reverseTransformedValue(largest), 7.7e12);
    EXPECT_EQ(full.reverseTransformedValue(smallest), -limit);
    // Just inside the limit the hours are written as they are.
    EXPECT_EQ(full.transformedValue(2147483000.0 * 3600 + 61.5), u"2147483000:01:01,500"_s);
}

// A field too large for a double is infinite with its sign, whichever way it is written.
TEST(TimeTextReading, FieldsTooLargeOrSmallForADoubleKeepTheirSign)
{
    const double inf = std::numeric_limits<double>::infinity();
    const QString digits = QString(u'9').repeated(400);
    const struct
    {
        QString text;
        double value;
    } cases[] = {
        {digits, inf},
        {u"-"_s + digits, -inf},
        {u"+"_s + digits, inf},
        {u"-1"_s + QString(u'0').repeated(399) + u".5"_s, -inf},
        {u"-1e400"_s, -inf},
        {u"1e400"_s, inf},
        {u"-0.0001e400"_s, -inf},
        {u"-"_s + QString(u'0').repeated(400) + u"1"_s, -1},
        {u"1e-400"_s, 0},
        {u"-0."_s + QString(u'0').repeated(400) + u"1"_s, 0},
        {u"-1000e-403"_s, 0},
        {u"-12x"_s, -12},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.text.left(20).toStdString());
        EXPECT_EQ(TimeText::leadingDouble(c.text), c.value);
        // A time text's hour field is read the same way (a point would start its fraction).
        if (!c.text.contains(u'.')) {
            EXPECT_EQ(TimeText::parse(QString(c.text + u":00:00"_s), u",", u"."), c.value * 3600);
        }
    }
    EXPECT_TRUE(std::signbit(TimeText::leadingDouble(u"-1e-400")));
    EXPECT_EQ(TimeText::parse(QString(u"-"_s + digits + u":00:00,000"_s), u",", u"."), -inf);
}

// Whatever a file says survives reading and writing: no millisecond is lost to the double
// just below the time read.
TEST(TimeTransformerReading, EveryMillisecondReadIsWrittenBackUnchanged)
{
    const auto full = withSymbol<VHTimeValueTransformer>(u","_s);
    for (const QString &prefix : {u"00:00:03,"_s, u"00:01:01,"_s, u"00:59:59,"_s, u"27:46:39,"_s, u"99:59:59,"_s}) {
        for (int ms = 0; ms < 1000; ++ms) {
            const QString text = prefix + u"%1"_s.arg(ms, 3, 10, QChar(u'0'));
            ASSERT_EQ(full.transformedValue(full.reverseTransformedValue(text)), text);
        }
    }
}

TEST(TimeTransformerReading, AcceptsBothSymbolsUnlimitedFieldsAndReadsTheFractionDigitByDigitFromItsEnd)
{
    const struct
    {
        const char16_t *text;
        double seconds;
    } cases[] = {
        {u"1:05.5", 65.5}, {u"1:05,5", 65.5}, {u"90", 90}, {u"2:90", 210}, {u"01:02:03,045", 3723.045},
        {u"100:00:00,000", 360000}, {u"00:00:01,500", 1.5}, {u"00:00:01,05", 1.05}, {u" 00:00:02, 25\t", 2.25},
        // Characters are not checked to be digits: 'x' counts as 72, so ",5x" is (5 + 7.2) / 10.
        {u"0,5x", 1.22},
    };
    for (const QString &symbol : {u","_s, u"."_s}) {
        const auto t = withSymbol<VHTimeValueTransformer>(symbol);
        for (const auto &c : cases)
            EXPECT_DOUBLE_EQ(t.reverseTransformedValue(c.text), c.seconds) << QStringView(c.text).toString().toStdString();
    }
    // The decimal symbol is looked for before the alternate one, each from the end.
    EXPECT_EQ(withSymbol<VHTimeValueTransformer>(u"."_s).reverseTransformedValue(u"01,5.25"), 1.25);
}

// Also run by CTest under a German locale, whose decimal symbol is ",".
TEST(TimeTransformerLocale, LocalizedFollowsTheUserLocaleAndSwitchingMovesBothSymbols)
{
    const QString system = QLocale::system().decimalPoint();
    const QString other = system == u"."_s ? u","_s : u"."_s;

    VHTimeValueTransformer t;
    EXPECT_TRUE(t.localized());
    EXPECT_EQ(t.decimalSymbol(), system);
    EXPECT_EQ(t.alternateDecimalSymbol(), other);
    EXPECT_EQ(VHTimeValueTransformer::stringForTime(1.5), u"00:00:01"_s + system + u"500"_s);
    EXPECT_DOUBLE_EQ(VHTimeValueTransformer::timeForString(QString(u"00:00:01"_s + other + u"25"_s)), 1.25);

    t.setDecimalSymbol(u"."_s);
    EXPECT_EQ(t.alternateDecimalSymbol(), u","_s);
    t.setLocalized(false);
    EXPECT_EQ(t.decimalSymbol(), u","_s);
    EXPECT_EQ(t.alternateDecimalSymbol(), u"."_s);
    t.setLocalized(true);
    EXPECT_EQ(t.decimalSymbol(), system);

    // Cue times are never localized.
    EXPECT_EQ(VHSubtitle::formatedTime(1.5), u"00:00:01,500"_s);
}

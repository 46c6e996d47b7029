#include "TestSupport.h"
#include "VHSubtitle.h"
#include "VHTimeValueTransformer.h"

#include <QLocale>

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

#include "TextCodec.h"
#include "VHEncoding.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Catalogue, HoldsFortySevenRowsAndOneSeparatorAfterNonLossyAscii)
{
    const QList<VHEncoding> &rows = VHEncoding::catalogue();
    ASSERT_EQ(rows.size(), 48);
    EXPECT_EQ(std::count_if(rows.begin(), rows.end(), [](const VHEncoding &e) { return e.isSeparator(); }),
              1);
    EXPECT_EQ(rows[22].name(), u"Non Lossy ASCII"_s);
    EXPECT_TRUE(rows[23].isSeparator());
    EXPECT_EQ(rows[24].name(), u"Chinese GB 18030"_s);
    EXPECT_EQ(rows.front().name(), u"Automatic"_s);
    EXPECT_EQ(rows.back().name(), u"Korean (Windows)"_s);
}

TEST(Catalogue, NamesAnEncodingByItsFirstRow)
{
    EXPECT_EQ(VHEncoding::nameForEncoding(0), u"Automatic"_s);
    EXPECT_EQ(VHEncoding::nameForEncoding(4), u"UTF-8"_s);
    // Code pages 1252, 1250 and 1254 stand twice; the earlier row names them.
    EXPECT_EQ(VHEncoding::nameForEncoding(12), u"Window Latin 1"_s);
    EXPECT_EQ(VHEncoding::nameForEncoding(15), u"Window Latin 2"_s);
    EXPECT_EQ(VHEncoding::nameForEncoding(14), u"Window Latin 5"_s);
    EXPECT_EQ(VHEncoding::nameForEncoding(0x80000002), u"Chinese Trad (Mac)"_s);
    EXPECT_EQ(VHEncoding::nameForEncoding(0x80000510), u"Korean (Windows)"_s);
    EXPECT_EQ(VHEncoding::nameForEncoding(999), u"unknown encoding"_s);
    EXPECT_EQ(VHEncoding::nameForEncoding(Encodings::KOI8R), u"unknown encoding"_s);
}

TEST(Catalogue, FindsTheNumberOfAName)
{
    EXPECT_EQ(VHEncoding::encodingForName(u"Windows CP1252"), 12u);
    EXPECT_EQ(VHEncoding::encodingForName(u"Cyrillic (Windows)"), 11u);
    EXPECT_FALSE(VHEncoding::encodingForName(u"Windows-1252").has_value());
    EXPECT_FALSE(VHEncoding::encodingForName(u"").has_value()); // the separator has no name to find
}

TEST(Catalogue, EveryRowButAutomaticHasAConverter)
{
    for (const VHEncoding &row : VHEncoding::catalogue()) {
        if (!row.isSeparator() && row.codePage() != Encodings::None) {
            EXPECT_TRUE(TextCodec::isSupported(row.codePage())) << row.name().toStdString();
        }
    }
}

#include "TestSupport.h"
#include "VHEncoding.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Catalogue, HoldsFortySevenRowsAndOneSeparatorAfterNonLossyAscii)
{
    const QList<VHEncoding> &rows = VHEncoding::catalogue();
    ASSERT_EQ(rows.size(), 48);
    EXPECT_EQ(std::count_if(rows.begin(), rows.end(), [](const VHEncoding &e) { return e.isSeparator(); }), 1);
    EXPECT_EQ(rows[22].name(), u"Non Lossy ASCII"_s);
    EXPECT_TRUE(rows[23].isSeparator());
    EXPECT_EQ(rows.front().name(), u"Automatic"_s);
}

// Code pages 1252, 1250 and 1254 stand twice; the earlier row names them.
TEST(Catalogue, EveryNameFindsItsNumberAndANumberIsNamedByItsFirstRow)
{
    QHash<EncodingId, QString> firstNames;
    for (const VHEncoding &row : VHEncoding::catalogue()) {
        if (row.isSeparator())
            continue;
        firstNames.insert(row.codePage(), firstNames.value(row.codePage(), row.name()));
        EXPECT_EQ(VHEncoding::encodingForName(row.name()), row.codePage()) << row.name().toStdString();
        EXPECT_EQ(VHEncoding::nameForEncoding(row.codePage()), firstNames[row.codePage()]);
    }
    // The numbers are those that settings and rules files store.
    EXPECT_EQ(VHEncoding::nameForEncoding(4), u"UTF-8"_s);
    EXPECT_EQ(VHEncoding::nameForEncoding(12), u"Window Latin 1"_s);
    EXPECT_EQ(VHEncoding::nameForEncoding(15), u"Window Latin 2"_s);
    EXPECT_EQ(VHEncoding::nameForEncoding(14), u"Window Latin 5"_s);
    EXPECT_EQ(VHEncoding::nameForEncoding(0x80000002), u"Chinese Trad (Mac)"_s);
    EXPECT_EQ(VHEncoding::nameForEncoding(0x80000510), u"Korean (Windows)"_s);
    EXPECT_EQ(VHEncoding::nameForEncoding(999), u"unknown encoding"_s);
    EXPECT_EQ(VHEncoding::nameForEncoding(Encodings::KOI8R), u"unknown encoding"_s); // a converter, but no row
    EXPECT_FALSE(VHEncoding::encodingForName(u"Windows-1252").has_value());
    EXPECT_FALSE(VHEncoding::encodingForName(u"").has_value()); // the separator has no name to find
}

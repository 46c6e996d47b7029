#include "TestSupport.h"
#include "TextCodec.h"
#include "VHEncoding.h"
#include "VHEncodingTester.h"

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

// "Cyrillic (DOS)" is code page 866, numbered 0x8000041B; earlier versions stored
// 0x80000413 (code page 855 on the first platform), which still means code page 866 when a
// settings or rules file holds it.
TEST(Catalogue, CyrillicDosIsCodePage866UnderItsNumberAndUnderTheOldOne)
{
    EXPECT_EQ(Encodings::DOSRussian, 2147484699u);
    EXPECT_EQ(VHEncoding::encodingForName(u"Cyrillic (DOS)"), 2147484699u);
    // "Привет" in code page 866; code page 855 would read these bytes as other letters.
    const QByteArray cp866("\x8f\xe0\xa8\xa2\xa5\xe2");
    for (const EncodingId id : {2147484699u, 2147484691u}) {
        SCOPED_TRACE(id);
        EXPECT_EQ(VHEncoding::nameForEncoding(id), u"Cyrillic (DOS)"_s);
        QString text;
        ASSERT_TRUE(TextCodec::decode(cp866, id, &text));
        EXPECT_EQ(text, u"Привет"_s);
        const auto tester = VHEncodingTester::encodingTesterFromData(
            u"name: Russian\nnsstring: %1\n"_s.arg(id).toUtf8(), u"test.encoding"_s);
        ASSERT_TRUE(tester);
        EXPECT_EQ(tester->stringEncoding(), Encodings::DOSRussian);
    }
}

#include "TextCodec.h"
#include "VHEncoding.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <future>

using namespace Qt::StringLiterals;
using namespace Encodings;

namespace {
QString decoded(const QByteArray &bytes, EncodingId encoding)
{
    QString text;
    EXPECT_TRUE(TextCodec::decode(bytes, encoding, &text)) << "encoding " << encoding;
    return text;
}

QByteArray encoded(const QString &text, EncodingId encoding)
{
    QByteArray bytes;
    EXPECT_TRUE(TextCodec::encode(text, encoding, &bytes)) << "encoding " << encoding;
    return bytes;
}

// A text every row of the catalogue can hold: its script's letters and ASCII.
QString sampleFor(const QString &name)
{
    if (name.startsWith(u"Chinese Simp"_s) || name == u"Chinese GB 18030"_s)
        return u"我们没时间了。Time, 9:00"_s;
    if (name.startsWith(u"Chinese Trad"_s))
        return u"我們沒時間了。Time, 9:00"_s;
    if (name.startsWith(u"Japanese"_s))
        return u"時間がない。カメラ, 9:00"_s;
    if (name.startsWith(u"Korean"_s))
        return u"시간이 없어. Time, 9:00"_s;
    if (name.startsWith(u"Cyrillic"_s))
        return u"Нет времени. Time, 9:00"_s;
    if (name.startsWith(u"Greek"_s))
        return u"Δεν έχουμε χρόνο. Time, 9:00"_s;
    if (name.startsWith(u"Hebrew"_s))
        return u"אין לנו זמן. Time, 9:00"_s;
    if (name.startsWith(u"ISO Latin 2"_s) || name.contains(u"Latin 2"_s) || name == u"Windows CP1250"_s)
        return u"Żółć, přítel. Time, 9:00"_s;
    if (name.contains(u"Latin 5"_s) || name == u"Windows CP1254"_s)
        return u"Şimdi ığdır. Time, 9:00"_s;
    if (name == u"ISO Latin 3"_s)
        return u"Ĉu ĝi? Time, 9:00"_s;
    if (name == u"ISO Latin 4"_s)
        return u"Ūdens ļoti. Time, 9:00"_s;
    return u"Déjà vu, naïve café. Time, 9:00"_s;
}
} // namespace

// Every row of the catalogue converts both ways, and back to the same text.
TEST(TextCodecRoundTrip, EveryCatalogueRowConvertsItsScriptBothWays)
{
    int rows = 0;
    for (const VHEncoding &row : VHEncoding::catalogue()) {
        if (row.isSeparator() || row.codePage() == None)
            continue;
        ++rows;
        const QString text = sampleFor(row.name());
        QByteArray bytes;
        ASSERT_TRUE(TextCodec::encode(text, row.codePage(), &bytes)) << row.name().toStdString();
        QString back;
        ASSERT_TRUE(TextCodec::decode(bytes, row.codePage(), &back)) << row.name().toStdString();
        EXPECT_EQ(back, text) << row.name().toStdString();
    }
    EXPECT_EQ(rows, 46);
}

TEST(TextCodecRoundTrip, EncodingsOutsideTheCatalogueThatRulesFilesName)
{
    EXPECT_EQ(decoded(encoded(u"Привет"_s, KOI8R), KOI8R), u"Привет"_s);
    EXPECT_EQ(decoded(encoded(u"Ґанок і їжак"_s, KOI8U), KOI8U), u"Ґанок і їжак"_s);
    EXPECT_EQ(decoded(encoded(u"한국어"_s, DOSKorean), DOSKorean), u"한국어"_s);
    EXPECT_EQ(decoded(encoded(u"مرحبا"_s, WindowsArabic), WindowsArabic), u"مرحبا"_s);
    EXPECT_EQ(decoded(encoded(u"Œuvre €"_s, ISOLatin9), ISOLatin9), u"Œuvre €"_s);
    EXPECT_EQ(decoded(encoded(u"Ăști"_s, ISOLatin10), ISOLatin10), u"Ăști"_s);
}

// Bytes as other programs write them, so that a converter picked by the wrong name shows.
TEST(TextCodecKnownBytes, MatchWhatOtherWritersProduce)
{
    EXPECT_EQ(encoded(u"Привет"_s, KOI8R).toHex(), "f0d2c9d7c5d4");
    EXPECT_EQ(encoded(u"日本語"_s, ShiftJIS).toHex(), "93fa967b8cea");
    EXPECT_EQ(encoded(u"日本"_s, JapaneseEUC).toHex(), "c6fccbdc");
    EXPECT_EQ(encoded(u"日本"_s, ISO2022JP).toHex(), "1b2442467c4b5c1b2842");
    EXPECT_EQ(encoded(u"한글"_s, WindowsKoreanJohab).toHex(), "d0658b69");
    EXPECT_EQ(encoded(u"한국"_s, EUCKR).toHex(), "c7d1b1b9");
    EXPECT_EQ(encoded(u"中文€"_s, GB18030).toHex(), "d6d0cec4a2e3");
    EXPECT_EQ(encoded(u"中文"_s, DOSChineseTrad).toHex(), "a4a4a4e5");
    EXPECT_EQ(encoded(u"שלום"_s, WindowsHebrew).toHex(), "f9ece5ed");
    EXPECT_EQ(encoded(u"Ελλάδα"_s, DOSGreek).toHex(), "84a2a2e19b98");
    EXPECT_EQ(encoded(u"Ελλάδα"_s, MacGreek).toHex(), "b6ececc0e4e1");
    EXPECT_EQ(encoded(u"Hi €"_s, UTF7), "Hi +IKw-");
    EXPECT_EQ(encoded(u"é€"_s, WindowsCP1252).toHex(), "e980");
    // Our own tables: NeXTSTEP and Mac Hebrew.
    EXPECT_EQ(encoded(u"é fi"_s, NeXTSTEP).toHex(), "dd206669");
    EXPECT_EQ(decoded(QByteArray::fromHex("ddae"), NeXTSTEP), u"éﬁ"_s);
    EXPECT_EQ(encoded(u"אב ₪"_s, MacHebrew).toHex(), "e0e120a6");
    // Non-lossy ASCII: \uXXXX for everything outside ASCII, a backslash doubled.
    EXPECT_EQ(encoded(u"a\\é"_s, NonLossyASCII), "a\\\\\\u00e9");
    EXPECT_EQ(decoded("a\\\\\\u00e9\\351", NonLossyASCII), u"a\\éé"_s);
}

TEST(TextCodecStrictness, BytesNotValidInTheEncodingFailTheDecoding)
{
    const std::pair<QByteArray, EncodingId> invalid[] = {
        {"caf\xC3(", UTF8},
        {"\x81", ShiftJIS}, // lead byte without its trail
        {"\xA1", JapaneseEUC},
        {"\x81 ", GB18030},
        {"\xA1", ISOLatinHebrew}, // unassigned
        {"\xD2", WindowsCP1253},
        {"\xFF", WindowsCP1253},
        {"\xFE", NeXTSTEP},
        {"\xC0", MacHebrew},
        {"caf\xE9", NonLossyASCII},                   // not ASCII
        {"abc", UTF16LE},                             // odd length
        {QByteArray("\x00\xD8\x41\x00", 4), UTF16LE}, // lone surrogate
        {"\xA4", DOSChineseTrad},
        {"\x84\x44\x84", WindowsKoreanJohab},
    };
    for (const auto &[data, encoding] : invalid) {
        QString text = u"untouched"_s;
        QString error;
        EXPECT_FALSE(TextCodec::decode(data, encoding, &text, &error))
            << "encoding " << encoding << " bytes " << data.toHex().constData();
        EXPECT_FALSE(error.isEmpty());
        EXPECT_EQ(text, u"untouched"_s);
    }
}

TEST(TextCodecStrictness, CharactersTheEncodingLacksFailTheEncoding)
{
    const std::pair<QString, EncodingId> unmappable[] = {
        {u"Ж"_s, WindowsCP1252}, {u"€"_s, ISOLatin1}, {u"한"_s, ShiftJIS},
        {u"ش"_s, MacHebrew},     {u"Ж"_s, NeXTSTEP},  {QString(QChar(0xD800)), UTF8},
    };
    for (const auto &[text, encoding] : unmappable) {
        QByteArray bytes;
        QString error;
        EXPECT_FALSE(TextCodec::encode(text, encoding, &bytes, &error)) << "encoding " << encoding;
        EXPECT_FALSE(error.isEmpty());
    }
}

TEST(TextCodecStrictness, NumbersWithoutAConverterFail)
{
    QString text;
    QString error;
    EXPECT_FALSE(TextCodec::decode("abc", None, &text, &error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_FALSE(TextCodec::decode("abc", 123456, &text));
    EXPECT_FALSE(TextCodec::isSupported(None));
    EXPECT_TRUE(TextCodec::isSupported(WindowsKoreanJohab));
}

TEST(TextCodecByteOrder, UnicodeWithoutEndiannessReadsTheMarkElseLittleEndian)
{
    EXPECT_EQ(decoded(QByteArray("\xFE\xFF\x00h\x00i", 6), UTF16), u"hi"_s);
    EXPECT_EQ(decoded(QByteArray("\xFF\xFEh\x00i\x00", 6), UTF16), u"hi"_s);
    EXPECT_EQ(decoded(QByteArray("h\x00i\x00", 4), UTF16), u"hi"_s);
    EXPECT_EQ(decoded(QByteArray("\x00\x00\xFE\xFF\x00\x00\x00h", 8), UTF32), u"h"_s);
    EXPECT_EQ(decoded(QByteArray("h\x00\x00\x00", 4), UTF32), u"h"_s);
    EXPECT_EQ(encoded(u"h"_s, UTF16), QByteArray("\xFF\xFEh\x00", 4));
    EXPECT_EQ(encoded(u"h"_s, UTF32), QByteArray("\xFF\xFE\x00\x00h\x00\x00\x00", 8));
}

TEST(TextCodecAutomatic, ByteOrderMarksThenStrictUtf8AndNothingElse)
{
    struct Case
    {
        QByteArray bytes;
        EncodingId used;
    };
    const Case cases[] = {
        {QByteArray("\xEF\xBB\xBFhi"), UTF8},
        {QByteArray("\xFF\xFE\x00\x00h\x00\x00\x00i\x00\x00\x00", 12), UTF32},
        {QByteArray("\x00\x00\xFE\xFF\x00\x00\x00h\x00\x00\x00i", 12), UTF32},
        {QByteArray("\xFF\xFEh\x00i\x00", 6), UTF16},
        {QByteArray("\xFE\xFF\x00h\x00i", 6), UTF16},
        {QByteArray("hi"), UTF8},
    };
    for (const Case &c : cases) {
        QString text;
        EncodingId used = None;
        ASSERT_TRUE(TextCodec::decodeAutomatically(c.bytes, &text, &used)) << c.bytes.toHex().constData();
        EXPECT_EQ(text, u"hi"_s) << c.bytes.toHex().constData();
        EXPECT_EQ(used, c.used) << c.bytes.toHex().constData();
    }
    QString text;
    EncodingId used = None;
    EXPECT_FALSE(TextCodec::decodeAutomatically("caf\xE9", &text, &used));
    EXPECT_FALSE(TextCodec::decodeAutomatically("\xEF\xBB\xBF"
                                                "caf\xE9",
                                                &text, &used));
}

TEST(TextCodecTables, SingleByteEncodingsHaveAByteTableAndOthersNone)
{
    const TextCodec::ByteTable *cp1252 = TextCodec::singleByteTable(WindowsCP1252);
    ASSERT_NE(cp1252, nullptr);
    EXPECT_EQ((*cp1252)[0xE9], u'é');
    EXPECT_EQ((*cp1252)[0x80], u'€');
    const TextCodec::ByteTable *greek = TextCodec::singleByteTable(WindowsCP1253);
    ASSERT_NE(greek, nullptr);
    EXPECT_EQ((*greek)[0xD2], TextCodec::kNoUnit);
    EXPECT_NE(TextCodec::singleByteTable(MacHebrew), nullptr);
    EXPECT_EQ(TextCodec::singleByteTable(ShiftJIS), nullptr);
    EXPECT_EQ(TextCodec::singleByteTable(UTF16), nullptr);
    EXPECT_EQ(TextCodec::singleByteTable(WindowsKoreanJohab), nullptr);
}

// Converters are cached per thread; conversions on several threads at once must not
// disturb each other.
TEST(TextCodecThreads, ConcurrentConversionsGiveTheSameResults)
{
    const std::pair<QString, EncodingId> work[] = {{u"日本語のテキスト"_s, ShiftJIS},
                                                   {u"Привет, мир"_s, KOI8R},
                                                   {u"한국어 텍스트"_s, WindowsKoreanJohab},
                                                   {u"中文文本"_s, GB18030},
                                                   {u"Ελληνικά"_s, WindowsCP1253}};
    auto run = [&work] {
        for (int round = 0; round < 300; ++round) {
            for (const auto &[text, encoding] : work) {
                QByteArray bytes;
                QString back;
                if (!TextCodec::encode(text, encoding, &bytes) ||
                    !TextCodec::decode(bytes, encoding, &back) || back != text)
                    return false;
            }
        }
        return true;
    };
    std::vector<std::future<bool>> threads;
    for (int i = 0; i < 4; ++i)
        threads.push_back(std::async(std::launch::async, run));
    for (auto &thread : threads)
        EXPECT_TRUE(thread.get());
}

// The bytes that go into a movie: sample payloads, the tx3g sample description, and the
// extractor's reading of a sample.
#include "CTSubtitleExtractor.h"
#include "CTSubtitleReader.h"
#include "TestSupport.h"
#include "TimedTextSamples.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
QByteArray hex(const char *text)
{
    return QByteArray::fromHex(QByteArray(text).replace(' ', ""));
}
} // namespace

TEST(TimedTextPayload, SubtitleSamplesCarryLengthTextAndForcedBox)
{
    struct Case
    {
        QString text;
        bool forced;
        QByteArray bytes;
    } cases[] = {
        {u"Hi"_s, false, hex("0002 4869")},
        {u"Hi"_s, true, hex("0002 4869 00000008 66726364")},
        {u""_s, false, hex("0000")},
        {u""_s, true, hex("0000 00000008 66726364")},
        {u"é\n€"_s, false, hex("0006 c3a9 0a e282ac")},
    };
    for (const Case &c : cases)
        EXPECT_EQ(TimedText::tx3gSamplePayload(c.text, c.forced), c.bytes) << c.text.toStdString();
}

TEST(TimedTextPayload, OverlongTextKeepsTheLow16BitsOfItsLength)
{
    const QString text(70'000, u'a');
    const QByteArray payload = TimedText::tx3gSamplePayload(text, false);
    // 70,000 mod 65,536 = 4,464.
    ASSERT_EQ(payload.size(), 4'466);
    EXPECT_EQ(payload.left(2), hex("1170"));
    EXPECT_EQ(payload.mid(2), QByteArray(4'464, 'a'));
}

TEST(TimedTextPayload, ChapterSamplesAreUtf16WithMarkAndEncodingBox)
{
    const QByteArray intro = TimedText::qtTextSamplePayload(u"Intro"_s);
    EXPECT_EQ(intro, hex("000c fffe 4900 6e00 7400 7200 6f00 0000000c 656e6364 00000100"));
    EXPECT_EQ(intro.size(), 26);
    EXPECT_EQ(TimedText::qtTextSamplePayload(QString()), hex("0002 fffe 0000000c 656e6364 00000100"));
}

TEST(TimedTextPayload, Tx3gSampleDescriptionBytes)
{
    const QByteArray expected = hex("c0000000"                       // display flags
                                    "00 00"                          // justification
                                    "000000ff"                       // background
                                    "0000 0000 0000 0000"            // text box
                                    "0000 0000 0001 00 ff ffffffff"  // style record
                                    "00000017 66746162 0001 0001 0a" // ftab, one font
                                    "53616e732d5365726966");         // "Sans-Serif"
    EXPECT_EQ(TimedText::tx3gSampleDescription(TimedText::AllSamplesForced), expected);
    EXPECT_EQ(TimedText::tx3gSampleDescription(0).left(4), hex("00000000"));
    EXPECT_EQ(TimedText::tx3gSampleDescription(TimedText::SomeSamplesForced).left(4), hex("40000000"));
}

TEST(TimedTextPayload, SampleTextReading)
{
    struct Case
    {
        const char *name;
        QByteArray bytes;
        std::optional<QString> text;
    } cases[] = {
        {"plain", hex("0002 4869"), u"Hi"_s},
        {"boxes after the text are ignored", hex("0002 4869 00000008 66726364"), u"Hi"_s},
        {"zero length", hex("0000"), std::nullopt},
        {"shorter than its length", hex("0005 4869"), std::nullopt},
        {"one byte", hex("00"), std::nullopt},
        {"text ends at a zero byte", hex("0004 4869 0041"), u"Hi"_s},
        {"a zero first byte is an empty text", hex("0002 0041"), u""_s},
        {"invalid UTF-8", hex("0002 c328"), std::nullopt},
        // A UTF-16 chapter title does not read as UTF-8: the mark is invalid.
        {"UTF-16 with mark", TimedText::qtTextSamplePayload(u"Intro"_s), std::nullopt},
    };
    for (const Case &c : cases) {
        const std::optional<QString> text = CTSubtitleExtractor::stringFromSampleBuffer(c.bytes);
        EXPECT_EQ(text.has_value(), c.text.has_value()) << c.name;
        if (text && c.text) {
            EXPECT_EQ(*text, *c.text) << c.name;
            EXPECT_FALSE(text->isNull()) << c.name;
        }
    }
}

TEST(TimedTextPayload, ReadBackOfEveryPayloadWeWrite)
{
    for (const QString &text : {u"Hello"_s, u"Zwei Zeilen\nmit Ümlaut"_s, u"字幕"_s}) {
        for (bool forced : {false, true})
            EXPECT_EQ(TimedText::stringFromSampleBytes(TimedText::tx3gSamplePayload(text, forced)), text);
    }
}

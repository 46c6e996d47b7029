#include "VHMovieController.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(AudioCodes, LabelsAndSafetyFollowTheCodecTable)
{
    struct Row
    {
        QString code, label;
        bool safe;
    };
    const Row rows[] = {
        {u"aac "_s, u"AAC"_s, true},
        {u"ac-3"_s, u"AC3"_s, false},
        {u"cac3"_s, u"AC3"_s, false},
        {u"aes3"_s, u"AES3"_s, false},
        {u"alac"_s, u"Apple Loss Less"_s, true},
        {u"alaw"_s, u"ALaw"_s, false},
        {u"ulaw"_s, u"ULaw"_s, false},
        {u"lpcm"_s, u"PCM"_s, true},
        {u"ima4"_s, u"MA4"_s, true},
        {u".mp1"_s, u"MP1"_s, true},
        {u".mp2"_s, u"MP2"_s, true},
        {u".mp3"_s, u"MP3"_s, true},
        {u"MAC3"_s, u"MACE3"_s, false},
        {u"MAC6"_s, u"MACE6"_s, false},
        // Codes outside the table, including near misses of its spelling.
        {u"aac"_s, u""_s, false},
        {u"AAC "_s, u""_s, false},
        {u"opus"_s, u""_s, false},
        {u""_s, u""_s, false},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.code.toStdString());
        EXPECT_EQ(VHMovieController::audioTypeForCode(row.code), row.label);
        EXPECT_EQ(VHMovieController::isSaveAudioCode(row.code), row.safe);
    }
}

TEST(AudioCodes, PlayerCodecNamesMapOntoTheCodes)
{
    const std::pair<QString, QString> rows[] = {
        {u"aac"_s, u"aac "_s},       {u"ac3"_s, u"ac-3"_s},       {u"eac3"_s, u"ec-3"_s},
        {u"alac"_s, u"alac"_s},      {u"pcm_alaw"_s, u"alaw"_s},  {u"pcm_mulaw"_s, u"ulaw"_s},
        {u"pcm_s16le"_s, u"lpcm"_s}, {u"pcm_f32be"_s, u"lpcm"_s}, {u"adpcm_ima_qt"_s, u"ima4"_s},
        {u"mp3"_s, u".mp3"_s},       {u"mp3float"_s, u".mp3"_s},  {u"mp2"_s, u".mp2"_s},
        {u"mace6"_s, u"MAC6"_s},     {u"opus"_s, u"opus"_s},
    };
    for (const auto &[codec, code] : rows)
        EXPECT_EQ(VHMovieController::audioCodeForCodecName(codec), code) << codec.toStdString();
    // Enhanced AC-3 is not in the table: unsafe, with no label.
    EXPECT_FALSE(VHMovieController::isSaveAudioCode(VHMovieController::audioCodeForCodecName(u"eac3"_s)));
}

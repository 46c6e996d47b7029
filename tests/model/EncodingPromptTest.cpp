// Loading a file whose encoding nothing can determine: the question, its texts, the
// repetition until a decoding succeeds or the user cancels, and the remembered choice.
// This executable runs without encoding rules (CAPTORA_RESOURCES points at an empty rules
// folder), so that the detector rejects every file and the question is certain to come.
#include "Log.h"
#include "Prompter.h"
#include "Settings.h"
#include "TestSupport.h"
#include "VHSubtitle.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
// Valid SubRip, but with bytes that are not UTF-8: "Grüße" in ISO Latin 1.
const QByteArray kLatin1SubRip = "1\n00:00:01,000 --> 00:00:02,000\nGr\xFC\xDF" "e\n";

class EncodingPromptTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Settings::shared().useFile(dir.path(u"settings.ini"_s));
        VHSubtitle::setEncodingDefaultsKey(QString());
    }
    void TearDown() override { VHSubtitle::setEncodingDefaultsKey(QString()); }

    TempDir dir;
    ScriptedPrompter prompter;
    ScopedPrompter scope{&prompter};
    LogCapture log;
};

TEST_F(EncodingPromptTest, AsksAgainAfterEveryFailedChoiceUntilCancelled)
{
    const QString path = dir.write(u"latin1.srt"_s, kLatin1SubRip);
    // UTF-8 twice (fails each time), then Cancel.
    prompter.answers = {PromptAnswer{0, 4, false}, PromptAnswer{0, 4, false}, PromptAnswer{1, 4, false}};
    EXPECT_FALSE(VHSubtitle::subtitlesFromFileAtURL(path, 0, 0, 4, true));
    ASSERT_EQ(prompter.prompts.size(), 3);
    ASSERT_FALSE(log.lines().isEmpty());
    const QString warning = log.lines().first();
    EXPECT_TRUE(warning.startsWith(u"Warning: Could not load subtitle '%1', because: "_s.arg(path))) << qPrintable(warning);
    EXPECT_EQ(log.count(warning), 3) << "one warning per attempt";

    const Prompt &prompt = prompter.prompts.first();
    EXPECT_EQ(prompt.message, u"File language problem:"_s);
    EXPECT_EQ(prompt.informative,
              u"Could not open subtitle file using 'UTF-8' encoding. Please select a different encoding:"_s);
    EXPECT_EQ(prompt.buttons, (QStringList{u"Use Selected"_s, u"Cancel"_s}));
    EXPECT_EQ(prompt.selectedTag, 4);
    EXPECT_TRUE(prompt.checkboxTitle.isEmpty()) << "no remember box while no settings key is set";
    ASSERT_EQ(prompt.choices.size(), 48);
    EXPECT_TRUE(prompt.choices[23].separator);
    EXPECT_EQ(prompt.choices[22].title, u"Non Lossy ASCII"_s);
}

TEST_F(EncodingPromptTest, TheChosenEncodingLoadsTheFileAndMayBeRemembered)
{
    VHSubtitle::setEncodingDefaultsKey(u"Encoding"_s);
    const QString path = dir.write(u"latin1.srt"_s, kLatin1SubRip);
    prompter.answers = {PromptAnswer{0, 5, true}}; // ISO Latin 1, remembered
    const auto cues = VHSubtitle::subtitlesFromFileAtURL(path);
    ASSERT_TRUE(cues);
    EXPECT_EQ(cues->first()->string(), u"Grüße"_s);
    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(prompter.prompts.first().checkboxTitle, u"Remember encoding as default."_s);
    EXPECT_EQ(prompter.prompts.first().informative,
              u"Could not open subtitle file using 'Automatic' encoding. Please select a different encoding:"_s);
    EXPECT_EQ(Settings::shared().integerValue(u"Encoding"_s), 5);
}

TEST_F(EncodingPromptTest, AStrictEncodingComesFirstAndAnOptionalOneAfterUtf8)
{
    // ISO Latin 1 decodes anything, so asking for it strictly reads the UTF-8 bytes as
    // Latin 1; as a suggestion, the valid UTF-8 wins. Neither asks.
    const QString path = dir.write(u"utf8.srt"_s, "1\n00:00:01,000 --> 00:00:02,000\n\xC3\xBC\n");
    EXPECT_EQ(VHSubtitle::subtitlesFromFileAtURL(path, 0, 0, 5, false)->first()->string(), u"Ã¼"_s);
    EXPECT_EQ(VHSubtitle::subtitlesFromFileAtURL(path, 0, 0, 5, true)->first()->string(), u"ü"_s);
    EXPECT_TRUE(prompter.prompts.isEmpty());
}
} // namespace

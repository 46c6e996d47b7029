#include "Prompter.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(Prompter, WithoutAPrompterEveryQuestionIsDeclinedWithItsLastButton)
{
    const Prompt prompt{u"File language problem:"_s, u"Pick one"_s, {u"Use Selected"_s, u"Cancel"_s}, {}, 7, {}, false};
    const PromptAnswer declined = Prompter::shared().ask(prompt);
    EXPECT_EQ(declined.button, 1);
    EXPECT_EQ(declined.selectedTag, 7);

    ScriptedPrompter scripted;
    scripted.answers << PromptAnswer{0, 12, true};
    {
        ScopedPrompter scope(&scripted);
        const PromptAnswer answer = Prompter::shared().ask(prompt);
        EXPECT_EQ(answer.button, 0);
        EXPECT_EQ(answer.selectedTag, 12);
    }
    ASSERT_EQ(scripted.prompts.size(), 1);
    EXPECT_EQ(scripted.prompts.first().message, u"File language problem:"_s);
    // The scope restored the declining prompter.
    EXPECT_EQ(Prompter::shared().ask(prompt).button, 1);
    EXPECT_EQ(scripted.prompts.size(), 1);
}

#pragma once

#include "Prompter.h"

// Answers the engine's questions on the command line. On a terminal it shows the question
// and reads the answer from standard input. Without a terminal it never waits: it prints
// the question, its choices and `hint` (which option to pass instead) on standard error and
// declines, so the command fails with a clear message.
class CliPrompter final : public Prompter
{
public:
    explicit CliPrompter(QString hint);
    PromptAnswer ask(const Prompt &prompt) override;

    bool declinedForLackOfTerminal() const { return m_declined; }

private:
    PromptAnswer askOnTerminal(const Prompt &prompt);
    QString m_hint;
    bool m_declined = false;
};

#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// One entry of a prompt's accessory pop-up; a separator carries no tag.
struct PromptChoice
{
    QString title;
    qint64 tag = 0;
    bool separator = false;
};

// A question the core asks the user: a message, an informative text, buttons (the first
// is the default), optionally a pop-up of choices and a check box.
struct Prompt
{
    QString message;
    QString informative;
    QStringList buttons;
    QList<PromptChoice> choices;
    qint64 selectedTag = 0;
    QString checkboxTitle; // empty: no check box
    bool checkboxChecked = false;
};

struct PromptAnswer
{
    int button = -1; // index into Prompt::buttons; -1 when the question could not be asked
    qint64 selectedTag = 0;
    bool checkboxChecked = false;
};

// The core never opens a dialog; it asks through this interface. The window answers with a
// window-modal dialog, the command line with its options, tests with scripted answers.
class Prompter
{
public:
    virtual ~Prompter();
    virtual PromptAnswer ask(const Prompt &prompt) = 0;

    // The prompter of the process. Until one is set, every question is declined (answered
    // with its last button, which is "Cancel" wherever the program asks).
    static Prompter &shared();
    // Does not take ownership; pass null to restore the declining prompter.
    static void setShared(Prompter *prompter);
};

// Sets the shared prompter for the lifetime of the object, then restores the previous one.
class ScopedPrompter
{
public:
    explicit ScopedPrompter(Prompter *prompter);
    ~ScopedPrompter();
    ScopedPrompter(const ScopedPrompter &) = delete;
    ScopedPrompter &operator=(const ScopedPrompter &) = delete;

private:
    Prompter *m_previous;
};

#pragma once

#include "Prompter.h"

#include <QPointer>
#include <QWidget>

// Answers the core's questions with a dialog over the window. The core waits for the
// answer, so the dialog runs its own event loop (exec()); it is modal for the window only.
class WindowPrompter final : public Prompter
{
public:
    explicit WindowPrompter(QWidget *window = nullptr) : m_window(window) {}
    void setWindow(QWidget *window) { m_window = window; }
    PromptAnswer ask(const Prompt &prompt) override;

private:
    QPointer<QWidget> m_window;
};

#include "Prompter.h"

namespace {
class DecliningPrompter final : public Prompter
{
public:
    PromptAnswer ask(const Prompt &prompt) override
    {
        return PromptAnswer{int(prompt.buttons.size()) - 1, prompt.selectedTag, prompt.checkboxChecked};
    }
};

DecliningPrompter s_declining;
Prompter *s_shared = nullptr;
} // namespace

Prompter::~Prompter() = default;

Prompter &Prompter::shared()
{
    return s_shared ? *s_shared : s_declining;
}

void Prompter::setShared(Prompter *prompter)
{
    s_shared = prompter;
}

ScopedPrompter::ScopedPrompter(Prompter *prompter)
    : m_previous(s_shared)
{
    s_shared = prompter;
}

ScopedPrompter::~ScopedPrompter()
{
    s_shared = m_previous;
}

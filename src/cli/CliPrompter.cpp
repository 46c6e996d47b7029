#include "CliPrompter.h"

#include <QTextStream>

#include <cstdio>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
void printPrompt(QTextStream &out, const Prompt &prompt)
{
    out << prompt.message << '\n';
    if (!prompt.informative.isEmpty())
        out << prompt.informative << '\n';
    for (const PromptChoice &choice : prompt.choices) {
        if (choice.separator)
            out << "  ---\n";
        else
            out << "  " << qSetFieldWidth(10) << Qt::right << choice.tag << qSetFieldWidth(0) << "  "
                << choice.title << (choice.tag == prompt.selectedTag ? " (selected)"_L1 : ""_L1) << '\n';
    }
}

QString readLine()
{
    QTextStream in(stdin);
    return in.readLine().trimmed();
}
} // namespace

CliPrompter::CliPrompter(QString hint)
    : m_hint(std::move(hint))
{}

PromptAnswer CliPrompter::ask(const Prompt &prompt)
{
    if (isatty(STDIN_FILENO) && isatty(STDERR_FILENO))
        return askOnTerminal(prompt);
    QTextStream err(stderr);
    printPrompt(err, prompt);
    if (!m_hint.isEmpty())
        err << m_hint << '\n';
    m_declined = true;
    return PromptAnswer{-1, prompt.selectedTag, prompt.checkboxChecked};
}

PromptAnswer CliPrompter::askOnTerminal(const Prompt &prompt)
{
    QTextStream err(stderr);
    printPrompt(err, prompt);
    PromptAnswer answer{-1, prompt.selectedTag, prompt.checkboxChecked};
    if (!prompt.choices.isEmpty()) {
        err << "Number to use [" << prompt.selectedTag << "]: " << Qt::flush;
        const QString line = readLine();
        bool ok = false;
        const qint64 tag = line.toLongLong(&ok);
        if (ok)
            answer.selectedTag = tag;
    }
    if (!prompt.checkboxTitle.isEmpty()) {
        err << prompt.checkboxTitle << " [y/N]: " << Qt::flush;
        answer.checkboxChecked = readLine().startsWith(u'y', Qt::CaseInsensitive);
    }
    for (qsizetype i = 0; i < prompt.buttons.size(); ++i)
        err << "  " << (i + 1) << ") " << prompt.buttons[i] << '\n';
    err << "Choice [1]: " << Qt::flush;
    const QString line = readLine();
    bool ok = false;
    const int button = line.isEmpty() ? 1 : line.toInt(&ok);
    answer.button =
        (line.isEmpty() || ok) && button >= 1 && button <= prompt.buttons.size() ? button - 1 : -1;
    return answer;
}

#include "WindowPrompter.h"

#include "MainQueue.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

PromptAnswer WindowPrompter::ask(const Prompt &prompt)
{
    QDialog dialog(m_window);
    dialog.setWindowModality(m_window ? Qt::WindowModal : Qt::ApplicationModal);
    dialog.setWindowTitle(QApplication::applicationDisplayName());
    auto *layout = new QVBoxLayout(&dialog);

    auto *message = new QLabel(prompt.message, &dialog);
    QFont bold = message->font();
    bold.setBold(true);
    message->setFont(bold);
    message->setWordWrap(true);
    layout->addWidget(message);
    if (!prompt.informative.isEmpty()) {
        auto *informative = new QLabel(prompt.informative, &dialog);
        informative->setWordWrap(true);
        layout->addWidget(informative);
    }

    QComboBox *choices = nullptr;
    if (!prompt.choices.isEmpty()) {
        choices = new QComboBox(&dialog);
        for (const PromptChoice &choice : prompt.choices) {
            if (choice.separator) {
                choices->insertSeparator(choices->count());
                continue;
            }
            choices->addItem(choice.title, choice.tag);
            if (choice.tag == prompt.selectedTag)
                choices->setCurrentIndex(choices->count() - 1);
        }
        layout->addWidget(choices);
    }
    QCheckBox *checkbox = nullptr;
    if (!prompt.checkboxTitle.isEmpty()) {
        checkbox = new QCheckBox(prompt.checkboxTitle, &dialog);
        checkbox->setChecked(prompt.checkboxChecked);
        layout->addWidget(checkbox);
    }

    // Buttons keep the prompt's order from the right; the first is the default.
    auto *buttons = new QDialogButtonBox(&dialog);
    int answered = int(prompt.buttons.size()) - 1; // closing the dialog declines
    for (int i = int(prompt.buttons.size()) - 1; i >= 0; --i) {
        QPushButton *button = buttons->addButton(prompt.buttons[i], QDialogButtonBox::ActionRole);
        button->setDefault(i == 0);
        QObject::connect(button, &QPushButton::clicked, &dialog, [&dialog, &answered, i] {
            answered = i;
            dialog.accept();
        });
    }
    layout->addWidget(buttons);

    // The dialog's event loop must not run work queued behind the change that asks.
    const MainQueue::HoldScope hold;
    if (dialog.exec() != QDialog::Accepted)
        answered = int(prompt.buttons.size()) - 1;
    PromptAnswer answer;
    answer.button = prompt.buttons.isEmpty() ? -1 : answered;
    answer.selectedTag = choices ? choices->currentData().toLongLong() : prompt.selectedTag;
    answer.checkboxChecked = checkbox ? checkbox->isChecked() : prompt.checkboxChecked;
    return answer;
}

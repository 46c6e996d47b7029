// The window's menus and keyboard: commands by name, titled and enabled by the project; the
// language pop-up; the panels; the frame-step keys and the fix key.
#include "CTFixButton.h"
#include "ProjectWindow.h"
#include "VHEncoding.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {
// The key that fixes the current line's start at the playing time.
const QKeySequence FixKey(Qt::CTRL | Qt::Key_Return);

QString nameFilter(const QStringList &types)
{
    if (types.isEmpty())
        return {};
    QStringList patterns;
    for (const QString &type : types)
        patterns << u"*."_s + type;
    return QCoreApplication::translate("ProjectWindow", "Files (%1)").arg(patterns.join(u' '));
}
} // namespace

QAction *ProjectWindow::addCommand(QMenu *menu, const QString &title, const QString &command,
                                   const QKeySequence &shortcut, std::optional<bool> inChapterMenu)
{
    QAction *item = menu->addAction(title);
    item->setProperty("command", command);
    item->setProperty("baseTitle", title);
    if (inChapterMenu)
        item->setProperty("chapterMenu", *inChapterMenu);
    if (!shortcut.isEmpty())
        item->setShortcut(shortcut);
    connect(item, &QAction::triggered, this, [this, command] { runCommand(command); });
    m_actions.insert(command, item);
    return item;
}

void ProjectWindow::buildMenus()
{
    QMenu *file = menuBar()->addMenu(tr("&File"));
    addCommand(file, tr("Open Movie…"), u"openMovie:"_s, QKeySequence::Open);
    addCommand(file, tr("Open Subtitle…"), u"loadSubtitle:"_s,
               QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O));
    addCommand(file, tr("New Subtitle…"), u"newSubtitle:"_s, QKeySequence::New);
    file->addSeparator();
    addCommand(file, tr("Save Subtitle"), u"saveSubtitle:"_s, QKeySequence::Save);
    addCommand(file, tr("Export…"), u"exportSubtitle:"_s, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E));
    addCommand(file, tr("Reload Subtitle"), u"reloadSubtitle:"_s);
    file->addSeparator();
    addCommand(file, tr("Embed Subtitles into Movie…"), u"embedSubtitle:"_s);
    addCommand(file, tr("Extract Subtitles"), u"extractAllSubtitles:"_s);
    addCommand(file, tr("Download via Web Search…"), u"searchOnline:"_s,
               QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_D));
    file->addSeparator();
    addCommand(file, tr("Close"), u"shouldCloseProject:"_s, QKeySequence::Close);
    addCommand(file, tr("Quit"), u"terminate:"_s, QKeySequence::Quit);

    QMenu *edit = menuBar()->addMenu(tr("&Edit"));
    addCommand(edit, tr("Undo"), u"undo:"_s, QKeySequence(Qt::CTRL | Qt::Key_Z));
    QAction *redo = addCommand(edit, tr("Redo"), u"redo:"_s);
    redo->setShortcuts({QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
    edit->addSeparator();
    addCommand(edit, tr("Add Subtitle Line"), u"addSubtitle:"_s, QKeySequence(Qt::CTRL | Qt::Key_I));
    addCommand(edit, tr("Delete Subtitle Line"), u"deleteSubtitle:"_s,
               QKeySequence(Qt::CTRL | Qt::Key_Backspace));
    edit->addSeparator();
    addCommand(edit, tr("Find"), u"performFindPanelAction:"_s, QKeySequence::Find);
    addCommand(edit, tr("Next Line"), u"silentGotoNextSubtitle:"_s, QKeySequence(Qt::CTRL | Qt::Key_Down));
    addCommand(edit, tr("Previous Line"), u"silentGotoPreviousSubtitle:"_s,
               QKeySequence(Qt::CTRL | Qt::Key_Up));
    edit->addSeparator();
    addCommand(edit, tr("Adjust Durations…"), u"fixDuration:"_s);
    addCommand(edit, tr("Add Subtitle Language…"), u"addSubtitleLanguage:"_s);
    // The file-kind menus: items of the other kind of file are disabled.
    QMenu *chapters = menuBar()->addMenu(tr("&Chapter Marks"));
    addCommand(chapters, tr("Edit Chapter Marks"), u"editChapterMark:"_s);
    addCommand(chapters, tr("Convert Chapter Marks to Subtitle"), u"convertChapterMarkToSubtitle:"_s, {},
               true);

    QMenu *timing = menuBar()->addMenu(tr("&Timing"));
    addCommand(timing, tr("Fix Subtitle Start"), u"fixSubtitleStart:"_s, FixKey);
    addCommand(timing, tr("Shift Subtitles"), u"shiftSubtitles:"_s,
               QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Return));
    addCommand(timing, tr("Fix Single Subtitle Line Time"), u"fixSingleSubtitleStart:"_s,
               QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_Return));
    addCommand(timing, tr("Enter \"Tap2Sync\" Mode"), u"toggleTap2Sync:"_s,
               QKeySequence(Qt::CTRL | Qt::Key_T));

    QMenu *movie = menuBar()->addMenu(tr("&Movie"));
    addCommand(movie, tr("Play"), u"playPause:"_s, QKeySequence(Qt::Key_Space));
    addCommand(movie, tr("One Frame Back"), u"stepBackward:"_s, QKeySequence(Qt::Key_Left));
    addCommand(movie, tr("One Frame Forward"), u"stepForward:"_s, QKeySequence(Qt::Key_Right));
    addCommand(movie, tr("Five Frames Back"), u"rewind:"_s, QKeySequence(Qt::SHIFT | Qt::Key_Left));
    addCommand(movie, tr("Five Frames Forward"), u"fastForward:"_s, QKeySequence(Qt::SHIFT | Qt::Key_Right));
    m_audioMenu = movie->addMenu(tr("Audio Track"));
    m_audioMenu->addAction(tr("No Audio Track"))->setEnabled(false);

    const QList<QMenu *> menus = {file, edit, chapters, timing, movie};
    for (QMenu *menu : menus)
        connect(menu, &QMenu::aboutToShow, this, [this] { refreshMenus(); });
}

void ProjectWindow::refreshMenus()
{
    for (QAction *item : std::as_const(m_actions)) {
        const QString command = item->property("command").toString();
        const QVariant chapterMenu = item->property("chapterMenu");
        const CTWindowController::MenuState state = m_project->validateMenuItem(
            command, chapterMenu.isValid() ? std::optional<bool>(chapterMenu.toBool()) : std::nullopt);
        item->setEnabled(state.enabled);
        item->setText(state.title ? *state.title : item->property("baseTitle").toString());
        item->setCheckable(command == u"toggleTap2Sync:"_s);
        item->setChecked(state.checked);
    }
}

void ProjectWindow::runCommand(const QString &command)
{
    if (QAction *item = action(command)) {
        const QVariant chapterMenu = item->property("chapterMenu");
        if (!m_project
                 ->validateMenuItem(command, chapterMenu.isValid() ? std::optional<bool>(chapterMenu.toBool())
                                                                   : std::nullopt)
                 .enabled)
            return;
    }
    // What is typed into a cell counts before any command runs: a command that changes the
    // list of lines would otherwise close the editor and drop it.
    commitOpenEditor();
    CTWindowController &p = *m_project;
    PlaybackControl *player = p.movieController();
    if (command == u"undo:"_s) {
        p.undo();
    } else if (command == u"redo:"_s) {
        p.redo();
    } else if (command == u"openMovie:"_s) {
        p.openMovie();
    } else if (command == u"loadSubtitle:"_s || command == u"addSubtitleLanguage:"_s ||
               command == u"editChapterMark:"_s) {
        p.runLanguageCommand(command);
    } else if (command == u"newSubtitle:"_s) {
        p.newSubtitle();
    } else if (command == u"saveSubtitle:"_s) {
        p.saveSubtitle();
    } else if (command == u"exportSubtitle:"_s) {
        p.exportSubtitle();
    } else if (command == u"reloadSubtitle:"_s) {
        p.reloadSubtitle();
    } else if (command == u"embedSubtitle:"_s) {
        p.embedSubtitle();
    } else if (command == u"shouldCloseProject:"_s) {
        p.closeProject();
    } else if (command == u"terminate:"_s) {
        if (m_terminationHandler)
            m_terminationHandler();
        else if (p.applicationShouldTerminate())
            terminateNow();
    } else if (command == u"addSubtitle:"_s) {
        p.addSubtitle();
    } else if (command == u"deleteSubtitle:"_s) {
        p.deleteSubtitle();
    } else if (command == u"performFindPanelAction:"_s) {
        m_searchField->setFocus(Qt::ShortcutFocusReason);
        m_searchField->selectAll();
    } else if (command == u"silentGotoNextSubtitle:"_s) {
        p.silentGotoNextSubtitle();
    } else if (command == u"silentGotoPreviousSubtitle:"_s) {
        p.silentGotoPreviousSubtitle();
    } else if (command == u"fixDuration:"_s) {
        p.addSheet({u"FixDuration"_s, {}});
    } else if (command == u"convertChapterMarkToSubtitle:"_s) {
        p.convertChapterMarkToSubtitle();
    } else if (command == u"fixSubtitleStart:"_s) {
        p.fixSubtitleStart();
    } else if (command == u"shiftSubtitles:"_s) {
        p.shiftSubtitles();
    } else if (command == u"fixSingleSubtitleStart:"_s) {
        p.fixSingleSubtitleStart();
    } else if (command == u"toggleTap2Sync:"_s) {
        p.toggleTap2Sync();
    } else if (command == u"playPause:"_s) {
        if (player)
            player->setPlaying(!player->isPlaying());
    } else if (command == u"rewind:"_s) {
        stepBy(0);
    } else if (command == u"stepBackward:"_s) {
        stepBy(1);
    } else if (command == u"stepForward:"_s) {
        stepBy(2);
    } else if (command == u"fastForward:"_s) {
        stepBy(3);
    } else if (m_commandHandler) {
        m_commandHandler(command);
    }
    scheduleRefresh();
}

void ProjectWindow::stepBy(int which)
{
    PlaybackControl *player = m_project->movieController();
    if (!player || which >= m_frameSteps.size())
        return;
    if (player->isPlaying())
        player->setPlaying(false);
    player->setCurrentTime(std::max(0.0, player->currentTime() + m_frameSteps[which]));
}

void ProjectWindow::fixButtonClicked()
{
    switch (m_project->fixMode()) {
    case 2:
        m_project->shiftSubtitles();
        break;
    case 3:
        m_project->fixSingleSubtitleStart();
        break;
    default:
        m_project->fixSubtitleStart();
        break;
    }
    scheduleRefresh();
}

// --- keyboard ----------------------------------------------------------------------------------------

void ProjectWindow::focusChanged(QWidget *now)
{
    const bool textEditor = qobject_cast<QLineEdit *>(now) || qobject_cast<QPlainTextEdit *>(now) ||
                            qobject_cast<QTextEdit *>(now) || qobject_cast<QAbstractSpinBox *>(now);
    if (textEditor != !m_project->allowArrows())
        m_project->setObservedResponderIsTextEditor(textEditor);
}

void ProjectWindow::setArrowKeyEquivalentsEnabled(bool enabled)
{
    // While the keys are taken away the item remembers them ("suspendedShortcut"), so that the
    // keyboard sheet still lists them.
    auto setKey = [this, enabled](const QString &command, const QKeySequence &key) {
        if (QAction *item = action(command)) {
            item->setShortcut(enabled ? key : QKeySequence());
            item->setProperty("suspendedShortcut", enabled ? QVariant() : QVariant(key));
        }
    };
    setKey(u"stepBackward:"_s, QKeySequence(Qt::Key_Left));
    setKey(u"stepForward:"_s, QKeySequence(Qt::Key_Right));
    setKey(u"rewind:"_s, QKeySequence(Qt::SHIFT | Qt::Key_Left));
    setKey(u"fastForward:"_s, QKeySequence(Qt::SHIFT | Qt::Key_Right));
}

void ProjectWindow::setPlayButtonKeyEquivalent(const QString &key)
{
    if (QAction *play = action(u"playPause:"_s))
        play->setShortcut(key == u" "_s ? QKeySequence(Qt::Key_Space) : QKeySequence(key));
}

void ProjectWindow::makeFixControlFirstResponder()
{
    m_fixButton->setFixMode(m_project->fixMode());
    m_fixButton->setEnabled(true); // the taps go here for as long as the mode lasts
    m_fixButton->setFocus(Qt::OtherFocusReason);
}

void ProjectWindow::makePlayButtonFirstResponder()
{
    m_playButton->setFocus(Qt::OtherFocusReason);
}

bool ProjectWindow::eventFilter(QObject *watched, QEvent *event)
{
    // Undo and redo in the line's fields undo the project's edits, as anywhere else in the
    // window: the fields' own undo would only make another edit of the line.
    if (event->type() == QEvent::ShortcutOverride &&
        (watched == m_textField || watched == m_startField || watched == m_durationField)) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const QKeySequence pressed(key->keyCombination());
        for (const QString &command : {u"undo:"_s, u"redo:"_s}) {
            if (QAction *item = action(command); item && item->shortcuts().contains(pressed)) {
                event->ignore(); // not taken by the field: the window's item runs
                return true;
            }
        }
    }
    // Shift and Alt held choose the fix mode (Shift, Single) while they are down.
    if ((event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) && isActiveWindow()) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_Shift || key->key() == Qt::Key_Alt) {
            const Qt::KeyboardModifiers modifiers = key->modifiers();
            m_project->setModifierKeys(
                (modifiers & Qt::ShiftModifier ? CTWindowController::ShiftModifier : 0) |
                (modifiers & Qt::AltModifier ? CTWindowController::OptionModifier : 0));
            m_project->updateFixMode();
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

// --- the language pop-up -------------------------------------------------------------------------

void ProjectWindow::setLanguageButton(const QList<LanguageButtonItem> &items, qsizetype selectedIndex)
{
    m_languageMenu->clear();
    QString selectedTitle;
    for (qsizetype i = 0; i < items.size(); ++i) {
        const LanguageButtonItem &item = items[i];
        if (item.separator) {
            m_languageMenu->addSeparator();
            continue;
        }
        if (item.submenu) {
            // The locales a file can be renamed to.
            // Filled when first opened: it lists every locale, and the pop-up is rebuilt often.
            QMenu *submenu = m_languageMenu->addMenu(item.title);
            connect(submenu, &QMenu::aboutToShow, submenu, [this, submenu] {
                if (!submenu->isEmpty())
                    return;
                const std::shared_ptr<LanguageMenu> locales = CTWindowController::sharedLanguageMenu();
                for (const LanguageMenu::Item &locale : locales->items) {
                    QAction *entry = submenu->addAction(locale.title);
                    connect(entry, &QAction::triggered, this,
                            [this, id = locale.localeIdentifier] { m_project->switchLanguage(id); });
                }
            });
            continue;
        }
        QAction *entry = m_languageMenu->addAction(item.title);
        entry->setCheckable(true);
        entry->setChecked(i == selectedIndex);
        connect(entry, &QAction::triggered, this, [this, i] { m_project->selectSubtitleLanguage(i); });
        if (i == selectedIndex)
            selectedTitle = item.title;
    }
    m_languageButton->setText(selectedTitle.isEmpty() ? tr("No Subtitle") : selectedTitle);
}

// --- panels ------------------------------------------------------------------------------------------

QString ProjectWindow::runOpenPanel(const QStringList &allowedTypes, bool chooseFolders,
                                    const QString &directory)
{
    if (openPanelHook)
        return openPanelHook(allowedTypes, chooseFolders, directory);
    QFileDialog panel(this, QString(), directory);
    panel.setWindowModality(Qt::WindowModal);
    panel.setAcceptMode(QFileDialog::AcceptOpen);
    if (chooseFolders) {
        panel.setFileMode(QFileDialog::Directory);
        panel.setOption(QFileDialog::ShowDirsOnly);
    } else {
        panel.setFileMode(QFileDialog::ExistingFile);
        if (!allowedTypes.isEmpty())
            panel.setNameFilter(nameFilter(allowedTypes));
    }
    if (panel.exec() != QDialog::Accepted || panel.selectedFiles().isEmpty())
        return {};
    return panel.selectedFiles().first();
}

QString ProjectWindow::runSavePanel(SavePanelOptions &options)
{
    if (savePanelHook)
        return savePanelHook(options);
    QFileDialog panel(this, QString(), options.directory);
    panel.setWindowModality(Qt::WindowModal);
    panel.setAcceptMode(QFileDialog::AcceptSave);
    if (!options.nameFieldValue.isEmpty())
        panel.selectFile(options.nameFieldValue);
    auto allow = [&panel](const QStringList &types) {
        panel.setNameFilter(nameFilter(types));
        panel.setDefaultSuffix(types.value(0));
    };
    if (!options.allowedTypes.isEmpty())
        allow(options.allowedTypes);
    QComboBox *format = nullptr, *encoding = nullptr;
    QCheckBox *lineBreaks = nullptr;
    if (options.exportAccessory) {
        // The export choices sit below the file list (Qt's own dialog, which can take them).
        panel.setOption(QFileDialog::DontUseNativeDialog);
        format = new QComboBox(&panel);
        format->addItem(u"SubRip (.srt)"_s, 0);
        format->addItem(u"WebVTT (.vtt)"_s, 1);
        format->setCurrentIndex(options.exportType == 1 ? 1 : 0);
        encoding = new QComboBox(&panel);
        for (const VHEncoding &entry : VHEncoding::catalogue()) {
            if (entry.isSeparator()) {
                encoding->insertSeparator(encoding->count());
                continue;
            }
            encoding->addItem(entry.name(), QVariant::fromValue<quint32>(entry.codePage()));
            if (entry.codePage() == options.exportEncoding)
                encoding->setCurrentIndex(encoding->count() - 1);
        }
        lineBreaks = new QCheckBox(tr("Windows line breaks"), &panel);
        lineBreaks->setChecked(options.windowsLineBreaks);
        if (auto *grid = qobject_cast<QGridLayout *>(panel.layout())) {
            const int row = grid->rowCount();
            grid->addWidget(new QLabel(tr("Format:"), &panel), row, 0);
            grid->addWidget(format, row, 1);
            grid->addWidget(new QLabel(tr("Encoding:"), &panel), row + 1, 0);
            grid->addWidget(encoding, row + 1, 1);
            grid->addWidget(lineBreaks, row + 2, 1);
        }
        auto changedSaveType = [format, allow] {
            allow({format->currentData().toInt() == 1 ? u"vtt"_s : u"srt"_s});
        };
        connect(format, &QComboBox::currentIndexChanged, &panel, changedSaveType);
        changedSaveType();
    }
    if (panel.exec() != QDialog::Accepted || panel.selectedFiles().isEmpty())
        return {};
    if (format) {
        options.exportType = format->currentData().toInt();
        options.exportEncoding = encoding->currentData().value<quint32>();
        options.windowsLineBreaks = lineBreaks->isChecked();
    }
    return panel.selectedFiles().first();
}

// --- sheets the window knows ----------------------------------------------------------------------

QDialog *ProjectWindow::makeSheetDialog(const Sheet &sheet)
{
    if (const auto it = m_sheetFactories.constFind(sheet.kind); it != m_sheetFactories.constEnd())
        return (*it)(sheet, this);
    if (sheet.kind != u"FixDuration"_s)
        return nullptr;
    // Durations from reading speed: seconds per character within a minimum and a maximum,
    // keeping a gap before the next line.
    auto *dialog = new QDialog(this);
    dialog->setWindowTitle(tr("Adjust Durations"));
    auto *form = new QFormLayout(dialog);
    auto spin = [dialog](double value, double step) {
        auto *box = new QDoubleSpinBox(dialog);
        box->setDecimals(3);
        box->setRange(0, 3600);
        box->setSingleStep(step);
        box->setValue(value);
        return box;
    };
    QDoubleSpinBox *perCharacter = spin(0.06, 0.01), *minimum = spin(1, 0.1), *maximum = spin(5, 0.1),
                   *gap = spin(0.1, 0.05);
    form->addRow(tr("Seconds per character:"), perCharacter);
    form->addRow(tr("Minimum:"), minimum);
    form->addRow(tr("Maximum:"), maximum);
    form->addRow(tr("Gap:"), gap);
    // Only selected lines needs a selection: without one the box is off and cannot be ticked.
    auto *onlySelected = new QCheckBox(tr("Only selected lines"), dialog);
    onlySelected->setObjectName(u"durationOnlySelecedCheckbox"_s);
    const bool anySelected = !m_project->selectionIndices().isEmpty();
    if (!anySelected)
        m_durationOnlySelected = false;
    onlySelected->setEnabled(anySelected);
    onlySelected->setChecked(m_durationOnlySelected);
    connect(onlySelected, &QCheckBox::toggled, this, [this](bool on) { m_durationOnlySelected = on; });
    form->addRow(onlySelected);
    auto *problem = new QLabel(dialog);
    problem->setStyleSheet(u"color: red"_s);
    form->addRow(problem);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, dialog);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("Start", "button: begin adjusting"));
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    connect(buttons, &QDialogButtonBox::accepted, dialog, [=, this] {
        const QString message =
            m_project->startFixDuration(perCharacter->value(), minimum->value(), maximum->value(),
                                        gap->value(), onlySelected->isChecked());
        if (message.isEmpty())
            dialog->accept();
        else
            problem->setText(message);
    });
    return dialog;
}

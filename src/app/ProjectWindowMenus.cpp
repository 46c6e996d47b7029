// The window's menus and keyboard: commands by name, titled and enabled by the project; the
// language pop-up; the panels; the frame-step keys and the fix key.
#include "CTFixButton.h"
#include "CTTimeView.h"
#include "PlaybackMenu.h"
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

const QList<ProjectWindow::Command> &ProjectWindow::commandTable()
{
    using P = CTWindowController;
    using W = ProjectWindow;
    // Titles are the items' own; the project retitles some of them (validateMenuItem()).
    static const QList<Command> table = {
        {Menu::File,
         u"openMovie:"_s,
         QT_TR_NOOP("Open Movie…"),
         {QKeySequence::Open},
         {},
         [](W &, P &p) { p.openMovie(); }},
        {Menu::File,
         u"loadSubtitle:"_s,
         QT_TR_NOOP("Open Subtitle…"),
         {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O)},
         {},
         [](W &, P &p) { p.runLanguageCommand(u"loadSubtitle:"_s); }},
        {Menu::File,
         u"newSubtitle:"_s,
         QT_TR_NOOP("New Subtitle…"),
         {QKeySequence::New},
         {},
         [](W &, P &p) { p.newSubtitle(); }},
        {Menu::File,
         u"saveSubtitle:"_s,
         QT_TR_NOOP("Save Subtitle"),
         {QKeySequence::Save},
         {},
         [](W &, P &p) { p.saveSubtitle(); },
         true},
        {Menu::File,
         u"exportSubtitle:"_s,
         QT_TR_NOOP("Export…"),
         {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E)},
         {},
         [](W &, P &p) { p.exportSubtitle(); }},
        {Menu::File,
         u"reloadSubtitle:"_s,
         QT_TR_NOOP("Reload Subtitle"),
         {},
         {},
         [](W &, P &p) { p.reloadSubtitle(); }},
        {Menu::File,
         u"embedSubtitle:"_s,
         QT_TR_NOOP("Embed Subtitles into Movie…"),
         {},
         {},
         [](W &, P &p) { p.embedSubtitle(); },
         true},
        {Menu::File, u"extractAllSubtitles:"_s, QT_TR_NOOP("Extract Subtitles"), {}, {}, {}},
        {Menu::File,
         u"searchOnline:"_s,
         QT_TR_NOOP("Download via Web Search…"),
         {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_D)},
         {},
         {}},
        {Menu::File,
         u"shouldCloseProject:"_s,
         QT_TR_NOOP("Close"),
         {QKeySequence::Close},
         {},
         [](W &, P &p) { p.closeProject(); },
         true},
        {Menu::File,
         u"terminate:"_s,
         QT_TR_NOOP("Quit"),
         {QKeySequence::Quit},
         {},
         [](W &w, P &p) {
             if (w.m_terminationHandler)
                 w.m_terminationHandler();
             else if (p.applicationShouldTerminate())
                 w.terminateNow();
         }},

        {Menu::Edit,
         u"undo:"_s,
         QT_TR_NOOP("Undo"),
         {QKeySequence(Qt::CTRL | Qt::Key_Z)},
         {},
         [](W &, P &p) { p.undo(); }},
        {Menu::Edit,
         u"redo:"_s,
         QT_TR_NOOP("Redo"),
         {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)},
         {},
         [](W &, P &p) { p.redo(); }},
        {Menu::Edit,
         u"addSubtitle:"_s,
         QT_TR_NOOP("Add Subtitle Line"),
         {QKeySequence(Qt::CTRL | Qt::Key_I)},
         {},
         [](W &, P &p) { p.addSubtitle(); },
         true},
        {Menu::Edit,
         u"deleteSubtitle:"_s,
         QT_TR_NOOP("Delete Subtitle Line"),
         {QKeySequence(Qt::CTRL | Qt::Key_Backspace)},
         {},
         [](W &, P &p) { p.deleteSubtitle(); }},
        {Menu::Edit,
         u"performFindPanelAction:"_s,
         QT_TR_NOOP("Find"),
         {QKeySequence::Find},
         {},
         [](W &w, P &) {
             w.m_searchField->setFocus(Qt::ShortcutFocusReason);
             w.m_searchField->selectAll();
         },
         true},
        {Menu::Edit,
         u"silentGotoNextSubtitle:"_s,
         QT_TR_NOOP("Next Line"),
         {QKeySequence(Qt::CTRL | Qt::Key_Down)},
         {},
         [](W &, P &p) { p.silentGotoNextSubtitle(); }},
        {Menu::Edit,
         u"silentGotoPreviousSubtitle:"_s,
         QT_TR_NOOP("Previous Line"),
         {QKeySequence(Qt::CTRL | Qt::Key_Up)},
         {},
         [](W &, P &p) { p.silentGotoPreviousSubtitle(); }},
        {Menu::Edit,
         u"fixDuration:"_s,
         QT_TR_NOOP("Adjust Durations…"),
         {},
         {},
         [](W &, P &p) {
             p.addSheet({u"FixDuration"_s, {}});
         },
         true},
        {Menu::Edit,
         u"addSubtitleLanguage:"_s,
         QT_TR_NOOP("Add Subtitle Language…"),
         {},
         {},
         [](W &, P &p) { p.runLanguageCommand(u"addSubtitleLanguage:"_s); }},

        // The file-kind menus: items of the other kind of file are disabled.
        {Menu::Chapters,
         u"editChapterMark:"_s,
         QT_TR_NOOP("Edit Chapter Marks"),
         {},
         {},
         [](W &, P &p) { p.runLanguageCommand(u"editChapterMark:"_s); }},
        {Menu::Chapters,
         u"convertChapterMarkToSubtitle:"_s,
         QT_TR_NOOP("Convert Chapter Marks to Subtitle"),
         {},
         true,
         [](W &, P &p) { p.convertChapterMarkToSubtitle(); }},

        {Menu::Timing,
         u"fixSubtitleStart:"_s,
         QT_TR_NOOP("Fix Subtitle Start"),
         {FixKey},
         {},
         [](W &, P &p) { p.fixSubtitleStart(); }},
        {Menu::Timing,
         u"shiftSubtitles:"_s,
         QT_TR_NOOP("Shift Subtitles"),
         {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Return)},
         {},
         [](W &, P &p) { p.shiftSubtitles(); }},
        {Menu::Timing,
         u"fixSingleSubtitleStart:"_s,
         QT_TR_NOOP("Fix Single Subtitle Line Time"),
         {QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_Return)},
         {},
         [](W &, P &p) { p.fixSingleSubtitleStart(); }},
        {Menu::Timing,
         u"toggleTap2Sync:"_s,
         QT_TR_NOOP("Enter \"Tap2Sync\" Mode"),
         {QKeySequence(Qt::CTRL | Qt::Key_T)},
         {},
         [](W &, P &p) { p.toggleTap2Sync(); },
         false,
         true},
        {Menu::Timing,
         u"showTutorial:"_s,
         QT_TR_NOOP("Show Tutorial"),
         {},
         {},
         [](W &w, P &) { w.showTutorial(); },
         true},

        {Menu::Movie,
         u"playPause:"_s,
         QT_TR_NOOP("Play"),
         {QKeySequence(Qt::Key_Space)},
         {},
         [](W &, P &p) {
             if (PlaybackControl *player = p.movieController())
                 player->setPlaying(!player->isPlaying());
         }},
        {Menu::Movie,
         u"stepBackward:"_s,
         QT_TR_NOOP("One Frame Back"),
         {QKeySequence(Qt::Key_Left)},
         {},
         [](W &w, P &) { w.stepBy(1); }},
        {Menu::Movie,
         u"stepForward:"_s,
         QT_TR_NOOP("One Frame Forward"),
         {QKeySequence(Qt::Key_Right)},
         {},
         [](W &w, P &) { w.stepBy(2); }},
        {Menu::Movie,
         u"rewind:"_s,
         QT_TR_NOOP("Five Frames Back"),
         {QKeySequence(Qt::SHIFT | Qt::Key_Left)},
         {},
         [](W &w, P &) { w.stepBy(0); }},
        {Menu::Movie,
         u"fastForward:"_s,
         QT_TR_NOOP("Five Frames Forward"),
         {QKeySequence(Qt::SHIFT | Qt::Key_Right)},
         {},
         [](W &w, P &) { w.stepBy(3); }},
    };
    return table;
}

const ProjectWindow::Command *ProjectWindow::command(const QString &id)
{
    static const QHash<QString, const Command *> byId = [] {
        QHash<QString, const Command *> index;
        for (const Command &entry : commandTable())
            index.insert(entry.id, &entry);
        return index;
    }();
    return byId.value(id);
}

void ProjectWindow::buildMenus()
{
    const std::pair<Menu, QString> menuTitles[] = {
        {Menu::File, tr("&File")},     {Menu::Edit, tr("&Edit")},   {Menu::Chapters, tr("&Chapter Marks")},
        {Menu::Timing, tr("&Timing")}, {Menu::Movie, tr("&Movie")},
    };
    QHash<Menu, QMenu *> menus;
    for (const auto &[which, title] : menuTitles) {
        QMenu *menu = menuBar()->addMenu(title);
        menus.insert(which, menu);
        connect(menu, &QMenu::aboutToShow, this, [this] { refreshMenus(); });
    }
    for (const Command &entry : commandTable()) {
        QMenu *menu = menus.value(entry.menu);
        if (entry.separatorBefore)
            menu->addSeparator();
        const QString title = tr(entry.title);
        QAction *item = menu->addAction(title);
        item->setProperty("command", entry.id);
        item->setProperty("baseTitle", title);
        if (entry.inChapterMenu)
            item->setProperty("chapterMenu", *entry.inChapterMenu);
        item->setShortcuts(entry.shortcuts);
        item->setCheckable(entry.checkable);
        connect(item, &QAction::triggered, this, [this, id = entry.id] { runCommand(id); });
        m_actions.insert(entry.id, item);
    }
    m_audioMenu = menus.value(Menu::Movie)->addMenu(tr("Audio Track"));
    m_audioMenu->addAction(tr("No Audio Track"))->setEnabled(false);

    // The playback aids, with their own item states.
    m_playbackMenu = new PlaybackMenu(*m_project, *this, this);
    m_playbackMenu->beforeEdit = [this] { commitOpenEditor(); };
    menuBar()->addMenu(m_playbackMenu);
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
        item->setChecked(state.checked);
    }
}

void ProjectWindow::runCommand(const QString &id)
{
    if (QAction *item = action(id)) {
        const QVariant chapterMenu = item->property("chapterMenu");
        if (!m_project
                 ->validateMenuItem(id, chapterMenu.isValid() ? std::optional<bool>(chapterMenu.toBool())
                                                              : std::nullopt)
                 .enabled)
            return;
    }
    // What is typed into a cell counts before any command runs: a command that changes the
    // list of lines would otherwise close the editor and drop it.
    commitOpenEditor();
    if (const Command *entry = command(id); entry && entry->action)
        entry->action(*this, *m_project);
    else if (m_commandHandler)
        m_commandHandler(id); // the commands of the wiring around the window (extraction, web search)
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
    case FixMode::Shift:
        m_project->shiftSubtitles();
        break;
    case FixMode::Single:
        m_project->fixSingleSubtitleStart();
        break;
    case FixMode::None:
    case FixMode::Fix:
    case FixMode::Tap2Sync:
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
    m_fixButton->setFixMode(int(m_project->fixMode()));
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
            // Platforms differ in whether a modifier key's own event counts it as held: the
            // key itself says, pressed or let go.
            Qt::KeyboardModifiers modifiers = key->modifiers();
            const Qt::KeyboardModifier own =
                key->key() == Qt::Key_Shift ? Qt::ShiftModifier : Qt::AltModifier;
            modifiers.setFlag(own, event->type() == QEvent::KeyPress);
            m_project->setModifierKeys(
                (modifiers & Qt::ShiftModifier ? CTWindowController::ShiftModifier : 0) |
                (modifiers & Qt::AltModifier ? CTWindowController::OptionModifier : 0));
            m_project->updateFixMode();
        }
    }
    // The range's times follow the scrubber's width.
    if (watched == m_timeView && event->type() == QEvent::Resize)
        placeTimeView();
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

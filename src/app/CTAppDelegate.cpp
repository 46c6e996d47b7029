#include "CTAppDelegate.h"

#include "CTFileHelper.h"
#include "CTPreferenceController.h"
#include "CTWindowController.h"
#include "HelpWindows.h"
#include "LocaleNames.h"
#include "PreferencesWindow.h"
#include "ProgressWindow.h"
#include "ProjectWindow.h"
#include "Prompter.h"
#include "RecentFilesMenu.h"
#include "Settings.h"
#include "VHLanguagePopUpButton.h"

#include <QAction>
#include <QApplication>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>

using namespace Qt::StringLiterals;

const QString CTAppDelegate::DisclaimerMessage = u"Disclaimer"_s;
const QString CTAppDelegate::DisclaimerInformative =
    u"Studios can protect a Movie's/TV-show's dialog and translations with a copyright. For those "
    "movies/TV-shows creating or downloading a subtitle infringes copyright law."_s;

namespace {
// The menu that holds a command's item.
QMenu *menuOf(QAction *item)
{
    if (!item)
        return nullptr;
    const QList<QObject *> owners = item->associatedObjects();
    for (QObject *owner : owners)
        if (auto *menu = qobject_cast<QMenu *>(owner))
            return menu;
    return nullptr;
}

// The item after `item` in its menu, or none at the end.
QAction *itemAfter(QMenu *menu, QAction *item)
{
    const QList<QAction *> items = menu->actions();
    const qsizetype index = items.indexOf(item);
    return index >= 0 && index + 1 < items.size() ? items[index + 1] : nullptr;
}
} // namespace

CTAppDelegate::CTAppDelegate(ProjectWindow &window, ProgressWindow &progress)
    : QObject(&window)
    , m_window(window)
    , m_progress(progress)
    , m_progressAlive(&progress)
{
    CTPreferenceController::registerDefaults();
    buildMenus();
    m_window.setTerminationHandler([this] { terminate(); });
    // Saved changes that are not in the movie yet are named under the window; the embedding
    // state changes with saving, embedding and opening, which all announce project keys.
    m_needToEmbed = new QLabel(tr("The subtitles have changed since they were embedded into the movie."));
    m_window.statusBar()->addPermanentWidget(m_needToEmbed);
    m_needToEmbed->hide();
    m_projectToken = m_window.project()->observeKey(QString(), [this](Observable *, const QString &key,
                                                                      Observable::Change change) {
        if (change == Observable::Change::Did && key != u"currentTime"_s)
            m_needToEmbed->setVisible(m_window.project()->needToEmbed() && m_window.project()->canEmbed());
    });
    m_progress.allEnded = [this] {
        if (m_quitWhenTasksEnd) {
            m_quitWhenTasksEnd = false;
            m_window.terminateNow();
        }
    };
}

CTAppDelegate::~CTAppDelegate()
{
    // The task list may have gone first (both belong to the window).
    if (m_progressAlive)
        m_progress.allEnded = nullptr;
}

QAction *CTAppDelegate::addItem(QMenu *menu, QAction *before, const QString &title, const QString &name)
{
    auto *item = new QAction(title, menu);
    item->setObjectName(name);
    menu->insertAction(before, item);
    m_actions << item;
    return item;
}

QAction *CTAppDelegate::action(const QString &name) const
{
    for (QAction *item : m_actions)
        if (item->objectName() == name)
            return item;
    return nullptr;
}

void CTAppDelegate::buildMenus()
{
    // File › Open Recent, after the commands that open files.
    if (QMenu *file = menuOf(m_window.action(u"loadSubtitle:"_s))) {
        m_recent = new RecentFilesMenu(*m_window.project(), file);
        m_recent->open = [this](const QString &path) { applicationOpenFile(path); };
        file->insertMenu(itemAfter(file, m_window.action(u"loadSubtitle:"_s)), m_recent);
    }

    // Edit › Find and Replace after Find; Edit › Preferences at the end, where Linux
    // programs keep it.
    if (QMenu *edit = menuOf(m_window.action(u"performFindPanelAction:"_s))) {
        QAction *replace = addItem(edit, itemAfter(edit, m_window.action(u"performFindPanelAction:"_s)),
                                   tr("Find and Replace"), u"showReplace:"_s);
        // Ctrl+H: the desktop's standard Replace key is none at all without a GNOME or KDE theme.
        replace->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_H));
        replace->setCheckable(true);
        connect(replace, &QAction::triggered, this, [this](bool on) {
            m_window.project()->setShowReplace(on);
            if (on) {
                m_window.replaceField()->setFocus(Qt::ShortcutFocusReason);
                m_window.replaceField()->selectAll();
            }
        });
        connect(edit, &QMenu::aboutToShow, replace,
                [this, replace] { replace->setChecked(m_window.project()->showReplace()); });
        edit->addSeparator();
        QAction *preferences = addItem(edit, nullptr, tr("Preferences…"), u"showPreferences:"_s);
        preferences->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));
        preferences->setMenuRole(QAction::PreferencesRole);
        connect(preferences, &QAction::triggered, this, [this] { showPreferences(); });
    }

    QMenu *windows = m_window.menuBar()->addMenu(tr("&Window"));
    QAction *tasks = addItem(windows, nullptr, tr("Tasks"), u"showTasks:"_s);
    connect(tasks, &QAction::triggered, this, [this] { showTasks(); });

    QMenu *help = m_window.menuBar()->addMenu(tr("&Help"));
    QAction *reset = addItem(help, nullptr, tr("Reset Messages"), u"resetMessages:"_s);
    reset->setToolTip(tr("Show the disclaimer and the Tap2Sync explanation again"));
    connect(reset, &QAction::triggered, this, [this] { resetMessage(); });
    QAction *keys = addItem(help, nullptr, tr("Keyboard Shortcuts"), u"showKeyboardShortcuts:"_s);
    keys->setShortcut(QKeySequence::HelpContents);
    connect(keys, &QAction::triggered, this, [this] { showKeyboardShortcuts(); });
    help->addSeparator();
    QAction *about = addItem(help, nullptr, tr("About %1").arg(QApplication::applicationDisplayName()),
                             u"orderFrontAboutPanel:"_s);
    about->setMenuRole(QAction::AboutRole);
    connect(about, &QAction::triggered, this, [this] { showAbout(); });
}

bool CTAppDelegate::applicationDidFinishLaunching()
{
    Settings &settings = Settings::shared();
    if (!settings.boolValue(CTPreferenceController::ShownDisclaimerKey)) {
        Prompt prompt;
        prompt.message = tr("Disclaimer");
        prompt.informative =
            tr("Studios can protect a Movie's/TV-show's dialog and translations with a copyright. "
               "For those movies/TV-shows creating or downloading a subtitle infringes copyright "
               "law.");
        prompt.buttons = {tr("Understood"), tr("Quit")};
        if (Prompter::shared().ask(prompt).button != 0)
            return false;
        settings.setValue(CTPreferenceController::ShownDisclaimerKey, true);
        settings.sync();
    }
    // The language pop-up of the preferences selects "Locale" whenever it is made.
    if (m_preferences)
        m_preferences->languageButton()->setSelectedID(
            settings.stringValue(CTPreferenceController::LocaleKey));
    return true;
}

bool CTAppDelegate::applicationOpenFile(const QString &path)
{
    // The project takes the file after the current event, as it takes a drop; what it cannot
    // use is refused here: a file that is not there, or not a movie or subtitle file.
    const QFileInfo file(path);
    const QString extension = file.suffix().toLower();
    const bool usable =
        file.isFile() && (CTWindowController::movieExtensions().contains(extension) ||
                          CTFileHelper::subtitleExtensions().contains(extension) || extension == u"vtt"_s);
    if (usable)
        m_window.openFiles({path});
    return usable;
}

void CTAppDelegate::applicationOpenFiles(const QStringList &paths)
{
    m_window.openFiles(paths);
}

CTAppDelegate::TerminateReply CTAppDelegate::applicationShouldTerminate()
{
    if (m_quitWhenTasksEnd)
        return TerminateLater;
    if (!m_window.project()->applicationShouldTerminate())
        return TerminateCancel;
    const QList<ProgressStatusPtr> unfinished = m_progress.unfinishedStatuses();
    if (unfinished.isEmpty())
        return TerminateNow;
    showTasks();
    QStringList titles;
    for (const ProgressStatusPtr &status : unfinished)
        titles << u"“%1”"_s.arg(status->title());
    Prompt prompt;
    prompt.message = tr("Captora is still working.");
    prompt.informative =
        tr("%1 has not finished. Quitting now would lose its work. Stop it and quit when it has "
           "stopped, or let it finish?")
            .arg(titles.join(u", "_s));
    prompt.buttons = {tr("Stop and Quit"), tr("Keep Working")};
    if (Prompter::shared().ask(prompt).button != 0)
        return TerminateCancel;
    m_quitWhenTasksEnd = true;
    m_progress.cancelAll();
    // Tasks that were only waiting stop at once; the last one to end quits.
    if (m_progress.canQuit()) {
        m_quitWhenTasksEnd = false;
        return TerminateNow;
    }
    return TerminateLater;
}

void CTAppDelegate::terminate()
{
    if (applicationShouldTerminate() == TerminateNow)
        m_window.terminateNow();
}

void CTAppDelegate::resetMessage()
{
    m_window.project()->resetMessages();
}

void CTAppDelegate::showPreferences()
{
    if (!m_preferences) {
        m_preferences = new PreferencesWindow(&m_window);
        m_preferences->setAttribute(Qt::WA_DeleteOnClose);
    }
    m_preferences->show();
    m_preferences->raise();
    m_preferences->activateWindow();
}

void CTAppDelegate::showTasks()
{
    m_progress.show();
    m_progress.raise();
}

void CTAppDelegate::showKeyboardShortcuts()
{
    // Made anew each time: it lists the keys as they are when it opens.
    auto *sheet = new ShortcutSheet(m_window.menuBar(), &m_window);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->show();
}

void CTAppDelegate::showAbout()
{
    QMessageBox::about(&m_window, tr("About %1").arg(QApplication::applicationDisplayName()),
                       AboutBox::text());
}

QLocale CTAppDelegate::interfaceLocale()
{
    const QString chosen = Settings::shared().stringValue(CTPreferenceController::LocaleKey);
    const QLocale system = QLocale::system();
    if (chosen.isEmpty())
        return system;
    const QLocale locale(chosen);
    // A choice of the system's own language keeps the system's region and formats.
    return locale.language() == system.language() ? system : locale;
}

void CTAppDelegate::applyInterfaceLanguage()
{
    const QLocale locale = interfaceLocale();
    if (locale == QLocale::system())
        return;
    QLocale::setDefault(locale);
    LocaleNames::setInterfaceLanguage(locale.name());
}

PreferencesWindow *CTAppDelegate::preferencesWindow() const
{
    return m_preferences;
}

#include "CTAppDelegate.h"
#include "CTPreferenceController.h"
#include "CTWindowController.h"
#include "InterfaceLanguage.h"
#include "Log.h"
#include "MainQueue.h"
#include "PlayerWiring.h"
#include "ProgramOptions.h"
#include "ProgressWindow.h"
#include "ProjectWindow.h"
#include "RecoveryStore.h"
#include "Settings.h"
#include "TimelineAudio.h"
#include "WebSearchWiring.h"
#include "WindowPrompter.h"

#include <QApplication>
#include <QFileInfo>
#include <QIcon>

#include <clocale>

using namespace Qt::StringLiterals;

// captora [--log-characters] [MOVIE_OR_SUBTITLE...]: the project window; files on the command
// line are opened as if dropped on it.
//
// Start-up order: settings and their defaults, the interface language, the window with its
// menus, then the disclaimer (which may end the program before any project opens), then the
// project (reopening the last movie when asked to), then the files given.
int main(int argc, char **argv)
{
    // The libmpv picture keeps its GL context when the movie view moves to a full-screen
    // window of its own.
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication app(argc, argv);
    QApplication::setApplicationName(u"Captora"_s);
    QApplication::setOrganizationName(u"Captora"_s);
    // Ties the window to the installed desktop entry and icon (task bars, Wayland app id).
    QGuiApplication::setDesktopFileName(u"org.captora.Captora"_s);
    QApplication::setWindowIcon(QIcon::fromTheme(u"org.captora.Captora"_s));
    QApplication::setApplicationVersion(QStringLiteral(CAPTORA_VERSION));
    // Qt sets the C locale from the environment; the players parse numbers with the C one.
    std::setlocale(LC_NUMERIC, "C");
    installLogHandler();
    const QStringList arguments = applyProgramOptions(app.arguments());
    MainQueue::main().attachToEventLoop();
    Settings::shared().useUserSettings();
    // Before any window or text is made: menus, tables and questions take their texts once.
    // Also before the project registers its defaults, whose "Locale" is only the system's
    // language: here only a language the user chose counts.
    const auto translators = InterfaceLanguage::installForApplication();
    CTWindowController::registerDefaults();
    CTPreferenceController::registerDefaults();
    CTAppDelegate::applyInterfaceLanguage();

    ProjectWindow window;
    WindowPrompter prompter(&window);
    ScopedPrompter scopedPrompter(&prompter);
    ProgressWindow progress(&window);
    CTAppDelegate delegate(window, progress);
    connectPlayers(window, &progress);
    connectWebSearch(window);
    TimelineAudio timelineAudio(window);
    window.show();
    if (!delegate.applicationDidFinishLaunching())
        return 0;
    window.start();

    QStringList files;
    for (const QString &argument : arguments)
        files << QFileInfo(argument).absoluteFilePath();
    // Unsaved changes a crash or a kill left behind: the copies of files opened now are
    // offered as they load; the others after that, one after another.
    RecoveryStore recovery;
    window.setRecoveryStore(&recovery);
    delegate.applicationOpenFiles(files);
    MainQueue::main().post([&window] { window.project()->offerRecoveries(); });
    const int status = app.exec();
    window.setRecoveryStore(nullptr);
    return status;
}

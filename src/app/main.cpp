#include "CTWindowController.h"
#include "Log.h"
#include "MainQueue.h"
#include "PlayerWiring.h"
#include "ProgramOptions.h"
#include "ProjectWindow.h"
#include "Settings.h"
#include "WebSearchWiring.h"
#include "WindowPrompter.h"

#include <QApplication>
#include <QFileInfo>

#include <clocale>

using namespace Qt::StringLiterals;

// captora [--log-characters] [MOVIE_OR_SUBTITLE...]: the project window; files on the command
// line are opened as if dropped on it.
int main(int argc, char **argv)
{
    // The libmpv picture keeps its GL context when the movie view moves to a full-screen
    // window of its own.
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication app(argc, argv);
    QApplication::setApplicationName(u"Captora"_s);
    QApplication::setOrganizationName(u"Captora"_s);
    // Qt sets the C locale from the environment; the players parse numbers with the C one.
    std::setlocale(LC_NUMERIC, "C");
    installLogHandler();
    const QStringList arguments = applyProgramOptions(app.arguments());
    MainQueue::main().attachToEventLoop();
    Settings::shared().useUserSettings();

    ProjectWindow window;
    WindowPrompter prompter(&window);
    ScopedPrompter scopedPrompter(&prompter);
    CTWindowController::registerDefaults();
    connectPlayers(window);
    connectWebSearch(window);
    window.start();
    window.show();

    QStringList files;
    for (const QString &argument : arguments)
        files << QFileInfo(argument).absoluteFilePath();
    window.openFiles(files);
    return app.exec();
}

#include "WebSearchWiring.h"

#include "CTWindowController.h"
#include "Log.h"
#include "ProjectWindow.h"
#include "VHWebSearchController.h"
#include "WebDownloads.h"

using namespace Qt::StringLiterals;

namespace {

const QString WebSearchSheet = u"WebSearch"_s;

class WebSearchServices final : public QObject, VHWebSearchDelegate
{
public:
    explicit WebSearchServices(ProjectWindow &window)
        : QObject(&window)
        , m_window(window)
    {
        WebDownloads::removeStalePrivateFolders();
        const auto previous = window.commandHandler();
        window.setCommandHandler([this, previous](const QString &command) {
            if (command == u"searchOnline:"_s)
                searchOnline();
            else if (previous)
                previous(command);
            else
                logLine(u"Info: \"%1\" is not available in this build"_s.arg(command));
        });
        window.setSheetFactory(WebSearchSheet, [this](const Sheet &, QWidget *parent) -> QDialog * {
            return makeWindow(parent);
        });
    }

private:
    void searchOnline() { m_window.project()->addSheet({WebSearchSheet, {}}); }

    QDialog *makeWindow(QWidget *parent)
    {
        auto *controller = new VHWebSearchController(parent);
        controller->addDownloadMimes(CTWindowController::acceptedDownloadTypes());
        controller->setDelegate(this);
        // The first search for a movie is for its name; later ones start from what the user
        // searched for last.
        CTWindowController *project = m_window.project();
        if (project->isFirstWebSearch() || m_lastTerm.isEmpty()) {
            m_lastTerm = WebSearchEngines::searchTermForPath(project->basePath());
            project->setFirstWebSearch(false);
        }
        controller->setSearchTerm(m_lastTerm);
        connect(controller, &QDialog::finished, this,
                [this, controller] { m_lastTerm = controller->searchTerm(); });
        return controller;
    }

    void webSearchFinishedDownloading(VHWebSearchController *, const QString &path) override
    {
        // A download replaces the file being edited: unsaved changes are asked about first.
        CTWindowController *project = m_window.project();
        if (project->canDropSubtitle())
            project->finishedDownloading(path);
    }

    void webSearchCanceled(VHWebSearchController *) override
    {
        const QList<Sheet> sheets = m_window.attachedSheets();
        for (const Sheet &sheet : sheets) {
            if (sheet.kind == WebSearchSheet)
                m_window.endSheet(sheet, 0);
        }
    }

    ProjectWindow &m_window;
    QString m_lastTerm;
};

} // namespace

void connectWebSearch(ProjectWindow &window)
{
    new WebSearchServices(window);
}

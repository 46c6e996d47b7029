#include "PlayerWiring.h"

#include "CTSubtitleEmbedder.h"
#include "CTSubtitleExtractor.h"
#include "CTWindowController.h"
#include "EmbedOptionsDialog.h"
#include "EmbeddingFinished.h"
#include "Log.h"
#include "MovieAsset.h"
#include "ProgressStatus.h"
#include "ProgressWindow.h"
#include "ProjectWindow.h"
#include "VHMovieController.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QHash>
#include <QTimer>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

// The movie side of the window: which player plays a movie, extracting its text tracks when
// it opens, and embedding the edited subtitles back into it. Lives as long as the window.
class MovieServices final : public QObject, CTSubtitleExtractorDelegate, CTSubtitleEmbedderDelegate
{
    Q_DECLARE_TR_FUNCTIONS(MovieServices)

public:
    MovieServices(ProjectWindow &window, ProgressWindow &progress)
        : QObject(&window)
        , m_window(window)
        , m_progress(progress)
    {
        m_window.setPlayers(
            [](int kind) -> PlaybackControl * { return VHMovieController::controllerOfKind(kind); },
            [](PlaybackControl *controller) -> QWidget * {
                auto *movieController = dynamic_cast<VHMovieController *>(controller);
                if (!movieController)
                    return nullptr;
                // The window's own bar under the movie has the player's buttons and the
                // frame steps; one bar is enough.
                movieController->setControlBarHidden(true);
                return movieController->view();
            });
        m_window.setCommandHandler([this](const QString &command) { runCommand(command); });
        m_window.setSheetFactory(u"EmbedOptions"_s, [this](const Sheet &sheet, QWidget *parent) {
            return embedOptions(sheet, parent);
        });
        CTWindowController *project = m_window.project();
        project->setExtractionHook(
            [this](bool subtitles, bool chapters) { extract(subtitles, chapters, /*onlyMissing=*/true); });
        // Whenever the project moves to another movie (or none), the extract command's title
        // follows what that movie carries.
        m_movieToken = project->observeKey(u"basePath"_s,
                                           [this](Observable *, const QString &, Observable::Change change) {
                                               if (change == Observable::Change::Did)
                                                   updateExtractableCounts();
                                           });
    }

private:
    std::shared_ptr<const MovieAsset> openProjectMovie(bool report)
    {
        CTWindowController *project = m_window.project();
        if (project->movieKind() != 1 || project->moviePath().isEmpty())
            return nullptr;
        // Opening a movie asks for it twice (the extract command's title, then extraction):
        // read its header once while the file stays the same.
        const QString &path = project->moviePath();
        const QDateTime modified = QFileInfo(path).lastModified();
        if (m_asset && m_assetPath == path && m_assetModified == modified)
            return m_asset;
        QString error;
        m_asset = MovieAsset::open(path, &error);
        m_assetPath = path;
        m_assetModified = modified;
        if (!m_asset && report)
            logLine(u"Warning: %1"_s.arg(error));
        return m_asset;
    }

    void updateExtractableCounts()
    {
        std::shared_ptr<const MovieAsset> asset = openProjectMovie(false);
        m_window.project()->setExtractableCounts(CTSubtitleExtractor::extractableSubtitles(asset.get()),
                                                 CTSubtitleExtractor::extractableChapterMark(asset.get()));
    }

    void runCommand(const QString &command)
    {
        if (command == u"extractAllSubtitles:"_s)
            extract(true, true, /*onlyMissing=*/false);
        else if (command == u"embedSubtitle:"_s)
            embedMovieAtPath(m_window.project()->moviePath());
        else
            logLine(u"Info: \"%1\" is not available in this build"_s.arg(command));
    }

    // Extracts into files beside the movie; when every job has ended the project picks its
    // file again. Without a readable movie the project hears at once that nothing came.
    void extract(bool subtitles, bool chapters, bool onlyMissing)
    {
        CTWindowController *project = m_window.project();
        std::shared_ptr<const MovieAsset> asset = openProjectMovie(true);
        if (!asset || (m_extractor && m_extractor->isRunning())) {
            if (!m_extractor || !m_extractor->isRunning())
                project->subtitleExtractorFinished();
            return;
        }
        auto status = std::make_shared<ProgressStatus>();
        status->setTitle(tr("Extract Subtitles"));
        m_extractor = CTSubtitleExtractor::initWithAsset(asset, project->moviePath(), status);
        m_extractor->setDelegate(this);
        m_extractor->extractSubtitles(subtitles, chapters, onlyMissing);
        if (!m_extractor->isRunning()) {
            project->subtitleExtractorFinished();
            return;
        }
        // Listed in the task list while the tracks are written; the window comes up when the
        // user asked for the extraction, not when a movie merely opens.
        status->setProgress(ProgressStatus::Busy);
        status->setMessage(fileNames(m_extractor->queuedPaths()));
        m_progress.addProgressStatus(status);
        if (!onlyMissing)
            showTasks();
    }

    static QString fileNames(const QStringList &paths)
    {
        QStringList names;
        for (const QString &path : paths)
            names << QFileInfo(path).fileName();
        return names.join(u", "_s);
    }

    void subtitleExtractorFinished(CTSubtitleExtractor *extractor) override
    {
        if (const ProgressStatusPtr &status = extractor->status()) {
            if (const int damaged = extractor->damagedTracks(); damaged > 0)
                status->setErrorMessage(tr("%n track(s) could not be read completely.", nullptr, damaged));
            status->setProgress(ProgressStatus::Done);
        }
        m_window.project()->subtitleExtractorFinished();
        updateExtractableCounts();
    }

    void showTasks()
    {
        m_progress.show();
        m_progress.raise();
    }

    // Opens the embedding options of a movie, as a sheet of the project window; "Embed" there
    // lists the run in the task list and queues it. One embedding per movie at a time: a
    // second request while one is pending or running brings up what is there.
    void embedMovieAtPath(const QString &path)
    {
        // Options that were never shown (their sheet was dropped with the project's waiting
        // sheets) are forgotten, as are ended runs.
        const QList<Sheet> attached = m_window.attachedSheets();
        for (auto it = m_pendingOptions.begin(); it != m_pendingOptions.end();) {
            if (!attached.contains(Sheet{u"EmbedOptions"_s, it.key()}) &&
                !m_window.project()->hasWaitingSheet(Sheet{u"EmbedOptions"_s, it.key()})) {
                std::erase(m_embedders, it.value());
                it = m_pendingOptions.erase(it);
            } else {
                ++it;
            }
        }
        std::erase_if(m_embedders, [](const auto &embedder) { return embedder->hasEnded(); });
        for (const auto &embedder : std::as_const(m_embedders)) {
            if (embedder->moviePath() == path) {
                if (embedder->status())
                    showTasks();
                return;
            }
        }
        std::shared_ptr<const MovieAsset> asset = openProjectMovie(true);
        if (!asset || path != m_window.project()->moviePath())
            return;
        CTWindowController *project = m_window.project();
        auto embedder = CTSubtitleEmbedder::initWithAsset(asset, path, project->fps());
        embedder->setDuration(project->movieDuration());
        embedder->setDelegate(this);
        m_embedders.push_back(embedder);
        const int id = ++m_lastSheetId;
        m_pendingOptions.insert(id, embedder);
        project->addSheet({u"EmbedOptions"_s, id});
    }

    QDialog *embedOptions(const Sheet &sheet, QWidget *parent)
    {
        const std::shared_ptr<CTSubtitleEmbedder> embedder = m_pendingOptions.take(sheet.context.toInt());
        if (!embedder)
            return nullptr;
        auto *dialog = new EmbedOptionsDialog(embedder, parent);
        connect(dialog, &QDialog::finished, this, [this, embedder](int result) {
            if (result != QDialog::Accepted) {
                embedder->cancel();
                std::erase(m_embedders, embedder);
                return;
            }
            // Started after the sheet has gone: the run's own questions come up on their own.
            QTimer::singleShot(0, this, [this, embedder] { startEmbedding(embedder); });
        });
        return dialog;
    }

    void startEmbedding(const std::shared_ptr<CTSubtitleEmbedder> &embedder)
    {
        auto status = std::make_shared<ProgressStatus>();
        embedder->setStatus(status);
        m_progress.addProgressStatus(status);
        showTasks();
        embedder->createM4V();
    }

    void subtitleEmbedderStarted(CTSubtitleEmbedder *embedder) override
    {
        ::subtitleEmbedderStarted(*m_window.project(), embedder->moviePath());
    }

    QString subtitleEmbedderDidFinish(CTSubtitleEmbedder *embedder, bool success) override
    {
        return ::subtitleEmbedderDidFinish(*m_window.project(), embedder->moviePath(),
                                           embedder->outputMoviePath(), success);
    }

    ProjectWindow &m_window;
    ProgressWindow &m_progress;
    Observable::KeyToken m_movieToken;
    std::shared_ptr<CTSubtitleExtractor> m_extractor;
    // Embeddings whose options are open, waiting or running.
    std::vector<std::shared_ptr<CTSubtitleEmbedder>> m_embedders;
    QHash<int, std::shared_ptr<CTSubtitleEmbedder>> m_pendingOptions; // by sheet
    int m_lastSheetId = 0;
    std::shared_ptr<const MovieAsset> m_asset;
    QString m_assetPath;
    QDateTime m_assetModified;
};

} // namespace

ProgressWindow *connectPlayers(ProjectWindow &window, ProgressWindow *progress)
{
    if (!progress)
        progress = new ProgressWindow(&window);
    new MovieServices(window, *progress);
    return progress;
}

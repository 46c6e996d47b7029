#include "PlayerWiring.h"

#include "CTSubtitleEmbedder.h"
#include "CTSubtitleExtractor.h"
#include "CTWindowController.h"
#include "EmbeddingFinished.h"
#include "Log.h"
#include "MovieAsset.h"
#include "ProgressStatus.h"
#include "ProjectWindow.h"
#include "VHMovieController.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QPointer>
#include <QProgressDialog>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

// The movie side of the window: which player plays a movie, extracting its text tracks when
// it opens, and embedding the edited subtitles back into it. Lives as long as the window.
class MovieServices final : public QObject, CTSubtitleExtractorDelegate, CTSubtitleEmbedderDelegate
{
public:
    explicit MovieServices(ProjectWindow &window)
        : QObject(&window)
        , m_window(window)
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
        CTWindowController *project = m_window.project();
        project->setExtractionHook([this](bool subtitles, bool chapters) {
            extract(subtitles, chapters, /*onlyMissing=*/true);
        });
        // Whenever the project moves to another movie (or none), the extract command's title
        // follows what that movie carries.
        m_movieToken = project->observeKey(u"basePath"_s, [this](Observable *, const QString &, Observable::Change change) {
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
            embed();
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
        status->setTitle(QCoreApplication::translate("MovieServices", "Extract Subtitles"));
        m_extractor = CTSubtitleExtractor::initWithAsset(asset, project->moviePath(), status);
        m_extractor->setDelegate(this);
        m_extractor->extractSubtitles(subtitles, chapters, onlyMissing);
        if (!m_extractor->isRunning())
            project->subtitleExtractorFinished();
    }

    void subtitleExtractorFinished(CTSubtitleExtractor *) override
    {
        m_window.project()->subtitleExtractorFinished();
        updateExtractableCounts();
    }

    // Embeds every file beside the movie that is chosen by default (one per language and the
    // chapter marks) with the tracks the movie has, showing the progress in a dialog that can
    // cancel the run.
    void embed()
    {
        if (m_embedder && !m_embedder->hasEnded())
            return;
        std::shared_ptr<const MovieAsset> asset = openProjectMovie(true);
        if (!asset)
            return;
        CTWindowController *project = m_window.project();
        m_embedder = CTSubtitleEmbedder::initWithAsset(asset, project->moviePath(), project->fps());
        m_embedder->setDuration(project->movieDuration());
        m_embedder->setDelegate(this);
        auto status = std::make_shared<ProgressStatus>();
        m_embedder->setStatus(status);

        auto *dialog = new QProgressDialog(
            status->title(), QCoreApplication::translate("MovieServices", "Cancel"), 0, 1000, &m_window);
        dialog->setWindowModality(Qt::WindowModal);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->setAutoClose(false);
        dialog->setAutoReset(false);
        dialog->setMinimumDuration(0);
        m_progressDialog = dialog;
        std::weak_ptr<CTSubtitleEmbedder> weak = m_embedder;
        connect(dialog, &QProgressDialog::canceled, this, [weak] {
            // After the end the button only closes the dialog.
            if (auto embedder = weak.lock(); embedder && embedder->status() && !embedder->status()->isEnded())
                embedder->status()->cancel();
        });
        m_statusToken = status->observeKey(QString(), [this, status](Observable *, const QString &, Observable::Change change) {
            if (change == Observable::Change::Did)
                showProgress(*status);
        });
        dialog->show();
        m_embedder->createM4V();
    }

    void showProgress(const ProgressStatus &status)
    {
        if (!m_progressDialog)
            return;
        const double progress = status.progress();
        if (progress >= 0 && progress <= 1) {
            m_progressDialog->setRange(0, 1000);
            m_progressDialog->setValue(int(progress * 1000));
        } else if (status.isIndeterminate()) {
            m_progressDialog->setRange(0, 0);
        }
        QString text = status.title();
        if (!status.message().isEmpty())
            text += u"\n"_s + status.message();
        if (!status.errorMessage().isEmpty())
            text += u"\n"_s + status.errorMessage();
        m_progressDialog->setLabelText(text);
        if (status.isEnded())
            m_progressDialog->setCancelButtonText(QCoreApplication::translate("MovieServices", "Close"));
    }

    void subtitleEmbedderStarted(CTSubtitleEmbedder *embedder) override
    {
        ::subtitleEmbedderStarted(*m_window.project(), embedder->moviePath());
    }

    QString subtitleEmbedderDidFinish(CTSubtitleEmbedder *embedder, bool success) override
    {
        if (m_progressDialog && success)
            m_progressDialog->close();
        return ::subtitleEmbedderDidFinish(*m_window.project(), embedder->moviePath(),
                                           embedder->outputMoviePath(), success);
    }

    ProjectWindow &m_window;
    Observable::KeyToken m_movieToken;
    Observable::KeyToken m_statusToken;
    std::shared_ptr<CTSubtitleExtractor> m_extractor;
    std::shared_ptr<CTSubtitleEmbedder> m_embedder;
    std::shared_ptr<const MovieAsset> m_asset;
    QString m_assetPath;
    QDateTime m_assetModified;
    QPointer<QProgressDialog> m_progressDialog;
};

} // namespace

void connectPlayers(ProjectWindow &window)
{
    new MovieServices(window);
}

#pragma once

#include "WebSearchEngines.h"

#include <QCoreApplication>
#include <QDialog>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <functional>

class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QWebEngineDownloadRequest;
class QWebEnginePage;
class QWebEngineProfile;
class QWebEngineView;
class VHWebSearchController;

// Who hears about downloads: the project, which loads what came (a file, or the folder of
// an unpacked archive), and closes the window when the user is done.
class VHWebSearchDelegate
{
public:
    virtual ~VHWebSearchDelegate();
    virtual void webSearchFinishedDownloading(VHWebSearchController *controller, const QString &path) = 0;
    virtual void webSearchCanceled(VHWebSearchController *controller) = 0;
};

// A small browser window for finding subtitles of the current movie: a pop-up of search
// engines, a search field and the page. Responses the pages offer as files are downloaded
// into a private temporary folder: zip archives are unpacked into a fresh folder and handed
// to the delegate, RAR archives are saved where the user chooses, other files are handed
// over as they are. Everything the window downloaded goes when it closes; what a crashed
// run left behind goes at the next start (WebDownloads::removeStalePrivateFolders()).
//
// Everything runs on the GUI thread; downloads report through the browser's signals there.
class VHWebSearchController final : public QDialog
{
    Q_DECLARE_TR_FUNCTIONS(VHWebSearchController)

public:
    explicit VHWebSearchController(QWidget *parent = nullptr);
    ~VHWebSearchController() override;

    // The engine list: a resource file of that name, then the user's file of that name
    // ($XDG_DATA_HOME/captora/) under its own section. Sets the defaults keys from the name
    // ("WebSearch.plist": "WebSearchAutoload", "WebSearchEngine").
    void setEngineFilename(const QString &name);
    const QString &engineFilename() const { return m_engineFilename; }
    void setEngines(const QMap<QString, QString> &engines);
    void setEngineOrder(const QStringList &order);
    const QMap<QString, QString> &engines() const { return m_engines; }
    const QStringList &engineOrder() const { return m_engineOrder; }
    const QString &engineDefaultsKey() const { return m_engineDefaultsKey; }
    const QString &autoloadDefaultsKey() const { return m_autoloadDefaultsKey; }

    // MIME fragments that turn a response into a download; "zip" and "rar" always.
    void addDownloadMimes(const QStringList &fragments);
    const QStringList &downloadMimes() const { return m_downloadMimes; }

    void setSearchTerm(const QString &term);
    QString searchTerm() const;
    // Loads the engine's address for the search term (the field's text).
    void startSearch();
    // The close button: the delegate decides (the project ends the window).
    void cancel();

    void setDelegate(VHWebSearchDelegate *delegate) { m_delegate = delegate; }

    // Downloads under way, and their files.
    QList<QWebEngineDownloadRequest *> downloaders() const;
    const QStringList &tempFiles() const { return m_tempFiles; }
    // This window's private folder; empty once it has been removed.
    const QString &temporaryFolder() const { return m_temporaryFolder; }

    // Panels answered without a dialog (tests). Null functions show the real ones.
    // The save panel for a RAR archive: the folder and the name it proposes; null: cancelled.
    std::function<QString(const QString &folder, const QString &name)> savePanelHook;
    // Shows a saved file in the file manager.
    std::function<void(const QString &path)> revealHook;

    QWebEngineView *webView() const { return m_webView; }
    QComboBox *engineButton() const { return m_engineButton; }
    QLineEdit *searchField() const { return m_searchField; }
    QProgressBar *loadingIndicator() const { return m_loadingIndicator; }
    // The last thing the window told the user about a download, or "".
    QString statusText() const;

    void done(int result) override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    struct Download
    {
        QPointer<QWebEngineDownloadRequest> request; // the latest one of its id
        quint32 id = 0;
        QString path;
        QString filenameSuggestion;
        bool needsUnzipping = false;
        bool needsOpening = false;
    };

    void windowDidLoad();
    void updateEngineButton();
    void selectStoredEngine();
    void loadStarted();
    void loadFinished(bool ok);
    void downloadRequested(QWebEngineDownloadRequest *download);
    void downloadStateChanged(QWebEngineDownloadRequest *download);
    void downloadDidFinish(QWebEngineDownloadRequest *download);
    void downloadDidFail(QWebEngineDownloadRequest *download);
    void removeDownload(QWebEngineDownloadRequest *download);
    void saveArchive(const Download &download);
    void reveal(const QString &path);
    void showStatus(const QString &text);
    void removeTemporaryFiles();
    static QWebEngineProfile *sharedProfile();

    QString m_engineFilename;
    QMap<QString, QString> m_engines;
    QStringList m_engineOrder;
    QString m_engineDefaultsKey;
    QString m_autoloadDefaultsKey;
    QStringList m_downloadMimes;
    QList<Download> m_downloads;
    QStringList m_tempFiles;    // each download's file, in step with m_downloads
    QList<quint32> m_abandoned; // ids of failed downloads, not to be resumed
    QString m_temporaryFolder;
    int m_downloadCount = 0;
    bool m_loaded = false;
    bool m_closed = false;
    VHWebSearchDelegate *m_delegate = nullptr;

    QComboBox *m_engineButton = nullptr;
    QLineEdit *m_searchField = nullptr;
    QProgressBar *m_loadingIndicator = nullptr;
    QWebEnginePage *m_page = nullptr;
    QWebEngineView *m_webView = nullptr;
    QLabel *m_status = nullptr;
};

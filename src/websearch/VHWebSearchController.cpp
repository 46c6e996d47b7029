#include "VHWebSearchController.h"

#include "ArchiveUnzip.h"
#include "Log.h"
#include "Resources.h"
#include "Settings.h"
#include "WebDownloads.h"

#include <QComboBox>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStandardItemModel>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QUrl>
#include <QVBoxLayout>
#include <QWebEngineDownloadRequest>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineView>

using namespace Qt::StringLiterals;

VHWebSearchDelegate::~VHWebSearchDelegate() = default;

namespace {

// Links that ask for a new window open in the same view: the window has one page.
class SearchPage final : public QWebEnginePage
{
public:
    using QWebEnginePage::QWebEnginePage;

protected:
    QWebEnginePage *createWindow(WebWindowType) override { return this; }
};

} // namespace

VHWebSearchController::VHWebSearchController(QWidget *parent)
    : QDialog(parent)
    , m_engineDefaultsKey(u"DefaultWebSearchEngine"_s)
    , m_downloadMimes(WebDownloads::DefaultDownloadMimes)
    , m_temporaryFolder(WebDownloads::makePrivateFolder())
{
    setWindowTitle(tr("Download Subtitles via Web Search"));
    m_engineButton = new QComboBox(this);
    m_engineButton->setObjectName(u"engineButton"_s);
    m_engineButton->setMinimumContentsLength(16);
    m_searchField = new QLineEdit(this);
    m_searchField->setObjectName(u"searchField"_s);
    m_searchField->setPlaceholderText(tr("Movie or series name"));
    m_searchField->setClearButtonEnabled(true);
    m_loadingIndicator = new QProgressBar(this);
    m_loadingIndicator->setObjectName(u"loadingIndicator"_s);
    m_loadingIndicator->setRange(0, 0); // busy
    m_loadingIndicator->setTextVisible(false);
    m_loadingIndicator->setFixedWidth(60);
    m_loadingIndicator->setVisible(false);
    auto *closeButton = new QPushButton(tr("Close"), this);
    // Return in the search field searches; it must not press a button of the window.
    closeButton->setAutoDefault(false);

    m_page = new SearchPage(QWebEngineProfile::defaultProfile(), this);
    m_webView = new QWebEngineView(this);
    m_webView->setObjectName(u"webView"_s);
    m_webView->setPage(m_page);
    m_status = new QLabel(this);
    m_status->setObjectName(u"status"_s);
    m_status->setWordWrap(true);
    m_status->setVisible(false);

    auto *bar = new QHBoxLayout;
    bar->addWidget(m_engineButton);
    bar->addWidget(m_searchField, 1);
    bar->addWidget(m_loadingIndicator);
    bar->addWidget(closeButton);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(bar);
    layout->addWidget(m_webView, 1);
    layout->addWidget(m_status);
    resize(960, 680);

    connect(m_searchField, &QLineEdit::returnPressed, this, [this] { startSearch(); });
    connect(m_engineButton, &QComboBox::activated, this, [this] { startSearch(); });
    connect(closeButton, &QPushButton::clicked, this, [this] { cancel(); });
    connect(m_page, &QWebEnginePage::loadStarted, this, [this] { loadStarted(); });
    connect(m_page, &QWebEnginePage::loadFinished, this, [this](bool ok) { loadFinished(ok); });
    connect(QWebEngineProfile::defaultProfile(), &QWebEngineProfile::downloadRequested, this,
            [this](QWebEngineDownloadRequest *download) { downloadRequested(download); });

    setEngineFilename(u"WebSearch.plist"_s);
}

VHWebSearchController::~VHWebSearchController()
{
    removeTemporaryFiles();
}

// --- engines ---------------------------------------------------------------------------------------

void VHWebSearchController::setEngineFilename(const QString &name)
{
    m_engineFilename = name;
    if (name.isEmpty())
        return;
    QString error;
    const QString shippedPath = resourcePath(name);
    std::optional<EngineList> list = WebSearchEngines::readFile(shippedPath, &error);
    if (!list) {
        logLine(u"Error: The web search engines at %1 could not be read: %2"_s.arg(shippedPath, error));
        list = EngineList();
    }
    const QString userPath = WebSearchEngines::userEngineFile(name);
    if (QFileInfo::exists(userPath)) {
        if (const std::optional<EngineList> user = WebSearchEngines::readFile(userPath, &error))
            list = WebSearchEngines::withUserEngines(*list, *user, tr("Your Engines"));
        else
            logLine(u"Warning: Your web search engines at %1 are ignored: %2"_s.arg(userPath, error));
    }
    m_engines = list->engines;
    m_engineOrder = list->order;
    const QString base = QFileInfo(name).completeBaseName();
    m_autoloadDefaultsKey = base + u"Autoload"_s;
    m_engineDefaultsKey = base + u"Engine"_s;
    // A new window searches at once unless the user turned that off.
    if (!Settings::shared().value(m_autoloadDefaultsKey).isValid())
        Settings::shared().registerDefaults({{m_autoloadDefaultsKey, true}});
    if (!Settings::shared().contains(m_engineDefaultsKey)) {
        for (const QString &entry : std::as_const(m_engineOrder)) {
            if (!entry.startsWith(u'-') && !entry.isEmpty()) {
                Settings::shared().registerDefaults({{m_engineDefaultsKey, entry}});
                break;
            }
        }
    }
    updateEngineButton();
}

void VHWebSearchController::setEngines(const QMap<QString, QString> &engines)
{
    m_engines = engines;
    m_engineOrder = engines.keys();
    std::sort(m_engineOrder.begin(), m_engineOrder.end());
    updateEngineButton();
}

void VHWebSearchController::setEngineOrder(const QStringList &order)
{
    m_engineOrder = order;
    updateEngineButton();
}

void VHWebSearchController::updateEngineButton()
{
    m_engineButton->clear();
    auto *model = qobject_cast<QStandardItemModel *>(m_engineButton->model());
    for (const QString &entry : std::as_const(m_engineOrder)) {
        if (!entry.startsWith(u'-')) {
            if (!m_engines.contains(entry))
                logLine(u"Warning: No engine found with title: '%1'"_s.arg(entry));
            m_engineButton->addItem(entry);
            continue;
        }
        // A section: a heading that cannot be chosen, below a line when items precede it.
        if (m_engineButton->count() > 0)
            m_engineButton->insertSeparator(m_engineButton->count());
        m_engineButton->addItem(entry.mid(1));
        if (model) {
            QStandardItem *heading = model->item(m_engineButton->count() - 1);
            heading->setFlags(heading->flags() & ~(Qt::ItemIsSelectable | Qt::ItemIsEnabled));
            QFont font = heading->font();
            font.setBold(true);
            heading->setFont(font);
        }
    }
    selectStoredEngine();
}

void VHWebSearchController::selectStoredEngine()
{
    const QString stored = Settings::shared().stringValue(m_engineDefaultsKey);
    auto *model = qobject_cast<QStandardItemModel *>(m_engineButton->model());
    for (int i = 0; i < m_engineButton->count(); ++i) {
        const bool choosable = !model || (model->item(i) && model->item(i)->isEnabled());
        if (choosable && m_engineButton->itemText(i) == stored) {
            m_engineButton->setCurrentIndex(i);
            return;
        }
    }
    // The first engine that can be chosen, not a heading.
    for (int i = 0; i < m_engineButton->count(); ++i) {
        if (!model ||
            (model->item(i) && model->item(i)->isEnabled() && !m_engineButton->itemText(i).isEmpty())) {
            m_engineButton->setCurrentIndex(i);
            return;
        }
    }
}

void VHWebSearchController::addDownloadMimes(const QStringList &fragments)
{
    for (const QString &fragment : fragments) {
        if (!fragment.isEmpty() && !m_downloadMimes.contains(fragment, Qt::CaseInsensitive))
            m_downloadMimes << fragment;
    }
}

// --- searching -------------------------------------------------------------------------------------

void VHWebSearchController::setSearchTerm(const QString &term)
{
    m_searchField->setText(term);
}

QString VHWebSearchController::searchTerm() const
{
    return m_searchField->text();
}

void VHWebSearchController::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (!m_loaded) {
        m_loaded = true;
        windowDidLoad();
    }
}

void VHWebSearchController::windowDidLoad()
{
    // The pop-up is built already (each change of the engines rebuilds it).
    selectStoredEngine();
    if (!searchTerm().isEmpty() && Settings::shared().boolValue(m_autoloadDefaultsKey))
        startSearch();
    m_searchField->setFocus(Qt::OtherFocusReason);
}

void VHWebSearchController::startSearch()
{
    const QString engine = m_engineButton->currentText();
    if (!engine.isEmpty())
        Settings::shared().setValue(m_engineDefaultsKey, engine);
    const QString address = WebSearchEngines::searchAddress(m_engines.value(engine), searchTerm());
    if (!address.isEmpty())
        m_webView->load(QUrl(address));
}

void VHWebSearchController::cancel()
{
    if (m_delegate)
        m_delegate->webSearchCanceled(this);
    else
        reject();
}

void VHWebSearchController::loadStarted()
{
    m_loadingIndicator->setVisible(true);
}

void VHWebSearchController::loadFinished(bool)
{
    m_loadingIndicator->setVisible(false);
    // The browser shows some types it was asked to download (a subtitle sent as text): the
    // document's type decides, as for the responses it does not show.
    const QUrl url = m_page->url();
    m_page->runJavaScript(u"document.contentType"_s, [self = QPointer(this), url](const QVariant &type) {
        if (!self || self->m_closed)
            return;
        const QString mime = type.toString();
        if (!mime.contains(u"html"_s, Qt::CaseInsensitive) &&
            WebDownloads::mimeTriggersDownload(mime, self->m_downloadMimes) && self->m_page->url() == url)
            self->m_page->download(url);
    });
}

// --- downloads -------------------------------------------------------------------------------------

QList<QWebEngineDownloadRequest *> VHWebSearchController::downloaders() const
{
    QList<QWebEngineDownloadRequest *> requests;
    for (const Download &download : m_downloads)
        requests << download.request.data();
    return requests;
}

void VHWebSearchController::downloadRequested(QWebEngineDownloadRequest *download)
{
    if (download->page() != m_page)
        return; // another window's
    if (m_abandoned.contains(download->id())) {
        download->cancel();
        return;
    }
    // The browser resumes a download after a dropped connection on its own, handing it out
    // again as a new request of the same id: it keeps its place, its folder and its name.
    for (Download &known : m_downloads) {
        if (known.id == download->id()) {
            known.request = download;
            download->setDownloadDirectory(QFileInfo(known.path).absolutePath());
            download->setDownloadFileName(QFileInfo(known.path).fileName());
            connect(download, &QWebEngineDownloadRequest::stateChanged, this,
                    [this, download] { downloadStateChanged(download); });
            download->accept();
            return;
        }
    }
    const QString suggestion = download->suggestedFileName();
    if (m_closed || !WebDownloads::acceptsDownload(download->mimeType(), suggestion, m_downloadMimes)) {
        download->cancel();
        if (!m_closed)
            showStatus(
                tr("“%1” is neither a subtitle file nor an archive; it was not downloaded.").arg(suggestion));
        return;
    }
    const QString folder = m_temporaryFolder.isEmpty()
                               ? QString()
                               : m_temporaryFolder + u"/download-"_s + QString::number(++m_downloadCount);
    if (folder.isEmpty() || !QDir().mkdir(folder)) {
        download->cancel();
        logLine(
            u"Warning: No temporary folder for the download of %1"_s.arg(download->url().toDisplayString()));
        showStatus(tr("“%1” could not be downloaded: there is no temporary folder for it.").arg(suggestion));
        return;
    }
    Download entry;
    entry.request = download;
    entry.id = download->id();
    entry.filenameSuggestion = suggestion;
    const WebDownloads::Handling handling = WebDownloads::handlingForName(suggestion);
    entry.needsUnzipping = handling.needsUnzipping;
    entry.needsOpening = handling.needsOpening;
    const QString name = WebDownloads::safeFileName(suggestion);
    download->setDownloadDirectory(folder);
    download->setDownloadFileName(name);
    entry.path = folder + u'/' + name;
    m_downloads << entry;
    m_tempFiles << entry.path;
    connect(download, &QWebEngineDownloadRequest::stateChanged, this,
            [this, download] { downloadStateChanged(download); });
    download->accept();
    showStatus(tr("Downloading “%1”…").arg(name));
}

void VHWebSearchController::downloadStateChanged(QWebEngineDownloadRequest *download)
{
    switch (download->state()) {
    case QWebEngineDownloadRequest::DownloadCompleted:
        downloadDidFinish(download);
        break;
    case QWebEngineDownloadRequest::DownloadInterrupted:
        downloadDidFail(download);
        break;
    case QWebEngineDownloadRequest::DownloadCancelled:
        removeDownload(download);
        break;
    default:
        break;
    }
}

void VHWebSearchController::downloadDidFinish(QWebEngineDownloadRequest *download)
{
    qsizetype index = -1;
    for (qsizetype i = 0; i < m_downloads.size(); ++i) {
        if (m_downloads[i].request == download)
            index = i;
    }
    if (index < 0 || m_closed)
        return; // not one of ours
    Download finished = m_downloads[index];
    finished.path = QDir(download->downloadDirectory()).filePath(download->downloadFileName());
    if (!finished.needsUnzipping && !finished.needsOpening) {
        const WebDownloads::Handling sniffed = WebDownloads::sniffFile(finished.path);
        finished.needsUnzipping = sniffed.needsUnzipping;
        finished.needsOpening = sniffed.needsOpening;
    }
    // Off the lists first: telling the delegate may close the window.
    removeDownload(download);
    const QString name = QFileInfo(finished.path).fileName();
    if (finished.needsUnzipping) {
        QTemporaryDir fresh(m_temporaryFolder + u"/unzipped-XXXXXX"_s);
        fresh.setAutoRemove(false);
        QStringList problems;
        const bool ok = fresh.isValid() && ArchiveUnzip::unzip(finished.path, fresh.path(), &problems);
        showStatus(ok ? tr("Unpacked “%1”.").arg(name) : problems.join(u'\n'));
        if (m_delegate)
            m_delegate->webSearchFinishedDownloading(this, fresh.path());
        if (!ok)
            logLine(u"Warning: Unzipping %1 failed"_s.arg(finished.path));
    } else if (finished.needsOpening) {
        saveArchive(finished);
    } else {
        showStatus(tr("Downloaded “%1”.").arg(name));
        if (m_delegate)
            m_delegate->webSearchFinishedDownloading(this, finished.path);
    }
}

void VHWebSearchController::downloadDidFail(QWebEngineDownloadRequest *download)
{
    if (!downloaders().contains(download))
        return;
    removeDownload(download);
    // The browser would try again on its own, asking for the download once more each time;
    // a failed download stays failed, and the user can click again.
    m_abandoned << download->id();
    download->cancel();
    logLine(u"download:didFailWithError"_s);
    if (!m_closed)
        showStatus(tr("The download of “%1” failed: %2")
                       .arg(download->downloadFileName(), download->interruptReasonString()));
}

void VHWebSearchController::removeDownload(QWebEngineDownloadRequest *download)
{
    for (qsizetype i = 0; i < m_downloads.size(); ++i) {
        if (m_downloads[i].request == download) {
            m_downloads.removeAt(i);
            m_tempFiles.removeAt(i);
            return;
        }
    }
}

void VHWebSearchController::saveArchive(const Download &download)
{
    // Captora cannot unpack RAR archives: the user keeps the file and unpacks it elsewhere.
    QString name = download.filenameSuggestion.isEmpty()
                       ? u"Subtitle.rar"_s
                       : WebDownloads::safeFileName(download.filenameSuggestion);
    if (QFileInfo(name).suffix().toLower() != u"rar"_s)
        name += u".rar"_s;
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
    QString chosen =
        savePanelHook ? savePanelHook(folder, name)
                      : QFileDialog::getSaveFileName(this, tr("Save RAR Archive"),
                                                     QDir(folder).filePath(name), tr("RAR archives (*.rar)"));
    if (chosen.isEmpty()) {
        showStatus(tr("The RAR archive “%1” was not saved.").arg(name));
        return;
    }
    if (QFileInfo(chosen).suffix().toLower() != u"rar"_s)
        chosen += u".rar"_s;
    QString error;
    if (!WebDownloads::moveFile(download.path, chosen, &error)) {
        logLine(u"Warning: The RAR archive could not be saved at %1: %2"_s.arg(chosen, error));
        showStatus(tr("The RAR archive could not be saved at “%1”: %2").arg(chosen, error));
        return;
    }
    showStatus(tr("Saved “%1”. Captora cannot unpack RAR archives: unpack it with an archive manager and "
                  "open the subtitle file.")
                   .arg(chosen));
    reveal(chosen);
}

void VHWebSearchController::reveal(const QString &path)
{
    if (revealHook) {
        revealHook(path);
        return;
    }
    // The desktop's file manager selects the file; without one, the folder opens.
    QDBusConnection bus = QDBusConnection::sessionBus();
    const QString service = u"org.freedesktop.FileManager1"_s;
    if (bus.isConnected() && bus.interface() && bus.interface()->isServiceRegistered(service)) {
        QDBusMessage call = QDBusMessage::createMethodCall(service, u"/org/freedesktop/FileManager1"_s,
                                                           service, u"ShowItems"_s);
        call << QStringList{QUrl::fromLocalFile(path).toString()} << QString();
        if (bus.send(call))
            return;
    }
    QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).absolutePath()));
}

void VHWebSearchController::showStatus(const QString &text)
{
    m_status->setText(text);
    m_status->setVisible(!text.isEmpty());
}

QString VHWebSearchController::statusText() const
{
    return m_status->text();
}

// --- closing ---------------------------------------------------------------------------------------

void VHWebSearchController::done(int result)
{
    if (!m_closed) {
        m_closed = true;
        // Downloads still running stop; nothing the window fetched stays behind.
        const QList<Download> running = m_downloads;
        m_downloads.clear();
        m_tempFiles.clear();
        for (const Download &download : running) {
            if (download.request && !download.request->isFinished())
                download.request->cancel();
        }
        m_page->triggerAction(QWebEnginePage::Stop);
        removeTemporaryFiles();
    }
    QDialog::done(result);
}

void VHWebSearchController::removeTemporaryFiles()
{
    if (m_temporaryFolder.isEmpty())
        return;
    QDir(m_temporaryFolder).removeRecursively();
    m_temporaryFolder.clear();
}

// The web search window with the real browser, loading from a server on 127.0.0.1 that the
// user's engine file points at: searching, downloads of every kind, hostile archives, and
// the project taking what was downloaded. Runs on an X server (xvfb-run).
#include "CTWindowController.h"
#include "Log.h"
#include "MainQueue.h"
#include "PlaybackControl.h"
#include "ProjectWindow.h"
#include "Settings.h"
#include "TestSupport.h"
#include "VHWebSearchController.h"
#include "WebSearchTestSupport.h"
#include "WebSearchWiring.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStandardItemModel>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QWebEngineDownloadRequest>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineView>

#include <gtest/gtest.h>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int Patience = 20000; // ms; the first page of a browser process takes a while

QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Every file below `folder`, relative to it, sorted.
QStringList filesBelow(const QString &folder)
{
    QStringList found;
    QDirIterator it(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (it.hasNext())
        found << QDir(folder).relativeFilePath(it.next());
    found.sort();
    return found;
}

class RecordingDelegate final : public VHWebSearchDelegate
{
public:
    struct Handed
    {
        QString path;
        bool folder = false;
        QStringList files; // what the folder held when it was handed over
    };
    QList<Handed> handed;
    int canceled = 0;

    void webSearchFinishedDownloading(VHWebSearchController *, const QString &path) override
    {
        const QFileInfo info(path);
        handed << Handed{path, info.isDir(), info.isDir() ? filesBelow(path) : QStringList()};
    }
    void webSearchCanceled(VHWebSearchController *) override { ++canceled; }
};

// The server, the user's engine file pointing at it, and throwaway settings.
class WebSearchEnvironment : public ::testing::Test
{
protected:
    void SetUp() override
    {
        qputenv("XDG_DATA_HOME", data.path(QString()).toUtf8());
        Settings::shared().useFile(data.path(u"settings.ini"_s));
        writeUserEngines(u"<key>Engines</key><dict><key>Local</key><string>%1</string></dict>"
                         u"<key>Order</key><array><string>Local</string><string>Gone</string></array>"_s.arg(
                             server.url(u"/search?q=%s"_s)));
        Settings::shared().setValue(u"WebSearchEngine"_s, u"Local"_s);
        serve();
    }

    void writeUserEngines(const QString &dictionaryBody)
    {
        QDir().mkpath(data.path(u"captora"_s));
        data.write(u"captora/WebSearch.plist"_s,
                   (u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>"_s +
                    dictionaryBody + u"</dict></plist>\n"_s)
                       .toUtf8());
    }

    void serve()
    {
        const auto link = [](const QByteArray &id, const QByteArray &path, const QByteArray &extra = {}) {
            return QByteArray("<p><a id=\"" + id + "\" href=\"" + path + "\"" + extra + ">" + id +
                              "</a></p>");
        };
        using Response = LocalHttpServer::Response;
        const auto respond = [](const QByteArray &type, const QByteArray &body,
                                const QByteArray &disposition = {}) {
            Response response;
            response.contentType = type;
            response.body = body;
            response.contentDisposition = disposition;
            return response;
        };
        QByteArray results = "<html><head><title>Results</title></head><body><h1>Subtitles found</h1>";
        for (const char *name :
             {"good", "slip", "absolute", "symlink", "encrypted", "bomb", "many", "windows_names"})
            results += link(name, QByteArray("/zip/") + name);
        results += link("subs_zip", "/download/subs") + link("pk", "/pk") + link("rar", "/rar") +
                   link("srt", "/Film.srt") + link("html", "/page.html") + link("pdf", "/flyer.pdf") +
                   link("broken", "/broken.zip") + link("blank", "/page.html", " target=\"_blank\"");
        results += "</body></html>";
        server.route(u"/search"_s, respond("text/html; charset=utf-8", results));
        server.route(u"/page.html"_s,
                     respond("text/html", "<html><head><title>A page</title></head><body>Hi</body></html>"));
        for (const char *name :
             {"good", "slip", "absolute", "symlink", "encrypted", "bomb", "many", "windows_names"})
            server.route(u"/zip/"_s + QLatin1String(name),
                         respond("application/zip", fileBytes(testArchive(QLatin1String(name) + u".zip"_s))));
        server.route(u"/download/subs"_s,
                     respond("application/octet-stream", fileBytes(testArchive(u"good.zip"_s)),
                             "attachment; filename=\"SUBS.ZIP\""));
        server.route(u"/pk"_s,
                     respond("application/octet-stream", fileBytes(testArchive(u"pk_without_extension"_s))));
        server.route(u"/rar"_s, respond("application/x-rar-compressed", fileBytes(testArchive(u"sub.rar"_s)),
                                        "attachment; filename=\"sub.rar\""));
        server.route(u"/Film.srt"_s, respond("application/x-subrip", fileBytes(testArchive(u"Film.srt"_s))));
        server.route(u"/flyer.pdf"_s, respond("application/x-msdownload", "MZ not a subtitle",
                                              "attachment; filename=\"setup.exe\""));
        Response broken = respond("application/zip", QByteArray(200000, 'x'));
        broken.breakAfter = 10;
        server.route(u"/broken.zip"_s, broken);
    }

    TempDir data;
    LocalHttpServer server;
    LogCapture log{false};
};

class WebSearchWindowTest : public WebSearchEnvironment
{
protected:
    void SetUp() override
    {
        WebSearchEnvironment::SetUp();
        controller = std::make_unique<VHWebSearchController>();
        controller->setDelegate(&delegate);
        controller->addDownloadMimes(CTWindowController::acceptedDownloadTypes());
    }
    void TearDown() override
    {
        if (controller)
            controller->done(0);
        controller.reset();
    }

    // Shows the window searching for the term and waits for the results page.
    void searchFor(const QString &term)
    {
        controller->setSearchTerm(term);
        controller->show();
        ASSERT_TRUE(
            QTest::qWaitFor([this] { return controller->webView()->title() == u"Results"_s; }, Patience))
            << "requests: " << server.requests().join(u' ').toStdString();
    }
    void click(const QString &id)
    {
        controller->webView()->page()->runJavaScript(u"document.getElementById('%1').click()"_s.arg(id));
    }
    bool waitForHandOver(qsizetype count = 1)
    {
        return QTest::qWaitFor([&] { return delegate.handed.size() >= count; }, Patience);
    }

    RecordingDelegate delegate;
    std::unique_ptr<VHWebSearchController> controller;
};

TEST_F(WebSearchWindowTest, ThePopUpHasSectionsDeadItemsAndTheUserEngines)
{
    QComboBox *button = controller->engineButton();
    QStringList titles;
    for (int i = 0; i < button->count(); ++i)
        titles << button->itemText(i);
    // The shipped sections first, then the user's under their own heading.
    ASSERT_TRUE(titles.contains(u"Subtitle Sites"_s));
    const qsizetype yours = titles.indexOf(u"Your Engines"_s);
    ASSERT_GT(yours, 0);
    EXPECT_EQ(titles.mid(yours), (QStringList{u"Your Engines"_s, u"Local"_s, u"Gone"_s}));
    EXPECT_TRUE(titles[yours - 1].isEmpty()); // the separator above the heading
    auto *model = qobject_cast<QStandardItemModel *>(button->model());
    ASSERT_TRUE(model);
    EXPECT_FALSE(model->item(int(yours))->isEnabled());
    EXPECT_TRUE(model->item(int(yours) + 2)->isEnabled()); // a dead item stays
    EXPECT_GE(log.count(u"Warning: No engine found with title: 'Gone'"_s), 1);
    // The stored engine is the one shown.
    EXPECT_EQ(button->currentText(), u"Local"_s);
    EXPECT_EQ(controller->engineDefaultsKey(), u"WebSearchEngine"_s);
    EXPECT_EQ(controller->autoloadDefaultsKey(), u"WebSearchAutoload"_s);
    // Nothing of the pages (cookies, cache) is kept on disk.
    EXPECT_TRUE(controller->webView()->page()->profile()->isOffTheRecord());

    // A broken user file is reported and the shipped engines stay.
    data.write(u"captora/WebSearch.plist"_s, "<plist><dict><key>Local</key>");
    log.clear();
    VHWebSearchController other;
    EXPECT_EQ(other.engineButton()->findText(u"Your Engines"_s), -1);
    EXPECT_GT(other.engineButton()->count(), 5);
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines()[0].startsWith(u"Warning: Your web search engines at %1 are ignored: "_s.arg(
        data.path(u"captora/WebSearch.plist"_s))));
}

TEST_F(WebSearchWindowTest, TheWindowSearchesForTheTermAtOnceAndShowsTheLoading)
{
    bool indicatorRan = false;
    QObject::connect(controller->webView()->page(), &QWebEnginePage::loadStarted, controller.get(),
                     [&] { indicatorRan = controller->loadingIndicator()->isVisible(); });
    searchFor(u"Big Buck Bunny & Co"_s);
    EXPECT_EQ(server.requests().value(0), u"/search?q=Big%20Buck%20Bunny%20&%20Co"_s);
    EXPECT_TRUE(indicatorRan);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !controller->loadingIndicator()->isVisible(); }, Patience));

    // A new search from the field; an empty one loads nothing.
    controller->searchField()->setText(QString());
    QTest::keyClick(controller->searchField(), Qt::Key_Return);
    QTest::qWait(300);
    EXPECT_EQ(server.requests().filter(u"/search"_s).size(), 1);
    EXPECT_TRUE(controller->isVisible());
}

TEST_F(WebSearchWindowTest, WithoutAutoloadTheSearchWaitsForTheUser)
{
    Settings::shared().setValue(u"WebSearchAutoload"_s, false);
    controller->setSearchTerm(u"Film"_s);
    controller->show();
    QTest::qWait(500);
    EXPECT_TRUE(server.requests().isEmpty());
    QTest::keyClick(controller->searchField(), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !server.requests().isEmpty(); }, Patience));
    EXPECT_EQ(server.requests().value(0), u"/search?q=Film"_s);
}

TEST_F(WebSearchWindowTest, ZipArchivesAreUnpackedByTypeByNameAndByTheirFirstBytes)
{
    searchFor(u"Film"_s);
    click(u"good"_s); // application/zip
    ASSERT_TRUE(waitForHandOver(1));
    click(u"subs_zip"_s); // application/octet-stream named SUBS.ZIP
    ASSERT_TRUE(waitForHandOver(2));
    click(u"pk"_s); // no name, no type: "PK" at its start
    ASSERT_TRUE(waitForHandOver(3));
    for (const RecordingDelegate::Handed &handed : std::as_const(delegate.handed)) {
        EXPECT_TRUE(handed.folder) << handed.path.toStdString();
        EXPECT_TRUE(handed.path.startsWith(controller->temporaryFolder() + u"/unzipped-"_s))
            << handed.path.toStdString();
        EXPECT_EQ(handed.files, (QStringList{u"Film.srt"_s, u"extra/notes.txt"_s}));
    }
    EXPECT_TRUE(controller->downloaders().isEmpty());
    EXPECT_TRUE(controller->tempFiles().isEmpty());
    EXPECT_EQ(log.lines().filter(u"Unzipping"_s).size(), 0);
}

TEST_F(WebSearchWindowTest, OtherFilesAreHandedOverAsTheyCame)
{
    searchFor(u"Film"_s);
    click(u"srt"_s);
    ASSERT_TRUE(waitForHandOver());
    EXPECT_FALSE(delegate.handed[0].folder);
    EXPECT_EQ(fileBytes(delegate.handed[0].path), fileBytes(testArchive(u"Film.srt"_s)));
    EXPECT_TRUE(delegate.handed[0].path.startsWith(controller->temporaryFolder() + u'/'));
}

TEST_F(WebSearchWindowTest, RarArchivesAreSavedWhereTheUserSays)
{
    TempDir downloads;
    QStringList asked;
    QStringList revealed;
    controller->savePanelHook = [&](const QString &folder, const QString &name) {
        asked << folder << name;
        return downloads.path(u"Kept"_s); // the extension is added
    };
    controller->revealHook = [&](const QString &path) { revealed << path; };
    searchFor(u"Film"_s);
    click(u"rar"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !revealed.isEmpty(); }, Patience));
    EXPECT_EQ(asked, (QStringList{QStandardPaths::writableLocation(QStandardPaths::DownloadLocation),
                                  u"sub.rar"_s}));
    EXPECT_EQ(revealed, QStringList{downloads.path(u"Kept.rar"_s)});
    EXPECT_EQ(downloads.read(u"Kept.rar"_s), fileBytes(testArchive(u"sub.rar"_s)));
    EXPECT_TRUE(delegate.handed.isEmpty());
    EXPECT_TRUE(filesBelow(controller->temporaryFolder()).isEmpty());

    // Cancelled: nothing saved, nothing handed over.
    controller->savePanelHook = [&](const QString &, const QString &) { return QString(); };
    click(u"rar"_s);
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return controller->statusText().contains(u"was not saved"_s); }, Patience));
    EXPECT_EQ(downloads.entries(), QStringList{u"Kept.rar"_s});
    EXPECT_TRUE(delegate.handed.isEmpty());
}

TEST_F(WebSearchWindowTest, PagesAreShownAndNewWindowsOpenInTheSameView)
{
    searchFor(u"Film"_s);
    click(u"blank"_s);
    ASSERT_TRUE(QTest::qWaitFor([this] { return controller->webView()->title() == u"A page"_s; }, Patience));
    EXPECT_EQ(controller->webView()->url().path(), u"/page.html"_s);
    controller->startSearch();
    ASSERT_TRUE(QTest::qWaitFor([this] { return controller->webView()->title() == u"Results"_s; }, Patience));
    click(u"html"_s);
    ASSERT_TRUE(QTest::qWaitFor([this] { return controller->webView()->title() == u"A page"_s; }, Patience));
    QTest::qWait(300);
    EXPECT_TRUE(delegate.handed.isEmpty());
    EXPECT_TRUE(controller->tempFiles().isEmpty());
}

TEST_F(WebSearchWindowTest, ProgramsAreRefusedAndBrokenDownloadsDropped)
{
    searchFor(u"Film"_s);
    click(u"pdf"_s);
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return controller->statusText().contains(u"setup.exe"_s); }, Patience));
    EXPECT_TRUE(filesBelow(controller->temporaryFolder()).isEmpty());

    click(u"broken"_s);
    ASSERT_TRUE(QTest::qWaitFor([this] { return log.count(u"download:didFailWithError"_s) == 1; }, Patience));
    // The browser would resume the broken download on its own; it stays failed.
    QTest::qWait(1000);
    EXPECT_EQ(log.count(u"download:didFailWithError"_s), 1);
    EXPECT_TRUE(controller->downloaders().isEmpty());
    EXPECT_TRUE(controller->tempFiles().isEmpty()) << controller->tempFiles().join(u' ').toStdString();
    EXPECT_TRUE(delegate.handed.isEmpty());
}

TEST_F(WebSearchWindowTest, HostileArchivesLeaveNothingOutsideAndTheWindowGoesOn)
{
    const QStringList tempBefore = QDir(QDir::tempPath()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    searchFor(u"Film"_s);
    const QStringList hostile{u"slip"_s, u"absolute"_s, u"symlink"_s,      u"encrypted"_s,
                              u"bomb"_s, u"many"_s,     u"windows_names"_s};
    for (const QString &name : hostile) {
        SCOPED_TRACE(name.toStdString());
        const qsizetype before = delegate.handed.size();
        click(name);
        ASSERT_TRUE(waitForHandOver(before + 1));
        const RecordingDelegate::Handed &handed = delegate.handed.last();
        EXPECT_TRUE(handed.path.startsWith(controller->temporaryFolder() + u"/unzipped-"_s));
        for (const QString &file : handed.files)
            EXPECT_TRUE(file == u"good.srt"_s || file == u"open.srt"_s || file == u"ok/fine.srt"_s)
                << file.toStdString();
        EXPECT_EQ(log.lines().filter(u"Warning: Unzipping "_s).size(), before + 1);
        EXPECT_FALSE(controller->statusText().isEmpty());
    }
    // Only the window's own folder is new in the temporary folder; nothing landed beside it.
    QStringList tempAfter = QDir(QDir::tempPath()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    tempAfter.removeAll(QFileInfo(controller->temporaryFolder()).fileName());
    for (const QString &name : tempAfter)
        EXPECT_TRUE(tempBefore.contains(name) || !name.contains(u"evil"_s)) << name.toStdString();
    EXPECT_FALSE(QFileInfo::exists(QDir::tempPath() + u"/evil.srt"_s));
    EXPECT_FALSE(QFileInfo::exists(u"/tmp/captora-absolute.srt"_s));
    EXPECT_FALSE(QFileInfo::exists(QFileInfo(controller->temporaryFolder()).absolutePath() + u"/evil.srt"_s));
    // The window still searches.
    EXPECT_TRUE(controller->isVisible());
    controller->webView()->page()->runJavaScript(u"document.title = 'Still here'"_s);
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return controller->webView()->title() == u"Still here"_s; }, Patience));
}

TEST_F(WebSearchWindowTest, ClosingTheWindowRemovesEverythingItDownloaded)
{
    searchFor(u"Film"_s);
    click(u"good"_s);
    ASSERT_TRUE(waitForHandOver());
    const QString folder = controller->temporaryFolder();
    EXPECT_TRUE(QFileInfo::exists(delegate.handed[0].path));
    // The close button asks the delegate; the owner ends the window.
    QTest::mouseClick(controller->findChild<QPushButton *>(), Qt::LeftButton);
    EXPECT_EQ(delegate.canceled, 1);
    controller->done(0);
    EXPECT_FALSE(QFileInfo::exists(folder));
    EXPECT_TRUE(controller->temporaryFolder().isEmpty());
}

// --- the project window -----------------------------------------------------------------------

class FakePlayer final : public PlaybackControl
{
public:
    QWidget view;
    PlaybackControlDelegate *delegate = nullptr;
    bool movie = false;
    int kind() const override { return 1; }
    bool hasMovie() const override { return movie; }
    double currentTime() const override { return 0; }
    void setCurrentTime(double) override {}
    double fps() const override { return 25; }
    double duration() const override { return 60; }
    bool isPlaying() const override { return false; }
    void setPlaying(bool) override {}
    void setSubtitles(const SubtitleList &) override {}
    void setShowSubtitle(bool) override {}
    void redrawCurrentSubtitle() override {}
    qsizetype currentSegmentIndex() const override { return 0; }
    bool loadMovieURL(const QString &) override { return true; }
    void setDelegate(PlaybackControlDelegate *d) override { delegate = d; }
};

class ProjectWebSearchTest : public WebSearchEnvironment
{
protected:
    void SetUp() override
    {
        WebSearchEnvironment::SetUp();
        MainQueue::main().drain();
        Settings::shared().setValue(u"AutoOpenSearch"_s, false);
        Settings::shared().setValue(u"AutoExtract"_s, false);
        Settings::shared().setValue(u"AutoExtractVTT"_s, false);
        window = std::make_unique<ProjectWindow>();
        window->setPlayers(
            [](int) -> PlaybackControl * { return new FakePlayer; },
            [](PlaybackControl *p) -> QWidget * { return &static_cast<FakePlayer *>(p)->view; });
        connectWebSearch(*window);
        window->start();
        window->show();
        QApplication::setActiveWindow(window.get());
        movie = movies.write(u"Big.Buck.Bunny.mp4"_s, "movie");
    }
    void TearDown() override
    {
        MainQueue::main().drain();
        window.reset();
    }
    void openMovie()
    {
        window->project()->setMoviePath(movie);
        auto *player = static_cast<FakePlayer *>(window->project()->movieController());
        player->movie = true;
        player->delegate->movieControllerDidLoadMovie(player);
        QCoreApplication::processEvents();
    }
    VHWebSearchController *searchWindow() const { return window->findChild<VHWebSearchController *>(); }
    bool waitForResults()
    {
        return QTest::qWaitFor(
            [this] { return searchWindow() && searchWindow()->webView()->title() == u"Results"_s; },
            Patience);
    }

    TempDir movies;
    ScriptedPrompter prompter;
    ScopedPrompter scopedPrompter{&prompter};
    std::unique_ptr<ProjectWindow> window;
    QString movie;
};

TEST_F(ProjectWebSearchTest, TheShortcutSearchesTheMovieAndTheDownloadBecomesTheProjectsFile)
{
    openMovie();
    ASSERT_TRUE(window->project()->subtitles().isEmpty());
    EXPECT_EQ(window->action(u"searchOnline:"_s)->shortcut(), QKeySequence(u"Ctrl+Shift+D"_s));
    QTest::keyClick(window.get(), Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_TRUE(waitForResults());
    EXPECT_EQ(window->attachedSheets().value(0).kind, u"WebSearch"_s);
    EXPECT_EQ(server.requests().value(0), u"/search?q=Big%20Buck%20Bunny"_s);
    EXPECT_TRUE(searchWindow()->isModal() || searchWindow()->windowModality() == Qt::WindowModal);

    searchWindow()->webView()->page()->runJavaScript(u"document.getElementById('good').click()"_s);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !window->project()->subtitles().isEmpty(); }, Patience));
    EXPECT_TRUE(QTest::qWaitFor([this] { return window->attachedSheets().isEmpty(); }, Patience));
    EXPECT_EQ(window->project()->subtitles().size(), 2);
    EXPECT_TRUE(window->project()->hasChanged());
    EXPECT_TRUE(window->isWindowModified());
    EXPECT_EQ(window->project()->subtitlePath(), movies.path(u"Big.Buck.Bunny.srt"_s));

    window->runCommand(u"saveSubtitle:"_s);
    EXPECT_FALSE(window->project()->hasChanged());
    EXPECT_EQ(movies.read(u"Big.Buck.Bunny.srt"_s), fileBytes(testArchive(u"Film.srt"_s)));
    // The window's temporary files went with it.
    QTest::qWait(100);
    EXPECT_EQ(searchWindow(), nullptr);
}

TEST_F(ProjectWebSearchTest, TheLanguagePopUpOpensItAndTheNextSearchKeepsTheUsersTerm)
{
    openMovie();
    window->project()->runLanguageCommand(u"searchOnline:"_s);
    ASSERT_TRUE(waitForResults());
    searchWindow()->searchField()->setText(u"Bunny 2008"_s);
    QTest::keyClick(searchWindow()->searchField(), Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([this] { return server.requests().size() == 2; }, Patience));
    window->endSheet(window->attachedSheets().value(0), 0);
    QTest::qWait(50);

    window->runCommand(u"searchOnline:"_s);
    ASSERT_TRUE(QTest::qWaitFor([this] { return server.requests().size() == 3; }, Patience));
    EXPECT_EQ(server.requests().last(), u"/search?q=Bunny%202008"_s);
}

TEST_F(ProjectWebSearchTest, AnExtractionThatFoundNothingOpensTheSearch)
{
    Settings::shared().setValue(u"AutoOpenSearch"_s, true);
    openMovie(); // no extraction hook: the project hears at once that nothing came
    ASSERT_TRUE(waitForResults());
    EXPECT_EQ(server.requests().value(0), u"/search?q=Big%20Buck%20Bunny"_s);
}

TEST_F(ProjectWebSearchTest, WithoutAMovieTheUserNamesTheFileFirst)
{
    TempDir chosen;
    QList<SavePanelOptions> panels;
    window->savePanelHook = [&](SavePanelOptions &options) {
        panels << options;
        return chosen.path(u"Mine.srt"_s);
    };
    window->runCommand(u"searchOnline:"_s);
    ASSERT_TRUE(QTest::qWaitFor([this] { return searchWindow() != nullptr; }, Patience));
    searchWindow()->setSearchTerm(u"Film"_s);
    searchWindow()->startSearch();
    ASSERT_TRUE(waitForResults());
    searchWindow()->webView()->page()->runJavaScript(u"document.getElementById('srt').click()"_s);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !window->project()->subtitles().isEmpty(); }, Patience));
    ASSERT_EQ(panels.size(), 1);
    EXPECT_EQ(panels[0].allowedTypes, QStringList{u"srt"_s});
    EXPECT_EQ(panels[0].nameFieldValue, u"Film.srt"_s);
    window->runCommand(u"saveSubtitle:"_s);
    EXPECT_EQ(chosen.read(u"Mine.srt"_s), fileBytes(testArchive(u"Film.srt"_s)));
}

TEST_F(ProjectWebSearchTest, UnsavedChangesAreAskedAboutBeforeADownloadReplacesThem)
{
    openMovie();
    window->project()->addSubtitle(); // an unsaved line
    ASSERT_TRUE(window->project()->hasChanged());
    prompter.answers = {PromptAnswer{2}}; // Cancel
    window->runCommand(u"searchOnline:"_s);
    ASSERT_TRUE(waitForResults());
    searchWindow()->webView()->page()->runJavaScript(u"document.getElementById('good').click()"_s);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !prompter.prompts.isEmpty(); }, Patience));
    EXPECT_EQ(prompter.prompts[0].message, u"You have unsaved changes. Do you want to save them?"_s);
    QTest::qWait(200);
    EXPECT_EQ(window->project()->subtitles().size(), 1);
    EXPECT_FALSE(window->attachedSheets().isEmpty());
}

} // namespace

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    // Chromium will not start its sandbox as root (the CI's containers).
    if (::geteuid() == 0 && qEnvironmentVariableIsEmpty("QTWEBENGINE_CHROMIUM_FLAGS"))
        qputenv("QTWEBENGINE_CHROMIUM_FLAGS", "--no-sandbox");
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    // The user's engine file is read from $XDG_DATA_HOME, which each test points at its own
    // folder (Qt's test mode would put the data folder elsewhere); nothing of the user's is
    // read or written.
    QTemporaryDir home;
    qputenv("XDG_DATA_HOME", home.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
    qputenv("XDG_CACHE_HOME", home.path().toUtf8());
    QApplication app(argc, argv);
    return RUN_ALL_TESTS();
}

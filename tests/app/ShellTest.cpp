// The application around the project window: the disclaimer, quitting with unsaved changes
// and with running tasks, the preferences taking effect at once, the encoding and language
// pop-ups, Open Recent and the replace field. Offscreen, with a fake player.
#include "CTAppDelegate.h"
#include "CTPreferenceController.h"
#include "LocaleNames.h"
#include "Log.h"
#include "MainQueue.h"
#include "PreferencesWindow.h"
#include "ProgressWindow.h"
#include "ProjectWindow.h"
#include "RecentFilesMenu.h"
#include "Settings.h"
#include "TestSupport.h"
#include "VHEncoding.h"
#include "VHEncodingPopupButton.h"
#include "VHLanguagePopUpButton.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class ShellPlayer final : public PlaybackControl
{
public:
    explicit ShellPlayer(int kind)
        : m_kind(kind)
    {}
    QWidget view;
    PlaybackControlDelegate *delegate = nullptr;
    int kind() const override { return m_kind; }
    bool hasMovie() const override { return true; }
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
    void unloadMovie() override {}
    void setDelegate(PlaybackControlDelegate *d) override { delegate = d; }
    double aspectRatio() const override { return 16.0 / 9.0; }
    QList<AudioTrackItem> audioMenuItems() const override { return {}; }

private:
    int m_kind;
};

class ShellTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        MainQueue::main().drain();
        Settings::shared().useFile(dir.path(u"settings.ini"_s));
        Settings::shared().setValue(u"Locale"_s, u"en"_s);
        Settings::shared().setValue(u"AutoOpenSearch"_s, false);
        LocaleNames::setInterfaceLanguage(u"en"_s);
        VHLanguagePopUpButton::setPreferredLanguagesOverride(QStringList{u"de_DE"_s, u"en_US"_s});
        VHLanguagePopUpButton::updateLanguages();
        window = std::make_unique<ProjectWindow>();
        window->setPlayers(
            [this](int kind) -> PlaybackControl * {
                kinds << kind;
                return new ShellPlayer(kind);
            },
            [](PlaybackControl *player) -> QWidget * { return &static_cast<ShellPlayer *>(player)->view; });
        progress = new ProgressWindow(window.get());
        delegate = new CTAppDelegate(*window, *progress);
        window->start();
        window->show();
    }
    void TearDown() override
    {
        MainQueue::main().drain();
        window.reset();
        VHLanguagePopUpButton::setPreferredLanguagesOverride(std::nullopt);
    }
    ShellPlayer *player() const { return static_cast<ShellPlayer *>(window->project()->movieController()); }
    void openMovie(const QString &path)
    {
        window->project()->setMoviePath(path);
        player()->delegate->movieControllerDidLoadMovie(player());
        QCoreApplication::processEvents();
    }
    PreferencesWindow *preferences()
    {
        delegate->action(u"showPreferences:"_s)->trigger();
        return delegate->preferencesWindow();
    }
    // Chooses an item of a pop-up as the user does.
    static void choose(QComboBox *popup, int index)
    {
        popup->setCurrentIndex(index);
        Q_EMIT popup->activated(index);
    }

    TempDir dir;
    ScriptedPrompter prompter;
    ScopedPrompter scopedPrompter{&prompter};
    LogCapture log;
    QList<int> kinds;
    std::unique_ptr<ProjectWindow> window;
    ProgressWindow *progress = nullptr;
    CTAppDelegate *delegate = nullptr;
};

TEST_F(ShellTest, TheDisclaimerShowsUntilItIsUnderstood)
{
    // "Quit" ends the start and leaves the disclaimer for the next one.
    prompter.answers = {{1}};
    EXPECT_FALSE(delegate->applicationDidFinishLaunching());
    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(prompter.prompts[0].message, u"Disclaimer"_s);
    EXPECT_EQ(prompter.prompts[0].informative,
              u"Studios can protect a Movie's/TV-show's dialog and translations with a copyright. For those "
              "movies/TV-shows creating or downloading a subtitle infringes copyright law."_s);
    EXPECT_EQ(prompter.prompts[0].buttons, (QStringList{u"Understood"_s, u"Quit"_s}));
    EXPECT_FALSE(Settings::shared().hasStoredValue(u"ShownDisclaimer"_s));

    // Closing the alert without a choice is no acceptance either.
    prompter.answers = {{-1}};
    EXPECT_FALSE(delegate->applicationDidFinishLaunching());

    prompter.answers = {{0}};
    EXPECT_TRUE(delegate->applicationDidFinishLaunching());
    EXPECT_TRUE(Settings::shared().boolValue(u"ShownDisclaimer"_s));
    EXPECT_TRUE(delegate->applicationDidFinishLaunching());
    EXPECT_EQ(prompter.prompts.size(), 3);

    // Reset Messages brings it back, with the Tap2Sync explanation.
    Settings::shared().setValue(u"ShownTap2Sync"_s, true);
    delegate->action(u"resetMessages:"_s)->trigger();
    EXPECT_FALSE(Settings::shared().boolValue(u"ShownTap2Sync"_s));
    prompter.answers = {{0}};
    EXPECT_TRUE(delegate->applicationDidFinishLaunching());
    EXPECT_EQ(prompter.prompts.size(), 4);
}

TEST_F(ShellTest, QuittingAsksAboutUnsavedChangesBeforeTasks)
{
    auto task = std::make_shared<ProgressStatus>();
    task->setTitle(u"Embedding Subtitles into Film"_s);
    task->setProgress(0.4);
    progress->addProgressStatus(task);
    window->project()->setHasChanged(true);
    prompter.answers = {{2}}; // "Cancel" in the unsaved-changes question
    EXPECT_EQ(delegate->applicationShouldTerminate(), CTAppDelegate::TerminateCancel);
    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(prompter.prompts[0].message, u"You have unsaved changes. Do you want to save them?"_s);
}

TEST_F(ShellTest, QuittingWhileATaskRunsOffersToStopItAndQuitsWhenItHasStopped)
{
    EXPECT_EQ(delegate->applicationShouldTerminate(), CTAppDelegate::TerminateNow);
    EXPECT_TRUE(prompter.prompts.isEmpty());

    auto task = std::make_shared<ProgressStatus>();
    task->setTitle(u"Embedding Subtitles into Film"_s);
    int cancelled = 0;
    task->cancelBlock = [&] { ++cancelled; };
    task->setProgress(0.25);
    progress->addProgressStatus(task);
    auto finished = std::make_shared<ProgressStatus>();
    finished->setTitle(u"Extract Subtitles"_s);
    finished->setProgress(ProgressStatus::Done);
    progress->addProgressStatus(finished);

    // "Keep Working": nothing stops, nothing quits.
    prompter.answers = {{1}};
    EXPECT_EQ(delegate->applicationShouldTerminate(), CTAppDelegate::TerminateCancel);
    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(prompter.prompts[0].buttons, (QStringList{u"Stop and Quit"_s, u"Keep Working"_s}));
    EXPECT_TRUE(prompter.prompts[0].informative.contains(u"Embedding Subtitles into Film"_s));
    EXPECT_FALSE(prompter.prompts[0].informative.contains(u"Extract Subtitles"_s));
    EXPECT_EQ(cancelled, 0);
    EXPECT_TRUE(progress->isVisible());

    // The Quit command: the task is cancelled, and the program waits for it to stop.
    prompter.answers = {{0}};
    window->runCommand(u"terminate:"_s);
    EXPECT_EQ(cancelled, 1);
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(progress->canQuit());
    // Asking again while it stops asks nothing more.
    EXPECT_EQ(delegate->applicationShouldTerminate(), CTAppDelegate::TerminateLater);
    EXPECT_EQ(prompter.prompts.size(), 2);
    task->setProgress(ProgressStatus::Stopped);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(ShellTest, ClosingTheWindowIsQuittingAndAWaitingTaskStopsAtOnce)
{
    auto waiting = std::make_shared<ProgressStatus>();
    waiting->setTitle(u"Embedding Subtitles into Other"_s);
    waiting->setProgress(ProgressStatus::Waiting);
    progress->addProgressStatus(waiting);
    prompter.answers = {{1}};
    window->close();
    QCoreApplication::processEvents();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(prompter.prompts.size(), 1);

    prompter.answers = {{0}};
    window->close();
    QCoreApplication::processEvents();
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(waiting->progress(), ProgressStatus::Stopped);
    ASSERT_EQ(progress->rows().size(), 1);
    EXPECT_EQ(progress->rows()[0]->state->text(), u"Cancelled"_s);
}

TEST_F(ShellTest, TheTaskListShowsEachStateAndKeepsADoneRunDone)
{
    auto task = std::make_shared<ProgressStatus>();
    task->setTitle(u"Embedding Subtitles into Film"_s);
    task->setProgress(ProgressStatus::Waiting);
    progress->addProgressStatus(task);
    ProgressWindow::Row *row = progress->rows().at(0);
    EXPECT_EQ(row->title->text(), u"Embedding Subtitles into Film"_s);
    EXPECT_EQ(row->state->text(), u"Waiting"_s);
    EXPECT_TRUE(row->cancel->isEnabled());
    task->cancelBlock = [] {};
    task->setProgress(0.5);
    EXPECT_EQ(row->bar->value(), 500);
    EXPECT_EQ(row->state->text(), u"50 %"_s);
    task->setProgress(ProgressStatus::Busy);
    task->setMessage(u"Optimizing"_s);
    EXPECT_EQ(row->bar->maximum(), 0); // indeterminate
    EXPECT_EQ(row->state->text(), u"Optimizing"_s);
    // A successful embedding ends with "done" and then the final "stopped".
    task->setProgress(ProgressStatus::Done);
    task->setMessage(QString());
    task->setRelatedURL(dir.path(u"Film.m4v"_s));
    task->setProgress(ProgressStatus::Stopped);
    EXPECT_EQ(row->state->text(), u"Done"_s);
    EXPECT_EQ(row->bar->value(), row->bar->maximum());
    EXPECT_FALSE(row->cancel->isEnabled());
    EXPECT_FALSE(row->show->isHidden());

    auto failed = std::make_shared<ProgressStatus>();
    failed->setTitle(u"Embedding Subtitles into Broken"_s);
    progress->addProgressStatus(failed);
    failed->setErrorMessage(u"Audio-Video engine gave back the following error:\nbroken"_s);
    failed->setMessage(u"Failed: Broken Data"_s);
    failed->setProgress(ProgressStatus::Failed);
    ProgressWindow::Row *failedRow = progress->rows().at(1);
    EXPECT_EQ(failedRow->state->text(), u"Failed: Broken Data"_s);
    EXPECT_EQ(failedRow->error->text(), u"Audio-Video engine gave back the following error:\nbroken"_s);
    EXPECT_FALSE(failedRow->error->isHidden());

    progress->clearFinished();
    EXPECT_TRUE(progress->rows().isEmpty());
}

TEST_F(ShellTest, TheEncodingPopupOffersTheCatalogueUnderOneNamePerNumber)
{
    VHEncodingPopupButton popup;
    EXPECT_EQ(popup.count(), 48);
    EXPECT_EQ(popup.itemText(0), u"Automatic"_s);
    EXPECT_TRUE(popup.itemData(23).isNull()); // the separator after "Non Lossy ASCII"
    EXPECT_EQ(popup.itemText(22), u"Non Lossy ASCII"_s);
    popup.selectItemWithEncoding(12);
    EXPECT_EQ(popup.currentText(), u"Window Latin 1"_s);
    EXPECT_EQ(popup.selectedEncoding(), 12u);
    popup.selectItemWithEncoding(0x7777);
    EXPECT_EQ(popup.currentIndex(), -1);
    EXPECT_EQ(popup.selectedEncoding(), 0u);

    // Choosing "Windows CP1252" shows the number under its first name, and sends the action.
    int actions = 0;
    popup.action = [&] { ++actions; };
    const int cp1252 = popup.findText(u"Windows CP1252"_s);
    ASSERT_GT(cp1252, 0);
    choose(&popup, cp1252);
    EXPECT_EQ(popup.currentText(), u"Window Latin 1"_s);
    EXPECT_EQ(actions, 1);
}

TEST_F(ShellTest, TheLanguagePopupListsPreferredLanguagesInTheirOwnNames)
{
    VHLanguagePopUpButton::setPreferredLanguagesOverride(QStringList{u"en_US"_s, u"en_GB"_s, u"fr_CA"_s});
    Settings::shared().setValue(VHLanguagePopUpButton::IgnoreCountryKey, true);
    VHLanguagePopUpButton::updateLanguages();
    EXPECT_EQ(VHLanguagePopUpButton::languageIdentifiers(),
              (QStringList{QString(), u"en"_s, u"en"_s, u"fr"_s}));
    EXPECT_EQ(VHLanguagePopUpButton::languageNames().first(), u"Unknown"_s);
    EXPECT_EQ(VHLanguagePopUpButton::languageNames().at(3), LocaleNames::nativeDisplayName(u"fr"_s));
    EXPECT_TRUE(VHLanguagePopUpButton::languageNames().at(3).startsWith(u"fran"_s));

    VHLanguagePopUpButton popup;
    EXPECT_EQ(popup.count(), 6); // four names, a separator, "Add more languages ..."
    EXPECT_EQ(popup.itemText(5), u"Add more languages ..."_s);
    popup.setSelectedID(u"fr_CA"_s);
    EXPECT_EQ(popup.selectedID(), u"fr"_s);
    popup.setSelectedID(u"ja"_s);
    EXPECT_EQ(popup.selectedTag(), 0);
    int more = 0;
    const auto previousHandler = VHLanguagePopUpButton::moreLanguagesHandler;
    VHLanguagePopUpButton::moreLanguagesHandler = [&](QWidget *) { ++more; };
    popup.setSelectedID(u"en"_s);
    choose(&popup, 5);
    VHLanguagePopUpButton::moreLanguagesHandler = previousHandler;
    EXPECT_EQ(more, 1);
    EXPECT_EQ(popup.selectedTag(), 0);

    // With the region the variants are told apart, and the pop-up keeps its language.
    popup.setSelectedID(u"fr"_s);
    Settings::shared().setValue(VHLanguagePopUpButton::IgnoreCountryKey, false);
    VHLanguagePopUpButton::updateLanguages();
    EXPECT_EQ(VHLanguagePopUpButton::languageIdentifiers(),
              (QStringList{QString(), u"en_US"_s, u"en_GB"_s, u"fr_CA"_s}));
    EXPECT_EQ(popup.selectedID(), u"fr_CA"_s);
    EXPECT_EQ(popup.count(), 6);
}

TEST_F(ShellTest, TheReadingEncodingCountsFromTheNextFileRead)
{
    // 0xE6 is "æ" in ISO Latin 1 and "ć" in ISO Latin 2; the file is not UTF-8.
    const QString file = dir.write(u"Notes.srt"_s, "1\n00:00:01,000 --> 00:00:02,000\nxx \xE6 yy\n\n");
    PreferencesWindow *prefs = preferences();
    ASSERT_NE(prefs, nullptr);
    EXPECT_EQ(prefs->encodingButton()->currentText(), u"Automatic"_s);
    choose(prefs->encodingButton(), prefs->encodingButton()->findText(u"ISO Latin 2"_s));
    EXPECT_EQ(Settings::shared().integerValue(u"Encoding"_s), 9);
    EXPECT_TRUE(delegate->applicationOpenFile(file));
    MainQueue::main().drain();
    ASSERT_EQ(window->project()->subtitles().size(), 1);
    EXPECT_EQ(window->project()->subtitles()[0]->string(), u"xx ć yy"_s);

    choose(prefs->encodingButton(), prefs->encodingButton()->findText(u"ISO Latin 1"_s));
    window->project()->reloadSubtitle();
    ASSERT_EQ(window->project()->subtitles().size(), 1);
    EXPECT_EQ(window->project()->subtitles()[0]->string(), u"xx æ yy"_s);
}

TEST_F(ShellTest, TheExportEncodingFollowsTheReadingOneUntilChosen)
{
    PreferencesWindow *prefs = preferences();
    VHEncodingPopupButton *exportButton = prefs->exportEncodingButton();
    EXPECT_EQ(exportButton->currentText(), u"Same as for reading"_s);
    choose(prefs->encodingButton(), prefs->encodingButton()->findText(u"Cyrillic (Windows)"_s));
    const qint64 cyrillic = Settings::shared().integerValue(u"Encoding"_s);
    EXPECT_EQ(Settings::shared().integerValue(u"ExportEncoding"_s), cyrillic);
    EXPECT_FALSE(Settings::shared().hasStoredValue(u"ExportEncoding"_s));

    choose(exportButton, exportButton->findText(u"UTF-8"_s));
    EXPECT_EQ(Settings::shared().integerValue(u"ExportEncoding"_s), 4);
    // Choosing a reading encoding no longer moves an export encoding of the user's own.
    choose(prefs->encodingButton(), prefs->encodingButton()->findText(u"ISO Latin 2"_s));
    EXPECT_EQ(Settings::shared().integerValue(u"ExportEncoding"_s), 4);
    // An export stores what was chosen there; the window shows it.
    Settings::shared().setValue(u"ExportEncoding"_s, 5);
    EXPECT_EQ(exportButton->currentText(), u"ISO Latin 1"_s);

    choose(exportButton, 0);
    EXPECT_FALSE(Settings::shared().hasStoredValue(u"ExportEncoding"_s));
    EXPECT_EQ(Settings::shared().integerValue(u"ExportEncoding"_s), 9);
}

TEST_F(ShellTest, PreferencesAreStoredAtOnceAndFollowTheSettings)
{
    PreferencesWindow *prefs = preferences();
    EXPECT_DOUBLE_EQ(prefs->tapRewindField()->value(), 3.0);
    EXPECT_DOUBLE_EQ(prefs->tapDelayField()->value(), 0.3);
    EXPECT_DOUBLE_EQ(prefs->readingSpeedField()->value(), 17);
    EXPECT_EQ(prefs->autosaveField()->value(), 30);
    prefs->tapRewindField()->setValue(5);
    prefs->tapDelayField()->setValue(0.5);
    prefs->readingSpeedField()->setValue(21);
    prefs->autosaveField()->setValue(120);
    Settings &settings = Settings::shared();
    EXPECT_DOUBLE_EQ(settings.doubleValue(u"TapRewindSecs"_s), 5);
    EXPECT_DOUBLE_EQ(settings.doubleValue(u"TapDelaySecs"_s), 0.5);
    EXPECT_DOUBLE_EQ(settings.doubleValue(u"MaxCharactersPerSecond"_s), 21);
    EXPECT_EQ(settings.integerValue(u"AutosaveInterval"_s), 120);
    // Typing a value stores it as typed: the field is not refilled under the typing.
    QDoubleSpinBox *rewind = prefs->tapRewindField();
    rewind->setFocus();
    rewind->selectAll();
    QTest::keyClicks(rewind, u"4.5"_s);
    EXPECT_DOUBLE_EQ(settings.doubleValue(u"TapRewindSecs"_s), 4.5);
    EXPECT_DOUBLE_EQ(rewind->value(), 4.5);
    // A decimal comma is a decimal point too, in any locale.
    rewind->selectAll();
    QTest::keyClicks(rewind, u"2,5"_s);
    EXPECT_DOUBLE_EQ(settings.doubleValue(u"TapRewindSecs"_s), 2.5);
    settings.setValue(u"TapDelaySecs"_s, 0.25);
    EXPECT_DOUBLE_EQ(prefs->tapDelayField()->value(), 0.25);

    // The interface language is stored for the next start; the subtitle file of that
    // language opens first from the next movie on.
    EXPECT_EQ(prefs->languageButton()->selectedID(), u"en"_s);
    choose(prefs->languageButton(), 1);
    EXPECT_EQ(settings.stringValue(u"Locale"_s), u"de"_s);
    EXPECT_EQ(CTAppDelegate::interfaceLocale().language(), QLocale::German);

    // Listing the regions rebuilds the languages at once; the choice stays on its language.
    prefs->ignoreCountryBox()->setChecked(false);
    EXPECT_FALSE(settings.boolValue(u"VHLanguageIgnoreCountry"_s));
    EXPECT_EQ(VHLanguagePopUpButton::languageIdentifiers(), (QStringList{QString(), u"de_DE"_s, u"en_US"_s}));
    EXPECT_EQ(prefs->languageButton()->selectedID(), u"de_DE"_s);
}

TEST_F(ShellTest, TheChosenPlayerTriesTheNextMovieFirst)
{
    const QString movie = dir.write(u"Film.mp4"_s, "movie");
    dir.write(u"Film.en.srt"_s, "1\n00:00:01,000 --> 00:00:02,000\nHello\n\n");
    dir.write(u"Film.de.srt"_s, "1\n00:00:01,000 --> 00:00:02,000\nHallo\n\n");
    openMovie(movie);
    EXPECT_EQ(kinds, QList<int>{1});
    EXPECT_EQ(window->project()->subtitles()[0]->string(), u"Hello"_s);

    PreferencesWindow *prefs = preferences();
    choose(prefs->playerButton(), 1);
    EXPECT_EQ(Settings::shared().integerValue(u"PreferredPlayer"_s), 2);
    choose(prefs->languageButton(), 1); // Deutsch
    window->project()->setMoviePath(QString());
    openMovie(movie);
    EXPECT_EQ(kinds.last(), 2);
    EXPECT_EQ(window->project()->movieKind(), 2);
    EXPECT_EQ(window->project()->subtitles()[0]->string(), u"Hallo"_s);

    // A movie the first player cannot open goes to the other one.
    window->project()->setMoviePath(QString());
    kinds.clear();
    window->project()->setMoviePath(movie);
    player()->delegate->movieControllerFaildLoading(player());
    EXPECT_EQ(kinds, (QList<int>{2, 1}));
}

TEST_F(ShellTest, TheWindowSaysWhenSavedChangesAreNotInTheMovieYet)
{
    const QString movie = dir.write(u"Film.mp4"_s, "movie");
    dir.write(u"Film.en.srt"_s, "1\n00:00:01,000 --> 00:00:02,000\nHello\n\n");
    openMovie(movie);
    QLabel *note = delegate->needToEmbedLabel();
    EXPECT_FALSE(note->isVisible());
    window->project()->setSelectionIndices({0});
    window->project()->setSubtitleText(u"Hello again"_s);
    EXPECT_FALSE(note->isVisible()); // not saved yet
    window->project()->saveSubtitle();
    EXPECT_TRUE(window->project()->needToEmbed());
    EXPECT_TRUE(note->isVisible());
    // Another movie starts with nothing to embed.
    openMovie(dir.write(u"Other.mp4"_s, "movie"));
    EXPECT_FALSE(note->isVisible());
}

TEST_F(ShellTest, OpenRecentListsMoviesThatOpenedAndOpensThem)
{
    const QString first = dir.write(u"First.mp4"_s, "movie");
    const QString second = dir.write(u"Second.mp4"_s, "movie");
    openMovie(first);
    openMovie(second);
    EXPECT_EQ(RecentFilesMenu::files(), (QStringList{second, first}));
    RecentFilesMenu *menu = delegate->recentFiles();
    ASSERT_NE(menu, nullptr);
    Q_EMIT menu->aboutToShow();
    ASSERT_EQ(menu->actions().size(), 4); // two files, a separator, "Clear Menu"
    EXPECT_TRUE(menu->actions()[1]->text().startsWith(u"First.mp4"_s));
    QFile::remove(second);
    Q_EMIT menu->aboutToShow();
    EXPECT_FALSE(menu->actions()[0]->isEnabled());
    menu->actions()[1]->trigger();
    MainQueue::main().drain();
    EXPECT_EQ(window->project()->moviePath(), first);
    EXPECT_FALSE(delegate->applicationOpenFile(second));
    EXPECT_FALSE(delegate->applicationOpenFile(dir.write(u"notes.odt"_s, "text")));
    menu->actions().last()->trigger();
    EXPECT_TRUE(RecentFilesMenu::files().isEmpty());
}

TEST_F(ShellTest, FindAndReplaceShowsTheReplaceField)
{
    EXPECT_FALSE(window->replaceField()->isVisible());
    QAction *replace = delegate->action(u"showReplace:"_s);
    ASSERT_NE(replace, nullptr);
    EXPECT_EQ(replace->shortcut(),
              QKeySequence(Qt::CTRL | Qt::Key_H)); // on every desktop, as the README says
    replace->trigger();
    EXPECT_TRUE(window->project()->showReplace());
    EXPECT_TRUE(window->replaceField()->isVisible());
    EXPECT_TRUE(window->replaceField()->hasFocus() || !QApplication::activeWindow());
    replace->trigger();
    EXPECT_FALSE(window->project()->showReplace());
    EXPECT_FALSE(window->replaceField()->isVisible());

    // Preferences sit in the Edit menu under Ctrl+,; no menu offers an update check.
    QAction *preferencesItem = delegate->action(u"showPreferences:"_s);
    EXPECT_EQ(preferencesItem->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Comma));
    for (QAction *menu : window->menuBar()->actions())
        for (QAction *item : menu->menu()->actions())
            EXPECT_FALSE(item->text().contains(u"Update"_s, Qt::CaseInsensitive))
                << item->text().toStdString();
}

} // namespace

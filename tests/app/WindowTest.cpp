// The project window through its widgets, with a fake player standing in for libmpv/libVLC.
#include "CTFixButton.h"
#include "CueTableModel.h"
#include "LocaleNames.h"
#include "Log.h"
#include "MainQueue.h"
#include "MoviePlaceholder.h"
#include "PlaybackMenu.h"
#include "ProjectWindow.h"
#include "Settings.h"
#include "TestSupport.h"
#include "VHTimeValueTransformer.h"
#include "WindowPrompter.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSlider>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
// A player whose picture is a plain widget; loading succeeds or fails as the test says and
// is reported when the test calls finishLoading().
class FakePlayer final : public PlaybackControl
{
public:
    explicit FakePlayer(int kind, bool loadable)
        : m_kind(kind)
        , m_loadable(loadable)
    {}
    QWidget view;
    PlaybackControlDelegate *delegate = nullptr;
    bool movie = false, playing = false;
    double time = 0, rate = 1;
    QList<double> seeks;
    QList<AudioTrackItem> audio;

    int kind() const override { return m_kind; }
    bool hasMovie() const override { return movie; }
    double currentTime() const override { return time; }
    void setCurrentTime(double seconds) override
    {
        seeks << seconds;
        time = seconds;
        if (delegate)
            delegate->movieControllerChangedTime(this, seconds);
    }
    double fps() const override { return 25; }
    double duration() const override { return 60; }
    bool isPlaying() const override { return playing; }
    void setPlaying(bool p) override
    {
        playing = p;
        if (delegate)
            delegate->movieControllerChangedPlaying(this, p);
    }
    void setSubtitles(const SubtitleList &) override {}
    void setShowSubtitle(bool) override {}
    void redrawCurrentSubtitle() override {}
    qsizetype currentSegmentIndex() const override { return 0; }
    bool loadMovieURL(const QString &) override { return m_loadable; }
    void unloadMovie() override { movie = false; }
    void setDelegate(PlaybackControlDelegate *d) override { delegate = d; }
    double aspectRatio() const override { return 2.0; }
    QList<AudioTrackItem> audioMenuItems() const override { return audio; }
    double speed() const override { return rate; }
    void setSpeed(double s) override { rate = s; }
    // Playback moves the time on and reports it, as the player's periodic update.
    void playFor(double seconds)
    {
        time += seconds;
        if (delegate)
            delegate->movieControllerChangedTime(this, time);
    }

private:
    int m_kind;
    bool m_loadable;
};

class WindowTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        MainQueue::main().drain();
        Settings::shared().useFile(dir.path(u"settings.ini"_s));
        Settings::shared().setValue(u"Locale"_s, u"en"_s);
        Settings::shared().setValue(u"AutoOpenSearch"_s, false);
        LocaleNames::setInterfaceLanguage(u"en"_s);
        window = std::make_unique<ProjectWindow>();
        window->setPlayers(
            [this](int kind) -> PlaybackControl * {
                auto *player = new FakePlayer(kind, kind == 1 ? firstLoads : true);
                player->audio = audio;
                players << player;
                return player;
            },
            [](PlaybackControl *player) -> QWidget * { return &static_cast<FakePlayer *>(player)->view; });
        window->start();
        window->show();
        QApplication::setActiveWindow(window.get());
        movie = dir.write(u"Film.mp4"_s, "movie");
    }
    void TearDown() override
    {
        MainQueue::main().drain();
        window.reset();
    }
    FakePlayer *player() const { return static_cast<FakePlayer *>(window->project()->movieController()); }
    // Opens Film.mp4 with Film.en.srt beside it (three lines) and lets the player report it loaded.
    void openMovieWithSubtitles()
    {
        dir.write(u"Film.en.srt"_s, "1\n00:00:01,000 --> 00:00:02,000\nHello there\n\n"
                                    "2\n00:00:05,000 --> 00:00:07,500\nSecond line\n\n"
                                    "3\n00:00:10,000 --> 00:00:12,000\nThird hello\n\n");
        window->project()->setMoviePath(movie);
        player()->movie = true;
        player()->delegate->movieControllerDidLoadMovie(player());
        QCoreApplication::processEvents();
    }
    QList<int> selectedRows() const
    {
        QList<int> rows;
        for (const QModelIndex &index : window->cueTable()->selectionModel()->selectedRows())
            rows << index.row();
        std::sort(rows.begin(), rows.end());
        return rows;
    }

    TempDir dir;
    ScriptedPrompter prompter;
    ScopedPrompter scopedPrompter{&prompter};
    LogCapture log;
    QList<FakePlayer *> players;
    bool firstLoads = true;
    QList<AudioTrackItem> audio;
    std::unique_ptr<ProjectWindow> window;
    QString movie;
};

TEST_F(WindowTest, ALoadedMovieShowsItsPictureAndTheFilesBesideIt)
{
    audio = {{u"English"_s, 0, false}, {u"French"_s, 1, false}};
    EXPECT_TRUE(window->movieArea()->isBackgroundShown());
    openMovieWithSubtitles();
    EXPECT_EQ(window->movieArea()->playerView(), &players.last()->view);
    EXPECT_TRUE(window->movieArea()->isPlayerViewShown());
    EXPECT_FALSE(window->movieArea()->isBackgroundShown());
    EXPECT_DOUBLE_EQ(window->movieArea()->aspectRatio(), 2.0);
    EXPECT_EQ(window->cueModel()->rowCount(), 3);
    EXPECT_EQ(window->languageButton()->text(), u"English Subtitle"_s);
    EXPECT_TRUE(window->windowTitle().startsWith(u"Captora - Film"_s) ||
                window->windowTitle().contains(u"Film"_s));
    ASSERT_EQ(window->audioMenu()->actions().size(), 2);
    EXPECT_TRUE(window->audioMenu()->actions()[0]->isChecked());
    window->audioMenu()->actions()[1]->trigger();
    EXPECT_TRUE(window->audioMenu()->actions()[1]->isChecked());
    EXPECT_EQ(Settings::shared().value(u"AudioTrack"_s).toInt(), 1);
    EXPECT_EQ(window->scrubber()->maximum(), 60000);
    window->scrubber()->setSliderPosition(12500);
    window->scrubber()->triggerAction(QAbstractSlider::SliderMove);
    EXPECT_DOUBLE_EQ(players.last()->time, 12.5);
    EXPECT_EQ(window->project()->currentTime(), 12.5);
    EXPECT_EQ(window->frameSteps().size(), 4);
}

TEST_F(WindowTest, AMovieNeitherPlayerOpensLeavesTheBackgroundAndNoAudioTrack)
{
    firstLoads = false;
    window->project()->setMoviePath(movie);
    FakePlayer *fallback = player();
    ASSERT_EQ(fallback->kind(), 2);
    fallback->delegate->movieControllerFaildLoading(fallback);
    QCoreApplication::processEvents(); // the released players go
    EXPECT_EQ(window->project()->movieController(), nullptr);
    EXPECT_EQ(window->movieArea()->playerView(), nullptr);
    EXPECT_TRUE(window->movieArea()->isBackgroundShown());
    EXPECT_TRUE(window->movieArea()->message().startsWith(u"Drop a movie here"_s));
    ASSERT_EQ(window->audioMenu()->actions().size(), 1);
    EXPECT_EQ(window->audioMenu()->actions()[0]->text(), u"No Audio Track"_s);
    EXPECT_FALSE(window->audioMenu()->actions()[0]->isEnabled());
    EXPECT_EQ(log.count(u"Warning: Movie at %1 could not be opened!"_s.arg(movie)), 1);
}

TEST_F(WindowTest, SelectionGoesBothWaysAndAClickSeeks)
{
    openMovieWithSubtitles();
    QTableView *table = window->cueTable();
    table->selectRow(1);
    EXPECT_EQ(window->project()->selectionIndices(), QList<qsizetype>{1});
    ASSERT_FALSE(player()->seeks.isEmpty());
    EXPECT_DOUBLE_EQ(player()->seeks.last(), 5.0001);
    EXPECT_EQ(window->startField()->text(), VHTimeValueTransformer::stringForTime(5));
    EXPECT_EQ(window->durationField()->text(), VHTimeValueTransformer::stringForTime(2.5));
    EXPECT_EQ(window->textField()->toPlainText(), u"Second line"_s);

    window->project()->setSelectionIndices({0, 2});
    EXPECT_EQ(selectedRows(), (QList<int>{0, 2}));
    EXPECT_FALSE(window->project()->currentSubtitle());
    EXPECT_FALSE(window->textField()->isEnabled());
    window->project()->silentGotoNextSubtitle(); // from no single row: clears
    window->project()->setSelectionIndices({2});
    EXPECT_EQ(selectedRows(), QList<int>{2});
    EXPECT_EQ(window->textField()->toPlainText(), u"Third hello"_s);
}

TEST_F(WindowTest, EditorFieldsAndCueFollowEachOther)
{
    openMovieWithSubtitles();
    window->cueTable()->selectRow(0);
    const SubtitlePtr cue = window->project()->currentSubtitle();
    ASSERT_TRUE(cue);

    window->textField()->setPlainText(u"Hello\nthere"_s);
    EXPECT_EQ(cue->string(), u"Hello\nthere"_s);
    EXPECT_TRUE(window->project()->hasChanged());
    EXPECT_TRUE(window->isWindowModified());
    EXPECT_EQ(window->cueModel()
                  ->data(window->cueModel()->index(0, CueTableModel::TextColumn), Qt::DisplayRole)
                  .toString(),
              u"Hello / there"_s);

    window->durationField()->setText(u"00:00:01,500"_s);
    Q_EMIT window->durationField()->editingFinished();
    EXPECT_DOUBLE_EQ(cue->end(), 2.5);

    cue->setForced(true); // a change from elsewhere shows in the check box and the table
    window->project()->setSelectionIndices({0});
    EXPECT_EQ(window->forcedBox()->checkState(), Qt::Checked);
    EXPECT_EQ(window->cueModel()->data(window->cueModel()->index(0, CueTableModel::ForcedColumn),
                                       Qt::CheckStateRole),
              Qt::Checked);
}

TEST_F(WindowTest, TheSearchFieldFiltersTheTable)
{
    openMovieWithSubtitles();
    QTest::keyClicks(window->searchField(), u"HELLO"_s);
    ASSERT_EQ(window->cueModel()->rowCount(), 2);
    EXPECT_EQ(window->cueModel()
                  ->data(window->cueModel()->index(1, CueTableModel::StartColumn), Qt::DisplayRole)
                  .toString(),
              VHTimeValueTransformer::stringForTime(10));
    window->cueTable()->selectRow(1);
    EXPECT_EQ(window->project()->currentSubtitle()->string(), u"Third hello"_s);
    window->searchField()->clear();
    EXPECT_EQ(window->cueModel()->rowCount(), 3);

    // Replacing the searched text takes the lines out of the filtered table.
    window->searchField()->setText(u"hello"_s);
    ASSERT_EQ(window->cueModel()->rowCount(), 2);
    window->project()->replaceAll(u"hello"_s, u"bye"_s);
    EXPECT_EQ(window->cueModel()->rowCount(), 0);
    window->searchField()->clear();
    EXPECT_EQ(window->project()->subtitles()[0]->string(), u"bye there"_s);
    EXPECT_EQ(window->cueModel()->rowCount(), 3);
}

TEST_F(WindowTest, Tap2SyncGivesTheSpaceBarToTheFixControl)
{
    openMovieWithSubtitles();
    Settings::shared().setValue(u"ShownTap2Sync"_s, true);
    window->cueTable()->selectRow(0);
    window->runCommand(u"toggleTap2Sync:"_s);
    ASSERT_EQ(window->project()->fixMode(), FixMode::Tap2Sync);
    EXPECT_TRUE(window->action(u"playPause:"_s)->shortcut().isEmpty());
    EXPECT_EQ(window->fixButton()->title(), u"Tap"_s);
    EXPECT_EQ(QApplication::focusWidget(), window->fixButton());

    player()->time = 1.5;
    QTest::keyClick(window->fixButton(), Qt::Key_Space);
    EXPECT_DOUBLE_EQ(window->project()->subtitles()[0]->start(), 1.2);     // less the reaction time
    EXPECT_EQ(window->project()->selectionIndices(), QList<qsizetype>{1}); // on to the next line

    QTest::keyClick(window->fixButton(), Qt::Key_Escape);
    EXPECT_EQ(window->project()->fixMode(), FixMode::Fix);
    EXPECT_EQ(window->action(u"playPause:"_s)->shortcut(), QKeySequence(Qt::Key_Space));
    EXPECT_EQ(window->fixButton()->title(), u"Fix"_s);
}

TEST_F(WindowTest, ASheetIsModalForTheWindowAndDisablesTheMenus)
{
    openMovieWithSubtitles();
    window->runCommand(u"fixDuration:"_s);
    ASSERT_TRUE(window->hasAttachedSheet());
    const QList<Sheet> sheets = window->attachedSheets();
    ASSERT_EQ(sheets.size(), 1);
    EXPECT_EQ(sheets[0].kind, u"FixDuration"_s);
    QWidget *dialog = QApplication::activeModalWidget();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->windowModality(), Qt::WindowModal);
    window->refreshMenus();
    EXPECT_FALSE(window->action(u"saveSubtitle:"_s)->isEnabled());

    window->endSheet(sheets[0], 0);
    EXPECT_FALSE(window->hasAttachedSheet());
    window->refreshMenus();
    EXPECT_TRUE(window->action(u"saveSubtitle:"_s)->isEnabled());
}

TEST_F(WindowTest, MenuItemsTakeTheirTitlesAndStatesFromTheProject)
{
    window->refreshMenus();
    EXPECT_FALSE(window->action(u"toggleTap2Sync:"_s)->isEnabled());
    EXPECT_FALSE(window->action(u"saveSubtitle:"_s)->isEnabled());
    EXPECT_FALSE(window->action(u"playPause:"_s)->isEnabled());

    openMovieWithSubtitles();
    window->project()->setSelectionIndices({0, 1});
    window->refreshMenus();
    EXPECT_EQ(window->action(u"deleteSubtitle:"_s)->text(), u"Delete 2 Subtitle Lines"_s);
    EXPECT_EQ(window->action(u"saveSubtitle:"_s)->text(), u"Save Subtitle"_s);
    EXPECT_EQ(window->action(u"addSubtitle:"_s)->text(), u"Add Subtitle Line"_s);
    EXPECT_TRUE(window->action(u"toggleTap2Sync:"_s)->isEnabled());
    EXPECT_FALSE(window->action(u"convertChapterMarkToSubtitle:"_s)->isEnabled());

    // A disabled command does nothing even when its key is pressed.
    window->project()->setSelectionIndices({});
    window->runCommand(u"deleteSubtitle:"_s);
    EXPECT_EQ(window->project()->subtitles().size(), 3);

    // A new line starts with its text being edited in the table.
    window->project()->setSelectionIndices({2});
    window->runCommand(u"addSubtitle:"_s);
    ASSERT_EQ(window->cueModel()->rowCount(), 4);
    EXPECT_NE(window->cueTable()->indexWidget(window->cueTable()->currentIndex()), nullptr); // its editor
    EXPECT_EQ(window->cueTable()->currentIndex().column(), int(CueTableModel::TextColumn));
    EXPECT_EQ(window->project()->selectionIndices().size(), 1);

    window->runCommand(u"playPause:"_s);
    EXPECT_EQ(window->playButton()->text(), u"Pause"_s);
    EXPECT_EQ(window->action(u"playPause:"_s)->text(), u"Pause"_s);
    window->runCommand(u"playPause:"_s);
    EXPECT_EQ(window->playButton()->text(), u"Play"_s);
}

TEST_F(WindowTest, NoTwoMenuItemsShareAKey)
{
    QHash<QString, QString> owner;
    for (QAction *item : window->findChildren<QAction *>()) {
        const QString key = item->shortcut().toString();
        if (key.isEmpty())
            continue;
        EXPECT_FALSE(owner.contains(key)) << key.toStdString() << ": " << item->text().toStdString()
                                          << " and " << owner.value(key).toStdString();
        owner.insert(key, item->text());
    }
    EXPECT_TRUE(owner.contains(QKeySequence(QKeySequence::Save).toString()));
}

TEST_F(WindowTest, ArrowKeysAndSpaceWorkTheMovieExceptInTextFields)
{
    openMovieWithSubtitles();
    window->cueTable()->setFocus();
    QCoreApplication::processEvents();
    const double before = player()->time;
    QTest::keyClick(window->cueTable(), Qt::Key_Right);
    EXPECT_NEAR(player()->time, before + 0.04, 1e-9);
    QTest::keyClick(window->cueTable(), Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_NEAR(player()->time, std::max(0.0, before + 0.04 - 0.2), 1e-9);

    QApplication::setActiveWindow(window.get());
    window->searchField()->setFocus();
    QCoreApplication::processEvents();
    ASSERT_EQ(QApplication::focusWidget(), window->searchField());
    EXPECT_FALSE(window->project()->allowArrows());
    EXPECT_TRUE(window->action(u"stepForward:"_s)->shortcut().isEmpty());
    const double inField = player()->time;
    QTest::keyClick(window->searchField(), Qt::Key_Right);
    EXPECT_DOUBLE_EQ(player()->time, inField);

    // Space types in a text field and plays everywhere else.
    QTest::keyClick(window->searchField(), Qt::Key_Space);
    EXPECT_EQ(window->searchField()->text(), u" "_s);
    EXPECT_FALSE(player()->playing);
    window->searchField()->clear();

    window->cueTable()->setFocus();
    QCoreApplication::processEvents();
    EXPECT_TRUE(window->project()->allowArrows());
    EXPECT_EQ(window->action(u"stepForward:"_s)->shortcut(), QKeySequence(Qt::Key_Right));
    QTest::keyClick(window->cueTable(), Qt::Key_Space);
    EXPECT_TRUE(player()->playing);
    QTest::keyClick(window->cueTable(), Qt::Key_Right); // a step pauses first
    EXPECT_FALSE(player()->playing);
}

TEST_F(WindowTest, ClosingWithUnsavedChangesAsksFirst)
{
    openMovieWithSubtitles();
    window->project()->setHasChanged(true);
    prompter.answers = {PromptAnswer{2, 0, false}}; // Cancel
    EXPECT_FALSE(window->close());
    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(prompter.prompts[0].message, u"You have unsaved changes. Do you want to save them?"_s);
    EXPECT_EQ(prompter.prompts[0].buttons,
              (QStringList{u"Save Subtitle"_s, u"Discard Changes"_s, u"Cancel"_s}));
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->project()->moviePath(), movie);

    prompter.answers = {PromptAnswer{1, 0, false}}; // Discard Changes
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(window->project()->moviePath().isEmpty());
}

TEST_F(WindowTest, QuittingAsksOnceAndKeepsTheMovieForTheNextStart)
{
    openMovieWithSubtitles();
    window->project()->setHasChanged(true);
    prompter.answers = {PromptAnswer{2, 0, false}}; // Cancel
    window->runCommand(u"terminate:"_s);
    EXPECT_TRUE(window->isVisible());

    prompter.prompts.clear();
    prompter.answers = {PromptAnswer{1, 0, false}}; // Discard Changes
    window->runCommand(u"terminate:"_s);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(Settings::shared().stringValue(u"LastVideo"_s), movie);
}

TEST_F(WindowTest, DroppedAndCommandLineFilesOpenAfterTheCurrentEvent)
{
    const QString srt = dir.write(u"Other.srt"_s, "1\n00:00:01,000 --> 00:00:02,000\nDropped\n\n");
    window->openFiles({srt});
    EXPECT_EQ(window->cueModel()->rowCount(), 0);
    MainQueue::main().drain();
    ASSERT_EQ(window->cueModel()->rowCount(), 1);
    EXPECT_EQ(window->project()->subtitlePath(), srt);

    // A real drop of the movie.
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(movie)});
    QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &drop);
    EXPECT_TRUE(drop.isAccepted());
    MainQueue::main().drain();
    EXPECT_EQ(players.size(), 1);
    EXPECT_EQ(player()->kind(), 1);
}

TEST_F(WindowTest, TheFixControlNamesTheModeAndShowsTheShiftInSteps)
{
    CTFixButton button;
    struct Case
    {
        FixMode mode;
        const char *title;
        bool takesFocus;
    };
    for (const Case &c : {Case{FixMode::None, "Fix", false}, Case{FixMode::Fix, "Fix", false},
                          Case{FixMode::Shift, "Shift", false}, Case{FixMode::Single, "Single", false},
                          Case{FixMode::Tap2Sync, "Tap", true}}) {
        button.setFixMode(int(c.mode));
        EXPECT_EQ(button.title(), QString::fromLatin1(c.title));
        EXPECT_EQ(button.focusPolicy() != Qt::NoFocus, c.takesFocus) << int(c.mode);
    }
    button.setTimeShift(1.0);
    EXPECT_EQ(button.subtitle(), u"+1.00s"_s);
    button.setTimeShift(1.004);
    EXPECT_EQ(button.subtitle(), u"+1.00s"_s);
    button.setTimeShift(1.006);
    EXPECT_EQ(button.subtitle(), u"+1.01s"_s);
    button.setTimeShift(-0.25);
    EXPECT_EQ(button.subtitle(), u"-0.25s"_s);

    int taps = 0, escapes = 0;
    button.onTap = [&] { ++taps; };
    button.onEscape = [&] { ++escapes; };
    QTest::keyClick(&button, Qt::Key_A);
    QTest::keyClick(&button, Qt::Key_Space);
    QTest::keyClick(&button, Qt::Key_Escape);
    EXPECT_EQ(taps, 1);
    EXPECT_EQ(escapes, 1);
}

TEST_F(WindowTest, TheFixKeyFixesTheCurrentLineAtThePlayingTime)
{
    openMovieWithSubtitles();
    window->cueTable()->selectRow(1);
    player()->time = 5.5;
    window->cueTable()->setFocus();
    QCoreApplication::processEvents();
    QTest::keyClick(window->cueTable(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(window->project()->subtitles()[1]->start(), 5.5);
    EXPECT_EQ(window->startField()->text(), VHTimeValueTransformer::stringForTime(5.5));
}

TEST_F(WindowTest, TheWindowsPrompterAnswersWithTheButtonChoiceAndBoxTheUserTook)
{
    WindowPrompter windowPrompter(window.get());
    Prompt prompt;
    prompt.message = u"Add Empty Subtitle"_s;
    prompt.buttons = {u"Add"_s, u"Cancel"_s};
    prompt.choices = {{u"English"_s, 3, false}, {QString(), 0, true}, {u"German"_s, 7, false}};
    prompt.selectedTag = 3;
    prompt.checkboxTitle = u"Don't ask again"_s;
    // The user picks German, ticks the box and presses "Add".
    QTimer::singleShot(0, [] {
        QWidget *dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        auto *choices = dialog->findChild<QComboBox *>();
        choices->setCurrentIndex(choices->findText(u"German"_s));
        dialog->findChild<QCheckBox *>()->setChecked(true);
        for (QPushButton *button : dialog->findChildren<QPushButton *>())
            if (button->text() == u"Add"_s)
                button->click();
    });
    const PromptAnswer answer = windowPrompter.ask(prompt);
    EXPECT_EQ(answer.button, 0);
    EXPECT_EQ(answer.selectedTag, 7);
    EXPECT_TRUE(answer.checkboxChecked);

    // Closing the dialog declines: the last button.
    QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
    EXPECT_EQ(windowPrompter.ask(prompt).button, 1);
}
} // namespace

namespace {
QByteArray numberedLines(int count)
{
    QByteArray text;
    for (int i = 0; i < count; ++i)
        text += u"%1\n00:00:%2,000 --> 00:00:%3,000\nLine %1\n\n"_s.arg(i + 1)
                    .arg(i * 5 + 1, 2, 10, QChar(u'0'))
                    .arg(i * 5 + 3, 2, 10, QChar(u'0'))
                    .toUtf8();
    return text;
}

// The language pop-up's entry for a file, as the user picks it.
QAction *languageEntry(ProjectWindow &window, const QString &path)
{
    const LanguageList &languages = window.project()->languages();
    const QList<QAction *> entries = window.languageButton()->menu()->actions();
    for (qsizetype i = 0; i < languages.size() && i < entries.size(); ++i) {
        if (languages[i]->path() == path)
            return entries[i];
    }
    return nullptr;
}
} // namespace

TEST_F(WindowTest, AnotherFileLeavesNoHighlightedRowToActOn)
{
    dir.write(u"Film.en.srt"_s, numberedLines(7));
    dir.write(u"Film.de.srt"_s, numberedLines(2));
    window->project()->setMoviePath(movie);
    player()->movie = true;
    player()->delegate->movieControllerDidLoadMovie(player());
    QCoreApplication::processEvents();
    ASSERT_EQ(window->cueModel()->rowCount(), 7);
    QItemSelectionModel *selection = window->cueTable()->selectionModel();
    auto selectRows = [&](int first, int last) {
        selection->select(QItemSelection(window->cueModel()->index(first, 0),
                                         window->cueModel()->index(last, CueTableModel::ColumnCount - 1)),
                          QItemSelectionModel::ClearAndSelect);
    };

    // Lines 5-7, then the language whose file has two lines, then Forced and Delete.
    selectRows(4, 6);
    ASSERT_EQ(window->project()->selectionIndices().size(), 3);
    QAction *german = languageEntry(*window, dir.path(u"Film.de.srt"_s));
    ASSERT_TRUE(german);
    german->trigger();
    QCoreApplication::processEvents();
    ASSERT_EQ(window->cueModel()->rowCount(), 2);
    EXPECT_TRUE(selectedRows().isEmpty());
    EXPECT_TRUE(window->project()->selectionIndices().isEmpty());
    EXPECT_EQ(window->textField()->toPlainText(), u""_s);
    EXPECT_FALSE(window->forcedBox()->isEnabled());
    window->project()->setForcedState(1); // what a click on the box did
    window->runCommand(u"deleteSubtitle:"_s);
    EXPECT_EQ(window->project()->subtitles().size(), 2);
    EXPECT_FALSE(window->isWindowModified());

    // Lines 1-4, then the chapter marks, twice.
    languageEntry(*window, dir.path(u"Film.en.srt"_s))->trigger();
    QCoreApplication::processEvents();
    ASSERT_EQ(window->cueModel()->rowCount(), 7);
    selectRows(0, 3);
    window->runCommand(u"editChapterMark:"_s);
    QCoreApplication::processEvents();
    ASSERT_TRUE(window->project()->isChaptermark());
    EXPECT_EQ(selectedRows(), QList<int>{0}); // the first mark, just made
    EXPECT_EQ(window->textField()->toPlainText(), u"Chapter 1"_s);
    window->runCommand(u"saveSubtitle:"_s);
    window->runCommand(u"editChapterMark:"_s);
    QCoreApplication::processEvents();
    EXPECT_TRUE(selectedRows().isEmpty());
    EXPECT_EQ(window->forcedBox()->checkState(), Qt::Unchecked);
    window->runCommand(u"deleteSubtitle:"_s);
    EXPECT_EQ(window->project()->subtitles().size(), 1);
}

TEST_F(WindowTest, ANewLineIsSelectedAndTypingReplacesItsTextWhole)
{
    openMovieWithSubtitles();
    window->cueTable()->selectRow(2);
    player()->time = 3; // between the first and the second line
    // Through the key, so that Control is held while the new row is made current (it used to
    // toggle the row's selection off again, leaving the fields empty and the row unrepainted).
    window->cueTable()->setFocus();
    QTest::keyClick(window->cueTable(), Qt::Key_I, Qt::ControlModifier);
    QCoreApplication::processEvents();
    const SubtitleList &lines = window->project()->subtitles();
    ASSERT_EQ(lines.size(), 4);
    EXPECT_EQ(selectedRows(), QList<int>{1});
    EXPECT_EQ(window->project()->currentSubtitle(), lines[1]);
    EXPECT_EQ(window->textField()->toPlainText(), u"Subtitle"_s);
    EXPECT_EQ(window->startField()->text(), VHTimeValueTransformer::stringForTime(3));

    auto *editor = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    ASSERT_TRUE(editor) << "no cell editor has the focus";
    EXPECT_EQ(editor->selectedText(), u"Subtitle"_s);

    // The correction of the new line's end and the repaints that follow it leave the editor
    // alone, and the row shows the corrected duration at once.
    MainQueue::main().drain();
    QCoreApplication::processEvents();
    EXPECT_EQ(editor->selectedText(), u"Subtitle"_s);
    const QModelIndex duration = window->cueModel()->index(1, CueTableModel::DurationColumn);
    EXPECT_EQ(window->cueModel()->data(duration, Qt::DisplayRole).toString(),
              VHTimeValueTransformer::stringForTime(2));
    EXPECT_EQ(window->durationField()->text(), VHTimeValueTransformer::stringForTime(2));

    QTest::keyClicks(editor, u"Ne"_s);
    window->cueModel()->refreshRows(); // as every tick of the playback time does
    MainQueue::main().drain();
    QCoreApplication::processEvents();
    QTest::keyClicks(editor, u"wly added line"_s);
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(lines[1]->string(), u"Newly added line"_s);

    // Adding again while a cell is still being edited keeps what was typed and edits the
    // next new line.
    player()->time = 8;
    window->runCommand(u"addSubtitle:"_s);
    QCoreApplication::processEvents();
    editor = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    ASSERT_TRUE(editor);
    QTest::keyClicks(editor, u"Half"_s);
    player()->time = 9;
    window->runCommand(u"addSubtitle:"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(lines[3]->string(), u"Half"_s);
    editor = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    ASSERT_TRUE(editor) << "no editor for the second new line";
    EXPECT_EQ(editor->selectedText(), u"Subtitle"_s);
    QTest::keyClick(editor, Qt::Key_Escape);
    MainQueue::main().drain();

    window->runCommand(u"saveSubtitle:"_s);
    QFile saved(dir.path(u"Film.en.srt"_s));
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    const QByteArray text = saved.readAll();
    EXPECT_TRUE(text.contains("\nNewly added line\n")) << text.constData();
    EXPECT_TRUE(text.contains("\nHalf\n")) << text.constData();
}

TEST_F(WindowTest, AdjustingDurationsOnlyForSelectedLinesNeedsASelection)
{
    openMovieWithSubtitles();
    auto openSheet = [&]() -> QCheckBox * {
        window->runCommand(u"fixDuration:"_s);
        QWidget *dialog = QApplication::activeModalWidget();
        return dialog ? dialog->findChild<QCheckBox *>(u"durationOnlySelecedCheckbox"_s) : nullptr;
    };
    auto start = [&] {
        auto *buttons = QApplication::activeModalWidget()->findChild<QDialogButtonBox *>();
        buttons->button(QDialogButtonBox::Ok)->click();
        QCoreApplication::processEvents();
    };

    QCheckBox *onlySelected = openSheet();
    ASSERT_TRUE(onlySelected);
    EXPECT_FALSE(onlySelected->isEnabled());
    EXPECT_FALSE(onlySelected->isChecked());
    start();
    EXPECT_FALSE(window->hasAttachedSheet());
    EXPECT_TRUE(window->isWindowModified()); // the title shows the file changed
    EXPECT_TRUE(window->project()->hasChanged());

    window->project()->setHasChanged(false);
    window->project()->setSelectionIndices({1});
    onlySelected = openSheet();
    ASSERT_TRUE(onlySelected);
    EXPECT_TRUE(onlySelected->isEnabled());
    onlySelected->setChecked(true);
    window->endSheet(window->attachedSheets().first(), 0);

    // Ticked before, but now nothing is selected: off and disabled.
    window->project()->setSelectionIndices({});
    onlySelected = openSheet();
    ASSERT_TRUE(onlySelected);
    EXPECT_FALSE(onlySelected->isEnabled());
    EXPECT_FALSE(onlySelected->isChecked());
    window->endSheet(window->attachedSheets().first(), 0);
}

TEST_F(WindowTest, TheSearchKeepsTheSelectedLinesHighlighted)
{
    dir.write(u"Film.en.srt"_s, numberedLines(8));
    window->project()->setMoviePath(movie);
    player()->movie = true;
    player()->delegate->movieControllerDidLoadMovie(player());
    QCoreApplication::processEvents();
    window->cueTable()->selectionModel()->select(
        QItemSelection(window->cueModel()->index(4, 0),
                       window->cueModel()->index(6, CueTableModel::ColumnCount - 1)),
        QItemSelectionModel::ClearAndSelect);
    window->searchField()->setFocus();
    QTest::keyClicks(window->searchField(), u"Line 6"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(selectedRows(), QList<int>{0});
    EXPECT_EQ(window->textField()->toPlainText(), u"Line 6"_s);
    window->forcedBox()->click();
    EXPECT_TRUE(window->project()->subtitles()[5]->forced());

    window->searchField()->clear();
    QCoreApplication::processEvents();
    EXPECT_EQ(selectedRows(), QList<int>{5});
    EXPECT_EQ(window->project()->selectionIndices(), QList<qsizetype>{5});
    EXPECT_EQ(window->textField()->toPlainText(), u"Line 6"_s);
}

TEST_F(WindowTest, EveryCommandHasOneItemKeysNoOtherItemTakesAndSomethingToRunIt)
{
    // Two items with the same key make Qt run neither ("ambiguous shortcut"): every key of the
    // menus must be unique, and every item of the menus must come from the table of commands.
    QHash<QKeySequence, QString> owners;
    QStringList itemsWithCommands;
    std::function<void(QMenu *)> visit = [&](QMenu *menu) {
        for (QAction *item : menu->actions()) {
            if (item->menu()) {
                visit(item->menu());
                continue;
            }
            const QString command = item->property("command").toString();
            if (command.isEmpty())
                continue;
            itemsWithCommands << command;
            for (const QKeySequence &key : item->shortcuts()) {
                EXPECT_FALSE(owners.contains(key))
                    << key.toString().toStdString() << " is taken by " << owners.value(key).toStdString()
                    << " and " << command.toStdString();
                owners.insert(key, command);
            }
        }
    };
    for (QAction *top : window->menuBar()->actions())
        if (top->menu())
            visit(top->menu());

    QStringList table;
    QStringList handled;
    window->setCommandHandler([&](const QString &command) { handled << command; });
    window->project()->setExtractableCounts(1, false); // else the extract item is off
    for (const ProjectWindow::Command &command : ProjectWindow::commandTable()) {
        EXPECT_FALSE(table.contains(command.id)) << command.id.toStdString();
        table << command.id;
        ASSERT_NE(window->action(command.id), nullptr) << command.id.toStdString();
        EXPECT_FALSE(window->action(command.id)->text().isEmpty());
        EXPECT_EQ(ProjectWindow::command(command.id), &command);
        if (!command.action) {
            // Runs in the wiring around the window: it must reach the handler.
            window->runCommand(command.id);
            EXPECT_TRUE(handled.contains(command.id)) << command.id.toStdString();
        }
    }
    std::sort(itemsWithCommands.begin(), itemsWithCommands.end());
    std::sort(table.begin(), table.end());
    EXPECT_EQ(itemsWithCommands, table);
    EXPECT_EQ(ProjectWindow::command(u"noSuchCommand:"_s), nullptr);
}

TEST_F(WindowTest, ThePlaybackMenuPlaysTheLineByItsKeysAndTicksTheSpeed)
{
    PlaybackMenu *menu = window->playbackMenu();
    ASSERT_TRUE(menu);
    EXPECT_TRUE(window->menuBar()->actions().contains(menu->menuAction()));
    auto item = [menu](const char *name) { return menu->item(QString::fromLatin1(name)); };
    for (const char *name : {PlaybackMenu::PlayLine, PlaybackMenu::LoopLine, PlaybackMenu::PlayFromLeadIn,
                             PlaybackMenu::SetStart, PlaybackMenu::SetEnd}) {
        ASSERT_TRUE(item(name)) << name;
        EXPECT_FALSE(item(name)->shortcut().isEmpty()) << name;
        EXPECT_FALSE(item(name)->isEnabled()) << name << " without a movie";
    }
    openMovieWithSubtitles();
    EXPECT_FALSE(item(PlaybackMenu::PlayLine)->isEnabled()) << "no current line";
    window->cueTable()->selectRow(1);
    window->cueTable()->setFocus();
    QCoreApplication::processEvents();
    EXPECT_TRUE(item(PlaybackMenu::PlayLine)->isEnabled());

    // Ctrl+P plays the line from its start and pauses at its end.
    QTest::keyClick(window->cueTable(), Qt::Key_P, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(player()->seeks.last(), 5.0);
    EXPECT_TRUE(player()->playing);
    EXPECT_EQ(window->playButton()->text(), u"Pause"_s);
    while (player()->playing && player()->time < 10)
        player()->playFor(0.04);
    EXPECT_FALSE(player()->playing);
    EXPECT_DOUBLE_EQ(player()->time, 7.5);

    // Ctrl+L loops it: the item is ticked while it loops, and Space (pause) ends it.
    QTest::keyClick(window->cueTable(), Qt::Key_L, Qt::ControlModifier);
    EXPECT_TRUE(item(PlaybackMenu::LoopLine)->isChecked());
    for (int i = 0; i < 70; ++i)
        player()->playFor(0.04);
    EXPECT_LT(player()->time, 7.5);
    QTest::keyClick(window->cueTable(), Qt::Key_Space);
    EXPECT_FALSE(player()->playing);
    EXPECT_FALSE(item(PlaybackMenu::LoopLine)->isChecked());

    // Ctrl+B plays from half a second before.
    QTest::keyClick(window->cueTable(), Qt::Key_B, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(player()->seeks.last(), 4.5);
    EXPECT_TRUE(player()->playing);

    // The speeds: one ticked at a time, the normal one first; Ctrl+1 is the slowest.
    const QString normal = PlaybackMenu::speedName(1.0);
    EXPECT_TRUE(menu->item(normal)->isChecked());
    EXPECT_EQ(menu->item(normal)->text(), u"1× Speed"_s);
    QTest::keyClick(window->cueTable(), Qt::Key_1, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(player()->rate, 0.5);
    EXPECT_TRUE(menu->item(PlaybackMenu::speedName(0.5))->isChecked());
    EXPECT_FALSE(menu->item(normal)->isChecked());
    menu->item(PlaybackMenu::speedName(1.5))->trigger();
    EXPECT_DOUBLE_EQ(player()->rate, 1.5);
    EXPECT_TRUE(menu->item(PlaybackMenu::speedName(1.5))->isChecked());
}

TEST_F(WindowTest, TheLinesStartAndEndTakeThePlayingTimeAndUndoInOneStep)
{
    openMovieWithSubtitles();
    window->cueTable()->selectRow(1);
    window->cueTable()->setFocus();
    player()->time = 7.0;
    player()->playFor(0);
    QCoreApplication::processEvents();
    PlaybackMenu *menu = window->playbackMenu();
    ASSERT_TRUE(menu->item(QString::fromLatin1(PlaybackMenu::SetEnd))->isEnabled());
    QTest::keyClick(window->cueTable(), Qt::Key_E, Qt::ControlModifier);
    MainQueue::main().drain();
    QCoreApplication::processEvents();
    EXPECT_DOUBLE_EQ(window->project()->subtitles()[1]->end(), 7.0);
    EXPECT_EQ(window->durationField()->text(), VHTimeValueTransformer::stringForTime(2.0));
    window->refreshMenus();
    EXPECT_EQ(window->action(u"undo:"_s)->text(), u"Undo Set End"_s);

    // The start goes as the fix key takes it (Fix mode: the line before stretches with it).
    player()->time = 5.5;
    player()->playFor(0);
    QTest::keyClick(window->cueTable(), Qt::Key_J, Qt::ControlModifier);
    MainQueue::main().drain();
    EXPECT_DOUBLE_EQ(window->project()->subtitles()[1]->start(), 5.5);
    // ... and the line with those after it towards the movie's end (60 s).
    EXPECT_NEAR(window->project()->subtitles()[1]->end(), 5.5 + 2.0 * 54.5 / 55, 1e-9);
    EXPECT_NEAR(window->project()->subtitles()[0]->start(), 1.1, 1e-9);
    EXPECT_EQ(window->startField()->text(), VHTimeValueTransformer::stringForTime(5.5));

    QTest::keyClick(window->cueTable(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(window->project()->subtitles()[1]->start(), 5.0);
    EXPECT_DOUBLE_EQ(window->project()->subtitles()[1]->end(), 7.0);
    QTest::keyClick(window->cueTable(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(window->project()->subtitles()[1]->end(), 7.5);

    // Before the line's start there is no end to set.
    player()->time = 4.0;
    player()->playFor(0);
    EXPECT_FALSE(menu->item(QString::fromLatin1(PlaybackMenu::SetEnd))->isEnabled());
}

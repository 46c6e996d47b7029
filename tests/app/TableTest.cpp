// The cue table's columns and colours, the status bar, the keyboard sheet and the About box,
// driven through the window with a player that is only a clock.
#include "CTPreferenceController.h"
#include "CueTableModel.h"
#include "HelpWindows.h"
#include "LocaleNames.h"
#include "Log.h"
#include "MainQueue.h"
#include "ProjectWindow.h"
#include "Settings.h"
#include "TestSupport.h"
#include "VHEncoding.h"
#include "VHTimeValueTransformer.h"
#include "WindowStatusBar.h"

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QTableView>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

#include <gtest/gtest.h>

#include <iostream>

using namespace Qt::StringLiterals;

namespace {
// A movie that is only a clock: seeks are recorded, nothing is shown.
class ClockPlayer final : public PlaybackControl
{
public:
    QWidget view;
    PlaybackControlDelegate *delegate = nullptr;
    double time = 0;
    double framesPerSecond = 25;
    QList<double> seeks;

    int kind() const override { return 1; }
    bool hasMovie() const override { return true; }
    double currentTime() const override { return time; }
    void setCurrentTime(double seconds) override
    {
        seeks << seconds;
        time = seconds;
        if (delegate)
            delegate->movieControllerChangedTime(this, seconds);
    }
    double fps() const override { return framesPerSecond; }
    double duration() const override { return 600; }
    bool isPlaying() const override { return false; }
    void setPlaying(bool) override {}
    void setSubtitles(const SubtitleList &) override {}
    void setShowSubtitle(bool) override {}
    void redrawCurrentSubtitle() override {}
    qsizetype currentSegmentIndex() const override { return 0; }
    bool loadMovieURL(const QString &) override { return true; }
    void unloadMovie() override {}
    void setDelegate(PlaybackControlDelegate *d) override { delegate = d; }
    double aspectRatio() const override { return 16.0 / 9; }
    QList<AudioTrackItem> audioMenuItems() const override { return {}; }
};

class TableTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        MainQueue::main().drain();
        Settings::shared().useFile(dir.path(u"settings.ini"_s));
        CTPreferenceController::registerDefaults();
        Settings::shared().setValue(u"Locale"_s, u"en"_s);
        Settings::shared().setValue(u"AutoOpenSearch"_s, false);
        LocaleNames::setInterfaceLanguage(u"en"_s);
        window = std::make_unique<ProjectWindow>();
        window->setPlayers(
            [this](int) -> PlaybackControl * {
                player = new ClockPlayer;
                player->framesPerSecond = fps;
                return player;
            },
            [](PlaybackControl *p) -> QWidget * { return &static_cast<ClockPlayer *>(p)->view; });
        window->start();
        window->show();
        QApplication::setActiveWindow(window.get());
        tester = std::make_unique<QAbstractItemModelTester>(
            window->cueModel(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    }
    void TearDown() override
    {
        MainQueue::main().drain();
        tester.reset();
        window.reset();
    }
    // Opens Film.mp4 with Film.srt beside it, holding `srt`.
    void open(const QByteArray &srt)
    {
        dir.write(u"Film.srt"_s, srt);
        window->project()->setMoviePath(dir.write(u"Film.mp4"_s, "movie"));
        player->delegate->movieControllerDidLoadMovie(player);
        QCoreApplication::processEvents();
    }
    void openThreeLines()
    {
        open("1\n00:00:01,000 --> 00:00:02,000\nHello there\n\n"
             "2\n00:00:05,000 --> 00:00:07,500\nSecond line\n\n"
             "3\n00:00:10,000 --> 00:00:12,000\nThird hello\n\n");
    }
    CueTableModel *model() const { return window->cueModel(); }
    QVariant cell(int row, int column, int role = Qt::DisplayRole) const
    {
        return model()->data(model()->index(row, column), role);
    }
    CueTableModel::Warning warning(int row, int column) const
    {
        return CueTableModel::Warning(cell(row, column, CueTableModel::WarningRole).toInt());
    }
    QPoint rowCentre(int row) const
    {
        return window->cueTable()->visualRect(model()->index(row, CueTableModel::TextColumn)).center();
    }

    TempDir dir;
    ScriptedPrompter prompter;
    ScopedPrompter scopedPrompter{&prompter};
    LogCapture log;
    double fps = 25;
    ClockPlayer *player = nullptr;
    std::unique_ptr<ProjectWindow> window;
    std::unique_ptr<QAbstractItemModelTester> tester;
};

// --- anchors and the lines the next fix moves ----------------------------------------------------

TEST_F(TableTest, AnchorsHaveAnIconInTheirOwnColumnAndTheLinesAFixMovesAreShaded)
{
    open("1\n00:00:01,000 --> 00:00:02,000\nOne\n\n"
         "2\n00:00:03,000 --> 00:00:04,000\nTwo\n\n"
         "3\n00:00:05,000 --> 00:00:06,000\nThree\n\n"
         "4\n00:00:07,000 --> 00:00:08,000\nFour\n\n"
         "5\n00:00:09,000 --> 00:00:10,000\nFive\n\n");
    EXPECT_EQ(model()->headerData(CueTableModel::AnchorColumn, Qt::Horizontal, Qt::DisplayRole).toString(),
              QString());
    for (int row = 0; row < 5; ++row) {
        EXPECT_TRUE(cell(row, CueTableModel::AnchorColumn, Qt::DecorationRole).isNull()) << row;
        // No current line: no fix is pending, nothing is shaded.
        EXPECT_FALSE(cell(row, CueTableModel::StartColumn, CueTableModel::MovesWithFixRole).toBool()) << row;
    }

    // Fixing line 3 makes it an anchor; the icon shows in its row only, and is announced.
    QSignalSpy changed(model(), &QAbstractItemModel::dataChanged);
    window->cueTable()->selectRow(2);
    player->time = 5.5;
    window->project()->fixSubtitleStart();
    MainQueue::main().drain();
    EXPECT_TRUE(window->project()->subtitles()[2]->fixed());
    EXPECT_FALSE(changed.isEmpty());
    for (int row = 0; row < 5; ++row)
        EXPECT_EQ(cell(row, CueTableModel::AnchorColumn, Qt::DecorationRole).isNull(), row != 2) << row;
    EXPECT_EQ(cell(2, CueTableModel::AnchorColumn, Qt::ToolTipRole).toString(),
              u"Anchor: a fix does not move this line"_s);

    // Line 5 selected: the next fix moves the lines after the anchor (4 and 5), not those before.
    window->cueTable()->selectRow(4);
    const CTWindowController::FixRange &range = window->project()->fixRange();
    EXPECT_EQ(range.first, 3);
    EXPECT_EQ(range.last, 4);
    for (int row = 0; row < 5; ++row) {
        const bool moves = row >= 3;
        EXPECT_EQ(cell(row, CueTableModel::TextColumn, CueTableModel::MovesWithFixRole).toBool(), moves)
            << row;
        EXPECT_EQ(cell(row, CueTableModel::TextColumn, Qt::BackgroundRole).isValid(), moves) << row;
    }
    // Single moves the current line alone.
    window->project()->setFixMode(FixMode::Single);
    EXPECT_FALSE(cell(3, CueTableModel::TextColumn, CueTableModel::MovesWithFixRole).toBool());
    EXPECT_TRUE(cell(4, CueTableModel::TextColumn, CueTableModel::MovesWithFixRole).toBool());
}

// --- reading speed -----------------------------------------------------------------------------------

TEST_F(TableTest, ReadingSpeedCountsCharactersAsDurationsFromReadingSpeedDo)
{
    // Line breaks count, and a character outside the Basic Multilingual Plane counts twice.
    open("1\n00:00:01,000 --> 00:00:02,000\nHello\nthere\n\n"
         "2\n00:00:05,000 --> 00:00:07,000\nA \xF0\x9F\x98\x80 smile\n\n"
         "3\n00:00:10,000 --> 00:00:10,000\nNo time to read\n\n");
    EXPECT_EQ(cell(0, CueTableModel::ReadingSpeedColumn).toString(), u"11.0"_s);
    EXPECT_EQ(cell(1, CueTableModel::ReadingSpeedColumn).toString(), u"5.0"_s); // 10 units in 2 s
    EXPECT_EQ(cell(2, CueTableModel::ReadingSpeedColumn).toString(), u"∞"_s);
    EXPECT_EQ(warning(2, CueTableModel::ReadingSpeedColumn), CueTableModel::Warning::TooFast);

    // Durations made from 0.05 s per character read at exactly 20 characters per second.
    window->project()->adjustDurationPerCharacter(0.05, 0, 100, 0, false);
    MainQueue::main().drain();
    for (int row = 0; row < 3; ++row) {
        EXPECT_DOUBLE_EQ(CueTableModel::readingSpeed(*window->project()->subtitles()[row]), 20.0) << row;
        EXPECT_EQ(cell(row, CueTableModel::ReadingSpeedColumn).toString(), u"20.0"_s) << row;
        EXPECT_EQ(warning(row, CueTableModel::ReadingSpeedColumn), CueTableModel::Warning::TooFast) << row;
        EXPECT_TRUE(cell(row, CueTableModel::ReadingSpeedColumn, Qt::BackgroundRole).isValid()) << row;
    }
    EXPECT_EQ(cell(0, CueTableModel::ReadingSpeedColumn, Qt::ToolTipRole).toString(),
              u"Faster than the limit of 17 characters per second"_s);

    // The limit is the preference's, followed as it changes: only that column repaints.
    QSignalSpy changed(model(), &QAbstractItemModel::dataChanged);
    Settings::shared().setValue(CTPreferenceController::MaxCharactersPerSecondKey, 20);
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().column(), CueTableModel::ReadingSpeedColumn);
    EXPECT_EQ(changed[0][1].toModelIndex().column(), CueTableModel::ReadingSpeedColumn);
    for (int row = 0; row < 3; ++row) // 20 is not above 20
        EXPECT_EQ(warning(row, CueTableModel::ReadingSpeedColumn), CueTableModel::Warning::None) << row;
    Settings::shared().setValue(CTPreferenceController::MaxCharactersPerSecondKey, 19.9);
    EXPECT_EQ(warning(0, CueTableModel::ReadingSpeedColumn), CueTableModel::Warning::TooFast);

    // An empty line asks nothing of the reader.
    window->project()->setCueText(0, QString());
    EXPECT_EQ(cell(0, CueTableModel::ReadingSpeedColumn).toString(), u"0.0"_s);
    EXPECT_EQ(warning(0, CueTableModel::ReadingSpeedColumn), CueTableModel::Warning::None);
}

// --- gaps and overlaps -------------------------------------------------------------------------------

TEST_F(TableTest, GapsShorterThanTwoFramesAndOverlapsAreColouredInTheStartColumn)
{
    open("1\n00:00:01,000 --> 00:00:02,000\nFirst\n\n"
         "2\n00:00:02,060 --> 00:00:03,000\nSixty milliseconds later\n\n"
         "3\n00:00:03,080 --> 00:00:04,000\nTwo frames later\n\n"
         "4\n00:00:04,000 --> 00:00:05,000\nRight after\n\n"
         "5\n00:00:06,000 --> 00:00:07,000\nA second later\n\n");
    EXPECT_DOUBLE_EQ(model()->shortestGap(), 0.08); // 25 frames per second
    using W = CueTableModel::Warning;
    const QList<W> expected = {W::None, W::ShortGap, W::None, W::ShortGap, W::None};
    for (int row = 0; row < 5; ++row) {
        EXPECT_EQ(warning(row, CueTableModel::StartColumn), expected[row]) << row;
        EXPECT_EQ(cell(row, CueTableModel::StartColumn, Qt::BackgroundRole).isValid(),
                  expected[row] != W::None)
            << row;
        EXPECT_EQ(warning(row, CueTableModel::EndColumn), W::None) << row;
    }
    EXPECT_EQ(cell(1, CueTableModel::StartColumn, Qt::ToolTipRole).toString(),
              u"Only 0.060 s after the line before it (less than two frames)"_s);

    // An overlap (no correction runs on a list set whole) is coloured as one.
    SubtitleList cues = {VHSubtitle::create(u"a"_s, 1, 3), VHSubtitle::create(u"b"_s, 2.5, 4)};
    window->project()->setSubtitles(cues);
    EXPECT_EQ(warning(1, CueTableModel::StartColumn), W::Overlap);
    EXPECT_EQ(cell(1, CueTableModel::StartColumn, Qt::ToolTipRole).toString(),
              u"Starts 0.500 s before the line before it ends"_s);

    // Moving the line before it repaints this row too.
    QSignalSpy changed(model(), &QAbstractItemModel::dataChanged);
    cues[0]->setEnd(2.0);
    MainQueue::main().drain();
    window->project()->editor().settle(); // the change is an edit of its own, closed here
    EXPECT_EQ(warning(1, CueTableModel::StartColumn), W::None);
    const bool repainted = std::any_of(changed.cbegin(), changed.cend(), [](const QList<QVariant> &args) {
        return args[0].toModelIndex().row() <= 1 && args[1].toModelIndex().row() >= 1;
    });
    EXPECT_TRUE(repainted);

    // Back to back, with no gap at all, is shorter than two frames too.
    cues[0]->setEnd(2.5);
    EXPECT_EQ(warning(1, CueTableModel::StartColumn), W::ShortGap);
}

TEST_F(TableTest, TwoFramesAreTheMoviesFramesOr25PerSecond)
{
    fps = 50;
    open("1\n00:00:01,000 --> 00:00:02,000\nFirst\n\n"
         "2\n00:00:02,060 --> 00:00:03,000\nSixty milliseconds later\n\n");
    EXPECT_DOUBLE_EQ(model()->shortestGap(), 0.04);
    EXPECT_EQ(warning(1, CueTableModel::StartColumn), CueTableModel::Warning::None);
    window->project()->setMovieInfo(window->project()->moviePath(), 1, 0, 600); // unknown
    EXPECT_DOUBLE_EQ(model()->shortestGap(), 0.08);
    EXPECT_EQ(warning(1, CueTableModel::StartColumn), CueTableModel::Warning::ShortGap);

    // Chapter marks follow each other without gaps by design, and nobody reads them aloud.
    window->project()->setSubtitlePath(dir.write(u"Film.vtt"_s, "WEBVTT\n\n00:00:00.000 --> 00:00:10.000\n"
                                                                "Chapter 1\n\n00:00:10.000 --> 00:00:10.050\n"
                                                                "Chapter 2 with a long title\n\n"),
                                       true);
    ASSERT_TRUE(window->project()->isChaptermark());
    ASSERT_EQ(model()->rowCount(), 2);
    EXPECT_EQ(warning(1, CueTableModel::StartColumn), CueTableModel::Warning::None);
    EXPECT_EQ(warning(1, CueTableModel::ReadingSpeedColumn), CueTableModel::Warning::None);
    EXPECT_EQ(cell(1, CueTableModel::ReadingSpeedColumn).toString(), QString());
}

// --- numbering, replacing, seeking ---------------------------------------------------------------

TEST_F(TableTest, ASearchKeepsTheLinesOwnNumbers)
{
    openThreeLines();
    auto numbers = [this] {
        QStringList shown;
        for (int row = 0; row < model()->rowCount(); ++row)
            shown << model()->headerData(row, Qt::Vertical, Qt::DisplayRole).toString();
        return shown.join(u',');
    };
    EXPECT_EQ(numbers(), u"1,2,3"_s);
    window->searchField()->setText(u"hello"_s);
    EXPECT_EQ(numbers(), u"1,3"_s);
    window->searchField()->setText(u"second"_s);
    EXPECT_EQ(numbers(), u"2"_s);
    // A line added while searching is numbered where it lies in the list.
    window->searchField()->setText(u"l"_s);
    EXPECT_EQ(numbers(), u"1,2,3"_s);
    window->cueTable()->selectRow(0);
    player->time = 3;
    window->project()->addSubtitle(); // "Subtitle" at 3 s: the search "l" lists it
    MainQueue::main().drain();
    EXPECT_EQ(numbers(), u"1,2,3,4"_s);
    window->searchField()->setText(u"hello"_s);
    EXPECT_EQ(numbers(), u"1,4"_s);
    window->searchField()->clear();
    EXPECT_EQ(numbers(), u"1,2,3,4"_s);
}

TEST_F(TableTest, ReplaceAllSaysHowManyLinesChanged)
{
    openThreeLines();
    window->project()->setShowReplace(true);
    QPushButton *replaceAll = nullptr;
    for (QPushButton *button : window->findChildren<QPushButton *>())
        if (button->text() == u"Replace All"_s)
            replaceAll = button;
    ASSERT_TRUE(replaceAll);
    window->searchField()->setText(u"HELLO"_s);
    window->replaceField()->setText(u"hello"_s);
    // "Hello" becomes "hello" in line 1; line 3 has "hello" already and does not change.
    replaceAll->click();
    EXPECT_EQ(window->windowStatusBar()->currentMessage(), u"Replaced in 1 line"_s);
    EXPECT_EQ(window->project()->subtitles()[0]->string(), u"hello there"_s);
    replaceAll->click();
    EXPECT_EQ(window->windowStatusBar()->currentMessage(), u"No line changed"_s);
    window->replaceField()->setText(u"bye"_s);
    replaceAll->click();
    EXPECT_EQ(window->windowStatusBar()->currentMessage(), u"Replaced in 2 lines"_s);
    EXPECT_EQ(window->project()->replaceAll(u"line"_s, u"row"_s), 0); // the search lists no such line
    window->searchField()->clear();
    EXPECT_EQ(window->project()->replaceAll(u"line"_s, u"row"_s), 1);
}

TEST_F(TableTest, ClickingTheSelectedLineGoesThereAgain)
{
    openThreeLines();
    QWidget *viewport = window->cueTable()->viewport();
    QTest::mouseClick(viewport, Qt::LeftButton, {}, rowCentre(1));
    ASSERT_EQ(window->project()->selectionIndices(), QList<qsizetype>{1});
    ASSERT_EQ(player->seeks.size(), 1); // one click, one seek
    EXPECT_DOUBLE_EQ(player->seeks.last(), 5.0001);
    player->time = 6.2; // played on
    QTest::mouseClick(viewport, Qt::LeftButton, {}, rowCentre(1));
    ASSERT_EQ(player->seeks.size(), 2);
    EXPECT_DOUBLE_EQ(player->time, 5.0001);
    // Alt inverts going there, as it does for a new selection.
    QTest::mouseClick(viewport, Qt::LeftButton, Qt::AltModifier, rowCentre(1));
    EXPECT_EQ(player->seeks.size(), 2);
    // Another line: one seek, not two.
    QTest::mouseClick(viewport, Qt::LeftButton, {}, rowCentre(2));
    EXPECT_EQ(player->seeks.size(), 3);
    // With two lines selected, a click selects one of them: that is a new selection.
    window->project()->setSelectionIndices({0, 1});
    QTest::mouseClick(viewport, Qt::LeftButton, {}, rowCentre(1));
    EXPECT_EQ(player->seeks.size(), 4);
}

TEST_F(TableTest, OpenSubtitleOffersEveryKindOfFileTheReadersTake)
{
    openThreeLines();
    QStringList offered;
    window->openPanelHook = [&](const QStringList &types, bool, const QString &) {
        offered = types;
        return QString();
    };
    window->runCommand(u"loadSubtitle:"_s);
    for (const QString &type : {u"srt"_s, u"sub"_s, u"ass"_s, u"ssa"_s, u"txt"_s})
        EXPECT_TRUE(offered.contains(type)) << type.toStdString();
}

// --- the status bar -----------------------------------------------------------------------------------

TEST_F(TableTest, TheStatusBarShowsTimeModeEncodingAndLines)
{
    WindowStatusBar *bar = window->windowStatusBar();
    EXPECT_EQ(bar->linesLabel()->text(), u"0 lines"_s);
    EXPECT_FALSE(bar->encodingLabel()->isVisibleTo(bar));
    EXPECT_EQ(bar->modeLabel()->text(), u"No line to fix"_s);
    // "é" in ISO Latin 1: not UTF-8, so the detector decides.
    open("1\n00:00:01,000 --> 00:00:02,000\nC'est l'\xe9t\xe9, il fait chaud\n\n"
         "2\n00:00:05,000 --> 00:00:07,500\nLa for\xeat est tr\xe8s belle et tr\xe8s verte\n\n"
         "3\n00:00:10,000 --> 00:00:12,000\nJ'ai mang\xe9 une cr\xeape \xe0 la caf\xe9t\xe9ria\n\n");
    const EncodingId read = window->project()->fileEncoding();
    EXPECT_NE(read, Encodings::None);
    EXPECT_NE(read, Encodings::UTF8);
    EXPECT_EQ(bar->encodingLabel()->text(), VHEncoding::nameForEncoding(read));
    EXPECT_TRUE(bar->encodingLabel()->isVisibleTo(bar));
    EXPECT_EQ(window->project()->subtitles()[0]->string(), u"C'est l'été, il fait chaud"_s);
    EXPECT_EQ(bar->linesLabel()->text(), u"3 lines"_s);
    EXPECT_EQ(bar->modeLabel()->text(), u"No line to fix"_s); // none selected

    window->cueTable()->selectRow(0);
    EXPECT_EQ(bar->modeLabel()->text(), u"Mode: Fix"_s);
    EXPECT_TRUE(bar->modeLabel()->toolTip().startsWith(u"Fix: the lines between the anchors"_s));
    window->project()->setFixMode(FixMode::Shift);
    EXPECT_EQ(bar->modeLabel()->text(), u"Mode: Shift"_s);
    player->setCurrentTime(83.25);
    EXPECT_EQ(bar->timeLabel()->text(), VHTimeValueTransformer::stringForTime(83.25));

    window->searchField()->setText(u"tr\u00e8s"_s);
    EXPECT_EQ(bar->linesLabel()->text(), u"1 of 3 lines"_s);
    window->searchField()->clear();
    window->project()->addSubtitle();
    MainQueue::main().drain();
    EXPECT_EQ(bar->linesLabel()->text(), u"4 lines"_s);

    // Saving writes UTF-8, and says so.
    window->project()->saveSubtitle();
    EXPECT_EQ(window->project()->fileEncoding(), Encodings::UTF8);
    EXPECT_EQ(bar->encodingLabel()->text(), VHEncoding::nameForEncoding(Encodings::UTF8));
}

// --- help -------------------------------------------------------------------------------------------

TEST_F(TableTest, TheKeyboardSheetListsEveryKeyOfTheMenus)
{
    openThreeLines();
    // While text is typed the arrow keys belong to the field; the sheet still lists them.
    window->textField()->setFocus();
    QApplication::processEvents();
    const QList<ShortcutSheet::Row> rows = ShortcutSheet::rows(window->menuBar());
    auto listed = [&](const QString &keys) {
        return std::any_of(rows.cbegin(), rows.cend(), [&](const ShortcutSheet::Row &row) {
            return row.keys.split(u" or "_s).contains(keys);
        });
    };
    int withKeys = 0;
    for (QAction *item : window->menuBar()->findChildren<QAction *>()) {
        for (const QKeySequence &key : item->shortcuts()) {
            ++withKeys;
            EXPECT_TRUE(listed(key.toString(QKeySequence::NativeText))) << key.toString().toStdString();
        }
    }
    EXPECT_GT(withKeys, 10);
    for (QKeyCombination key : {QKeyCombination(Qt::Key_Left), QKeyCombination(Qt::SHIFT | Qt::Key_Right),
                                QKeyCombination(Qt::Key_Escape), QKeyCombination(Qt::CTRL | Qt::Key_Y)})
        EXPECT_TRUE(listed(QKeySequence(key).toString(QKeySequence::NativeText)))
            << QKeySequence(key).toString().toStdString();
    const auto fix = std::find_if(rows.cbegin(), rows.cend(), [](const ShortcutSheet::Row &row) {
        return row.command == u"Fix Subtitle Start"_s;
    });
    ASSERT_NE(fix, rows.cend());
    EXPECT_EQ(fix->group, u"Timing"_s);

    ShortcutSheet sheet(window->menuBar(), window.get());
    EXPECT_GE(sheet.list()->topLevelItemCount(), 5);
}

TEST_F(TableTest, TheAboutBoxNamesTheLibrariesItRunsWith)
{
    const QList<AboutBox::Library> libraries = AboutBox::libraries();
    QStringList names;
    for (const AboutBox::Library &library : libraries) {
        names << library.name;
        EXPECT_FALSE(library.version.isEmpty()) << library.name.toStdString();
        EXPECT_TRUE(library.version.front().isDigit() || library.version.startsWith(u"mpv"_s) ||
                    library.version.startsWith(u"n"_s) || library.version.startsWith(u"client"_s))
            << library.version.toStdString();
    }
    EXPECT_EQ(names, (QStringList{u"Qt"_s, u"FFmpeg"_s, u"libmpv"_s, u"libVLC"_s, u"ICU"_s}));
    EXPECT_EQ(libraries[0].version, QString::fromLatin1(qVersion()));
    EXPECT_TRUE(libraries[1].version.contains(u"libavformat "_s));
    EXPECT_TRUE(AboutBox::text().contains(libraries[4].version));
}

// --- accessibility and size -------------------------------------------------------------------------

TEST_F(TableTest, EveryControlHasAnAccessibleName)
{
    openThreeLines();
    window->project()->setShowReplace(true);
    QList<QWidget *> controls;
    for (QWidget *widget : window->findChildren<QWidget *>()) {
        if (!widget->isVisibleTo(window.get()) || widget->window() != window.get())
            continue;
        if (qobject_cast<QAbstractButton *>(widget) || qobject_cast<QLineEdit *>(widget) ||
            qobject_cast<QPlainTextEdit *>(widget) || qobject_cast<QAbstractSlider *>(widget) ||
            qobject_cast<QComboBox *>(widget) || qobject_cast<QAbstractItemView *>(widget))
            controls << widget;
    }
    EXPECT_GT(controls.size(), 15);
    for (QWidget *control : controls) {
        // Scroll bars, headers and the corner button belong to the table, the clear button to
        // its field; Qt names its own parts "qt_...".
        QWidget *parent = control->parentWidget();
        QWidget *grandParent = parent ? parent->parentWidget() : nullptr;
        if (qobject_cast<QAbstractItemView *>(parent) || qobject_cast<QAbstractItemView *>(grandParent) ||
            qobject_cast<QLineEdit *>(parent) || control->objectName().startsWith(u"qt_"_s))
            continue;
        QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(control);
        ASSERT_TRUE(accessible);
        EXPECT_FALSE(accessible->text(QAccessible::Name).trimmed().isEmpty())
            << control->metaObject()->className() << " " << control->objectName().toStdString();
    }
}

TEST_F(TableTest, TheTableKeepsUpWithManyLinesRowByRow)
{
    QByteArray srt;
    for (int n = 0; n < 100000; ++n)
        srt += QByteArray::number(n + 1) + "\n" + VHSubtitle::formatedTime(n * 2).toLatin1() + " --> " +
               VHSubtitle::formatedTime(n * 2 + 1).toLatin1() + "\nLine " + QByteArray::number(n) + "\n\n";
    tester.reset(); // it checks every row on every change: far too slow for this many
    open(srt);
    ASSERT_EQ(model()->rowCount(), 100000);
    QSignalSpy resets(model(), &QAbstractItemModel::modelReset);
    QSignalSpy changed(model(), &QAbstractItemModel::dataChanged);
    QSignalSpy inserted(model(), &QAbstractItemModel::rowsInserted);
    window->cueTable()->selectRow(50000);
    window->project()->setCueText(50001, u"Longer text than before"_s);
    MainQueue::main().drain();
    EXPECT_EQ(resets.size(), 0);
    // The edit repaints its row and the one after it (whose gap may have changed), nothing more.
    const auto edit = std::find_if(changed.cbegin(), changed.cend(), [](const QList<QVariant> &args) {
        return args[0].toModelIndex().row() == 50001;
    });
    ASSERT_NE(edit, changed.cend());
    EXPECT_EQ((*edit)[1].toModelIndex().row(), 50002);
    // A line added in the middle moves rows; it does not list them all again.
    player->time = 30001;
    window->project()->addSubtitle();
    MainQueue::main().drain();
    EXPECT_EQ(resets.size(), 0);
    ASSERT_EQ(inserted.size(), 1);
    EXPECT_EQ(model()->headerData(99999, Qt::Vertical, Qt::DisplayRole).toInt(), 100000);

    // What it costs, for the record: drawing the visible rows after a new current line, and a
    // search that lists a tenth of the lines (the rows' own numbers are found once).
    window->resize(1200, 720);
    QElapsedTimer clock;
    clock.start();
    window->cueTable()->selectRow(70000);
    window->cueTable()->viewport()->grab();
    const qint64 selectAndDraw = clock.nsecsElapsed();
    clock.restart();
    window->searchField()->setText(u"7"_s);
    window->cueTable()->scrollToBottom();
    window->cueTable()->viewport()->grab();
    const qint64 searchAndDraw = clock.nsecsElapsed();
    const SubtitlePtr last = window->project()->arrangedSubtitles().last();
    EXPECT_EQ(model()->headerData(model()->rowCount() - 1, Qt::Vertical, Qt::DisplayRole).toLongLong(),
              window->project()->subtitles().indexOf(last) + 1);
    std::cout << "select and draw: " << selectAndDraw / 1000
              << " us; search, scroll to the end and draw: " << searchAndDraw / 1000 << " us ("
              << model()->rowCount() << " rows)\n";
}
} // namespace

TEST_F(TableTest, TheWindowKeepsItsWidthAsLinesAndTimesChangeAndCanBeMadeSmaller)
{
    QCoreApplication::processEvents();
    const int before = window->width();
    // A long movie: the range of the current line reads in hours; a long language name.
    open("1\n01:23:45,000 --> 01:23:47,000\nA line late in a long film, with more text than fits in the "
         "table\n\n"
         "2\n02:34:56,000 --> 02:34:58,000\nThe last line\n\n");
    window->cueTable()->selectRow(0);
    window->project()->setFixMode(FixMode::Tap2Sync);
    QCoreApplication::processEvents();
    QApplication::sendPostedEvents();
    EXPECT_EQ(window->width(), before);
    // Smaller than it opens, with room to spare for longer words in other languages.
    const int minimum = window->minimumSizeHint().width();
    QString parts;
    for (QWidget *widget : window->findChildren<QWidget *>())
        if (widget->isVisibleTo(window.get()) && widget->minimumSizeHint().width() > 150)
            parts += u"%1 %2\n"_s.arg(QString::fromLatin1(widget->metaObject()->className()))
                         .arg(widget->minimumSizeHint().width());
    EXPECT_LE(minimum, 1100) << parts.toStdString();
}

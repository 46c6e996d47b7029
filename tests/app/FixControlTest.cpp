// The fix control and what surrounds it: the preview strip's drawing decisions, the time view,
// the dial behind the control, the control's focus and glow, the mode chooser, a typed start
// shown before it is committed, the Tap2Sync explanation and the first-run tutorial.
#include "CTFixButton.h"
#include "CTFixButtonBackground.h"
#include "CTFixPreview.h"
#include "CTTimeView.h"
#include "FixPanel.h"
#include "Log.h"
#include "MainQueue.h"
#include "ProjectWindow.h"
#include "Settings.h"
#include "TestSupport.h"
#include "TutorialOverlay.h"
#include "VHTimeValueTransformer.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QEnterEvent>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QStyle>
#include <QTableView>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {
QImage render(QWidget &widget, QSize size)
{
    widget.resize(size);
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    widget.render(&image);
    return image;
}

bool isGradientGrey(QRgb pixel)
{
    // White levels 0.3 to 0.5, opaque.
    return qRed(pixel) == qGreen(pixel) && qGreen(pixel) == qBlue(pixel) && qRed(pixel) >= 76 &&
           qRed(pixel) <= 128 && qAlpha(pixel) == 255;
}

// A run of five lines between anchors at 10 s and 20 s, the third line current.
void setRun(CTFixPreview &preview, int mode, double orgTime, double newTime)
{
    preview.setMin(10);
    preview.setMax(20);
    preview.setFirst(11);
    preview.setLast(19);
    preview.setPrev(10);
    preview.setNext(20);
    preview.setSegments(5);
    preview.setIndex(2);
    preview.setMaxIndex(4);
    preview.setOrgTime(orgTime);
    preview.setFixMode(mode);
    preview.setNewTime(newTime);
}
} // namespace

TEST(FixPreview, NoModeOrAnEndlessRangeDrawsOnlyTheGradient)
{
    CTFixPreview preview;
    setRun(preview, 1, 15, 16);
    preview.setMax(std::numeric_limits<double>::infinity());
    EXPECT_TRUE(preview.geometry({50, 55}).gradientOnly);
    QImage image = render(preview, {50, 55});
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            ASSERT_TRUE(isGradientGrey(image.pixel(x, y))) << x << "," << y;
    }
    // Darker at the top than at the bottom.
    EXPECT_LT(qRed(image.pixel(25, 1)), qRed(image.pixel(25, 53)));

    preview.setMax(20);
    preview.setFixMode(0);
    EXPECT_TRUE(preview.geometry({50, 55}).gradientOnly);
    preview.setFixMode(2);
    EXPECT_FALSE(preview.geometry({50, 55}).gradientOnly);
    image = render(preview, {50, 55});
    int yellow = 0, red = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb p = image.pixel(x, y);
            yellow += qRed(p) > 200 && qGreen(p) > 200 && qBlue(p) < 60;
            red += qRed(p) > 200 && qGreen(p) < 60 && qBlue(p) < 60;
        }
    }
    EXPECT_GT(yellow, 8); // the line before the fix
    EXPECT_GT(red, 8);    // and after it
}

TEST(FixPreview, TheDrawingModeFollowsTheRunAndSingleIsGrey)
{
    CTFixPreview preview;
    struct Case
    {
        int mode;
        unsigned segments;
        int drawn;
    };
    for (const Case &c : {Case{1, 5, 1}, Case{2, 5, 2}, Case{3, 5, 3}, Case{4, 5, 1}, Case{1, 1, 3},
                          Case{2, 1, 3}, Case{4, 0, 3}}) {
        setRun(preview, c.mode, 15, 16);
        preview.setSegments(c.segments);
        const CTFixPreview::Geometry g = preview.geometry({50, 55});
        EXPECT_EQ(g.drawingMode, c.drawn) << c.mode << " " << c.segments;
        EXPECT_EQ(g.outlineColor, c.drawn == 3 ? QColor(Qt::lightGray) : QColor(Qt::white));
        // Single mode draws the line alone; the others every line of the run.
        EXPECT_EQ(g.stepsBefore.size(), c.drawn == 3 ? 0 : 4);
    }
}

TEST(FixPreview, MarksSitBetweenTheAnchorsAndTheRunFollowsTheMode)
{
    CTFixPreview preview;
    const QSizeF size(50, 55);
    // Usable height 52, 2-point insets: 10 s at y 2, 20 s at y 50.
    setRun(preview, 1, 15, 17);
    CTFixPreview::Geometry g = preview.geometry(size);
    EXPECT_DOUBLE_EQ(g.before.y1(), 26);
    EXPECT_DOUBLE_EQ(g.after.y1(), 2 + 0.7 * 48);
    EXPECT_LT(g.before.x2(), g.after.x1()); // before on the left, after on the right
    EXPECT_FALSE(g.washed);
    // Fix: the lines before stretch from the earlier anchor, those after squeeze towards the later.
    ASSERT_EQ(g.stepsAfter.size(), 4);
    EXPECT_GT(g.stepsAfter[0].y1(), g.stepsBefore[0].y1());
    for (qsizetype k = 0; k < 4; ++k) {
        EXPECT_GE(g.stepsAfter[k].y1(), 2);
        EXPECT_LE(g.stepsAfter[k].y1(), 50);
    }
    // Shift: every line moves by the same amount.
    setRun(preview, 2, 15, 16);
    g = preview.geometry(size);
    for (qsizetype k = 0; k < g.stepsBefore.size(); ++k)
        EXPECT_NEAR(g.stepsAfter[k].y1() - g.stepsBefore[k].y1(), 0.1 * 48, 1e-9);
    // A shift that takes the run's last line past the later anchor is washed red.
    setRun(preview, 2, 15, 16.5);
    EXPECT_TRUE(preview.geometry(size).washed);
}

TEST(FixPreview, ANewTimeOutsideTheRangeWashesTheStripRed)
{
    CTFixPreview preview;
    for (double newTime : {9.9, 20.1, 35.0}) {
        setRun(preview, 3, 15, newTime);
        const CTFixPreview::Geometry g = preview.geometry({50, 55});
        EXPECT_TRUE(g.washed) << newTime;
        // The red mark stays at the edge of the strip.
        EXPECT_TRUE(g.after.y1() == 2 || g.after.y1() == 50) << g.after.y1();
    }
    for (double newTime : {10.0, 15.0, 20.0}) {
        setRun(preview, 3, 15, newTime);
        EXPECT_FALSE(preview.geometry({50, 55}).washed) << newTime;
    }
    setRun(preview, 1, 15, 25);
    const QImage image = render(preview, {50, 55});
    const QRgb corner = image.pixel(1, 1); // gradient under a 30 % red wash
    EXPECT_GT(qRed(corner), qGreen(corner) + 40);
    EXPECT_EQ(qGreen(corner), qBlue(corner));
}

TEST(FixPreview, NoMoreThanThirtyNineStepsAlwaysWithTheCurrentLine)
{
    CTFixPreview preview;
    setRun(preview, 1, 15, 15);
    preview.setSegments(500);
    preview.setMaxIndex(499);
    preview.setIndex(0);
    EXPECT_EQ(preview.geometry({50, 55}).stepsBefore.size(), 38);
    preview.setIndex(255); // not among the evenly picked lines: added
    EXPECT_EQ(preview.geometry({50, 55}).stepsBefore.size(), 39);
}

TEST(FixPreview, TheNewTimeRedrawsOnlyPastTheThresholdExceptInFixMode)
{
    CTFixPreview preview;
    preview.setUpdateThreshold(0.5);
    preview.setFixMode(2);
    preview.setNewTime(10);
    int redraws = preview.redrawCount();
    preview.setNewTime(10.3);
    preview.setNewTime(9.6);
    EXPECT_EQ(preview.redrawCount(), redraws);
    preview.setNewTime(10.6); // 0.6 from the last drawing at 10
    EXPECT_EQ(preview.redrawCount(), ++redraws);
    EXPECT_DOUBLE_EQ(preview.lastUpdate(), 10.6);
    preview.setOrgTime(3); // always
    EXPECT_EQ(preview.redrawCount(), ++redraws);
    preview.setFixMode(1); // always
    EXPECT_EQ(preview.redrawCount(), ++redraws);
    preview.setNewTime(10.61); // Fix mode: every time
    EXPECT_EQ(preview.redrawCount(), ++redraws);
}

TEST(TimeView, TextsAreCentredOnTheirPlacesAndStayInside)
{
    CTTimeView view;
    view.resize(300, 20);
    view.setLeftText(u"1:00.000"_s);
    view.setRightText(u"2:00.000"_s);
    view.setLeft(100);
    view.setRight(200);
    EXPECT_DOUBLE_EQ(view.leftTextRect().center().x(), 100);
    EXPECT_DOUBLE_EQ(view.rightTextRect().center().x(), 200);
    view.setLeft(-30);
    EXPECT_DOUBLE_EQ(view.leftTextRect().left(), 0);
    view.setRight(299);
    EXPECT_DOUBLE_EQ(view.rightTextRect().right(), 300);
    // Close to the left edge the right text moves over by 4 − right ÷ 2.
    view.setRightText(u"."_s);
    const double half = view.fontMetrics().horizontalAdvance(u"."_s) / 2.0;
    ASSERT_LE(half, 5);
    view.setRight(2);
    EXPECT_DOUBLE_EQ(view.rightTextRect().center().x(), 2 + 4 - 1);
    view.setRight(8);
    EXPECT_DOUBLE_EQ(view.rightTextRect().center().x(), 8);
}

TEST(FixButtonBackground, TheDialShowsTheShiftAgainstTheDurationClockwiseForLater)
{
    EXPECT_DOUBLE_EQ(CTFixButtonBackground::dialFraction(3, 60), 0.5);
    EXPECT_DOUBLE_EQ(CTFixButtonBackground::dialFraction(6, 60), 1);
    EXPECT_DOUBLE_EQ(CTFixButtonBackground::dialFraction(50, 60), 1);
    EXPECT_DOUBLE_EQ(CTFixButtonBackground::dialFraction(-1.5, 60), -0.25);
    EXPECT_DOUBLE_EQ(CTFixButtonBackground::dialFraction(-100, 60), -1);
    EXPECT_DOUBLE_EQ(CTFixButtonBackground::dialFraction(5, 0), 0);

    CTFixButtonBackground background;
    background.setDuration(100);
    auto bluish = [](QRgb p) { return qBlue(p) > qRed(p) + 40; };
    // A quarter, later: from nine o'clock to twelve, the upper left.
    background.setTimeShift(2.5);
    QImage image = render(background, {96, 68});
    EXPECT_TRUE(bluish(image.pixel(30, 20)));
    EXPECT_FALSE(bluish(image.pixel(66, 20)));
    EXPECT_FALSE(bluish(image.pixel(30, 48)));
    // A quarter, earlier: from nine o'clock to six, the lower left.
    background.setTimeShift(-2.5);
    image = render(background, {96, 68});
    EXPECT_TRUE(bluish(image.pixel(30, 48)));
    EXPECT_FALSE(bluish(image.pixel(30, 20)));
    // Without a duration, or with the value hidden, no dial.
    background.setShowValue(false);
    image = render(background, {96, 68});
    EXPECT_FALSE(bluish(image.pixel(30, 48)));
    background.setShowValue(true);
    background.setDuration(0);
    image = render(background, {96, 68});
    EXPECT_FALSE(bluish(image.pixel(30, 48)));
}

TEST(FixButtonBackground, HoveringShowsTheExactShiftAndTheDarkPlateFollowsTheColours)
{
    CTFixButtonBackground background;
    auto *field = new QLineEdit;
    auto *cover = new QWidget;
    background.setHideView(cover);
    background.setShiftField(field);
    background.resize(96, 68);
    background.show();
    background.setTimeShift(-1.2346);
    EXPECT_EQ(field->text(), u"-1.235s"_s);
    EXPECT_FALSE(field->isVisible());
    QEnterEvent enter(QPointF(10, 10), QPointF(10, 10), QPointF(10, 10));
    QApplication::sendEvent(&background, &enter);
    EXPECT_TRUE(field->isVisible());
    EXPECT_TRUE(cover->isVisible());
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&background, &leave);
    EXPECT_FALSE(field->isVisible());
    EXPECT_FALSE(cover->isVisible());
    background.setHoverEnabled(false);
    QApplication::sendEvent(&background, &enter);
    EXPECT_FALSE(field->isVisible());

    QPalette dark = background.palette();
    dark.setColor(QPalette::Window, QColor(30, 30, 30));
    background.setPalette(dark);
    EXPECT_EQ(background.imageName(), u"FixButtonBackground-Dark"_s);
    dark.setColor(QPalette::Window, QColor(236, 236, 236));
    background.setPalette(dark);
    EXPECT_EQ(background.imageName(), u"FixButtonBackground"_s);
}

TEST(FixButton, TakesTheFocusOnlyInTap2SyncWhereItGlows)
{
    QWidget window;
    auto *other = new QLineEdit(&window);
    auto *button = new CTFixButton(&window);
    button->move(0, 40);
    window.show();
    QApplication::setActiveWindow(&window);
    for (int mode : {0, 1, 2, 3}) {
        button->setFixMode(mode);
        other->setFocus();
        button->setFocus(Qt::OtherFocusReason);
        EXPECT_FALSE(button->hasFocus()) << mode;
        QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_FALSE(button->hasFocus()) << mode;
        EXPECT_FALSE(button->isGlowPulsing());
        EXPECT_EQ(button->glowOpacity(), 0);
        EXPECT_EQ(button->glowRadius(), 0);
    }
    button->setFixMode(4);
    button->setFocus(Qt::OtherFocusReason);
    EXPECT_TRUE(button->hasFocus());
    EXPECT_TRUE(button->isGlowPulsing());
    EXPECT_GT(button->glowRadius(), 0);
    EXPECT_EQ(CTFixButton::GlowPulseMs, 600);

    int taps = 0, escapes = 0;
    button->onTap = [&] { ++taps; };
    button->onEscape = [&] { ++escapes; };
    QTest::keyClick(button, Qt::Key_A);
    QTest::keyClicks(button, u"a1."_s);
    EXPECT_EQ(taps, 0);
    QTest::keyClick(button, Qt::Key_Space);
    EXPECT_EQ(taps, 1);
    QTest::keyClick(button, Qt::Key_Escape);
    EXPECT_EQ(escapes, 1);

    // Leaving the mode stops the glow and gives the focus up.
    button->setFixMode(1);
    EXPECT_FALSE(button->isGlowPulsing());
    EXPECT_EQ(button->glowOpacity(), 0);
    EXPECT_EQ(button->glowRadius(), 0);
    EXPECT_FALSE(button->hasFocus());
}

TEST(FixPanel, DescribesWhatTheNextFixDoes)
{
    EXPECT_EQ(FixPanel::describe(0, 5, 1, true), u"Select a line to fix its start."_s);
    EXPECT_EQ(
        FixPanel::describe(1, 5, 1.25, true),
        u"This line moves by +1.25s; the lines up to the nearest fixed lines stretch with it (5 in all)."_s);
    EXPECT_EQ(FixPanel::describe(2, 3, -0.5, true),
              u"3 lines, up to the nearest fixed lines, move by -0.50s together."_s);
    EXPECT_EQ(FixPanel::describe(3, 1, 2, true), u"Only this line moves, by +2.00s."_s);
    EXPECT_EQ(FixPanel::describe(1, 1, 2, true), u"Only this line moves, by +2.00s."_s);
    EXPECT_EQ(FixPanel::describe(2, 3, 9, false),
              u"Outside the fixed lines around it: nothing would move."_s);
}

// --- in the window ------------------------------------------------------------------------------

namespace {
class ClockPlayer final : public PlaybackControl
{
public:
    QWidget view;
    PlaybackControlDelegate *delegate = nullptr;
    bool movie = false, playing = false;
    double time = 0;

    int kind() const override { return 1; }
    bool hasMovie() const override { return movie; }
    double currentTime() const override { return time; }
    void setCurrentTime(double seconds) override
    {
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
    bool loadMovieURL(const QString &) override { return true; }
    void unloadMovie() override { movie = false; }
    void setDelegate(PlaybackControlDelegate *d) override { delegate = d; }
    double aspectRatio() const override { return 16.0 / 9; }
    QList<AudioTrackItem> audioMenuItems() const override { return {}; }
};

class FixWindowTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        MainQueue::main().drain();
        Settings::shared().useFile(dir.path(u"settings.ini"_s));
        Settings::shared().setValue(u"Locale"_s, u"en"_s);
        Settings::shared().setValue(u"AutoOpenSearch"_s, false);
    }
    void TearDown() override
    {
        MainQueue::main().drain();
        window.reset();
    }
    void openWindow()
    {
        window = std::make_unique<ProjectWindow>();
        window->setPlayers(
            [this](int) -> PlaybackControl * { return player = new ClockPlayer; },
            [](PlaybackControl *p) -> QWidget * { return &static_cast<ClockPlayer *>(p)->view; });
        window->start();
        window->resize(1200, 720);
        window->show();
        QApplication::setActiveWindow(window.get());
    }
    // Lines at 1, 5, 10, 20 and 30 s of a 60 s movie.
    void openMovie()
    {
        dir.write(u"Film.en.srt"_s, "1\n00:00:01,000 --> 00:00:02,000\nOne\n\n"
                                    "2\n00:00:05,000 --> 00:00:07,500\nTwo\n\n"
                                    "3\n00:00:10,000 --> 00:00:12,000\nThree\n\n"
                                    "4\n00:00:20,000 --> 00:00:22,000\nFour\n\n"
                                    "5\n00:00:30,000 --> 00:00:32,000\nFive\n\n");
        window->project()->setMoviePath(dir.write(u"Film.mp4"_s, "movie"));
        player->movie = true;
        player->delegate->movieControllerDidLoadMovie(player);
        QCoreApplication::processEvents();
    }
    void settle()
    {
        MainQueue::main().drain();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    TempDir dir;
    ScriptedPrompter prompter;
    ScopedPrompter scopedPrompter{&prompter};
    LogCapture log;
    ClockPlayer *player = nullptr;
    std::unique_ptr<ProjectWindow> window;
};
} // namespace

TEST_F(FixWindowTest, ATypedStartShowsItsFixBeforeItIsCommitted)
{
    openWindow();
    openMovie();
    window->project()->subtitles()[3]->setFixed(true); // an anchor at 20 s
    window->cueTable()->selectRow(1);                  // the line at 5 s
    player->setCurrentTime(5.0001);
    settle();
    FixPanel *panel = window->fixPanel();
    EXPECT_EQ(panel->preview()->fixMode(), 1);
    EXPECT_DOUBLE_EQ(panel->preview()->min(), 0);
    EXPECT_DOUBLE_EQ(panel->preview()->max(), 20);
    EXPECT_EQ(panel->preview()->segments(), 3u);
    EXPECT_EQ(panel->preview()->index(), 1);

    QLineEdit *field = window->startField();
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, VHTimeValueTransformer::stringForTime(6));
    EXPECT_DOUBLE_EQ(panel->preview()->newTime(), 6);
    EXPECT_EQ(panel->modeLabel()->text(), u"typed, Return applies"_s);
    EXPECT_EQ(window->fixButton()->title(), u"Fix"_s);
    EXPECT_TRUE(panel->detailLabel()->text().startsWith(u"This line moves by +1.00s"_s))
        << panel->detailLabel()->text().toStdString();
    EXPECT_EQ(window->fixButton()->subtitle(), u"+1.00s"_s);
    EXPECT_DOUBLE_EQ(window->project()->subtitles()[1]->start(), 5); // nothing moved yet
    // The playing time moving does not take the typed start's place.
    player->setCurrentTime(8);
    EXPECT_DOUBLE_EQ(panel->preview()->newTime(), 6);

    QTest::keyClick(field, Qt::Key_Return);
    settle();
    EXPECT_DOUBLE_EQ(window->project()->subtitles()[1]->start(), 6);
    // The line before stretches from 0 s, the one after between the new start and the anchor.
    EXPECT_NEAR(window->project()->subtitles()[0]->start(), 1.2, 1e-9);
    EXPECT_NEAR(window->project()->subtitles()[2]->start(), 6 + 5 * 14.0 / 15, 1e-9);
    EXPECT_DOUBLE_EQ(panel->preview()->newTime(), 8); // the playing time again
    EXPECT_EQ(panel->modeLabel()->text(), u"Fix"_s);
    // One undo step puts it all back.
    window->runCommand(u"undo:"_s);
    settle();
    EXPECT_DOUBLE_EQ(window->project()->subtitles()[1]->start(), 5);
    EXPECT_DOUBLE_EQ(window->project()->subtitles()[2]->start(), 10);
}

TEST_F(FixWindowTest, TheModeIsChosenOnTheControlAndStaysWhenModifiersAreLetGo)
{
    openWindow();
    openMovie();
    window->cueTable()->selectRow(2);
    settle();
    FixPanel *panel = window->fixPanel();
    EXPECT_TRUE(panel->modeButton(1)->isChecked());
    QTest::mouseClick(panel->modeButton(2), Qt::LeftButton);
    settle();
    EXPECT_EQ(window->project()->fixMode(), FixMode::Shift);
    EXPECT_EQ(window->fixButton()->title(), u"Shift"_s);
    EXPECT_TRUE(panel->modeButton(2)->isChecked());
    EXPECT_EQ(panel->modeLabel()->text(), u"Shift"_s);

    // Holding Alt picks Single for as long as it is held; letting go returns to the chosen mode.
    QTest::keyPress(window.get(), Qt::Key_Alt, Qt::AltModifier);
    settle();
    EXPECT_EQ(window->project()->fixMode(), FixMode::Single);
    EXPECT_TRUE(panel->modeButton(3)->isChecked());
    QTest::keyRelease(window.get(), Qt::Key_Alt, Qt::NoModifier);
    settle();
    EXPECT_EQ(window->project()->fixMode(), FixMode::Shift);

    // A Shift fix at 12 s moves the run by 2 s and stays in Shift.
    player->setCurrentTime(12);
    QTest::mouseClick(window->fixButton(), Qt::LeftButton);
    settle();
    EXPECT_DOUBLE_EQ(window->project()->subtitles()[0]->start(), 3);
    EXPECT_DOUBLE_EQ(window->project()->subtitles()[4]->start(), 32);
    EXPECT_EQ(window->project()->fixMode(), FixMode::Shift);

    QTest::mouseClick(panel->modeButton(1), Qt::LeftButton);
    settle();
    EXPECT_EQ(window->project()->fixMode(), FixMode::Fix);
}

TEST_F(FixWindowTest, Tap2SyncExplainsItselfUntilToldNotToAndGlowsWhileItRuns)
{
    Settings::shared().setValue(u"ShowTutorial"_s, false);
    openWindow();
    openMovie();
    window->cueTable()->selectRow(1);
    settle();
    prompter.answers = {PromptAnswer{1, 0, false}}; // Cancel
    window->runCommand(u"toggleTap2Sync:"_s);
    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(prompter.prompts[0].message, u"How to use \"Tap2Sync\""_s);
    EXPECT_EQ(prompter.prompts[0].buttons, (QStringList{u"Start"_s, u"Cancel"_s}));
    EXPECT_FALSE(prompter.prompts[0].checkboxTitle.isEmpty());
    EXPECT_EQ(window->project()->fixMode(), FixMode::Fix);

    prompter.answers = {PromptAnswer{0, 0, true}}; // Start, do not show again
    window->runCommand(u"toggleTap2Sync:"_s);
    settle();
    EXPECT_EQ(window->project()->fixMode(), FixMode::Tap2Sync);
    EXPECT_TRUE(window->fixButton()->isGlowPulsing());
    EXPECT_EQ(window->fixPanel()->modeLabel()->text(), u"Tap2Sync"_s);
    EXPECT_FALSE(window->fixPanel()->modeButton(1)->isEnabled());
    window->runCommand(u"toggleTap2Sync:"_s);
    window->runCommand(u"toggleTap2Sync:"_s);
    EXPECT_EQ(prompter.prompts.size(), 2); // not asked again
    window->runCommand(u"toggleTap2Sync:"_s);
    settle();
    EXPECT_FALSE(window->fixButton()->isGlowPulsing());
}

TEST_F(FixWindowTest, TheTutorialShowsAtTheFirstStartUntilItsBoxIsTicked)
{
    openWindow();
    TutorialOverlay *tutorial = window->tutorial();
    ASSERT_NE(tutorial, nullptr);
    EXPECT_TRUE(tutorial->isVisible());
    QString texts;
    for (const QLabel *label : tutorial->findChildren<QLabel *>())
        texts += label->text() + u'\n';
    EXPECT_TRUE(texts.contains(u"Click a line to go there."_s)) << texts.toStdString();
    EXPECT_TRUE(texts.contains(u"when you hear it"_s));
    EXPECT_TRUE(texts.contains(u"Tap2Sync for a whole film."_s));
    EXPECT_TRUE(texts.contains(
        window->action(u"fixSubtitleStart:"_s)->shortcut().toString(QKeySequence::NativeText)));
    // It leaves the keyboard to the window.
    EXPECT_FALSE(tutorial->isAncestorOf(QApplication::focusWidget()));

    // Closed without the box: it shows again next time.
    QTest::mouseClick(tutorial->closeButton(), Qt::LeftButton);
    settle();
    EXPECT_EQ(window->tutorial(), nullptr);
    openWindow();
    ASSERT_NE(window->tutorial(), nullptr);
    window->tutorial()->dontShowBox()->setChecked(true);
    QTest::mouseClick(window->tutorial()->closeButton(), Qt::LeftButton);
    settle();
    EXPECT_FALSE(Settings::shared().boolValue(u"ShowTutorial"_s));
    openWindow();
    EXPECT_EQ(window->tutorial(), nullptr);
    // The Timing menu brings it back.
    window->runCommand(u"showTutorial:"_s);
    ASSERT_NE(window->tutorial(), nullptr);
    EXPECT_TRUE(window->tutorial()->isVisible());
}

TEST_F(FixWindowTest, TheTimeViewShowsTheRangeUnderTheScrubber)
{
    Settings::shared().setValue(u"ShowTutorial"_s, false);
    openWindow();
    openMovie();
    window->project()->subtitles()[1]->setFixed(true);
    window->project()->subtitles()[3]->setFixed(true);
    window->cueTable()->selectRow(2); // between the anchors at 5 and 20 s
    settle();
    CTTimeView *view = window->timeView();
    EXPECT_EQ(view->leftText(), window->project()->rangeDisplay().startText);
    EXPECT_EQ(view->rightText(), window->project()->rangeDisplay().endText);
    EXPECT_FALSE(view->leftText().isEmpty());
    // At the scrubber's places for 5 s and 20 s of 60.
    const QSlider *scrubber = window->scrubber();
    const int handle = scrubber->style()->pixelMetric(QStyle::PM_SliderLength, nullptr, scrubber);
    const double track = scrubber->width() - handle;
    EXPECT_NEAR(view->left(), handle / 2.0 + track * 5 / 60, 1e-9);
    EXPECT_NEAR(view->right(), handle / 2.0 + track * 20 / 60, 1e-9);
    EXPECT_EQ(view->width(), scrubber->width());
}

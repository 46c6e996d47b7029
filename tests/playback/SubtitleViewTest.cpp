#include "VHSubtitleView.h"

#include "PlaybackTestSupport.h"
#include "Settings.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPainter>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

SubtitleList cues(std::initializer_list<std::pair<double, double>> times)
{
    SubtitleList list;
    int n = 0;
    for (const auto &[from, to] : times)
        list << VHSubtitle::create(u"cue %1"_s.arg(++n), from, to);
    return list;
}

// Counts the view's paint passes.
class PaintCounter : public QObject
{
public:
    int paints = 0;
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            ++paints;
        return false;
    }
};

struct Shown
{
    VHSubtitleView view;
    QList<SubtitlePtr> reported;
    Shown()
    {
        QObject::connect(&view, &VHSubtitleView::subtitleViewDidChangeSubtitle, &view,
                         [this](VHSubtitleView *, const SubtitlePtr &cue) { reported << cue; });
    }
};

} // namespace

TEST(SubtitleViewSearch, FindsTheCueCoveringTheTimeAndStopsWhereItWalked)
{
    VHSubtitleView view;
    const SubtitleList list = cues({{1, 2}, {3, 4}, {5, 6}});
    view.setSubtitles(list);
    struct Step
    {
        double time;
        int cue; // -1: none
        qsizetype segment;
    };
    // One walk over the list, each step starting where the previous one stopped.
    const Step steps[] = {
        {0.5, -1, 0},                            // before the first cue: back at index 0, nothing shown
        {1.0, 0, 0},                             // a start is inside its cue
        {2.0, 0, 0},                             // and so is an end
        {2.5, -1, 1},                            // between cues: the walk ends on the next one
        {4.0, 1, 1},  {6.0, 2, 2}, {9.0, -1, 2}, // after the last cue: stays on the last index
        {3.5, 1, 1},                             // walking back
        {0.0, -1, 0},
    };
    for (const Step &step : steps) {
        SCOPED_TRACE(step.time);
        view.setCurrentTime(step.time);
        EXPECT_EQ(view.currentSubtitle(), step.cue < 0 ? nullptr : list[step.cue]);
        EXPECT_EQ(view.currentSegment(), step.segment);
    }
}

TEST(SubtitleViewSearch, OverlappingCuesDependOnTheWalkingDirection)
{
    VHSubtitleView view;
    const SubtitleList list = cues({{1, 5}, {3, 7}});
    view.setSubtitles(list);
    view.setCurrentTime(4);
    EXPECT_EQ(view.currentSubtitle(), list[0]); // walking forward finds the earlier one
    view.setCurrentTime(6);
    EXPECT_EQ(view.currentSubtitle(), list[1]);
    view.setCurrentTime(4);
    EXPECT_EQ(view.currentSubtitle(), list[1]); // from the later one, no walk back is needed
}

TEST(SubtitleViewSearch, ReplacingTheListKeepsTheIndexInside)
{
    VHSubtitleView view;
    view.setSubtitles(cues({{1, 2}, {3, 4}, {5, 6}}));
    view.setCurrentTime(5.5);
    ASSERT_EQ(view.currentSegment(), 2);
    const SubtitleList one = cues({{5, 6}});
    view.setSubtitles(one);
    EXPECT_EQ(view.currentSegment(), 0);
    EXPECT_EQ(view.currentSubtitle(), one[0]); // the stored time is searched again
    view.setSubtitles({});
    EXPECT_EQ(view.currentSegment(), -1);
    EXPECT_EQ(view.currentSubtitle(), nullptr);
}

TEST(SubtitleViewReports, AnEmptyListNeverReportsACue)
{
    Shown shown;
    shown.view.setSubtitles({});
    for (double t : {0.0, 1.0, 100.0})
        shown.view.setCurrentTime(t);
    EXPECT_TRUE(shown.reported.isEmpty());
}

TEST(SubtitleViewReports, RepeatsUntilDrawnThenOnlyOnChange)
{
    Shown shown;
    const SubtitleList list = cues({{1, 2}, {3, 4}});
    shown.view.resize(600, 300);
    shown.view.setSubtitles(list);
    shown.view.setCurrentTime(1.2);
    shown.view.setCurrentTime(1.4);
    EXPECT_EQ(shown.reported, (QList<SubtitlePtr>{list[0], list[0]}));

    QImage canvas(600, 300, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&canvas);
    shown.view.drawSubtitle(painter);
    EXPECT_EQ(shown.view.observedSubtitle(), list[0]);
    shown.view.setCurrentTime(1.6);
    EXPECT_EQ(shown.reported.size(), 2); // same cue, already drawn
    shown.view.setCurrentTime(2.5);
    EXPECT_EQ(shown.reported.last(), nullptr);
    shown.view.drawSubtitle(painter);
    EXPECT_EQ(shown.view.observedSubtitle(), nullptr);
}

TEST(SubtitleViewDrawing, EditingTheShownCueRedrawsWithoutATimeChange)
{
    VHSubtitleView view;
    PaintCounter counter;
    view.installEventFilter(&counter);
    view.resize(600, 300);
    const SubtitleList list = cues({{1, 2}, {3, 4}});
    view.setSubtitles(list);
    view.setCurrentTime(1.5);
    view.show();
    ASSERT_TRUE(waitFor([&] { return view.observedSubtitle() == list[0]; }));

    // Each of the three observed keys, and nothing for a cue not shown.
    const std::function<void()> edits[] = {
        [&] { list[0]->setString(u"edited"_s); },
        [&] { list[0]->setEnd(2.5); },
        [&] { list[0]->replaceStart(0.5, 2.5); },
    };
    for (const auto &edit : edits) {
        QCoreApplication::processEvents();
        const int before = counter.paints;
        edit();
        EXPECT_TRUE(waitFor([&] { return counter.paints > before; }, 2000));
    }
    QCoreApplication::processEvents();
    const int before = counter.paints;
    list[1]->setString(u"not shown"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(counter.paints, before);
}

TEST(SubtitleViewLayout, FontAndMarginFollowTheWidthOnly)
{
    struct Row
    {
        double width, height, font, margin;
    };
    const Row rows[] = {{300, 200, 6, 6}, {1200, 200, 24, 24},  {600, 50, 12, 12},
                        {100, 900, 6, 6}, {625, 400, 12.5, 13}, {575, 400, 11.5, 12}};
    for (const Row &row : rows) {
        const auto layout = VHSubtitleView::layoutFor({row.width, row.height}, {50, 20}, 0);
        EXPECT_DOUBLE_EQ(layout.fontSize, row.font) << row.width;
        EXPECT_DOUBLE_EQ(layout.margin, row.margin) << row.width;
    }
}

TEST(SubtitleViewLayout, BoxIsCentredLimitedAndPlacedByTheVerticalPosition)
{
    // 600×400: font 12, margin 12.
    const auto bottom = VHSubtitleView::layoutFor({600, 400}, {100, 30}, 0);
    EXPECT_EQ(bottom.textRect, QRectF(250, 400 - 12 - 30, 100, 30));
    EXPECT_EQ(bottom.boxRect, QRectF(238, 346, 124, 54));
    const auto top = VHSubtitleView::layoutFor({600, 400}, {100, 30}, 1);
    EXPECT_EQ(top.textRect.top(), 12);
    const auto middle = VHSubtitleView::layoutFor({600, 400}, {100, 30}, 0.5);
    EXPECT_DOUBLE_EQ(middle.textRect.top(), 400 - (0.5 * (400 - 30 - 24) + 12) - 30);
    // A line wider than the view: the box stops the margin short of both edges.
    const auto wide = VHSubtitleView::layoutFor({600, 400}, {2000, 30}, 0);
    EXPECT_EQ(wide.textRect.left(), 12);
    EXPECT_EQ(wide.textRect.width(), 600 - 24);
}

TEST(SubtitleViewLayout, FollowsTheSharedPreference)
{
    VHSubtitleView first, second;
    EXPECT_EQ(first.verticalPosition(), 0); // unset: the bottom
    Settings::shared().setValue(VHSubtitleView::VerticalPositionKey, 0.75);
    EXPECT_EQ(first.verticalPosition(), 0.75);
    EXPECT_EQ(second.verticalPosition(), 0.75);
    Settings::shared().remove(VHSubtitleView::VerticalPositionKey);
    EXPECT_EQ(first.verticalPosition(), 0);
}

TEST(SubtitleViewDrawing, WhiteTextOnATranslucentBlackBox)
{
    VHSubtitleView view;
    view.resize(600, 400);
    const SubtitleList list = {VHSubtitle::create(u"HELLO WORLD"_s, 1, 2)};
    view.setSubtitles(list);
    view.setCurrentTime(1.5);

    QImage canvas(600, 400, QImage::Format_RGB32);
    canvas.fill(QColor(100, 100, 100));
    QPainter painter(&canvas);
    view.drawSubtitle(painter);
    painter.end();

    const auto layout = view.currentLayout(list[0]->string());
    EXPECT_GT(whitePixels(canvas, layout.textRect.toRect()), 20);
    EXPECT_EQ(whitePixels(canvas, QRect(0, 0, 600, 300)), 0);
    // The margin of the box: 40 % of the grey shows through.
    const QPoint corner = layout.boxRect.topLeft().toPoint() + QPoint(2, 2);
    EXPECT_NEAR(qRed(canvas.pixel(corner)), 40, 2);
    // Outside the box the picture is untouched.
    EXPECT_EQ(qRed(canvas.pixel(layout.boxRect.topLeft().toPoint() - QPoint(3, 3))), 100);

    // A cue without text draws nothing.
    list[0]->setString(QString());
    canvas.fill(QColor(100, 100, 100));
    QPainter again(&canvas);
    view.drawSubtitle(again);
    again.end();
    EXPECT_EQ(qRed(canvas.pixel(corner)), 100);
}

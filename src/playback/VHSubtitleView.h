#pragma once

#include "Observable.h"
#include "VHSubtitle.h"

#include <QRectF>
#include <QWidget>

class QPainter;
class QPropertyAnimation;

// The transparent view laid over the movie. It holds the cue list of the language being
// edited, is told the playing time by the playback controller, draws the text of the cue
// covering that time centred on a dark box, and reports when the shown cue changes. It
// redraws by itself when the shown cue's text or times are edited. The text's height is the
// user default "verticalSubtitlePosition" (0 bottom .. 1 top), followed live by every
// overlay.
//
// Ownership: the overlay holds its list (shared cues) and the cue it drew last.
// Threading: main thread only.
class VHSubtitleView : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(double opacity READ opacity WRITE setOpacity)

public:
    static const QString VerticalPositionKey; // "verticalSubtitlePosition"

    explicit VHSubtitleView(QWidget *parent = nullptr);
    ~VHSubtitleView() override;

    const SubtitleList &subtitles() const { return m_subtitles; }
    void setSubtitles(const SubtitleList &subtitles);

    double currentTime() const { return m_currentTime; }
    void setCurrentTime(double seconds);

    // The cue covering the current time, or null. Walks from the remembered index, which
    // stays where the walk stopped (so consecutive times cost a step or two).
    SubtitlePtr currentSubtitle();
    qsizetype currentSegment() const { return m_currentSegment; }

    double verticalPosition() const { return m_verticalPosition; }
    void setVerticalPosition(double position);

    // Only asks for a redraw.
    void updateCurrentSubtitle() { update(); }

    const SubtitlePtr &observedSubtitle() const { return m_observedSubtitle; }
    void setObservedSubtitle(const SubtitlePtr &cue);

    // Kept as a property; the box is always drawn.
    bool drawBackground() const { return m_drawBackground; }
    void setDrawBackground(bool draw) { m_drawBackground = draw; }

    // 1 fully shown, 0 hidden; fadeTo() animates it.
    double opacity() const { return m_opacity; }
    void setOpacity(double opacity);
    void fadeTo(double opacity);

    // Where the text and its box go in a view of `viewSize` (top-left origin) for a text of
    // natural size `textSize`.
    struct Layout
    {
        double fontSize = 0;
        double margin = 0;
        QRectF textRect; // the box the text is drawn in
        QRectF boxRect;  // textRect enlarged by the margin: the dark fill
    };
    static double fontSizeForWidth(double viewWidth);
    static Layout layoutFor(QSizeF viewSize, QSizeF textSize, double verticalPosition);
    // The layout of the current cue's text in this view, and the font it is drawn with.
    Layout currentLayout(const QString &text, QFont *font = nullptr) const;

    // Draws the current cue into `painter` over a view of this view's size. Used by the
    // paint pass and by frame grabs that composite the overlay onto a movie frame.
    void drawSubtitle(QPainter &painter);

Q_SIGNALS:
    // The cue found for the time differs from the one drawn last (null: none). Repeats of
    // the same cue arrive until the view has drawn it.
    void subtitleViewDidChangeSubtitle(VHSubtitleView *view, const SubtitlePtr &cue);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    SubtitleList m_subtitles;
    qsizetype m_currentSegment = -1;
    double m_currentTime = 0;
    double m_verticalPosition = 0;
    SubtitlePtr m_observedSubtitle;
    Observable::KeyToken m_observedToken;
    Observable::KeyToken m_positionToken;
    bool m_drawBackground = true;
    double m_opacity = 1;
    QPropertyAnimation *m_fade = nullptr;
};

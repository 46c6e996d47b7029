#pragma once

#include "AudioAnalysis.h"
#include "CueListEditor.h"
#include "Observable.h"
#include "VHSubtitle.h"

#include <QCoreApplication>
#include <QPixmap>
#include <QWidget>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

class CTWindowController;
class SpeechSnapper;

// Seconds ↔ pixels of the timeline: the time at the left edge and the seconds one pixel
// spans. Zooming keeps between about 2 s across the strip and the whole movie across it.
struct TimelineScale
{
    double viewStart = 0;
    double secondsPerPixel = 0.01;

    double xAt(double seconds) const { return (seconds - viewStart) / secondsPerPixel; }
    double timeAt(double x) const { return viewStart + x * secondsPerPixel; }
    double viewEnd(int width) const { return timeAt(width); }

    // The narrowest view: this many seconds across the strip.
    static constexpr double MinimumSpan = 2.0;
    // `secondsPerPixel` limited to 2 s across at the most zoomed in and the whole length
    // (`length`, at least 2 s) across at the most zoomed out.
    static double limitedSecondsPerPixel(double secondsPerPixel, double length, int width);
    // `viewStart` kept so that the view shows no time before 0 or after `length`.
    static double limitedViewStart(double viewStart, double secondsPerPixel, double length, int width);
};

// How far the cues reach: for each index, the latest end of the cues up to it (so that a
// long line that starts early is found where it still shows).
std::vector<double> cueReach(const SubtitleList &cues);
// The cues of `cues` (in start order) that show between `from` and `to`, as a half-open
// range of indexes from the first that still runs into `from` to the last that starts by
// `to`. Two binary searches: on `reach` (from cueReach()) and on the starts.
std::pair<qsizetype, qsizetype> visibleCueRange(const SubtitleList &cues, const std::vector<double> &reach,
                                                double from, double to);

// The strip between the movie and the editor: the waveform of the movie's audio (the
// smallest and largest sample of each pixel), a band where speech was detected, the cues
// as bars with their text, anchors marked, the playhead, and the pending fix drawn as the
// current cue's bar where a fix now would move it.
//
// Ctrl+wheel and zoomIn()/zoomOut() zoom about the mouse or the playhead, the wheel
// scrolls, and the view follows playback. A click seeks (on a bar, it selects that line);
// dragging a bar's start edge fixes the line there in the current mode (through the
// project's fix commands, one undo step), dragging its end edge sets its end (one undo
// step). A dragged start edge snaps to speech like the fix key does.
//
// It paints only what is visible: the cues on screen are found by binary search, and the
// waveform is drawn into a cached picture that is redrawn only when the view or the peaks
// change.
class TimelineView final : public QWidget, private CueListObserver
{
    Q_DECLARE_TR_FUNCTIONS(TimelineView)

public:
    TimelineView(CTWindowController *project, const SpeechSnapper *snapper, QWidget *parent = nullptr);
    ~TimelineView() override;

    // --- the audio picture ----------------------------------------------------------------
    // The analysis of the movie's sound that the waveform and the speech band show (null:
    // none). It is read on the GUI thread while the analyser fills it.
    void setAnalysis(std::shared_ptr<const AudioAnalysis> analysis);
    const std::shared_ptr<const AudioAnalysis> &analysis() const { return m_analysis; }
    // Bins [first, end) of the analysis were filled: drawn again when they are on screen.
    void binsFilled(qint64 first, qint64 end);
    // The analysis found more speech: the band reads it again.
    void speechChanged();
    const QList<SpeechSegment> &speech() const { return m_speech; }
    // A short note drawn where the waveform goes ("No sound to show").
    void setAudioNote(const QString &note);
    const QString &audioNote() const { return m_audioNote; }

    // --- the view -------------------------------------------------------------------------
    const TimelineScale &scale() const { return m_scale; }
    // Shows `seconds` per pixel from `viewStart` on, within the zoom limits.
    void setView(double viewStart, double secondsPerPixel);
    void zoomBy(double factor, std::optional<double> anchorX = std::nullopt);
    void zoomIn() { zoomBy(0.5); }
    void zoomOut() { zoomBy(2.0); }
    void showWholeMovie();
    // The length the view spans at the most zoomed out: the movie, else the sound, else the
    // last cue's end, at least 2 s.
    double length() const;

    // --- layout, for painting and hit tests ------------------------------------------------
    QRect waveformRect() const;
    QRect speechRect() const;
    QRect cueRect() const;
    // The bar of a cue in widget coordinates.
    QRectF barRect(const VHSubtitle &cue) const;

    // What a press at `pos` would grab: the start or end edge of the cue at `index`, its
    // body, or nothing (the time).
    enum class Grab { None, Body, StartEdge, EndEdge };
    std::pair<Grab, qsizetype> grabAt(QPointF pos) const;

    // Where a fix now would put the current cue's start (the playing time, snapped to speech,
    // limited to the fix range, less the reaction delay in Tap2Sync); none without a current
    // cue or a fix mode. `allowed` says whether the fix commands would take it.
    struct PendingFix
    {
        double from = 0;
        double to = 0;
        bool allowed = false;
    };
    std::optional<PendingFix> pendingFix() const;

    // The drag in progress: the cue and the time its edge is over now (snapped for a start).
    struct Drag
    {
        Grab edge = Grab::None;
        SubtitlePtr cue;
        double time = 0;
        std::optional<double> snappedTo;
    };
    const std::optional<Drag> &drag() const { return m_drag; }
    // The modifier keys a fix should snap with: those of the drag being dropped while its fix
    // runs, else the keys held now.
    Qt::KeyboardModifiers modifiersForFix() const;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    // CueListObserver: any change of the list repaints.
    void cueRowsAboutToBeInserted(qsizetype, qsizetype) override {}
    void cueRowsInserted() override { cuesChanged(); }
    void cueRowsAboutToBeRemoved(qsizetype, qsizetype) override {}
    void cueRowsRemoved() override { cuesChanged(); }
    void cueListAboutToBeReset() override {}
    void cueListReset() override { cuesChanged(); }
    void cueRowsChanged(qsizetype, qsizetype) override { cuesChanged(); }
    void cuesChanged();
    // The visible range of the project's cues, with the reach kept for the list as it is.
    std::pair<qsizetype, qsizetype> visibleCues(double from, double to) const;
    void projectKeyChanged(const QString &key);
    void followTime(double seconds);
    void seekTo(double seconds);
    void updateDrag(double x, Qt::KeyboardModifiers modifiers);
    void finishDrag();
    void selectCue(const SubtitlePtr &cue);
    void paintWaveform(QPainter &painter, const QRect &rect);
    void paintCues(QPainter &painter);
    void paintPending(QPainter &painter);
    void paintRuler(QPainter &painter);
    void invalidateWaveform();

    CTWindowController *m_project;
    const SpeechSnapper *m_snapper;
    Observable::KeyToken m_projectKeys;
    TimelineScale m_scale;
    bool m_viewChosen = false; // the user zoomed or scrolled: keep the view
    std::shared_ptr<const AudioAnalysis> m_analysis;
    QList<SpeechSegment> m_speech;
    QString m_audioNote;
    QPixmap m_waveformCache;
    bool m_waveformValid = false;
    mutable std::vector<double> m_reach;
    mutable bool m_reachValid = false;
    mutable quint64 m_reachRevision = 0;
    std::optional<Drag> m_drag;
    Qt::KeyboardModifiers m_dragModifiers;
    bool m_committing = false;
    bool m_scrubbing = false;
};

#pragma once

#include <QColor>
#include <QLineF>
#include <QList>
#include <QRectF>
#include <QWidget>

// The strip beside the fix control: where the line being fixed sits between its anchors, before
// the fix (yellow) and after it (red, following the playing time). Time runs from top (the
// earlier anchor) to bottom (the later one). The left column holds the lines of the run as they
// are, the right column where the fix would put them; thin links join each line's two places,
// so a stretch fans out and a shift slants.
class CTFixPreview final : public QWidget
{
public:
    explicit CTFixPreview(QWidget *parent = nullptr);

    // What one drawing shows, worked out from the fields and a size; paintEvent() draws it.
    struct Geometry
    {
        bool gradientOnly = true;
        int drawingMode = 0; // 1 Fix, 2 Shift, 3 Single
        QColor outlineColor;
        QRectF outline;            // the range between the anchors
        QList<QLineF> stepsBefore; // the lines of the run as they are
        QList<QLineF> stepsAfter;  // where the fix puts them
        QList<QLineF> links;       // each line's old place to its new one
        QLineF before;             // the current line before the fix, yellow
        QLineF after;              // after it, red
        bool washed = false;       // the new position is outside the range
    };
    Geometry geometry(QSizeF size) const;

    // The colours and widths of the marks.
    static QColor beforeColor() { return QColor::fromRgbF(1, 1, 0); }
    static QColor afterColor() { return QColor::fromRgbF(1, 0, 0); }
    static QColor washColor() { return QColor::fromRgbF(1, 0, 0, 0.3); }
    static constexpr double OutlineWidth = 2;
    static constexpr double MarkWidth = 4;
    static constexpr int MaxSteps = 39;

    double min() const { return m_min; }
    void setMin(double seconds) { m_min = seconds; }
    double max() const { return m_max; }
    void setMax(double seconds) { m_max = seconds; }
    double first() const { return m_first; }
    void setFirst(double seconds) { m_first = seconds; }
    double last() const { return m_last; }
    void setLast(double seconds) { m_last = seconds; }
    double prev() const { return m_prev; }
    void setPrev(double seconds) { m_prev = seconds; }
    double next() const { return m_next; }
    void setNext(double seconds) { m_next = seconds; }
    unsigned segments() const { return m_segments; }
    void setSegments(unsigned count) { m_segments = count; }
    qint64 index() const { return m_index; }
    void setIndex(qint64 index) { m_index = index; }
    qint64 maxIndex() const { return m_maxIndex; }
    void setMaxIndex(qint64 index) { m_maxIndex = index; }
    double updateThreshold() const { return m_updateThreshold; }
    void setUpdateThreshold(double seconds) { m_updateThreshold = seconds; }
    double lastUpdate() const { return m_lastUpdate; }

    double orgTime() const { return m_orgTime; }
    // Always redraws.
    void setOrgTime(double seconds);
    int fixMode() const { return m_fixMode; }
    // Always redraws.
    void setFixMode(int mode);
    double newTime() const { return m_newTime; }
    // Redraws only when the time moved more than the threshold since the last drawing, or in
    // Fix mode, so that a playing movie does not repaint the strip for nothing.
    void setNewTime(double seconds);

    // How often the strip asked to be drawn again.
    int redrawCount() const { return m_redraws; }

    QSize sizeHint() const override { return {50, 55}; }
    QSize minimumSizeHint() const override { return {50, 55}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void redraw();

    double m_min = 0, m_max = 0, m_first = 0, m_last = 0, m_prev = 0, m_next = 0;
    double m_orgTime = 0, m_newTime = 0;
    unsigned m_segments = 0;
    qint64 m_index = 0, m_maxIndex = 0;
    int m_fixMode = 0;
    double m_lastUpdate = 0, m_updateThreshold = 0;
    int m_redraws = 0;
};

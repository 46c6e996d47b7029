#pragma once

#include <QImage>
#include <QWidget>

class VHSubtitleView;

// Paints the latest video frame, scaled to fit with its aspect ratio kept and black bars
// around it. The software paths render into it: libmpv's software renderer (which already
// renders at the widget's size) and libVLC's frame callbacks (at the movie's size).
class ImageVideoSurface : public QWidget
{
    Q_OBJECT

public:
    explicit ImageVideoSurface(QWidget *parent = nullptr);

    void setFrame(const QImage &frame);
    const QImage &frame() const { return m_frame; }
    void clearFrame();
    // Where the frame is drawn inside `bounds`.
    static QRect frameRect(QSize frameSize, QRect bounds);
    // Paints what the widget shows into `painter` over `bounds`.
    void paintFrame(QPainter &painter, QRect bounds) const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QImage m_frame;
};

// The movie area: the video surface with the subtitle overlay above it, both filling it.
class MovieArea : public QWidget
{
    Q_OBJECT

public:
    MovieArea(QWidget *surface, VHSubtitleView *overlay, QWidget *parent = nullptr);

    QWidget *surface() const { return m_surface; }
    // Replaces the video surface (the old one is left to its owner to delete).
    void setSurface(QWidget *surface);
    VHSubtitleView *overlay() const { return m_overlay; }
    QSize sizeHint() const override { return {640, 360}; }

Q_SIGNALS:
    void clicked();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    QWidget *m_surface;
    VHSubtitleView *m_overlay;
};

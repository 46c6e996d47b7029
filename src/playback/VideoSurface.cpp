#include "VideoSurface.h"

#include "VHSubtitleView.h"

#include <QMouseEvent>
#include <QPainter>

ImageVideoSurface::ImageVideoSurface(QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(16, 16);
}

void ImageVideoSurface::setFrame(const QImage &frame)
{
    m_frame = frame;
    update();
}

void ImageVideoSurface::clearFrame()
{
    m_frame = QImage();
    update();
}

QRect ImageVideoSurface::frameRect(QSize frameSize, QRect bounds)
{
    if (frameSize.isEmpty() || bounds.isEmpty())
        return {};
    const QSize fitted = frameSize.scaled(bounds.size(), Qt::KeepAspectRatio);
    return QRect(bounds.x() + (bounds.width() - fitted.width()) / 2,
                 bounds.y() + (bounds.height() - fitted.height()) / 2, fitted.width(), fitted.height());
}

void ImageVideoSurface::paintFrame(QPainter &painter, QRect bounds) const
{
    painter.fillRect(bounds, Qt::black);
    if (m_frame.isNull())
        return;
    // A frame the renderer made at the widget's device size is drawn as it is.
    const QRect target = frameRect(m_frame.deviceIndependentSize().toSize(), bounds);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(target, m_frame);
}

void ImageVideoSurface::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    paintFrame(painter, rect());
}

MovieArea::MovieArea(QWidget *surface, VHSubtitleView *overlay, QWidget *parent)
    : QWidget(parent)
    , m_surface(surface)
    , m_overlay(overlay)
{
    setAutoFillBackground(true);
    QPalette black = palette();
    black.setColor(QPalette::Window, Qt::black);
    setPalette(black);
    m_surface->setParent(this);
    m_overlay->setParent(this);
    m_overlay->raise();
    setMinimumSize(160, 90);
}

void MovieArea::setSurface(QWidget *surface)
{
    m_surface->hide();
    m_surface = surface;
    m_surface->setParent(this);
    m_surface->setGeometry(rect());
    m_surface->show();
    m_overlay->raise();
}

void MovieArea::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_surface->setGeometry(rect());
    m_overlay->setGeometry(rect());
}

void MovieArea::mousePressEvent(QMouseEvent *event)
{
    Q_EMIT clicked();
    QWidget::mousePressEvent(event);
}

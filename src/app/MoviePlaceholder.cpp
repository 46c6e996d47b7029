#include "MoviePlaceholder.h"

#include <QLabel>
#include <QPalette>

using namespace Qt::StringLiterals;

MoviePlaceholder::MoviePlaceholder(QWidget *parent)
    : QWidget(parent)
    , m_background(new QLabel(this))
{
    setAutoFillBackground(true);
    QPalette dark = palette();
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::WindowText, QColor(170, 170, 170));
    setPalette(dark);
    m_background->setAlignment(Qt::AlignCenter);
    m_background->setWordWrap(true);
    setMinimumSize(320, 180);
}

void MoviePlaceholder::setPlayerView(QWidget *view)
{
    if (m_playerView == view)
        return;
    if (m_playerView)
        m_playerView->hide();
    m_playerView = view;
    if (view) {
        view->setParent(this);
        view->setVisible(m_playerVisible);
    }
    layoutChildren();
}

void MoviePlaceholder::setPlayerViewVisible(bool visible)
{
    m_playerVisible = visible;
    if (m_playerView)
        m_playerView->setVisible(visible);
}

void MoviePlaceholder::setBackgroundVisible(bool visible)
{
    m_background->setVisible(visible);
}

void MoviePlaceholder::setMessage(const QString &message)
{
    m_background->setText(message);
}

QString MoviePlaceholder::message() const
{
    return m_background->text();
}

bool MoviePlaceholder::isBackgroundShown() const
{
    return !m_background->isHidden();
}

void MoviePlaceholder::setAspectRatio(double ratio)
{
    m_aspectRatio = ratio > 0 ? ratio : 16.0 / 9.0;
    layoutChildren();
}

QRect MoviePlaceholder::pictureRect() const
{
    const QRect area = rect();
    if (area.isEmpty())
        return area;
    int width = area.width();
    int height = int(width / m_aspectRatio);
    if (height > area.height()) {
        height = area.height();
        width = int(height * m_aspectRatio);
    }
    return QRect((area.width() - width) / 2, (area.height() - height) / 2, width, height);
}

void MoviePlaceholder::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    layoutChildren();
}

void MoviePlaceholder::layoutChildren()
{
    m_background->setGeometry(rect());
    if (m_playerView)
        m_playerView->setGeometry(pictureRect());
}

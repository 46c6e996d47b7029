#include "CTFixButtonBackground.h"

#include <QEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

CTFixButtonBackground::CTFixButtonBackground(QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_Hover, true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_imageName = imageName();
}

QString CTFixButtonBackground::imageName() const
{
    return palette().color(QPalette::Window).lightness() < 128 ? u"FixButtonBackground-Dark"_s
                                                               : u"FixButtonBackground"_s;
}

double CTFixButtonBackground::dialFraction(double shift, double duration)
{
    if (!(duration > 0) || std::isnan(shift))
        return 0;
    return std::clamp(shift / duration * 10, -1.0, 1.0);
}

QColor CTFixButtonBackground::dialColor()
{
    return QColor::fromRgbF(0.2667, 0.651, 0.855, 0.6);
}

void CTFixButtonBackground::setDuration(double seconds)
{
    m_duration = seconds;
    update();
}

void CTFixButtonBackground::setTimeShift(double seconds)
{
    m_timeShift = seconds;
    if (m_shiftTF) {
        const double rounded = std::round(seconds * 1000) / 1000;
        m_shiftTF->setText((rounded < 0 ? u"-"_s : u"+"_s) + QString::number(std::fabs(rounded), 'f', 3) +
                           u"s"_s);
    }
    update();
}

void CTFixButtonBackground::setShowValue(bool show)
{
    m_showValue = show;
    update();
}

void CTFixButtonBackground::setHoverEnabled(bool enabled)
{
    m_hoverEnabled = enabled;
    setAttribute(Qt::WA_Hover, enabled);
    showField(enabled && underMouse());
}

void CTFixButtonBackground::setShiftField(QLineEdit *field)
{
    m_shiftTF = field;
    if (field) {
        field->setParent(this);
        field->setReadOnly(true);
        field->setFrame(false);
        field->setAlignment(Qt::AlignCenter);
        field->setFocusPolicy(Qt::NoFocus);
        field->setAttribute(Qt::WA_TransparentForMouseEvents);
        // In the dial's blue, as the control writes its shift.
        QPalette palette = field->palette();
        QColor blue = dialColor();
        blue.setAlphaF(1);
        palette.setColor(QPalette::Text, blue);
        field->setPalette(palette);
    }
    setTimeShift(m_timeShift);
    placeField();
    showField(false);
}

void CTFixButtonBackground::setHideView(QWidget *view)
{
    m_hideView = view;
    if (view) {
        view->setParent(this);
        view->setAttribute(Qt::WA_TransparentForMouseEvents);
        // The control's own plate colour, so that only its shift line seems to change.
        view->setBackgroundRole(QPalette::Base);
        view->setAutoFillBackground(true);
    }
    placeField();
    showField(false);
}

void CTFixButtonBackground::placeField()
{
    // Over the lower line of the control in its middle, where its rounded shift is, and
    // inside its round border.
    const int fieldHeight = m_shiftTF ? m_shiftTF->sizeHint().height() : 0;
    const int bandWidth = std::min(width() - 8, 52);
    const QRect band((width() - bandWidth) / 2, height() / 2, bandWidth,
                     std::min(fieldHeight, height() / 2 - 8));
    if (m_hideView)
        m_hideView->setGeometry(band);
    if (m_shiftTF)
        m_shiftTF->setGeometry(band);
}

void CTFixButtonBackground::showField(bool show)
{
    if (m_hideView) {
        m_hideView->setVisible(show);
        m_hideView->raise();
    }
    if (m_shiftTF) {
        m_shiftTF->setVisible(show);
        m_shiftTF->raise();
    }
}

void CTFixButtonBackground::enterEvent(QEnterEvent *event)
{
    QWidget::enterEvent(event);
    if (m_hoverEnabled)
        showField(true);
}

void CTFixButtonBackground::leaveEvent(QEvent *event)
{
    QWidget::leaveEvent(event);
    showField(false);
}

void CTFixButtonBackground::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    // The plate follows the window's colours whenever they change.
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) {
        m_imageName = imageName();
        update();
    }
}

void CTFixButtonBackground::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    placeField();
}

void CTFixButtonBackground::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF plate = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    // The plate: a softly lit disc, darker on dark window colours.
    const bool dark = m_imageName.endsWith(u"-Dark"_s);
    QRadialGradient light(plate.center() - QPointF(0, plate.height() / 4), plate.width() / 1.5);
    light.setColorAt(0, dark ? QColor(88, 88, 92) : QColor(252, 252, 252));
    light.setColorAt(1, dark ? QColor(44, 44, 48) : QColor(206, 208, 212));
    painter.setPen(QPen(dark ? QColor(20, 20, 22) : QColor(170, 172, 176), 1));
    painter.setBrush(light);
    painter.drawEllipse(plate);

    const double f = dialFraction(m_timeShift, m_duration);
    if (!m_showValue || f == 0)
        return;
    // From nine o'clock, clockwise for a positive shift.
    QPainterPath clip;
    clip.addEllipse(plate);
    painter.setClipPath(clip);
    painter.setPen(Qt::NoPen);
    painter.setBrush(dialColor());
    painter.drawPie(plate, 180 * 16, int(std::lround(-360 * f * 16)));
}

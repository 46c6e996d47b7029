// The controller's view and the parts both players share: the control bar, the overlay
// hand-over, the playing flag and its timer, full screen and the audio menu.
#include "VHMovieController.h"

#include "MpvGLSurface.h"
#include "VHSubtitleView.h"
#include "VideoSurface.h"

#include <QAction>
#include <QBoxLayout>
#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QPainter>
#include <QResizeEvent>
#include <QScreen>
#include <QShortcut>
#include <QSlider>
#include <QStyle>
#include <QToolButton>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {
constexpr int SliderSteps = 10000;
}

void VHMovieController::buildView(QWidget *surface)
{
    m_subtitleView = new VHSubtitleView;
    m_movieArea = new MovieArea(surface, m_subtitleView);
    m_movieArea->setObjectName(u"movieArea"_s);
    connect(m_subtitleView, &VHSubtitleView::subtitleViewDidChangeSubtitle, this,
            [this](VHSubtitleView *, const SubtitlePtr &cue) { Q_EMIT subtitleChanged(cue); });

    m_view = new QWidget;
    m_view->setObjectName(u"movieControllerView"_s);
    auto *layout = new QVBoxLayout(m_view);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_movieArea, 1);
    buildControlBar();
    layout->addWidget(m_controlBar);
    m_view->installEventFilter(this);
    connect(m_movieArea, &MovieArea::clicked, this, &VHMovieController::movieClicked);
    connect(&m_scruberTimer, &QTimer::timeout, this, [this] { updateScrobberTimed(); });
    // Escape leaves full screen, wherever the focus is inside the view.
    auto *escape = new QShortcut(QKeySequence(Qt::Key_Escape), m_view, this,
                                 &VHMovieController::cancelFullscreen, Qt::WidgetWithChildrenShortcut);
    Q_UNUSED(escape);
}

void VHMovieController::buildControlBar()
{
    m_controlBar = new QWidget;
    m_controlBar->setObjectName(u"controlBar"_s);
    auto *bar = new QHBoxLayout(m_controlBar);
    bar->setContentsMargins(6, 4, 6, 4);
    QStyle *style = m_controlBar->style();

    m_playButton = new QToolButton;
    m_playButton->setObjectName(u"playButton"_s);
    m_playButton->setCheckable(true);
    m_playButton->setIcon(style->standardIcon(QStyle::SP_MediaPlay));
    m_playButton->setToolTip(tr("Play"));
    connect(m_playButton, &QToolButton::clicked, this, [this] {
        // The button shows the flag, which follows the player; the click only asks.
        setPlayButtonState(m_isPlaying);
        togglePlayPause();
    });

    m_scrubSlider = new QSlider(Qt::Horizontal);
    m_scrubSlider->setObjectName(u"scrubSlider"_s);
    m_scrubSlider->setRange(0, SliderSteps);
    m_scrubSlider->setFocusPolicy(Qt::NoFocus);
    connect(m_scrubSlider, &QSlider::valueChanged, this, [this] {
        if (!m_settingSlider)
            scrubThroughMovie();
    });

    m_subtitleButton = new QToolButton;
    m_subtitleButton->setObjectName(u"subtitleButton"_s);
    m_subtitleButton->setCheckable(true);
    m_subtitleButton->setChecked(m_showSubtitle);
    m_subtitleButton->setText(tr("Subtitles"));
    m_subtitleButton->setToolTip(tr("Show Subtitles"));
    connect(m_subtitleButton, &QToolButton::clicked, this, [this] { toggleSubtitle(); });

    m_fullscreenButton = new QToolButton;
    m_fullscreenButton->setObjectName(u"fullscreenButton"_s);
    m_fullscreenButton->setCheckable(true);
    m_fullscreenButton->setIcon(style->standardIcon(QStyle::SP_TitleBarMaxButton));
    m_fullscreenButton->setToolTip(tr("Full Screen"));
    connect(m_fullscreenButton, &QToolButton::clicked, this, [this] { toggleFullscreen(); });

    bar->addWidget(m_playButton);
    bar->addWidget(m_scrubSlider, 1);
    bar->addWidget(m_subtitleButton);
    bar->addWidget(m_fullscreenButton);
    // The subtitle button appears once there is a list to show.
    updateSubtitleButton();
}

void VHMovieController::updateSubtitleButton()
{
    m_subtitleButton->setVisible(!m_subtitles.isEmpty());
    m_subtitleButton->setChecked(m_showSubtitle);
}

void VHMovieController::setSubtitles(const SubtitleList &subtitles)
{
    m_subtitles = subtitles;
    m_subtitleView->setSubtitles(subtitles);
    updateSubtitleButton();
}

void VHMovieController::setShowSubtitle(bool show)
{
    m_showSubtitle = show;
    m_subtitleView->fadeTo(show ? 1.0 : 0.0);
    m_subtitleButton->setChecked(show);
}

void VHMovieController::toggleSubtitle()
{
    setShowSubtitle(!m_showSubtitle);
}

void VHMovieController::redrawCurrentSubtitle()
{
    m_subtitleView->updateCurrentSubtitle();
}

qsizetype VHMovieController::currentSegmentIndex() const
{
    return m_subtitleView->currentSegment();
}

void VHMovieController::setControlBarHidden(bool hidden)
{
    m_controlBarHidden = hidden;
    m_controlBar->setVisible(!hidden && !m_autoShowControls);
}

void VHMovieController::setAutoShowControls(bool on)
{
    m_autoShowControls = on;
    m_view->setAttribute(Qt::WA_Hover, on);
    if (!on && !m_controlBarHidden)
        m_controlBar->show();
}

void VHMovieController::tellSubtitleViewTime(double seconds)
{
    m_subtitleView->setCurrentTime(seconds);
}

void VHMovieController::setSliderFraction(double fraction)
{
    const double bounded = std::isfinite(fraction) ? std::clamp(fraction, 0.0, 1.0) : 0.0;
    m_settingSlider = true;
    m_scrubSlider->setValue(qRound(bounded * SliderSteps));
    m_settingSlider = false;
}

double VHMovieController::sliderFraction() const
{
    return double(m_scrubSlider->value()) / SliderSteps;
}

void VHMovieController::setPlayButtonState(bool on)
{
    m_playButton->setChecked(on);
    m_playButton->setIcon(
        m_playButton->style()->standardIcon(on ? QStyle::SP_MediaPause : QStyle::SP_MediaPlay));
    m_playButton->setToolTip(on ? tr("Pause") : tr("Play"));
}

void VHMovieController::makeFirstResponder()
{
    m_playButton->setFocus(Qt::OtherFocusReason);
}

// The reports below go to the signal's listeners first and to the delegate last: either
// may delete the controller, after which nothing here touches it.
void VHMovieController::announceCurrentTime()
{
    const QPointer<VHMovieController> alive(this);
    Q_EMIT currentTimeChanged(m_currentTime);
    if (alive && m_delegate)
        m_delegate->movieControllerChangedTime(this, m_currentTime);
}

void VHMovieController::reportLoaded()
{
    const QPointer<VHMovieController> alive(this);
    Q_EMIT movieLoaded();
    if (alive && m_delegate)
        m_delegate->movieControllerDidLoadMovie(this);
}

void VHMovieController::reportFailedLoading()
{
    const QPointer<VHMovieController> alive(this);
    Q_EMIT movieFailedLoading();
    if (alive && m_delegate)
        m_delegate->movieControllerFaildLoading(this);
}

void VHMovieController::reportChangedPlaying(bool playing)
{
    const QPointer<VHMovieController> alive(this);
    Q_EMIT playingChanged(playing);
    if (alive && m_delegate)
        m_delegate->movieControllerChangedPlaying(this, playing);
}

void VHMovieController::setPlayRate(double rate)
{
    m_playRate = rate;
    setIsPlaying(rate != 0);
}

void VHMovieController::setIsPlaying(bool playing)
{
    if (playing == m_isPlaying)
        return;
    m_isPlaying = playing;
    stopScrubberTimer();
    if (playing) {
        startScrubberTimer(m_fps);
        m_timeFromPlayer = true;
    }
    setPlayButtonState(playing);
    watchWindow(playing);
    if (!m_wasPlaying)
        reportChangedPlaying(playing);
}

void VHMovieController::startScrubberTimer(double framesPerSecond)
{
    // Every frame while playing; a movie of unknown rate is sampled at 25 frames a second.
    const double rate = framesPerSecond > 0 ? framesPerSecond : 25.0;
    m_scruberTimer.start(std::max(1, qRound(1000.0 / rate)));
}

void VHMovieController::stopScrubberTimer()
{
    m_scruberTimer.stop();
}

void VHMovieController::watchWindow(bool watch)
{
    if (m_watchedWindow)
        m_watchedWindow->removeEventFilter(this);
    m_watchedWindow = nullptr;
    if (watch && m_view && m_view->window() != m_view) {
        m_watchedWindow = m_view->window();
        m_watchedWindow->installEventFilter(this);
    }
}

bool VHMovieController::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_watchedWindow && event->type() == QEvent::Close)
        windowWillClose();
    if (watched == m_imageSurface && event->type() == QEvent::Resize && m_softwareRender) {
        // The software renderer draws at the surface's size: draw the frame again.
        m_forceRender = true;
        QMetaObject::invokeMethod(this, "renderSoftwareFrame", Qt::QueuedConnection);
    }
    if (watched == m_view && m_autoShowControls && !m_controlBarHidden) {
        if (event->type() == QEvent::HoverEnter)
            m_controlBar->show();
        else if (event->type() == QEvent::HoverLeave)
            m_controlBar->hide();
    }
    return QObject::eventFilter(watched, event);
}

void VHMovieController::windowWillClose()
{
    setPlaying(false);
}

double VHMovieController::position() const
{
    const double length = duration();
    return length > 0 ? m_currentTime / length : 0;
}

void VHMovieController::scrubThroughMovie()
{
    setCurrentTime(sliderFraction() * duration());
    tellSubtitleViewTime(currentTime());
}

void VHMovieController::toggleFullscreen()
{
    if (m_fullscreen) {
        cancelFullscreen();
        return;
    }
    // The view leaves its place for a full-screen window of its own on the screen of its
    // window; a placeholder keeps its place in the layout.
    QScreen *screen = m_view->window()->screen();
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    m_viewParent = m_view->parentWidget();
    m_viewGeometry = m_view->geometry();
    if (m_viewParent && m_viewParent->layout()) {
        m_placeholder = new QWidget;
        delete m_viewParent->layout()->replaceWidget(m_view, m_placeholder);
    }
    m_view->setParent(nullptr);
    if (screen)
        m_view->setGeometry(screen->geometry());
    // The window's own controls stay behind: the view brings its bar.
    m_controlBar->setVisible(!m_autoShowControls);
    m_view->showFullScreen();
    // Escape (a shortcut inside the view) needs the keyboard there.
    m_view->activateWindow();
    m_playButton->setFocus(Qt::OtherFocusReason);
    m_fullscreen = true;
    m_fullscreenButton->setChecked(true);
    Q_EMIT fullscreenChanged(true);
}

void VHMovieController::cancelFullscreen()
{
    if (!m_fullscreen)
        return;
    m_view->showNormal();
    m_view->hide();
    setControlBarHidden(m_controlBarHidden);
    if (m_viewParent) {
        m_view->setParent(m_viewParent);
        if (m_placeholder && m_viewParent->layout())
            delete m_viewParent->layout()->replaceWidget(m_placeholder, m_view);
        else
            m_view->setGeometry(m_viewGeometry);
        m_view->show();
        // A parent that places its children itself does so again, at its size of now.
        QResizeEvent resize(m_viewParent->size(), m_viewParent->size());
        QCoreApplication::sendEvent(m_viewParent, &resize);
        m_viewParent->window()->activateWindow();
    }
    delete m_placeholder;
    m_fullscreen = false;
    m_fullscreenButton->setChecked(false);
    Q_EMIT fullscreenChanged(false);
}

void VHMovieController::fillAudioMenu(QMenu *menu)
{
    menu->clear();
    for (const AudioTrackItem &item : audioMenuItems()) {
        QAction *action = menu->addAction(item.title);
        action->setData(item.tag);
        action->setCheckable(true);
        action->setChecked(item.checked);
        connect(action, &QAction::triggered, this, [this, action] { selectLanguage(action); });
    }
}

void VHMovieController::selectLanguage(QAction *item)
{
    setAudioTrack(item->data().toInt());
}

QImage VHMovieController::grabFrame()
{
    const QSize size = m_movieArea->size();
    QImage frame(size, QImage::Format_RGB32);
    frame.fill(Qt::black);
    QPainter painter(&frame);
    if (m_imageSurface)
        m_imageSurface->paintFrame(painter, QRect(QPoint(), size));
    else if (m_glSurface)
        painter.drawImage(QRect(QPoint(), size), m_glSurface->grabFramebuffer());
    m_subtitleView->drawSubtitle(painter);
    return frame;
}

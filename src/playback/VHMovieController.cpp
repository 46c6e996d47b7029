// The libmpv player: loading, readiness, precise seeking, the playing flag, tracks.
#include "VHMovieController.h"

#include "Log.h"
#include "MpvGLSurface.h"
#include "VHSubtitleView.h"
#include "VideoSurface.h"

#include <QEvent>
#include <QFile>
#include <QGuiApplication>
#include <QOpenGLContext>

#include <mpv/client.h>
#include <mpv/render.h>

#include <algorithm>

using namespace Qt::StringLiterals;

void VHMovieController::MpvDeleter::operator()(mpv_handle *mpv) const
{
    mpv_set_wakeup_callback(mpv, nullptr, nullptr);
    mpv_terminate_destroy(mpv);
}

void VHMovieController::RenderDeleter::operator()(mpv_render_context *context) const
{
    mpv_render_context_set_update_callback(context, nullptr, nullptr);
    mpv_render_context_free(context);
}

VHMovieController::VHMovieController(QObject *parent)
    : VHMovieController(Backend::Mpv, parent)
{}

VHMovieController::VHMovieController(Backend backend, QObject *parent)
    : QObject(parent)
{
    QWidget *surface = nullptr;
    if (backend == Backend::Mpv && createPlayer() && openGLAvailable()) {
        m_glSurface = new MpvGLSurface(m_mpv.get());
        connect(m_glSurface, &MpvGLSurface::renderContextReady, this, [this] {
            if (m_loadPending)
                issueLoad();
        });
        // Without shared GL contexts, moving the view to another window (full screen) takes
        // its render context away, and mpv ends the movie: open it again where it was.
        connect(m_glSurface, &MpvGLSurface::renderContextLost, this, &VHMovieController::reopenMovie);
        // Queued: the surface is replaced, which cannot happen inside its own GL set-up.
        connect(m_glSurface, &MpvGLSurface::renderContextFailed, this,
                &VHMovieController::switchToSoftwareVideo, Qt::QueuedConnection);
        surface = m_glSurface;
    } else {
        m_imageSurface = new ImageVideoSurface;
        surface = m_imageSurface;
        if (m_mpv)
            startSoftwareRender();
    }
    buildView(surface);
    if (m_imageSurface)
        m_imageSurface->installEventFilter(this);
}

VHMovieController::~VHMovieController()
{
    if (m_mpv)
        mpv_set_wakeup_callback(m_mpv.get(), nullptr, nullptr);
    m_scruberTimer.stop();
    watchWindow(false);
    // The view holds the OpenGL render context, which must go before the player.
    delete m_placeholder;
    delete m_view;
    m_softwareRender.reset();
    m_mpv.reset();
}

void VHMovieController::startSoftwareRender()
{
    mpv_render_param params[] = {
        {MPV_RENDER_PARAM_API_TYPE, const_cast<char *>(MPV_RENDER_API_TYPE_SW)},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    };
    mpv_render_context *context = nullptr;
    if (mpv_render_context_create(&context, m_mpv.get(), params) < 0) {
        logLine(u"Error: The video renderer could not be started"_s);
        return;
    }
    m_softwareRender.reset(context);
    mpv_render_context_set_update_callback(context, &VHMovieController::softwareRenderUpdate, this);
}

void VHMovieController::switchToSoftwareVideo()
{
    if (!m_glSurface)
        return;
    auto *image = new ImageVideoSurface;
    m_movieArea->setSurface(image);
    m_glSurface->deleteLater();
    m_glSurface = nullptr;
    m_imageSurface = image;
    m_imageSurface->installEventFilter(this);
    startSoftwareRender();
    if (m_loadPending)
        issueLoad();
}

bool VHMovieController::openGLAvailable()
{
    static const bool available = [] {
        if (QGuiApplication::platformName() == u"offscreen"_s ||
            qEnvironmentVariableIsSet("CAPTORA_SOFTWARE_VIDEO"))
            return false;
        QOpenGLContext probe;
        return probe.create();
    }();
    return available;
}

void VHMovieController::wakeup(void *controller)
{
    // Called on one of mpv's threads: only post to the GUI thread, once per batch.
    auto *self = static_cast<VHMovieController *>(controller);
    if (!self->m_drainPosted.exchange(true))
        QMetaObject::invokeMethod(self, "drainMpvEvents", Qt::QueuedConnection);
}

void VHMovieController::softwareRenderUpdate(void *controller)
{
    QMetaObject::invokeMethod(static_cast<VHMovieController *>(controller), "renderSoftwareFrame",
                              Qt::QueuedConnection);
}

bool VHMovieController::createPlayer()
{
    mpv_handle *mpv = mpv_create();
    if (!mpv) {
        logLine(u"Error: The movie player could not be started (LC_NUMERIC must be \"C\")"_s);
        return false;
    }
    m_mpv.reset(mpv);
    // The movie's own subtitles never show and no subtitle file beside it is loaded:
    // Captora draws the cues. A movie opens paused and stays open at its end.
    const std::pair<const char *, const char *> options[] = {
        {"vo", "libmpv"},
        {"sid", "no"},
        {"sub-auto", "no"},
        {"hr-seek", "yes"},
        {"keep-open", "yes"},
        {"pause", "yes"},
        {"idle", "yes"},
        {"audio-display", "no"},
        {"ytdl", "no"},
        {"input-default-bindings", "no"},
        {"osd-level", "0"},
        // Decoding runs on the CPU; probing GPU decoders' GL interop only costs start-up time.
        {"gpu-hwdec-interop", "no"},
        // Slower or faster playback keeps the voices' pitch (mpv's default, stated here
        // because the playback aids rely on it).
        {"audio-pitch-correction", "yes"},
    };
    for (const auto &[name, value] : options)
        mpv_set_option_string(mpv, name, value);
    // Machines without sound (servers, test runs) can skip the search for an audio device.
    if (qgetenv("CAPTORA_AUDIO_OUTPUT") == "null")
        mpv_set_option_string(mpv, "ao", "null");
    if (mpv_initialize(mpv) < 0) {
        logLine(u"Error: The movie player could not be started"_s);
        m_mpv.reset();
        return false;
    }
    mpv_observe_property(mpv, 0, "time-pos", MPV_FORMAT_DOUBLE);
    mpv_observe_property(mpv, 0, "duration", MPV_FORMAT_DOUBLE);
    mpv_observe_property(mpv, 0, "pause", MPV_FORMAT_FLAG);
    mpv_observe_property(mpv, 0, "eof-reached", MPV_FORMAT_FLAG);
    mpv_observe_property(mpv, 0, "track-list", MPV_FORMAT_NODE);
    mpv_observe_property(mpv, 0, "container-fps", MPV_FORMAT_DOUBLE);
    mpv_observe_property(mpv, 0, "estimated-vf-fps", MPV_FORMAT_DOUBLE);
    mpv_set_wakeup_callback(mpv, &VHMovieController::wakeup, this);
    // mpv's own diagnostics only on request, e.g. CAPTORA_MPV_LOG=v.
    if (const QByteArray level = qgetenv("CAPTORA_MPV_LOG"); !level.isEmpty())
        mpv_request_log_messages(mpv, level.constData());
    return true;
}

bool VHMovieController::loadMovieURL(const QString &path)
{
    if (!m_mpv)
        return false;
    setMovie(path);
    return hasMovie();
}

void VHMovieController::setMovie(const QString &path)
{
    if (!m_movie.isEmpty() && m_waitingForReady)
        m_waitingForReady = false;
    setPaused(true);
    m_movie = m_mpv ? path : QString();
    m_wasPlaying = false;
    m_loadPending = false;
    m_reopening = false;
    m_loadError.clear();
    if (!m_movie.isEmpty()) {
        m_fps = 0;
        m_duration = 0;
        m_tracks.clear();
        m_playerTime = NAN;
        m_targetTime = 0;
        m_waitingForReady = true;
        // On a real display the video needs the render context, made on first show.
        if (m_glSurface && !m_glSurface->hasRenderContext())
            m_loadPending = true;
        else
            issueLoad();
    } else if (m_mpv) {
        const char *stop[] = {"stop", nullptr};
        mpv_command_async(m_mpv.get(), 0, stop);
        m_tracks.clear();
        m_duration = 0;
        m_playerTime = NAN;
        if (m_imageSurface)
            m_imageSurface->clearFrame();
    }
    setIsPlaying(false);
}

void VHMovieController::reopenMovie()
{
    if (!hasMovie() || m_waitingForReady || m_loadPending)
        return;
    m_reopening = true;
    m_loadPending = !m_glSurface->hasRenderContext();
    if (!m_loadPending)
        issueLoad();
}

void VHMovieController::issueLoad()
{
    m_loadPending = false;
    const QByteArray file = QFile::encodeName(m_movie);
    const char *load[] = {"loadfile", file.constData(), "replace", nullptr};
    mpv_command_async(m_mpv.get(), 0, load);
}

void VHMovieController::setPaused(bool paused)
{
    if (!m_mpv)
        return;
    int flag = paused ? 1 : 0;
    mpv_set_property(m_mpv.get(), "pause", MPV_FORMAT_FLAG, &flag);
    // The flag follows the player's rate at once, as the player has it now; the property
    // change that mpv reports later then finds nothing to change.
    setPlayRate(paused ? 0 : 1);
}

void VHMovieController::setPlaying(bool playing)
{
    if (!hasMovie())
        return;
    if (m_wasPlaying) {
        // A seek of playback is under way: it resumes playing when it lands. A pause asked now
        // stays, and is reported (the seek's own pause was not).
        if (!playing) {
            m_wasPlaying = false;
            reportChangedPlaying(false);
        }
        return;
    }
    setPaused(!playing);
    // Paused, the time is that of the frame the player stopped on, which the last periodic
    // update (up to a frame earlier) has not seen; a fix or a frame step starts from it.
    if (!playing)
        followPlayerTime();
}

void VHMovieController::followPlayerTime()
{
    if (m_isPlaying || !m_timeFromPlayer || m_waitingForReady || m_wasPlaying)
        return;
    const double t = playerTime();
    if (std::isnan(t) || t == m_currentTime)
        return;
    updateScrobberTimed();
}

void VHMovieController::setSpeed(double speed)
{
    if (!(speed > 0))
        return;
    m_speed = speed;
    if (m_mpv)
        mpv_set_property(m_mpv.get(), "speed", MPV_FORMAT_DOUBLE, &speed);
}

void VHMovieController::togglePlayPause()
{
    setPlaying(!m_isPlaying);
}

double VHMovieController::currentTime() const
{
    return m_currentTime;
}

double VHMovieController::fps() const
{
    return m_fps;
}

double VHMovieController::duration() const
{
    return m_duration > 0 ? m_duration : 0;
}

double VHMovieController::playerTime() const
{
    if (!m_mpv || m_movie.isEmpty())
        return NAN;
    double t = NAN;
    if (mpv_get_property(m_mpv.get(), "time-pos", MPV_FORMAT_DOUBLE, &t) < 0)
        return m_playerTime;
    return t;
}

void VHMovieController::setCurrentTime(double seconds)
{
    if (m_waitingForReady) {
        // Applied once the movie is ready; the last time asked for wins.
        m_targetTime = seconds;
        return;
    }
    if (!m_wasPlaying)
        m_wasPlaying = m_isPlaying;
    if (m_wasPlaying)
        setPaused(true);
    // The time asked for is the time from now on, not the player's frame start.
    m_timeFromPlayer = false;
    const double length = duration();
    const double t = std::clamp(seconds, 0.0, length);
    m_currentTime = t;
    if (m_mpv && hasMovie()) {
        // libmpv's precise seek shows the first frame at (or within 5 ms before) the target,
        // which is the frame after the one on screen at t for most times. Seek to the start
        // of the frame that covers t, so the picture is what playback shows at t.
        const double frameStart = m_fps > 0 ? std::floor(t * m_fps + 1e-6) / m_fps : t;
        const QByteArray target = QByteArray::number(frameStart, 'f', 6);
        const char *seek[] = {"seek", target.constData(), m_accuracyScrubbing ? "absolute+exact" : "absolute",
                              nullptr};
        mpv_command_async(m_mpv.get(), 0, seek);
    } else if (m_wasPlaying) {
        // No player to wait for: resume at once.
        setPaused(false);
        m_wasPlaying = false;
    }
    tellSubtitleViewTime(t);
    setSliderFraction(length > 0 ? t / length : 0);
    tellSubtitleViewTime(t);
    announceCurrentTime();
}

void VHMovieController::seekFinishedInPlayer()
{
    if (m_wasPlaying) {
        setPaused(false);
        m_wasPlaying = false;
    }
    Q_EMIT seekFinished();
}

void VHMovieController::updateScrobberTimed()
{
    const double t = playerTime();
    if (std::isnan(t))
        return;
    m_currentTime = t;
    const double length = duration();
    setSliderFraction(length > 0 ? t / length : 0);
    tellSubtitleViewTime(t);
    announceCurrentTime();
}

void VHMovieController::jumpToBeginning()
{
    if (!m_mpv || !hasMovie() || m_waitingForReady)
        return;
    const char *seek[] = {"seek", "0", "absolute+exact", nullptr};
    mpv_command_async(m_mpv.get(), 0, seek);
    // The player's own time follows the seek later; the start is known now.
    m_currentTime = 0;
    setSliderFraction(0);
    tellSubtitleViewTime(0);
    announceCurrentTime();
}

void VHMovieController::drainMpvEvents()
{
    m_drainPosted = false;
    // A delegate may delete this controller from one of its calls: stop draining then.
    const QPointer<VHMovieController> alive(this);
    while (alive && m_mpv) {
        mpv_event *event = mpv_wait_event(m_mpv.get(), 0);
        switch (event->event_id) {
        case MPV_EVENT_NONE:
            return;
        case MPV_EVENT_PROPERTY_CHANGE: {
            const auto *property = static_cast<mpv_event_property *>(event->data);
            handlePropertyChange(property->name, property->format, property->data);
            break;
        }
        case MPV_EVENT_LOG_MESSAGE: {
            const auto *message = static_cast<mpv_event_log_message *>(event->data);
            logLine(u"mpv [%1] %2"_s.arg(QString::fromUtf8(message->prefix),
                                         QString::fromUtf8(message->text).trimmed()));
            break;
        }
        case MPV_EVENT_START_FILE:
            m_entryId = static_cast<mpv_event_start_file *>(event->data)->playlist_entry_id;
            break;
        case MPV_EVENT_FILE_LOADED:
            movieBecameReady();
            break;
        case MPV_EVENT_END_FILE: {
            const auto *end = static_cast<mpv_event_end_file *>(event->data);
            if (end->reason == MPV_END_FILE_REASON_ERROR && m_waitingForReady &&
                end->playlist_entry_id == m_entryId) {
                m_waitingForReady = false;
                m_loadError = tr("libmpv: %1").arg(QString::fromUtf8(mpv_error_string(end->error)));
                reportFailedLoading();
            }
            break;
        }
        case MPV_EVENT_PLAYBACK_RESTART:
            seekFinishedInPlayer();
            break;
        default:
            break;
        }
    }
}

void VHMovieController::handlePropertyChange(const char *name, int format, void *data)
{
    const bool isDouble = format == MPV_FORMAT_DOUBLE;
    const QByteArrayView key(name);
    if (key == "time-pos") {
        m_playerTime = isDouble ? *static_cast<double *>(data) : NAN;
        // A frame the player still showed after a pause took hold.
        followPlayerTime();
    } else if (key == "duration") {
        // Kept while mpv has no file (a reopen); unloading resets it.
        if (isDouble)
            m_duration = *static_cast<double *>(data);
    } else if (key == "pause" && format == MPV_FORMAT_FLAG) {
        setPlayRate(*static_cast<int *>(data) ? 0 : 1);
    } else if (key == "eof-reached" && format == MPV_FORMAT_FLAG) {
        // The movie stays open at its end: show where it stopped.
        if (*static_cast<int *>(data))
            updateScrobberTimed();
    } else if (key == "track-list" && format == MPV_FORMAT_NODE) {
        readTrackList(*static_cast<mpv_node *>(data));
    } else if ((key == "container-fps" || key == "estimated-vf-fps") && isDouble && m_fps <= 0) {
        m_fps = *static_cast<double *>(data);
    }
}

void VHMovieController::movieBecameReady()
{
    if (m_reopening) {
        // Back where it was, as it was; the project saw no change.
        m_reopening = false;
        const QByteArray target = QByteArray::number(m_currentTime, 'f', 6);
        const char *seek[] = {"seek", target.constData(), "absolute+exact", nullptr};
        mpv_command_async(m_mpv.get(), 0, seek);
        // Playing or paused as asked meanwhile (the play button works while it reopens).
        int paused = m_isPlaying ? 0 : 1;
        mpv_set_property(m_mpv.get(), "pause", MPV_FORMAT_FLAG, &paused);
        return;
    }
    if (!m_waitingForReady)
        return;
    double length = 0;
    if (mpv_get_property(m_mpv.get(), "duration", MPV_FORMAT_DOUBLE, &length) >= 0)
        m_duration = length;
    mpv_node list;
    if (mpv_get_property(m_mpv.get(), "track-list", MPV_FORMAT_NODE, &list) >= 0) {
        readTrackList(list);
        mpv_free_node_contents(&list);
    }
    if (m_fps <= 0) {
        double containerFps = 0;
        if (mpv_get_property(m_mpv.get(), "container-fps", MPV_FORMAT_DOUBLE, &containerFps) >= 0)
            m_fps = containerFps;
    }
    m_waitingForReady = false;
    const QPointer<VHMovieController> alive(this);
    setCurrentTime(m_targetTime);
    if (alive)
        reportLoaded();
}

void VHMovieController::renderSoftwareFrame()
{
    if (!m_softwareRender || !m_imageSurface)
        return;
    if (!(mpv_render_context_update(m_softwareRender.get()) & MPV_RENDER_UPDATE_FRAME) && !m_forceRender)
        return;
    m_forceRender = false;
    QSize size = m_imageSurface->size() * m_imageSurface->devicePixelRatio();
    if (size.width() < 16 || size.height() < 16)
        size = QSize(320, 180);
    if (m_softwareFrame.size() != size)
        m_softwareFrame = QImage(size, QImage::Format_RGB32);
    int surfaceSize[2] = {size.width(), size.height()};
    size_t stride = size_t(m_softwareFrame.bytesPerLine());
    mpv_render_param params[] = {
        {MPV_RENDER_PARAM_SW_SIZE, surfaceSize}, {MPV_RENDER_PARAM_SW_FORMAT, const_cast<char *>("bgr0")},
        {MPV_RENDER_PARAM_SW_STRIDE, &stride},   {MPV_RENDER_PARAM_SW_POINTER, m_softwareFrame.bits()},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    };
    if (mpv_render_context_render(m_softwareRender.get(), params) < 0)
        return;
    // "bgr0" leaves the fourth byte undefined; an RGB32 image needs it opaque.
    for (int y = 0; y < size.height(); ++y) {
        auto *line = reinterpret_cast<quint32 *>(m_softwareFrame.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            line[x] |= 0xff000000u;
    }
    QImage shown = m_softwareFrame.copy();
    shown.setDevicePixelRatio(m_imageSurface->devicePixelRatio());
    m_imageSurface->setFrame(shown);
}

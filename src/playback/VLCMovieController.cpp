#include "VLCMovieController.h"

#include "Log.h"
#include "VHSubtitleView.h"
#include "VideoSurface.h"

#include <QFile>
#include <QMutex>
#include <QTimer>

#include <vlc/vlc.h>

#include <cmath>
#include <cstring>
#include <vector>

using namespace Qt::StringLiterals;

// Receives decoded frames on libVLC's threads. VLC draws a picture into one of the buffers
// between lock and unlock, some time before it is due, and calls display when it is due: the
// buffer displayed last is the frame on screen, while the next picture may already be drawn
// into another. The GUI thread copies the displayed one out under the same lock.
struct VLCMovieController::FrameSink
{
    static constexpr int BufferCount = 3;
    VLCMovieController *controller = nullptr;
    QMutex mutex;
    std::vector<uchar> pixels[BufferCount];
    int drawing = 0;    // the buffer of the picture drawn last
    int displayed = -1; // the buffer of the picture due last; -1 before the first
    unsigned width = 0, height = 0, pitch = 0;
    std::atomic<bool> posted{false};

    static unsigned setup(void **opaque, char *chroma, unsigned *width, unsigned *height, unsigned *pitches,
                          unsigned *lines)
    {
        auto *sink = static_cast<FrameSink *>(*opaque);
        std::memcpy(chroma, "RV32", 4);
        QMutexLocker lock(&sink->mutex);
        sink->width = *width;
        sink->height = *height;
        sink->pitch = *width * 4;
        pitches[0] = sink->pitch;
        lines[0] = *height;
        // Decoders may write a little past the last line.
        for (std::vector<uchar> &buffer : sink->pixels)
            buffer.assign(size_t(sink->pitch) * (*height + 2) + 64, 0);
        sink->displayed = -1;
        return 1;
    }
    static void cleanup(void *) {}
    static void *lock(void *opaque, void **planes)
    {
        auto *sink = static_cast<FrameSink *>(opaque);
        sink->mutex.lock();
        // Never the buffer on screen.
        int next = (sink->drawing + 1) % BufferCount;
        if (next == sink->displayed)
            next = (next + 1) % BufferCount;
        sink->drawing = next;
        planes[0] = sink->pixels[next].data();
        return reinterpret_cast<void *>(quintptr(next));
    }
    static void unlock(void *opaque, void *, void *const *)
    {
        static_cast<FrameSink *>(opaque)->mutex.unlock();
    }
    static void display(void *opaque, void *picture)
    {
        auto *sink = static_cast<FrameSink *>(opaque);
        {
            QMutexLocker lock(&sink->mutex);
            sink->displayed = int(reinterpret_cast<quintptr>(picture));
        }
        if (!sink->posted.exchange(true))
            QMetaObject::invokeMethod(sink->controller, "takeFrame", Qt::QueuedConnection);
    }
};

namespace {

const libvlc_event_e ObservedEvents[] = {
    libvlc_MediaPlayerPlaying,          libvlc_MediaPlayerPaused,
    libvlc_MediaPlayerStopped,          libvlc_MediaPlayerEndReached,
    libvlc_MediaPlayerEncounteredError, libvlc_MediaPlayerESAdded,
    libvlc_MediaPlayerLengthChanged,    libvlc_MediaPlayerVout,
};

} // namespace

VHMovieController *VHMovieController::controllerOfKind(int kind, QObject *parent)
{
    if (kind == 1)
        return new VHMovieController(parent);
    if (kind == 2)
        return new VLCMovieController(parent);
    return nullptr;
}

QWidget *VHMovieController::viewOf(PlaybackControl *controller)
{
    auto *movieController = dynamic_cast<VHMovieController *>(controller);
    return movieController ? movieController->view() : nullptr;
}

VLCMovieController::VLCMovieController(QObject *parent)
    : VHMovieController(Backend::Images, parent)
    , m_sink(std::make_unique<FrameSink>())
{
    m_sink->controller = this;
    // Subtitle files beside the movie are never loaded: Captora draws the cues.
    std::vector<const char *> arguments = {"--no-sub-autodetect-file",
                                           "--no-video-title-show",
                                           "--no-stats",
                                           "--no-snapshot-preview",
                                           "--no-osd",
                                           "--quiet"};
    // Machines without sound (servers, test runs) can skip the search for an audio device.
    if (qgetenv("CAPTORA_AUDIO_OUTPUT") == "null")
        arguments.push_back("--aout=adummy");
    m_vlc = libvlc_new(int(arguments.size()), arguments.data());
    if (!m_vlc) {
        logLine(u"Error: The fallback movie player could not be started"_s);
        return;
    }
    m_vlcPlayer = libvlc_media_player_new(m_vlc);
    if (!m_vlcPlayer)
        return;
    libvlc_video_set_callbacks(m_vlcPlayer, &FrameSink::lock, &FrameSink::unlock, &FrameSink::display,
                               m_sink.get());
    libvlc_video_set_format_callbacks(m_vlcPlayer, &FrameSink::setup, &FrameSink::cleanup);
    libvlc_event_manager_t *events = libvlc_media_player_event_manager(m_vlcPlayer);
    for (libvlc_event_e type : ObservedEvents)
        libvlc_event_attach(events, type, &VLCMovieController::onEvent, this);
}

VLCMovieController::~VLCMovieController()
{
    if (m_vlcPlayer) {
        libvlc_event_manager_t *events = libvlc_media_player_event_manager(m_vlcPlayer);
        for (libvlc_event_e type : ObservedEvents)
            libvlc_event_detach(events, type, &VLCMovieController::onEvent, this);
        // Stopping joins VLC's threads, so no callback reaches the sink afterwards.
        libvlc_media_player_stop(m_vlcPlayer);
        libvlc_media_player_release(m_vlcPlayer);
    }
    if (m_media)
        libvlc_media_release(m_media);
    if (m_vlc)
        libvlc_release(m_vlc);
}

void VLCMovieController::onEvent(const libvlc_event_t *event, void *controller)
{
    // On a libVLC thread: post only; calling back into the player here could deadlock.
    QMetaObject::invokeMethod(static_cast<VLCMovieController *>(controller), "movieStateChanged",
                              Qt::QueuedConnection, Q_ARG(int, event->type));
}

void VLCMovieController::takeFrame()
{
    m_sink->posted = false;
    // After playing onto a frame, the frames decoded before the pause took hold stay hidden.
    if (!m_media || m_holdFrame)
        return;
    QImage frame;
    {
        QMutexLocker lock(&m_sink->mutex);
        if (m_sink->width == 0 || m_sink->height == 0 || m_sink->displayed < 0)
            return;
        frame = QImage(m_sink->pixels[m_sink->displayed].data(), int(m_sink->width), int(m_sink->height),
                       int(m_sink->pitch), QImage::Format_RGB32)
                    .copy();
    }
    // RV32 leaves the fourth byte unset; an RGB32 image needs it opaque.
    for (int y = 0; y < frame.height(); ++y) {
        auto *line = reinterpret_cast<quint32 *>(frame.scanLine(y));
        for (int x = 0; x < frame.width(); ++x)
            line[x] |= 0xff000000u;
    }
    if (m_pictureSize.isValid() && !m_pictureSize.isEmpty() && frame.size() != m_pictureSize)
        frame = frame.scaled(m_pictureSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    imageSurface()->setFrame(frame);
    if (!std::isnan(m_stepTarget) && double(libvlc_media_player_get_time(m_vlcPlayer)) / 1000.0 >=
                                         m_stepTarget - 0.5 / std::max(m_fps, 25.0))
        endStep();
}

bool VLCMovieController::loadMovieURL(const QString &path)
{
    if (!m_vlcPlayer)
        return false;
    setMovie(path);
    return hasMovie();
}

void VLCMovieController::setMovie(const QString &path)
{
    if (!m_vlcPlayer)
        return;
    libvlc_media_player_stop(m_vlcPlayer);
    m_fps = 0;
    m_duration = 0;
    m_aspectRatio = 0;
    m_pictureSize = QSize();
    m_holdFrame = false;
    m_timeWhenPaused = 0;
    m_currentTime = 0;
    m_clockValue = NAN;
    m_pausePending = false;
    m_seekWhilePlaying = false;
    m_loadError.clear();
    if (m_media) {
        libvlc_media_release(m_media);
        m_media = nullptr;
    }
    m_movie.clear();
    if (!path.isEmpty())
        m_media = libvlc_media_new_path(m_vlc, QFile::encodeName(path).constData());
    libvlc_media_player_set_media(m_vlcPlayer, m_media);
    libvlc_media_player_set_rate(m_vlcPlayer, float(m_speed));
    if (!m_media) {
        m_isLoading = false;
        imageSurface()->clearFrame();
        setIsPlaying(false);
        return;
    }
    m_movie = path;
    libvlc_media_add_option(m_media, ":no-sub-autodetect-file");
    m_isLoading = true;
    // Paused before its first picture, libVLC would show none: play (muted) until the first
    // frame arrives, then pause.
    stepToFrameAt(0);
    libvlc_video_set_spu(m_vlcPlayer, -1);
}

void VLCMovieController::seekWhilePaused(double seconds)
{
    // A paused player shows no picture of the new time by itself: play onto it.
    libvlc_media_player_set_pause(m_vlcPlayer, 1);
    libvlc_media_player_set_time(m_vlcPlayer, seekTarget(seconds));
    stepToFrameAt(seconds);
}

void VLCMovieController::stepToFrameAt(double seconds)
{
    m_stepTarget = seconds;
    m_holdFrame = false;
    m_pausingAfterStep = false;
    libvlc_audio_set_mute(m_vlcPlayer, 1);
    libvlc_media_player_play(m_vlcPlayer);
}

void VLCMovieController::endStep()
{
    if (std::isnan(m_stepTarget))
        return;
    m_stepTarget = NAN;
    m_holdFrame = true;
    m_pausingAfterStep = true;
    libvlc_media_player_set_pause(m_vlcPlayer, 1);
    libvlc_audio_set_mute(m_vlcPlayer, 0);
}

bool VLCMovieController::playerIsPlaying() const
{
    return m_vlcPlayer && libvlc_media_player_get_state(m_vlcPlayer) == libvlc_Playing;
}

void VLCMovieController::movieStateChanged(int eventType)
{
    if (!m_media)
        return;

    if (eventType == libvlc_MediaPlayerEncounteredError || eventType == libvlc_MediaPlayerEndReached)
        endStep();
    if (m_isLoading && eventType == libvlc_MediaPlayerEncounteredError) {
        m_isLoading = false;
        m_loadError = tr("libVLC: the file could not be read or decoded");
        reportFailedLoading();
        return;
    }
    if (m_isLoading) {
        libvlc_media_track_t **tracks = nullptr;
        const unsigned count = libvlc_media_tracks_get(m_media, &tracks);
        libvlc_track_description_t *names = libvlc_audio_get_track_description(m_vlcPlayer);
        // The length too: the project takes it with the load report.
        m_duration = 0;
        if (count > 0 && names && duration() > 0) {
            for (unsigned i = 0; i < count; ++i) {
                if (tracks[i]->i_type != libvlc_track_video || !tracks[i]->video)
                    continue;
                const libvlc_video_track_t *video = tracks[i]->video;
                m_aspectRatio =
                    video->i_width && video->i_height ? double(video->i_width) / video->i_height : 1.0;
                // Frames are shown at the picture's own size: libVLC may hand them over
                // scaled to a buffer of another height (320×240 arrives as 320×258).
                const double sar =
                    video->i_sar_num && video->i_sar_den ? double(video->i_sar_num) / video->i_sar_den : 1.0;
                m_pictureSize = QSize(qRound(video->i_width * sar), int(video->i_height));
                m_fps = video->i_frame_rate_den > 0
                            ? double(video->i_frame_rate_num) / video->i_frame_rate_den
                            : 0;
                break;
            }
            m_isLoading = false;
            // The movie's own subtitles stay off.
            libvlc_video_set_spu(m_vlcPlayer, -1);
        }
        if (names)
            libvlc_track_description_list_release(names);
        if (tracks)
            libvlc_media_tracks_release(tracks, count);
        if (!m_isLoading) {
            // Last: the delegate may delete this controller.
            reportLoaded();
            return;
        }
    }
    // Until a pause holds (the one that ends playing onto a frame, or the user's), the player
    // still says it plays.
    if (m_pausingAfterStep) {
        if (eventType != libvlc_MediaPlayerPaused && eventType != libvlc_MediaPlayerStopped &&
            eventType != libvlc_MediaPlayerEndReached && eventType != libvlc_MediaPlayerEncounteredError)
            return;
        m_pausingAfterStep = false;
        if (m_pausePending) {
            m_pausePending = false;
            // The pause holds: show the frame of the time reported at the pause (or of a time
            // set since), so that the picture is the time the label says.
            if (eventType == libvlc_MediaPlayerPaused) {
                seekWhilePaused(m_timeWhenPaused);
                return;
            }
        }
    }
    // Still loading when the input ended: libVLC found nothing it could play in the file
    // (it reads unknown bytes to their end rather than failing).
    if (m_isLoading && eventType == libvlc_MediaPlayerEndReached) {
        m_isLoading = false;
        m_loadError = tr("libVLC: no video or audio it can play was found in the file");
        reportFailedLoading();
        return;
    }
    // Playing onto a frame (also while loading) is not a change of the playing flag.
    if (m_isLoading || !std::isnan(m_stepTarget))
        return;
    // Nor is the pause that a seek while playing makes, up to playing again.
    if (m_seekWhilePlaying) {
        if (eventType == libvlc_MediaPlayerPaused)
            return;
        if (eventType == libvlc_MediaPlayerPlaying)
            m_seekWhilePlaying = false;
    }
    const bool playing = playerIsPlaying();
    setIsPlaying(playing);
    if (playing && m_fps > 0 && !hasScrubberTimer())
        startScrubberTimer(m_fps);
}

double VLCMovieController::fps() const
{
    if (m_fps <= 0) {
        logLine(u"Warning: Unknown Framerate, using 25fps instead"_s);
        return 25;
    }
    return m_fps;
}

double VLCMovieController::duration() const
{
    if (m_duration <= 0 && m_media) {
        // The media knows its length once parsed; the playing input knows it earlier.
        libvlc_time_t length = libvlc_media_get_duration(m_media);
        if (length <= 0)
            length = libvlc_media_player_get_length(m_vlcPlayer);
        m_duration = std::max(0.0, double(length) / 1000.0);
    }
    return m_duration;
}

double VLCMovieController::currentTime() const
{
    if (m_isPlaying && m_vlcPlayer)
        return playingTime();
    return m_timeWhenPaused;
}

double VLCMovieController::playingTime() const
{
    // libVLC moves its time on only every quarter of a second or so; in between, the time
    // runs on with the clock from when the player's time last moved.
    const double reported = double(libvlc_media_player_get_time(m_vlcPlayer)) / 1000.0;
    if (reported != m_clockValue || !m_clockSeen.isValid()) {
        m_clockValue = reported;
        m_clockSeen.start();
        return reported;
    }
    // The clock runs at the playing speed.
    return reported + std::min(double(m_clockSeen.elapsed()) / 1000.0, 1.0) * m_speed;
}

long long VLCMovieController::seekTarget(double seconds) const
{
    // Seeking to the very start of a frame, libVLC often shows the next one: aim a quarter
    // frame before the start of the frame that covers the time.
    const double target = m_fps > 0 ? frameStart(seconds) - 0.25 / m_fps : seconds;
    return std::llround(std::max(0.0, target) * 1000.0);
}

double VLCMovieController::frameStart(double seconds) const
{
    return m_fps > 0 ? std::floor(seconds * m_fps + 1e-6) / m_fps : seconds;
}

double VLCMovieController::playerTime() const
{
    if (!m_media)
        return NAN;
    return double(libvlc_media_player_get_time(m_vlcPlayer)) / 1000.0;
}

void VLCMovieController::setCurrentTime(double seconds)
{
    if (!m_vlcPlayer)
        return;
    if (m_pausePending) {
        // Frames of the playing still arrive until the pause holds; the seek waits for it.
        m_timeWhenPaused = seconds;
        m_currentTime = seconds;
        tellSubtitleViewTime(seconds);
        setSliderFraction(position());
        announceCurrentTime();
        return;
    }
    const bool wasPlaying = m_isPlaying;
    m_timeWhenPaused = seconds;
    m_currentTime = seconds;
    tellSubtitleViewTime(seconds);
    if (wasPlaying) {
        m_seekWhilePlaying = true;
        libvlc_media_player_set_pause(m_vlcPlayer, 1);
        libvlc_media_player_set_time(m_vlcPlayer, seekTarget(seconds));
        libvlc_media_player_play(m_vlcPlayer);
    } else {
        seekWhilePaused(seconds);
    }
    setSliderFraction(position());
    announceCurrentTime();
}

void VLCMovieController::setIsPlaying(bool playing)
{
    if (playing == m_isPlaying)
        return;
    if (!playing) {
        // Paused on a frame: the time is where that frame starts.
        m_timeWhenPaused = frameStart(currentTime());
        stopScrubberTimer();
    }
    m_isPlaying = playing;
    setPlayButtonState(playing);
    watchWindow(playing);
    reportChangedPlaying(playing);
}

double VLCMovieController::position() const
{
    if (!m_vlcPlayer)
        return 0;
    if (m_isPlaying)
        return double(libvlc_media_player_get_position(m_vlcPlayer));
    const double length = duration();
    return length > 0 ? m_timeWhenPaused / length : double(libvlc_media_player_get_position(m_vlcPlayer));
}

void VLCMovieController::setPosition(double position)
{
    if (!m_vlcPlayer)
        return;
    libvlc_media_player_set_position(m_vlcPlayer, float(position));
    if (const double length = duration(); length > 0)
        m_timeWhenPaused = length * position;
    m_currentTime = currentTime();
    announceCurrentTime();
}

void VLCMovieController::setPlaying(bool playing)
{
    if (playing != m_isPlaying)
        togglePlayPause();
}

void VLCMovieController::togglePlayPause()
{
    if (!m_media)
        return;
    // Playing takes over from playing onto a frame.
    const bool stepping = !std::isnan(m_stepTarget);
    m_stepTarget = NAN;
    m_seekWhilePlaying = false;
    m_holdFrame = false;
    m_pausingAfterStep = false;
    libvlc_audio_set_mute(m_vlcPlayer, 0);
    if (m_isPlaying) {
        libvlc_media_player_set_pause(m_vlcPlayer, 1);
        // Paused from now on: a step or a fix right away starts from the time reported now,
        // whose frame is shown once the pause holds. The frames decoded meanwhile stay hidden,
        // and the player's reports of playing until then are not news.
        m_pausingAfterStep = true;
        m_pausePending = true;
        m_holdFrame = true;
        setIsPlaying(false);
        updateScrobberTimed();
        // Should libVLC never confirm the pause, the frame is shown all the same.
        QTimer::singleShot(1000, this, [this, media = m_media] {
            if (m_pausePending && m_media == media) {
                m_pausePending = false;
                m_pausingAfterStep = false;
                seekWhilePaused(m_timeWhenPaused);
            }
        });
    } else {
        libvlc_media_player_play(m_vlcPlayer);
        libvlc_video_set_spu(m_vlcPlayer, -1);
        // Taking over from playing onto a frame (a line clicked a moment ago), libVLC plays
        // already and reports nothing new: the flag follows the player now.
        if (stepping && playerIsPlaying()) {
            setIsPlaying(true);
            if (m_fps > 0 && !hasScrubberTimer())
                startScrubberTimer(m_fps);
        }
    }
}

void VLCMovieController::updateScrobberTimed()
{
    m_currentTime = currentTime();
    tellSubtitleViewTime(m_currentTime);
    setSliderFraction(position());
    announceCurrentTime();
}

void VLCMovieController::jumpToBeginning()
{
    setCurrentTime(0);
}

void VLCMovieController::scrubThroughMovie()
{
    setCurrentTime(sliderFraction() * duration());
}

void VLCMovieController::windowWillClose()
{
    if (m_vlcPlayer)
        libvlc_media_player_stop(m_vlcPlayer);
}

QList<AudioTrackItem> VLCMovieController::audioMenuItems() const
{
    QList<AudioTrackItem> items;
    if (!m_vlcPlayer)
        return items;
    const int current = audioTrack();
    libvlc_track_description_t *names = libvlc_audio_get_track_description(m_vlcPlayer);
    for (libvlc_track_description_t *name = names; name; name = name->p_next)
        items << AudioTrackItem{QString::fromUtf8(name->psz_name), name->i_id, name->i_id == current};
    if (names)
        libvlc_track_description_list_release(names);
    return items;
}

int VLCMovieController::audioTrack() const
{
    return m_vlcPlayer ? libvlc_audio_get_track(m_vlcPlayer) : 0;
}

void VLCMovieController::setAudioTrack(int index)
{
    if (m_vlcPlayer)
        libvlc_audio_set_track(m_vlcPlayer, index);
}

void VLCMovieController::setSpeed(double speed)
{
    if (!(speed > 0))
        return;
    m_speed = speed;
    if (m_vlcPlayer)
        libvlc_media_player_set_rate(m_vlcPlayer, float(speed));
}

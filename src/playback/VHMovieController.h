#pragma once

#include "PlaybackControl.h"

#include <QImage>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <atomic>
#include <cmath>
#include <memory>

class ImageVideoSurface;
class MovieArea;
class MpvGLSurface;
class QAction;
class QMenu;
class QSlider;
class QToolButton;
class VHSubtitleView;
struct mpv_handle;
struct mpv_node;
struct mpv_render_context;

// Plays the project's movie inside the project window with libmpv, reports the playing time
// to its delegate (the project), drives the play, subtitle and full-screen buttons, the scrub
// slider and the audio-track menu, and forwards the time to the subtitle overlay.
//
// view() is the widget the window places: the movie (with the overlay above it) and a
// control bar. Video is drawn with mpv's OpenGL render API into a QOpenGLWidget on a real
// display, and with its software renderer into an image when the Qt platform is "offscreen",
// when OpenGL is unavailable, or when CAPTORA_SOFTWARE_VIDEO is set in the environment.
//
// Requirements on main(): libmpv refuses to start unless LC_NUMERIC is "C". Call
// setlocale(LC_NUMERIC, "C") after the QApplication exists (Qt sets the locale from the
// environment when the application object is made). Set Qt::AA_ShareOpenGLContexts before
// creating the QApplication, so that the video keeps its GL context when the view moves to
// a full-screen window of its own; without it the player reopens the movie at the same time
// (a short interruption). CAPTORA_MPV_LOG=<level> (e.g. "v") logs mpv's own messages;
// CAPTORA_AUDIO_OUTPUT=null plays without looking for a sound device (both players).
//
// Threading: everything runs on the main thread. mpv's wakeup and render-update callbacks
// only post a queued call to this object, which then drains mpv's events.
//
// Loading on a real display waits until the view has been shown once (the OpenGL render
// context needs the widget's GL context); loading before that starts on first show.
class VHMovieController : public QObject, public PlaybackControl
{
    Q_OBJECT

public:
    explicit VHMovieController(QObject *parent = nullptr);
    ~VHMovieController() override;

    // The controller of a kind, for the project's PlaybackControlFactory: 1 libmpv
    // (VHMovieController), 2 libVLC (VLCMovieController), anything else none.
    static VHMovieController *controllerOfKind(int kind, QObject *parent = nullptr);
    // The view of a controller of either kind (null for other PlaybackControls).
    static QWidget *viewOf(PlaybackControl *controller);

    // --- PlaybackControl ---------------------------------------------------------------
    int kind() const override { return 1; }
    bool hasMovie() const override { return !m_movie.isEmpty(); }
    double currentTime() const override;
    void setCurrentTime(double seconds) override;
    double fps() const override;
    double duration() const override;
    bool isPlaying() const override { return m_isPlaying; }
    // Starts or pauses the player; the playing flag follows the player.
    void setPlaying(bool playing) override;
    void setSubtitles(const SubtitleList &subtitles) override;
    void setShowSubtitle(bool show) override;
    void redrawCurrentSubtitle() override;
    qsizetype currentSegmentIndex() const override;
    bool loadMovieURL(const QString &path) override;
    void unloadMovie() override { setMovie(QString()); }
    void setDelegate(PlaybackControlDelegate *delegate) override { m_delegate = delegate; }
    QString loadError() const override { return m_loadError; }
    double aspectRatio() const override;
    QList<AudioTrackItem> audioMenuItems() const override;
    int audioTrack() const override;
    void setAudioTrack(int index) override;
    double speed() const override { return m_speed; }
    // mpv's "speed"; with audio-pitch-correction (on by default) mpv keeps the pitch through
    // its tempo filter.
    void setSpeed(double speed) override;
    void setAccuracyScrubbing(bool on) override { m_accuracyScrubbing = on; }
    void setAutoShowControls(bool on) override;

    // --- the window's side -------------------------------------------------------------
    // The movie area with the overlay and the control bar. The controller owns it until the
    // window takes it into its layout; it is deleted with the controller either way.
    QWidget *view() const { return m_view; }
    VHSubtitleView *subtitleView() const { return m_subtitleView; }
    const QString &movie() const { return m_movie; }
    virtual void setMovie(const QString &path);
    const SubtitleList &subtitles() const { return m_subtitles; }
    bool showSubtitle() const { return m_showSubtitle; }
    bool accuracyScrubbing() const { return m_accuracyScrubbing; }
    bool autoShowControls() const { return m_autoShowControls; }
    double playRate() const { return m_playRate; }
    // A rate of exactly 0 means paused, any other rate playing.
    void setPlayRate(double rate);
    // Position as a fraction of the duration (the slider's value).
    virtual double position() const;
    // Rebuilds `menu` with one checkable item per audio track; choosing one selects it.
    void fillAudioMenu(QMenu *menu);
    // Gives the play button the keyboard focus.
    void makeFirstResponder();
    bool isFullscreen() const override { return m_fullscreen; }
    // For a window with a control bar of its own: the view then shows only the picture and
    // the overlay, whatever autoShowControls says.
    void setControlBarHidden(bool hidden);

    // The actions of the buttons, the slider and the menu.
    virtual void togglePlayPause();
    void toggleSubtitle();
    // The view leaves the window for a full-screen window of its own (with the control bar,
    // also where the window has its own), and comes back to the same place.
    void toggleFullscreen() override;
    void cancelFullscreen();
    virtual void jumpToBeginning();
    virtual void scrubThroughMovie();
    void selectLanguage(QAction *item);

    // The picture as the view shows it: the current video frame with the overlay drawn on
    // it, at the movie area's size.
    virtual QImage grabFrame();
    // The player's own playback position (seconds; NaN without a movie).
    virtual double playerTime() const;
    bool usesOpenGL() const { return m_glSurface != nullptr; }

    // The audio codec rules: the label of a four-character code and whether playing it is
    // safe. mpv's codec names map onto the codes with audioCodeForCodecName().
    static QString audioTypeForCode(const QString &code);
    static bool isSaveAudioCode(const QString &code);
    static QString audioCodeForCodecName(const QString &codecName);
    // Whether mpv's video can use OpenGL here (real display, a GL context can be made).
    static bool openGLAvailable();

Q_SIGNALS:
    // The same reports the delegate gets, for widgets that follow the controller.
    void movieLoaded();
    void movieFailedLoading();
    void playingChanged(bool playing);
    void currentTimeChanged(double seconds);
    // A seek the controller issued has completed and its frame is on its way.
    void seekFinished();
    void fullscreenChanged(bool fullscreen);
    // A click on the movie picture.
    void movieClicked();
    // The overlay's cue changed (null: none shown).
    void subtitleChanged(const SubtitlePtr &cue);

protected:
    // For the libVLC controller: no mpv player, frames arrive as images.
    enum class Backend { Mpv, Images };
    VHMovieController(Backend backend, QObject *parent);

    // The playing flag, the timer and the play button, as the player reports its state.
    virtual void setIsPlaying(bool playing);
    // The periodic update while playing.
    virtual void updateScrobberTimed();
    virtual void windowWillClose();

    void startScrubberTimer(double framesPerSecond);
    void stopScrubberTimer();
    bool hasScrubberTimer() const { return m_scruberTimer.isActive(); }
    // Tells the delegate and the signal's listeners that the current time moved.
    void announceCurrentTime();
    void tellSubtitleViewTime(double seconds);
    void setSliderFraction(double fraction);
    double sliderFraction() const;
    void setPlayButtonState(bool on);
    // While playing, closing the window stops playback (windowWillClose()).
    void watchWindow(bool watch);
    void reportLoaded();
    void reportFailedLoading();
    void reportChangedPlaying(bool playing);
    ImageVideoSurface *imageSurface() const { return m_imageSurface; }
    QWidget *controlBar() const { return m_controlBar; }

    bool eventFilter(QObject *watched, QEvent *event) override;

    QString m_movie;
    bool m_isPlaying = false;
    bool m_showSubtitle = true;
    bool m_waitingForReady = false;
    bool m_wasPlaying = false;
    double m_targetTime = 0;
    bool m_autoShowControls = false;
    bool m_accuracyScrubbing = false;
    double m_currentTime = 0;
    double m_playRate = 0;
    double m_speed = 1;
    double m_fps = 0;
    // The current time is where playback took the player, not a time that was set (a seek
    // stores the time asked for, which may lie inside the frame on screen).
    bool m_timeFromPlayer = false;
    SubtitleList m_subtitles;
    PlaybackControlDelegate *m_delegate = nullptr;
    QString m_loadError;

private:
    struct Track
    {
        qint64 id = 0;
        QString type, lang, title, codec;
        bool selected = false;
        bool albumArt = false;
        int width = 0, height = 0;
        double fps = 0;
    };
    struct MpvDeleter
    {
        void operator()(mpv_handle *mpv) const;
    };
    struct RenderDeleter
    {
        void operator()(mpv_render_context *context) const;
    };

    void buildView(QWidget *surface);
    void buildControlBar();
    void updateSubtitleButton();

    static void wakeup(void *controller);
    static void softwareRenderUpdate(void *controller);
    bool createPlayer();
    void startSoftwareRender();
    // The OpenGL render context could not be made: draw in software instead.
    void switchToSoftwareVideo();
    void issueLoad();
    void reopenMovie();
    Q_INVOKABLE void drainMpvEvents();
    Q_INVOKABLE void renderSoftwareFrame();
    void handlePropertyChange(const char *name, int format, void *data);
    void movieBecameReady();
    void readTrackList(const mpv_node &list);
    void seekFinishedInPlayer();
    void setPaused(bool paused);
    // While paused after playing: takes the player's position (the frame on screen) as the
    // current time when it differs.
    void followPlayerTime();
    QList<Track> audioTracks() const;

    // Declared in destruction order's reverse: the render context goes before the player.
    std::unique_ptr<mpv_handle, MpvDeleter> m_mpv;
    std::unique_ptr<mpv_render_context, RenderDeleter> m_softwareRender;
    std::atomic<bool> m_drainPosted{false};
    bool m_loadPending = false;
    bool m_forceRender = false;
    bool m_reopening = false;
    qint64 m_entryId = -1;
    double m_duration = 0;
    double m_playerTime = NAN;
    QList<Track> m_tracks;
    QImage m_softwareFrame;

    QTimer m_scruberTimer;
    QPointer<QWidget> m_view;
    MovieArea *m_movieArea = nullptr;
    VHSubtitleView *m_subtitleView = nullptr;
    ImageVideoSurface *m_imageSurface = nullptr;
    MpvGLSurface *m_glSurface = nullptr;
    QWidget *m_controlBar = nullptr;
    bool m_controlBarHidden = false;
    QToolButton *m_playButton = nullptr;
    QToolButton *m_subtitleButton = nullptr;
    QToolButton *m_fullscreenButton = nullptr;
    QSlider *m_scrubSlider = nullptr;
    bool m_settingSlider = false;
    bool m_fullscreen = false;
    QPointer<QWidget> m_placeholder;
    QPointer<QWidget> m_viewParent;
    QRect m_viewGeometry;
    QPointer<QWidget> m_watchedWindow;
};

#pragma once

#include "CTWindowController.h"
#include "LocaleNames.h"
#include "Log.h"
#include "MainQueue.h"
#include "PlaybackControl.h"
#include "ProjectView.h"
#include "Settings.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <memory>

// A window that records what the project shows and answers panels from queues. Ending a
// sheet reports back to the project, as the real window does.
class FakeView final : public ProjectView
{
public:
    struct SaveAnswer
    {
        QString path; // null: cancelled
        int exportType = 0;
        quint32 exportEncoding = 0;
        bool windowsLineBreaks = false;
    };

    CTWindowController *project = nullptr;
    QStringList titles;
    bool edited = false;
    bool visible = true;
    int orderedFront = 0;
    QList<Sheet> attached, begun, ended;
    QStringList openAnswers;
    QList<SaveAnswer> saveAnswers;
    QList<SavePanelOptions> savePanels;
    QList<LanguageButtonItem> buttonItems;
    qsizetype buttonSelected = -2;
    QList<qsizetype> editedRows;

    void setWindowTitle(const QString &title) override { titles << title; }
    void setDocumentEdited(bool e) override { edited = e; }
    bool isWindowVisible() const override { return visible; }
    void makeKeyAndOrderFront() override { ++orderedFront; }
    bool hasAttachedSheet() const override { return !attached.isEmpty(); }
    void beginSheet(const Sheet &sheet) override
    {
        attached << sheet;
        begun << sheet;
    }
    void endSheet(const Sheet &sheet, int returnCode) override
    {
        attached.removeOne(sheet);
        ended << sheet;
        if (project)
            project->didEndSheet(sheet, returnCode);
    }
    QList<Sheet> attachedSheets() const override { return attached; }
    QString runOpenPanel(const QStringList &, bool, const QString &) override
    {
        return openAnswers.isEmpty() ? QString() : openAnswers.takeFirst();
    }
    QString runSavePanel(SavePanelOptions &options) override
    {
        savePanels << options;
        if (saveAnswers.isEmpty())
            return {};
        const SaveAnswer answer = saveAnswers.takeFirst();
        options.exportType = answer.exportType;
        options.exportEncoding = answer.exportEncoding;
        options.windowsLineBreaks = answer.windowsLineBreaks;
        return answer.path;
    }
    void setLanguageButton(const QList<LanguageButtonItem> &items, qsizetype selected) override
    {
        buttonItems = items;
        buttonSelected = selected;
    }
    void beginEditingText(qsizetype row) override { editedRows << row; }

    // The movie area.
    QList<PlaybackControl *> attachedControllers, detachedControllers;
    bool playerViewVisible = false, backgroundVisible = true;
    double aspectRatio = 0;
    QList<AudioTrackItem> audioItems;
    double scrubberMaximum = -1, fixDuration = -1;
    QList<double> frameSteps;
    QStringList playTitles;
    void attachMovieController(PlaybackControl *c) override { attachedControllers << c; }
    void detachMovieController(PlaybackControl *c) override { detachedControllers << c; }
    void setPlayerViewVisible(bool v) override { playerViewVisible = v; }
    void setBackgroundImageVisible(bool v) override { backgroundVisible = v; }
    void setMovieAspectRatio(double r) override { aspectRatio = r; }
    void setAudioMenuItems(const QList<AudioTrackItem> &items) override { audioItems = items; }
    void setScrubberRange(double, double maximum) override { scrubberMaximum = maximum; }
    void setFrameStepAmounts(const QList<double> &steps) override { frameSteps = steps; }
    void setFixBackgroundDuration(double d) override { fixDuration = d; }
    void setPlayButtonTitle(const QString &title) override { playTitles << title; }
};

class FakePlayer final : public PlaybackControl
{
public:
    bool movie = false, playing = false;
    double time = 0, frameRate = 25, length = 0, rate = 1;
    QList<double> seeks;
    QList<bool> playingCalls;
    int subtitlesHandedOver = 0, redraws = 0;
    // Whether a seek reports its time to the delegate at once, as the real players do.
    bool reportsSeeks = false;

    bool hasMovie() const override { return movie; }
    double currentTime() const override { return time; }
    void setCurrentTime(double seconds) override
    {
        seeks << seconds;
        time = seconds;
        if (reportsSeeks && delegate)
            delegate->movieControllerChangedTime(this, seconds);
    }
    double fps() const override { return frameRate; }
    double duration() const override { return length; }
    bool isPlaying() const override { return playing; }
    void setPlaying(bool p) override
    {
        playingCalls << p;
        if (p == playing)
            return;
        playing = p;
        if (delegate)
            delegate->movieControllerChangedPlaying(this, p);
    }
    double speed() const override { return rate; }
    void setSpeed(double s) override { rate = s; }
    // Playback moves the time on by `seconds` and reports it, as a player's periodic update.
    void playFor(double seconds)
    {
        time += seconds;
        if (delegate)
            delegate->movieControllerChangedTime(this, time);
    }
    void setSubtitles(const SubtitleList &) override { ++subtitlesHandedOver; }
    void setShowSubtitle(bool) override {}
    void redrawCurrentSubtitle() override { ++redraws; }
    qsizetype currentSegmentIndex() const override { return 0; }

    // Loading: `loadable` says whether a movie object can be made; the test then reports the
    // outcome through the delegate, as a real player does later.
    int playerKind = 0;
    bool loadable = true;
    QStringList loads;
    int unloads = 0;
    PlaybackControlDelegate *delegate = nullptr;
    double aspect = 0;
    QList<AudioTrackItem> audioItems;
    QList<int> audioTracks;
    bool systemItem = true;
    QString whyNotLoaded;
    QString loadError() const override { return whyNotLoaded; }
    int kind() const override { return playerKind; }
    bool loadMovieURL(const QString &path) override
    {
        loads << path;
        return loadable;
    }
    void unloadMovie() override
    {
        ++unloads;
        movie = false;
    }
    void setDelegate(PlaybackControlDelegate *d) override { delegate = d; }
    double aspectRatio() const override { return aspect; }
    bool isSystemFrameworkItem() const override { return systemItem && movie; }
    QList<AudioTrackItem> audioMenuItems() const override { return audioItems; }
    void setAudioTrack(int index) override { audioTracks << index; }
};

// A project on a fresh settings file in a temporary folder, with scripted answers and the
// log captured. Deferred corrections are drained before the project goes, so none of them
// reaches a later test.
class ProjectTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        MainQueue::main().drain();
        Settings::shared().useFile(dir.path(QStringLiteral("settings.ini")));
        Settings::shared().setValue(QStringLiteral("Locale"), QStringLiteral("en"));
        LocaleNames::setInterfaceLanguage(QStringLiteral("en"));
        project = std::make_unique<CTWindowController>(&view, &player);
        view.project = project.get();
        project->windowDidLoad();
    }
    void TearDown() override
    {
        MainQueue::main().drain();
        project.reset();
    }

    // Opens <dir>/Film.m4v as a movie played by the system player.
    QString openMovie(double duration = 900, double fps = 25)
    {
        // The movie file must exist for the project to open it; its content does not matter
        // to the project.
        const QString movie = dir.write(QStringLiteral("Film.m4v"), QByteArray("movie"));
        player.movie = true;
        player.length = duration;
        player.frameRate = fps;
        project->setMoviePath(movie);
        player.movie = true; // setMoviePath unloads the previous movie first
        project->movieControllerDidLoadMovie(&player);
        return movie;
    }
    // Cues named c0, c1, ... with the given start and end times.
    static SubtitleList cues(std::initializer_list<std::pair<double, double>> times)
    {
        SubtitleList list;
        for (const auto &[from, to] : times)
            list << VHSubtitle::create(QStringLiteral("c%1").arg(list.size()), from, to);
        return list;
    }
    QString copyFixture(const QString &fixture, const QString &name)
    {
        return dir.write(name, fixtureBytes(QStringLiteral("project"), fixture));
    }

    TempDir dir;
    ScriptedPrompter prompter;
    ScopedPrompter scopedPrompter{&prompter};
    LogCapture log;
    FakeView view;
    FakePlayer player;
    std::unique_ptr<CTWindowController> project;
};

// Opening a movie: the player kinds, the fallback, the reset after failing, and what the
// project takes over from a loaded movie.
#include "ProjectFixture.h"

#include <cmath>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
// Makes fake players on demand, as the window's factory makes real ones; each kind's
// behaviour is set before the project asks for it.
struct PlayerShop
{
    std::vector<std::unique_ptr<FakePlayer>> made;
    bool loadable[3] = {false, true, true};
    double fps = 25, length = 120, aspect = 0;
    QList<AudioTrackItem> audio;

    PlaybackControl *make(int kind)
    {
        auto player = std::make_unique<FakePlayer>();
        player->playerKind = kind;
        player->loadable = loadable[kind];
        player->frameRate = fps;
        player->length = length;
        player->aspect = aspect;
        player->audioItems = audio;
        made.push_back(std::move(player));
        return made.back().get();
    }
    FakePlayer *last() const { return made.empty() ? nullptr : made.back().get(); }
};

class MovieTest : public ProjectTest
{
protected:
    void SetUp() override
    {
        ProjectTest::SetUp();
        project = std::make_unique<CTWindowController>(&view, nullptr);
        view.project = project.get();
        project->setMovieControllerFactory([this](int kind) { return shop.make(kind); });
        project->setCommandHandler([this](const QString &command) { commands << command; });
        project->windowDidLoad();
        movie = dir.write(u"Film.mp4"_s, "movie");
    }
    // The current player finishes loading its movie.
    void loaded()
    {
        FakePlayer *player = shop.last();
        player->movie = true;
        player->delegate->movieControllerDidLoadMovie(player);
    }

    PlayerShop shop;
    QStringList commands;
    QString movie;
};

TEST_F(MovieTest, AMovieTheFirstPlayerRejectsIsRetriedWithTheFallbackPlayer)
{
    for (const bool rejectedAtOnce : {true, false}) {
        SCOPED_TRACE(rejectedAtOnce ? "no movie object" : "failed while loading");
        project->setMoviePath(QString());
        shop.made.clear();
        view.attachedControllers.clear();
        view.detachedControllers.clear();
        shop.loadable[1] = !rejectedAtOnce;

        project->setMoviePath(movie);
        ASSERT_EQ(shop.made.size(), rejectedAtOnce ? 2u : 1u);
        if (!rejectedAtOnce) {
            FakePlayer *first = shop.last();
            first->delegate->movieControllerFaildLoading(first);
            ASSERT_EQ(shop.made.size(), 2u);
            EXPECT_EQ(first->delegate, nullptr);
        }
        FakePlayer *first = shop.made[0].get(), *fallback = shop.made[1].get();
        EXPECT_EQ(first->loads, QStringList{movie});
        EXPECT_EQ(fallback->loads, QStringList{movie});
        EXPECT_EQ(view.detachedControllers, QList<PlaybackControl *>{first});
        EXPECT_EQ(view.attachedControllers, (QList<PlaybackControl *>{first, fallback}));
        EXPECT_EQ(project->movieKind(), 2);

        loaded();
        EXPECT_EQ(project->moviePath(), movie);
        EXPECT_EQ(project->basePath(), dir.path(u"Film"_s));
        EXPECT_TRUE(project->hasMovie());
        // Only the libavformat side can embed or extract.
        fallback->systemItem = false;
        EXPECT_FALSE(project->canEmbed());
        for (const LanguagePtr &language : project->languages())
            EXPECT_NE(language->action(), u"embedSubtitle:"_s);
        EXPECT_TRUE(log.lines().filter(u"could not be opened"_s).isEmpty());
    }
}

TEST_F(MovieTest, AMovieNeitherPlayerOpensResetsTheProject)
{
    Settings::shared().setValue(u"LastVideo"_s, u"/earlier/Movie.mkv"_s);
    shop.loadable[2] = false;
    project->setMoviePath(movie);
    FakePlayer *first = shop.last();
    first->delegate->movieControllerFaildLoading(first);

    EXPECT_EQ(log.lines().filter(u"Warning: Movie at "_s),
              QStringList{u"Warning: Movie at %1 could not be opened!"_s.arg(movie)});
    EXPECT_TRUE(project->moviePath().isEmpty());
    EXPECT_TRUE(project->basePath().isEmpty());
    EXPECT_TRUE(project->subtitlePath().isEmpty());
    EXPECT_EQ(project->movieKind(), 0);
    EXPECT_EQ(project->fixMode(), FixMode::None);
    EXPECT_FALSE(project->hasMovie());
    EXPECT_EQ(project->movieController(), nullptr);
    EXPECT_DOUBLE_EQ(view.aspectRatio, 1.7777777777777777);
    ASSERT_EQ(view.audioItems.size(), 1);
    EXPECT_EQ(view.audioItems[0].title, u"No Audio Track"_s);
    EXPECT_FALSE(view.playerViewVisible);
    EXPECT_EQ(view.detachedControllers.size(), 2);
    // The failed movie never became the last one.
    EXPECT_EQ(Settings::shared().stringValue(u"LastVideo"_s), u"/earlier/Movie.mkv"_s);
}

TEST_F(MovieTest, AMovieNeitherPlayerOpensIsReportedToTheUserWithTheReasons)
{
    shop.loadable[2] = true;
    project->setMoviePath(movie);
    FakePlayer *first = shop.last();
    first->whyNotLoaded = u"libmpv: unrecognized file format"_s;
    first->delegate->movieControllerFaildLoading(first);
    FakePlayer *fallback = shop.last();
    ASSERT_NE(fallback, first);
    fallback->whyNotLoaded = u"libVLC: no video or audio it can play was found in the file"_s;
    fallback->delegate->movieControllerFaildLoading(fallback);

    // Not from inside the player's report: after it.
    EXPECT_TRUE(prompter.prompts.isEmpty());
    MainQueue::main().drain();
    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(prompter.prompts[0].message, u"The movie “Film.mp4” could not be opened."_s);
    EXPECT_EQ(prompter.prompts[0].informative,
              u"libmpv: unrecognized file format.\nlibVLC: no video or audio it can play was found in the "
              "file.\n\n%1"_s.arg(movie));
    EXPECT_EQ(prompter.prompts[0].buttons, QStringList{u"OK"_s});
    EXPECT_EQ(log.count(u"Warning: Movie at %1 could not be opened!"_s.arg(movie)), 1);

    // A player that cannot even make a movie object gives no reason; the file is still named.
    prompter.prompts.clear();
    shop.loadable[1] = false;
    shop.loadable[2] = false;
    project->setMoviePath(movie);
    MainQueue::main().drain();
    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_EQ(prompter.prompts[0].informative, u"No player here can play it.\n\n%1"_s.arg(movie));

    // A movie that opens says nothing.
    prompter.prompts.clear();
    shop.loadable[1] = true;
    project->setMoviePath(movie);
    loaded();
    MainQueue::main().drain();
    EXPECT_TRUE(prompter.prompts.isEmpty());
}

TEST_F(MovieTest, ALoadedMovieGivesItsFrameRateLengthAndShape)
{
    struct Case
    {
        double fps, aspect;
        QList<double> steps;
        double shownAspect;
    };
    const Case cases[] = {
        {25, 0, {-0.2, -0.04, 0.04, 0.2}, 16.0 / 9.0},
        {0.5, 2.35, {}, 2.35}, // below one frame a second: no frame stepping
        {1, 1.5, {}, 1.5},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.fps);
        project->setMoviePath(QString());
        shop.fps = c.fps;
        shop.aspect = c.aspect;
        project->setMoviePath(movie);
        EXPECT_TRUE(view.backgroundVisible);
        loaded();
        EXPECT_DOUBLE_EQ(project->fps(), c.fps > 1 ? c.fps : 0);
        ASSERT_EQ(view.frameSteps.size(), c.steps.size());
        for (qsizetype i = 0; i < c.steps.size(); ++i)
            EXPECT_NEAR(view.frameSteps[i], c.steps[i], 1e-12);
        EXPECT_DOUBLE_EQ(view.aspectRatio, c.shownAspect);
        EXPECT_DOUBLE_EQ(project->movieDuration(), 120);
        EXPECT_DOUBLE_EQ(view.scrubberMaximum, 120);
        EXPECT_DOUBLE_EQ(view.fixDuration, 120);
        EXPECT_TRUE(view.playerViewVisible);
        EXPECT_FALSE(view.backgroundVisible);
        EXPECT_EQ(project->fixMode(), FixMode::Fix);
        EXPECT_EQ(Settings::shared().stringValue(u"LastVideo"_s), movie);
        EXPECT_EQ(project->languages().last()->action(), u"embedSubtitle:"_s);
    }
}

TEST_F(MovieTest, TheRememberedAudioTrackIsChosenWhenTheMovieHasIt)
{
    const QList<AudioTrackItem> two = {{u"English"_s, 0, false}, {u"German"_s, 1, false}};
    struct Case
    {
        QVariant stored;
        QList<AudioTrackItem> items;
        int ticked; // -1: only "No Audio Track"
    };
    const Case cases[] = {{QVariant(), two, 0}, {1, two, 1}, {5, two, 0}, {1, {}, -1}};
    for (const Case &c : cases) {
        SCOPED_TRACE(c.stored.toString().toStdString());
        project->setMoviePath(QString());
        Settings::shared().remove(u"AudioTrack"_s);
        if (c.stored.isValid())
            Settings::shared().setValue(u"AudioTrack"_s, c.stored);
        shop.audio = c.items;
        project->setMoviePath(movie);
        loaded();
        if (c.ticked < 0) {
            ASSERT_EQ(view.audioItems.size(), 1);
            EXPECT_EQ(view.audioItems[0].title, u"No Audio Track"_s);
            EXPECT_TRUE(shop.last()->audioTracks.isEmpty());
            continue;
        }
        ASSERT_EQ(view.audioItems.size(), 2);
        EXPECT_EQ(view.audioItems[0].checked, c.ticked == 0);
        EXPECT_EQ(view.audioItems[1].checked, c.ticked == 1);
        EXPECT_EQ(shop.last()->audioTracks, QList<int>{c.ticked});
    }
    // Without tracks nothing can be chosen, and the remembered track stays for the next movie.
    project->setActiveTrack(0);
    EXPECT_FALSE(view.audioItems[0].checked);
    EXPECT_EQ(Settings::shared().value(u"AudioTrack"_s).toInt(), 1);
    EXPECT_TRUE(shop.last()->audioTracks.isEmpty());
}

TEST_F(MovieTest, ExtractionRunsOnlyForTheFirstPlayerAndTheSearchOpensWithoutCues)
{
    QList<std::pair<bool, bool>> extractions;
    project->setExtractionHook([&](bool subtitles, bool chapters) {
        extractions.append({subtitles, chapters});
    });
    Settings::shared().setValue(u"AutoExtractVTT"_s, true);
    project->setMoviePath(movie);
    loaded();
    EXPECT_EQ(extractions, (QList<std::pair<bool, bool>>{{true, true}}));
    EXPECT_TRUE(commands.isEmpty()); // waits for the extraction

    // The extraction wrote a file: it is picked up and no search is needed.
    dir.write(u"Film.en.srt"_s, "1\n00:00:01,000 --> 00:00:02,000\nHello\n\n");
    project->subtitleExtractorFinished();
    EXPECT_EQ(project->subtitlePath(), dir.path(u"Film.en.srt"_s));
    EXPECT_EQ(project->subtitles().size(), 1);
    EXPECT_TRUE(commands.isEmpty());

    // The fallback player cannot extract: finished at once, and with no cues the search opens.
    QFile::remove(dir.path(u"Film.en.srt"_s));
    project->setMoviePath(QString());
    shop.loadable[1] = false;
    project->setMoviePath(movie);
    loaded();
    EXPECT_EQ(extractions.size(), 1);
    EXPECT_EQ(commands, QStringList{u"searchOnline:"_s});
}

TEST_F(MovieTest, TimeFollowsOnlyTheCurrentPlayerAndSeeksBeforeLoadingGoToThePlayer)
{
    project->setMoviePath(movie);
    FakePlayer *first = shop.last();
    // Selecting a cue while the movie still loads hands the seek to the player, which keeps
    // it until it is ready; the project does not hold it back.
    project->setSubtitles(cues({{10, 12}}));
    project->setSelectionIndices({0});
    EXPECT_EQ(first->seeks, QList<double>{10.0001});

    first->delegate->movieControllerChangedTime(first, 7);
    EXPECT_DOUBLE_EQ(project->currentTime(), 7);
    first->delegate->movieControllerFaildLoading(first);
    EXPECT_DOUBLE_EQ(project->currentTime(), 0);
    // A late report from the player that was let go changes nothing.
    project->movieControllerChangedTime(first, 9);
    project->movieControllerDidLoadMovie(first);
    EXPECT_DOUBLE_EQ(project->currentTime(), 0);
    EXPECT_EQ(project->movieKind(), 2);
    EXPECT_TRUE(project->basePath().isEmpty());

    FakePlayer *fallback = shop.last();
    fallback->delegate->movieControllerChangedPlaying(fallback, true);
    fallback->delegate->movieControllerChangedPlaying(fallback, false);
    EXPECT_EQ(view.playTitles, (QStringList{u"Pause"_s, u"Play"_s}));
}

TEST_F(MovieTest, EditedSubtitlesAreOfferedForEmbeddingBeforeTheMovieIsLeft)
{
    project->setMoviePath(movie);
    loaded();
    commands.clear(); // the search offered for a movie without subtitles
    project->setSubtitles(cues({{1, 2}}));
    project->setHasChanged(true);
    const QString srt = dir.path(u"Film.srt"_s);
    ASSERT_TRUE(project->saveSubtitleAt(srt));
    ASSERT_EQ(project->embeddingState(), 2);
    ASSERT_TRUE(project->canEmbed());

    prompter.prompts.clear();
    prompter.answers = {PromptAnswer{1, 0, false}}; // Don't Embed Subtitles
    EXPECT_TRUE(project->closeProject());
    ASSERT_EQ(prompter.prompts.size(), 1); // asked once, not again when the movie goes
    EXPECT_EQ(prompter.prompts[0].message, u"Do you want to embed your subtitles into the M4V file?"_s);
    EXPECT_EQ(prompter.prompts[0].buttons,
              (QStringList{u"Open Embedding Options"_s, u"Don't Embed Subtitles"_s}));
    EXPECT_TRUE(commands.isEmpty());

    project->setMoviePath(movie);
    loaded();
    commands.clear();
    project->setEmbeddingState(2);
    prompter.answers = {PromptAnswer{0, 0, false}};
    EXPECT_FALSE(project->closeProject()); // the embedding holds the project
    EXPECT_EQ(commands, QStringList{u"embedSubtitle:"_s});

    Settings::shared().setValue(u"AutoEmbed"_s, false);
    prompter.prompts.clear();
    EXPECT_TRUE(project->closeProject());
    EXPECT_TRUE(prompter.prompts.isEmpty());
}

TEST_F(MovieTest, WithoutAnyPlayerAMovieOnlyNamesTheFiles)
{
    CTWindowController headless(nullptr, nullptr);
    dir.write(u"Film.de.srt"_s, "1\n00:00:01,000 --> 00:00:02,000\nHallo\n\n");
    headless.setMoviePath(movie);
    EXPECT_EQ(headless.basePath(), dir.path(u"Film"_s));
    EXPECT_EQ(headless.subtitlePath(), dir.path(u"Film.de.srt"_s));
    EXPECT_FALSE(headless.hasMovie());
    EXPECT_EQ(headless.movieKind(), 0);
    for (const LanguagePtr &language : headless.languages())
        EXPECT_NE(language->action(), u"embedSubtitle:"_s);
}

TEST_F(MovieTest, OpeningAnotherMovieKeepsThePlayerAndAsksAboutUnsavedChangesFirst)
{
    project->setMoviePath(movie);
    loaded();
    FakePlayer *first = shop.last();
    const QString second = dir.write(u"Second.mkv"_s, "movie");

    project->setSubtitles(cues({{1, 2}}));
    project->setHasChanged(true);
    view.openAnswers = {second};
    prompter.answers = {PromptAnswer{2, 0, false}}; // Cancel: no panel, nothing changes
    project->openMovie();
    EXPECT_EQ(view.openAnswers.size(), 1);
    EXPECT_EQ(project->moviePath(), movie);

    prompter.answers = {PromptAnswer{1, 0, false}}; // Discard Changes
    project->openMovie();
    EXPECT_TRUE(view.openAnswers.isEmpty());
    EXPECT_EQ(project->moviePath(), second);
    ASSERT_EQ(shop.made.size(), 1u); // the same kind: the same player loads the next movie
    EXPECT_EQ(first->loads, (QStringList{movie, second}));
    EXPECT_TRUE(project->subtitles().isEmpty());
    EXPECT_TRUE(view.backgroundVisible); // until the next movie has loaded
    loaded();
    EXPECT_EQ(project->basePath(), dir.path(u"Second"_s));
}

TEST_F(MovieTest, TheArrowKeysStepFramesOnlyOutsideTextEditors)
{
    EXPECT_TRUE(project->allowArrows());
    project->setObservedResponderIsTextEditor(true);
    EXPECT_FALSE(project->allowArrows());
    project->setObservedResponderIsTextEditor(false);
    EXPECT_TRUE(project->allowArrows());
}
} // namespace

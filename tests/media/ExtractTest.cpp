// Extracting a movie's text tracks into files beside it: naming, existing files, and the
// finishing call.
#include "CTSubtitleExtractor.h"
#include "MainQueue.h"
#include "MovieTestSupport.h"
#include "TestSupport.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
const QList<TestCue> kCues = {{0.5, 1.5, u"Hello"_s}, {2.0, 3.0, u"World"_s}};

// A movie with two English tracks, one German track and a chapter track, made once.
const QString &trackMovie()
{
    static QTemporaryDir dir;
    static const QString srt = writeSubRip(dir.filePath(u"cues.srt"_s), kCues);
    static const QString movie = makeTrackMovie(dir.filePath(u"tracks.mp4"_s), 3, srt, srt);
    return movie;
}

struct Extraction
{
    std::shared_ptr<CTSubtitleExtractor> extractor;
    RecordingExtractorDelegate delegate;
};

void extract(const QString &movie, bool subtitles, bool chapters, bool onlyMissing, Extraction &run)
{
    run.extractor = CTSubtitleExtractor::initWithAsset(MovieAsset::open(movie), movie, nullptr);
    run.extractor->setDelegate(&run.delegate);
    run.extractor->extractSubtitles(subtitles, chapters, onlyMissing);
    waitForExtraction(run.delegate);
}
} // namespace

TEST(Extractor, NamesFilesPerLanguageAndReadsTheCues)
{
    TempDir dir;
    const QString movie = dir.path(u"movie.mp4"_s);
    ASSERT_TRUE(QFile::copy(trackMovie(), movie));
    std::shared_ptr<const MovieAsset> asset = MovieAsset::open(movie);
    ASSERT_TRUE(asset);
    EXPECT_EQ(asset->fps(), 25);
    EXPECT_NEAR(asset->duration(), 3, 0.1);
    EXPECT_EQ(CTSubtitleExtractor::extractableSubtitles(asset.get()), 3);
    EXPECT_TRUE(CTSubtitleExtractor::extractableChapterMark(asset.get()));
    EXPECT_EQ(CTSubtitleExtractor::extractableSubtitles(nullptr), 0);

    Extraction run;
    extract(movie, true, true, false, run);
    EXPECT_EQ(dir.entries(), (QStringList{u"movie.de.srt"_s, u"movie.en-1.srt"_s, u"movie.en.srt"_s,
                                          u"movie.mp4"_s, u"movie.vtt"_s}));
    const QStringList expected = {u"0.500-1.500 Hello"_s, u"2.000-3.000 World"_s};
    for (const QString &name : {u"movie.en.srt"_s, u"movie.en-1.srt"_s, u"movie.de.srt"_s})
        EXPECT_EQ(cueLines(dir.path(name)), expected) << name.toStdString();
    const QByteArray chapters = dir.read(u"movie.vtt"_s);
    EXPECT_TRUE(chapters.contains("Intro") && chapters.contains("Main")) << chapters.toStdString();
}

TEST(Extractor, ExistingFilesAreAskedAboutOrKeptWithOnlyMissing)
{
    TempDir dir;
    const QString movie = dir.path(u"movie.mp4"_s);
    ASSERT_TRUE(QFile::copy(trackMovie(), movie));
    dir.write(u"movie.en.srt"_s, "mine");
    {
        // Only missing: no question, the file stays, the next English track still counts on.
        ScriptedPrompter prompter;
        ScopedPrompter scoped(&prompter);
        Extraction run;
        extract(movie, true, false, true, run);
        EXPECT_TRUE(prompter.prompts.isEmpty());
        EXPECT_EQ(dir.read(u"movie.en.srt"_s), QByteArray("mine"));
        EXPECT_EQ(run.extractor->queuedPaths(),
                  (QStringList{dir.path(u"movie.en-1.srt"_s), dir.path(u"movie.de.srt"_s)}));
    }
    struct Case
    {
        int answer;
        QByteArray enContent;
        bool keptBoth;
    } cases[] = {{2, "mine", false}, {1, "mine", true}, {0, "", false}};
    for (const Case &c : cases) {
        QFile::remove(dir.path(u"movie-1.en.srt"_s));
        QFile::remove(dir.path(u"movie.en-1.srt"_s));
        QFile::remove(dir.path(u"movie.de.srt"_s));
        dir.write(u"movie.en.srt"_s, "mine");
        ScriptedPrompter prompter;
        prompter.answers = {PromptAnswer{c.answer}};
        ScopedPrompter scoped(&prompter);
        Extraction run;
        extract(movie, true, false, false, run);
        ASSERT_EQ(prompter.prompts.size(), 1);
        EXPECT_EQ(prompter.prompts[0].message, u"A subtitle with the name 'movie.en.srt' already exists"_s);
        EXPECT_EQ(prompter.prompts[0].buttons, (QStringList{u"Overwrite"_s, u"Keep Both"_s, u"Skip"_s}));
        if (c.answer == 0)
            EXPECT_TRUE(dir.read(u"movie.en.srt"_s).contains("Hello"));
        else
            EXPECT_EQ(dir.read(u"movie.en.srt"_s), c.enContent);
        EXPECT_EQ(run.extractor->queuedPaths().size(), c.answer == 2 ? 2 : 3) << c.answer;
        if (c.keptBoth) {
            EXPECT_TRUE(dir.entries().contains(u"movie-1.en.srt"_s))
                << dir.entries().join(u' ').toStdString();
        }
    }
}

TEST(Extractor, ASecondRequestWhileJobsRunPlansNothing)
{
    TempDir dir;
    const QString movie = dir.path(u"movie.mp4"_s);
    ASSERT_TRUE(QFile::copy(trackMovie(), movie));
    auto extractor = CTSubtitleExtractor::initWithAsset(MovieAsset::open(movie), movie, nullptr);
    RecordingExtractorDelegate delegate;
    extractor->setDelegate(&delegate);
    extractor->extractSubtitles(true, true, false);
    ASSERT_TRUE(extractor->isRunning()); // the main queue has not run: the end is not reported yet
    extractor->extractSubtitles(true, true, false);
    EXPECT_EQ(delegate.finished, 1);
    EXPECT_TRUE(extractor->queuedPaths().isEmpty());
    extractor->waitForDone();
    MainQueue::main().drain();
    EXPECT_EQ(delegate.finished, 2);
}

TEST(Extractor, NothingToDoFinishesAtOnce)
{
    TempDir dir;
    const QString movie = dir.path(u"movie.mp4"_s);
    ffmpeg(clipInputs(1) + clipCodecs() + QStringList{movie});
    auto extractor = CTSubtitleExtractor::initWithAsset(MovieAsset::open(movie), movie, nullptr);
    RecordingExtractorDelegate delegate;
    extractor->setDelegate(&delegate);
    extractor->extractSubtitles(true, true, false);
    EXPECT_EQ(delegate.finished, 1);
    EXPECT_EQ(dir.entries(), QStringList{u"movie.mp4"_s});
}

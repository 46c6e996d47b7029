// Recovery copies: written only while there are unsaved changes, removed by a save, a
// discard or a close, offered when the file opens again; a process killed after the
// autosave interval loses nothing, and a kill during a copy's write never leaves a torn one.
#include "ProjectFixture.h"

#include "RecoveryStore.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QThread>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {
QByteArray fiveLines()
{
    QByteArray out;
    for (int i = 0; i < 8; ++i)
        out += QByteArray::number(i + 1) + "\n00:00:0" + QByteArray::number(i) + ",000 --> 00:00:0" +
               QByteArray::number(i) + ",800\nLine " + QByteArray::number(i) + "\n\n";
    return out;
}

// Starts the child, waits for the line it prints, kills it with SIGKILL.
bool runAndKill(const QStringList &arguments, const QByteArray &waitFor, int extraMs = 0)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QStringLiteral(RECOVERY_CHILD), arguments);
    if (!child.waitForStarted(10'000))
        return false;
    QElapsedTimer clock;
    clock.start();
    QByteArray out;
    while (!out.contains(waitFor) && clock.elapsed() < 60'000) {
        child.waitForReadyRead(200);
        out += child.readAllStandardOutput();
        if (child.state() != QProcess::Running)
            return false;
    }
    if (extraMs > 0)
        QThread::msleep(ulong(extraMs));
    ::kill(pid_t(child.processId()), SIGKILL);
    child.waitForFinished(10'000);
    return out.contains(waitFor);
}
} // namespace

class RecoveryTest : public ProjectTest
{
protected:
    QString folder() { return dir.path(u"state/captora/recovery"_s); }
};

TEST_F(RecoveryTest, CopiesFollowUnsavedChangesAndGoWithASaveADiscardOrAClose)
{
    RecoveryStore store(folder());
    project->setRecoveryStore(&store);
    const QString srt = dir.write(u"Film.srt"_s, fiveLines());
    project->setSubtitlePath(srt);

    project->autosaveTick(0, 30);
    EXPECT_FALSE(store.copyFor(srt)) << "nothing unsaved, no copy";
    project->setSelectionIndices({1});
    project->setSubtitleText(u"Changed"_s);
    project->autosaveTick(1000, 30);
    EXPECT_FALSE(store.copyFor(srt)) << "not before the interval";
    project->autosaveTick(31'500, 30);
    const auto copy = store.copyFor(srt);
    ASSERT_TRUE(copy);
    EXPECT_TRUE(copy->copyPath.startsWith(folder()));
    EXPECT_EQ(dir.read(u"Film.srt"_s), fiveLines()) << "the user's file is never written";
    EXPECT_EQ(QFileInfo(copy->copyPath).size(),
              qint64(VHSubtitle::subRipText(project->subtitles(), false).toUtf8().size()));

    project->saveSubtitle();
    EXPECT_FALSE(store.copyFor(srt)) << "a clean save removes it";

    project->setSubtitleText(u"Changed again"_s);
    project->writeRecoveryCopy(); // the window lost the focus
    ASSERT_TRUE(store.copyFor(srt));
    project->undo(); // back to the saved file
    EXPECT_FALSE(store.copyFor(srt));

    project->setSubtitleText(u"And again"_s);
    project->writeRecoveryCopy();
    ASSERT_TRUE(store.copyFor(srt));
    prompter.answers = {PromptAnswer{1}}; // Discard Changes
    EXPECT_TRUE(project->closeProject());
    EXPECT_FALSE(store.copyFor(srt));
    EXPECT_TRUE(store.copies().isEmpty());
}

TEST_F(RecoveryTest, AKilledProcessLosesNothingRecoverBringsEveryEditBackAsUnsavedChanges)
{
    const QString srt = dir.write(u"Film.srt"_s, fiveLines());
    const QString expected = dir.path(u"expected.srt"_s);
    qputenv("CAPTORA_AUTOSAVE_INTERVAL", "0.3");
    const bool killed =
        runAndKill({u"edit"_s, dir.path(u"child.ini"_s), folder(), srt, expected}, "autosaved");
    qunsetenv("CAPTORA_AUTOSAVE_INTERVAL");
    ASSERT_TRUE(killed);
    EXPECT_EQ(dir.read(u"Film.srt"_s), fiveLines());

    RecoveryStore store(folder());
    project->setRecoveryStore(&store);
    prompter.answers = {PromptAnswer{0}}; // Recover (the default button)
    project->setSubtitlePath(srt);
    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_TRUE(prompter.prompts[0].message.startsWith(u"Recover unsaved changes to Film.srt from "_s))
        << prompter.prompts[0].message.toStdString();
    EXPECT_EQ(prompter.prompts[0].buttons, (QStringList{u"Recover"_s, u"Discard"_s}));
    EXPECT_EQ(VHSubtitle::subRipText(project->subtitles(), false).toUtf8(), dir.read(u"expected.srt"_s));
    EXPECT_TRUE(project->hasChanged());
    EXPECT_TRUE(view.edited) << "the '*' shows";
    // The recovery is one step: undone, the file as it is on disk.
    EXPECT_EQ(project->validateMenuItem(u"undo:"_s).title, u"Undo Recover Unsaved Changes"_s);
    project->undo();
    EXPECT_EQ(VHSubtitle::subRipText(project->subtitles(), false).toUtf8(), fiveLines());
    project->redo();
    project->saveSubtitle();
    EXPECT_EQ(dir.read(u"Film.srt"_s), dir.read(u"expected.srt"_s));
    EXPECT_FALSE(store.copyFor(srt));
}

TEST_F(RecoveryTest, DiscardRemovesTheCopyAndAnOlderCopyThanTheFileIsNotOffered)
{
    const QString srt = dir.write(u"Film.srt"_s, fiveLines());
    const QString other = dir.write(u"Other.srt"_s, fiveLines());
    RecoveryStore store(folder());
    store.write(srt, ProjectTest::cues({{1, 2}}), false);
    store.write(other, ProjectTest::cues({{3, 4}}), false);
    store.waitUntilIdle();
    // Film.srt was saved after its copy was written.
    QThread::msleep(20);
    dir.write(u"Film.srt"_s, fiveLines());
    project->setRecoveryStore(&store);
    project->setSubtitlePath(srt);
    EXPECT_TRUE(prompter.prompts.isEmpty());
    EXPECT_FALSE(store.copyFor(srt));

    // At start-up, the copies of other files are offered one after another.
    prompter.answers = {PromptAnswer{1}}; // Discard
    project->offerRecoveries();
    ASSERT_EQ(prompter.prompts.size(), 1);
    EXPECT_TRUE(prompter.prompts[0].message.contains(u"Other.srt"_s));
    EXPECT_FALSE(store.copyFor(other));
    EXPECT_EQ(dir.read(u"Other.srt"_s), fiveLines());
}

TEST_F(RecoveryTest, AKillDuringTheCopysWriteLeavesTheOldCopyOrTheNewOneNeverATornOne)
{
    const QString srt = dir.path(u"Film.srt"_s);
    for (const int extraMs : {0, 3, 17, 41, 90}) {
        ASSERT_TRUE(runAndKill({u"write-loop"_s, folder(), srt}, "looping", extraMs));
        RecoveryStore store(folder());
        const auto copy = store.copyFor(srt);
        ASSERT_TRUE(copy);
        const auto cues = RecoveryStore::readCopy(*copy, 25, 0);
        ASSERT_TRUE(cues);
        ASSERT_EQ(cues->size(), 3000) << "killed " << extraMs << " ms after the loop began";
        const QString version = cues->first()->string().left(9);
        EXPECT_TRUE(std::all_of(cues->cbegin(), cues->cend(),
                                [&](const SubtitlePtr &cue) { return cue->string().startsWith(version); }));
        // No temporary is left to be mistaken for a copy.
        for (const QString &name : QDir(folder()).entryList(QDir::Files | QDir::Hidden))
            EXPECT_TRUE(name.endsWith(u".srt"_s) || name.endsWith(u".path"_s) || name.endsWith(u".tmp"_s))
                << name.toStdString();
    }
}

TEST_F(RecoveryTest, AtStartTheMoviesOwnFileIsAskedAboutOnceWhenItLoadsNotBefore)
{
    const QString srt = dir.write(u"Film.srt"_s, fiveLines());
    RecoveryStore store(folder());
    store.write(srt, ProjectTest::cues({{1, 2}, {3, 4}}), false);
    store.waitUntilIdle();
    project->setRecoveryStore(&store);
    // The program opens the movie, then offers the other files' copies while the player is
    // still loading it.
    const QString movie = dir.write(u"Film.m4v"_s, QByteArray("movie"));
    player.movie = true;
    player.length = 900;
    project->setMoviePath(movie);
    project->offerRecoveries();
    EXPECT_TRUE(prompter.prompts.isEmpty()) << "asked before the movie's file was there";
    prompter.answers = {PromptAnswer{0}}; // Recover
    player.movie = true;
    project->movieControllerDidLoadMovie(&player);
    ASSERT_EQ(prompter.prompts.size(), 1);
    ASSERT_EQ(project->subtitles().size(), 2);
    // Loaded again in the same session (the movie's report, a language switch back): the
    // answer stands.
    project->setSubtitlePath(srt);
    EXPECT_EQ(prompter.prompts.size(), 1);
}

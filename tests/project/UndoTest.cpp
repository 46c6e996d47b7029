// Undo and redo through the one edit path: every kind of edit is one step, typing merges,
// the clean state follows saving, histories are kept per file, and random edits undone and
// redone give back the lists byte for byte.
#include "ProjectFixture.h"

#include "CTFileHelper.h"
#include "RecoveryStore.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {
// A SubRip file of `count` two-line cues, four seconds apart, each three seconds long.
QByteArray subRipFile(int count)
{
    QByteArray out;
    for (int i = 0; i < count; ++i) {
        const double start = 2 + 4 * i;
        out += QByteArray::number(i + 1) + "\n" + VHSubtitle::formatedTime(start).toUtf8() + " --> " +
               VHSubtitle::formatedTime(start + 3).toUtf8() + "\nLine " + QByteArray::number(i) +
               " says hello\nand goes on " + QByteArray::number(i % 7) + "\n\n";
    }
    return out;
}

QString written(const CTWindowController &project)
{
    return VHSubtitle::subRipText(project.subtitles(), false);
}
} // namespace

class UndoTest : public ProjectTest
{
protected:
    // Film.m4v with Film.srt beside it, opened.
    QString openFilmWithFile(int cues = 40)
    {
        const QString srt = dir.write(u"Film.srt"_s, subRipFile(cues));
        openMovie(cues * 4 + 60);
        project->setSubtitlePath(srt);
        MainQueue::main().drain();
        return srt;
    }
    void select(qsizetype row)
    {
        project->setSelectionIndices({row});
        MainQueue::main().drain();
    }
    void fixAt(qsizetype row, double time)
    {
        select(row);
        player.time = time;
        project->setCurrentTime(time);
        project->updateFixMode();
        project->fixSubtitleStart();
        MainQueue::main().drain();
    }
};

TEST_F(UndoTest, EachCommandIsOneStepTitledByItAndTakesBackEveryLineItMoved)
{
    openFilmWithFile();
    const QString original = written(*project);
    EXPECT_FALSE(project->canUndo());

    // A fix stretches the lines before it: many cues, one step.
    fixAt(10, 45.5);
    ASSERT_NE(written(*project), original);
    EXPECT_EQ(project->validateMenuItem(u"undo:"_s).title, u"Undo Fix"_s);
    EXPECT_TRUE(project->validateMenuItem(u"undo:"_s).enabled);
    const QString fixed = written(*project);

    // Typing key by key merges into one step.
    select(3);
    for (const QString &text : {u"H"_s, u"He"_s, u"Hel"_s, u"Hell"_s, u"Hello"_s})
        project->setSubtitleText(text);
    EXPECT_EQ(project->validateMenuItem(u"undo:"_s).title, u"Undo Typing"_s);

    // Three lines at once.
    project->setSelectionIndices({20, 21, 22});
    project->deleteSubtitle();
    MainQueue::main().drain();
    EXPECT_EQ(project->subtitles().size(), 37);
    EXPECT_EQ(project->validateMenuItem(u"undo:"_s).title, u"Undo Delete 3 Lines"_s);

    project->undo();
    EXPECT_EQ(project->subtitles().size(), 40);
    // The step's selection comes back with its lines.
    EXPECT_EQ(project->selectionIndices(), (QList<qsizetype>{20, 21, 22}));
    EXPECT_EQ(project->validateMenuItem(u"redo:"_s).title, u"Redo Delete 3 Lines"_s);
    project->undo();
    EXPECT_EQ(project->subtitles()[3]->string(), u"Line 3 says hello\nand goes on 3"_s);
    EXPECT_EQ(project->currentSubtitle(), project->subtitles()[3]);
    EXPECT_EQ(written(*project), fixed);
    project->undo();
    EXPECT_EQ(written(*project), original);
    EXPECT_FALSE(project->canUndo());
    EXPECT_FALSE(project->hasChanged()) << "undone back to the file as loaded";

    project->redo();
    EXPECT_EQ(written(*project), fixed);
    EXPECT_TRUE(project->hasChanged());
    project->redo();
    project->redo();
    EXPECT_EQ(project->subtitles().size(), 37);
    EXPECT_EQ(project->subtitles()[3]->string(), u"Hello"_s);
    EXPECT_FALSE(project->canRedo());

    // A new edit after undoing drops what could be redone.
    project->undo();
    select(0);
    project->setSubtitleText(u"New"_s);
    EXPECT_FALSE(project->canRedo());
}

TEST_F(UndoTest, SavingMarksTheCleanStateAndTypingAfterASaveIsAStepOfItsOwn)
{
    const QString srt = openFilmWithFile(10);
    select(2);
    project->setSubtitleText(u"A"_s);
    project->saveSubtitle();
    EXPECT_FALSE(project->hasChanged());
    EXPECT_FALSE(view.edited);
    project->setSubtitleText(u"AB"_s);
    EXPECT_TRUE(view.edited);
    project->undo(); // only what came after the save
    EXPECT_EQ(project->subtitles()[2]->string(), u"A"_s);
    EXPECT_FALSE(project->hasChanged()) << "back at the saved state: no '*'";
    EXPECT_FALSE(view.edited);
    project->undo();
    EXPECT_TRUE(project->hasChanged()) << "before the save differs from the file";
    project->redo();
    EXPECT_FALSE(project->hasChanged());
    EXPECT_EQ(dir.read(u"Film.srt"_s), written(*project).toUtf8());
    Q_UNUSED(srt);
}

TEST_F(UndoTest, TheTableAndTheCommandsOfOtherLinesGoThroughTheSamePath)
{
    openFilmWithFile(10);
    const QString original = written(*project);
    select(1);
    project->setCueText(4, u"Other line"_s); // a cell of a line that is not current
    project->setCueForced(5, true);
    project->replaceAll(u"hello"_s, u"bye"_s);
    project->adjustDurationPerCharacter(0.1, 1, 2, 0.1, false);
    project->addSubtitle();
    MainQueue::main().drain();
    EXPECT_EQ(project->validateMenuItem(u"undo:"_s).title, u"Undo Add Line"_s);
    for (const QString &title : {u"Undo Add Line"_s, u"Undo Adjust Durations"_s, u"Undo Replace All"_s,
                                 u"Undo Forced"_s, u"Undo Typing"_s}) {
        EXPECT_EQ(project->validateMenuItem(u"undo:"_s).title, title);
        project->undo();
    }
    EXPECT_EQ(written(*project), original);
    EXPECT_FALSE(project->canUndo());
}

TEST_F(UndoTest, HistoryIsKeptPerFileAcrossSwitchingLanguagesAndAChangedFileDropsIt)
{
    const QString english = dir.write(u"Film.en.srt"_s, subRipFile(8));
    const QString german = dir.write(u"Film.de.srt"_s, subRipFile(5));
    openMovie(200);
    project->setSubtitlePath(english);
    select(1);
    project->setSubtitleText(u"English edit"_s);
    project->saveSubtitle();
    const QString saved = written(*project);

    project->setSubtitlePath(german);
    EXPECT_FALSE(project->canUndo());
    select(0);
    project->setSubtitleText(u"Deutsch"_s);
    project->saveSubtitle();

    project->setSubtitlePath(english);
    EXPECT_EQ(written(*project), saved);
    ASSERT_TRUE(project->canUndo());
    EXPECT_EQ(project->validateMenuItem(u"undo:"_s).title, u"Undo Typing"_s);
    project->undo();
    EXPECT_EQ(project->subtitles()[1]->string(), u"Line 1 says hello\nand goes on 1"_s);
    project->redo();

    // Changed on disk behind our back: the kept steps no longer fit and are dropped.
    dir.write(u"Film.de.srt"_s, subRipFile(3));
    project->setSubtitlePath(german);
    EXPECT_FALSE(project->canUndo());
}

TEST_F(UndoTest, DiscardedChangesCanBeRedoneAfterReopening)
{
    const QString english = dir.write(u"Film.en.srt"_s, subRipFile(8));
    const QString german = dir.write(u"Film.de.srt"_s, subRipFile(5));
    openMovie(200);
    project->setSubtitlePath(english);
    select(1);
    project->setSubtitleText(u"Not saved"_s);
    prompter.answers = {PromptAnswer{1}}; // Discard Changes
    ASSERT_TRUE(project->canDropSubtitle());
    project->setSubtitlePath(german);
    project->setSubtitlePath(english);
    EXPECT_EQ(project->subtitles()[1]->string(), u"Line 1 says hello\nand goes on 1"_s);
    EXPECT_FALSE(project->hasChanged());
    ASSERT_TRUE(project->canRedo()) << "nothing the user did is lost";
    project->redo();
    EXPECT_EQ(project->subtitles()[1]->string(), u"Not saved"_s);
    EXPECT_TRUE(project->hasChanged());
}

TEST_F(UndoTest, RandomEditsOfEveryKindUndoneAndRedoneGiveBackBothListsByteForByte)
{
    for (const quint32 seed : {1u, 7u, 42u, 1234u}) {
        SCOPED_TRACE(seed);
        QRandomGenerator random(seed);
        openFilmWithFile(60);
        project->setSearchString(QString());
        const QString original = written(*project);
        int steps = 0;
        for (int n = 0; n < 40; ++n) {
            const qsizetype count = project->subtitles().size();
            if (count < 5)
                break;
            const qsizetype row = random.bounded(int(count));
            switch (random.bounded(10)) {
            case 0: // a fix, anywhere the range allows
            case 1: {
                select(row);
                const auto range = project->fixRange();
                const double from = range.startChange,
                             to = std::isinf(range.endChange) ? from + 30 : range.endChange;
                const double time = from + (to - from) * random.bounded(1.0);
                const int mode = random.bounded(3);
                player.time = time;
                project->setCurrentTime(time);
                if (mode == 0)
                    project->fixSubtitleStart();
                else if (mode == 1)
                    project->shiftSubtitles();
                else
                    project->fixSingleSubtitleStart();
                break;
            }
            case 2:
                select(row);
                project->setSubtitleText(u"Typed %1"_s.arg(n));
                project->setSubtitleText(u"Typed %1 more"_s.arg(n));
                break;
            case 3:
                select(row);
                project->setDuration(0.5 + random.bounded(6.0));
                break;
            case 4:
                select(row);
                project->setForcedState(random.bounded(2));
                break;
            case 5:
                select(row);
                player.time = project->subtitles()[row]->start() + 0.5;
                project->addSubtitle();
                break;
            case 6: {
                const qsizetype first = std::min(row, count - 3);
                project->setSelectionIndices({first, first + 1 + random.bounded(2)});
                project->deleteSubtitle();
                break;
            }
            case 7:
                project->replaceAll(u"hello"_s, u"bye %1"_s.arg(n));
                break;
            case 8:
                project->adjustDurationPerCharacter(0.05 + random.bounded(0.1), 0.5, 5, 0.1,
                                                    random.bounded(2) == 0);
                break;
            case 9:
                select(row);
                project->setStart(project->subtitles()[row]->start() + random.bounded(2.0) - 1);
                break;
            }
            MainQueue::main().drain();
            ++steps;
        }
        const QString edited = written(*project);
        ASSERT_NE(edited, original);
        int undone = 0;
        while (project->canUndo()) {
            project->undo();
            ASSERT_LE(++undone, steps + 1);
        }
        EXPECT_EQ(written(*project), original);
        EXPECT_FALSE(project->hasChanged());
        while (project->canRedo())
            project->redo();
        EXPECT_EQ(written(*project), edited);
        project->closeProject();
        prompter.answers.clear();
    }
}

TEST_F(UndoTest, CorrectionsThatNeverSettleAreCappedTakenBackAndTold)
{
    openFilmWithFile(10);
    const QString original = written(*project);
    // A limit small enough for the corrections of one added line to pass it: the new line
    // overlaps its neighbours, whose corrections run on the queue.
    project->editor().setBlockLimit(1);
    select(4);
    player.time = project->subtitles()[4]->start() + 1;
    project->addSubtitle();
    MainQueue::main().drain();
    EXPECT_TRUE(project->editor().capped());
    EXPECT_EQ(written(*project), original) << "taken back whole";
    ASSERT_FALSE(prompter.prompts.isEmpty());
    EXPECT_TRUE(prompter.prompts.last().message.contains(u"no room"_s));
    EXPECT_FALSE(project->canUndo());
    project->editor().setBlockLimit(0);
}

TEST_F(UndoTest, UndoOfAFixOnAHundredThousandLinesStoresOnlyWhatChanged)
{
    SubtitleList many;
    for (int i = 0; i < 100'000; ++i)
        many << VHSubtitle::create(u"Line %1"_s.arg(i), i * 2.0, i * 2.0 + 1.5);
    openMovie(250'000);
    project->setSubtitles(many);
    select(50'000);
    for (int step = 0; step < 1000; ++step)
        project->setSubtitleText(step % 2 ? u"Typing %1"_s.arg(step) : u"Typing"_s);
    // Typing into one line merges: one step whatever its length.
    EXPECT_LT(project->editor().historyBytes(), 20 * 1024 * 1024);
    select(60'000);
    for (int step = 0; step < 1000; ++step) {
        project->setSubtitleText(u"Other %1"_s.arg(step));
        select(60'000 + step % 2); // each line change makes a new step
    }
    EXPECT_LT(project->editor().historyBytes(), 20 * 1024 * 1024);
}

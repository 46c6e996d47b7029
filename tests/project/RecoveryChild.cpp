// A process that edits a file through the project and keeps recovery copies, for the tests
// that kill it with SIGKILL and recover what it did.
//
//   recovery_child edit <settings.ini> <recovery folder> <file.srt> <expected.srt>
//       loads the file, edits it (types into line 2, deletes line 5, adds a line), writes
//       the edited list to <expected.srt>, then ticks the autosave clock every 50 ms as the
//       window does; prints "autosaved" once the copy is written and runs until killed.
//   recovery_child write-loop <recovery folder> <file.srt>
//       writes copies of two different lists of the file in turn, forever.
#include "AtomicFile.h"
#include "CTWindowController.h"
#include "MainQueue.h"
#include "RecoveryStore.h"
#include "Settings.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {
int edit(const QStringList &args)
{
    Settings::shared().useFile(args[2]);
    RecoveryStore store(args[3]);
    CTWindowController project(nullptr, nullptr);
    project.setRecoveryStore(&store);
    project.windowDidLoad();
    project.setSubtitlePath(args[4]);
    MainQueue::main().drain();
    project.setSelectionIndices({2});
    project.setSubtitleText(u"Typed before the crash"_s);
    project.setSelectionIndices({5});
    project.deleteSubtitle();
    project.setSelectionIndices({0});
    project.addSubtitle();
    MainQueue::main().drain();
    if (!writeFileAtomically(args[5], VHSubtitle::subRipText(project.subtitles(), false).toUtf8()))
        return 3;

    MainQueue::main().attachToEventLoop();
    QElapsedTimer clock;
    clock.start();
    QTimer tick;
    tick.setInterval(50);
    bool told = false;
    QObject::connect(&tick, &QTimer::timeout, [&] {
        project.autosaveTick(clock.elapsed(), CTWindowController::autosaveInterval());
        if (!told && store.copyFor(args[4])) {
            told = true;
            std::printf("autosaved\n");
            std::fflush(stdout);
        }
    });
    tick.start();
    return QCoreApplication::exec();
}

int writeLoop(const QStringList &args)
{
    RecoveryStore store(args[2]);
    for (int round = 0;; ++round) {
        SubtitleList cues;
        for (int i = 0; i < 3000; ++i)
            cues << VHSubtitle::create(u"Version %1 line %2"_s.arg(round % 2).arg(i), i, i + 0.5);
        store.write(args[3], cues, false);
        store.waitUntilIdle();
        if (round == 1) {
            std::printf("looping\n");
            std::fflush(stdout);
        }
    }
}
} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() == 6 && args[1] == u"edit"_s)
        return edit(args);
    if (args.size() == 4 && args[1] == u"write-loop"_s)
        return writeLoop(args);
    std::fprintf(stderr, "usage: recovery_child edit|write-loop ...\n");
    return 2;
}

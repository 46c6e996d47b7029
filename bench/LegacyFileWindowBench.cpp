// A legacy-encoded subtitle file opened in the project window on the offscreen platform, with
// the program's options applied as `captora` applies them: a 1 MB Russian file in code page
// 1251 (detected among every language's rules) and a 2 MB junk file (no language fits; the
// question for an encoding is declined). Each run opens a movie whose subtitle file it is
// and stops when the table has been painted. The player is a stand-in that reports the movie
// loaded at once, so the time is the window's and the project's: reading, detecting,
// decoding, parsing and showing the file.
//
// Without the options every bad character of every language tried wrote a log line; the
// benchmark then runs for minutes (run it with --log-characters to see).

#include "CTWindowController.h"
#include "CueTableModel.h"
#include "MainQueue.h"
#include "ProgramOptions.h"
#include "ProjectWindow.h"
#include "Settings.h"
#include "VHSubtitle.h"

#include <QApplication>
#include <QFile>
#include <QTableView>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <random>

using namespace Qt::StringLiterals;

namespace {

class InstantPlayer final : public PlaybackControl
{
public:
    PlaybackControlDelegate *delegate = nullptr;
    bool movie = false;
    QWidget view;
    int kind() const override { return 1; }
    bool hasMovie() const override { return movie; }
    double currentTime() const override { return 0; }
    void setCurrentTime(double) override {}
    double fps() const override { return 25; }
    double duration() const override { return 36000; }
    bool isPlaying() const override { return false; }
    void setPlaying(bool) override {}
    void setSubtitles(const SubtitleList &) override {}
    void setShowSubtitle(bool) override {}
    void redrawCurrentSubtitle() override {}
    qsizetype currentSegmentIndex() const override { return 0; }
    void setDelegate(PlaybackControlDelegate *d) override { delegate = d; }
    bool loadMovieURL(const QString &) override
    {
        movie = true;
        return true;
    }
};

// About `size` bytes of Russian SubRip dialogue in code page 1251 (А..я are 0xC0..0xFF).
QByteArray cp1251Subtitles(qsizetype size)
{
    const QStringList lines = {u"Привет, как дела? Всё хорошо, спасибо."_s,
                               u"Мы должны уйти отсюда, пока не стало поздно."_s,
                               u"Где ты был всю ночь? Я тебя искала везде!"_s};
    QByteArray bytes;
    for (int i = 0; bytes.size() < size; ++i) {
        bytes += QByteArray::number(i + 1) + "\r\n" + VHSubtitle::formatedTime(2.0 * i + 1).toLatin1() +
                 " --> " + VHSubtitle::formatedTime(2.0 * i + 2).toLatin1() + "\r\n";
        for (const QChar c : lines[i % lines.size()])
            bytes += c.unicode() >= 0x410 && c.unicode() <= 0x44f ? char(0xc0 + (c.unicode() - 0x410))
                     : c == u'ё'                                  ? char(0xb8)
                                                                  : char(c.unicode());
        bytes += "\r\n\r\n";
    }
    return bytes;
}

QByteArray junk(qsizetype size)
{
    std::mt19937 random(1251);
    QByteArray bytes(size, Qt::Uninitialized);
    for (char &byte : bytes)
        byte = char(random() & 0xff);
    return bytes;
}

struct Folder
{
    QTemporaryDir dir;
    QString movie(const QString &name) const { return dir.filePath(name + u".mp4"_s); }
    Folder()
    {
        for (const auto &[name, bytes] :
             {std::pair{u"Russian"_s, cp1251Subtitles(1 << 20)}, std::pair{u"Junk"_s, junk(2 << 20)}}) {
            QFile(movie(name)).open(QIODevice::WriteOnly);
            QFile file(dir.filePath(name + u".srt"_s));
            file.open(QIODevice::WriteOnly);
            file.write(bytes);
        }
        Settings::shared().useFile(dir.filePath(u"settings.ini"_s));
        Settings::shared().setValue(u"Locale"_s, u"en"_s);
        Settings::shared().setValue(u"AutoOpenSearch"_s, false);
        CTWindowController::registerDefaults();
    }
};

Folder &folder()
{
    static Folder instance;
    return instance;
}

void openUntilTableShows(benchmark::State &state, const QString &name)
{
    folder();
    qsizetype rows = 0;
    for (auto _ : state) {
        auto window = std::make_unique<ProjectWindow>();
        window->setPlayers(
            [](int) -> PlaybackControl * { return new InstantPlayer; },
            [](PlaybackControl *p) -> QWidget * { return &static_cast<InstantPlayer *>(p)->view; });
        window->start();
        window->show();
        window->openFiles({folder().movie(name)});
        MainQueue::main().drain(); // a drop is handled after the current event
        auto *player = static_cast<InstantPlayer *>(window->project()->movieController());
        player->delegate->movieControllerDidLoadMovie(player);
        MainQueue::main().drain();
        QCoreApplication::processEvents();
        window->cueTable()->viewport()->repaint();
        rows = window->cueModel()->rowCount();
        state.PauseTiming();
        window.reset();
        MainQueue::main().drain();
        state.ResumeTiming();
    }
    state.counters["rows"] = double(rows);
}

void BM_OpenCp1251File1MB(benchmark::State &state)
{
    openUntilTableShows(state, u"Russian"_s);
}
BENCHMARK(BM_OpenCp1251File1MB)->Unit(benchmark::kMillisecond);

void BM_OpenJunkFile2MB(benchmark::State &state)
{
    openUntilTableShows(state, u"Junk"_s);
}
BENCHMARK(BM_OpenJunkFile2MB)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    // The options `captora` was started with; --log-characters brings the diagnostics back.
    QStringList arguments = {u"captora"_s};
    for (int i = 1; i < argc; ++i)
        if (QByteArrayView(argv[i]) == "--log-characters")
            arguments << u"--log-characters"_s;
    applyProgramOptions(arguments);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

// The project window on the offscreen platform: opening a movie whose subtitle file has
// 10,000 lines until the table has been painted, selecting a line (seek, editor fields,
// table repaint) and filtering the table from the search field. The player is a stand-in
// that reports the movie loaded at once, so only the window's and the project's work counts.

#include "CueTableModel.h"
#include "MainQueue.h"
#include "ProjectWindow.h"
#include "Settings.h"
#include "VHSubtitle.h"

#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QTableView>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {
constexpr int kLines = 10000;

class InstantPlayer final : public PlaybackControl
{
public:
    PlaybackControlDelegate *delegate = nullptr;
    bool movie = false;
    double time = 0;
    QWidget view;
    int kind() const override { return 1; }
    bool hasMovie() const override { return movie; }
    double currentTime() const override { return time; }
    void setCurrentTime(double seconds) override
    {
        time = seconds;
        if (delegate)
            delegate->movieControllerChangedTime(this, seconds);
    }
    double fps() const override { return 25; }
    double duration() const override { return 3.0 * kLines + 10; }
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

struct Demo
{
    QTemporaryDir dir;
    QString movie = dir.filePath(u"Film.mp4"_s);
    Demo()
    {
        QFile(movie).open(QIODevice::WriteOnly);
        QString text;
        for (int i = 0; i < kLines; ++i)
            text += u"%1\n%2 --> %3\nLine %1 of the film, with a few words\n\n"_s.arg(i + 1).arg(
                VHSubtitle::formatedTime(3.0 * i + 1), VHSubtitle::formatedTime(3.0 * i + 2.5));
        QFile file(dir.filePath(u"Film.en.srt"_s));
        file.open(QIODevice::WriteOnly);
        file.write(text.toUtf8());
        Settings::shared().useFile(dir.filePath(u"settings.ini"_s));
        Settings::shared().setValue(u"Locale"_s, u"en"_s);
        Settings::shared().setValue(u"AutoOpenSearch"_s, false);
    }
};

Demo &demo()
{
    static Demo instance;
    return instance;
}

std::unique_ptr<ProjectWindow> openWindow()
{
    auto window = std::make_unique<ProjectWindow>();
    window->setPlayers([](int) -> PlaybackControl * { return new InstantPlayer; },
                       [](PlaybackControl *player) -> QWidget * { return &static_cast<InstantPlayer *>(player)->view; });
    window->start();
    window->show();
    window->project()->setMoviePath(demo().movie);
    auto *player = static_cast<InstantPlayer *>(window->project()->movieController());
    player->delegate->movieControllerDidLoadMovie(player);
    QCoreApplication::processEvents();
    window->cueTable()->viewport()->repaint();
    return window;
}

void BM_OpenMovieWith10000Lines(benchmark::State &state)
{
    demo();
    for (auto _ : state) {
        std::unique_ptr<ProjectWindow> window = openWindow();
        benchmark::DoNotOptimize(window->cueModel()->rowCount());
        state.PauseTiming();
        window.reset();
        MainQueue::main().drain();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_OpenMovieWith10000Lines)->Unit(benchmark::kMillisecond);

void BM_SelectLineIn10000(benchmark::State &state)
{
    std::unique_ptr<ProjectWindow> window = openWindow();
    int row = 0;
    for (auto _ : state) {
        window->cueTable()->selectRow(row);
        QCoreApplication::processEvents(); // paints what changed
        row = (row + 997) % kLines;
    }
}
BENCHMARK(BM_SelectLineIn10000)->Unit(benchmark::kMicrosecond);

void BM_SearchFilter10000(benchmark::State &state)
{
    std::unique_ptr<ProjectWindow> window = openWindow();
    for (auto _ : state) {
        window->searchField()->setText(u"Line 99"_s);
        window->cueTable()->viewport()->repaint();
        window->searchField()->clear();
        window->cueTable()->viewport()->repaint();
    }
}
BENCHMARK(BM_SearchFilter10000)->Unit(benchmark::kMillisecond);
} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

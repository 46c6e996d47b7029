#include "PlaybackAids.h"

#include "CTWindowController.h"
#include "PlaybackControl.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
// A seek lands on the start of the frame that shows the asked time, up to a frame before it;
// times this close before the line count as inside it.
constexpr double Slack = 0.25;
// Between two reports while playing the time moves on by a frame or two (a quarter second
// with libVLC's coarse clock); a larger step is the user's seek, not playback.
constexpr double MaxStep = 1.0;
// Shorter than this, a loop would only seek: the line plays once.
constexpr double MinimumLoop = 0.1;
} // namespace

const QList<double> &PlaybackAids::speeds()
{
    static const QList<double> list = {0.5, 0.75, 1.0, 1.5, 2.0};
    return list;
}

PlaybackAids::PlaybackAids(CTWindowController &project)
    : m_project(project)
{
    auto follow = [this](const QString &key, auto action) {
        m_observations.push_back(
            m_project.observeKey(key, [action](Observable *, const QString &, Observable::Change change) {
                if (change == Observable::Change::Did)
                    action();
            }));
    };
    follow(u"currentTime"_s, [this] { timeChanged(m_project.currentTime()); });
    follow(u"playing"_s, [this] { playingChanged(); });
    follow(u"currentSubtitle"_s, [this] { currentLineChanged(); });
    follow(u"hasMovie"_s, [this] { movieChanged(); });
}

PlaybackAids::~PlaybackAids() = default;

PlaybackControl *PlaybackAids::player() const
{
    return m_project.hasMovie() ? m_project.movieController() : nullptr;
}

bool PlaybackAids::canPlayLine() const
{
    const SubtitlePtr &line = m_project.currentSubtitle();
    return player() && line && line->end() > line->start() && m_project.fixMode() != FixMode::Tap2Sync;
}

void PlaybackAids::playLine()
{
    start(Playing::Line);
}

void PlaybackAids::toggleLoop()
{
    if (isLooping())
        stop();
    else
        start(Playing::Loop);
}

void PlaybackAids::playFromLeadIn()
{
    PlaybackControl *controller = player();
    if (!canPlayLine() || !controller)
        return;
    stop();
    controller->setCurrentTime(std::max(0.0, m_project.currentSubtitle()->start() - LeadIn));
    if (!controller->isPlaying())
        controller->setPlaying(true);
}

void PlaybackAids::start(Playing kind)
{
    PlaybackControl *controller = player();
    if (!canPlayLine() || !controller)
        return;
    const SubtitlePtr line = m_project.currentSubtitle();
    m_playing = kind;
    m_line = line;
    m_seeking = false;
    m_lastTime = line->start();
    controller->setCurrentTime(line->start());
    // The player reports the time asked for at once; what it reports next may still be from
    // before the seek.
    m_seeking = m_playing != Playing::Nothing;
    if (m_seeking && !controller->isPlaying())
        controller->setPlaying(true);
}

void PlaybackAids::stop()
{
    m_playing = Playing::Nothing;
    m_line.reset();
    m_seeking = false;
}

double PlaybackAids::endOf(const VHSubtitle &line) const
{
    const PlaybackControl *controller = player();
    const double length = controller ? controller->duration() : 0;
    if (length <= 0)
        return line.end();
    const double frame = controller->fps() > 0 ? 1.0 / controller->fps() : 0.04;
    return std::min(line.end(), length - frame);
}

void PlaybackAids::timeChanged(double seconds)
{
    if (m_playing == Playing::Nothing || !m_line)
        return;
    PlaybackControl *controller = player();
    // Paused, the times are seeks (ours before playing starts, or the user's after a pause
    // that ended the aid already).
    if (!controller || !controller->isPlaying())
        return;
    const double from = m_line->start();
    const double to = endOf(*m_line);
    const bool inside = seconds >= from - Slack && seconds < to;
    if (m_seeking) {
        // Until the seek to the start has landed, the player may still report where it was.
        if (!inside)
            return;
        m_seeking = false;
        m_lastTime = seconds;
        return;
    }
    if (seconds < from - Slack || seconds - m_lastTime > MaxStep || seconds < m_lastTime - MaxStep) {
        // The user went elsewhere: playback is theirs again.
        stop();
        return;
    }
    m_lastTime = seconds;
    if (seconds < to)
        return;
    if (m_playing == Playing::Loop && to - from >= MinimumLoop) {
        m_lastTime = from;
        controller->setCurrentTime(from);
        m_seeking = m_playing == Playing::Loop; // not when the seek's report ended the loop
        return;
    }
    // Played once: stop at the end. Ended first, so that our own pause is no user's pause.
    stop();
    controller->setPlaying(false);
    controller->setCurrentTime(to);
}

void PlaybackAids::playingChanged()
{
    if (m_playing == Playing::Nothing)
        return;
    // Players report no pause of their own while they seek: a pause is the user's (or the
    // end of the movie).
    if (const PlaybackControl *controller = player(); controller && controller->isPlaying())
        return;
    stop();
}

void PlaybackAids::currentLineChanged()
{
    if (m_playing != Playing::Nothing && m_project.currentSubtitle() != m_line)
        stop();
}

void PlaybackAids::movieChanged()
{
    stop();
    if (PlaybackControl *controller = player(); controller && controller->speed() != m_speed)
        controller->setSpeed(m_speed);
}

void PlaybackAids::setSpeed(double speed)
{
    if (!(speed > 0) || std::isinf(speed))
        return;
    m_speed = speed;
    if (PlaybackControl *controller = player())
        controller->setSpeed(speed);
}

bool PlaybackAids::canSetStart() const
{
    return player() && m_project.currentSubtitle() && m_project.canFix();
}

void PlaybackAids::setStartToPlayingTime()
{
    if (canSetStart())
        m_project.fixSubtitleStart();
}

bool PlaybackAids::canSetEnd() const
{
    const PlaybackControl *controller = player();
    const SubtitlePtr &line = m_project.currentSubtitle();
    if (!controller || !line || m_project.isChaptermark())
        return false;
    // A line shorter than half a frame would never show.
    const double halfFrame = controller->fps() > 0 ? 0.5 / controller->fps() : 0.02;
    return controller->currentTime() >= line->start() + halfFrame;
}

void PlaybackAids::setEndToPlayingTime()
{
    if (!canSetEnd())
        return;
    const SubtitlePtr line = m_project.currentSubtitle();
    const double time = player()->currentTime();
    CTWindowController::EditScope edit(m_project, tr("Set End"));
    line->setEnd(time);
    m_project.setHasChanged(true);
}

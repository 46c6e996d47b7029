// Keeping neighbours consistent after a cue's time changed: subtitle cues never overlap,
// chapter marks tile the movie. Corrections of subtitle cues run on the main queue, after
// the change that caused them has completed.
#include "CTWindowController.h"
#include "MainQueue.h"
#include "PlaybackControl.h"
#include "VHVideoText.h"

#include <cmath>

using namespace Qt::StringLiterals;

void CTWindowController::observeCueNotifications()
{
    NotificationCenter &center = NotificationCenter::defaultCenter();
    m_cueObservers.clear();
    // Cue corrections run after the change that caused them has completed, and not at all
    // while the project re-times cues itself or edits chapter marks.
    auto deferred = [this](void (CTWindowController::*handler)(const SubtitlePtr &)) {
        return [this, handler](const Notification &n) {
            auto *cue = n.objectAs<VHSubtitle>();
            if (m_noVerifying || m_isChaptermark || !cue)
                return;
            postCorrection([this, handler, weak = cue->weak_from_this()] {
                if (auto c = weak.lock())
                    (this->*handler)(c);
            });
        };
    };
    m_cueObservers.emplace_back(center.addObserver(VHSubtitle::EndGrewNotification, nullptr,
                                                   deferred(&CTWindowController::subtitleEndGrew)));
    m_cueObservers.emplace_back(center.addObserver(VHSubtitle::StartReducedNotification, nullptr,
                                                   deferred(&CTWindowController::subtitleStartReduced)));
    m_cueObservers.emplace_back(
        center.addObserver(VHVideoText::TimeChangedNotification, nullptr, [this](const Notification &n) {
            if (auto *mark = n.objectAs<VHSubtitle>())
                videoTextTimeChanged(mark);
        }));
}

void CTWindowController::postCorrection(std::function<void()> correction)
{
    MainQueue::main().post([this, alive = std::weak_ptr<void>(m_alive),
                            generation = m_editor->correctionGeneration(),
                            correction = std::move(correction)] {
        if (!alive.expired() && generation == m_editor->correctionGeneration())
            correction();
    });
}

void CTWindowController::subtitleEndGrew(const SubtitlePtr &cue)
{
    if (m_isChaptermark || m_noVerifying)
        return;
    const qsizetype i = indexOfSubtitle(cue.get());
    if (i < 0)
        return;
    double limit;
    if (i + 1 < m_subtitles.size())
        limit = m_subtitles[i + 1]->start();
    else if (hasMovie()) // no movie means no playback controller of any kind
        limit = movieController()->duration();
    else
        return;
    if (limit < cue->end()) {
        const bool moveStart = limit < cue->start();
        std::weak_ptr<VHSubtitle> weak = cue;
        postCorrection([weak, limit] {
            if (auto c = weak.lock())
                c->setEnd(limit);
        });
        if (moveStart) {
            postCorrection([weak, limit] {
                if (auto c = weak.lock())
                    c->setStart(limit);
            });
        }
    }
}

void CTWindowController::subtitleStartReduced(const SubtitlePtr &cue)
{
    if (m_isChaptermark || m_noVerifying)
        return;
    const qsizetype i = indexOfSubtitle(cue.get());
    if (i < 0)
        return;
    double limit = 0;
    if (i > 0) {
        const SubtitlePtr &previous = m_subtitles[i - 1];
        if (cue->start() < previous->end())
            previous->setEnd(std::max(cue->start(), previous->start()));
        limit = previous->end();
    }
    if (cue->start() < limit) {
        postCorrection([weak = std::weak_ptr<VHSubtitle>(cue), limit] {
            if (auto c = weak.lock())
                c->setStart(limit);
        });
    }
}

void CTWindowController::videoTextTimeChanged(VHSubtitle *mark)
{
    if (!m_isChaptermark || m_noVerifying)
        return;
    const qsizetype i = indexOfSubtitle(mark);
    if (i < 0)
        return;
    const bool old = m_noVerifying;
    m_noVerifying = true;
    if (i == 0) {
        mark->setStart(0);
    } else {
        const SubtitlePtr &previous = m_subtitles[i - 1];
        if (mark->start() < previous->end())
            mark->setStart(std::max(mark->start(), previous->start()));
        previous->setEnd(mark->start());
    }
    if (i + 1 < m_subtitles.size()) {
        const double next = m_subtitles[i + 1]->start();
        mark->setStart(std::min(mark->start(), next));
        mark->setEnd(next);
    } else if (hasMovie()) {
        mark->setEnd(movieDuration());
    }
    m_noVerifying = old;
}

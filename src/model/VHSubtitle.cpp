#include "VHSubtitle.h"

#include "Log.h"
#include "MainQueue.h"
#include "NotificationCenter.h"
#include "VHTimeValueTransformer.h"

#include <cmath>

using namespace Qt::StringLiterals;

const QString VHSubtitle::EndGrewNotification = u"VHSubtitleEndGrew"_s;
const QString VHSubtitle::StartReducedNotification = u"VHSubtitleStartReduced"_s;

namespace {
const QString kStart = u"start"_s;
const QString kEnd = u"end"_s;
const QString kDuration = u"duration"_s;
const QString kString = u"string"_s;
const QString kForced = u"forced"_s;
const QString kFixed = u"fixed"_s;
const QString kActive = u"active"_s;
const QString kActiveColor = u"activeColor"_s;
} // namespace

VHSubtitle::VHSubtitle() = default;

VHSubtitle::VHSubtitle(const QString &string, double from, double to, bool forced)
    : m_string(string)
    , m_start(from)
    , m_end(to)
    , m_forced(forced)
{}

VHSubtitle::~VHSubtitle() = default;

CueEditListener::~CueEditListener() = default;

const VHTimeValueTransformer &VHSubtitle::timeFormatter()
{
    static const VHTimeValueTransformer formatter = [] {
        VHTimeValueTransformer t;
        t.setLocalized(false);
        return t;
    }();
    return formatter;
}

QStringList VHSubtitle::dependentKeys(const QString &key) const
{
    if (key == kEnd)
        return {kDuration};
    if (key == kActive)
        return {kActiveColor};
    return {};
}

void VHSubtitle::storeEnd(double end)
{
    const double oldEnd = m_end;
    willEdit();
    willChangeValueForKey(kEnd);
    // The maximum that ignores a NaN operand, with start as the second operand.
    if (std::isnan(m_start))
        m_end = end;
    else if (std::isnan(end))
        m_end = m_start;
    else
        m_end = end > m_start ? end : m_start;
    didChangeValueForKey(kEnd);
    if (end > oldEnd)
        NotificationCenter::defaultCenter().post(EndGrewNotification, this);
}

void VHSubtitle::setEnd(double end)
{
    storeEnd(end);
}

void VHSubtitle::setStart(double start)
{
    const double delta = start - m_start;
    willEdit();
    willChangeValueForKey(kStart);
    m_start = start;
    didChangeValueForKey(kStart);
    if (delta < 0)
        NotificationCenter::defaultCenter().post(StartReducedNotification, this);
    setEnd(m_end + delta);
}

void VHSubtitle::setDuration(double duration)
{
    setEnd(m_start + duration);
    if (this->duration() != duration) {
        // The end was clamped. Announce "duration" once more after the running setter has
        // returned, so that a bound field re-reads and shows the clamped value.
        MainQueue::main().post([weak = weak_from_this()] {
            if (auto cue = weak.lock()) {
                cue->willChangeValueForKey(kDuration);
                cue->didChangeValueForKey(kDuration);
            }
        });
    }
}

void VHSubtitle::setString(const QString &string)
{
    willEdit();
    willChangeValueForKey(kString);
    m_string = string;
    didChangeValueForKey(kString);
}

void VHSubtitle::setForced(bool forced)
{
    willEdit();
    willChangeValueForKey(kForced);
    m_forced = forced;
    didChangeValueForKey(kForced);
}

void VHSubtitle::setFixed(bool fixed)
{
    willEdit();
    willChangeValueForKey(kFixed);
    m_fixed = fixed;
    didChangeValueForKey(kFixed);
}

void VHSubtitle::setActive(bool active)
{
    willChangeValueForKey(kActive);
    m_active = active;
    didChangeValueForKey(kActive);
}

void VHSubtitle::replaceStart(double start, double end)
{
    willEdit();
    willChangeValueForKey(kStart);
    m_start = start;
    didChangeValueForKey(kStart);
    willChangeValueForKey(kEnd);
    m_end = end;
    didChangeValueForKey(kEnd);
}

void VHSubtitle::restoreValues(const CueState &values)
{
    if (values == this->values())
        return;
    willEdit();
    if (values.start != m_start || values.end != m_end) {
        willChangeValueForKey(kStart);
        m_start = values.start;
        didChangeValueForKey(kStart);
        willChangeValueForKey(kEnd);
        m_end = values.end;
        didChangeValueForKey(kEnd);
    }
    if (values.string != m_string) {
        willChangeValueForKey(kString);
        m_string = values.string;
        didChangeValueForKey(kString);
    }
    if (values.forced != m_forced) {
        willChangeValueForKey(kForced);
        m_forced = values.forced;
        didChangeValueForKey(kForced);
    }
    if (values.fixed != m_fixed) {
        willChangeValueForKey(kFixed);
        m_fixed = values.fixed;
        didChangeValueForKey(kFixed);
    }
}

QString VHSubtitle::formatedTime(double seconds)
{
    return timeFormatter().transformedValue(seconds);
}

QString VHSubtitle::description() const
{
    QString out;
    out.reserve(32 + m_string.size());
    appendDescription(out);
    return out;
}

void VHSubtitle::appendDescription(QString &out) const
{
    VHTimeValueTransformer::appendTime(out, m_start, u",");
    out.append(u" --> ");
    VHTimeValueTransformer::appendTime(out, m_end, u",");
    if (m_forced)
        out.append(u" !!!");
    out.append(u'\n');
    out.append(m_string);
}

void VHSubtitle::correctSubtitles(SubtitleList &subtitles)
{
    for (qsizetype i = 1; i < subtitles.size(); ++i) {
        VHSubtitle &prev = *subtitles[i - 1];
        VHSubtitle &cur = *subtitles[i];
        if (cur.start() < prev.start()) {
            logLine(u"Warning: Correcting subtitle start from %1 to %2"_s.arg(formatedTime(cur.start()),
                                                                              formatedTime(prev.start())));
            cur.setStart(prev.start());
        }
        if (prev.end() > cur.start()) {
            logLine(u"Warning: Correcting subtitle end from %1 to %2"_s.arg(formatedTime(prev.end()),
                                                                            formatedTime(cur.start())));
            prev.setEnd(cur.start());
        }
        if (cur.end() < cur.start()) {
            logLine(u"Warning: Correcting subtitle end from %1 to %2 (has now 0 length)"_s.arg(
                formatedTime(cur.end()), formatedTime(cur.start())));
            cur.setEnd(cur.start());
        }
    }
}

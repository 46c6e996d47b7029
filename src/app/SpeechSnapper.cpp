#include "SpeechSnapper.h"

#include "AudioAnalysis.h"
#include "Settings.h"

#include <cmath>

using namespace Qt::StringLiterals;

const QString SpeechSnapper::EnabledKey = u"SnapToSpeech"_s;
const QString SpeechSnapper::WindowKey = u"SnapWindowSecs"_s;

void SpeechSnapper::registerDefaults()
{
    Settings::shared().registerDefaults({{EnabledKey, true}, {WindowKey, 0.25}});
}

std::optional<double> SpeechSnapper::snapTarget(double seconds, Qt::KeyboardModifiers modifiers) const
{
    const Settings &settings = Settings::shared();
    if (m_onsets.empty() || (modifiers & BypassModifier) || !settings.boolValue(EnabledKey))
        return std::nullopt;
    const double window = settings.doubleValue(WindowKey);
    if (!(window > 0) || !std::isfinite(seconds))
        return std::nullopt;
    return snapToSpeechOnset(m_onsets, seconds, window);
}

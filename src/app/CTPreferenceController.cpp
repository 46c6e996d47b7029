#include "CTPreferenceController.h"

#include "Settings.h"
#include "SpeechSnapper.h"
#include "VHEncodingPopupButton.h"
#include "VHLanguagePopUpButton.h"

using namespace Qt::StringLiterals;

const QString CTPreferenceController::EncodingKey = u"Encoding"_s;
const QString CTPreferenceController::ExportEncodingKey = u"ExportEncoding"_s;
const QString CTPreferenceController::ShownDisclaimerKey = u"ShownDisclaimer"_s;
const QString CTPreferenceController::LocaleKey = u"Locale"_s;
const QString CTPreferenceController::MaxCharactersPerSecondKey = u"MaxCharactersPerSecond"_s;
const QString CTPreferenceController::AutosaveIntervalKey = u"AutosaveInterval"_s;
const QString CTPreferenceController::PreferredPlayerKey = u"PreferredPlayer"_s;
const QString CTPreferenceController::ShowTimelineKey = u"ShowTimeline"_s;
const QString CTPreferenceController::TimelineHeightKey = u"TimelineHeight"_s;
const QString CTPreferenceController::TimelineCentreChannelKey = u"TimelineCentreChannel"_s;

void CTPreferenceController::registerDefaults()
{
    Settings::shared().registerDefaults({
        {EncodingKey, 0},
        {MaxCharactersPerSecondKey, 17},
        {AutosaveIntervalKey, 30},
        {PreferredPlayerKey, 1},
        {VHLanguagePopUpButton::IgnoreCountryKey, true},
        {ShowTimelineKey, true},
        {TimelineHeightKey, 150},
        {TimelineCentreChannelKey, true},
    });
    SpeechSnapper::registerDefaults();
}

CTPreferenceController &CTPreferenceController::sharedPreferenceController()
{
    static CTPreferenceController controller;
    return controller;
}

CTPreferenceController::CTPreferenceController()
{
    registerDefaults();
    Settings &settings = Settings::shared();
    m_encoding = EncodingId(settings.integerValue(EncodingKey));
    // Bound to the setting: a change from anywhere shows in the pop-up.
    m_binding =
        settings.observeKey(EncodingKey, [this](Observable *, const QString &, Observable::Change change) {
            if (change == Observable::Change::Did)
                setEncoding(EncodingId(Settings::shared().integerValue(EncodingKey)));
        });
}

void CTPreferenceController::setEncoding(EncodingId encoding)
{
    m_encoding = encoding;
    if (m_encodingButton)
        m_encodingButton->selectItemWithEncoding(encoding);
}

void CTPreferenceController::setEncodingButton(VHEncodingPopupButton *button)
{
    m_encodingButton = button;
    if (button)
        button->action = [this] { selectEncoding(); };
    setEncoding(EncodingId(Settings::shared().integerValue(EncodingKey)));
}

void CTPreferenceController::selectEncoding()
{
    if (!m_encodingButton)
        return;
    Settings &settings = Settings::shared();
    settings.setValue(EncodingKey, qint64(m_encodingButton->selectedEncoding()));
    settings.registerDefaults({{ExportEncodingKey, settings.value(EncodingKey)}});
    // Views of the export encoding that follow the default show the new one.
    if (!settings.hasStoredValue(ExportEncodingKey)) {
        settings.willChangeValueForKey(ExportEncodingKey);
        settings.didChangeValueForKey(ExportEncodingKey);
    }
}

void CTPreferenceController::useOnlyLanguageChanged()
{
    VHLanguagePopUpButton::updateLanguages();
}

#pragma once

#include "EncodingTable.h"
#include "Observable.h"

#include <QPointer>
#include <QString>

class VHEncodingPopupButton;

// The preferences the application owns, and the preferred encoding for reading subtitle
// files ("Encoding", 0 = detect). One instance per process.
//
// Every preference lives in the settings and is read where it is used, at the time of use,
// so a change counts from the next use on: the encodings when the next file is read or
// exported, the Tap2Sync times at the next tap, the player at the next movie. Windows that
// show a preference observe its key.
class CTPreferenceController
{
public:
    // Keys owned here, with the defaults registerDefaults() registers.
    static const QString EncodingKey;               // "Encoding": 0
    static const QString ExportEncodingKey;         // "ExportEncoding": follows "Encoding"
    static const QString ShownDisclaimerKey;        // "ShownDisclaimer": unset
    static const QString LocaleKey;                 // "Locale": registered by the project
    static const QString MaxCharactersPerSecondKey; // "MaxCharactersPerSecond": 17
    static const QString AutosaveIntervalKey;       // "AutosaveInterval": 30 seconds
    static const QString PreferredPlayerKey;        // "PreferredPlayer": 1 libmpv first, 2 libVLC first
    static const QString ShowTimelineKey;           // "ShowTimeline": true
    static const QString TimelineHeightKey;         // "TimelineHeight": 150 pixels
    // "TimelineCentreChannel": true, the waveform and speech of a 5.1 track from its centre
    // channel, where films keep their dialogue.
    static const QString TimelineCentreChannelKey;

    static CTPreferenceController &sharedPreferenceController();
    static void registerDefaults();

    EncodingId encoding() const { return m_encoding; }
    // Takes the encoding and selects it in the pop-up.
    void setEncoding(EncodingId encoding);
    // The pop-up that shows the encoding; it gets the stored value.
    void setEncodingButton(VHEncodingPopupButton *button);
    // The pop-up's action: stores its choice under "Encoding", and makes that the default
    // export encoding, so that an export encoding the user never chose follows it.
    void selectEncoding();
    // The "without region" choice of the language lists changed: they are rebuilt.
    void useOnlyLanguageChanged();

private:
    CTPreferenceController();
    EncodingId m_encoding = 0;
    QPointer<VHEncodingPopupButton> m_encodingButton;
    Observable::KeyToken m_binding;
};

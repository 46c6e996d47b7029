#pragma once

#include "Observable.h"

#include <QCoreApplication>
#include <QDialog>

#include <vector>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QSpinBox;
class VHEncodingPopupButton;
class VHLanguagePopUpButton;

// The Preferences window: the encodings for reading and exporting, the interface language,
// the Tap2Sync times, the reading-speed limit, snapping to speech and the timeline's sound,
// the autosave interval and which player tries a movie first. Every control writes its
// setting as soon as it changes and follows the setting when something else changes it;
// nothing waits for a button or a restart, except the interface language, which the program
// applies when it starts.
class PreferencesWindow final : public QDialog
{
    Q_DECLARE_TR_FUNCTIONS(PreferencesWindow)

public:
    explicit PreferencesWindow(QWidget *parent = nullptr);
    ~PreferencesWindow() override;

    // The item of the export pop-up that follows the reading encoding.
    static constexpr quint32 FollowReadingEncoding = 0xFFFFFFFFu;

    VHEncodingPopupButton *encodingButton() const { return m_encoding; }
    VHEncodingPopupButton *exportEncodingButton() const { return m_exportEncoding; }
    VHLanguagePopUpButton *languageButton() const { return m_language; }
    QCheckBox *ignoreCountryBox() const { return m_ignoreCountry; }
    QDoubleSpinBox *tapRewindField() const { return m_tapRewind; }
    QDoubleSpinBox *tapDelayField() const { return m_tapDelay; }
    QDoubleSpinBox *readingSpeedField() const { return m_readingSpeed; }
    QSpinBox *autosaveField() const { return m_autosave; }
    QComboBox *playerButton() const { return m_player; }
    QCheckBox *snapToSpeechBox() const { return m_snapToSpeech; }
    QDoubleSpinBox *snapWindowField() const { return m_snapWindow; }
    QCheckBox *centreChannelBox() const { return m_centreChannel; }

    // The language pop-up's action: stores the chosen identifier as "Locale".
    void changeLanguagePreference();

private:
    void showSettings();
    void store(const QString &key, const QVariant &value);
    void exportEncodingChosen();

    VHEncodingPopupButton *m_encoding = nullptr;
    VHEncodingPopupButton *m_exportEncoding = nullptr;
    VHLanguagePopUpButton *m_language = nullptr;
    QCheckBox *m_ignoreCountry = nullptr;
    QDoubleSpinBox *m_tapRewind = nullptr;
    QDoubleSpinBox *m_tapDelay = nullptr;
    QDoubleSpinBox *m_readingSpeed = nullptr;
    QSpinBox *m_autosave = nullptr;
    QComboBox *m_player = nullptr;
    QCheckBox *m_snapToSpeech = nullptr;
    QDoubleSpinBox *m_snapWindow = nullptr;
    QCheckBox *m_centreChannel = nullptr;
    bool m_showing = false;
    Observable::KeyToken m_settingsToken;
};

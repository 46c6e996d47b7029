#include "PreferencesWindow.h"

#include "CTPreferenceController.h"
#include "Settings.h"
#include "SpeechSnapper.h"
#include "VHEncodingPopupButton.h"
#include "VHLanguagePopUpButton.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {
const QString TapRewindKey = u"TapRewindSecs"_s;
const QString TapDelayKey = u"TapDelaySecs"_s;

QLabel *note(const QString &text, QWidget *parent)
{
    // Not wrapped: a wrapped label in a form leaves the window too short for it. The texts
    // carry their own line breaks.
    auto *label = new QLabel(text, parent);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * 0.9);
    label->setFont(font);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

// Takes a decimal point or a decimal comma, whatever the locale, as the window's time fields
// do: "4.5" is not forty-five in a German interface.
class DecimalSpinBox final : public QDoubleSpinBox
{
public:
    using QDoubleSpinBox::QDoubleSpinBox;

protected:
    QValidator::State validate(QString &input, int &pos) const override
    {
        QString text = normalized(input);
        return QDoubleSpinBox::validate(text, pos);
    }
    double valueFromText(const QString &text) const override
    {
        return QDoubleSpinBox::valueFromText(normalized(text));
    }

private:
    QString normalized(QString text) const
    {
        const QString point = locale().decimalPoint();
        text.replace(u'.', point).replace(u',', point);
        return text;
    }
};

QDoubleSpinBox *secondsField(double minimum, double maximum, double step, QWidget *parent)
{
    auto *field = new DecimalSpinBox(parent);
    field->setDecimals(2);
    field->setRange(minimum, maximum);
    field->setSingleStep(step);
    field->setSuffix(QCoreApplication::translate("PreferencesWindow", " s"));
    return field;
}
} // namespace

PreferencesWindow::PreferencesWindow(QWidget *parent)
    : QDialog(parent)
{
    CTPreferenceController::registerDefaults();
    setWindowTitle(tr("Preferences"));
    auto *layout = new QVBoxLayout(this);

    auto *files = new QGroupBox(tr("Subtitle Files"), this);
    auto *filesForm = new QFormLayout(files);
    m_encoding = new VHEncodingPopupButton(files);
    m_encoding->setObjectName(u"encodingButton"_s);
    filesForm->addRow(tr("Read files in:"), m_encoding);
    filesForm->addRow(note(tr("“Automatic” recognises the encoding of each file."), files));
    m_exportEncoding = new VHEncodingPopupButton(files);
    m_exportEncoding->setObjectName(u"exportEncodingButton"_s);
    m_exportEncoding->insertItem(0, tr("Same as for reading"),
                                 QVariant::fromValue<quint32>(FollowReadingEncoding));
    m_exportEncoding->insertSeparator(1);
    filesForm->addRow(tr("Export in:"), m_exportEncoding);
    filesForm->addRow(
        note(tr("The export window starts with this encoding\nand remembers what you choose there."), files));
    layout->addWidget(files);

    auto *language = new QGroupBox(tr("Interface Language"), this);
    auto *languageForm = new QFormLayout(language);
    m_language = new VHLanguagePopUpButton(language);
    m_language->setObjectName(u"languagePrefButton"_s);
    languageForm->addRow(tr("Language:"), m_language);
    m_ignoreCountry = new QCheckBox(tr("List languages without their region"), language);
    languageForm->addRow(m_ignoreCountry);
    languageForm->addRow(note(tr("A new interface language applies the next time Captora starts.\n"
                                 "The language also decides which subtitle file of a movie opens first."),
                              language));
    layout->addWidget(language);

    auto *timing = new QGroupBox(tr("Timing"), this);
    auto *timingForm = new QFormLayout(timing);
    m_tapRewind = secondsField(0, 60, 0.5, timing);
    timingForm->addRow(tr("Tap2Sync rewinds by:"), m_tapRewind);
    m_tapDelay = secondsField(0, 5, 0.05, timing);
    timingForm->addRow(tr("Tap2Sync reaction time:"), m_tapDelay);
    timingForm->addRow(
        note(tr("A tap fixes the line at the playing time\nminus your reaction time."), timing));
    m_readingSpeed = new DecimalSpinBox(timing);
    m_readingSpeed->setDecimals(1);
    m_readingSpeed->setRange(1, 100);
    m_readingSpeed->setSuffix(tr(" characters per second"));
    timingForm->addRow(tr("Reading speed limit:"), m_readingSpeed);
    m_snapToSpeech = new QCheckBox(tr("Snap fixes to the start of speech"), timing);
    timingForm->addRow(m_snapToSpeech);
    m_snapWindow = secondsField(0.05, 2, 0.05, timing);
    timingForm->addRow(tr("Snap within:"), m_snapWindow);
    timingForm->addRow(note(tr("A fix, a tap or a dragged start moves to speech that starts this close.\n"
                               "Hold the Meta (Super) key to fix at the time as it is."),
                            timing));
    m_centreChannel = new QCheckBox(tr("Hear 5.1 sound on its centre channel (dialogue)"), timing);
    m_centreChannel->setToolTip(tr("The timeline's waveform and speech come from the channel films keep "
                                   "their dialogue on."));
    timingForm->addRow(m_centreChannel);
    layout->addWidget(timing);

    auto *program = new QGroupBox(tr("Saving and Playing"), this);
    auto *programForm = new QFormLayout(program);
    m_autosave = new QSpinBox(program);
    m_autosave->setRange(5, 3600);
    m_autosave->setSingleStep(5);
    m_autosave->setSuffix(tr(" seconds"));
    programForm->addRow(tr("Autosave every:"), m_autosave);
    m_player = new QComboBox(program);
    m_player->addItem(tr("libmpv, then libVLC"), 1);
    m_player->addItem(tr("libVLC, then libmpv"), 2);
    programForm->addRow(tr("Play movies with:"), m_player);
    programForm->addRow(
        note(tr("Subtitles can be embedded into and extracted from movies that libmpv plays.\n"
                "The player applies to the next movie you open."),
             program));
    layout->addWidget(program);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    layout->addWidget(buttons);

    // Reading encoding: through the preference controller, which also moves the export default.
    CTPreferenceController::sharedPreferenceController().setEncodingButton(m_encoding);
    m_exportEncoding->action = [this] { exportEncodingChosen(); };
    m_language->action = [this] { changeLanguagePreference(); };
    connect(m_ignoreCountry, &QCheckBox::toggled, this, [this](bool on) {
        if (m_showing)
            return;
        store(VHLanguagePopUpButton::IgnoreCountryKey, on);
        CTPreferenceController::sharedPreferenceController().useOnlyLanguageChanged();
    });
    auto storeOnChange = [this](auto *field, const QString &key) {
        connect(field, &std::remove_pointer_t<decltype(field)>::valueChanged, this, [this, key](auto value) {
            if (!m_showing)
                store(key, value);
        });
    };
    storeOnChange(m_tapRewind, TapRewindKey);
    storeOnChange(m_tapDelay, TapDelayKey);
    storeOnChange(m_readingSpeed, CTPreferenceController::MaxCharactersPerSecondKey);
    storeOnChange(m_autosave, CTPreferenceController::AutosaveIntervalKey);
    storeOnChange(m_snapWindow, SpeechSnapper::WindowKey);
    auto storeOnToggle = [this](QCheckBox *box, const QString &key) {
        connect(box, &QCheckBox::toggled, this, [this, key](bool on) {
            if (!m_showing)
                store(key, on);
        });
    };
    storeOnToggle(m_snapToSpeech, SpeechSnapper::EnabledKey);
    storeOnToggle(m_centreChannel, CTPreferenceController::TimelineCentreChannelKey);
    connect(m_snapToSpeech, &QCheckBox::toggled, m_snapWindow, &QWidget::setEnabled);
    connect(m_player, &QComboBox::activated, this,
            [this] { store(CTPreferenceController::PreferredPlayerKey, m_player->currentData().toInt()); });

    // Whatever changes a setting meanwhile (the export window, another control), the
    // window shows it.
    m_settingsToken = Settings::shared().observeKey(
        QString(), [this](Observable *, const QString &, Observable::Change change) {
            if (change == Observable::Change::Did)
                showSettings();
        });
    showSettings();
}

PreferencesWindow::~PreferencesWindow()
{
    m_settingsToken.reset();
}

void PreferencesWindow::showSettings()
{
    if (m_showing)
        return;
    m_showing = true;
    const Settings &settings = Settings::shared();
    CTPreferenceController::sharedPreferenceController().setEncoding(
        EncodingId(settings.integerValue(CTPreferenceController::EncodingKey)));
    if (settings.hasStoredValue(CTPreferenceController::ExportEncodingKey))
        m_exportEncoding->selectItemWithEncoding(
            EncodingId(settings.integerValue(CTPreferenceController::ExportEncodingKey)));
    else
        m_exportEncoding->selectItemWithEncoding(FollowReadingEncoding);
    m_language->setSelectedID(settings.stringValue(CTPreferenceController::LocaleKey));
    m_ignoreCountry->setChecked(settings.boolValue(VHLanguagePopUpButton::IgnoreCountryKey));
    m_tapRewind->setValue(settings.doubleValue(TapRewindKey));
    m_tapDelay->setValue(settings.doubleValue(TapDelayKey));
    m_readingSpeed->setValue(settings.doubleValue(CTPreferenceController::MaxCharactersPerSecondKey));
    m_autosave->setValue(int(settings.integerValue(CTPreferenceController::AutosaveIntervalKey)));
    m_player->setCurrentIndex(settings.integerValue(CTPreferenceController::PreferredPlayerKey) == 2 ? 1 : 0);
    m_snapToSpeech->setChecked(settings.boolValue(SpeechSnapper::EnabledKey));
    m_snapWindow->setValue(settings.doubleValue(SpeechSnapper::WindowKey));
    m_snapWindow->setEnabled(m_snapToSpeech->isChecked());
    m_centreChannel->setChecked(settings.boolValue(CTPreferenceController::TimelineCentreChannelKey));
    m_showing = false;
}

void PreferencesWindow::exportEncodingChosen()
{
    Settings &settings = Settings::shared();
    const quint32 chosen = m_exportEncoding->selectedEncoding();
    if (chosen == FollowReadingEncoding)
        settings.remove(CTPreferenceController::ExportEncodingKey);
    else
        store(CTPreferenceController::ExportEncodingKey, qint64(chosen));
}

void PreferencesWindow::changeLanguagePreference()
{
    store(CTPreferenceController::LocaleKey, m_language->selectedID());
}

void PreferencesWindow::store(const QString &key, const QVariant &value)
{
    // The control that changed already shows the value: showing the settings again now
    // would put the value back into a field the user is typing in.
    const bool wasShowing = std::exchange(m_showing, true);
    Settings::shared().setValue(key, value);
    m_showing = wasShowing;
}

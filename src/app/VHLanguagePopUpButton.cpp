#include "VHLanguagePopUpButton.h"

#include "LocaleNames.h"
#include "Log.h"
#include "Settings.h"

#include <QLocale>
#include <QMenu>
#include <QMessageBox>
#include <QProcess>
#include <QStandardPaths>

#include <optional>

using namespace Qt::StringLiterals;

const QString VHLanguagePopUpButton::LanguagesHaveChangedNotification = u"VHLanguagesHaveChanged"_s;
const QString VHLanguagePopUpButton::IgnoreCountryKey = u"VHLanguageIgnoreCountry"_s;

namespace {
struct Lists
{
    QStringList identifiers;
    QStringList names;
    bool built = false;
};

Lists &lists()
{
    static Lists shared;
    return shared;
}

std::optional<QStringList> &preferredOverride()
{
    static std::optional<QStringList> languages;
    return languages;
}

void registerDefaults()
{
    Settings::shared().registerDefaults({{VHLanguagePopUpButton::IgnoreCountryKey, true}});
}

void ensureLists()
{
    registerDefaults();
    if (!lists().built)
        VHLanguagePopUpButton::updateLanguages();
}

// Opens the desktop's own region and language settings, where there is a known one.
bool openDesktopLanguageSettings()
{
    const QList<QStringList> tools = {{u"gnome-control-center"_s, u"region"_s},
                                      {u"systemsettings"_s, u"kcm_regionandlang"_s},
                                      {u"xfce4-settings-manager"_s}};
    for (const QStringList &tool : tools) {
        const QString program = QStandardPaths::findExecutable(tool.first());
        if (!program.isEmpty() && QProcess::startDetached(program, tool.mid(1)))
            return true;
    }
    return false;
}
} // namespace

std::function<void(QWidget *)> VHLanguagePopUpButton::moreLanguagesHandler = [](QWidget *parent) {
    if (openDesktopLanguageSettings())
        return;
    QMessageBox::information(
        parent, tr("Add more languages"),
        tr("Captora offers the languages your desktop prefers. Add languages in your desktop's region and "
           "language settings, or list them in the LANGUAGE environment variable (for example "
           "LANGUAGE=de:fr:en), and start Captora again."));
};

VHLanguagePopUpButton::VHLanguagePopUpButton(QWidget *parent)
    : QComboBox(parent)
{
    ensureLists();
    setupMenu();
    connect(this, &QComboBox::activated, this, [this](int index) {
        if (index == m_moreIndex)
            moreLanguages();
        else
            entrySelected(itemData(index).toInt());
    });
    m_languagesChanged = NotificationCenter::defaultCenter().addObserver(
        LanguagesHaveChangedNotification, nullptr, [this](const Notification &) {
            const QString selected = selectedID();
            setupMenu();
            for (const QPointer<QMenu> &menu : std::as_const(m_menus))
                if (menu)
                    fillMenu(menu);
            setSelectedID(selected);
        });
}

VHLanguagePopUpButton::~VHLanguagePopUpButton() = default;

QStringList VHLanguagePopUpButton::systemPreferredLanguages()
{
    if (preferredOverride())
        return *preferredOverride();
    QStringList languages;
    // GNU gettext's list of preferred languages, then the locale of the messages.
    const QString languageList = qEnvironmentVariable("LANGUAGE");
    for (const QString &entry : languageList.split(u':', Qt::SkipEmptyParts))
        languages << entry;
    if (languages.isEmpty()) {
        for (const char *variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
            const QString value = qEnvironmentVariable(variable);
            if (!value.isEmpty()) {
                languages << value;
                break;
            }
        }
    }
    QStringList identifiers;
    for (QString language : std::as_const(languages)) {
        // "de_DE.UTF-8@euro" -> "de_DE"; "C" and "POSIX" name no language.
        language = language.section(u'.', 0, 0).section(u'@', 0, 0).replace(u'-', u'_');
        if (!language.isEmpty() && language != u"C"_s && language != u"POSIX"_s)
            identifiers << language;
    }
    return identifiers;
}

void VHLanguagePopUpButton::setPreferredLanguagesOverride(const std::optional<QStringList> &languages)
{
    preferredOverride() = languages;
}

void VHLanguagePopUpButton::updateLanguages()
{
    registerDefaults();
    Lists &shared = lists();
    shared.identifiers = {QString()};
    shared.names = {tr("Unknown")};
    const bool ignoreCountry = Settings::shared().boolValue(IgnoreCountryKey);
    const QStringList preferred = systemPreferredLanguages();
    for (const QString &language : preferred) {
        QString identifier, name;
        if (ignoreCountry && language.size() >= 3) {
            // The language without its region: its first two characters, or its three-letter
            // code ("fil_PH" is Filipino, not Finnish).
            const QString bare = language.section(u'_', 0, 0);
            const QString shortIdentifier = bare.size() == 3 ? bare : language.left(2);
            if (const QString ownName = LocaleNames::nativeDisplayName(shortIdentifier); !ownName.isEmpty()) {
                identifier = shortIdentifier;
                name = ownName;
            }
        }
        if (identifier.isEmpty()) {
            identifier = language;
            name = LocaleNames::nativeDisplayName(language);
        }
        if (!identifier.isEmpty() && !name.isEmpty()) {
            shared.identifiers << identifier;
            shared.names << name;
        } else {
            logLine(u"Warning: Locale Problem with %1 \u2013 %2"_s.arg(identifier, name));
        }
    }
    shared.built = true;
    NotificationCenter::defaultCenter().post(LanguagesHaveChangedNotification, nullptr);
}

const QStringList &VHLanguagePopUpButton::languageIdentifiers()
{
    ensureLists();
    return lists().identifiers;
}

const QStringList &VHLanguagePopUpButton::languageNames()
{
    ensureLists();
    return lists().names;
}

void VHLanguagePopUpButton::setupMenu()
{
    m_filling = true;
    clear();
    const QStringList &names = languageNames();
    for (int i = 0; i < names.size(); ++i)
        addItem(names[i], i);
    insertSeparator(count());
    addItem(tr("Add more languages ..."));
    m_moreIndex = count() - 1;
    m_filling = false;
}

void VHLanguagePopUpButton::addMenu(QMenu *menu)
{
    m_menus << menu;
    fillMenu(menu);
}

void VHLanguagePopUpButton::fillMenu(QMenu *menu)
{
    menu->clear();
    const QStringList &names = languageNames();
    for (int i = 0; i < names.size(); ++i)
        connect(menu->addAction(names[i]), &QAction::triggered, this, [this, i] { entrySelected(i); });
    menu->addSeparator();
    connect(menu->addAction(tr("Add more languages ...")), &QAction::triggered, this,
            [this] { moreLanguages(); });
}

QString VHLanguagePopUpButton::selectedID() const
{
    const int tag = selectedTag();
    const QStringList &identifiers = languageIdentifiers();
    return tag >= 0 && tag < identifiers.size() ? identifiers[tag] : QString();
}

void VHLanguagePopUpButton::setSelectedID(const QString &identifier)
{
    if (identifier.isNull())
        return;
    const QStringList &identifiers = languageIdentifiers();
    qsizetype index = identifiers.indexOf(identifier);
    if (index < 0) {
        // The empty identifier at 0 is in every text: only real languages count here.
        for (qsizetype i = 1; i < identifiers.size() && index < 0; ++i)
            if (identifier.contains(identifiers[i]))
                index = i;
        // A language listed only with its region: "de" selects "de_DE".
        for (qsizetype i = 1; i < identifiers.size() && index < 0 && !identifier.isEmpty(); ++i)
            if (identifiers[i].startsWith(identifier + u'_'))
                index = i;
    }
    selectItemWithTag(int(std::max<qsizetype>(index, 0)));
}

int VHLanguagePopUpButton::selectedTag() const
{
    const QVariant tag = currentData();
    return tag.isValid() ? tag.toInt() : -1;
}

void VHLanguagePopUpButton::selectItemWithTag(int tag)
{
    const int index = findData(tag);
    setCurrentIndex(index);
}

void VHLanguagePopUpButton::entrySelected(int tag)
{
    selectItemWithTag(tag);
    if (action)
        action();
}

void VHLanguagePopUpButton::moreLanguages()
{
    if (moreLanguagesHandler)
        moreLanguagesHandler(this);
    selectItemWithTag(0);
}

#pragma once

#include "NotificationCenter.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QList>
#include <QPointer>
#include <QStringList>

#include <functional>

class QMenu;

// A pop-up of the user's preferred languages, each named in its own language ("Deutsch",
// "français"), that answers the chosen language identifier. Item 0 is always "Unknown" (the
// empty identifier); after the languages come a separator and "Add more languages ...".
//
// The lists are shared by every pop-up and rebuilt by updateLanguages(), which posts
// "VHLanguagesHaveChanged"; each pop-up then fills itself (and the menus given to addMenu())
// again and selects the identifier it had.
//
// The preferred languages are the desktop's: the LANGUAGE list of the environment when set
// (GNU gettext's order of preference), else the locale of LC_ALL, LC_MESSAGES or LANG. With
// "VHLanguageIgnoreCountry" (registered true) languages are listed without their region, and
// two regional variants of one language are then listed twice, as they come.
class VHLanguagePopUpButton : public QComboBox
{
    Q_DECLARE_TR_FUNCTIONS(VHLanguagePopUpButton)

public:
    static const QString LanguagesHaveChangedNotification; // "VHLanguagesHaveChanged"
    static const QString IgnoreCountryKey;                 // "VHLanguageIgnoreCountry"

    explicit VHLanguagePopUpButton(QWidget *parent = nullptr);
    ~VHLanguagePopUpButton() override;

    // Rebuilds the shared lists from the preferred languages and tells every pop-up.
    static void updateLanguages();
    static const QStringList &languageIdentifiers();
    static const QStringList &languageNames();
    // The desktop's preferred languages as locale identifiers ("de_DE", "fr"), in order.
    static QStringList systemPreferredLanguages();
    // Replaces the desktop's list (an empty optional restores it); for tests and for the
    // command line.
    static void setPreferredLanguagesOverride(const std::optional<QStringList> &languages);

    // Fills the pop-up: one item per name (tag = its index), a separator, "Add more
    // languages ...".
    void setupMenu();
    // A menu kept filled like the pop-up; choosing in it chooses in the pop-up.
    void addMenu(QMenu *menu);

    // The identifier of the selected item; "" when the selection is not a language.
    QString selectedID() const;
    // Selects the identifier; else the first listed identifier that it contains ("de_AT"
    // selects "de"); else the first one of its language ("de" selects "de_DE"); else
    // "Unknown". Nothing happens for a null string.
    void setSelectedID(const QString &identifier);
    int selectedTag() const;
    void selectItemWithTag(int tag);

    // Sent after the user chose a language (the application stores it as "Locale").
    std::function<void()> action;
    // What "Add more languages ..." does; by default it opens the desktop's region and
    // language settings where one is installed, else it explains where languages come from.
    static std::function<void(QWidget *parent)> moreLanguagesHandler;

private:
    void entrySelected(int tag);
    void moreLanguages();
    void fillMenu(QMenu *menu);

    ScopedObserver m_languagesChanged;
    QList<QPointer<QMenu>> m_menus;
    int m_moreIndex = -1;
    bool m_filling = false;
};

// The interface language: which languages are asked in which order, how a text missing in one
// table comes from the next, and the real window in German and in English.
#include "InterfaceLanguage.h"
#include "CTWindowController.h"
#include "LocaleNames.h"
#include "MainQueue.h"
#include "ProjectWindow.h"
#include "Settings.h"
#include "TestSupport.h"

#include <QAction>
#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QTranslator>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
QString fallbackText(const char *source)
{
    return QCoreApplication::translate("Fallback", source);
}

QStringList menuTitles(QMainWindow &window)
{
    QStringList titles;
    for (QAction *menu : window.menuBar()->actions())
        titles << menu->text();
    return titles;
}

// The texts of a menu's items after it was opened, when the project titles them.
QStringList itemTitles(QMainWindow &window, int menuIndex)
{
    QMenu *menu = window.menuBar()->actions().value(menuIndex)->menu();
    Q_EMIT menu->aboutToShow();
    QStringList titles;
    for (QAction *item : menu->actions()) {
        if (!item->isSeparator())
            titles << item->text();
    }
    return titles;
}

class InterfaceWindow : public ::testing::Test
{
protected:
    void SetUp() override
    {
        MainQueue::main().drain();
        // No stored choice: the system's languages decide, as for a new user.
        Settings::shared().useFile(dir.path(u"settings.ini"_s));
        translators = InterfaceLanguage::installForApplication();
        window = std::make_unique<ProjectWindow>();
        window->start();
    }
    void TearDown() override
    {
        MainQueue::main().drain();
        window.reset();
        translators.clear();
        LocaleNames::setInterfaceLanguage(QString());
    }
    // The first question about Tap2Sync, declined.
    Prompt tap2SyncQuestion()
    {
        Settings::shared().setValue(u"ShownTap2Sync"_s, false);
        window->project()->toggleTap2Sync();
        return prompter.prompts.value(0);
    }

    TempDir dir;
    ScriptedPrompter prompter;
    ScopedPrompter scopedPrompter{&prompter};
    std::vector<std::unique_ptr<QTranslator>> translators;
    std::unique_ptr<ProjectWindow> window;
};
} // namespace

TEST(PreferredLanguages, ChosenLanguageFirstThenTheSystemsUpToEnglish)
{
    using InterfaceLanguage::preferredLanguages;
    EXPECT_EQ(preferredLanguages(QString(), {u"de-DE"_s, u"de"_s}), (QStringList{u"de_DE"_s, u"de"_s}));
    EXPECT_EQ(preferredLanguages(u"fr"_s, {u"de-DE"_s, u"en-US"_s, u"ru"_s}),
              (QStringList{u"fr"_s, u"de_DE"_s, u"en_US"_s}));
    // English first: the source texts, whatever follows.
    EXPECT_EQ(preferredLanguages(QString(), {u"en-GB"_s, u"de"_s}), (QStringList{u"en_GB"_s}));
    EXPECT_EQ(preferredLanguages(u"en"_s, {u"de"_s}), (QStringList{u"en"_s}));
    // The C locale names no language; a locale name with its encoding names its language.
    EXPECT_EQ(preferredLanguages(QString(), {u"C"_s}), QStringList());
    EXPECT_EQ(preferredLanguages(u"de_DE.UTF-8"_s, {u"de-DE"_s, u"es"_s}),
              (QStringList{u"de_DE"_s, u"es"_s}));
}

TEST(TranslationFallback, EachTextFromTheFirstLanguageThatHasIt)
{
    const QString tables = QString::fromUtf8(CAPTORA_TEST_TRANSLATIONS);
    {
        const auto installed = InterfaceLanguage::install({u"fr"_s, u"de"_s}, tables, u"fallback"_s);
        ASSERT_EQ(installed.size(), 2u);
        EXPECT_EQ(fallbackText("In both"), u"Dans les deux"_s);
        EXPECT_EQ(fallbackText("Only in German"), u"Nur auf Deutsch"_s);
        EXPECT_EQ(fallbackText("Nowhere"), u"Nowhere"_s);
    }
    // The translators are gone with their owner: English again.
    EXPECT_EQ(fallbackText("In both"), u"In both"_s);
    {
        // A regional variant uses its language's table; a language without a table is passed over.
        const auto installed =
            InterfaceLanguage::install({u"it"_s, u"de_AT"_s, u"fr_CA"_s}, tables, u"fallback"_s);
        ASSERT_EQ(installed.size(), 2u);
        EXPECT_EQ(fallbackText("In both"), u"In beiden"_s);
        EXPECT_EQ(fallbackText("Only in German"), u"Nur auf Deutsch"_s);
    }
    {
        // English ends the list before German is asked.
        const auto installed = InterfaceLanguage::install(
            InterfaceLanguage::preferredLanguages(QString(), {u"en-US"_s, u"de-DE"_s}), tables,
            u"fallback"_s);
        EXPECT_TRUE(installed.empty());
        EXPECT_EQ(fallbackText("Only in German"), u"Only in German"_s);
    }
}

// Runs under LANG=de_DE.UTF-8 (see CMakeLists.txt).
TEST_F(InterfaceWindow, GermanMenusAndQuestions)
{
    if (!QLocale::system().name().startsWith(u"de"_s))
        GTEST_SKIP() << "needs LANG=de_DE.UTF-8";
    EXPECT_EQ(menuTitles(*window), (QStringList{u"&Datei"_s, u"&Bearbeiten"_s, u"&Kapitelmarken"_s,
                                                u"&Timing"_s, u"&Film"_s, u"&Wiedergabe"_s, u"&Ansicht"_s}));
    // Titles the project computes, and the fixed ones.
    const QStringList file = itemTitles(*window, 0);
    EXPECT_TRUE(file.contains(u"Untertitel speichern"_s)) << file.join(u" | "_s).toStdString();
    EXPECT_TRUE(file.contains(u"Untertitel in den Film einbetten …"_s)) << file.join(u" | "_s).toStdString();
    EXPECT_TRUE(file.contains(u"Keine extrahierbaren Untertitel oder Kapitelmarken"_s))
        << file.join(u" | "_s).toStdString();
    const QStringList timing = itemTitles(*window, 3);
    EXPECT_TRUE(timing.contains(u"Einzelne Untertitelzeile fixieren"_s))
        << timing.join(u" | "_s).toStdString();
    EXPECT_TRUE(timing.contains(u"Modus „Tap2Sync“ starten"_s)) << timing.join(u" | "_s).toStdString();

    const Prompt question = tap2SyncQuestion();
    EXPECT_EQ(question.message, u"So funktioniert „Tap2Sync“"_s);
    EXPECT_EQ(question.buttons, (QStringList{u"Starten"_s, u"Abbrechen"_s}));
    EXPECT_EQ(question.checkboxTitle, u"Diese Meldung nicht mehr anzeigen"_s);

    // Language names follow the menus, and Qt's own buttons are German too.
    EXPECT_EQ(LocaleNames::displayName(u"en"_s), u"Englisch"_s);
    EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), u"Abbrechen"_s);
}

// Runs under LANG=C.UTF-8: every text stays as written.
TEST_F(InterfaceWindow, EnglishUnderTheCLocale)
{
    if (QLocale::system().name() != u"C"_s)
        GTEST_SKIP() << "needs LANG=C.UTF-8";
    EXPECT_TRUE(translators.empty());
    EXPECT_EQ(menuTitles(*window), (QStringList{u"&File"_s, u"&Edit"_s, u"&Chapter Marks"_s, u"&Timing"_s,
                                                u"&Movie"_s, u"&Playback"_s, u"&View"_s}));
    EXPECT_TRUE(itemTitles(*window, 0).contains(u"Save Subtitle"_s));
    const Prompt question = tap2SyncQuestion();
    EXPECT_EQ(question.message, u"How to use \"Tap2Sync\""_s);
    EXPECT_EQ(question.buttons, (QStringList{u"Start"_s, u"Cancel"_s}));
}

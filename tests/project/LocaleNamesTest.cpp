// Locale names under every interface language and process locale. These tests do not force
// the interface language to "en" as the project fixture does: they run once more under
// C.UTF-8, en_US.UTF-8, de_DE.UTF-8 and LANGUAGE=en (see CMakeLists.txt).
#include "LocaleNames.h"
#include "CTLanguage.h"
#include "CTWindowController.h"

#include <QLocale>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
class LocaleNamesTest : public ::testing::Test
{
protected:
    void TearDown() override { LocaleNames::setInterfaceLanguage(u"en"_s); }
};
} // namespace

// ICU reports a name found through a parent locale ("en_US" -> "en") or through its default
// locale with a warning; the name is still the right one.
TEST_F(LocaleNamesTest, NamesAreFoundInEveryFormOfTheInterfaceLanguage)
{
    for (const QString &interface :
         {u"en"_s, u"en_US"_s, u"en_GB"_s, u"en_US_POSIX"_s, u"de"_s, u"de_DE"_s, u"de_CH"_s, u"C"_s}) {
        SCOPED_TRACE(interface.toStdString());
        LocaleNames::setInterfaceLanguage(interface);
        const bool german = interface.startsWith(u"de"_s);
        for (const QString &known :
             {u"en"_s, u"EN"_s, u"de"_s, u"pt_BR"_s, u"sr_Latn"_s, u"zh_Hant"_s, u"en_US"_s})
            EXPECT_TRUE(LocaleNames::isLocale(known)) << known.toStdString();
        for (const QString &unknown : {u""_s, u"xx"_s, u"part2"_s, u"en_XX"_s, u"qaa"_s, u"e"_s, u"und"_s})
            EXPECT_FALSE(LocaleNames::isLocale(unknown)) << unknown.toStdString();

        EXPECT_EQ(LocaleNames::displayName(u"en"_s), german ? u"Englisch"_s : u"English"_s);
        EXPECT_EQ(LocaleNames::displayName(u"pt_BR"_s),
                  german ? u"Portugiesisch (Brasilien)"_s : u"Portuguese (Brazil)"_s);
        EXPECT_TRUE(LocaleNames::displayName(u"xx"_s).isNull());
        EXPECT_EQ(CTLanguage::languageWithFile(u"/m/Film.de.srt"_s, u"/m/Film"_s)->displayName(),
                  german ? u"Deutsch Subtitle"_s : u"German Subtitle"_s);
        EXPECT_EQ(CTLanguage::languageWithFile(u"/m/Film.xx.srt"_s, u"/m/Film"_s)->displayName(),
                  u"Unknown Subtitle"_s);
    }
    // Names in the locale's own language, as embedded tracks are labelled.
    EXPECT_EQ(LocaleNames::nativeDisplayName(u"de_DE"_s), u"Deutsch (Deutschland)"_s);
    EXPECT_EQ(LocaleNames::nativeDisplayName(u"en_US"_s), u"English (United States)"_s);
    EXPECT_EQ(LocaleNames::nativeDisplayName(u"fr"_s), u"français"_s);
    EXPECT_TRUE(LocaleNames::nativeDisplayName(u"xx"_s).isNull());
}

// With no interface language set, names follow the process's locale environment.
TEST_F(LocaleNamesTest, TheProcessLocaleNamesEveryLanguage)
{
    LocaleNames::setInterfaceLanguage(QString());
    const bool german = QLocale::system().language() == QLocale::German;
    EXPECT_EQ(CTLanguage::languageWithFile(u"/m/Film.en.srt"_s, u"/m/Film"_s)->displayName(),
              german ? u"Englisch Subtitle"_s : u"English Subtitle"_s)
        << "interface language " << LocaleNames::interfaceLanguage().toStdString();
    EXPECT_EQ(CTLanguage::languageWithFile(u"/m/Film.pt_BR.srt"_s, u"/m/Film"_s)->localeIdentifier(),
              u"pt_BR"_s);
    for (const LanguageMenu::Item &item : CTWindowController::sharedLanguageMenu()->items)
        EXPECT_FALSE(item.title.isEmpty()) << item.localeIdentifier.toStdString();
}

#include "InterfaceLanguage.h"

#include "LocaleNames.h"
#include "Settings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace InterfaceLanguage {

QStringList preferredLanguages(const QString &chosen, const QStringList &system)
{
    QStringList languages;
    QStringList candidates{chosen};
    candidates += system;
    for (QString language : std::as_const(candidates)) {
        // "de-DE" and "de_DE.UTF-8" both name de_DE.
        language = language.section(u'.', 0, 0).section(u'@', 0, 0).replace(u'-', u'_').trimmed();
        if (language.isEmpty() || language == u"C"_s || language == u"POSIX"_s ||
            languages.contains(language))
            continue;
        languages.append(language);
        // The texts are English: nothing after English is ever shown.
        if (language == u"en"_s || language.startsWith(u"en_"_s))
            break;
    }
    return languages;
}

QString translationsDirectory()
{
    QStringList candidates;
    if (const QString env = qEnvironmentVariable("CAPTORA_TRANSLATIONS"); !env.isEmpty())
        candidates << env;
    if (QCoreApplication::instance())
        candidates << QCoreApplication::applicationDirPath() + u"/../share/captora/translations"_s;
    candidates << QString::fromUtf8(CAPTORA_BUILD_TRANSLATIONS);
    for (const QString &candidate : std::as_const(candidates)) {
        if (QFileInfo(candidate).isDir())
            return QDir(candidate).canonicalPath();
    }
    return QString::fromUtf8(CAPTORA_BUILD_TRANSLATIONS);
}

std::vector<std::unique_ptr<QTranslator>> install(const QStringList &languages, const QString &directory,
                                                  const QString &prefix)
{
    // Each table once, at the place of the most preferred language that finds it ("de_DE",
    // "de_Latn_DE" and "de" all find captora_de.qm).
    std::vector<std::unique_ptr<QTranslator>> loaded;
    QStringList files;
    for (const QString &identifier : languages) {
        // de_AT finds captora_de_AT.qm, else captora_de.qm (QTranslator strips the region),
        // but never a table of another language or of none.
        const QString language = identifier.section(u'_', 0, 0);
        auto translator = std::make_unique<QTranslator>();
        if (!translator->load(prefix + u'_' + identifier, directory) ||
            translator->language().replace(u'-', u'_').section(u'_', 0, 0) != language ||
            language.isEmpty() || files.contains(translator->filePath()))
            continue;
        files << translator->filePath();
        loaded.push_back(std::move(translator));
    }
    // Qt asks the translator installed last first: the least preferred language goes in
    // first, so that a text missing in one language comes from the next one.
    std::vector<std::unique_ptr<QTranslator>> installed;
    for (auto it = loaded.rbegin(); it != loaded.rend(); ++it) {
        if (QCoreApplication::installTranslator(it->get()))
            installed.push_back(std::move(*it));
    }
    return installed;
}

std::vector<std::unique_ptr<QTranslator>> installForApplication()
{
    const QStringList languages =
        preferredLanguages(Settings::shared().stringValue(u"Locale"_s), QLocale::system().uiLanguages());
    // Qt's standard buttons and dialogs first, so that Captora's tables are asked before them.
    std::vector<std::unique_ptr<QTranslator>> installed =
        install(languages, QLibraryInfo::path(QLibraryInfo::TranslationsPath), u"qtbase"_s);
    std::vector<std::unique_ptr<QTranslator>> captora =
        install(languages, translationsDirectory(), u"captora"_s);
    // Language names (the language pop-up, "English Subtitle") come in the language the
    // menus are in: the most preferred table found, installed last; English without one.
    LocaleNames::setInterfaceLanguage(captora.empty() ? u"en"_s
                                                      : captora.back()->language().replace(u'-', u'_'));
    for (auto &translator : captora)
        installed.push_back(std::move(translator));
    return installed;
}

} // namespace InterfaceLanguage

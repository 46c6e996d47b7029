#include "CTFileHelper.h"

#include "FileNames.h"
#include "LocaleNames.h"
#include "PropertyList.h"
#include "Resources.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

const QStringList &CTFileHelper::subtitleExtensions()
{
    static const QStringList extensions{u"srt"_s, u"sub"_s, u"ass"_s, u"ssa"_s, u"txt"_s};
    return extensions;
}

QString CTFileHelper::localeForLanguageCode(const QString &code)
{
    // Read once; a missing resource leaves the map empty and callers use the raw code.
    static const QVariantMap map = PropertyList::readFile(resourcePath(u"ISO639-2ToLocale.plist"_s)).toMap();
    const auto it = map.constFind(code);
    return it == map.cend() ? QString() : it->toString();
}

QString CTFileHelper::pathWithBase(const QString &base, const QString &extension, const QString &compare)
{
    if (base.isEmpty())
        return u""_s;
    QString candidate = base + u'.' + extension;
    for (qint64 n = 1; pathExists(candidate) && candidate != compare; ++n)
        candidate = base + u"-%1.%2"_s.arg(n).arg(extension);
    return candidate;
}

LanguageList CTFileHelper::languagesAtBasePath(const QString &base)
{
    LanguageList languages;
    if (base.isEmpty())
        return languages;
    const QFileInfo baseInfo(base);
    const QDir folder = baseInfo.dir();
    const QString name = baseInfo.fileName();
    const QStringList entries =
        folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString &entry : entries) {
        if (!entry.contains(name) || pathExtension(entry).toLower() != u"srt"_s)
            continue;
        languages.append(CTLanguage::languageWithFile(folder.filePath(entry), base));
    }
    return languages;
}

QString CTFileHelper::chapterMarksPath(const QString &base)
{
    return base + u".vtt"_s;
}

QString CTFileHelper::lastPathComponent(const QString &path)
{
    QStringView view(path);
    while (view.size() > 1 && view.endsWith(u'/'))
        view.chop(1);
    const qsizetype slash = view.lastIndexOf(u'/');
    return (slash < 0 || view.size() == 1 ? view : view.sliced(slash + 1)).toString();
}

QString CTFileHelper::pathExtension(const QString &path)
{
    const QString last = lastPathComponent(path);
    const qsizetype dot = last.lastIndexOf(u'.');
    return dot <= 0 ? QString() : last.mid(dot + 1);
}

QString CTFileHelper::stringByDeletingPathExtension(const QString &path)
{
    const QString extension = pathExtension(path);
    if (extension.isNull())
        return path;
    QString trimmed = path;
    while (trimmed.size() > 1 && trimmed.endsWith(u'/'))
        trimmed.chop(1);
    return trimmed.left(trimmed.size() - extension.size() - 1);
}

QString CTFileHelper::stringByDeletingLocaleAndPathExtension(const QString &path)
{
    const QString withoutExtension = stringByDeletingPathExtension(path);
    const QString locale = pathExtension(withoutExtension);
    if (!locale.isEmpty() && LocaleNames::isLocale(locale))
        return stringByDeletingPathExtension(withoutExtension);
    return withoutExtension;
}

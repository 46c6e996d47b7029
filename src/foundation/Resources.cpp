#include "Resources.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

QString resourceDirectory()
{
    static const QString directory = [] {
        QStringList candidates;
        if (const QString env = qEnvironmentVariable("CAPTORA_RESOURCES"); !env.isEmpty())
            candidates << env;
        const QString programDir = QCoreApplication::instance()
                                       ? QCoreApplication::applicationDirPath()
                                       : QFileInfo(u"/proc/self/exe"_s).canonicalPath();
        candidates << programDir + u"/resources"_s << programDir + u"/../share/captora"_s
                   << QString::fromUtf8(CAPTORA_SOURCE_RESOURCES);
        for (const QString &candidate : std::as_const(candidates)) {
            if (QFileInfo(candidate).isDir())
                return QDir(candidate).canonicalPath();
        }
        return QString::fromUtf8(CAPTORA_SOURCE_RESOURCES);
    }();
    return directory;
}

QString resourcePath(const QString &relative)
{
    return resourceDirectory() + u'/' + relative;
}

#include "Resources.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {
// Whether a folder lies inside another (both canonical, so no "..", no links).
bool isInside(const QString &folder, const QString &outer)
{
    return !outer.isEmpty() && (folder == outer || folder.startsWith(outer + u'/'));
}
} // namespace

QString resourceDirectory()
{
    static const QString directory = [] {
        QStringList candidates;
        if (const QString env = qEnvironmentVariable("CAPTORA_RESOURCES"); !env.isEmpty())
            candidates << env;
        const QString programDir = QCoreApplication::instance()
                                       ? QCoreApplication::applicationDirPath()
                                       : QFileInfo(u"/proc/self/exe"_s).canonicalPath();
        // An installed program: its data folder lies at a fixed place relative to its binary
        // ("../share/captora" from "bin"), so the installed tree can be moved as a whole.
        const QString installed =
            QDir::cleanPath(programDir + u'/' + QString::fromUtf8(CAPTORA_INSTALLED_RESOURCES_FROM_BIN));
        candidates << programDir + u"/resources"_s << installed;
        // A program run from the build tree uses the source tree's resources; an installed
        // copy never looks there, so a package that lacks its data fails visibly.
        const QString buildTree = QFileInfo(QString::fromUtf8(CAPTORA_BUILD_TREE)).canonicalFilePath();
        if (isInside(QFileInfo(programDir).canonicalFilePath(), buildTree))
            candidates << QString::fromUtf8(CAPTORA_SOURCE_RESOURCES);
        for (const QString &candidate : std::as_const(candidates)) {
            if (QFileInfo(candidate).isDir())
                return QDir(candidate).canonicalPath();
        }
        return installed;
    }();
    return directory;
}

QString resourcePath(const QString &relative)
{
    return resourceDirectory() + u'/' + relative;
}

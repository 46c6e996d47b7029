#include "Resources.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {
QString findResourceDirectory()
{
    const QString fromEnvironment = qEnvironmentVariable("CAPTORA_RESOURCES");
    if (!fromEnvironment.isEmpty() && QFileInfo(fromEnvironment).isDir())
        return QDir(fromEnvironment).absolutePath();

    // The program's own path, also where no QCoreApplication exists (tests, tools).
    const QString program = QFileInfo(u"/proc/self/exe"_s).symLinkTarget();
    if (!program.isEmpty()) {
        const QString installed = QFileInfo(program).absolutePath() + u"/../share/captora"_s;
        if (QFileInfo(installed).isDir())
            return QDir(installed).absolutePath();
    }
    return QStringLiteral(CAPTORA_SOURCE_RESOURCES);
}
} // namespace

QString resourceDirectory()
{
    static const QString directory = findResourceDirectory();
    return directory;
}

QString resourcePath(const QString &relative)
{
    return resourceDirectory() + u'/' + relative;
}

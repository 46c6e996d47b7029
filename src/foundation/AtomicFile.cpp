#include "AtomicFile.h"

#include <QFileInfo>
#include <QSaveFile>

using namespace Qt::StringLiterals;

bool writeFileAtomically(const QString &path, const QByteArray &data, QString *error)
{
    auto fail = [&](const QString &reason) {
        if (error)
            *error = reason;
        return false;
    };
    if (QFileInfo(path).isDir())
        return fail(u"'%1' is a folder"_s.arg(path));

    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return fail(file.errorString());
    if (file.write(data) != data.size()) {
        const QString reason = file.errorString();
        file.cancelWriting();
        return fail(reason);
    }
    if (!file.commit())
        return fail(file.errorString());
    return true;
}

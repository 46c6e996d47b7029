#pragma once

#include <QByteArray>
#include <QString>

// Writes `data` to `path` through a temporary file in the same folder that is renamed over
// the target only once everything was written and flushed. On failure the old file is left
// as it was, no temporary file stays behind, and `error` (if given) receives the reason.
bool writeFileAtomically(const QString &path, const QByteArray &data, QString *error = nullptr);

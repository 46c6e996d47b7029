#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

// XML property lists, as the program's resources and stores keep them: dict (QVariantMap),
// array (QVariantList), string, integer (qint64), real (double), true/false (bool),
// data (QByteArray) and date (QDateTime). Read and written with a real XML parser.
namespace PropertyList {

// Containers (dict, array) nest at most this deep; a deeper file is not a property list the
// program wrote, and reading it must not exhaust the stack.
inline constexpr int MaxDepth = 256;

// The root object of the list, or an invalid QVariant (with `error` set) when the text is
// not a well-formed property list.
QVariant fromXml(const QByteArray &xml, QString *error = nullptr);
// Reads a regular file of at most 32 MB; anything else is refused with the reason.
QVariant readFile(const QString &path, QString *error = nullptr);

QByteArray toXml(const QVariant &root);
// Writes atomically; false with `error` set when the file could not be written.
bool writeFile(const QString &path, const QVariant &root, QString *error = nullptr);

} // namespace PropertyList

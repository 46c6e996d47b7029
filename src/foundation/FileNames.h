#pragma once

#include <QByteArray>
#include <QString>

// File names as the system keeps them are bytes; Captora keeps them in QStrings. Qt maps
// bytes that are not UTF-8 to U+FFFD, so such a name could be shown but never opened again.
// These two functions are the one mapping every file open and write of the core uses, and
// the command line's argument decoding: valid UTF-8 becomes its characters, every byte that
// is not part of valid UTF-8 becomes the lone surrogate U+DC00 + byte (U+DC80..U+DCFF), and
// encoding turns those surrogates back into the same bytes. So decode then encode gives back
// the bytes exactly, for any name.
QString decodeFileName(const QByteArray &bytes);
QByteArray encodeFileName(const QString &name);

// The system's description of an errno value in English ("No space left on device").
QString errnoText(int error);

// The few operations on names the program does besides reading and writing, through the
// same mapping. pathExists() is true when the name is there at all, whatever it is (a
// dangling or looping link too): such a name is taken, and reading it says what is wrong.
bool pathExists(const QString &path);
bool removeFile(const QString &path);
// Moves `from` to `to` unless `to` exists already.
bool renameFile(const QString &from, const QString &to);

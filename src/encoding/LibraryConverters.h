#pragma once

#include <QByteArray>
#include <QString>

// Strict conversions through ICU and glibc iconv, by converter name. Converters are opened
// once per thread and name and kept for the life of the thread (opening one is far slower
// than a conversion), so every function is safe to call from any thread.
namespace LibraryConverters {
enum class Result { Ok, Invalid, Unavailable };

Result icuDecode(const char *name, const QByteArray &bytes, QString *text);
Result icuEncode(const char *name, QStringView text, QByteArray *bytes);
// Whether ICU's converter maps every byte on its own to one character (no state, no
// multi-byte sequences).
bool icuIsSingleByte(const char *name);

Result iconvDecode(const char *name, const QByteArray &bytes, QString *text);
Result iconvEncode(const char *name, QStringView text, QByteArray *bytes);
} // namespace LibraryConverters

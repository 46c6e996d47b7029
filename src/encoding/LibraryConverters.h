#pragma once

#include <QByteArray>
#include <QString>

#include <array>

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
// The character of each byte on its own through ICU's converter: the one UTF-16 unit it
// decodes to, `none` where it does not decode or gives more than one unit. False when ICU
// has no such converter. The same as decoding each byte alone, without a text per byte.
bool icuByteUnits(const char *name, std::array<char16_t, 256> *units, char16_t none);

Result iconvDecode(const char *name, const QByteArray &bytes, QString *text);
Result iconvEncode(const char *name, QStringView text, QByteArray *bytes);
} // namespace LibraryConverters

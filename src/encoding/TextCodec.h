#pragma once

#include <QByteArray>
#include <QString>

// Text encodings are named by fixed numbers (the identifiers of the encoding catalogue,
// stored in rules files and settings). 0 means "none given".
using EncodingId = quint32;

namespace Encodings {
inline constexpr EncodingId None = 0;
inline constexpr EncodingId UTF8 = 4;
} // namespace Encodings

// Converts between bytes and text in a numbered encoding. Decoding is strict: bytes that
// are not valid in the encoding fail the decoding rather than turning into replacement
// characters. Encoding fails when a character has no representation in the encoding.
class TextCodec
{
public:
    static bool isSupported(EncodingId encoding);

    static bool decode(const QByteArray &bytes, EncodingId encoding, QString *text, QString *error = nullptr);
    static bool encode(const QString &text, EncodingId encoding, QByteArray *bytes, QString *error = nullptr);

    // What the loader tries before any guessing: a byte-order mark (UTF-8, UTF-16 LE/BE,
    // UTF-32 LE/BE), else strictly valid UTF-8. Reports the encoding it used.
    static bool decodeAutomatically(const QByteArray &bytes, QString *text, EncodingId *used);
};

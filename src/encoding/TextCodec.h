#pragma once

#include "EncodingTable.h"

#include <QByteArray>
#include <QString>

#include <array>

// Converts between bytes and text in a numbered encoding. Decoding is strict: bytes that
// are not valid in the encoding fail the decoding rather than turning into replacement
// characters. Encoding fails when a character has no representation in the encoding.
// Every function is safe to call from any thread.
//
// UTF-16 and UTF-32 (without "BE"/"LE") take their byte order from a leading byte-order
// mark; without one they read little-endian, the order of the files that really come
// without a mark (written on Windows and Linux PCs). They write a mark and little-endian.
class TextCodec
{
public:
    static bool isSupported(EncodingId encoding);
    // The catalogue name of the encoding, else its converter's name ("KOI8-R"), else its number.
    static QString displayName(EncodingId encoding);

    static bool decode(const QByteArray &bytes, EncodingId encoding, QString *text, QString *error = nullptr);
    static bool encode(const QString &text, EncodingId encoding, QByteArray *bytes, QString *error = nullptr);

    // What the loader tries before any guessing: a byte-order mark (UTF-8, UTF-16 LE/BE,
    // UTF-32 LE/BE); else UTF-32 or UTF-16 without a mark, when the zero bytes stand where
    // one byte order puts them and the decoding is valid; else ISO-2022-JP, when seven-bit
    // bytes hold its escape sequences; else strictly valid UTF-8. Reports the encoding used.
    static bool decodeAutomatically(const QByteArray &bytes, QString *text, EncodingId *used);

    // For an encoding that maps every byte on its own to one UTF-16 code unit: the unit of
    // each byte, kNoUnit where the byte is not valid. nullptr for any other encoding.
    // The table lives as long as the process.
    static constexpr char16_t kNoUnit = 0xFFFF;
    using ByteTable = std::array<char16_t, 256>;
    static const ByteTable *singleByteTable(EncodingId encoding);
};

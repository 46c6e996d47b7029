#pragma once

#include "FileReadError.h"
#include "TextCodec.h"

#include <QByteArray>

#include <array>
#include <map>
#include <optional>

// One file's bytes and what the testers need of them: its decodings, made once per
// encoding however many testers share that encoding, and, for single-byte encodings, the
// count of each byte value (a score there needs no decoding at all).
class DecodedFile
{
public:
    // Reads the whole file; on failure error() says why and every decoding fails.
    static DecodedFile read(const QString &path);
    DecodedFile(QByteArray bytes, const QString &path);

    const QString &path() const { return m_path; }
    const QByteArray &bytes() const { return m_bytes; }
    const std::optional<FileReadError> &readError() const { return m_readError; }

    using ByteCounts = std::array<qint64, 256>;
    const ByteCounts &byteCounts();

    // The text in `encoding`, or nullptr when the bytes are not text in it (then
    // decodingError() says why).
    const QString *text(EncodingId encoding);
    FileReadError decodingError(EncodingId encoding);
    // The length in UTF-16 units of the text in `encoding`, or none when the bytes are not
    // text in it; for an encoding that maps every byte to one unit it comes from the byte
    // counts, without making the text.
    std::optional<qsizetype> textLength(EncodingId encoding);

private:
    struct Decoding
    {
        std::optional<QString> text;
        QString problem;
    };
    Decoding &decoding(EncodingId encoding);

    QString m_path;
    QByteArray m_bytes;
    std::optional<FileReadError> m_readError;
    std::optional<ByteCounts> m_byteCounts;
    std::map<EncodingId, Decoding> m_decodings;
};

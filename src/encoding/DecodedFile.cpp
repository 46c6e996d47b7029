#include "DecodedFile.h"

#include "RegularFile.h"
#include "VHEncoding.h"

#include <cerrno>

using namespace Qt::StringLiterals;

FileReadError FileReadError::inapplicableEncoding(const QString &path, EncodingId encoding)
{
    FileReadError error;
    error.code = InapplicableStringEncoding;
    error.path = path;
    error.encoding = encoding;
    error.description = u"The file '%1' could not be read as text in the encoding '%2'."_s.arg(
        path, VHEncoding::nameForEncoding(encoding));
    return error;
}

DecodedFile::DecodedFile(QByteArray bytes, const QString &path)
    : m_path(path)
    , m_bytes(std::move(bytes))
{}

DecodedFile DecodedFile::read(const QString &path)
{
    RegularFile::Failure failure;
    std::optional<QByteArray> bytes = RegularFile::read(path, RegularFile::SubtitleLimit, &failure);
    if (bytes)
        return DecodedFile(std::move(*bytes), path);
    FileReadError error;
    error.path = path;
    switch (failure.errorNumber) {
    case ENOENT:
        error.code = FileReadError::NoSuchFile;
        error.description = u"The file '%1' does not exist."_s.arg(path);
        break;
    case EACCES:
    case EPERM:
        error.code = FileReadError::NoPermission;
        error.description = u"The file '%1' could not be opened: %2"_s.arg(path, failure.reason);
        break;
    default:
        error.description = u"The file '%1' could not be read: %2"_s.arg(path, failure.reason);
    }
    DecodedFile unreadable(QByteArray(), path);
    unreadable.m_readError = std::move(error);
    return unreadable;
}

const DecodedFile::ByteCounts &DecodedFile::byteCounts()
{
    if (!m_byteCounts) {
        // Four tables for neighbouring bytes: a run of one byte value (spaces, a letter
        // repeated) would otherwise wait on its own previous count at every step.
        std::array<std::array<qint64, 256>, 4> partial{};
        const auto *bytes = reinterpret_cast<const uchar *>(m_bytes.constData());
        const qsizetype n = m_bytes.size();
        qsizetype i = 0;
        for (; i + 4 <= n; i += 4) {
            ++partial[0][bytes[i]];
            ++partial[1][bytes[i + 1]];
            ++partial[2][bytes[i + 2]];
            ++partial[3][bytes[i + 3]];
        }
        for (; i < n; ++i)
            ++partial[0][bytes[i]];
        ByteCounts counts{};
        for (int b = 0; b < 256; ++b)
            counts[b] = partial[0][b] + partial[1][b] + partial[2][b] + partial[3][b];
        m_byteCounts = counts;
    }
    return *m_byteCounts;
}

DecodedFile::Decoding &DecodedFile::decoding(EncodingId encoding)
{
    auto it = m_decodings.find(encoding);
    if (it == m_decodings.end()) {
        Decoding made;
        QString text;
        if (!m_readError && TextCodec::decode(m_bytes, encoding, &text, &made.problem))
            made.text = std::move(text);
        it = m_decodings.emplace(encoding, std::move(made)).first;
    }
    return it->second;
}

const QString *DecodedFile::text(EncodingId encoding)
{
    const Decoding &made = decoding(encoding);
    return made.text ? &*made.text : nullptr;
}

std::optional<qsizetype> DecodedFile::textLength(EncodingId encoding)
{
    if (m_readError)
        return std::nullopt;
    if (m_decodings.find(encoding) == m_decodings.end()) {
        if (const TextCodec::ByteTable *units = TextCodec::singleByteTable(encoding)) {
            const ByteCounts &counts = byteCounts();
            for (int b = 0; b < 256; ++b) {
                if (counts[b] > 0 && (*units)[b] == TextCodec::kNoUnit)
                    return std::nullopt;
            }
            return m_bytes.size();
        }
    }
    const QString *decoded = text(encoding);
    return decoded ? std::optional<qsizetype>(decoded->size()) : std::nullopt;
}

FileReadError DecodedFile::decodingError(EncodingId encoding)
{
    if (m_readError)
        return *m_readError;
    FileReadError error = FileReadError::inapplicableEncoding(m_path, encoding);
    const QString &problem = decoding(encoding).problem;
    if (!problem.isEmpty())
        error.description += u' ' + problem;
    return error;
}

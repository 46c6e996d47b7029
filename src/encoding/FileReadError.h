#pragma once

#include "EncodingTable.h"

#include <QString>

// Why a file could not be read as text: a code of the file-reading domain, the file and
// the encoding it was read in, and a description for people.
struct FileReadError
{
    static inline const QString kDomain = QStringLiteral("CaptoraFileReadingErrorDomain");
    enum Code {
        UnknownReadError = 256,
        NoPermission = 257,
        NoSuchFile = 260,
        InapplicableStringEncoding = 261, // not text in that encoding, or no encoding fits
    };

    QString domain = kDomain;
    int code = UnknownReadError;
    QString path;
    EncodingId encoding = Encodings::None;
    QString description;

    // The file's bytes do not make text in `encoding` (or no encoding was found).
    static FileReadError inapplicableEncoding(const QString &path, EncodingId encoding);
};

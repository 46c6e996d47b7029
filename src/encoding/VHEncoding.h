#pragma once

#include "EncodingTable.h"

#include <QList>
#include <QString>

#include <optional>

// One entry of the catalogue of encodings offered to the user: a display name and the
// encoding number (historically called the code page; it is not a Windows code page
// number). The catalogue also holds one separator entry, which has no number.
class VHEncoding
{
public:
    static VHEncoding encodingWithName(const QString &name, EncodingId codePage);
    static VHEncoding separator();

    // The name of the first catalogue row with this number, "Automatic" for 0 and
    // "unknown encoding" for a number the catalogue lacks. Where two rows share a number
    // the earlier one names it ("Window Latin 1", never "Windows CP1252").
    static QString nameForEncoding(EncodingId codePage);

    // The number of the first catalogue row with this exact name.
    static std::optional<EncodingId> encodingForName(QStringView name);

    // The whole catalogue in order, separator included; built once, immutable, safe to
    // read from any thread.
    static const QList<VHEncoding> &catalogue();

    const QString &name() const { return m_name; }
    EncodingId codePage() const { return m_codePage; }
    bool isSeparator() const { return m_separator; }

private:
    VHEncoding(const QString &name, EncodingId codePage, bool separator);

    QString m_name;
    EncodingId m_codePage = Encodings::None;
    bool m_separator = false;
};

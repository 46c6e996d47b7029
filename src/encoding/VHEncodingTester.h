#pragma once

#include "EncodingTable.h"
#include "WeightTable.h"

#include <QHash>
#include <QString>

#include <memory>

class DecodedFile;

// The rules of one language in one encoding, read from a rules file: the encoding to
// decode a file in, and weighted lists of characters typical of the language ("good") and
// of characters that betray a wrong decoding ("bad"). Immutable once read; its const
// members are safe to call from any thread.
//
// Scoring logs one line "Character '<c>'" for every occurrence of a bad character, through
// logLine(), while the logging category "captora.encoding.characters" is enabled (the
// default). The lines are only formatted when they are logged; programs that score many
// files in bulk may switch the category off with QLoggingCategory::setFilterRules().
class VHEncodingTester
{
public:
    // Reads the rules file at `path`. None when the file cannot be read as UTF-8, after the
    // line "Could not read encoding file (<path>), because '<why>'".
    static std::unique_ptr<VHEncodingTester> encodingTesterFor(const QString &path);
    // The same for rules already in memory; `path` only names them in log lines.
    static std::unique_ptr<VHEncodingTester> encodingTesterFromData(const QByteArray &utf8,
                                                                    const QString &path);

    // The score of the file at `path` decoded in stringEncoding(): the good weights of its
    // code units minus the bad ones; 0 when it does not decode or cannot be read.
    double testFile(const QString &path) const;
    // The same for a file already read; shares decodings with other testers of the file.
    double score(DecodedFile &file) const;
    // The score of a text already decoded.
    double scoreText(QStringView text) const;

    // The rules file it was read from.
    const QString &path() const { return m_path; }
    const QString &name() const { return m_name; }
    const QString &locale() const { return m_locale; }
    double goodFactor() const { return m_goodFactor; }
    double badFactor() const { return m_badFactor; }
    EncodingId stringEncoding() const { return m_stringEncoding; }
    // The weights as the rules file gives them, without the factors.
    QHash<char16_t, double> good() const;
    QHash<char16_t, double> bad() const;

    // "Encoding '<name>' (<encoding number>) <VHEncodingTester: 0x...>"
    QString description() const;

private:
    VHEncodingTester() = default;
    VHEncodingTester(const VHEncodingTester &) = delete;
    VHEncodingTester &operator=(const VHEncodingTester &) = delete;
    enum class Section { None, Good, Bad };
    void parse(QStringView rules);
    Section parseKeyLine(QStringView line, qsizetype colon, Section section);
    double scoreByteCounts(DecodedFile &file, const std::array<char16_t, 256> &units) const;
    void logBadCharacters(QStringView text, qint64 occurrences) const;

    QString m_path;
    QString m_name;
    QString m_locale;
    double m_goodFactor = 1.0;
    double m_badFactor = 1.0;
    EncodingId m_stringEncoding = Encodings::None;
    std::unique_ptr<WeightTable> m_weights;
};

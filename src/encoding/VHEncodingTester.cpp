#include "VHEncodingTester.h"

#include "DecodedFile.h"
#include "Log.h"
#include "RegularFile.h"
#include "TextCodec.h"

#include <QLoggingCategory>
#include <QStringTokenizer>

#include <algorithm>
#include <charconv>

using namespace Qt::StringLiterals;

Q_LOGGING_CATEGORY(lcBadCharacters, "captora.encoding.characters")

namespace {
// The number at the start of `text`, as C's strtod reads it in the C locale but without
// hexadecimal, infinity or NaN: leading white space skipped, anything after the number
// ignored, 0 when there is none.
double leadingDouble(QStringView text)
{
    qsizetype i = 0;
    const qsizetype n = text.size();
    while (i < n && text[i].isSpace())
        ++i;
    const qsizetype start = i;
    auto digits = [&] {
        const qsizetype from = i;
        while (i < n && text[i] >= u'0' && text[i] <= u'9')
            ++i;
        return i - from;
    };
    if (i < n && (text[i] == u'+' || text[i] == u'-'))
        ++i;
    qsizetype mantissa = digits();
    if (i < n && text[i] == u'.') {
        ++i;
        mantissa += digits();
    }
    if (mantissa == 0)
        return 0;
    qsizetype end = i;
    if (i < n && (text[i] == u'e' || text[i] == u'E')) {
        ++i;
        if (i < n && (text[i] == u'+' || text[i] == u'-'))
            ++i;
        if (digits() > 0)
            end = i;
    }
    // The characters are ASCII here; std::from_chars reads them without any locale.
    char ascii[64];
    const qsizetype length = std::min<qsizetype>(end - start, sizeof ascii);
    for (qsizetype k = 0; k < length; ++k)
        ascii[k] = char(text[start + k].unicode());
    const char *first = ascii[0] == '+' ? ascii + 1 : ascii;
    double value = 0;
    std::from_chars(first, ascii + length, value);
    return value;
}

// The run of decimal digits at the start of `text`, 0 when there is none; a value beyond
// the range of encoding numbers names no encoding.
EncodingId leadingInteger(QStringView text)
{
    quint64 value = 0;
    for (const QChar c : text) {
        if (c < u'0' || c > u'9')
            break;
        value = std::min<quint64>(value * 10 + (c.unicode() - u'0'), 0xFFFFFFFFull + 1);
    }
    return value > 0xFFFFFFFFull ? Encodings::None : Encodings::canonical(EncodingId(value));
}
} // namespace

std::unique_ptr<VHEncodingTester> VHEncodingTester::encodingTesterFor(const QString &path)
{
    RegularFile::Failure failure;
    const std::optional<QByteArray> bytes = RegularFile::read(path, RegularFile::RulesLimit, &failure);
    if (!bytes) {
        logLine(u"Could not read encoding file (%1), because '%2'"_s.arg(path, failure.reason));
        return nullptr;
    }
    return encodingTesterFromData(*bytes, path);
}

std::unique_ptr<VHEncodingTester> VHEncodingTester::encodingTesterFromData(const QByteArray &utf8,
                                                                           const QString &path)
{
    QString rules;
    QString problem;
    if (!TextCodec::decode(utf8, Encodings::UTF8, &rules, &problem)) {
        logLine(u"Could not read encoding file (%1), because '%2'"_s.arg(path, problem));
        return nullptr;
    }
    std::unique_ptr<VHEncodingTester> tester(new VHEncodingTester);
    tester->m_path = path;
    tester->parse(rules);
    return tester;
}

void VHEncodingTester::parse(QStringView rules)
{
    enum class Section { None, Good, Bad };
    Section section = Section::None;
    const qsizetype lines = rules.count(u'\n');
    m_good.reserve(lines);
    m_bad.reserve(lines / 2);
    for (const QStringView line : QStringTokenizer(rules, u'\n')) {
        if (line.trimmed().isEmpty())
            continue;
        // Log lines show the line without the carriage return of a CR/LF file.
        const QStringView shown = line.endsWith(u'\r') ? line.chopped(1) : line;

        // A key line has its ':' at position 1 or later; a ':' at position 0 is the
        // character of a character line.
        const qsizetype colon = line.indexOf(u':');
        if (colon >= 1) {
            const QString key = line.first(colon).toString().toLower();
            const QStringView value = line.sliced(colon + 1).trimmed();
            if (key == u"name"_s) {
                m_name = value.toString();
            } else if (key == u"locale"_s) {
                m_locale = value.toString();
            } else if (key == u"nsstring"_s) {
                m_stringEncoding = leadingInteger(value);
            } else if (key == u"goodfactor"_s) {
                m_goodFactor = leadingDouble(value);
            } else if (key == u"badfactor"_s) {
                m_badFactor = leadingDouble(value);
            } else if (key == u"good"_s) {
                section = Section::Good;
                continue;
            } else if (key == u"bad"_s) {
                section = Section::Bad;
                continue;
            } else {
                continue; // unknown keys leave the section as it is
            }
            section = Section::None;
            continue;
        }

        const qsizetype tab = line.indexOf(u'\t');
        if (tab < 1) {
            logLine(u"Unparsable line: '%1'"_s.arg(logExcerpt(shown)));
            continue;
        }
        if (section == Section::None) {
            logLine(u"Unparsable line (neither in 'good' or 'bad' status): '%1'"_s.arg(logExcerpt(shown)));
            continue;
        }
        QStringView weight = line.sliced(tab + 1);
        if (const qsizetype end = weight.indexOf(u'\t'); end >= 0)
            weight = weight.first(end);
        (section == Section::Good ? m_good : m_bad).insert(line[tab - 1].unicode(), leadingDouble(weight));
    }

    QList<char16_t> both;
    for (auto it = m_good.cbegin(); it != m_good.cend(); ++it) {
        if (m_bad.contains(it.key()))
            both.append(it.key());
    }
    std::sort(both.begin(), both.end());
    for (const char16_t unit : std::as_const(both))
        logLine(u"Good Unicode is also bad: %1"_s.arg(QChar(unit)));

    m_weights = std::make_unique<WeightTable>(m_good, m_goodFactor, m_bad, m_badFactor);
}

double VHEncodingTester::testFile(const QString &path) const
{
    DecodedFile file = DecodedFile::read(path);
    return score(file);
}

double VHEncodingTester::score(DecodedFile &file) const
{
    if (file.readError())
        return 0;
    // A single-byte file is scored from its byte counts when the sum is exact in integers.
    const TextCodec::ByteTable *units = TextCodec::singleByteTable(m_stringEncoding);
    if (units && m_weights->isExactFor(file.bytes().size()))
        return scoreByteCounts(file, *units);
    const QString *text = file.text(m_stringEncoding);
    return text ? scoreText(*text) : 0;
}

double VHEncodingTester::scoreByteCounts(DecodedFile &file, const std::array<char16_t, 256> &units) const
{
    const DecodedFile::ByteCounts &counts = file.byteCounts();
    qint64 sum = 0;
    qint64 badOccurrences = 0;
    for (int b = 0; b < 256; ++b) {
        if (counts[b] == 0)
            continue;
        if (units[b] == TextCodec::kNoUnit)
            return 0; // not text in this encoding
        sum += counts[b] * m_weights->scaledNet(units[b]);
        if (m_weights->isBad(units[b]))
            badOccurrences += counts[b];
    }
    if (badOccurrences > 0 && lcBadCharacters().isInfoEnabled()) {
        const QString *text = file.text(m_stringEncoding);
        logBadCharacters(*text, badOccurrences);
    }
    return m_weights->unscale(sum);
}

double VHEncodingTester::scoreText(QStringView text) const
{
    qint64 badOccurrences = 0;
    double score = 0;
    if (m_weights->isExactFor(text.size())) {
        qint64 sum = 0;
        for (const QChar c : text) {
            sum += m_weights->scaledNet(c.unicode());
            badOccurrences += m_weights->isBad(c.unicode());
        }
        score = m_weights->unscale(sum);
    } else {
        double good = 0;
        double bad = 0;
        for (const QChar c : text) {
            double goodWeight = 0;
            double badWeight = 0;
            m_weights->weights(c.unicode(), &goodWeight, &badWeight);
            good += goodWeight;
            bad += badWeight;
            badOccurrences += m_weights->isBad(c.unicode());
        }
        score = good - bad;
    }
    if (badOccurrences > 0 && lcBadCharacters().isInfoEnabled())
        logBadCharacters(text, badOccurrences);
    return score;
}

void VHEncodingTester::logBadCharacters(QStringView text, qint64 occurrences) const
{
    QChar last;
    QString line;
    for (const QChar c : text) {
        if (!m_weights->isBad(c.unicode()))
            continue;
        if (line.isEmpty() || c != last) {
            last = c;
            line = u"Character '%1'"_s.arg(c);
        }
        logLine(line);
        if (--occurrences == 0)
            break;
    }
}

QString VHEncodingTester::description() const
{
    return u"Encoding '%1' (%2) <VHEncodingTester: 0x%3>"_s.arg(m_name, QString::number(m_stringEncoding),
                                                                QString::number(quintptr(this), 16));
}

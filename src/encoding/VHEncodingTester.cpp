#include "VHEncodingTester.h"

#include "DecodedFile.h"
#include "Log.h"
#include "RegularFile.h"
#include "TextCodec.h"

#include <QLoggingCategory>

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
    const bool negative = i < n && text[i] == u'-';
    if (i < n && (text[i] == u'+' || text[i] == u'-'))
        ++i;
    const qsizetype integerStart = i;
    qsizetype mantissa = digits();
    qsizetype fractionStart = i;
    qsizetype fraction = 0;
    if (i < n && text[i] == u'.') {
        ++i;
        fractionStart = i;
        fraction = digits();
        mantissa += fraction;
    }
    if (mantissa == 0)
        return 0;
    const bool exponent = i < n && (text[i] == u'e' || text[i] == u'E');

    // The weights of rules files are short decimals: up to 15 digits make an integer below
    // 2^53, and a power of ten up to 10^22 is exact, so one division of the two is correctly
    // rounded, which is what strtod gives.
    static constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                              1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                              1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    if (!exponent && mantissa <= 15) {
        quint64 value = 0;
        for (qsizetype k = integerStart; k < fractionStart + fraction; ++k) {
            if (text[k] != u'.')
                value = value * 10 + (text[k].unicode() - u'0');
        }
        const double result = double(value) / kPowersOfTen[fraction];
        return negative ? -result : result;
    }

    qsizetype end = i;
    if (exponent) {
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

// The list in unit order, each unit once: a later line for a unit replaces an earlier one.
std::vector<WeightTable::Weight> byUnit(std::vector<WeightTable::Weight> list)
{
    const auto before = [](const WeightTable::Weight &a, const WeightTable::Weight &b) {
        return a.unit < b.unit;
    };
    if (std::adjacent_find(list.begin(), list.end(),
                           [](const auto &a, const auto &b) { return a.unit >= b.unit; }) == list.end())
        return list; // generated files list each unit once, in order
    std::stable_sort(list.begin(), list.end(), before);
    auto kept = list.begin();
    for (auto it = list.begin(); it != list.end(); ++it) {
        if (std::next(it) == list.end() || std::next(it)->unit != it->unit)
            *kept++ = *it;
    }
    list.erase(kept, list.end());
    return list;
}

QHash<char16_t, double> hashOf(const std::vector<WeightTable::Weight> &list)
{
    QHash<char16_t, double> hash;
    hash.reserve(qsizetype(list.size()));
    for (const WeightTable::Weight &weight : list)
        hash.insert(weight.unit, weight.weight);
    return hash;
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
    Section section = Section::None;
    std::vector<WeightTable::Weight> good;
    std::vector<WeightTable::Weight> bad;
    good.reserve(size_t(rules.size() / 8)); // a line is "c<tab>0.625<newline>" or longer

    QStringView lastWeightText;
    double lastWeight = 0;
    // One pass over each line finds its end, its first ':' and its first tab.
    const char16_t *const text = rules.utf16();
    const qsizetype n = rules.size();
    for (qsizetype start = 0; start <= n;) {
        qsizetype colon = -1;
        qsizetype tab = -1;
        qsizetype i = start;
        for (; i < n && text[i] != u'\n'; ++i) {
            if (text[i] == u':') {
                if (colon < 0)
                    colon = i - start;
            } else if (text[i] == u'\t' && tab < 0) {
                tab = i - start;
            }
        }
        const QStringView line(text + start, i - start);
        start = i + 1;
        // Not empty when either end is printable ASCII, as the weight at the end of most
        // lines is: only other lines need trimming.
        const auto printable = [&](qsizetype at) { return line[at] > u' ' && line[at] < u'\x7F'; };
        if (line.isEmpty() || (!printable(0) && !printable(line.size() - 1) && line.trimmed().isEmpty()))
            continue;
        // Log lines show the line without the carriage return of a CR/LF file.
        const auto shown = [&] { return line.endsWith(u'\r') ? line.chopped(1) : line; };

        // A key line has its ':' at position 1 or later; a ':' at position 0 is the
        // character of a character line.
        if (colon >= 1) {
            section = parseKeyLine(line, colon, section);
            continue;
        }
        if (tab < 1) {
            logLine(u"Unparsable line: '%1'"_s.arg(logExcerpt(shown())));
            continue;
        }
        if (section == Section::None) {
            logLine(u"Unparsable line (neither in 'good' or 'bad' status): '%1'"_s.arg(logExcerpt(shown())));
            continue;
        }
        qsizetype weightEnd = tab + 1;
        while (weightEnd < line.size() && line[weightEnd] != u'\t')
            ++weightEnd;
        const QStringView weight = line.sliced(tab + 1, weightEnd - tab - 1);
        // Runs of lines share a weight (every ASCII character has the same one): read once.
        if (weight != lastWeightText) {
            lastWeightText = weight;
            lastWeight = leadingDouble(weight);
        }
        (section == Section::Good ? good : bad).push_back({line[tab - 1].unicode(), lastWeight});
    }
    good = byUnit(std::move(good));
    bad = byUnit(std::move(bad));

    // Both lists are in unit order: the characters in both come out in that order.
    auto g = good.cbegin();
    auto b = bad.cbegin();
    while (g != good.cend() && b != bad.cend()) {
        if (g->unit < b->unit) {
            ++g;
        } else if (b->unit < g->unit) {
            ++b;
        } else {
            logLine(u"Good Unicode is also bad: %1"_s.arg(QChar(g->unit)));
            ++g;
            ++b;
        }
    }
    m_weights = std::make_unique<WeightTable>(std::move(good), m_goodFactor, std::move(bad), m_badFactor);
}

VHEncodingTester::Section VHEncodingTester::parseKeyLine(QStringView line, qsizetype colon, Section section)
{
    const QString key = line.first(colon).toString().toLower();
    const QStringView value = line.sliced(colon + 1).trimmed();
    if (key == u"name"_s)
        m_name = value.toString();
    else if (key == u"locale"_s)
        m_locale = value.toString();
    else if (key == u"nsstring"_s)
        m_stringEncoding = leadingInteger(value);
    else if (key == u"goodfactor"_s)
        m_goodFactor = leadingDouble(value);
    else if (key == u"badfactor"_s)
        m_badFactor = leadingDouble(value);
    else if (key == u"good"_s)
        return Section::Good;
    else if (key == u"bad"_s)
        return Section::Bad;
    else
        return section; // unknown keys leave the section as it is
    return Section::None;
}

QHash<char16_t, double> VHEncodingTester::good() const
{
    return hashOf(m_weights->good());
}

QHash<char16_t, double> VHEncodingTester::bad() const
{
    return hashOf(m_weights->bad());
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
        const WeightTable::Net net = m_weights->net(units[b]);
        sum += counts[b] * net.scaled;
        if (net.bad)
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
    const WeightTable::Pages &pages = m_weights->pages();
    qint64 badOccurrences = 0;
    double score = 0;
    if (m_weights->isExactFor(text.size())) {
        qint64 sum = 0;
        for (const QChar c : text) {
            sum += pages.scaledNet(c.unicode());
            badOccurrences += pages.isBad(c.unicode());
        }
        score = m_weights->unscale(sum);
    } else {
        double good = 0;
        double bad = 0;
        const bool paged = !m_weights->isExact();
        for (const QChar c : text) {
            double goodWeight = 0;
            double badWeight = 0;
            if (paged)
                pages.weights(c.unicode(), &goodWeight, &badWeight);
            else
                m_weights->weightsBySearch(c.unicode(), &goodWeight, &badWeight);
            good += goodWeight;
            bad += badWeight;
            badOccurrences += pages.isBad(c.unicode());
        }
        score = good - bad;
    }
    if (badOccurrences > 0 && lcBadCharacters().isInfoEnabled())
        logBadCharacters(text, badOccurrences);
    return score;
}

void VHEncodingTester::logBadCharacters(QStringView text, qint64 occurrences) const
{
    const WeightTable::Pages &pages = m_weights->pages();
    QChar last;
    QString line;
    for (const QChar c : text) {
        if (!pages.isBad(c.unicode()))
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

#include "WeightTable.h"

#include <cmath>

namespace {
constexpr int kMaxScaleBits = 30;
// Scaled weights stay below 2^31, so a byte count times a weight fits in 64 bits.
constexpr double kMaxScaledWeight = 2147483648.0;
// Every integer below 2^53 is a double.
constexpr double kExactLimit = 9007199254740992.0;
} // namespace

const WeightTable::Page *WeightTable::emptyPage()
{
    static const Page page{};
    return &page;
}

WeightTable::WeightTable(const QHash<char16_t, double> &good, double goodFactor,
                         const QHash<char16_t, double> &bad, double badFactor)
{
    m_pages.fill(emptyPage());
    for (auto it = good.begin(); it != good.end(); ++it)
        slot(it.key()).good = it.value() * goodFactor;
    for (auto it = bad.begin(); it != bad.end(); ++it) {
        Entry &entry = slot(it.key());
        entry.bad = it.value() * badFactor;
        entry.isBad = true;
    }
    chooseScale();
}

WeightTable::Entry &WeightTable::slot(char16_t unit)
{
    const int pageIndex = unit >> 8;
    if (m_pages[pageIndex] == emptyPage()) {
        m_owned.push_back(std::make_unique<Page>());
        m_pages[pageIndex] = m_owned.back().get();
    }
    // Only pages this table allocated are written; they are the ones in m_owned.
    return const_cast<Page *>(m_pages[pageIndex])->entries[unit & 0xFF];
}

void WeightTable::chooseScale()
{
    // The finest power of two any weight needs, and the largest weight.
    int bits = 0;
    double maxAbs = 0;
    for (const auto &page : m_owned) {
        for (const Entry &entry : page->entries) {
            for (const double weight : {entry.good, entry.bad}) {
                if (weight == 0)
                    continue;
                if (!std::isfinite(weight))
                    return;
                int exponent = 0;
                double mantissa = std::frexp(weight, &exponent); // weight = mantissa * 2^exponent
                int mantissaBits = 0;
                while (mantissa != std::trunc(mantissa) && mantissaBits <= 53) {
                    mantissa *= 2;
                    ++mantissaBits;
                }
                bits = std::max(bits, mantissaBits - exponent);
                maxAbs = std::max(maxAbs, std::abs(weight));
            }
        }
    }
    if (bits > kMaxScaleBits || std::ldexp(maxAbs, std::max(bits, 0)) >= kMaxScaledWeight)
        return;
    m_scaleBits = std::max(bits, 0);
    const double scale = std::ldexp(1.0, m_scaleBits);
    m_maxAbsScaled = maxAbs * scale;
    for (const auto &page : m_owned) {
        for (Entry &entry : page->entries)
            entry.scaledNet = qint64(entry.good * scale) - qint64(entry.bad * scale);
    }
}

bool WeightTable::isExactFor(qsizetype length) const
{
    // The good and the bad sums each stay below length * max, their difference below twice that.
    return m_scaleBits >= 0 && 2.0 * double(length) * m_maxAbsScaled < kExactLimit;
}

double WeightTable::unscale(qint64 scaledSum) const
{
    return std::ldexp(double(scaledSum), -m_scaleBits);
}

#include "WeightTable.h"

#include <cmath>

namespace {
constexpr int kMaxScaleBits = 30;
// Scaled weights stay below 2^31, so a byte count times a weight fits in 64 bits.
constexpr double kMaxScaledWeight = 2147483648.0;
// Every integer below 2^53 is a double.
constexpr double kExactLimit = 9007199254740992.0;

// The number of binary digits after the point that `weight` needs, or -1 when it is not
// finite.
int fractionBits(double weight)
{
    if (!std::isfinite(weight))
        return -1;
    int exponent = 0;
    double mantissa = std::frexp(weight, &exponent); // weight = mantissa * 2^exponent
    int bits = 0;
    while (mantissa != std::trunc(mantissa)) {
        mantissa *= 2;
        ++bits;
    }
    return std::max(bits - exponent, 0);
}

template <typename Page> const Page *emptyPage()
{
    static const Page page{};
    return &page;
}
} // namespace

template <typename Page>
Page &WeightTable::slot(std::array<const Page *, 256> &pages, std::vector<std::unique_ptr<Page>> &owned,
                        char16_t unit)
{
    const Page *&page = pages[unit >> 8];
    if (page == emptyPage<Page>()) {
        owned.push_back(std::make_unique<Page>());
        page = owned.back().get();
    }
    // Only pages this table allocated are written; they are the ones in `owned`.
    return *const_cast<Page *>(page);
}

WeightTable::WeightTable(const QHash<char16_t, double> &good, double goodFactor,
                         const QHash<char16_t, double> &bad, double badFactor)
    : m_good(good)
    , m_bad(bad)
    , m_goodFactor(goodFactor)
    , m_badFactor(badFactor)
{
    m_exact.fill(emptyPage<ExactPage>());
    m_double.fill(emptyPage<DoublePage>());
    m_isBad.fill(emptyPage<BadPage>());
    for (auto it = bad.begin(); it != bad.end(); ++it)
        slot(m_isBad, m_badPages, it.key()).set(it.key() & 0xFF);

    // The finest power of two any weight needs, and the largest weight.
    int bits = 0;
    double maxAbs = 0;
    for (const auto &[weights, factor] : {std::pair(&good, goodFactor), std::pair(&bad, badFactor)}) {
        for (const double weight : *weights) {
            const double product = weight * factor;
            const int needed = fractionBits(product);
            bits = needed < 0 ? kMaxScaleBits + 1 : std::max(bits, needed);
            maxAbs = std::max(maxAbs, std::abs(product));
        }
    }
    if (bits <= kMaxScaleBits && std::ldexp(maxAbs, bits) < kMaxScaledWeight) {
        m_scaleBits = bits;
        m_maxAbsScaled = std::ldexp(maxAbs, bits);
        for (auto it = good.cbegin(); it != good.cend(); ++it)
            slot(m_exact, m_exactPages, it.key()).net[it.key() & 0xFF] +=
                qint64(std::ldexp(it.value() * goodFactor, bits));
        for (auto it = bad.cbegin(); it != bad.cend(); ++it)
            slot(m_exact, m_exactPages, it.key()).net[it.key() & 0xFF] -=
                qint64(std::ldexp(it.value() * badFactor, bits));
        return;
    }
    for (auto it = good.cbegin(); it != good.cend(); ++it)
        slot(m_double, m_doublePages, it.key()).good[it.key() & 0xFF] = it.value() * goodFactor;
    for (auto it = bad.cbegin(); it != bad.cend(); ++it)
        slot(m_double, m_doublePages, it.key()).bad[it.key() & 0xFF] = it.value() * badFactor;
}

WeightTable::~WeightTable() = default;

bool WeightTable::isExactFor(qsizetype length) const
{
    // The good and the bad sums each stay below length * max, their difference below twice that.
    return m_scaleBits >= 0 && 2.0 * double(length) * m_maxAbsScaled < kExactLimit;
}

double WeightTable::unscale(qint64 scaledSum) const
{
    return std::ldexp(double(scaledSum), -m_scaleBits);
}

void WeightTable::weights(char16_t unit, double *good, double *bad) const
{
    if (m_scaleBits < 0) {
        const DoublePage &page = *m_double[unit >> 8];
        *good = page.good[unit & 0xFF];
        *bad = page.bad[unit & 0xFF];
    } else {
        // An exact table met a text too long for integer sums: rare enough for hash lookups.
        *good = m_good.value(unit) * m_goodFactor;
        *bad = m_bad.value(unit) * m_badFactor;
    }
}

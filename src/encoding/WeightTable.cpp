#include "WeightTable.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace {
constexpr int kMaxScaleBits = 30;
// Scaled weights stay below 2^31, so a byte count times a weight fits in 64 bits.
constexpr double kMaxScaledWeight = 2147483648.0;
// Every integer below 2^53 is a double.
constexpr double kExactLimit = 9007199254740992.0;

// The number of binary digits after the point that `weight` needs, or -1 when it is not
// finite: from the lowest set bit of its significand and its exponent, read from its bits.
int fractionBits(double weight)
{
    const auto bits = std::bit_cast<quint64>(weight);
    const int exponent = int(bits >> 52) & 0x7FF;
    const quint64 fraction = bits & ((quint64(1) << 52) - 1);
    if (exponent == 0x7FF)
        return -1;
    if (exponent == 0) // zero, or a subnormal: fraction x 2^-1074
        return fraction == 0 ? 0 : 1074 - std::countr_zero(fraction);
    // (2^52 + fraction) x 2^(exponent - 1075)
    const quint64 significand = fraction | (quint64(1) << 52);
    return std::max(1075 - exponent - std::countr_zero(significand), 0);
}

template <typename Page> const Page *emptyPage()
{
    static const Page page{};
    return &page;
}

const WeightTable::Weight *find(const std::vector<WeightTable::Weight> &list, char16_t unit)
{
    const auto it = std::lower_bound(list.begin(), list.end(), unit,
                                     [](const WeightTable::Weight &w, char16_t u) { return w.unit < u; });
    return it != list.end() && it->unit == unit ? &*it : nullptr;
}
} // namespace

WeightTable::WeightTable(std::vector<Weight> good, double goodFactor, std::vector<Weight> bad,
                         double badFactor)
    : m_good(std::move(good))
    , m_bad(std::move(bad))
    , m_goodFactor(goodFactor)
    , m_badFactor(badFactor)
{
    // The finest power of two any weight needs, and the largest weight.
    int bits = 0;
    double maxAbs = 0;
    for (const auto &[weights, factor] : {std::pair(&m_good, goodFactor), std::pair(&m_bad, badFactor)}) {
        for (const Weight &weight : *weights) {
            const double product = weight.weight * factor;
            const int needed = fractionBits(product);
            bits = needed < 0 ? kMaxScaleBits + 1 : std::max(bits, needed);
            maxAbs = std::max(maxAbs, std::abs(product));
        }
    }
    if (bits > kMaxScaleBits || std::ldexp(maxAbs, bits) >= kMaxScaledWeight)
        return;
    m_scaleBits = bits;
    m_maxAbsScaled = std::ldexp(maxAbs, bits);
    // Times 2^bits: exact, as every product is below 2^31 once scaled.
    const double scale = std::ldexp(1.0, bits);

    // Both lists merged by unit: good minus bad.
    m_netUnits.reserve(m_good.size() + m_bad.size());
    m_nets.reserve(m_good.size() + m_bad.size());
    auto g = m_good.cbegin();
    auto b = m_bad.cbegin();
    while (g != m_good.cend() || b != m_bad.cend()) {
        const bool takeGood = g != m_good.cend() && (b == m_bad.cend() || g->unit <= b->unit);
        const bool takeBad = b != m_bad.cend() && (g == m_good.cend() || b->unit <= g->unit);
        Net net;
        if (takeGood)
            net.scaled += qint64(g->weight * goodFactor * scale);
        if (takeBad) {
            net.scaled -= qint64(b->weight * badFactor * scale);
            net.bad = true;
        }
        m_netUnits.push_back(takeGood ? g->unit : b->unit);
        m_nets.push_back(net);
        g += takeGood;
        b += takeBad;
    }
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

WeightTable::Net WeightTable::net(char16_t unit) const
{
    const auto it = std::lower_bound(m_netUnits.begin(), m_netUnits.end(), unit);
    if (it == m_netUnits.end() || *it != unit)
        return {};
    return m_nets[size_t(it - m_netUnits.begin())];
}

void WeightTable::weightsBySearch(char16_t unit, double *good, double *bad) const
{
    const Weight *g = find(m_good, unit);
    const Weight *b = find(m_bad, unit);
    *good = g ? g->weight * m_goodFactor : 0.0;
    *bad = b ? b->weight * m_badFactor : 0.0;
}

const WeightTable::Pages &WeightTable::pages() const
{
    std::call_once(m_pagesMade, [this] { m_pages = std::make_unique<Pages>(*this); });
    return *m_pages;
}

template <typename Page>
Page &WeightTable::Pages::slot(std::array<const Page *, 256> &pages,
                               std::vector<std::unique_ptr<Page>> &owned, char16_t unit)
{
    const Page *&page = pages[unit >> 8];
    if (page == emptyPage<Page>()) {
        owned.push_back(std::make_unique<Page>());
        page = owned.back().get();
    }
    // Only pages this table allocated are written; they are the ones in `owned`.
    return *const_cast<Page *>(page);
}

WeightTable::Pages::Pages(const WeightTable &table)
{
    m_exact.fill(emptyPage<ExactPage>());
    m_double.fill(emptyPage<DoublePage>());
    m_isBad.fill(emptyPage<BadPage>());
    for (const Weight &weight : table.m_bad)
        slot(m_isBad, m_badPages, weight.unit).set(weight.unit & 0xFF);
    if (table.isExact()) {
        for (size_t i = 0; i < table.m_netUnits.size(); ++i) {
            const char16_t unit = table.m_netUnits[i];
            slot(m_exact, m_exactPages, unit).net[unit & 0xFF] = table.m_nets[i].scaled;
        }
        return;
    }
    for (const Weight &weight : table.m_good)
        slot(m_double, m_doublePages, weight.unit).good[weight.unit & 0xFF] =
            weight.weight * table.m_goodFactor;
    for (const Weight &weight : table.m_bad)
        slot(m_double, m_doublePages, weight.unit).bad[weight.unit & 0xFF] =
            weight.weight * table.m_badFactor;
}

WeightTable::Pages::~Pages() = default;

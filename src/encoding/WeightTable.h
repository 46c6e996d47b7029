#pragma once

#include <QHash>

#include <array>
#include <bitset>
#include <memory>
#include <vector>

// A tester's good and bad weights laid out for scanning text: one lookup per UTF-16 code
// unit, in 256-unit pages of which only those holding a weight are allocated.
//
// Scores are sums of doubles taken in text order. When every weight (times its factor) is
// a multiple of a power of two no finer than 2^-30 and below 2^31 once scaled by it, and no
// partial sum can leave the range where doubles are exact, every such sum is exact and equals
// the integer sum of the scaled weights: such a score can be summed in integers, in any
// order (by byte counts, say), with the very same result. The table then keeps only those
// integers (good minus bad per unit); otherwise it keeps the two doubles of each unit.
//
// The table refers to the two maps it was made from; they must outlive it.
class WeightTable
{
public:
    WeightTable(const QHash<char16_t, double> &good, double goodFactor, const QHash<char16_t, double> &bad,
                double badFactor);
    ~WeightTable();

    // Whether a text of `length` units sums exactly in integers (scaledNet() then serves).
    bool isExactFor(qsizetype length) const;
    qint64 scaledNet(char16_t unit) const { return m_exact[unit >> 8]->net[unit & 0xFF]; }
    double unscale(qint64 scaledSum) const;

    // Whether the unit stands in the bad list, even with weight 0.
    bool isBad(char16_t unit) const { return m_isBad[unit >> 8]->test(unit & 0xFF); }

    // The unit's good and bad weights, each times its factor; for sums in text order.
    void weights(char16_t unit, double *good, double *bad) const;

private:
    struct ExactPage
    {
        std::array<qint64, 256> net{};
    };
    struct DoublePage
    {
        std::array<double, 256> good{};
        std::array<double, 256> bad{};
    };
    using BadPage = std::bitset<256>;

    template <typename Page>
    static Page &slot(std::array<const Page *, 256> &pages, std::vector<std::unique_ptr<Page>> &owned,
                      char16_t unit);

    const QHash<char16_t, double> &m_good;
    const QHash<char16_t, double> &m_bad;
    double m_goodFactor;
    double m_badFactor;
    int m_scaleBits = -1; // -1: not exact
    double m_maxAbsScaled = 0;
    std::array<const ExactPage *, 256> m_exact{};
    std::array<const DoublePage *, 256> m_double{};
    std::array<const BadPage *, 256> m_isBad{};
    std::vector<std::unique_ptr<ExactPage>> m_exactPages;
    std::vector<std::unique_ptr<DoublePage>> m_doublePages;
    std::vector<std::unique_ptr<BadPage>> m_badPages;
};

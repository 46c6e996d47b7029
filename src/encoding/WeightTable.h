#pragma once

#include <QtGlobal>

#include <array>
#include <bitset>
#include <memory>
#include <mutex>
#include <vector>

// A tester's good and bad weights, kept as two lists sorted by UTF-16 code unit, laid out for
// the two ways a score is taken: by search, for the few distinct units of a single-byte file
// scored from its byte counts, and by one lookup per unit when a decoded text is scanned, in
// 256-unit pages of which only those holding a weight are allocated. The pages are made on
// the first scan: most testers never scan a text (their code page is scored from byte counts,
// or the file does not decode in it), and making pages for all of them was most of the cost
// of loading the rules.
//
// Scores are sums of doubles taken in text order. When every weight (times its factor) is
// a multiple of a power of two no finer than 2^-30 and below 2^31 once scaled by it, and no
// partial sum can leave the range where doubles are exact, every such sum is exact and equals
// the integer sum of the scaled weights: such a score can be summed in integers, in any
// order (by byte counts, say), with the very same result. The table then keeps those
// integers (good minus bad per unit); otherwise the two doubles of each unit.
//
// Immutable once made; its const members are safe to call from any thread.
class WeightTable
{
public:
    struct Weight
    {
        char16_t unit;
        double weight; // as the rules file gives it, without the factor
    };
    // Each list sorted by unit, each unit at most once.
    WeightTable(std::vector<Weight> good, double goodFactor, std::vector<Weight> bad, double badFactor);
    ~WeightTable();
    WeightTable(const WeightTable &) = delete;
    WeightTable &operator=(const WeightTable &) = delete;

    const std::vector<Weight> &good() const { return m_good; }
    const std::vector<Weight> &bad() const { return m_bad; }

    // Whether the weights are exact in integers at all, and whether a text of `length` units
    // sums exactly in integers (the scaled nets then serve).
    bool isExact() const { return m_scaleBits >= 0; }
    bool isExactFor(qsizetype length) const;
    double unscale(qint64 scaledSum) const;

    // One unit's scaled net weight (good minus bad) and whether it stands in the bad list,
    // found by search: for exact tables.
    struct Net
    {
        qint64 scaled = 0;
        bool bad = false;
    };
    Net net(char16_t unit) const;
    // The unit's good and bad weights, each times its factor, found by search: for an exact
    // table that meets a text too long for integer sums (inexact tables have them in pages).
    void weightsBySearch(char16_t unit, double *good, double *bad) const;

    // Per-unit lookups for scanning a text, made on first use.
    class Pages;
    const Pages &pages() const;

private:
    std::vector<Weight> m_good;
    std::vector<Weight> m_bad;
    double m_goodFactor;
    double m_badFactor;
    int m_scaleBits = -1; // -1: not exact
    double m_maxAbsScaled = 0;
    // Units of either list in order, with their scaled nets; exact tables only.
    std::vector<char16_t> m_netUnits;
    std::vector<Net> m_nets;

    mutable std::once_flag m_pagesMade;
    mutable std::unique_ptr<Pages> m_pages;
};

class WeightTable::Pages
{
public:
    explicit Pages(const WeightTable &table);
    ~Pages();

    qint64 scaledNet(char16_t unit) const { return m_exact[unit >> 8]->net[unit & 0xFF]; }
    // Whether the unit stands in the bad list, even with weight 0.
    bool isBad(char16_t unit) const { return m_isBad[unit >> 8]->test(unit & 0xFF); }
    // The unit's good and bad weights, each times its factor, for sums in text order: for
    // inexact tables (exact ones have their scaled nets here instead).
    void weights(char16_t unit, double *good, double *bad) const
    {
        const DoublePage &page = *m_double[unit >> 8];
        *good = page.good[unit & 0xFF];
        *bad = page.bad[unit & 0xFF];
    }

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

    std::array<const ExactPage *, 256> m_exact{};
    std::array<const DoublePage *, 256> m_double{};
    std::array<const BadPage *, 256> m_isBad{};
    std::vector<std::unique_ptr<ExactPage>> m_exactPages;
    std::vector<std::unique_ptr<DoublePage>> m_doublePages;
    std::vector<std::unique_ptr<BadPage>> m_badPages;
};

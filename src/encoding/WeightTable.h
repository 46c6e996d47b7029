#pragma once

#include <QHash>

#include <array>
#include <memory>
#include <vector>

// A tester's good and bad weights laid out for scanning text: one lookup per UTF-16 code
// unit, in 256-unit pages of which only those holding a weight are allocated.
//
// Scores are sums of doubles taken in text order. When every weight is a multiple of a
// power of two no finer than 2^-30 and small enough that no partial sum can leave the range
// doubles hold exactly, every such sum is exact, so it equals the integer sum of the
// weights scaled by that power of two; the table then also keeps those integers, and a
// score can be summed in integers, in any order (by byte counts, say), with the very same
// result.
class WeightTable
{
public:
    struct Entry
    {
        double good = 0;    // good weight times the good factor
        double bad = 0;     // bad weight times the bad factor
        qint64 scaledNet = 0; // (good - bad) * 2^scaleBits, when the table is exact
        bool isBad = false; // the unit stands in the bad list (even with weight 0)
    };

    WeightTable(const QHash<char16_t, double> &good, double goodFactor, const QHash<char16_t, double> &bad,
                double badFactor);

    const Entry &at(char16_t unit) const { return m_pages[unit >> 8]->entries[unit & 0xFF]; }

    // Whether a text of `length` units sums exactly in integers.
    bool isExactFor(qsizetype length) const;
    // The value of a sum of scaled integers.
    double unscale(qint64 scaledSum) const;

private:
    struct Page
    {
        std::array<Entry, 256> entries;
    };
    static const Page *emptyPage();
    Entry &slot(char16_t unit);
    void chooseScale();

    std::array<const Page *, 256> m_pages{};
    std::vector<std::unique_ptr<Page>> m_owned;
    int m_scaleBits = -1; // -1: not exact
    double m_maxAbsScaled = 0;
};

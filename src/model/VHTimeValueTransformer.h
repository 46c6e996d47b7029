#pragma once

#include <QString>
#include <QStringView>

// Converts between seconds and time texts. Writes hh:mm:ss<decimal>mmm with milliseconds
// truncated; reads any form through the tolerant time-text rules, accepting both the
// decimal symbol and the alternate one.
class VHTimeValueTransformer
{
public:
    VHTimeValueTransformer(); // localized
    virtual ~VHTimeValueTransformer();

    bool localized() const { return m_localized; }
    // True: the decimal symbol is the user's locale's; false: ",".
    void setLocalized(bool localized);

    const QString &decimalSymbol() const { return m_decimalSymbol; }
    const QString &alternateDecimalSymbol() const { return m_alternateDecimalSymbol; }
    // Sets the symbol; the alternate becomes "," when it is ".", and "." otherwise.
    void setDecimalSymbol(const QString &symbol);

    virtual QString transformedValue(double seconds) const;
    double reverseTransformedValue(QStringView text) const;

    // The shared localized instance and its shortcuts.
    static VHTimeValueTransformer &shared();
    static QString stringForTime(double seconds);
    static double timeForString(QStringView text);

    // Splits seconds into the printed fields, exactly as written texts show them.
    struct Fields
    {
        int hours, minutes, seconds, milliseconds;
        double rawHours, rawMinutes; // before conversion, for the succinct form's tests
    };
    static Fields fields(double seconds);

    // Appends hh:mm:ss<symbol>mmm to `out`; the hot path of every writer.
    static void appendTime(QString &out, double seconds, QStringView symbol);

private:
    bool m_localized = true;
    QString m_decimalSymbol;
    QString m_alternateDecimalSymbol;
};

// The shortest form that still shows milliseconds: s,mmm under a minute, mm:ss,mmm under an
// hour, hh:mm:ss,mmm above.
class VHSuccinctTimeTransformer : public VHTimeValueTransformer
{
public:
    QString transformedValue(double seconds) const override;
};

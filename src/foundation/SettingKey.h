#pragma once

#include "Settings.h"

#include <QString>
#include <QStringList>

// A user default known by name and type: the one place that says what a key holds, so that
// no caller reads a number as a flag or misspells a key. Values come from Settings::shared().
template <typename T> class SettingKey
{
public:
    constexpr explicit SettingKey(const char16_t *name)
        : m_name(name)
    {}

    QString name() const { return QString::fromUtf16(m_name); }
    T value() const { return convert(Settings::shared().value(name())); }
    void set(const T &value) const { Settings::shared().setValue(name(), QVariant::fromValue(value)); }
    void remove() const { Settings::shared().remove(name()); }
    bool isStored() const { return Settings::shared().hasStoredValue(name()); }

private:
    // The conversions Settings' own accessors make, so that values stored as text by older
    // settings files read the same.
    static T convert(const QVariant &value)
    {
        if constexpr (std::is_same_v<T, bool>)
            return value.toBool();
        else if constexpr (std::is_same_v<T, double>)
            return value.toDouble();
        else if constexpr (std::is_same_v<T, qint64>)
            return value.toLongLong();
        else if constexpr (std::is_same_v<T, int>)
            return value.toInt();
        else if constexpr (std::is_same_v<T, QString>)
            return value.toString();
        else if constexpr (std::is_same_v<T, QStringList>)
            return value.toStringList();
        else
            return value.template value<T>();
    }

    const char16_t *m_name;
};

#pragma once

#include "Observable.h"

#include <QVariant>
#include <QVariantMap>

#include <memory>

class QSettings;
class QTemporaryFile;

// User defaults: values the user stored, falling back to defaults registered in code.
// Backed by QSettings: the user's INI file in the programs (useUserSettings()), a file of
// the caller's choosing otherwise (useFile()). Until one is chosen, a throwaway file in the
// temporary folder is used, so that tests never touch the user's settings.
//
// Setting or removing a value announces a change of its key (Observable), which is how
// views and the project follow preferences.
class Settings : public Observable
{
public:
    static Settings &shared();

    Settings();
    ~Settings() override;

    void useUserSettings();
    void useFile(const QString &path);

    // Merges `defaults` into the registered defaults; later registrations win per key.
    void registerDefaults(const QVariantMap &defaults);

    // The stored value, else the registered default, else an invalid QVariant.
    QVariant value(const QString &key) const;
    bool contains(const QString &key) const;
    // Whether the user's settings hold a value of their own (a registered default does not count).
    bool hasStoredValue(const QString &key) const;
    bool boolValue(const QString &key) const { return value(key).toBool(); }
    qint64 integerValue(const QString &key) const { return value(key).toLongLong(); }
    double doubleValue(const QString &key) const { return value(key).toDouble(); }
    QString stringValue(const QString &key) const { return value(key).toString(); }

    void setValue(const QString &key, const QVariant &value);
    void remove(const QString &key);
    void sync();

private:
    QSettings &storage() const;
    // Declared before the settings that use it, so that it outlives them.
    mutable std::unique_ptr<QTemporaryFile> m_throwaway;
    mutable std::unique_ptr<QSettings> m_storage;
    QVariantMap m_defaults;
};

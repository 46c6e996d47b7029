#include "Settings.h"

#include <QDir>
#include <QSettings>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

Settings &Settings::shared()
{
    static Settings settings;
    return settings;
}

Settings::Settings() = default;
Settings::~Settings() = default;

void Settings::useUserSettings()
{
    m_storage =
        std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope, u"Captora"_s, u"Captora"_s);
}

void Settings::useFile(const QString &path)
{
    m_storage = std::make_unique<QSettings>(path, QSettings::IniFormat);
}

QSettings &Settings::storage() const
{
    if (!m_storage) {
        // A process-private file that nobody else reads, removed when the process ends.
        m_throwaway = std::make_unique<QTemporaryFile>(QDir::tempPath() + u"/captora-settings-XXXXXX.ini"_s);
        const QString path =
            m_throwaway->open() ? m_throwaway->fileName() : QDir::tempPath() + u"/captora-settings.ini"_s;
        m_storage = std::make_unique<QSettings>(path, QSettings::IniFormat);
    }
    return *m_storage;
}

void Settings::registerDefaults(const QVariantMap &defaults)
{
    for (auto it = defaults.cbegin(); it != defaults.cend(); ++it)
        m_defaults.insert(it.key(), it.value());
}

QVariant Settings::value(const QString &key) const
{
    QSettings &s = storage();
    if (s.contains(key))
        return s.value(key);
    return m_defaults.value(key);
}

bool Settings::contains(const QString &key) const
{
    return storage().contains(key) || m_defaults.contains(key);
}

bool Settings::hasStoredValue(const QString &key) const
{
    return storage().contains(key);
}

void Settings::setValue(const QString &key, const QVariant &value)
{
    willChangeValueForKey(key);
    storage().setValue(key, value);
    didChangeValueForKey(key);
}

void Settings::remove(const QString &key)
{
    willChangeValueForKey(key);
    storage().remove(key);
    didChangeValueForKey(key);
}

void Settings::sync()
{
    storage().sync();
}

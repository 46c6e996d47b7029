#include "Observable.h"

struct Observable::KeyObserver
{
    QString key;
    KeyCallback callback;
};

Observable::~Observable() = default;

Observable::KeyToken Observable::observeKey(const QString &key, KeyCallback callback)
{
    auto observer = std::make_shared<KeyObserver>(KeyObserver{key, std::move(callback)});
    if (!m_keyObservers)
        m_keyObservers = std::make_unique<std::vector<std::weak_ptr<KeyObserver>>>();
    m_keyObservers->push_back(observer);
    return observer;
}

QStringList Observable::dependentKeys(const QString &) const
{
    return {};
}

void Observable::willChangeValueForKey(const QString &key)
{
    if (!m_keyObservers)
        return;
    announce(key, Change::Will);
    const QStringList dependents = dependentKeys(key);
    for (const QString &dependent : dependents)
        announce(dependent, Change::Will);
}

void Observable::didChangeValueForKey(const QString &key)
{
    if (!m_keyObservers)
        return;
    announce(key, Change::Did);
    const QStringList dependents = dependentKeys(key);
    for (const QString &dependent : dependents)
        announce(dependent, Change::Did);
}

void Observable::announce(const QString &key, Change change)
{
    // Copy first: a callback may add or drop observers of this object.
    std::vector<std::shared_ptr<KeyObserver>> live;
    std::erase_if(*m_keyObservers, [](const std::weak_ptr<KeyObserver> &w) { return w.expired(); });
    for (const auto &weak : *m_keyObservers) {
        if (auto observer = weak.lock(); observer && (observer->key.isEmpty() || observer->key == key))
            live.push_back(std::move(observer));
    }
    for (const auto &observer : live)
        observer->callback(this, key, change);
}

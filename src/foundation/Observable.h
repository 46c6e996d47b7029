#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

// Base of every object whose properties the views follow by key. A setter announces a
// change of a key with willChangeValueForKey() before and didChangeValueForKey() after
// storing; observers of that key, and of keys derived from it (dependentKeys()), are
// called synchronously. Objects without observers pay one null check per announcement.
//
// Threading: an observable and its observers belong to one thread (the main thread for
// everything the project shows).
class Observable
{
public:
    enum class Change { Will, Did };
    using KeyCallback = std::function<void(Observable *object, const QString &key, Change change)>;
    // Keeps a key observation alive; dropping the last copy ends it. Safe to drop after the
    // observed object is gone.
    using KeyToken = std::shared_ptr<void>;

    Observable() = default;
    Observable(const Observable &) = delete;
    Observable &operator=(const Observable &) = delete;
    virtual ~Observable();

    // Observes `key`, or every key when `key` is empty.
    [[nodiscard]] KeyToken observeKey(const QString &key, KeyCallback callback);

    void willChangeValueForKey(const QString &key);
    void didChangeValueForKey(const QString &key);

protected:
    // Keys whose values follow from `key`; announced together with it.
    virtual QStringList dependentKeys(const QString &key) const;

private:
    struct KeyObserver;
    void announce(const QString &key, Change change);
    std::unique_ptr<std::vector<std::weak_ptr<KeyObserver>>> m_keyObservers;
};

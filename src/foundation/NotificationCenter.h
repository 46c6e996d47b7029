#pragma once

#include <QHash>
#include <QString>

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

class Observable;

// One posted notification: a name and the object it concerns (may be null).
struct Notification
{
    QString name;
    Observable *object = nullptr;

    template <typename T> T *objectAs() const { return dynamic_cast<T *>(object); }
};

// A process-wide notification centre. Delivery is synchronous, on the posting thread,
// in the order observers were added. An observer added or removed while a notification
// is being delivered takes effect from the next post; a removed observer is never called
// again, even within the current delivery.
class NotificationCenter
{
public:
    using Callback = std::function<void(const Notification &)>;

    // Identifies one registration; removing it, or letting a `ScopedObserver` go, stops delivery.
    using Token = std::shared_ptr<void>;

    static NotificationCenter &defaultCenter();

    // Observes `name` posted for `object`, or for any object when `object` is null.
    Token addObserver(const QString &name, const Observable *object, Callback callback);
    void removeObserver(const Token &token);
    void post(const QString &name, Observable *object);

    // True when someone listens to `name`; lets hot paths skip building a notification.
    bool hasObservers(const QString &name) const;

private:
    struct Entry;
    mutable std::mutex m_mutex;
    QHash<QString, std::vector<std::shared_ptr<Entry>>> m_entries; // by notification name
};

// Removes its registration when destroyed.
class ScopedObserver
{
public:
    ScopedObserver() = default;
    ScopedObserver(NotificationCenter::Token token)
        : m_token(std::move(token))
    {}
    ScopedObserver(ScopedObserver &&) = default;
    ScopedObserver &operator=(ScopedObserver &&other) noexcept
    {
        reset();
        m_token = std::move(other.m_token);
        return *this;
    }
    ~ScopedObserver() { reset(); }
    void reset()
    {
        if (m_token)
            NotificationCenter::defaultCenter().removeObserver(m_token);
        m_token.reset();
    }

private:
    NotificationCenter::Token m_token;
};

#include "NotificationCenter.h"

#include <atomic>

struct NotificationCenter::Entry
{
    QString name;
    const Observable *object;
    Callback callback;
    std::atomic<bool> removed{false};
};

NotificationCenter &NotificationCenter::defaultCenter()
{
    static NotificationCenter center;
    return center;
}

NotificationCenter::Token NotificationCenter::addObserver(const QString &name, const Observable *object,
                                                          Callback callback)
{
    auto entry = std::make_shared<Entry>();
    entry->name = name;
    entry->object = object;
    entry->callback = std::move(callback);
    std::lock_guard lock(m_mutex);
    m_entries[name].push_back(entry);
    return entry;
}

void NotificationCenter::removeObserver(const Token &token)
{
    if (!token)
        return;
    auto *raw = static_cast<Entry *>(token.get());
    raw->removed = true;
    std::lock_guard lock(m_mutex);
    auto it = m_entries.find(raw->name);
    if (it == m_entries.end())
        return;
    std::erase_if(*it, [raw](const std::shared_ptr<Entry> &e) { return e.get() == raw; });
    if (it->empty())
        m_entries.erase(it);
}

bool NotificationCenter::hasObservers(const QString &name) const
{
    std::lock_guard lock(m_mutex);
    return m_entries.contains(name);
}

void NotificationCenter::post(const QString &name, Observable *object)
{
    std::vector<std::shared_ptr<Entry>> targets;
    {
        std::lock_guard lock(m_mutex);
        auto it = m_entries.constFind(name);
        if (it == m_entries.cend())
            return;
        for (const auto &e : *it) {
            if (!e->object || e->object == object)
                targets.push_back(e);
        }
    }
    const Notification notification{name, object};
    for (const auto &e : targets) {
        if (!e->removed)
            e->callback(notification);
    }
}

#include "NotificationCenter.h"
#include "Observable.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(NotificationCenter, DeliversInRegistrationOrderToObserversOfThatObjectOrOfAny)
{
    NotificationCenter center;
    Observable a, b;
    QStringList calls;
    auto record = [&](const QString &who) {
        return [&, who](const Notification &n) {
            calls << who + u':' + n.name + (n.object == &a ? u"@a"_s : u""_s);
        };
    };
    const std::vector<NotificationCenter::Token> tokens{
        center.addObserver(u"N"_s, nullptr, record(u"any1"_s)),
        center.addObserver(u"N"_s, &a, record(u"a"_s)), center.addObserver(u"N"_s, &b, record(u"b"_s)),
        center.addObserver(u"O"_s, nullptr, record(u"other"_s)),
        center.addObserver(u"N"_s, nullptr, record(u"any2"_s))};

    center.post(u"N"_s, &a);
    center.post(u"N"_s, nullptr);
    EXPECT_EQ(calls, (QStringList{u"any1:N@a"_s, u"a:N@a"_s, u"any2:N@a"_s, u"any1:N"_s, u"any2:N"_s}));
}

TEST(NotificationCenter, RemovalDuringDeliveryIsImmediateAdditionWaitsForTheNextPost)
{
    NotificationCenter center;
    QStringList calls;
    NotificationCenter::Token second, added;
    auto first = center.addObserver(u"N"_s, nullptr, [&](const Notification &) {
        calls << u"first"_s;
        center.removeObserver(second);
        if (!added)
            added = center.addObserver(u"N"_s, nullptr, [&](const Notification &) { calls << u"added"_s; });
    });
    second = center.addObserver(u"N"_s, nullptr, [&](const Notification &) { calls << u"second"_s; });

    center.post(u"N"_s, nullptr);
    center.post(u"N"_s, nullptr);
    EXPECT_EQ(calls, (QStringList{u"first"_s, u"first"_s, u"added"_s}));
    center.removeObserver(first);
    center.removeObserver(added);
    EXPECT_FALSE(center.hasObservers(u"N"_s));
}

TEST(NotificationCenter, ScopedObserverEndsItsRegistrationWhenItGoesOrIsReplaced)
{
    NotificationCenter &center = NotificationCenter::defaultCenter();
    const QString name = u"ScopedObserverTest"_s;
    int one = 0, two = 0;
    {
        ScopedObserver scoped = center.addObserver(name, nullptr, [&](const Notification &) { ++one; });
        center.post(name, nullptr);
        scoped = center.addObserver(name, nullptr, [&](const Notification &) { ++two; });
        center.post(name, nullptr);
    }
    center.post(name, nullptr);
    EXPECT_EQ(one, 1);
    EXPECT_EQ(two, 1);
    EXPECT_FALSE(center.hasObservers(name));
}

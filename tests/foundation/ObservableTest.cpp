#include "Observable.h"
#include "Settings.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {
class Span : public Observable
{
protected:
    QStringList dependentKeys(const QString &key) const override
    {
        return key == u"end"_s ? QStringList{u"duration"_s} : QStringList{};
    }
};

// Observes `key` (every key when empty) of `object`, recording "<key> will" / "<key> did".
Observable::KeyToken record(Observable &object, const QString &key, QStringList *seen)
{
    return object.observeKey(key, [seen](Observable *, const QString &k, Observable::Change c) {
        *seen << k + (c == Observable::Change::Will ? u" will"_s : u" did"_s);
    });
}
} // namespace

TEST(Observable, DependentKeysFollowTheirKeyAndADroppedTokenEndsObservationEvenAfterTheObjectIsGone)
{
    auto span = std::make_unique<Span>();
    QStringList all, duration, dropped;
    const auto allToken = record(*span, {}, &all);
    auto durationToken = record(*span, u"duration"_s, &duration);
    auto droppedToken = record(*span, u"end"_s, &dropped);
    droppedToken.reset();
    span->willChangeValueForKey(u"end"_s);
    span->didChangeValueForKey(u"end"_s);
    EXPECT_EQ(all, (QStringList{u"end will"_s, u"duration will"_s, u"end did"_s, u"duration did"_s}));
    EXPECT_EQ(duration, (QStringList{u"duration will"_s, u"duration did"_s}));
    EXPECT_TRUE(dropped.isEmpty());
    span.reset();
    durationToken.reset(); // must not touch the destroyed object
}

TEST(Settings, StoredValuesWinOverDefaultsPersistAndAnnounceTheirKey)
{
    TempDir dir;
    const QString file = dir.path(u"settings.ini"_s);
    {
        Settings settings;
        settings.useFile(file);
        settings.registerDefaults({{u"Encoding"_s, 4}, {u"Name"_s, u"x"_s}});
        settings.registerDefaults({{u"Encoding"_s, 5}});
        EXPECT_EQ(settings.integerValue(u"Encoding"_s), 5);
        EXPECT_EQ(settings.stringValue(u"Name"_s), u"x"_s);
        EXPECT_FALSE(settings.value(u"Missing"_s).isValid());

        QStringList seen, other;
        auto token =
            settings.observeKey(u"Encoding"_s, [&](Observable *, const QString &, Observable::Change c) {
                seen << (c == Observable::Change::Will ? u"will "_s : u"did "_s) +
                            settings.stringValue(u"Encoding"_s);
            });
        auto otherToken = record(settings, u"Name"_s, &other);
        settings.setValue(u"Encoding"_s, 30);
        settings.remove(u"Encoding"_s);
        settings.setValue(u"Encoding"_s, 12);
        EXPECT_EQ(seen, (QStringList{u"will 5"_s, u"did 30"_s, u"will 30"_s, u"did 5"_s, u"will 5"_s,
                                     u"did 12"_s}));
        EXPECT_TRUE(other.isEmpty());
        settings.sync();
    }
    Settings reread;
    reread.useFile(file);
    EXPECT_EQ(reread.integerValue(u"Encoding"_s), 12);
    EXPECT_FALSE(reread.contains(u"Name"_s)); // defaults live in code, not in the file
}

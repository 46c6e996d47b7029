#include "Observable.h"
#include "Settings.h"
#include "TestSupport.h"

#include <QStringList>

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

QString describe(const QString &key, Observable::Change change)
{
    return key + (change == Observable::Change::Will ? u" will"_s : u" did"_s);
}
} // namespace

TEST(Observable, DependentKeysAreAnnouncedRightAfterTheirKey)
{
    Span span;
    QStringList all, duration, start;
    auto allToken = span.observeKey({}, [&](Observable *, const QString &k, auto c) { all << describe(k, c); });
    auto durationToken =
        span.observeKey(u"duration"_s, [&](Observable *, const QString &k, auto c) { duration << describe(k, c); });
    auto startToken =
        span.observeKey(u"start"_s, [&](Observable *, const QString &k, auto c) { start << describe(k, c); });

    span.willChangeValueForKey(u"end"_s);
    span.didChangeValueForKey(u"end"_s);

    EXPECT_EQ(all, (QStringList{u"end will"_s, u"duration will"_s, u"end did"_s, u"duration did"_s}));
    EXPECT_EQ(duration, (QStringList{u"duration will"_s, u"duration did"_s}));
    EXPECT_TRUE(start.isEmpty());
}

TEST(Observable, DroppingTheTokenEndsObservationEvenAfterTheObjectIsGone)
{
    auto span = std::make_unique<Span>();
    int dropped = 0, kept = 0;
    auto droppedToken = span->observeKey(u"end"_s, [&](Observable *, const QString &, auto) { ++dropped; });
    auto keptToken = span->observeKey(u"end"_s, [&](Observable *, const QString &, auto) { ++kept; });

    droppedToken.reset();
    span->willChangeValueForKey(u"end"_s);
    span->didChangeValueForKey(u"end"_s);
    EXPECT_EQ(dropped, 0);
    EXPECT_EQ(kept, 2);

    span.reset();
    keptToken.reset(); // must not touch the destroyed object
}

class SettingsTest : public ::testing::Test
{
protected:
    TempDir dir;
    QString file = dir.path(u"settings.ini"_s);
};

TEST_F(SettingsTest, StoredValuesWinOverRegisteredDefaultsAndOnlyTheyAreSaved)
{
    {
        Settings settings;
        settings.useFile(file);
        settings.registerDefaults({{u"Encoding"_s, 4}, {u"Name"_s, u"x"_s}});
        settings.registerDefaults({{u"Encoding"_s, 5}});
        EXPECT_EQ(settings.integerValue(u"Encoding"_s), 5);
        EXPECT_EQ(settings.stringValue(u"Name"_s), u"x"_s);
        EXPECT_FALSE(settings.contains(u"Missing"_s));
        EXPECT_FALSE(settings.value(u"Missing"_s).isValid());

        settings.setValue(u"Encoding"_s, 30);
        EXPECT_EQ(settings.integerValue(u"Encoding"_s), 30);
        settings.sync();
    }
    Settings reread;
    reread.useFile(file);
    EXPECT_EQ(reread.integerValue(u"Encoding"_s), 30);
    EXPECT_FALSE(reread.contains(u"Name"_s)); // defaults live in code, not in the file

    reread.registerDefaults({{u"Encoding"_s, 5}});
    reread.remove(u"Encoding"_s);
    EXPECT_EQ(reread.integerValue(u"Encoding"_s), 5);
}

TEST_F(SettingsTest, ChangesAnnounceTheirKeyWithTheOldValueBeforeAndTheNewAfter)
{
    Settings settings;
    settings.useFile(file);
    settings.registerDefaults({{u"Fps"_s, 25}});
    QStringList seen, other;
    auto token = settings.observeKey(u"Fps"_s, [&](Observable *, const QString &k, Observable::Change c) {
        seen << describe(k, c) + u' ' + settings.stringValue(k);
    });
    auto otherToken =
        settings.observeKey(u"Other"_s, [&](Observable *, const QString &k, auto c) { other << describe(k, c); });

    settings.setValue(u"Fps"_s, 24);
    settings.remove(u"Fps"_s);

    EXPECT_EQ(seen, (QStringList{u"Fps will 25"_s, u"Fps did 24"_s, u"Fps will 24"_s, u"Fps did 25"_s}));
    EXPECT_TRUE(other.isEmpty());
}

#include "Observable.h"
#include "SettingKey.h"
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

TEST(Settings, TypedKeysReadWhatAnOlderFileStoredAsTextAndWriteTheirOwnType)
{
    // INI files keep every value as text; a typed key must read "false" as false, not as a
    // non-empty string that converts to true, and numbers in either notation.
    TempDir dir;
    const QString file = dir.write(u"settings.ini"_s, "[General]\nFlag=false\nOther=true\nDelay=0.25\n"
                                                      "Count=12\nName=Nobody\n");
    Settings::shared().useFile(file);
    constexpr SettingKey<bool> flag{u"Flag"};
    constexpr SettingKey<bool> other{u"Other"};
    constexpr SettingKey<double> delay{u"Delay"};
    constexpr SettingKey<qint64> count{u"Count"};
    constexpr SettingKey<int> missing{u"Missing"};
    constexpr SettingKey<QString> name{u"Name"};
    EXPECT_FALSE(flag.value());
    EXPECT_TRUE(other.value());
    EXPECT_DOUBLE_EQ(delay.value(), 0.25);
    EXPECT_EQ(count.value(), 12);
    EXPECT_EQ(missing.value(), 0);
    EXPECT_EQ(name.value(), u"Nobody"_s);
    EXPECT_EQ(flag.name(), u"Flag"_s);

    Settings::shared().registerDefaults({{missing.name(), 7}});
    EXPECT_EQ(missing.value(), 7);
    EXPECT_FALSE(missing.isStored());
    missing.set(3);
    delay.set(1.5);
    flag.set(true);
    Settings::shared().sync();
    Settings reread;
    reread.useFile(file);
    EXPECT_EQ(reread.integerValue(u"Missing"_s), 3);
    EXPECT_DOUBLE_EQ(reread.doubleValue(u"Delay"_s), 1.5);
    EXPECT_TRUE(reread.boolValue(u"Flag"_s));
    flag.remove();
    EXPECT_FALSE(flag.isStored());
    Settings::shared().useFile(dir.path(u"other.ini"_s));
}

#pragma once

#include "Log.h"
#include "VHSubtitle.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <optional>
#include <ostream>

// A cue as the tests compare it: text, times and the forced flag.
struct CueValues
{
    QString text;
    double start = 0;
    double end = 0;
    bool forced = false;
};

// Every cue of `cues` matches `expected` (times to a microsecond). Fails when there are
// none.
::testing::AssertionResult cuesAre(const std::optional<SubtitleList> &cues, const QList<CueValues> &expected);

// The text of a fixture in tests/data/model.
QString fixtureText(const QString &name);
QString fixturePath(const QString &name);

// A folder that lives as long as the test, for files the loader reads and writers write.
class ScratchFolder
{
public:
    QString write(const QString &name, const QByteArray &bytes) const;
    QString path(const QString &name) const { return m_dir.filePath(name); }

private:
    QTemporaryDir m_dir;
};

void PrintTo(const QString &text, std::ostream *out);

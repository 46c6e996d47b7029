#pragma once

#include "Prompter.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <csignal>
#include <ostream>
#include <sys/resource.h>

// Readable GoogleTest failure messages for Qt's text types (a QStringList prints as a list of them).
void PrintTo(const QString &text, std::ostream *os);
void PrintTo(const QByteArray &bytes, std::ostream *os);

// The bytes of tests/data/<module>/<name>; fails the running test when it is missing.
QByteArray fixtureBytes(const QString &module, const QString &name);
QString fixturePath(const QString &module, const QString &name);

// A fresh folder removed with everything in it when the object goes.
class TempDir
{
public:
    TempDir();
    QString path(const QString &name) const { return m_dir.filePath(name); }
    QString write(const QString &name, const QByteArray &bytes) const;
    QByteArray read(const QString &name) const;
    // Names of everything in the folder, hidden files included, sorted.
    QStringList entries() const;

private:
    QTemporaryDir m_dir;
};

// Makes writes past `bytes` fail with EFBIG for its lifetime, the way a full disk or a
// quota would; root ignores permissions but not this limit. SIGXFSZ is ignored meanwhile so
// the process sees the error instead of being killed.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes);
    ~FileSizeLimit();
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    rlimit m_previous{};
    struct sigaction m_previousAction
    {
    };
};

// A small tmpfs mounted on a fresh folder for its lifetime, to meet a genuinely full
// filesystem. Mounting needs root (or CAP_SYS_ADMIN); where it fails, mounted() is false and
// why() says so, and the tests that need it skip.
class SmallTmpfs
{
public:
    explicit SmallTmpfs(qint64 bytes);
    ~SmallTmpfs();
    SmallTmpfs(const SmallTmpfs &) = delete;
    SmallTmpfs &operator=(const SmallTmpfs &) = delete;

    bool mounted() const { return m_mounted; }
    const QString &why() const { return m_why; }
    QString path(const QString &name) const { return m_dir.path(name); }
    QByteArray read(const QString &name) const { return m_dir.read(name); }
    // Writes `name` with `bytes`, then fills the filesystem to the last byte with another file.
    QString writeAndFill(const QString &name, const QByteArray &bytes) const;

private:
    TempDir m_dir;
    bool m_mounted = false;
    QString m_why;
};

// Answers prompts from a queue of button indexes and keeps every prompt it was shown. With
// the queue empty it declines (last button), as the program's default prompter does.
class ScriptedPrompter final : public Prompter
{
public:
    QList<PromptAnswer> answers;
    QList<Prompt> prompts;

    PromptAnswer ask(const Prompt &prompt) override;
};

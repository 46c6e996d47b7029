#pragma once

#include <QString>
#include <QStringList>

// The one logging function of Captora. Every diagnostic line the program defines
// ("Warning: ...", "Error: ...", "Info: ...", "Parsing Warning: ...") goes out through it,
// as exactly one line on standard error.
void logLine(const QString &line);

// A line of a file as a log line quotes it: the line itself when it has at most 200
// characters, else its first 200 and "… (N characters)", so that one damaged 50 MB line
// does not flood standard error.
QString logExcerpt(QStringView line);

// Installs a Qt message handler that prints messages verbatim, one per line, with no
// category or level prefixes. Programs call it once at start-up.
void installLogHandler();

// Records the lines logged on this process while it lives, for tests. Lines still reach
// standard error unless `quiet` is set. Captures nest; the innermost one records.
class LogCapture
{
public:
    explicit LogCapture(bool quiet = true);
    ~LogCapture();
    LogCapture(const LogCapture &) = delete;
    LogCapture &operator=(const LogCapture &) = delete;

    const QStringList &lines() const { return m_lines; }
    qsizetype count(const QString &line) const { return m_lines.count(line); }
    void clear() { m_lines.clear(); }

private:
    friend void logLine(const QString &line);
    QStringList m_lines;
    bool m_quiet;
    LogCapture *m_outer;
};

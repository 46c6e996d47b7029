#pragma once

#include "FixMode.h"
#include "Observable.h"

#include <QCoreApplication>
#include <QStatusBar>

class CTWindowController;
class QLabel;

// The window's status bar: the playing time, the fix mode the next fix takes, the encoding
// the file was read in and how many lines it has (and how many a search lists). Messages
// such as the result of Replace All show at its left for a while.
class WindowStatusBar final : public QStatusBar
{
    Q_DECLARE_TR_FUNCTIONS(WindowStatusBar)

public:
    explicit WindowStatusBar(CTWindowController *project, QWidget *parent = nullptr);

    QLabel *timeLabel() const { return m_time; }
    QLabel *modeLabel() const { return m_mode; }
    QLabel *encodingLabel() const { return m_encoding; }
    QLabel *linesLabel() const { return m_lines; }

    // A fix mode as the status bar shows it ("Mode: Shift"), and what it does (its tool tip).
    static QString shortModeName(FixMode fixMode);
    static QString modeName(FixMode fixMode);

private:
    void keyChanged(const QString &key);
    void showTime();
    void showMode();
    void showEncoding();
    void showLines();

    CTWindowController *m_project;
    Observable::KeyToken m_keys;
    QLabel *m_time;
    QLabel *m_mode;
    QLabel *m_encoding;
    QLabel *m_lines;
};

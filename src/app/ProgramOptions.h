#pragma once

#include <QStringList>

// The options of the `captora` program that are not files to open. Applies them and answers
// the remaining arguments (without the program name).
//
// The encoding detector's per-character diagnostics ("Character '<c>'", one line per
// suspicious character per language tried) run to millions of lines for one legacy file, and
// writing them froze the window for most of a minute. They stay off unless asked for with
// --log-characters (or QT_LOGGING_RULES=captora.encoding.characters=true, which Qt applies
// after the program's own rules), as in captora-cli.
QStringList applyProgramOptions(const QStringList &arguments);

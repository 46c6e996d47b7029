#pragma once

#include <QStringList>

// Each subcommand takes its arguments with the program name first and returns the exit
// status.
int runDump(const QStringList &args);
int runConvert(const QStringList &args);
int runEncodings(const QStringList &args);
int runDetectEncoding(const QStringList &args);

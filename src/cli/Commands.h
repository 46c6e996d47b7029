#pragma once

#include <QStringList>

// Each subcommand takes its arguments with the program name first and returns the exit
// status.
int runDump(const QStringList &args);
int runConvert(const QStringList &args);
int runLanguages(const QStringList &args);
int runAdjustDurations(const QStringList &args);
int runReplace(const QStringList &args);
int runShift(const QStringList &args);
int runSync(const QStringList &args);
int runEncodings(const QStringList &args);
int runDetectEncoding(const QStringList &args);
int runTracks(const QStringList &args);
int runEmbed(const QStringList &args);
int runExtract(const QStringList &args);
int runSpeech(const QStringList &args);

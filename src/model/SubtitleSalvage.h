#pragma once

#include "Prompter.h"
#include "VHSubtitle.h"

#include <QList>
#include <QString>

#include <optional>

// Salvage: what loading can still offer when no reader accepts a text. Every reader reads
// the text once more, tolerantly, leaving out the lines it cannot place; the reading that
// places the most cues is offered instead of nothing. The readers' own rules do not change.

// A line a tolerant pass could not place and left out; `number` is 1-based among all lines
// of the text, blank ones included.
struct SkippedLine
{
    qsizetype number = 0;
    QString text;
};

// What one tolerant pass read, and what it left out.
struct TolerantRead
{
    SubtitleList cues;
    QList<SkippedLine> skipped;
    // Why the strict reader found nothing when no single line stopped it ("found no
    // [Events] section"); empty when the first skipped line is what stopped it.
    QString reason;
};

TolerantRead readSubRipTolerantly(const QString &text);
TolerantRead readSubViewerTolerantly(const QString &text);
TolerantRead readMicroDVDTolerantly(const QString &text, double fps);
TolerantRead readSubStationAlphaTolerantly(const QString &text);

// Which line stopped which reader: `line` is the 1-based number of the line it could not
// place, or 0 with a `reason` when it found nothing without stopping at a line.
struct ReaderStop
{
    QString reader; // "SubRip", "SubViewer", "MicroDVD", "SubStationAlpha"
    qsizetype line = 0;
    QString lineText;
    QString reason;
};

struct SalvagedSubtitles
{
    SubtitleList cues; // as read, before the repair of loading
    QString reader;    // the reader whose tolerant pass placed them
    QList<SkippedLine> skipped;
    QList<ReaderStop> stops; // one per reader, in loading order
};

// The tolerant reading of a text no reader accepts: the pass with the most cues, the earlier
// reader in loading order on a tie. None when no pass places a cue.
std::optional<SalvagedSubtitles> salvageSubtitles(const QString &text, double fps);

// The question loading asks before it takes salvaged cues: which line stopped which reader,
// and the buttons "Load the N lines that could be read" and "Cancel".
Prompt salvagePrompt(const SalvagedSubtitles &salvaged);

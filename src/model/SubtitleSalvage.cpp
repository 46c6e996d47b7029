#include "SubtitleSalvage.h"

#include "Log.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {
ReaderStop stopOf(const QString &reader, const TolerantRead &read)
{
    ReaderStop stop;
    stop.reader = reader;
    if (!read.reason.isEmpty() || read.skipped.isEmpty()) {
        stop.reason = read.reason.isEmpty() ? u"found no cue"_s : read.reason;
    } else {
        // Up to its first unplaceable line a tolerant pass reads as the strict one does, so
        // that line is where the strict reader stopped.
        stop.line = read.skipped.first().number;
        stop.lineText = read.skipped.first().text;
    }
    return stop;
}

QString translated(const char *text)
{
    return QCoreApplication::translate("SubtitleSalvage", text);
}

// A line as the question quotes it: short enough for a dialog.
QString quoted(const QString &line)
{
    constexpr qsizetype kLimit = 80;
    return line.size() <= kLimit ? line : line.first(kLimit) + u'…';
}
} // namespace

std::optional<SalvagedSubtitles> salvageSubtitles(const QString &text, double fps)
{
    const struct
    {
        QString name;
        TolerantRead read;
    } passes[] = {
        {u"SubRip"_s, readSubRipTolerantly(text)},
        {u"SubViewer"_s, readSubViewerTolerantly(text)},
        {u"MicroDVD"_s, readMicroDVDTolerantly(text, fps)},
        {u"SubStationAlpha"_s, readSubStationAlphaTolerantly(text)},
    };
    SalvagedSubtitles salvaged;
    const TolerantRead *best = nullptr;
    for (const auto &pass : passes) {
        salvaged.stops.append(stopOf(pass.name, pass.read));
        if (!pass.read.cues.isEmpty() && (!best || pass.read.cues.size() > best->cues.size())) {
            best = &pass.read;
            salvaged.reader = pass.name;
        }
    }
    if (!best)
        return std::nullopt;
    salvaged.cues = best->cues;
    salvaged.skipped = best->skipped;
    return salvaged;
}

Prompt salvagePrompt(const SalvagedSubtitles &salvaged)
{
    Prompt prompt;
    prompt.message =
        translated(QT_TRANSLATE_NOOP("SubtitleSalvage", "No reader accepts this subtitle file."));
    QStringList lines;
    for (const ReaderStop &stop : salvaged.stops) {
        if (stop.line > 0)
            lines.append(translated(QT_TRANSLATE_NOOP("SubtitleSalvage", "%1 stopped at line %2: “%3”"))
                             .arg(stop.reader, QString::number(stop.line), quoted(stop.lineText)));
        else
            lines.append(translated(QT_TRANSLATE_NOOP("SubtitleSalvage", "%1 %2."))
                             .arg(stop.reader, QCoreApplication::translate(
                                                   "SubtitleSalvage", stop.reason.toUtf8().constData())));
    }
    lines.append(QString());
    lines.append(QCoreApplication::translate(
                     "SubtitleSalvage",
                     "Read as %1, leaving out %n line(s) it cannot place. Saving writes a clean file.",
                     nullptr, int(salvaged.skipped.size()))
                     .arg(salvaged.reader));
    prompt.informative = lines.join(u'\n');
    prompt.buttons = {QCoreApplication::translate("SubtitleSalvage", "Load the %n lines that could be read",
                                                  nullptr, int(salvaged.cues.size())),
                      translated(QT_TRANSLATE_NOOP("SubtitleSalvage", "Cancel"))};
    return prompt;
}

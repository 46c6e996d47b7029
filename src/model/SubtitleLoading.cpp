#include "VHSubtitle.h"

#include "Log.h"
#include "Prompter.h"
#include "RegularFile.h"
#include "Settings.h"
#include "SubtitleSalvage.h"
#include "VHEncoding.h"
#include "VHEncodingChooser.h"

#include <QCoreApplication>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {
QString s_encodingDefaultsKey; // null: the choice is not remembered
bool s_detectionAfterGivenEncoding = true;

// Asks for another encoding after every way of decoding failed. Returns the chosen encoding,
// or none when the user cancels.
std::optional<EncodingId> askForEncoding(EncodingId current)
{
    current = Encodings::canonical(current);
    Prompt prompt;
    prompt.message = QCoreApplication::translate("VHSubtitle", "File language problem:");
    prompt.informative =
        QCoreApplication::translate(
            "VHSubtitle", "Could not open subtitle file using '%1' encoding. Please select a different "
                          "encoding:")
            .arg(VHEncoding::nameForEncoding(current));
    for (const VHEncoding &row : VHEncoding::catalogue()) {
        if (row.isSeparator())
            prompt.choices.append({QString(), 0, true});
        else
            prompt.choices.append({row.name(), qint64(row.codePage()), false});
    }
    prompt.selectedTag = qint64(current);
    if (!s_encodingDefaultsKey.isEmpty())
        prompt.checkboxTitle = QCoreApplication::translate("VHSubtitle", "Remember encoding as default.");
    prompt.buttons = {QCoreApplication::translate("VHSubtitle", "Use Selected"),
                      QCoreApplication::translate("VHSubtitle", "Cancel")};
    const PromptAnswer answer = Prompter::shared().ask(prompt);
    if (answer.button != 0)
        return std::nullopt;
    const auto chosen = EncodingId(answer.selectedTag);
    if (!s_encodingDefaultsKey.isEmpty() && answer.checkboxChecked)
        Settings::shared().setValue(s_encodingDefaultsKey, qint64(chosen));
    return chosen;
}
} // namespace

void VHSubtitle::setEncodingDefaultsKey(const QString &key)
{
    s_encodingDefaultsKey = key;
}

void VHSubtitle::setDetectionAfterGivenEncoding(bool allowed)
{
    s_detectionAfterGivenEncoding = allowed;
}

const QString &VHSubtitle::encodingDefaultsKey()
{
    return s_encodingDefaultsKey;
}

std::optional<QString> VHSubtitle::stringWithContentsOfURL(const QString &path, EncodingId encoding,
                                                           bool encodingIsOptional, EncodingId *used)
{
    auto decodedIn = [used](EncodingId id) {
        if (used)
            *used = id;
    };
    QString error;
    // A file that cannot be read at all is not helped by choosing an encoding. Only regular
    // files of a sane size are read: a FIFO would block and a device would never end.
    RegularFile::Failure failure;
    const std::optional<QByteArray> read = RegularFile::read(path, RegularFile::SubtitleLimit, &failure);
    if (!read) {
        logLine(u"Warning: Could not load subtitle '%1', because: %2"_s.arg(path, failure.reason));
        return std::nullopt;
    }
    const QByteArray &bytes = *read;
    for (;;) {
        QString text;
        // 1. The encoding asked for, when it is not merely a suggestion.
        if (!encodingIsOptional && TextCodec::decode(bytes, encoding, &text, &error)) {
            decodedIn(encoding);
            return text;
        }
        if (!encodingIsOptional && !s_detectionAfterGivenEncoding) {
            logLine(u"Warning: Could not load subtitle '%1', because: %2"_s.arg(path, error));
            return std::nullopt;
        }
        // 2. Byte-order marks and strict UTF-8.
        EncodingId detected = Encodings::None;
        if (TextCodec::decodeAutomatically(bytes, &text, &detected)) {
            decodedIn(detected);
            return text;
        }
        // 3. The suggested encoding.
        if (encodingIsOptional && TextCodec::decode(bytes, encoding, &text, &error)) {
            decodedIn(encoding);
            return text;
        }
        // 4. The per-language detector.
        VHEncodingChooser::Choice choice = VHEncodingChooser::sharedEncodingChooser().choose(path, 0.6);
        if (choice.accepted) {
            decodedIn(choice.best ? choice.best->stringEncoding() : Encodings::None);
            return std::move(choice.text);
        }
        if (choice.error && !choice.error->description.isEmpty())
            error = choice.error->description;
        // 5.-9. Tell why, and ask for an encoding until one decodes or the user cancels.
        logLine(u"Warning: Could not load subtitle '%1', because: %2"_s.arg(path, error));
        const std::optional<EncodingId> chosen = askForEncoding(encoding);
        if (!chosen)
            return std::nullopt;
        encoding = *chosen;
    }
}

std::optional<SubtitleList> VHSubtitle::subtitlesFromFileAtURL(const QString &path, double fps, double length,
                                                               EncodingId encoding, bool encodingIsOptional)
{
    return subtitlesFromFileAtURL(path, fps, length, encoding, encodingIsOptional, Salvage::Never);
}

namespace {
// The cues a tolerant pass reads from a text no reader accepts, when the user (or the
// caller, with Salvage::Always) takes them; each line left out is logged.
std::optional<SubtitleList> salvage(const QString &path, const QString &text, double fps,
                                    VHSubtitle::Salvage mode)
{
    std::optional<SalvagedSubtitles> salvaged = salvageSubtitles(text, fps);
    if (!salvaged)
        return std::nullopt;
    if (mode == VHSubtitle::Salvage::Ask && Prompter::shared().ask(salvagePrompt(*salvaged)).button != 0)
        return std::nullopt;
    for (const ReaderStop &stop : salvaged->stops) {
        if (stop.line > 0)
            logLine(u"Info: %1 stopped at line %2 '%3'"_s.arg(stop.reader, QString::number(stop.line),
                                                              logExcerpt(stop.lineText)));
    }
    for (const SkippedLine &line : salvaged->skipped)
        logLine(
            u"Warning: Skipped line (%1) '%2'"_s.arg(QString::number(line.number), logExcerpt(line.text)));
    logLine(u"Info: Read %1 cues of '%2' as %3, leaving out %4 lines"_s.arg(
        QString::number(salvaged->cues.size()), path, salvaged->reader,
        QString::number(salvaged->skipped.size())));
    return std::move(salvaged->cues);
}
} // namespace

std::optional<SubtitleList> VHSubtitle::subtitlesFromFileAtURL(const QString &path, double fps, double length,
                                                               EncodingId encoding, bool encodingIsOptional,
                                                               Salvage salvageMode, bool *salvaged,
                                                               EncodingId *usedEncoding)
{
    if (salvaged)
        *salvaged = false;
    const std::optional<QString> text =
        stringWithContentsOfURL(path, encoding, encodingIsOptional, usedEncoding);
    if (!text)
        return std::nullopt;
    // The format is decided by content, in a fixed order: SubRip first, so that a text with
    // "-->" lines that SubRip accepts is never taken for MicroDVD; a SubRip text with a line
    // it cannot place falls through to the others. Plain text accepts any text, so only a
    // file named as one is read that way.
    std::optional<SubtitleList> cues = subtitlesFromSubRipString(*text);
    if (!cues)
        cues = subtitlesFromSubViewerString(*text);
    if (!cues)
        cues = subtitlesFromMicroDVDString(*text, fps == 0 ? 25 : fps);
    if (!cues)
        cues = subtitlesFromSubStationAlphaString(*text);
    if (!cues && QFileInfo(path).suffix().toLower() == u"txt")
        cues = subtitlesFromText(*text, length);
    if (!cues && salvageMode != Salvage::Never) {
        cues = salvage(path, *text, fps == 0 ? 25 : fps, salvageMode);
        if (cues && salvaged)
            *salvaged = true;
    }
    if (!cues)
        return std::nullopt;
    correctSubtitles(*cues);
    return cues;
}

std::optional<SubtitleList> VHSubtitle::subtitlesFromFileAtURL(const QString &path, double fps, double length)
{
    return subtitlesFromFileAtURL(path, fps, length, Encodings::None, true);
}

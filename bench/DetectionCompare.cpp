// Accuracy and time of encoding detection on a set of files of known encoding: ours (the
// loader's automatic detection, then the per-language rules at ratio 0.6), ICU's charset
// detector, and uchardet's answers read from a file (the script runs the uchardet program).
//
//   detection_compare INDEX.tsv [UCHARDET.tsv UCHARDET_MS]
//
// INDEX.tsv: path (relative to the index's folder), encoding number, tag, language, shape.
// UCHARDET.tsv: path, charset name, as uchardet printed them. A detection is right when its
// decoding gives the very text that the true encoding gives; ours is silently wrong when it
// decodes to another text without asking (asking, which the loader does when no decoding
// scores high enough, is neither).

#include "DecodedFile.h"
#include "LibraryConverters.h"
#include "TextCodec.h"
#include "VHEncodingChooser.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QLoggingCategory>

#include <unicode/ucsdet.h>

#include <cstdio>
#include <map>

using namespace Qt::StringLiterals;

namespace {
enum class Outcome { Right, Asked, Wrong };

// Decodes by a charset name as detectors print them; none when no converter knows it.
std::optional<QString> decodeByName(const QByteArray &bytes, QByteArray name)
{
    name = name.trimmed().toUpper();
    static const QHash<QByteArray, QByteArray> aliases = {{"MAC-CYRILLIC", "x-mac-cyrillic"},
                                                          {"MAC-CENTRALEUROPE", "x-mac-centraleurroman"},
                                                          {"UHC", "windows-949"},
                                                          {"X-ISO-10646-UCS-4-3412", ""},
                                                          {"X-ISO-10646-UCS-4-2143", ""},
                                                          {"ASCII", "US-ASCII"},
                                                          {"ISO-8859-8-I", "ISO-8859-8"},
                                                          {"EUC-TW", "x-euc-tw"}};
    const QByteArray converter = aliases.value(name, name);
    if (converter.isEmpty())
        return std::nullopt;
    QString text;
    if (LibraryConverters::icuDecode(converter.constData(), bytes, &text) == LibraryConverters::Result::Ok)
        return text;
    if (LibraryConverters::iconvDecode(converter.constData(), bytes, &text) == LibraryConverters::Result::Ok)
        return text;
    return std::nullopt;
}

struct Tally
{
    int files = 0;
    int oursRight = 0;
    int oursWrong = 0;
    int oursAsked = 0;
    int uchardetRight = 0;
    int icuRight = 0;
};
} // namespace

int main(int argc, char **argv)
{
    if (argc != 2 && argc != 4) {
        std::fprintf(stderr, "usage: %s INDEX.tsv [UCHARDET.tsv UCHARDET_MS]\n", argv[0]);
        return 2;
    }
    QLoggingCategory::setFilterRules(u"captora.encoding.characters=false"_s);
    const QString indexPath = QString::fromLocal8Bit(argv[1]);
    const QDir base = QFileInfo(indexPath).dir();
    QFile index(indexPath);
    if (!index.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "cannot read %s\n", argv[1]);
        return 2;
    }
    QHash<QString, QByteArray> uchardet;
    const bool withUchardet = argc == 4;
    if (withUchardet) {
        QFile answers(QString::fromLocal8Bit(argv[2]));
        if (!answers.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "cannot read %s\n", argv[2]);
            return 2;
        }
        for (const QByteArray &line : answers.readAll().split('\n')) {
            const qsizetype colon = line.lastIndexOf(": ");
            if (colon > 0)
                uchardet.insert(QDir::cleanPath(QString::fromLocal8Bit(line.left(colon))),
                                line.mid(colon + 2));
        }
    }

    const VHEncodingChooser &chooser = VHEncodingChooser::sharedEncodingChooser();
    UErrorCode status = U_ZERO_ERROR;
    UCharsetDetector *icu = ucsdet_open(&status);
    std::map<QByteArray, Tally> byTag;
    Tally total;
    qint64 oursNs = 0;
    qint64 icuNs = 0;
    qint64 bytesTotal = 0;
    QStringList wrong;
    for (const QByteArray &line : index.readAll().split('\n')) {
        const QList<QByteArray> fields = line.split('\t');
        if (fields.size() < 5)
            continue;
        const QString path = QDir::cleanPath(base.filePath(QString::fromUtf8(fields[0])));
        const EncodingId encoding = fields[1].toUInt();
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QByteArray bytes = file.readAll();
        QString reference;
        if (!TextCodec::decode(bytes, encoding, &reference))
            continue; // not text in its own encoding: no test
        bytesTotal += bytes.size();

        QElapsedTimer timer;
        timer.start();
        std::optional<QString> ours;
        QString automatic;
        EncodingId used = Encodings::None;
        if (TextCodec::decodeAutomatically(bytes, &automatic, &used)) {
            ours = std::move(automatic);
        } else {
            DecodedFile decoded(bytes, path);
            VHEncodingChooser::Choice choice = chooser.choose(decoded, 0.6);
            if (choice.accepted)
                ours = std::move(choice.text);
        }
        oursNs += timer.nsecsElapsed();
        const Outcome outcome = !ours ? Outcome::Asked : *ours == reference ? Outcome::Right : Outcome::Wrong;

        timer.restart();
        status = U_ZERO_ERROR;
        ucsdet_setText(icu, bytes.constData(), int(bytes.size()), &status);
        const UCharsetMatch *match = ucsdet_detect(icu, &status);
        const char *icuName = U_SUCCESS(status) && match ? ucsdet_getName(match, &status) : nullptr;
        icuNs += timer.nsecsElapsed();
        const std::optional<QString> icuText = icuName ? decodeByName(bytes, icuName) : std::nullopt;

        const std::optional<QString> uchardetText =
            uchardet.contains(path) ? decodeByName(bytes, uchardet.value(path)) : std::nullopt;

        for (Tally *tally : {&byTag[fields[2]], &total}) {
            ++tally->files;
            tally->oursRight += outcome == Outcome::Right;
            tally->oursWrong += outcome == Outcome::Wrong;
            tally->oursAsked += outcome == Outcome::Asked;
            tally->icuRight += icuText && *icuText == reference;
            tally->uchardetRight += uchardetText && *uchardetText == reference;
        }
        if (outcome == Outcome::Asked)
            wrong.append(u"%1 asked"_s.arg(QString::fromUtf8(fields[0])));
        if (outcome == Outcome::Wrong) {
            const VHEncodingChooser::Choice choice = [&] {
                DecodedFile decoded(bytes, path);
                return chooser.choose(decoded, 0.6);
            }();
            wrong.append(u"%1 read as %2"_s.arg(QString::fromUtf8(fields[0]),
                                                used != Encodings::None ? TextCodec::displayName(used)
                                                : choice.best           ? choice.best->name()
                                                                        : u"?"_s));
        }
    }
    ucsdet_close(icu);

    const auto percent = [](int part, int whole) { return whole ? 100.0 * part / whole : 0.0; };
    std::printf("%-16s %6s  %8s %8s %8s  %9s %9s\n", "encoding", "files", "ours", "wrong", "asked",
                "uchardet", "ICU");
    const auto row = [&](const char *name, const Tally &t) {
        std::printf("%-16s %6d  %7.1f%% %7.1f%% %7.1f%%  %8.1f%% %8.1f%%\n", name, t.files,
                    percent(t.oursRight, t.files), percent(t.oursWrong, t.files),
                    percent(t.oursAsked, t.files), withUchardet ? percent(t.uchardetRight, t.files) : 0.0,
                    percent(t.icuRight, t.files));
    };
    for (const auto &[tag, tally] : byTag)
        row(tag.constData(), tally);
    row("total", total);
    std::printf("\ntime on %d files, %.1f MB: ours %.0f ms, ICU %.0f ms", total.files, bytesTotal / 1e6,
                oursNs / 1e6, icuNs / 1e6);
    if (withUchardet)
        std::printf(", uchardet %s ms (one program run over all files)", argv[3]);
    std::printf("\n");
    // DETECTION_COMPARE_LIST=1 lists the files we read wrong or asked about.
    if (qEnvironmentVariableIsSet("DETECTION_COMPARE_LIST")) {
        for (const QString &what : std::as_const(wrong))
            std::printf("not right: %s\n", qPrintable(what));
    }
    return 0;
}

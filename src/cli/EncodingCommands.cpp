#include "CliSupport.h"
#include "Commands.h"

#include "DecodedFile.h"
#include "VHEncoding.h"
#include "VHEncodingChooser.h"

#include <QFileInfo>
#include <QLocale>
#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace {
QString encodingLabel(EncodingId encoding)
{
    return u"%1 (%2)"_s.arg(TextCodec::displayName(encoding), QString::number(encoding));
}

// Up to three decimals, without trailing zeros: scores are sums of weights like 1.875.
QString number(double value)
{
    QString text = QLocale::c().toString(value, 'f', 3);
    while (text.contains(u'.') && (text.endsWith(u'0') || text.endsWith(u'.')))
        text.chop(1);
    return text;
}
} // namespace

int runEncodings(const QStringList &args)
{
    QCommandLineParser parser;
    if (int status = parseArguments(
            parser, args, u"Lists the text encodings offered, in menu order: number and name."_s, QString());
        status >= 0)
        return status;
    if (!parser.positionalArguments().isEmpty())
        return usageError(parser, u"encodings takes no arguments."_s);
    QByteArray out;
    for (const VHEncoding &row : VHEncoding::catalogue()) {
        if (row.isSeparator())
            out.append("----------\n");
        else
            out.append(QString::number(row.codePage()).rightJustified(10).toUtf8() + "  " +
                       row.name().toUtf8() + '\n');
    }
    printOut(out);
    return ExitOk;
}

int runDetectEncoding(const QStringList &args)
{
    QCommandLineParser parser;
    parser.addOption({u"all"_s, u"Print the score of every rules file."_s});
    parser.addOption({u"ratio"_s, u"Score needed per character of text (default 0.6)."_s, u"R"_s});
    parser.addOption({u"log-characters"_s, u"Log each bad character the rules meet (many lines)."_s});
    if (int status = parseArguments(
            parser, args,
            u"Finds the text encoding of a file as loading does: a byte-order mark, UTF-16 or UTF-32 "
            u"by its zero bytes, ISO-2022-JP by its escapes or valid UTF-8 first (printed as "
            u"\"platform:\"); else it scores the file with every language's encoding rules and prints "
            u"the winner, its encoding, its score, the length of the text and whether the score is high "
            u"enough. Exits 0 when the file was read, 1 when not or when it cannot be read."_s,
            u"FILE"_s);
        status >= 0)
        return status;
    if (parser.positionalArguments().size() != 1)
        return usageError(parser, u"detect-encoding takes exactly one FILE."_s);
    bool ok = true;
    const double ratio = doubleOption(parser, u"ratio"_s, &ok).value_or(0.6);
    if (!ok || ratio < 0)
        return usageError(parser, u"--ratio takes a number not below 0."_s);
    if (parser.isSet(u"log-characters"_s))
        QLoggingCategory::setFilterRules(u"captora.encoding.characters=true"_s);

    const QString path = parser.positionalArguments().first();
    if (!checkReadableFile(path))
        return ExitFailure;
    const VHEncodingChooser &chooser = VHEncodingChooser::sharedEncodingChooser();
    if (chooser.testers().empty()) {
        printError(u"No encoding rules found"_s);
        return ExitFailure;
    }
    DecodedFile file = DecodedFile::read(path);
    QString text;
    EncodingId automatic = Encodings::None;
    if (!file.readError() && TextCodec::decodeAutomatically(file.bytes(), &text, &automatic) &&
        !parser.isSet(u"all"_s)) {
        printOut(
            (u"platform: "_s + encodingLabel(automatic) + u"\ndecision: read before any rules\n"_s).toUtf8());
        return ExitOk;
    }
    // Only the length of the text is printed: a single-byte code page is never decoded.
    const VHEncodingChooser::Choice choice = chooser.choose(file, ratio, VHEncodingChooser::Text::LengthOnly);

    QString out;
    if (automatic != Encodings::None)
        out += u"platform: "_s + encodingLabel(automatic) + u"\n\n"_s;
    if (parser.isSet(u"all"_s)) {
        for (size_t i = 0; i < chooser.testers().size(); ++i) {
            const VHEncodingTester &tester = *chooser.testers()[i];
            out += number(choice.scores[i]).rightJustified(12) + u"  "_s + tester.name() + u"  "_s +
                   encodingLabel(tester.stringEncoding()) + u'\n';
        }
        out += u'\n';
    }
    if (choice.best) {
        out += u"rules:    "_s + choice.best->name() + u" ("_s + QFileInfo(choice.best->path()).fileName() +
               u")\n"_s;
        out += u"encoding: "_s + encodingLabel(choice.best->stringEncoding()) + u'\n';
    } else {
        out += u"rules:    none scores above 0\n"_s;
    }
    out += u"score:    "_s + number(choice.bestScore) + u'\n';
    out += u"length:   "_s + QString::number(choice.length) + u" (needs a score above "_s +
           number(double(choice.length) * ratio) + u")\n"_s;
    out += u"decision: "_s + (choice.accepted ? u"accepted"_s : u"rejected"_s) + u" at ratio "_s +
           number(ratio) + u'\n';
    printOut(out.toUtf8());
    return choice.accepted || automatic != Encodings::None ? ExitOk : ExitFailure;
}

// Runs the detector, with every shipped rules file, over subtitle files in the languages
// it has rules for, each written in every code page that language's subtitles come in.
// A file counts as right when the detector's text equals the text that was written.

#include "TextCodec.h"
#include "VHEncoding.h"
#include "VHEncodingChooser.h"

#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <map>

using namespace Qt::StringLiterals;

namespace {
using namespace Encodings;

struct Language
{
    const char *name;
    std::vector<EncodingId> encodings;
};

const std::vector<EncodingId> kWestern = {WindowsCP1252, ISOLatin1, MacRoman};
const std::vector<EncodingId> kCentral = {WindowsCP1250, ISOLatin2};

const Language kLanguages[] = {
    {"English", kWestern},
    {"French", kWestern},
    {"German", kWestern},
    {"Spanish", kWestern},
    {"Italian", kWestern},
    {"Portuguese", kWestern},
    {"Dutch", kWestern},
    {"Swedish", kWestern},
    {"Danish", kWestern},
    {"Norwegian", kWestern},
    {"Polish", kCentral},
    {"Czech", kCentral},
    {"Slovak", kCentral},
    {"Hungarian", kCentral},
    {"Croatian", kCentral},
    {"Romanian", kCentral},
    {"Slovenian", kCentral},
    {"Turkish", {WindowsCP1254, ISOLatin5}},
    {"Russian", {WindowsCP1251, ISOLatinCyrillic, DOSRussian, MacCyrillic, KOI8R}},
    {"Ukrainian", {WindowsCP1251, KOI8U}},
    {"Bulgarian", {WindowsCP1251}},
    {"Serbian", {WindowsCP1251}},
    {"Greek", {WindowsCP1253, ISOLatinGreek, DOSGreek, MacGreek}},
    {"Hebrew", {WindowsHebrew, ISOLatinHebrew, DOSHebrew}},
    {"Arabic", {WindowsArabic}},
    {"Japanese", {ShiftJIS, JapaneseEUC}},
    {"ChineseSimplified", {GB18030, DOSChineseSimplif, EUCCN}},
    {"ChineseTraditional", {DOSChineseTrad, Big5}},
    {"Korean", {DOSKorean, EUCKR}},
};

QStringList dialogueOf(const char *language)
{
    QFile file(QStringLiteral(CAPTORA_ENCODING_TEST_DATA "/texts/") + QString::fromLatin1(language) +
               u".txt"_s);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    lines.removeIf([](const QString &line) { return line.startsWith(u'#'); });
    return lines;
}

QString timeText(int milliseconds)
{
    return u"%1:%2:%3,%4"_s.arg(milliseconds / 3600000, 2, 10, QChar(u'0'))
        .arg(milliseconds / 60000 % 60, 2, 10, QChar(u'0'))
        .arg(milliseconds / 1000 % 60, 2, 10, QChar(u'0'))
        .arg(milliseconds % 1000, 3, 10, QChar(u'0'));
}

// A SubRip file of `count` cues taken from the dialogue from line `first` on, wrapping
// around; half of the files get Windows line breaks.
QString subRip(const QStringList &dialogue, qsizetype first, qsizetype count, bool windowsLineBreaks)
{
    QString text;
    int start = 1000 + int(first) * 1700;
    for (qsizetype i = 0; i < count; ++i) {
        const int length = 1200 + int((first + i) % 5) * 400;
        text += QString::number(i + 1) + u'\n' + timeText(start) + u" --> "_s + timeText(start + length) +
                u'\n' + dialogue.at((first + i) % dialogue.size()) + u"\n\n"_s;
        start += length + 300;
    }
    if (windowsLineBreaks)
        text.replace(u'\n', u"\r\n"_s);
    return text;
}

// Typographic punctuation and ligatures that not every code page has, by their plain forms.
QString plainPunctuation(QString text)
{
    static const std::pair<char16_t, const char *> replacements[] = {
        {u'’', "'"},  {u'‘', "'"}, {u'“', "\""}, {u'”', "\""},  {u'„', "\""}, {u'«', "\""},
        {u'»', "\""}, {u'–', "-"}, {u'—', "-"},  {u'…', "..."}, {u'œ', "oe"}, {u'Œ', "OE"}};
    for (const auto &[from, to] : replacements)
        text.replace(QChar(from), QString::fromLatin1(to));
    return text;
}

// The characters outside ASCII, each once, in order: what tells decodings apart.
QString nonAscii(const QString &text)
{
    QString found;
    for (const QChar c : text) {
        if (c.unicode() >= 0x80 && !found.contains(c))
            found += c;
    }
    return found;
}

// The script most letters of the text belong to.
QChar::Script mainScript(const QString &text)
{
    std::map<QChar::Script, int> counts;
    for (const QChar c : text) {
        if (c.isLetter() && c.script() != QChar::Script_Common && c.script() != QChar::Script_Inherited)
            ++counts[c.script()];
    }
    QChar::Script best = QChar::Script_Unknown;
    int bestCount = 0;
    for (const auto &[script, count] : counts) {
        if (count > bestCount) {
            best = script;
            bestCount = count;
        }
    }
    return best;
}

struct Tally
{
    int right = 0;
    int total = 0;
};

TEST(DetectionAccuracy, ChoosesTheRightDecodingForSubtitlesInEveryCodePage)
{
    // Bulk scoring: the per-character diagnostics would be millions of lines.
    QLoggingCategory::setFilterRules(u"captora.encoding.characters=false"_s);
    const VHEncodingChooser &chooser = VHEncodingChooser::sharedEncodingChooser();
    ASSERT_GE(chooser.testers().size(), 40u);

    QTemporaryDir folder;
    ASSERT_TRUE(folder.isValid());
    std::map<EncodingId, Tally> byEncoding;
    int right = 0;
    int total = 0;
    QStringList wrong;
    QStringList otherScript;
    int fileNumber = 0;
    for (const Language &language : kLanguages) {
        const QStringList dialogue = dialogueOf(language.name);
        ASSERT_GE(dialogue.size(), 30) << language.name;
        // Short files of three cues, medium ones of fifteen, and a long one.
        const std::vector<std::pair<qsizetype, qsizetype>> windows = {
            {0, 3}, {9, 3}, {18, 3}, {27, 3}, {0, 15}, {15, 15}, {0, dialogue.size() * 4}};
        for (const EncodingId encoding : language.encodings) {
            for (const auto &[first, count] : windows) {
                QString text = subRip(dialogue, first, count, ++fileNumber % 2 == 0);
                QByteArray bytes;
                if (!TextCodec::encode(text, encoding, &bytes)) {
                    text = plainPunctuation(text);
                    ASSERT_TRUE(TextCodec::encode(text, encoding, &bytes))
                        << language.name << " in " << VHEncoding::nameForEncoding(encoding).toStdString();
                }
                const QString path = folder.filePath(u"%1-%2.srt"_s.arg(fileNumber).arg(encoding));
                QFile file(path);
                ASSERT_TRUE(file.open(QIODevice::WriteOnly));
                file.write(bytes);
                file.close();

                const VHEncodingChooser::Choice choice = chooser.choose(path, 0.6);
                const bool isRight = choice.accepted && *choice.text == text;
                Tally &tally = byEncoding[encoding];
                ++tally.total;
                ++total;
                if (isRight) {
                    ++tally.right;
                    ++right;
                    continue;
                }
                const QString what = u"%1 in %2, %3 cues: %4 (%5 > %6 x 0.6: %7) [%8] read as [%9]"_s.arg(
                    QString::fromLatin1(language.name), QString::number(encoding, 16), QString::number(count),
                    choice.best ? choice.best->name() : u"no tester"_s, QString::number(choice.bestScore),
                    QString::number(choice.length), choice.accepted ? u"accepted"_s : u"rejected"_s,
                    nonAscii(text).left(40), choice.text ? nonAscii(*choice.text).left(40) : QString());
                wrong.append(what);
                if (choice.accepted && mainScript(*choice.text) != mainScript(text))
                    otherScript.append(what);
            }
        }
    }

    for (const auto &[encoding, tally] : byEncoding) {
        std::printf("  %-28s %3d / %3d right (%5.1f%%)\n", qPrintable(TextCodec::displayName(encoding)),
                    tally.right, tally.total, 100.0 * tally.right / tally.total);
    }
    std::printf("  %-28s %3d / %3d right (%5.1f%%)\n", "all", right, total, 100.0 * right / total);
    for (const QString &line : std::as_const(wrong))
        std::printf("  wrong: %s\n", qPrintable(line));

    EXPECT_GE(double(right), 0.97 * total);
    EXPECT_TRUE(otherScript.isEmpty()) << qPrintable(otherScript.join(u'\n'));
}
} // namespace

// Runs the detector, with every shipped rules file, over subtitle files in the languages
// it has rules for, each written in every code page that language's subtitles come in.
// A file counts as right when the detector's text equals the text that was written.

#include "TestSupport.h"
#include "TextCodec.h"
#include "VHEncoding.h"
#include "VHEncodingChooser.h"

#include <QLoggingCategory>
#include <QTime>

#include <gtest/gtest.h>

#include <map>

using namespace Qt::StringLiterals;

namespace {
using namespace Encodings;

// Languages (tests/data/encoding/texts/<language>.txt) by the code pages their subtitles come in.
const std::pair<QStringList, std::vector<EncodingId>> kLanguages[] = {
    {{u"English"_s, u"French"_s, u"German"_s, u"Spanish"_s, u"Italian"_s, u"Portuguese"_s, u"Dutch"_s,
      u"Swedish"_s, u"Danish"_s, u"Norwegian"_s},
     {WindowsCP1252, ISOLatin1, MacRoman}},
    {{u"Polish"_s, u"Czech"_s, u"Slovak"_s, u"Hungarian"_s, u"Croatian"_s, u"Romanian"_s, u"Slovenian"_s},
     {WindowsCP1250, ISOLatin2}},
    {{u"Turkish"_s}, {WindowsCP1254, ISOLatin5}},
    {{u"Russian"_s}, {WindowsCP1251, ISOLatinCyrillic, DOSRussian, MacCyrillic, KOI8R}},
    {{u"Ukrainian"_s}, {WindowsCP1251, KOI8U}},
    {{u"Bulgarian"_s, u"Serbian"_s}, {WindowsCP1251}},
    {{u"Greek"_s}, {WindowsCP1253, ISOLatinGreek, DOSGreek, MacGreek}},
    {{u"Hebrew"_s}, {WindowsHebrew, ISOLatinHebrew, DOSHebrew}},
    {{u"Arabic"_s}, {WindowsArabic}},
    {{u"Japanese"_s}, {ShiftJIS, JapaneseEUC}},
    {{u"ChineseSimplified"_s}, {GB18030, DOSChineseSimplif, EUCCN}},
    {{u"ChineseTraditional"_s}, {DOSChineseTrad, Big5}},
    {{u"Korean"_s}, {DOSKorean, EUCKR}},
};

QStringList dialogueOf(const QString &language)
{
    QStringList lines = QString::fromUtf8(fixtureBytes(u"encoding"_s, u"texts/"_s + language + u".txt"_s))
                            .split(u'\n', Qt::SkipEmptyParts);
    lines.removeIf([](const QString &line) { return line.startsWith(u'#'); });
    return lines;
}

// A SubRip file of `count` cues taken from the dialogue from line `first` on, wrapping around.
QString subRip(const QStringList &dialogue, qsizetype first, qsizetype count, bool windowsLineBreaks)
{
    const auto time = [](int ms) { return QTime::fromMSecsSinceStartOfDay(ms).toString(u"hh:mm:ss,zzz"_s); };
    QString text;
    int start = 1000 + int(first) * 1700;
    for (qsizetype i = 0; i < count; ++i) {
        const int length = 1200 + int((first + i) % 5) * 400;
        text += QString::number(i + 1) + u'\n' + time(start) + u" --> "_s + time(start + length) + u'\n' +
                dialogue.at((first + i) % dialogue.size()) + u"\n\n"_s;
        start += length + 300;
    }
    return windowsLineBreaks ? text.replace(u'\n', u"\r\n"_s) : text;
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
    return found.left(40);
}

// The script most letters of the text belong to (Unknown, Inherited and Common aside).
QChar::Script mainScript(const QString &text)
{
    std::map<QChar::Script, int> counts;
    for (const QChar c : text) {
        if (c.isLetter() && c.script() > QChar::Script_Common)
            ++counts[c.script()];
    }
    const auto most = std::max_element(counts.begin(), counts.end(),
                                       [](const auto &a, const auto &b) { return a.second < b.second; });
    return most == counts.end() ? QChar::Script_Unknown : most->first;
}

TEST(DetectionAccuracy, ChoosesTheRightDecodingForSubtitlesInEveryCodePage)
{
    // Bulk scoring: the per-character diagnostics would be millions of lines.
    QLoggingCategory::setFilterRules(u"captora.encoding.characters=false"_s);
    const VHEncodingChooser &chooser = VHEncodingChooser::sharedEncodingChooser();
    ASSERT_GE(chooser.testers().size(), 40u);

    TempDir dir;
    std::map<EncodingId, std::pair<int, int>> byEncoding; // right, total
    int right = 0;
    int total = 0;
    QStringList wrong;
    QStringList otherScript;
    for (const auto &[languages, encodings] : kLanguages) {
        for (const QString &language : languages) {
            const QStringList dialogue = dialogueOf(language);
            ASSERT_GE(dialogue.size(), 30) << language.toStdString();
            // Short files of three cues, medium ones of fifteen, and a long one; half of the
            // files get Windows line breaks.
            const std::pair<qsizetype, qsizetype> windows[] = {
                {0, 3}, {9, 3}, {18, 3}, {27, 3}, {0, 15}, {15, 15}, {0, dialogue.size() * 4}};
            for (const EncodingId encoding : encodings) {
                for (const auto &[first, count] : windows) {
                    QString text = subRip(dialogue, first, count, ++total % 2 == 0);
                    QByteArray bytes;
                    if (!TextCodec::encode(text, encoding, &bytes)) {
                        text = plainPunctuation(text);
                        ASSERT_TRUE(TextCodec::encode(text, encoding, &bytes))
                            << language.toStdString() << " in " << encoding;
                    }
                    const VHEncodingChooser::Choice choice =
                        chooser.choose(dir.write(u"%1-%2.srt"_s.arg(total).arg(encoding), bytes), 0.6);
                    auto &[encodingRight, encodingTotal] = byEncoding[encoding];
                    ++encodingTotal;
                    if (choice.accepted && *choice.text == text) {
                        ++encodingRight;
                        ++right;
                        continue;
                    }
                    const QString what = u"%1 in %2, %3 cues: %4 (%5 > %6 x 0.6: %7) [%8] read as [%9]"_s.arg(
                        language, QString::number(encoding, 16), QString::number(count),
                        choice.best ? choice.best->name() : u"no tester"_s, QString::number(choice.bestScore),
                        QString::number(choice.length), choice.accepted ? u"accepted"_s : u"rejected"_s,
                        nonAscii(text), choice.text ? nonAscii(*choice.text) : QString());
                    wrong.append(what);
                    if (choice.accepted && mainScript(*choice.text) != mainScript(text))
                        otherScript.append(what);
                }
            }
        }
    }

    for (const auto &[encoding, tally] : byEncoding) {
        std::printf("  %-28s %3d / %3d right (%5.1f%%)\n", qPrintable(TextCodec::displayName(encoding)),
                    tally.first, tally.second, 100.0 * tally.first / tally.second);
    }
    std::printf("  %-28s %3d / %3d right (%5.1f%%)\n", "all", right, total, 100.0 * right / total);
    for (const QString &line : std::as_const(wrong))
        std::printf("  wrong: %s\n", qPrintable(line));

    EXPECT_GE(double(right), 0.97 * total);
    EXPECT_TRUE(otherScript.isEmpty()) << qPrintable(otherScript.join(u'\n'));
}
// What subtitle dialogue alone does not show: the languages of ISO Latin 3 and 4, and texts
// whose letters are few among markup, numbers and Latin names (a web page, an XML file):
// there every decoding shares the ASCII, and the few letters beyond it must decide.
TEST(DetectionAccuracy, LatinThreeAndFourAndTextsHeavyWithMarkup)
{
    QLoggingCategory::setFilterRules(u"captora.encoding.characters=false"_s);
    const VHEncodingChooser &chooser = VHEncodingChooser::sharedEncodingChooser();
    const std::pair<QString, EncodingId> lines[] = {
        {u"Ġejt id-dar għax kont għajjien ħafna. Iċ-ċavetta qiegħda fuq il-mejda."_s, ISOLatin3},
        {u"Ĉu vi ŝatus iri al la ĝardeno? Ĝi estas tre bela ĉi-vespere, ankaŭ por ni."_s, ISOLatin3},
        {u"Yarın sabah İstanbul'a gidiyoruz; bavulları hazırladın mı? Çok geç kalmayalım."_s, ISOLatin3},
        {u"Ma ei tea, kus ta praegu on. Võib-olla läks ta õhtul jõe äärde jalutama."_s, ISOLatin4},
        {u"Mēs nevaram šeit palikt. Vilciens atiet deviņos, un ceļš ir garš."_s, ISOLatin4},
        {u"Kur tu buvai vakar vakare? Aš tau skambinau tris kartus, bet niekas neatsiliepė."_s, ISOLatin4},
    };
    const std::pair<QString, EncodingId> pages[] = {
        {u"Bulgarian"_s, ISOLatinCyrillic}, {u"Bulgarian"_s, WindowsCP1251}, {u"Russian"_s, MacCyrillic},
        {u"Greek"_s, ISOLatinGreek},        {u"Hebrew"_s, ISOLatinHebrew},   {u"Polish"_s, ISOLatin2},
    };
    std::vector<std::pair<QString, EncodingId>> texts;
    for (const auto &[line, encoding] : lines)
        texts.emplace_back(subRip(QStringList{line}, 0, 2, false), encoding);
    for (const auto &[language, encoding] : pages) {
        // A few lines of text in a page of markup ten times their length.
        QString page = u"<!DOCTYPE html>\n<html><head><meta charset=\"x\"><link rel=\"stylesheet\" "
                       u"href=\"/css/site.css?v=3\"><script src=\"/js/app.js\"></script></head><body>\n"_s;
        const QStringList dialogue = dialogueOf(language);
        for (qsizetype i = 0; i < 3; ++i)
            page += u"<div class=\"row item-%1\"><a href=\"https://example.org/item/%1?ref=list&amp;page=2\" "
                    u"title=\"item %1\">%1</a> <span class=\"text\">%2</span></div>\n"_s.arg(i)
                        .arg(dialogue.at(i));
        texts.emplace_back(page + u"</body></html>\n"_s, encoding);
    }

    TempDir dir;
    int n = 0;
    for (const auto &[text, encoding] : texts) {
        QByteArray bytes;
        ASSERT_TRUE(TextCodec::encode(text, encoding, &bytes)) << text.toStdString();
        const VHEncodingChooser::Choice choice = chooser.choose(dir.write(u"%1.txt"_s.arg(++n), bytes), 0.6);
        EXPECT_TRUE(choice.accepted) << text.toStdString();
        EXPECT_EQ(choice.text.value_or(QString()), text)
            << "in " << TextCodec::displayName(encoding).toStdString() << " read by "
            << (choice.best ? choice.best->name().toStdString() : "none");
    }
}
} // namespace

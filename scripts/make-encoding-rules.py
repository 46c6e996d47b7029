#!/usr/bin/env python3
"""Writes resources/encodings/*.encoding, the per-language rules of the encoding detector.

Each rules file scores a file decoded in one encoding for one language:

  good  every character the language's text is made of. ASCII digits, white space and
        punctuation weigh 1 everywhere. ASCII letters weigh 1 in Latin-script languages and
        little in the others (a Cyrillic or Greek text has few of them, and a Latin text
        read by a Cyrillic tester must not pass). The letters of the language weigh more the
        more frequent they are, so that the right decoding, whose letters keep their natural
        frequencies, outscores a wrong one that permutes them (KOI8-R against Windows-1251).
  bad   every other character the encoding can produce: letters of other languages of the
        same script a little, symbols, letters of other scripts and control characters more.
        Those are what a file in another encoding turns into (mojibake).

For the East-Asian encodings the good list holds kana, hangul and the few thousand most
frequent ideographs in tiers by frequency; the bad list holds what a wrong double-byte
decoding produces: kana in Chinese, private-use characters, half-width katakana, the Greek,
Cyrillic and box-drawing rows of the double-byte sets, and so on.

Weights are multiples of 1/32, so that every score sums exactly.

Sources of the letter frequencies: published single-letter frequency tables (written in
below); for the ideographs and syllables, Debian packages that must be installed to run this
script: python3-jieba (Chinese word frequencies), opencc (simplified to traditional),
kanjidic (newspaper frequency ranks of kanji), hunspell-ko (Korean word list).
"""

import collections
import os
import re
import subprocess
import sys
import unicodedata

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
OUT = os.path.join(ROOT, "resources", "encodings")

# Encoding numbers (see src/encoding/EncodingTable.h) and the Python codec that builds the
# byte tables of the single-byte ones.
ENCODINGS = {
    "cp1252": (12, "cp1252"),
    "latin1": (5, "latin_1"),
    "macroman": (30, "mac_roman"),
    "cp1250": (15, "cp1250"),
    "latin2": (9, "iso8859_2"),
    "cp1254": (14, "cp1254"),
    "latin5": (0x80000209, "iso8859_9"),
    "cp1251": (11, "cp1251"),
    "iso8859-5": (0x80000205, "iso8859_5"),
    "cp866": (0x8000041B, "cp866"),
    "maccyrillic": (0x80000007, "mac_cyrillic"),
    "koi8-r": (0x80000A02, "koi8_r"),
    "koi8-u": (0x80000A08, "koi8_u"),
    "cp1253": (13, "cp1253"),
    "iso8859-7": (0x80000207, "iso8859_7"),
    "cp737": (0x80000405, "cp737"),
    "macgreek": (0x80000006, "mac_greek"),
    "cp1255": (0x80000505, "cp1255"),
    "cp862": (0x80000417, "cp862"),
    "iso8859-8": (0x80000208, "iso8859_8"),
    "cp1256": (0x80000506, "cp1256"),
    "shiftjis": (8, None),
    "eucjp": (3, None),
    "gb18030": (0x80000632, None),
    "cp950": (0x80000423, None),
    "cp949": (0x80000422, None),
}

# Rules files are tried in the order of their names, and a tie goes to the first: the
# names begin with a rank, most frequent code pages of subtitle files first.
RANK = {"cp1252": 10, "latin1": 11, "cp1250": 20, "latin2": 21, "cp1254": 30, "latin5": 31, "macroman": 35,
        "cp1251": 40, "koi8-r": 41, "koi8-u": 42, "iso8859-5": 43, "cp866": 44, "maccyrillic": 45,
        "cp1253": 50, "iso8859-7": 51, "cp737": 52, "macgreek": 53, "cp1255": 60, "iso8859-8": 61, "cp862": 62, "cp1256": 70, "gb18030": 80,
        "cp950": 81, "shiftjis": 82, "eucjp": 83, "cp949": 84}

WESTERN = ["cp1252", "latin1", "macroman"]
CENTRAL = ["cp1250", "latin2"]

# Special letters of Latin-script languages: lower-case letter -> share of all letters, in %.
LATIN = {
    "English": ("en", WESTERN, {}),
    "French": ("fr", WESTERN, {"é": 1.9, "è": .27, "à": .49, "ê": .22, "ç": .09, "â": .05, "î": .04,
                               "ô": .02, "ù": .06, "û": .06, "ë": .01, "ï": .01, "œ": .02, "ü": .01,
                               "ÿ": .01, "æ": .01}),
    "German": ("de", WESTERN, {"ä": .58, "ö": .44, "ü": .99, "ß": .31}),
    "Spanish": ("es", WESTERN, {"á": .5, "é": .43, "í": .73, "ó": .83, "ú": .17, "ñ": .31, "ü": .02,
                                "¿": .3, "¡": .2}),
    "Italian": ("it", WESTERN, {"à": .64, "è": .26, "é": .07, "ì": .03, "ò": .15, "ù": .17, "í": .01,
                                "ó": .01, "ú": .01}),
    "Portuguese": ("pt", WESTERN, {"á": .5, "à": .07, "â": .56, "ã": .73, "ç": .53, "é": .34, "ê": .45,
                                   "í": .13, "ó": .3, "ô": .64, "õ": .04, "ú": .2, "ü": .03}),
    "Dutch": ("nl", WESTERN, {"ë": .02, "é": .03, "ï": .01, "ö": .01, "è": .01, "ü": .01}),
    "Swedish": ("sv", WESTERN, {"å": 1.34, "ä": 1.8, "ö": 1.3, "é": .01}),
    "Danish": ("da", WESTERN, {"æ": .87, "ø": .94, "å": 1.19, "é": .01}),
    "Norwegian": ("nb", WESTERN, {"æ": .9, "ø": .9, "å": 1.0, "é": .01}),
    "Polish": ("pl", CENTRAL, {"ą": .99, "ć": .4, "ę": 1.11, "ł": 1.82, "ń": .2, "ó": .85, "ś": .66,
                               "ź": .06, "ż": .83}),
    "Czech": ("cs", CENTRAL, {"á": 2.2, "č": .46, "ď": .02, "é": 1.0, "ě": 1.2, "í": 3.1, "ň": .07,
                              "ó": .03, "ř": .4, "š": .7, "ť": .04, "ú": .05, "ů": .2, "ý": 1.0, "ž": .7}),
    "Slovak": ("sk", CENTRAL, {"á": 2.1, "ä": .1, "č": 1.0, "ď": .2, "é": .7, "í": 1.6, "ĺ": .01, "ľ": .3,
                               "ň": .2, "ó": .2, "ô": .1, "ŕ": .01, "š": .8, "ť": .5, "ú": .7, "ý": 1.4,
                               "ž": .7}),
    "Hungarian": ("hu", CENTRAL, {"á": 3.4, "é": 3.9, "í": .6, "ó": 1.0, "ö": 1.0, "ő": .8, "ú": .3,
                                  "ü": .6, "ű": .1}),
    "Croatian": ("hr", CENTRAL, {"č": 1.1, "ć": .9, "đ": .2, "š": 1.0, "ž": .7}),
    "Romanian": ("ro", CENTRAL, {"ă": 2.2, "â": .8, "î": 1.4, "ş": 1.3, "ţ": 1.0, "ș": 1.3, "ț": 1.0}),
    "Slovenian": ("sl", CENTRAL, {"č": 1.5, "š": 1.0, "ž": .8}),
    "Turkish": ("tr", ["cp1254", "latin5"], {"ç": 1.2, "ğ": 1.1, "ı": 5.1, "ö": .8, "ş": 1.8, "ü": 1.9,
                                             "â": .05, "î": .01, "û": .01}),
}

# Alphabets of the other scripts: letter -> share of all letters, in %.
RUSSIAN = {"о": 10.97, "е": 8.45, "а": 8.01, "и": 7.35, "н": 6.7, "т": 6.26, "с": 5.47, "р": 4.73,
           "в": 4.54, "л": 4.4, "к": 3.49, "м": 3.21, "д": 2.98, "п": 2.81, "у": 2.62, "я": 2.01,
           "ы": 1.9, "ь": 1.74, "г": 1.7, "з": 1.65, "б": 1.59, "ч": 1.44, "й": 1.21, "х": .97,
           "ж": .94, "ш": .73, "ю": .64, "ц": .48, "щ": .36, "э": .32, "ф": .26, "ъ": .04, "ё": .1}
UKRAINIAN = {"о": 9.4, "а": 8.0, "н": 6.6, "і": 5.6, "и": 6.1, "в": 5.0, "т": 5.5, "е": 5.0, "р": 4.8,
             "с": 4.2, "к": 3.9, "л": 3.7, "у": 3.6, "д": 3.2, "м": 3.0, "п": 2.9, "я": 2.2, "з": 2.2,
             "ь": 1.7, "г": 1.5, "б": 1.6, "ч": 1.4, "х": 1.2, "й": 1.1, "ж": .9, "ш": .8, "ю": .8,
             "ї": .8, "є": .7, "ц": .6, "щ": .5, "ф": .2, "ґ": .05}
BULGARIAN = {"а": 9.0, "о": 8.6, "е": 8.0, "и": 7.9, "н": 6.9, "т": 7.1, "р": 5.1, "с": 4.4, "в": 4.2,
             "л": 3.4, "к": 3.5, "д": 3.2, "п": 2.9, "м": 2.7, "з": 2.0, "у": 1.5, "я": 2.0, "ъ": 2.3,
             "б": 1.3, "ч": 1.3, "г": 1.6, "й": .9, "ж": .7, "ц": .9, "ш": .5, "щ": .5, "х": .8,
             "ф": .3, "ь": .1, "ю": .2}
SERBIAN = {"а": 11.7, "и": 9.8, "о": 9.1, "е": 8.5, "н": 5.3, "с": 4.7, "р": 4.6, "т": 4.5, "ј": 4.8,
           "у": 4.0, "д": 3.5, "к": 3.5, "в": 3.3, "л": 2.9, "м": 3.2, "п": 2.8, "з": 1.6, "г": 1.5,
           "б": 1.5, "ч": 1.1, "ш": .8, "ц": .8, "ћ": .9, "ж": .6, "х": .4, "љ": .5, "њ": .6, "ђ": .2,
           "џ": .1, "ф": .2}
GREEK = {"α": 12.0, "ο": 9.8, "ι": 7.7, "ε": 8.0, "τ": 8.0, "σ": 4.5, "ς": 2.8, "ν": 6.6, "η": 4.6,
         "υ": 4.2, "ρ": 4.3, "π": 4.0, "κ": 4.0, "μ": 3.2, "λ": 2.8, "ω": 1.6, "δ": 1.8, "γ": 1.8,
         "θ": 1.2, "χ": 1.1, "β": .8, "φ": .8, "ξ": .3, "ζ": .4, "ψ": .1, "ά": 2.1, "έ": 1.6, "ί": 1.9,
         "ό": 1.8, "ή": 1.0, "ύ": .9, "ώ": .7, "ϊ": .05, "ΐ": .02, "ϋ": .02, "ΰ": .01}
HEBREW = {"י": 11.0, "ו": 10.0, "ה": 8.7, "ל": 7.0, "א": 6.3, "ר": 5.5, "ת": 5.3, "ש": 4.5, "ב": 4.6,
          "מ": 4.5, "נ": 3.0, "ע": 2.7, "ד": 2.5, "כ": 2.3, "ם": 2.8, "ק": 1.9, "ח": 2.2, "פ": 1.4,
          "ן": 1.2, "ג": 1.1, "ס": 1.0, "צ": .9, "ט": 1.1, "ז": .8, "ך": .6, "ף": .3, "ץ": .2}
ARABIC = {"ا": 13.0, "ل": 11.0, "ي": 7.5, "م": 6.0, "و": 6.0, "ن": 5.6, "ه": 4.5, "ر": 4.5, "ب": 3.6,
          "ت": 3.9, "ع": 3.2, "ف": 2.7, "ك": 2.5, "د": 2.9, "س": 2.5, "ق": 2.0, "ة": 2.8, "أ": 2.6,
          "ح": 2.0, "ج": 1.2, "إ": 1.0, "ى": 1.1, "ذ": .8, "ش": .9, "ص": .8, "ط": .7, "خ": .9, "ز": .5,
          "ض": .5, "غ": .4, "ث": .5, "ظ": .2, "ء": .4, "ئ": .4, "ؤ": .2, "آ": .2}

ALPHABETIC = {
    "Russian": ("ru", ["cp1251", "iso8859-5", "cp866", "maccyrillic", "koi8-r"], RUSSIAN, "«»„“”–—…№‘’"),
    "Ukrainian": ("uk", ["cp1251", "koi8-u"], UKRAINIAN, "«»„“”–—…№‘’ʼ"),
    "Bulgarian": ("bg", ["cp1251"], BULGARIAN, "«»„“”–—…№‘’"),
    "Serbian": ("sr", ["cp1251"], SERBIAN, "«»„“”–—…№‘’"),
    "Greek": ("el", ["cp1253", "iso8859-7", "cp737", "macgreek"], GREEK, "«»“”–—…΄·;"),
    "Hebrew": ("he", ["cp1255", "iso8859-8", "cp862"], HEBREW, "“”‘’–—…״׳\u200f\u200e"),
    "Arabic": ("ar", ["cp1256"], ARABIC, "،؛؟«»“”–—…ـ\u200f\u200e"),
}

UNLISTABLE = "\t\n\r"
ASCII_NEUTRAL = "0123456789 .,:;!?'\"-()<>/[]{}&%+=*#@_~$|\\^`"
LATIN_TYPOGRAPHY = "’‘“”„‚«»‹›–—…•·°€\u00a0"


def weight(x):
    """Rounds to a multiple of 1/32 and prints it without trailing zeros."""
    v = round(x * 32) / 32
    text = f"{v:.5f}".rstrip("0").rstrip(".")
    return text if text not in ("", "-0") else "0"


def byte_chars(codec):
    """Characters the single-byte encoding can produce from one byte."""
    chars = set()
    for b in range(256):
        try:
            chars.add(bytes([b]).decode(codec))
        except UnicodeDecodeError:
            pass
    return chars


def is_letter(c):
    return unicodedata.category(c).startswith("L")


def script_of(c):
    name = unicodedata.name(c, "")
    for script in ("LATIN", "CYRILLIC", "GREEK", "HEBREW", "ARABIC"):
        if name.startswith(script):
            return script
    return None


def bad_weight(c, script):
    """How strongly a character that the language does not use betrays a wrong decoding."""
    if unicodedata.category(c) in ("Cc", "Co", "Cn", "Cs"):
        return 3.0
    if is_letter(c) or unicodedata.category(c) == "Mn":
        return 1.5 if script_of(c) == script else 2.5
    return 3.0


def write_rules(filename, name, locale, number, good, bad, comment):
    tag = filename[:-len(".encoding")].split("-", 1)[1]
    filename = f"{RANK[tag]}-{filename}"
    for c in list(bad):
        if c in good:
            del bad[c]
    lines = [f"comment: {comment}", f"name: {name}", f"locale: {locale}", f"nsstring: {number}", "goodfactor: 1",
             "badfactor: 1", "good:"]
    # Tab and line ends cannot stand as the character of a line: they weigh 0.
    lines += [f"{c}\t{weight(w)}" for c, w in sorted(good.items()) if c not in UNLISTABLE]
    lines.append("bad:")
    lines += [f"{c}\t{weight(w)}" for c, w in sorted(bad.items()) if c not in UNLISTABLE]
    with open(os.path.join(OUT, filename), "w", encoding="utf-8") as f:
        f.write("\n".join(lines) + "\n")


def neutral(ascii_letter_weight):
    good = {c: 1.0 for c in ASCII_NEUTRAL}
    for c in "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ":
        good[c] = ascii_letter_weight
    return good


def control_bad():
    """C0 and C1 controls: ICU decodes the unassigned bytes of the Windows code pages to C1."""
    controls = [chr(i) for i in range(32) if chr(i) not in "\t\n\r"] + [chr(i) for i in range(0x7f, 0xa0)]
    return {c: 3.0 for c in controls}


def latin_files():
    for language, (locale, encodings, specials) in LATIN.items():
        for tag in encodings:
            number, codec = ENCODINGS[tag]
            good = neutral(1.0)
            for c in LATIN_TYPOGRAPHY:
                good[c] = 1.0
            # A letter two languages share weighs about the same in both, so that a text is
            # not taken for the language where the letter is more frequent: the letters that the
            # other decoding turns into other languages' letters or symbols decide. Frequent
            # letters weigh a little more, rare ones less, and letters rarer than 1 in 5,000
            # count as neither good nor bad. Capitals all weigh 1.
            for c, share in specials.items():
                good[c] = 2.0 if share >= 0.5 else 1.875 if share >= 0.15 else 1.25 if share >= 0.02 else 0
                if len(c.upper()) == 1 and c.upper() != c:
                    good[c.upper()] = 1.0 if share >= 0.02 else 0
            if language == "Turkish":
                good["İ"] = 1.0
            bad = control_bad()
            for c in byte_chars(codec):
                if (ord(c) >= 0x80 or c in bad) and c not in good:
                    bad[c] = bad_weight(c, "LATIN")
            write_rules(f"{language}-{tag}.encoding", f"{language} ({tag})", locale, number, good, bad,
                        f"{language} text in {tag}; generated by scripts/make-encoding-rules.py")


def shared_shares(script):
    """Letter shares averaged over the languages of one script that have the letter: a letter
    two languages share then weighs the same in both, and only their own letters (and the bad
    lists) tell them apart, while the weights still follow frequency enough to tell a right
    decoding from one that permutes the letters."""
    sums, counts = collections.Counter(), collections.Counter()
    for _, _, letters, _ in ALPHABETIC.values():
        if script_of(next(iter(letters))) == script:
            for c, share in letters.items():
                sums[c] += share
                counts[c] += 1
    return {c: sums[c] / counts[c] for c in sums}


def alphabetic_files():
    for language, (locale, encodings, own, punctuation) in ALPHABETIC.items():
        script = script_of(next(iter(own)))
        shared = shared_shares(script)
        letters = {c: shared[c] for c in own}
        for tag in encodings:
            number, codec = ENCODINGS[tag]
            good = neutral(0.25)
            for c in punctuation:
                good[c] = 1.0
            if language == "Greek":
                # Elision marks; 8859-7 has them where code page 1253 has capital alpha with tonos.
                good["‘"] = good["’"] = 0.75
            for c, share in letters.items():
                good[c] = 0.75 + 0.25 * share
                upper = c.upper()
                if len(upper) == 1 and upper != c:
                    good[upper] = 0.75 + 0.0625 * share
            for c in byte_chars(codec):
                if unicodedata.category(c) == "Mn" and script_of(c) == script:
                    good.setdefault(c, 0.5)  # vowel points and harakat
                elif script == "ARABIC" and is_letter(c) and script_of(c) == script:
                    good.setdefault(c, 0.5)  # letters of Persian and Urdu
            bad = control_bad()
            for c in byte_chars(codec):
                if (ord(c) >= 0x80 or c in bad) and c not in good:
                    bad[c] = bad_weight(c, script)
            write_rules(f"{language}-{tag}.encoding", f"{language} ({tag})", locale, number, good, bad,
                        f"{language} text in {tag}; generated by scripts/make-encoding-rules.py")


# Korean syllables that carry most dialogue (particles, endings, pronouns); the word list
# below knows stems only and would rank them too low.
KOREAN_COMMON = ("이다는요하가고지에어을를서나니게아한의로도기해리사있거자내그야라면까시수대들우주보네말데"
                 "안제정인전것했습은무일러여만오왜뭐진좀잘너난날걸건겠었았였줘죠봐와과께님씨할함된되돼않없"
                 "알모생각세예응저우리당신어요래요떻게금마음사람때못더같네요미안감사합니다")
PUNCTUATION_CJK = "，。！？、；：“”‘’（）《》〈〉…—·「」『』【】〔〕～・　﹁﹂︰"


def ranked(counts, encodable):
    return [c for c, _ in counts.most_common() if encodable(c)]


def can_encode(codec):
    def check(c):
        try:
            c.encode(codec)
            return True
        except UnicodeEncodeError:
            return False
    return check


def chinese_counts():
    counts = collections.Counter()
    with open("/usr/lib/python3/dist-packages/jieba/dict.txt", encoding="utf-8") as f:
        for line in f:
            parts = line.split()
            if len(parts) >= 2:
                for c in parts[0]:
                    if "\u4e00" <= c <= "\u9fff":
                        counts[c] += int(parts[1])
    return counts


def traditional_counts(simplified):
    top = [c for c, _ in simplified.most_common(6000)]
    converted = subprocess.run(["opencc", "-c", "s2tw.json"], input="\n".join(top), capture_output=True,
                               text=True, check=True).stdout.split("\n")
    counts = collections.Counter()
    for s, t in zip(top, converted):
        if len(t) == 1:
            counts[t] += simplified[s]
    return counts


def kanji_ranks():
    ranks = {}
    with open("/usr/share/edict/kanjidic", encoding="euc_jp", errors="replace") as f:
        for line in f:
            m = re.search(r" F(\d+) ", line)
            if m and not line.startswith("#"):
                ranks[line[0]] = int(m.group(1))
    return ranks


def korean_counts():
    counts = collections.Counter()
    with open("/usr/share/hunspell/ko.dic", encoding="utf-8") as f:
        next(f)
        for line in f:
            for c in line.split("/")[0]:
                if "\uac00" <= c <= "\ud7a3":
                    counts[c] += 1
    return counts


def tiered(chars, tiers):
    """Weights for characters in frequency order: tiers is [(count, weight), ...]."""
    good, start = {}, 0
    for count, w in tiers:
        for c in chars[start:count]:
            good[c] = w
        start = count
    return good


def chars_in(first, last, encodable=None):
    return [chr(i) for i in range(first, last + 1) if encodable is None or encodable(chr(i))]


def east_asian_common(good, bad):
    for c in PUNCTUATION_CJK:
        good.setdefault(c, 1.25)
    for c in chars_in(0xFF10, 0xFF5A):
        if c.isalnum():
            good.setdefault(c, 0.75)
    for c in chars_in(0x0391, 0x03C9) + chars_in(0x0401, 0x0451) + chars_in(0x2500, 0x257F):
        bad.setdefault(c, 1.0)
    bad.update(control_bad())


HANZI_TIERS = [(100, 3.0), (500, 2.25), (1000, 1.5), (2500, 1.0), (4000, 0.5)]


def east_asian_files():
    simplified = chinese_counts()

    # Simplified Chinese, GB 18030 (and so GBK and code page 936 files, read alike).
    good = neutral(0.5) | tiered(ranked(simplified, can_encode("gb2312")), HANZI_TIERS)
    bad = {c: 1.5 for c in chars_in(0x3041, 0x30FF)}
    bad |= {c: 1.0 for c in chars_in(0x3105, 0x3129)}
    bad |= {c: 3.0 for c in chars_in(0xE000, 0xE864)}
    east_asian_common(good, bad)
    write_rules("Chinese-gb18030.encoding", "Simplified Chinese (GB 18030)", "zh-Hans", ENCODINGS["gb18030"][0],
                good, bad, "Simplified Chinese in GB 18030; generated by scripts/make-encoding-rules.py")

    # Traditional Chinese, code page 950 (Big5).
    good = neutral(0.5) | tiered(ranked(traditional_counts(simplified), can_encode("cp950")), HANZI_TIERS)
    bad = {c: 1.5 for c in chars_in(0x3041, 0x30FF)}
    bad |= {c: 0.5 for c in chars_in(0x3105, 0x3129)}
    bad |= {c: 3.0 for c in chars_in(0xE000, 0xF848)}
    east_asian_common(good, bad)
    write_rules("Chinese-cp950.encoding", "Traditional Chinese (Big5)", "zh-Hant", ENCODINGS["cp950"][0], good,
                bad, "Traditional Chinese in code page 950 (Big5); generated by scripts/make-encoding-rules.py")

    # Japanese, Shift JIS (code page 932) and EUC-JP.
    ranks = kanji_ranks()
    kanji = sorted(ranks, key=ranks.get)
    for tag, title in (("shiftjis", "Shift JIS"), ("eucjp", "EUC-JP")):
        good = neutral(0.5) | tiered(kanji, [(100, 2.5), (500, 2.0), (1000, 1.5), (2500, 1.0)])
        for c in chars_in(0x3041, 0x3096):
            good[c] = 2.0
        for c in "のにはをたがでてとしいかなるすっまんうこ":
            good[c] = 2.5
        for c in chars_in(0x30A1, 0x30FA) + ["ー"]:
            good[c] = 1.75
        for c in "ヽヾゝゞ々〆":
            good[c] = 1.0
        bad = {c: 2.0 for c in chars_in(0xFF61, 0xFF9F)}
        bad |= {c: 3.0 for c in chars_in(0xE000, 0xE757)}
        east_asian_common(good, bad)
        write_rules(f"Japanese-{tag}.encoding", f"Japanese ({title})", "ja", ENCODINGS[tag][0], good, bad,
                    f"Japanese in {title}; generated by scripts/make-encoding-rules.py")

    # Korean, code page 949 (and so EUC-KR files, read alike).
    euc_kr = can_encode("euc_kr")
    syllables = list(dict.fromkeys(list(KOREAN_COMMON) + ranked(korean_counts(), euc_kr)))
    good = neutral(0.5) | {c: 0.75 for c in syllables}
    good |= tiered(syllables, [(len(set(KOREAN_COMMON)), 3.0), (400, 2.25), (1000, 1.5)])
    for c in chars_in(0x3131, 0x318E):
        good[c] = 1.0
    bad = {c: 1.5 for c in chars_in(0x3041, 0x30FF)}
    bad |= {c: 0.5 for c in chars_in(0x4E00, 0x9FFF, euc_kr)}
    east_asian_common(good, bad)
    write_rules("Korean-cp949.encoding", "Korean (code page 949)", "ko", ENCODINGS["cp949"][0], good, bad,
                "Korean in code page 949 (and EUC-KR); generated by scripts/make-encoding-rules.py")


if __name__ == "__main__":
    os.makedirs(OUT, exist_ok=True)
    for old in os.listdir(OUT):
        if old.endswith(".encoding"):
            os.remove(os.path.join(OUT, old))
    latin_files()
    alphabetic_files()
    east_asian_files()

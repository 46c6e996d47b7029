#!/usr/bin/env python3
"""Writes resources/encodings/*.encoding, the per-language rules of the encoding detector,
from the training part of the corpus that tools/encoding-corpus/build-corpus.sh builds.

    generate.py CORPUS [OUT]      (OUT: resources/encodings of this repository)

The detector scores a file once per rules file: it decodes the file in the rules' encoding
and adds, for every character, the character's good weight and subtracts its bad weight. The
best score wins if it is above 0.6 per character. The weights are learnt here so that on the
training texts, written in every encoding their language comes in:

  - the rules of the text's language and encoding outscore every rules file whose decoding
    of the bytes differs from the text by a margin that grows with the number of characters
    beyond ASCII (the only ones that differ between decodings), and
  - they score above 0.6 per character.

Every printable ASCII character weighs the same in every rules file (0.75: above the 0.6
asked per character by enough to make up for line ends, which weigh nothing), so markup, numbers and Latin letters never decide between decodings; the
characters beyond ASCII do. Their weights start from counting: log-frequency in the
language (smoothed) for the characters the language uses, a penalty for the others. Then an
averaged perceptron with margin corrects them: every training text where a wrong decoding
comes too close raises the right rules' weights of its characters and lowers the wrong
rules' weights of the characters that decoding made. Weights are multiples of 1/32, so every
score sums exactly.
"""

import codecs
import collections
import math
import os
import random
import sys
import unicodedata

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))

# Encoding tag -> (number in src/encoding/EncodingTable.h, Python codec, rank). Rules files
# are tried in the order of their names and a tie goes to the first: the names begin with
# the rank, the more frequent code pages of subtitle files first.
ENCODINGS = {
    "cp1252": (12, "cp1252", 10),
    "latin1": (5, "latin_1", 11),
    "cp1250": (15, "cp1250", 20),
    "latin2": (9, "iso8859_2", 21),
    "cp1254": (14, "cp1254", 30),
    "latin5": (0x80000209, "iso8859_9", 31),
    "latin3": (0x80000203, "iso8859_3", 32),
    "latin4": (0x80000204, "iso8859_4", 33),
    "macroman": (30, "mac_roman", 35),
    "cp1251": (11, "cp1251", 40),
    "koi8-r": (0x80000A02, "koi8_r", 41),
    "koi8-u": (0x80000A08, "koi8_u", 42),
    "iso8859-5": (0x80000205, "iso8859_5", 43),
    "cp866": (0x8000041B, "cp866", 44),
    "maccyrillic": (0x80000007, "mac_cyrillic", 45),
    "cp1253": (13, "cp1253", 50),
    "iso8859-7": (0x80000207, "iso8859_7", 51),
    "cp737": (0x80000405, "cp737", 52),
    "macgreek": (0x80000006, "mac_greek", 53),
    "cp1255": (0x80000505, "cp1255", 60),
    "iso8859-8": (0x80000208, "iso8859_8", 61),
    "cp862": (0x80000417, "cp862", 62),
    "cp1256": (0x80000506, "cp1256", 70),
    "gb18030": (0x80000632, "gb18030", 80),
    "cp950": (0x80000423, "cp950", 81),
    "shiftjis": (8, "cp932", 82),
    "eucjp": (3, "euc_jp", 83),
    "cp949": (0x80000422, "cp949", 84),
    "johab": (0x80000510, "johab", 85),
}
MULTI_BYTE = {"gb18030", "cp950", "shiftjis", "eucjp", "cp949", "johab"}

WESTERN = ["cp1252", "latin1", "macroman"]
CENTRAL = ["cp1250", "latin2"]
CYRILLIC = ["cp1251", "iso8859-5", "cp866", "maccyrillic"]

# Language -> (locale, encodings its files come in). A language has one rules file for each.
LANGUAGES = {
    "English": ("en", WESTERN),
    "French": ("fr", WESTERN),
    "German": ("de", WESTERN),
    "Spanish": ("es", WESTERN),
    "Italian": ("it", WESTERN),
    "Portuguese": ("pt", WESTERN),
    "Dutch": ("nl", WESTERN),
    "Swedish": ("sv", WESTERN),
    "Danish": ("da", WESTERN),
    "Norwegian": ("nb", WESTERN),
    "Finnish": ("fi", WESTERN),
    "Catalan": ("ca", WESTERN),
    "Icelandic": ("is", WESTERN),
    "Irish": ("ga", WESTERN),
    "Polish": ("pl", CENTRAL),
    "Czech": ("cs", CENTRAL),
    "Slovak": ("sk", CENTRAL),
    "Hungarian": ("hu", CENTRAL),
    "Croatian": ("hr", CENTRAL),
    "Romanian": ("ro", CENTRAL),
    "Slovenian": ("sl", CENTRAL),
    "Turkish": ("tr", ["cp1254", "latin5", "latin3"]),
    "Maltese": ("mt", ["latin3"]),
    "Esperanto": ("eo", ["latin3"]),
    "Estonian": ("et", ["latin4", "cp1252"]),
    "Latvian": ("lv", ["latin4"]),
    "Lithuanian": ("lt", ["latin4"]),
    "Russian": ("ru", CYRILLIC + ["koi8-r"]),
    "Ukrainian": ("uk", CYRILLIC + ["koi8-u"]),
    "Bulgarian": ("bg", CYRILLIC),
    "Serbian": ("sr", CYRILLIC),
    "Macedonian": ("mk", CYRILLIC),
    "Belarusian": ("be", CYRILLIC),
    "Greek": ("el", ["cp1253", "iso8859-7", "cp737", "macgreek"]),
    "Hebrew": ("he", ["cp1255", "iso8859-8", "cp862"]),
    "Arabic": ("ar", ["cp1256"]),
    "Japanese": ("ja", ["shiftjis", "eucjp"]),
    "ChineseSimplified": ("zh-Hans", ["gb18030"]),
    "ChineseTraditional": ("zh-Hant", ["cp950"]),
    "Korean": ("ko", ["cp949", "johab"]),
}

ASCII_WEIGHT = 0.75        # every printable ASCII character, in every rules file
CONTROL_WEIGHT = -1.0      # C0 controls but tab, line feed, carriage return
MARGIN = 1.0               # per character beyond ASCII, between right and wrong
RATIO = 0.6
LIMIT = 8.0
EPOCHS = 5

# Punctuation that code pages lack, by its plain form, so a text can be written in them.
PLAIN = {"’": "'", "‘": "'", "‚": ",", "“": '"', "”": '"', "„": '"', "«": '"', "»": '"', "‹": "<", "›": ">",
         "–": "-", "—": "-", "…": "...", "•": "*", "·": ".", "€": "EUR", "©": "(c)", "®": "(R)", "™": "(TM)",
         "\u00a0": " ", "\u2009": " ", "\u202f": " ", "\u200b": "", "\ufeff": "", "−": "-", "×": "x",
         "→": "->", "←": "<-", "≤": "<=", "≥": ">=", "œ": "oe", "Œ": "OE", "ß": "ss"}


def table(tag):
    """The character of each byte in a single-byte encoding, None where it is invalid. The
    unassigned bytes 0x80-0x9F of the Windows code pages read as C1 controls, as ICU has them."""
    codec = ENCODINGS[tag][1]
    out = []
    for b in range(256):
        try:
            out.append(bytes([b]).decode(codec))
        except UnicodeDecodeError:
            out.append(chr(b) if 0x80 <= b < 0xA0 and tag.startswith("cp125") else None)
    return out


def encode(text, tag):
    """The text in the encoding; characters it lacks by their plain forms, else left out."""
    codec = ENCODINGS[tag][1]
    try:
        return text.encode(codec)
    except UnicodeEncodeError:
        pass
    out = bytearray()
    for c in text:
        for candidate in (c, PLAIN.get(c), unicodedata.normalize("NFC", c)):
            if candidate is None:
                continue
            try:
                out += candidate.encode(codec)
                break
            except UnicodeEncodeError:
                continue
    return bytes(out)


class Tester:
    def __init__(self, language, tag):
        self.language, self.tag = language, tag
        self.number, self.codec, self.rank = ENCODINGS[tag]
        self.multi = tag in MULTI_BYTE
        self.table = None if self.multi else table(tag)
        # Weights of the characters beyond ASCII: by byte for single-byte encodings.
        self.w = {} if self.multi else [0.0] * 128
        self.total = {} if self.multi else [0.0] * 128  # for averaging
        self.stamp = {} if self.multi else [0] * 128
        self.step = 0

    def get(self, key):
        return self.w.get(key, 0.0) if self.multi else self.w[key]

    def add(self, key, delta, step):
        """Perceptron update with lazy averaging."""
        if self.multi:
            old = self.w.get(key, 0.0)
            self.total[key] = self.total.get(key, 0.0) + old * (step - self.stamp.get(key, 0))
            self.stamp[key] = step
            self.w[key] = max(-LIMIT, min(LIMIT, old + delta))
        else:
            old = self.w[key]
            self.total[key] += old * (step - self.stamp[key])
            self.stamp[key] = step
            self.w[key] = max(-LIMIT, min(LIMIT, old + delta))

    def averaged(self, step):
        keys = self.w.keys() if self.multi else range(128)
        out = {}
        for k in keys:
            stamp = self.stamp.get(k, 0) if self.multi else self.stamp[k]
            total = (self.total.get(k, 0.0) if self.multi else self.total[k]) + self.get(k) * (step - stamp)
            out[k] = total / max(step, 1)
        return out


class Example:
    """One training text written in one encoding, with what every decoding of it looks like."""

    __slots__ = ("language", "tag", "high", "ascii", "length", "truth", "multi", "nonascii")

    def __init__(self, language, tag, text, data, multi_tags):
        self.language, self.tag = language, tag
        self.truth = text
        counts = collections.Counter(data)
        self.high = {b - 128: n for b, n in counts.items() if b >= 0x80}
        self.ascii = sum(n for b, n in counts.items() if 0x20 <= b < 0x7F)
        self.ascii -= 0  # controls are counted apart
        self.length = len(data)
        self.nonascii = sum(self.high.values())
        # Decodings in the multi-byte encodings: (histogram beyond ASCII, ASCII count,
        # length), or None when the bytes are not valid there.
        self.multi = {}
        for t in multi_tags:
            try:
                decoded = data.decode(ENCODINGS[t][1])
            except UnicodeDecodeError:
                continue
            hist = collections.Counter(c for c in decoded if ord(c) >= 0x80)
            ascii_count = sum(1 for c in decoded if " " <= c < "\x7f")
            self.multi[t] = (hist, ascii_count, len(decoded), decoded)


def controls(example_text):
    return sum(1 for c in example_text if ord(c) < 0x20 and c not in "\t\n\r")


def read_corpus(folder):
    texts = {}
    for language in LANGUAGES:
        path = os.path.join(folder, "train", language)
        docs = []
        if os.path.isdir(path):
            for name in sorted(os.listdir(path)):
                with open(os.path.join(path, name), encoding="utf-8") as f:
                    docs.append(f.read())
        texts[language] = docs
    return texts


def pieces(doc, rng):
    """Training texts from one document: the whole, a medium part and a few short lines,
    some of them as subtitle cues (ASCII numbers and times between the lines)."""
    lines = [l for l in doc.split("\n") if l.strip()]
    out = ["\n".join(lines)]
    if len(lines) > 8:
        start = rng.randrange(len(lines) - 6)
        out.append("\n".join(lines[start:start + 6]))
    for _ in range(2):
        start = rng.randrange(len(lines))
        short = lines[start:start + rng.choice((1, 2, 3))]
        if rng.random() < 0.5:
            short = [f"{i + 1}\n00:00:{i:02d},000 --> 00:00:{i + 1:02d},500\n{l}\n" for i, l in enumerate(short)]
        out.append("\n".join(short))
    # Some with Windows line ends: a line end weighs nothing (it cannot stand in a rules
    # file), and two of them per line must not sink a subtitle file below the ratio.
    out = [p.replace("\n", "\r\n") if rng.random() < 0.3 else p for p in out]
    return [p for p in out if not p.isascii()]


def make_examples(texts, rng, limit_per_language):
    multi_tags = sorted(MULTI_BYTE)
    examples = []
    for language, docs in texts.items():
        tags = LANGUAGES[language][1]
        made = 0
        for doc in docs:
            for piece in pieces(doc, rng):
                for tag in tags:
                    data = encode(piece, tag)
                    if data.isascii():
                        continue
                    truth = data.decode(ENCODINGS[tag][1], errors="replace")
                    examples.append(Example(language, tag, truth, data, multi_tags))
                made += 1
            if made >= limit_per_language:
                break
        print(f"  {language}: {made} texts", flush=True)
    return examples


def right_testers(example, testers, tables):
    """Indices of the testers whose decoding of the example is the text itself."""
    right = set()
    true_table = tables.get(example.tag)
    for i, t in enumerate(testers):
        if t.multi:
            if t.tag in example.multi and example.multi[t.tag][3] == example.truth:
                right.add(i)
        elif true_table is not None:
            tt = tables[t.tag]
            if all(tt[b + 128] == true_table[b + 128] for b in example.high):
                right.add(i)
    return right


def score(t, x):
    """The tester's score of the example and its decoding's length, None when it does not decode."""
    if t.multi:
        decoded = x.multi.get(t.tag)
        if decoded is None:
            return None, 0
        hist, ascii_count, length, _ = decoded
        w = t.w
        return ASCII_WEIGHT * ascii_count + sum(n * w.get(c, 0.0) for c, n in hist.items()), length
    tt = t.table
    w = t.w
    s = ASCII_WEIGHT * x.ascii
    for b, n in x.high.items():
        if tt[b + 128] is None:
            return None, 0
        s += n * w[b]
    return s, x.length


def initial_weights(testers, texts):
    """Counting: a character seen at least three times in the language's training text
    starts at 0.75 to 3 by its frequency against the average character of the language (so
    that the thousands of ideographs of Chinese start as high as the letters of Russian);
    one never seen there starts at -2 in a single-byte encoding (what a wrong decoding makes)
    and unlisted in a multi-byte one."""
    for t in testers:
        counts = collections.Counter()
        for doc in texts[t.language]:
            counts.update(c for c in doc if ord(c) >= 0x80)
        seen = {c: n for c, n in counts.items() if n >= 3}
        total = sum(seen.values()) + 1
        distinct = max(len(seen), 1)

        def init(c):
            if c not in seen:
                return -2.0
            return max(0.75, min(3.0, 1.0 + 0.5 * math.log2(seen[c] / total * distinct)))

        if t.multi:
            for c in seen:
                try:
                    c.encode(t.codec)
                except UnicodeEncodeError:
                    continue
                t.w[c] = init(c)
        else:
            for b in range(128):
                c = t.table[b + 128]
                t.w[b] = init(c) if c is not None else -LIMIT


def train(testers, examples, rng):
    tables = {tag: table(tag) for tag in ENCODINGS if tag not in MULTI_BYTE}
    by_key = {(t.language, t.tag): i for i, t in enumerate(testers)}
    rights = [right_testers(x, testers, tables) for x in examples]
    step = 0
    for epoch in range(EPOCHS):
        order = list(range(len(examples)))
        rng.shuffle(order)
        errors = 0
        updates = 0
        for k in order:
            x = examples[k]
            step += 1
            r = by_key[(x.language, x.tag)]
            right = rights[k]
            best_wrong, best_wrong_score = None, 0.0
            right_best = -1e18
            valid = {}
            for i, t in enumerate(testers):
                if t.multi:
                    s, _ = score(t, x)
                else:
                    ok = valid.get(t.tag)
                    if ok is None:
                        ok = valid[t.tag] = all(t.table[b + 128] is not None for b in x.high)
                    w = t.w
                    s = ASCII_WEIGHT * x.ascii + sum(n * w[b] for b, n in x.high.items()) if ok else None
                if s is None:
                    continue
                if i in right:
                    right_best = max(right_best, s)
                elif s > best_wrong_score:
                    best_wrong, best_wrong_score = i, s
            s_r, length = score(testers[r], x)
            n = max(x.nonascii, 1)
            if best_wrong is not None and best_wrong_score >= right_best:
                errors += 1
            need = max(best_wrong_score + MARGIN * n, RATIO * length + MARGIN * n)
            if s_r < need:
                updates += 1
                rate = min(1.0, (need - s_r) / n) / n
                update_towards(testers[r], x, rate, step)
                if best_wrong is not None and best_wrong_score + MARGIN * n > s_r:
                    update_towards(testers[best_wrong], x, -rate, step)
        print(f"  epoch {epoch + 1}: {errors} of {len(examples)} wrong before update, {updates} updates",
              flush=True)
    for t in testers:
        t.final = t.averaged(step)


def update_towards(t, x, rate, step):
    if t.multi:
        hist = x.multi[t.tag][0]
        for c, n in hist.items():
            t.add(c, rate * n, step)
    else:
        for b, n in x.high.items():
            t.add(b, rate * n, step)


def weight_text(v):
    v = round(v * 32) / 32
    text = f"{v:.5f}".rstrip("0").rstrip(".")
    return text if text not in ("", "-0") else "0"


def write_rules(t, out):
    good, bad = {}, {}
    for b in range(0x20, 0x7F):
        good[chr(b)] = ASCII_WEIGHT
    for b in list(range(0x20)) + [0x7F]:
        if chr(b) not in "\t\n\r":
            bad[chr(b)] = -CONTROL_WEIGHT
    if t.multi:
        items = t.final.items()
    else:
        items = ((t.table[b + 128], w) for b, w in t.final.items() if t.table[b + 128] is not None)
    for c, w in items:
        if len(c) != 1 or ord(c) > 0xFFFF or ord(c) < 0x80:
            continue  # one UTF-16 unit per rules line
        w = round(w * 32) / 32
        if w > 0:
            good[c] = w
        elif w < 0:
            bad[c] = -w
    name = f"{t.language} ({t.tag})"
    lines = [f"comment: {t.language} text in {t.tag}; generated by tools/encoding-rules/generate.py",
             f"name: {name}", f"locale: {LANGUAGES[t.language][0]}", f"nsstring: {t.number}", "goodfactor: 1",
             "badfactor: 1", "good:"]
    lines += [f"{c}\t{weight_text(w)}" for c, w in sorted(good.items())]
    lines.append("bad:")
    lines += [f"{c}\t{weight_text(w)}" for c, w in sorted(bad.items())]
    with open(os.path.join(out, f"{t.rank}-{t.language}-{t.tag}.encoding"), "w", encoding="utf-8") as f:
        f.write("\n".join(lines) + "\n")


def main():
    corpus = sys.argv[1]
    out = sys.argv[2] if len(sys.argv) > 2 else os.path.join(ROOT, "resources", "encodings")
    per_language = int(os.environ.get("RULES_TEXTS_PER_LANGUAGE", "150"))
    rng = random.Random(14)
    texts = read_corpus(corpus)
    testers = [Tester(language, tag) for language, (_, tags) in LANGUAGES.items() for tag in tags]
    print(f"{len(testers)} rules files; making training texts", flush=True)
    examples = make_examples(texts, rng, per_language)
    print(f"{len(examples)} training texts; counting", flush=True)
    initial_weights(testers, texts)
    train(testers, examples, rng)
    os.makedirs(out, exist_ok=True)
    for old in os.listdir(out):
        if old.endswith(".encoding"):
            os.remove(os.path.join(out, old))
    for t in testers:
        write_rules(t, out)
    print(f"wrote {len(testers)} rules files to {out}")


if __name__ == "__main__":
    main()

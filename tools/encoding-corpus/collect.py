#!/usr/bin/env python3
"""Collects real text in every language the encoding rules cover from what Debian packages
ship, and splits it into a training part and a held-out part.

    collect.py OUT

writes OUT/train/<language>/NNNN.txt and OUT/heldout/<language>/NNNN.txt (UTF-8), one
document per file. Sources, per language:

  - translation catalogues: every .mo file under /usr/share/locale/<locale>/LC_MESSAGES,
    turned back into text with msgunfmt (gettext); the translated strings only;
  - man pages under /usr/share/man/<locale>/ (manpages-de, -fr, ... and the pages other
    packages translate), with the roff requests and escapes taken out;
  - the word lists of the hunspell dictionaries (a little: they are words, not prose);
  - for Chinese, the word frequencies of jieba (python3-jieba), made traditional by opencc.

A source file goes wholly to one part, chosen by a hash of its path, so the held-out part
shares no catalogue and no man page with the training part. The split is the same on every
machine with the same packages.
"""

import gzip
import hashlib
import os
import random
import re
import subprocess
import sys
import unicodedata

# language -> (locale folders under /usr/share/locale and /usr/share/man, hunspell files)
LANGUAGES = {
    "English": (["en_GB", "en_AU", "en_CA"], ["en_US", "en_GB"]),
    "French": (["fr"], ["fr"]),
    "German": (["de"], ["de_DE"]),
    "Spanish": (["es"], ["es"]),
    "Italian": (["it"], ["it_IT"]),
    "Portuguese": (["pt", "pt_BR"], ["pt_PT"]),
    "Dutch": (["nl"], ["nl"]),
    "Swedish": (["sv"], ["sv_SE"]),
    "Danish": (["da"], ["da_DK"]),
    "Norwegian": (["nb", "nn"], ["nb_NO"]),
    "Finnish": (["fi"], []),
    "Catalan": (["ca"], ["ca"]),
    "Icelandic": (["is"], ["is"]),
    "Irish": (["ga"], []),
    "Polish": (["pl"], ["pl_PL"]),
    "Czech": (["cs"], ["cs_CZ"]),
    "Slovak": (["sk"], ["sk_SK"]),
    "Hungarian": (["hu"], ["hu_HU"]),
    "Croatian": (["hr"], ["hr_HR"]),
    "Romanian": (["ro"], ["ro_RO"]),
    "Slovenian": (["sl"], ["sl_SI"]),
    "Turkish": (["tr"], ["tr_TR"]),
    "Maltese": (["mt"], []),
    "Esperanto": (["eo"], ["eo"]),
    "Estonian": (["et"], ["et_EE"]),
    "Latvian": (["lv"], ["lv_LV"]),
    "Lithuanian": (["lt"], ["lt_LT", "lt"]),
    "Russian": (["ru"], ["ru_RU"]),
    "Ukrainian": (["uk"], ["uk_UA"]),
    "Bulgarian": (["bg"], ["bg_BG"]),
    "Serbian": (["sr"], ["sr"]),
    "Macedonian": (["mk"], []),
    "Belarusian": (["be"], ["be_BY"]),
    "Greek": (["el"], ["el_GR"]),
    "Hebrew": (["he"], ["he_IL"]),
    "Arabic": (["ar"], ["ar"]),
    "Japanese": (["ja"], []),
    "ChineseSimplified": (["zh_CN"], []),
    "ChineseTraditional": (["zh_TW", "zh_HK"], []),
    "Korean": (["ko"], ["ko_KR", "ko"]),
}

# Text of a language must be mostly in its script (a catalogue may leave strings untranslated).
SCRIPTS = {"Russian": "CYRILLIC", "Ukrainian": "CYRILLIC", "Bulgarian": "CYRILLIC", "Serbian": "CYRILLIC",
           "Macedonian": "CYRILLIC", "Belarusian": "CYRILLIC", "Greek": "GREEK", "Hebrew": "HEBREW",
           "Arabic": "ARABIC", "Japanese": "CJK", "ChineseSimplified": "CJK", "ChineseTraditional": "CJK",
           "Korean": "HANGUL"}

CHARACTER_TABLES = ("iso_8859", "iso-8859", "iso8859", "latin", "koi8", "cp125", "ascii", "charsets", "armscii",
                    "unicode", "utf-8", "utf8", "tis-620", "gb18030", "big5", "euc", "jis", "ksc", "mac_")
HELD_OUT_SHARE = 0.2
MAX_CHARS = 600_000  # per language, before the split: enough letters, a bounded build


def held_out(source):
    return int(hashlib.sha1(source.encode()).hexdigest()[:8], 16) / 0xFFFFFFFF < HELD_OUT_SHARE


def catalogue_strings(path):
    try:
        po = subprocess.run(["msgunfmt", path], capture_output=True, check=True).stdout.decode("utf-8", "replace")
    except (subprocess.CalledProcessError, OSError):
        return []
    strings, current, in_msgstr = [], [], False
    for line in po.split("\n"):
        if line.startswith("msgstr"):
            in_msgstr = True
            current = [line[line.index('"'):]] if '"' in line else []
        elif line.startswith('"') and in_msgstr:
            current.append(line)
        else:
            if in_msgstr and current:
                strings.append("".join(part.strip()[1:-1] for part in current))
            in_msgstr, current = False, []
    if in_msgstr and current:
        strings.append("".join(part.strip()[1:-1] for part in current))
    out = []
    for s in strings[1:] if strings and "Content-Type" in strings[0] else strings:
        s = s.replace("\\n", "\n").replace('\\"', '"').replace("\\t", " ").replace("\\\\", "\\")
        s = re.sub(r"%[-+ #0-9.]*[a-zA-Z]|\$\{?\w+\}?|_(?=\w)|&(?=\w)", "", s)
        if s.strip():
            out.append(s.strip())
    return out


ROFF_ESCAPES = {"em": "—", "en": "–", "aq": "'", "dq": '"', "lq": "“", "rq": "”", "oq": "‘", "cq": "’",
                "bu": "•", "co": "©", "rg": "®", "hy": "-", "mi": "-", "ti": "~", "ha": "^", "at": "@",
                "Fo": "«", "Fc": "»", "fo": "‹", "fc": "›", "r!": "¡", "r?": "¿", "de": "°"}


def man_text(path):
    try:
        with gzip.open(path, "rb") if path.endswith(".gz") else open(path, "rb") as f:
            raw = f.read()
    except OSError:
        return []
    text = raw.decode("utf-8", "replace")
    lines = []
    for line in text.split("\n"):
        if line.startswith(('.\\"', "'\\\"", ".so ")):
            continue
        if line.startswith((".", "'")):
            m = re.match(r"[.'](?:SH|SS|B|I|BI|BR|IR|RB|RI|IB|TP|IP|TH)\s+(.*)", line)
            if not m:
                continue
            line = m.group(1).replace('"', "")
        line = re.sub(r"\\\*?\((\w\w|\S\S)", lambda m: ROFF_ESCAPES.get(m.group(1), ""), line)
        line = re.sub(r"\\\*?\[(\w+)\]", lambda m: ROFF_ESCAPES.get(m.group(1), ""), line)
        line = re.sub(r"\\f(\[\w*\]|\(\w\w|\w)", "", line)
        line = re.sub(r"\\[s][-+]?\d*|\\[&|^%:~]|\\e", "", line).replace("\\-", "-").replace("\\ ", " ")
        line = re.sub(r"\\.", "", line)
        if line.strip():
            lines.append(line.strip())
    # Paragraphs of running text.
    return ["\n".join(lines[i:i + 12]) for i in range(0, len(lines), 12)]


def hunspell_words(path):
    try:
        with open(path, "rb") as f:
            raw = f.read()
    except OSError:
        return []
    aff = path[:-4] + ".aff"
    encoding = "utf-8"
    try:
        with open(aff, "rb") as f:
            m = re.search(rb"^SET\s+(\S+)", f.read(), re.M)
            if m:
                encoding = m.group(1).decode().lower().replace("microsoft-", "")
    except OSError:
        pass
    try:
        words = raw.decode(encoding, "replace").split("\n")[1:]
    except LookupError:
        words = raw.decode("utf-8", "replace").split("\n")[1:]
    words = [w.split("/")[0].split("\t")[0].strip() for w in words]
    words = [w for w in words if w and not w.isascii()]
    rng = random.Random(path)
    rng.shuffle(words)
    words = words[:6000]
    # Lines of a few words: a word list, read as short lines of text.
    return [" ".join(words[i:i + 8]) for i in range(0, len(words), 8 * 25)]


def jieba_text(traditional):
    path = "/usr/lib/python3/dist-packages/jieba/dict.txt"
    if not os.path.exists(path):
        return []
    entries = []
    with open(path, encoding="utf-8") as f:
        for line in f:
            parts = line.split()
            if len(parts) >= 2 and parts[1].isdigit():
                entries.append((int(parts[1]), parts[0]))
    entries.sort(reverse=True)
    words = [w for _, w in entries[:20000]]
    rng = random.Random(1)
    rng.shuffle(words)
    text = ["".join(words[i:i + 12]) + "。" for i in range(0, len(words), 12)]
    if traditional:
        try:
            text = subprocess.run(["opencc", "-c", "s2tw.json"], input="\n".join(text), capture_output=True,
                                  text=True, check=True).stdout.split("\n")
        except (subprocess.CalledProcessError, OSError):
            return []
    return ["\n".join(text[i:i + 20]) for i in range(0, len(text), 20)]


def in_script(text, script):
    letters = [c for c in text if c.isalpha() and not c.isascii()]
    if script is None:
        return True
    if len(letters) * 2 < sum(c.isalpha() for c in text):
        return False
    names = [unicodedata.name(c, "") for c in letters]
    if script == "CJK":
        ok = sum(n.startswith(("CJK", "HIRAGANA", "KATAKANA")) for n in names)
    else:
        ok = sum(n.startswith(script) for n in names)
    return ok * 10 >= len(names) * 9


def sources(language):
    locales, dictionaries = LANGUAGES[language]
    for locale in locales:
        folder = f"/usr/share/locale/{locale}/LC_MESSAGES"
        if os.path.isdir(folder):
            for name in sorted(os.listdir(folder)):
                if name.endswith(".mo"):
                    yield os.path.join(folder, name), catalogue_strings
        for root, _, files in sorted(os.walk(f"/usr/share/man/{locale}")):
            for name in sorted(files):
                # Pages that list the characters of a character set are no language's text.
                if not name.lower().startswith(CHARACTER_TABLES):
                    yield os.path.join(root, name), man_text
    for dictionary in dictionaries:
        path = f"/usr/share/hunspell/{dictionary}.dic"
        if os.path.exists(path):
            yield path, hunspell_words
    if language in ("ChineseSimplified", "ChineseTraditional"):
        yield f"jieba:{language}", lambda _: jieba_text(language == "ChineseTraditional")


def documents(language):
    """(source, text) pieces of a few hundred to a few thousand characters."""
    script = SCRIPTS.get(language)
    total = 0
    # Sources in a fixed shuffled order, so that the bound takes catalogues and man pages alike.
    chosen = list(sources(language))
    random.Random(language).shuffle(chosen)
    for source, reader in chosen:
        pieces = reader(source)
        chunk = []
        for piece in pieces:
            # Only what tells encodings apart: text with letters beyond ASCII, in its script,
            # and none that a source failed to decode.
            if piece.isascii() or "\ufffd" in piece or not in_script(piece, script):
                continue
            chunk.append(piece)
            if sum(map(len, chunk)) >= 3000:
                yield source, "\n".join(chunk)
                total += sum(map(len, chunk))
                chunk = []
        if chunk:
            yield source, "\n".join(chunk)
            total += sum(map(len, chunk))
        if total >= MAX_CHARS:
            return


def main():
    out = sys.argv[1]
    for language in LANGUAGES:
        counts = {"train": 0, "heldout": 0}
        chars = {"train": 0, "heldout": 0}
        for source, text in documents(language):
            part = "heldout" if held_out(source) else "train"
            folder = os.path.join(out, part, language)
            os.makedirs(folder, exist_ok=True)
            with open(os.path.join(folder, f"{counts[part]:05d}.txt"), "w", encoding="utf-8") as f:
                f.write(text + "\n")
            counts[part] += 1
            chars[part] += len(text)
        print(f"{language:20s} train {counts['train']:5d} documents {chars['train']:9d} chars,"
              f" held out {counts['heldout']:5d} documents {chars['heldout']:9d} chars", flush=True)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Writes the held-out test files: every held-out document of a language in every encoding of
the catalogue that language's files come in, in the shapes such files have (a subtitle file,
a web page heavy with markup, an XML file, a few short lines, plain text), and a share of
them in UTF-8, UTF-16 and UTF-32 without a byte-order mark.

    make-tests.py OUT

reads OUT/heldout and writes OUT/tests/<encoding>/<language>-<n>-<shape>.<ext> and
OUT/tests/index.tsv with one line per file: path (relative to OUT/tests), encoding number,
encoding tag, language, shape.
"""

import os
import random
import sys
import unicodedata

CATALOGUE = {  # tag -> (encoding number, Python codec)
    "cp1252": (12, "cp1252"), "latin1": (5, "latin_1"), "macroman": (30, "mac_roman"),
    "cp1250": (15, "cp1250"), "latin2": (9, "iso8859_2"), "latin3": (0x80000203, "iso8859_3"),
    "latin4": (0x80000204, "iso8859_4"), "latin5": (0x80000209, "iso8859_9"), "cp1254": (14, "cp1254"),
    "cp1251": (11, "cp1251"), "iso8859-5": (0x80000205, "iso8859_5"), "cp866": (0x8000041B, "cp866"),
    "maccyrillic": (0x80000007, "mac_cyrillic"), "cp1253": (13, "cp1253"),
    "iso8859-7": (0x80000207, "iso8859_7"), "cp737": (0x80000405, "cp737"), "macgreek": (0x80000006, "mac_greek"),
    "cp1255": (0x80000505, "cp1255"), "iso8859-8": (0x80000208, "iso8859_8"), "cp862": (0x80000417, "cp862"),
    "shiftjis": (8, "cp932"), "eucjp": (3, "euc_jp"), "iso2022jp": (21, "iso2022_jp"),
    "gb18030": (0x80000632, "gb18030"), "cp936": (0x80000421, "gbk"), "macchinesesimp": (0x80000019, "gb2312"),
    "cp950": (0x80000423, "cp950"), "mackorean": (0x80000003, "euc_kr"), "johab": (0x80000510, "johab"),
    "utf8": (4, "utf_8"), "utf16le": (0x94000100, "utf_16_le"), "utf16be": (0x90000100, "utf_16_be"),
    "utf32le": (0x9c000100, "utf_32_le"), "utf32be": (0x98000100, "utf_32_be"),
}
WESTERN = ["cp1252", "latin1", "macroman"]
CENTRAL = ["cp1250", "latin2"]
CYRILLIC = ["cp1251", "iso8859-5", "cp866", "maccyrillic"]
LANGUAGES = {
    "English": WESTERN, "French": WESTERN, "German": WESTERN, "Spanish": WESTERN, "Italian": WESTERN,
    "Portuguese": WESTERN, "Dutch": WESTERN, "Swedish": WESTERN, "Danish": WESTERN, "Norwegian": WESTERN,
    "Finnish": WESTERN, "Catalan": WESTERN, "Icelandic": WESTERN, "Irish": WESTERN,
    "Polish": CENTRAL, "Czech": CENTRAL, "Slovak": CENTRAL, "Hungarian": CENTRAL, "Croatian": CENTRAL,
    "Romanian": CENTRAL, "Slovenian": CENTRAL,
    "Turkish": ["cp1254", "latin5", "latin3"], "Maltese": ["latin3"], "Esperanto": ["latin3"],
    "Estonian": ["latin4", "cp1252"], "Latvian": ["latin4"], "Lithuanian": ["latin4"],
    "Russian": CYRILLIC, "Ukrainian": CYRILLIC, "Bulgarian": CYRILLIC, "Serbian": CYRILLIC,
    "Macedonian": CYRILLIC, "Belarusian": CYRILLIC,
    "Greek": ["cp1253", "iso8859-7", "cp737", "macgreek"], "Hebrew": ["cp1255", "iso8859-8", "cp862"],
    "Japanese": ["shiftjis", "eucjp", "iso2022jp"], "ChineseSimplified": ["gb18030", "cp936", "macchinesesimp"],
    "ChineseTraditional": ["cp950"], "Korean": ["mackorean", "johab"],
}
UNICODE = ["utf8", "utf16le", "utf16be", "utf32le", "utf32be"]
DOCUMENTS_PER_LANGUAGE = 12
SHAPES = ["srt", "html", "xml", "short", "txt"]
PLAIN = {"’": "'", "‘": "'", "‚": ",", "“": '"', "”": '"', "„": '"', "«": '"', "»": '"', "–": "-", "—": "-",
         "…": "...", "•": "*", "·": ".", "€": "EUR", "\u00a0": " ", "\u200b": "", "\ufeff": "", "œ": "oe",
         "Œ": "OE"}


def encode(text, codec):
    """The text in the encoding, characters it lacks by their plain forms, else left out.
    The text is encoded as a whole: ISO-2022-JP must not switch sets around each character."""
    def encodable(c):
        try:
            c.encode(codec)
            return True
        except UnicodeEncodeError:
            return False

    kept = []
    for c in text:
        for candidate in (c, PLAIN.get(c), unicodedata.normalize("NFKC", c)):
            if candidate is not None and encodable(candidate):
                kept.append(candidate)
                break
    return "".join(kept).encode(codec)


def escape(line):
    return line.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")


def shaped(lines, shape, rng):
    if shape == "srt":
        cues = []
        for i, line in enumerate(lines[:60]):
            t = 5 + i * 4
            cues.append(f"{i + 1}\n00:{t // 60:02d}:{t % 60:02d},250 --> 00:{(t + 3) // 60:02d}:{(t + 3) % 60:02d},"
                        f"100\n{line}\n")
        return "\n".join(cues) + "\n", "srt"
    if shape == "html":
        body = "\n".join(f'<p class="para-{i}" id="p{i}"><a href="https://example.org/doc/{i}.html?lang=x&amp;'
                         f'id={rng.randrange(10**6)}">{i}.</a> <span style="font-weight:bold">{escape(line)}'
                         f'</span></p>' for i, line in enumerate(lines[:40]))
        head = ('<!DOCTYPE html>\n<html>\n<head>\n<meta name="viewport" content="width=device-width">\n'
                '<link rel="stylesheet" href="/static/css/main.css?v=20240101">\n'
                '<script src="/static/js/app.js" defer></script>\n<title>Page</title>\n</head>\n<body>\n')
        return head + body + "\n</body>\n</html>\n", "html"
    if shape == "xml":
        items = "\n".join(f'  <message id="msg{i:04d}" version="1.{i}" timestamp="2024-01-{i % 28 + 1:02d}T12:00:00">'
                          f'<text>{escape(line)}</text></message>' for i, line in enumerate(lines[:40]))
        return f'<?xml version="1.0"?>\n<messages count="{len(lines[:40])}">\n{items}\n</messages>\n', "xml"
    if shape == "short":
        start = rng.randrange(max(1, len(lines) - 2))
        return "\n".join(lines[start:start + rng.choice((1, 2, 3))]) + "\n", "txt"
    return "\n".join(lines) + "\n", "txt"


def main():
    out = sys.argv[1]
    tests = os.path.join(out, "tests")
    os.makedirs(tests, exist_ok=True)
    rng = random.Random(14)
    index = []
    for language, tags in LANGUAGES.items():
        folder = os.path.join(out, "heldout", language)
        if not os.path.isdir(folder):
            continue
        names = sorted(os.listdir(folder))[:DOCUMENTS_PER_LANGUAGE]
        for n, name in enumerate(names):
            with open(os.path.join(folder, name), encoding="utf-8") as f:
                lines = [l.strip() for l in f.read().split("\n") if l.strip()]
            targets = list(tags)
            if n % 3 == 0:
                targets.append(UNICODE[(n // 3 + len(language)) % len(UNICODE)])
            for k, tag in enumerate(targets):
                number, codec = CATALOGUE[tag]
                shape = SHAPES[(n + k) % len(SHAPES)]
                for attempt in range(4):
                    text, ext = shaped(lines, shape, rng)
                    data = encode(text, codec)
                    if not data.decode(codec).isascii():
                        break
                    shape = "txt"  # a short piece without letters beyond ASCII: take the whole
                else:
                    continue
                os.makedirs(os.path.join(tests, tag), exist_ok=True)
                path = f"{tag}/{language}-{n:02d}-{shape}.{ext}"
                with open(os.path.join(tests, path), "wb") as f:
                    f.write(data)
                index.append(f"{path}\t{number}\t{tag}\t{language}\t{shape}")
    with open(os.path.join(tests, "index.tsv"), "w", encoding="utf-8") as f:
        f.write("\n".join(index) + "\n")
    print(f"{len(index)} test files in {tests}")


if __name__ == "__main__":
    main()

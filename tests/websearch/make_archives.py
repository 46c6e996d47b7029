#!/usr/bin/env python3
"""Writes the archives the web search tests download and unpack into the folder given.

Names that Python's zipfile would not write as they are (absolute paths, drive letters,
backslashes) are written under a placeholder of the same length and then patched in the
archive's bytes; so are the encryption flag and sizes that lie.
"""
import struct
import sys
import warnings
import zipfile
from pathlib import Path

SRT = b"1\n00:00:01,000 --> 00:00:02,500\nDownloaded line\n\n2\n00:00:04,000 --> 00:00:05,000\nSecond\n\n"
LOCAL = b"PK\x03\x04"
CENTRAL = b"PK\x01\x02"


def write(path, entries, **options):
    """entries: (name, data) or (ZipInfo, data)."""
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED, **options) as archive:
        for name, data in entries:
            archive.writestr(name, data)


def patch(path, replacements):
    data = path.read_bytes()
    for old, new in replacements:
        assert len(old) == len(new) and old in data, (old, new)
        data = data.replace(old, new)
    path.write_bytes(data)


def headers(data, name):
    """Offsets of the local and central headers of the entry called `name`."""
    found = []
    for signature, name_at, length_at in ((LOCAL, 30, 26), (CENTRAL, 46, 28)):
        at = data.find(signature)
        while at >= 0:
            length = struct.unpack_from("<H", data, at + length_at)[0]
            if data[at + name_at:at + name_at + length] == name:
                found.append((signature, at))
            at = data.find(signature, at + 1)
    return found


def set_flag(path, name, bit):
    data = bytearray(path.read_bytes())
    for _signature, at in headers(data, name.encode()):
        offset = at + (6 if _signature == LOCAL else 8)
        flags = struct.unpack_from("<H", data, offset)[0]
        struct.pack_into("<H", data, offset, flags | bit)
    path.write_bytes(bytes(data))


def set_uncompressed_size(path, name, size):
    data = bytearray(path.read_bytes())
    for signature, at in headers(data, name.encode()):
        struct.pack_into("<I", data, at + (22 if signature == LOCAL else 24), size)
    path.write_bytes(bytes(data))


def main(folder):
    warnings.simplefilter("ignore")  # the duplicate name is meant
    out = Path(folder)
    out.mkdir(parents=True, exist_ok=True)

    write(out / "good.zip", [("Film.srt", SRT), ("extra/", b""), ("extra/notes.txt", b"notes\n")])
    write(out / "two_kinds.zip", [("Film.sub", b"{25}{50}Other kind\n"), ("Film.srt", SRT)])
    write(out / "empty.zip", [("readme.txt", b"no subtitles here\n")])

    # Names leading outside the folder, beside a harmless one.
    write(out / "slip.zip", [("../../evil.srt", SRT), ("good.srt", SRT)])
    absolute = b"/tmp/captora-absolute.srt"
    placeholder = b"X" * (len(absolute) - 4) + b".srt"
    write(out / "absolute.zip", [(placeholder.decode(), SRT), ("good.srt", SRT)])
    patch(out / "absolute.zip", [(placeholder, absolute)])
    write(out / "windows_names.zip", [("AAAAAAAAAAAAAA", SRT), ("BBBBBBBBBBB", SRT), ("a/../../evil.srt", SRT),
                                      ("./ok/./fine.srt", SRT)])
    patch(out / "windows_names.zip", [(b"AAAAAAAAAAAAAA", b"..\\..\\evil.srt"), (b"BBBBBBBBBBB", b"C:/evil.srt")])

    # A symbolic link to a file outside, beside a harmless file.
    link = zipfile.ZipInfo("link.srt")
    link.create_system = 3
    link.external_attr = (0o120777 << 16)
    write(out / "symlink.zip", [(link, b"/etc/passwd"), ("good.srt", SRT)])

    # An entry that claims to be encrypted.
    write(out / "encrypted.zip", [("secret.srt", SRT), ("open.srt", SRT)])
    set_flag(out / "encrypted.zip", "secret.srt", 1)

    # 1 GB of zeros in one entry: a zip bomb of about a megabyte.
    with zipfile.ZipFile(out / "bomb.zip", "w", zipfile.ZIP_DEFLATED, compresslevel=1) as archive:
        with archive.open("bomb.srt", "w", force_zip64=True) as entry:
            block = bytes(1 << 20)
            for _ in range(1024):
                entry.write(block)

    # A bomb that lies about its size: 8 MB of zeros that say they are 100 bytes.
    write(out / "lying.zip", [("lying.srt", bytes(8 << 20))])
    set_uncompressed_size(out / "lying.zip", "lying.srt", 100)

    # More entries than an archive of subtitles has.
    write(out / "many.zip", [("n%04d.srt" % i, b"x") for i in range(1001)])

    write(out / "duplicate.zip", [("dup.srt", SRT), ("dup.srt", b"second\n")])

    good = (out / "good.zip").read_bytes()
    (out / "truncated.zip").write_bytes(good[: len(good) // 2])
    (out / "pk_without_extension").write_bytes(good)
    (out / "sub.rar").write_bytes(b"Rar!\x1a\x07\x00" + b"\x00" * 64)
    (out / "Film.srt").write_bytes(SRT)


if __name__ == "__main__":
    main(sys.argv[1])

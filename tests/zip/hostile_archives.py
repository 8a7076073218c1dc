#!/usr/bin/env python3
"""Archives that nobody should trust, from a fixed seed: good ones with bits turned, parts cut out
and records spliced, and others made by hand (names that lead out of the folder, entries that
overlap, bombs, sizes and counts that contradict). Each is listed, tested and taken out: no crash, no
hang, bounded memory, nothing outside the folder.
Usage: hostile_archives.py COUNT HOSTILE_BATCH [SEED]"""
import io
import os
import random
import shutil
import struct
import subprocess
import sys
import tempfile
import zipfile
import zlib

COUNT = int(sys.argv[1])
PROGRAM = sys.argv[2]
SEED = int(sys.argv[3]) if len(sys.argv) > 3 else 17
BATCH = 500
# Resident, with sanitizers, whatever the archives say of themselves.
MOST_MEMORY = 64 << 20
BATCH_TIME = 120

NUMBERS = (0, 1, 2, 0x14, 0x7F, 0xFF, 0x7FFF, 0x8000, 0xFFFE, 0xFFFF, 0x10000, 0x7FFFFFFF, 0x80000000,
           0xFFFFFFF0, 0xFFFFFFFE, 0xFFFFFFFF)
WIDE = (0, 1, 0xFFFFFFFF, 0x100000000, 0x7FFFFFFFFFFFFFFF, 0x8000000000000000, 0xFFFFFFFFFFFFFFF0,
        0xFFFFFFFFFFFFFFFF)
NAMES = ("../x", "../../canary", "..", ".", "./", "/", "/tmp/kovrel_hostile", "//server/share/x", "a/../../x",
         "a/..", "..\\x", "C:\\x", "C:x", "\\\\server\\x", "\\\\?\\C:\\x", "a\\..\\..\\x", "CON", "nul.txt",
         "aux", "COM1", "a/lpt9.x", "x:stream", "x::$DATA", "a.", "a ", "...", "a\0b", "a\nb", "\x7f", "",
         "a//b", "a/./b", "ñ", "日本", "\U0001F600", "a" * 255, "a" * 256, "d/" * 99 + "x", "d/" * 101 + "x",
         "d/" * 3000 + "x", "canary", "out", "../out", "~", "-rf", "*", "?", "a/", "a")
RAW_NAMES = (b"\xff\xfe", b"\xc0\xae\xc0\xae/x", b"a\xa4o", b"\xe0\x80\xaf", b"\xed\xa0\x80", b"\x00", b"..\xc0\xafx")


def deflate(data):
    packer = zlib.compressobj(9, zlib.DEFLATED, -15)
    return packer.compress(data) + packer.flush()


class Made:
    """An archive written record by record, each value as its maker likes."""

    def __init__(self):
        self.body = b""
        self.central = []

    def local(self, name, data, **values):
        v = {"flags": 0x800, "method": 0, "time": 0, "date": 0x5A5D, "crc": zlib.crc32(data), "packed": len(data),
             "size": len(data), "extra": b"", **values}
        start = len(self.body)
        self.body += struct.pack("<IHHHHHIIIHH", 0x04034B50, 20, v["flags"] & 0xFFFF, v["method"] & 0xFFFF, v["time"], v["date"],
                                 v["crc"] & 0xFFFFFFFF, v["packed"] & 0xFFFFFFFF, v["size"] & 0xFFFFFFFF,
                                 len(name), len(v["extra"])) + name + v["extra"] + data
        return start

    def entry(self, name, offset, data=b"", **values):
        v = {"flags": 0x800, "method": 0, "time": 0, "date": 0x5A5D, "crc": zlib.crc32(data), "packed": len(data),
             "size": len(data), "extra": b"", "comment": b"", "attributes": 0o100644 << 16, "made_by": 0x314,
             "volume": 0, **values}
        self.central.append(struct.pack(
            "<IHHHHHHIIIHHHHHII", 0x02014B50, v["made_by"], 20, v["flags"] & 0xFFFF, v["method"] & 0xFFFF, v["time"], v["date"],
            v["crc"] & 0xFFFFFFFF, v["packed"] & 0xFFFFFFFF, v["size"] & 0xFFFFFFFF, len(name), len(v["extra"]),
            len(v["comment"]), v["volume"], 0, v["attributes"], offset & 0xFFFFFFFF)
            + name + v["extra"] + v["comment"])

    def add(self, name, data=b"", **values):
        """Both headers, in agreement but for what `values` say of the central one."""
        packed = deflate(data) if values.get("method") == 8 else data
        common = {"packed": len(packed), "size": len(data), "crc": zlib.crc32(data)}
        both = {key: values[key] for key in ("flags", "method") if key in values}
        start = self.local(name, packed, **{**common, **both})
        self.entry(name, start, **{**common, **values})

    def end(self, comment=b"", **values):
        directory = b"".join(self.central)
        v = {"count": len(self.central), "size": len(directory), "offset": len(self.body), **values}
        return self.body + directory + struct.pack(
            "<IHHHHIIH", 0x06054B50, 0, 0, v["count"] & 0xFFFF, v["count"] & 0xFFFF, v["size"] & 0xFFFFFFFF,
            v["offset"] & 0xFFFFFFFF, len(comment)) + comment


def some_data(rng):
    kind = rng.randrange(4)
    size = rng.choice((0, 1, 10, 500, 5000, 70_000))
    if kind == 0:
        return rng.randbytes(size)
    if kind == 1:
        return b"a" * size
    return b" ".join(b"%d" % rng.randrange(1000) for _ in range(size // 4))


def some_name(rng):
    if rng.random() < 0.15:
        return rng.choice(RAW_NAMES)
    if rng.random() < 0.3:
        return "/".join(rng.choice(NAMES[:34]) for _ in range(rng.randrange(1, 4))).encode()
    return rng.choice(NAMES).encode()


def good(rng):
    """As other programs write them."""
    buffer = io.BytesIO()
    target = buffer if rng.random() < 0.7 else Unseekable(buffer)
    with zipfile.ZipFile(target, "w", rng.choice((zipfile.ZIP_STORED, zipfile.ZIP_DEFLATED))) as made:
        for i in range(rng.randrange(1, 6)):
            entry = zipfile.ZipInfo(rng.choice((f"f{i}", f"c/f{i}", f"ñ/日本{i}", f"c{i}/")),
                                    (rng.randrange(1980, 2108), rng.randrange(1, 13), 1, 0, 0, 0))
            entry.compress_type = made.compression
            entry.external_attr = rng.choice((0, 0o100644, 0o100755, 0o40755, 0o120777)) << 16
            if entry.filename.endswith("/"):
                made.writestr(entry, b"")
                continue
            with made.open(entry, "w", force_zip64=rng.random() < 0.3) as file:
                file.write(some_data(rng))
        if rng.random() < 0.2:
            made.comment = rng.randbytes(rng.randrange(100))
    return buffer.getvalue()


class Unseekable(io.RawIOBase):
    """Makes zipfile write the sizes behind the data."""

    def __init__(self, target):
        self.target = target

    def writable(self):
        return True

    def write(self, data):
        return self.target.write(data)


def flipped(rng):
    data = bytearray(good(rng))
    # The records at the end are met more often than chance would.
    first = 0 if rng.random() < 0.5 else max(0, len(data) - 300)
    for _ in range(rng.choice((1, 1, 2, 5, 30))):
        data[rng.randrange(first, len(data))] ^= 1 << rng.randrange(8)
    return bytes(data)


def cut(rng):
    data = good(rng)
    a, b = sorted((rng.randrange(len(data) + 1), rng.randrange(len(data) + 1)))
    return rng.choice((data[:a], data[a:], data[:a] + data[b:], data[:a] + data[a:b] * 2 + data[b:]))


def spliced(rng):
    one, other = good(rng), good(rng)
    marks = (b"PK\1\2", b"PK\3\4", b"PK\5\6", b"PK\6\6", b"PK\6\7", b"PK\7\x08")

    def place(data):
        places = [i for mark in marks for i in [data.find(mark, rng.randrange(len(data)))] if i >= 0]
        return rng.choice(places or [rng.randrange(len(data))])

    a, b = place(one), place(other)
    return rng.choice((one[:a] + other[b:], one[:a] + other[b:b + rng.randrange(200)] + one[a:],
                       one + other, one[:a] + other + one[a:]))


def changed_fields(rng):
    data = bytearray(good(rng))
    for _ in range(rng.randrange(1, 4)):
        mark, fields = rng.choice((
            (b"PK\1\2", ((4, 2), (6, 2), (8, 2), (10, 2), (16, 4), (20, 4), (24, 4), (28, 2), (30, 2), (32, 2),
                         (34, 2), (38, 4), (42, 4))),
            (b"PK\3\4", ((6, 2), (8, 2), (14, 4), (18, 4), (22, 4), (26, 2), (28, 2))),
            (b"PK\5\6", ((4, 2), (6, 2), (8, 2), (10, 2), (12, 4), (16, 4), (20, 2)))))
        place = data.find(mark, rng.randrange(len(data)))
        offset, width = rng.choice(fields)
        if place < 0 or place + offset + width > len(data):
            continue
        old = int.from_bytes(data[place + offset:place + offset + width], "little")
        value = rng.choice(NUMBERS + (old + 1, old - 1, old * 2)) & (1 << 8 * width) - 1
        data[place + offset:place + offset + width] = value.to_bytes(width, "little")
    return bytes(data)


def bad_names(rng):
    made = Made()
    for _ in range(rng.randrange(1, 8)):
        made.add(some_name(rng), some_data(rng), method=rng.choice((0, 8)),
                 flags=rng.choice((0, 0x800)), made_by=rng.choice((0x314, 0x14, 0xA14, 0xB14)),
                 attributes=rng.choice((0, 0x10, 0o100644 << 16, 0o40755 << 16)))
    return made.end()


def links(rng):
    """A link, and entries that would go through it."""
    made = Made()
    name = rng.choice((b"l", b"c/l", b"out"))
    made.add(name, rng.choice((b"/tmp", b"..", b"../canary", b"/")),
             attributes=rng.choice((0o120777 << 16, 0x400)), made_by=rng.choice((0x314, 0x14)))
    for inner in (name + b"/x", name, name + b"/", name + b"/../../x"):
        made.add(inner, b"1")
    return made.end()


def collisions(rng):
    made = Made()
    for _ in range(rng.randrange(2, 12)):
        name = rng.choice((b"a", b"a/", b"a/b", b"./a", b"a//b", b"A", b"a/b/c", b"a/b/"))
        made.add(name, some_data(rng), attributes=rng.choice((0, 0x10, 0o40755 << 16)))
    return made.end()


def overlaps(rng):
    """One entry's bytes used by several, wholly or from within."""
    made = Made()
    kernel = deflate(b"a" * rng.randrange(1000, 1_000_000))
    start = made.local(b"k", kernel, method=8)
    for i in range(rng.randrange(2, 30)):
        made.entry(b"f%d" % i, start + rng.choice((0, 0, 1, 31)), kernel, method=8,
                   size=rng.randrange(1_000_000))
    return made.end()


def quoted_overlap(rng):
    """Each entry's deflate stream holds the next one's local header in a stored block."""
    count = rng.randrange(2, 20)
    kernel = deflate(b"a" * 200_000)
    files = [(b"%x" % count, kernel, 200_000)]
    for i in reversed(range(count)):
        name, data, size = files[0]
        header = struct.pack("<IHHHHHIIIHH", 0x04034B50, 20, 0x800, 8, 0, 0x5A5D, zlib.crc32(data), len(data), size,
                             len(name), 0) + name
        files.insert(0, (b"%x" % i, struct.pack("<BHH", 0, len(header), len(header) ^ 0xFFFF) + header + data,
                         size + len(header)))
    made = Made()
    name, data, size = files[0]
    made.local(name, data, method=8, size=size)
    place = 0
    for (name, data, size), (_, inner, _) in zip(files, files[1:] + [(b"", kernel, 0)]):
        made.entry(name, place, data, method=8, size=size)
        place += 30 + len(name) + len(data) - len(inner) - 30 - len(name)
    return made.end()


def bombs(rng):
    made = Made()
    size = rng.choice((100_000, 2_000_000, 6_000_000))
    data = deflate(bytes(size))
    for i in range(rng.randrange(1, 4)):
        said = rng.choice((size, size, 0, 1, size - 1, size + 1, 1 << 31))
        start = made.local(b"b%d" % i, data, method=8, size=said, crc=zlib.crc32(bytes(size)))
        made.entry(b"b%d" % i, start, data, method=8, size=said, crc=zlib.crc32(bytes(size)))
    return made.end()


def nested(rng):
    """Archives in archives, of which only the outer one is taken out."""
    inner = bombs(rng)
    for _ in range(rng.randrange(1, 4)):
        made = Made()
        for i in range(3):
            made.add(b"n%d.zip" % i, inner, method=8)
        inner = made.end()
    return inner


def contradictions(rng):
    made = Made()
    for i in range(rng.randrange(1, 5)):
        data = some_data(rng)
        name = b"f%d" % i
        values = {key: rng.choice(NUMBERS) for key in rng.sample(("packed", "size", "crc", "method", "flags"), 2)}
        start = made.local(name, data, **(values if rng.random() < 0.5 else {}))
        made.entry(rng.choice((name, name, b"../x")), start, data, **(values if rng.random() < 0.7 else {}))
    return made.end()


def wide_values(rng):
    """ZIP64 fields and records with impossible values."""
    made = Made()
    start = made.local(b"f", b"datos")
    field = struct.pack("<HH", 1, 24) + b"".join(struct.pack("<Q", rng.choice(WIDE + (5,))) for _ in range(3))
    made.entry(b"f", rng.choice((start, 0xFFFFFFFF)), b"datos", extra=field[:rng.choice((4, 12, 20, 28))],
               size=0xFFFFFFFF, packed=rng.choice((5, 0xFFFFFFFF)))
    directory = b"".join(made.central)
    position = len(made.body) + len(directory)
    end64 = struct.pack("<IQHHIIQQQQ", 0x06064B50, rng.choice((44,) + WIDE), 45, 45, 0, 0,
                        *(rng.choice(WIDE + (1, 1)) for _ in range(2)), rng.choice(WIDE + (len(directory),)),
                        rng.choice(WIDE + (len(made.body),)))
    locator = struct.pack("<IIQI", 0x07064B50, 0, rng.choice(WIDE + (position, position)), 1)
    return made.body + directory + end64 + locator + struct.pack(
        "<IHHHHIIH", 0x06054B50, 0, 0, 0xFFFF, 0xFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0)


def counts(rng):
    made = Made()
    for i in range(rng.randrange(0, 4)):
        made.add(b"f%d" % i, b"1")
    return made.end(comment=rng.choice((b"", b"PK\5\6" + bytes(18), rng.randbytes(65_535))),
                    **{rng.choice(("count", "size", "offset")): rng.choice(NUMBERS)})


def many(rng):
    """Many entries, deep folders, long names."""
    made = Made()
    for i in range(rng.choice((200, 1000))):
        made.add(b"d/" * rng.randrange(100) + b"%d" % (i % 50) if i % 100 == 0 else b"%d" % i, b"")
    return made.end()


def noise(rng):
    return rng.choice((b"", b"PK", rng.randbytes(rng.randrange(500)), b"PK\5\6" + rng.randbytes(18),
                       b"PK\5\6" * rng.randrange(5000), bytes(22), b"PK\5\6" + bytes(18)))


KINDS = (flipped, flipped, cut, spliced, changed_fields, changed_fields, bad_names, links, collisions, overlaps,
         quoted_overlap, bombs, nested, contradictions, wide_values, counts, many, noise, good)


def snapshot(folder):
    """What is beside the work folder and must stay."""
    found = {}
    for name in sorted(os.listdir(folder)):
        path = os.path.join(folder, name)
        if os.path.isfile(path):
            with open(path, "rb") as file:
                found[name] = file.read()
        else:
            found[name] = sorted(os.listdir(path)) if name == "work" else None
    return found


def main():
    top = tempfile.mkdtemp(prefix="kovrel_hostile", dir="/dev/shm" if os.path.isdir("/dev/shm") else None)
    work, archives = os.path.join(top, "work"), os.path.join(top, "archives")
    os.mkdir(work)
    os.mkdir(archives)
    for path in (os.path.join(top, "canary"), os.path.join(top, "x"), os.path.join(work, "canary")):
        with open(path, "wb") as file:
            file.write(b"untouched")
    before = snapshot(top)
    answers, largest = {}, 0
    # Freed memory is given back, or its size would say nothing.
    environment = {**os.environ, "ASAN_OPTIONS": os.environ.get("ASAN_OPTIONS", "") +
                   ":quarantine_size_mb=4:thread_local_quarantine_size_kb=64"}
    try:
        for first in range(0, COUNT, BATCH):
            paths = []
            for i in range(first, min(first + BATCH, COUNT)):
                rng = random.Random(SEED * 1_000_003 + i)
                kind = KINDS[i % len(KINDS)]
                paths.append(os.path.join(archives, f"{i}_{kind.__name__}.zip"))
                with open(paths[-1], "wb") as file:
                    file.write(kind(rng))
            done = subprocess.run([PROGRAM, work, *paths], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                  env=environment, timeout=BATCH_TIME)
            if done.returncode != 0:
                sys.exit(f"FAILED: status {done.returncode}\n{done.stderr.decode(errors='replace')[-4000:]}")
            memory, *codes = done.stdout.split()
            largest = max(largest, int(memory) * 1024)
            for code, times in (word.decode().split("=") for word in codes):
                answers[code] = answers.get(code, 0) + int(times)
            if snapshot(top) != before:
                sys.exit(f"FAILED: something beside the folder changed among {paths[0]} and the next")
            for path in paths:
                os.remove(path)
        if os.path.exists("/tmp/kovrel_hostile"):
            sys.exit("FAILED: an absolute name was followed")
    finally:
        shutil.rmtree(top)
    print(f"{COUNT} archives; by return code: {dict(sorted(answers.items()))}; at most {largest >> 20} MB")
    # Each kind of answer must occur, or the archives would not try what they are made for.
    if largest > MOST_MEMORY or sum(answers.values()) != COUNT or not {"0", "2", "3", "100", "101"} <= set(answers):
        sys.exit("FAILED: the memory, or the answers")
    return 0


sys.exit(main())

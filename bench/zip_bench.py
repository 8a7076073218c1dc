#!/usr/bin/env python3
"""Archive of 100 files: the engine (zip_cli) against `zip -j -6 -q`, in one run.

The files are made here from a fixed seed: texts, office documents (themselves archives of XML and
pictures) and pictures that are compressed already. Both programs run in turn; the best time of
each counts, so that other work on the machine disturbs neither. Then one file of 1 GB, and the
engine's largest memory for it and for one of 10 MB.
"""
import argparse
import io
import itertools
import os
import random
import shutil
import subprocess
import sys
import tempfile
import time
import zipfile

def vocabulary(rng):
    syllables = [c + v for c in "bcdfglmnprstv" for v in ("a", "e", "i", "o", "u", "á", "ón", "es")]
    return ["".join(rng.choices(syllables, k=rng.choice((1, 2, 2, 3, 3, 4)))) for _ in range(4000)]


WORDS = vocabulary(random.Random(1))
# The n-th most frequent word comes 1/n times as often as the first, as in any language.
FREQUENCIES = list(itertools.accumulate(1 / n for n in range(1, len(WORDS) + 1)))


def text(rng, size):
    words = rng.choices(WORDS, cum_weights=FREQUENCIES, k=size // 7)
    for i in range(0, len(words), 11):
        words[i] = str(rng.randrange(10**6))
    lines = [" ".join(words[i:i + 14]) for i in range(0, len(words), 14)]
    return "\r\n".join(lines).encode("utf-8")


def picture(rng, size):
    """Bytes as a compressed picture has them: headers, then entropy-coded data."""
    segments = []
    while sum(map(len, segments)) < size:
        segments.append(b"\xff\xda" + bytes(16) + rng.randbytes(rng.randrange(20000, 60000)))
    return b"\xff\xd8\xff\xe0" + b"".join(segments)[:size]


def office_document(rng, size):
    cells = rng.choices(WORDS, cum_weights=FREQUENCIES, k=size // 9)
    xml = "".join(f'<c r="A{i}" t="s"><v>{word}{rng.randrange(1000)}</v></c>'
                  for i, word in enumerate(cells))
    buffer = io.BytesIO()
    with zipfile.ZipFile(buffer, "w", zipfile.ZIP_DEFLATED) as document:
        for part in ("[Content_Types].xml", "_rels/.rels", "docProps/app.xml"):
            document.writestr(part, text(rng, 3000))
        document.writestr("xl/worksheets/sheet1.xml", xml)
        document.writestr("xl/media/image1.jpeg", picture(rng, size // 3))
    return buffer.getvalue()


def make_files(folder):
    rng = random.Random(20240229)
    paths = []
    for i in range(100):
        if i < 50:
            name, data = f"informe{i:02}.txt", text(rng, rng.randrange(20_000, 1_500_000))
        elif i < 80:
            name, data = f"hoja{i:02}.xlsx", office_document(rng, rng.randrange(100_000, 900_000))
        else:
            name, data = f"foto{i:02}.jpg", picture(rng, rng.randrange(100_000, 1_200_000))
        path = os.path.join(folder, name)
        with open(path, "wb") as file:
            file.write(data)
        paths.append(path)
    return paths


def timed(command):
    start = time.perf_counter()
    subprocess.run(command, check=True)
    return time.perf_counter() - start


def high_water(pid):
    """The largest memory so far, in KB, of a process since it began its program."""
    try:
        with open(f"/proc/{pid}/status", encoding="ascii") as status:
            return max((int(line.split()[1]) for line in status if line.startswith("VmHWM")),
                       default=0)
    except OSError:
        return 0


def make_large_file(path, size):
    block = (text(random.Random(7), 600_000) + picture(random.Random(8), 400_000))[:1_000_000]
    with open(path, "wb") as file:
        for _ in range(size // len(block)):
            file.write(block)


def time_and_memory(command):
    """The seconds that a program takes and its largest memory in KB."""
    peak = 0
    start = time.perf_counter()
    with subprocess.Popen(command) as child:
        while child.poll() is None:
            peak = max(peak, high_water(child.pid))
            time.sleep(0.005)
    return time.perf_counter() - start, peak


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--cli", default="build/bench/zip32/zip_cli")
    parser.add_argument("--rounds", type=int, default=7)
    parser.add_argument("--threads", default="2")
    options = parser.parse_args()
    folder = tempfile.mkdtemp(prefix="zip_bench")
    try:
        paths = make_files(folder)
        ours, theirs = os.path.join(folder, "ours.zip"), os.path.join(folder, "theirs.zip")
        best = {ours: float("inf"), theirs: float("inf")}
        for _ in range(options.rounds):
            for archive, command in ((theirs, ["zip", "-j", "-6", "-q", theirs]),
                                     (ours, [options.cli, "pack", "-6", "-t", options.threads, ours])):
                if os.path.exists(archive):
                    os.remove(archive)
                best[archive] = min(best[archive], timed(command + paths))
        total = sum(map(os.path.getsize, paths))
        ratio = best[ours] / best[theirs]
        size_ratio = os.path.getsize(ours) / os.path.getsize(theirs)
        print(f"100 files, {total / 1e6:.1f} MB")
        print(f"time:   engine {best[ours]:.3f} s, zip {best[theirs]:.3f} s: {ratio:.2f} (at most 0.40)")
        print(f"size:   engine {os.path.getsize(ours)}, zip {os.path.getsize(theirs)}: "
              f"{size_ratio:.4f} (at most 1.01)")
        large_file = os.path.join(folder, "large.bin")
        make_large_file(large_file, 10**7)
        engine = [options.cli, "pack", "-6", "-t", options.threads, ours, large_file]
        _, small_memory = time_and_memory(engine)
        make_large_file(large_file, 10**9)
        large_theirs = timed(["zip", "-j", "-6", "-q", theirs + ".large", large_file])
        os.remove(ours)
        large_ours, large_memory = time_and_memory(engine)
        large_ratio = large_ours / large_theirs
        print(f"1 GB:   engine {large_ours:.1f} s, zip {large_theirs:.1f} s: {large_ratio:.2f} "
              "(at most 0.55)")
        print(f"memory: {small_memory} KB for 10 MB, {large_memory} KB for 1 GB: "
              f"{large_memory / small_memory:.2f} (at most 1.2)")
        return 0 if (ratio <= 0.4 and size_ratio <= 1.01 and large_ratio <= 0.55 and
                     large_memory <= 1.2 * small_memory) else 1
    finally:
        shutil.rmtree(folder)


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""Archives of the engine, checked with other programs: unzip, zip, Python's zipfile, bsdtar and
7-Zip. Contents must be equal byte for byte, and accented names right in each.
Usage: verify_archives.py COMMAND...; zip_cli pack, or the emulator and a program that calls the DLL."""
import os
import random
import shutil
import subprocess
import sys
import tempfile
import zipfile

MAKER = sys.argv[1:]
ON_WINDOWS = MAKER[-1].endswith(".exe")
ENVIRONMENT = {**os.environ, "LC_ALL": "C.UTF-8", "LANG": "C.UTF-8"}
PROGRAMS = ("zipfile", "unzip", "bsdtar", "7z")
rng = random.Random(5)
FILES = {
    "texto.txt": b"".join(b"linea %d\r\n" % rng.randrange(9999) for _ in range(90_000)),
    "foto.jpg": rng.randbytes(700_000),
    "mezcla.bin": rng.randbytes(300_000) + bytes(400_000) + b"abc" * 100_000,
    "vacio.dat": b"",
    "una letra": b"a",
    "Año ñandú ÁÉÍÓÚ çü.txt": "señal".encode(),
    # Windows callers name files in the ANSI code page.
    "€ – œ.txt" if ON_WINDOWS else "€ 日本 Ω.txt": b"1234567890" * 100,
    "pieza.bin": b"0123456789abcdef" * (262_144 // 16),
}


def run(*command, environment=None):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          env=environment or ENVIRONMENT)
    output = done.stdout.decode("utf-8", "replace")
    if done.returncode != 0:
        sys.exit(f"{' '.join(command)}: status {done.returncode}\n{output}")
    return output


def pack(archive, *paths, level=None):
    def named(path):
        return "Z:" + path.replace("/", "\\") if ON_WINDOWS else path

    switches = [] if level is None else ["-" + level]
    # The emulator takes the code page from the user's own locale.
    run(*MAKER, *switches, named(archive), *map(named, paths), environment=os.environ)


def expect(condition, text):
    if not condition:
        sys.exit("FAILED: " + text)


def contents(folder):
    found = {}
    for name in os.listdir(folder):
        with open(os.path.join(folder, name), "rb") as file:
            found[name] = file.read()
    return found


def views(archive, work):
    """What each program finds in the archive: by name, the contents."""
    found = {}
    with zipfile.ZipFile(archive) as opened:
        expect(opened.testzip() is None, "zipfile found a bad entry")
        found["zipfile"] = {name: opened.read(name) for name in opened.namelist()}
    for program, command in (("unzip", ("unzip", "-q", archive, "-d")),
                             ("bsdtar", ("bsdtar", "-xf", archive, "-C")),
                             ("7z", ("7z", "x", "-bso0", archive))):
        out = os.path.join(work, "salida")
        os.mkdir(out)
        run(*command, *(["-o" + out] if program == "7z" else [out]))
        found[program] = contents(out)
        shutil.rmtree(out)
    return found


def judge(archive, expected, work):
    """`expected`: what each program must find."""
    run("unzip", "-tq", archive)
    run("zip", "-qT", archive)
    run("7z", "t", "-bso0", archive)
    listed = run("bsdtar", "-tf", archive).splitlines()
    expect(sorted(listed) == sorted(expected["bsdtar"]), f"bsdtar lists {listed}")
    for program, found in views(archive, work).items():
        expect(found == expected[program],
               f"{os.path.basename(archive)}, {program}: contents or names: {sorted(found)}")
    print(f"{os.path.basename(archive)}: {len(listed)} entries verified by five programs")


def expect_origin(archive, names):
    """What readers go by to know how names are written: the system, and the mark of UTF-8."""
    with zipfile.ZipFile(archive) as opened:
        for name in names:
            entry = opened.getinfo(name)
            expect(entry.create_system == (10 if ON_WINDOWS else 3), f"the system of {name}")
            expect(bool(entry.flag_bits & 1 << 11) != name.isascii(), f"the mark of {name}")


def main():
    with tempfile.TemporaryDirectory(prefix="kovrel_verify") as work:
        source = os.path.join(work, "origen")
        os.mkdir(source)
        for name, data in FILES.items():
            with open(os.path.join(source, name), "wb") as file:
                file.write(data)
        paths = [os.path.join(source, name) for name in FILES]

        for level in "0169":
            archive = os.path.join(work, f"nivel{level}.zip")
            pack(archive, *paths, level=level)
            expect_origin(archive, FILES)
            judge(archive, dict.fromkeys(PROGRAMS, FILES), work)

        # Archives of other programs, updated: entries that are not replaced stay as they were.
        changed = {"texto.txt": b"cambiado", "nuevo ñ.txt": b"nuevo" * 1000}
        other = os.path.join(work, "otros")
        os.mkdir(other)
        for name, data in changed.items():
            with open(os.path.join(other, name), "wb") as file:
                file.write(data)
        makers = {
            "zip": lambda a: run("zip", "-jq", a, *paths),
            "7z": lambda a: run("7z", "a", "-bso0", "-tzip", a, *paths),
            "bsdtar": lambda a: run("bsdtar", "-C", source, "-a", "-cf", a, *FILES),
            "python": lambda a: run(sys.executable, "-m", "zipfile", "-c", a, *paths),
        }
        for maker, make in makers.items():
            archive = os.path.join(work, f"de_{maker}.zip")
            make(archive)
            before = views(archive, work)
            pack(archive, *(os.path.join(other, name) for name in changed))
            expect_origin(archive, changed)
            judge(archive, {program: {**found, **changed} for program, found in before.items()},
                  work)
    return 0


sys.exit(main())

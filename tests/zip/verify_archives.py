#!/usr/bin/env python3
"""Archives of the engine, judged by programs that others wrote: unzip, zip, Python's zipfile,
bsdtar and 7-Zip. Contents must be equal byte for byte, and accented names right in each.
Usage: verify_archives.py ZIP_CLI"""
import os
import random
import shutil
import subprocess
import sys
import tempfile
import zipfile

CLI = sys.argv[1]
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
    "€ 日本 Ω.txt": b"1234567890" * 100,
    "pieza.bin": b"0123456789abcdef" * (262_144 // 16),
}


def run(*command, stdout=subprocess.PIPE, code=0):
    done = subprocess.run(command, stdout=stdout, stderr=subprocess.STDOUT, env=ENVIRONMENT)
    output = (done.stdout or b"").decode("utf-8", "replace")
    if done.returncode != code:
        sys.exit(f"{' '.join(command)}: status {done.returncode} instead of {code}\n{output}")
    return output


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
            run(CLI, "-" + level, archive, *paths)
            judge(archive, dict.fromkeys(PROGRAMS, FILES), work)

        # Archives that others made, updated here: what is not replaced stays as it was.
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
            run(CLI, archive, *(os.path.join(other, name) for name in changed))
            judge(archive, {program: {**found, **changed} for program, found in before.items()},
                  work)
    return 0


sys.exit(main())

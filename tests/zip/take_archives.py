#!/usr/bin/env python3
"""Archives of other programs (zip, 7-Zip, Python's zipfile, bsdtar), taken out by the engine, and of the
engine, taken out by others: the tree must be the one that was packed, with its times and permissions.
Usage: take_archives.py TOPIC ZIP_CLI; status 77 where there is no room for the topic's files."""
import os
import random
import shutil
import stat
import subprocess
import sys
import tempfile
import time
import zipfile

CLI = sys.argv[2]
GIB = 1 << 30
CANNOT_BE_TRIED = 77
ABORTED, OVER_LIMIT, INCOMPLETE = 9, 100, 101
# Local times must come back in a time zone with a summer time.
ENVIRONMENT = {**os.environ, "LC_ALL": "C.UTF-8", "TZ": "Europe/Madrid"}
rng = random.Random(17)
FILES = {
    "texto.txt": b"".join(b"linea %d\r\n" % rng.randrange(9999) for _ in range(90_000)),
    "azar.bin": rng.randbytes(700_000),
    "vacío.dat": b"",
    "una letra": b"a",
    "carpeta/Año ñandú ÁÉÍÓÚ çü.txt": "señal".encode(),
    "carpeta/日本語/漢字.txt": b"CJK",
    "carpeta/\U0001F600/\U0001F680.txt": b"emoji",
    "muy/dentro/de/varias/carpetas/x": b"x" * 100_000,
    "programa.sh": b"#!/bin/sh\n",
    "privado": b"1",
}
EMPTY_FOLDERS = ("sin nada", "carpeta/日本語/sin nada")
MODES = {"programa.sh": 0o755, "privado": 0o600}
TIMES = {"texto.txt": (1980, 1, 1, 0, 0, 0), "una letra": (2107, 12, 31, 23, 59, 58),
         "azar.bin": (2024, 7, 1, 12, 0, 2), "privado": (2024, 1, 1, 12, 0, 2),
         "carpeta/日本語/漢字.txt": (2038, 1, 19, 4, 14, 8), "sin nada": (1999, 12, 31, 23, 59, 58)}


def expect(condition, text):
    if not condition:
        sys.exit("FAILED: " + text)


def run(*command, code=0, folder=None, into=None):
    done = subprocess.run(command, stdout=into or subprocess.PIPE, stderr=subprocess.PIPE, cwd=folder,
                          env=ENVIRONMENT)
    expect(done.returncode == code,
           f"{' '.join(command)[:300]}: status {done.returncode}, not {code}\n{done.stderr.decode()[-3000:]}")
    return (done.stdout or b"").decode("utf-8", "replace")


def write(path, data):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as file:
        file.write(data)
    return path


def read(path):
    with open(path, "rb") as file:
        return file.read()


def make_tree(top):
    for name, data in FILES.items():
        write(os.path.join(top, name), data)
        os.chmod(os.path.join(top, name), MODES.get(name, 0o644))
    for name in EMPTY_FOLDERS:
        os.makedirs(os.path.join(top, name))
    for name, moment in TIMES.items():
        seconds = time.mktime((*moment, 0, 0, -1))
        os.utime(os.path.join(top, name), (seconds, seconds))
    return top


def tree_of(top):
    """Of each file and folder: its permissions, its time and, of a file, its contents."""
    found = {}
    for folder, folders, files in os.walk(top):
        for name in folders + files:
            path = os.path.join(folder, name)
            status = os.lstat(path)
            contents = read(path) if stat.S_ISREG(status.st_mode) else None
            found[os.path.relpath(path, top)] = (stat.S_IMODE(status.st_mode), int(status.st_mtime), contents)
    return found


def expect_tree(made, expected, program, folder_times=True, untimed=()):
    found = tree_of(made)
    expect(sorted(found) == sorted(expected), f"{program}: names {sorted(set(found) ^ set(expected))}")
    for name, (mode, modified, contents) in expected.items():
        got_mode, got_modified, got_contents = found[name]
        expect(got_contents == contents, f"{program}: contents of {name}")
        expect(got_mode == mode, f"{program}: permissions of {name}: {got_mode:o}, not {mode:o}")
        # Local times of archives are even; programs round them up or down.
        if name not in untimed and (contents is not None or folder_times):
            expect(abs(got_modified - modified) <= 2, f"{program}: time of {name}: {got_modified - modified} s off")


def packed_by(program, top, archive):
    names = sorted(os.listdir(top))
    if program == "zipfile":
        with zipfile.ZipFile(archive, "w", zipfile.ZIP_DEFLATED) as made:
            for folder, folders, files in os.walk(top):
                for name in sorted(folders + files):
                    path = os.path.join(folder, name)
                    made.write(path, os.path.relpath(path, top))
        return
    commands = {
        "zip": ("zip", "-qr", archive, *names),
        "zip stored": ("zip", "-qr0", archive, *names),
        "zip with ZIP64": ("zip", "-qr", "-fz", archive, *names),
        "7z": ("7z", "a", "-bso0", archive, *names),
        "7z with Unix times": ("7z", "a", "-bso0", "-mtp=1", archive, *names),
        "bsdtar": ("bsdtar", "-c", "--format=zip", "-f", archive, *names),
        "bsdtar stored": ("bsdtar", "-c", "--format=zip", "--options=zip:compression=store", "-f", archive, *names),
        "bsdtar of the folder": ("bsdtar", "-c", "--format=zip", "-f", archive, "."),
    }
    piped = {"zip to a pipe": ("zip", "-qr", "-", *names),
             "bsdtar to a pipe": ("bsdtar", "-c", "--format=zip", "-f", "-", *names)}
    if program in commands:
        run(*commands[program], folder=top)
    else:
        with open(archive, "wb") as output:
            run("bash", "-c", '"$@" | cat', "-", *piped[program], folder=top, into=output)


PROGRAMS = ("zipfile", "zip", "zip stored", "zip with ZIP64", "zip to a pipe", "7z", "7z with Unix times", "bsdtar",
            "bsdtar stored", "bsdtar of the folder", "bsdtar to a pipe")


def trees(folder):
    top = make_tree(os.path.join(folder, "origen"))
    expected = tree_of(top)
    for program in PROGRAMS:
        archive = os.path.join(folder, "a.zip")
        packed_by(program, top, archive)
        run(CLI, "test", archive)
        listed = [line.split("\t") for line in run(CLI, "list", archive).splitlines()]
        sizes = {os.path.normpath(name): int(size) for name, size, *_ in listed if not name.endswith("/")}
        expect(sizes == {name: len(data) for name, data in FILES.items()}, f"{program}: list {sizes}")
        for threads in "12":
            made = os.path.join(folder, "fuera")
            run(CLI, "take", "-t", threads, archive, made)
            expect_tree(made, expected, program)
            shutil.rmtree(made)
        os.remove(archive)
    print(f"{len(expected)} files and folders out of the archives of {len(PROGRAMS)} ways to pack")


def taken_by(program, archive, made):
    if program == "zipfile":
        with zipfile.ZipFile(archive) as packed:
            packed.extractall(made)
        return
    os.makedirs(made, exist_ok=True)
    run(*{"unzip": ("unzip", "-qq", archive, "-d", made), "7z": ("7z", "x", "-bso0", "-o" + made, archive),
          "bsdtar": ("bsdtar", "-x", "-f", archive, "-C", made)}[program])


def packed(folder):
    """Archives of the engine, taken out by the other programs and by itself."""
    top = make_tree(os.path.join(folder, "origen"))
    expected = tree_of(top)
    archive, made = os.path.join(folder, "a.zip"), os.path.join(folder, "fuera")
    for switches in (("-6",), ("-0",), ("-9", "-t", "1"), ("-c", "Año €")):
        run(CLI, "pack", "-r", "-b", top, "-m", "new", *switches, archive, top)
        run("unzip", "-tqq", archive)
        run(CLI, "take", archive, made)
        expect_tree(made, expected, "the engine itself")
        shutil.rmtree(made)
        for program in ("unzip", "7z", "bsdtar", "zipfile"):
            taken_by(program, archive, made)
            if program == "zipfile":  # which restores neither times nor permissions
                expect({name: contents for name, (_, _, contents) in tree_of(made).items()}
                       == {name: contents for name, (_, _, contents) in expected.items()}, "zipfile: tree")
            else:
                # unzip takes 2100 for a leap year.
                expect_tree(made, expected, program, folder_times=program == "unzip",
                            untimed=("una letra",) if program == "unzip" else ())
            shutil.rmtree(made)
    write(os.path.join(top, "nuevo/más.txt"), b"1")
    os.remove(os.path.join(top, "una letra"))
    run(CLI, "pack", "-r", "-b", top, "-m", "update", "-x", "privado", archive, top)
    run("unzip", "-qq", archive, "-d", made)
    expect(set(tree_of(made)) == set(expected) | {"nuevo", "nuevo/más.txt"}, "brought up to date")
    with zipfile.ZipFile(archive) as updated:
        expect(updated.comment == "Año €".encode(), f"comment {updated.comment}")
    expect(run(CLI, "comment", archive) == "Año €\n", "the comment listed")
    write(os.path.join(top, ".oculto"), b"1")
    run(CLI, "pack", "-r", "-b", top, "-m", "new", "--flat", "--no-hidden", archive, os.path.join(top, "*"))
    flat = [line.split("\t")[0] for line in run(CLI, "list", archive).splitlines()]
    expect(".oculto" not in flat and "texto.txt" in flat and not any("/" in name.rstrip("/") for name in flat),
           f"without hidden files and what is in folders: {flat}")


def unreadable(folder):
    """Encrypted entries, other methods and links: told by entry, and the others are taken out."""
    top = make_tree(os.path.join(folder, "origen"))
    archive = os.path.join(folder, "a.zip")
    made = os.path.join(folder, "fuera")
    cases = {"encrypted": (("zip", "-q", "-P", "x"), ("7z", "a", "-bso0", "-px"), ("7z", "a", "-bso0", "-px", "-mem=AES256")),
             "unknown method": (("7z", "a", "-bso0", "-mm=LZMA"), ("7z", "a", "-bso0", "-mm=BZip2"),
                                ("zip", "-q", "-Z", "bzip2"))}
    for state, commands in cases.items():
        for command in commands:
            run(*command, archive, "texto.txt", folder=top)
            run("zip", "-q", archive, "una letra", folder=top)
            told = run(CLI, "take", archive, made, code=INCOMPLETE).splitlines()
            expect(sorted(told) == sorted((f"{state}\ttexto.txt", "done\tuna letra")), f"{command}: {told}")
            told = run(CLI, "test", archive, code=INCOMPLETE).splitlines()
            expect(f"{state}\ttexto.txt" in told, f"{command}: {told}")
            expect(os.listdir(made) == ["una letra"], f"{command}: {os.listdir(made)}")
            shutil.rmtree(made)
            os.remove(archive)
    os.symlink("texto.txt", os.path.join(top, "enlace"))
    for command in (("zip", "-qry"), ("7z", "a", "-bso0", "-snl"), ("bsdtar", "-c", "--format=zip", "-f")):
        run(*command, archive, "enlace", "una letra", folder=top)
        told = run(CLI, "take", archive, made, code=INCOMPLETE).splitlines()
        expect(sorted(told) == ["done\tuna letra", "link\tenlace"], f"{command}: {told}")
        expect(os.listdir(made) == ["una letra"], f"{command}: {os.listdir(made)}")
        shutil.rmtree(made)
        os.remove(archive)


def existing(folder):
    """The switches: what happens to existing files, exclusions, without folder names."""
    top = make_tree(os.path.join(folder, "origen"))
    archive, made = os.path.join(folder, "a.zip"), os.path.join(folder, "fuera")
    packed_by("zip", top, archive)
    old = write(os.path.join(made, "texto.txt"), b"viejo")
    told = run(CLI, "take", "-x", "carpeta", "-x", "*.bin", archive, made, "*.txt", "*.bin").splitlines()
    expect([line for line in told if not line.startswith("left out")] == ["kept existing\ttexto.txt"], f"{told}")
    run(CLI, "take", "-o", "older", archive, made, "texto.txt")
    expect(read(old) == b"viejo", "a newer file")
    os.utime(old, (0, 0))
    run(CLI, "take", "-o", "older", archive, made, "texto.txt")
    expect(read(old) == FILES["texto.txt"], "an older file")
    write(old, b"viejo")
    run(CLI, "take", "-o", "replace", archive, made, "texto.txt")
    expect(read(old) == FILES["texto.txt"], "a replaced file")
    shutil.rmtree(made)
    run(CLI, "take", "-j", archive, made)
    expect(sorted(os.listdir(made)) == sorted(map(os.path.basename, FILES)), "without folder names")
    write(os.path.join(made, "texto.txt"), b"viejo")
    for answer, contents in ((b"", b"viejo"), (b"n\n", b"viejo"), (b"y\n", FILES["texto.txt"])):
        asked = subprocess.run([CLI, "take", "-o", "ask", archive, made, "texto.txt"], input=answer,
                               stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        expect(asked.returncode == 0 and asked.stderr.startswith(b"replace "), f"asked: {asked}")
        expect(read(os.path.join(made, "texto.txt")) == contents, f"answer {answer}")
    shutil.rmtree(made)
    run(CLI, "take", "--stop", "1", "-t", "1", archive, made, code=ABORTED)
    expect(not any(name.startswith("zi") for name in os.listdir(made)), "a temporary file after a stop")
    before = read(archive)
    run(CLI, "pack", "-r", "--stop", "1", archive, top, code=ABORTED)
    expect(read(archive) == before, "the archive after a stop")
    run(CLI, "take", archive, made, "no hay", code=12)
    run(CLI, "take", archive, code=16)
    run(CLI, "take", os.path.join(folder, "no.zip"), made, code=18)


def need_room(folder, size):
    status = os.statvfs(folder)
    if status.f_bavail * status.f_frsize < size:
        print(f"skipped: less than {size // GIB} GiB free")
        sys.exit(CANNOT_BE_TRIED)


def large_file(folder):
    """5 GiB that deflate to little: over both limits, until they are raised."""
    need_room(folder, 6 * GIB)
    large = os.path.join(folder, "grande.bin")
    with open(large, "wb") as file:
        file.truncate(5 * GIB)
        file.seek(5 * GIB - 5)
        file.write(b"final")
    archive, made = os.path.join(folder, "a.zip"), os.path.join(folder, "fuera")
    run("zip", "-q1", archive, "grande.bin", folder=folder)
    for limits in ((), ("--bytes", str(6 * GIB), "--ratio", "200"), ("--ratio", "2000")):
        run(CLI, "take", *limits, archive, made, code=OVER_LIMIT)
        expect(not os.path.exists(made), "something was made before the limits were checked")
    run(CLI, "take", "--bytes", str(6 * GIB), "--ratio", "2000", archive, made)
    run("cmp", large, os.path.join(made, "grande.bin"))


def many_entries(folder):
    archive, made = os.path.join(folder, "a.zip"), os.path.join(folder, "fuera")
    names = [f"{i // 1000}/{i}" for i in range(100_000)]
    with zipfile.ZipFile(archive, "w") as packed:
        for name in names:
            packed.writestr(name, name)
    told = run(CLI, "take", archive, made).splitlines()
    expect(told == [f"done\t{name}" for name in names], "what is told of the entries")
    found = {os.path.relpath(os.path.join(top, name), made) for top, _, files in os.walk(made) for name in files}
    expect(found == set(names), "the names")
    expect(all(read(os.path.join(made, name)) == name.encode() for name in names), "the contents")


def kills(folder):
    """Whatever the moment, a final name has the old file or the new one, whole."""
    count = 200
    top = os.path.join(folder, "origen")
    for i in range(40):
        write(os.path.join(top, f"{i % 4}", f"f{i}"), random.Random(i).randbytes(300_000))
    archive, made = os.path.join(folder, "a.zip"), os.path.join(folder, "fuera")
    run("zip", "-qr0", archive, ".", folder=top)
    new = {name: contents for name, (_, _, contents) in tree_of(top).items() if contents is not None}
    command = (CLI, "take", "-o", "replace", archive, made)
    start = time.monotonic()
    run(*command)
    duration = time.monotonic() - start
    moments = random.Random(3)
    seen = {"old": 0, "new": 0, "left": 0}
    for _ in range(count):
        shutil.rmtree(made)
        for name in list(new)[::2]:
            write(os.path.join(made, name), b"viejo")
        child = subprocess.Popen(command, stdout=subprocess.DEVNULL, env=ENVIRONMENT)
        time.sleep(moments.uniform(0, duration * 1.1))
        child.kill()
        child.wait()
        for name, (_, _, contents) in tree_of(made).items():
            if contents is None:
                continue
            if os.path.basename(name).startswith("zi"):
                seen["left"] += 1
                continue
            expect(contents == new[name] or (contents == b"viejo" and name in list(new)[::2]), f"half of {name}")
            seen["old" if contents == b"viejo" else "new"] += 1
    run(*command)
    expect({name for name, (_, _, contents) in tree_of(made).items() if contents is not None} == set(new),
           "what killed processes left, after the next")
    print(f"{count} kills: {seen}")
    expect(min(seen.values()) >= count // 10, "too few kills while files were written")


TOPICS = (trees, packed, unreadable, existing, large_file, many_entries, kills)


def main():
    os.environ["TZ"] = ENVIRONMENT["TZ"]
    time.tzset()
    os.umask(0o022)
    topic = {function.__name__: function for function in TOPICS}[sys.argv[1]]
    folder = tempfile.mkdtemp(prefix="kovrel_take")
    try:
        topic(folder)
    finally:
        shutil.rmtree(folder)
    return 0


sys.exit(main())

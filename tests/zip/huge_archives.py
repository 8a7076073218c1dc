#!/usr/bin/env python3
"""Past the limits of the classic format, 4 GiB and 65,535 entries, checked with other programs.
Usage: huge_archives.py TOPIC ZIP_CLI; status 77 where there is no room for the topic's files."""
import os
import shutil
import subprocess
import sys
import tempfile
import zipfile

CLI = sys.argv[2]
GIB = 1 << 30
CANNOT_BE_TRIED = 77


def run(*command):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    if done.returncode != 0:
        sys.exit(f"{' '.join(command[:9])}: status {done.returncode}\n{done.stdout.decode()}")
    return done.stdout.decode()


def expect(condition, text):
    if not condition:
        sys.exit("FAILED: " + text)


def need_room(folder, size):
    status = os.statvfs(folder)
    if status.f_bavail * status.f_frsize < size:
        print(f"skipped: less than {size // GIB} GiB free")
        sys.exit(CANNOT_BE_TRIED)


def sparse(path, size):
    with open(path, "wb") as file:
        file.truncate(size)
    return path


def write(path, data):
    with open(path, "wb") as file:
        file.write(data)
    return path


def expect_sizes(archive, sizes):
    """What each program lists as names and sizes."""
    with zipfile.ZipFile(archive) as opened:
        expect({entry.filename: entry.file_size for entry in opened.infolist()} == sizes,
               "zipfile's sizes")
    listed = [line.split() for line in run("bsdtar", "-tvf", archive).splitlines()]
    expect({words[-1]: int(words[4]) for words in listed} == sizes, f"bsdtar's sizes: {listed}")
    listed = [line.split() for line in run("unzip", "-ql", archive).splitlines()]
    expect({words[-1]: int(words[0]) for words in listed if words[-1] in sizes} == sizes,
           f"unzip's sizes: {listed}")
    fields = [line.partition(" = ")[::2] for line in run("7z", "l", "-slt", "-ba", archive)
              .splitlines()]
    names = [value for field, value in fields if field == "Path"]
    found = dict(zip(names, (int(value) for field, value in fields if field == "Size")))
    expect(found == sizes, f"7z's sizes: {found}")


def large_file(folder):
    """A file of 5 GiB that deflates to little."""
    need_room(folder, GIB)
    large = sparse(os.path.join(folder, "grande.bin"), 5 * GIB)
    small = write(os.path.join(folder, "corto.txt"), b"corto")
    archive = os.path.join(folder, "a.zip")
    run(CLI, "pack", "-1", archive, large, small)
    expect(os.path.getsize(archive) < 64 << 20, "the archive's size")
    expect_sizes(archive, {"grande.bin": 5 * GIB, "corto.txt": 5})
    run("7z", "t", "-bso0", archive)
    run("bash", "-c", '[ "$(bsdtar -xOf "$1" grande.bin | wc -c)" = 5368709120 ]', "-", archive)


def large_archive(folder):
    """An archive of more than 4 GiB: what follows the large entry lies past it."""
    size = 4 * GIB + 12345
    need_room(folder, 2 * size)
    large = sparse(os.path.join(folder, "grande.bin"), size)
    small = write(os.path.join(folder, "corto.txt"), b"corto")
    archive = os.path.join(folder, "a.zip")
    run(CLI, "pack", "-0", archive, large, small)
    expect(os.path.getsize(archive) > size, "the archive's size")
    sizes = {"grande.bin": size, "corto.txt": 5}
    expect_sizes(archive, sizes)
    with zipfile.ZipFile(archive) as opened:
        expect(opened.getinfo("corto.txt").header_offset > size, "where the last entry lies")
        expect(opened.read("corto.txt") == b"corto", "zipfile: the entry past 4 GiB")
    for command in (("unzip", "-p"), ("bsdtar", "-xOf"), ("7z", "x", "-so")):
        expect(run(*command, archive, "corto.txt") == "corto", f"{command[0]}: past 4 GiB")
    run("7z", "t", "-bso0", archive)


def many_entries(folder):
    """Across the limit by an update, and once more when past it."""
    archive = os.path.join(folder, "a.zip")
    names = [f"e{i}" for i in range(65_530)]
    with zipfile.ZipFile(archive, "w") as made:
        for name in names:
            made.writestr(name, name)
    for count in (5, 6, 100):  # 65,535; 65,541; 65,641
        added = [write(os.path.join(folder, f"n{len(names) + i}"), b"nuevo") for i in range(count)]
        run(CLI, "pack", archive, *added)
        names += map(os.path.basename, added)
        with zipfile.ZipFile(archive) as opened:
            expect(opened.namelist() == names, f"zipfile's names of {len(names)}")
            expect(opened.testzip() is None, "zipfile found a bad entry")
        expect(f"Files: {len(names)}\n" in run("7z", "t", archive), "7z's count")
        expect(run("bsdtar", "-tf", archive).split() == names, "bsdtar's names")
        expect(run("unzip", "-Z1", archive).split() == names, "unzip's names")


def main():
    topic = {function.__name__: function
             for function in (large_file, large_archive, many_entries)}[sys.argv[1]]
    folder = tempfile.mkdtemp(prefix="kovrel_huge")
    try:
        topic(folder)
    finally:
        shutil.rmtree(folder)
    return 0


sys.exit(main())

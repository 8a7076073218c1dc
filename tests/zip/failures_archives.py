#!/usr/bin/env python3
"""What may go wrong around an update: the process killed in the middle, the disk full, inputs that
cannot be read. The archive under its name is always the old one or the new one, whole.
Usage: failures_archives.py ZIP_CLI"""
import contextlib
import os
import random
import signal
import subprocess
import sys
import tempfile
import time
import zipfile

CLI = sys.argv[1]
KILLS = 100


def expect(condition, text):
    if not condition:
        sys.exit("FAILED: " + text)


def read(path):
    with open(path, "rb") as file:
        return file.read()


def write(path, data):
    with open(path, "wb") as file:
        file.write(data)
    return path


def pack(archive, *paths):
    return subprocess.run([CLI, "-t", "2", archive, *paths], stderr=subprocess.DEVNULL).returncode


def text(seed, size):
    rng = random.Random(seed)
    return b" ".join(b"%d" % rng.randrange(10**6) for _ in range(size // 7))


def killed_in_the_middle(folder):
    archive = os.path.join(folder, "a.zip")
    old_file = write(os.path.join(folder, "viejo"), text(1, 200_000))
    expect(pack(archive, old_file) == 0, "the first archive")
    old = read(archive)
    inputs = [write(os.path.join(folder, f"f{i}"), text(i, 1_000_000)) for i in range(3)]
    start = time.monotonic()
    expect(pack(archive, *inputs) == 0, "the updated archive")
    duration = time.monotonic() - start
    new = read(archive)
    rng = random.Random(3)
    counts = {"old": 0, "new": 0}
    for _ in range(KILLS):
        write(archive, old)
        child = subprocess.Popen([CLI, "-t", "2", archive, *inputs])
        with contextlib.suppress(subprocess.TimeoutExpired):
            child.wait(rng.uniform(0, duration * 1.1))
        child.send_signal(signal.SIGKILL)
        child.wait()
        found = read(archive)
        expect(found in (old, new), "after a kill the archive is neither the old nor the new one")
        counts["old" if found == old else "new"] += 1
        for name in os.listdir(folder):
            if name.startswith("zi") and name.endswith(".tmp"):
                os.remove(os.path.join(folder, name))
    expect(sorted(os.listdir(folder)) == ["a.zip", "f0", "f1", "f2", "viejo"], "stray files")
    print(f"{KILLS} kills: {counts['old']} left the old archive, {counts['new']} the new one")


def unreadable_input(folder):
    archive = os.path.join(folder, "b.zip")
    secret = write(os.path.join(folder, "secreto"), b"1")
    plain = write(os.path.join(folder, "claro"), b"2")
    os.chmod(secret, 0)
    if os.access(secret, os.R_OK):
        print("skipped: an input without permission (this user may read everything)")
    else:
        expect(pack(archive, secret, plain) == 18, "an unreadable input's return code")
        expect(zipfile.ZipFile(archive).namelist() == ["claro"], "the readable input")
    os.chmod(secret, 0o400)
    expect(pack(archive, secret, plain) == 0, "a read-only input")
    pipe = os.path.join(folder, "tubo")
    os.mkfifo(pipe)
    expect(pack(os.path.join(folder, "c.zip"), pipe) == 12, "a pipe is not a file to pack")


def full_disk(folder):
    """A file system of 1 MB; not everybody may make one."""
    small = os.path.join(folder, "pequeño")
    os.mkdir(small)
    mounted = subprocess.run(["mount", "-t", "tmpfs", "-o", "size=1m", "tmpfs", small],
                             stderr=subprocess.DEVNULL)
    if mounted.returncode != 0:
        print("skipped: a full disk (mounting is not permitted here)")
        return
    try:
        archive = os.path.join(small, "a.zip")
        first = write(os.path.join(folder, "primero"), b"1")
        expect(pack(archive, first) == 0, "a small archive")
        old = read(archive)
        large = write(os.path.join(folder, "grande"), random.Random(4).randbytes(3_000_000))
        expect(pack(archive, large) == 14, "a full disk's return code")
        expect(read(archive) == old, "the old archive after a full disk")
        expect(pack(os.path.join(small, "b.zip"), large) == 14, "a full disk, new archive")
        expect(os.listdir(small) == ["a.zip"], "stray files on the full disk")
        # Room for the archive but not for a second one beside it.
        write(os.path.join(small, "relleno"), bytes(1 << 20)[:1_000_000])
        expect(pack(archive, large) in (14, 15), "no room at all")
        expect(read(archive) == old, "the old archive without room")
        print("full disk: the old archive stays, nothing else is left")
    finally:
        subprocess.run(["umount", small], check=True)


def write_limit(folder):
    """A limit to a file's size, which every user may set, fails a write as a full disk does."""
    archive = os.path.join(folder, "limite.zip")
    large = write(os.path.join(folder, "grande2"), random.Random(4).randbytes(3_000_000))
    before = sorted(os.listdir(folder))
    code = subprocess.run(["bash", "-c", 'trap "" XFSZ; ulimit -f 1000; exec "$@"', "-", CLI,
                           archive, large], stderr=subprocess.DEVNULL).returncode
    expect(code == 14, f"a failed write's return code, {code}")
    expect(sorted(os.listdir(folder)) == before, "stray files after a failed write")


def main():
    for part in (killed_in_the_middle, unreadable_input, full_disk, write_limit):
        with tempfile.TemporaryDirectory(prefix="kovrel_failures") as folder:
            part(folder)
    return 0


sys.exit(main())

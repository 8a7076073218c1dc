#!/usr/bin/env python3
"""What may go wrong around an update: the process killed in the middle, the disk full, inputs that
cannot be read. The archive under its name is always the old one or the new one, whole.
Usage: failures_archives.py TOPIC ZIP_CLI; status 77 where the topic cannot be tried."""
import os
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import warnings
import zipfile

CLI = sys.argv[2]
KILLS = 100
# Fewer would mean that the kills miss the writing and prove nothing.
LEAST_KILLS_WHILE_WRITING = 20
CANNOT_BE_TRIED = 77


def expect(condition, text):
    if not condition:
        sys.exit("FAILED: " + text)


def skip(text):
    print("skipped: " + text)
    sys.exit(CANNOT_BE_TRIED)


def read(path):
    with open(path, "rb") as file:
        return file.read()


def write(path, data):
    with open(path, "wb") as file:
        file.write(data)
    return path


def pack(archive, *paths, through=()):
    return subprocess.run([*through, CLI, "-t", "2", archive, *paths],
                          stderr=subprocess.DEVNULL).returncode


def contents(archive):
    with zipfile.ZipFile(archive) as opened:
        return [(entry.filename, opened.read(entry)) for entry in opened.infolist()]


def text(seed, size):
    rng = random.Random(seed)
    return b" ".join(b"%d" % rng.randrange(10**6) for _ in range(size // 7))


def working_files(folder):
    return [name for name in os.listdir(folder)
            if name.startswith("zi") and name.endswith(".tmp")]


def kill_at_a_moment(child, rng, duration):
    deadline = time.monotonic() + rng.uniform(0, duration)
    while child.poll() is None and time.monotonic() < deadline:
        time.sleep(0.001)
    child.send_signal(signal.SIGKILL)


def kill_while_writing(child, rng, duration, folder):
    """However long the machine takes to get there; from right then to near the end."""
    while child.poll() is None and not working_files(folder):
        time.sleep(0.001)
    kill_at_a_moment(child, rng, duration * 0.7)


def kills(folder):
    archive = os.path.join(folder, "a.zip")
    old_file = write(os.path.join(folder, "viejo"), text(1, 200_000))
    expect(pack(archive, old_file) == 0, "the first archive")
    old = read(archive)
    inputs = [write(os.path.join(folder, f"f{i}"), text(i, 1_000_000)) for i in range(3)]
    durations = []
    for _ in range(3):
        write(archive, old)
        start = time.monotonic()
        expect(pack(archive, *inputs) == 0, "the updated archive")
        durations.append(time.monotonic() - start)
    new = read(archive)
    rng = random.Random(3)
    counts = {"old": 0, "new": 0, "while writing": 0}
    for i in range(KILLS):
        write(archive, old)
        child = subprocess.Popen([CLI, "-t", "2", archive, *inputs])
        if i % 2 == 0:
            kill_at_a_moment(child, rng, max(durations) * 1.2)
        else:
            kill_while_writing(child, rng, min(durations), folder)
        child.wait()
        found = read(archive)
        expect(found in (old, new), "after a kill the archive is neither the old nor the new one")
        left = working_files(folder)
        expect(not left or found == old, "a working file beside the new archive")
        counts["old" if found == old else "new"] += 1
        counts["while writing"] += bool(left)
        for name in left:
            os.remove(os.path.join(folder, name))
    expect(sorted(os.listdir(folder)) == ["a.zip", "f0", "f1", "f2", "viejo"], "stray files")
    expect(pack(archive, *inputs) == 0 and read(archive) == new, "an update after the kills")
    print(f"{KILLS} kills, {counts['while writing']} of them while the archive was written: "
          f"{counts['old']} left the old archive, {counts['new']} the new one")
    expect(counts["while writing"] >= LEAST_KILLS_WHILE_WRITING, "too few kills while writing")


def unreadable_input(folder):
    archive = os.path.join(folder, "b.zip")
    secret = write(os.path.join(folder, "secreto"), b"1")
    plain = write(os.path.join(folder, "claro"), b"2")
    os.chmod(secret, 0)
    through = ()
    if os.access(secret, os.R_OK):
        # The administrator may read everything, but for one who has given that right up.
        through = ("setpriv", "--inh-caps=-all", "--bounding-set=-all")
        if subprocess.run([*through, "cat", secret], stdout=subprocess.DEVNULL,
                          stderr=subprocess.DEVNULL).returncode != 1:
            skip("this user may read everything and cannot give that up")
    expect(pack(archive, secret, plain, through=through) == 18, "an unreadable input's return code")
    expect(contents(archive) == [("claro", b"2")], "the readable input")
    expect(pack(os.path.join(folder, "c.zip"), secret, through=through) == 18, "nothing readable")
    expect(not os.path.exists(os.path.join(folder, "c.zip")), "an archive of nothing")

    # Its old entries stay, all of them, until it can be read.
    with zipfile.ZipFile(archive, "w") as made, warnings.catch_warnings():
        warnings.simplefilter("ignore")  # about the second entry of one name
        for name, data in (("secreto", "viejo"), ("otro", "3"), ("secreto", "doble")):
            made.writestr(name, data)
    expect(pack(archive, secret, plain, through=through) == 18, "an update's return code")
    expect(contents(archive) == [("secreto", b"viejo"), ("otro", b"3"), ("secreto", b"doble"),
                                 ("claro", b"2")], "the entries of a file that cannot be opened")
    os.chmod(secret, 0o400)
    expect(pack(archive, secret, plain, through=through) == 0, "a read-only input")
    expect(contents(archive) == [("secreto", b"1"), ("otro", b"3"), ("claro", b"2")],
           "the entries of a file that can be opened again")


def pipe(folder):
    path = os.path.join(folder, "tubo")
    os.mkfifo(path)
    expect(pack(os.path.join(folder, "c.zip"), path) == 12, "a pipe is not a file to pack")


def full_disk(folder):
    """A file system of 1 MB, mounted in a name space of its own, which most users may make."""
    for share in (("unshare", "-m"), ("unshare", "-rm")):
        tried = subprocess.run([*share, "mount", "-t", "tmpfs", "tmpfs", folder],
                               stderr=subprocess.DEVNULL)
        if tried.returncode == 0:
            inside = subprocess.run([*share, sys.executable, __file__, "on_a_full_disk", CLI])
            expect(inside.returncode == 0, f"status {inside.returncode}")
            return
    skip("mounting is not permitted here")


def on_a_full_disk(folder):
    small = os.path.join(folder, "pequeño")
    os.mkdir(small)
    subprocess.run(["mount", "-t", "tmpfs", "-o", "size=1m", "tmpfs", small], check=True)
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
        write(os.path.join(small, "relleno"), bytes(1_000_000))
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


TOPICS = (kills, unreadable_input, pipe, full_disk, on_a_full_disk, write_limit)


def main():
    topic = {function.__name__: function for function in TOPICS}[sys.argv[1]]
    folder = tempfile.mkdtemp(prefix="kovrel_failures")
    try:
        topic(folder)
    finally:
        shutil.rmtree(folder)
    return 0


sys.exit(main())

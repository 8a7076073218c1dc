#!/usr/bin/env python3
"""Failures during an update: the process killed in the middle, the disk full, inputs that cannot be
read. The archive is always either the old one or the complete new one.
Usage: failures_archives.py TOPIC COMMAND..., which is zip_cli pack, or the emulator and a program that
calls the DLL; status 77 where the topic cannot be tried."""
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

COMMAND = sys.argv[2:]
ON_WINDOWS = COMMAND[-1].endswith(".exe")
# Programs take long to start in the emulator.
KILLS = 20 if ON_WINDOWS else 100
# Fewer would mean that the kills miss the writing and prove nothing.
LEAST_KILLS_WHILE_WRITING = KILLS // 5
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


def packing(archive, *paths):
    def named(path):
        return "Z:" + path.replace("/", "\\") if ON_WINDOWS else path

    switches = [] if ON_WINDOWS else ["-t", "2"]
    return [*COMMAND, *switches, named(archive), *map(named, paths)]


def pack(archive, *paths, through=()):
    return subprocess.run([*through, *packing(archive, *paths)],
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


def working_on(folder):
    """The processes that were told to work in a folder: the emulator may start more than one."""
    found = []
    mark = os.path.basename(folder).encode()
    for pid in filter(str.isdigit, os.listdir("/proc")):
        try:
            if int(pid) != os.getpid() and mark in read(f"/proc/{pid}/cmdline"):
                found.append(int(pid))
        except OSError:
            continue
    return found


def kill(child, folder):
    deadline = time.monotonic() + 20
    while pids := working_on(folder):
        for pid in pids:
            try:
                os.kill(pid, signal.SIGKILL)
            except ProcessLookupError:
                continue
        child.poll()
        expect(time.monotonic() < deadline, "a process cannot be killed")
    child.wait()


def kill_at_a_moment(child, rng, duration, folder):
    deadline = time.monotonic() + rng.uniform(0, duration)
    while child.poll() is None and time.monotonic() < deadline:
        time.sleep(0.001)
    kill(child, folder)


def kill_while_writing(child, rng, duration, folder, before):
    """At a random moment after the writing has begun, however long that takes."""
    while child.poll() is None and set(working_files(folder)) <= before:
        time.sleep(0.001)
    kill_at_a_moment(child, rng, duration * 0.7, folder)


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
    # Not to be removed: names that only resemble those of temporary files, and a folder.
    others = [write(os.path.join(folder, name), b"1")
              for name in ("zi0123456g.tmp", "zi01234567.tmp2", "zi012345678.tmp", "zz01234567.tmp")]
    os.mkdir(os.path.join(folder, "zi89abcdef.tmp"))
    kept = sorted(os.listdir(folder))
    rng = random.Random(3)
    counts = {"old": 0, "new": 0, "while writing": 0}
    for i in range(KILLS):
        write(archive, old)
        before = set(working_files(folder))
        child = subprocess.Popen(packing(archive, *inputs), stderr=subprocess.DEVNULL)
        if i % 2 == 0:
            kill_at_a_moment(child, rng, max(durations) * 1.2, folder)
        else:
            kill_while_writing(child, rng, min(durations), folder, before)
        found = read(archive)
        expect(found in (old, new), "after a kill the archive is neither the old nor the new one")
        left = set(working_files(folder)) - before
        expect(len(left) <= 1, f"working files of one update: {left}")
        expect(not left or found == old, "a working file beside the new archive")
        counts["old" if found == old else "new"] += 1
        counts["while writing"] += bool(left)
        if left and i % 4 == 0:
            expect(pack(archive, old_file) == 0, "an update after a kill")
            expect(sorted(os.listdir(folder)) == kept, "what a killed update has left")
    expect(pack(archive, *inputs) == 0 and read(archive) == new, "an update after the kills")
    expect(sorted(os.listdir(folder)) == kept, f"stray files: {os.listdir(folder)}")
    expect(all(read(path) == b"1" for path in others), "other files of such names")
    print(f"{KILLS} kills, {counts['while writing']} of them while the archive was written: "
          f"{counts['old']} left the old archive, {counts['new']} the new one")
    expect(counts["while writing"] >= LEAST_KILLS_WHILE_WRITING, "too few kills while writing")


def side_by_side(folder):
    """Simultaneous updates in one folder: none removes another one's temporary file."""
    inputs = [write(os.path.join(folder, f"f{i}"), text(i, 400_000)) for i in range(3)]
    archives = [os.path.join(folder, f"a{i}.zip") for i in range(4)]
    for _ in range(2 if ON_WINDOWS else 20):
        running = [subprocess.Popen(packing(archive, *inputs), stderr=subprocess.DEVNULL)
                   for archive in archives]
        expect([child.wait() for child in running] == [0] * len(archives), "updates side by side")
        for archive in archives:
            expect(contents(archive) == [(f"f{i}", read(inputs[i])) for i in range(3)], archive)
        expect(not working_files(folder), "stray files")


def permissions_and_links(folder):
    """An update keeps the archive's permissions and owner, and the links to it."""
    archive = os.path.join(folder, "a.zip")
    first, second = (write(os.path.join(folder, name), name.encode()) for name in ("f1", "f2"))
    new_mode = None
    for mode in (0o600, 0o644) if ON_WINDOWS else (0o600, 0o644, 0o640, 0o666, 0o755):
        expect(pack(archive, first) == 0, "the first archive")
        if new_mode is None:
            new_mode = os.stat(archive).st_mode & 0o777
        os.chmod(archive, mode)
        before = os.stat(archive)
        expect(pack(archive, second) == 0, f"the updated archive of mode {mode:o}")
        after = os.stat(archive)
        expect(after.st_mode == before.st_mode, f"mode {mode:o} became {after.st_mode & 0o7777:o}")
        expect((after.st_uid, after.st_gid) == (before.st_uid, before.st_gid), "the owner")
        os.remove(archive)
    mask = os.umask(0)
    os.umask(mask)
    expect(new_mode == 0o666 & ~mask, f"a new archive of mode {new_mode:o}")

    elsewhere = os.path.join(folder, "otra carpeta")
    os.mkdir(elsewhere)
    target = os.path.join(elsewhere, "b.zip")
    inner = os.path.join(elsewhere, "c.zip")
    os.symlink("c.zip", inner + ".link")
    for link, leads_to in ((archive, target), (os.path.join(folder, "c.zip"), inner + ".link")):
        os.symlink(leads_to, link)
        # Only POSIX systems resolve a link that leads to no file yet.
        made_as = os.path.realpath(link) if ON_WINDOWS else link
        expect(pack(made_as, first) == 0, "an archive where a link leads")
        expect(pack(link, second) == 0, "an update through a link")
        expect(os.readlink(link) == leads_to, "the link")
        expect(contents(os.path.realpath(link)) == [("f1", b"f1"), ("f2", b"f2")],
               "the archive that the link leads to")
    expect(sorted(os.listdir(elsewhere)) == ["b.zip", "c.zip", "c.zip.link"],
           f"beside the archive: {os.listdir(elsewhere)}")


def unreadable_input(folder):
    archive = os.path.join(folder, "b.zip")
    secret = write(os.path.join(folder, "secreto"), b"1")
    plain = write(os.path.join(folder, "claro"), b"2")
    os.chmod(secret, 0)
    through = ()
    if os.access(secret, os.R_OK):
        # An administrator may read everything unless that right is dropped.
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
            inside = subprocess.run([*share, sys.executable, __file__, "on_a_full_disk", *COMMAND])
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
    code = subprocess.run(["bash", "-c", 'trap "" XFSZ; ulimit -f 1000; exec "$@"', "-",
                           *packing(archive, large)], stderr=subprocess.DEVNULL).returncode
    expect(code == 14, f"a failed write's return code, {code}")
    expect(sorted(os.listdir(folder)) == before, "stray files after a failed write")


TOPICS = (kills, side_by_side, permissions_and_links, unreadable_input, pipe, full_disk,
          on_a_full_disk, write_limit)


def main():
    topic = {function.__name__: function for function in TOPICS}[sys.argv[1]]
    folder = tempfile.mkdtemp(prefix="kovrel_failures")
    try:
        topic(folder)
    finally:
        shutil.rmtree(folder)
    return 0


sys.exit(main())

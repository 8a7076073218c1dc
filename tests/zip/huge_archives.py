#!/usr/bin/env python3
"""Past 4 GiB: a sparse file of 5 GiB, packed and judged by other programs.
Usage: huge_archives.py ZIP_CLI"""
import os
import subprocess
import sys
import tempfile
import zipfile

CLI = sys.argv[1]
GIB = 1 << 30


def run(*command):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    if done.returncode != 0:
        sys.exit(f"{' '.join(command)}: status {done.returncode}\n{done.stdout.decode()}")


def main():
    with tempfile.TemporaryDirectory(prefix="kovrel_huge") as folder:
        if os.statvfs(folder).f_bavail * os.statvfs(folder).f_frsize < GIB:
            print("skipped: less than 1 GiB free")
            return 77
        large = os.path.join(folder, "grande.bin")
        with open(large, "wb") as file:
            file.truncate(5 * GIB)
        small = os.path.join(folder, "corto.txt")
        with open(small, "wb") as file:
            file.write(b"corto")
        archive = os.path.join(folder, "a.zip")
        run(CLI, "-1", archive, large, small)
        os.remove(large)
        with zipfile.ZipFile(archive) as opened:
            entry = opened.getinfo("grande.bin")
            assert entry.file_size == 5 * GIB and entry.compress_size < 64 * (1 << 20)
            assert opened.read("corto.txt") == b"corto"
        run("unzip", "-tq", archive)
    return 0


sys.exit(main())

#!/usr/bin/env python3
"""A tree of 1,000 source files: packed by the engine (zip_cli) against `zip -6 -r -q`, and taken out
against `unzip -qq`, in one run.

The files are texts made from a fixed seed, in 50 folders. The programs run in turn; the best time of
each counts, so that other work on the machine disturbs neither.
"""
import argparse
import os
import random
import shutil
import sys
import tempfile

sys.dont_write_bytecode = True  # nothing is left beside the sources
from zip_bench import text, timed

FILES = 1_000


def make_tree(top):
    rng = random.Random(20261123)
    for i in range(FILES):
        folder = os.path.join(top, f"modulo{i % 10}", f"parte{i % 50}")
        os.makedirs(folder, exist_ok=True)
        # Most source files are short, a few long.
        data = text(rng, int(min(200_000, rng.lognormvariate(8.8, 1.1))) + 200)
        with open(os.path.join(folder, f"fichero{i}.txt"), "wb") as file:
            file.write(data)


def best_times(rounds, first, second):
    """The best time of each of two commands, given as (command, what it makes)."""
    best = [float("inf"), float("inf")]
    for _ in range(rounds):
        for place, (command, made) in enumerate((first, second)):
            if os.path.isdir(made):
                shutil.rmtree(made)
            elif os.path.exists(made):
                os.remove(made)
            best[place] = min(best[place], timed(command))
    return best


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--cli", default="build/bench/zip32/zip_cli")
    parser.add_argument("--rounds", type=int, default=7)
    options = parser.parse_args()
    cli = os.path.abspath(options.cli)
    folder = tempfile.mkdtemp(prefix="tree_bench")
    try:
        os.chdir(folder)
        make_tree("origen")
        packed = best_times(
            options.rounds, ([cli, "pack", "-r", "-6", "-t", "2", "ours.zip", "origen"], "ours.zip"),
            (["zip", "-6", "-r", "-q", "theirs.zip", "origen"], "theirs.zip"))
        quiet = ["sh", "-c", '"$@" >/dev/null', "-", cli, "take", "-t", "2", "theirs.zip", "ours"]
        taken = best_times(options.rounds, (quiet, "ours"),
                           (["sh", "-c", '"$@" >/dev/null', "-", "unzip", "-qq", "theirs.zip", "-d", "theirs"],
                            "theirs"))
        size = sum(os.path.getsize(os.path.join(top, name))
                   for top, _, names in os.walk("origen") for name in names)
        print(f"{FILES} files, {size / 1e6:.1f} MB")
        ours, theirs = map(os.path.getsize, ("ours.zip", "theirs.zip"))
        print(f"size: engine {ours}, zip {theirs}: {ours / theirs:.4f}")
        for what, (own, other), program in (("pack", packed, "zip"), ("take", taken, "unzip")):
            print(f"{what}: engine {own:.4f} s, {program} {other:.4f} s: {own / other:.2f}")
    finally:
        os.chdir("/")
        shutil.rmtree(folder)


main()

#!/usr/bin/python3
"""Compares the closing texts of the error boxes in the sources with the list of those that users
report: handlers_check.py SOURCES LIST. Each text names its procedure, so each stands in one place.
"""
import pathlib
import re
import sys

# One C++ literal, or several that follow one another.
LITERALS = re.compile(r'(?:L"(?:[^"\\]|\\.)*"\s*)+')
PIECE = re.compile(r'L"((?:[^"\\]|\\.)*)"')
OPENING = ") en procedimiento "


def texts_in(sources):
    for path in sorted(sources.rglob("*.cpp")):
        for literals in LITERALS.findall(path.read_text(encoding="utf-8")):
            text = "".join(PIECE.findall(literals))
            if OPENING in text:
                yield path.relative_to(sources), text


def main():
    sources, listed = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    lines = listed.read_text(encoding="utf-8").splitlines()
    expected = [line for line in lines if line and not line.startswith("#")]
    problems = []
    found = {}
    for path, text in texts_in(sources):
        if text in found:
            problems.append(f"{path} repeats the text of {found[text]}: {text}")
        found[text] = path
        if text not in expected:
            problems.append(f"{path} has a text that is not listed: {text}")
    problems += [f"no source has: {text}" for text in expected if text not in found]
    if len(set(expected)) != len(expected):
        problems.append("the list repeats a text")
    for problem in problems:
        print(problem)
    print(f"{len(found)} texts found, {len(expected)} listed")
    return 1 if problems or not expected else 0


if __name__ == "__main__":
    sys.exit(main())

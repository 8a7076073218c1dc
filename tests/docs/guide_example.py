#!/usr/bin/env python3
"""The one example of a document in a compiled language.

    guide_example.py extract LANGUAGE DOCUMENT FILE       writes it as a source file
    guide_example.py check LANGUAGE DOCUMENT COMMAND...   runs the program; its lines must be those
                                                          stated behind "// →"
"""
import pathlib
import re
import subprocess
import sys

from examples import blocks


def main():
    action, language, document, *rest = sys.argv[1:]
    text = pathlib.Path(document).read_text(encoding="utf-8")
    found = [block.text for block in blocks(text) if block.language == language]
    if len(found) != 1:
        sys.exit(f"{len(found)} examples in {language} instead of one")
    if action == "extract":
        pathlib.Path(rest[0]).write_text(found[0] + "\n", encoding="utf-8")
        return 0
    stated = re.findall(r"// → (.*)$", found[0], re.M)
    result = subprocess.run(rest, check=False, stdout=subprocess.PIPE, text=True)
    printed = result.stdout.splitlines()
    if result.returncode != 0 or printed != stated or not stated:
        sys.exit(f"FAILED: code {result.returncode}, {printed} instead of {stated}")
    return 0


if __name__ == "__main__":
    sys.exit(main())

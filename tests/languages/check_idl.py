#!/usr/bin/env python3
"""Compares the type library that widl makes of kovrel.idl with the library's own:
check_idl.py TYPE_LIBRARY_LINES LINES_OF_WIDLS

They differ in what kovrel.idl says at its beginning, and in nothing else.
"""
import re
import sys

import type_library


def lines_of(path, own):
    """What widl can say of the library's own lines; all of its own."""
    kind = ""
    with open(path, encoding="utf-8") as lines:
        for line in lines:
            parts = line.rstrip("\n").split("\t")
            kind = parts[1] if parts[0] == "type" else kind
            if own and parts[0] == "type" and kind == "events":
                parts[4] = "0.0"
            if own and parts[0] == "constant":
                parts[3] = ""
            if own and parts[0] == "member":
                parts[4] = type_library.ascii_name(parts[4])
            if own and parts[0] == "parameter":
                parts[3] = type_library.ascii_name(parts[3])
                if parts[1] == "inout" and re.fullmatch(r"BSTR\*|VARIANT\*", parts[2]):
                    parts[5] = ""
            if parts[0] == "parameter":
                # Names that differ in nothing but case share an entry in a type library, which keeps
                # the spelling of whichever was written first.
                parts[3] = parts[3].lower()
            yield " ".join(parts)


def main():
    return type_library.report(list(lines_of(sys.argv[1], True)), list(lines_of(sys.argv[2], False)))


if __name__ == "__main__":
    sys.exit(main())

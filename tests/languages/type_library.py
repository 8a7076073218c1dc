"""The type library as type_library_lines prints it, for comparison with the declarations in other
languages."""
import difflib
import subprocess
import sys
from dataclasses import dataclass, field

NEW_ENUM = -4
FIRST_SLOT = 7
CAN_CREATE = 2
ASCII = str.maketrans({"ñ": "ny", "Ñ": "Ny", "á": "a", "é": "e", "í": "i", "ó": "o", "ú": "u",
                       "ü": "u", "Á": "A", "É": "E", "Í": "I", "Ó": "O", "Ú": "U", "Ü": "U"})


@dataclass
class Parameter:
    by_reference: bool
    type: str  # as C spells it, without the pointer of a reference
    name: str
    optional: bool
    default: str  # empty: none


@dataclass
class Member:
    slot: int
    id: int
    kind: str  # call, get, put or putref
    name: str
    result: str
    help: str
    parameters: list = field(default_factory=list)


@dataclass
class Type:
    kind: str  # enum, record, interface, events or class
    name: str
    guid: str
    flags: int
    help: str
    constants: list = field(default_factory=list)  # (name, value, help)
    fields: list = field(default_factory=list)  # (name, type, count)
    members: list = field(default_factory=list)
    implements: list = field(default_factory=list)  # names; the second one: its events

    def properties(self):
        """The members by id, in order: one method, or the accessors of a property."""
        groups = {}
        for member in self.members:
            groups.setdefault(member.id, []).append(member)
        return list(groups.values())


@dataclass
class Library:
    name: str
    guid: str
    version: str
    types: list = field(default_factory=list)

    def of_kind(self, kind):
        return [entry for entry in self.types if entry.kind == kind]


def read(path):
    """What type_library_lines printed into a file."""
    library = None
    with open(path, encoding="utf-8") as lines:
        for line in lines:
            kind, *parts = line.rstrip("\n").split("\t")
            if kind == "library":
                library = Library(*parts[:3])
            elif kind == "type":
                library.types.append(Type(parts[0], parts[1], parts[2], int(parts[4]), parts[5]))
            elif kind == "constant":
                library.types[-1].constants.append((parts[0], int(parts[1]), parts[2]))
            elif kind == "field":
                library.types[-1].fields.append((parts[0], parts[1], int(parts[2])))
            elif kind == "member":
                library.types[-1].members.append(
                    Member(int(parts[0]), int(parts[1]), parts[2], parts[3], parts[4], parts[6]))
            elif kind == "parameter":
                by_reference = parts[0] == "inout"
                library.types[-1].members[-1].parameters.append(
                    Parameter(by_reference, parts[1][:-1] if by_reference else parts[1], parts[2],
                              parts[3] == "optional", parts[4]))
            elif kind == "implements":
                library.types[-1].implements.append(parts[0])
    return library


def ascii_name(name):
    return name.translate(ASCII)


def compare_source(expected_lines, declared_lines):
    """Compares the library in the file of the first argument with the source in that of the second."""
    with open(sys.argv[2], encoding="utf-8-sig") as source:
        return report(sorted(expected_lines(read(sys.argv[1]))), sorted(declared_lines(source.read())))


def compare_printed(expected_lines):
    """The same with what the command in the other arguments prints."""
    printed = subprocess.run(sys.argv[2:], check=True, stdout=subprocess.PIPE).stdout
    return report(sorted(expected_lines(read(sys.argv[1]))),
                  sorted(printed.decode("utf-8").splitlines()))


def report(expected, found):
    """Prints how the lines differ; the exit code."""
    for line in difflib.unified_diff(expected, found, "type library", "declared", lineterm="", n=1):
        print(line)
    print(f"{len(expected)} lines of the type library, {len(found)} declared")
    return 0 if expected == found and expected else 1

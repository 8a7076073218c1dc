#!/usr/bin/env python3
"""Compares Kovrel.pas with the type library: check_pascal.py TYPE_LIBRARY_LINES KOVREL_PAS"""
import re
import sys

import type_library

TYPES = {"BYTE": "Byte", "short": "SmallInt", "long": "Integer", "float": "Single",
         "double": "Double", "VARIANT_BOOL": "WordBool", "DATE": "TDateTime", "BSTR": "WideString",
         "VARIANT": "OleVariant", "IDispatch*": "IDispatch", "IUnknown*": "IUnknown",
         "IPictureDisp*": "IPictureDisp"}
# Those of the words that Pascal keeps for itself that the library uses as names.
RESERVED = {"file"}
DEFAULTS = {"VARIANT_TRUE": "True", "VARIANT_FALSE": "False"}
ACCESSORS = {"get": "Get_", "put": "Set_", "putref": "Set_", "call": ""}


def name(text):
    result = type_library.ascii_name(text)
    return result + "_" if result.lower() in RESERVED else result


def pascal_type(text):
    return TYPES.get(text, text.rstrip("*"))


def default(parameter):
    """Of a parameter by value that a constant can be the default of; else empty."""
    if parameter.by_reference or not parameter.optional:
        return ""
    if parameter.type == "IDispatch*":
        return "nil"
    if not parameter.default or parameter.type == "VARIANT":
        return ""
    return DEFAULTS.get(parameter.default, parameter.default.replace('"', "'"))


def parameters(member):
    texts = []
    constant = member.kind != "call"
    for place, parameter in enumerate(member.parameters):
        text = f"{name(parameter.name)}: {pascal_type(parameter.type)}"
        if parameter.by_reference:
            text = "var " + text
        elif constant:
            text = "const " + text
        if all(default(following) for following in member.parameters[place:]):
            text += " = " + default(parameter)
        texts.append(text)
    return f"({'; '.join(texts)})" if texts else ""


def routine(member, text):
    if member.result == "void":
        return f"procedure {text}"
    return f"function {text}: {pascal_type(member.result)}"


def interface_lines(entry):
    yield f"{entry.name} {entry.guid}"
    for member in entry.members:
        text = ACCESSORS[member.kind] + name(member.name) + parameters(member)
        yield f"{entry.name} {member.slot} {routine(member, text)}"


def dispatch_type(text, records):
    return "OleVariant" if text in records else pascal_type(text)


def dispatch_lines(entry, records, suffix="Disp"):
    """What may change is not in the type library, so that "var" is left out."""
    yield f"{entry.name}{suffix} {entry.guid}"
    for group in entry.properties():
        first = group[0]
        if first.kind == "call":
            texts = [f"{name(each.name)}: {dispatch_type(each.type, records)}"
                     for each in first.parameters]
            text = name(first.name) + (f"({'; '.join(texts)})" if texts else "")
            yield f"{entry.name}{suffix} {routine(first, text)} {first.id}"
            continue
        kinds = [member.kind for member in group]
        readable = "get" in kinds
        type_name = first.result if readable else first.parameters[0].type
        access = "" if len(kinds) > 1 else " readonly" if readable else " writeonly"
        yield (f"{entry.name}{suffix} property {name(first.name)}: {pascal_type(type_name)}{access} "
               f"{first.id}")


def expected_lines(library):
    records = {entry.name for entry in library.of_kind("record")}
    yield f"LIBID_{library.name} {library.guid}"
    for entry in library.of_kind("enum"):
        yield from (f"{entry.name} {name(constant)} {value}" for constant, value, _ in entry.constants)
    for entry in library.of_kind("record"):
        field, _, count = entry.fields[0]
        yield f"{entry.name} {field} 0..{count - 1}"
        yield f"GUID_{entry.name} {entry.guid}"
    for entry in library.of_kind("interface"):
        yield f"IID_{entry.name} {entry.guid}"
        yield from interface_lines(entry)
        yield from dispatch_lines(entry, records)
    for entry in library.of_kind("events"):
        yield f"DIID_{entry.name} {entry.guid}"
        yield from dispatch_lines(entry, records, "")
    for entry in library.of_kind("class"):
        yield f"CLASS_{entry.name} {entry.guid}"
        if entry.flags & type_library.CAN_CREATE:
            yield f"Co{entry.name} creates {entry.implements[0]}"


def declared_lines(text):
    text = re.sub(r"(?<![$'])\{(?!\$)[^}']*\}", "", text[:text.index("\nimplementation")])
    current, slot, enumeration = "", 0, ""
    for line in text.splitlines():
        if found := re.match(r"  (\w+ID_\w+|GUID_\w+|CLASS_\w+): TGUID = '(\{.*\})';", line):
            yield f"{found[1]} {found[2]}"
        elif found := re.match(r"  (\w+) = (?:disp)?interface(?:\(IDispatch\))?$", line):
            current, slot = found[1], type_library.FIRST_SLOT
        elif found := re.match(r"  Co(\w+) = class$", line):
            current = found[0].split()[0]
        elif found := re.match(r"    class function Create: (\w+);", line):
            yield f"{current} creates {found[1]}"
        elif found := re.match(r"    \['(\{.*\})'\]", line):
            # The events' second interface is there for the compiler alone.
            if not current.startswith("I"):
                yield f"{current} {found[1]}"
        elif found := re.match(r"    (.*); safecall;", line):
            yield f"{current} {slot} {found[1]}"
            slot += 1
        elif found := re.match(r"    (.*?);? dispid (-?\d+);", line):
            yield f"{current} {found[1].replace('var ', '')} {found[2]}"
        elif found := re.match(r"  (\w+) = record$", line):
            current = found[1]
        elif found := re.match(r"    (\w+): array \[(.*)\] of WideString;", line):
            yield f"{current} {found[1]} {found[2]}"
        elif found := re.match(r"const // (\w+)", line):
            enumeration = found[1]
        elif found := re.match(r"  (\w+) = \$([0-9a-f]+);", line):
            yield f"{enumeration} {found[1]} {int(found[2], 16)}"


if __name__ == "__main__":
    sys.exit(type_library.compare_source(expected_lines, declared_lines))

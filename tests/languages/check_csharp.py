#!/usr/bin/env python3
"""Compares what a compiled Kovrel.cs declares, as its metadata say it, with the type library:
check_csharp.py TYPE_LIBRARY_LINES COMMAND_THAT_PRINTS..."""
import sys

import type_library

TYPES = {"BYTE": "Byte", "short": "Int16", "long": "Int32", "float": "Single", "double": "Double",
         "VARIANT_BOOL": "Boolean:VariantBool", "DATE": "DateTime", "BSTR": "String:BStr",
         "VARIANT": "Object:Struct", "IDispatch*": "Object:IDispatch",
         "IUnknown*": "Object:IUnknown", "IPictureDisp*": "IPictureDisp:Interface", "void": "Void"}
ACCESSORS = {"get": "get_", "put": "set_", "putref": "set_", "call": ""}
BY_REFERENCE = "String:CustomMarshaler TextoPorReferencia"


def csharp_type(text):
    if text in TYPES:
        return TYPES[text]
    return text[:-1] + ":Interface" if text.endswith("*") else text


def default(parameter):
    if not parameter.default or parameter.type in ("VARIANT", "DATE"):
        return ""
    value = {"VARIANT_TRUE": "True", "VARIANT_FALSE": "False"}.get(
        parameter.default, parameter.default.strip('"'))
    return f" = {value}"


def parameter_text(parameter):
    return (("ref " if parameter.by_reference else "") + csharp_type(parameter.type) + " " +
            parameter.name + (" optional" if parameter.optional else "") + default(parameter))


def member_text(entry, member, can_be_assigned):
    if member.kind == "call" or not can_be_assigned:
        name = {"get": "get_", "put": "put_", "putref": "putref_", "call": ""}[member.kind]
        texts = [parameter_text(parameter) for parameter in member.parameters]
    else:
        name = ACCESSORS[member.kind]
        texts = [BY_REFERENCE if parameter.by_reference else csharp_type(parameter.type)
                 for parameter in member.parameters]
    return (f"{entry.name} {member.slot} {member.id} {name}{member.name}({', '.join(texts)}) "
            f"{csharp_type(member.result)}")


def expected_lines(library):
    interfaces = {}
    for entry in library.of_kind("enum"):
        yield f"enum {entry.name} {entry.guid}"
        yield from (f"{entry.name} {name} {value}" for name, value, _ in entry.constants)
    for entry in library.of_kind("record"):
        name, _, count = entry.fields[0]
        yield f"record {entry.name} {entry.guid}"
        yield f"{entry.name} String[] {name}:ByValArray {count}"
    for entry in library.of_kind("interface"):
        interfaces[entry.name] = entry.guid
        yield f"InterfaceIsDual {entry.name} {entry.guid}"
        for group in entry.properties():
            # C# has no setter that takes a number by reference.
            assigned = all(not parameter.by_reference or parameter.type == "BSTR"
                           for member in group for parameter in member.parameters)
            yield from (member_text(entry, member, assigned) for member in group)
    for entry in library.of_kind("events"):
        yield f"InterfaceIsIDispatch {entry.name} {entry.guid}"
        for slot, event in enumerate(entry.members, type_library.FIRST_SLOT):
            event.slot = slot
            yield member_text(entry, event, False)
    for entry in library.of_kind("class"):
        if entry.flags & type_library.CAN_CREATE:
            own = entry.implements[0]
            yield f"class {entry.name} {interfaces[own]} {own} {entry.guid}"
    yield "by reference: Facturación"


if __name__ == "__main__":
    sys.exit(type_library.compare_printed(expected_lines))

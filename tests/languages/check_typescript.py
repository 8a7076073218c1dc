#!/usr/bin/env python3
"""Compares what kovrel.d.ts declares, as TypeScript's own compiler reads it, with the type library:
check_typescript.py TYPE_LIBRARY_LINES COMMAND_THAT_PRINTS..."""
import sys

import type_library

TYPES = {"BYTE": "number", "short": "number", "long": "number", "float": "number",
         "double": "number", "VARIANT_BOOL": "boolean", "DATE": "VarDate", "BSTR": "string",
         "VARIANT": "any", "IDispatch*": "object", "IUnknown*": "object", "IPictureDisp*": "object",
         "ZIPnames": "string[] | SafeArray<string>"}


def script_type(text):
    # Scripts know classes, not their interfaces.
    return TYPES.get(text, text.rstrip("*").lstrip("_"))


def method_text(member):
    texts = [f"{each.name}{'?' if each.optional else ''}: {script_type(each.type)}"
             for each in member.parameters]
    return f"{member.name}({', '.join(texts)}): {script_type(member.result)} | {member.help}"


def member_text(group):
    first = group[0]
    if first.kind == "call":
        return method_text(first)
    if first.kind != "get":
        return f"set {first.name}: {script_type(first.parameters[0].type)} | {first.help}"
    only = "readonly " if len(group) == 1 else ""
    return f"{only}{first.name}: {script_type(first.result)} | {first.help}"


def expected_lines(library):
    for entry in library.of_kind("enum"):
        yield f"{entry.name} | {entry.help}"
        yield from (f"{entry.name} {name} {value} | {text}" for name, value, text in entry.constants)
    for entry in library.of_kind("interface"):
        yield f"{entry.name[1:]} | {entry.help}"
        yield from (f"{entry.name[1:]} {member_text(group)}" for group in entry.properties()
                    if group[0].id != type_library.NEW_ENUM)
    for entry in library.of_kind("events"):
        yield f"{entry.name} | {entry.help}"
        yield from (f"{entry.name} {method_text(event)}" for event in entry.members)
    yield "ActiveXObject | "
    yield "ActiveXObjectNameMap | "
    for entry in library.of_kind("class"):
        if entry.flags & type_library.CAN_CREATE:
            name = f"{library.name}.{entry.name}"
            yield f'ActiveXObject new(programa: "{name}"): {name}'
            yield f'ActiveXObjectNameMap "{name}": {name} | '


if __name__ == "__main__":
    sys.exit(type_library.compare_printed(expected_lines))

#!/usr/bin/env python3
"""Compares the side of kovrel.h that C sees with the type library:
check_c.py TYPE_LIBRARY_LINES KOVREL_H"""
import re
import sys

import type_library

INHERITED = ("QueryInterface", "AddRef", "Release", "GetTypeInfoCount", "GetTypeInfo",
             "GetIDsOfNames", "Invoke")


def parameter_text(parameter):
    text = "in, out" if parameter.by_reference else "in"
    if parameter.optional:
        text += ", optional"
    if parameter.default:
        text += f", defaultvalue({parameter.default})"
    reference = "*" if parameter.by_reference else ""
    return f"/* [{text}] */ {parameter.type}{reference} {parameter.name}"


def guid_text(guid):
    digits = guid.strip("{}").replace("-", "").lower()
    sizes = (8, 4, 4, 2, 2, 2, 2, 2, 2, 2, 2)
    texts = []
    for size in sizes:
        texts.append("0x" + digits[:size])
        digits = digits[size:]
    return ", ".join(texts)


def interface_lines(entry):
    for slot, inherited in enumerate(INHERITED):
        yield f"{entry.name} {slot} {inherited}"
        yield f"macro {entry.name}_{inherited}"
    for member in entry.members:
        prefix = "" if member.kind == "call" else member.kind + "_"
        texts = [parameter_text(parameter) for parameter in member.parameters]
        # In a macro, a parameter of the member's name would take its place.
        names = ["This", *(parameter.name + ("_" if parameter.name == prefix + member.name else "")
                           for parameter in member.parameters)]
        if member.result != "void":
            texts.append(f"/* [out, retval] */ {member.result}* result")
            names.append("result")
        yield f"{entry.name} {member.slot} {prefix}{member.name}"
        yield from (f"{entry.name} {member.slot} {text}" for text in texts)
        yield f"macro {entry.name}_{prefix}{member.name}"
        yield f"macro {entry.name}_{prefix}{member.name} {', '.join(names)}"


def expected_lines(library):
    yield f"LIBID_{library.name} {guid_text(library.guid)}"
    for entry in library.of_kind("enum"):
        yield from (f"{entry.name} {name} {value}" for name, value, _ in entry.constants)
    for entry in library.of_kind("record"):
        field, of_type, count = entry.fields[0]
        yield f"{entry.name} {of_type} {field}[{count}]"
        yield f"GUID_{entry.name} {guid_text(entry.guid)}"
    for entry in library.of_kind("interface"):
        yield f"IID_{entry.name} {guid_text(entry.guid)}"
        yield from interface_lines(entry)
    for entry in library.of_kind("events"):
        yield f"DIID_{entry.name} {guid_text(entry.guid)}"
        yield from (f"{entry.name}_id_{event.name} {event.id} "
                    f"({', '.join(parameter_text(each) for each in event.parameters)})"
                    for event in entry.members)
    for entry in library.of_kind("class"):
        yield f"CLSID_{entry.name} {guid_text(entry.guid)}"
        if entry.flags & type_library.CAN_CREATE:
            yield f'ProgID_{entry.name} L"{library.name}.{entry.name}"'


def declared_lines(text):
    text = text[text.index("\n#else\n"):]
    text = re.sub(r"\\\n", "", text)
    for found in re.finditer(r"^typedef enum (\w+) \{\n(.*?)^\}", text, re.S | re.M):
        for constant in re.finditer(r"^    (\w+) = (0x[0-9a-f]+),", found[2], re.M):
            yield f"{found[1]} {constant[1]} {int(constant[2], 16)}"
    for found in re.finditer(r"^    (\w+_id_\w+) = (\d+),  // (.*)$", text, re.M):
        yield f"{found[1]} {found[2]} {found[3]}"
    for found in re.finditer(r"^typedef struct \w+ \{\n    (BSTR) (\w+\[\d+\]);\n\} (\w+);", text, re.M):
        yield f"{found[3]} {found[1]} {found[2]}"
    for found in re.finditer(r"^typedef struct (\w+)Vtbl \{\n(.*?)^\} \1Vtbl;", text, re.S | re.M):
        functions = re.findall(r"\(STDMETHODCALLTYPE\* (\w+)\)\(\s*(\w+)\* This(.*?)\);\n", found[2], re.S)
        for slot, (function, owner, rest) in enumerate(functions):
            yield f"{owner} {slot} {function}"
            yield from (f"{owner} {slot} {parameter}"
                        for parameter in re.findall(r"/\* \[.*?\] \*/ [^,\n]*", rest))
    for macro, names, called, passed in re.findall(
            r"^#define (\w+)\((.*?)\) \s*\(\(This\)->lpVtbl->(\w+)\((.*?)\)\)$", text, re.M):
        if macro.endswith("_" + called) and names == passed:
            yield f"macro {macro}"
            if called not in INHERITED:
                yield f"macro {macro} {names}"
    for name, value in re.findall(r"^KOVREL_GUID (\w+) = \{\s*(.*?)\};", text, re.S | re.M):
        yield f"{name} {value.replace('{', '').replace('}', '')}"
    for name, value in re.findall(r"^#define (ProgID_\w+) (.*)$", text, re.M):
        yield f"{name} {value}"


if __name__ == "__main__":
    sys.exit(type_library.compare_source(expected_lines, declared_lines))

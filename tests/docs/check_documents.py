#!/usr/bin/env python3
"""Checks what cannot be run in the documents against the reference and the sources.

    check_documents.py SOURCE_FOLDER

The calls of the examples in languages without a host here, and those of the samples, name members that
exist, with as many arguments as they take, passed by reference as their language allows, and so do their
handlers of events; the error boxes described are those of the sources, and so are the texts of the
messages, unless an example shows them; links lead somewhere.
"""
import pathlib
import re
import sys

import by_reference
from examples import blocks
from members import arguments, events, signatures

# vbs: VBScript that needs more than the host here has.
CHECKED_LANGUAGES = ("vb", "vbs", "powershell", "csharp", "python", "pascal")
DECLARED = re.compile(r"\b(\w+)\s+As\s+(?:New\s+)?Kovrel\.(\w+)")
CREATED = re.compile(r"(\w+)\s*:?=[^=].*?\b(?:Kovrel\.|Co(?=c[lg]s))(\w+)")
# The samples, by the language that their files are in.
SAMPLES = {".bas": "vb", ".cls": "vb", ".frm": "vb", ".ps1": "powershell", ".py": "python",
           ".vbs": "vbs"}
GIVEN = re.compile("clsAviso|clsEntradas?")
problems = []


def check_handler(where, event, text, class_name, class_events):
    """`text` is what stands behind the name of the event."""
    known = class_events.get(event.lower())
    given = len(arguments(text))
    if known is None:
        problems.append(f"{where}: there is no event {event} in {class_name}")
    elif given != known:
        problems.append(f"{where}: the event {event} has {known} parameters, not {given}")


def check_handlers(where, text, objects, class_events):
    """The handlers whose names are those of an object and of an event."""
    handlers = 0
    for found in re.finditer(r"\bSub ([A-Za-z]+)_(\w+)", text):
        class_name = objects.get(found[1])
        if class_name in class_events:
            handlers += 1
            check_handler(where, found[2], text[found.end():], class_name,
                          class_events[class_name])
    return handlers


def given_arguments(language, text, found):
    """The arguments of a call. In Basic a call that is a statement has them without parentheses, and
    an apostrophe begins a comment."""
    rest = text[found.end():].lstrip(" ")
    # The procedure that assigns a property takes its value.
    if language == "pascal" and found[2].startswith("Set_"):
        return []
    if language not in ("vb", "vbs"):
        return arguments(rest) if rest.startswith("(") else []
    rest = re.sub(r'("[^"\n]*")|\'.*', r"\1", rest)
    before = text[:found.start()].rpartition("\n")[2]
    if re.search(r"(?i)(^|:|\b(then|else))\s*$", before) and not re.match(r"[.=]|\(.*\)\.", rest):
        return arguments("(" + rest.split("\n")[0] + ")")
    return arguments(rest) if rest.startswith("(") else []


def check_call(where, language, text, found, class_name, classes, class_events):
    """One call: the name of an object, and of a member of its class."""
    rest = text[found.end():].lstrip(" ")
    if rest.startswith("+= "):
        check_handler(where, found[2], rest[3:], class_name, class_events.get(class_name, {}))
        return
    name = found[2].removeprefix("Set_") if language == "pascal" else found[2]
    member = classes[class_name].get(name.lower())
    if member is None:
        problems.append(f"{where}: there is no {found[2]} in {class_name}")
        return
    given = given_arguments(language, text, found)
    if not member.required <= len(given) <= member.most:
        problems.append(f"{where}: {found[2]} takes {member.required} to {member.most} arguments, "
                        f"not {len(given)}")
        return
    for problem in by_reference.problems(language, member, given, text, found.start()):
        problems.append(f"{where}: {found[2]}: {problem}")


def check_fragment(where, language, text, classes, class_events):
    """The calls of an example, or of a whole source; how many there are."""
    if language in ("vb", "vbs"):
        text = re.sub(r" _\n\s*", " ", text)
    # What receives the events of a class is named after it.
    objects = {found[1]: found[2].removesuffix("Eventos") for pattern in (DECLARED, CREATED)
               for found in pattern.finditer(text)
               if found[2].removesuffix("Eventos") in classes}
    calls = check_handlers(where, text, objects, class_events)
    for found in re.finditer(r"\b(\w+)\.(\w+)", text):
        if objects.get(found[1]) in classes:
            calls += 1
            check_call(where, language, text, found, objects[found[1]], classes, class_events)
    if objects and not calls:
        problems.append(f"{where}: no call was found")
    if "Kovrel." in text and not objects:
        problems.append(f"{where}: no object was found")
    return calls


def check_calls(name, document, classes, class_events):
    return sum(check_fragment(f"{name}, {block.place}", block.language, block.text, classes,
                              class_events)
               for block in blocks(document) if block.language in CHECKED_LANGUAGES)


def check_samples(root, classes, class_events):
    """Every sample, and that each tour meets every class."""
    calls = 0
    for file in sorted((root / "examples").rglob("*")):
        tour = file.parent.name == "recorrido"
        if file.suffix not in SAMPLES and not tour:
            continue
        name = str(file.relative_to(root))
        text = file.read_text(encoding="utf-8-sig")
        if file.suffix in SAMPLES:
            calls += check_fragment(name, SAMPLES[file.suffix], text, classes, class_events)
        if tour and file.suffix != ".cls":
            for class_name in classes:
                # The classes that others give out are met without their names.
                if not GIVEN.fullmatch(class_name) and class_name not in text:
                    problems.append(f"{name}: nothing of {class_name}")
    return calls


def literals(source):
    """The sources with their adjacent texts joined, written as the documents write them."""
    code = "\n".join(file.read_text(encoding="utf-8")
                     for pattern in ("*.cpp", "*.h") for file in source.rglob(pattern))
    code = re.sub(r'(?<!\\)"\s*\n\s*L"', "", code)
    return code.replace('\\"', '"').replace("\\r", "⏎")


def check_messages(reference, code):
    """Every piece of a message is a text of the sources, or of a box that an example shows."""
    shown = "\n".join(re.findall(r"^' muestra (.*)$", reference, re.M))
    pieces = 0
    for messages in re.findall(r"\n\*\*Mensajes:\*\*(.*?)\n\*\*Fallos:", reference, re.S):
        for span in re.findall(r"`([^`]+)`", messages):
            for piece in span.split("⏎"):
                if " " not in piece.strip():
                    continue
                pieces += 1
                if piece not in code and piece not in shown:
                    problems.append(f"no message says \"{piece}\"")
    return pieces


def check_error_boxes(reference, code):
    """Every procedure named as an error box's is the end of one in the sources."""
    described = set(re.findall(r"\(\*descripción\*\) (en procedimiento [^»]*)»", reference))
    for text in sorted(described):
        if f'L") {text}"' not in code:
            problems.append(f"no procedure ends its error box in \"{text}\"")
    return len(described)


def check_links(file):
    text = file.read_text(encoding="utf-8")
    anchors = {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")
               for heading in re.findall(r"^#+ (.*)$", text, re.M)}
    anchors.update(re.findall(r'<a id="([^"]+)">', text))
    links = re.findall(r"\]\(([^)\s]+)\)", text)
    for link in links:
        if link.startswith("#"):
            if link[1:] not in anchors:
                problems.append(f"{file.name}: {link} leads nowhere")
        elif "://" not in link and not (file.parent / link.split("#")[0]).exists():
            problems.append(f"{file.name}: {link} leads nowhere")
    return len(links)


def main():
    root = pathlib.Path(sys.argv[1])
    reference = (root / "docs/referencia.md").read_text(encoding="utf-8")
    classes = signatures(reference)
    class_events = events(reference)
    calls = sum(check_calls(name, (root / name).read_text(encoding="utf-8"), classes, class_events)
                for name in ("docs/guia.md", "docs/referencia.md", "README.md"))
    samples = check_samples(root, classes, class_events)
    code = literals(root / "src")
    boxes = check_error_boxes(reference, code)
    messages = check_messages(reference, code)
    links = sum(check_links(root / name)
                for name in ("docs/guia.md", "docs/referencia.md", "README.md"))
    print(f"{len(classes)} classes, {calls} calls, {samples} in samples, {boxes} error boxes, "
          f"{messages} pieces of messages, {links} links")
    for problem in problems:
        print("FAILED:", problem)
    return 1 if problems or not (classes and class_events and calls and samples and boxes and messages) else 0


if __name__ == "__main__":
    sys.exit(main())

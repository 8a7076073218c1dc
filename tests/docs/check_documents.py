#!/usr/bin/env python3
"""Checks what cannot be run in the documents against the reference and the sources.

    check_documents.py SOURCE_FOLDER

The calls of the examples in languages without a host here name members that exist, with as many
arguments as they take, and so do their handlers of events; the error boxes described are those of the
sources, and so are the texts of the messages, unless an example shows them; links lead somewhere.
"""
import pathlib
import re
import sys

from examples import blocks

# vbs: VBScript that needs more than the host here has.
CHECKED_LANGUAGES = ("vb", "vbs", "powershell", "csharp", "python", "pascal")
DECLARED = re.compile(r"\b(\w+)\s+As\s+(?:New\s+)?Kovrel\.(\w+)")
CREATED = re.compile(r"(\w+)\s*:?=[^=].*?\bKovrel\.(\w+)")
problems = []


def signatures(reference):
    """For each class, for each member: the fewest and most arguments, and the result's type."""
    classes = {}
    for block in blocks(reference):
        if block.language != "vb" or len(block.headings) != 3:
            continue
        _, class_name, member = block.headings
        for line in re.sub(r" _\n\s*", " ", block.text).splitlines():
            found = re.match(r"(?:Sub|Function|Property \w+) \S+?\((.*)\)(?: As (\w+))?$", line)
            parameters = [text for text in found[1].split(", ") if text]
            if line.startswith(("Property Let", "Property Set")):
                parameters = []
            required = sum(not text.startswith("Optional ") for text in parameters)
            known = classes.setdefault(class_name, {})
            known.setdefault(member.lower(), (required, len(parameters), found[2]))
    return classes


def events(reference):
    """For each class, for each event: how many parameters its handlers have."""
    classes = {}
    for block in blocks(reference):
        if block.language == "vb" and block.text.startswith("Event "):
            count = arguments(block.text[block.text.index("("):].replace(" _\n", ""))
            classes.setdefault(block.headings[1], {})[block.headings[-1].lower()] = count
    return classes


def arguments(text):
    """How many arguments a call has whose opening parenthesis, or first argument, begins here."""
    closes = text.startswith("(")
    depth, count, quote, seen = 0, 0, "", False
    for character in text[1:] if closes else text.split("\n", 1)[0]:
        if quote:
            quote = "" if character == quote else quote
        elif character in "\"'":
            quote, seen = character, True
        elif character in "([{":
            depth += 1
        elif character in ")]}":
            if depth == 0 and closes:
                return count + 1 if seen else 0
            depth -= 1
        elif character == "," and depth == 0:
            count += 1
        seen = seen or not character.isspace()
    return count + 1 if seen else 0


def check_handler(where, event, text, class_name, class_events):
    """`text` is what stands behind the name of the event."""
    known = class_events.get(event.lower())
    given = arguments(text)
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


def check_calls(name, document, classes, class_events):
    calls = 0
    for block in blocks(document):
        if block.language not in CHECKED_LANGUAGES:
            continue
        where = f"{name}, {block.place}"
        objects = {found[1]: found[2] for pattern in (DECLARED, CREATED)
                   for found in pattern.finditer(block.text) if found[2] in classes}
        before = calls
        calls += check_handlers(where, block.text, objects, class_events)
        for found in re.finditer(r"\b(\w+)\.(\w+)", block.text):
            members = classes.get(objects.get(found[1]))
            if members is None:
                continue
            calls += 1
            rest = block.text[found.end():].lstrip(" ")
            if rest.startswith("+= "):
                class_name = objects[found[1]]
                check_handler(where, found[2], rest[3:], class_name,
                              class_events.get(class_name, {}))
                continue
            if found[2].lower() not in members:
                problems.append(f"{where}: there is no {found[2]} in {objects[found[1]]}")
                continue
            required, most, _ = members[found[2].lower()]
            assigned = re.match(r":?=", rest)
            given = 0 if assigned else arguments(rest)
            if not required <= given <= most:
                problems.append(f"{where}: {found[2]} takes {required} to {most} arguments, "
                                f"not {given}")
        if objects and calls == before:
            problems.append(f"{where}: no call was found")
        if "Kovrel." in block.text and not objects:
            problems.append(f"{where}: no object was found")
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
    code = literals(root / "src")
    boxes = check_error_boxes(reference, code)
    messages = check_messages(reference, code)
    links = sum(check_links(root / name)
                for name in ("docs/guia.md", "docs/referencia.md", "README.md"))
    print(f"{len(classes)} classes, {calls} calls, {boxes} error boxes, "
          f"{messages} pieces of messages, {links} links")
    for problem in problems:
        print("FAILED:", problem)
    return 1 if problems or not (classes and class_events and calls and boxes and messages) else 0


if __name__ == "__main__":
    sys.exit(main())

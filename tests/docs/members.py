"""The library's members and events as the reference declares them, and the calls that a text makes."""
import re
from dataclasses import dataclass

from examples import blocks

PARAMETER = re.compile(r"(Optional )?(ByRef|ByVal) \w+ As ([\w.]+)")


@dataclass
class Parameter:
    by_reference: bool
    type: str


@dataclass
class Member:
    required: int  # the fewest arguments
    most: int
    parameters: list


def signatures(reference):
    """For each class, each member by its name in small letters."""
    classes = {}
    for block in blocks(reference):
        if block.language != "vb" or len(block.headings) != 3:
            continue
        _, class_name, member = block.headings
        for line in re.sub(r" _\n\s*", " ", block.text).splitlines():
            found = re.match(r"(?:Sub|Function|Property \w+) \S+?\((.*)\)(?: As \w+)?$", line)
            texts = [text.strip() for text in found[1].split(", ") if text]
            if line.startswith(("Property Let", "Property Set")):
                texts = []
            required = sum(not text.startswith("Optional ") for text in texts)
            parameters = [PARAMETER.match(text) for text in texts]
            known = classes.setdefault(class_name, {})
            known.setdefault(member.lower(), Member(required, len(texts), [
                Parameter(found[2] == "ByRef", found[3]) for found in parameters]))
    return classes


def events(reference):
    """For each class, for each event: how many parameters its handlers have."""
    classes = {}
    for block in blocks(reference):
        if block.language == "vb" and block.text.startswith("Event "):
            count = len(arguments(block.text[block.text.index("("):].replace(" _\n", "")))
            classes.setdefault(block.headings[1], {})[block.headings[-1].lower()] = count
    return classes


def arguments(text):
    """What stands between the parenthesis that begins here and the one that closes it."""
    depth, quote, found = 0, "", [""]
    for character in text[1:]:
        if quote:
            quote = "" if character == quote else quote
        elif character in "\"'":
            quote = character
        elif character in "([{":
            depth += 1
        elif character in ")]}":
            if depth == 0:
                break
            depth -= 1
        elif character == "," and depth == 0:
            found.append("")
            continue
        found[-1] += character
    found = [argument.strip() for argument in found]
    return [] if found == [""] else found

"""What each language asks of an argument that is passed by reference."""
import re

# Basic passes variables of these types by reference only where the type is the parameter's own.
EXACT = ("Boolean", "Byte", "Date", "Double", "Integer", "Long", "Single", "String", "ZIPnames")
CONSTANT = re.compile(r"(?i)true|false|null|empty|nothing|vb\w+|me")
PROCEDURE = re.compile(r"^[ \t]*(?:Public |Private )?(?:Sub|Function) (\w+)\((.*?)\)", re.M)
DECLARATION = re.compile(r"^[ \t]*(?:Dim|Private|Public|Static)\s+(?:WithEvents\s+)?(\w+)\s+As\s+"
                         r"(?:New\s+)?([\w.]+)", re.M)
TYPED_PARAMETER = re.compile(r"(\w+) As ([\w.]+)")


def declared(text, place):
    """The types of the variables that can be named at a place of a Basic source, by name."""
    procedures = list(PROCEDURE.finditer(text))
    first = procedures[0].start() if procedures else len(text)
    types = {name.lower(): kind for name, kind in DECLARATION.findall(text[:first])}
    for procedure, following in zip(procedures, [*procedures[1:], None]):
        end = following.start() if following else len(text)
        if procedure.start() <= place < end:
            found = (*TYPED_PARAMETER.findall(procedure[2]),
                     *DECLARATION.findall(text[procedure.end():end]))
            types.update({name.lower(): kind for name, kind in found})
    return types


def is_exact(kind):
    return kind in EXACT or re.fullmatch(r"e[A-Z]\w+", kind) is not None


def problems_in_basic(member, given, types):
    for parameter, argument in zip(member.parameters, given):
        if not parameter.by_reference or not is_exact(parameter.type):
            continue
        if not re.fullmatch(r"[^\W\d]\w*", argument) or CONSTANT.fullmatch(argument):
            continue
        kind = types.get(argument.lower())
        if kind is None:
            yield f"{argument} is not declared"
        elif kind.removeprefix("Kovrel.") != parameter.type:
            yield f"{argument} is a {kind}, and is passed by reference as {parameter.type}"


def problems_in_powershell(member, given):
    for parameter, argument in zip(member.parameters, given):
        if argument.startswith("[ref]") and not parameter.by_reference:
            yield f"{argument} is passed by value"


def problems(language, member, given, text, place):
    """What is wrong with the arguments of a call of this member at this place of the text."""
    if language == "vb":
        return problems_in_basic(member, given, declared(text, place))
    if language == "powershell":
        return problems_in_powershell(member, given)
    return ()

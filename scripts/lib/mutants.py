"""The mutants of a C++ source: copies with one operator, constant, text or statement changed. Relies
on the sources being formatted: a binary operator has blanks around it, a template bracket has none."""
import collections
import dataclasses
import re

TOKEN = re.compile(r"""
    (?P<comment>//[^\n]*|/\*.*?\*/)
  | (?P<directive>^[ \t]*\#(?:[^\n\\]|\\.)*)
  | (?P<raw_text>(?:u8|[LuU])?R"\(.*?\)")
  | (?P<text>(?:u8|[LuU])?"(?:[^"\\\n]|\\.)*")
  | (?P<character>(?:u8|[LuU])?'(?:[^'\\\n]|\\.)+')
  | (?P<number>\d(?:[\w.]|'\w)*)
  | (?P<word>[^\W\d]\w*)
  | (?P<sign><=>|<<=|>>=|\.\.\.|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|::|\S)
""", re.VERBOSE | re.MULTILINE | re.DOTALL)

BINARY = {
    "==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">",
    "+": "-", "-": "+", "*": "/", "/": "*", "%": "/", "&&": "||", "||": "&&",
    "&": "|", "|": "&", "^": "&", "<<": ">>", ">>": "<<",
    "+=": "-=", "-=": "+=", "*=": "/=", "/=": "*=", "%=": "/=",
    "&=": "|=", "|=": "&=", "^=": "|=", "<<=": ">>=", ">>=": "<<=",
}
UNARY = {"!", "~", "-"}
STEPS = {"++": "--", "--": "++"}
WORDS = {"true": "false", "false": "true"}
# What begins a declaration or a statement with parts of its own.
NO_EXPRESSION = set("""alignas auto bool case catch char class const constexpr default delete do double
    else enum explicit extern float for friend goto if inline int long namespace noexcept operator
    private protected public requires short signed sizeof static static_assert struct switch template try typedef
    typename union unsigned using virtual void volatile wchar_t while""".split())
OPENING, CLOSING = "([{", ")]}"


@dataclasses.dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int

    @property
    def end(self):
        return self.start + len(self.text)


@dataclasses.dataclass(frozen=True)
class Mutant:
    file: str  # from the root of the sources
    start: int
    end: int
    new: str
    line: int
    line_text: str
    change: str

    def apply(self, source):
        return source[:self.start] + self.new + source[self.end:]

    @property
    def key(self):
        """What stays when other lines are changed."""
        return self.file, self.line_text, self.change


def tokens_of(source):
    found = (Token(match.lastgroup, match[0], match.start()) for match in TOKEN.finditer(source))
    return [token for token in found if token.kind not in ("comment", "directive")]


def closing_of(tokens, index):
    """The index of the bracket that closes the one at an index."""
    depth = 0
    for place in range(index, len(tokens)):
        if tokens[place].text in OPENING:
            depth += 1
        elif tokens[place].text in CLOSING:
            depth -= 1
            if depth == 0:
                return place
    return len(tokens) - 1


def opens_template(source, tokens, index):
    token = tokens[index]
    return token.text == "<" and index > 0 and (
        tokens[index - 1].text == "template" or
        tokens[index - 1].kind == "word" and tokens[index - 1].end == token.start
        and tokens[index - 1].text != "operator")


def template_end(tokens, index):
    depth = 0
    for place in range(index, len(tokens)):
        depth += {"<": 1, ">": -1, ">>": -2}.get(tokens[place].text, 0)
        if depth <= 0:
            return place
    return len(tokens) - 1


def left_out(source, tokens):
    """The indexes of the tokens in which a change means nothing to a test that runs."""
    skipped = set()
    for index, token in enumerate(tokens):
        following = tokens[index + 1].text if index + 1 < len(tokens) else ""
        if index in skipped:
            continue
        if token.text == "static_assert":
            skipped.update(range(index, closing_of(tokens, index + 1) + 1))
        elif token.text == "[" and following == "[":
            skipped.update(range(index, closing_of(tokens, index) + 1))
        elif opens_template(source, tokens, index):
            skipped.update(range(index, template_end(tokens, index) + 1))
        elif token.text in ("operator", "extern"):
            skipped.add(index + 1)
        elif token.text == "reserve":  # with other room in advance a program does the same
            skipped.update(range(index, closing_of(tokens, index + 1) + 1))
        elif token.text == "using":
            end = next(i for i in range(index, len(tokens)) if tokens[i].text == ";")
            skipped.update(range(index, end))
    return skipped


def is_spaced(source, token):
    return source[token.start - 1].isspace() and source[token.end:token.end + 1].isspace()


def changed_number(text):
    digits, suffix = re.fullmatch(r"(0[xX][0-9a-fA-F']+|[\d'.]+(?:[eE][-+]?\d+)?)(\w*)", text).groups()
    plain = digits.replace("'", "")
    if plain[:2] in ("0x", "0X"):
        return f"0x{int(plain, 16) + 1:X}{suffix}"
    if re.fullmatch(r"\d+", plain):
        return f"{int(plain) + 1}{suffix}"
    return "1.0" if float(plain) == 0 else f"({text} * 2)"


def changed_character(text):
    prefix, content = re.fullmatch(r"(\w*)'(.+)'", text, re.DOTALL).groups()
    return f"{prefix}'x'" if content.startswith("\\") else f"{prefix}'{chr(ord(content) + 1)}'"


def changed_text(text):
    """With another character in the middle."""
    prefix, content = re.fullmatch(r'(\w*)"(.*)"', text, re.DOTALL).groups()
    pieces = re.findall(r"\\x[0-9a-fA-F]+|\\.|.", content, re.DOTALL)
    middle = len(pieces) // 2
    letter = "y" if pieces and pieces[middle] == "x" else "x"
    return f'{prefix}"{"".join(pieces[:middle])}{letter}{"".join(pieces[middle + 1:])}"'


def changed_token(source, tokens, index):
    """What the token becomes, or None."""
    token, before = tokens[index], tokens[index - 1] if index else None
    if token.kind == "number":
        pure = before.text == "=" and tokens[index - 2].text in (")", "const", "noexcept", "override")
        return None if pure else changed_number(token.text)
    if token.kind == "character":
        return changed_character(token.text)
    if token.kind == "text":
        return changed_text(token.text)
    if token.kind == "word":
        return WORDS.get(token.text)
    if token.text in STEPS:
        return STEPS[token.text]
    if token.text in BINARY and is_spaced(source, token):
        return BINARY[token.text]
    if token.text in UNARY and not source[token.end].isspace() and (
            token.text != "-" or before.text in ("return", "?") or
            before.kind == "sign" and before.text not in ")]"):
        return ""
    return None


def statement_end(tokens, index):
    """The index of the semicolon that ends the statement at an index, or None if it is none."""
    place = index
    while place < len(tokens):
        text = tokens[place].text
        if text == ";":
            return place
        if text in CLOSING or tokens[place].kind == "word" and text in NO_EXPRESSION and place == index:
            return None
        place = closing_of(tokens, place) + 1 if text in OPENING else place + 1
    return None


def declares(tokens, index):
    """Whether a statement that begins with a name declares something: a second name follows."""
    while tokens[index].kind == "word" and tokens[index + 1].text == "::":
        index += 2
    if tokens[index].kind != "word" or tokens[index].text in ("throw", "break", "continue", "return"):
        return False
    index += 1
    if tokens[index].text == "<":
        index = template_end(tokens, index) + 1
    return tokens[index].kind == "word" or tokens[index].text in ("&", "*", "&&", "::")


def changed_statements(source, tokens):
    """(start, end, new) of statements that are removed and of values that are not returned."""
    brackets = []
    for index, token in enumerate(tokens):
        if token.text in OPENING:
            brackets.append(token.text)
        elif token.text in CLOSING:
            brackets.pop()
        begins = index > 0 and tokens[index - 1].text in ("else", "do", ";", "{", "}", ")")
        if not begins or brackets[-1:] != ["{"] or is_spaced(source, token) and token.kind != "word" \
                or not (token.kind == "word" or token.text in ("++", "--", "*")):
            continue
        end = statement_end(tokens, index)
        if end is None or declares(tokens, index) or \
                tokens[end - 1].text in ("delete", "default") or \
                re.search(r"\.reserve\([^;]*$", source[token.start:tokens[end].start]):
            continue
        if token.text == "return" and end > index + 1:
            first, last = tokens[index + 1], tokens[end - 1]
            value = source[first.start:last.end]
            if not re.fullmatch(r"\{\}|true|false|\d+|std::nullopt", value):
                yield first.start, last.end, "{}"
        else:
            yield token.start, tokens[end].start, ""


def mutants_of(file, source):
    """All mutants of a source, in its order."""
    tokens = tokens_of(source)
    skipped = left_out(source, tokens)
    changes = list(changed_statements(source, tokens))
    for index, token in enumerate(tokens):
        new = None if index in skipped else changed_token(source, tokens, index)
        if new is not None:
            changes.append((token.start, token.end, new))
    lines, seen, mutants = source.split("\n"), collections.Counter(), []
    for start, end, new in sorted(changes):
        line = source.count("\n", 0, start) + 1
        change = f"{' '.join(source[start:end].split())} becomes {new or 'nothing'}"
        seen[line, change] += 1
        if seen[line, change] > 1:
            change += f" ({seen[line, change]})"
        mutants.append(Mutant(file, start, end, new, line, lines[line - 1].strip(), change))
    return mutants

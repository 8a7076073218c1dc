"""The fenced examples of a document, turned into scripts that check what they state.

In an example, "→" states a value and "muestra" a message box (vbscript; javascript has // for '):

    x = f.LetraNIF(1)          ' → "R"          the variable that the line assigns
    WScript.Echo f.LetraNIF(1) ' → "R"          what the line prints
    ' x → "R"                                   an expression
    ' muestra (información, "Título") Texto⏎más texto
    ' muestra (pregunta Sí/No, "Título") Texto — se pulsa Sí
    ' se pulsa Aceptar en la ventana "Título"

A value is an expression of the language, a date as dd/mm/yyyy, or a text with ⏎ for code 13.
"""
import re
import unicodedata
from dataclasses import dataclass, field

EXAMPLE_FOLDER = "C:\\Ejemplo"

STYLES = {
    "sin icono": 0,
    "crítico": 16,
    "pregunta Aceptar/Cancelar": 33,
    "pregunta Sí/No": 36,
    "exclamación": 48,
    "información": 64,
}
BUTTONS = {"Aceptar": 1, "Cancelar": 2, "Sí": 6, "No": 7}
BOX = re.compile(r'muestra \((?P<icon>[^,]+), "(?P<title>[^"]*)"\) (?P<text>.*?)'
                 r"(?: — se pulsa (?P<button>\w+))?$")
STEP = re.compile(r'se pulsa (?P<action>\w+) en la ventana "(?P<title>[^"]*)"$'
                  r'|se cierra la ventana "(?P<closed>[^"]*)"$')
# Wine's captions of system dialogs, by those that users see.
CAPTIONS = {"Buscar carpeta": "Explorar carpeta"}
DATE = re.compile(r"(\d\d)/(\d\d)/(\d{4})$")


class ExampleError(Exception):
    """An example that cannot be turned into a test."""


@dataclass
class Block:
    """A fenced block: where it stands and what it holds."""
    place: str
    language: str
    text: str
    headings: tuple


def blocks(document):
    """Every fenced block of a document, with the headings that it stands under."""
    headings = {}
    language = None
    lines = []
    for line in document.splitlines():
        if line.startswith("```"):
            if language is None:
                language, lines = line[3:].strip(), []
                continue
            path = tuple(headings[level] for level in sorted(headings))
            yield Block(".".join(path[1:]) or "".join(path), language, "\n".join(lines), path)
            language = None
        elif language is not None:
            lines.append(line)
        elif heading := re.match(r"(#+) (.*)", line):
            level = len(heading[1])
            headings = {known: text for known, text in headings.items() if known < level}
            headings[level] = heading[2]


class VBScript:
    comment = "'"
    extension = "vbs"
    end = "WScript.Quit"
    prologue = """Dim KvCount, KvWrong
KvCount = 0
KvWrong = 0
Function KvSame(found, wanted)
    KvSame = False
    If IsObject(found) Or IsObject(wanted) Then
        If IsObject(found) And IsObject(wanted) Then KvSame = found Is wanted
    ElseIf VarType(found) = 0 Or VarType(wanted) = 0 Then
        KvSame = VarType(found) = VarType(wanted)
    ElseIf IsNull(found) Or IsNull(wanted) Then
        KvSame = IsNull(found) And IsNull(wanted)
    ElseIf KvKind(found) = KvKind(wanted) Then
        KvSame = found = wanted
    End If
End Function
Function KvKind(value)
    KvKind = VarType(value)
    If KvKind = 2 Or KvKind = 3 Or KvKind = 4 Or KvKind = 5 Or KvKind = 17 Then KvKind = 5
End Function
Function KvShown(value)
    KvShown = TypeName(value)
    If Not IsObject(value) And Not IsNull(value) Then KvShown = KvShown & " " & value
End Function
Sub KvCheck(where, found, wanted)
    If KvSame(found, wanted) Then
        KvCount = KvCount + 1
    Else
        KvWrong = KvWrong + 1
        WScript.Echo "MAL " & where & ": " & KvShown(found) & " en vez de " & KvShown(wanted)
    End If
End Sub
"""
    epilogue = """If KvWrong = 0 Then WScript.Echo KvCount & " comprobaciones correctas"
"""
    assignment = re.compile(r"\s*(?:Set\s+)?([\w.]+(?:\(\w+\))?)\s*=\s")
    printed = re.compile(r"\s*WScript\.Echo\s+(.*)$")

    @staticmethod
    def quoted(text):
        return '"' + text.replace('"', '""') + '"'

    @classmethod
    def value(cls, text):
        if date := DATE.match(text):
            return "DateSerial(%d, %d, %d)" % (int(date[3]), int(date[2]), int(date[1]))
        return text.replace("⏎", '" & Chr(13) & "')

    @classmethod
    def begin(cls, place):
        return "WScript.Echo " + cls.quoted("ejemplo " + place)

    @classmethod
    def check(cls, place, found, wanted):
        return f"KvCheck {cls.quoted(place)}, {found}, {cls.value(wanted)}"

    @staticmethod
    def path(text):
        return text


class JScript:
    comment = "//"
    extension = "js"
    end = "WScript.Quit();"
    prologue = """var KvCount = 0, KvWrong = 0;
function KvCheck(where, found, wanted) {
  if (typeof found === typeof wanted && found === wanted) {
    KvCount++;
  } else {
    KvWrong++;
    WScript.Echo("MAL " + where + ": " + found + " en vez de " + wanted);
  }
}
"""
    epilogue = """if (KvWrong === 0) WScript.Echo(KvCount + " comprobaciones correctas");
"""
    assignment = re.compile(r"\s*(?:var\s+)?([\w.]+(?:\[\w+\])?)\s*=\s")
    printed = re.compile(r"\s*WScript\.Echo\((.*)\);$")

    @staticmethod
    def quoted(text):
        return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'

    @classmethod
    def value(cls, text):
        return text.replace("⏎", "\\r")

    @classmethod
    def begin(cls, place):
        return f"WScript.Echo({cls.quoted('ejemplo ' + place)});"

    @classmethod
    def check(cls, place, found, wanted):
        return f"KvCheck({cls.quoted(place)}, {found}, {cls.value(wanted)});"

    @staticmethod
    def path(text):
        return text.replace("\\", "\\\\")


LANGUAGES = {"vbscript": VBScript, "javascript": JScript}


@dataclass
class Script:
    """A script of several examples, the boxes that it shows and the windows to be worked."""
    language: type
    folder: str  # what stands for C:\\Ejemplo
    lines: list = field(default_factory=list)
    boxes: list = field(default_factory=list)
    steps: list = field(default_factory=list)
    checks: int = 0
    examples: list = field(default_factory=list)  # the place and the lines of each

    def add(self, block, place):
        """Adds an example; True when it states something."""
        before = self.checks + len(self.boxes) + len(self.steps)
        first = len(self.lines)
        # What a host prints may be in any code page.
        place = unicodedata.normalize("NFD", place).encode("ascii", "ignore").decode("ascii")
        self.lines.append(self.language.begin(place))
        for line in block.text.splitlines():
            self._add_line(self._moved(line), line, place)
        self.examples.append((place, self.lines[first:]))
        return self.checks + len(self.boxes) + len(self.steps) > before

    def text(self):
        return "\n".join([self.language.prologue, *self.lines, self.language.epilogue])

    def _moved(self, line):
        path = self.language.path
        return line.replace(path(EXAMPLE_FOLDER), path(self.folder))

    def _add_line(self, line, as_written, place):
        comment = self.language.comment
        stripped = line.strip()
        if stripped.startswith(comment):
            self._add_comment(stripped[len(comment):].strip(), as_written, place)
            return
        code, arrow, value = line.partition(comment + " → ")
        if not arrow:
            if "→" in line:
                raise ExampleError(f"{place}: no statement before the arrow: {as_written}")
            self.lines.append(line)
            return
        code = code.rstrip()
        if printed := self.language.printed.match(code):
            self._check(place, printed[1], value)
            return
        self.lines.append(code)
        assigned = self.language.assignment.match(code)
        if not assigned:
            raise ExampleError(f"{place}: nothing is assigned: {as_written}")
        self._check(place, assigned[1], value)

    def _add_comment(self, comment, as_written, place):
        if box := BOX.match(comment):
            if box["icon"] not in STYLES:
                raise ExampleError(f"{place}: an unknown icon: {as_written}")
            text = box["text"].replace("\\", "\\\\").replace("⏎", "\\r")
            # A path in a box is shown, not written in the language of the example.
            text = text.replace(EXAMPLE_FOLDER.replace("\\", "\\\\"),
                                self.folder.replace("\\", "\\\\"))
            button = BUTTONS[box["button"] or "Aceptar"]
            self.boxes.append(f"{STYLES[box['icon']]}|{box['title']}|{text}|{button}")
        elif step := STEP.match(comment):
            action = step["action"] or "cerrar"
            title = step["title"] or step["closed"]
            self.steps.append(f"{CAPTIONS.get(title, title)}|{action}")
        elif "→" in comment:
            expression, _, value = comment.partition(" → ")
            self._check(place, expression, value)
        elif re.match(r"(muestra|se pulsa|se cierra)\b", comment):
            raise ExampleError(f"{place}: cannot be understood: {as_written}")

    def _check(self, place, found, wanted):
        self.checks += 1
        self.lines.append(self.language.check(place, found.strip(), wanted.strip()))

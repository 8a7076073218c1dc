#!/usr/bin/env python3
"""The writer of the reference and the checks of the documents refuse what is wrong, and say why.

    refusals.py SOURCE_FOLDER WRITER...     WRITER: the command that runs reference_writer
"""
import pathlib
import shutil
import subprocess
import sys
import tempfile

NOTES = "docs/notas/clsCSQL.md"
EXAMPLE = """```vbscript
literal = sql.Conv_Boolean(True)    ' → -1
literal = sql.Conv_Boolean(False)   ' → 0
```
"""

# Changes to a copy of the documents, and the reason that must be given for refusing them.
WRITER_REFUSALS = [
    (NOTES, "## Conv_Boolean\n", "## Conv_Bool\n", "clsCSQL.md: nothing about Conv_Boolean"),
    (NOTES, "## AppOrigen\n", "## Falta\n## AppOrigen\n", "clsCSQL.md (Falta): no \"Notas:\""),
    (NOTES, "Fallos: programa.\n```vbscript\nliteral = sql.Conv_String",
     "```vbscript\nliteral = sql.Conv_String", "clsCSQL.md (Conv_String): no \"Fallos:\""),
    (NOTES, "Mensajes: ninguno.\nFallos: programa.\n```vbscript\nliteral = sql.Conv_String",
     "Fallos: programa.\n```vbscript\nliteral = sql.Conv_String",
     "clsCSQL.md (Conv_String): no \"Mensajes:\""),
    (NOTES, EXAMPLE, "", "clsCSQL.md (Conv_Boolean): no example"),
    (NOTES, EXAMPLE, "```vbscript\n```\n", "clsCSQL.md (Conv_Boolean): an empty example"),
    (NOTES, EXAMPLE, EXAMPLE + EXAMPLE, "clsCSQL.md (Conv_Boolean): a second example"),
    (NOTES, "## AppOrigen\n", "## AppOrigen\nalgo\n", "\"algo\" is in no field"),
    ("docs/notas/clsAvisos.md", "## Evento Progreso\n", "## Progreso\n",
     "clsAvisos.md: nothing about Evento Progreso"),
    (NOTES, "## Conv_Double4\n", "## Conv_Double\n", "clsCSQL.md: Conv_Double is written twice"),
    (NOTES, "# clsCSQL\n", "# clsFGen\n", "the heading is not the file's name"),
]
CHECK_REFUSALS = [
    ("docs/guia.md", "general.Requerido(txtNombre)", "general.Requiere(txtNombre)",
     "there is no Requiere in clsFGen"),
    ("docs/guia.md", "general.Requerido(txtNombre)", "general.Requerido(txtNombre, 1)",
     "Requerido takes 1 to 1 arguments, not 2"),
    ("docs/guia.md", "general.Solo_Numero KeyAscii, True, True",
     "general.Solo_Numero KeyAscii, True, True, 0", "Solo_Numero takes 1 to 3 arguments, not 4"),
    ("docs/guia.md", "Sub avisos_Progreso(", "Sub avisos_Avance(",
     "there is no event Avance in clsAvisos"),
    ("docs/guia.md", "Sub avisos_Aviso(aviso, respuesta, mostrar)", "Sub avisos_Aviso(aviso)",
     "the event Aviso has 3 parameters, not 1"),
    ("docs/guia.md", "eventos.Aviso += (", "eventos.Avisa += (",
     "there is no event Avisa in clsAvisos"),
    ("examples/formularios/frmCliente.frm", "Dim porcentaje As Long", "Dim porcentaje As Integer",
     "porcentaje is a Integer, and is passed by reference as Long"),
    ("examples/formularios/userform_cliente.bas", "Solo_Numero tecla,", "Solo_Numero KeyAscii,",
     "KeyAscii is a MSForms.ReturnInteger, and is passed by reference as Integer"),
    ("examples/recorrido/Recorrido.bas", "    Dim texto As String\n", "", "texto is not declared"),
    ("examples/recorrido/recorrido.ps1", 'Verifica_NIF("12345678A")', "Verifica_NIF([ref]$texto)",
     "[ref]$texto is passed by value"),
    ("examples/recorrido/recorrido.py", "Kovrel.clsCSQL", "Kovrel.clsFZip", "nothing of clsCSQL"),
    ("docs/guia.md", "(referencia.md)", "(falta.md)", "falta.md leads nowhere"),
    ("docs/guia.md", "(#recetas)", "(#receta)", "#receta leads nowhere"),
    ("docs/referencia.md", "en procedimiento DC del Módulo FGen.",
     "en procedimiento DC del Módulo de clase clsFGen.", "no procedure ends its error box in"),
    ("docs/referencia.md", "`Carpeta creada con éxito.` —", "`Carpeta creada.  Con éxito.` —",
     "no message says \"Carpeta creada.  Con éxito.\""),
]


def refuse(copy, file, old, new, command, reason):
    """Runs a command with one text of the copy replaced; true when it gives the reason."""
    text = (copy / file).read_text(encoding="utf-8")
    if old not in text:
        print(f"FAILED: {file} has no \"{old}\" to be changed")
        return False
    (copy / file).write_text(text.replace(old, new, 1), encoding="utf-8")
    result = subprocess.run(command, check=False, cwd=copy, stdout=subprocess.PIPE,
                            stderr=subprocess.STDOUT, text=True, errors="backslashreplace")
    (copy / file).write_text(text, encoding="utf-8")
    if result.returncode != 0 and reason in result.stdout:
        return True
    print(f"FAILED: \"{reason}\" was not said, but:\n{result.stdout}")
    return False


def main():
    source, writer = pathlib.Path(sys.argv[1]), sys.argv[2:]
    check = [sys.executable, str(pathlib.Path(__file__).parent / "check_documents.py"), "."]
    write = [*writer, "docs/notas", "docs/referencia.md"]
    with tempfile.TemporaryDirectory(prefix="kovrel-docs.") as temporary:
        copy = pathlib.Path(temporary)
        for folder in ("docs", "examples", "src"):
            shutil.copytree(source / folder, copy / folder)
        shutil.copy(source / "README.md", copy)
        good = [refuse(copy, file, old, new, command, reason)
                for refusals, command in ((WRITER_REFUSALS, write), (CHECK_REFUSALS, check))
                for file, old, new, reason in refusals]
    print(f"{sum(good)} of {len(good)} refused")
    return 0 if all(good) else 1


if __name__ == "__main__":
    sys.exit(main())

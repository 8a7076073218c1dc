#!/usr/bin/env python3
"""The comparisons notice what is wrong: each change to a declaration must make its check fail.

    refusals.py TYPE_LIBRARY_LINES DECLARATIONS_FOLDER WIDL_LINES REFLECT_COMMAND...
"""
import pathlib
import subprocess
import sys
import tempfile

CHECKS = pathlib.Path(__file__).parent
# For each check, what is changed, and what into.
CHANGES = {
    "pascal": [
        ("function Get_AppOrigen: WideString; safecall;\n", ""),
        ("SemanasMes(IntAnyo: SmallInt", "SemanasMes(IntAnyo: Integer"),
        ("function EsBisiesto(IntAnyo: SmallInt)", "function EsBisiesto(var IntAnyo: SmallInt)"),
        ("boBotones: WordBool = False", "boBotones: WordBool = True"),
        ("dispid 3;", "dispid 4;"),
        ("  idDNI = $2;", "  idDNI = $3;"),
        ("IID__clsFGen: TGUID = '{5", "IID__clsFGen: TGUID = '{6"),
        ("class function Create: _clsFIdent;", "class function Create: _clsCSQL;"),
    ],
    "c": [
        ("    HRESULT (STDMETHODCALLTYPE* get_Count)(", "    HRESULT (STDMETHODCALLTYPE* get_count)("),
        ("short IntMes,", "short* IntMes,"),
        ("defaultvalue(-1)", "defaultvalue(1)"),
        ("#define _clsAvisos_Limpia(This)", "#define _clsAvisos_Limpia(This, x)"),
        ("_clsAvisosEvents_id_Progreso = 2,", "_clsAvisosEvents_id_Progreso = 3,"),
        ("KOVREL_GUID IID__clsFGen = {\n    0x5", "KOVREL_GUID IID__clsFGen = {\n    0x6"),
    ],
    "typescript": [
        ("readonly Count", "Count"),
        ("boBotones?: boolean", "boBotones: boolean"),
        ("idDNI = 0x2", "idDNI = 0x3"),
        ('new (programa: "Kovrel.clsFIdent"): Kovrel.clsFIdent',
         'new (programa: "Kovrel.clsFIdent"): Kovrel.clsCSQL'),
        ("Número de días del mes.", "Días."),
    ],
    "csharp": [
        ("_clsFGen 21 ", "_clsFGen 22 "),
        ("LetraNIF(ref Int32 DNI)", "LetraNIF(Int32 DNI)"),
        ("CustomMarshaler TextoPorReferencia", "BStr"),
        ("InterfaceIsDual _clsCSQL", "InterfaceIsIUnknown _clsCSQL"),
        (" = True", " = False"),
    ],
    "idl": [
        ("member\t8\t", "member\t9\t"),
        ("parameter\tinout\tshort*", "parameter\tin\tshort*"),
        ("Número de días del mes.", "Días."),
        ("type\tclass\tclsFGen", "type\tclass\tclsFgen"),
    ],
}


def fails(check, arguments):
    command = [sys.executable, CHECKS / f"check_{check}.py", *arguments]
    result = subprocess.run(command, check=False, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    # A check that cannot even run is no refusal.
    return result.returncode == 1 and b"Traceback" not in result.stderr


def main():
    lines, declarations, widl, *reflect = sys.argv[1:]
    declarations = pathlib.Path(declarations)
    sources = {"pascal": declarations / "Kovrel.pas", "c": declarations / "kovrel.h",
               "typescript": declarations / "kovrel.d.ts", "idl": pathlib.Path(widl)}
    wrong = 0
    with tempfile.TemporaryDirectory(prefix="kovrel-refusals.") as folder:
        changed = pathlib.Path(folder) / "changed.txt"
        for check, changes in CHANGES.items():
            if check == "csharp":
                text = subprocess.run(reflect, check=True, stdout=subprocess.PIPE).stdout.decode()
            else:
                text = sources[check].read_text(encoding="utf-8")
            if check == "c":
                # C++ has its own test.
                cut = text.index("\n#else\n")
                before, text = text[:cut], text[cut:]
            for original, replacement in changes:
                if original not in text:
                    print(f"FAILED: {check} does not declare {original!r}")
                    wrong += 1
                    continue
                result = text.replace(original, replacement, 1)
                changed.write_text((before if check == "c" else "") + result, encoding="utf-8")
                arguments = {
                    "csharp": [lines, "cat", changed],
                    "typescript": [lines, "node", CHECKS / "read_typescript.js", changed],
                }.get(check, [lines, changed])
                if not fails(check, arguments):
                    print(f"FAILED: {check} does not notice {replacement!r} for {original!r}")
                    wrong += 1
    print(f"{sum(map(len, CHANGES.values()))} changes, {wrong} of them not noticed")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())

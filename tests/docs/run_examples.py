#!/usr/bin/env python3
"""Runs the examples of a document in the real script hosts and checks what they state.

    run_examples.py DOCUMENT class CLASS RUNNER WINE ANSWERER WORKER   one class of the reference
    run_examples.py DOCUMENT each - RUNNER WINE ANSWERER WORKER        every example by itself
"""
import pathlib
import struct
import subprocess
import sys
import tempfile

from examples import LANGUAGES, ExampleError, Script, blocks

LIMIT_SECONDS = 90


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def bitmap():
    """A picture of 8 by 8 red pixels in 24 bits."""
    pixels = bytes((0, 0, 255)) * 64
    size = 54 + len(pixels)
    return (struct.pack("<2sIHHI", b"BM", size, 0, 0, 54) +
            struct.pack("<IiiHHIIiiII", 40, 8, 8, 1, 24, 0, len(pixels), 2835, 2835, 0, 0) +
            pixels)


def fill(folder):
    """What the examples find in C:\\Ejemplo."""
    folder.mkdir()
    (folder / "carta.txt").write_bytes("Estimado señor:\r\n".encode("cp1252"))
    (folder / "factura.txt").write_bytes(b"Total 12,50\r\n")
    (folder / "logo.bmp").write_bytes(bitmap())
    (folder / "Documentos").mkdir()


def run(script, name, work, tools):
    """Runs one script with its boxes answered and its windows worked; True when all is right."""
    runner, wine, answerer, worker = tools
    # Characters that only the comments need are not in the hosts' code page.
    text = script.text().encode("cp1252", errors="ignore").decode("cp1252")
    file = work / f"{name}.{script.language.extension}"
    file.write_text(text, encoding="utf-8")
    boxes = "-"
    if script.boxes:
        boxes = work / f"{name}.boxes"
        boxes.write_text("\n".join(script.boxes) + "\n", encoding="utf-8")
    helper = None
    if script.steps:
        steps = work / f"{name}.steps"
        steps.write_text("\n".join(script.steps) + "\n", encoding="utf-8")
        helper = subprocess.Popen([wine, windows_path(worker), windows_path(steps),
                                   str(LIMIT_SECONDS)])
    result = subprocess.run([runner, wine, answerer, str(boxes), str(file)], check=False,
                            stdout=subprocess.PIPE, text=True)
    print(result.stdout, end="", flush=True)
    if helper is not None:
        try:
            if helper.wait(timeout=10) != 0:
                print(f"FAILED: the windows of {name}")
                return False
        except subprocess.TimeoutExpired:
            helper.kill()
            print(f"FAILED: not every window of {name} has come")
            return False
    return result.returncode == 0


def find_unreadable(script, work, tools):
    """Names the examples that the host cannot read: it does not say so, and runs nothing."""
    wine = tools[1]
    for place, lines in script.examples:
        alone = Script(script.language, script.folder)
        # What stands behind the end is read, but not run.
        alone.lines = [script.language.begin(place), script.language.end, *lines]
        file = work / f"alone.{script.language.extension}"
        file.write_bytes(alone.text().encode("cp1252", errors="ignore"))
        command = [wine, "C:\\windows\\system32\\cscript.exe", "//nologo", windows_path(file)]
        result = subprocess.run(command, check=False, stdout=subprocess.PIPE)
        if b"ejemplo" not in result.stdout:
            print(f"FAILED: {place} cannot be read")


def class_script(document, class_name, folder):
    """All examples of a class one after the other, behind the class's own preparation."""
    script = Script(LANGUAGES["vbscript"], folder)
    for block in blocks(document):
        if class_name not in block.headings or block.language not in LANGUAGES:
            continue
        place = ".".join(block.headings[1:])
        if not script.add(block, place) and block.headings[-1] != class_name:
            raise ExampleError(f"{place}: the example states no result")
    if script.checks == 0:
        raise ExampleError(f"{class_name}: no examples")
    return script


def main():
    document_file, mode, class_name, *tools = sys.argv[1:]
    document = pathlib.Path(document_file).read_text(encoding="utf-8")
    with tempfile.TemporaryDirectory(prefix="kovrel-docs.") as temporary:
        work = pathlib.Path(temporary)
        if mode == "class":
            fill(work / "e")
            script = class_script(document, class_name, windows_path(work / "e"))
            if run(script, class_name, work, tools):
                return 0
            find_unreadable(script, work, tools)
            return 1
        good = 0
        for index, block in enumerate(blocks(document)):
            if block.language not in LANGUAGES:
                continue
            folder = work / f"e{index}"
            fill(folder)
            script = Script(LANGUAGES[block.language], windows_path(folder))
            if not script.add(block, block.place):
                raise ExampleError(f"{block.place}: the example states no result")
            if script.checks == 0:
                raise ExampleError(f"{block.place}: no value is stated")
            if not run(script, f"example{index}", work, tools):
                print(f"FAILED: {block.place}")
                return 1
            good += 1
        print(f"{good} examples")
        return 0 if good > 0 else 1


if __name__ == "__main__":
    try:
        sys.exit(main())
    except ExampleError as error:
        sys.exit(f"FAILED: {error}")

#!/usr/bin/env python3
"""Runs the benchmarks and prints the budgets and what was measured: bench_table.py ROOT [--record].

Both sides of a ratio are measured in the same run. Exits 1 when a budget is not met.
"""
import datetime
import json
import os
import pathlib
import platform
import re
import subprocess
import sys

ROOT = pathlib.Path(sys.argv[1])
NATIVE = ROOT / "build" / "bench"
WINDOWS = ROOT / "build" / "x64" / "bench"
LIBRARY = ROOT / "dist" / "x64" / "kovrel.dll"
REPETITIONS = 5


def output_of(*command):
    return subprocess.run([str(part) for part in command], check=True, text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout


def native_times(program):
    """The best time in nanoseconds of each benchmark, several runs in turn."""
    report = json.loads(output_of(NATIVE / "bench" / program, "--benchmark_format=json",
                                  f"--benchmark_repetitions={REPETITIONS}",
                                  "--benchmark_enable_random_interleaving=true"))
    scale = {"ns": 1, "us": 1e3, "ms": 1e6}
    best = {}
    for run in report["benchmarks"]:
        if run["run_type"] == "iteration":
            time = run["cpu_time"] * scale[run["time_unit"]]
            best[run["run_name"]] = min(best.get(run["run_name"], time), time)
    return best


def found(pattern, text):
    match = re.search(pattern, text)
    if match is None:
        sys.exit(f"no '{pattern}' in:\n{text}")
    return [float(group) for group in match.groups()]


def comma(number, decimals):
    return f"{number:.{decimals}f}".replace(".", ",")


def windows_output(program, *arguments):
    """What a benchmark of the library as users get it prints; files are passed as Wine names them."""
    return output_of("wine", WINDOWS / f"{program}.exe",
                     *("Z:" + str(path).replace("/", "\\") for path in arguments))


def size_rows():
    for arch, bits, most in (("x64", 64, 600 + 6 * 32 + 56), ("x86", 32, 640 + 6 * 32 + 56)):
        size = (ROOT / "dist" / arch / "kovrel.dll").stat().st_size / 1024
        yield (f"`kovrel.dll` de {bits} bits, sin símbolos", f"{most} KB", f"{comma(size, 0)} KB",
               size <= most)


def ratio_row(what, budget, own, other, unit):
    decimals = 0 if own >= 10 else 2
    return (what, comma(budget, 2),
            f"{comma(own / other, 2)} ({comma(own, decimals)} {unit} y "
            f"{comma(other, decimals)} {unit})", own <= budget * other)


def first_object_rows():
    own, other = found(r"first object: ([\d.]+) ms; minimal server: ([\d.]+) ms",
                       windows_output("first_object_bench", LIBRARY,
                                      WINDOWS / "minimal_server.dll"))
    yield ratio_row("primer objeto de un proceso, desde la carga hasta la primera respuesta, frente "
                    "a un servidor mínimo", 1.5, own, other, "ms")


def dispatch_rows():
    text = windows_output("dispatch_bench", LIBRARY)
    for name, what, budget in (
            ("number argument", "llamada tardía con un número, frente a `DispInvoke`", 0.33),
            ("text argument", "llamada tardía con un texto, frente a `DispInvoke`", 0.33),
            ("variable written back", "llamada tardía con una variable que cambia, frente a "
             "`DispInvoke`", 0.33),
            ("first member's name", "identificador del primer miembro, frente a "
             "`ITypeInfo::GetIDsOfNames`", 0.5),
            ("last member's name", "identificador del último miembro, frente a "
             "`ITypeInfo::GetIDsOfNames`", 0.5)):
        own, other = found(name + r": ([\d.]+) ns; platform: ([\d.]+) ns", text)
        yield ratio_row(what, budget, own, other, "ns")
    (time,) = found(r"create and release: ([\d.]+) ns", text)
    yield "un objeto creado y liberado", "500 ns", f"{comma(time, 0)} ns", time <= 500


def window_rows():
    text = windows_output("window_bench", LIBRARY)
    (box,) = found(r"message box: ([\d.]+) ms", text)
    for name, what in (("verifier", "verificador"), ("progress", "ventana de progreso"),
                       ("dialog", "cuadro de mensaje"), ("date prompt", "petición de fecha")):
        (time,) = found(name + r": ([\d.]+) ms", text)
        yield ratio_row(f"{what}, hasta verse entera, frente al mensaje del sistema", 1.5, time, box,
                        "ms")


def words_rows():
    times = native_times("words_bench")
    own, other = times["euros_in_words"], times["icu_spell_out"]
    yield ratio_row("100.000 importes en letra, frente a ICU", 0.25, own / 1e6, other / 1e6, "ms")


def tax_id_rows():
    times = native_times("taxid_bench")
    slowest = max(times.values())
    yield ("un identificador fiscal verificado (el caso más lento)", "60 ns",
           f"{comma(slowest, 0)} ns", slowest <= 60)


def identifier_rows():
    times = native_times("identifiers_bench")
    for name, what, budget in (("nif", "un NIF", 60), ("iban", "un IBAN", 120)):
        each = times[f"check_list/{name}"] / 1e6  # of a list of a million
        yield (f"{what} comprobado con su motivo, en una lista de 1.000.000", f"{budget} ns",
               f"{comma(each, 0)} ns", each <= budget)
    (time,) = found(r"list of 1000000 texts: ([\d.]+) ms", windows_output("list_bench", LIBRARY))
    yield ("1.000.000 de textos comprobados en una llamada tardía", "150 ms",
           f"{comma(time, 0)} ms", time <= 150)


def combo_rows():
    text = windows_output("combo_bench")
    rows = {int(line.split()[0]): [float(part) for part in line.split()[1:]]
            for line in text.splitlines()[1:] if line.strip()}
    reads, lists, nanoseconds = rows[100_000]
    # The small loads are all fixed cost: from 1,000 rows on the time for each must stay flat.
    flat = nanoseconds <= 2 * rows[1_000][2]
    yield ("combo de varias columnas con 100.000 filas",
           "un `GetRows`, un `List`; 30 ns por fila, tiempo lineal",
           f"{comma(reads, 0)} y {comma(lists, 0)}; {comma(nanoseconds, 0)} ns por fila "
           f"({comma(rows[1_000][2], 0)} ns con 1.000 filas)",
           reads == 1 and lists == 1 and flat and nanoseconds <= 30)


def zip_rows():
    text = subprocess.run([sys.executable, ROOT / "bench" / "zip_bench.py", "--cli",
                           NATIVE / "zip32" / "zip_cli"], text=True, check=False,
                          stdout=subprocess.PIPE).stdout
    own, other = found(r"time: +engine ([\d.]+) s, zip ([\d.]+) s", text)
    (size,) = found(r"size: .*: ([\d.]+) \(", text)
    small, large = found(r"memory: (\d+) KB for 10 MB, (\d+) KB for 1 GB", text)
    yield ratio_row("archivo zip de 100 ficheros con 2 núcleos, frente a `zip -6`", 0.4, own, other,
                    "s")
    large_own, large_other = found(r"1 GB: +engine ([\d.]+) s, zip ([\d.]+) s", text)
    yield ratio_row("un fichero de 1 GB con 2 núcleos, frente a `zip -6`", 0.55, large_own,
                    large_other, "s")
    yield "su tamaño, frente al de `zip -6`", "1,01", comma(size, 4), size <= 1.01
    yield ("memoria con una entrada de 1 GB, frente a una de 10 MB", "1,2",
           f"{comma(large / small, 2)} ({comma(large / 1024, 1)} MB)", large <= 1.2 * small)


def tree_rows():
    text = subprocess.run([sys.executable, ROOT / "bench" / "tree_bench.py", "--cli",
                           NATIVE / "zip32" / "zip_cli"], text=True, check=False,
                          stdout=subprocess.PIPE).stdout
    yield ratio_row("1.000 ficheros de texto comprimidos con 2 núcleos, frente a `zip -6 -r`", 0.4,
                    *found(r"pack: engine ([\d.]+) s, zip ([\d.]+) s", text), "s")
    (size,) = found(r"size: .*: ([\d.]+)", text)
    yield "su tamaño, frente al de `zip -6 -r`", "1,01", comma(size, 4), size <= 1.01
    yield ratio_row("los mismos, extraídos con 2 núcleos, frente a `unzip`", 0.6,
                    *found(r"take: engine ([\d.]+) s, unzip ([\d.]+) s", text), "s")


def progress_rows():
    text = windows_output("progress_bench")
    milliseconds, before, after = found(r"bar and message +([\d.]+) +(\d+) +(\d+) ", text)
    yield ("1.000 actualizaciones de la ventana de progreso", "ningún objeto gráfico de más",
           f"{comma(milliseconds, 2)} ms cada una; {int(after - before)} de más", after <= before)


def machine():
    with open("/proc/cpuinfo", encoding="ascii", errors="replace") as file:
        names = [line.split(":", 1)[1].strip() for line in file if line.startswith("model name")]
    name = names[0] if names else platform.machine()
    return f"{name}, {os.cpu_count()} núcleos, carga {comma(os.getloadavg()[0], 1)} al empezar"


def main():
    where = machine()
    rows = [row for part in (size_rows, first_object_rows, dispatch_rows, words_rows, tax_id_rows,
                             identifier_rows, combo_rows,
                             zip_rows, tree_rows, window_rows, progress_rows) for row in part()]
    lines = ["| qué | presupuesto | medido | |", "|---|---|---|---|"]
    lines += [f"| {what} | {budget} | {measured} | {'cumple' if met else 'NO cumple'} |"
              for what, budget, measured, met in rows]
    table = "\n".join(lines)
    print(f"{where}\n\n{table}")
    if "--record" in sys.argv:
        page = ROOT / "docs" / "rendimiento.md"
        introduction = page.read_text(encoding="utf-8").split("## Última medida")[0]
        page.write_text(f"{introduction}## Última medida\n\n{datetime.date.today():%d/%m/%Y}, "
                        f"{where}.\n\n{table}\n", encoding="utf-8")
    return 0 if all(met for *_, met in rows) else 1


sys.exit(main())

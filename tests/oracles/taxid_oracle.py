#!/usr/bin/python3
"""Compares tax ids and bank account codes with python-stdnum, an independent implementation.

Usage: taxid_oracle.py TAXID_CLI

Every code that stdnum calls valid must come back unchanged and without a word, and every other one
must be reported with its reason, except where the two differ on purpose:

- A NIF of fewer than nine characters: stdnum rejects it for its length. Ours fills it up with zeros
  and gives it the letter T, right or wrong, and says so.
- K, L and M as first letters: stdnum takes the number for a person's, with the letter of a NIF, and
  knows no CIF that begins so. Ours takes it for a CIF, with either of its two control characters.
- A NIE that is too short: stdnum rejects it for its length, ours fails to read its number.
"""
import random
import string
import subprocess
import sys

from stdnum.es import ccc, cif, dni, nie

CIF_LETTERS = "ABCDEFGHJKLMNPQRSUVW"
FORMER_PERSONS = "KLM"


def letter_message(kind, typed, right):
    return (f"La letra del {kind} '{typed}' es incorrecta y será sustituida por la correcta: "
            f"'{right}'")


def person_cases(rng):
    for _ in range(4000):
        digits = f"{rng.randrange(10**8):08}"
        for letter in rng.sample(string.ascii_uppercase, 5) + [dni.calc_check_digit(digits)]:
            right = dni.calc_check_digit(digits)
            typed = digits + letter
            assert dni.is_valid(typed) == (letter == right)
            told = "" if dni.is_valid(typed) else letter_message("N.I.F.", letter, right)
            yield typed, digits + right, told


def short_person_cases(rng):
    for _ in range(2000):
        digits = str(rng.randrange(10 ** rng.randrange(1, 8)))
        letter = rng.choice(string.ascii_uppercase)
        assert not dni.is_valid(digits + letter)
        told = "" if letter == "T" else letter_message("N.I.F.", letter, "T")
        yield digits + letter, digits.zfill(8) + "T", told
        yield digits, digits.zfill(8) + "T", letter_message("N.I.F.", digits[-1], "T")


def foreigner_cases(rng):
    for _ in range(4000):
        digits = rng.choice("XYZ") + f"{rng.randrange(10**7):07}"
        right = nie.calc_check_digit(digits)
        for letter in rng.sample(string.ascii_uppercase, 5) + [right]:
            typed = digits + letter
            assert nie.is_valid(typed) == (letter == right)
            told = "" if nie.is_valid(typed) else letter_message("N.I.E.", letter, right)
            yield typed, digits + right, told
    for length in range(2, 8):
        short = "X" + "1" * (length - 1) + "L"
        assert not nie.is_valid(short)
        yield short, "", "failure 13"


def entity_cases(rng):
    for _ in range(6000):
        first = rng.choice(string.ascii_uppercase)
        if first in "XYZ":
            continue
        number = first + f"{rng.randrange(10**7):07}"
        right = cif.calc_check_digits(number)
        for last in rng.sample(string.ascii_uppercase + string.digits, 5) + list(right):
            typed = number + last
            if first not in FORMER_PERSONS:
                assert cif.is_valid(typed) == (first in CIF_LETTERS and last in right)
            if first not in CIF_LETTERS:
                yield typed, "", "La Primera letra no corresponde a un CIF."
            elif last in right:
                yield typed, typed, ""
            elif last.isdigit():
                yield typed, "", "El último número no corresponde a un CIF correcto."
            else:
                yield typed, "", "La última letra no corresponde a un CIF correcto."
    for length in range(1, 8):
        short = "B" + "1" * (length - 1)
        assert not cif.is_valid(short)
        yield short, "", "CIF incompleto, mínimo 8 carácteres."


def account_cases(rng):
    for _ in range(20000):
        code = f"{rng.randrange(10**20):020}"
        right = ccc.calc_check_digits(code)
        if rng.random() < 0.5:
            code = code[:8] + right + code[10:]
        told = "" if ccc.is_valid(code) else (
            "Datos bancarios incorrectos. Por favor revise el 'Código de Cuenta Cliente'\r\r"
            f"          D.C. Correcto.......: {right}")
        yield code, right, told


def main():
    rng = random.Random(20080214)  # fixed: every run compares the same codes
    cases = [case for group in (person_cases, short_person_cases, foreigner_cases, entity_cases,
                                account_cases) for case in group(rng)]
    typed = "".join(case[0] + "\n" for case in cases)
    output = subprocess.run([sys.argv[1]], input=typed.encode(), check=True,
                            stdout=subprocess.PIPE).stdout.decode()
    answers = output.split("\n")[:-1]
    assert len(answers) == len(cases)
    wrong = 0
    for (code, result, told), answer in zip(cases, answers):
        if answer != f"{result}\t{told}":
            wrong += 1
            if wrong <= 20:
                print(f"{code}: {answer!r} instead of {(result, told)!r}")
    print(f"{len(cases)} codes compared, {wrong} differ")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())

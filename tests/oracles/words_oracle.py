#!/usr/bin/python3
"""Compares number words with those of num2words, an independent implementation.

Usage: words_oracle.py WORDS_CLI

The two differ on purpose in a few places; the other side's words are rewritten to ours first.
"""
import random
import re
import subprocess
import sys

from num2words import num2words

SCALES = ("mill", "bill", "trill", "cuatrill")
SCALE_WORD = re.compile(r"\b(%s)(ón|ones)\b" % "|".join(SCALES))


def normalized(words):
    """The spelling of num2words converted to the library's."""
    # The accents: ours are dieciséis and veintiseis.
    words = words.replace("dieciseis", "dieciséis").replace("veintiséis", "veintiseis")
    # Before another number word "uno" loses its last letter (veintiun mil).
    words = re.sub(r"uno (?=mil\b|%s)" % "|".join(SCALES), "un ", words)
    pieces = []
    position = 0
    for scale in SCALE_WORD.finditer(words):
        group = words[position : scale.start()].strip()
        is_first = position == 0
        position = scale.end()
        singular, plural = scale[1] + "ón", scale[1] + "ones"
        if re.search(r"\bmil$", group) and not is_first:
            # Thousands alone name their power of a million only at the head of the number.
            pieces.append(group)
        elif re.search(r"\bmil un$", group):
            # One of them is a singular, after thousands that named the plural.
            thousands = group[: -len(" un")]
            pieces.append(f"{thousands} {plural}" if is_first else thousands)
            pieces.append(f"un {singular}")
        else:
            pieces.append(f"{group} {scale[0]}")
    pieces.append(words[position:].strip())
    return " ".join(piece for piece in pieces if piece)


def numbers():
    """Small numbers, and long ones of groups that are often 0 or 1."""
    yield from range(0, 3000)
    generator = random.Random(20240315)  # fixed: the same numbers in every run
    for _ in range(6000):
        groups = generator.randint(1, 9)
        text = "".join(
            f"{generator.choice((0, 0, 1, generator.randint(0, 999))):03}" for _ in range(groups)
        )
        yield int(text)
        yield generator.randrange(10 ** (groups * 3))


def main():
    values = list(numbers())
    result = subprocess.run(
        [sys.argv[1]],
        input="\n".join(str(value) for value in values),
        stdout=subprocess.PIPE,
        encoding="utf-8",
        check=True,
    )
    # The library's scale words include their blanks, so two may be adjacent.
    ours = [re.sub(" +", " ", line) for line in result.stdout.splitlines()]
    assert len(ours) == len(values), (len(ours), len(values))
    different = [
        (value, line, expected)
        for value, line in zip(values, ours)
        if line != (expected := normalized(num2words(value, lang="es")))
    ]
    for value, line, expected in different[:20]:
        print(f"{value}\n  ours:   {line}\n  theirs: {expected}")
    print(f"{len(values)} numbers compared, {len(different)} differences")
    return 1 if different else 0


if __name__ == "__main__":
    sys.exit(main())

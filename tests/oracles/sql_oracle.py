#!/usr/bin/env python3
"""SQLite reads the literals written for it: sql_oracle.py SQL_CLI."""
import math
import sqlite3
import sys

from sql_cases import PIECES, Comparison


class Near(float):
    """A number that SQLite, before version 3.43, reads to the last binary place but one."""

    def __eq__(self, other):
        return isinstance(other, (int, float)) and abs(self - other) <= 2 * math.ulp(self)

    __hash__ = float.__hash__


class SQLite:
    dialect = 4
    holds_nul = True
    double_query = "SELECT CAST({0} AS REAL), 1\n, 2"

    def __init__(self, encoding):
        self.encoding = encoding
        self.connection = sqlite3.connect(":memory:")
        self.connection.execute(f"PRAGMA encoding = '{encoding}'")
        self.connection.execute("CREATE TABLE texts (id INTEGER PRIMARY KEY, content TEXT)")

    @property
    def names(self):
        return [name for name in ("a", "select", "Año de alta", "a.b", *PIECES) if self.holds(name)]

    def values(self, sql):
        try:
            return self.connection.execute(sql).fetchone()
        except sqlite3.Error as error:
            return str(error)

    def put(self, texts):
        self.connection.executemany("INSERT INTO texts VALUES (?, ?)", enumerate(texts))

    def column_of(self, quoted):
        self.connection.execute("DROP TABLE IF EXISTS named")
        self.connection.execute(f"CREATE TABLE named ({quoted} INTEGER)")
        return self.connection.execute("SELECT * FROM named").description[0][0]

    def holds(self, text):
        # In UTF-16 it reads this one as U+FFFD.
        return self.encoding == "UTF-8" or "\uffff" not in text

    @staticmethod
    def text(value):
        return value

    double = Near

    @staticmethod
    def decimal(value):
        # It has no decimals: whole numbers of 64 bits and doubles.
        whole = value == value.to_integral_value() and -2**63 <= value < 2**63
        return int(value) if whole else Near(value)

    @staticmethod
    def day(value):
        return f"{value:%Y-%m-%d}".rjust(10, "0")

    @staticmethod
    def moment(value):
        text = value.isoformat(" ", "milliseconds")
        return text.removesuffix(".000")

    @staticmethod
    def boolean(value):
        return value


def misspelled_names_fail(comparison):
    """A name that is quoted with quotation marks and is not known would be a text."""
    database = comparison.database
    literals = comparison.literals("name", ["006E006F"])
    comparison.check("name", "no", database.values(f"SELECT {literals[0]}"), "no such column: no")


def main():
    print(f"SQLite {sqlite3.sqlite_version}")
    right = True
    for encoding in ("UTF-8", "UTF-16"):
        comparison = Comparison(sys.argv[1], SQLite(encoding), f"SQLite in {encoding}")
        misspelled_names_fail(comparison)
        right = comparison.all() and right
    sys.exit(not right)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""A running database reads the literals written for it, with every setting that changes how texts are read:
sql_databases.py SQL_CLI (postgresql|mariadb) SOCKET. For PostgreSQL SOCKET is the folder that it is in."""
import sys

from sql_cases import PIECES, Comparison

NAMES = ["a", "select", "Año de alta", "a.b", "a;b", "--", "/*", "\u02bc", "\uff07"]


class Database:
    """What both give back as it is."""
    double_query = "SELECT {0}, 1\n, 2"

    def __init__(self, connection):
        self.connection = connection
        self.cursor = connection.cursor()
        self.cursor.execute(f"CREATE TEMPORARY TABLE texts (id INTEGER PRIMARY KEY, content {self.text_type})")

    def put(self, texts):
        self.cursor.executemany("INSERT INTO texts VALUES (%s, %s)", list(enumerate(texts)))

    def values(self, sql):
        try:
            self.cursor.execute(sql)
            return tuple(bytes(value) if isinstance(value, memoryview) else value
                         for value in self.cursor.fetchone())
        except self.errors as error:
            return str(error)

    def column_of(self, quoted):
        self.cursor.execute("DROP TABLE IF EXISTS named")
        self.cursor.execute(f"CREATE TEMPORARY TABLE named ({quoted} INTEGER)")
        self.cursor.execute("SELECT * FROM named")
        return self.cursor.description[0][0]

    @staticmethod
    def holds(_):
        return True

    @staticmethod
    def text(value):
        return value

    double = decimal = boolean = moment = text

    @staticmethod
    def day(value):
        return value.date()


class PostgreSQL(Database):
    dialect = 2
    holds_nul = False
    text_type = 'text COLLATE "C"'
    double_query = "SELECT ({0})::float8, 1\n, 2"
    names = [*NAMES, *(piece for piece in PIECES if len(piece) < 16)]

    def __init__(self, folder, standard_strings):
        import psycopg2
        self.errors = psycopg2.Error
        connection = psycopg2.connect(host=folder, dbname="postgres", user="kovrel")
        connection.set_client_encoding("UTF8")
        connection.autocommit = True
        super().__init__(connection)
        self.cursor.execute("SELECT version()")
        self.version = self.cursor.fetchone()[0]
        self.cursor.execute(f"SET standard_conforming_strings = {standard_strings}")
        self.cursor.execute("SET escape_string_warning = off")

    @staticmethod
    def boolean(value):
        return bool(value)


class MariaDB(Database):
    dialect = 3
    holds_nul = True
    text_type = "LONGTEXT CHARACTER SET utf8mb4 COLLATE utf8mb4_bin"
    double_query = "SELECT {0} + 0E0, 1\n, 2"
    names = [*NAMES, *(piece for piece in PIECES
                       if not piece[-1].isspace() and len(piece) < 64 and max(piece) <= "\uffff")]

    def __init__(self, socket, mode):
        import pymysql
        self.errors = pymysql.Error
        super().__init__(pymysql.connect(unix_socket=socket, user="kovrel", database="kovrel",
                                         charset="utf8mb4", sql_mode=mode, autocommit=True))
        self.cursor.execute("SELECT version()")
        self.version = f"MariaDB {self.cursor.fetchone()[0]}"

    @staticmethod
    def decimal(value):
        return value


def databases(engine, socket):
    if engine == "postgresql":
        for setting in ("on", "off"):
            yield PostgreSQL(socket, setting), f"PostgreSQL, standard_conforming_strings {setting}"
    else:
        for mode in ("", "NO_BACKSLASH_ESCAPES", "ANSI_QUOTES", "NO_BACKSLASH_ESCAPES,ANSI_QUOTES",
                     "STRICT_ALL_TABLES,TRADITIONAL"):
            yield MariaDB(socket, mode), f"MariaDB, sql_mode '{mode}'"


def main():
    program, engine, socket = sys.argv[1:]
    right = True
    for database, label in databases(engine, socket):
        print(f"{label} ({database.version.split(' (')[0]})")
        right = Comparison(program, database, label).all() and right
        database.connection.close()
    sys.exit(not right)


if __name__ == "__main__":
    main()

"""Values for SQL literals, what sql_cli makes of them, and their comparison with what a database reads.

A database is an object with a dialect (a number of the enumeration) and
    values(sql)            the row that a query gives
    column_of(quoted)      the name of the column of a new table
    put(texts)             fills the table "texts" with rows (id, content)
    text(value), double(value), decimal(value), day(value), moment(value), boolean(value)
                           what it gives for a value of that kind
    holds(text)            whether its texts may be this one
    holds_nul              whether they may contain NUL
    names                  names that it can have
"""
import datetime
import decimal
import random
import struct
import subprocess

PIECES = ["'", "''", '"', '""', "`", "\\", "\\'", "\\\\", "\\\"", "--", "-- ", "#", "/*", "*/", ";", "\r\n",
          "\r", "\n", "\\\r\n", "\\\n", "\t", "\b", "\x1a", "\x7f", "\x85", "%", "_", "[", "]", "!", "|", "||",
          "{", "}", "(", ")", "?", ":a", "@a", "$1", "$$", "$a$", "%s", "E'", "N'", "X'41'", "U&'", "\\x41",
          "\\0", "\\Z", "\\u0027", "&#39;", "' OR '1'='1", "'; DROP TABLE texts; --", "' -- ", "\\'; -- ",
          "\u02bc", "\uff07", "\u2018", "\u2019", "\u00b4", "\uff02", "\uff3c", "\u20e5", "\ufe68", "\u0130",
          "\u00f1", "\u20ac", "\u4e2d", "\u7e3a", "\ubf5c", "\u00bf\u0027", "\u0301", "\u200b", "\u202e",
          "\ufeff", "\uffff", "\U0001f600", "\U0010ffff", "\u00a0", "a", "B", "0", " ", "texto", "NULL"]
COUNT = 10_000
EPOCH = datetime.datetime(1899, 12, 30)


def texts(chance):
    """Ten thousand texts made to break out of a literal."""
    found = ["", *PIECES, "'" * 1000, "\\" * 1001, "\\'" * 1000, "x" * 100_000, "'" * 70_000,
             "\u00f1\U0001f600'" * 30_000]
    while len(found) < COUNT:
        found.append("".join(chance.choice(PIECES) for _ in range(chance.randint(1, 12))))
    return found


def with_nul(some):
    return [text[:len(text) // 2] + "\0" + text[len(text) // 2:] for text in some] + ["\0", "\0" * 3000]


def doubles(chance):
    found = [0.0, 1.0, -1.0, 0.1, 0.1 + 0.2, 1 / 3, 12.5, -1234.56, 1e15, 1e17, 1e-17, 9007199254740993.0,
             123456789.123, -5e-7]
    while len(found) < 1500:
        found.append(round(chance.uniform(-1e7, 1e7), chance.randint(0, 6)))
    return found


def wide_doubles(chance):
    """Of every size that all databases have."""
    return [chance.uniform(-1, 1) * 10.0 ** chance.randint(-300, 300) for _ in range(1000)]


def decimals(chance):
    found = [(0, 1, 28, "+"), (0xFFFFFFFF, 2**64 - 1, 0, "-"), (0xFFFFFFFF, 2**64 - 1, 28, "+"),
             (0, 2**63, 0, "-"), (0, 9223372036854775807, 4, "+")]
    while len(found) < 1000:
        found.append((chance.choice([0, chance.getrandbits(32)]), chance.getrandbits(64),
                      chance.randint(0, 28), chance.choice("+-")))
    return found


def decimal_value(parts):
    high, low, scale, sign = parts
    with decimal.localcontext() as context:
        context.prec = 60
        return decimal.Decimal(f"{sign}{high << 64 | low}").scaleb(-scale)


def moments(chance):
    """Milliseconds since the first day of dates of automation, from the year 100 on."""
    day = 86_400_000
    found = [0, day // 2, 45366 * day, 2958465 * day + day - 1, -657434 * day, day - 1]
    while len(found) < 1500:
        found.append(chance.randint(-657434, 2958464) * day + chance.randint(0, day - 1))
    return found


def automation_date(milliseconds):
    """The double: the time of day counts away from zero."""
    days, time = divmod(milliseconds, 86_400_000)
    fraction = time / 86_400_000
    return days + fraction if days >= 0 else days - fraction


def bits(value):
    return struct.pack(">d", value).hex()


def utf16(text):
    return text.encode("utf-16-be").hex()


def literals(program, dialect, kind, values):
    """The literal of each value; the number of the failure where there is none."""
    lines = "".join(f"{dialect} {kind} {value}\n" for value in values)
    output = subprocess.run([program], input=lines, check=True, text=True, capture_output=True).stdout
    return [int(line[1:]) if line.startswith("!") else bytes.fromhex(line).decode("utf-8")
            for line in output.split("\n")[:-1]]


class Comparison:
    """Counts what a database reads as it was written, and keeps what it does not."""

    def __init__(self, program, database, label):
        self.program, self.database, self.label = program, database, label
        self.count = 0
        self.wrong = []

    def check(self, kind, value, found, wanted):
        self.count += 1
        if wanted != found:
            self.wrong.append(f"{kind} {value!r:.120}: {found!r:.120}, not {wanted!r:.120}")

    def literals(self, kind, values):
        return literals(self.program, self.database.dialect, kind, values)

    def each(self, kind, values, spelled, wanted, query="SELECT {0}, 1\n, 2"):
        """What stands behind the literal must be read as well."""
        for value, literal in zip(values, self.literals(kind, map(spelled, values))):
            if isinstance(literal, int):
                found = f"failure {literal}"
            else:
                found = self.database.values(query.format(literal))
            self.check(kind, value, found, (wanted(value), 1, 2))

    def texts(self, some):
        database = self.database
        self.each("text", some, utf16, database.text)
        nul = with_nul(some[:300])
        if database.holds_nul:
            self.each("text", nul, utf16, database.text)
        else:
            for value, literal in zip(nul, self.literals("text", map(utf16, nul))):
                self.check("text", value, literal, 5)

    def patterns(self, some):
        """Each finds the row that begins with the text, and no row with something else for a wildcard."""
        some = [text for text in some if 0 < len(text) < 2000]
        others = [text.replace("%", "zz").replace("_", "z").replace("!", "") for text in some]
        self.database.put([row for pair in zip(some, others) for row in (pair[0] + "tail", pair[1] + "tail")])
        for number, literal in enumerate(self.literals("prefix", map(utf16, some))):
            first = 2 * number
            found = self.database.values(
                f"SELECT COUNT(*), MIN(id) FROM texts WHERE id IN ({first}, {first + 1}) AND content {literal}")
            expected = 2 if others[number].startswith(some[number]) else 1
            self.check("prefix", some[number], found, (expected, first))

    def names(self):
        names = self.database.names
        for name, quoted in zip(names, self.literals("name", map(utf16, names))):
            self.check("name", name, self.database.column_of(quoted), name)

    def values(self, chance):
        database = self.database
        self.each("double", doubles(chance) + wide_doubles(chance), bits, database.double,
                  database.double_query)
        self.each("double", range(-20, 20), lambda value: bits(float(value)), lambda value: 5 - value,
                  "SELECT 5-{0}, 1\n, 2")
        numbers = decimals(chance)
        self.each("decimal", numbers, lambda parts: f"{parts[3]} {parts[0]} {parts[1]} {parts[2]}",
                  lambda parts: database.decimal(decimal_value(parts)))
        times = moments(chance)
        self.each("day", times, lambda time: bits(automation_date(time)),
                  lambda time: database.day(EPOCH + datetime.timedelta(days=time // 86_400_000)))
        self.each("moment", times, lambda time: bits(automation_date(time)),
                  lambda time: database.moment(EPOCH + datetime.timedelta(milliseconds=time)))
        self.each("boolean", [0, 1], str, database.boolean)
        blobs = [b"", b"\0", b"'", bytes(range(256)), *(chance.randbytes(size) for size in range(500))]
        self.each("bytes", blobs, lambda blob: blob.hex() or "", lambda blob: blob)

    def all(self, seed=5):
        chance = random.Random(seed)
        some = [text for text in texts(chance) if self.database.holds(text)]
        self.texts(some)
        self.patterns(some)
        self.names()
        self.values(chance)
        return self.report()

    def report(self):
        for line in self.wrong[:20]:
            print(f"WRONG {self.label}: {line}")
        print(f"{self.label}: {self.count - len(self.wrong)} of {self.count} read back")
        return not self.wrong

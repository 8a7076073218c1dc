#!/usr/bin/python3
"""Compares the checks of identifiers with python-stdnum, an independent implementation.

Usage: identifiers_oracle.py IDENTIFIERS_CLI [texts of each kind, 100000 unless told]

Right, nearly right and senseless texts of every kind are checked by both. Where the two differ, one
entry of DIFFERENCES must say why, with its source; an entry that no text used fails as well. What
python-stdnum lacks (postal codes, numbers of the Social Security) is compared with the rule written
down a second time here. The registry of IBANs is compared line by line.
"""
import collections
import random
import re
import string
import subprocess
import sys

from stdnum import bic, ean, iban, luhn, numdb
from stdnum.es import ccc, cif, cups, dni, nie, nif, referenciacatastral
from stdnum.es import iban as es_iban
from stdnum.eu import at_02, vat
from stdnum.iso7064 import mod_97_10

FAULTLESS = "0"
SEPARATORS = "\t\n\r -./\u00a0\u202f\u2010\u2011\u2012\u2013"
ENTITIES = "ABCDEFGHJNPQRSUVW"
SEPA = set("AD AL AT BE BG CH CY CZ DE DK EE ES FI FR GB GI GR HR HU IE IS IT LI LT LU LV MC MD ME MK MT "
           "NL NO PL PT RO RS SE SI SK SM VA".split())
LETTERS_AND_DIGITS = string.ascii_uppercase + string.digits
# Separators, letters whose capital is an ASCII letter, digits of other scripts, and other signs.
ODD = "\t/.\u00a0\u2011\u2013\u2014\u0131\u017f\u212a\u0663\uff11\u00df\u00d1\u00f1*,:()'+\"?_\u2003\ufb01"


def plain(text):
    """The text as it is read here: without separators, in capitals of ASCII letters and ñ."""
    kept = "".join(c for c in text if c not in SEPARATORS)
    return "".join(c.upper() if c in string.ascii_lowercase + "\u00f1" else c for c in kept)


def is_foreign(text, kind):
    known = "[^A-Z0-9\u00d1]" if kind.name == "cadastral reference" else "[^A-Z0-9]"
    return re.search(known, plain(text)) is not None


# The rules that python-stdnum lacks.

def is_postal_code(text):
    return re.fullmatch("(0[1-9]|[1-4][0-9]|5[0-2])[0-9]{3}", text) is not None


def social_security_control(province, number):
    short = int(number) < 10 ** (len(number) - 1)
    joined = int(province) * 10 ** (len(number) - short) + int(number)
    return f"{joined % 97:02}"


def is_social_security(text, length):
    return (re.fullmatch(f"[0-9]{{{length + 4}}}", text) is not None and text[:2] != "00"
            and text[-2:] == social_security_control(text[:2], text[2:-2]))


def is_personal_nif(text):
    return nif.is_valid(text) and nif.compact(text)[0] in "KLM"


def is_spanish_vat(text):
    return text.strip()[:2].upper() == "ES" and vat.is_valid(text)


# Texts that are right by python-stdnum.

def digits(rng, count):
    return "".join(rng.choices(string.digits, k=count))


def right_dni(rng):
    number = digits(rng, 8)
    return number + dni.calc_check_digit(number)


def right_nie(rng):
    number = rng.choice("XYZ") + digits(rng, 7)
    return number + nie.calc_check_digit(number)


def right_personal_nif(rng):
    number = digits(rng, 7)
    return rng.choice("KLM") + number + dni.calc_check_digit(number)


def right_entity(rng):
    number = rng.choice(ENTITIES) + rng.choice(["00", "01", digits(rng, 2)]) + digits(rng, 5)
    return number + rng.choice(cif.calc_check_digits(number))


def right_nif(rng):
    """Of any holder; now and then with the country of a VAT number."""
    country = "ES" if rng.random() < 0.02 else ""
    return country + rng.choice([right_dni, right_nie, right_personal_nif, right_entity])(rng)


def right_account(rng):
    number = rng.choice(["0000", *(digits(rng, 4) for _ in range(19))]) + digits(rng, 16)
    return number[:8] + ccc.calc_check_digits(number) + number[10:]


def with_controls(country, body, rng=None):
    """Now and then with controls that are right by their remainder but that nobody issues."""
    text = country + iban.calc_check_digits(country + "00" + body) + body
    twin = {"97": "00", "98": "01", "02": "99"}.get(text[2:4])
    return country + twin + body if twin and rng is not None and rng.random() < 0.5 else text


def right_spanish_iban(rng):
    return with_controls("ES", right_account(rng), rng)


def right_iban(rng):
    country, structure = rng.choice(REGISTRY)
    if country == "ES":
        return right_spanish_iban(rng)
    pools = {"n": string.digits, "a": string.ascii_uppercase, "c": LETTERS_AND_DIGITS}
    body = "".join("".join(rng.choices(pools[kind], k=int(count)))
                   for count, kind in re.findall("([0-9]+)!([nac])", structure))
    return rng.choice(["", "", "", "IBAN"]) + with_controls(country, body, rng)


def right_bic(rng):
    party = "".join(rng.choices(rng.choice([string.ascii_uppercase, LETTERS_AND_DIGITS]), k=4))
    country = rng.choice(["ES", "DE", "US", "XK", "".join(rng.choices(string.ascii_uppercase, k=2))])
    return party + country + "".join(rng.choices(LETTERS_AND_DIGITS, k=rng.choice([2, 5])))


def right_creditor(rng):
    country = rng.choice(["ES", "ES", "DE", "FR", "US"])
    business = "".join(rng.choices(LETTERS_AND_DIGITS, k=3))
    national = right_nif(rng) if country == "ES" and rng.random() < 0.8 else "".join(
        rng.choices(LETTERS_AND_DIGITS, k=rng.choice([1, 9, 11, 28, 29])))
    whole = with_controls(country, national, rng)
    return whole[:4] + business + whole[4:]


def right_cups(rng):
    number = "ES" + digits(rng, 16)
    point = rng.choice(["", rng.choice(string.digits) + rng.choice("FPRCXYZ")])
    return number + cups.calc_check_digits(number + "TT") + point


def right_cadastral(rng):
    town = digits(rng, 7) + "".join(rng.choices(string.ascii_uppercase + "\u00d1", k=2)) + digits(rng, 4) + "S"
    country = digits(rng, 5) + rng.choice("AB") + digits(rng, 8)
    body = rng.choice([town, country, "".join(rng.choices(LETTERS_AND_DIGITS, k=14))]) + digits(rng, 4)
    return body + referenciacatastral.calc_check_digits(body + "TT")


def right_social_security(rng, length):
    province = f"{rng.randrange(100):02}"
    number = rng.choice(["0", "00", ""]) + digits(rng, length)
    return province + number[:length] + social_security_control(province, number[:length])


def right_ean(rng):
    number = rng.choice([digits(rng, rng.choice([12] * 6 + [7, 11, 13]))] * 30 + ["0" * 12])
    return number + ean.calc_check_digit(number)


def right_card(rng):
    number = rng.choice([digits(rng, rng.choice([15] * 6 + [10, 11, 18, 19]))] * 30 + ["0" * 15])
    return number + luhn.calc_check_digit(number)


Kind = collections.namedtuple("Kind", "name number right oracle")
KINDS = [
    Kind("nif", 1, right_nif, nif.is_valid),
    Kind("dni", 2, right_dni, dni.is_valid),
    Kind("nie", 3, right_nie, nie.is_valid),
    Kind("personal nif", 4, right_personal_nif, is_personal_nif),
    Kind("entity nif", 5, right_entity, cif.is_valid),
    Kind("ccc", 6, right_account, ccc.is_valid),
    Kind("iban", 7, right_iban, iban.is_valid),
    Kind("spanish iban", 7, right_spanish_iban, es_iban.is_valid),
    Kind("bic", 8, right_bic, bic.is_valid),
    Kind("creditor", 9, right_creditor, at_02.is_valid),
    Kind("vat", 10, lambda rng: "ES" + right_nif(rng), is_spanish_vat),
    Kind("social security", 11, lambda rng: right_social_security(rng, 8),
         lambda text: is_social_security(text, 8)),
    Kind("contribution account", 12, lambda rng: right_social_security(rng, 7),
         lambda text: is_social_security(text, 7)),
    Kind("postal code", 13, lambda rng: digits(rng, 5), is_postal_code),
    Kind("cups", 14, right_cups, cups.is_valid),
    Kind("cadastral reference", 15, right_cadastral, referenciacatastral.is_valid),
    Kind("payment card", 16, right_card, luhn.is_valid),
    Kind("ean13", 17, right_ean, ean.is_valid),
]
NIF_KINDS = ("nif", "entity nif", "vat", "creditor")
ACCOUNT_KINDS = ("ccc", "iban", "spanish iban")
IBAN_KINDS = ("iban", "spanish iban")
EVERY_KIND = tuple(kind.name for kind in KINDS)
OURS, THEIRS = "kovrel", "python-stdnum"


def has_wrong_form(text):
    """Whether an entity's control is a letter where the rule asks for a digit, or the reverse."""
    if not re.fullmatch(f"[{ENTITIES}][0-9]{{7}}[0-9A-J]", text):
        return False
    needs_letter = text[0] in "NPQRSW" or text[1:3] == "00"
    needs_digit = text[0] in "ABEH" and not needs_letter
    return needs_digit and text[-1].isalpha() or needs_letter and text[-1].isdigit()


def bare(text):
    """A text in plain form, without the word IBAN."""
    return re.sub("^(IBAN)+", "", plain(text))


# Who takes a text that the other refuses, why, by what source, and for which texts (in plain form) of
# which kinds. The first that applies counts.
Difference = collections.namedtuple("Difference", "name kinds takes applies source")
DIFFERENCES = [
    Difference("characters of other scripts, and signs", EVERY_KIND, THEIRS,
               lambda text, kind: is_foreign(text, kind),
               "stdnum turns typographic signs and digits of other scripts into ASCII, and letters "
               "into their Unicode capitals; the laws and standards know A to Z and 0 to 9 only (the Catastro also Ñ)"),
    Difference("an m is no separator", ("creditor",), None,
               lambda text, kind: "m" in text and kind.oracle(plain(text)) != kind.oracle(text),
               "stdnum's list of separators of the creditor identifier contains the letter m, by mistake"),
    Difference("separators", EVERY_KIND, None,
               lambda text, kind: plain(text) != text.upper()
               and kind.oracle(plain(text)) != kind.oracle(text),
               "tab, point, slash, no-break blanks and hyphens other than the ASCII one are what forms "
               "and text processors write; stdnum takes blanks and hyphens (none in cards)"),
    Difference("control of an entity", NIF_KINDS, THEIRS,
               lambda text, kind: has_wrong_form(plain(text)[{"vat": 2, "creditor": 7}.get(kind.name, 0):]),
               "Orden EHA/451/2008 and the Agencia Tributaria: A, B, E and H have a digit, N, P, Q, R, S, "
               "W and figures 00 a letter; stdnum takes either for all"),
    Difference("ES in front of a NIF", ("nif", "personal nif"), THEIRS,
               lambda text, kind: plain(text).startswith("ES") and kind.oracle(plain(text)[2:]),
               "Directive 2006/112/EC, article 215: with ES it is a VAT number, a kind of its own"),
    Difference("no bank has the number 0000", ACCOUNT_KINDS, THEIRS,
               lambda text, kind: re.match("(ES[0-9]{2})?0000", bare(text)),
               "Registro de Entidades of the Banco de España"),
    Difference("the word IBAN in front", IBAN_KINDS, OURS,
               lambda text, kind: bare(text) != plain(text) and kind.oracle(bare(text)),
               "ISO 13616-1:2020, printed form; it is what people copy"),
    Difference("controls 00, 01 and 99", (*IBAN_KINDS, "creditor"), THEIRS,
               lambda text, kind: bare(text)[2:4] in ("00", "01", "99"),
               "ISO 7064 MOD 97-10 and ISO 13616-1:2020: controls run from 02 to 98"),
    Difference("countries that joined the registry later", ("iban",), OURS,
               lambda text, kind: bare(text)[:2] in ("FK", "HN", "MN", "NI", "OM", "SO", "YE")
               and mod_97_10.is_valid(bare(text)[4:] + bare(text)[:4]),
               "IBAN Registry, Release 99 (December 2024); stdnum 1.18 has one of 2022"),
    Difference("national controls of Belgium, Montenegro and Norway", ("iban",), OURS,
               lambda text, kind: bare(text)[:2] in ("BE", "ME", "NO")
               and iban.is_valid(bare(text), check_country=False),
               "not part of the registry; stdnum also has a list of Belgian banks, which changes"),
    Difference("digits in a bank's four characters", ("bic",), OURS,
               lambda text, kind: bic.is_valid(re.sub("[0-9]", "A", plain(text)[:4]) + plain(text)[4:]),
               "ISO 9362:2014 and 2022: four letters or digits"),
    Difference("country of a BIC", ("bic",), THEIRS,
               lambda text, kind: plain(text)[4:6] not in COUNTRIES,
               "ISO 9362:2022: a code of ISO 3166-1, or XK; stdnum takes any two letters"),
    Difference("country of a creditor", ("creditor",), THEIRS,
               lambda text, kind: plain(text)[:2] not in SEPA,
               "EPC262-08 and EPC409-09: countries of the scheme; stdnum takes any two characters"),
    Difference("length of a creditor identifier", ("creditor",), THEIRS,
               lambda text, kind: not 8 <= len(plain(text)) <= 35,
               "EPC262-08: 7 characters and a national identifier, at most 35 in all"),
    Difference("letters as controls", (*IBAN_KINDS, "creditor"), THEIRS,
               lambda text, kind: not plain(text)[2:4].isdigit(),
               "ISO 13616-1:2020 and EPC262-08: two digits; stdnum counts letters there too"),
    Difference("Spanish creditors are named by their NIF", ("creditor",), THEIRS,
               lambda text, kind: plain(text)[:2] == "ES" and not (
                   re.fullmatch("[A-Z0-9]{9}", plain(text)[7:]) and nif.is_valid(plain(text)[7:])),
               "EPC262-08, Spain: the national identifier is the NIF; stdnum does not look at it"),
    Difference("EAN of 8, 12 and 14 digits", ("ean13",), THEIRS,
               lambda text, kind: len(plain(text)) in (8, 12, 14),
               "GS1 General Specifications: GTIN-8, GTIN-12 and GTIN-14 are other numbers"),
    Difference("length of a card number", ("payment card",), THEIRS,
               lambda text, kind: not 12 <= len(plain(text)) <= 19,
               "ISO/IEC 7812-1:2017: at most 19 digits, and issuers use at least 12"),
    Difference("zeros alone", ("ean13", "payment card"), THEIRS,
               lambda text, kind: set(plain(text)) == {"0"},
               "GS1 and ISO/IEC 7812-1 assign no such number; it is an empty field"),
]


def damaged(rng, text):
    for _ in range(rng.choice([1, 1, 1, 2, 3])):
        place = rng.randrange(len(text) + 1)
        kind = rng.randrange(6)
        sign = rng.choice(rng.choice([string.digits, string.digits, string.ascii_letters, ODD]))
        if kind == 0:
            text = text[:place] + sign + text[place:]
        elif kind == 1:
            text = text[:place] + text[place + 1:]
        elif kind == 2:
            text = text[:place] + text[place:place + 2][::-1] + text[place + 2:]
        else:
            text = text[:place] + sign + text[place + 1:]
    return text


def written(rng, text):
    """In small letters, with separators, or both."""
    if rng.random() < 0.5:
        text = text.lower()
    if rng.random() < 0.7:
        width, sign = rng.choice([1, 2, 3, 4, 4, 8]), rng.choice(" -  ./\t\u00a0\u2011")
        text = sign.join(text[i:i + width] for i in range(0, len(text), width))
    return text


def senseless(rng):
    pool = rng.choice([string.digits, LETTERS_AND_DIGITS, LETTERS_AND_DIGITS + ODD])
    return "".join(rng.choices(pool, k=rng.randrange(40)))


def texts_of(kind, count):
    rng = random.Random(f"2008 {kind.name}")  # fixed: every run compares the same texts
    for _ in range(count):
        chance = rng.random()
        text = kind.right(rng) if chance < 0.9 else senseless(rng)
        if 0.35 < chance < 0.6:
            text = written(rng, text)
        elif 0.6 <= chance < 0.9:
            text = damaged(rng, text)
        yield re.sub("[\n\r]", "", text)


def explanation(kind, text, ours):
    """The difference that applies; nothing when the two agree."""
    theirs = kind.oracle(text)
    if ours == theirs:
        return None
    for difference in DIFFERENCES:
        takes = OURS if ours else THEIRS
        if kind.name in difference.kinds and difference.takes in (takes, None) \
                and difference.applies(text, kind):
            return difference.name
    return "not explained"


def compare(cli, count):
    used, unexplained, compared = collections.Counter(), 0, 0
    for kind in KINDS:
        texts = list(texts_of(kind, count))
        lines = "".join(f"{kind.number}\t{text}\n" for text in texts)
        output = subprocess.run([cli], input=lines.encode(), check=True, stdout=subprocess.PIPE).stdout
        answers = output.decode().split("\n")[:-1]
        assert len(answers) == len(texts)
        taken = 0
        for text, answer in zip(texts, answers):
            ours = answer == FAULTLESS
            if kind.name == "spanish iban":
                ours = ours and bare(text).startswith("ES")
            taken += ours
            name = explanation(kind, text, ours)
            used[name] += name is not None
            if name == "not explained":
                unexplained += 1
                if unexplained <= 20:
                    print(f"{kind.name} {text!r}: fault {answer}, python-stdnum {kind.oracle(text)}")
        compared += len(texts)
        print(f"{kind.name}: {len(texts)} texts, {taken} right", flush=True)
        # Neither all nor none: both answers have been compared.
        assert len(texts) / 10 < taken < len(texts) * 9 / 10
    for difference in DIFFERENCES:
        print(f"{used[difference.name]:8} {difference.name}: {difference.source}")
    unused = [difference.name for difference in DIFFERENCES if not used[difference.name]]
    print(f"{compared} texts compared, {unexplained} differ without a reason, unused: {unused}")
    return not unexplained and not unused


def compare_registry(registry):
    """With that of python-stdnum: its 82 countries, two of them in other words, and seven more."""
    def form(structure):
        return "".join(kind * int(count) for count, kind in re.findall("([0-9]+)!([nac])", structure))

    theirs = {}
    for country in (a + b for a in string.ascii_uppercase for b in string.ascii_uppercase):
        info = numdb.get("iban").info(country)[0][1]
        if info:
            theirs[country] = form(info["bban"])
    ours = {country: form(structure) for country, structure in registry}
    later = sorted(ours.keys() - theirs.keys())
    wrong = [country for country in theirs if ours.get(country) != theirs[country]]
    print(f"{len(ours)} countries in the registry, {len(theirs)} in python-stdnum's; "
          f"only here: {later}; different: {wrong}")
    return not wrong and later == ["FK", "HN", "MN", "NI", "OM", "SO", "YE"]


def countries():
    with open("/usr/share/zoneinfo/iso3166.tab", encoding="utf-8") as file:
        return {line[:2] for line in file if not line.startswith("#")} | {"XK"}


COUNTRIES = countries()
REGISTRY = [tuple(line.split()) for line in subprocess.run(
    [sys.argv[1], "--registry"], check=True, stdout=subprocess.PIPE, text=True).stdout.splitlines()]

if __name__ == "__main__":
    same_registry = compare_registry(REGISTRY)
    same_answers = compare(sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 100_000)
    sys.exit(0 if same_registry and same_answers else 1)

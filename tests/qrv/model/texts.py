"""Characters, numbers and cells."""

import math
import re
import struct
from decimal import Decimal
from fractions import Fraction


def character(byte):
    try:
        return bytes([byte]).decode("cp1252")
    except UnicodeDecodeError:
        return chr(byte)


TO_UNICODE = [character(byte) for byte in range(256)]
FROM_UNICODE = {text: byte for byte, text in enumerate(TO_UNICODE)}


def utf8(data):
    return "".join(TO_UNICODE[byte] for byte in data).encode("utf-8")


def flat(data):
    """Without tabs, line breaks and form feeds."""
    return re.sub(rb"[\t-\r]", b" ", data)


def one_line(data):
    """Without control characters."""
    return re.sub(rb"[\x00-\x1f\x7f]", b" ", data)


LEADING_NUMBER = re.compile(rb"[ \t]*([+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+))")


def number_in(text):
    """The leading number of a text, exactly."""
    found = LEADING_NUMBER.match(text)
    return Fraction(Decimal(found.group(1).decode())) if found else Fraction(0)


def entered(text):
    """The score that is kept of a typed number: no sign, rounded up from one half on."""
    number = Decimal(text.decode()).copy_abs()
    whole = math.floor(Fraction(number))
    if Fraction(number) - whole >= Fraction(1, 2):
        return b"%d" % (whole + 1)
    kept = format(number, "f")
    kept = kept.rstrip("0").rstrip(".") if "." in kept else kept
    kept = kept.lstrip("0")
    return (kept if kept and kept[0] != "." else "0" + kept).encode()


def half_even(number):
    return round(number)


def cut(number):
    return math.floor(number)


def tenths(number):
    """A whole number of tenths as text."""
    sign = "-" if number < 0 else ""
    whole, rest = divmod(abs(number), 10)
    return (f"{sign}{whole}.{rest}" if rest else f"{sign}{whole}").encode()


def real_text(number, single):
    if math.isnan(number) or math.isinf(number) or number == 0:
        return b"0"
    if single:
        digits = 1
        while struct.unpack("<f", struct.pack("<f", float(f"{number:.{digits - 1}e}")))[0] != number:
            digits += 1
        shortest = f"{number:.{digits - 1}e}"
    else:
        shortest = repr(number)
    text = format(Decimal(shortest), "f")
    if "." in text:
        text = text.rstrip("0").rstrip(".")
    return text.encode()


# A cell is None, ("i", int), ("f", float), ("d", float) or bytes.


def cell_text(cell):
    if cell is None:
        return b""
    if isinstance(cell, bytes):
        return cell
    kind, number = cell
    return str(number).encode() if kind == "i" else real_text(number, kind == "f")


def is_excused(cell):
    return cell == b"E"


def cell_number(cell):
    """A text that is not wholly a number counts as 0."""
    text = cell_text(cell)
    found = LEADING_NUMBER.match(text)
    return number_in(text) if found and not text[found.end() :].strip(b" \t") else Fraction(0)

"""Numbers as they are typed and stored."""

import math
from decimal import Decimal
from fractions import Fraction

from model.texts import half_even, number_in

__all__ = ["entered_score", "half_even", "number_in", "number_text", "rounded_up"]


def number_text(number):
    """The decimal text of a number that was typed: no exponent, no zeros that say nothing."""
    if number.denominator == 1:
        return b"%d" % number.numerator
    exact = Decimal(number.numerator) / Decimal(number.denominator)
    return format(exact.normalize(), "f").encode()


def rounded_up(number):
    """A half and more goes to the next whole number; a smaller fraction stays."""
    whole = math.floor(number)
    return Fraction(whole + 1) if number - whole >= Fraction(1, 2) else number


def entered_score(text):
    """What an entered text becomes: "E", or the text of a number that is not negative."""
    if text.upper() == b"E":
        return b"E"
    return number_text(rounded_up(abs(number_in(text))))

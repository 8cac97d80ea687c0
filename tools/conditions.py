"""Which branches that gcov tells of are ways of a condition that somebody wrote.

gcov tells of every arc that leaves a place in the machine code. Left out are

- the two arcs behind a call that may throw: returning and throwing are no condition of the caller's;
- arcs of statements without a condition: what the compiler makes of a defaulted comparison, of a
  temporary to be destroyed, of the guard of a static, of the choice of a catch;
- both arcs of a condition that was never come to in a line that ran: the condition before it, which
  always went the other way, counts, and so do the lines behind it.

Every other arc counts, and every arc that may belong to a condition in a line that never ran. Where a
condition decides whether there is a temporary, its destruction counts like one more condition.
"""

import re

CONDITION = re.compile(r"\b(?:if|while|for|switch|case|do)\b|\?|&&|\|\||[=!<>]=| [<>] ")
NO_CONDITION = re.compile(r"= default;|^\s*\} catch \(")
LITERAL = re.compile(r'R"\(.*?\)"|"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])+\'|//.*$')


def has_condition(source, number):
    """Whether the statement that line `number` (from 1) belongs to holds a condition."""
    first = last = number - 1
    bare = [LITERAL.sub("0", source[first])]
    if NO_CONDITION.search(bare[0]):
        return False
    while first > 0 and not ends_statement(source[first - 1]):
        first -= 1
        bare.insert(0, LITERAL.sub("0", source[first]))
    while last + 1 < len(source) and not ends_statement(source[last]):
        last += 1
        bare.append(LITERAL.sub("0", source[last]))
    return CONDITION.search(" ".join(bare)) is not None


def ends_statement(line):
    text = LITERAL.sub("0", line).rstrip()
    return text == "" or text.endswith((";", "{", "}", ":")) or text.lstrip().startswith("#")


def ways(arcs):
    """The counts of the ways of each condition among the arcs of one line in one function."""
    conditions = []
    several = []  # the cases of a switch, none of which is the next instruction
    at = 0
    while at < len(arcs):
        arc = arcs[at]
        following = arcs[at + 1] if at + 1 < len(arcs) else None
        if following and (arc["throw"] or following["throw"]):
            at += 2
        elif following and arc["fallthrough"] != following["fallthrough"]:
            conditions.append((arc["count"], following["count"]))
            at += 2
        else:
            if not arc["throw"] and not arc["fallthrough"]:
                several.append(arc["count"])
            at += 1
    if several:
        conditions.append(tuple(several))
    return conditions


def added(some, others):
    """The counts of both, where they are of the same conditions; else one behind the other."""
    if [len(condition) for condition in some] != [len(condition) for condition in others]:
        return some + others
    return [tuple(map(sum, zip(*pair))) for pair in zip(some, others)]


def counted(conditions, line_count):
    """The counts of the ways that count in a line that ran so often."""
    return [count for condition in conditions for count in condition
            if line_count == 0 or any(condition)]

"""Lists the small mistakes that could be made in a C++ source, one at a time.

The sources are laid out by clang-format, which is what tells a comparison from a bracket: only an
operator between two values has blanks on both sides.
"""

import re
from dataclasses import dataclass

TOKEN = re.compile(
    r"""
    (?P<skip>//[^\n]*|/\*.*?\*/|^[ \t]*\#(?:\\\n|[^\n])*)
    |(?P<raw>R"(?P<mark>[^(]*)\(.*?\)(?P=mark)")
    |(?P<text>"(?:\\.|[^"\\\n])*")
    |(?P<char>'(?:\\.[^']*|[^'\\\n])')
    |(?P<number>\.?\d(?:'?[\w.])*)
    |(?P<name>[A-Za-z_]\w*)
    |(?P<sign><=>|->\*|<<=|>>=|\.\.\.|::|->|\+\+|--|<<|>>|[-+*/%&|^=!<>]=|&&|\|\||[^\s\w])
    """,
    re.VERBOSE | re.DOTALL | re.MULTILINE,
)

INSTEAD = {
    "==": ["!="], "!=": ["=="],
    "<": ["<=", ">"], "<=": ["<", ">"], ">": [">=", "<"], ">=": [">", "<"],
    "+": ["-"], "-": ["+"], "*": ["+"], "/": ["*"], "%": ["*"],
    "+=": ["-="], "-=": ["+="],
    "&&": ["||"], "||": ["&&"], "&": ["|"], "|": ["&"], "<<": [">>"], ">>": ["<<"],
}
# Where they begin a statement, it is none that can be left out.
NO_STATEMENT = set(
    "alignas auto bool break case catch char class const constexpr continue default do double else "
    "enum explicit extern float for friend goto if inline int long namespace operator private "
    "protected public return short signed static static_assert struct switch template try typedef "
    "typename union unsigned using virtual void volatile while".split())
# Room that is made beforehand changes nothing but the time.
NO_BEHAVIOUR = re.compile(r"\b(reserve|shrink_to_fit)\(")


@dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int
    end: int


@dataclass(frozen=True)
class Mutant:
    file: str
    line: int
    start: int
    end: int
    old: str
    new: str

    def change(self):
        old = " ".join(self.old.split())
        if not self.new:
            return f"without {old}"
        return f"{old} becomes {self.new}"

    def applied_to(self, code):
        return code[:self.start] + self.new + code[self.end:]


def tokens_of(code):
    tokens = []
    for found in TOKEN.finditer(code):
        kind = found.lastgroup if found.lastgroup != "mark" else "raw"
        if kind != "skip":
            tokens.append(Token(kind, found.group(), found.start(), found.end()))
    return tokens


def closing(tokens, opening):
    """The index of what closes the bracket at that index."""
    pairs = {"(": ")", "{": "}", "[": "]"}
    wanted, depth = pairs[tokens[opening].text], 0
    for index in range(opening, len(tokens)):
        if tokens[index].text == tokens[opening].text:
            depth += 1
        elif tokens[index].text == wanted:
            depth -= 1
            if depth == 0:
                return index
    return len(tokens) - 1


def operators(code, tokens):
    for token in tokens:
        between = code[token.start - 1:token.start].isspace() and code[token.end:token.end + 1].isspace()
        if token.kind == "sign" and between:
            for new in INSTEAD.get(token.text, []):
                yield token.start, token.end, new
        elif token.text in ("++", "--"):
            yield token.start, token.end, "--" if token.text == "++" else "++"
        elif token.text == "!":
            yield token.start, token.end, ""


def values(tokens):
    for token in tokens:
        if token.kind == "number":
            yield token.start, token.end, f"({token.text} + 1)"
            yield token.start, token.end, f"({token.text} - 1)"
        elif token.kind == "text":
            yield token.start, token.end, '"x' + token.text[1:]
        elif token.kind == "char" and token.text[1].isalnum():
            yield token.start, token.end, f"'{chr(ord(token.text[1]) + 1)}'"
        elif token.text in ("true", "false"):
            yield token.start, token.end, "false" if token.text == "true" else "true"


def conditions(tokens):
    for index, token in enumerate(tokens):
        if token.text not in ("if", "while") or tokens[index + 1].text != "(":
            continue
        end = closing(tokens, index + 1)
        first = index + 2
        for inner in range(first, end):
            if tokens[inner].text == ";":
                first = inner + 1
        if any(inner.text == "=" for inner in tokens[first:end]):
            continue
        for new in ("true", "false") if token.text == "if" else ("false",):
            yield tokens[first].start, tokens[end].start, new


def is_call_or_assignment(tokens, index):
    """Whether a statement that does something, and declares nothing, begins at that index."""
    while tokens[index].text in ("++", "--", "*", "::"):
        index += 1
    if tokens[index].kind != "name" or tokens[index].text in NO_STATEMENT:
        return False
    while tokens[index + 1].text == "::":
        index += 2
    return tokens[index + 1].text in (".", "->", "(", "[", "=", "+=", "-=", "*=", "/=", "|=", "&=",
                                      "++", "--", ";")


def statements(code, tokens):
    bodies = []
    begin = 0
    for index, token in enumerate(tokens[:-1]):
        if token.text == "{":
            words = {inner.text for inner in tokens[begin:index]}
            bodies.append(not words & {"namespace", "class", "struct", "enum", "union"})
        elif token.text == "}" and bodies:
            bodies.pop()
        ends_head = token.text == ")" and tokens[begin].text in ("if", "for", "while", "else")
        if token.text in ("{", "}", ";", "else") or ends_head:
            if token.text != "else" and not ends_head:
                begin = index + 1
            following = index + 1
            if bodies and bodies[-1] and is_call_or_assignment(tokens, following):
                end = following
                while end < len(tokens) and tokens[end].text not in (";", "}"):
                    end = closing(tokens, end) + 1 if tokens[end].text in "({[" else end + 1
                if end < len(tokens) and tokens[end].text == ";":
                    text = code[tokens[following].start:tokens[end].start]
                    if not NO_BEHAVIOUR.search(text):
                        yield tokens[following].start, tokens[end].start, ""


def mutants_of(file, code):
    tokens = tokens_of(code)
    places = set(operators(code, tokens)) | set(values(tokens))
    places |= set(conditions(tokens)) | set(statements(code, tokens))
    return [Mutant(file, code.count("\n", 0, start) + 1, start, end, code[start:end], new)
            for start, end, new in sorted(places)]

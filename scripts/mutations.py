"""The small mistakes that scripts/mutate.py makes in a C++ source: what they are, and where they fit.

The source is read as tokens, not parsed: a change that makes no sense does not compile and is left out there.
"""

import bisect
import dataclasses
import random
import re

TOKEN = re.compile(
    r"""(?P<space>\s+|\\\n|//[^\n]*|/\*.*?\*/)
      | (?P<text>"(?:\\.|[^"\\\n])*"|'(?:\\.|[^'\\\n])*')
      | (?P<number>(?:0[xX][0-9a-fA-F']+|(?:\d[\d']*\.?[\d']*|\.\d+)(?:[eE][+-]?\d+)?)[uUlLfF]*)
      | (?P<word>[A-Za-z_]\w*)
      | (?P<sign><<=|>>=|->\*|\.\.\.|::|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|[^\s\w])""",
    re.VERBOSE | re.DOTALL)

# What an operator is mistaken for.
OPERATORS = {
    "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["*"],
    "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"], "==": ["!="], "!=": ["=="],
    "&&": ["||"], "||": ["&&"], "&": ["|"], "|": ["&"], "^": ["|"], "<<": [">>"], ">>": ["<<"],
    "+=": ["-="], "-=": ["+="], "*=": ["/="], "/=": ["*="], "|=": ["&="], "&=": ["|="],
    "++": ["--"], "--": ["++"], "!": [""], "~": [""],
}
WORDS = {"true": "false", "false": "true", "break": "continue", "continue": "break", "min": "max", "max": "min"}
CONTROLS = {"if", "for", "while", "switch", "catch"}
CLOSERS = {"(": ")", "[": "]", "{": "}"}


@dataclasses.dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int

    @property
    def end(self):
        return self.start + len(self.text)


@dataclasses.dataclass(frozen=True, order=True)
class Mutation:
    """A piece of a source and what it is replaced with."""

    start: int
    end: int
    text: str
    kind: str

    def apply(self, source):
        return source[: self.start] + self.text + source[self.end :]


def read_tokens(source):
    """The tokens of a source without comments and lines of the preprocessor."""
    plain = re.sub(r"^[ \t]*#(?:[^\n]*\\\n)*[^\n]*", lambda match: re.sub(r"[^\n]", " ", match.group()), source,
                   flags=re.MULTILINE)
    return [Token(match.lastgroup, match.group(), match.start())
            for match in TOKEN.finditer(plain) if match.lastgroup != "space"]


class Finder:
    """Finds every mutation of a source."""

    def __init__(self, source):
        self.source = source
        self.tokens = read_tokens(source)
        self.closer = self._pair_brackets()

    def _pair_brackets(self):
        closer, open_ones = {}, []
        for index, token in enumerate(self.tokens):
            if token.kind == "sign" and token.text in CLOSERS:
                open_ones.append(index)
            elif token.kind == "sign" and token.text in CLOSERS.values() and open_ones:
                closer[open_ones.pop()] = index
        return closer

    def find(self):
        found = set()
        for index, token in enumerate(self.tokens):
            if token.kind == "number":
                found.update(self._constants(token))
            elif token.kind == "word" and token.text in WORDS:
                found.add(Mutation(token.start, token.end, WORDS[token.text], "constant"))
            elif token.kind == "sign":
                found.update(self._operators(index))
                found.update(self._conditions(index))
                found.update(self._argument_orders(index))
            found.update(self._statements(index))
        return sorted(found)

    def _text(self, first, last):
        """The source from one token to another, both included."""
        return self.source[self.tokens[first].start : self.tokens[last].end]

    def _constants(self, token):
        digits = re.fullmatch(r"(0[xX][0-9a-fA-F]+|\d+)([uUlL]*)", token.text)
        if digits:
            value = int(digits.group(1), 0)
            others = [value + 1] + ([value - 1] if value else [])
            texts = [f"{other}{digits.group(2)}" for other in others]
        else:
            suffix = "f" if token.text[-1] in "fF" else ""
            texts = [f"({token.text} + 1.0{suffix})"]
            if float(token.text.rstrip("fFlL").replace("'", "")) != 0:
                texts.append(f"({token.text} * 1.5{suffix})")
        return [Mutation(token.start, token.end, text, "constant") for text in texts]

    def _operators(self, index):
        token = self.tokens[index]
        before = self.tokens[index - 1] if index else None
        is_operand = before and (before.kind in ("number", "word", "text") or before.text in ")]")
        if token.text in "+-" and not is_operand or before and before.text == "return" and token.text == "-":
            return [Mutation(token.start, token.end, "", "operator")]
        return [Mutation(token.start, token.end, other, "operator") for other in OPERATORS.get(token.text, [])]

    def _conditions(self, index):
        """The conditions of if and while, always met or never, and the two values of ?: exchanged."""
        token = self.tokens[index]
        before = self.tokens[index - 1].text if index else ""
        if token.text == "(" and before in ("if", "while") and index in self.closer:
            start, end = token.end, self.tokens[self.closer[index]].start
            values = ("true", "false") if before == "if" else ("false",)
            return [Mutation(start, end, value, "condition") for value in values]
        if token.text != "?":
            return []
        first = index
        depth = 0
        while first > 0:
            text = self.tokens[first - 1].text
            depth += text in (")", "]", "}")
            depth -= text in CLOSERS
            if depth < 0 or depth == 0 and text in (";", ",", "=", "return", "?", ":", "<<", "+=", "-="):
                break
            first -= 1
        condition = self._text(first, index - 1)
        return [Mutation(self.tokens[first].start, self.tokens[index - 1].end, f"!({condition})", "condition")]

    def _argument_orders(self, index):
        """Two neighbours of a list in parentheses or braces, exchanged."""
        last = self.closer.get(index)
        before = self.tokens[index - 1] if index else None
        if last is None or self.tokens[index].text == "[" or not before or before.text in CONTROLS:
            return []
        arguments, first, inner = [], index + 1, index + 1
        while inner <= last:
            if inner == last or self.tokens[inner].text == ",":
                arguments.append((first, inner - 1))
                first = inner + 1
            elif self.tokens[inner].text == ";":
                return []  # a block
            inner = self.closer.get(inner, inner) + 1
        found = []
        for (a, b), (c, d) in zip(arguments, arguments[1:]):
            if a > b or c > d or self._text(a, b) == self._text(c, d):
                continue
            between = self.source[self.tokens[b].end : self.tokens[c].start]
            text = self._text(c, d) + between + self._text(a, b)
            found.append(Mutation(self.tokens[a].start, self.tokens[d].end, text, "argument order"))
        return found

    def _statements(self, index):
        """A statement left out that begins with the token; one behind a condition leaves an empty one."""
        token = self.tokens[index]
        before = self.tokens[index - 1].text if index else ""
        begins = before in (";", "{", "}", "else") or before == ")" and self._closes_control(index - 1)
        if not begins or token.kind == "sign" and token.text not in ("*", "++", "--", "("):
            return []
        if token.text in CONTROLS | {"else", "return", "do", "case", "default", "using", "namespace", "static_assert",
                                     "struct", "class", "enum", "template", "public", "private", "constexpr"}:
            return []
        last = index
        while last < len(self.tokens) and self.tokens[last].text not in (";", "}"):
            if self.tokens[last].text == "{" and before == "}":
                return []  # a function
            last = self.closer.get(last, last) + 1
        if last >= len(self.tokens) or self.tokens[last].text != ";":
            return []
        if self.tokens[last - 1].text in ("default", "delete"):
            return []
        return [Mutation(token.start, self.tokens[last - 1].end, "", "statement")]

    def _closes_control(self, index):
        opener = next((first for first, last in self.closer.items() if last == index), 0)
        return opener > 0 and self.tokens[opener - 1].text in CONTROLS


def draw(source, generator: random.Random):
    """Yields every mutation of a source once, a random one of a random line at a time, so that a line of many operators
    counts no more than one of a single call."""
    starts = [0] + [match.end() for match in re.finditer("\n", source)]
    lines = {}
    for mutation in Finder(source).find():
        lines.setdefault(bisect.bisect_right(starts, mutation.start), []).append(mutation)
    while lines:
        for line in generator.sample(sorted(lines), len(lines)):
            yield line, lines[line].pop(generator.randrange(len(lines[line])))
        lines = {line: rest for line, rest in lines.items() if rest}

# SPDX-License-Identifier: MIT
"""Finds the changes that can be made to a C++ source: each one alters one operator, constant,
condition, statement or pair of arguments. It reads tokens, not the grammar: what the compiler
refuses is left out later.
"""

import dataclasses
import re

TOKEN = re.compile(
    r"""(?P<gap>\s+|//[^\n]*|/\*.*?\*/|^[ \t]*\#(?:\\\n|[^\n])*)
      | (?P<text>(?:u8|[LuU])?"(?:\\.|[^"\\])*" | (?:u8|[LuU])?'(?:\\.|[^'\\])*')
      | (?P<number>0[xX][\da-fA-F.']+(?:[pP][+-]?\d+)?[uUlLfF]*
                 | \.?\d[\d.']*(?:[eE][+-]?\d+)?[uUlLfF]*)
      | (?P<word>[A-Za-z_]\w*)
      | (?P<sign><<=|>>=|\.\.\.|->\*?|::|\+\+|--|<<|>>|[-+*/%&|^<>=!]=|&&|\|\||.)""",
    re.VERBOSE | re.DOTALL | re.MULTILINE,
)

# Operators between spaces, which tells them from pointers, references and template brackets.
BINARY = {
    "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["/"], "&": ["|"], "|": ["&"],
    "^": ["&"], "<<": [">>"], ">>": ["<<"], "&&": ["||"], "||": ["&&"], "==": ["!="],
    "!=": ["=="], "<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"],
    "+=": ["-="], "-=": ["+="], "*=": ["/="], "/=": ["*="], "&=": ["|="], "|=": ["&="],
}  # fmt: skip
STEPS = {"++": "--", "--": "++"}
NEGATED = {"true": "false", "false": "true"}
CLOSING = {"(": ")", "[": "]", "{": "}"}

# Words that begin no expression statement and are no names of functions.
KEYWORDS = {
    "return", "case", "default", "public", "private", "protected", "else", "do", "goto", "for",
    "while", "switch", "throw", "struct", "class", "enum", "static", "const", "constexpr", "auto",
    "sizeof", "alignof", "alignas", "decltype", "noexcept", "catch", "operator",
}  # fmt: skip
DECLARATION = re.compile(
    r"(?!delete\b)[\w:]+(?:<[^;=()]*>)?(?:\s*\b(?:const)\b|\s*[&*])*\s+[&*]*(?:const\s+)?\w+\s*"
    r"(?:[=;({\[,]|$)"
)


@dataclasses.dataclass(frozen=True)
class Change:
    """Replaces text[start:end] of a file."""

    file: str
    kind: str
    start: int
    end: int
    text: str
    in_body: bool  # of a function: no layout, enumerator or default depends on it


def changes_of(file, source):
    """All changes of a file, in order."""
    reader = Reader(source)
    found = []
    for i, token in enumerate(reader.tokens):
        if i in reader.skipped:
            continue
        for kind, start, end, text in reader.changes_at(i, token):
            found.append(Change(file, kind, start, end, text, "body" in reader.scopes[i]))
    return found


class Reader:
    """The tokens of a source, the scopes they are in, and the changes at each of them."""

    def __init__(self, source):
        self.source = source
        self.tokens = [m for m in TOKEN.finditer(source) if m.lastgroup != "gap"]
        self.partner = self._partners()
        self.opening = {closing: opening for opening, closing in self.partner.items()}
        self.skipped = self._skipped()
        self.scopes = self._scopes()

    def text_at(self, i):
        return self.tokens[i].group() if 0 <= i < len(self.tokens) else ""

    def _partners(self):
        """The position of the closing bracket for each opening one."""
        partner, opened = {}, []
        for i, token in enumerate(self.tokens):
            if token.group() in CLOSING:
                opened.append(i)
            elif token.group() in CLOSING.values() and opened:
                partner[opened.pop()] = i
        return partner

    def _skipped(self):
        """Assertions, friends, using declarations and template parameters."""
        skipped = set()
        for i, token in enumerate(self.tokens):
            if token.group() in ("static_assert", "assert", "friend", "using"):
                end = i
                while self.text_at(end) not in ("", ";", "{"):
                    end += 1
                skipped.update(range(i, end))
            elif token.group() == "template" and self.text_at(i + 1) == "<":
                depth, end = 0, i + 1
                while end < len(self.tokens):
                    depth += self.text_at(end).count("<") - self.text_at(end).count(">")
                    if depth == 0:
                        break
                    end += 1
                skipped.update(range(i, end + 1))
        return skipped

    def _scopes(self):
        """The kinds of the brackets around each token: outer, type, body or list."""
        scopes, around, head = [], [], 0
        for i, token in enumerate(self.tokens):
            text = token.group()
            if text in CLOSING.values() and around:
                around.pop()
            scopes.append(tuple(around))
            if text in CLOSING:
                around.append(self._kind_of_brace(head, i) if text == "{" else "list")
            if text in (";", "{", "}"):
                head = i + 1
        return scopes

    def _kind_of_brace(self, head, brace):
        words = [t.group() for t in self.tokens[head:brace]]
        last = words[-1] if words else ""
        if "namespace" in words or "extern" in words:
            return "outer"
        if last != ")" and {"class", "struct", "union", "enum"} & set(words):
            return "type"
        if not words or last in (")", "]", "const", "noexcept", "override", "else", "do", "try"):
            return "body"
        return "body" if ")" in words and words[words.index(")") + 1 :][:1] == ["->"] else "list"

    def changes_at(self, i, token):
        """(kind, start, end, replacement) of each change that begins with the token."""
        text, kind, others = token.group(), "operator", []
        if token.lastgroup == "number":
            kind, others = "constant", other_numbers(text)
        elif text in NEGATED:
            kind, others = "constant", [NEGATED[text]]
        elif text in STEPS:
            others = [STEPS[text]]
        elif text in ("-", "!") and self._is_prefix(i):
            others = [""]
        elif text in BINARY and self._stands_alone(token):
            others = BINARY[text]
        yield from ((kind, token.start(), token.end(), other) for other in others)
        if text in ("if", "while") and self.text_at(i + 1) == "(":
            yield from self._conditions(i, text)
        if token.lastgroup == "word" or text in ("*", "++", "--", "("):
            yield from self._statement(i)
        if token.lastgroup == "word" and "body" in self.scopes[i]:
            yield from self._swaps(i)

    def _is_prefix(self, i):
        token, before = self.tokens[i], self.text_at(i - 1)
        begins = self.source[token.start() - 1].isspace() or before in ("(", "[", "{", "!", "-")
        return begins and not self.source[token.end()].isspace() and before != "operator"

    def _stands_alone(self, token):
        return self.source[token.start() - 1].isspace() and self.source[token.end()].isspace()

    def _conditions(self, i, word):
        first, last = self.tokens[i + 1].end(), self.tokens[self.partner[i + 1]].start()
        condition = self.source[first:last]
        if ";" in condition:
            return
        yield "condition", first, last, "false"
        if word == "if":
            yield "condition", first, last, "true"
            yield "condition", first, last, f"!({condition})"

    def _statement(self, i):
        """Leaves out a statement: an expression, or an `if` without braces."""
        if not self.scopes[i] or self.scopes[i][-1] != "body" or not self._begins_statement(i):
            return
        word = self.text_at(i)
        if word in KEYWORDS or self.text_at(i + 1) == "constexpr":
            return
        end = i
        while self.text_at(end) != ";":
            if self.text_at(end) == "{" and word == "if":
                return
            end = self.partner.get(end, end) + 1
            if end >= len(self.tokens) or self.text_at(end) == "}":
                return
        start, stop = self.tokens[i].start(), self.tokens[end].start()
        if not DECLARATION.match(self.source[start : stop + 1]) or word == "if":
            yield "statement", start, stop, ""

    def _begins_statement(self, i):
        before = self.text_at(i - 1)
        if before != ")":
            return before in (";", "{", "}", "else", "do")
        return self.text_at(self.opening[i - 1] - 1) in ("if", "for", "while")

    def _swaps(self, i):
        """Exchanges neighbouring arguments of a call or of a list after a word."""
        opening = i + 1
        if self.text_at(opening) not in ("(", "{") or self.text_at(i) in KEYWORDS | {"if"}:
            return
        commas, at = [opening], opening + 1
        while at < self.partner.get(opening, opening):
            if self.text_at(at) == ";":
                return
            if self.text_at(at) == ",":
                commas.append(at)
            at = self.partner.get(at, at) + 1
        commas.append(at)
        for before, comma, after in zip(commas, commas[1:], commas[2:]):
            start, end = self.tokens[before + 1].start(), self.tokens[after - 1].end()
            first = self.source[start : self.tokens[comma - 1].end()]
            second = self.source[self.tokens[comma + 1].start() : end]
            if first != second and "{" not in first + second:
                yield "arguments", start, end, f"{second}, {first}"


def other_numbers(text):
    """The neighbours of a whole number, or a real number that differs slightly."""
    digits = text.replace("'", "").lower()
    is_hex = digits.startswith("0x")
    if not is_hex and re.search(r"[.ef]", digits) or "p" in digits:
        suffix = "f" if digits.endswith("f") and not is_hex else ""
        digits = digits.rstrip("fl")
        value = float.fromhex(digits) if is_hex else float(digits)
        if value == 0.0:
            changed = 1e-07
        elif value < 1e-3:
            changed = value * 1.1
        else:
            changed = value * (1.000001 if suffix else 1.0000001)
        return [repr(changed) + suffix] if changed != float("inf") else []
    suffix = re.search(r"[ul]*$", digits).group()
    value = int(digits.removesuffix(suffix), 0)
    if value == 0:
        return ["1" + suffix] if "u" in suffix else ["1" + suffix, "-1" + suffix]
    return [str(value + 1) + suffix, str(value - 1) + suffix]

"""The tokens of a C++ source, as far as the places of mutants need them."""

import re
from typing import NamedTuple

TOKEN = re.compile(
    r"""
    (?P<comment>//[^\n]*|/\*.*?\*/)
  | (?P<directive>^[ \t]*\#(?:[^\n\\]|\\.|\\\n)*)
  | (?P<text>(?:u8|[uUL])?R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)"|(?:u8|[uUL])?"(?:[^"\\\n]|\\.)*"
            |(?:u8|[uUL])?'(?:[^'\\\n]|\\.)+')
  | (?P<number>\.?\d(?:[eEpP][+-]|'[0-9a-fA-F]|[\w.])*)
  | (?P<word>[A-Za-z_]\w*)
  | (?P<sign><=>|->\*|<<=|>>=|\.\.\.|::|->|\+\+|--|&&|\|\||[<>=!+\-*/%&|^]=|<<|[^\s\w])
    """,
    re.VERBOSE | re.MULTILINE | re.DOTALL,
)

OPENING = {"(": ")", "[": "]", "{": "}"}
CLOSING = {closing: opening for opening, closing in OPENING.items()}
TYPE_WORDS = {"class", "struct", "union", "enum"}


class Token(NamedTuple):
    kind: str
    text: str
    start: int
    end: int


class Source:
    """A source text with its tokens (comments and directives left out) and their brackets.

    `partner[i]` is the token that closes or opens bracket `i`; `inside[i]` the bracket around token
    `i`, -1 for none.
    """

    def __init__(self, text: str):
        self.text = text
        self.tokens = [
            Token(match.lastgroup if match.lastgroup != "mark" else "text", match.group(), *match.span())
            for match in TOKEN.finditer(text)
            if match.lastgroup not in ("comment", "directive")
        ]
        self.partner: dict[int, int] = {}
        self.inside: list[int] = []
        open_brackets: list[int] = []
        for index, token in enumerate(self.tokens):
            if token.kind == "sign" and token.text in CLOSING and open_brackets:
                opened = open_brackets.pop()
                self.partner[opened], self.partner[index] = index, opened
            self.inside.append(open_brackets[-1] if open_brackets else -1)
            if token.kind == "sign" and token.text in OPENING:
                open_brackets.append(index)
        self._kinds: dict[int, str] = {}
        for index in sorted(self.partner):
            if self.is_at(index, "{"):
                self._kinds[index] = self._kind_of(index)

    def is_at(self, index: int, *texts: str) -> bool:
        return 0 <= index < len(self.tokens) and self.tokens[index].text in texts

    def spaced(self, index: int) -> bool:
        """Whether white space stands on both sides of a token, as around a binary operator."""
        token = self.tokens[index]
        return self.text[token.start - 1].isspace() and self.text[token.end : token.end + 1].isspace()

    def between(self, first: int, last: int) -> str:
        """The text from token `first` to token `last`, both included."""
        return self.text[self.tokens[first].start : self.tokens[last].end]

    def holds_value(self, brace: int) -> bool:
        """Whether an opening brace stands at its type, `T{...}`; a block has a space before its own."""
        start = self.tokens[brace].start
        return start > 0 and not self.text[start - 1].isspace()

    def runs(self, index: int) -> bool:
        """Whether a token stands in the body of a function that is executed at run time."""
        around = self.inside[index]
        while around >= 0 and not self.is_at(around, "{"):
            around = self.inside[around]
        return self._kinds.get(around) == "code"

    def _kind_of(self, brace: int) -> str:
        """What an opening brace opens: "code", "data", or "group" for a namespace or a type."""
        around = self.inside[brace]
        while around >= 0 and not self.is_at(around, "{"):
            around = self.inside[around]
        if self._kinds.get(around, "group") != "group":
            return self._kinds[around]
        head = self._head(brace)
        if "constexpr" in head or "consteval" in head:
            return "data"
        if "namespace" in head or "(" not in head and TYPE_WORDS & set(head):
            return "group"
        return "code" if "(" in head else "data"

    def _head(self, brace: int) -> list[str]:
        """The texts of what stands before an opening brace and belongs to it."""
        head = []
        index = brace - 1
        while index >= 0 and index != self.inside[brace]:
            text = self.tokens[index].text
            if text in (";", "{") or text == "}" and not self.holds_value(self.partner.get(index, index)):
                break
            head.append(text)
            if text in CLOSING and index in self.partner:
                index = self.partner[index]
                head.append(self.tokens[index].text)
            index -= 1
        return head

"""Where a source can be made faulty in a small way, and how."""

from typing import Iterator, NamedTuple, Optional

from mutation.tokens import CLOSING, OPENING, Source

COMPARISONS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}
ASSIGNMENTS = {"=", "+=", "-=", "*=", "/=", "%=", "&=", "|=", "^=", "<<=", ">>="}
# The binary operators from the loosest to the tightest.
LEVELS = [{"||"}, {"&&"}, {"|"}, {"^"}, {"&"}, {"==", "!="}, {"<", "<=", ">", ">="}, {"<=>"}, {"<<", ">>"},
          {"+", "-"}]  # fmt: skip
ALWAYS_ENDS = ASSIGNMENTS | {"?", ":", ",", ";", "return", "throw", "case", "else", "co_return"}
SWAPPED_CALLS = {
    "stable_sort": "sort",
    "min": "max",
    "max": "min",
    "lower_bound": "upper_bound",
    "upper_bound": "lower_bound",
    "front": "back",
    "back": "front",
    "all_of": "any_of",
    "any_of": "all_of",
}
HEADS = {"if", "for", "while", "switch"}
JUMPS = {"break", "continue", "return", "throw"}
NO_STATEMENT = {
    "auto", "case", "catch", "class", "const", "constexpr", "default", "delete", "do", "else", "enum",
    "extern", "for", "friend", "goto", "if", "inline", "mutable", "namespace", "new", "operator",
    "private", "protected", "public", "sizeof", "static", "static_assert", "struct", "switch",
    "template", "thread_local", "try", "typedef", "typename", "union", "using", "virtual", "void",
    "volatile", "while",
}  # fmt: skip


class Site(NamedTuple):
    """A place of one fault. `first` and `last` are tokens, both included.

    `fault` is what stands there when the mutant is chosen; `form` how the choice is written.
    """

    operator: str
    first: int
    last: int
    fault: str
    form: str = "expression"


def sites(source: Source) -> Iterator[Site]:
    """Every place of `source`, in the order of the text."""
    for index in range(len(source.tokens)):
        if source.runs(index):
            for found in (
                swapped_operator(source, index),
                changed_literal(source, index),
                swapped_call(source, index),
                removed_statement(source, index),
            ):
                if found:
                    yield found
            yield from changed_condition(source, index)


def operand(source: Source, index: int, step: int, ends: set[str]) -> int:
    """The last token of the operand beside operator `index`, in the direction of `step`."""
    opening, closing = (OPENING, CLOSING) if step > 0 else (CLOSING, OPENING)
    last = index
    while 0 <= last + step < len(source.tokens):
        token = source.tokens[last + step]
        if token.kind == "sign" and token.text in closing:
            break
        if token.kind == "sign" and token.text in opening and last + step in source.partner:
            opened = min(last + step, source.partner[last + step])
            if token.text in "{}" and not source.holds_value(opened):
                break
            if token.text == ")" and source.is_at(opened - 1, *HEADS):
                break
            last = source.partner[last + step]
            continue
        if token.text in ALWAYS_ENDS:
            break
        if token.text in ends and source.spaced(last + step):
            break
        last += step
    return last


def swapped_operator(source: Source, index: int) -> Optional[Site]:
    token = source.tokens[index]
    swaps = {**COMPARISONS, "&&": "||", "||": "&&", "+": "-", "-": "+", "+=": "-=", "-=": "+="}
    if token.kind != "sign" or token.text not in swaps or not source.spaced(index):
        return None
    if token.text in ("+=", "-="):
        looser, same = set(), set()
    else:
        level = next(number for number, level in enumerate(LEVELS) if token.text in level)
        looser, same = set().union(*LEVELS[:level]), LEVELS[level]
    first = operand(source, index, -1, looser)
    last = operand(source, index, 1, looser | same)
    if first == index or last == index:
        return None
    fault = code(source, first, last, {index: swaps[token.text]})
    name = "comparison" if token.text in COMPARISONS else "logic" if token.text in ("&&", "||") else "sign"
    return Site(f"{name}: {token.text} -> {swaps[token.text]}", first, last, fault)


def changed_literal(source: Source, index: int) -> Optional[Site]:
    token = source.tokens[index]
    if token.kind == "word" and token.text in ("true", "false"):
        fault = "false" if token.text == "true" else "true"
    elif token.kind == "number" and token.text.isdecimal():
        fault = str(int(token.text) + 1)
    else:
        return None
    name = "truth" if token.kind == "word" else "constant"
    return Site(f"{name}: {token.text} -> {fault}", index, index, fault)


def swapped_call(source: Source, index: int) -> Optional[Site]:
    token = source.tokens[index]
    if token.text not in SWAPPED_CALLS or not source.is_at(index + 1, "("):
        return None
    if not source.is_at(index - 1, "::", ".", "->"):
        return None
    if token.text in ("min", "max") and not source.is_at(index - 2, "std"):
        return None  # a limit of a type
    first = index
    while first > 0:
        before = source.tokens[first - 1]
        if before.text in (")", "]"):
            first = source.partner[first - 1]
        elif before.text in ("::", ".", "->") or (before.kind == "word" and before.text != "return"):
            if before.kind == "word" and not source.is_at(first, "::", ".", "->", "(", "["):
                break
            first -= 1
        else:
            break
    last = source.partner[index + 1]
    swapped = SWAPPED_CALLS[token.text]
    fault = code(source, first, last, {index: swapped})
    return Site(f"call: {token.text} -> {swapped}", first, last, fault)


def changed_condition(source: Source, index: int) -> Iterator[Site]:
    if not source.is_at(index, "if") or not source.is_at(index + 1, "("):
        return
    first, last = index + 2, source.partner[index + 1] - 1
    if any(source.is_at(i, ";") and source.inside[i] == index + 1 for i in range(first, last)):
        return
    condition = code(source, first, last)
    yield Site("condition: negated", first, last, f"!({condition})", "condition")
    yield Site("condition: never", first, last, "false", "condition")


def removed_statement(source: Source, index: int) -> Optional[Site]:
    if not source.is_at(source.inside[index], "{") or not begins_statement(source, index):
        return None
    last = index
    while not source.is_at(last, ";"):
        last = source.partner.get(last, last) + 1 if source.is_at(last, *OPENING) else last + 1
        if last >= len(source.tokens) or source.is_at(last, "}"):
            return None
    word = source.tokens[index].text
    if word in JUMPS:
        returns_value = word == "return" and last > index + 1
        return None if returns_value else Site(f"removed: {word}", index, last, "", "statement")
    if is_expression(source, index, last):
        return Site("removed: statement", index, last, "", "statement")
    return None


def begins_statement(source: Source, index: int) -> bool:
    token = source.tokens[index]
    if token.text in NO_STATEMENT or not (token.kind == "word" or token.text in ("*", "++", "--")):
        return False
    if source.is_at(index - 1, ";", "{", "}", "else"):
        return True
    if not source.is_at(index - 1, ")"):
        return False
    return source.is_at(source.partner[index - 1] - 1, *HEADS)


def is_expression(source: Source, first: int, last: int) -> bool:
    """Whether the statement computes or calls, and declares nothing."""
    acts = False
    index = first
    while index < last:
        token = source.tokens[index]
        following = source.tokens[index + 1]
        if following.kind == "word" and following.text not in ("const", "new"):
            attached = token.start == 0 or not source.text[token.start - 1].isspace()
            if token.kind == "word" and index > first - 1 and token.text not in ("new", "delete"):
                return False
            if token.text in (">", "*", "&", "&&") and attached and index > first:
                return False
        acts = acts or token.text in ASSIGNMENTS or token.text in ("(", "++", "--")
        index = source.partner[index] + 1 if token.text in OPENING else index + 1
    return acts


def code(source: Source, first: int, last: int, replaced: Optional[dict[int, str]] = None) -> str:
    """The tokens on one line, without comments; `replaced` gives some of them another text."""
    parts = []
    for index in range(first, last + 1):
        token = source.tokens[index]
        if index > first and token.start > source.tokens[index - 1].end:
            parts.append(" ")
        parts.append((replaced or {}).get(index, token.text))
    return "".join(parts)

"""The mutation operators. Each takes a source and yields its changes as (name, start, end, replacement)."""

import collections
import re
from dataclasses import dataclass, replace

from source import LEAVING, squeeze

SWAPPED = {
    "===": ("!==",), "!==": ("===",), "==": ("!=",), "!=": ("==",),
    "<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"),
    "&&": ("||",), "||": ("&&",), "+=": ("-=",), "-=": ("+=",),
    "+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",), "%": ("*",), "&": ("|",),
}
BINARY = re.compile(r"(?<=\s)(?:" + "|".join(re.escape(sign) for sign in sorted(SWAPPED, key=len, reverse=True))
                    + r")(?=\s)")
NUMBER = re.compile(r"(?<![\w.\"])\d+(?:\.\d+)?(?![\w.])")
SQL = re.compile(r"\b(?:SELECT|INSERT|UPDATE|DELETE|WHERE|ORDER|CREATE|VALUES|DROP|DEFAULT|PRAGMA|AND|OR)\b|`")
SQL_CHANGES = (
    (re.compile(r"<="), "<"), (re.compile(r"!="), "="), (re.compile(r"\bAND\b"), "OR"), (re.compile(r"\bOR\b"), "AND"),
    (re.compile(r"\bNOT (?=LIKE)"), ""), (re.compile(r"(?<!`)\bname(?=$)"), "id"), (re.compile(r"\bDESC\b"), ""),
    (re.compile(r" ORDER BY \w+"), ""), (re.compile(r"COLLATE NOCASE "), ""), (re.compile(r" AUTOINCREMENT"), ""),
    (re.compile(r"IF NOT EXISTS "), ""), (re.compile(r" NOT NULL"), ""), (re.compile(r" IF EXISTS"), ""),
    (re.compile(r" DEFAULT (?:\\\"0?\\\"|0)"), ""), (re.compile(r"%d/%m"), "%m/%d"),
)
COLUMNS = re.compile(r"(?=(?P<first>`\w+`)(?P<between>[^`]*,\s*)(?P<second>`\w+`))")
SYMMETRIC = re.compile(r"\b(?:min|max|qMin|qMax)(?:<\w+>)?\($")
SETTER = re.compile(r"(?P<object>\w+(?:\.|->))set[A-Z]\w*\(")
ATOM = r"(?:QStringLiteral\(\"[^\"\n]*\"\)|\"[^\"\n]*\"|[\w.]+)"
NEIGHBOURS = re.compile(rf"(?<=[(\[{{,\s])(?=(?P<first>{ATOM})(?P<between>,\s*)(?P<second>{ATOM})\s*[,)\]}}])")


@dataclass(frozen=True)
class Mutant:
    path: str
    line: int
    function: str
    operator: str
    before: str
    after: str
    text: str
    occurrence: int = 1

    @property
    def file(self):
        return self.path.rpartition("/")[2]

    @property
    def folder(self):
        return self.path.rpartition("/")[0]

    @property
    def change(self):
        """Identifies the change in its function, independent of the line."""
        again = f" #{self.occurrence}" if self.occurrence > 1 else ""
        return f"{squeeze(self.before)} => {squeeze(self.after) or 'nothing'}{again}"


def binary_operators(source):
    for match in BINARY.finditer(source.code):
        first, last = source.whole_lines(*match.span())
        # Joining strings is not arithmetic; the operator that empties strings covers it.
        if match.group() in "+%" and '"' in source.code[first:last] or _is_seen_by_conditions(source, match):
            continue
        for other in SWAPPED[match.group()]:
            yield "operator", *match.span(), other


def unary_operators(source):
    for match in re.finditer(r"!(?=[\w(])", source.code):
        if not _is_seen_by_conditions(source, match):
            yield "negation", *match.span(), ""
    for match in re.finditer(r"\+\+(?=\w)", source.code):
        yield "operator", *match.span(), "--"
    for match in re.finditer(r"(?<=return )[^;&|=<>!?]+(?=;)", source.code):
        if not source.is_script and _returns_truth(source, match.start()) and match.group() not in ("true", "false"):
            yield "negation", *match.span(), f"!({source.text[match.start():match.end()]})"


def _is_seen_by_conditions(source, match):
    """Whether the change negates a whole condition: tests that detect "if (true)" and "if (false)" detect that as well."""
    line = source.code[slice(*source.whole_lines(*match.span()))]
    return match.group() in ("!", "===", "!==", "==", "!=") and "if (" in line and not re.search(r"&&|\|\|", line)


def _returns_truth(source, position):
    headers = re.findall(r"^(\w[\w:]*) [^;={}()]*\w\(", source.code[:position], re.MULTILINE)
    return bool(headers) and headers[-1] == "bool"


def numbers(source):
    for match in NUMBER.finditer(source.code):
        first, last = source.whole_lines(*match.span())
        # A duration is doubled: one millisecond more would go unnoticed.
        is_duration = re.search(r"\w+Ms\b|[dD]uration:|\binterval:", source.code[first:last])
        number = float(match.group()) if "." in match.group() else int(match.group())
        if number and "opacity" in source.code[first:last]:  # values above 1 act like 1
            other = number / 2
        else:
            other = number * 2 if is_duration and number else number + 1
        yield "constant", *match.span(), f"{other:.6g}"


def truth_values(source):
    for match in re.finditer(r"\b(?:true|false)\b", source.code):
        yield "constant", *match.span(), "false" if match.group() == "true" else "true"


def texts(source):
    for start, end in source.strings:
        if source.text[start - 1] == "'":
            yield "constant", start, end, "~"
        else:
            yield "constant", start, end, "" if end > start else "mutant"


def statements_in_sql(source):
    for start, end in source.strings:
        text = source.text[start:end]
        if not SQL.search(text):
            continue
        for pattern, other in SQL_CHANGES:
            for match in pattern.finditer(text):
                yield "SQL", start + match.start(), start + match.end(), other
        for match in COLUMNS.finditer(text):
            yield "order", start + match.start(), start + match.end("second"), _exchanged(match)


def _exchanged(match):
    return match["second"] + match["between"] + match["first"]


def neighbouring_elements(source):
    for match in NEIGHBOURS.finditer(source.text):
        before = source.code[:match.start()].rstrip()
        if not before.endswith(tuple("([{,")) or SYMMETRIC.search(before):
            continue
        if match["first"] != match["second"] and source.code[match.start("between")] == ",":
            yield "order", match.start(), match.end("second"), _exchanged(match)


def conditions(source):
    for match in re.finditer(r"\b(if|while) \(", source.code):
        start, end = match.end(), source.closing(match.end() - 1)
        for value in ("true", "false") if match.group(1) == "if" else ("false",):
            yield "condition", start, end, value


def removed_statements(source):
    if source.is_header:
        return
    for start, end in source.bindings():
        yield "removed", start, end, ""
    for start, end in source.statements():
        # A function that returns without its value has undefined behaviour.
        if source.is_script or not re.match(r"return [^;]", source.code[start:end]):
            yield "removed", start, end, ""


def swapped_statements(source):
    if source.is_header:
        return
    spans = list(source.statements())
    for first, second in zip(spans, spans[1:]):
        if _can_be_swapped(source, first, second):
            texts_of_both = [source.text[start:end] for start, end in (second, first)]
            yield "order", first[0], second[1], source.text[first[1]:second[0]].join(texts_of_both)


def _can_be_swapped(source, first, second):
    are_neighbours = first[1] <= second[0] and not source.code[first[1]:second[0]].strip()
    codes = [source.code[start:end] for start, end in (first, second)]
    leave = any(LEAVING.match(code) for code in codes)
    # No signal is emitted between two consecutive connections.
    connect = all(code.startswith("connect(") for code in codes)
    return are_neighbours and not leave and not connect and not _set_two_properties(source, *codes)


def _set_two_properties(source, *codes):
    """Whether both statements set properties of the same Qt object. Not for scripts: the setters of a date depend on each other."""
    setters = [SETTER.match(code) for code in codes]
    return not source.is_script and all(setters) and setters[0]["object"] == setters[1]["object"]


OPERATORS = (binary_operators, unary_operators, numbers, truth_values, texts, statements_in_sql, neighbouring_elements,
             conditions, removed_statements, swapped_statements)


def mutants_of(source):
    """All mutants of a source in the order of its lines, without duplicates."""
    seen, found = {source.text}, []
    for operator in OPERATORS:
        for name, start, end, replacement in operator(source):
            text = source.text[:start] + replacement + source.text[end:]
            if text in seen:
                continue
            seen.add(text)
            first, last = source.whole_lines(start, end)
            found.append((start, Mutant(
                source.path, source.line_of(start), source.function_at(start), name, source.text[first:last],
                source.text[first:start] + replacement + source.text[end:last], text)))
    return list(_numbered(mutant for _, mutant in sorted(found, key=lambda pair: pair[0])))


def _numbered(mutants):
    """Numbers the changes of a function that have the same text."""
    times = collections.Counter()
    for mutant in mutants:
        times[mutant.function, mutant.change] += 1
        yield replace(mutant, occurrence=times[mutant.function, mutant.change])

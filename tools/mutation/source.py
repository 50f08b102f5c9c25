"""A source file as the operators see it: its code without comments, log statements, reservations and string contents."""

import re

QUOTED = re.compile(r"//[^\n]*|/\*.*?\*/|\"(?:\\.|[^\"\\\n])*\"|'(?:\\.|[^'\\\n])*'", re.DOTALL)
PREPROCESSOR = re.compile(r"^\s*#.*$|^\.?(?:import|pragma)\b.*$|\bQT_WARNING_\w+(?:\(.*\))?", re.MULTILINE)
# Log statements, code that a release build leaves out, and calls that only reserve memory.
UNSEEN = re.compile(r"\b(?:console\.\w+|qDebug|qWarning|Q_ASSERT(?:_X)?|\w+\.reserve)\s*\(")
FUNCTION = re.compile(r"^(?:function |(?=\w)[^;={}()\n]*?\b)(?P<name>~?\w+)\(", re.MULTILINE)
FUNCTION_OF_DOCUMENT = re.compile(r"^[ \t]*(?:function (?=\w+\()|(?=on[A-Z]\w*:))(?P<name>\w+)", re.MULTILINE)
NOT_A_STATEMENT = re.compile(
    r"(?:if|else|for|while|do|switch|case|default|try|catch|function|class|struct|enum|namespace|using|public|private"
    r"|protected|signals|Q_\w+|explicit|template)\b")
DECLARATION = re.compile(
    r"(?:var|const|static|constexpr|auto|bool|int|double|char|long|short|unsigned|quint\w+|qint\w+)\b"
    r"|(?:struct )?\w+(?:<[^;=]*>)? [*&]?\w+(?:[;({=]| =)")
BINDING = re.compile(r"^[ \t]+(?!id:)[\w.]+: (?!(?:\w+(?:\.\w+)? )?\{)[^\n]*$", re.MULTILINE)
LEAVING = re.compile(r"(?:return|break|throw|continue)\b")
OPENING, CLOSING = "([{", ")]}"


def squeeze(text):
    return " ".join(text.split())


class Source:
    """`code` is `text` with everything blanked that is not mutated; `strings` are the spans of the remaining strings."""

    def __init__(self, path, text):
        self.path = path
        self.text = text
        self.is_header = path.endswith(".h")
        self.is_document = path.endswith(".qml")
        self.is_script = path.endswith((".js", ".qml"))
        self.strings = []
        self.code = text
        self._blank_quoted()
        self._blank(PREPROCESSOR)
        self._blank_unseen()
        self.strings = [(start, end) for start, end in self.strings if self.code[start - 1] == text[start - 1]]

    def _blank_span(self, start, end):
        blanked = "".join(character if character == "\n" else " " for character in self.text[start:end])
        self.code = self.code[:start] + blanked + self.code[end:]

    def _blank_quoted(self):
        for match in QUOTED.finditer(self.text):
            if match.group()[0] == "/":
                self._blank_span(*match.span())
            else:
                self._blank_span(match.start() + 1, match.end() - 1)
                self.strings.append((match.start() + 1, match.end() - 1))

    def _blank(self, pattern):
        for match in pattern.finditer(self.code):
            self._blank_span(*match.span())

    def _blank_unseen(self):
        for match in UNSEEN.finditer(self.code):
            self._blank_span(match.start(), self.code.index(";", match.start()) + 1)

    def line_of(self, position):
        return self.text.count("\n", 0, position) + 1

    def whole_lines(self, start, end):
        """The span extended to whole lines."""
        last = self.text.find("\n", end)
        return self.text.rfind("\n", 0, start) + 1, len(self.text) if last < 0 else last

    def function_at(self, position):
        """The name of the function around the position; "-" outside all functions."""
        match = None
        if self.is_document:
            for match in FUNCTION_OF_DOCUMENT.finditer(self.code, 0, position):
                pass
            return match["name"] if match else "-"
        for match in FUNCTION.finditer(self.code, 0, position):
            pass
        if match is None or self._is_closed(match.start(), position):
            return "-"
        return match["name"]

    def _is_closed(self, start, position):
        return re.search(r"^\}", self.code[start:position], re.MULTILINE) is not None

    def closing(self, position):
        """The position of the bracket that closes the one at the given position."""
        depth = 0
        for place in range(position, len(self.code)):
            depth += (self.code[place] in OPENING) - (self.code[place] in CLOSING)
            if depth == 0:
                return place
        return len(self.code) - 1

    def bindings(self):
        """The spans of a document's single-line bindings, without its declarations."""
        for match in BINDING.finditer(self.code) if self.is_document else ():
            # Removing the first of several lines would leave the others behind.
            if not match.group().rstrip().endswith(tuple("([{,?:&|+")) and not self._goes_on_below(match.end()):
                yield match.start(), match.end()

    def _goes_on_below(self, end):
        return re.match(r"\s*(?:[?:+|&*]|-\s)", self.code[end:]) is not None

    def statements(self):
        """The spans of simple statements: no declarations, and none that begins a block."""
        for match in re.finditer(r"^[ \t]+(?=\S)", self.code, re.MULTILINE):
            start = match.end()
            if not self._begins_a_statement(start):
                continue
            end = self._end_of_statement(start)
            text = self.code[start:end]
            if self.is_document and re.match(r"[\w.]+:|(?:readonly |default )?property\b|signal\b", text):
                continue
            if end > start and not NOT_A_STATEMENT.match(text) and not (
                    DECLARATION.match(text) and not LEAVING.match(text)):
                yield start, end

    def _begins_a_statement(self, start):
        before = self.code[:start].rstrip()
        return bool(before) and (before[-1] in ";{}" or before.endswith(":")) and self.code[start] not in "{}"

    def _end_of_statement(self, start):
        place = start
        while place < len(self.code):
            if self.code[place] == ";":
                return place + 1
            if self.code[place] in CLOSING:
                break
            if self.code[place] in OPENING:
                place = self.closing(place)
            place += 1
        return start

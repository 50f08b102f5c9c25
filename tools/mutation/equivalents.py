"""The mutants that no test can detect, each with its reason, from equivalents.txt.

An entry is a file and a function, the change as in the report, and the reason why it has no effect:

    Bdd.js:init
        before => after
        because ...
"""

from dataclasses import dataclass, field


@dataclass
class Equivalent:
    place: str
    change: str
    reason: str
    outcomes: list = field(default_factory=list)

    def describes(self, mutant):
        return self.place == f"{mutant.file}:{mutant.function}" and self.change == mutant.change


def read_equivalents(path):
    place, change, found = None, None, []
    for line in path.read_text(encoding="utf-8").splitlines():
        text = line.strip()
        if not text or line.startswith("#"):
            continue
        if not line[0].isspace():
            place = text
        elif text.startswith("because "):
            if not place or not change:
                raise ValueError(f"{path.name}: a reason without a change: {text}")
            found.append(Equivalent(place, change, text.removeprefix("because ")))
            change = None
        elif change:
            raise ValueError(f"{path.name}: no reason for {change}")
        else:
            change = text
    if change:
        raise ValueError(f"{path.name}: no reason for {change}")
    return found

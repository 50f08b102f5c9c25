"""The results of the mutants: one line for each during the run, and a file at the end."""

import collections

VERDICTS = ("killed", "timed out", "survived", "equivalent", "did not compile")


def heading(mutant, verdict, by):
    return f"{mutant.path}:{mutant.line} {mutant.function}: {mutant.operator}: {verdict}{by and f' by {by}'}"


def difference(mutant):
    before, after = mutant.before.splitlines(), mutant.after.splitlines()
    return [f"    - {line}" for line in before] + [f"    + {line}" for line in after]


class Report:
    def __init__(self, mutant_count, equivalents):
        self.mutant_count = mutant_count
        self.equivalents = equivalents
        self.results = []

    def add(self, mutant, verdict, by, seconds):
        known = [entry for entry in self.equivalents if entry.describes(mutant)]
        for entry in known:
            entry.outcomes.append(verdict)
        if known and verdict == "survived":
            verdict = "equivalent"
        self.results.append((mutant, verdict, by))
        print(f"{len(self.results)}/{self.mutant_count} {seconds:.1f} s {heading(mutant, verdict, by)}", flush=True)
        if verdict == "survived":
            print("\n".join(difference(mutant)), flush=True)

    def faults(self, is_complete):
        """The reasons why the run fails, one line each."""
        faults = [f"survived: {mutant.path}:{mutant.line} {mutant.function}: {mutant.change}"
                  for mutant, verdict, _ in self.results if verdict == "survived"]
        for entry in self.equivalents:
            if any(outcome in ("killed", "timed out") for outcome in entry.outcomes):
                faults.append(f"listed as equivalent, but a test sees it: {entry.place}: {entry.change}")
            elif is_complete and not entry.outcomes:
                faults.append(f"listed as equivalent, but there is no such mutant: {entry.place}: {entry.change}")
        return faults

    def totals(self):
        counts = collections.Counter((mutant.folder, verdict) for mutant, verdict, _ in self.results)
        folders = list(dict.fromkeys(mutant.folder for mutant, _, _ in self.results))
        width = max(map(len, folders), default=0)
        lines = [f"{'':{width}} {'mutants':>8}" + "".join(f"{verdict:>16}" for verdict in VERDICTS)]
        for folder in [*folders, "all"]:
            row = [sum(count for (other, name), count in counts.items() if folder in (other, "all") and name == verdict)
                   for verdict in VERDICTS]
            lines.append(f"{folder:{width}} {sum(row):>8}" + "".join(f"{count:>16}" for count in row))
        return lines

    def write(self, path, faults, seconds):
        lines = [*self.totals(), "", f"{seconds / 60:.1f} minutes, {len(faults)} faults", *faults, ""]
        for mutant, verdict, by in sorted(self.results, key=lambda result: (VERDICTS[::-1].index(result[1]),
                                                                            result[0].path, result[0].line)):
            lines += [heading(mutant, verdict, by), *difference(mutant)]
        path.write_text("\n".join(lines) + "\n", encoding="utf-8")

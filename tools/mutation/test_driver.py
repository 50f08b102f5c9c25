#!/usr/bin/env python3
"""Tests the driver of scripts/check mutate: its changes, and its verdicts on killed, surviving, endless and broken mutants."""

import contextlib
import io
import pathlib
import tempfile
import unittest

import mutate
import sandbox
from equivalents import Equivalent, read_equivalents
from operators import mutants_of
from plan import changed_files
from report import Report
from source import Source

HERE = pathlib.Path(__file__).resolve().parent
PLAN = {"toy.cpp": ("toy_test",)}
SCRIPT = '''.import "Other.js" as Other
// a > b, and "text"
function rule(row) {
    var limit = 8;

    console.debug("rule " + 7);
    if (row.count <= limit && !row.late) {
        first(); // one
        second();
    }
    return [row.count, "WHERE a != 1 AND b"];
}
'''
CHANGES_OF_SCRIPT = [
    "4 rule: var limit = 8; => var limit = 9;",
    "7 rule: if (row.count <= limit && !row.late) { => if (row.count < limit && !row.late) {",
    "7 rule: if (row.count <= limit && !row.late) { => if (row.count > limit && !row.late) {",
    "7 rule: if (row.count <= limit && !row.late) { => if (row.count <= limit || !row.late) {",
    "7 rule: if (row.count <= limit && !row.late) { => if (row.count <= limit && row.late) {",
    "7 rule: if (row.count <= limit && !row.late) { => if (true) {",
    "7 rule: if (row.count <= limit && !row.late) { => if (false) {",
    "8 rule: first(); // one => // one",
    "8 rule: first(); // one second(); => second(); // one first();",
    "9 rule: second(); => nothing",
    '11 rule: return [row.count, "WHERE a != 1 AND b"]; => return [row.count, ""];',
    '11 rule: return [row.count, "WHERE a != 1 AND b"]; => return [row.count, "WHERE a = 1 AND b"];',
    '11 rule: return [row.count, "WHERE a != 1 AND b"]; => return [row.count, "WHERE a != 1 OR b"];',
    '11 rule: return [row.count, "WHERE a != 1 AND b"]; => return ["WHERE a != 1 AND b", row.count];',
    '11 rule: return [row.count, "WHERE a != 1 AND b"]; => nothing',
]
VERDICTS_OF_TOY = {
    "return count > 10; => return count >= 10;": "survived",
    "return count > 10; => return count <= 10;": "killed",
    "return count > 10; => return count > 11;": "equivalent",
    "while (count != 0) { => while (false) {": "killed",
    "--count; => nothing": "timed out",
    'greeting = choose("hello", 1); => greeting = choose(1, "hello");': "did not compile",
}


def listed(mutants):
    return [mutant for mutant in mutants if mutant.change in VERDICTS_OF_TOY]


class DriverTest(unittest.TestCase):

    def test_changes_the_code_and_nothing_else(self):
        found = [f"{mutant.line} {mutant.function}: {mutant.change}" for mutant in mutants_of(Source("a.js", SCRIPT))]
        self.assertEqual(sorted(found), sorted(CHANGES_OF_SCRIPT))

    def test_verdicts_on_a_toy(self):
        sandbox.SHORTEST_LIMIT_S = 3
        mutants = listed(mutate.all_mutants(HERE / "toy", PLAN))
        self.assertEqual({mutant.change for mutant in mutants}, set(VERDICTS_OF_TOY))
        report = Report(len(mutants), [
            Equivalent("toy.cpp:isMany", "return count > 10; => return count > 11;", "nobody counts to eleven"),
            Equivalent("toy.cpp:countDown", "--count; => nothing", "untrue"),
            Equivalent("toy.cpp:countDown", "++count; => nothing", "there is none"),
        ])

        with tempfile.TemporaryDirectory() as folder, contextlib.redirect_stdout(io.StringIO()):
            mutate.Trials(HERE / "toy", pathlib.Path(folder), PLAN, {}, 1).run(mutants, report)
            restored = (pathlib.Path(folder) / "sandbox-1" / "tree" / "toy.cpp").read_text(encoding="utf-8")

        self.assertEqual({mutant.change: verdict for mutant, verdict, _ in report.results}, VERDICTS_OF_TOY)
        self.assertEqual(restored, (HERE / "toy" / "toy.cpp").read_text(encoding="utf-8"))
        self.assertEqual(report.faults(is_complete=True), [
            "survived: toy.cpp:4 isMany: return count > 10; => return count >= 10;",
            "listed as equivalent, but a test sees it: toy.cpp:countDown: --count; => nothing",
            "listed as equivalent, but there is no such mutant: toy.cpp:countDown: ++count; => nothing",
        ])

    def test_every_place_of_the_plan_exists(self):
        for place in mutate.PLAN:
            self.assertTrue((HERE.parents[1] / place).exists(), place)

    def test_every_equivalent_is_a_mutant_and_has_its_reason(self):
        entries = read_equivalents(HERE / "equivalents.txt")
        mutants = mutate.all_mutants(HERE.parents[1], changed_files(HERE.parents[1], mutate.PLAN))
        for entry in entries:
            with self.subTest(change=entry.change):
                self.assertTrue(any(entry.describes(mutant) for mutant in mutants))
                self.assertGreater(len(entry.reason), 10)


if __name__ == "__main__":
    unittest.main()

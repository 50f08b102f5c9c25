"""Gives answers and saves fields; another process locks the file after each commit, before the program reads again."""

import collections
import copy
import os
import subprocess
import sys

from support import processes
from support.waiting import wait_until
from randomwalk.comparison import Strayed
from randomwalk.walk import Walk

NOT_READ = "Stored, but not read back"
_SUPPORT = os.path.dirname(os.path.dirname(os.path.abspath(sys.modules["support.waiting"].__file__)))


class Rereading(Walk):
    """Answers the questions of one patient repeatedly and compares with the model of the random walk."""

    ways = (0, 1, 9)

    def __init__(self, desktop, seed, environment):
        super().__init__(desktop, seed, environment)
        self.counts = collections.Counter()
        self._locker = processes.start(
            [sys.executable, "-B", os.path.join(os.path.dirname(__file__), "locker.py"), _SUPPORT, self._store.file],
            dict(os.environ), stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, bufsize=1)
        self._saves = 0

    def close(self):
        """Ends both programs."""
        processes.stop(self._locker, gently=False)
        super().close()

    def begin(self):
        """Opens the patient."""
        self._widget.wait_until_ready()
        wait_until(lambda: "Refreshing icon." in self._widget.log, "the first refresh is done")
        self._compare()
        self._search("dupont")
        self._compare()
        self._open_result()
        self._compare()

    def attempt(self):
        """One answer or save, followed by the lock; after a hit, one of each without a lock. Returns whether it was a hit."""
        self._history = self._history[-25:] + [f"attempt {self.counts['attempts'] + 1}:"]
        self.counts["attempts"] += 1
        said = self._widget.log.count(NOT_READ)
        do, switched = self._prepare()
        before = copy.deepcopy(self._model)
        self._tell("arm")
        assert self._hear() == "armed"
        do()
        word = self._hear()
        self._say(word)
        if word == "locked":
            assert self._hear() == "released"
        self._settle(before if switched else None)
        hit = self._widget.log.count(NOT_READ) > said
        self.counts["lock " + ("between commit and re-read" if hit else word + " at another moment")] += 1
        # The next saves must keep everything.
        for follow in (self._save_phone, self._answer_next)[::self._random.choice((1, -1))] if hit else ():
            self._prepare_gates()
            follow()()
            self._compare()
        return hit

    def _settle(self, before):
        """Compares. A changed answer is saved twice; when the second save finds the file locked, the first one is stored and
        shown."""
        try:
            self._compare()
        except Strayed:
            if before is None:
                raise
            self._model = before
            row = next(row for row in self._store.patients() if row["id"] == before.editor.number)
            before.rows[before.editor.number] = {key: row[key] for key in before.rows[before.editor.number]}
            before.editor.show(before.rows[before.editor.number])
            gates = self._view.gates()
            before.gate_states = [(1 not in gates, 2 not in gates)]
            before.unfolded = None
            self._say("the second save found the file locked")
            self._compare()
            self.counts["second saves that found the file locked"] += 1

    def _prepare(self):
        self._prepare_gates()
        return (self._save_phone(), False) if self._random.random() < 0.35 else self._next_answer()

    def _prepare_gates(self):
        while self._model.gates():
            self._open_gate()
            self._compare()

    def _save_phone(self):
        self._change_phone()
        self._compare()
        self.counts["saves of the fields"] += 1
        return self._validate

    def _answer_next(self):
        return self._next_answer()[0]

    def _next_answer(self):
        """An action that ticks another answer, and whether it changes an earlier answer."""
        self.counts["answers"] += 1
        asked = self._model.asked()
        open_ones = [key for key in asked if not asked[key]]
        key = open_ones[0] if open_ones else self._random.choice(list(asked))
        answer = {"Oui": "Non", "Non": "Oui"}.get(asked[key]) or self._random.choice(("Oui", "Oui", "Oui", "Non"))
        box = self._unfold(key, answer)

        def press():
            self._press_control(box, f"{answer} to {key}")
            self._model.answer(key, answer)

        return press, bool(asked[key])

    def _tell(self, word):
        self._locker.stdin.write(word + "\n")
        self._locker.stdin.flush()

    def _hear(self):
        word = self._locker.stdout.readline().strip()
        assert word, "the other process has ended"
        return word

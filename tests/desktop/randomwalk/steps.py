"""The actions of a walk, each in the window and in the model."""

from support.tandry import GATE_1, GATE_2, NAME_FIELD, PHONE_FIELD, QUESTIONS, SEARCH_FIELD
from support.waiting import NeverHappened, wait_until

from .comparison import FIRST_RESULTS, Comparison
from .actions import Actions

GONE, LOCKED = "The store has no such patient", "database is locked"
_TEXTS = ("du", "DU", "a", "e", "mar", "zz", "%", "é", "_u", "dupont marie", "")
_SURNAMES = ("DURAND", "Petit", "ARNAUD", "Éluard", "MARTINEZ")


class Steps(Actions, Comparison):
    """The steps of a walk that the user performs."""

    _names = _locked = _said_gone = 0

    # In the widget

    def _search(self, text=None):
        text = self._random.choice(_TEXTS) if text is None else text
        self._say(f"search {text!r}")
        self._replace(SEARCH_FIELD, text)
        self._model.type_search(text)
        self._focus = SEARCH_FIELD

    def _create(self):
        self._search(self._new_name())
        self._compare()
        self._press("Créer la fiche patient")
        self._model.open_new()
        self._focus = NAME_FIELD

    def _open_result(self):
        results = self._model.results
        if self._random.random() < 0.3 and self._keys_reach_widget() \
                and self._view.widget.focused()[0].name == SEARCH_FIELD:
            self._say("open the first result by Return")
            self._widget.press(*self._random.choice((("Return",), ("Down", "Return"), ("Down", "space"))))
            number = results[0][0]
        else:
            place = self._random.randrange(min(len(results), FIRST_RESULTS))
            number = results[place][0]
            self._press_control(self._view.result_rows()[place], f"the result {results[place][1]!r}")
        self._open(number)

    def _open(self, number):
        self._model.open(number)
        # When the name cannot be changed, another control has the focus.
        self._focus = NAME_FIELD if self._model.editor.alive else None
        self._expect_gone_to_be_said()

    def _leave(self):
        self._press("Retour")
        self._model.leave()
        self._focus = SEARCH_FIELD

    def _change_phone(self):
        text = "06" + "".join(self._random.choices("0123456789", k=self._random.choice((2, 8))))
        self._say(f"phone {text}")
        self._replace(PHONE_FIELD, text)
        self._model.change("phone", text)

    def _change_name(self):
        text = self._new_name() if self._random.random() < 0.7 else ""
        self._say(f"name {text!r}")
        # An empty field has no text to change.
        if text or self._model.editor.name:
            self._replace(NAME_FIELD, text)
            self._model.change("name", text)

    def _change_gender(self):
        male = self._model.editor.male
        self._press("Sexe : homme" if male else "Sexe : femme")
        self._model.change("male", not male)

    def _validate(self):
        editor = self._model.editor
        deletes = editor.number is not None and editor.name == ""
        if editor.number is None and editor.name == "":
            return
        self._press("Supprimer" if deletes else "Enregistrer")
        self._model.validate()
        if deletes:
            self._focus = SEARCH_FIELD
        self._expect_gone_to_be_said()

    def _cancel(self):
        self._press("Annuler")
        self._model.cancel()
        self._expect_gone_to_be_said()

    def _fold(self):
        key = self._random.choice(list(self._model.asked()))
        self._press(self._name_of(key))
        self._model.unfolded = None

    def _open_gate(self):
        number = self._random.choice(self._model.gates())
        self._press(GATE_1 if number == 1 else GATE_2)
        self._model.open_gate(number)

    def _answer(self):
        asked = self._model.asked()
        key = self._random.choice([list(asked)[-1], *asked])
        answer = self._random.choice(("Oui", "Oui", "Non"))
        alive = self._model.editor.alive
        box = self._unfold(key, answer)
        if box is None:
            return
        # Tab does not reach a disabled form, which Qt announces as sensitive.
        self._press_control(box, f"{answer} to {key}", by_keys=alive)
        self._model.answer(key, answer)
        if alive:
            self._expect_gone_to_be_said()

    def _answer_behind_a_lock(self):
        """Another process locks the file until the answer fails."""
        asked = self._model.asked()
        key = list(asked)[-1]
        answer = {"Oui": "Non", "Non": "Oui"}.get(asked[key]) or self._random.choice(("Oui", "Non"))
        box = self._unfold(key, answer)
        if box is None:
            return
        said = self._widget.log.count(LOCKED)
        self._say("behind a lock:")
        place = self._at_rest(box)
        other = self._store.lock()
        try:
            self.counts["answers behind a lock"] += 1
            self._locked += 1
            self._say(f"{answer} to {key}, by mouse")
            self._widget.screen.click(*place)
            wait_until(lambda: self._widget.log.count(LOCKED) > said, "the log says that the file is locked")
        finally:
            other.close()
        self._model.unfolded = None

    def _unfold(self, key, answer):
        """The box of an answer; None when the form is disabled and the question is collapsed."""
        for _ in range(3):
            boxes = self._resting_boxes()
            if answer in boxes.get(key, {}):
                return boxes[key][answer]
            if not self._model.editor.alive:
                return None
            self._press(self._name_of(key))
            self._model.unfolded = key
            self._compare()
        raise NeverHappened(f"{key} does not expand")

    def _name_of(self, key):
        return (QUESTIONS[key] + " " + self._model.asked()[key]).strip()

    # In the list

    def _open_list(self):
        self._press("Liste de tous les patients")
        self._model.list.shown = True

    def _close_list(self):
        self._press("Fermer", in_list=True)
        self._model.list.shown = False

    def _show_tab(self):
        waiting = self._random.random() < 0.4
        self._press("Patients en attente" if waiting else "Liste de tous les patients", role="page tab", in_list=True)
        self._model.show_tab(waiting)

    def _tick(self):
        number = self._random.choice(sorted(self._model.list.rows))
        self._press("Sélectionner " + self._model.list.rows[number]["name"], role="check box", in_list=True)
        self._model.tick(number)

    def _tick_everyone(self):
        self._press("Tout sélectionner", role="check box", in_list=True)
        self._model.tick_everyone()

    def _open_row(self):
        number = self._random.choice(sorted(self._model.list.rows))
        self._press("Ouvrir " + self._model.list.rows[number]["name"], in_list=True)
        self._open(number)

    def _delete_ticked(self):
        self._press("Supprimer les patients sélectionnés", in_list=True)
        self._model.delete_ticked()

    # Both

    def _expect_gone_to_be_said(self):
        editor = self._model.editor
        if editor and not editor.alive:
            self.counts["deleted patients found"] += 1
            said = self._widget.log.count(GONE)
            wait_until(lambda: self._widget.log.count(GONE) > self._said_gone, "the log says that the patient does not exist")
            self._said_gone = max(said, self._widget.log.count(GONE))

    def _new_name(self):
        self._names += 1
        return f"{self._random.choice(_SURNAMES)} {self._names}"

    def _say(self, text):
        self._history.append("    " + text)

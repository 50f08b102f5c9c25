"""A patient is created, answered for and found again; the reminder follows the pathway."""

from support.case import DesktopTest, main
from support.tandry import GATE_1, GATE_2, NAME_FIELD, PHONE_FIELD
from support.waiting import stays, wait_equal, wait_until

TODAY = "2014-05-12"
CLOCK = TODAY + " 10:00:00"
RED, GREEN = bytes.fromhex("e12c0d"), bytes.fromhex("67c265")
STEPS = {"test": "test_date", "rdv1": "date1", "confirmation": "confirmation_date", "rdv2": "date2", "rdv3": "date3"}


class PatientTest(DesktopTest):

    def answer_and_expect(self, name, key, answer, reminder, answered):
        """Gives an answer; expects the reminder date, and that exactly the steps in `answered` have dates."""
        self.widget.answer(key, answer)
        wait_equal(lambda: [self.store.patient(name)[column] for column in ("notification_date", key)],
                   [reminder, 1 if answer == "Oui" else 0], f"reminder and flag after {key} {answer}")
        row = self.store.patient(name)
        self.assertEqual({step: row[column] for step, column in STEPS.items()},
                         {step: TODAY if step in answered else "" for step in STEPS})


class Pathway(PatientTest):

    def test_answers_move_the_reminder_from_creation_to_the_last_step_and_back(self):
        name = "DUPONT Marie"
        self.widget = self.start_ready(clock=CLOCK)
        self.widget.search(name)
        self.widget.click("Créer la fiche patient")
        wait_equal(lambda: self.widget.control(NAME_FIELD, "text").text, name, "the editor has the typed name")
        self.assertEqual(self.store.patients(), [])
        self.picture("patient-created")
        self.widget.click("Enregistrer")
        self.widget.wait_for_question("test")
        row = self.store.patient(name)
        self.assertEqual((row["created"], row["notification_date"], row["genderMale"]), (TODAY, TODAY, 1))

        self.answer_and_expect(name, "test", "Non", "2014-09-15", ["test"])
        wait_equal(self.widget.asked, ["test", "rdv1"], "the question about the work-up is shown")
        self.answer_and_expect(name, "rdv1", "Oui", "2050-05-12", ["test", "rdv1"])
        self.widget.control(GATE_1)
        self.assertEqual(self.widget.asked(), ["test", "rdv1"])
        self.picture("patient-gate")
        self.widget.click(GATE_1)
        self.widget.wait_gone(GATE_1)
        self.answer_and_expect(name, "confirmation", "Oui", "2014-12-16", ["test", "rdv1", "confirmation"])
        self.answer_and_expect(name, "rdv2", "Oui", "2015-09-15", ["test", "rdv1", "confirmation", "rdv2"])
        self.widget.click(GATE_2)
        self.answer_and_expect(name, "rdv3", "Oui", "2050-05-12", STEPS)
        self.picture("patient-complete")

        self.answer_and_expect(name, "rdv1", "Non", "2014-09-15", ["test", "rdv1"])
        wait_equal(self.widget.asked, ["test", "rdv1"], "the later questions are gone")
        self.answer_and_expect(name, "test", "Oui", "2014-09-15", ["test"])
        wait_equal(self.widget.asked, ["test", "confirmation"], "the work-up is skipped")
        self.answer_and_expect(name, "confirmation", "Non", "2050-05-12", ["test", "confirmation"])

    def test_the_new_patient_waits_at_once(self):
        self.widget = self.start_ready(clock=CLOCK)
        self.widget.control("Liste des patients en attente")
        self.widget.create("MARTIN Paul")
        self.widget.back()
        self.widget.control("Liste des patients en attente (1)")
        wait_equal(lambda: self.home.settings().get("PatientsWaitingCounter"), "1", "the counter is kept")
        self.assertEqual(self.home.settings()["PatientsCounter"], "1")

    def test_switching_an_answer_stores_the_last_one(self):
        self.store.seed({"name": "Dupont", "created": "2014-10-02"})
        self.widget = self.start_ready(clock=CLOCK)
        self.widget.open_patient("Dupont")
        self.answer_and_expect("Dupont", "test", "Oui", "2014-12-15", ["test"])
        self.answer_and_expect("Dupont", "test", "Non", "2014-12-15", ["test"])
        wait_equal(self.widget.asked, ["test", "rdv1"], "the pathway follows the last answer")
        self.assertEqual(self.store.patient("Dupont")["test"], 0)

    def test_a_collapsed_question_shows_its_short_answer(self):
        self.store.seed({"name": "Dupont", "created": "2014-04-10"})
        self.widget = self.start_ready(clock=CLOCK)
        self.widget.open_patient("Dupont")
        self.widget.answer("test", "Non")
        self.widget.wait_for_question("rdv1")
        question = self.widget.control("Avez-vous pratiqué des tests cutanés sur le patient ? Non", "push button")
        wait_until(lambda: self.shows(question.box, RED), "the collapsed question shows a red answer")
        self.widget.answer("test", "Oui")
        question = self.widget.control("Avez-vous pratiqué des tests cutanés sur le patient ? Oui", "push button")
        wait_until(lambda: self.shows(question.box, GREEN), "the collapsed question shows a green answer")
        self.assertFalse(self.shows(question.box, RED))

    def shows(self, box, colour):
        """Whether that area contains a pixel of this colour."""
        pixels = self.desktop.screen.region(box)
        return any(pixels[i:i + 3] == colour for i in range(0, len(pixels), 3))

    def test_september_rolls_over_on_a_31st(self):
        self.store.seed({"name": "Dupont", "created": "2014-04-10"})
        self.widget = self.start_ready(clock="2014-05-31 10:00:00")
        self.widget.open_patient("Dupont")
        self.widget.answer("test", "Non")
        wait_equal(lambda: self.store.patient("Dupont")["notification_date"], "2014-10-15", "the reminder rolled over")

    def test_a_closed_gate_stays_closed_for_the_next_patient(self):
        answered = {"created": "2014-04-10", "test": 0, "test_date": "2014-04-10", "rdv1": 1, "date1": "2014-04-11"}
        self.store.seed({"name": "Dupont", **answered}, {"name": "Martin", **answered})
        self.widget = self.start_ready(clock=CLOCK)
        self.widget.open_patient("Martin")
        self.widget.wait_for_question("confirmation")
        self.widget.answer("rdv1", "Non")
        self.widget.answer("rdv1", "Oui")
        self.widget.control(GATE_1)
        self.widget.back()
        self.widget.open_patient("Dupont")
        self.widget.control(GATE_1)
        self.assertEqual(self.widget.asked(), ["test", "rdv1"])

    def test_everything_survives_the_end_of_the_process(self):
        self.widget = self.start_ready(clock=CLOCK)
        self.widget.create("DUPONT Marie")
        self.answer_and_expect("DUPONT Marie", "test", "Oui", "2014-09-15", ["test"])
        self.answer_and_expect("DUPONT Marie", "confirmation", "Oui", "2014-12-16", ["test", "confirmation"])
        before = self.store.patients()
        self.widget = self.restart(self.widget, clock=CLOCK)
        self.assertEqual(self.store.patients(), before)
        self.widget.open_patient("DUPONT Marie", search="du")
        self.widget.control("Avez-vous pratiqué des tests cutanés sur le patient ? Oui")
        self.widget.control("Confirmation de l'allergie au pollen de graminés ? Oui")
        wait_equal(self.widget.asked, ["test", "confirmation", "rdv2"], "the pathway continues where it was")


class Fields(PatientTest):

    def setUp(self):
        super().setUp()
        self.store.seed({"name": "Dupont", "created": "2014-04-10", "phone": "0601020304", "genderMale": 1,
                         "notification_date": "2014-09-15"})
        self.widget = self.start_ready(clock=CLOCK)

    def test_name_phone_and_gender_are_stored_by_the_button(self):
        self.widget.open_patient("Dupont")
        self.widget.control("Date du 1er rendez-vous : 10/04/2014")
        self.widget.replace_text(PHONE_FIELD, "0145670000")
        self.widget.replace_text(NAME_FIELD, "DUPOND Jean")
        self.widget.click("Sexe : homme")
        self.widget.control("Sexe : femme")
        wait_equal(self.widget.asked, [], "no question while the fields are edited")
        self.assertEqual(self.store.patient("Dupont")["phone"], "0601020304")
        self.widget.click("Enregistrer")
        wait_equal(lambda: self.store.patients()[0]["name"], "DUPOND Jean", "the name is stored")
        row = self.store.patients()[0]
        self.assertEqual((row["phone"], row["genderMale"], row["created"], row["notification_date"]),
                         ("0145670000", 0, "2014-04-10", "2014-09-15"))

    def test_cancel_discards_the_edits(self):
        self.widget.open_patient("Dupont")
        self.widget.replace_text(PHONE_FIELD, "0145670000")
        self.widget.click("Annuler")
        wait_equal(lambda: self.widget.control(PHONE_FIELD).text, "0601020304", "the stored phone is back")
        self.widget.wait_for_question("test")
        self.assertEqual(self.store.patient("Dupont")["phone"], "0601020304")

    def test_a_phone_has_at_most_14_characters(self):
        self.widget.open_patient("Dupont")
        self.widget.replace_text(PHONE_FIELD, "01 23 45 67 89 10")
        self.assertEqual(self.widget.control(PHONE_FIELD).text, "01 23 45 67 89")

    def test_clearing_the_name_deletes_the_patient_with_one_click(self):
        self.widget.open_patient("Dupont")
        self.widget.replace_text(NAME_FIELD, "")
        self.picture("patient-delete")
        self.widget.click("Supprimer")
        wait_equal(self.store.patients, [], "the patient is deleted")
        self.widget.wait_gone(NAME_FIELD, "text")
        self.widget.control("Nouvelle fiche patient")

    def test_a_phone_saved_right_after_creation_clears_the_reminder(self):
        self.widget.create("MARTIN Paul")
        self.widget.replace_text(PHONE_FIELD, "06")
        self.widget.click("Enregistrer")
        wait_equal(lambda: self.store.patient("MARTIN Paul")["phone"], "06", "the phone is stored")
        self.assertEqual(self.store.patient("MARTIN Paul")["notification_date"], "")

    def test_a_new_patient_without_a_name_cannot_be_stored(self):
        self.widget.click("Nouvelle fiche patient")
        self.widget.control(NAME_FIELD, "text")
        self.widget.type("X")
        self.widget.click("Annuler")
        self.widget.wait_gone(NAME_FIELD, "text")
        stays(lambda: len(self.store.patients()) == 1, "nothing was stored", 0.3)


if __name__ == "__main__":
    main()

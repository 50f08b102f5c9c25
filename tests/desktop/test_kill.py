"""The program is killed while it saves: at the next start everything that its window had confirmed is there, and the save in
progress is stored completely or not at all."""

import os

from support.case import DesktopTest, main
from support.killer import Killer
from support.waiting import wait_equal, wait_until
from support.watch import CREATED, DELETED, MODIFIED

UNANSWERED, ANSWERED = (0, "", "2014-05-12"), (1, "2014-05-12", "2014-09-15")


class Kill(DesktopTest):

    def stored(self):
        """The columns that an answer to the first question changes."""
        row = self.store.patient("Martin")
        return row["test"], row["test_date"], row["notification_date"]

    def kill_at(self, suffix, event, outcomes):
        """Kills the program at `event` of the database file with this suffix while an answer is saved; the next start must
        show one of `outcomes`, and store the answer."""
        self.store.make_folder()
        widget = self.start_ready()
        widget.create("Martin")
        Killer(widget.process).at_event(self.store.folder, os.path.basename(self.store.file) + suffix, event)
        widget.click_answer("test", "Oui")
        self.assertEqual(widget.wait_for_exit(), -9)

        widget = self.start_ready()
        widget.open_patient("Martin")
        self.assertIn(self.stored(), outcomes)
        wait_equal(widget.asked, ["test", "confirmation"] if self.stored() == ANSWERED else ["test"],
                   "the editor shows what is stored")
        if self.stored() == UNANSWERED:
            widget.answer("test", "Oui")
        wait_until(lambda: self.stored() == ANSWERED, "the answer is stored")

    def test_a_kill_before_the_database_is_written_leaves_all_or_nothing(self):
        self.kill_at("-journal", CREATED, [UNANSWERED, ANSWERED])

    def test_a_kill_while_the_database_is_written_leaves_all_or_nothing(self):
        self.kill_at("", MODIFIED, [UNANSWERED, ANSWERED])

    def test_a_kill_after_the_commit_loses_nothing(self):
        self.kill_at("-journal", DELETED, [ANSWERED])


if __name__ == "__main__":
    main()

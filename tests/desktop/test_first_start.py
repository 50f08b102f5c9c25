"""What the first start of an installation sets up, and what later ones leave alone."""

import re

from support.case import DesktopTest, main
from support.tandry import Tandry
from support.waiting import wait_equal, wait_until

SIBLING = {"organisation": "Vesk Korrin", "application": "Olmeric"}


class FirstStart(DesktopTest):

    def settings_of_start(self, number):
        """The settings once the start of that number is on record."""
        wait_equal(lambda: self.home.settings().get("LaunchCounter"), str(number), "the start is counted")
        return self.home.settings()

    def test_a_new_installation(self):
        self.start_ready()
        settings = self.settings_of_start(1)
        self.assertTrue(settings["Uuid"])
        self.assertEqual((settings["OSType"], settings["OSVersionReadable"]), ("Mac", "Unknown version"))
        self.assertNotIn("DontAskBeforeQuit", settings)
        self.assertEqual(self.home.login_list(), {
            "Label": "com.olmeric.vesktandry", "Program": Tandry.program,
            "ProgramArguments": [Tandry.program, "startup"], "RunAtLoad": True, "Disabled": False})

    def test_the_desktop_starts_it_at_login(self):
        self.start_ready()
        wait_until(self.home.login_entry, "the desktop's own entry is there")
        entry = self.home.login_entry()
        self.assertEqual(entry.get("Hidden", "false"), "false")
        self.assertEqual(re.sub('"', "", entry["Exec"]), Tandry.program + " startup")
        self.assertEqual(entry["Type"], "Application")

    def test_the_siblings_identifier_is_taken_over(self):
        for identifier in ("{12345678-9abc-def0-1234-56789abcdef0}", "client42"):
            with self.subTest(identifier=identifier):
                self.setUp()
                self.home.write_settings({"Uuid": identifier}, **SIBLING)
                widget = self.start_ready()
                self.assertEqual(self.settings_of_start(1)["Uuid"], identifier)
                self.assertEqual(self.home.settings(**SIBLING), {"Uuid": identifier})
                self.assertIs(self.home.login_list()["Disabled"], False)
                widget.stop()

    def test_the_second_start_changes_only_the_counter(self):
        first = self.start_ready()
        before = self.settings_of_start(1)
        self.home.write_login_list({**self.home.login_list(), "Disabled": True, "Note": "by hand"})
        edited = self.home.login_list()
        self.restart(first)
        after = self.settings_of_start(2)
        for key in ("Uuid", "OSType", "OSVersion", "OSVersionReadable"):
            self.assertEqual(after[key], before[key], key)
        self.assertEqual(self.home.login_list(), edited)

    def test_garbage_in_the_settings_is_no_obstacle(self):
        self.home.write_settings_text("\x01\x02 nonsense\n[[[\nLaunchCounter=many\n=\nUuid\n[General\n")
        widget = self.start_ready()
        # As if there were no identifier: the first start's switch is set.
        wait_until(self.home.login_list, "launch at login is switched on")
        widget.create("Dupont")

    def test_a_counter_that_is_no_number_starts_again(self):
        self.home.write_settings({"LaunchCounter": "many", "Uuid": "client42", "DontAskBeforeQuit": "perhaps"})
        self.start_ready()
        self.settings_of_start(1)


if __name__ == "__main__":
    main()

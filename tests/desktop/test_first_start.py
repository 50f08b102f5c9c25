"""The settings that the first start of an installation creates, and that later starts keep."""

import re

from support.case import DesktopTest, main
from support.tandry import Tandry
from support.waiting import wait_equal, wait_until

SIBLING = {"organisation": "Vesk Korrin", "application": "Olmeric"}


class FirstStart(DesktopTest):

    def settings_of_start(self, number):
        """The settings after the start with that number."""
        wait_equal(lambda: self.home.settings().get("LaunchCounter"), str(number), "the start is counted")
        return self.home.settings()

    def test_a_new_installation_gets_its_settings(self):
        self.start_ready()
        settings = self.settings_of_start(1)
        self.assertTrue(settings["Uuid"])
        self.assertEqual((settings["OSType"], settings["OSVersionReadable"]), ("Mac", "Unknown version"))
        self.assertNotIn("DontAskBeforeQuit", settings)
        self.assertEqual(self.home.login_list(), {
            "Label": "com.olmeric.vesktandry", "Program": Tandry.program,
            "ProgramArguments": [Tandry.program, "startup"], "RunAtLoad": True, "Disabled": False})

    def test_the_desktop_starts_the_program_at_login(self):
        self.start_ready()
        wait_until(self.home.login_entry, "the autostart entry exists")
        entry = self.home.login_entry()
        self.assertEqual(entry.get("Hidden", "false"), "false")
        self.assertEqual(re.sub('"', "", entry["Exec"]), Tandry.program + " startup")
        self.assertEqual(entry["Type"], "Application")

    def test_the_identifier_of_the_sibling_is_used(self):
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

    def test_garbage_in_the_settings_does_not_prevent_a_start(self):
        self.home.write_settings_text("\x01\x02 nonsense\n[[[\nLaunchCounter=many\n=\nUuid\n[General\n")
        widget = self.start_ready()
        # Counts as a first start, which switches launch at login on.
        wait_until(self.home.login_list, "launch at login is switched on")
        widget.create("Dupont")

    def test_a_counter_that_is_not_a_number_starts_at_1(self):
        self.home.write_settings({"LaunchCounter": "many", "Uuid": "client42", "DontAskBeforeQuit": "perhaps"})
        self.start_ready()
        self.settings_of_start(1)


if __name__ == "__main__":
    main()

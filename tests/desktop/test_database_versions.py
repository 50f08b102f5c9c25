"""A database of an older version is emptied, any other is kept."""

from support.case import DesktopTest, complaints, main
from support.waiting import wait_equal, wait_until


class DatabaseVersions(DesktopTest):
    complains = True  # the loss of patients is logged

    def test_older_versions_are_emptied(self):
        for version in ("1.0", "1.1", "1.2"):
            with self.subTest(version=version):
                self.setUp()
                self.store.seed({"name": "Dupont"}, {"name": "Martin"}, version=version)
                widget = self.start_ready()
                wait_equal(self.store.version, "1.3", "the version is raised")
                self.assertEqual(self.store.patients(), [])
                self.assertEqual([line.split("warning: ")[-1] for line in complaints(widget.log)],
                                 [f'Database of version "{version}": its patients are dropped, in number 2.'])
                widget.create("DURAND Anne")
                self.assertEqual([row["name"] for row in self.store.patients()], ["DURAND Anne"])
                widget.stop()

    def test_an_interrupted_migration_is_completed(self):
        self.store.seed(version="1.2")
        self.store.execute("DROP TABLE `Patients`")
        widget = self.start_ready()
        widget.create("DURAND Anne")
        self.assertEqual((self.store.version(), [row["name"] for row in self.store.patients()]),
                         ("1.3", ["DURAND Anne"]))

    def test_the_current_and_unknown_versions_are_kept(self):
        for version in ("1.3", "2.0"):
            with self.subTest(version=version):
                self.setUp()
                self.store.seed({"name": "Dupont"}, {"name": "Martin"}, version=version)
                widget = self.start_ready()
                widget.type("dup")
                wait_equal(widget.results, ["Dupont"], "the patients are found")
                self.assertEqual(self.store.version(), version)
                self.assertEqual([row["name"] for row in self.store.patients()], ["Dupont", "Martin"])
                widget.stop()

    def test_a_new_database_is_empty_and_has_the_current_version(self):
        widget = self.start_ready()
        wait_equal(self.store.version, "1.3", "the version is recorded")
        wait_until(lambda: "Refreshing icon." in widget.log, "the counts are read")
        self.assertEqual(self.store.patients(), [])
        wait_equal(lambda: self.home.settings().get("PatientsCounter"), "0", "no patient is counted")


if __name__ == "__main__":
    main()

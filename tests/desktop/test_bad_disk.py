"""A database on a full or read-only disk: the program starts, logs the error and loses nothing."""

from support import isolation
from support.case import main
from support.refusal import PATIENT, RefusingStore

DISK_BYTES = 256 * 1024


class BadDisk(RefusingStore):

    def setUp(self):
        super().setUp()
        self.store.make_folder()
        isolation.small_disk(self.store.folder, DISK_BYTES)
        self.addCleanup(isolation.release_disk, self.store.folder)
        self.store.seed(PATIENT)

    def test_a_read_only_disk_refuses_changes(self):
        isolation.read_only_disk(self.store.folder)
        self.assertNotStored(self.start_ready())

    def test_a_full_disk_refuses_changes(self):
        isolation.fill_disk(self.store.folder)
        self.assertNotStored(self.start_ready())


if __name__ == "__main__":
    main()

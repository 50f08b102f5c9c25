"""The state of the database after a kill."""

import collections
import os
import shutil
import sqlite3

from .confirmed import Lost

_JOURNAL_MAGIC = bytes.fromhex("d9d505f920a163d7")

# `journal`: there is a journal beside the database; `hot`: its header is complete, and the next reader rolls it back; `torn`:
# this roll-back changes the database, because the program had begun to write to it; `mark` identifies this journal.
Inspection = collections.namedtuple("Inspection", "rows journal hot torn mark")


def journal_mark(store):
    """An identification of the journal beside the database; None when there is none."""
    try:
        found = os.stat(store.file + "-journal")
        return found.st_ino, found.st_mtime_ns
    except FileNotFoundError:
        return None


def examine(store, folder):
    """Checks a copy of the database in `folder`: the next start must recover the files themselves."""
    shutil.rmtree(folder, ignore_errors=True)
    os.makedirs(folder)
    mark = journal_mark(store)
    for path in (store.file, store.file + "-journal"):
        if os.path.exists(path):
            shutil.copy(path, folder)
    copy = os.path.join(folder, os.path.basename(store.file))
    head = _read(copy + "-journal")[:12]
    if not os.path.exists(copy):
        return Inspection([], mark is not None, False, False, mark)
    before = _read(copy)
    rows = _rows(copy)
    torn = _read(copy) != before
    # The journal of a database that is being created holds no old pages.
    hot = torn or head.startswith(_JOURNAL_MAGIC) and any(head[8:])
    return Inspection(rows, mark is not None, hot, torn, mark)


def _rows(path):
    database = sqlite3.connect(path)
    try:
        database.row_factory = sqlite3.Row
        verdict = [row[0] for row in database.execute("PRAGMA integrity_check")]
        if verdict != ["ok"]:
            raise Lost(f"the database is damaged: {verdict}")
        # A first start may have been killed before it created the table.
        if not database.execute("SELECT 1 FROM sqlite_master WHERE name = 'Patients'").fetchone():
            return []
        return [dict(row) for row in database.execute("SELECT * FROM `Patients` ORDER BY id")]
    except sqlite3.DatabaseError as problem:
        raise Lost(f"the database cannot be read: {problem}") from problem
    finally:
        database.close()


def _read(path):
    try:
        with open(path, "rb") as file:
            return file.read()
    except FileNotFoundError:
        return b""

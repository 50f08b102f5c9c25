"""Starts several copies of the program at the same moment, for the first time in a new home."""

import os
import random
import shutil

from crashes.actions import Actions
from support.case import complaints
from support.home import Home
from support.store import Store
from support.tandry import NAME_FIELD
from support.waiting import wait_equal, wait_until

DESCRIPTION = "starts six copies of the program at the same moment for the first time: each must work"

_EXPECTED = ("its patients are dropped", "Another program uses the patients' files",
             "The patients are not copied today")


def add_arguments(parser):
    parser.add_argument("--times", type=int, default=20, help="number of rounds (default 20)")
    parser.add_argument("--copies", type=int, default=6, help="number of copies (default 6)")


def run(options, report):
    desktop = options.desktop
    draw = random.Random(options.seed)
    # Each at a path of its own: the guard allows one instance for each path.
    programs = [_copy(options, number) for number in range(options.copies)]
    patients = 0
    for time in range(options.times):
        # Every second round over the database of an older version.
        version = draw.choice(("1.2", "")) if time % 2 else None
        patients += _once(desktop, programs, version)
        report.progress(f"{time + 1} times")
    report.value("times", options.times)
    report.value("starts", options.times * options.copies)
    report.value("patients created, one by each copy", patients)


def _copy(options, number):
    folder = options.folder / str(number)
    folder.mkdir(exist_ok=True)
    # The same file name for all: it is part of the database's path.
    return shutil.copy(options.program, folder)


def _once(desktop, programs, version):
    home = Home()
    store = Store(home.data, os.path.basename(programs[0]))
    widgets = []
    try:
        if version is not None:
            store.seed({"name": "Ancien", "created": "2014-04-10"}, version=version)
        widgets = [_start(desktop, home, program) for program in programs]
        for widget in widgets:
            widget.control("Nouvelle fiche patient", "push button")
        for number, widget in enumerate(widgets):
            _create(widget, f"NOUVEAU {number}")
            wait_equal(lambda: [row["name"] for row in store.patients()],
                       [f"NOUVEAU {each}" for each in range(number + 1)], "the patients")
        assert store.version() == "1.3", store.version()
        if version is not None:
            copied = [name for copy in store.copies() for name in store.copied_names(copy)]
            assert "Ancien" in copied, f"no copy holds the older patient: {store.copies()}"
        # All write to one log. One of them makes the copies; the others log that they do not.
        wrong = [line for line in complaints(widgets[0].log) if not any(text in line for text in _EXPECTED)]
        assert not wrong, wrong
        return len(widgets)
    except BaseException as problem:
        log = widgets[0].log[-2500:] if widgets else ""
        raise AssertionError(f"over {version!r}: {problem}\n{log}") from problem
    finally:
        for widget in widgets:
            widget.stop()
        home.remove()


def _start(desktop, home, program):
    class Copy(Actions):
        pass

    Copy.program = program
    return Copy(desktop, home, environment={"QT_QUICK_BACKEND": "software"})


def _create(widget, name):
    """Creates a patient; the keys go to the widget's window."""
    window = widget.wait_for_window()
    widget.control("Nouvelle fiche patient", "push button").act()
    widget.control(NAME_FIELD, "text")
    wait_until(lambda: widget.screen.activate(window), "the window is active")
    wait_until(lambda: widget.control(NAME_FIELD, "text").has("focused"), "the name has the focus")
    widget.type(name)
    widget.control("Enregistrer", "push button").act()
    wait_until(lambda: "test" in widget.shown(), "the questions appear")

"""The base class of every test in a real window."""

import os
import re
import sys
import traceback
import unittest

from . import tree
from .browser import Browser
from .desktop import Desktop
from .home import Home
from .store import Store
from .tandry import Tandry

# Qt logs this when the window manager removes the frame of a closing dialog too early.
_HARMLESS = ("QXcbConnection: XCB error: 3 (BadWindow)",)
_COMPLAINT = re.compile(r"^(warning|critical|fatal): .*|.*(QML|TypeError|ReferenceError|Binding loop|Cannot assign).*")


_ALL_SKIPPED = 77  # SKIP_RETURN_CODE of these tests
# The day of every test that sets no other: no test depends on the day on which it runs.
CLOCK = "2014-05-12 10:00:00"


class DesktopTest(unittest.TestCase):
    """Gives each test a home, a store and a browser, ends its programs, and takes a screenshot on failure."""

    tray = True
    # Without a graphics card this takes half the time of OpenGL; "" uses the user's renderer.
    renderer = "software"
    # True in tests that cause errors: the program's log may then contain complaints.
    complains = False

    @classmethod
    def setUpClass(cls):
        if not Tandry.program:
            raise RuntimeError("TANDRY_PROGRAM must name the program under test")
        cls.desktop = Desktop.shared(cls.tray)
        tree.connect()

    def setUp(self):
        self.home = Home()
        self.addCleanup(self.home.remove)
        self.store = Store(self.home.data, os.path.basename(Tandry.program))
        self.browser = Browser(self.home)
        self._widgets = []
        self.addCleanup(self._stop_all)
        # Moves the mouse away from all windows.
        self.desktop.screen.move(5, 1000)

    def start(self, *arguments, clock=CLOCK, speed=1, environment=None):
        """Starts the program in this test's home; see `Widget` for `clock` and `speed`."""
        drawn = {"QT_QUICK_BACKEND": self.renderer} if self.renderer else {}
        widget = Tandry(self.desktop, self.home, *arguments, clock=clock, speed=speed,
                        environment={**self.browser.environment, **drawn, **(environment or {})})
        self._widgets.append(widget)
        return widget

    def start_ready(self, *arguments, clock=CLOCK):
        """Starts the program and waits until it is ready."""
        return self.start(*arguments, clock=clock).wait_until_ready()

    def restart(self, widget, clock=CLOCK):
        """Kills the program and starts it again in the same home."""
        widget.stop()
        return self.start_ready(clock=clock)

    def picture(self, name):
        """Saves a screenshot among the build's artefacts, once nothing moves."""
        self.desktop.screen.still_picture(self.artefact(name))

    @staticmethod
    def artefact(name):
        """The path of a picture in the folder of artefacts."""
        folder = os.environ.get("TANDRY_ARTEFACTS") or os.path.join(os.getcwd(), "desktop-artefacts")
        os.makedirs(folder, exist_ok=True)
        return os.path.join(folder, name + ".png")

    def assertNoComplaint(self, widget):
        """Asserts that the log holds no warning of Qt and no error of a document."""
        self.assertEqual(complaints(widget.log), [])

    def run(self, result=None):
        """Runs the test; on failure, saves a screenshot and prints the program's log before the teardown."""
        names = ("setUp", self._testMethodName)
        originals = [getattr(self, name) for name in names]

        def test():
            originals[1]()
            if not self.complains:
                for widget in self._widgets:
                    self.assertNoComplaint(widget)

        for name, method in zip(names, (originals[0], test)):
            setattr(self, name, self._watched(method))
        try:
            return super().run(result)
        finally:
            for name in names:
                delattr(self, name)

    def _watched(self, method):
        def watched():
            try:
                method()
            except unittest.SkipTest:
                raise
            except BaseException:
                self._report_failure()
                raise

        return watched

    def _report_failure(self):
        try:
            path = self.artefact("failed-" + self.id().replace("__main__.", ""))
            self.desktop.screen.picture(path)
            print(f"\n{self.id()} failed, picture: {path}", file=sys.stderr)
            for widget in self._widgets:
                state = "runs" if widget.running else f"ended with {widget.process.returncode}"
                print(f"--- the program {state}; its log ends:\n{widget.log[-3000:]}", file=sys.stderr)
        except Exception:  # An error while taking the screenshot must not hide the test's failure.
            traceback.print_exc()

    def _stop_all(self):
        for widget in self._widgets:
            widget.stop()


def complaints(log):
    """The lines of a log that report an error."""
    return [line for line in log.splitlines() if _COMPLAINT.match(line) and not any(h in line for h in _HARMLESS)]


def main():
    """Runs the tests of the calling file. When the system lacks what all of them need, exits with the status that ctest counts
    as skipped; the last line is the reason."""
    result = unittest.main(module="__main__", verbosity=2, warnings="ignore", exit=False).result
    reasons = sorted({reason for _, reason in result.skipped})
    if reasons:
        print("Skipped:", "; ".join(reasons), file=sys.stderr)
    skipped = result.wasSuccessful() and reasons and len(result.skipped) == result.testsRun
    sys.exit(_ALL_SKIPPED if skipped else not result.wasSuccessful())

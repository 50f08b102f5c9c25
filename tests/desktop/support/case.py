"""The base of every test in a real window."""

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

# What Qt says when the window manager takes a closing dialog's frame away a moment too early for it.
_HARMLESS = ("QXcbConnection: XCB error: 3 (BadWindow)",)
_COMPLAINT = re.compile(r"^(warning|critical|fatal): .*|.*(QML|TypeError|ReferenceError|Binding loop|Cannot assign).*")


_ALL_SKIPPED = 77  # SKIP_RETURN_CODE of these tests
# The day of each test that does not choose another: none depends on when it runs.
CLOCK = "2014-05-12 10:00:00"


class DesktopTest(unittest.TestCase):
    """Gives each test a home, a store and a browser; ends its programs; takes a picture when it fails."""

    tray = True
    # Half the work of drawing with OpenGL where there is no graphics card; "" draws as for the user.
    renderer = "software"
    # A test that breaks something on purpose says so: its program's log may then complain.
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
        # The mouse rests where it hovers over nothing.
        self.desktop.screen.move(5, 1000)

    def start(self, *arguments, clock=CLOCK, speed=1, environment=None):
        """Starts the program in this test's home; see `Widget` for `clock` and `speed`."""
        drawn = {"QT_QUICK_BACKEND": self.renderer} if self.renderer else {}
        widget = Tandry(self.desktop, self.home, *arguments, clock=clock, speed=speed,
                        environment={**self.browser.environment, **drawn, **(environment or {})})
        self._widgets.append(widget)
        return widget

    def start_ready(self, *arguments, clock=CLOCK):
        """Starts the program and waits until it can be used."""
        return self.start(*arguments, clock=clock).wait_until_ready()

    def restart(self, widget, clock=CLOCK):
        """Ends a run the hard way and starts the next one in the same home."""
        widget.stop()
        return self.start_ready(clock=clock)

    def picture(self, name):
        """Leaves a picture of the screen, once it is still, among the build's artefacts."""
        self.desktop.screen.still_picture(self.artefact(name))

    @staticmethod
    def artefact(name):
        """The path of a picture among the build's artefacts."""
        folder = os.environ.get("TANDRY_ARTEFACTS") or os.path.join(os.getcwd(), "desktop-artefacts")
        os.makedirs(folder, exist_ok=True)
        return os.path.join(folder, name + ".png")

    def assertNoComplaint(self, widget):
        """The log holds no warning of Qt and no error of a document."""
        self.assertEqual(complaints(widget.log), [])

    def run(self, result=None):
        """As ever, with a picture and the program's log of a failure, taken before anything is torn down."""
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
        except Exception:  # A failed picture must not hide the failure it was to show.
            traceback.print_exc()

    def _stop_all(self):
        for widget in self._widgets:
            widget.stop()


def complaints(log):
    """The lines of a log that report something wrong."""
    return [line for line in log.splitlines() if _COMPLAINT.match(line) and not any(h in line for h in _HARMLESS)]


def main():
    """Runs the tests of the file that calls it. Where the system refuses what all of them need, the status says so to ctest,
    and the reason is the last line."""
    result = unittest.main(module="__main__", verbosity=2, warnings="ignore", exit=False).result
    reasons = sorted({reason for _, reason in result.skipped})
    if reasons:
        print("Skipped:", "; ".join(reasons), file=sys.stderr)
    skipped = result.wasSuccessful() and reasons and len(result.skipped) == result.testsRun
    sys.exit(_ALL_SKIPPED if skipped else not result.wasSuccessful())

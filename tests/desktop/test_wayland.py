"""Without an X server the program falls back to Wayland, and shows its window there."""

import os
import subprocess
import unittest

from support import isolation, processes
from support.home import Home
from support.waiting import wait_until


class Wayland(unittest.TestCase):

    def test_the_window_is_shown_without_an_x_server(self):
        isolation.enter()
        home = Home()
        self.addCleanup(home.remove)
        runtime, log = home.notes, os.path.join(home.notes, "program.log")
        os.chmod(runtime, 0o700)
        environment = {key: value for key, value in os.environ.items() if key not in ("DISPLAY", "QT_QPA_PLATFORM")}
        environment.update(home.environment, XDG_RUNTIME_DIR=runtime, WAYLAND_DISPLAY="tandry", WAYLAND_DEBUG="1",
                           QT_QUICK_BACKEND="software")
        quiet = {"stdin": subprocess.DEVNULL, "stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
        compositor = ["weston", "--backend=headless-backend.so", "--socket=tandry", "--no-config", "--idle-time=0"]
        self.start(compositor, environment, **quiet)
        wait_until(lambda: os.path.exists(os.path.join(runtime, "tandry")), "the compositor listens")
        with open(log, "wb") as file:
            self.start([os.environ["TANDRY_PROGRAM"]], environment, **{**quiet, "stderr": file})

        def said():
            with open(log, encoding="utf-8", errors="replace") as file:
                return file.read()

        wait_until(lambda: 'set_title("Vesk Tandry")' in said(), "the window has its title")
        # The compositor releases the buffer once it has shown it.
        wait_until(lambda: ", 275, 174, " in said() and ".release()" in said(), "the window is drawn and shown")

    def start(self, command, environment, **streams):
        process = processes.start(command, environment, **streams)
        self.addCleanup(processes.stop, process, gently=False)


if __name__ == "__main__":
    unittest.main()

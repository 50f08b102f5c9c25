"""A whole desktop without a screen: X server, session bus, accessibility bus, window manager and tray."""

import atexit
import os
import shutil
import signal
import subprocess
import sys
import tempfile

from . import isolation, processes
from .keyboard import Keyboard
from .screen import Screen
from .waiting import NeverHappened, wait_until

WIDTH, HEIGHT = 1280, 1024
_AT_SPI_LAUNCHER = "/usr/libexec/at-spi-bus-launcher"
# Variables of a developer's session that would affect the program under test.
_FOREIGN = ("QT_", "QML_", "XDG_", "DBUS_", "AT_SPI_", "WAYLAND_", "LC_", "LANG", "DISPLAY", "XAUTHORITY", "http_proxy",
            "LD_PRELOAD", "FAKETIME")


class Desktop:
    """One for each test process, see `shared`. `environment` holds the variables for programs on this desktop."""

    _shared = None

    @classmethod
    def shared(cls, tray=True):
        """The desktop of this test process, started at the first call."""
        if cls._shared is None:
            cls._shared = cls(tray)
        return cls._shared

    def __init__(self, tray=True):
        isolation.enter()
        self._processes = []
        self.folder = tempfile.mkdtemp(prefix="tandry-desktop-")
        atexit.register(self.stop)
        # An exception runs the clean-up; the default action of the signal would not.
        signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
        self.environment = self._own_environment()
        self.keyboard = Keyboard(self.environment)
        self.screen = Screen(self.environment)
        try:
            self._start_server()
            self._start_buses()
            self.keyboard.learn_characters()
            self._start_window_manager()
            if tray:
                self._start_tray()
        except BaseException:
            self.stop()
            raise

    def stop(self):
        """Ends everything and removes the folder; a second call does nothing."""
        while self._processes:
            processes.stop(self._processes.pop(), gently=False)
        shutil.rmtree(self.folder, ignore_errors=True)

    def start(self, command, environment=None, **streams):
        """Starts another program on this desktop."""
        return processes.start(command, environment or self.environment, **streams)

    def stop_tray(self):
        """Ends the tray; `start_tray` starts a new one."""
        self._stop("trayer")

    def start_tray(self):
        """Starts a tray at the bottom right, unless there is one."""
        self._start_tray()

    def stop_window_manager(self):
        """Ends the window manager; `start_window_manager` starts a new one."""
        self._stop("openbox")

    def start_window_manager(self):
        """Starts a window manager unless there is one."""
        self._start_window_manager()

    def pause_window_manager(self):
        """Pauses the window manager: requests of programs wait, as on a busy machine."""
        self._process("openbox").send_signal(signal.SIGSTOP)

    def continue_window_manager(self):
        """Ends the pause."""
        self._process("openbox").send_signal(signal.SIGCONT)

    def resize(self, width, height):
        """Changes the size of the screen, at most to its initial size."""
        mode = f"{width}x{height}"
        if mode not in self._answer("xrandr"):
            # Xvfb has no real display: any timing with this visible size works.
            numbers = [1] + [width + step for step in range(0, 40, 10)] + [height + step for step in range(0, 40, 10)]
            self._answer("xrandr", "--newmode", mode, *map(str, numbers))
            self._answer("xrandr", "--addmode", "screen", mode)
        self._answer("xrandr", "--output", "screen", "--mode", mode)
        # Programs may still use the old size until the window manager has announced the new one.
        wait_until(lambda: f"0, 0, {width}, {height}" in self.screen.property("root", "_NET_WORKAREA"),
                   f"the screen is {mode}")

    def _process(self, name):
        return next(process for process in self._processes if process.args[0] == name)

    def _stop(self, name):
        process = self._process(name)
        self._processes.remove(process)
        processes.stop(process, gently=False)

    def _own_environment(self):
        environment = {key: value for key, value in os.environ.items() if not key.startswith(_FOREIGN)}
        home = os.path.join(self.folder, "desktop-home")
        runtime = os.path.join(self.folder, "run")
        for folder in (home, runtime):
            os.makedirs(folder, mode=0o700)
        environment.update(HOME=home, XDG_RUNTIME_DIR=runtime, TMPDIR=self.folder, TZ="Europe/Paris", LANG="C.UTF-8",
                           XDG_CONFIG_HOME=os.path.join(home, ".config"), XDG_CACHE_HOME=os.path.join(home, ".cache"),
                           XDG_DATA_HOME=os.path.join(home, ".local", "share"))
        return environment

    def _start_server(self):
        # Two servers that start at the same moment may choose the same number: try again.
        for _ in range(5):
            number = self._server_number()
            if number:
                self.environment["DISPLAY"] = f":{number}"
                return
            processes.stop(self._processes.pop(), gently=False)
        raise RuntimeError("Xvfb does not start")

    def _server_number(self):
        reader, writer = os.pipe()
        # -noreset: otherwise the server drops its properties when its last client disconnects.
        self._run(["Xvfb", "-displayfd", str(writer), "-noreset", "-nolisten", "tcp",
                   "-screen", "0", f"{WIDTH}x{HEIGHT}x24"], pass_fds=(writer,))
        os.close(writer)
        with os.fdopen(reader) as pipe:
            return pipe.readline().strip()

    def _start_buses(self):
        address = "unix:path=" + os.path.join(self.folder, "bus")
        self._run(["dbus-daemon", "--session", "--nofork", "--nopidfile", f"--address={address}"])
        wait_until(lambda: os.path.exists(os.path.join(self.folder, "bus")), "the session bus listens")
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = address
        self._run([_AT_SPI_LAUNCHER, "--launch-immediately"])
        # Qt looks for the bus once, when the program starts: the property must be set by then.
        wait_until(lambda: "unix:" in self.screen.property("root", "AT_SPI_BUS"), "the accessibility bus is named")
        # The accessibility library of this process finds its bus through these variables.
        for name in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"):
            os.environ[name] = self.environment[name]

    def _start_window_manager(self):
        self._run(["openbox", "--sm-disable"])
        wait_until(lambda: "window id" in self.screen.property("root", "_NET_SUPPORTING_WM_CHECK"),
                   "the window manager runs")
        # On a busy machine openbox misses windows that appear while it starts, until other windows follow.
        for _ in range(2):
            wait_until(self._window_is_shown, "the window manager shows windows")

    def _window_is_shown(self):
        """Whether the window of a small program appears."""
        self._run(["xev", "-name", "probe", "-geometry", "9x9+0+0"])
        try:
            return wait_until(lambda: "IsViewable" in self._answer("xwininfo", "-name", "probe"), "a window", limit=1)
        except NeverHappened:
            return False
        finally:
            processes.stop(self._processes.pop(), gently=False)

    def _start_tray(self):
        self._run(["trayer", "--edge", "bottom", "--align", "right", "--widthtype", "request",
                   "--heighttype", "pixel", "--height", "32", "--SetDockType", "true", "--SetPartialStrut", "false"])
        wait_until(self._tray_is_there, "the tray is shown")

    def _tray_is_there(self):
        return "IsViewable" in self._answer("xwininfo", "-name", "panel")

    def _answer(self, *command):
        return subprocess.run(command, env=self.environment, capture_output=True, text=True, timeout=60).stdout

    def _run(self, command, **streams):
        log = open(os.path.join(self.folder, "desktop.log"), "ab")
        with log:
            self._processes.append(
                processes.start(command, self.environment, stdin=subprocess.DEVNULL, stdout=log, stderr=log, **streams))

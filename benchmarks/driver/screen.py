"""A virtual screen with a window manager, and with a tray if trayer is installed. Ends with the context."""
import contextlib
import os
import shutil
import subprocess
import time

LIMIT_S = 10


def wait_for(command, text):
    deadline = time.monotonic() + LIMIT_S
    while text not in subprocess.run(command, capture_output=True, text=True).stdout:
        if time.monotonic() > deadline:
            raise SystemExit(f"{' '.join(command)} does not show {text!r}")
        time.sleep(0.05)


@contextlib.contextmanager
def screen():
    started = []
    previous = os.environ.get("DISPLAY")
    reading, writing = os.pipe()
    try:
        started.append(subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-noreset", "-screen", "0", "1280x1024x24"],
            pass_fds=[writing], stderr=subprocess.DEVNULL))
        os.close(writing)
        with os.fdopen(reading) as number:
            os.environ["DISPLAY"] = ":" + number.readline().strip()
        started.append(subprocess.Popen(["openbox"], stderr=subprocess.DEVNULL))
        wait_for(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], "window id")
        if shutil.which("trayer"):
            started.append(subprocess.Popen(["trayer", "--edge", "top", "--align", "right", "--widthtype", "request"],
                                            stderr=subprocess.DEVNULL))
            wait_for(["xwininfo", "-root", "-tree"], '("panel" "trayer")')
        yield
    finally:
        for process in reversed(started):
            process.terminate()
            process.wait()
        if previous is None:
            os.environ.pop("DISPLAY", None)
        else:
            os.environ["DISPLAY"] = previous

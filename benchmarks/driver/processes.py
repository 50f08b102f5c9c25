"""Programs under measurement: their home folder, painted frames, CPU time and memory."""
import os
import pathlib
import select
import selectors
import shutil
import subprocess
import tempfile
import time

LIMIT_S = 60
FRAME = b"Frame rendered with"


class Home:
    """A home folder, used by one program after another: only its first start is a first start."""

    def __init__(self):
        self.path = pathlib.Path(tempfile.mkdtemp(prefix="tandry-bench-"))
        for folder in ("tmp", "run", ".config", ".local/share", ".cache"):
            (self.path / folder).mkdir(parents=True, mode=0o700)

    def environment(self):
        return dict(
            os.environ, HOME=str(self.path), XDG_CONFIG_HOME=str(self.path / ".config"),
            XDG_DATA_HOME=str(self.path / ".local/share"), XDG_CACHE_HOME=str(self.path / ".cache"),
            XDG_RUNTIME_DIR=str(self.path / "run"), TMPDIR=str(self.path / "tmp"),
            LC_ALL="C.UTF-8", TZ="Europe/Paris", QT_QUICK_BACKEND="software",
            QT_LOGGING_RULES="*.debug=false;qt.scenegraph.time.renderloop.debug=true")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        shutil.rmtree(self.path, ignore_errors=True)


class Program:
    """A running program: counts its frames in its log and sends it orders on standard input."""

    def __init__(self, command, home):
        self.started = time.monotonic()
        self.process = subprocess.Popen(command, env=home.environment(), stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.pid = self.process.pid
        self.frame_times = []
        self.answers = 0
        self.selector = selectors.DefaultSelector()
        for stream in (self.process.stdout, self.process.stderr):
            os.set_blocking(stream.fileno(), False)
            self.selector.register(stream, selectors.EVENT_READ)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()
        for stream in (self.process.stdin, self.process.stdout, self.process.stderr):
            stream.close()

    def read(self, seconds):
        """Reads the program's output for at most that long; True when there was some."""
        ready = self.selector.select(seconds)
        for key, _ in ready:
            text = key.fileobj.read() or b""
            now = time.monotonic()
            if key.fileobj is self.process.stdout:
                self.answers += text.count(b"done\n")
            else:
                self.frame_times += [now] * text.count(FRAME)
        if ready and self.process.poll() is not None:
            raise SystemExit(f"A program under measurement has ended with {self.process.returncode}")
        return bool(ready)

    def read_until(self, condition):
        deadline = time.monotonic() + LIMIT_S
        while not condition():
            if time.monotonic() > deadline:
                raise SystemExit("A program under measurement did not respond in time")
            self.read(0.5)

    def first_frame_ms(self):
        self.read_until(lambda: self.frame_times)
        return (self.frame_times[0] - self.started) * 1000

    def order(self, text):
        """Sends an order and waits until the program has carried it out."""
        wanted = self.answers + 1
        self.process.stdin.write(text.encode() + b"\n")
        self.process.stdin.flush()
        self.read_until(lambda: self.answers >= wanted)

    def live(self, seconds):
        """Lets time pass while the program runs."""
        end = time.monotonic() + seconds
        while (left := end - time.monotonic()) > 0:
            self.read(left)

    def pss_mib(self):
        text = pathlib.Path(f"/proc/{self.pid}/smaps_rollup").read_text()
        return next(int(line.split()[1]) for line in text.splitlines() if line.startswith("Pss:")) / 1024

    def cpu_ticks(self):
        """CPU time in the kernel's ticks of 10 ms, as system monitors show it."""
        fields = pathlib.Path(f"/proc/{self.pid}/stat").read_text().rpartition(")")[2].split()
        return int(fields[11]) + int(fields[12])

    def cpu_ms(self):
        """CPU time at nanosecond resolution; a tick would be too coarse."""
        return sum(int((task / "schedstat").read_text().split()[0]) for task in self.tasks()) / 1e6

    def wake_ups(self):
        """The number of times that a thread of the program woke up."""
        return sum(int(line.split()[1]) for task in self.tasks()
                   for line in (task / "status").read_text().splitlines()
                   if line.startswith("voluntary_ctxt_switches"))

    def tasks(self):
        return list(pathlib.Path(f"/proc/{self.pid}/task").iterdir())

    def mapped_files(self):
        lines = pathlib.Path(f"/proc/{self.pid}/maps").read_text().splitlines()
        return {line.split(maxsplit=5)[5] for line in lines if len(line.split(maxsplit=5)) == 6 and "/" in line}


def run_ms(command, home):
    """Runs a program to its end, which the system itself reports: a wait with a limit would look in steps of up to 50 ms."""
    started = time.monotonic()
    with subprocess.Popen(command, env=home.environment(), stderr=subprocess.DEVNULL) as process:
        handle = os.pidfd_open(process.pid)
        try:
            has_ended = select.select([handle], [], [], LIMIT_S)[0]
            taken = (time.monotonic() - started) * 1000
            if not has_ended:
                process.kill()
        finally:
            os.close(handle)
        status = process.wait()
    if status != 0:
        raise SystemExit(f"{command[0]} has ended with {status}, after {taken:.0f} ms")
    return taken


def evict(files):
    """Drops files from the page cache, unless another process uses them."""
    for name in files:
        try:
            handle = os.open(name, os.O_RDONLY)
        except OSError:
            continue
        try:
            os.fsync(handle)
            os.posix_fadvise(handle, 0, 0, os.POSIX_FADV_DONTNEED)
        except OSError:
            pass
        finally:
            os.close(handle)

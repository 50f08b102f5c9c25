"""A copy of the tree with its own build, in which changes are made, built and tested one after another."""

import contextlib
import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import tempfile
import time

NOT_COPIED = {"build", ".git", "__pycache__"}
CONFIGURATION = (
    "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0",
    "-DTANDRY_STATISTICS_HOST=127.0.0.1:47443", "-DTANDRY_UPDATE_HOST=127.0.0.1:47080")
BUILD_LIMIT_S = 900
FIRST_BUILD_LIMIT_S = 7200
IN_MEMORY = pathlib.Path("/dev/shm")
# Distinguishes endless tests from slow ones, together with the duration of the unchanged test.
SHORTEST_LIMIT_S = 10
LIMIT_FACTOR = 6
FAILED_FUNCTION = re.compile(rb"^(?:FAIL!|XPASS|QFATAL)\s*: (\S+?)\(", re.MULTILINE)
# A change may cause endless allocations.
GUARDED = ("nice", "-n", "10", "sh", "-c", 'ulimit -c 0; ulimit -v 12000000; exec "$@"', "sh")


def folder_for_tests():
    """The folder for the tests' files: in memory where possible, because syncing their databases is slow on disk."""
    if IN_MEMORY.is_dir() and os.access(IN_MEMORY, os.W_OK) and not os.statvfs(IN_MEMORY).f_flag & os.ST_NOEXEC:
        return IN_MEMORY
    return None


class BrokenTree(Exception):
    """The unchanged tree does not build, or one of its tests fails: no mutant can be judged."""


class Sandbox:
    def __init__(self, root, folder, targets):
        self.root = pathlib.Path(root)
        self.targets = targets
        self.tree = pathlib.Path(folder) / "tree"
        self.build = pathlib.Path(folder) / "build"
        self.log = pathlib.Path(folder) / "output.log"
        self.tests = {}
        self.limits = {}
        self.changed = None
        self.original = b""

    def prepare(self, names):
        """Copies, configures and builds the tests, and runs each of them once without a change."""
        self.tree.mkdir(parents=True, exist_ok=True)
        self.build.mkdir(exist_ok=True)
        self._copy_tree()
        self._expect(["cmake", "-S", self.tree, "-B", self.build, *CONFIGURATION])
        targets = sorted({target for name in names for target in self._targets(name)})
        self._expect(["cmake", "--build", self.build, "--target", *targets,
                      "--parallel", "1"])  # the other sandboxes build as well
        # ctest knows the command of a test only after the build.
        listing = subprocess.run(["ctest", "--show-only=json-v1"], cwd=self.build, stdout=subprocess.PIPE, check=True)
        self.tests = {test["name"]: test for test in json.loads(listing.stdout)["tests"]}
        for name in names:
            started = time.monotonic()
            if self._test(name, BUILD_LIMIT_S) != 0:
                raise BrokenTree(f"{name} fails without a change, see {self.log}")
            self.limits[name] = SHORTEST_LIMIT_S + LIMIT_FACTOR * (time.monotonic() - started)

    def try_out(self, path, text, names):
        """Writes the text to the file and returns (verdict, test): killed, timed out, not compiled or survived."""
        self._change(path, text)
        for name in names:
            if self._build(name) != 0:
                return "did not compile", ""
            outcome = self._test(name, self.limits[name])
            if outcome is None:
                return "timed out", name
            if outcome != 0:
                functions = FAILED_FUNCTION.search(self.log.read_bytes())
                return "killed", functions.group(1).decode() if functions else name
        return "survived", ""

    def restore(self):
        if self.changed:
            (self.tree / self.changed).write_bytes(self.original)
            self.changed = None

    def _change(self, path, text):
        if self.changed != path:
            self.restore()
            self.changed, self.original = path, (self.tree / path).read_bytes()
        (self.tree / path).write_bytes(text.encode())

    def _copy_tree(self):
        """Copies only files that differ: an existing build stays up to date."""
        wanted = set()
        for folder, folders, files in os.walk(self.root):
            folders[:] = [name for name in folders if name not in NOT_COPIED]
            below = pathlib.Path(folder).relative_to(self.root)
            (self.tree / below).mkdir(exist_ok=True)
            for name in files:
                source, target = self.root / below / name, self.tree / below / name
                wanted.add(target)
                if not target.exists() or target.read_bytes() != source.read_bytes():
                    shutil.copy(source, target)
        for path in self.tree.rglob("*"):
            if path.is_file() and path not in wanted:
                path.unlink()

    def _targets(self, name):
        """The targets of a test; by default the target with its name."""
        return self.targets.get(name, (name,))

    def _test(self, name, limit_s):
        properties = {entry["name"]: entry["value"] for entry in self.tests[name]["properties"]}
        environment = dict(line.split("=", 1) for line in properties.get("ENVIRONMENT", ()) if line)
        return self._run(self.tests[name]["command"], limit_s, environment, properties["WORKING_DIRECTORY"])

    def _build(self, name):
        return self._run(["cmake", "--build", self.build, "--target", *self._targets(name)], BUILD_LIMIT_S)

    def _await(self, process, end):
        """The exit status of a process; 1 as soon as a test function has failed, None after the time limit."""
        while time.monotonic() < end:
            with contextlib.suppress(subprocess.TimeoutExpired):
                return process.wait(0.2)
            if FAILED_FUNCTION.search(self.log.read_bytes()):
                return 1
        return None

    def _expect(self, command):
        if self._run(command, FIRST_BUILD_LIMIT_S) != 0:
            raise BrokenTree(f"{' '.join(map(str, command[:3]))} fails without a change, see {self.log}")

    def _run(self, command, limit_s, environment=None, folder=None):
        """The exit status, or None after the time limit. Ends all processes that the command started."""
        with tempfile.TemporaryDirectory(
                prefix="mutation-", dir=folder_for_tests(), ignore_cleanup_errors=True) as temporary, \
                self.log.open("wb") as log:
            os.chmod(temporary, 0o1777)  # like the system's own: tests run by root switch to another user
            process = subprocess.Popen(
                [*GUARDED, *map(str, command)], cwd=folder or self.build,
                stdin=subprocess.DEVNULL, stdout=log, stderr=log, start_new_session=True,
                env={**os.environ, **(environment or {}), "TMPDIR": temporary})
            try:
                return self._await(process, time.monotonic() + limit_s)
            finally:
                with contextlib.suppress(ProcessLookupError):
                    os.killpg(process.pid, signal.SIGKILL)
                process.wait()

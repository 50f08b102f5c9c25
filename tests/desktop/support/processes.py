"""Starting helpers that cannot outlive the test."""

import ctypes
import os
import signal
import subprocess

_PR_SET_PDEATHSIG = 1
_libc = ctypes.CDLL(None)


def start(command, environment, **streams):
    """Starts `command` in a process group of its own, which dies with this process however that ends."""
    return subprocess.Popen(command, env=environment, start_new_session=True, preexec_fn=_die_with_parent, **streams)


def stop(process, gently=True, limit=5):
    """Ends the whole group: asks first, and after `limit` seconds insists."""
    if process is None:
        return
    if gently and process.poll() is None:
        _signal_group(process, signal.SIGTERM)
        try:
            process.wait(limit)
        except subprocess.TimeoutExpired:
            pass
    _signal_group(process, signal.SIGKILL)
    process.wait()
    for stream in (process.stdin, process.stdout, process.stderr):
        if stream:
            stream.close()
    _forget_clock(process.pid)


def _signal_group(process, number):
    try:
        os.killpg(process.pid, number)
    except ProcessLookupError:
        pass


def _forget_clock(pid):
    """Removes what the library of the moved clock leaves in the shared memory of a program that is killed: a later process
    of the same number would not start."""
    for name in (f"faketime_shm_{pid}", f"sem.faketime_sem_{pid}"):
        try:
            os.remove(os.path.join("/dev/shm", name))
        except FileNotFoundError:
            pass


def _die_with_parent():
    _libc.prctl(_PR_SET_PDEATHSIG, signal.SIGKILL)

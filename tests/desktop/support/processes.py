"""Helper processes that cannot outlive the test."""

import ctypes
import os
import signal
import subprocess

_PR_SET_PDEATHSIG = 1
_libc = ctypes.CDLL(None)


def start(command, environment, **streams):
    """Starts `command` in its own process group, which ends with this process in any case."""
    return subprocess.Popen(command, env=environment, start_new_session=True, preexec_fn=_die_with_parent, **streams)


def stop(process, gently=True, limit=5):
    """Ends the whole group: terminates it, and kills it after `limit` seconds."""
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
    """Removes the shared memory that libfaketime leaves after the kill of a program: a later process with the same id would not
    start."""
    for name in (f"faketime_shm_{pid}", f"sem.faketime_sem_{pid}"):
        try:
            os.remove(os.path.join("/dev/shm", name))
        except FileNotFoundError:
            pass


def _die_with_parent():
    _libc.prctl(_PR_SET_PDEATHSIG, signal.SIGKILL)

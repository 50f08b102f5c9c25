"""Cuts the test process, and all it starts, off from the network and gives it mounts of its own, where the system allows it."""

import ctypes
import fcntl
import os
import socket
import struct
import unittest

_CLONE_NEWNS = 0x00020000
_CLONE_NEWUSER = 0x10000000
_CLONE_NEWNET = 0x40000000
_MS_RDONLY = 1
_MS_REMOUNT = 32
_MS_REC_PRIVATE = 0x4000 | 0x40000
_SIOCGIFFLAGS = 0x8913
_SIOCSIFFLAGS = 0x8914
_IFF_UP = 1

# The sockets of the X servers, which take the same number in two networks, and the shared memory, in which the library of
# the moved clock leaves something behind of each killed program.
_SHARED_PLACES = ("/tmp/.X11-unix", "/dev/shm")

_libc = ctypes.CDLL(None, use_errno=True)
_entered = False
_own_network = _own_mounts = False


def enter():
    """Once in a process, before its first thread: from here on only the loopback interface exists, and what is mounted is
    seen by this process and its children alone. Where the system refuses that, as an ordinary container does, the process
    stays where it is; only a disk of its own cannot be had then."""
    global _entered, _own_network, _own_mounts
    if _entered:
        return
    _entered = True
    user, group = os.geteuid(), os.getegid()
    own_user = 0 if user == 0 else _CLONE_NEWUSER
    if _libc.unshare(own_user | _CLONE_NEWNET | _CLONE_NEWNS) != 0:
        return
    if own_user:
        _write("/proc/self/setgroups", "deny")
        _write("/proc/self/uid_map", f"{user} {user} 1")
        _write("/proc/self/gid_map", f"{group} {group} 1")
    _raise_loopback()
    _own_network = True
    # Where "/" is no mount point, as below a bare chroot, what is mounted would be seen outside.
    _own_mounts = _libc.mount(b"none", b"/", None, _MS_REC_PRIVATE, None) == 0
    if _own_mounts:
        for place in _SHARED_PLACES:
            os.makedirs(place, mode=0o1777, exist_ok=True)
            _mount(b"tmpfs", os.fsencode(place), b"tmpfs", 0, b"mode=1777")


def claim_port(port):
    """Waits until no other test on this machine has claimed this port, and claims it until the file that is returned is
    closed. A network of this process's own has its own ports. The service's tests claim theirs in the same file."""
    path = f"/tmp/tandry-test-port-{port}" if not _own_network else os.devnull
    try:
        file = open(path, encoding="ascii")
    except FileNotFoundError:
        file = open(path, "a", encoding="ascii")
    if not _own_network:
        fcntl.flock(file, fcntl.LOCK_EX)
    return file


def small_disk(folder, size):
    """Puts a file system of `size` bytes on `folder`; it goes with the process. Skips the test where the system refuses."""
    if not _own_mounts:
        raise unittest.SkipTest("needs a disk of its own, and this system refuses to mount one")
    _mount(b"tmpfs", os.fsencode(folder), b"tmpfs", 0, f"size={size},mode=700".encode())


def read_only_disk(folder):
    """Makes a folder that `small_disk` made read-only, for root too."""
    _mount(b"tmpfs", os.fsencode(folder), b"tmpfs", _MS_REMOUNT | _MS_RDONLY, None)


def fill_disk(folder):
    """Leaves no byte free on what `small_disk` made."""
    with open(os.path.join(folder, "ballast"), "wb", buffering=0) as ballast:
        try:
            while True:
                ballast.write(b"\0" * 4096)
        except OSError:
            pass


def release_disk(folder):
    """Takes away what `small_disk` put there, at once even if something still holds a file of it."""
    lazily = 2
    _libc.umount2(os.fsencode(folder), lazily)


def _raise_loopback():
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as any_socket:
        request = struct.pack("16sh14x", b"lo", 0)
        flags = struct.unpack("16sh14x", fcntl.ioctl(any_socket, _SIOCGIFFLAGS, request))[1]
        fcntl.ioctl(any_socket, _SIOCSIFFLAGS, struct.pack("16sh14x", b"lo", flags | _IFF_UP))


def _mount(source, target, kind, flags, options):
    _check(_libc.mount(source, target, kind, flags, options), f"mount on {os.fsdecode(target)}")


def _write(path, text):
    with open(path, "w", encoding="ascii") as file:
        file.write(text)


def _check(result, what):
    if result != 0:
        number = ctypes.get_errno()
        raise OSError(number, f"{what}: {os.strerror(number)}")

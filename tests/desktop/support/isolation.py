"""Cuts the test process and its children off from the network and gives them a mount namespace, where the system allows it."""

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

# The sockets of the X servers, which choose the same number in two network namespaces, and the shared memory, in which
# libfaketime leaves files of each killed program.
_SHARED_PLACES = ("/tmp/.X11-unix", "/dev/shm")

_libc = ctypes.CDLL(None, use_errno=True)
_entered = False
_own_network = _own_mounts = False


def enter():
    """Call it once in a process, before its first thread. From then on only the loopback interface exists, and only this
    process and its children see new mounts. Where the system refuses this, as ordinary containers do, nothing changes;
    only `small_disk` is not available then."""
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
    # When "/" is not a mount point, as in a plain chroot, mounts would be visible outside.
    _own_mounts = _libc.mount(b"none", b"/", None, _MS_REC_PRIVATE, None) == 0
    if _own_mounts:
        for place in _SHARED_PLACES:
            os.makedirs(place, mode=0o1777, exist_ok=True)
            _mount(b"tmpfs", os.fsencode(place), b"tmpfs", 0, b"mode=1777")


def claim_port(port):
    """Waits until no other test on this machine uses this port, and reserves it until the returned file is closed. Not needed
    in a network namespace, which has its own ports. The service's tests use the same lock file."""
    path = f"/tmp/tandry-test-port-{port}" if not _own_network else os.devnull
    try:
        file = open(path, encoding="ascii")
    except FileNotFoundError:
        file = open(path, "a", encoding="ascii")
    if not _own_network:
        fcntl.flock(file, fcntl.LOCK_EX)
    return file


def small_disk(folder, size):
    """Mounts a file system of `size` bytes on `folder` until the end of the process. Skips the test where the system refuses."""
    if not _own_mounts:
        raise unittest.SkipTest("needs a disk of its own, and this system refuses to mount one")
    _mount(b"tmpfs", os.fsencode(folder), b"tmpfs", 0, f"size={size},mode=700".encode())


def read_only_disk(folder):
    """Makes a file system of `small_disk` read-only, also for root."""
    _mount(b"tmpfs", os.fsencode(folder), b"tmpfs", _MS_REMOUNT | _MS_RDONLY, None)


def fill_disk(folder):
    """Fills a file system of `small_disk` completely."""
    with open(os.path.join(folder, "ballast"), "wb", buffering=0) as ballast:
        try:
            while True:
                ballast.write(b"\0" * 4096)
        except OSError:
            pass


def release_disk(folder):
    """Unmounts a file system of `small_disk` at once, even if a file on it is still open."""
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

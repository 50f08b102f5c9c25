"""Cuts the test process, and all it starts, off from the network and gives it mounts of its own."""

import ctypes
import fcntl
import os
import socket
import struct

_CLONE_NEWNS = 0x00020000
_CLONE_NEWUSER = 0x10000000
_CLONE_NEWNET = 0x40000000
_MS_RDONLY = 1
_MS_REMOUNT = 32
_MS_REC_PRIVATE = 0x4000 | 0x40000
_SIOCGIFFLAGS = 0x8913
_SIOCSIFFLAGS = 0x8914
_IFF_UP = 1

_libc = ctypes.CDLL(None, use_errno=True)
_entered = False


def enter():
    """Once in a process, before its first thread: from here on only the loopback interface exists."""
    global _entered
    if _entered:
        return
    user, group = os.geteuid(), os.getegid()
    if user == 0:
        _check(_libc.unshare(_CLONE_NEWNET | _CLONE_NEWNS), "unshare")
    else:
        _check(_libc.unshare(_CLONE_NEWUSER | _CLONE_NEWNET | _CLONE_NEWNS), "unshare")
        _write("/proc/self/setgroups", "deny")
        _write("/proc/self/uid_map", f"{user} {user} 1")
        _write("/proc/self/gid_map", f"{group} {group} 1")
    _mount(b"none", b"/", None, _MS_REC_PRIVATE, None)
    # What the library of the moved clock leaves behind of a killed program goes with the process.
    _mount(b"tmpfs", b"/dev/shm", b"tmpfs", 0, b"mode=1777")
    _raise_loopback()
    _entered = True


def small_disk(folder, size):
    """Puts a file system of `size` bytes on `folder`; it goes with the process."""
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
        raise OSError(number, f"{what}: {os.strerror(number)} (the desktop tests need namespaces)")

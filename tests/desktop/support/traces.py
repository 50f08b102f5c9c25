"""Searches everything that a program leaves behind or shows to other programs for words."""

import os
import stat


def found(words, data):
    """The words that these bytes contain, in any case and in each encoding that Qt writes."""
    folded = data.lower()
    return [word for word in words
            if any(word.lower().encode(code) in folded for code in ("utf-8", "utf-16-le", "utf-16-be"))]


def in_files(words, folder):
    """The paths below `folder` whose name or content holds one of the words; for links, their target counts."""
    paths = [os.path.join(place, name) for place, folders, names in os.walk(folder) for name in folders + names]
    return sorted(path for path in paths if found(words, os.fsencode(path)) or found(words, _content(path)))


def in_process(words, pid):
    """The files in /proc of a process that other processes of the user can read and that hold one of the words."""
    return [what for what in ("cmdline", "environ", "comm") if found(words, _content(f"/proc/{pid}/{what}"))]


def modes(folder):
    """The modes of all files below `folder` by relative path, such as "-rw-------"."""
    paths = [os.path.join(place, name) for place, folders, names in os.walk(folder) for name in folders + names]
    return {os.path.relpath(path, folder): stat.filemode(os.lstat(path).st_mode) for path in paths}


def _content(path):
    try:
        mode = os.lstat(path).st_mode
        if stat.S_ISLNK(mode):
            return os.fsencode(os.readlink(path))
        if not stat.S_ISREG(mode):
            return b""
        with open(path, "rb") as file:
            return file.read()
    except FileNotFoundError:  # deleted in the meantime
        return b""

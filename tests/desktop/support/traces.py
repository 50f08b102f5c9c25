"""Looking for words in all that a program leaves behind or shows to other programs."""

import os
import stat


def found(words, data):
    """The words that stand in these bytes, in any spelling of the letters and in each encoding that Qt writes."""
    folded = data.lower()
    return [word for word in words
            if any(word.lower().encode(code) in folded for code in ("utf-8", "utf-16-le", "utf-16-be"))]


def in_files(words, folder):
    """Paths below `folder` that have one of the words in their content or their name, links by what they name."""
    paths = [os.path.join(place, name) for place, folders, names in os.walk(folder) for name in folders + names]
    return sorted(path for path in paths if found(words, os.fsencode(path)) or found(words, _content(path)))


def in_process(words, pid):
    """What of a process every other of the same user can read, and names one of the words."""
    return [what for what in ("cmdline", "environ", "comm") if found(words, _content(f"/proc/{pid}/{what}"))]


def modes(folder):
    """The mode of everything below `folder`, by its path there, as "-rw-------"."""
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
    except FileNotFoundError:  # gone in the meantime
        return b""

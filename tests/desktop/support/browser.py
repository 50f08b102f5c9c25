"""A stand-in for the user's web browser: records the addresses of the pages to open."""

import os
import stat


class Browser:
    """The browser of one home, installed for every way in which a desktop may look for it."""

    def __init__(self, home):
        self._visits = os.path.join(home.notes, "visited")
        tools = os.path.join(home.notes, "bin")
        os.makedirs(tools)
        for name in ("xdg-open", "x-www-browser", "sensible-browser"):
            self._script(os.path.join(tools, name), f'printf "%s\\n" "$1" >> "{self._visits}"\n')
        self.environment = {
            "PATH": tools + os.pathsep + os.environ["PATH"],
            "BROWSER": os.path.join(tools, "x-www-browser"),
        }
        self._tools = tools

    def break_down(self):
        """Removes the browser: from now on none can be started."""
        for name in os.listdir(self._tools):
            self._script(os.path.join(self._tools, name), "exit 3\n")

    def visited(self):
        """The addresses opened so far."""
        try:
            with open(self._visits, encoding="utf-8") as file:
                return file.read().split()
        except FileNotFoundError:
            return []

    @staticmethod
    def _script(path, body):
        with open(path, "w", encoding="utf-8") as file:
            file.write("#!/bin/sh\n" + body)
        os.chmod(path, os.stat(path).st_mode | stat.S_IXUSR)

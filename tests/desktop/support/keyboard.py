"""Text and keys, through the X server's keyboard."""

import subprocess

# Characters that the server's keyboard map lacks are bound once, before any program reads the map: programs read a changed
# map too late for the next key.
_ADDED_CHARACTERS = "éèêàçôïÉŒ’€😀שלוםمريض"


class Keyboard:
    """The keyboard of one display; `environment` names it."""

    def __init__(self, environment):
        self._environment = environment

    def learn_characters(self):
        """Binds the characters of French names and of the tests of odd names."""
        table = self._run(["xmodmap", "-pke"], capture=True)
        # First unused keys, then those of media keyboards, which no test presses.
        free = [line.split()[1] for line in table.splitlines() if "XF86" in line]
        free += [line.split()[1] for line in table.splitlines() if line.rstrip().endswith("=")]
        wanted = sorted(set(_ADDED_CHARACTERS))
        assert len(free) >= len(wanted), "the server's keyboard map has no room left"
        lines = [f"keycode {code} = U{ord(char):04X}" for code, char in zip(reversed(free), wanted)]
        self._run(["xmodmap", "-"], text="\n".join(lines) + "\n")

    def type(self, text):
        """Types `text` into the focused control."""
        self._run(["xdotool", "type", "--clearmodifiers", "--delay", "4", "--", text])

    def press(self, *keys):
        """Presses keys by their names, one after another: "Down", "ctrl+a", "shift+Tab"."""
        self._run(["xdotool", "key", "--clearmodifiers", "--delay", "8", "--", *keys])

    def _run(self, command, text=None, capture=False):
        done = subprocess.run(command, env=self._environment, input=text, text=True, check=True,
                              stdout=subprocess.PIPE if capture else subprocess.DEVNULL, timeout=60)
        return done.stdout

"""The test user's home folder, and the files of the program and the tests in it."""

import configparser
import os
import plistlib
import shutil
import stat
import tempfile

LOGIN_LIST = "Library/LaunchAgents/com.olmeric.vesktandry.plist"
LOGIN_ENTRY = "autostart/com.olmeric.vesktandry.desktop"


class Home:
    """A new home with configuration, data and temporary folders; `environment` makes a program use it. Files of the test,
    such as the program's log, are beside it in `notes`."""

    def __init__(self):
        self._place = tempfile.mkdtemp(prefix="tandry-home-")
        self.notes = os.path.join(self._place, "notes")
        os.mkdir(self.notes)
        self.folder = os.path.join(self._place, "home")
        self.config = self._make(".config")
        self.data = self._make(".local/share")
        self.temporary = self._make("tmp")
        self.environment = {
            "HOME": self.folder, "TMPDIR": self.temporary, "XDG_CONFIG_HOME": self.config, "XDG_DATA_HOME": self.data,
            "XDG_CACHE_HOME": self._make(".cache"), "XDG_STATE_HOME": self._make(".local/state"),
        }

    def remove(self):
        """Deletes the home."""
        shutil.rmtree(self._place, ignore_errors=True)

    def path(self, below):
        """A path in the home."""
        return os.path.join(self.folder, below)

    def settings(self, organisation="Vesk Tandry", application="Olmeric"):
        """The keys of a settings file with their raw text; empty when there is no file."""
        reader = configparser.ConfigParser(interpolation=None, strict=False)
        reader.optionxform = str
        reader.read(self._settings_file(organisation, application), encoding="utf-8")
        return dict(reader["General"]) if reader.has_section("General") else {}

    def write_settings(self, keys, organisation="Vesk Tandry", application="Olmeric"):
        """Writes a settings file with these keys, before the program starts."""
        lines = ["[General]"] + [f"{key}={value}" for key, value in keys.items()]
        self.write_settings_text("\n".join(lines) + "\n", organisation, application)

    def write_settings_text(self, text, organisation="Vesk Tandry", application="Olmeric"):
        """Writes a settings file with this content, valid or not."""
        path = self._settings_file(organisation, application)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)

    def login_list(self):
        """The launch-at-login property list, or None when there is none."""
        try:
            with open(self.path(LOGIN_LIST), "rb") as file:
                return plistlib.load(file)
        except FileNotFoundError:
            return None

    def write_login_list(self, content):
        """Replaces the property list, like a manual edit."""
        os.makedirs(os.path.dirname(self.path(LOGIN_LIST)), exist_ok=True)
        with open(self.path(LOGIN_LIST), "wb") as file:
            plistlib.dump(content, file)

    def login_entry(self):
        """The lines of the desktop's autostart entry as a dictionary; empty when there is none."""
        try:
            with open(os.path.join(self.config, LOGIN_ENTRY), encoding="utf-8") as file:
                return dict(line.strip().split("=", 1) for line in file if "=" in line)
        except FileNotFoundError:
            return {}

    def open_to_others(self):
        """Files and folders of the program that users other than the owner can read."""
        found = []
        for folder, _, names in os.walk(self.folder):
            for path in [folder] + [os.path.join(folder, name) for name in names]:
                if stat.S_IMODE(os.lstat(path).st_mode) & 0o077 and not os.path.islink(path):
                    found.append(path)
        return found

    def _settings_file(self, organisation, application):
        return os.path.join(self.config, organisation, application + ".conf")

    def _make(self, below):
        path = self.folder
        for part in [""] + below.split("/"):
            path = os.path.join(path, part) if part else path
            if not os.path.isdir(path):
                os.mkdir(path, mode=0o700)
        return path

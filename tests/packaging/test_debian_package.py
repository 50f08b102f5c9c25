"""The Debian package installs the right files in the right places, and its documents agree with each other."""

import configparser
import gzip
import os
import re
import stat
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as xml

from support.project import APPLICATION_ID, ROOT, given

ICONS = f"share/icons/hicolor/{{}}/apps/{APPLICATION_ID}."
TREE = sorted([
    "bin/tandry",
    "bin/tandry-restore",
    f"share/applications/{APPLICATION_ID}.desktop",
    f"share/applications/{APPLICATION_ID}.restore.desktop",
    "share/doc/vesk-tandry/changelog.gz",
    "share/doc/vesk-tandry/changelog.Debian.gz",
    "share/doc/vesk-tandry/copyright",
    *(f"share/doc/vesk-tandry/images/{name}.png" for name in ("fenetre", "fiche", "liste", "recherche", "reprendre", "retour")),
    "share/doc/vesk-tandry/installation.html",
    "share/doc/vesk-tandry/manuel.html",
    ICONS.format("16x16") + "png",
    ICONS.format("22x22") + "png",
    ICONS.format("24x24") + "png",
    ICONS.format("32x32") + "png",
    ICONS.format("48x48") + "png",
    ICONS.format("64x64") + "png",
    ICONS.format("128x128") + "png",
    ICONS.format("256x256") + "png",
    ICONS.format("scalable") + "svg",
    "share/man/man1/tandry-restore.1.gz",
    "share/man/man1/tandry.1.gz",
    f"share/metainfo/{APPLICATION_ID}.metainfo.xml",
])
# No tool finds these: only the documents name the modules, and Qt loads the SQL driver by name.
DEPENDS = ["qml-module-qtquick2", "qml-module-qtquick-controls", "qml-module-qtquick-localstorage",
           "qml-module-qtquick-window2", "libqt5sql5-sqlite", "fonts-liberation | fonts-liberation2"]
# The package of each imported module; some packages provide several modules.
PACKAGE_OF_IMPORT = {"QtQuick": "qml-module-qtquick2", "QtQuick.Controls": "qml-module-qtquick-controls",
                     "QtQuick.Controls.Private": "qml-module-qtquick-controls",
                     "QtQuick.Controls.Styles": "qml-module-qtquick-controls",
                     "QtQuick.LocalStorage": "qml-module-qtquick-localstorage",
                     "QtQuick.Window": "qml-module-qtquick-window2"}


class DebianPackage(unittest.TestCase):

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="tandry-package-")
        cls.addClassCleanup(folder.cleanup)
        cls.prefix = os.path.join(folder.name, "usr")
        subprocess.run([given("TANDRY_CMAKE"), "--install", given("TANDRY_BUILD"), "--prefix", cls.prefix], check=True,
                       capture_output=True, text=True, env={**os.environ, "DESTDIR": ""})

    def path(self, below):
        return os.path.join(self.prefix, below)

    def read(self, below):
        opened = gzip.open if below.endswith(".gz") else open
        with opened(self.path(below), "rt", encoding="utf-8") as file:
            return file.read()

    def packager_settings(self):
        """The CPack variables of the build, by name."""
        with open(os.path.join(given("TANDRY_BUILD"), "CPackConfig.cmake"), encoding="utf-8") as file:
            return dict(re.findall(r'^set\((\w+) "(.*?)"\)$', file.read(), re.MULTILINE))

    def test_the_package_has_the_expected_files(self):
        found = [os.path.relpath(os.path.join(folder, name), self.prefix)
                 for folder, _, names in os.walk(self.prefix) for name in names]
        self.assertEqual(sorted(found), TREE)

    def test_only_the_programs_are_executable(self):
        executable = [below for below in TREE if os.stat(self.path(below)).st_mode & stat.S_IXUSR]
        self.assertEqual(executable, ["bin/tandry", "bin/tandry-restore"])

    def test_the_icons_have_the_sizes_of_their_folders(self):
        for below in TREE:
            if not below.endswith(".png") or "/icons/" not in below:
                continue
            with open(self.path(below), "rb") as file:
                header = file.read(24)
            self.assertEqual(header[:8], b"\x89PNG\r\n\x1a\n", below)
            width, height = int.from_bytes(header[16:20], "big"), int.from_bytes(header[20:24], "big")
            self.assertIn(f"/{width}x{height}/", below)

    def menu_entry(self, name):
        reader = configparser.ConfigParser(interpolation=None)
        reader.optionxform = str
        reader.read_string(self.read(f"share/applications/{name}.desktop"))
        return reader

    def test_the_manual_is_complete_and_the_menu_opens_it(self):
        entry = self.menu_entry(APPLICATION_ID)
        self.assertEqual(entry["Desktop Entry"]["Actions"], "manuel;")
        action = entry["Desktop Action manuel"]
        self.assertEqual(action["Name"], "Manuel")
        self.assertEqual(action["Exec"], "xdg-open /usr/share/doc/vesk-tandry/manuel.html")
        for page, title in (("manuel", "Vesk Tandry : manuel"), ("installation", "Installer Vesk Tandry au cabinet")):
            text = self.read(f"share/doc/vesk-tandry/{page}.html")
            self.assertIn(f"<title>{title}</title>", text)
            self.assertIn("<table>", text)
            targets = re.findall(r'(?:src|href)="([^"#:]+)"', text)
            self.assertTrue(targets)
            for target in targets:
                self.assertTrue(os.path.exists(self.path(f"share/doc/vesk-tandry/{target}")), target)

    def test_the_menu_entry_of_tandry_restore_is_complete(self):
        entry = self.menu_entry(f"{APPLICATION_ID}.restore")["Desktop Entry"]
        self.assertEqual(entry["Name"], "Vesk Tandry – revenir à une copie")
        self.assertEqual(entry["Exec"], "tandry-restore")
        self.assertEqual(entry["StartupWMClass"], "tandry-restore")

    def test_the_menu_entry_of_tandry_is_complete(self):
        entry = self.menu_entry(APPLICATION_ID)["Desktop Entry"]
        self.assertEqual(entry["Type"], "Application")
        self.assertEqual(entry["Name"], "Vesk Tandry")
        self.assertEqual(entry["Exec"], "tandry")
        self.assertEqual(entry["Icon"], APPLICATION_ID)
        self.assertEqual(entry["Terminal"], "false")
        # A desktop finds the entry of a window, with its icon and name, by this key.
        self.assertEqual(entry["StartupWMClass"], "tandry")
        self.assertTrue(entry["Categories"].endswith(";"))

    def test_nothing_starts_at_login_before_the_first_start(self):
        self.assertEqual([below for below in TREE if "autostart" in below], [])
        self.assertNotIn("CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA", self.packager_settings())

    def test_the_metainfo_names_the_entry_and_the_program(self):
        component = xml.fromstring(self.read(f"share/metainfo/{APPLICATION_ID}.metainfo.xml"))
        self.assertEqual(component.get("type"), "desktop-application")
        self.assertEqual(component.findtext("id"), APPLICATION_ID)
        self.assertEqual(component.findtext("launchable"), f"{APPLICATION_ID}.desktop")
        self.assertEqual(component.findtext("provides/binary"), "tandry")
        self.assertTrue(component.findtext("summary"))
        # Debian 13's lintian warns where there is none.
        self.assertRegex(component.findtext("url[@type='homepage']", default=""), "^https://[^@/]+/$")
        language = "{http://www.w3.org/XML/1998/namespace}lang"
        paragraphs = [paragraph.get(language) for paragraph in component.findall("description/p")]
        self.assertEqual(paragraphs, [None, "fr"] * 2)
        self.assertEqual([os.path.basename(image.text) for image in component.findall("screenshots/screenshot/image")],
                         ["widget.png", "liste.png"])

    def test_every_document_names_this_version_first(self):
        version = given("TANDRY_VERSION")
        component = xml.fromstring(self.read(f"share/metainfo/{APPLICATION_ID}.metainfo.xml"))
        self.assertEqual(component.find("releases/release").get("version"), version, "metainfo")
        package = self.packager_settings()["CPACK_DEBIAN_PACKAGE_RELEASE"]
        revision = package.split("+")[0]
        self.assertEqual(self.read("share/doc/vesk-tandry/changelog.Debian.gz").split("\n")[0],
                         f"vesk-tandry ({version}-{revision}) unstable; urgency=medium")
        for page in ("tandry", "tandry-restore"):
            self.assertRegex(self.read(f"share/man/man1/{page}.1.gz"),
                             rf'\A\.TH {page.upper()} 1 "[-0-9]+" "Vesk Tandry {version}"')
        first = re.search(r"^## (\S+?),", self.read("share/doc/vesk-tandry/changelog.gz"), re.MULTILINE)
        self.assertEqual(first.group(1), version, "CHANGELOG.md")
        self.assertEqual(self.packager_settings()["CPACK_PACKAGE_VERSION"], version)

    def test_the_package_carries_the_text_of_the_licence(self):
        holder, terms = (ROOT / "LICENSE").read_text(encoding="utf-8").strip().split("\n\n", 1)
        stanza = self.read("share/doc/vesk-tandry/copyright").strip().split("\n\n")[-1].split("\n")
        self.assertEqual("Copyright " + stanza[1].split(": ")[1], holder)
        self.assertEqual(stanza[3:], [" " + line for line in terms.split("\n")])

    def test_the_package_depends_on_modules_that_no_tool_finds(self):
        settings = self.packager_settings()
        self.assertEqual(settings["CPACK_DEBIAN_PACKAGE_DEPENDS"].split(", "), DEPENDS)
        self.assertEqual(settings["CPACK_DEBIAN_PACKAGE_SHLIBDEPS"], "ON")

    def test_the_description_is_flowing_text(self):
        with open(os.path.join(given("TANDRY_BUILD"), "CPackConfig.cmake"), encoding="utf-8") as file:
            description = re.search(r'CPACK_PACKAGE_DESCRIPTION "([^"]*)"', file.read()).group(1)
        # A package manager shows a line that begins with a blank as it is typed, and never wraps it.
        self.assertEqual([line for line in description.split("\n") if line.startswith(" ")], [])

    def test_every_import_of_the_documents_is_in_a_dependency(self):
        documents = list((ROOT / "src" / "qml").rglob("*.qml")) + list((ROOT / "src" / "js").rglob("*.js"))
        imported = set()
        for document in documents:
            text = document.read_text(encoding="utf-8")
            imported.update(re.findall(r"^\.?import (Qt[A-Za-z.]+) [0-9.]+", text, re.MULTILINE))
        self.assertIn("QtQuick.LocalStorage", imported)
        self.assertLessEqual(imported, set(PACKAGE_OF_IMPORT))
        self.assertLessEqual({PACKAGE_OF_IMPORT[name] for name in imported}, set(DEPENDS))

    def test_french_documents_keep_their_accents(self):
        self.assertIn("désensibilisation", self.read("share/man/man1/tandry.1.gz"))
        self.assertIn("désensibilisation", self.read(f"share/metainfo/{APPLICATION_ID}.metainfo.xml"))


if __name__ == "__main__":
    unittest.main()

"""The bundle's property list, icon and entitlements, and the example of the update feed."""

import plistlib
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as xml

from support.project import APPLICATION_ID, PACKAGING, ROOT, given

MACOS = PACKAGING / "macos"
FEED = "/widget_vesk/tandry/mac/"
SPARKLE = "{http://www.andymatuschak.org/xml-namespaces/sparkle}"
# The entry types in an icon file by the edge length in pixels: pixels and their mask, or one compressed picture.
ICON_KINDS = {16: ("is32", "s8mk"), 32: ("il32", "l8mk"), 48: ("ih32", "h8mk"), 128: ("it32", "t8mk"),
              256: ("ic08",), 512: ("ic09",)}
# The @2x entries: type and edge length in pixels, twice that of the 1x picture.
DENSE_ICON_KINDS = {"ic11": 32, "ic12": 64, "ic13": 256, "ic14": 512, "ic10": 1024}


def property_list(**settings):
    """The property list of a build with these settings."""
    with tempfile.TemporaryDirectory(prefix="tandry-plist-") as folder:
        script = f"{folder}/configure.cmake"
        with open(script, "w", encoding="utf-8") as file:
            file.write(f'set(PROJECT_VERSION 9.8.7)\ninclude("{ROOT}/cmake/BuildSettings.cmake")\n'
                       f'configure_file("{MACOS}/Info.plist.in" "{folder}/Info.plist" @ONLY)\n')
        given_settings = [f"-D{name}={value}" for name, value in settings.items()]
        subprocess.run([given("TANDRY_CMAKE"), *given_settings, "-P", script], check=True, capture_output=True)
        with open(f"{folder}/Info.plist", "rb") as file:
            return plistlib.load(file)


class Bundle(unittest.TestCase):

    def test_the_property_list_matches_this_build(self):
        with open(f"{given('TANDRY_BUILD')}/packaging/Info.plist", "rb") as file:
            content = plistlib.load(file)
        self.assertEqual(content["CFBundleIdentifier"], APPLICATION_ID)
        self.assertEqual(content["CFBundleExecutable"], "tandry")
        self.assertEqual(content["CFBundleName"], "Vesk Tandry")
        self.assertEqual(content["CFBundlePackageType"], "APPL")
        self.assertEqual(content["CFBundleDevelopmentRegion"], "fr")
        self.assertEqual(content["CFBundleShortVersionString"], given("TANDRY_VERSION"))
        self.assertEqual(content["CFBundleVersion"], given("TANDRY_VERSION"))
        self.assertIs(content["NSHighResolutionCapable"], True)
        self.assertEqual(content["NSPrincipalClass"], "NSApplication")
        self.assertTrue((MACOS / content["CFBundleIconFile"]).is_file())

    def test_the_version_is_that_of_the_project(self):
        self.assertEqual(property_list()["CFBundleVersion"], "9.8.7")

    def test_plain_http_is_allowed_only_for_the_update_host_without_its_port(self):
        for host, domain in (("updates.olmeric.example", "updates.olmeric.example"),
                             ("updates.other.example:8080", "updates.other.example")):
            with self.subTest(host):
                self.assertEqual(property_list(TANDRY_UPDATE_HOST=host)["NSAppTransportSecurity"],
                                 {"NSExceptionDomains": {domain: {"NSExceptionAllowsInsecureHTTPLoads": True}}})

    def test_updates_are_signed_for_the_key_of_the_build(self):
        self.assertEqual(property_list(TANDRY_UPDATE_PUBLIC_KEY="c2VjcmV0")["SUPublicEDKey"], "c2VjcmV0")

    def test_the_icon_has_all_sizes_in_1x_and_2x(self):
        kinds = [kind for kind, _ in self.icon_entries()]
        self.assertEqual(kinds, [kind for edge in ICON_KINDS for kind in ICON_KINDS[edge]] + list(DENSE_ICON_KINDS))

    def test_each_2x_entry_of_the_icon_has_the_size_of_its_type(self):
        sizes = {kind: (int.from_bytes(picture[16:20], "big"), int.from_bytes(picture[20:24], "big"))
                 for kind, picture in self.icon_entries() if kind in DENSE_ICON_KINDS and picture[1:4] == b"PNG"}
        self.assertEqual(sizes, {kind: (edge, edge) for kind, edge in DENSE_ICON_KINDS.items()})

    def icon_entries(self):
        """The entries of the icon file in order, each with its type and content."""
        content = (MACOS / "tandry.icns").read_bytes()
        self.assertEqual(content[:4], b"icns")
        self.assertEqual(int.from_bytes(content[4:8], "big"), len(content))
        entries, place = [], 8
        while place < len(content):
            length = int.from_bytes(content[place + 4:place + 8], "big")
            self.assertGreater(length, 8)
            entries.append((content[place:place + 4].decode("ascii"), content[place + 8:place + length]))
            place += length
        self.assertEqual(place, len(content))
        return entries

    def test_the_entitlements_are_only_those_of_the_script_engine(self):
        with open(MACOS / "tandry.entitlements", "rb") as file:
            self.assertEqual(plistlib.load(file), {"com.apple.security.cs.allow-jit": True,
                                                   "com.apple.security.cs.allow-unsigned-executable-memory": True})

    def test_the_example_feed_names_this_version(self):
        channel = xml.parse(f"{given('TANDRY_BUILD')}/packaging/appcast-example.xml").find("channel")
        self.assertTrue(channel.findtext("link").endswith(".example" + FEED + "appcast.xml"))
        item = channel.find("item")
        enclosure = item.find("enclosure")
        version = given("TANDRY_VERSION")
        self.assertTrue(enclosure.get("url").endswith(f".example{FEED}vesk-tandry-{version}.dmg"))
        self.assertEqual(enclosure.get(SPARKLE + "version"), version)
        self.assertEqual(enclosure.get(SPARKLE + "shortVersionString"), version)
        self.assertIsNotNone(enclosure.get(SPARKLE + "edSignature"))
        self.assertEqual(item.findtext(SPARKLE + "minimumSystemVersion"), property_list()["LSMinimumSystemVersion"])


if __name__ == "__main__":
    unittest.main()

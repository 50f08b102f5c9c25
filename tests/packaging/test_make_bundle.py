"""make-bundle --dry-run prints the steps of the macOS bundle in the required order."""

import os
import shlex
import subprocess
import tempfile
import unittest

from support.project import PACKAGING, given

SCRIPT = str(PACKAGING / "macos" / "make-bundle")
# The code in a real bundle after macdeployqt, with the update framework: files and folders.
FILES = ["MacOS/tandry", "MacOS/tandry-restore",
         "PlugIns/platforms/libqcocoa.dylib",
         "Resources/qml/QtQuick.2/libqtquick2plugin.dylib",
         "Frameworks/QtCore.framework/Versions/5/QtCore",
         "Frameworks/Sparkle.framework/Versions/A/Resources/Autoupdate.app/Contents/MacOS/fileop"]


def steps(*arguments):
    """The steps of a dry run, each as a list of words."""
    done = subprocess.run(["bash", SCRIPT, "--dry-run", *arguments], check=True, capture_output=True, text=True)
    return [shlex.split(line) for line in done.stdout.splitlines()]


class MakeBundle(unittest.TestCase):

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="tandry-bundle-")
        self.addCleanup(folder.cleanup)
        self.output = folder.name
        self.bundle = os.path.join(folder.name, "Vesk Tandry.app")

    def make_bundle(self):
        for below in FILES:
            path = os.path.join(self.bundle, "Contents", below)
            os.makedirs(os.path.dirname(path), exist_ok=True)
            with open(path, "wb"):
                pass

    def signed(self, *arguments):
        """The signed paths below the bundle's Contents, in order; "" is the bundle itself."""
        found = [step[-1] for step in steps("--output", self.output, *arguments)
                 if step[0] == "codesign" and "--sign" in step and step[-1].startswith(self.bundle)]
        return [path[len(self.bundle):].replace("/Contents/", "", 1) for path in found]

    def test_the_steps_come_in_order(self):
        words = [step[0] for step in steps()]
        order = ["cmake", "cmake", "rm", "mkdir", "ditto", "macdeployqt"]
        self.assertEqual(words[:6], order)
        self.assertEqual(set(words[6:-4]), {"codesign"})
        self.assertEqual(words[-4:], ["ditto", "ln", "hdiutil", "rm"])

    def test_macdeployqt_searches_the_documents_folder(self):
        deploy = next(step for step in steps() if step[0] == "macdeployqt")
        self.assertEqual(deploy[1:4], ["build/macos/Vesk Tandry.app", "-qmldir=src/qml",
                                       "-executable=build/macos/Vesk Tandry.app/Contents/MacOS/tandry-restore"])

    def test_the_bundle_is_renamed_and_the_image_named_after_the_version(self):
        all_steps = steps("--output", "out")
        self.assertIn(["ditto", "build/release/src/tandry.app", "out/Vesk Tandry.app"], all_steps)
        image = next(step for step in all_steps if step[0] == "hdiutil")
        self.assertEqual(image[-1], f"out/vesk-tandry-{given('TANDRY_VERSION')}.dmg")

    def test_everything_is_signed_from_the_inside_out(self):
        self.make_bundle()
        signed = self.signed()
        self.assertEqual(sorted(signed), sorted([
            "", "MacOS/tandry-restore", "PlugIns/platforms/libqcocoa.dylib", "Resources/qml/QtQuick.2/libqtquick2plugin.dylib",
            "Frameworks/QtCore.framework", "Frameworks/Sparkle.framework",
            "Frameworks/Sparkle.framework/Versions/A/Resources/Autoupdate.app",
            "Frameworks/Sparkle.framework/Versions/A/Resources/Autoupdate.app/Contents/MacOS/fileop"]))
        self.assertEqual(signed[-1], "")
        for earlier, path in enumerate(signed[:-1]):
            inside = [other for other in signed[earlier + 1:-1] if other.startswith(path + "/")]
            self.assertEqual(inside, [], f"{path} is signed before what it holds")

    def test_the_default_is_an_ad_hoc_signature_without_the_hardened_runtime(self):
        for step in steps():
            if "--sign" in step:
                self.assertEqual(step[step.index("--sign") + 1], "-")
                self.assertNotIn("runtime", step)

    def test_an_identity_signs_with_the_hardened_runtime_and_the_image_too(self):
        signings = [step for step in steps("--identity", "Developer ID Application: Olmeric") if "--sign" in step]
        self.assertEqual({step[step.index("--sign") + 1] for step in signings}, {"Developer ID Application: Olmeric"})
        self.assertTrue(all("--timestamp" in step for step in signings))
        self.assertTrue(all("runtime" in step for step in signings[:-1]))
        self.assertTrue(signings[-1][-1].endswith(".dmg"))

    def test_a_dry_run_changes_nothing(self):
        self.make_bundle()
        steps("--output", self.output)
        self.assertEqual(os.listdir(self.output), ["Vesk Tandry.app"])
        self.assertTrue(os.path.exists(os.path.join(self.bundle, "Contents", FILES[0])))


if __name__ == "__main__":
    unittest.main()

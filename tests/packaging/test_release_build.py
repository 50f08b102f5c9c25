"""The release build."""

import json
import os
import shlex
import subprocess
import tempfile
import unittest

from support.project import ROOT, given


class ReleaseBuild(unittest.TestCase):

    def test_assertions_are_active(self):
        with tempfile.TemporaryDirectory(prefix="tandry-release-") as folder:
            subprocess.run([given("TANDRY_CMAKE"), "--preset", "release", "-B", folder], cwd=ROOT, check=True,
                           capture_output=True)
            with open(os.path.join(folder, "compile_commands.json"), encoding="utf-8") as file:
                commands = {entry["file"]: shlex.split(entry["command"]) for entry in json.load(file)}
            compiler = commands[str(ROOT / "src/app/focuser.cpp")]
            compiled = os.path.join(folder, "focuser.o")
            subprocess.run(compiler[:compiler.index("-o")] + ["-o", compiled, "-c", str(ROOT / "src/app/focuser.cpp")],
                           cwd=folder, check=True)
            self.assertIn("-DNDEBUG", compiler)
            self.assertIn(b"qt_assert", subprocess.run(["nm", compiled], check=True, capture_output=True).stdout)
            asserting = [path for path, command in commands.items() if "-DQT_FORCE_ASSERTS" in command]
            own = [path for path in commands if path.startswith(str(ROOT / "src")) and "_autogen" not in path]
            self.assertLessEqual(set(own), set(asserting))


if __name__ == "__main__":
    unittest.main()

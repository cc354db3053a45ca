"""The sample package on the sample machine, from an empty machine and back again."""

import json
import os
import tempfile
import unittest
from pathlib import Path

from machine import IS_WINDOWS, PROGRAMS, SUFFIX, TOOLS, UNINSTALL, Machine

PACKAGE = Path(os.environ["VS5_PACKAGE"])
NAME = "Velmora Studio 5"
SETTINGS = r"HKLM\SOFTWARE\Tavrolen Corporation"
# Windows shows the classes root as a part of the local machine too.
ROOT = r"HKLM\SOFTWARE\Classes" if IS_WINDOWS else "HKEY_CLASSES_ROOT"
CLASSES = [f"{ROOT}\\.vs5job", f"{ROOT}\\VelmoraStudio5.Job"]
LAUNCHER = r"HKLM\SOFTWARE\Corel\AppLauncher"


class SamplePackage(unittest.TestCase):
    def setUp(self):
        self.machine = Machine()
        self.addCleanup(self.machine.close)
        prepared = self.machine.run(TOOLS / f"sample_machine{SUFFIX}")
        self.assertEqual(prepared.returncode, 0, prepared.stderr)

    def files(self):
        """The files of programs, users and shared libraries, without logs and Windows' own."""
        def own(file):
            parts = file.relative_to(self.machine.drive).parts
            lower = [part.lower() for part in parts]
            return (lower[0] != "windows" or lower[-1].startswith("vs5_")) and not (
                "log" in lower or "temp" in lower)

        return {str(file.relative_to(self.machine.drive))
                for file in self.machine.drive.rglob("*") if file.is_file() and own(file)}

    def install(self, *args):
        ended = self.machine.run(PROGRAMS / f"setup_unattended{SUFFIX}", *args)
        self.assertEqual(ended.returncode, 0, ended.stdout + ended.stderr)
        return ended.stdout

    def uninstall(self):
        folder = self.machine.drive / "Program Files" / NAME / "uninstaller.dir"
        if IS_WINDOWS:
            # Wine keeps a running batch file open, so that its folder could not go: run a copy.
            (self.machine.drive / "u.bat").write_bytes((folder / "uninstall.bat").read_bytes())
            ended = self.machine.run("cmd", "/c", "C:\\u.bat")
            (self.machine.drive / "u.bat").unlink()
            return ended
        # Nothing runs a batch file here, so the program is started as the batch would do it.
        with tempfile.TemporaryDirectory() as temporary:
            copy = Path(temporary)
            for file in folder.iterdir():
                (copy / file.name).write_bytes(file.read_bytes())
            (copy / "uninstaller").chmod(0o755)
            return self.machine.run(copy / "uninstaller", "--nrd")

    def test_what_is_installed_can_be_removed_again(self):
        before = self.files()
        self.install("--quiet")
        self.install("--quiet")
        added = self.files() - before
        for part in ("Plug-ins", "Velmora Studio 5 samples.lnk", "Read me.lnk",
                     "vs5_corel_link_64.dll.txt", "uninstall.bat", "uninstall.xml"):
            self.assertTrue(any(part in name for name in added), part)
        self.assertEqual(len(self.machine.uninstall_values(NAME)), 6)
        self.assertIn("Send to Velmora Studio 5", json.dumps(self.machine.registry(LAUNCHER)))

        for key in CLASSES:
            self.assertNotEqual(self.machine.registry(key), {}, key)

        ended = self.uninstall()
        left = self.files() - before
        if not IS_WINDOWS:
            self.assertEqual(ended.returncode, 0, ended.stderr)
            # The folder with the uninstaller itself is the batch's to remove.
            left = {name for name in left if "uninstaller.dir" not in name}
        self.assertEqual(left, set(), ended.stdout)
        self.assertEqual(before - self.files(), set())
        install_folder = self.machine.drive / "Program Files" / NAME
        self.assertEqual(install_folder.exists(), not IS_WINDOWS)
        self.assertIsNone(self.machine.uninstall_values(NAME))
        for key in (SETTINGS, LAUNCHER, r"HKLM\SOFTWARE\WOW6432Node\Corel\AppLauncher", *CLASSES):
            self.assertNotIn("Velmora", json.dumps(self.machine.registry(key)))
        self.assertNotIn(NAME, json.dumps(self.machine.registry(f"HKLM\\{UNINSTALL}")))

    def test_a_plan_shows_what_is_left_out_and_why(self):
        table = self.install("--plan")
        for text in ("left out: for another system", "left out: no destination",
                     "left out: the folder above does not exist", "Shortcuts", "Path index entries",
                     "Nothing was changed."):
            self.assertIn(text, table)

"""Cases that have a machine and a package each, and what the usual package leaves there."""

import unittest

from machine import Machine
from package import Package

INSTALLED = {"one.txt": b"one", "folder/two.txt": b"two", "folder/deep/é漢.txt": b"three",
             "last.txt": b"last"}
TARGET = "Program Files/Trial"


class MachineTest(unittest.TestCase):
    machine_facts = None

    def setUp(self):
        self.machine = Machine(self.machine_facts)
        self.addCleanup(self.machine.close)
        self.package = Package()
        self.addCleanup(self.package.close)

    def expect_whole_product(self):
        """Its files, its entry in the system's list, its registry value, path entry and link."""
        self.assertEqual(self.machine.files(TARGET), INSTALLED)
        path = "C:\\Program Files\\Trial\\"
        self.assertEqual(self.machine.uninstall_values("Trial"), {
            "UninstallString": f'"{path}uninstaller.dir\\uninstall.bat"',
            "InstallLocation": f'"{path}"', "DisplayName": "Trial", "DisplayVersion": "1.0",
            "Publisher": "Tavrolen Corporation"})
        self.assertEqual(self.machine.registry(r"HKLM\SOFTWARE\Trial"),
                         {r"HKEY_LOCAL_MACHINE\SOFTWARE\Trial": {"Path": path + "x"}})
        data = self.machine.drive / "ProgramData"
        index = (data / "Tavrolen Corporation" / "tvl_path_index.txt").read_text()
        self.assertEqual(index.replace("\r", ""), f"TRIAL\t0\t{path}lib\n")
        links = [file.name for file in data.rglob("*.lnk")]
        self.assertEqual(links, ["Trial.lnk"])

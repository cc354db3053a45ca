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

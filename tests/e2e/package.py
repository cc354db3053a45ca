"""Packages as an author would make them, with the built programs three folders below the root."""

import os
import shutil
import tempfile
from pathlib import Path

from machine import PROGRAMS, SUFFIX

VARS = {"APP_NAME": "Trial", "APP_VERSION": "1.0", "PUBLISHER": "Tavrolen Corporation",
        "INSTALLER_CODE": "VS5", "APP_INSTALL_PATH": "${DEFAULT_PROGRAM_DIRECTORY}${APP_NAME}"}

# The four packages with fixed places, of which a 64-bit machine takes filesets from the first two
# and leaves the first fileset of the other two.
FOUR_PACKAGES = """
<package name="first" os="win" bits="64"><filesets>
  <fileset in="files/one.txt" out="${APP_INSTALL_PATH}one.txt"/></filesets></package>
<package name="second" os="win" bits="64"><filesets/></package>
<package name="third" os="win" bits="all"><filesets>
  <fileset in="files/old" out="${APP_INSTALL_PATH}old"/>
  <fileset in="files/folder" out="${APP_INSTALL_PATH}folder"/></filesets></package>
<package name="fourth" os="win" bits="all"><filesets>
  <fileset in="files/old" out="${APP_INSTALL_PATH}old"/>
  <fileset in="files/last.txt" out="${APP_INSTALL_PATH}last.txt"/></filesets></package>
"""

FILES = {"files/one.txt": "one", "files/folder/two.txt": "two", "files/folder/deep/é漢.txt": "three",
         "files/last.txt": "last"}


def install_xml(variables=None, packages=FOUR_PACKAGES, rest=""):
    lines = [f'<var name="{name}" value="{value}"/>'
             for name, value in (VARS if variables is None else variables).items()]
    return (f"<installation>\n<vars>\n{chr(10).join(lines)}\n</vars>\n"
            f"<packages>{packages}</packages>\n{rest}</installation>\n")


class Package:
    """A package in a folder of its own; gone after close()."""

    def __init__(self):
        self.root = Path(tempfile.mkdtemp(prefix="vs5_package_"))
        programs = self.root / "installer" / PROGRAMS.parent.name / PROGRAMS.name
        programs.mkdir(parents=True)
        for name in ("setup", "setup_unattended"):
            take(PROGRAMS / f"{name}{SUFFIX}", programs / f"{name}{SUFFIX}")
        self.resources = programs / "resources"
        self.resources.symlink_to(PROGRAMS / "resources")
        self.setup = programs / f"setup{SUFFIX}"
        self.unattended = programs / f"setup_unattended{SUFFIX}"

    def add(self, number, xml, files=None):
        folder = self.root / str(number) / "product"
        folder.mkdir(parents=True, exist_ok=True)
        (folder / "install.xml").write_text(xml, encoding="utf-8")
        for name, content in (FILES if files is None else files).items():
            file = folder / name
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(content, encoding="utf-8")
        return folder

    def own_resources(self):
        """Its folder of resources, from now on a copy that can be changed."""
        if self.resources.is_symlink():
            self.resources.unlink()
            shutil.copytree(PROGRAMS / "resources", self.resources)
        return self.resources

    def close(self):
        shutil.rmtree(self.root)


def take(file, to):
    """A second name for the file, where that can be had; else a copy."""
    try:
        os.link(file, to)
    except OSError:
        shutil.copy2(file, to)

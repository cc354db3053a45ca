"""A machine that programs are run on, Windows under Wine or the folder that stands for one."""

import json
import os
import shutil
import subprocess
import tempfile
from pathlib import Path

FLAVOUR = os.environ["VS5_FLAVOUR"]
IS_WINDOWS = FLAVOUR == "windows"
PROGRAMS = Path(os.environ["VS5_PROGRAMS"])
TOOLS = Path(os.environ["VS5_TOOLS"])
SUFFIX = ".exe" if IS_WINDOWS else ""
SCRIPTS = Path(__file__).resolve().parents[2] / "scripts"
UNINSTALL = r"SOFTWARE\Microsoft\Windows\CurrentVersion\Uninstall"


class Machine:
    """Fresh when it is made and gone after close(), unless it is one that is there and kept."""

    def __init__(self, facts=None, kept=None):
        """`kept` is the folder of a machine that was made before."""
        self.folder = Path(kept or tempfile.mkdtemp(prefix="vs5_machine_"))
        self.environment = dict(os.environ)
        if IS_WINDOWS:
            if not kept:
                self.folder.rmdir()
                subprocess.run([SCRIPTS / "wine_prefix", "copy", self.folder], check=True)
            self.environment["WINEPREFIX"] = str(self.folder)
            self.drive = self.folder / "drive_c"
            self.user = self.drive / "users" / os.environ.get("USER", "root")
            if not self.user.is_dir():
                self.user = next(d for d in (self.drive / "users").iterdir() if d.name != "Public")
        else:
            self.environment["VS5_MACHINE"] = str(self.folder)
            self.drive = self.folder / "c"
            self.user = self.drive / "Users" / "user"
            self.drive.mkdir(exist_ok=True)
            if facts:
                (self.folder / "machine.json").write_text(json.dumps(facts), encoding="utf-8")

    def stop(self):
        """Ends all that runs on it."""
        if IS_WINDOWS:
            subprocess.run([SCRIPTS / "wine_prefix", "stop", self.folder], check=True)

    def close(self):
        self.stop()
        shutil.rmtree(self.folder)

    def command(self, program, *args):
        emulator = [os.environ["VS5_RUN"]] if os.environ["VS5_RUN"] else []
        return [*emulator, str(program), *args]

    def run(self, program, *args):
        """The ended process, its output as text."""
        # Into files: the desktop, which a program under Wine may start, would keep a pipe open.
        with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
            ended = subprocess.run(self.command(program, *args), env=self.environment, check=False,
                                   stdin=subprocess.DEVNULL, stdout=out, stderr=err, timeout=120)
            for stream in (out, err):
                stream.seek(0)
            ended.stdout, ended.stderr = (stream.read().decode("utf-8", "replace").replace("\r", "")
                                          for stream in (out, err))
        return ended

    def files(self, folder=""):
        """The files below a folder of drive C:, each with its bytes."""
        top = self.drive / folder
        return {str(file.relative_to(top)): file.read_bytes()
                for file in sorted(top.rglob("*")) if file.is_file()}

    def everything(self):
        """All that a run may change: the names on the disk, the user's files, the registry."""
        names = sorted(str(file.relative_to(self.drive)) for file in self.drive.rglob("*"))
        return names, self.registry(r"HKLM\SOFTWARE")

    def registry(self, key):
        """What lies at and below a key of the local machine: {key: {name: text}}."""
        if not IS_WINDOWS:
            file = self.folder / "registry.json"
            keys = json.loads(file.read_text(encoding="utf-8")) if file.exists() else {}
            top = key.replace("HKLM", "HKEY_LOCAL_MACHINE")
            return {path: values for path, values in keys.items()
                    if path == top or path.startswith(top + "\\")}
        # Written by the system's own tool, in UTF-16.
        self.run("reg", "export", key, r"C:\exported.reg", "/y", "/reg:64")
        file = self.drive / "exported.reg"
        if not file.exists():
            return {}
        text = file.read_text(encoding="utf-16")
        file.unlink()
        return parse_exported(text)

    def uninstall_values(self, name):
        key = f"HKLM\\{UNINSTALL}\\{name}"
        return self.registry(key).get(key.replace("HKLM", "HKEY_LOCAL_MACHINE"))

    def log_folder(self, settings=None):
        """Where logs lie below the user's settings, or below the folder that --prefs names."""
        settings = settings or self.user / "AppData" / "Roaming"
        return settings / "Tavrolen Corporation" / "log" / "installer"

    def log_files(self):
        return sorted(self.log_folder().glob("*"))

    def newest_log(self):
        """The lines of the newest log, without the place in the source and the colon behind."""
        text = self.log_files()[-1].read_text(encoding="utf-8")
        lines = [line.rstrip("\r") for line in text.split("\n")]
        return [line.split(": ", 1)[-1].removesuffix(":") for line in lines if line]


def parse_exported(text):
    keys, current = {}, None
    for line in text.splitlines():
        if line.startswith("["):
            current = keys.setdefault(line[1:-1], {})
        elif line.startswith('"') and '"="' in line:
            name, data = line[1:-1].split('"="', 1)
            current[name] = data.replace("\\\\", "\\").replace('\\"', '"')
        elif line and current is not None:
            current.setdefault("", "")
            current[""] += line
    return keys

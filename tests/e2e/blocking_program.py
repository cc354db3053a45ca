"""Programs that an installation has to wait for."""

import shutil
import subprocess

from machine import IS_WINDOWS


class BlockingProgram:
    """A program of a given name that runs until the block ends, or end() is called."""

    def __init__(self, machine, folder, name):
        program = folder / name
        if IS_WINDOWS:
            machine.run("cmd", "/c", "exit")  # two programs must not start the machine at once
            shutil.copy2(machine.drive / "windows" / "syswow64" / "cmd.exe", program)
            command = machine.command(program, "/c", "pause")
        else:
            shutil.copy2("/bin/sleep", program)
            command = [program, "120"]
        self.running = subprocess.Popen(command, env=machine.environment, stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        if IS_WINDOWS:
            self.running.stdout.read(1)  # it asks for a key, so it runs

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.end()

    def end(self):
        if self.running.returncode is None:
            if not IS_WINDOWS:
                self.running.kill()
            self.running.communicate(b"\n")

"""Drives the wizard on an X display as its user does, with the pointer and the keyboard.

What it waits for it waits for with a limit, and says what did not come. Text that the wizard draws
cannot be read; what it does is told by its log, by its windows and by what it leaves behind.
"""

import csv
import os
import subprocess
import tempfile
import time
from contextlib import contextmanager

from layout import RESOURCES, Layout

SECONDS = 60
POLL = 0.02
DIALOGS = ("already_installed_dialog", "obsolete_cutter_dialog", "program_running_dialog")


class WizardFailure(AssertionError):
    """The wizard did not do what was waited for."""


def wait_for(condition, what, seconds=SECONDS):
    """The first answer of the condition that is not empty."""
    limit = time.monotonic() + seconds
    while time.monotonic() < limit:
        answer = condition()
        if answer:
            return answer
        time.sleep(POLL)
    raise WizardFailure(f"after {seconds} s: {what}")


def read_texts():
    """The table of the wizard's texts: {key: {language: text}}."""
    with (RESOURCES / "langfile.txt").open(encoding="utf-8", newline="") as table:
        rows = [row for row in csv.reader(table, delimiter="\t", quoting=csv.QUOTE_NONE) if row]
    return {row[0]: dict(zip(rows[0][1:], row[1:])) for row in rows[1:]}


def xdotool(*args):
    """What it prints; empty if it finds nothing."""
    ended = subprocess.run(["xdotool", *map(str, args)], check=False, timeout=SECONDS,
                           stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                           stderr=subprocess.DEVNULL)
    return ended.stdout.decode().strip()


class Wizard:
    """A wizard that runs on a machine; it is ended by force if it still does when the block ends."""

    def __init__(self, machine, program, *args, product, lang="en", settings=None):
        """`product` is the APP_NAME in the window's title, `settings` the folder of --prefs."""
        self.layout = Layout(machine)
        self.lang, self.title = lang, f"Install {product}"
        # Without its folder, the first run on a machine has no log.
        self.log_folder = machine.log_folder(settings)
        self.log_folder.mkdir(parents=True, exist_ok=True)
        self.logged_before = {file: file.stat().st_size for file in self.log_folder.iterdir()}
        self.log_read, self.log_lines = 0, []
        self.drawn = set()
        self.output = tempfile.TemporaryFile()
        self.process = subprocess.Popen(machine.command(program, *args), env=machine.environment,
                                        stdin=subprocess.DEVNULL, stdout=self.output,
                                        stderr=self.output)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        self.output.close()

    # What it tells.

    def log(self):
        """The lines of this run so far, without the place in the source and the colon behind."""
        files = sorted(self.log_folder.iterdir())
        if files:
            place = self.log_read or self.logged_before.get(files[-1], 0)
            with files[-1].open("rb") as log:
                log.seek(place)
                whole = log.read().rpartition(b"\n")[0]
            if whole:
                self.log_read = place + len(whole) + 1
                lines = whole.decode("utf-8", "replace").split("\n")
                self.log_lines += [line.rstrip("\r").split(": ", 1)[-1].removesuffix(":")
                                   for line in lines if line.rstrip("\r")]
        return self.log_lines

    def printed(self):
        """What it wrote to its console so far."""
        return os.pread(self.output.fileno(), 1 << 24, 0).decode("utf-8", "replace")

    def wait_for_line(self, line, count=1):
        """Waits until the log has the line, or has it so often."""
        def logged():
            if self.log().count(line) >= count:
                return True
            if self.process.poll() is not None and self.log().count(line) < count:
                self._fail(f'it ended {self.process.returncode} without the line "{line}"')
            return False

        try:
            wait_for(logged, f'no line "{line}"')
        except WizardFailure as failure:
            self._fail(str(failure))

    def wait_for_copies(self, count):
        """Waits until so many files were copied, or begun."""
        wait_for(lambda: self.printed().count("id:installing") >= count, f"no {count} files")

    def is_already_installed(self):
        """Whether it asks before its first page; waits until it has found out."""
        lines = ("Software already installed.", "Reg key not found.")
        return wait_for(lambda: [line for line in lines if line in self.log()],
                        "it does not look for an older installation")[0] == lines[0]

    def wait_for_end(self):
        """The exit status, once all its windows are gone and it has ended."""
        try:
            return self.process.wait(SECONDS)
        except subprocess.TimeoutExpired:
            return self._fail("it does not end")

    def _fail(self, what):
        end = "\n  ".join(self.log()[-15:])
        raise WizardFailure(f"{what}; the log's end:\n  {end}\nprinted:\n{self.printed()[-2000:]}")

    # Its windows.

    def dialog_title(self, dialog):
        return read_texts()[dialog.replace("_dialog", "_title")][self.lang]

    def window(self, shown="welcome_main"):
        """The window of a page or dialog, once it stands still and can be used."""
        title = self.dialog_title(shown) if shown in DIALOGS else self.title
        found = self.wait_for_window(title)
        places = []

        def stands_still():
            places.append(xdotool("getwindowgeometry", "--shell", found))
            return len(places) > 3 and len(set(places[-3:])) == 1

        wait_for(stands_still, f'the window "{title}" does not come to rest')
        if found not in self.drawn:
            wait_for(lambda: is_drawn(found), f'the window "{title}" is not drawn')
            self.drawn.add(found)
        return found

    def wait_for_window(self, title):
        """The window of this title, once it has the keyboard."""
        def active():
            if self.process.poll() is not None:
                self._fail(f'it ended {self.process.returncode} without the window "{title}"')
            return active_window(title)

        try:
            return wait_for(active, f'no window "{title}"')
        except WizardFailure as failure:
            return self._fail(str(failure))

    def wait_for_page(self, page="welcome_main"):
        """Its window, once the page can be used."""
        self.wait_for_line({"welcome_main": "Attempting launch.",
                            "installing_main": "Installing Tab visible.",
                            "end_main": "End Tab showing."}[page])
        return self.window(page)

    def wait_until_closed(self, shown):
        title = self.dialog_title(shown) if shown in DIALOGS else self.title
        wait_for(lambda: not active_window(title), f'the window "{title}" stays open')

    # What its user does.

    def click(self, shown, widget):
        """Moves the pointer onto a widget, and presses and releases the left button."""
        x, y = self.layout.middle(shown, widget, self.lang)
        xdotool("mousemove", "--window", self.window(shown), x, y, "click", 1)

    def press(self, *keys):
        """Hits keys, each with xdotool's name for it, for the window that has the keyboard."""
        xdotool("key", *keys)

    @contextmanager
    def holding(self, key):
        """With the key down, which comes again and again as from a keyboard."""
        xdotool("keydown", key)
        try:
            yield
        finally:
            xdotool("keyup", key)

    def write(self, text):
        xdotool("type", "--delay", 1, "--", text)

    def replace_folder(self, folder):
        """Puts the text of the welcome page's field in place of what is there."""
        self.click("welcome_main", "install_path_textfield")
        self.press("ctrl+a")
        if folder:
            self.write(folder)
        else:
            self.press("Delete")

    def close(self, shown="welcome_main"):
        """Closes a window as its title bar would."""
        xdotool("windowfocus", "--sync", self.window(shown), "key", "alt+F4")

    def minimise(self):
        """Its window, which must be given back to restore()."""
        found = self.window()
        xdotool("windowminimize", "--sync", found)
        return found

    def restore(self, window):
        xdotool("windowactivate", "--sync", window)

    def picture(self, shown, file):
        """Writes what the window of a page or dialog shows, without its frame, into a PNG file."""
        take_picture(self.window(shown), str(file))


def take_picture(window, file):
    """Puts what a window shows into a file, whose name tells its format; its bytes, if it is "-"."""
    ended = subprocess.run(["import", "-window", window, "-depth", "8", file], check=True,
                           timeout=SECONDS, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE)
    return ended.stdout


def is_drawn(window):
    """Whether the program has drawn into its window, which is of one colour before."""
    pixels = take_picture(window, "rgb:-")
    return pixels != pixels[:3] * (len(pixels) // 3)


def active_window(title):
    """The window that has the keyboard, if that is its title."""
    found = xdotool("getactivewindow")
    # A search goes by an older property, which holds no text of the East.
    return found if found and xdotool("getwindowname", found) == title else None

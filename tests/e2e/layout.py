"""Where the widgets of the wizard lie."""

import json
import tempfile
from pathlib import Path

from machine import IS_WINDOWS, PROGRAMS, SUFFIX

RESOURCES = PROGRAMS / "resources"
PAGES = ("welcome_main", "installing_main", "end_main")


class Layout:
    """Where the widgets of the pages and dialogs lie, as nui_preview measures them.

    Measured once for each state of the resources, and kept in the folder of the build.
    """

    def __init__(self, machine):
        self.machine = machine
        self.preview = PROGRAMS / f"nui_preview{SUFFIX}"
        self.sources = [self.preview, *sorted(RESOURCES.glob("ui/*.json")),
                        RESOURCES / "langfile.txt"]
        self.kept = PROGRAMS.parents[3] / "widget_places"

    def middle(self, shown, widget, lang):
        """The middle of a widget on a page ("welcome_main") or dialog, in pixels of its window."""
        places = self._places(shown, lang)
        if widget not in places:
            raise LookupError(f'there is no "{widget}" in {shown}')
        x, y, width, height = places[widget]
        return round(x + width / 2), round(y + height / 2)

    def _places(self, shown, lang):
        state = [[str(file), file.stat().st_mtime_ns] for file in self.sources]
        file = self.kept / f"{shown}_{lang}.json"
        if file.exists():
            kept = json.loads(file.read_text(encoding="utf-8"))
            if kept["state"] == state:
                return kept["places"]
        layout = "installer_window" if shown in PAGES else shown
        measured = self._measure(layout, PAGES if shown in PAGES else [shown], lang)
        self.kept.mkdir(exist_ok=True)
        for name, places in measured.items():
            text = json.dumps({"state": state, "places": places})
            (self.kept / f"{name}_{lang}.json").write_text(text, encoding="utf-8")
        return measured[shown]

    def _measure(self, layout, names, lang):
        with tempfile.TemporaryDirectory() as folder:
            trees = {name: Path(folder) / f"{name}.json" for name in names}
            script = Path(folder) / "script.txt"
            script.write_text("".join(
                (f"show {name}\n" if name in PAGES else "") + f"tree {machine_name(tree)}\n"
                for name, tree in trees.items()), encoding="utf-8")
            ended = self.machine.run(self.preview,
                                     machine_name(RESOURCES / "ui" / f"{layout}.json"),
                                     "--lang", lang, "--play", machine_name(script))
            if ended.returncode:
                raise ValueError(f"{layout} cannot be measured: {ended.stderr}")
            return {name: dict(shown_places(json.loads(tree.read_text(encoding="utf-8"))))
                    for name, tree in trees.items()}


def machine_name(file):
    """A file of this system as programs of the machine name it."""
    return f"Z:{file}" if IS_WINDOWS else str(file)


def shown_places(tree):
    if tree["visibility"] == "Collapsed":
        return
    if tree["name"]:
        yield tree["name"], [tree[key] for key in ("x", "y", "width", "height")]
    for child in tree["children"]:
        yield from shown_places(child)

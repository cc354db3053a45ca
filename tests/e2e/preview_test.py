"""The layout preview: what it draws, measures, plays and refuses."""

import json
import shutil
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

from machine import IS_WINDOWS, PROGRAMS, SUFFIX, Machine
from picture import Picture
from wizard import WizardFailure, take_picture, wait_for, xdotool

SAMPLES = PROGRAMS / "resources" / "samples"
TREES = Path(__file__).parent / "preview_trees"
# Their sizes follow the scale of the display or the widths of letters.
SIZED_BY_DISPLAY = {"breadcrumbs", "lists", "text_buttons", "text_fields", "text_labels", "values"}
KEYS = ["class", "id", "name", "x", "y", "width", "height", "visibility", "enabled", "focused",
        "children"]


def windows_name(path):
    return f"Z:{path}" if IS_WINDOWS else str(path)


def widgets(tree):
    yield tree
    for child in tree["children"]:
        yield from widgets(child)


def lines(tree, with_places, depth=0):
    """One line a widget, without what depends on the display."""
    text = f" {json.dumps(tree['text'], ensure_ascii=False)}" if "text" in tree else ""
    values = "".join(f" {key}={json.dumps(tree[key])}" for key in ("value", "state") if key in tree)
    place = "".join(f"{tree[key]} " for key in ("x", "y", "width", "height")) if with_places else ""
    yield (f"{'  ' * depth}{tree['class']} {tree['name'] or '-'} {place}{tree['visibility']}"
           f"{text}{values}")
    for child in tree["children"]:
        yield from lines(child, with_places, depth + 1)


class Preview(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.machine = Machine()
        cls.addClassCleanup(cls.machine.close)

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="vs5_preview_"))
        self.addCleanup(shutil.rmtree, self.folder)

    def write(self, name, text):
        file = self.folder / name
        file.write_text(text, encoding="utf-8")
        return file

    def preview(self, layout, *args):
        return self.machine.run(PROGRAMS / f"nui_preview{SUFFIX}", windows_name(layout),
                                *(windows_name(a) if isinstance(a, Path) else a for a in args))

    def show(self, layout, *args):
        """The tree and the picture of a layout file."""
        tree, picture = self.folder / "tree.json", self.folder / "picture.png"
        ended = self.preview(layout, "--tree", tree, "--png", picture, *args)
        self.assertEqual((ended.returncode, ended.stderr), (0, ""))
        return json.loads(tree.read_text(encoding="utf-8")), Picture(picture)

    def test_samples_are_laid_out_the_same_everywhere(self):
        samples = sorted(SAMPLES.glob("*.json"))
        self.assertEqual([file.stem for file in samples if file.stem != "units"],
                         sorted(file.stem for file in TREES.glob("*.txt")))
        for sample in samples:
            with self.subTest(sample.stem):
                tree, picture = self.show(sample)
                self.assertEqual((picture.width, picture.height), (tree["width"], tree["height"]))
                for widget in widgets(tree):
                    self.assertEqual([key for key in widget if key in KEYS], KEYS)
                expected = TREES / f"{sample.stem}.txt"
                if expected.exists():
                    with_places = sample.stem not in SIZED_BY_DISPLAY
                    self.assertEqual(expected.read_text(encoding="utf-8").splitlines(),
                                     list(lines(tree, with_places)))

    def test_points_follow_the_scale_of_the_display(self):
        tree, _ = self.show(SAMPLES / "units.json")
        sizes = {widget["name"]: widget["width"] for widget in widgets(tree)}
        self.assertGreaterEqual(sizes["ten_points"], 10)
        self.assertIn(sizes["many_points"] // 10, (sizes["ten_points"], sizes["ten_points"] + 1))
        self.assertEqual(sizes["text_points"], sizes["many_points"])

    def test_pictures_show_what_the_tree_tells(self):
        tree, picture = self.show(SAMPLES / "overlap.json", "--size", "400x300")
        self.assertEqual((picture.width, picture.height), (400, 300))
        places = {widget["name"]: widget for widget in widgets(tree)}
        for name, colour in (("start", "#D9542B"), ("end", "#1F2D3D")):
            widget = places[name]
            left, top = widget["x"], widget["y"]
            right, bottom = left + widget["width"] - 1, top + widget["height"] - 1
            for x, y in ((left, top), (right, top), (left, bottom), (right, bottom)):
                self.assertEqual(picture.at(x, y), colour, name)
            self.assertNotEqual(picture.at(left - 1, top), colour, name)
            self.assertNotEqual(picture.at(left, top - 1), colour, name)

    def test_a_script_plays_with_the_window(self):
        script = self.write("script.txt", "\n".join([
            "# looks of the states", "move 160 100", "png {0}over.png", "press",
            "png {0}pressed.png", "move 5 5", "release", "png {0}left.png", "click second_button",
            "focus second_button", "tree {0}second.json", "quit", "click nobody"
        ]).format(windows_name(self.folder) + "/"))
        self.show(SAMPLES / "borders.json", "--play", script)
        seen = [Picture(self.folder / f"{name}.png").at(160, 100)
                for name in ("over", "pressed", "left")]
        self.assertEqual(seen, ["#FFF2C8", "#D9542B", "#FFFFFF"])
        tree = json.loads((self.folder / "second.json").read_text(encoding="utf-8"))
        self.assertEqual([widget["name"] for widget in widgets(tree) if widget["focused"]],
                         ["second_button"])

    def test_a_script_types_and_clicks_through_a_form(self):
        field = '"class": "TextField", "height": 24, "fontSize": 14'
        layout = self.write("form.json", f"""{{"widgets": [{{
            "id": "s", "class": "Screen", "windowWidth": 300, "windowHeight": 120, "form": true,
            "layout": "Vertical", "children": [
                {{{field}, "name": "first", "text": "abc"}},
                {{{field}, "name": "second", "maxLength": 5}},
                {{{field}, "name": "secret", "inputType": "Password"}},
                {{"class": "DropDown", "name": "choice", "height": 24,
                 "items": ["one", "two", "three"]}}]}}]}}""")
        script = self.write("script.txt", "\n".join([
            "click first", "type Gr\u00f6\u00dfe", "key Left shift", "key X ctrl", "key Tab",
            "key V ctrl", "type 123456", "key Home", "key Right shift", "key Tab", "type \u00e4b",
            "focus choice", "key Down", "key Down"]))
        tree, _ = self.show(layout, "--play", script)
        said = {widget["name"]: tuple(widget.get(key) for key in
                                      ("text", "caret", "anchor", "focused"))
                for widget in widgets(tree)}
        self.assertEqual(said["first"], ("Gr\u00f6\u00df", 4, 4, False))
        self.assertEqual(said["second"], ("e1234", 1, 0, False))
        self.assertEqual(said["secret"], ("\u00e4b", 2, 2, False))
        self.assertEqual([(widget["value"], widget["focused"]) for widget in widgets(tree)
                          if widget["name"] == "choice"], [("two", True)])

    def test_the_wizards_own_files_open_without_its_models(self):
        layouts = PROGRAMS / "resources" / "ui"
        script = self.write("script.txt", "show end_main\n")
        tree, picture = self.show(layouts / "installer_window.json", "--lang", "de", "--play",
                                  script)
        self.assertEqual((picture.width, picture.height), (tree["width"], tree["height"]))
        self.assertEqual({widget["name"]: widget["visibility"] for widget in widgets(tree)
                          if widget["name"].endswith("_main")},
                         {"installer_main": "Visible", "welcome_main": "Collapsed",
                          "installing_main": "Collapsed", "end_main": "Visible"})
        texts = {widget["name"]: widget["text"] for widget in widgets(tree) if "text" in widget}
        self.assertEqual((texts["title_label"], texts["finish_button"]),
                         ("Installation von Velmora Studio 5", "Fertigstellen"))
        for dialog in sorted(layouts.glob("*_dialog.json")):
            tree, _ = self.show(dialog)
            self.assertEqual((tree["name"], tree["visibility"]),
                             (f"{dialog.stem}_main", "Visible"))

    def test_the_wheel_scrolls_what_can_be_scrolled(self):
        script = self.write("script.txt", "move 60 60\nwheel -2\n")
        before, _ = self.show(SAMPLES / "scrolling.json")
        after, _ = self.show(SAMPLES / "scrolling.json", "--play", script)
        moved = {a["name"] for a, b in zip(widgets(before), widgets(after)) if a["y"] > b["y"]}
        self.assertEqual(moved, {"c1", "c2", "c3", "c4", "c5"})

    def test_faults_of_a_file_are_told_with_their_place(self):
        screen = '"id": "a", "class": "Screen"'
        # With how many widgets there are all the same.
        faults = {
            '{"widgets": [\n  {"id": 1,, }]}': ("layout.json:2:", "JSON", 0),
            '{"widgets": [\n{"id": "a", "class": "Scren"}]}': ("layout.json:2:", "Scren", 0),
            f'{{"widgets": [{{{screen}, "visibility": 3}}]}}': ("layout.json:1:", "visibility", 1),
            f'{{"widgets": [{{{screen}, "children": [{{"template": "no_one"}}, '
            '{"class": "Widget"}]}]}': ("layout.json:1:", "no_one", 2),
            f'{{"include": ["gone.json"], "widgets": [{{{screen}}}]}}':
                ("layout.json:1:", "gone.json", 1),
            '{"widgets": []}': ("layout.json", "no widget", 0),
        }
        tree = self.folder / "tree.json"
        for text, (place, told, count) in faults.items():
            layout = self.write("layout.json", text)
            ended = self.preview(layout, "--tree", tree)
            self.assertEqual(ended.returncode, 1, text)
            self.assertIn(place, ended.stderr)
            self.assertIn(told, ended.stderr)
            self.assertEqual(tree.exists(), count > 0, text)
            if count > 0:
                self.assertEqual(len(list(widgets(json.loads(tree.read_text())))), count, text)
                tree.unlink()
        self.write("langfile.txt", "key\ten\nHello\n")
        ended = self.preview(SAMPLES / "borders.json", "--resources", self.folder, "--tree",
                             self.folder / "tree.json")
        self.assertEqual(ended.returncode, 1)
        self.assertIn("langfile.txt: Language file is broken.", ended.stderr)
        (self.folder / "langfile.txt").unlink()
        layout = self.write("layout.json", f'{{"widgets": [{{{screen}, "children": [\n'
                            '{"class": "Image", "file": "gone.png"}]}]}')
        ended = self.preview(layout, "--tree", self.folder / "tree.json")
        self.assertEqual(ended.returncode, 0, "it shows nothing there, and says so")
        self.assertRegex(ended.stderr, r'layout.json:2:\d+: the picture "gone.png" cannot be loaded')
        ended = self.preview(self.folder / "no such file.json", "--tree", self.folder / "tree.json")
        self.assertEqual(ended.returncode, 1)
        self.assertIn("no such file.json", ended.stderr)

    def test_faults_of_a_script_are_told_with_their_line(self):
        for text, told in (("wait 0\nfly away", "script.txt:2: The command \"fly\" is not known."),
                           ("\n\nclick nobody", "script.txt:3: There is no widget \"nobody\".")):
            script = self.write("script.txt", text)
            ended = self.preview(SAMPLES / "borders.json", "--play", script)
            self.assertEqual(ended.returncode, 1)
            self.assertIn(told, ended.stderr)
        ended = self.preview(SAMPLES / "borders.json", "--zoom", "2")
        self.assertEqual((ended.returncode, ended.stderr.count("\n")), (2, 1))

    def test_an_open_preview_follows_the_file_and_its_includes(self):
        part = self.write("part.json", '{"constants": {"paper": "#FFFFFF"}}')
        layout = self.write("layout.json", """{"include": ["part.json"], "widgets": [
            {"id": "a", "class": "Screen", "windowWidth": 200, "windowHeight": 150,
             "backgroundColor": "paper"}]}""")
        errors = self.folder / "errors.txt"
        running = self.start(layout, errors)
        time.sleep(3)
        self.assertEqual(errors.read_bytes(), b"")
        for file, text, told in ((layout, '{"widgets": [', b"layout.json:1:"),
                                 (part, '{"constants": ]', b"part.json:1:")):
            good = file.read_text(encoding="utf-8")
            file.write_text(text, encoding="utf-8")
            wait_for(lambda told=told: told in errors.read_bytes(), f"{told} was not told")
            self.assertIsNone(running.poll())
            file.write_text(good, encoding="utf-8")
            time.sleep(1)
        self.assertIsNone(running.poll())

    def test_a_window_shows_itself_whenever_it_is_laid_bare(self):
        windows = []
        for title, colour, seen in (("below", "#FF0000", b"\xff\0\0"),
                                    ("above", "#0000FF", b"\0\0\xff")):
            windows.append(self.open_window(title, colour))
            # Not moved before it stands where the program wants it.
            self.wait_for_colour(windows[-1], seen)
        below, above = windows
        for window in (below, above):
            xdotool("windowmove", "--sync", window, 100, 100)
        xdotool("windowraise", above)
        # The display keeps nothing of what is covered.
        self.wait_for_colour(below, b"\0\0\0")
        xdotool("windowmove", "--sync", above, 250, 200)
        self.wait_for_colour(below, b"\xff\0\0", b"\0\0\0")
        xdotool("windowmove", "--sync", above, 700, 500)
        self.wait_for_colour(below, b"\xff\0\0")
        xdotool("windowminimize", "--sync", below)
        xdotool("windowactivate", "--sync", below)
        self.wait_for_colour(below, b"\xff\0\0")
        xdotool("windowsize", "--sync", below, 400, 250)
        self.wait_for_colour(below, b"\xff\0\0")

    def start(self, layout, output):
        """A preview that stays open until the test ends."""
        with output.open("wb") as stream:
            running = subprocess.Popen(
                self.machine.command(PROGRAMS / f"nui_preview{SUFFIX}", windows_name(layout)),
                env=self.machine.environment, stdin=subprocess.DEVNULL, stdout=stream,
                stderr=stream)
        self.addCleanup(running.wait)
        self.addCleanup(running.terminate)
        return running

    def open_window(self, title, colour):
        screen = {"id": title, "class": "Screen", "windowTitle": title, "windowWidth": 300,
                  "windowHeight": 200, "resizable": True, "backgroundColor": colour}
        self.start(self.write(f"{title}.json", json.dumps({"widgets": [screen]})),
                   self.folder / f"{title}.txt")
        return wait_for(lambda: xdotool("search", "--onlyvisible", "--name", f"^{title}$"),
                        f"no window {title}")

    @staticmethod
    def wait_for_colour(window, *colours):
        """Waits until the window consists of these colours."""
        seen = set()

        def has_them():
            pixels = take_picture(window, "rgb:-")
            seen.clear()
            seen.update(pixels[i:i + 3] for i in range(0, len(pixels), 3))
            return seen == set(colours)

        try:
            wait_for(has_them, "")
        except WizardFailure:
            place = xdotool("getwindowgeometry", window)
            raise WizardFailure(f"it shows {seen}, not {set(colours)}: {place}") from None


@unittest.skipIf(IS_WINDOWS, "there is always a display on Windows")
class PreviewWithoutDisplay(unittest.TestCase):
    def test_pictures_need_no_display(self):
        machine = Machine()
        self.addCleanup(machine.close)
        for name in ("DISPLAY", "WAYLAND_DISPLAY"):
            machine.environment.pop(name, None)
        with tempfile.TemporaryDirectory() as folder:
            picture = Path(folder) / "picture.png"
            ended = machine.run(PROGRAMS / "nui_preview", SAMPLES / "no_window.json", "--png",
                                picture)
            self.assertEqual((ended.returncode, ended.stderr), (0, ""))
            self.assertEqual(Picture(picture).at(20, 20), "#5B8DB8")

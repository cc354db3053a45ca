"""The wizard from outside: pointer and keys go in; files, registry, log and exit status come out."""

import json
import os
import time
import unittest

from blocking_program import BlockingProgram
from machine import IS_WINDOWS, PROGRAMS, SUFFIX, TOOLS
from machine_case import INSTALLED, TARGET, MachineTest
from package import FILES, FOUR_PACKAGES, VARS, install_xml
from wizard import Wizard, is_drawn, wait_for, xdotool

NEVER_STARTED = 1
# As the systems spell them: what is refused is compared letter by letter.
WINDOWS = "C:\\windows" if IS_WINDOWS else "C:\\Windows"

# In their order; a "*" stands for what depends on the machine. Other lines may stand between.
STORY = [
    "Starting VS5 install.", "*\\log\\installer created", "*\\Velmora Studio 5 created",
    "*\\shared created", "Command line args:", "SDL init.", "Data dir: *", "Package root: *",
    "Searching *", "Searching children.", "install.xml found at: *", "Searching *",
    "install.xml not found", "Importing xml specs.", "Importing *", "Import successful.",
    "Configuring install locations.", "Making Windows spec.", "WOW proc: 1", "64-bit proc: 1",
    "Setting default program dir to C:\\Program Files", "Making VS5 for Windows spec.",
    "32 bit COREL installer running on 64 bit Windows.", "Preventing 32 bit install.",
    "Finding Adobe versions.", "Found possible Adobe installations:",
    "Accepted Adobe installations:", "Adobe not found.", "Finding Corel versions.",
    "Found Corel installations:", "Adding packages info.", "Adding package files.",
    "Final spec: *", "Engine init.", "entering changeLanguageAndFont",
    "leaving changeLanguageFont", "Making injector.", "Loading widgets.",
    "Welcome Tab setting install path.", "Welcome tab widget initialisation.",
    "Installer App getting name.", "Welcome tab widgets initialised.", "Total files calculated.",
    "Start initialising Installing Tab widgets.", "Installing Tab widgets initialised.",
    "End Tab widgets initialising.", "End Tab widgets initialised.",
    "Installer window initialising.", "Installer App getting name.",
    "Installer window initialised.", "Loaded widgets.", "Welcome Tab opening.",
    "Installer App getting name.", "Installer already installed.", "Installing Tab opening.",
    "Attempting launch.", "Welcome tab install clicked.", "Valid filepath selected.",
    "Change to installing main page.", "Installing Tab visible.", "Installing tab start install.",
    "Installer App install start.", "Installer App set password and install.",
    "Start of install.", "Configuring paths.", "Install paths start.", "Adding uninstall keys.",
    "Creating uninstall spec.", "Install packs start.", "Install pack start.",
    "Install file start.", "Install file in: *", "Install file out: *", "Installing file.",
    "Creating uninstall bat file.", "Exporting uninstall spec: *", "Installing reg keys.",
    "Finished install.", "Installer App install complete.", "Installing install finished.",
    "Install drawn.", "End Tab showing.", "Setting up End Tab success message.",
    "Installer App getting name.", "Success message displayed.", "End Tab closing.",
    "Post-render loop exit.",
]
OPENING = ["Welcome Tab opening.", "Installer already installed."]
LAUNCH = ["Installing Tab opening.", "Attempting launch."]
INSTALLATION = ["Welcome tab install clicked.", "Valid filepath selected.",
                "Change to installing main page.", "Installing Tab visible.",
                "Installing tab start install.", "Installer App install start.",
                "Installer App install complete.", "Installing install finished.",
                "Install drawn.", "End Tab showing."]
SUCCESS = ["Setting up End Tab success message.", "Success message displayed."]
FAILURE = ["End Tab install message fail."]
FINISH = ["End Tab closing.", "Post-render loop exit."]


def is_told(line, told):
    start, _, end = told.partition("*")
    return line == told or ("*" in told and line.startswith(start) and line.endswith(end))


def missing_from_story(lines, story):
    """The first line of the story that the log does not have behind the ones before it."""
    rest = iter(lines)
    for told in story:
        if not any(is_told(line, told) for line in rest):
            return told
    return None


class WizardTest(MachineTest):
    product = "Trial"

    def start(self, *args, setup=None, lang="en", settings=None):
        """The running wizard; `settings` is what --prefs names, if anything."""
        return Wizard(self.machine, setup or self.package.setup, *args, product=self.product,
                      lang=lang, settings=settings)

    def expect_end(self, wizard, *stories):
        """It ends well, and has logged these stories one behind the other."""
        self.assertEqual(wizard.wait_for_end(), 0, wizard.printed())
        told = [line for story in stories for line in story]
        self.assertIsNone(missing_from_story(wizard.log(), told), "\n".join(wizard.log()[-60:]))

    def expect_none(self, wizard, *lines):
        self.assertEqual([line for line in lines if line in wizard.log()], [])

    def install(self, wizard):
        """From the first page to the end of the program."""
        wizard.wait_for_page()
        wizard.click("welcome_main", "install_button")
        self.finish(wizard)

    def finish(self, wizard):
        wizard.wait_for_page("end_main")
        wizard.click("end_main", "finish_button")

    def folders_of_trial(self):
        return [folder.name for folder in (self.machine.drive / "Program Files").glob("Trial*")]


class Installs(WizardTest):
    def test_a_clean_install_logs_its_whole_story_and_leaves_everything_in_place(self):
        self.package.add(0, install_xml(rest="""
            <registry><key path="SOFTWARE\\Trial" name="Path" data="${APP_INSTALL_PATH}x"/></registry>
            <path_entries><path_entry path="${APP_INSTALL_PATH}lib" app_code="TRIAL"/></path_entries>
            <shortcuts><shortcut location="${START_MENU}\\Trial" destination="C:\\x.exe"/></shortcuts>"""))
        with self.start() as wizard:
            self.install(wizard)
            self.expect_end(wizard, STORY)
            self.assertEqual(wizard.log()[0], STORY[0])
            self.assertEqual(wizard.log()[-1], STORY[-1])
            self.assertEqual(wizard.printed().replace("\r", "").count("id:installing args:\n"), 4)
        self.expect_whole_product()

    def test_a_second_install_asks_first(self):
        folder = self.package.add(0, install_xml())
        with self.start() as wizard:
            self.install(wizard)
            self.expect_end(wizard, SUCCESS)
        (folder / "files" / "one.txt").write_text("newer")
        asked = [*OPENING, "Software already installed.", "Installer already installed location."]
        refused = [*asked, "Already installed cancel pressed.", *LAUNCH, "Post-render loop exit."]
        with self.start() as wizard:
            wizard.click("already_installed_dialog", "cancel_button")
            self.expect_end(wizard, refused)
        with self.start() as wizard:
            wizard.window("already_installed_dialog")
            wizard.press("Escape")
            self.expect_end(wizard, refused)
        with self.start() as wizard:
            wizard.close("already_installed_dialog")
            self.expect_end(wizard, asked, LAUNCH, ["Post-render loop exit."])
            self.expect_none(wizard, "Already installed OK pressed.",
                             "Already installed cancel pressed.", "Welcome tab install clicked.")
        self.assertEqual(self.machine.files(TARGET), INSTALLED)
        with self.start() as wizard:
            wizard.click("already_installed_dialog", "ok_button")
            wizard.wait_until_closed("already_installed_dialog")
            self.install(wizard)
            self.expect_end(wizard, asked, ["Already installed OK pressed.",
                                            "Installer App changing permissions."],
                            LAUNCH, INSTALLATION, SUCCESS, FINISH)
        self.assertEqual(self.machine.files(TARGET), INSTALLED | {"one.txt": b"newer"})
        self.assertEqual(self.folders_of_trial(), ["Trial"])

    def test_a_key_that_is_held_in_a_dialog_presses_nothing_behind_it(self):
        self.package.add(0, install_xml())
        self.assertEqual(self.machine.run(self.package.unattended, "--quiet").returncode, 0)
        with self.start() as wizard:
            wizard.window("already_installed_dialog")
            with wizard.holding("Return"):
                wizard.wait_for_page()
                time.sleep(1)
            self.expect_none(wizard, "Welcome tab install clicked.")
            wizard.press("Return")
            wizard.wait_for_page("end_main")

    def test_a_key_that_is_held_in_the_folder_picker_presses_nothing_behind_it(self):
        self.package.add(0, install_xml())
        (self.machine.drive / "Tools").mkdir()
        held = self.machine.folder / "held"
        self.prepare_picker("Tools", seen=held)
        with self.start() as wizard:
            wizard.wait_for_page()
            wizard.press("shift+Tab", "Return")
            wizard.wait_for_line("Welcome tab browse clicked.")
            if IS_WINDOWS:
                wizard.wait_for_window("Select Folder")
                wizard.write("C:\\Tools")
            with wizard.holding("Return"):
                held.touch()
                wizard.wait_for_line("Welcome tab folder picked.")
                time.sleep(1)
            self.expect_none(wizard, "Welcome tab install clicked.")
            wizard.press("Return")
            wizard.wait_for_page("end_main")

    def test_nothing_happens_to_the_machine_when_the_user_goes_away(self):
        self.package.add(0, install_xml())
        with self.start() as wizard:
            wizard.wait_for_page()
            wizard.click("welcome_main", "cancel_button")
            self.expect_end(wizard, LAUNCH, ["Welcome Tab close.", "Post-render loop exit."])
        before = self.machine.everything()
        with self.start() as wizard:
            wizard.wait_for_page()
            wizard.close()
            self.expect_end(wizard, LAUNCH, ["Post-render loop exit."])
            self.expect_none(wizard, "Welcome Tab close.", "Welcome tab install clicked.")
        after = self.machine.everything()
        logs = {str(file.relative_to(self.machine.drive)) for file in self.machine.log_files()}
        self.assertEqual([name for name in before[0] if name not in logs],
                         [name for name in after[0] if name not in logs])
        self.assertEqual(before[1], after[1])

    def test_two_numbered_folders_go_where_the_user_says_unless_all_programs_need_it(self):
        self.package.add(0, install_xml())
        self.package.add(1, install_xml(
            VARS | {"APP_NAME": "More"},
            '<package os="win" bits="all"><filesets><fileset in="m.txt" '
            'out="${APP_INSTALL_PATH}m.txt"/></filesets></package>'), {"m.txt": "more"})
        refused = ["C:\\", WINDOWS, "C:\\Program Files (x86)", WINDOWS + "\\system32", ""]
        with self.start() as wizard:
            wizard.wait_for_page()
            for count, folder in enumerate(refused, 1):
                wizard.replace_folder(folder)
                wizard.click("welcome_main", "install_button")
                wizard.wait_for_line("Welcome tab install clicked.", count)
            wizard.replace_folder("C:/Tools//Both")
            wizard.click("welcome_main", "install_button")
            self.finish(wizard)
            self.expect_end(wizard, ["Welcome tab install clicked."] * (len(refused) + 1),
                            INSTALLATION[1:], SUCCESS, FINISH)
            self.assertEqual(wizard.log().count("Valid filepath selected."), 1)
            self.assertEqual(wizard.log().count("Finished install."), 2)
        self.assertEqual(self.machine.files("Tools/Both"), INSTALLED | {"m.txt": b"more"})
        for name in ("Trial", "More"):
            self.assertEqual(self.machine.uninstall_values(name)["InstallLocation"],
                             '"C:\\Tools\\Both\\"')

    def prepare_picker(self, folder, seen=None):
        """Where the desktop brings the picker, one that prints what was picked; before a start.

        It stays open until the file `seen` is there.
        """
        if IS_WINDOWS:
            return
        programs = self.machine.folder / "bin"
        programs.mkdir(exist_ok=True)
        self.machine.environment["PATH"] = f"{programs}:{os.environ['PATH']}"
        answer = f"echo {self.machine.drive / folder}" if folder else "exit 1"
        stand_in = programs / "zenity"
        wait = f"until [ -e {seen} ]; do sleep 0.1; done" if seen else ""
        stand_in.write_text(f"#!/bin/sh\n{wait}\n{answer}\n")
        stand_in.chmod(0o755)

    def pick_folder(self, wizard, folder):
        """Picks a folder of drive C: after a click on the button; none is to cancel."""
        self.prepare_picker(folder)
        wizard.click("welcome_main", "browse_button")
        if IS_WINDOWS:
            wizard.wait_for_window("Select Folder")
            if folder:
                wizard.write(f"C:\\{folder}")
            wizard.press("Return" if folder else "Escape")

    def test_a_picked_folder_gets_the_products_name_behind_it(self):
        self.package.add(0, install_xml())
        (self.machine.drive / "Tools").mkdir()
        self.prepare_picker(None)
        asked = ["Welcome tab browse clicked.", "Welcome Tab default browse path.",
                 "Default path is parent path."]
        with self.start() as wizard:
            wizard.wait_for_page()
            self.pick_folder(wizard, None)
            self.pick_folder(wizard, "Tools")
            wizard.wait_for_line("Welcome tab folder picked.")
            self.install(wizard)
            self.expect_end(wizard, asked * 2, ["Welcome tab folder picked."], INSTALLATION, FINISH)
        self.assertEqual(self.machine.files("Tools/Trial"), INSTALLED)

    def test_the_keyboard_is_enough_in_another_language_and_with_other_folders(self):
        self.package.add(0, install_xml(rest='<shortcuts><shortcut location="${DESKTOP}\\T" '
                                             'destination="x"/></shortcuts>'))
        settings = self.machine.drive / "prefs"
        args = ["--lang", "jp", "--prefs", "C:\\prefs", "--desktop", "C:\\desk"]
        with self.start(*args, lang="jp", settings=settings) as wizard:
            wizard.wait_for_page()
            wizard.press("Return")
            wizard.wait_for_page("end_main")
            wizard.press("Return")
            self.expect_end(wizard, ["entering changeLanguageAndFont", "jp"], LAUNCH, INSTALLATION,
                            SUCCESS, FINISH)
        self.assertEqual(self.machine.files(TARGET), INSTALLED)
        self.assertTrue((self.machine.drive / "desk" / "T.lnk").is_file())
        self.assertEqual(self.machine.log_files(), [])
        with self.start(*args, lang="jp", settings=settings) as wizard:
            wizard.window("already_installed_dialog")
            wizard.press("Tab", "space")
            self.expect_end(wizard, ["Already installed cancel pressed."])
        with self.start(*args, lang="jp", settings=settings) as wizard:
            wizard.window("already_installed_dialog")
            wizard.press("Return")
            wizard.wait_for_page()
            # From the button around to the field before it.
            wizard.press("shift+Tab", "shift+Tab", "ctrl+a")
            wizard.write("C:\\Typed")
            wizard.press("Tab", "Tab", "space")
            wizard.wait_for_page("end_main")
            wizard.press("space")
            self.expect_end(wizard, ["Already installed OK pressed."], INSTALLATION, FINISH)
        self.assertEqual(self.machine.files("Typed"), INSTALLED)

    def test_programs_that_run_are_to_be_closed_first(self):
        self.package.add(0, install_xml(rest='<block_processes><p name="Blocking" os="win"/>'
                                             '<p name="Other.exe" os="all"/></block_processes>'))
        refused = ["Welcome tab install clicked.", "Block list has content.",
                   "Launch program running dialog."]
        with self.start() as wizard:
            main = wizard.wait_for_page()
            with BlockingProgram(self.machine, self.package.root, "Blocking.exe") as first, \
                    BlockingProgram(self.machine, self.package.root, "Other.exe"):
                wizard.click("welcome_main", "install_button")
                wizard.wait_for_line("Launch program running dialog.")
                dialog = wizard.window("program_running_dialog")
                # As the task bar would.
                xdotool("windowactivate", main)
                xdotool("windowminimize", "--sync", main)
                xdotool("windowactivate", main)
                wait_for(lambda: is_drawn(dialog), "the dialog stays bare")
                wizard.click("program_running_dialog", "ok_button")
                wizard.wait_until_closed("program_running_dialog")
                first.end()
                wizard.click("welcome_main", "install_button")
                wizard.wait_for_line("Launch program running dialog.", 2)
                wizard.window("program_running_dialog")
                wizard.press("Escape")
                wizard.wait_until_closed("program_running_dialog")
                wizard.click("welcome_main", "install_button")
                wizard.close("program_running_dialog")
                wizard.wait_until_closed("program_running_dialog")
            self.assertEqual(self.machine.files(TARGET), {})
            self.install(wizard)
            self.expect_end(wizard, LAUNCH, refused * 3, INSTALLATION, SUCCESS, FINISH)
        self.assertEqual(self.machine.files(TARGET), INSTALLED)


class Failures(WizardTest):
    def fail_to_install(self, before=lambda wizard: None):
        """An installation that stops at a missing source, which the page tells.

        It misses a failure that comes within the millisecond in which a poll waits for the end;
        that it does so three times is no accident.
        """
        told = "File missing or failed to coppy.."
        engine = [*INSTALLATION[:6], "In file does not exist.",
                  "Failed, install_error: Unknown exception", *INSTALLATION[6:]]
        page = [*INSTALLATION[:5], told, *INSTALLATION[7:], *FAILURE, *FINISH]
        for _ in range(3):
            with self.start() as wizard:
                before(wizard)
                self.install(wizard)
                self.expect_end(wizard, engine)
                self.expect_none(wizard, "Finished install.")
                if told in wizard.log():
                    self.expect_end(wizard, page)
                    self.expect_none(wizard, *SUCCESS)
                    return
        self.fail("the page tells of no failure")

    def test_a_missing_source_is_told_and_an_older_installation_is_put_back(self):
        folder = self.package.add(0, install_xml())
        (folder / "files" / "last.txt").unlink()
        self.fail_to_install()
        expected = {name: data for name, data in INSTALLED.items() if name != "last.txt"}
        self.assertEqual(self.machine.files(TARGET), expected)
        self.assertIsNone(self.machine.uninstall_values("Trial"))

        (folder / "files" / "last.txt").write_text("last")
        with self.start() as wizard:
            self.install(wizard)
            self.expect_end(wizard, SUCCESS)
        (self.machine.drive / TARGET / "of the user.txt").write_bytes(b"mine")
        before = self.machine.files(TARGET), self.machine.uninstall_values("Trial")
        (folder / "files" / "one.txt").write_text("newer")
        (folder / "files" / "last.txt").unlink()
        self.fail_to_install(lambda wizard: wizard.click("already_installed_dialog", "ok_button"))
        self.assertEqual((self.machine.files(TARGET), self.machine.uninstall_values("Trial")),
                         before)
        self.assertEqual(self.folders_of_trial(), ["Trial"])

    def test_a_refused_target_stops_the_installation_and_is_not_told(self):
        # The page hears only of files that are missing or cannot be copied, so it tells of success.
        told = [*INSTALLATION[:6], "Does not have permission to install file.",
                "Failed, install_error: Unknown exception", *INSTALLATION[6:], *SUCCESS, *FINISH]
        if IS_WINDOWS:
            target = self.machine.drive / TARGET
            target.mkdir(parents=True)
            self.package.add(0, install_xml())
            with BlockingProgram(self.machine, target, "last.txt"), self.start() as wizard:
                self.install(wizard)
                self.expect_end(wizard, told)
            return
        self.package.add(0, install_xml())
        for refusal in ("denied", "locked"):
            facts = {refusal: ["C:\\Program Files\\Trial\\last.txt"]}
            (self.machine.folder / "machine.json").write_text(json.dumps(facts))
            with self.start() as wizard:
                self.install(wizard)
                self.expect_end(wizard, told)
            self.assertIn("one.txt", self.machine.files(TARGET))
            self.assertNotIn("last.txt", self.machine.files(TARGET))
            self.assertIsNone(self.machine.uninstall_values("Trial"))

    def test_what_cannot_be_started_ends_with_a_status(self):
        with self.start() as wizard:
            self.assertEqual(wizard.wait_for_end(), NEVER_STARTED)
            self.assertEqual(wizard.log()[-2:],
                             ["No xml to import.", "Configuring install locations failed."])
        folder = self.package.add(0, install_xml())
        resources = self.package.own_resources()
        welcome = resources / "ui" / "welcome_tab.json"
        without_button = welcome.read_text(encoding="utf-8").replace("install_button", "x")
        window = resources / "ui" / "installer_window.json"
        without_holder = window.read_text(encoding="utf-8").replace("tab_holder", "x")
        faults = [
            (folder / "install.xml", "<installation>", "Configuring install locations.",
             "INSTALLER_CODE"),
            (resources / "langfile.txt", "key\ten\n\na\tb", "Engine init.",
             "Language file is broken."),
            (welcome, without_button, "Loading widgets.", '"install_button"'),
            (welcome, "{", "Loading widgets.", '"welcome_main"'),
            (window, without_holder, "Loading widgets.", '"tab_holder"'),
            (window, "{", "Loaded widgets.", '"installer_main"'),
            (window, None, "Loaded widgets.", '"installer_main"'),
        ]
        for file, content, last_line, told in faults:
            with self.subTest(f"{file.name}, {told}"):
                good = file.read_bytes()
                if content is None:
                    file.unlink()
                else:
                    file.write_text(content, encoding="utf-8")
                with self.start() as wizard:
                    status = wizard.wait_for_end()
                    log, printed = wizard.log(), wizard.printed()
                file.write_bytes(good)
                self.assertNotIn(status, (0, NEVER_STARTED))
                self.assertIn(last_line, log)
                self.assertNotIn("Attempting launch.", log)
                self.assertIn(told, printed)

    def test_without_a_screen_it_ends_before_anything_else(self):
        self.package.add(0, install_xml(packages=FOUR_PACKAGES))
        self.machine.environment["SDL_VIDEODRIVER"] = "none such"
        with self.start() as wizard:
            self.assertEqual(wizard.wait_for_end(), NEVER_STARTED)
            self.assertEqual(wizard.log()[-2:], ["SDL init fail.", "none such not available"])


class ObsoleteCutters(WizardTest):
    def keep_settings(self, **files):
        """Writes settings of an earlier version; those of other names go."""
        root = self.machine.log_folder().parents[1]
        for folder, name in (("Velmora Studio 5", "settings_vs"), ("Velmora Studio 5", "settings7"),
                             ("shared", "cutters")):
            file = root / folder / f"{name}.json"
            file.unlink(missing_ok=True)
            if name in files:
                file.parent.mkdir(parents=True, exist_ok=True)
                text = files[name]
                file.write_text(text if isinstance(text, str) else json.dumps(text))

    def test_a_cutter_that_is_no_longer_served_is_asked_about(self):
        self.package.add(0, install_xml())
        asked = [*OPENING, "Obsolete cutter."]
        served = {"option": {"user_conds": {"ZT5000-60 Gold": 1}, "default_conditions_map": {}}}
        self.keep_settings(settings_vs=served, settings7=served,
                           cutters={"cutters": [{"model": "qx1180"}, {}]})
        with self.start() as wizard:
            wizard.wait_for_page()
            wizard.press("Tab", "Return")
            self.expect_end(wizard, LAUNCH, ["Welcome Tab close."])
            self.expect_none(wizard, "Obsolete cutter.")

        self.keep_settings(settings_vs={"option": {"user_conds": {"QX1180 Plus": {}}}})
        with self.start() as wizard:
            wizard.click("obsolete_cutter_dialog", "cancel_button")
            self.expect_end(wizard, asked, LAUNCH, ["Post-render loop exit."])
        self.keep_settings(settings_vs=served,
                           settings7={"option": {"default_conditions_map": {"ZT5000": {}}}})
        with self.start() as wizard:
            wizard.window("obsolete_cutter_dialog")
            wizard.press("Escape")
            self.expect_end(wizard, asked, LAUNCH, ["Post-render loop exit."])
            self.expect_none(wizard, "Welcome tab install clicked.")
        self.assertEqual(self.machine.files(TARGET), {})
        self.keep_settings(cutters={"cutters": [{"model": "Roll 600"}, {"model": "QX2410"}]})
        with self.start() as wizard:
            wizard.click("obsolete_cutter_dialog", "ok_button")
            self.install(wizard)
            self.expect_end(wizard, asked, LAUNCH, INSTALLATION, SUCCESS, FINISH)
        with self.start() as wizard:  # both questions, one behind the other
            wizard.click("already_installed_dialog", "ok_button")
            wizard.click("obsolete_cutter_dialog", "ok_button")
            self.install(wizard)
            self.expect_end(wizard, OPENING, ["Software already installed.",
                                              "Already installed OK pressed.", "Obsolete cutter."],
                            LAUNCH, INSTALLATION, SUCCESS, FINISH)
        self.assertEqual(self.machine.files(TARGET), INSTALLED)

        self.keep_settings(settings7="{")
        with self.start() as wizard:
            wizard.click("already_installed_dialog", "ok_button")
            self.assertNotIn(wizard.wait_for_end(), (0, NEVER_STARTED))


class LongCopies(WizardTest):
    """A folder of many files, which takes long enough to do something meanwhile."""

    COUNT = 800
    LAST = "Installer App install complete."

    def add_many_files(self):
        files = {f"files/many/{number}.txt": "x" * number for number in range(self.COUNT)}
        self.package.add(0, install_xml(
            packages=FOUR_PACKAGES + """<package os="win" bits="all"><filesets>
            <fileset in="files/many" out="${APP_INSTALL_PATH}many"/></filesets></package>"""),
            FILES | files)
        return INSTALLED | {f"many/{number}.txt": b"x" * number for number in range(self.COUNT)}

    def start_copying(self, wizard):
        wizard.wait_for_page()
        wizard.click("welcome_main", "install_button")
        wizard.wait_for_line("Installing Tab visible.")

    def test_a_copy_is_finished_although_the_window_is_closed(self):
        expected = self.add_many_files()
        with self.start() as wizard:
            self.start_copying(wizard)
            wizard.close()
            self.expect_end(wizard, INSTALLATION[:6], ["Post-render loop exit.",
                                                       "Finished install.", self.LAST])
            self.expect_none(wizard, "End Tab showing.")
        self.assertEqual(self.machine.files(TARGET), expected)
        self.assertIsNotNone(self.machine.uninstall_values("Trial"))

    def test_a_wizard_that_is_minimised_waits_behind_the_copy(self):
        expected = self.add_many_files()
        with self.start() as wizard:
            self.start_copying(wizard)
            window = wizard.minimise()
            wizard.wait_for_line(self.LAST)
            time.sleep(0.5)  # some frames long: nothing may come
            self.expect_none(wizard, "Installing install finished.", "Install drawn.")
            wizard.restore(window)
            self.finish(wizard)
            self.expect_end(wizard, INSTALLATION, SUCCESS, FINISH)
        self.assertEqual(self.machine.files(TARGET), expected)


class SamplePackage(WizardTest):
    product = "Velmora Studio 5"

    def test_it_installs_where_no_host_is_and_where_there_are_some(self):
        program = PROGRAMS / f"setup{SUFFIX}"
        with self.start(setup=program) as wizard:
            self.install(wizard)
            self.expect_end(wizard, ["Adobe not found.", "Found Corel installations:"], LAUNCH,
                            INSTALLATION, SUCCESS, FINISH)
            self.expect_none(wizard, "Adding Corel reg keys.")
        self.assertIn("Read Me.txt", self.machine.files(f"Program Files/{self.product}"))
        self.assertEqual(list(self.machine.drive.rglob("Plug-ins")), [])

        prepared = self.machine.run(TOOLS / f"sample_machine{SUFFIX}")
        self.assertEqual(prepared.returncode, 0, prepared.stderr)
        with self.start(setup=program) as wizard:
            wizard.click("already_installed_dialog", "ok_button")
            self.install(wizard)
            self.expect_end(wizard, ["Adding Corel reg keys."], LAUNCH, INSTALLATION, SUCCESS)
            matches = [line for line in wizard.log() if line.startswith("Match found: ")]
        self.assertGreater(len(matches), 1)
        plug_ins = [folder / self.product for folder in self.machine.drive.rglob("Plug-ins")]
        self.assertTrue(plug_ins and all(folder.is_dir() for folder in plug_ins), plug_ins)


class OldMachine(WizardTest):
    """Only a machine folder can be a 32-bit Windows."""

    machine_facts = {"bits": 32}

    def test_a_32_bit_windows_gets_what_is_for_it(self):
        self.package.add(0, install_xml(), FILES | {"files/old/o.txt": "old"})
        with self.start() as wizard:
            self.install(wizard)
            self.expect_end(wizard, ["WOW proc: 0", "64-bit proc: 0",
                                     "32 bit COREL installer running on 32 bit Windows.",
                                     "Preventing 64 bit install."], INSTALLATION, SUCCESS)
        expected = {name: data for name, data in INSTALLED.items() if name != "one.txt"}
        self.assertEqual(self.machine.files(TARGET), expected | {"old/o.txt": b"old"})


if IS_WINDOWS:
    del OldMachine

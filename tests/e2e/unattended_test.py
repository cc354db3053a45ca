"""setup_unattended from outside: what it leaves on the machine, and how it tells what went wrong."""

import json
import os
import subprocess
import unittest

from blocking_program import BlockingProgram
from machine import IS_WINDOWS
from machine_case import INSTALLED, TARGET, MachineTest
from package import FILES, FOUR_PACKAGES, VARS, install_xml


class UnattendedTest(MachineTest):
    def run_unattended(self, *args):
        return self.machine.run(self.package.unattended, *args)

    def expect(self, code, *words, args=()):
        """A run that ends with this code and says these words in its one sentence."""
        ended = self.run_unattended(*args)
        self.assertEqual(ended.returncode, code, ended.stdout + ended.stderr)
        for word in words:
            self.assertIn(word, ended.stderr)
        self.assertRegex(ended.stderr, r"^[^\n]*[^.] "
                         r"\((log|no log|a plan writes no log)[^\n]*\)\.\n$")
        return ended

    def plan(self):
        file = self.package.root / "plan.json"
        name = "Z:" + str(file) if IS_WINDOWS else str(file)
        ended = self.run_unattended("--plan", "--json", name)
        self.assertEqual(ended.returncode, 0, ended.stderr)
        return ended.stdout, json.loads(file.read_text(encoding="utf-8"))


class Installs(UnattendedTest):
    def test_a_clean_install_is_complete_and_listed(self):
        self.package.add(0, install_xml(rest="""
            <registry><key path="SOFTWARE\\Trial" name="Path" data="${APP_INSTALL_PATH}x"/></registry>
            <path_entries><path_entry path="${APP_INSTALL_PATH}lib" app_code="TRIAL"/></path_entries>
            <shortcuts><shortcut location="${START_MENU}\\Trial" destination="C:\\x.exe"/>
            <shortcut location="${START_MENU}\\Mac" destination="x" os="mac"/></shortcuts>"""))
        ended = self.run_unattended()
        self.assertEqual(ended.returncode, 0, ended.stderr)
        self.assertIn("no log", ended.stdout)
        self.expect_whole_product()

    def test_the_second_run_has_a_log_of_the_whole_story(self):
        self.package.add(0, install_xml())
        self.assertEqual(self.run_unattended().returncode, 0)
        self.assertEqual(self.machine.log_files(), [])
        ended = self.run_unattended()
        self.assertIn("log: ", ended.stdout)
        lines = self.machine.newest_log()
        story = ["Starting VS5 install.", "Command line args:", "SDL init.", "Searching children.",
                 "Importing xml specs.", "Import successful.", "Configuring install locations.",
                 "32 bit COREL installer running on 64 bit Windows.", "Preventing 32 bit install.",
                 "Start of install.", "installation already exists", "Install packs start.",
                 "Creating uninstall bat file.", "Installing reg keys.", "Finished install."]
        places = [lines.index(line) if line in lines else line for line in story]
        self.assertTrue(all(isinstance(place, int) for place in places), places)
        self.assertEqual(places, sorted(places))
        self.assertEqual(self.machine.files(TARGET), INSTALLED)
        folders = [entry.name for entry in (self.machine.drive / "Program Files").iterdir()]
        self.assertEqual([name for name in folders if name.startswith("Trial")], ["Trial"])

    def test_two_numbered_folders_go_to_one_folder_that_the_user_names(self):
        self.package.add(0, install_xml())
        self.package.add(1, install_xml(
            VARS | {"APP_NAME": "More"},
            '<package os="win" bits="all"><filesets><fileset in="m.txt" '
            'out="${APP_INSTALL_PATH}m.txt"/></filesets></package>'), {"m.txt": "more"})
        ended = self.run_unattended("--path", "C:/Tools//Both")
        self.assertEqual(ended.returncode, 0, ended.stderr)
        self.assertEqual(self.machine.files("Tools/Both"), INSTALLED | {"m.txt": b"more"})

    def test_preferences_and_desktop_can_lie_elsewhere(self):
        self.package.add(0, install_xml(rest='<shortcuts><shortcut location="${DESKTOP}\\T" '
                                             'destination="x"/></shortcuts>'))
        for _ in range(2):
            self.assertEqual(self.run_unattended("--prefs", "C:\\prefs", "--desktop",
                                                 "C:\\desk").returncode, 0)
        self.assertTrue((self.machine.drive / "desk" / "T.lnk").is_file())
        logs = self.machine.drive / "prefs" / "Tavrolen Corporation" / "log" / "installer"
        self.assertEqual(len(list(logs.iterdir())), 1)


    def test_a_folder_of_the_user_counts_from_the_current_directory(self):
        self.package.add(0, install_xml())
        ended = subprocess.run(
            self.machine.command(self.package.unattended, "--quiet", "--path", "here\\Trial"),
            env=self.machine.environment, cwd=self.machine.drive, check=False, timeout=120,
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.assertEqual(ended.returncode, 0)
        self.assertEqual(self.machine.files("here/Trial"), INSTALLED)
        self.assertRegex(self.machine.uninstall_values("Trial")["InstallLocation"],
                         r'^"[A-Z]:\\(.*\\)?here\\Trial\\"$')

    def test_progress_counts_what_this_machine_is_given(self):
        self.package.add(0, install_xml(packages=FOUR_PACKAGES + """
            <package os="linux" bits="all"><filesets>
              <fileset in="${WORD}/deep" out="${APP_INSTALL_PATH}a"/>
              <fileset in="files/folder" out="${Adobe Illustrator 2099 64}"/>
              <fileset in="files/folder" out="C:\\no\\x" create_folders="false"/></filesets></package>
            <package os="win" bits="32"><filesets>
              <fileset in="files/folder" out="${APP_INSTALL_PATH}b"/></filesets></package>""",
            variables=VARS | {"WORD": "files/folder"}))
        ended = self.run_unattended()
        self.assertEqual([line.split()[0] for line in ended.stdout.splitlines()[:-1]],
                         [f"[{n}/5]" for n in range(1, 6)])


class Plans(UnattendedTest):
    def test_a_plan_changes_nothing_and_an_install_does_just_what_it_says(self):
        self.package.add(0, install_xml(rest='<registry><key path="SOFTWARE\\Trial" name="a" '
                                             'data="b"/></registry>'))
        before = self.machine.everything()
        table, plan = self.plan()
        self.assertEqual(self.machine.everything(), before)
        self.assertIn("C:\\Program Files\\Trial\\folder\\deep\\é漢.txt", table)
        spec = plan["plan"]["specs"][0]
        copied = {file["target"] for package in spec["packages"]
                  for fileset in package["filesets"] for file in fileset["files"]}
        self.assertEqual(self.run_unattended().returncode, 0)
        names = {"C:\\Program Files\\Trial\\" + name.replace("/", "\\")
                 for name in self.machine.files(TARGET)}
        self.assertEqual(copied, names)
        set_values = {entry["name"]: entry["data"] for entry in spec["registry"]
                      if entry["change"] == "set value" and "Uninstall" in entry["key"]}
        self.assertEqual(self.machine.uninstall_values("Trial"), set_values)
        self.assertEqual(plan["plan"]["bytes_needed"], sum(map(len, INSTALLED.values())))
        self.assertGreater(plan["plan"]["bytes_free"], 0)

        _, again = self.plan()
        second = again["plan"]["specs"][0]
        self.assertTrue(second["back_up"])
        values = [entry for entry in second["registry"] if entry["change"] == "set value"]
        self.assertEqual([entry["before"] for entry in values], [entry["data"] for entry in values])

    def test_a_plan_lists_what_an_install_would_stop_at(self):
        folder = self.package.add(0, install_xml())
        (folder / "files" / "last.txt").unlink()
        table, plan = self.plan()
        self.assertIn("source missing", table)
        self.assertEqual(plan["plan"]["missing_sources"], ["files\\last.txt"])

        target = self.machine.drive / TARGET
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_bytes(b"a file where a folder has to be")
        table, plan = self.plan()
        self.assertRegex(table, r"would stop at\n[^\n]*C:\\Program Files\\Trial")
        self.assertEqual([each["where"].rstrip("\\") for each in plan["plan"]["failures"]],
                         ["C:\\Program Files\\Trial"])
        self.expect(4, "C:\\Program Files\\Trial", args=("--quiet",))

    def test_a_plan_knows_what_can_bear_no_name_or_no_shortcut(self):
        self.package.add(0, install_xml(rest="""
            <shortcuts><shortcut location="C:\\made\\s" destination="x"/>
            <shortcut location="C:\\no|name\\s" destination="x"/></shortcuts>"""))
        text, plan = self.plan()
        self.assertRegex(text, r"make +C:\\made\\s")
        self.assertRegex(text, r"cannot be made +C:\\no\|name\\s")
        self.assertEqual([each["made"] for each in plan["plan"]["specs"][0]["shortcuts"]],
                         [True, False])
        ended = self.run_unattended()
        self.assertEqual((ended.returncode, ended.stderr.splitlines()[-1].split(" (")[0]),
                         (0, "These shortcuts could not be made: C:\\no|name\\s"))
        for name in ("a|b", "x" * 300):
            ended = self.run_unattended("--plan", "--path", "C:\\" + name)
            self.assertIn("An installation would stop at", ended.stdout)
            self.expect(4, name, args=("--quiet", "--path", "C:\\" + name))

    def test_a_plan_tells_what_a_value_is_now_whatever_its_type(self):
        self.package.add(0, install_xml(rest='<registry><key path="SOFTWARE\\Trial" name="a" '
                                             'data="b"/></registry>'))
        if IS_WINDOWS:
            self.machine.run("reg", "add", r"HKLM\SOFTWARE\Trial", "/v", "a", "/t", "REG_DWORD",
                             "/d", "7", "/f", "/reg:64")
        else:
            values = {"a": {"type": "REG_DWORD", "data": 7}}
            (self.machine.folder / "registry.json").write_text(
                json.dumps({r"HKEY_LOCAL_MACHINE\SOFTWARE\Trial": values}))
        table, plan = self.plan()
        self.assertRegex(table, r'Trial +"a" +REG_DWORD 7 +-> +"b"')
        entry = next(each for each in plan["plan"]["specs"][0]["registry"]
                     if each.get("name") == "a")
        self.assertEqual(entry["before"], {"type": "REG_DWORD", "data": "7"})


class Failures(UnattendedTest):
    def test_a_faulty_package_is_told_in_a_sentence(self):
        self.expect(1, "no install.xml")
        folder = self.package.add(0, "<installation>\n<vars>\n</installation>")
        self.expect(1, "install.xml:3:", "mismatch")
        for without in ("APP_NAME", "INSTALLER_CODE", "APP_INSTALL_PATH"):
            variables = {name: value for name, value in VARS.items() if name != without}
            self.package.add(0, install_xml(variables))
            self.expect(1, f"Var not found: {without}", "install.xml")
        self.package.add(0, install_xml(packages=""))
        self.expect(1, "only 0 packages")
        (folder / "install.xml").write_text("#include part.xml\n")
        self.expect(1, "install.xml:1: #include without a quoted file name")

    def test_options_that_are_not_understood_are_refused(self):
        self.package.add(0, install_xml())
        self.expect(2, "--pth", args=("--pth", "x"))
        self.expect(2, "--path", args=("--path",))
        self.expect(2, "--path", "--plan", args=("--path", "--plan"))
        self.expect(2, "--json", "--lang", args=("--plan", "--json", "--lang", "de"))
        self.expect(2, "--desktop", "--prefs", args=("--desktop", "--prefs", "x"))
        self.expect(2, "cannot be written", args=("--json", "/no/such/folder/file"))
        self.assertEqual(self.machine.files(TARGET), {})

    def test_a_folder_that_is_no_place_for_a_program_is_refused(self):
        self.package.add(0, install_xml())
        windows = "C:\\windows" if IS_WINDOWS else "C:\\Windows"
        for folder in ("C:\\", "", windows, "C:\\Program Files (x86)"):
            self.expect(5, f'"{folder}"', args=("--path", folder))
        self.assertEqual(self.run_unattended("--path", windows + "\\x").returncode, 0)

    def test_a_folder_that_all_programs_need_is_refused_however_it_is_written(self):
        self.package.add(0, install_xml())
        for folder in ("c:\\WINDOWS\\", "C:\\Program Files", "c:/program files/", "C:\\Users",
                       "c:\\windows\\system32", "C:\\ProgramData"):
            self.expect(5, "needed by all", args=("--path", folder))

    def test_a_folder_that_would_become_another_one_is_refused(self):
        self.package.add(0, install_xml())
        for folder in ("C:\\a$&b", "C:\\${APP_NAME}", "C:\\a}b"):
            self.expect(5, f'"{folder}"', "variable", args=("--path", folder))
        self.expect(5, "no full path on a drive", args=("--path", "\\\\server\\share\\x"))
        self.expect(5, '".."', args=("--path", "C:\\x\\.."))
        self.package.add(0, install_xml(VARS | {"APP_INSTALL_PATH": "${UNKNOWN}\\x"}))
        self.expect(5, '"${UNKNOWN}\\x"')
        self.package.add(0, install_xml(VARS | {"APP_INSTALL_PATH": "x"}))
        self.expect(5, '"x"', "no full path on a drive")

    def test_what_a_package_lacks_is_told_before_an_older_installation_is_touched(self):
        self.package.add(0, install_xml())
        self.assertEqual(self.run_unattended().returncode, 0)
        folders = sorted(self.machine.drive.glob("Program Files/*"))
        more = {"m.txt": "more"}
        for without in ("APP_VERSION", "PUBLISHER"):
            self.package.add(1, install_xml({name: value for name, value in VARS.items()
                                             if name != without}, ""), more)
            self.expect(1, "1\\product\\install.xml", f"Var not found: {without}")
        self.package.add(1, install_xml(packages="", rest='<shortcuts><shortcut location="C:\\x" '
                                                          'destination="x"/></shortcuts>'), more)
        self.expect(1, "1\\product\\install.xml", "A shortcut needs a package")
        self.assertEqual(sorted(self.machine.drive.glob("Program Files/*")), folders)
        self.assertEqual(self.machine.files(TARGET), INSTALLED)

    def test_an_installation_goes_on_when_nobody_reads_its_output(self):
        self.package.add(0, install_xml())
        self.assertEqual(self.run_unattended("--quiet").returncode, 0)
        for args, code in ((), 0), (("--plan",), 1):
            reader, writer = os.pipe()
            os.close(reader)
            ended = subprocess.run(self.machine.command(self.package.unattended, *args),
                                   env=self.machine.environment, check=False, stdout=writer,
                                   stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=120)
            os.close(writer)
            self.assertEqual(ended.returncode, code)
        self.assertEqual(self.machine.files(TARGET), INSTALLED)
        self.assertEqual([folder.name for folder in self.machine.drive.glob("Program Files/Trial*")],
                         ["Trial"])

    def test_a_running_program_blocks(self):
        self.package.add(0, install_xml(rest='<block_processes><p name="Blocking" os="win"/>'
                                             '<p name="Other.exe" os="all"/></block_processes>'))
        with BlockingProgram(self.machine, self.package.root, "Blocking.exe"):
            self.expect(3, "Blocking")
            self.assertEqual(self.machine.files(TARGET), {})
        self.assertEqual(self.run_unattended().returncode, 0)

    def test_a_missing_source_ends_a_first_install_where_it_is(self):
        folder = self.package.add(0, install_xml())
        (folder / "files" / "last.txt").unlink()
        self.expect(4, "files\\last.txt", "does not exist", args=("--quiet",))
        self.assertNotIn("last.txt", self.machine.files(TARGET))
        self.assertIn("one.txt", self.machine.files(TARGET))
        self.assertIsNone(self.machine.uninstall_values("Trial"))

    def test_a_failed_second_install_brings_the_first_back_byte_for_byte(self):
        folder = self.package.add(0, install_xml())
        self.assertEqual(self.run_unattended().returncode, 0)
        added = self.machine.drive / TARGET / "of the user.txt"
        added.write_bytes(b"mine")
        added.chmod(0o444)
        before = self.machine.files(TARGET)
        (folder / "files" / "one.txt").write_text("newer")
        (folder / "files" / "last.txt").unlink()
        self.expect(4, "files\\last.txt", "put back", args=("--quiet",))
        self.assertEqual(self.machine.files(TARGET), before)

    @unittest.skipIf(IS_WINDOWS, "only a machine folder can be told that a file is in use")
    def test_an_older_installation_that_cannot_be_moved_is_not_said_to_be_put_back(self):
        self.package.add(0, install_xml())
        self.assertEqual(self.run_unattended().returncode, 0)
        facts = {"locked": ["C:\\Program Files\\Trial\\last.txt"]}
        (self.machine.folder / "machine.json").write_text(json.dumps(facts))
        text, plan = self.plan()
        self.assertIn("cannot be moved aside", text)
        self.assertFalse(plan["plan"]["specs"][0]["back_up"])
        ended = self.expect(4, "last.txt", "may be damaged", args=("--quiet",))
        self.assertNotIn("put back", ended.stderr)

    def test_a_target_that_cannot_be_written_is_named(self):
        self.package.add(0, install_xml())
        if IS_WINDOWS:
            # A file stands where a folder must be made.
            target = self.machine.drive / TARGET / "folder"
            target.parent.mkdir(parents=True)
            target.write_bytes(b"old")
        else:
            target = self.machine.drive / TARGET / "last.txt"
            facts = {"denied": ["C:\\Program Files\\Trial\\last.txt"]}
            (self.machine.folder / "machine.json").write_text(json.dumps(facts))
        self.expect(4, "C:\\Program Files\\Trial\\" + target.name, args=("--quiet",))
        self.assertIsNone(self.machine.uninstall_values("Trial"))


class OldMachine(UnattendedTest):
    """Only a machine folder can be a 32-bit Windows."""

    machine_facts = {"bits": 32}

    def test_a_32_bit_windows_gets_what_is_for_it(self):
        self.package.add(0, install_xml(), FILES | {"files/old/o.txt": "old"})
        self.assertEqual(self.run_unattended().returncode, 0)
        self.assertEqual(self.run_unattended().returncode, 0)
        expected = {name: data for name, data in INSTALLED.items() if name != "one.txt"}
        self.assertEqual(self.machine.files(TARGET), expected | {"old/o.txt": b"old"})
        self.assertIn("32 bit COREL installer running on 32 bit Windows.", self.machine.newest_log())


class RefusingMachine(UnattendedTest):
    """Only a machine folder can refuse its administrator a key."""

    machine_facts = {"denied_keys": [r"SOFTWARE\Trial"]}

    def test_a_plan_names_the_keys_that_are_refused_and_an_install_does_too(self):
        self.package.add(0, install_xml(rest='<registry><key path="SOFTWARE\\Trial" name="a" '
                                             'data="b"/></registry>'))
        table, plan = self.plan()
        self.assertRegex(table, r"would go on without\n +refused registry key +SOFTWARE\\Trial\n")
        self.assertEqual(plan["plan"]["refused_keys"], [r"SOFTWARE\Trial"])
        self.assertEqual(plan["plan"]["failures"], [])
        ended = self.run_unattended()
        self.assertEqual(ended.returncode, 0)
        self.assertRegex(ended.stderr, r"keys were refused.*: SOFTWARE\\Trial \(no log")


if IS_WINDOWS:
    del OldMachine, RefusingMachine

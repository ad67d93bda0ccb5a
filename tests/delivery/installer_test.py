"""The installer in a fresh Wine prefix: installer_test.py TEST BUILD_FOLDER, under fresh-prefix.sh"""

import contextlib
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
import zlib

ROOT = pathlib.Path(__file__).resolve().parents[2]
DRIVE = pathlib.Path(os.environ["MFX_WINEPREFIX"]).resolve() / "drive_c"
PLACE = r"C:\Prüfungen 鋳物 (neu)"  # blanks, accents, Japanese
UNINSTALLER = "uninstall-sand-casting-rules.exe"
DONE, REFUSED = 0, 2


def wine(*arguments, folder=None, **variables):
    """Runs a program; the result has its exit code and its outputs."""
    environment = {**os.environ, "WINEPATH": "", **variables}
    return subprocess.run([ROOT / "scripts/wine-run", *arguments], cwd=folder or DRIVE, env=environment,
                          capture_output=True, encoding="utf-8", errors="replace", timeout=120)


def on_disk(windows_path):
    return DRIVE / windows_path.removeprefix("C:\\").replace("\\", "/")


def files(folder=DRIVE):
    """Everything there but for what Windows itself writes, with what the bytes add up to."""
    return {(path, zlib.crc32(path.read_bytes()) if path.is_file() else 0) for path in folder.rglob("*")
            if path.relative_to(DRIVE).parts[0] != "windows" and "Temp" not in path.parts}


def registry():
    """All keys and values of the user and of the machine's programs."""
    keys = set()
    for root in ("HKCU", r"HKLM\Software"):
        wine("reg", "export", root, r"C:\windows\temp\keys.reg", "/y")
        key = ""
        for line in (DRIVE / "windows/temp/keys.reg").read_text("utf-16").splitlines():
            key = line if line.startswith("[") else key
            keys.add((key, line))
    return keys


class InstallerTest(unittest.TestCase):
    def setUp(self):
        wine("reg", "add", r"HKLM\System\CurrentControlSet\Control\Session Manager\Environment", "/v", "PATH", "/d", "",
             "/f")
        self.installer = next((BUILD / "packages").glob("*.exe"))

    # The installer takes the folder as it stands in the command line, without quotation marks.
    def install(self, installer=None, *options, exit_code=DONE, place=PLACE, reason=""):
        result = wine(installer or self.installer, "/S", *options, *(f"/D={place}".split() if place else []))
        self.assertEqual(result.returncode, exit_code, result.stderr)
        self.assertIn(reason, result.stderr)

    def uninstall(self, place=PLACE):
        """A copy of the uninstaller does the work, and nobody waits for it."""
        wine(on_disk(place) / UNINSTALLER, "/S")
        end = time.monotonic() + 30
        while (on_disk(place) / UNINSTALLER).exists():
            self.assertLess(time.monotonic(), end)
            time.sleep(0.1)

    def refuse_to_uninstall(self, place=PLACE):
        result = wine(on_disk(PLACE) / UNINSTALLER, "/S", *f"_?={place}".split())
        self.assertEqual(result.returncode, REFUSED, result.stderr)

    def run_installed(self, *arguments, exit_code=0, place=PLACE, **variables):
        result = wine(on_disk(place) / "bin/mfxhost.exe", *arguments, **variables)
        self.assertEqual(result.returncode, exit_code, result.stderr)
        return result.stdout

    @contextlib.contextmanager
    def open_dialog(self):
        """The installed program with the dialog of a rule; then the dialog is photographed and cancelled."""
        program = subprocess.Popen([ROOT / "scripts/wine-run", on_disk(PLACE) / "bin/mfxhost.exe", "configure",
                                    "rules.xml", "--rule", "19020", "--lang", "english"], cwd=DRIVE)
        end = time.monotonic() + 60
        while not self.is_loaded(on_disk(PLACE) / "bin/MFXSandCastingRulesu.dll"):
            self.assertIsNone(program.poll())
            self.assertLess(time.monotonic(), end)
            time.sleep(0.1)
        yield
        picture = BUILD / "tests/delivery/installed-dialog.png"
        wine(BUILD / "bin/mfx_screenshot.exe", "Wall Thickness by Cast Size and Weight", picture)
        self.assertEqual(program.wait(60), 0)
        self.assertGreater(picture.stat().st_size, 5_000)

    @staticmethod
    def is_loaded(library):
        """Whether Wine keeps the library open for a process."""
        for file in pathlib.Path("/proc").glob("[0-9]*/fd/*"):
            with contextlib.suppress(OSError):
                if file.readlink() == library:
                    return True
        return False

    def mount(self, folder, options):
        """A disk of its own as a folder of the drive."""
        folder.mkdir()
        if subprocess.run(["mount", "-t", "tmpfs", "-o", options, "tmpfs", folder]).returncode:
            self.skipTest("no file system could be mounted")
        self.addCleanup(subprocess.run, ["umount", folder], check=True)

    def make_older_installer(self, folder):
        """An installer of the same files with an older version number, and one file that went since."""
        (folder / "old/docs").mkdir(parents=True)
        (folder / "old/docs/gone.txt").write_text("of an older version")
        subprocess.run(["cpack", "--config", BUILD / "CPackConfig.cmake", "-G", "NSIS", "-D", f"CPACK_PACKAGE_DIRECTORY={folder}",
                        "-D", "CPACK_PACKAGE_VERSION=0.8.0", "-D", "CPACK_PACKAGE_FILE_NAME=older",
                        "-D", f"CPACK_INSTALLED_DIRECTORIES={folder / 'old'};program"], check=True, capture_output=True)
        return folder / "older.exe"

    def test_installs_runs_and_goes_without_a_trace(self):
        self.run_main_job_before()
        before, keys = files(), registry()
        self.install()
        self.assertIn("Variable Draft Angle", self.run_installed("list"))
        self.assertIn("鋳", self.run_installed("list", "--lang", "japanese"))
        self.run_installed("new", "rules.xml")
        self.run_installed("convert", "rules.xml", "--length", "in")
        self.assertIn("rules in inches", self.run_installed("show", "rules.xml"))
        self.assertIn("101.6", self.run_installed("sheet", on_disk(PLACE) / "samples/draft-angles.xlsx"))
        self.run_installed("materials", "export", "-o", PLACE + r"\mine.csv")
        with self.open_dialog():
            pass
        console = wine("cmd", "/C", "console.cmd", folder=on_disk(PLACE) / "bin").stdout
        self.assertIn("mfxhost help tells the commands.", console)
        self.assertIn("mfxhost 0.", console)
        self.install()  # repairs
        self.uninstall()
        after = files()
        mine = {on_disk(PLACE), on_disk(PLACE + r"\mine.csv"), DRIVE / "rules.xml"}
        new = {path for path, _ in after - before if "MfxKit" not in path.parts}
        self.assertEqual(new, mine)
        self.assertEqual(before - after, set())
        self.assertEqual([path.name for path, _ in after if path.suffix == ".db"], ["materials.db"])
        self.assertEqual(registry() ^ keys, set())

    def run_main_job_before(self):
        """What Windows has, and what Wine writes when programs run for the first time, is there already."""
        wine("reg", "add", r"HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall", "/f")
        wine(BUILD / "bin/mfxhost.exe", "list")
        wine("cmd", "/C", "ver")
        registry()

    def test_upgrades_but_not_under_a_running_program(self):
        with tempfile.TemporaryDirectory() as folder:
            self.install(self.make_older_installer(pathlib.Path(folder)))
        gone = on_disk(PLACE) / "docs/gone.txt"
        self.assertTrue(gone.exists())
        self.run_installed("new", "rules.xml")
        self.run_installed("materials", "export", "-o", "mine.csv")
        with open(DRIVE / "mine.csv", "a") as table:
            table.write("Sand Casting,,Steel,My Steel,7800,,\n")
        self.run_installed("materials", "import", "mine.csv")
        with self.open_dialog():  # which has libraries open, also one of lang
            before = files(on_disk(PLACE))
            self.install(exit_code=REFUSED)
            self.refuse_to_uninstall()
            self.assertEqual(files(on_disk(PLACE)), before)
        self.install()
        self.assertFalse(gone.exists())
        self.assertIn("My Steel", self.run_installed("materials", "find", "My"))
        key = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\SandCastingRules"
        self.assertIn(self.installer.stem.rpartition("-")[2], wine("reg", "query", key, "/v", "DisplayVersion").stdout)

    def test_leaves_files_of_others_alone(self):
        """Of a CAD system, with an uninstaller of its own, and of the user."""
        for name in ("bin/MfxKitu.dll", "uninstall.exe"), ("README.md", "notes.txt"):
            for file in (on_disk(PLACE) / part for part in name):
                file.parent.mkdir(parents=True, exist_ok=True)
                file.write_text("of another program")
            before = files()
            self.install(exit_code=REFUSED)
            self.assertEqual(files(), before)
            shutil.rmtree(on_disk(PLACE))

    def test_refuses_what_it_cannot_do(self):
        """An installation stays as it is, and so do files of others."""
        self.install()
        for file in ("CAD/bin/MfxKitu.dll", "CAD/README.md", "Taken/bin", "file"):
            (DRIVE / file).parent.mkdir(parents=True, exist_ok=True)
            (DRIVE / file).write_text("of another program")
        before, keys = files(), registry()
        for option in ("/AllUser", "/s", r"/D=C:\quoted folder"):
            self.install(None, option, place=None, exit_code=REFUSED, reason="is no option")
        for place in (r"rel\folder", r"\from root", "C:/slash/x", "C:\\", "C:", r"Q:\no drive", r"\\none\share",
                      r"C:\file", r"C:\X /AllUsers", r"C:\X\a/b", " "):
            with self.subTest(place):
                self.install(place=place, exit_code=REFUSED, reason=f"/D={place.strip()}: this can't be the folder")
        self.install(place=r"C:\Taken", exit_code=REFUSED, reason="is there already")
        self.refuse_to_uninstall(r"C:\CAD")
        self.assertEqual(files(), before)
        self.install(place=rf"C:\windows\..\{PLACE[3:]}\.")  # another spelling repairs
        self.assertEqual(registry() ^ keys, set())
        for disk, options, reason in ("fixed", "ro", "can't be written"), ("small", "size=3m", "too little room"):
            self.mount(DRIVE / disk, options)
            before = files()
            self.install(place=rf"C:\{disk}\new\one", exit_code=REFUSED, reason=reason)
            self.assertEqual(files(), before)
        self.assertEqual(registry() ^ keys, set())

    def test_keeps_samples_that_were_changed(self):
        self.install()
        mine = on_disk(PLACE) / "samples/all-rules.xml"
        self.run_installed("set", PLACE + r"\samples\all-rules.xml", "19010/10067=5mm")
        changed = mine.read_bytes()
        self.install()
        self.assertEqual(mine.read_bytes(), changed)
        self.uninstall()
        self.assertEqual([path for path in on_disk(PLACE).rglob("*") if path.is_file()], [mine])
        self.install()
        self.run_installed("show", PLACE + r"\samples\draft-angle.xml")

    def test_moves_to_another_folder(self):
        """By an installer, also when the uninstaller was lost, and by hand. Two at once are one too many."""
        self.install()
        (on_disk(PLACE) / UNINSTALLER).unlink()
        self.install(place=r"C:\Other")
        self.assertFalse(on_disk(PLACE).exists())
        self.run_installed("list", place=r"C:\Other")
        (DRIVE / "Other").rename(DRIVE / "By hand")
        self.uninstall(r"C:\By hand")
        self.assertFalse(list(DRIVE.rglob("Sand casting rules console.lnk")))
        self.assertNotIn("SandCastingRules", str(registry()))
        installers = [subprocess.Popen([ROOT / "scripts/wine-run", self.installer, "/S", rf"/D=C:\{name}"], cwd=DRIVE)
                      for name in ("First", "Second")]
        self.assertEqual(sorted(installer.wait(120) for installer in installers), [DONE, REFUSED])

    def test_installs_for_all_users(self):
        self.install(None, "/AllUsers", place=None)
        place = r"C:\Program Files\Sand casting rules"
        self.run_installed("list", place=place)
        self.assertTrue(list((DRIVE / "ProgramData").rglob("Sand casting rules console.lnk")))
        self.install(exit_code=REFUSED, place=None)  # a second one, for the user
        self.install(exit_code=REFUSED, place=place)
        self.uninstall(place)
        self.assertFalse(on_disk(place).exists())
        self.assertFalse(list((DRIVE / "ProgramData").rglob("Sand casting rules console.lnk")))
        self.assertNotIn("SandCastingRules", str(registry()))

    def test_loads_no_planted_library(self):
        """Libraries of all names that are loaded, in the current folder and on the path, with the rule document."""
        self.install()
        planted = DRIVE / "planted"
        planted.mkdir()
        document = planted / "rules.xml"
        shutil.copy(ROOT / "samples/all-rules.xml", document)
        for library in [*on_disk(PLACE).rglob("*.dll"), *(DRIVE / "windows/system32").glob("*.ocx"),
                        *(DRIVE / "windows/system32" / f"{name}.dll" for name in ("version", "dbghelp", "comctl32"))]:
            if library.exists():
                shutil.copy(BUILD / "bin/mfx_mfc_testdll.dll", planted / library.name)
        sheet = ["sheet", on_disk(PLACE) / "samples/draft-angles.xlsx"]
        reader = on_disk(PLACE) / "bin/MFXCLRMangedHelper.dll"
        for command, missing in ((["check", "rules.xml"], None), (sheet, None), (["materials", "list"], None),
                                 (sheet, reader)):
            if missing:
                missing.unlink()
            result = wine(on_disk(PLACE) / "bin/mfxhost.exe", *command, folder=planted, WINEPATH=r"C:\planted",
                          WINEDEBUG="+loaddll")
            self.assertEqual(result.returncode, 4 if missing else 0, result.stderr)
            self.assertIn("MFXSandCastingRulesu.dll", result.stderr)
            self.assertNotIn("planted", result.stderr.lower())


if __name__ == "__main__":
    BUILD = pathlib.Path(sys.argv[2]).resolve()
    unittest.main(argv=[sys.argv[0], f"InstallerTest.{sys.argv[1]}"])

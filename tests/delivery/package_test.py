"""What is in the packages: package_test.py TEST BUILD_FOLDER"""

import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import zipfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
TOOL = "x86_64-w64-mingw32-"

# Of Windows itself.
SYSTEM = {"kernel32", "user32", "gdi32", "msvcrt", "ole32", "oleaut32", "comctl32", "comdlg32", "shell32", "shlwapi",
          "advapi32", "dbghelp", "version", "ws2_32"}


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


class PackageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = BUILD / "packages"
        archives = {"-symbols" in path.name: path for path in folder.glob("*.zip")}
        cls.archive, cls.symbols = archives[False], archives[True]
        cls.folder = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        with zipfile.ZipFile(cls.archive) as archive:
            archive.extractall(cls.folder)
        cls.root = next(cls.folder.iterdir())
        cls.binaries = [path for path in cls.root.rglob("*") if path.suffix in (".exe", ".dll")]

    def test_has_everything(self):
        names = {path.relative_to(self.root).as_posix() for path in self.root.rglob("*") if path.is_file()}
        languages = {path.stem for path in (ROOT / "resources").glob("*.rc")} - {"dialogs"}
        wanted = {"README.md", "CHANGELOG.md", "NOTICES.txt", "bin/mfxhost.exe", "bin/console.cmd",
                  "docs/administration.md", "samples/all-rules.xml"}
        wanted |= {f"lang/{language}/{file}" for language in languages
                   for file in ("MFXSandCastingRulesResu.dll", "mfxkit.chm")}
        self.assertEqual(wanted - names, set())
        self.assertEqual({name for name in names if "test" in name or name.endswith((".debug", ".txt.in"))}, set())
        size = sum(file.compress_size for file in zipfile.ZipFile(self.archive).infolist()
                   if "/help/" not in file.filename and not file.filename.endswith(".chm"))
        self.assertLess(size, 4_000_000)

    def test_names_what_it_contains(self):
        """Each library that was built, but for those of tests and benchmarks, and the compiler's runtime."""
        notices = (self.root / "NOTICES.txt").read_text("utf-8")
        for folder in (BUILD.parent / "deps/share").glob("*/version"):
            name = folder.parent.name
            self.assertEqual(f"\n{name} {folder.read_text().strip()}\n" in notices,
                             name not in ("googletest", "benchmark"), name)
        for terms in ("GNU GENERAL PUBLIC LICENSE", "GCC RUNTIME LIBRARY EXCEPTION", "mingw-w64 project",
                      "Mozilla Public License Version 2.0", "\nnsis-common "):
            self.assertIn(terms.lower(), notices.lower())

    def test_needs_only_what_is_there(self):
        shipped = {path.name.lower() for path in self.binaries}
        for binary in self.binaries:
            for name in re.findall(r"DLL Name: (\S+)", output_of(TOOL + "objdump", "-p", binary)):
                if name.lower() not in shipped:
                    self.assertIn(name.lower().removesuffix(".dll").removesuffix(".drv"), SYSTEM, binary.name)

    def test_is_hardened(self):
        for binary in [*self.binaries, *(BUILD / "packages").glob("*.exe")]:
            headers = output_of(TOOL + "objdump", "-p", binary)
            for mark in ("HIGH_ENTROPY_VA", "DYNAMIC_BASE", "NX_COMPAT"):
                self.assertIn(mark, headers, binary.name)
        program = (self.root / "bin/mfxhost.exe").read_bytes()
        self.assertIn(b'<requestedExecutionLevel level="asInvoker" uiAccess="false"/>', program)

    def test_tells_nothing_of_machine_and_time(self):
        for path in self.root.rglob("*"):
            if path.is_file():
                self.assertNotIn(str(ROOT).encode(), path.read_bytes(), path.name)
        for binary in self.binaries:
            if not binary.name.startswith("lib"):  # the compiler's own
                self.assertIn("Jan  1 00:00:00 1970", output_of("env", "TZ=UTC", TOOL + "objdump", "-p", binary))
        again = self.folder / "again.chm"
        output_of("/usr/bin/python3", ROOT / "scripts/make_help.py", "english", ROOT / "docs/help", self.folder / "work",
                  again)
        self.assertEqual(again.read_bytes(), (self.root / "lang/english/mfxkit.chm").read_bytes())

    def test_finds_lines_of_crashes(self):
        """The address of an export, by the symbols beside the library."""
        with zipfile.ZipFile(self.symbols) as archive:
            archive.extractall(self.folder)
        library = self.root / "bin/MFXSandCastingRulesu.dll"
        symbols = next(self.folder.glob(f"*/bin/.debug/{library.name}.debug"))
        line = next(line for line in output_of(TOOL + "nm", symbols).splitlines() if line.endswith(" T GetModuleName"))
        place = output_of(TOOL + "addr2line", "-e", symbols, line.split()[0])
        self.assertRegex(place, r"module/Exports\.cpp:\d+")


if __name__ == "__main__":
    BUILD = pathlib.Path(sys.argv[2]).resolve()
    unittest.main(argv=[sys.argv[0], f"PackageTest.{sys.argv[1]}"])

#!/usr/bin/env python3
"""help_test.py FOLDER: the compiled help files in FOLDER/LANGUAGE, read by chmls, have a topic for every context number
that a dialog passes, and all that the pages refer to."""

import pathlib
import re
import struct
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
LANGUAGES = sorted(folder.name for folder in (ROOT / "docs/help").iterdir() if folder.is_dir())
folder = None


def context_numbers():
    """Those that dialogs pass to their base: the ids of rules, and constants of the dialogs."""
    ids = re.findall(r"RuleId = (\d+)", (ROOT / "rules/tables/RuleParameters.h").read_text("utf-8"))
    for source in (ROOT / "dialogs").glob("*.cpp"):
        ids += re.findall(r"kHelpContext = (\d+)", source.read_text("utf-8"))
    return {int(number) for number in ids}


class HelpTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)

    def unpack(self, language):
        """The files of a help file, by name."""
        unpacked = pathlib.Path(self.folder.name) / language
        unpacked.mkdir()
        compiled = folder / language / "mfxkit.chm"
        listed = subprocess.run(["chmls", "-p", "-n", "list", compiled], capture_output=True, text=True).stdout
        names = [name[1:] for name in listed.split() if name.startswith("/") and len(name) > 1]
        self.assertEqual(len(names), len(set(names)))
        for name in names:
            subprocess.run(["chmls", "extract", compiled, "/" + name, unpacked / name], capture_output=True)
        return {path.name: path.read_bytes() for path in unpacked.iterdir()}

    def test_every_language(self):
        self.assertEqual(len(context_numbers()), 5)
        self.assertEqual(len(LANGUAGES), 5)
        for language in LANGUAGES:
            with self.subTest(language):
                files = self.unpack(language)
                self.check_topics(files)
                self.check_contents(files)
                self.check_references(files)

    def check_topics(self, files):
        numbers, strings = files["#IVB"], files["#STRINGS"]
        topics = dict(struct.iter_unpack("<II", numbers[4:]))
        self.assertEqual(topics.keys(), context_numbers())
        for offset in topics.values():
            page = strings[offset:strings.index(b"\0", offset)].decode()
            self.assertIn(page, files)

    def check_contents(self, files):
        """Every page stands in the contents, under a title of its own."""
        pages = re.findall(rb'"Local" value="([^"]+)"', files["mfxkit.hhc"])
        titles = re.findall(rb'"Name" value="([^"]+)"', files["mfxkit.hhc"])
        self.assertEqual({page.decode() for page in pages}, {name for name in files if name.endswith(".html")})
        self.assertEqual(len(set(titles)), len(pages))

    def check_references(self, files):
        for name, text in files.items():
            if name.endswith(".html"):
                for reference in re.findall(rb'(?:href|src)="([^"]+)"', text):
                    self.assertIn(reference.decode(), files, name)


if __name__ == "__main__":
    folder = pathlib.Path(sys.argv.pop(1))
    unittest.main()

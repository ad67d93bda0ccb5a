#!/usr/bin/env python3
"""make_help.py LANGUAGE SOURCES WORK_FOLDER RESULT: compiles the help of a language, SOURCES/LANGUAGE, by the project
SOURCES/mfxkit.hhp. The contents list the pages by their titles."""

import pathlib
import re
import shutil
import struct
import subprocess
import sys

# Windows language id, and the encoding that the help window takes project and contents to have.
LANGUAGES = {"english": (0x409, "cp1252"), "japanese": (0x411, "cp932"), "korean": (0x412, "cp949"),
             "french": (0x40C, "cp1252"), "chinese-simplified": (0x804, "gbk")}
ENTRY = ('<LI><OBJECT type="text/sitemap"><param name="Name" value="{}"><param name="Local" value="{}"></OBJECT>\n')


def read_sections(project):
    """The project's sections without comments: name to lines."""
    lines = [line for line in project.read_text("utf-8").splitlines() if line and not line.startswith(";")]
    sections = {}
    for line in lines:
        if line.startswith("["):
            current = sections.setdefault(line.strip("[]"), [])
        else:
            current.append(line)
    return sections


def title_of(page):
    return re.search(r"<title>(.*)</title>", page.read_text("utf-8"))[1]


def write_context_numbers(sections, folder):
    """The tables of a compiled file that lead from a context number to a page. chmcmd would write the pages' full
    paths on this machine."""
    pages = dict(line.split("=") for line in sections.pop("ALIAS"))
    numbers, strings = b"", b"\0"
    for _, name, number in sorted((line.split() for line in sections.pop("MAP")), key=lambda words: int(words[2])):
        numbers += struct.pack("<II", int(number), len(strings))
        strings += pages[name].encode() + b"\0"
    (folder / "#IVB").write_bytes(struct.pack("<I", len(numbers)) + numbers)
    (folder / "#STRINGS").write_bytes(strings)
    sections["FILES"] += ["#IVB", "#STRINGS"]


def hide_empty_strings(compiled):
    """chmcmd adds a table of strings of its own, one byte long. No name may be in the file twice, so this one gets
    another, in the order of the alphabet."""
    data = compiled.read_bytes()
    found = list(re.finditer(rb"/#STRINGS(?=\x01[\x80-\xff]*[\x00-\x7f]\x01)", data))
    if len(found) != 1:
        sys.exit("make_help: chmcmd has written other tables of strings than expected")
    is_first = found[0].start() == data.find(b"/#STRINGS")
    name = b"/#STRINGR" if is_first else b"/#STRINGT"
    compiled.write_bytes(data[:found[0].start()] + name + data[found[0].end():])


def main():
    language, sources, work, result = sys.argv[1], *map(pathlib.Path, sys.argv[2:])
    locale, encoding = LANGUAGES[language]
    shutil.rmtree(work, ignore_errors=True)
    shutil.copytree(sources / language, work)
    shutil.copy(sources / "help.css", work)
    for page in work.glob("*.html"):
        page.write_text(page.read_text("utf-8").replace("../help.css", "help.css"), "utf-8")
    sections = read_sections(sources / "mfxkit.hhp")
    pages = sections["FILES"][:]
    write_context_numbers(sections, work)
    sections["FILES"] += ["help.css"] + sorted(picture.name for picture in work.glob("*.png"))
    sections["OPTIONS"] += [f"Language=0x{locale:x}", f"Title={title_of(work / 'index.html')}"]
    entries = "".join(ENTRY.format(title_of(work / page), page) for page in pages)
    (work / "mfxkit.hhc").write_text(f"<HTML><BODY><UL>\n{entries}</UL></BODY></HTML>\n", encoding)
    project = "".join(f"[{name}]\n" + "\n".join(lines) + "\n\n" for name, lines in sections.items())
    (work / "mfxkit.hhp").write_text(project, encoding)
    compiled = work / "mfxkit.chm"
    done = subprocess.run(["chmcmd", "--no-html-scan", "mfxkit.hhp"], cwd=work, capture_output=True, text=True)
    if done.returncode or not compiled.exists():
        sys.exit(done.stdout + done.stderr)
    hide_empty_strings(compiled)
    shutil.copy(compiled, result)


if __name__ == "__main__":
    main()

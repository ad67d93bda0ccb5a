#!/usr/bin/env python3
"""make_help.py LANGUAGE SOURCES WORK_FOLDER RESULT: compiles the help of a language, SOURCES/LANGUAGE, by the project
SOURCES/mfxkit.hhp. The contents list the pages by their titles."""

import pathlib
import re
import shutil
import struct
import subprocess
import sys
import zlib

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


def only_match(pattern, data, what):
    found = list(re.finditer(pattern, data, re.DOTALL))
    if len(found) != 1:
        sys.exit(f"make_help: chmcmd has written other {what} than expected")
    return found[0]


def hide_empty_strings(data):
    """chmcmd adds a table of strings of its own, one byte long. No name may be in the file twice, so this one gets
    another, in the order of the alphabet."""
    table = only_match(rb"/#STRINGS(?=\x01[\x80-\xff]*[\x00-\x7f]\x01)", data, "tables of strings")
    is_first = table.start() == data.find(b"/#STRINGS")
    name = b"/#STRINGR" if is_first else b"/#STRINGT"
    data[slice(*table.span())] = name


def replace_times(data):
    """chmcmd writes the time of compiling, as a number of 32 bits, at byte 16 of the file and into entry 10 of the
    table #SYSTEM. The same pages shall give the same file, so a check sum of the file replaces both."""
    entry = only_match(rb"(?<=\x0a\0\x04\0)....(?=\x09\0\x16\0HHA Version)", data, "times")
    places = [slice(16, 20), slice(*entry.span())]
    for place in places:
        data[place] = bytes(4)
    stamp = struct.pack("<I", zlib.crc32(data))
    for place in places:
        data[place] = stamp


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
    data = bytearray(compiled.read_bytes())
    hide_empty_strings(data)
    replace_times(data)
    result.write_bytes(data)


if __name__ == "__main__":
    main()

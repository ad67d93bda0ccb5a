#!/usr/bin/env python3
"""update_manual.py [--check] HOST-COMMAND...: writes the help of each command into its page in docs/commands/, below
the line that names it. --check fails instead where a page is not as the program tells, or a command has no page."""

import pathlib
import re
import subprocess
import sys

PAGES = pathlib.Path(__file__).resolve().parents[1] / "docs/commands"
HELP = re.compile(r"(<!-- mfxhost help ([^\n]+) -->\n```\n)(.*?)(```\n)", re.DOTALL)


def main(host, is_check):
    def help_of(topic):
        command = [*host, "help", *topic.split()]
        return subprocess.run(command, check=True, capture_output=True, encoding="utf-8").stdout

    commands = re.findall(r"^  (\S+)", help_of("").partition("Subcommands:\n")[2].partition("\n\n")[0], re.MULTILINE)
    faults = [f"{name} has no page" for name in commands if name != "help" and not (PAGES / f"{name}.md").exists()]
    for page in sorted(PAGES.glob("*.md")):
        text = page.read_text("utf-8")
        if f"<!-- mfxhost help {page.stem} -->" not in text:
            faults.append(f"{page.name} has no help of {page.stem}")
        current = HELP.sub(lambda match: match[1] + help_of(match[2]) + match[4], text)
        if current != text and is_check:
            faults.append(f"{page.name} is not as the program tells: scripts/update_manual.py")
        elif current != text:
            page.write_text(current, "utf-8")
    sys.exit("\n".join(faults) or 0)


if __name__ == "__main__":
    main([argument for argument in sys.argv[1:] if argument != "--check"], "--check" in sys.argv)

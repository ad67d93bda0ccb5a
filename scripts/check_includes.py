#!/usr/bin/env python3
"""Checks that no include runs up: a folder includes its own headers and those of the folders below it.

The libraries' include folders enforce most of this in the compiler; this sees every source at once, also those
that a build leaves out. Prints each include that runs up, and fails."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]

# The storeys, each with the ones right below it.
BELOW = {
    "mfc": [],
    "resources": [],
    "framework": ["mfc"],
    "rules/tables": ["framework", "resources"],
    "module/application": ["framework", "resources"],
    "rules": ["rules/tables", "module/application"],
    "grids": ["rules/tables", "module/application"],
    "exchange/interface": ["rules/tables"],
    "exchange": ["exchange/interface", "rules/tables"],
    "dialogs": ["rules", "grids", "exchange", "database/interface"],
    "module": ["dialogs"],
    "sheetreader": ["exchange/interface"],
    "database/interface": ["framework"],
    "database": ["rules/tables", "database/interface"],
    "documents": ["exchange", "database/interface"],
    "host": ["documents"],
}


def storey_of(path):
    """The innermost storey that the file stands in; None for tests, benchmarks and the like."""
    folders = [folder.as_posix() for folder in path.relative_to(ROOT).parents]
    return next((folder for folder in folders if folder in BELOW), None)


def reach(storey):
    """The storey itself and all below it."""
    return {storey}.union(*(reach(below) for below in BELOW[storey]))


def main():
    files = [path for top in {folder.split("/")[0] for folder in BELOW}
             for path in (ROOT / top).rglob("*") if path.suffix in (".h", ".cpp")]
    headers = {}
    for path in files:
        if path.suffix == ".h":
            headers.setdefault(path.name, []).append(path)
    faults = [f"{name} stands in several folders: {', '.join(str(path.relative_to(ROOT)) for path in paths)}"
              for name, paths in headers.items() if len(paths) > 1]
    includes = 0
    for path in files:
        for number, line in enumerate(path.read_text("utf-8").splitlines(), 1):
            found = re.match(r'\s*#\s*include\s*[<"]([^>"]+)[>"]', line)
            header = headers.get(found[1].split("/")[-1]) if found else None
            if not header:
                continue
            includes += 1
            storey, target = storey_of(path), storey_of(header[0])
            if target not in reach(storey):
                faults.append(f"{path.relative_to(ROOT)}:{number}: {storey}/ does not stand on {target}/: {line.strip()}")
    print("\n".join(sorted(faults)) or f"{includes} includes in {len(files)} files: none runs up")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""Checks that sources include only what the table "Layers" of docs/architecture.md allows their folder.

Each row names folders in its first column, and in its second the folders and files that these may include, all as paths
from the root in backticks. A folder may include itself and what is below it; a file belongs to the longest path that
names its folder. Headers of the platform and of libraries are no matter of this table.

check_layers.py ROOT
"""

import pathlib
import posixpath
import re
import sys

TABLE = "docs/architecture.md"
HEADING = "## Layers"
# Folders of sources that every row is about; tests, fuzz targets, benchmarks and tools may look at anything.
TREES = ("include", "src", "simulator", "kolmctl", "kolmview", "examples")
# Where the build lets includes begin, the file's own folder aside.
ROOTS = ("include", "src", "simulator", "kolmctl", "")

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]+["<]([^">]+)[">]')


def allowed_by(text):
    """Folder -> the paths that it may include, from the table's rows."""
    allowed = {}
    lines = iter(text.splitlines())
    for line in lines:
        if line == HEADING:
            break
    for line in lines:
        if line.startswith("## "):
            break
        cells = line.split("|")
        if len(cells) > 3:
            for folder in re.findall(r"`([^`]+)`", cells[1]):
                allowed[folder] = re.findall(r"`([^`]+)`", cells[2])
    return allowed


def is_below(path, folder):
    return path == folder or path.startswith(folder + "/")


def included_by(root, name):
    """(line, path from the root) of each header of this project that a source includes."""
    text = (root / name).read_text(encoding="utf-8", errors="replace")
    for number, line in enumerate(text.splitlines(), 1):
        match = INCLUDE.match(line)
        for start in (posixpath.dirname(name), *ROOTS) if match else ():
            path = posixpath.normpath(posixpath.join(start, match[1]))
            if (root / path).is_file():
                yield number, path
                break


def sources_of(root):
    return sorted(path.relative_to(root).as_posix() for tree in TREES for path in (root / tree).rglob("*")
                  if path.suffix in (".h", ".cpp"))


def problems(root):
    root = pathlib.Path(root)
    allowed = allowed_by((root / TABLE).read_text(encoding="utf-8"))
    for folder, paths in allowed.items():
        for path in (folder, *paths):
            if not (root / path).exists():
                yield f"{TABLE}: {path}: no such folder or file"
    for name in sources_of(root):
        own = max((folder for folder in allowed if is_below(name, folder)), key=len, default=None)
        if own is None:
            yield f"{TABLE}: no row for the folder of {name}"
            continue
        for line, path in included_by(root, name):
            if not any(is_below(path, other) for other in (own, *allowed[own])):
                yield f"{name}:{line}: {path} is not for {own}"


def main():
    if len(sys.argv) != 2:
        raise SystemExit(__doc__)
    found = list(problems(sys.argv[1]))
    print("\n".join(found) if found else f"{len(sources_of(pathlib.Path(sys.argv[1])))} sources keep to their layers")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()

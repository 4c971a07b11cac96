#!/usr/bin/env python3
"""Checks the zip archive: check_package.py <archive> <sources> <folder of programs> <make_package.py and its options>...

It holds exactly what it should, each file as it was built or written, under one folder that is named like the archive;
and making it again from the same files gives the same archive and the same installer.
"""

import pathlib
import subprocess
import sys
import tempfile
import zipfile

PROGRAMS = ("kolmfluxor.dll", "kolmctl.exe", "kolmfluxor.tlb")
OPTIONAL_PROGRAMS = ("kolmview.exe",)
SIMULATOR = ("simulator/kolmsimcam.ax", "simulator/ksproxy.ax")
DOCUMENTS = ("README.md", "CHANGELOG.md", "LICENSE", "examples/minimal_client.cpp", "simulator/README.md")
FOLDERS = (("include", "*.h"), ("docs", "*.md"), ("docs", "*.png"))
LEFT_OUT = ("docs/release.md",)


def expected_files(source, programs):
    """Name in the package and file."""
    wanted = {name: programs / name for name in PROGRAMS + SIMULATOR}
    wanted |= {name: programs / name for name in OPTIONAL_PROGRAMS if (programs / name).exists()}
    wanted |= {name: source / name for name in DOCUMENTS}
    for folder, pattern in FOLDERS:
        wanted |= {path.relative_to(source).as_posix(): path for path in (source / folder).rglob(pattern)}
    return {name: path for name, path in wanted.items() if name not in LEFT_OUT}


def problems(archive, source, programs):
    wanted = expected_files(source, programs)
    root = archive.stem + "/"
    with zipfile.ZipFile(archive) as opened:
        names = opened.namelist()
        if len(names) != len(set(names)):
            yield "a name stands there twice"
        found = {name.removeprefix(root): name for name in names if name.startswith(root)}
        if len(found) != len(names):
            yield f"not everything is in {root}"
        yield from (f"missing: {name}" for name in sorted(wanted.keys() - found.keys()))
        yield from (f"too much: {name}" for name in sorted(found.keys() - wanted.keys()))
        for name in sorted(found.keys() & wanted.keys()):
            if opened.read(found[name]) != wanted[name].read_bytes():
                yield f"differs from {wanted[name]}: {name}"


def not_reproduced(archive, command):
    with tempfile.TemporaryDirectory() as folder:
        again = pathlib.Path(folder, archive.stem)
        subprocess.run([*command, "--output", again], check=True, stdout=subprocess.DEVNULL)
        for ending in (".zip", "-setup.exe"):
            first, second = (path.with_name(path.name + ending) for path in (archive.with_suffix(""), again))
            if first.read_bytes() != second.read_bytes():
                yield f"made again, it differs: {first.name}"


def main():
    archive, source, programs = map(pathlib.Path, sys.argv[1:4])
    found = [*problems(archive, source, programs), *not_reproduced(archive, sys.argv[4:])]
    for problem in found:
        print(problem)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())

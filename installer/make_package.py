#!/usr/bin/env python3
"""Makes the installer and the zip archive of what lies in a staging folder.

The folder has one subfolder a component ("main", "simulator"); what is in them is what both packages hold. The same
files make the same packages, byte for byte.
"""

import argparse
import pathlib
import re
import subprocess
import sys
import zipfile

COMPONENTS = ("main", "simulator")
# GUIDs that the installer looks for in the registry: its name for one, the header, the header's name.
GUIDS = (
    ("MODULE_CLASS", "include/kolmfluxor/identifiers.h", "PROPSETID_KolmFluxor"),
    ("LIBRARY", "include/kolmfluxor/identifiers.h", "LIBID_KolmFluxor"),
    ("CAMERA_CLASS", "simulator/filter/class_ids.h", "CLSID_SimulatedColorCamera"),
)
GUID = r"/// (\{{[0-9A-F-]+\}})  [^\n]*\n(?:///[^\n]*\n)*inline constexpr \w+ {name} ="
NO_TIME = (1980, 1, 1, 0, 0, 0)  # the first that an archive can hold


def find(pattern, path):
    found = re.search(pattern, path.read_text())
    if not found:
        sys.exit(f"make_package.py: {path}: nothing matches {pattern}")
    return found.group(1)


def files_of(stage, component):
    """Pairs (path, name in the package), in an order of their own."""
    root = stage / component
    return sorted(((path, path.relative_to(root)) for path in root.rglob("*") if path.is_file()), key=lambda p: p[1])


def file_list(stage):
    """The packaged files as macros of the installer."""
    for component in COMPONENTS:
        yield f"!macro KOLM_FILES_{component.upper()}"
        for path, name in files_of(stage, component):
            folder = "" if name.parent == pathlib.Path(".") else "\\" + str(name.parent).replace("/", "\\")
            windows_name = str(name).replace("/", "\\")
            yield f'!insertmacro KOLM_FILE "{path}" "$INSTDIR{folder}" "{windows_name}"'
        yield "!macroend"


def make_zip(stage, output):
    with zipfile.ZipFile(output, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
        for component in COMPONENTS:
            for path, name in files_of(stage, component):
                entry = zipfile.ZipInfo(f"{output.stem}/{name.as_posix()}", NO_TIME)
                entry.compress_type = zipfile.ZIP_DEFLATED
                entry.external_attr = 0o644 << 16
                archive.writestr(entry, path.read_bytes())


def make_installer(arguments, output):
    source = arguments.source
    listing = arguments.stage / "files.nsh"
    listing.write_text("\n".join(file_list(arguments.stage)) + "\n")
    identifiers = source / "include/kolmfluxor/identifiers.h"
    defines = {name: find(GUID.format(name=key), source / header) for name, header, key in GUIDS}
    defines |= {
        "LIBRARY_MAJOR": find(r"kTypeLibraryMajor = (\d+);", identifiers),
        "LIBRARY_MINOR": find(r"kTypeLibraryMinor = (\d+);", identifiers),
        "VERSION": arguments.version,
        "ICON": source / "src/resources/kolmfluxor.ico",
        "LICENSE": source / "LICENSE",
        "FILES": listing,
        "OUTPUT": output,
    }
    if (arguments.stage / "main/kolmview.exe").exists():
        defines["VIEWER"] = "kolmview.exe"
    script = source / "installer/kolmfluxor.nsi"
    command = [arguments.makensis, "-V2", "-WX", "-INPUTCHARSET", "UTF8"]
    command += [f"-D{name}={value}" for name, value in defines.items()]
    subprocess.run([*command, script], check=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--makensis", required=True)
    parser.add_argument("--source", type=pathlib.Path, required=True, help="root of the sources")
    parser.add_argument("--stage", type=pathlib.Path, required=True)
    parser.add_argument("--version", required=True, help="x.y.z")
    parser.add_argument("--output", type=pathlib.Path, required=True, help="packages, without -setup.exe and .zip")
    arguments = parser.parse_args()
    if not re.fullmatch(r"\d+\.\d+\.\d+", arguments.version):
        sys.exit("make_package.py: a version is three numbers")
    if not files_of(arguments.stage, "main"):
        sys.exit(f"make_package.py: nothing in {arguments.stage}")

    arguments.output.parent.mkdir(parents=True, exist_ok=True)
    make_installer(arguments, arguments.output.with_name(arguments.output.name + "-setup.exe"))
    make_zip(arguments.stage, arguments.output.with_name(arguments.output.name + ".zip"))


if __name__ == "__main__":
    main()

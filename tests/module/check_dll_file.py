#!/usr/bin/env python3
"""Checks the file of the built module: check_dll_file.py [--self-test] [--version x.y.z] kolmfluxor.dll

A host loads the file as it is, so what it imports, exports and promises in its header is part of the contract.
With --self-test, spoilt copies of the file are checked as well: each must be found out, by the check that it is for.
"""

import argparse
import struct
import sys

import pefile

# Libraries that come with every Windows 7 and later. Compiler libraries are linked in statically.
WINDOWS_LIBRARIES = {
    "advapi32.dll",
    "comctl32.dll",
    "comdlg32.dll",
    "gdi32.dll",
    "kernel32.dll",
    "msvcrt.dll",
    "ole32.dll",
    "oleaut32.dll",
    "quartz.dll",
    "shell32.dll",
    "user32.dll",
}
DRIVER_LIBRARY = "ksproxy.ax"
DRIVER_FUNCTIONS = {b"KsSynchronousDeviceControl"}

EXPORTS = {b"DllCanUnloadNow", b"DllGetClassObject", b"DllRegisterServer", b"DllUnregisterServer"}

VERSION_STRINGS = {
    b"FileDescription": None,
    b"FileVersion": None,  # with --version, that text
    b"LegalCopyright": None,
    b"OriginalFilename": b"kolmfluxor.dll",
    b"ProductName": None,
    b"ProductVersion": None,
}
NUMBERED = (b"FileVersion", b"ProductVersion")

DIRECTORIES = ("IMPORT", "DELAY_IMPORT", "EXPORT", "RESOURCE", "BASERELOC", "TLS")
DLL_FLAGS = ("HIGH_ENTROPY_VA", "DYNAMIC_BASE", "NX_COMPAT")


def directory(pe, name):
    return pe.OPTIONAL_HEADER.DATA_DIRECTORY[pefile.DIRECTORY_ENTRY[f"IMAGE_DIRECTORY_ENTRY_{name}"]]


def check_header(pe):
    if pe.FILE_HEADER.Machine != pefile.MACHINE_TYPE["IMAGE_FILE_MACHINE_AMD64"]:
        yield f"machine: {pe.FILE_HEADER.Machine:#x} is not AMD64"
    if not pe.FILE_HEADER.Characteristics & pefile.IMAGE_CHARACTERISTICS["IMAGE_FILE_DLL"]:
        yield "characteristics: not marked as a DLL"
    if pe.FILE_HEADER.Characteristics & pefile.IMAGE_CHARACTERISTICS["IMAGE_FILE_RELOCS_STRIPPED"]:
        yield "characteristics: relocations are marked as stripped"
    for name in DLL_FLAGS:
        flag = pefile.DLL_CHARACTERISTICS[f"IMAGE_DLLCHARACTERISTICS_{name}"]
        if not pe.OPTIONAL_HEADER.DllCharacteristics & flag:
            yield f"flags: {name} is not set"


def check_relocations(pe):
    entry = directory(pe, "BASERELOC")
    if entry.VirtualAddress == 0 or entry.Size == 0:
        yield "relocations: no directory"
        return
    blocks = getattr(pe, "DIRECTORY_ENTRY_BASERELOC", [])
    kind = pefile.RELOCATION_TYPE["IMAGE_REL_BASED_DIR64"]
    if not any(item.type == kind for block in blocks for item in block.entries):
        yield "relocations: the directory has no 64-bit entry"


def check_imports(pe):
    libraries = {}
    for name in ("IMPORT", "DELAY_IMPORT"):
        for library in getattr(pe, f"DIRECTORY_ENTRY_{name}", []):
            libraries.setdefault(library.dll.decode("latin1").lower(), []).extend(library.imports)
    if not libraries:
        yield "imports: none"
    for library, functions in libraries.items():
        if library != DRIVER_LIBRARY and library not in WINDOWS_LIBRARIES:
            yield f"imports: {library} is not a library of Windows' own"
        for function in functions:
            if function.import_by_ordinal:  # some libraries are given names for these
                yield f"imports: {library} by ordinal {function.ordinal}"
    driver = {function.name for function in libraries.get(DRIVER_LIBRARY, [])}
    if driver != DRIVER_FUNCTIONS:
        yield f"imports: {DRIVER_LIBRARY} gives {sorted(map(str, driver))}, not only KsSynchronousDeviceControl"
    delayed = getattr(pe, "DIRECTORY_ENTRY_DELAY_IMPORT", [])
    if any(library.dll.decode("latin1").lower() == DRIVER_LIBRARY for library in delayed):
        yield f"imports: {DRIVER_LIBRARY} is not bound at load time"


def check_exports(pe):
    table = getattr(pe, "DIRECTORY_ENTRY_EXPORT", None)
    symbols = table.symbols if table else []
    names = [symbol.name for symbol in symbols]
    if set(names) != EXPORTS or len(names) != len(EXPORTS):
        yield f"exports: {sorted(map(str, names))}"
    for symbol in symbols:
        if symbol.forwarder:
            yield f"exports: {symbol.name} is forwarded to {symbol.forwarder}"


def check_version(pe):
    found = {}
    for info in (item for block in getattr(pe, "FileInfo", []) for item in block):
        for table in getattr(info, "StringTable", []):
            found.update(table.entries)
    if not found:
        yield "version: no resource"
        return
    for name, wanted in VERSION_STRINGS.items():
        if not found.get(name, b"").strip(b"\0 "):
            yield f"version: {name.decode()} is missing or empty"
        elif wanted is not None and found[name].lower() != wanted:
            yield f"version: {name.decode()} is {found[name]!r}, not {wanted!r}"


def check_type_library(pe):
    """Clients with early binding load the first resource of the type TYPELIB."""
    types = getattr(getattr(pe, "DIRECTORY_ENTRY_RESOURCE", None), "entries", [])
    found = [item for entry in types if str(entry.name) == "TYPELIB" for item in entry.directory.entries]
    if [item.id for item in found] != [1]:
        yield f"type library: resources {[item.id for item in found]}, not the number 1 alone"
        return
    place = found[0].directory.entries[0].data.struct
    if pe.get_data(place.OffsetToData, 4) != b"MSFT":
        yield "type library: the resource holds something else"


def check_tls(pe):
    """Thread-local data has a directory exactly where the file has a section for it, with a callback list."""
    section = any(item.Name.rstrip(b"\0") == b".tls" for item in pe.sections)
    entry = directory(pe, "TLS")
    if section != (entry.VirtualAddress != 0):
        yield "thread-local data: section and directory do not go together"
    elif section:
        tls = getattr(pe, "DIRECTORY_ENTRY_TLS", None)
        base, size = pe.OPTIONAL_HEADER.ImageBase, pe.OPTIONAL_HEADER.SizeOfImage
        addresses = (tls.struct.AddressOfIndex, tls.struct.AddressOfCallBacks) if tls else (0, 0)
        if not all(base <= address < base + size for address in addresses):
            yield "thread-local data: an address of the directory lies outside the file"


CHECKS = (check_header, check_relocations, check_imports, check_exports, check_version, check_type_library, check_tls)


def problems(data):
    try:
        pe = pefile.PE(data=bytes(data), fast_load=True)
        pe.parse_data_directories([pefile.DIRECTORY_ENTRY[f"IMAGE_DIRECTORY_ENTRY_{name}"] for name in DIRECTORIES])
    except pefile.PEFormatError as error:
        return [f"format: {error}"]
    return [problem for check in CHECKS for problem in check(pe)]


# -- Self-test: copies of the file with one thing spoilt, each with the start of the complaint that it must raise


def with_word(data, offset, value, form="<H"):
    copy = bytearray(data)
    struct.pack_into(form, copy, offset, value)
    return copy


def with_text(data, old, new, offset=None):
    """A copy with a text replaced by one of the same length: everywhere, or only at an offset."""
    assert len(old) == len(new) and old in data, old
    if offset is None:
        return bytearray(data.replace(old, new))
    copy = bytearray(data)
    assert copy[offset : offset + len(old)] == old, (offset, old)
    copy[offset : offset + len(old)] = new
    return copy


def spoilt_copies(data):
    pe = pefile.PE(data=data)
    machine = pe.FILE_HEADER.get_field_absolute_offset("Machine")
    marks = pe.FILE_HEADER.get_field_absolute_offset("Characteristics")
    flags = pe.OPTIONAL_HEADER.get_field_absolute_offset("DllCharacteristics")

    yield "another machine", "machine:", with_word(data, machine, 0x014C)
    yield "no DLL", "characteristics: not marked", with_word(data, marks, pe.FILE_HEADER.Characteristics & ~0x2000)
    yield "stripped", "characteristics: relocations", with_word(data, marks, pe.FILE_HEADER.Characteristics | 0x0001)
    for name in DLL_FLAGS:
        flag = pefile.DLL_CHARACTERISTICS[f"IMAGE_DLLCHARACTERISTICS_{name}"]
        value = pe.OPTIONAL_HEADER.DllCharacteristics & ~flag
        yield f"without {name}", f"flags: {name}", with_word(data, flags, value)

    for name, complaint in (
        ("BASERELOC", "relocations: no directory"),
        ("IMPORT", "imports: none"),
        ("EXPORT", "exports:"),
        ("RESOURCE", "version: no resource"),
        ("TLS", "thread-local data: section"),
    ):
        entry = directory(pe, name)
        if entry.VirtualAddress:
            place = entry.get_field_absolute_offset("VirtualAddress")
            yield f"without the directory {name}", complaint, with_word(data, place, 0, "<Q")

    first = pe.DIRECTORY_ENTRY_BASERELOC[0].struct
    body = pe.get_offset_from_rva(directory(pe, "BASERELOC").VirtualAddress)
    size = directory(pe, "BASERELOC").Size
    empty = bytearray(data)
    empty[body : body + size] = struct.pack("<II", first.VirtualAddress, size) + bytes(size - 8)
    yield "relocations without entries", "relocations: the directory has no", empty

    for library in pe.DIRECTORY_ENTRY_IMPORT:
        old = library.dll
        place = pe.get_offset_from_rva(library.struct.Name)
        wanted = f"imports: {DRIVER_LIBRARY} gives" if old.lower() == DRIVER_LIBRARY.encode() else "imports: "
        yield f"foreign library for {old}", wanted, with_text(data, old, b"x" + old[1:], place)
        thunk = library.imports[0]
        ordinal = with_word(data, thunk.struct_table.get_file_offset(), (1 << 63) | 1, "<Q")
        yield f"ordinal from {old}", f"imports: {old.decode().lower()} by ordinal", ordinal
        for function in library.imports:
            if function.name in DRIVER_FUNCTIONS:
                other = with_text(data, function.name, function.name[:-1] + b"X", function.name_offset)
                yield "another driver function", f"imports: {DRIVER_LIBRARY} gives", other

    for symbol in pe.DIRECTORY_ENTRY_EXPORT.symbols:
        other = with_text(data, symbol.name, symbol.name[:-1] + b"X", symbol.name_offset)
        yield f"another name for {symbol.name}", "exports:", other

    for name in VERSION_STRINGS:
        wide = name.decode().encode("utf-16-le")
        other = with_text(data, wide, wide[:-2] + b"X\0")
        yield f"without {name}", f"version: {name.decode()} is missing", other
    wide = "kolmfluxor.dll".encode("utf-16-le")
    yield "another original name", "version: OriginalFilename is", with_text(data, wide, wide[:-2] + b"X\0")

    wide = "TYPELIB".encode("utf-16-le")
    yield "without type library", "type library: resources", with_text(data, wide, wide[:-2] + b"X\0")
    yield "spoilt type library", "type library: the resource", with_text(data, b"MSFT\x02\0", b"XSFT\x02\0")

    if directory(pe, "TLS").VirtualAddress:
        place = pe.DIRECTORY_ENTRY_TLS.struct.get_field_absolute_offset("AddressOfCallBacks")
        yield "lost callback list", "thread-local data: an address", with_word(data, place, 1, "<Q")

    yield "cut off", "format:", data[:64]


def self_test(data):
    failures = 0
    count = 0
    for what, complaint, copy in spoilt_copies(data):
        count += 1
        found = problems(copy)
        if not any(problem.startswith(complaint) for problem in found):
            failures += 1
            print(f"self-test: {what}: no complaint \"{complaint}...\" but {found}")
    print(f"self-test: {count - failures} of {count} spoilt copies were found out")
    return failures == 0 and count > 0


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--self-test", action="store_true", help="check spoilt copies, too")
    parser.add_argument("--version", help="what the version resource must say")
    parser.add_argument("file")
    arguments = parser.parse_args()
    if arguments.version:
        VERSION_STRINGS.update(dict.fromkeys(NUMBERED, arguments.version.encode()))
    with open(arguments.file, "rb") as stream:
        data = stream.read()

    found = problems(data)
    for problem in found:
        print(f"{arguments.file}: {problem}")
    passed = not found
    if passed and arguments.self_test:
        passed = self_test(data)
    return 0 if passed else 1


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""Finishes a type library as the IDL compiler wrote it: finish_tlb.py <input> <output>

- A class that shares its GUID with an interface, which the compiler leaves without one, gets it. (The class id of the
  property-set object is the id of its interface.) Looking the GUID up in the library finds the interface.
- The time of the compilation goes: the same sources make the same file.
"""

import pathlib
import re
import struct
import sys

HEADER_SIZE = 0x54
TYPE_SIZE = 0x64  # of one entry of the table of types
TYPE_KIND, TYPE_GUID, TYPE_REFERENCE = 0x00, 0x2C, 0x54
KIND_CLASS = 5
# The custom data of the library that holds the time as a number.
TIME_DATA = bytes.fromhex("63ba77de7c51d111a2da0000f8773ce9")
SEGMENT_TYPES, SEGMENT_REFERENCES, SEGMENT_GUIDS, SEGMENT_CUSTOM_DATA, SEGMENT_CUSTOM_ROWS = 0, 3, 5, 11, 12


def fail(text):
    sys.exit(f"finish_tlb.py: {text}")


def word(data, offset):
    return struct.unpack_from("<i", data, offset)[0]


def main():
    data = bytearray(pathlib.Path(sys.argv[1]).read_bytes())
    if data[:4] != b"MSFT":
        fail("no type library")
    types = word(data, 0x20)
    segments = HEADER_SIZE + 4 * types

    def segment(index):
        return struct.unpack_from("<ii", data, segments + 16 * index)

    # The class without a GUID takes that of the interface that it implements.
    first = segment(SEGMENT_TYPES)[0]
    references = segment(SEGMENT_REFERENCES)[0]
    for number in range(types):
        entry = first + TYPE_SIZE * number
        if word(data, entry + TYPE_KIND) & 0xF != KIND_CLASS or word(data, entry + TYPE_GUID) != -1:
            continue
        interface = first + word(data, references + word(data, entry + TYPE_REFERENCE))
        if word(data, interface + TYPE_GUID) == -1:
            fail("a class and its interface have no GUID")
        struct.pack_into("<i", data, entry + TYPE_GUID, word(data, interface + TYPE_GUID))

    # The time, as a number and in the greeting.
    guids = segment(SEGMENT_GUIDS)[0]
    rows, size = segment(SEGMENT_CUSTOM_ROWS)
    values = segment(SEGMENT_CUSTOM_DATA)[0]
    times = 0
    for row in range(rows, rows + size, 12):
        guid, value, _ = struct.unpack_from("<iii", data, row)
        if data[guids + guid : guids + guid + 16] == TIME_DATA:
            struct.pack_into("<I", data, values + value + 2, 0)
            times += 1
    greeting = re.compile(rb"(?<=Created by WIDL version )[^\0]*? at [^\0]*?\d{4}\n?")
    data, greetings = greeting.subn(lambda match: b" " * len(match.group()), data)
    if times != 1 or greetings != 1:
        fail(f"{times} times and {greetings} greetings found, not one each")
    pathlib.Path(sys.argv[2]).write_bytes(data)


if __name__ == "__main__":
    main()

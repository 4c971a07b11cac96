#!/usr/bin/env python3
"""Writes the seeds of the fuzz targets whose inputs are no text: fuzz/make_seeds.py

Each target's source says how it reads its input. The seeds are kept in the source tree; run this after a change of a
target's reading.
"""
import pathlib
import struct

CORPUS = pathlib.Path(__file__).resolve().parent / "corpus"


def write(target, name, data):
    folder = CORPUS / target
    folder.mkdir(parents=True, exist_ok=True)
    (folder / name).write_bytes(bytes(data))


def word(number):
    return struct.pack("<I", number)


# ---- media_type_file: size of the block, whether it is there, the file.

RECORDS = bytes(range(32, 208))
write("media_type_file", "whole", bytes([88, 1]) + RECORDS)
write("media_type_file", "small_block", bytes([10, 1]) + RECORDS)
write("media_type_file", "no_block", bytes([88, 0]) + RECORDS)
write("media_type_file", "long", bytes([100, 1]) + RECORDS + b"more")
write("media_type_file", "short", bytes([88, 1]) + RECORDS[:50])
write("media_type_file", "empty", bytes([88, 1]))

# ---- register_decode: addresses and values.

write("register_decode", "catalogue", b"".join(word(n) + word(0xA5A5A5A5 >> n % 8) for n in range(0, 358, 60)))
write("register_decode", "format7", word(0xF0F08024) + word(0xFFFFFFFF) + word(0xF0F0F07E) + word(7))
write("register_decode", "rate_and_coefficient", word(0xF0F00600) + word(0xE0000000) + word(0xF10003A4) + word(1 << 31))
write("register_decode", "unknown", word(0x12345678) + word(0x05000FFF))

# ---- driver_answers: the filter, then calls: method, arguments, answers.

METHODS = 118
DIRECT, FEATURES, INFORMATION, MEDIA_TYPES, MEMORY = 0, 48, 95, 108, 111  # first numbers of the lists of methods

S_OK, FAILURE, S_FALSE = 0, 5, 6
WHOLE, SHORTENED, ONE_WORD, SECOND_WORD, PAYLOAD = 8, 16, 24, 32, 40


def number(value):
    return bytes([value]) if value < 248 else bytes([251]) + word(value)


def register(value):
    """An answer that carries a register's value."""
    return bytes([SECOND_WORD | S_OK]) + number(value)


def failure(code):
    return bytes([FAILURE]) + word(code)


DONE = bytes([S_OK])
ENABLED = register(1 << 26)
FEATURE = bytes([PAYLOAD | S_OK]) + b"".join(word(w) for w in (20, 0x2, 0x1E, 1, 200, 0, 0, 0, 0, 0))


def driver(name, *calls):
    write("driver_answers", name, b"\0" + b"".join(calls))


def call(method, arguments, *answers):
    assert method < METHODS
    return bytes([method]) + bytes(arguments) + b"".join(answers)


driver("upload_lut", call(MEMORY + 3, [5, 1, 2, 0], register(8), register(0x82000003), register(0x08040014),
                          register(0x8A0F1234), DONE, DONE, ENABLED, DONE, ENABLED, DONE, ENABLED, DONE, DONE))
driver("upload_lut_16_bits", call(MEMORY + 3, [3, 1, 0, 0], register(64), register(0), register(0x0C040100),
                                  failure(0x80070079), DONE, DONE, register(0), DONE, DONE))
driver("upload_without_buffer", call(MEMORY + 3, [3, 1, 0, 0], register(3)))
driver("upload_shading", call(MEMORY + 4, [4, 1, 0], register(8), register(0x03000100), register(0), DONE, DONE,
                              ENABLED, DONE, ENABLED, DONE))
driver("blocks", call(MEMORY + 1, [16, 3, 7, 8, 1, 1, 0], DONE),
       call(MEMORY + 2, [16, 2, 7, 8, 1, 1, 0], bytes([PAYLOAD]), bytes(range(20))))
driver("blocks_without_a_size", call(MEMORY + 1, [16, 250]) + word(0x40000000) + bytes([0, 8, 1, 1, 0]))
driver("composite_56", call(MEMORY + 6, [5, 63], register(1), failure(0x80004005), register(3), register(7)))
driver("features", call(FEATURES + 16, [9, 3], FEATURE, DONE), call(FEATURES + 14, [9, 100, 1], DONE),
       call(FEATURES + 10, [9, 201], FEATURE), call(FEATURES + 4, [9, 63]))
driver("family", call(FEATURES + 23, [63], FEATURE), call(FEATURES + 24, [50, 1, 0], DONE),
       call(FEATURES + 25, [63], FEATURE))
driver("family_first_answer_is_S_FALSE", call(FEATURES + 25, [63], bytes([ONE_WORD | S_FALSE]), word(0x10)))
driver("switch", call(FEATURES + 18, [1], FEATURE), call(FEATURES + 21, [63], FEATURE))
driver("texts", call(INFORMATION + 1, [9, 63], bytes([ONE_WORD | S_OK]), word(0x41424344), bytes([ONE_WORD | S_OK]),
                     word(0x0312)))
driver("texts_without_memory", call(INFORMATION + 1, [4, 63], DONE, bytes([ONE_WORD | S_OK]), word(0xFFFF)))
driver("pages", call(INFORMATION + 4, [9, 0], FEATURE), call(INFORMATION + 4, [0, 0]))
driver("trigger", call(INFORMATION + 6, [0], bytes([ONE_WORD | S_OK]), word(0x400300E0)))
TYPE = bytes([0]) + bytes(88) + bytes([0, 0, 0])  # Format 7
driver("apply_media_type", call(MEDIA_TYPES + 2, TYPE + bytes([0, 0, 0]), FEATURE, DONE, DONE))
driver("positions", call(MEDIA_TYPES, TYPE + bytes([63]), bytes([ONE_WORD]), word(12)),
       call(MEDIA_TYPES + 1, TYPE + bytes([12, 12]), DONE), call(MEDIA_TYPES + 1, TYPE + bytes([1, 2]), register(2)))
driver("direct", call(DIRECT, [0, 0, 0, 63], bytes([PAYLOAD]), bytes(range(40))),
       call(DIRECT + 22, [0, 0, 0, 63], bytes([ONE_WORD]), word(0x40003082)))
write("driver_answers", "no_handle", bytes([252]))
write("driver_answers", "no_object", bytes([254]) + word(0x80004002))

"""Sets the times in a compiled help file to nothing, so that the same pages give the same file whenever it is made.

usage: same_time.py FILE

Source of the format: "Microsoft's HTML Help (.chm) format", Matthew T. Russotto; "#SYSTEM", Pabs' CHM documentation.
The compiler writes the milliseconds of the day in two places: the header, and the record 10 of the file "/#SYSTEM".
"""

import struct
import sys

_HEADER_TIME = 0x10
_SECTIONS = 0x38  # of the header: offset and length of section 0 and of the directory, then the offset of the contents
_TIME_RECORD = 10


class UnknownForm(Exception):
    """The file is not what the compiler is known to write."""


def _encoded_number(data, offset):
    """A number of seven bits a byte, the highest first; returns it and the offset behind it."""
    number = 0
    while True:
        byte = data[offset]
        offset += 1
        number = number << 7 | byte & 0x7F
        if byte < 0x80:
            return number, offset


def _entries(data):
    """The files of the directory: name, section, offset and length."""
    start = struct.unpack_from("<Q", data, _SECTIONS + 0x10)[0]
    size = struct.unpack_from("<I", data, start + 0x10)[0]
    count = struct.unpack_from("<I", data, start + 0x2C)[0]
    first = start + struct.unpack_from("<I", data, start + 0x08)[0]
    for chunk in range(first, first + size * count, size):
        if data[chunk : chunk + 4] != b"PMGL":  # the others are an index of these
            continue
        place, end = chunk + 0x14, chunk + size - struct.unpack_from("<I", data, chunk + 4)[0]
        while place < end:
            length, place = _encoded_number(data, place)
            name = bytes(data[place : place + length]).decode("utf-8")
            section, place = _encoded_number(data, place + length)
            offset, place = _encoded_number(data, place)
            length, place = _encoded_number(data, place)
            yield name, section, offset, length


def _system_records(data):
    """The records of "/#SYSTEM", which is not compressed: code, offset in the file, length."""
    contents = struct.unpack_from("<Q", data, _SECTIONS + 0x20)[0]
    for name, section, offset, length in _entries(data):
        if name == "/#SYSTEM" and section == 0:
            place, end = contents + offset + 4, contents + offset + length
            while place < end:
                code, size = struct.unpack_from("<HH", data, place)
                yield code, place + 4, size
                place += 4 + size


def without_times(data):
    """The same file without its times."""
    data = bytearray(data)
    if data[:8] != b"ITSF\3\0\0\0":
        raise UnknownForm("no compiled help file of version 3")
    times = [offset for code, offset, size in _system_records(data) if code == _TIME_RECORD and size == 4]
    if len(times) != 1:
        raise UnknownForm(f"{len(times)} times in /#SYSTEM, not one")
    for offset in (_HEADER_TIME, *times):
        data[offset : offset + 4] = bytes(4)
    return bytes(data)


def _main():
    path = sys.argv[1]
    with open(path, "rb") as file:
        data = file.read()
    try:
        data = without_times(data)
    except (UnknownForm, struct.error, IndexError) as error:
        sys.exit(f"error: {path}: {error}")
    with open(path, "wb") as file:
        file.write(data)


if __name__ == "__main__":
    _main()

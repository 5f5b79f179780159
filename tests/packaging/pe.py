"""Reads Windows programs and libraries. Source: "PE Format", Windows documentation."""

import struct

HIGH_ENTROPY = 0x0020
DYNAMIC_BASE = 0x0040
NO_EXECUTION_OF_DATA = 0x0100

# Types of resources.
ICON_GROUP = 14
VERSION = 16
MANIFEST = 24

_RESOURCES, _RELOCATIONS = 2, 5  # data directories
_SUBFOLDER = 0x80000000


class Image:
    """A 64-bit program or library."""

    def __init__(self, path):
        self.bytes = path.read_bytes()
        self._header = self._number("I", 0x3C) + 4
        if self.bytes[self._header - 4 : self._header] != b"PE\0\0" or self._number("H", self._header + 20) != 0x20B:
            raise AssertionError(f"{path}: no 64-bit program")
        self.characteristics = self._number("H", self._header + 20 + 70)

    def _number(self, kind, offset):
        return struct.unpack_from("<" + kind, self.bytes, offset)[0]

    def _directory(self, index):
        """A data directory's address in memory, and its size."""
        return struct.unpack_from("<II", self.bytes, self._header + 20 + 112 + 8 * index)

    def has_relocations(self):
        """Without relocations the program cannot be moved, whatever its characteristics say."""
        return self._directory(_RELOCATIONS)[1] > 0

    def _offset(self, address):
        """The file offset for an address in memory."""
        first = self._header + 20 + self._number("H", self._header + 16)
        for section in range(first, first + 40 * self._number("H", self._header + 2), 40):
            size, start, _, data = struct.unpack_from("<IIII", self.bytes, section + 8)
            if start <= address < start + size:
                return data + address - start
        raise AssertionError(f"nothing at address {address:#x}")

    def _entries(self, folder):
        named, numbered = struct.unpack_from("<HH", self.bytes, folder + 12)
        for entry in range(folder + 16, folder + 16 + 8 * (named + numbered), 8):
            yield struct.unpack_from("<II", self.bytes, entry)

    def resources(self, kind):
        """The resources of a type: their bytes by their numbers; None is the key for named ones."""
        address, size = self._directory(_RESOURCES)
        if not size:
            return {}
        top = self._offset(address)
        found = {}
        for number, below in self._entries(top):
            if number != kind:
                continue
            for name, languages in self._entries(top + (below & ~_SUBFOLDER)):
                _, data = next(self._entries(top + (languages & ~_SUBFOLDER)))
                start, length = struct.unpack_from("<II", self.bytes, top + data)
                key = None if name & _SUBFOLDER else name
                found[key] = self.bytes[self._offset(start) : self._offset(start) + length]
        return found

"""The operations that are disturbed: moves to another volume, renames, saving a small file."""

import os
import stat

import place as places
from cases import RACES
from place import Place

_OLD = b"[List]\nSubFolder=0\n"
_NEW = "[List]\nSubFolder=1\n"
_TIME = 1_600_000_000
_MODE = 0o640

_NO_CALL = "renameat2:error=EINVAL"  # as on file systems that do not support it
_NO_LINKS = "link:error=EPERM"


class Scene:
    """`source` and `target` are the file's names before and after."""

    races = RACES
    across = False  # whether the target is on another volume
    kind = "file"

    def __init__(self, name, always=()):
        self.name = name
        self.always = always
        self.placeholder = _NO_LINKS in always

    def why_not(self):
        """The reason why this is not possible here; None if it is."""
        return places.another_volume() if self.across else None

    def place(self):
        place = Place(self.across)
        place.source, place.target = self._paths(place)
        place.content = self._fill(place)
        return place

    def is_source(self, call):
        """True when the call refers to the source by its name."""
        return f'/{self.source_name}"' in call.arguments


class Move(Scene):
    """Moves a file, or a link, to another volume."""

    across = True
    source_name = "song.bin"

    def __init__(self, name, always=(), kind="file"):
        super().__init__(name, always)
        self.kind = kind
        if kind == "link":
            self.races = ("replace", "delete", "rival", "occupy")
        if kind == "large":
            self.races = ()

    def command(self, programs, place):
        words = ["move", "--all", "--json", "--apply", "--to", str(place.there), str(place.source)]
        return [str(programs / "quillon-cli"), *words]

    def _paths(self, place):
        return place.here / self.source_name, place.there / self.source_name

    def _fill(self, place):
        source = place.source
        if self.kind == "link":
            source.symlink_to(place.here / "elsewhere")
            (place.here / "elsewhere").write_bytes(b"behind")
            return os.fsencode(place.here / "elsewhere")
        # A large file is also flushed during the copying.
        data = bytes(range(1, 251)) * (70_000 if self.kind == "large" else 5000)
        content = data + bytes(300_000) + b"end" if self.kind == "sparse" else data
        with open(source, "wb") as file:
            file.write(data)
            if self.kind == "sparse":
                file.seek(300_000, os.SEEK_CUR)
                file.write(b"end")
        source.chmod(_MODE)
        places.set_attribute(source, places.COMMENT, b"hello")
        if self.kind == "listed":
            places.set_attribute(source, places.ACCESS_LIST, places.GROUP_DENIED)
        place.comment = places.attribute(source, places.COMMENT)
        place.listed = places.attribute(source, places.ACCESS_LIST)
        os.utime(source, (_TIME, _TIME))
        return content


class Rename(Scene):
    """Renames a song to its title, in its folder."""

    source_name = "song.mid"
    target_name = "Title.mid"

    def command(self, programs, place):
        words = ["rename", "--to-title", "--json", "--apply", str(place.source)]
        return [str(programs / "quillon-cli"), *words]

    def _paths(self, place):
        return place.here / self.source_name, place.here / self.target_name

    def _fill(self, place):
        track = b"\x00\xff\x03\x05Title\x00\x90\x3c\x40\x60\x80\x3c\x40\x00\xff\x2f\x00"
        content = b"MThd\0\0\0\x06\0\0\0\x01\0\x60MTrk" + len(track).to_bytes(4, "big") + track
        place.source.write_bytes(content)
        os.utime(place.source, (_TIME, _TIME))
        return content


class Save(Scene):
    """Saves the settings: replaces the content of a small file."""

    source_name = "quillon.ini"
    races = ()

    def command(self, programs, place):
        return [str(programs / "quillon_whole_file"), "replace", str(place.source), _NEW]

    def _paths(self, place):
        return place.here / self.source_name, place.here / self.source_name

    def _fill(self, place):
        place.source.write_bytes(_OLD)
        place.source.chmod(0o600)
        place.new_content = _NEW.encode()
        return _OLD


def all_scenes():
    return [
        Move("copy"),
        Move("copy-by-link", [_NO_CALL]),
        Move("copy-over-placeholder", [_NO_CALL, _NO_LINKS]),
        Move("copy-listed", kind="listed"),
        Move("copy-sparse", kind="sparse"),
        Move("copy-large", kind="large"),
        Move("copy-of-link", kind="link"),
        Rename("rename"),
        Rename("rename-by-link", [_NO_CALL]),
        Rename("rename-over-placeholder", [_NO_CALL, _NO_LINKS]),
        Save("settings"),
    ]


def content_of(path):
    """A file's bytes, or a link's target; None if nothing exists at the path."""
    try:
        if stat.S_ISLNK(os.lstat(path).st_mode):
            return os.fsencode(os.readlink(path))
        return path.read_bytes()
    except FileNotFoundError:
        return None

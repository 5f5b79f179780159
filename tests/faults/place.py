"""The folders of a run, and their content afterwards."""

import json
import os
import pathlib
import shutil
import struct
import subprocess
import tempfile
import time

MEMORY = pathlib.Path("/dev/shm")
PREFIX = ".quillon-"
MARK = ".mark"
_TWO_DAYS = 2 * 24 * 60 * 60


class Place:
    """Two folders (the second one on another volume if `across`) and a private home, deleted at the end of the block."""

    def __init__(self, across):
        self.top = pathlib.Path(tempfile.mkdtemp(prefix="quillon-faults-"))
        self.here = self.top / "here"
        self.extra = self.top / "extra"
        for folder in (self.here, self.extra, self.top / "home"):
            folder.mkdir()
        self._far = pathlib.Path(tempfile.mkdtemp(prefix="quillon-faults-", dir=MEMORY)) if across else None
        self.there = self._far or self.here

    def __enter__(self):
        return self

    def __exit__(self, *_):
        shutil.rmtree(self.top, ignore_errors=True)
        if self._far:
            shutil.rmtree(self._far, ignore_errors=True)

    def environment(self):
        return {"HOME": str(self.top / "home"), "PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8"}

    def names(self):
        """The paths of everything in the two folders."""
        return sorted(path for folder in {self.here, self.there} for path in folder.iterdir())

    def temporary(self):
        return [path for path in self.names() if path.name.startswith(PREFIX)]

    def sweep(self, program):
        """Simulates a move two days later: makes the marks older, and moves another file into each folder."""
        for path in self.temporary():
            if path.name.endswith(MARK):
                old = time.time() - _TWO_DAYS
                os.utime(path, (old, old))
        for number, folder in enumerate({path.parent for path in self.temporary()}):
            other = self.extra / f"other-{number}.txt"
            other.write_bytes(b"other")
            words = [program, "move", "--all", "--apply", "--to", str(folder), str(other)]
            subprocess.run(words, env=self.environment(), capture_output=True, check=True)
            (folder / other.name).unlink()


def another_volume():
    """The reason why there is no second volume; None if there is one."""
    try:
        apart = os.stat(MEMORY).st_dev != os.stat(tempfile.gettempdir()).st_dev
    except OSError as failure:
        return f"{MEMORY}: {failure.strerror}"
    if not os.access(MEMORY, os.W_OK):
        return f"{MEMORY} cannot be written"
    return None if apart else f"{MEMORY} is on the volume of the temporary files"


def told(output):
    """The program's final report on its file: (moved or renamed, failure code, where the file was left, not kept)."""
    done, code, left_at, not_kept = False, None, None, []
    for line in output.splitlines():
        if not line.startswith("{"):
            continue
        fields = json.loads(line)
        done = done or ("new" in fields and "code" not in fields)
        code = fields.get("code", code)
        left_at = fields.get("file_at", left_at)
        not_kept = fields.get("not_kept", not_kept)
    return done, code, left_at, not_kept


def access_list(*entries):
    """An access list's bytes. Entries are (tag, rights, number)."""
    return struct.pack("<I", 2) + b"".join(struct.pack("<HHI", *entry) for entry in entries)


_NOBODY = 0xFFFFFFFF
# The owner may write, user 12 may write, the owning group may do nothing: the mode is 0660 nevertheless.
GROUP_DENIED = access_list((1, 6, _NOBODY), (2, 6, 12), (4, 0, _NOBODY), (16, 6, _NOBODY), (32, 0, _NOBODY))
ACCESS_LIST = "system.posix_acl_access"
COMMENT = "user.comment"


def attribute(path, name):
    try:
        return os.getxattr(path, name, follow_symlinks=False)
    except OSError:
        return None


def set_attribute(path, name, value):
    """Returns False where the volume does not support such attributes."""
    try:
        os.setxattr(path, name, value)
    except OSError:
        return False
    return True

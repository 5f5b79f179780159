"""What the packages have to say of the program: read where it is kept, and nowhere else."""

import os
import pathlib
import re

SOURCE = pathlib.Path(__file__).resolve().parent.parent.parent


def _value(file, pattern):
    found = re.search(pattern, (SOURCE / file).read_text(encoding="utf-8"))
    if not found:
        raise AssertionError(f"{file}: no {pattern}")
    return found.group(1)


def setting(name):
    return _value("cmake/Product.cmake", rf'set\({name} "([^"]*)"\)')


def version():
    return _value("CMakeLists.txt", r"project\(Quillon VERSION ([\d.]+)")


def cache_folder():
    """Where the scripts keep what is made once."""
    return pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache") / "quillon"

"""The product data that the packages must contain, read from its only source."""

import datetime
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


def debian_version():
    return _value("debian/changelog", r"\Aquillon \(([^)]+)\)")


def epoch():
    """The time of the version in seconds, as the packages' files have it."""
    day = datetime.datetime.strptime(setting("QUILLON_DATE"), "%Y-%m-%d")
    return str(int(day.replace(tzinfo=datetime.timezone.utc).timestamp()))


def changes():
    """The items of each version in the changelog, without the marks of code."""
    found = {}
    for section in re.split(r"(?m)^## ", (SOURCE / "CHANGELOG.md").read_text(encoding="utf-8"))[1:]:
        items = re.split(r"(?m)^- ", section)
        found[items[0].split()[0]] = [" ".join(item.split()).replace("`", "") for item in items[1:]]
    return found


def cache_folder():
    """The scripts' cache folder."""
    return pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache") / "quillon"

"""The invariants that must hold after every run, whatever happened in it."""

import os
import pathlib
import re
import signal
import stat

import place as places
from scenes import Save, content_of

_MORE = b"and more"
_RIVAL = b"a rival's"


def act(what, place):
    """Acts as another program. Returns the action, which decides the expected state; None if it was not possible."""
    source, target = place.source, place.target
    try:
        if what == "append":
            # Non-blocking, because writers must wait while the program checks its source for the last time and deletes
            # it.
            with open(os.open(source, os.O_WRONLY | os.O_APPEND | os.O_NONBLOCK), "ab") as file:
                file.write(_MORE)
        elif what == "delete":
            source.unlink()
        elif what == "rival":
            with open(target, "xb") as file:
                file.write(_RIVAL)
        elif what in ("replace", "occupy"):
            other = place.extra / "rival"
            goal = source if what == "replace" else target
            if content_of(goal) is None:
                return None
            # By one rename, as programs do that never leave an incomplete file.
            beside = goal.parent / "rival"
            other.write_bytes(_RIVAL)
            beside.write_bytes(_RIVAL)
            beside.replace(goal)
        return what
    except (FileNotFoundError, FileExistsError, BlockingIOError):
        return None


def broken(scene, case, place, ending, done_by_others, programs):
    """Descriptions of all broken invariants; empty when there are none."""
    if ending.timed_out:
        return ["it did not end"]
    if not ending.happened:
        return ["the call was not reached"]
    # Ctrl-C ends the program until it starts to move.
    if ending.status < 0 and case.kind != "kill" and (case.kind, ending.status) != ("interrupt", -signal.SIGINT):
        return [f"it was ended by signal {-ending.status}"]
    if isinstance(scene, Save):
        found = _save(case, place, ending)
    else:
        found = [*_move(scene, case, place, ending, done_by_others)]
    if ending.status == 0 and _is_lost(case):
        found.append("what did not reach the disk was told as a success")
    return found or _after_the_sweep(place, ending, done_by_others, programs)


def _is_lost(case):
    """True when something was not flushed, except a folder on a volume that cannot flush folders."""
    is_folder = not re.search(r"^\d+<[^>]*/\.quillon-", case.call.arguments)
    spared = is_folder and case.what in ("EINVAL", "EOPNOTSUPP")
    return case.kind in ("fault", "lasting") and case.call.name == "fsync" and not spared


def _save(case, place, ending):
    content = content_of(place.source)
    found = []
    if content not in (place.content, place.new_content):
        found.append(f"the settings are neither old nor new: {content!r}")
    if ending.status == 0 and content != place.new_content:
        found.append("it told a success, and the settings are old")
    if stat.S_IMODE(place.source.stat().st_mode) != 0o600:
        found.append("the permissions have changed")
    return found


def _wanted(place, done_by_others):
    """The contents that must all exist afterwards; empty when another program has removed the file."""
    if done_by_others == "append":
        return [place.content + _MORE]
    if done_by_others == "rival":
        return [place.content, _RIVAL]
    if done_by_others == "replace":
        return [_RIVAL]
    if done_by_others in ("delete", "occupy"):
        return []
    return [place.content]


def _move(scene, case, place, ending, done_by_others):
    whole = (place.content, place.content + _MORE, _RIVAL)
    contents = {path: content_of(path) for path in place.names()}
    final = {path: content for path, content in contents.items() if not path.name.startswith(places.PREFIX)}
    for path, content in final.items():
        known = content in whole or path.name == "elsewhere"
        # Without hard links an empty file reserves the new name, and a kill can leave it there.
        excepted = scene.placeholder and path == place.target and content == b"" and case.kind in ("kill", "lasting")
        if not known and not excepted:
            yield f"{path.name} is torn: {len(content)} bytes"
    done, code, left_at, not_kept = places.told(ending.output)
    left = pathlib.Path(left_at) if left_at else None
    kept = [*final.values(), contents.get(left)]
    if case.kind == "kill":
        kept = list(final.values())
    for content in _wanted(place, done_by_others):
        kept_out = case.last_look and done_by_others != "append"
        if content not in kept and not kept_out:
            yield "the content is gone" if content != _RIVAL else "somebody else's file is gone"
    if case.kind == "kill":
        yield from _private(place)
        return
    yield from _as_told(scene, case, place, done, code, left, not_kept, done_by_others)


def _as_told(scene, case, place, done, code, left, not_kept, done_by_others):
    source, target = content_of(place.source), content_of(place.target)
    if case.kind == "lasting":  # printing the failure may have failed, too
        return
    if done:
        if source is not None and done_by_others not in ("replace", "append") and not _came_back(scene, done_by_others):
            yield "it told a success, and the source is there"
        if target is None:
            yield "it told a success, and the target is not there"
        if not done_by_others and scene.kind != "link":
            yield from _kept(scene, place, not_kept)
    elif case.kind == "interrupt":
        if source != place.content:
            yield "it was interrupted, and the source is not what it was"
        for path in place.there.iterdir():
            yield f"it was interrupted, and {path.name} is left behind"
    elif code is None:
        if source is None and done_by_others != "delete":
            yield "it told nothing"
    elif left is None and done_by_others is None:
        if target is not None:
            yield f"it told failure {code}, and something stands at the new name"
    elif left is not None and content_of(left) is None:
        yield "the file is not where it was told to be"


def _came_back(scene, done_by_others):
    # A rename frees the old name, which another program may then take.
    return done_by_others is not None and scene.across is False


def _private(place):
    for path in place.temporary():
        if not path.is_symlink() and place.source.exists():
            more = path.stat().st_mode & ~place.source.stat().st_mode & 0o666
            if more:
                yield f"{path.name} may be used by others: {more:o}"


def _kept(scene, place, not_kept):
    status = os.lstat(place.target)
    if status.st_mtime != 1_600_000_000 and "times" not in not_kept:
        yield "the time is another one, untold"
    if not scene.across:
        return
    comment = places.attribute(place.target, places.COMMENT)
    if place.comment and comment != place.comment and "attributes" not in not_kept:
        yield "the attribute is not there, untold"
    listed = places.attribute(place.target, places.ACCESS_LIST)
    if place.listed and listed != place.listed and "access_rights" not in not_kept:
        yield "the access list is not there, untold"
    allowed = 0o640 if not place.listed else 0o600
    if listed != place.listed or not place.listed:
        more = stat.S_IMODE(status.st_mode) & ~allowed
        if more:
            yield f"others may use the target: {more:o}"
    if stat.S_IMODE(status.st_mode) & 0o600 != 0o600:
        yield "the owner may not use the target"


def _after_the_sweep(place, ending, done_by_others, programs):
    """Left-over files must be recognised and deleted two days later, unless they were reported."""
    if not place.temporary():
        return []
    left_at = places.told(ending.output)[2]
    before = [content_of(path) for path in place.names()]
    place.sweep(str(programs / "quillon-cli"))
    found = []
    for path in place.temporary():
        if str(path) != left_at:
            found.append(f"{path.name} stays for good, untold")
    for content in _wanted(place, done_by_others):
        if content in before and content not in [content_of(path) for path in place.names()]:
            found.append("the content went with what was left over")
    return found

"""The events at a system call: each error it can return, a short result, a kill, Ctrl-C, another program's change."""

import dataclasses

from tracing import Call

_COMMON = ["EIO", "ENOMEM"]
_LOOK = [*_COMMON, "EACCES", "ESTALE"]
_NAME = [*_COMMON, "EACCES", "EPERM", "EROFS", "ENOSPC", "EDQUOT", "ENOENT", "ESTALE", "EINTR"]
_ATTRIBUTE = [*_COMMON, "EACCES", "EPERM", "EROFS", "ENOSPC", "EDQUOT", "EINTR"]

_ERRORS = {
    "newfstatat": _LOOK,
    "fstat": _LOOK,
    "stat": _LOOK,
    "lstat": _LOOK,
    "statx": _LOOK,
    "access": ["EACCES", "EROFS", "EIO"],
    "faccessat2": ["EACCES", "EROFS", "EIO"],
    "readlink": _LOOK,
    "readlinkat": _LOOK,
    "renameat2": [*_NAME, "EEXIST", "EXDEV", "EINVAL", "ENOSYS", "EBUSY", "EMLINK"],
    "rename": [*_NAME, "EXDEV", "EBUSY", "EISDIR", "EINVAL"],
    "link": [*_NAME, "EEXIST", "EXDEV", "EMLINK", "ENOSYS", "EOPNOTSUPP"],
    "linkat": [*_NAME, "EEXIST", "EXDEV", "EMLINK", "ENOSYS", "EOPNOTSUPP"],
    "symlink": [*_NAME, "EEXIST"],
    "unlink": [*_NAME, "EBUSY"],
    "mkdir": [*_NAME, "EEXIST"],
    "read": [*_COMMON, "EINTR", "ESTALE"],
    "pread64": [*_COMMON, "EINTR", "ESTALE"],
    "write": [*_COMMON, "EINTR", "ENOSPC", "EDQUOT", "EFBIG", "EPERM", "ESTALE"],
    "fsync": [*_COMMON, "EINTR", "ENOSPC", "EDQUOT", "EINVAL", "EROFS", "EOPNOTSUPP"],
    "fdatasync": [*_COMMON, "EINTR", "ENOSPC", "EDQUOT", "EINVAL", "EROFS"],
    "close": ["EIO", "EINTR", "ENOSPC", "EDQUOT"],
    "ftruncate": [*_ATTRIBUTE, "EFBIG", "EINVAL"],
    "lseek": ["EINVAL", "EOVERFLOW", "EIO"],
    "fchown": _ATTRIBUTE,
    "lchown": _ATTRIBUTE,
    "fchownat": _ATTRIBUTE,
    "fchmod": [*_ATTRIBUTE, "EOPNOTSUPP"],
    "utimensat": [*_ATTRIBUTE, "ENOSYS", "EINVAL"],
    "flistxattr": [*_COMMON, "EACCES", "ERANGE", "E2BIG"],
    "fgetxattr": [*_COMMON, "EACCES", "ERANGE", "E2BIG"],
    "fsetxattr": [*_ATTRIBUTE, "EOPNOTSUPP", "EINVAL", "E2BIG"],
    "fremovexattr": [*_ATTRIBUTE, "EOPNOTSUPP"],
    "flock": ["EAGAIN", "EINTR", "ENOLCK", "EOPNOTSUPP", "EIO"],
    "getdents64": [*_COMMON, "ENOENT", "EINTR"],
}
_OPEN = [*_COMMON, "EACCES", "EPERM", "EINTR", "EMFILE", "ENFILE", "ENOENT", "ESTALE", "ELOOP"]
_CREATE = [*_OPEN, "ENOSPC", "EDQUOT", "EROFS", "EEXIST", "EINVAL"]
_SHORT = ("read", "pread64", "write")

RACES = ("append", "replace", "delete", "rival", "occupy")


@dataclasses.dataclass(frozen=True)
class Case:
    """One event at one call."""

    scene: str
    call: Call
    kind: str  # fault, lasting, short, kill, interrupt, race
    what: str = ""  # the error's name, or the other program's action
    last_look: bool = False  # the next call deletes the source

    def fault(self):
        """The fault in strace's syntax."""
        at = f"when={self.call.occurrence}"
        return self.call.name + ":" + {
            "fault": f"error={self.what}:{at}",
            "lasting": f"error={self.what}:{at}+",
            "short": f"retval=0:{at}",
            "kill": f"signal=KILL:{at}",
            "interrupt": f"signal=INT:{at}",
            "race": f"signal=STOP:{at}",
        }[self.kind]

    def __str__(self):
        return f"{self.scene}: {self.kind} {self.what} at {self.call} [{self.fault()}]"


def cases(scene, calls):
    """All events at these calls, except at calls that the scene itself makes fail."""
    spoilt = {fault.split(":")[0] for fault in scene.always}
    for call, next_call in zip(calls, [*calls[1:], None]):
        if call.name in spoilt:
            continue
        for error in _errors(call):
            yield Case(scene.name, call, "fault", error)
        yield Case(scene.name, call, "lasting", "EIO")
        if call.name in _SHORT:
            yield Case(scene.name, call, "short")
        yield Case(scene.name, call, "kill")
        if scene.across:
            yield Case(scene.name, call, "interrupt")
        last_look = next_call is not None and next_call.name == "unlink" and scene.is_source(next_call)
        for race in scene.races:
            yield Case(scene.name, call, "race", race, last_look)


def _errors(call):
    if call.name == "openat":
        return _CREATE if "O_CREAT" in call.arguments else _OPEN
    return _ERRORS.get(call.name, [*_COMMON, "EACCES"])

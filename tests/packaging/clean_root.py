"""A minimal Debian (or Ubuntu) system in a folder in memory."""

import os
import pathlib
import platform
import re
import shutil
import subprocess
import tempfile

from commands import run, succeed
from product import cache_folder

_SOURCES = ("debian.sources", "ubuntu.sources")
_USER = "tester"
NAMESPACES = "QUILLON_PACKAGING_NAMESPACES"  # set in a process with a private mount namespace


def _mirror():
    """The machine's package source: its file and its address."""
    for name in _SOURCES:
        file = pathlib.Path("/etc/apt/sources.list.d") / name
        if file.exists():
            return file, re.search(r"^URIs:\s*(\S+)", file.read_text(), re.MULTILINE).group(1)
    file = pathlib.Path("/etc/apt/sources.list")
    return file, re.search(r"^deb\s+(?:\[.*\]\s+)?(\S+)", file.read_text(), re.MULTILINE).group(1)


class CleanRoot:
    """Made from an archive in the cache for each run. Needs a mount namespace that ends with the process."""

    def __init__(self):
        release = platform.freedesktop_os_release()
        self._suite = release["VERSION_CODENAME"]
        self._cache = cache_folder() / "clean-root"
        self._cache.mkdir(parents=True, exist_ok=True)
        (self._cache / "packages" / "partial").mkdir(parents=True, exist_ok=True)
        self._archive = self._cache / f"{release['ID']}-{self._suite}.tar"
        self.path = pathlib.Path(tempfile.mkdtemp(prefix="quillon-root-"))
        self._processes = []
        self._mounted = []
        try:
            self._mount("--types", "tmpfs", "--options", "size=3g,mode=755", "quillon-root", to="")
            self._fill()
        except BaseException:
            self.close()
            raise

    def close(self):
        for process in self._processes:
            process.kill()
            process.wait()
        for place in reversed(self._mounted):
            succeed("umount", "--lazy", place)
        self._mounted = []
        self.path.rmdir()

    def _mount(self, *arguments, to):
        place = self.path / to
        place.mkdir(parents=True, exist_ok=True)
        succeed("mount", *arguments, place)
        self._mounted.append(place)

    def _fill(self):
        if not self._archive.exists():
            self._make_archive()
        succeed("tar", "--extract", "--file", self._archive, "--directory", self.path)
        shutil.copy("/etc/resolv.conf", self.path / "etc/resolv.conf")
        self._mount("--types", "proc", "proc", to="proc")
        self._mount("--rbind", "/dev", to="dev")
        self._mount("--bind", "/tmp/.X11-unix", to="tmp/.X11-unix")
        # Downloads are cached.
        self._mount("--bind", self._cache / "packages", to="var/cache/apt/archives")

    def _make_archive(self):
        sources, address = _mirror()
        succeed("debootstrap", "--variant=minbase", self._suite, self.path, address, seconds=400)
        etc = self.path / "etc"
        (etc / "apt/sources.list").unlink(missing_ok=True)
        folder = etc / "apt" / ("sources.list.d" if sources.suffix == ".sources" else "")
        shutil.copy(sources, folder)
        # Does not sync to disk, since everything is in memory; asks no questions and starts no services.
        (etc / "dpkg/dpkg.cfg.d/unsafe").write_text("force-unsafe-io\n")
        policy = self.path / "usr/sbin/policy-rc.d"
        policy.write_text("#!/bin/sh\nexit 101\n")
        policy.chmod(0o755)
        shutil.copy("/etc/resolv.conf", etc)
        succeed("useradd", "--root", self.path, "--create-home", _USER)
        succeed("chroot", self.path, "apt-get", "update", seconds=120)
        unfinished = self._archive.with_suffix(".unfinished")
        packages = "./var/cache/apt/archives/*.deb"
        succeed("tar", "--create", "--file", unfinished, "--exclude", packages, "--directory", self.path, ".")
        unfinished.rename(self._archive)
        for package in (self.path / "var/cache/apt/archives").glob("*.deb"):
            package.unlink()

    @staticmethod
    def _environment(home):
        return {
            "PATH": "/usr/local/bin:/usr/bin:/usr/sbin:/bin:/sbin",
            "HOME": home,
            "LC_ALL": "C.UTF-8",
            "DEBIAN_FRONTEND": "noninteractive",
        }

    def root_does(self, *command, seconds=60):
        """Runs a program as root; returns its output."""
        return succeed("chroot", self.path, *command, seconds=seconds, env=self._environment("/root"))

    def apt(self, *arguments):
        """Runs apt-get; updates the package lists if they name packages that no longer exist."""
        command = ("chroot", self.path, "apt-get", "--yes", "--no-install-recommends", *arguments)
        status, _ = run(*command, seconds=300, env=self._environment("/root"))
        if status != 0:
            self.root_does("apt-get", "update", seconds=120)
            succeed(*command, seconds=300, env=self._environment("/root"))

    def _as_user(self, *command):
        return ["chroot", f"--userspec={_USER}:{_USER}", str(self.path), *map(str, command)]

    @property
    def home(self):
        return self.path / "home" / _USER

    def user_does(self, *command, seconds=30):
        """Runs a program as an ordinary user; returns its status and output."""
        return run(*self._as_user(*command), seconds=seconds, env=self._environment(f"/home/{_USER}"))

    def user_starts(self, *command):
        """Starts a program as an ordinary user on the display of this process."""
        environment = dict(self._environment(f"/home/{_USER}"), DISPLAY=os.environ["DISPLAY"])
        quiet = {"stdin": subprocess.DEVNULL, "stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
        process = subprocess.Popen(self._as_user(*command), env=environment, **quiet)
        self._processes.append(process)
        return process

    def files(self):
        """Every path of the system, except mounts and the package managers' own records."""
        passing = ("proc", "dev", "tmp", "var/cache/apt", "var/lib/apt", "var/lib/dpkg", "var/log", "run")
        skipped = {self.path / name for name in passing}
        found = set()
        for folder, folders, files in os.walk(self.path):
            here = pathlib.Path(folder)
            folders[:] = [name for name in folders if here / name not in skipped]
            found.update("/" + str((here / name).relative_to(self.path)) for name in [*folders, *files])
        return found

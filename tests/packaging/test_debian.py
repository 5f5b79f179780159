"""The packages for Debian and Ubuntu: metadata, contents, and behaviour on a clean system."""

import gzip
import hashlib
import os
import pathlib
import re
import shutil
import tempfile
import unittest
import xml.etree.ElementTree

import clean_root
import display
import product
import samples
import yaml
from commands import run, succeed
from program import TITLE
from sums import listed
from wait import until

_ICON_SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)
_SHARE = "usr/share"
_PROGRAMS = ("usr/lib/quillon/quillon", "usr/lib/quillon/quillon-cli", "usr/lib/quillon/libbregexp.so")


def expected_files(application):
    """All files that the package installs, except the help pages."""
    icons = [f"{_SHARE}/icons/hicolor/{size}x{size}/apps/quillon.png" for size in _ICON_SIZES]
    manuals = [f"{_SHARE}/man/{page}.1.gz" for page in ("man1/quillon", "man1/quillon-cli")]
    japanese = [name.replace("man/man1", "man/ja/man1") for name in manuals]
    return {
        *_PROGRAMS,
        *icons,
        *manuals,
        *japanese,
        "usr/bin/quillon",
        "usr/bin/quillon-cli",
        "usr/lib/quillon/help",
        f"{_SHARE}/icons/hicolor/scalable/apps/quillon.svg",
        f"{_SHARE}/applications/{application}.desktop",
        f"{_SHARE}/metainfo/{application}.metainfo.xml",
        f"{_SHARE}/lintian/overrides/quillon",
        f"{_SHARE}/bash-completion/completions/quillon-cli",
        f"{_SHARE}/zsh/vendor-completions/_quillon-cli",
        f"{_SHARE}/fish/vendor_completions.d/quillon-cli.fish",
        f"{_SHARE}/doc/quillon/copyright",
        f"{_SHARE}/doc/quillon/changelog.gz",
        f"{_SHARE}/doc/quillon/changelog.Debian.gz",
    }


class Debian(unittest.TestCase):
    packages = None  # the folder of the packages

    @classmethod
    def setUpClass(cls):
        cls.application = product.setting("QUILLON_APPLICATION_ID")
        cls.architecture = succeed("dpkg", "--print-architecture").strip()
        cls.package = cls.packages / f"quillon_{product.debian_version()}_{cls.architecture}.deb"
        cls.source = cls.packages / f"quillon_{product.debian_version()}.dsc"
        cls.tree = pathlib.Path(tempfile.mkdtemp(prefix="quillon-deb-"))
        cls.addClassCleanup(shutil.rmtree, cls.tree)
        succeed("dpkg-deb", "--raw-extract", cls.package, cls.tree)

    def field(self, name):
        return succeed("dpkg-deb", "--field", self.package, name).strip()

    def file(self, name):
        return self.tree / name

    def installed(self):
        """The installed files: paths below the root, without folders."""
        found = set()
        for folder, folders, files in os.walk(self.tree):
            links = [name for name in folders if (pathlib.Path(folder) / name).is_symlink()]
            found.update(str((pathlib.Path(folder) / name).relative_to(self.tree)) for name in [*files, *links])
        return {name for name in found if not name.startswith("DEBIAN/")}

    def test_their_sums_are_listed(self):
        archives = [f"quillon_{product.version()}.orig.tar.xz", f"quillon_{product.debian_version()}.debian.tar.xz"]
        self.assertLessEqual({self.package.name, self.source.name, *archives}, set(listed(self.packages)))

    def test_source_is_the_checkout_without_what_is_built(self):
        with tempfile.TemporaryDirectory() as folder:
            tree = pathlib.Path(folder) / "source"
            succeed("dpkg-source", "--require-strong-checksums", "--no-check", "--extract", self.source, tree)
            for name in ("CMakeLists.txt", "debian/rules", "src/quillon/basSubMain.cpp", "package.sh"):
                self.assertEqual((tree / name).read_bytes(), (product.SOURCE / name).read_bytes(), name)
                self.assertEqual(os.access(tree / name, os.X_OK), os.access(product.SOURCE / name, os.X_OK), name)
            for name in ("build", "dist", ".git"):
                self.assertFalse((tree / name).exists(), name)

    def test_describes_the_program(self):
        self.assertEqual(self.field("Package"), "quillon")
        self.assertEqual(self.field("Version"), product.debian_version())
        self.assertEqual(self.field("Architecture"), self.architecture)
        self.assertEqual(self.field("Homepage"), product.setting("QUILLON_URL"))
        self.assertEqual(self.field("Maintainer"), product.setting("QUILLON_MAINTAINER"))

    def test_depends_on_linked_libraries_and_recommends_the_players_plugins(self):
        depends = re.findall(r"([a-z0-9.+-]+)(?: \([^)]*\))?(?:, |$)", self.field("Depends"))
        for library in ("libc6", "libstdc++6", "libpcre2-8-0", "libutf8proc2", "libtag1v5"):
            self.assertIn(library, depends)
        for library in ("libwxgtk3.2-1", "libgtk-3-0", "libgstreamer1.0-0"):
            self.assertTrue(any(name in (library, library + "t64") for name in depends), (library, depends))
        self.assertTrue(any(re.fullmatch(r"libicu\d+", name) for name in depends), depends)
        recommends = self.field("Recommends")
        plugins = [f"gstreamer1.0-plugins-{sort}" for sort in ("base", "good", "bad")]
        for package in (*plugins, "gstreamer1.0-libav", "gstreamer1.0-x", "timgm6mb-soundfont", "fonts-noto-cjk"):
            self.assertIn(package, re.split(r", | \| ", recommends))

    def test_contains_exactly_the_expected_files(self):
        help_pages = {name for name in self.installed() if name.startswith(f"{_SHARE}/quillon/help/")}
        self.assertEqual(self.installed() - help_pages, expected_files(self.application))
        self.assertIn(f"{_SHARE}/quillon/help/index.html", help_pages)

    def test_links_lead_to_the_program_and_its_help(self):
        for link, target in (("usr/bin/quillon", _PROGRAMS[0]), ("usr/bin/quillon-cli", _PROGRAMS[1])):
            self.assertTrue(self.file(link).is_symlink())
            self.assertEqual(self.file(link).resolve(), self.file(target).resolve())
        self.assertTrue((self.file("usr/lib/quillon/help") / "index.html").is_file())

    def test_files_belong_to_root_and_only_root_writes_them(self):
        for line in succeed("dpkg-deb", "--contents", self.package).splitlines():
            mode, owner = line.split()[:2]
            self.assertEqual(owner, "root/root", line)
            allowed = ("drwxr-xr-x", "-rw-r--r--", "-rwxr-xr-x", "lrwxrwxrwx")
            self.assertIn(mode, allowed, line)

    def test_programs_are_stripped(self):
        for name in _PROGRAMS:
            self.assertNotIn(".symtab", succeed("readelf", "--section-headers", "--wide", self.file(name)), name)

    def test_programs_are_hardened(self):
        for name in _PROGRAMS:
            # Control flow protection is only marked when all linked objects have it, and those of Debian 12's compiler
            # do not. The library only copies data of unknown length, so none of its calls has a checked form.
            options = ["--nocfprotection"] + (["--nofortify"] if name.endswith(".so") else [])
            environment = dict(os.environ, LC_ALL="C.UTF-8")  # it parses the output of other tools
            status, said = run("hardening-check", *options, self.file(name), env=environment)
            self.assertEqual(status, 0, said)

    def test_programs_have_unmarked_hardening(self):
        if self.architecture != "amd64":
            self.skipTest("these are instructions of another processor")
        for name in _PROGRAMS:
            code = succeed("objdump", "--disassemble", "--no-show-raw-insn", self.file(name))
            self.assertGreater(len(re.findall(r"\bendbr64\b", code)), 50, f"{name}: control flow protection")
            if not name.endswith(".so"):  # the library has no stack frame larger than a page
                self.assertRegex(code, r"\borq +\$0x0,\(%rsp\)", f"{name}: stack clash protection")

    def test_its_own_sums_are_right(self):
        sums = self.file("DEBIAN/md5sums")
        succeed("md5sum", "--check", "--strict", sums, cwd=self.tree)
        listed_files = {line.split(maxsplit=1)[1] for line in sums.read_text().splitlines()}
        plain = {name for name in self.installed() if not self.file(name).is_symlink()}
        self.assertEqual(listed_files, plain)

    def test_changelogs_begin_with_its_version(self):
        beginnings = {"changelog.Debian.gz": rf"quillon \({re.escape(product.debian_version())}\) "}
        beginnings["changelog.gz"] = rf"# Changelog\n[^#]*\n## {re.escape(product.version())}\b"
        for name, beginning in beginnings.items():
            text = gzip.decompress(self.file(f"{_SHARE}/doc/quillon/{name}").read_bytes()).decode()
            self.assertRegex(text, r"\A" + beginning, name)

    def test_icons_have_their_sizes(self):
        for size in _ICON_SIZES:
            data = self.file(f"{_SHARE}/icons/hicolor/{size}x{size}/apps/quillon.png").read_bytes()
            self.assertEqual(data[:8], b"\x89PNG\r\n\x1a\n")
            self.assertEqual((int.from_bytes(data[16:20], "big"), int.from_bytes(data[20:24], "big")), (size, size))

    def test_manual_pages_are_set_without_warnings(self):
        pages = sorted(self.file(f"{_SHARE}/man").rglob("*.gz"))
        self.assertEqual(len(pages), 4)
        for page in pages:
            environment = dict(os.environ, LC_ALL="C.UTF-8", MANWIDTH="80")
            command = ["man", "--warnings", "-Tutf8", "--local-file", page]
            said = succeed("sh", "-c", '"$@" 2>&1 >/dev/null', "-", *command, env=environment)
            self.assertEqual(said, "", page)

    def test_desktop_entry_and_metainfo_are_valid(self):
        succeed("desktop-file-validate", self.file(f"{_SHARE}/applications/{self.application}.desktop"))
        metainfo = self.file(f"{_SHARE}/metainfo/{self.application}.metainfo.xml")
        said = succeed("appstreamcli", "validate", "--pedantic", "--no-net", metainfo)
        # AppStream 0.16 does not know the form in which 1.0 wants the developer.
        findings = re.findall(r"(?m)^\s*[EWIP]: \S+ (.*)", said)
        self.assertLessEqual(set(findings), {"unknown-tag developer"}, said)

    def test_metainfo_has_the_notes_of_every_version(self):
        metainfo = xml.etree.ElementTree.parse(self.file(f"{_SHARE}/metainfo/{self.application}.metainfo.xml"))
        releases = {}
        for release in metainfo.iterfind("releases/release"):
            items = release.iterfind("description/ul/li")
            releases[release.get("version")] = ["".join(item.itertext()) for item in items]
        self.assertEqual(releases, product.changes())
        self.assertEqual(metainfo.find("releases/release").get("date"), product.setting("QUILLON_DATE"))

    def test_metainfo_shows_pictures_that_are_there(self):
        metainfo = xml.etree.ElementTree.parse(self.file(f"{_SHARE}/metainfo/{self.application}.metainfo.xml"))
        images = metainfo.findall("screenshots/screenshot/image")
        self.assertGreaterEqual(len(images), 3)
        for image in images:
            picture = product.SOURCE / "resources" / image.text.removeprefix(f"{product.setting('QUILLON_URL')}images/")
            data = picture.read_bytes()
            size = (int.from_bytes(data[16:20], "big"), int.from_bytes(data[20:24], "big"))
            self.assertEqual((int(image.get("width")), int(image.get("height"))), size, picture.name)

    def test_flatpak_manifest_describes_the_source(self):
        file = self.packages / f"manifests/flatpak/{self.application}.yaml"
        manifest = yaml.safe_load(file.read_text(encoding="utf-8"))
        self.assertEqual(manifest["id"], self.application)
        (source,) = manifest["modules"][-1]["sources"]
        archive = self.packages / f"quillon_{product.version()}.orig.tar.xz"
        self.assertEqual(source["url"], f"{product.setting('QUILLON_URL')}files/{archive.name}")
        self.assertEqual(source["sha256"], hashlib.sha256(archive.read_bytes()).hexdigest())

    def test_lintian_has_nothing_to_say(self):
        levels = ("--display-info", "--pedantic", "--fail-on", "error,warning,info,pedantic")
        status, said = run("lintian", "--allow-root", *levels, self.source, self.package, seconds=600)
        self.assertEqual((status, re.findall(r"(?m)^[EWIP]: .*", said)), (0, []), said)
        self.assertNotRegex(said, "unused-override")

    def test_installs_runs_and_is_removed_on_a_clean_system(self):
        if clean_root.NAMESPACES not in os.environ:
            self.skipTest("a clean system needs root, and a machine that lets root mount")
        root = clean_root.CleanRoot()
        self.addCleanup(root.close)
        shutil.copy(self.package, root.path / "root")
        root.apt("satisfy", self.field("Depends"))
        root.apt("install", *self.packages_of_tests())
        self.check_recommended(root)
        before = root.files()
        root.apt("install", f"/root/{self.package.name}")
        self.assertIn("install ok installed", root.root_does("dpkg-query", "-W", "-f=${Status}", "quillon"))
        self.check_command_line(root)
        self.check_window(root)
        self.check_own_tests(root)
        root.root_does("dpkg", "--purge", "quillon")
        self.check_only_settings_are_left(root, before)

    def check_recommended(self, root):
        """Every recommended package, or an alternative, can be installed."""
        simulation = ("apt-get", "--simulate", "--install-recommends", "install", f"/root/{self.package.name}")
        there = set(re.findall(r"^Inst (\S+)", root.root_does(*simulation), re.MULTILINE))
        there.update(root.root_does("dpkg-query", "--show", "--showformat=${Package}\n").split())
        for alternatives in self.field("Recommends").split(", "):
            self.assertTrue(there & set(alternatives.split(" | ")), alternatives)

    def check_command_line(self, root):
        self.assertEqual(root.user_does("quillon-cli", "--version"), (0, product.version() + "\n"))
        samples.fill(root.home / "songs")
        status, said = root.user_does("quillon-cli", "list", "/home/tester/songs")
        self.assertEqual(status, 0, said)
        for title in ("さくら", "Greensleeves", "荒城の月"):
            self.assertIn(title, said)
        # Regular expressions need the library, which lies beside the real program.
        rules = "[Modify]\nFindCtrl=1\n0ReplaceFlag=1\n0ReplaceObject=^(a)b\n0ReplaceRepace=$1-\n"
        (root.home / "rules.ini").write_text(rules)
        (root.home / "names").write_text("abc\n")
        edit = "quillon-cli modify --settings ~/rules.ini < ~/names"
        self.assertEqual(root.user_does("sh", "-c", edit), (0, "a-c\n"))
        shutil.rmtree(root.home / "songs")
        (root.home / "rules.ini").unlink()
        (root.home / "names").unlink()

    def check_window(self, root):
        process = root.user_starts("quillon")
        until(lambda: display.active_title() == TITLE or process.poll() is not None, "the window")
        self.assertIsNone(process.poll(), "the program ended at once")
        # Desktops identify a window's program by its class.
        entry = self.file(f"{_SHARE}/applications/{self.application}.desktop").read_text(encoding="utf-8")
        window = display.visible_windows(TITLE)[0]
        known = re.search("^StartupWMClass=(.*)$", entry, re.MULTILINE).group(1)
        self.assertIn(f'"{known}"', succeed("xprop", "-id", window, "WM_CLASS").split("=")[1])
        self.assertEqual(display.close_window(process), 0)
        self.assertTrue((root.home / ".config/quillon/quillon.ini").is_file(), "no settings of the user")
        self.assertFalse((root.path / "usr/lib/quillon/quillon.ini").exists())

    @staticmethod
    def packages_of_tests():
        """What debian/tests needs beside the package, which is called "@"."""
        control = (product.SOURCE / "debian/tests/control").read_text()
        named = ", ".join(re.findall(r"(?m)^Depends: (.*)$", control)).split(", ")
        return sorted(set(named) - {"@"})

    def check_own_tests(self, root):
        control = (product.SOURCE / "debian/tests/control").read_text()
        tests = " ".join(re.findall(r"(?m)^Tests: (.*)$", control)).split()
        self.assertEqual(sorted(tests), ["command-line", "window"])
        shutil.copytree(product.SOURCE / "debian/tests", root.home / "tests")
        for test in tests:
            status, said = root.user_does(f"/home/tester/tests/{test}", seconds=120)
            self.assertEqual(status, 0, f"{test}: {said}")
        shutil.rmtree(root.home / "tests")

    def check_only_settings_are_left(self, root, before):
        after = root.files()
        self.assertEqual(before - after, set(), "what was there before")
        home = "/home/tester/"
        left = {name for name in after - before if not name.startswith(home)}
        self.assertEqual(left, set(), "left outside the user's folder")
        own = {name for name in after if "quillon" in name.lower()}
        folder = home + ".config/quillon"
        self.assertEqual(own - {f"/root/{self.package.name}"}, {folder, folder + "/quillon.ini"})

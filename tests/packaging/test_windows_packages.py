"""The packages for Windows, under Wine: the installer and the portable archive."""

import hashlib
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import zipfile

import display
import pe
import product
import yaml
from commands import succeed
from program import TITLE
from sums import listed
from wait import until

_PROGRAMS = {"Quillon.exe", "quillon-cli.exe", "BREGEXP.DLL"}
_INSTALLED = _PROGRAMS | {"Quillon.chm", "LICENSE.txt", "LIBRARIES.txt"}
_DESCRIPTIONS = {
    "Quillon.exe": "QUILLON_DESCRIPTION",
    "quillon-cli.exe": "QUILLON_CLI_DESCRIPTION",
    "BREGEXP.DLL": "QUILLON_BREGEXP_DESCRIPTION",
}
_WINDOWS_10 = "{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}"
_UNINSTALLER = "Uninstall.exe"
_SETTINGS = "Quillon.ini"
_KEY = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Quillon"
_RUNNING = 3  # the installer's exit status when the program is running
_SERVER_SECONDS = 120
_WINGET_KEYS = {  # those that the schemas require, beside the version's
    "version": {"PackageIdentifier", "DefaultLocale"},
    "installer": {"PackageIdentifier", "Installers"},
    "defaultLocale": {"PackageIdentifier", "Publisher", "PackageName", "License", "ShortDescription"},
    "locale": {"PackageIdentifier", "PackageLocale"},
}


class WindowsPackages(unittest.TestCase):
    packages = None  # the folder of the packages
    script = None  # the script that runs a program under Wine

    @classmethod
    def setUpClass(cls):
        cls.setup = cls.packages / f"Quillon-{product.version()}-setup.exe"
        cls.archive = cls.packages / f"Quillon-{product.version()}-portable.zip"
        prefix = product.cache_folder() / "wine-packages"
        os.environ["QUILLON_WINEPREFIX"] = str(prefix)
        cls.wine("--server", f"-p{_SERVER_SECONDS}", seconds=120)
        cls.addClassCleanup(cls.wine, "--server", "-k")
        # Asks Wine for the folder of the user's programs, like the installer.
        cls.local = cls.folder_of(r"%LOCALAPPDATA%")
        cls.menu = cls.folder_of(r"%APPDATA%") / "Microsoft/Windows/Start Menu/Programs/Quillon"
        cls.home = cls.local / "Programs/Quillon"
        cls.system = prefix / "drive_c/windows/system32"

    @classmethod
    def wine(cls, *arguments, seconds=60):
        """Runs a program to its end; returns its status and output. No pipe: Wine's services would keep it open."""
        with tempfile.TemporaryFile() as output:
            command = [cls.script, *map(str, arguments)]
            quiet = {"stdin": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
            done = subprocess.run(command, stdout=output, timeout=seconds, check=False, **quiet)
            output.seek(0)
            return done.returncode, output.read().decode("cp932", "replace")

    @classmethod
    def folder_of(cls, variable):
        """The folder in a Windows environment variable, as a path of this system."""
        _, said = cls.wine("cmd", "/c", f"echo {variable}")
        path = said.strip().replace("\\", "/")
        return pathlib.Path(os.environ["QUILLON_WINEPREFIX"]) / ("drive_c" + path.removeprefix("C:"))

    def setUp(self):
        self.running = []
        self.addCleanup(self.leave_nothing)
        self.leave_nothing()

    def leave_nothing(self):
        for process in self.running:
            if process.poll() is None:
                self.wine("taskkill", "/f", "/im", "Quillon.exe")
                process.kill()
            process.wait(15)
        self.running = []
        shutil.rmtree(self.home, ignore_errors=True)
        shutil.rmtree(self.menu, ignore_errors=True)
        self.wine("reg", "delete", _KEY, "/f")

    def start_and_show(self, program):
        process = subprocess.Popen(
            [self.script, str(program)],
            stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
        )
        self.running.append(process)
        until(lambda: display.active_title() == TITLE or process.poll() is not None, "the window")
        self.assertIsNone(process.poll(), "the program ended at once")
        return process

    def close(self, process):
        self.assertEqual(display.close_window(process), 0)

    def names(self):
        return {path.name for path in self.home.iterdir()}

    def install(self, *options):
        return self.wine(self.setup, "/S", *options)[0]

    def uninstall(self):
        """The uninstaller continues as a copy of itself and returns no status."""
        self.wine(self.home / _UNINSTALLER, "/S")

    def entry(self):
        """The data that Windows shows for the installed program; nothing when it is not installed."""
        status, said = self.wine("reg", "query", _KEY)
        found = re.findall(r"^\s+(\w+)\s+REG_\w+\s+(.*?)\s*$", said, re.MULTILINE)
        return dict(found) if status == 0 else {}

    def test_their_sums_are_listed(self):
        self.assertLessEqual({self.setup.name, self.archive.name}, set(listed(self.packages)))

    def programs(self):
        """The programs of the archive: each name and a file, which exists only during the iteration."""
        with tempfile.TemporaryDirectory() as folder, zipfile.ZipFile(self.archive) as archive:
            archive.extractall(folder)
            for program in sorted(_PROGRAMS):
                yield program, pathlib.Path(folder) / self.archive.stem / program

    def test_programs_need_only_what_windows_has(self):
        for program, file in self.programs():
            said = succeed("x86_64-w64-mingw32-objdump", "--private-headers", file)
            libraries = re.findall(r"DLL Name: (\S+)", said)
            self.assertTrue(libraries, program)
            for library in libraries:
                self.assertTrue((self.system / library.lower()).exists(), f"{program} needs {library}")

    def test_programs_are_hardened(self):
        for program, file in self.programs():
            image = pe.Image(file)
            for protection in (pe.DYNAMIC_BASE, pe.HIGH_ENTROPY, pe.NO_EXECUTION_OF_DATA):
                self.assertTrue(image.characteristics & protection, f"{program}: {image.characteristics:#x}")
            self.assertTrue(image.has_relocations(), program)
            self.assertTrue(b"stack smashing detected" in image.bytes, f"{program}: no stack protector")

    def test_programs_have_version_information(self):
        for program, file in self.programs():
            image = pe.Image(file)
            self.assertEqual(len(image.resources(pe.ICON_GROUP)), 1 if program.endswith(".exe") else 0, program)
            version = image.resources(pe.VERSION).get(1, b"").decode("utf-16-le", "replace")
            texts = [product.setting(_DESCRIPTIONS[program] + language) for language in ("_JA", "_EN")]
            for text in (*texts, product.version(), program, product.setting("QUILLON_COPYRIGHT")):
                self.assertTrue(text + "\0" in version, f"{program}: no {text}")

    def test_manifests_claim_windows_10_and_later_alone(self):
        for program, file in self.programs():
            manifests = pe.Image(file).resources(pe.MANIFEST)
            self.assertEqual(list(manifests), [1 if program.endswith(".exe") else 2], program)
            text = next(iter(manifests.values())).decode("utf-8")
            self.assertEqual(re.findall(r'<supportedOS Id="([^"]*)"', text), [_WINDOWS_10], program)
            self.assertRegex(text, r"<longPathAware[^>]*>true<", program)
            self.assertRegex(text, r'<requestedExecutionLevel level="asInvoker"', program)

    def test_archive_contains_the_expected_files_and_texts_for_windows(self):
        with zipfile.ZipFile(self.archive) as archive:
            self.assertIsNone(archive.testzip())
            top = self.archive.stem + "/"
            expected = {top + name for name in _INSTALLED | {"README.txt"}}
            self.assertEqual({name for name in archive.namelist() if name != top}, expected)
            read_me = archive.read(top + "README.txt")
            self.assertTrue(read_me.startswith(b"\xef\xbb\xbf"))
            for name in ("README.txt", "LICENSE.txt", "LIBRARIES.txt"):
                text = archive.read(top + name)
                self.assertEqual(text.count(b"\n"), text.count(b"\r\n"), name)
            self.assertIn(f"Quillon {product.version()}", read_me.decode("utf-8"))
            self.assertIn(product.setting("QUILLON_URL"), read_me.decode("utf-8"))

    def test_programs_do_not_know_where_they_were_built(self):
        folders = [str(folder).encode() for folder in (product.SOURCE, product.cache_folder(), pathlib.Path.home())]
        for program, file in self.programs():
            data = file.read_bytes()
            for folder in folders:
                self.assertNotIn(folder + b"/", data, f"{program} names {folder.decode()}")

    def test_help_is_the_same_whenever_it_is_compiled(self):
        build = product.SOURCE / "build/windows/help"
        helps = []
        with tempfile.TemporaryDirectory() as folder:
            work = pathlib.Path(folder)
            for name in ("one", "two"):  # the compiler writes the time in milliseconds
                target = work / name / "Quillon.chm"
                target.parent.mkdir()
                settings = {
                    "SOURCE": product.SOURCE / "help",
                    "PAGES": build / "pages",
                    "TARGET": target,
                    "WORK": work / "work",
                    "PRODUCT": "Quillon",
                    "CHMCMD": shutil.which("chmcmd") or shutil.which("chmcmd-3.2.2"),
                    "ICONV": shutil.which("iconv"),
                    "PYTHON": sys.executable,
                }
                definitions = [f"-D{key}={value}" for key, value in settings.items()]
                succeed("cmake", *definitions, "-P", product.SOURCE / "help/cmake/Compile.cmake")
                helps.append(target.read_bytes())
        self.assertTrue(helps[0] == helps[1], "two help files of the same pages differ")
        with zipfile.ZipFile(self.archive) as archive:
            self.assertTrue(archive.read(f"{self.archive.stem}/Quillon.chm") == helps[0], "the packed one differs")

    def test_packed_again_later_they_are_the_same(self):
        config = product.SOURCE / "build/windows/CPackConfig.cmake"
        environment = dict(os.environ, SOURCE_DATE_EPOCH=product.epoch(), TZ="UTC", LC_ALL="C.UTF-8")
        with tempfile.TemporaryDirectory() as folder:
            succeed("cpack", "--config", config, "-B", folder, seconds=400, env=environment)
            for package in (self.setup, self.archive):
                again = pathlib.Path(folder) / package.name
                self.assertTrue(again.read_bytes() == package.read_bytes(), f"{package.name} differs")

    def test_winget_manifests_describe_the_installer(self):
        found = {}
        for file in sorted((self.packages / "manifests/winget").iterdir()):
            manifest = yaml.safe_load(file.read_text(encoding="utf-8"))
            found[manifest["ManifestType"]] = manifest
            kind = "" if manifest["ManifestType"] == "version" else ".installer"
            kind = f".locale.{manifest['PackageLocale']}" if "PackageLocale" in manifest else kind
            self.assertEqual(file.name, f"{manifest['PackageIdentifier']}{kind}.yaml")
            self.assertEqual(manifest["PackageVersion"], product.version())
            self.assertEqual(manifest["ManifestVersion"], "1.10.0")
        self.assertEqual(set(found), set(_WINGET_KEYS))
        for kind, keys in _WINGET_KEYS.items():
            self.assertLessEqual(keys, set(found[kind]), kind)
        self.assertEqual(found["version"]["DefaultLocale"], found["defaultLocale"]["PackageLocale"])
        installer = found["installer"]
        self.assertEqual(installer["ProductCode"], _KEY.rsplit("\\", 1)[1])
        running = {"InstallerReturnCode": _RUNNING, "ReturnResponse": "packageInUse"}
        self.assertIn(running, installer["ExpectedReturnCodes"])
        (only,) = installer["Installers"]
        self.assertEqual(only["InstallerUrl"], f"{product.setting('QUILLON_URL')}files/{self.setup.name}")
        self.assertEqual(only["InstallerSha256"], hashlib.sha256(self.setup.read_bytes()).hexdigest())

    def test_scoop_manifest_describes_the_archive(self):
        manifest = json.loads((self.packages / "manifests/scoop/quillon.json").read_text(encoding="utf-8"))
        self.assertLessEqual({"version", "description", "homepage", "license"}, set(manifest))
        self.assertEqual(manifest["version"], product.version())
        only = manifest["architecture"]["64bit"]
        self.assertEqual(only["url"], f"{product.setting('QUILLON_URL')}files/{self.archive.name}")
        self.assertEqual(only["hash"], hashlib.sha256(self.archive.read_bytes()).hexdigest())
        with zipfile.ZipFile(self.archive) as archive:
            for program in (manifest["bin"], manifest["shortcuts"][0][0]):
                self.assertIn(f"{manifest['extract_dir']}/{program}", archive.namelist())
        updated = manifest["autoupdate"]["architecture"]["64bit"]["url"].replace("$version", product.version())
        self.assertEqual(updated, only["url"])
        self.assertEqual(re.search(manifest["checkver"]["regex"], self.archive.name).group(1), product.version())

    def test_runs_from_the_archive_with_its_settings_beside_it(self):
        with tempfile.TemporaryDirectory() as folder, zipfile.ZipFile(self.archive) as archive:
            archive.extractall(folder)
            home = pathlib.Path(folder) / self.archive.stem
            status, said = self.wine(home / "quillon-cli.exe", "--version")
            self.assertEqual((status, said.strip()), (0, product.version()))
            before = {path.name for path in home.iterdir()}
            self.close(self.start_and_show(home / "Quillon.exe"))
            self.assertEqual({path.name for path in home.iterdir()} - before, {_SETTINGS})

    def test_installs_for_the_user(self):
        self.assertEqual(self.install(), 0)
        self.assertEqual(self.names(), _INSTALLED | {_UNINSTALLER})
        self.assertEqual({path.name for path in self.menu.iterdir()}, {"Quillon.lnk", "Quillon ヘルプ.lnk"})
        entry = self.entry()
        self.assertEqual(entry["DisplayName"], "Quillon")
        self.assertEqual(entry["DisplayVersion"], product.version())
        self.assertEqual(entry["URLInfoAbout"], product.setting("QUILLON_URL"))
        self.assertIn("Quillon developers", entry["Publisher"])
        self.assertIn(_UNINSTALLER, entry["UninstallString"])
        kilobytes = sum(path.stat().st_size for path in self.home.iterdir()) / 1024
        self.assertAlmostEqual(int(entry["EstimatedSize"], 16), kilobytes, delta=kilobytes / 20)

    def test_uninstalls_all_but_settings(self):
        self.assertEqual(self.install(), 0)
        self.close(self.start_and_show(self.home / "Quillon.exe"))
        self.assertIn(_SETTINGS, self.names())
        self.uninstall()
        until(lambda: self.names() == {_SETTINGS}, "only the settings left")
        until(lambda: not self.entry(), "no entry left")
        self.assertFalse(self.menu.exists())

    def test_uninstalls_to_nothing_when_there_are_no_settings(self):
        self.assertEqual(self.install(), 0)
        self.uninstall()
        until(lambda: not self.home.exists(), "the folder gone")

    def test_a_newer_version_replaces_an_older_one(self):
        self.assertEqual(self.install(), 0)
        (self.home / _SETTINGS).write_text("[System]\n")
        (self.home / "Quillon.exe").write_bytes(b"an older one")
        # The state left by an older version: another folder and another version number.
        elsewhere = self.home.with_name("Quillon-old")
        self.addCleanup(shutil.rmtree, elsewhere, ignore_errors=True)
        shutil.rmtree(elsewhere, ignore_errors=True)
        self.home.rename(elsewhere)
        windows_path = self.entry()["InstallLocation"] + "-old"
        self.wine("reg", "add", _KEY, "/v", "InstallLocation", "/d", windows_path, "/f")
        self.wine("reg", "add", _KEY, "/v", "DisplayVersion", "/d", "1.00", "/f")
        self.assertEqual(self.install(), 0)
        # The new version must be in the older version's folder.
        self.assertFalse(self.home.exists())
        self.assertEqual({path.name for path in elsewhere.iterdir()}, _INSTALLED | {_UNINSTALLER, _SETTINGS})
        self.assertEqual((elsewhere / _SETTINGS).read_text(), "[System]\n")
        self.assertGreater((elsewhere / "Quillon.exe").stat().st_size, 1_000_000)
        self.assertEqual(self.entry()["DisplayVersion"], product.version())

    def test_installed_elsewhere_it_leaves_the_older_place(self):
        elsewhere = self.system.parent.parent / "Quillon-elsewhere"
        self.addCleanup(shutil.rmtree, elsewhere, ignore_errors=True)
        self.assertEqual(self.install(), 0)
        (self.home / _SETTINGS).write_text("[System]\n")
        self.assertEqual(self.install(r"/D=C:\Quillon-elsewhere"), 0)
        self.assertEqual(self.names(), {_SETTINGS})
        self.assertEqual({path.name for path in elsewhere.iterdir()}, _INSTALLED | {_UNINSTALLER})
        self.assertEqual(self.entry()["InstallLocation"], r"C:\Quillon-elsewhere")

    def test_installer_and_uninstaller_refuse_while_the_program_runs(self):
        self.assertEqual(self.install(), 0)
        process = self.start_and_show(self.home / "Quillon.exe")
        self.assertEqual(self.install(), _RUNNING)
        # With its folder as an argument the uninstaller works without a copy and returns its status.
        place = self.entry()["InstallLocation"]
        self.assertEqual(self.wine(self.home / _UNINSTALLER, "/S", f"_?={place}")[0], _RUNNING)
        self.assertIsNone(process.poll())
        self.close(process)
        self.assertEqual(self.names() - {_SETTINGS}, _INSTALLED | {_UNINSTALLER})
        self.assertEqual(self.entry()["DisplayVersion"], product.version())

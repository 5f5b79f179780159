"""Measures how long programs take from their start to having read the titles and artists of one folder of MP3 files.
Usage: peers.py FOLDER-OF-PROGRAMS. Peers that are not installed are named and left out."""

import os
import shutil
import subprocess
import sys

from report import compared, media_folder, medians, output, row, timed

COUNT = 1000
PYTHON = "/usr/bin/python3"  # the one that has the distribution's packages
programs = sys.argv[1]

MUTAGEN = """
import os, sys
from mutagen.id3 import ID3
for folder, _, names in os.walk(sys.argv[1]):
    for name in names:
        tags = ID3(os.path.join(folder, name))
        print(tags.get("TIT2"), tags.get("TPE1"))
"""


def mutagen(folder):
    found = subprocess.run([PYTHON, "-c", "import mutagen; print(mutagen.version_string)"], capture_output=True, text=True)
    if found.returncode != 0:
        return None
    return f"mutagen {found.stdout.strip()}", [PYTHON, "-c", MUTAGEN, folder]


def exiftool(folder):
    if shutil.which("exiftool") is None:
        return None
    version = output(["exiftool", "-ver"]).strip()
    return f"ExifTool {version}", ["exiftool", "-q", "-json", "-Title", "-Artist", "-r", folder]


def kid3(folder):
    if shutil.which("kid3-cli") is None:
        return None
    package = subprocess.run(["dpkg-query", "-W", "-f", "${Version}", "kid3-cli"], capture_output=True, text=True)
    command = ["kid3-cli"]
    for below in sorted(os.listdir(folder)):
        path = os.path.join(folder, below)
        command += ["-c", f"cd {path}"]
        for number in range(len(os.listdir(path))):
            command += ["-c", "select next" if number else "select first", "-c", "get title", "-c", "get artist"]
    return f"Kid3 {package.stdout.strip()}", command


def main():
    with media_folder(programs, COUNT, "mp3") as folder:
        own = [os.path.join(programs, "quillon-cli"), "list", "--json", "--subfolders", folder]
        for name, peer in (("mutagen", mutagen), ("ExifTool", exiftool), ("Kid3", kid3)):
            found = peer(folder)
            if found is None:
                row(f"{COUNT:,} MP3 files: titles and artists", "", f"{name} is not installed")
                continue
            here, there = medians(lambda: timed(own), lambda command=found[1]: timed(command), repetitions=3)
            compared(f"{COUNT:,} MP3 files: titles and artists", here["elapsed"], there["elapsed"], found[0])


main()

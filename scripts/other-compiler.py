#!/usr/bin/env python3
"""Reads the sources of the Windows program with a second compiler and a second standard library.

other-compiler.py FOLDERS COMPILE_COMMANDS LIBCXX CACHE

clang accepts less than GCC where the language draws a line, and the headers of libc++ (the folder LIBCXX) bring less with
them than those of libstdc++: together they find most of what another compiler, such as MSVC, would refuse. Nothing is
compiled: clang only checks the syntax and the types. Sources that were found clean and have not changed since, headers
included, are skipped; CACHE remembers them. FOLDERS are those of the checkout whose sources are read: "src,tests".
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

TARGET = ["clang++", "--target=x86_64-w64-mingw32", "-std=c++20", "-fsyntax-only"]
WARNINGS = ["-pedantic-errors", "-Wmicrosoft", "-Wgnu", "-Werror"]
# MSVC's longest literal; what stands behind it would be cut off.
LONGEST_LITERAL = 16380
# libc++ has this function since version 20, MSVC since 2017.
CHARCONV = """#include_next <charconv>
#pragma clang system_header
namespace std {
from_chars_result from_chars(const char*, const char*, double&, chars_format = chars_format::general);
}
"""


def library_options(libcxx, work):
    """The options that replace the standard library. GCC's threads are POSIX threads here, libc++'s are the system's."""
    (work / "charconv").write_text(CHARCONV)
    return ["-nostdinc++", "-isystem", str(work), "-isystem", str(libcxx), "-D_LIBCPP_HAS_THREAD_API_WIN32",
            "-D_LIBCPP_REMOVE_TRANSITIVE_INCLUDES"]


def kept_options(command):
    """What decides about the meaning of the source: macros and folders. Returns them and the precompiled header."""
    words = iter(shlex.split(command)[1:])
    kept, header = [], None
    for word in words:
        if word == "-isystem":
            kept += [word, next(words)]
        elif word == "-include":
            header = next(words)
        elif word.startswith(("-D", "-I")) and not word.startswith("-D_FORTIFY_SOURCE"):
            kept.append(word)
    return kept, header


def long_literals(source):
    """The raw literals of a source that MSVC would cut, as messages."""
    text = pathlib.Path(source).read_text(encoding="utf-8")
    for match in re.finditer(r'R"([^()\\ ]*)\((.*?)\)\1"', text, re.DOTALL):
        size = len(match.group(2).encode())
        if size > LONGEST_LITERAL:
            line = text.count("\n", 0, match.start()) + 1
            yield f"{source}:{line}: error: a literal of {size} bytes; MSVC cuts it after {LONGEST_LITERAL}"


def run(command):
    return subprocess.run(command, capture_output=True, text=True, check=False)


def main():
    database, libcxx, cache = (pathlib.Path(argument).resolve() for argument in sys.argv[2:])
    cache.mkdir(parents=True, exist_ok=True)
    root = pathlib.Path(__file__).resolve().parent.parent
    folders = tuple(f"{root / folder}/" for folder in sys.argv[1].split(","))
    sources = {}
    for entry in json.loads(database.read_text()):
        if entry["file"].startswith(folders) and entry["file"].endswith(".cpp"):
            sources.setdefault(entry["file"], entry["command"])
    everything = hashlib.sha256(pathlib.Path(__file__).read_bytes() + str(libcxx).encode())
    for header in sorted(root.glob("src/**/*.h")) + sorted(root.glob("tests/**/*.h")):
        everything.update(header.read_bytes())

    with tempfile.TemporaryDirectory() as folder:
        work = pathlib.Path(folder)
        library = library_options(libcxx, work)
        compiled = {}

        def precompiled(header, options):
            """Reads the header of a GCC precompiled header once for all that use it."""
            if header not in compiled:
                compiled[header] = work / f"{len(compiled)}.pch"
                made = run(TARGET[:-1] + library + options + ["-x", "c++-header", header, "-o", str(compiled[header])])
                if made.returncode:
                    sys.exit(f"{made.stderr}error: clang cannot read {header}")
            return ["-include-pch", str(compiled[header])]

        jobs = []
        for source, command in sources.items():
            options, header = kept_options(command)
            key = everything.copy()
            key.update(" ".join(options).encode() + pathlib.Path(source).read_bytes())
            clean = cache / key.hexdigest()
            if not clean.exists():
                start = precompiled(header, options) if header else []
                jobs.append((source, clean, TARGET + WARNINGS + library + start + options + [source]))

        def check(job):
            source, clean, command = job
            messages = list(long_literals(source))
            read = run(command)
            if read.returncode or messages:
                return "".join(f"{message}\n" for message in messages) + read.stderr
            clean.touch()
            return ""

        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            found = [text for text in pool.map(check, jobs) if text]
    print("".join(found), end="")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()

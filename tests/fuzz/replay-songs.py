#!/usr/bin/python3 -B
"""Runs TagsFuzzer over real files: replay-songs.py TAGSFUZZER FOLDER...

Every file of the folders is read as every type that the fuzzer knows, so a file with a wrong extension is tried, too.
"""

import pathlib
import subprocess
import sys
import tempfile

_TYPES = 21  # of TagsFuzzer.cpp: an input's first byte chooses one
_LARGEST = 1 << 20  # bytes: what the fuzzer takes of an input


def main():
    program, *folders = sys.argv[1:]
    with tempfile.TemporaryDirectory(prefix="quillon-songs-") as name:
        inputs = pathlib.Path(name)
        count = 0
        for folder in folders:
            for path in sorted(path for path in pathlib.Path(folder).rglob("*") if path.is_file()):
                content = path.read_bytes()[:_LARGEST]
                for kind in range(_TYPES):
                    (inputs / f"{count}-{kind}").write_bytes(bytes([kind]) + content)
                count += 1
        print(f"{count} files, each as {_TYPES} types", flush=True)
        command = [program, "-runs=0", f"-max_len={_LARGEST + 1}", "-timeout=20", "-rss_limit_mb=2048", name]
        return subprocess.run(command, check=False).returncode


if __name__ == "__main__":
    sys.exit(main())

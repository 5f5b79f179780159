"""Prints how much of the source the tests run: coverage.py BUILD PROFILES [WORD...].

BUILD is made by the preset linux-coverage, PROFILES is the folder of what its programs have written. A line for each
folder of src, or for each file whose path contains one of the words: lines and branches that were run. Then the lines
that change or remove a file and were never run.
"""

import collections
import pathlib
import re
import subprocess
import sys

_ROOT = pathlib.Path(__file__).resolve().parent.parent
_CHANGES = re.compile(
    r"(::(renameat2?|rename|linkat|link|unlinkat|unlink|pwrite|write|ftruncate|fallocate|copy_file_range|fchmod|fchown|"
    r"futimens|fsetxattr|mkdir|rmdir)|g_file_(trash|delete|move)|[.>](Rename|Move|Remove|Recycle|Save|Publish))\(")


class Count:
    def __init__(self):
        self.lines = {}
        self.branches = {}

    def rates(self):
        def share(values):
            return (sum(1 for value in values if value), len(values))
        return share(self.lines.values()), share(self.branches.values())


def tool(name):
    for version in ("", "-14", "-15", "-16", "-17", "-18", "-19"):
        found = subprocess.run(["which", name + version], capture_output=True, text=True, check=False).stdout.strip()
        if found:
            return found
    sys.exit(f"error: {name} is missing: install llvm")


def read_report(text):
    """The counts of each file below src, from lcov's format."""
    files = collections.defaultdict(Count)
    current = None
    for line in text.splitlines():
        kind, _, rest = line.partition(":")
        if kind == "SF":
            path = pathlib.Path(rest).resolve()
            below = path.is_relative_to(_ROOT / "src")
            current = files[str(path.relative_to(_ROOT))] if below else None
        elif current is None:
            continue
        elif kind == "DA":
            number, count = rest.split(",")[:2]
            current.lines[int(number)] = current.lines.get(int(number), 0) + int(count)
        elif kind == "BRDA":
            number, block, branch, count = rest.split(",")
            key = (int(number), block, branch)
            current.branches[key] = current.branches.get(key, 0) + (0 if count == "-" else int(count))
    return files


def percent(covered, count):
    return 100.0 * covered / count if count else 100.0


def print_table(rows):
    print(f"{'':44} {'lines':>15} {'':>7} {'branches':>15}")
    for name, ((lines, all_lines), (branches, all_branches)) in rows:
        print(f"{name:44} {lines:7} /{all_lines:6} {percent(lines, all_lines):6.1f} % {branches:6} /{all_branches:6} "
              f"{percent(branches, all_branches):6.1f} %")


def add(one, other):
    return tuple(tuple(a + b for a, b in zip(x, y)) for x, y in zip(one, other))


def main():
    build, profiles, *words = sys.argv[1:]
    build = pathlib.Path(build)
    merged = pathlib.Path(profiles) / "all.profdata"
    raw = sorted(str(path) for path in pathlib.Path(profiles).glob("*.profraw"))
    listed = pathlib.Path(profiles) / "profiles.txt"
    listed.write_text("\n".join(raw), encoding="utf-8")
    subprocess.run([tool("llvm-profdata"), "merge", "-sparse", "-failure-mode=all", f"-input-files={listed}", "-o", merged], check=True)
    programs = sorted(build.glob("bin/quillon_*_tests")) + [build / "bin/quillon-cli"]
    objects = [argument for program in programs[1:] for argument in ("-object", str(program))]
    report = subprocess.run([tool("llvm-cov"), "export", "-format=lcov", f"-instr-profile={merged}", programs[0], *objects],
                            check=True, capture_output=True, text=True).stdout
    files = read_report(report)
    groups = collections.defaultdict(lambda: ((0, 0), (0, 0)))
    for path, count in sorted(files.items()):
        if words:
            if any(word in path for word in words):
                groups[path] = count.rates()
        else:
            folder = str(pathlib.Path(path).parent)
            groups[folder] = add(groups[folder], count.rates())
    total = ((0, 0), (0, 0))
    for rates in groups.values():
        total = add(total, rates)
    print_table(sorted(groups.items()) + [("together", total)])
    print("\nLines that change or remove a file, and were never run:")
    none = True
    for path, count in sorted(files.items()):
        if words and not any(word in path for word in words):
            continue
        source = (_ROOT / path).read_text(encoding="utf-8").splitlines()
        for number, runs in sorted(count.lines.items()):
            if runs == 0 and _CHANGES.search(source[number - 1]):
                none = False
                print(f"  {path}:{number}: {source[number - 1].strip()}")
        if words:
            missed = sorted(number for number, runs in count.lines.items() if runs == 0)
            halves = sorted({key[0] for key, runs in count.branches.items() if runs == 0} - set(missed))
            if missed or halves:
                print(f"  {path}: lines never run {missed}, branches {halves}")
    if none:
        print("  none")


if __name__ == "__main__":
    main()

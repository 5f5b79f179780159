#!/usr/bin/env python3
"""Draws docs/folders.svg: the folders of src, and which of them include which.

usage: folder-picture.py [--check] [--root FOLDER]

Folders and floors are those of tests/lint/Rules.cpp, arrows are the #include lines of src. --check writes nothing: it
fails where the picture is not what would be drawn now. An arrow that does not point to a lower floor fails in any case.
"""

import argparse
import pathlib
import re
import sys
import zlib
from xml.sax.saxutils import escape

_TITLE = "The folders of src"
_CAPTION = ("An arrow: files of the upper folder include files of the lower one. Where a chain of arrows leads to a folder",
            "anyway, the direct arrow is left out. No arrow points to the same floor or a higher one.")

_BOX_WIDTH, _BOX_HEIGHT = 152, 36
_LANE = 10  # the width that an arrow takes where it passes a floor
_GAP = 22
_FLOOR = 88  # from one floor to the next
_LEFT, _TOP, _RIGHT = 64, 64, 28

# Fill, border; the picture has its own background, so that it reads the same on a light and on a dark page.
_KINDS = {"window": ("#dbe9fb", "#2f6fbd", "windows: the only folders that include wxWidgets"),
          "system": ("#fbe7d0", "#b9701c", "the only folders that include headers of the operating system"),
          "logic": ("#ffffff", "#5b6470", "plain C++")}


class Wrong(Exception):
    """What the picture would show must not be so."""


def read_floors(root):
    """The folders of src with their floors. One inside another stands before it."""
    rules = (root / "tests/lint/Rules.cpp").read_text(encoding="utf-8")
    floors = {name: int(rank) for name, rank in re.findall(r'\{"([a-z/]+)/", (\d+)\}', rules)}
    if not floors:
        raise Wrong("tests/lint/Rules.cpp names no folders")
    return floors


def folder_of(path, floors):
    return next((folder for folder in floors if path.startswith(folder + "/")), None)


def read_sources(root, floors):
    """The arrows between folders, and what kind of folder each is."""
    arrows, windows = set(), set()
    source = root / "src"
    for path in sorted(path for path in source.rglob("*") if path.suffix in (".h", ".cpp")):
        name = path.relative_to(source).as_posix()
        own = folder_of(name, floors)
        if own is None:
            raise Wrong(f"src/{name} is in no folder of tests/lint/Rules.cpp")
        text = path.read_text(encoding="utf-8")
        for header in re.findall(r'^\s*#\s*include\s*"([^"]+)"', text, re.MULTILINE):
            other = folder_of(header, floors)
            if other is None:
                raise Wrong(f'src/{name} includes "{header}", which is in no folder')
            if other == own:
                continue
            if floors[other] >= floors[own]:
                raise Wrong(f'src/{name} includes "{header}": the arrow from {own} to {other} would not point down')
            arrows.add((own, other))
        if re.search(r"^\s*#\s*include\s*<wx/", text, re.MULTILINE):
            windows.add(own)
    kinds = {folder: "window" if folder in windows else
             "system" if folder.split("/")[0] == "platform" else "logic" for folder in floors}
    return arrows, kinds


def thinned(arrows):
    """Without the arrows that a longer way implies."""
    below = {}
    for upper, lower in arrows:
        below.setdefault(upper, set()).add(lower)

    def reaches(start, end):
        return any(step == end or reaches(step, end) for step in below.get(start, ()))

    return sorted((upper, lower) for upper, lower in arrows
                  if not any(reaches(step, lower) for step in below[upper] if step != lower))


class Layout:
    """Places every folder on its floor, and gives an arrow a lane on each floor that it passes."""

    def __init__(self, floors, arrows):
        self.rows = [[] for _ in range(max(floors.values()) + 1)]
        self.links = []  # (upper node, lower node) on floors next to each other
        self.ways = []   # per arrow its nodes, from above
        for folder, floor in floors.items():
            self.rows[floor].append(folder)
        for upper, lower in arrows:
            lanes = [(upper, lower, floor) for floor in range(floors[upper] - 1, floors[lower], -1)]
            for lane in lanes:
                self.rows[lane[2]].append(lane)
            way = [upper, *lanes, lower]
            self.ways.append(way)
            self.links += zip(way, way[1:])
        self.near = {node: [] for row in self.rows for node in row}
        for upper, lower in self.links:
            weight = (1 if isinstance(upper, str) else 6) * (1 if isinstance(lower, str) else 6)
            self.near[upper].append((lower, weight))
            self.near[lower].append((upper, weight))
        self.floor_of = {node: floor for floor, row in enumerate(self.rows) for node in row}
        self._order()
        self._place()

    def _order(self):
        """The order with the fewest crossings that many beginnings lead to, each the same in every run."""
        best = None
        for start in range(600):
            rows = [sorted(row, key=lambda node: zlib.crc32(f"{start} {node}".encode())) for row in self.rows]
            for sweep in range(10):
                self._sweep(rows, sweep % 2 == 0)
                cost = self._crossings(rows), self._spread(rows)
                if best is None or cost < best[0]:
                    best = cost, [list(row) for row in rows]
        self.rows = best[1]

    def _sweep(self, rows, down):
        floors = range(len(rows) - 2, -1, -1) if down else range(1, len(rows))
        for floor in floors:
            fixed = floor + 1 if down else floor - 1
            at = {node: index / max(len(rows[fixed]) - 1, 1) for index, node in enumerate(rows[fixed])}
            own = {node: index / max(len(rows[floor]) - 1, 1) for index, node in enumerate(rows[floor])}

            def middle(node, at=at, own=own):
                places = [at[other] for other, _ in self.near[node] if other in at]
                return sum(places) / len(places) if places else own[node]

            rows[floor].sort(key=middle)

    def _crossings(self, rows):
        at = {node: index for row in rows for index, node in enumerate(row)}
        count = 0
        for floor in range(1, len(rows)):
            links = [(at[upper], at[lower]) for upper, lower in self.links if self.floor_of[upper] == floor]
            count += sum((a - c) * (b - d) < 0 for i, (a, b) in enumerate(links) for c, d in links[:i])
        return count

    @staticmethod
    def _share(row):
        return {node: (index + 0.5) / len(row) for index, node in enumerate(row)}

    def _spread(self, rows):
        at = {}
        for row in rows:
            at |= self._share(row)
        return round(sum(abs(at[upper] - at[lower]) for upper, lower in self.links), 6)

    @staticmethod
    def width(node):
        return _BOX_WIDTH if isinstance(node, str) else _LANE

    def _place(self):
        """Every node as near to its neighbours as its row lets it come."""
        self.x = {}
        for row in self.rows:
            for index, node in enumerate(row):
                self.x[node] = index * (_BOX_WIDTH + _GAP) - len(row) * (_BOX_WIDTH + _GAP) / 2
        for _ in range(400):
            for row in self.rows:
                self._settle(row)
        left = min(self.x[node] - self.width(node) / 2 for node in self.x)
        for node in self.x:
            self.x[node] = round(self.x[node] - left + _LEFT)

    def _settle(self, row):
        offset, blocks = 0.0, []
        for index, node in enumerate(row):
            if index > 0:
                offset += (self.width(row[index - 1]) + self.width(node)) / 2 + _GAP
            near = self.near[node]
            weight = sum(w for _, w in near) or 1
            wish = sum(self.x[other] * w for other, w in near) / weight if near else self.x[node]
            blocks.append([(wish - offset) * weight, weight, [(node, offset)]])
            while len(blocks) > 1 and blocks[-2][0] / blocks[-2][1] > blocks[-1][0] / blocks[-1][1]:
                last = blocks.pop()
                blocks[-1] = [blocks[-1][0] + last[0], blocks[-1][1] + last[1], blocks[-1][2] + last[2]]
        for total, weight, nodes in blocks:
            for node, offset in nodes:
                self.x[node] = total / weight + offset


def ports(layout):
    """Where each link leaves its upper box and meets its lower one: side by side, in the order of the other ends."""
    places = {}
    for node in layout.x:
        for lower in (True, False):
            links = [link for link in layout.links if link[0 if lower else 1] == node]
            links.sort(key=lambda link, lower=lower: layout.x[link[1 if lower else 0]])
            step = min(18, (_BOX_WIDTH - 24) / max(len(links), 1)) if isinstance(node, str) else 0
            for index, link in enumerate(links):
                places[link, lower] = round(layout.x[node] + (index - (len(links) - 1) / 2) * step)
    return places


def draw(floors, arrows, kinds):
    layout = Layout(floors, thinned(arrows))
    highest = max(floors.values())
    top = {floor: _TOP + (highest - floor) * _FLOOR for floor in range(highest + 1)}
    right = max(layout.x[node] + layout.width(node) // 2 for node in layout.x)
    bottom = top[0] + _BOX_HEIGHT
    width, height = right + _RIGHT, bottom + 134
    lines = [
        '<?xml version="1.0" encoding="UTF-8"?>',
        "<!-- Drawn by scripts/folder-picture.py from the sources: not to be edited. -->",
        f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" width="{width}" height="{height}" '
        'font-family="sans-serif" role="img" aria-labelledby="title desc">',
        f'<title id="title">{_TITLE}</title>',
        f'<desc id="desc">{escape(" ".join(_CAPTION))}</desc>',
        '<defs><marker id="tip" viewBox="0 0 8 8" refX="7" refY="4" markerWidth="8" markerHeight="8" '
        'markerUnits="userSpaceOnUse" orient="auto"><path d="M0 0.6 8 4 0 7.4z" fill="#4a5260"/></marker></defs>',
        f'<rect width="{width}" height="{height}" fill="#f6f7f9"/>',
        f'<text x="24" y="36" font-size="20" font-weight="bold" fill="#1d2430">{_TITLE}</text>',
    ]
    for floor, y in top.items():
        lines.append(f'<rect x="12" y="{y - 12}" width="{width - 24}" height="{_BOX_HEIGHT + 24}" rx="8" '
                     'fill="#e9ecf1"/>')
        lines.append(f'<text x="28" y="{y + 24}" font-size="15" fill="#5b6470">{floor}</text>')
    at = ports(layout)
    lines.append('<g fill="none" stroke="#4a5260" stroke-width="1.4">')
    for way in layout.ways:
        path = []
        for upper, lower in zip(way, way[1:]):
            y1, y2 = top[layout.floor_of[upper]] + _BOX_HEIGHT, top[layout.floor_of[lower]]
            x1, x2 = at[(upper, lower), True], at[(upper, lower), False]
            path.append(f"{'L' if path else 'M'}{x1} {y1}C{x1} {(y1 + y2) // 2} {x2} {(y1 + y2) // 2} {x2} {y2}")
        lines.append(f'<path d="{"".join(path)}" marker-end="url(#tip)">'
                     f"<title>{way[0]} includes {way[-1]}</title></path>")
    lines.append("</g>")
    for folder, floor in sorted(floors.items()):
        x, y = layout.x[folder] - _BOX_WIDTH // 2, top[floor]
        fill, border, _ = _KINDS[kinds[folder]]
        lines.append(f'<rect x="{x}" y="{y}" width="{_BOX_WIDTH}" height="{_BOX_HEIGHT}" rx="5" fill="{fill}" '
                     f'stroke="{border}" stroke-width="1.6"/>')
        lines.append(f'<text x="{layout.x[folder]}" y="{y + 23}" font-size="14" text-anchor="middle" '
                     f'fill="#1d2430">{folder}</text>')
    y = bottom + 34
    x = 24
    for fill, border, text in _KINDS.values():
        lines.append(f'<rect x="{x}" y="{y}" width="26" height="16" rx="3" fill="{fill}" stroke="{border}" '
                     'stroke-width="1.6"/>')
        lines.append(f'<text x="{x + 34}" y="{y + 13}" font-size="13" fill="#1d2430">{text}</text>')
        x += 60 + round(len(text) * 6.6)
    for index, text in enumerate(_CAPTION):
        lines.append(f'<text x="24" y="{y + 48 + 20 * index}" font-size="13" fill="#1d2430">{text}</text>')
    return "\n".join([*lines, "</svg>", ""])


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--check", action="store_true")
    parser.add_argument("--root", type=pathlib.Path, default=pathlib.Path(__file__).resolve().parent.parent)
    arguments = parser.parse_args()
    try:
        floors = read_floors(arguments.root)
        picture = draw(floors, *read_sources(arguments.root, floors))
    except Wrong as wrong:
        return str(wrong)
    file = arguments.root / "docs/folders.svg"
    if not arguments.check:
        file.parent.mkdir(exist_ok=True)
        file.write_text(picture, encoding="utf-8", newline="\n")
    elif not file.is_file() or file.read_bytes() != picture.encode():
        return "docs/folders.svg is not what the sources say: run scripts/folder-picture.py"
    return 0


if __name__ == "__main__":
    sys.exit(main())

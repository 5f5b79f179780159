#!/usr/bin/env python3
"""Checks the links of a finished site.

check.py FOLDER

Every link and picture must lead to a file of the site, and to an anchor that is there; every page must be reached from the
first one. Nothing may be asked from another site, and there are no scripts.
"""

import html.parser
import pathlib
import re
import sys
import urllib.parse


class Page(html.parser.HTMLParser):
    def __init__(self, path):
        super().__init__()
        self.targets, self.anchors, self.faults = [], set(), []
        self.feed(path.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attrs):
        values = dict(attrs)
        self.anchors.update(values[key] for key in ("id", "name") if key in values and tag != "meta")
        if tag == "a" and re.match(r"https?://", values.get("href") or ""):
            return  # asked for only when a person follows it
        self.targets += [values[key] for key in ("href", "src", "srcset") if values.get(key) is not None]
        if tag == "script" or any(key.startswith("on") for key in values):
            self.faults.append("there is a script")
        if tag == "img" and not {"alt", "width", "height"} <= set(values):
            self.faults.append(f"the picture {values.get('src')} has no text or no size")


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: check.py FOLDER")
    folder = pathlib.Path(sys.argv[1]).resolve()
    pages = {path: Page(path) for path in sorted(folder.rglob("*.html"))}
    faults, reached, waiting, links = [], set(), [folder / "index.html"], 0
    for path, page in pages.items():
        faults += [(path, fault) for fault in page.faults]
        for target in page.targets:
            links += 1
            parts = urllib.parse.urlsplit(target)
            if parts.scheme or parts.netloc:
                faults.append((path, f"asks another site: {target}"))
                continue
            to = (path.parent / urllib.parse.unquote(parts.path)).resolve() if parts.path else path
            if not to.is_file() or not to.is_relative_to(folder):
                faults.append((path, f"leads nowhere: {target}"))
            elif parts.fragment and urllib.parse.unquote(parts.fragment) not in pages[to].anchors:
                faults.append((path, f"has no such anchor: {target}"))
    while waiting:
        path = waiting.pop()
        if path in pages and path not in reached:
            reached.add(path)
            waiting += [(path.parent / urllib.parse.unquote(urllib.parse.urlsplit(target).path)).resolve()
                        for target in pages[path].targets if not urllib.parse.urlsplit(target).scheme]
    faults += [(path, "no link leads here") for path in pages if path not in reached]
    for sheet in folder.rglob("*.css"):
        if re.search(r"url\(|@import", sheet.read_text(encoding="utf-8")):
            faults.append((sheet, "asks for another file"))
    if not pages:
        faults.append((folder, "there are no pages"))
    for path, fault in faults:
        print(f"{path.relative_to(folder)}: error: {fault}")
    print(f"{len(pages)} pages, {links} links")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()

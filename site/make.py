#!/usr/bin/env python3
"""Makes the web site: see site.sh.

make.py FOLDER    replaces the folder

Pages: the first page and the downloads in Japanese and English (index.html, en.html and the tables below), the help from
help/, and the documents, which are Markdown. Every page gets the same frame. Nothing refers to another site.
"""

import hashlib
import html
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent
DIST = ROOT / "dist"

# The texts of the frame.
WORDS = {
    "ja": {"skip": "本文へ", "menu": "サイトのページ", "home": "index.html", "contents": "このページの内容",
           "menus": [("help/index.html", "ヘルプ"), ("download.html", "ダウンロード"), ("docs/index.html", "開発")],
           "other": ("en", "English", "en.html"), "by": "{product} {version}。MIT ライセンスです。"},
    "en": {"skip": "To the text", "menu": "Pages of the site", "home": "en.html", "contents": "On this page",
           "menus": [("help/index.html", "Help"), ("download.en.html", "Download"), ("docs/index.html", "Developers")],
           "other": ("ja", "日本語", "index.html"), "by": "{product} {version}, under the MIT licence."},
}
# The pictures of the first pages, and what they show.
PICTURES = {
    "main": {"ja": "音楽ファイルの一覧と、リネーム名を入力する欄のあるウィンドウ",
             "en": "The window: a list of songs with their titles, and a box for the new name"},
    "playing": {"ja": "動画を再生しているウィンドウ", "en": "The window while a film plays"},
    "pattern": {"ja": "書式と、それから作られる名前の一覧", "en": "A pattern, and the names that it makes"},
    "pending": {"ja": "まだ適応していない名前が太字で示された一覧", "en": "The list, with names in bold that are not applied yet"},
}
DOWNLOADS = {
    "ja": {"title": "ダウンロード", "description": "Linux と Windows のパッケージです。",
           "none": "配布しているパッケージは、まだありません。<a href=\"docs/readme.ja.html\">ソースから作る方法</a>をご覧ください。",
           "check": "<code>sha256sum --check --ignore-missing SHA256SUMS</code> で、正しくダウンロードできたことを確かめられます"
                    "（Windows の PowerShell では <code>Get-FileHash</code>）。",
           "kinds": [(r"\.deb$", "Debian 12（64 ビット）", "<code>sudo apt install ./{name}</code> でインストールします。"),
                     (r"-setup\.exe$", "Windows 10 以降（64 ビット）、インストーラ", "使う人ごとにインストールし、管理者の権限は要りません。"),
                     (r"-portable\.zip$", "Windows 10 以降（64 ビット）、インストール不要", "展開して <code>Quillon.exe</code> を開きます。"),
                     (r"\.spdx\.json$", "部品表（SPDX）", "パッケージに含まれるライブラリの一覧です。"),
                     (r"SHA256SUMS$", "SHA-256 の一覧", ""), (r"", "ソースなど", "")]},
    "en": {"title": "Download", "description": "The packages for Linux and Windows.",
           "none": "There are no packages to download yet. <a href=\"docs/readme.html\">The read-me</a> says how to make them.",
           "check": "<code>sha256sum --check --ignore-missing SHA256SUMS</code> shows whether a file has arrived unharmed "
                    "(in PowerShell on Windows: <code>Get-FileHash</code>).",
           "kinds": [(r"\.deb$", "Debian 12 (64 bit)", "To install it: <code>sudo apt install ./{name}</code>"),
                     (r"-setup\.exe$", "Windows 10 and later (64 bit), installer", "Installs for one user; needs no administrator."),
                     (r"-portable\.zip$", "Windows 10 and later (64 bit), portable", "Unpack it and start <code>Quillon.exe</code>."),
                     (r"\.spdx\.json$", "What is inside (SPDX)", "The libraries that the packages contain."),
                     (r"SHA256SUMS$", "SHA-256 sums", ""), (r"", "Sources and others", "")]},
}
# Documents outside of docs/, by the names of their pages.
DOCUMENTS = {"README.md": "readme.html", "README.ja.md": "readme.ja.html", "CONTRIBUTING.md": "contributing.html",
             "CODE_OF_CONDUCT.md": "conduct.html", "SECURITY.md": "security.html", "CHANGELOG.md": "changelog.html"}
# What the list of documents says of them; of others, it says their first paragraph.
SUMMARIES = {
    "CONTRIBUTING.md": "The rules of the house, on one page: tests, style, commits.",
    "SECURITY.md": "What counts as a weakness, how to report one, and what the program does against hostile files.",
    "CHANGELOG.md": "What is new, version by version.",
    "docs/architecture.md": "What stands where, three walks through the code, the decisions and what they cost, a glossary.",
    "docs/performance.md": "What is measured, against which floors, and how cost grows with the number of files.",
}


def product(key):
    """A value of the build files, which have each only once."""
    patterns = {"name": ("CMakeLists.txt", r"project\((\w+) "), "version": ("CMakeLists.txt", r"project\(\w+ VERSION ([0-9.]+)"),
                "url": ("cmake/Product.cmake", r'QUILLON_URL "([^"]+)"')}
    path, pattern = patterns[key]
    return re.search(pattern, (ROOT / path).read_text(encoding="utf-8")).group(1)


def plain(markup):
    return html.unescape(re.sub(r"\s+", " ", re.sub(r"<[^>]*>", "", markup))).strip()


def description_of(body):
    """The first paragraph or point that says something, cut at a word or sentence."""
    body = re.sub(r"<nav.*?</nav>", "", body, flags=re.DOTALL)
    for paragraph in re.findall(r"<p[ >].*?</p>", body, re.DOTALL) or re.findall(r"<li>.*?</li>", body, re.DOTALL):
        text = plain(paragraph)
        if len(text) > 20:
            return text if len(text) <= 150 else text[:150].rsplit(" ", 1)[0].rsplit("。", 1)[0] + "…"
    return product("name")


def picture_size(path):
    """Width and height of a PNG or SVG file."""
    if path.suffix == ".svg":
        found = re.search(r'width="(\d+)" height="(\d+)"', path.read_text(encoding="utf-8"))
        return found.group(1), found.group(2)
    return struct.unpack(">II", path.read_bytes()[16:24])


class Site:
    def __init__(self, folder):
        self.folder = folder
        self.name, self.version = product("name"), product("version")

    def write(self, path, language, title, body, description=None, other=None, width="text"):
        """Writes a page in its frame. `other` is the same page in the other language."""
        words = WORDS[language]
        up = "../" * path.count("/")
        other_language, other_name, other_home = words["other"]
        full_title = title if self.name in title else f"{title} - {self.name}"
        entries = "".join(
            f'<li><a href="{up}{target}"{self.current(path, target)}>{text}</a></li>\n' for target, text in words["menus"])
        alternate = f'<link rel="alternate" hreflang="{other_language}" href="{up}{other}">\n' if other else ""
        target = self.folder / path
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_text(f"""<!DOCTYPE html>
<html lang="{language}">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<title>{html.escape(full_title, quote=False)}</title>
<meta name="description" content="{html.escape(description or description_of(body))}">
{alternate}<link rel="icon" href="{up}images/quillon.svg" type="image/svg+xml">
<link rel="stylesheet" href="{up}style.css">
</head>
<body>
<a class="skip" href="#main">{words["skip"]}</a>
<header class="top">
<a class="home" href="{up}{words["home"]}"><img src="{up}images/quillon.svg" alt="" width="32" height="32">{self.name}</a>
<nav aria-label="{words["menu"]}">
<ul>
{entries}<li><a href="{up}{other or other_home}" lang="{other_language}" hreflang="{other_language}">{other_name}</a></li>
</ul>
</nav>
</header>
<main id="main"{f' class="{width}"' if width else ""}>
{body}
</main>
<footer class="bottom">
<p>{words["by"].format(product=self.name, version=self.version)}</p>
</footer>
</body>
</html>
""", encoding="utf-8")

    @staticmethod
    def current(path, target):
        """Marks the menu entry of this page, or of its folder."""
        if path == target:
            return ' aria-current="page"'
        folder = pathlib.PurePosixPath(target).parent
        return ' aria-current="true"' if str(folder) != "." and pathlib.PurePosixPath(path).parent == folder else ""

    def copy(self, source, target):
        to = self.folder / target
        to.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(source, to)

    # The first pages

    def picture(self, name, language):
        """A picture in both faces, light and dark."""
        width, height = picture_size(ROOT / f"resources/screenshots/linux/{name}.png")
        for look in ("linux", "linux-dark"):
            self.copy(ROOT / f"resources/screenshots/{look}/{name}.png", f"images/screenshots/{look}/{name}.png")
        return (f'<picture><source srcset="images/screenshots/linux-dark/{name}.png" media="(prefers-color-scheme: dark)">'
                f'<img class="shot" src="images/screenshots/linux/{name}.png" alt="{PICTURES[name][language]}" '
                f'width="{width}" height="{height}"></picture>')

    def first_pages(self):
        for language, page, other in (("ja", "index.html", "en.html"), ("en", "en.html", "index.html")):
            body = (HERE / page).read_text(encoding="utf-8").replace("@PRODUCT@", self.name)
            body = re.sub(r"@PICTURE (\w+)@", lambda match: self.picture(match.group(1), language), body)
            body = joined_lines(body) if language == "ja" else body
            title = plain(re.search(r"<h1>(.*?)</h1>", body).group(1))
            self.write(page, language, f"{self.name}: {title}" if language == "en" else f"{self.name} {title}", body, other=other,
                       width="")

    def downloads(self):
        files = sorted(path for path in DIST.glob("*") if path.is_file()) if DIST.is_dir() else []
        for file in files:
            self.copy(file, f"files/{file.name}")
        for language, page, other in (("ja", "download.html", "download.en.html"), ("en", "download.en.html", "download.html")):
            words = DOWNLOADS[language]
            body = f'<h1>{words["title"]}</h1>\n'
            if not files:
                body += f'<p class="empty">{words["none"]}</p>'
            else:
                body += f'<p>{self.name} {self.version}</p>\n<ul class="files">\n'
                kind_of = [next(i for i, kind in enumerate(words["kinds"]) if re.search(kind[0], file.name)) for file in files]
                for kind, file in sorted(zip(kind_of, files)):
                    body += self.download(file, *words["kinds"][kind][1:])
                body += f'</ul>\n<p>{words["check"]}</p>'
            self.write(page, language, words["title"], body, description=f'{self.name}: {words["description"]}', other=other)

    @staticmethod
    def download(file, kind, how):
        data = file.read_bytes()
        size = f"{len(data) / 1e6:.1f} MB" if len(data) >= 1e5 else f"{len(data) / 1e3:.1f} kB"
        how = f"<p>{how.format(name=file.name)}</p>\n" if how else ""
        return (f'<li>\n<p class="name"><a href="files/{file.name}">{file.name}</a> ({size})</p>\n<p>{kind}</p>\n{how}'
                f'<p class="sum">SHA-256: <code>{hashlib.sha256(data).hexdigest()}</code></p>\n</li>\n')

    # The help

    def help(self):
        with tempfile.TemporaryDirectory() as work:
            pages = pathlib.Path(work) / "pages"
            subprocess.run(["cmake", f"-DSOURCE={ROOT / 'help'}", f"-DTARGET={pages}", "-DSYSTEM=linux", f"-DPRODUCT={self.name}",
                            f"-DVERSION={self.version}", f"-DURL={product('url')}", "-P", ROOT / "help/cmake/WritePages.cmake"],
                           check=True)
            bodies = {}
            for line in ["  index.html", *(ROOT / "help/contents.txt").read_text(encoding="utf-8").splitlines()]:
                if line.startswith("  "):
                    text = (pages / line.strip()).read_text(encoding="utf-8")
                    bodies[line.strip()] = re.search(r'</p>(.*)<p class="nav">', text, re.DOTALL).group(1).strip()
            for image in sorted((pages / "images").iterdir()):
                self.copy(image, f"help/images/{image.name}")
        names = list(bodies)
        titles = {name: plain(re.search(r"<h1>(.*?)</h1>", body).group(1)) for name, body in bodies.items()}
        for i, name in enumerate(names):
            turn = ['<nav class="turn" aria-label="前後のページ">']
            if i > 0:
                turn.append(f'<a href="{names[i - 1]}" rel="prev">← {titles[names[i - 1]]}</a>')
            if i + 1 < len(names):
                turn.append(f'<a class="next" href="{names[i + 1]}" rel="next">{titles[names[i + 1]]} →</a>')
            self.write(f"help/{name}", "ja", titles[name], tidy(bodies[name]) + "\n" + "\n".join(turn) + "\n</nav>")

    # The documents

    def documents(self):
        pages = {path: f"docs/{page}" for path, page in DOCUMENTS.items() if (ROOT / path).is_file()}
        pages |= {f"docs/{path.name}": f"docs/{path.stem}.html" for path in sorted((ROOT / "docs").glob("*.md"))}
        titles = {}
        for path, page in pages.items():
            language = "ja" if path.endswith(".ja.md") else "en"
            body = self.links(markdown(path, language), path, page, pages)
            title = {"README.md": "Read-me", "README.ja.md": "はじめにお読みください"}.get(
                path, plain(re.search(r"<h1[^>]*>(.*?)</h1>", body).group(1)))
            titles[page] = (title, language, SUMMARIES.get(path) or description_of(body))
            other = {"README.md": "docs/readme.ja.html", "README.ja.md": "docs/readme.html"}.get(path)
            self.write(page, language, title, with_contents(body, language), SUMMARIES.get(path), other)
        entries = "".join(
            f'<li><h2><a href="{page.removeprefix("docs/")}"{self.in_language(language)}>{title}</a></h2>\n<p{self.in_language(language)}>{html.escape(text, quote=False)}</p></li>\n'
            for page, (title, language, text) in titles.items())
        self.write("docs/index.html", "en", "Documents", f'<h1>Documents</h1>\n<p>How {self.name} is built, and how to work on it.</p>\n'
                   f'<ul class="cards">\n{entries}</ul>', width="")

    @staticmethod
    def in_language(language):
        return f' lang="{language}"' if language != "en" else ""

    def links(self, body, path, page, pages):
        """Turns links and pictures of the sources into those of the site. What is not on the site loses its link."""
        here = (ROOT / path).parent

        def relative(target):
            return "../" * page.count("/") + target

        def link(match):
            target, anchor, text = match.group(1), match.group(2) or "", match.group(3)
            if not target or "://" in target:
                return match.group(0)
            known = str((here / target).resolve().relative_to(ROOT))
            return f'<a href="{relative(pages[known])}{anchor}">{text}</a>' if known in pages else text

        def image(match):
            source = (here / match.group(1)).resolve()
            target = f"images/{source.relative_to(ROOT / 'resources') if 'resources' in source.parts else source.name}"
            self.copy(source, target)
            width, height = picture_size(source)
            kind = ' class="drawing"' if source.suffix == ".svg" else ""
            return f'<img{kind} src="{relative(target)}" alt="{match.group(2)}" width="{width}" height="{height}">'

        body = re.sub(r'<img src="([^"]*)" alt="([^"]*)"\s*/?>', image, body)
        return re.sub(r'<a href="([^"#]*)(#[^"]*)?">(.*?)</a>', link, body, flags=re.DOTALL)


def joined_lines(text):
    """Joins lines between Japanese characters: a browser would show a blank there."""
    wide = "[\u3000-\u30ff\u3400-\u9fff\uff00-\uffef]"
    parts = re.split(r"(<pre>.*?</pre>)", text, flags=re.DOTALL)
    return "".join(part if part.startswith("<pre>") else re.sub(f"(?<={wide})\n(?={wide})", "", part) for part in parts)


def tidy(body):
    """What tables and empty elements look like in HTML 5."""
    body = re.sub(r"\s*/>", ">", body)
    body = re.sub(r'<(t[hd])[^>]* align="[^"]*"', r"<\1", body)

    def scope(match):
        row = match.group(0)
        return re.sub(r"<th(?=[ >])", '<th scope="row"' if "<td" in row else '<th scope="col"', row)

    def table(match):
        start, rows = match.groups()
        rows = re.findall(r"<tr>.*?</tr>", rows, re.DOTALL)
        head = [rows.pop(0)] if rows and "<td" not in rows[0] else []
        parts = [f"<{part}>\n{chr(10).join(lines)}\n</{part}>" for part, lines in (("thead", head), ("tbody", rows)) if lines]
        return f'<div class="scroll">\n{start}\n{chr(10).join(parts)}\n</table>\n</div>'

    body = re.sub(r"<tr>.*?</tr>", scope, body, flags=re.DOTALL)
    return re.sub(r"(<table[^>]*>)(.*?)</table>", table, body, flags=re.DOTALL)


def markdown(path, language):
    """The document as HTML, its headings with anchors."""
    made = subprocess.run(["cmark-gfm", "-e", "table", "-e", "strikethrough", "--to", "html", ROOT / path], check=True,
                          capture_output=True, text=True, encoding="utf-8").stdout
    body = tidy(made)
    used = set()

    def heading(match):
        level, text = match.groups()
        anchor = re.sub(r"\s+", "-", re.sub(r"[^\w\s-]", "", plain(text).lower()).strip())
        if anchor[:1].isdigit():
            anchor = f"v{anchor}"  # the changelog's headings are versions
        while anchor in used:
            anchor += "-"
        used.add(anchor)
        return f'<h{level} id="{anchor}">{text}</h{level}>'

    body = re.sub(r"<h([1-6])>(.*?)</h\1>", heading, body, flags=re.DOTALL)
    return joined_lines(body) if language == "ja" else body


def with_contents(body, language):
    """Puts a list of the chapters below the title of a long document."""
    chapters = re.findall(r'<h2 id="([^"]*)">(.*?)</h2>', body, re.DOTALL)
    if len(chapters) < 4:
        return body
    label = WORDS[language]["contents"]
    entries = "".join(f'<li><a href="#{anchor}">{plain(text)}</a></li>\n' for anchor, text in chapters)
    contents = f'<nav class="toc" aria-label="{label}">\n<p>{label}</p>\n<ul>\n{entries}</ul>\n</nav>'
    return re.sub(r"(</h1>)", lambda match: match.group(1) + "\n" + contents, body, count=1)


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: make.py FOLDER")
    folder = pathlib.Path(sys.argv[1])
    # Only what this has made is replaced.
    if folder.exists() and any(folder.iterdir()) and not (folder / "style.css").is_file():
        sys.exit(f"error: '{folder}' is not empty, and no site: it is not replaced")
    shutil.rmtree(folder, ignore_errors=True)
    site = Site(folder)
    site.copy(HERE / "style.css", "style.css")
    site.copy(ROOT / "resources/icons/quillon.svg", "images/quillon.svg")
    site.first_pages()
    site.downloads()
    site.help()
    site.documents()
    print(f"{folder}: {len(list(folder.rglob('*.html')))} pages")


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Writes a list of what is in the packages, in the format SPDX 2.3 (JSON), as FOLDER/quillon.spdx.json.

sbom.py FOLDER    the folder that package.sh has filled

Each package is listed with its SHA-256. The Windows packages contain the libraries that scripts/windows-libraries.sh builds;
the Debian package names the libraries that it needs, and contains none.
"""

import datetime
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
# The libraries' licences, by the names of scripts/windows-libraries.sh; wxWidgets is left under the licence of its library.
LICENCES = {
    "pcre2": "BSD-3-Clause",
    "utf8proc": "MIT",
    "taglib": "LGPL-2.1-only OR MPL-1.1",
    "wxwidgets": "LGPL-2.0-or-later WITH WxWindows-exception-3.1",
    "libcli11-dev": "BSD-3-Clause",
    "nlohmann-json3-dev": "MIT",
    "g++-mingw-w64-x86-64-posix": "GPL-3.0-or-later WITH GCC-exception-3.1",
    "mingw-w64-x86-64-dev": "LicenseRef-mingw-w64-runtime",
}
# Headers that are compiled into the programs, by Debian's names.
HEADERS = ["libcli11-dev", "nlohmann-json3-dev"]
# The compiler's and the system's own libraries, which the Windows programs contain.
RUNTIMES = ["g++-mingw-w64-x86-64-posix", "mingw-w64-x86-64-dev"]


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout.strip()


def matched(pattern, path):
    found = re.search(pattern, (ROOT / path).read_text(encoding="utf-8"))
    if not found:
        sys.exit(f"error: {path} has no {pattern}")
    return found.group(1)


def identifier(name):
    return "SPDXRef-" + re.sub(r"[^A-Za-z0-9.-]", "-", name.replace("+", "p"))


def package(name, version, licence, **more):
    return {"name": name, "SPDXID": identifier(name), "versionInfo": version, "downloadLocation": "NOASSERTION",
            "filesAnalyzed": False, "licenseConcluded": licence, "licenseDeclared": licence,
            "copyrightText": "NOASSERTION", **more}


def libraries():
    """What the Windows packages contain: name, version, licence."""
    script = (ROOT / "scripts/windows-libraries.sh").read_text(encoding="utf-8")
    versions = dict(re.findall(r"is_done ([a-z0-9]+)-([0-9.]+)(?:-form\d+)?;", script))
    versions |= {name: output("dpkg-query", "-W", "-f=${Version}", name) for name in HEADERS + RUNTIMES}
    if versions.keys() != LICENCES.keys():
        sys.exit(f"error: licence or version unknown: {', '.join(sorted(versions.keys() ^ LICENCES.keys()))}")
    return [(name, version, LICENCES[name]) for name, version in versions.items()]


def relation(from_name, kind, to_name):
    return {"spdxElementId": identifier(from_name), "relationshipType": kind, "relatedSpdxElement": identifier(to_name)}


def document(files, version, moment):
    packages, relations = [], []
    contained = list(libraries())
    for path in files:
        digest = hashlib.sha256(path.read_bytes()).hexdigest()
        packages.append(package(path.name, version, "MIT", packageFileName=path.name, primaryPackagePurpose="APPLICATION",
                                checksums=[{"algorithm": "SHA256", "checksumValue": digest}]))
        relations.append({"spdxElementId": "SPDXRef-DOCUMENT", "relationshipType": "DESCRIBES",
                          "relatedSpdxElement": identifier(path.name)})
        if path.suffix == ".deb":
            for needed in output("dpkg-deb", "-f", str(path), "Depends").split(","):
                name, least = re.match(r"\s*([^\s|(]+)(?:\s*\([<>=]+ ([^)]+)\))?", needed).groups()
                if identifier(name) not in [known["SPDXID"] for known in packages]:
                    packages.append(package(name, least or "", "NOASSERTION", primaryPackagePurpose="LIBRARY"))
                relations.append(relation(path.name, "DEPENDS_ON", name))
            relations += [relation(path.name, "CONTAINS", name) for name in HEADERS]
        else:
            relations += [relation(path.name, "CONTAINS", name) for name, _, _ in contained]
    packages += [package(*library, primaryPackagePurpose="LIBRARY") for library in contained]
    digest = hashlib.sha256("".join(sorted(p["SPDXID"] + p["versionInfo"] for p in packages)).encode()).hexdigest()
    url = matched(r'QUILLON_URL "([^"]+)"', "cmake/Product.cmake")
    return {"spdxVersion": "SPDX-2.3", "dataLicense": "CC0-1.0", "SPDXID": "SPDXRef-DOCUMENT", "name": f"Quillon {version}",
            "documentNamespace": f"{url}sbom/{version}-{digest[:16]}",
            "creationInfo": {"created": moment, "creators": ["Organization: The Quillon developers", "Tool: sbom.py"]},
            "packages": packages, "relationships": relations,
            "hasExtractedLicensingInfos": [
                {"licenseId": "LicenseRef-mingw-w64-runtime", "name": "MinGW-w64 runtime licensing",
                 "extractedText": "Permissive licences; /usr/share/doc/mingw-w64-x86-64-dev/copyright in Debian has them."}]}


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: sbom.py FOLDER")
    folder = pathlib.Path(sys.argv[1])
    files = sorted(path for path in folder.glob("[Qq]uillon*") if path.suffix in {".deb", ".exe", ".zip"})
    if not files:
        sys.exit(f"error: no packages in '{folder}': run ./package.sh first")
    seconds = int(os.environ.get("SOURCE_DATE_EPOCH") or output("git", "-C", str(ROOT), "log", "-1", "--format=%ct"))
    moment = datetime.datetime.fromtimestamp(seconds, datetime.timezone.utc).strftime("%Y-%m-%dT%H:%M:%SZ")
    version = matched(r"project\(Quillon VERSION ([0-9.]+) ", "CMakeLists.txt")
    target = folder / "quillon.spdx.json"
    target.write_text(json.dumps(document(files, version, moment), indent=2) + "\n", encoding="utf-8")
    print(f"{target}: {len(files)} packages")


if __name__ == "__main__":
    main()

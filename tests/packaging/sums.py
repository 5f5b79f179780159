"""The list of the packages' sums."""

from commands import succeed


def listed(packages):
    """The names in SHA256SUMS, which all have their sums."""
    succeed("sha256sum", "--check", "--strict", "SHA256SUMS", cwd=packages)
    return sorted(line.split()[1] for line in (packages / "SHA256SUMS").read_text().splitlines())

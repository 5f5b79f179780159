"""The list of the packages' checksums."""

from commands import succeed


def listed(packages):
    """Checks all sums in SHA256SUMS; returns the names."""
    succeed("sha256sum", "--check", "--strict", "SHA256SUMS", cwd=packages)
    return sorted(line.split()[1] for line in (packages / "SHA256SUMS").read_text().splitlines())

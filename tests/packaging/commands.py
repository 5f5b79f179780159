"""Running programs, with a time limit."""

import subprocess


def run(*command, seconds=60, **options):
    """Runs a program to its end; returns its status and its output."""
    done = subprocess.run(
        [str(word) for word in command],
        stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        timeout=seconds,
        check=False,
        **options,
    )
    return done.returncode, done.stdout.decode("utf-8", "replace")


def succeed(*command, seconds=60, **options):
    """The same for a program that must succeed; returns its output."""
    status, output = run(*command, seconds=seconds, **options)
    if status != 0:
        raise AssertionError(f"{' '.join(map(str, command))}: status {status}\n{output[-4000:]}")
    return output

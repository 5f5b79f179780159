"""Finds the possible events of each scene, runs each of them, and counts the results."""

import collections
import concurrent.futures
import os

import tracing
from cases import cases
from invariants import act, broken

KINDS = {"fault": "faults", "lasting": "faults", "short": "faults", "kill": "kills", "interrupt": "interrupts",
         "race": "races"}


class Unable(Exception):
    """Raised for a scene that fails even without an event."""


def learn(scene, programs):
    """All cases of a scene."""
    with scene.place() as place:
        status, calls = tracing.calls(scene.command(programs, place), place.environment(), scene.always)
        if status != 0:
            raise Unable(f"{scene.name}: ended with {status} although nothing happened")
        touching = [call for call in calls if _touches(call, place)]
    if not touching:
        raise Unable(f"{scene.name}: no call was seen")
    return list(cases(scene, touching))


def trace(scene, programs):
    """The calls of a run without an event."""
    with scene.place() as place:
        return [call for call in tracing.calls(scene.command(programs, place), place.environment(), scene.always)[1]
                if _touches(call, place)]


def _touches(call, place):
    if call.name == "execve":
        return False
    return any(f"{folder}/" in call.arguments or f"{folder}>" in call.arguments for folder in {place.here, place.there})


def check(scene, case, programs):
    """Runs one case; returns the broken invariants."""
    with scene.place() as place:
        others = []
        halt = (lambda: others.append(act(case.what, place))) if case.kind == "race" else None
        command = scene.command(programs, place)
        ending = tracing.run(command, place.environment(), case.fault(), scene.always, halt)
        return broken(scene, case, place, ending, others[0] if others else None, programs)


def check_all(scenes, chosen, programs):
    """Runs the cases in parallel; returns the broken invariants by case, and counts by scene and kind."""
    scenes = {scene.name: scene for scene in scenes}
    counts = collections.defaultdict(collections.Counter)
    violations = {}
    with concurrent.futures.ThreadPoolExecutor(max_workers=os.cpu_count()) as pool:
        runs = [(case, pool.submit(check, scenes[case.scene], case, programs)) for case in chosen]
        for case, run in runs:
            counts[case.scene][KINDS[case.kind]] += 1
            found = run.result()
            if found:
                violations[case] = found
                counts[case.scene]["violations"] += 1
    return violations, counts

"""A fixed sample of the events in moves, renames and saves, and the order of their calls."""

import random
import re
import unittest

import harness
import tracing
from scenes import all_scenes

_SEED = 20
_SCENES = {scene.name: scene for scene in all_scenes()}


def _index(calls, pattern, start=0):
    """The index of the first call after `start` that matches the pattern."""
    for index in range(start, len(calls)):
        if re.search(pattern, f"{calls[index].name}({calls[index].arguments}"):
            return index
    raise AssertionError(f"no call after {start} looks like {pattern}")


class Faults(unittest.TestCase):
    programs = None  # the folder of the built programs
    sample_size = 300
    _reason = None
    _sample = None

    def setUp(self):
        if Faults._reason is None:
            Faults._reason = tracing.why_not() or ""
        if self._reason:
            self.skipTest(self._reason)

    def _learned(self, name):
        """The calls of a scene without an event."""
        scene = _SCENES[name]
        reason = scene.why_not()
        if reason:
            self.skipTest(reason)
        return harness.trace(scene, self.programs)

    def _run_sample(self, name):
        scene = _SCENES[name]
        reason = scene.why_not()
        if reason:
            self.skipTest(reason)
        if Faults._sample is None:
            able = [one for one in _SCENES.values() if not one.why_not()]
            everything = [case for one in able for case in harness.learn(one, self.programs)]
            chosen = random.Random(_SEED).sample(everything, min(self.sample_size, len(everything)))
            # The sample contains every kind of event in every scene.
            Faults._sample = {one.name: [case for case in chosen if case.scene == one.name] for one in able}
        chosen = self._sample[name]
        self.assertTrue(chosen, "the sample has nothing of this scene")
        self._check(scene, chosen)

    def _check(self, scene, chosen):
        violations, _ = harness.check_all([scene], chosen, self.programs)
        if violations:
            self.fail("\n  ".join(f"{case}: {'; '.join(found)}" for case, found in violations.items()))

    def test_a_copy_is_made_privately_and_replaces_nothing(self):
        calls = self._learned("copy")
        for name in (r"\.quillon-\w+\.mark", r"\.quillon-\w+"):
            made = calls[_index(calls, rf'^openat\(.*/{name}", ')].arguments
            self.assertRegex(made, r"O_WRONLY\|O_CREAT\|O_EXCL\|O_CLOEXEC, 0600$")

    def test_a_source_is_opened_without_following_links_or_waiting(self):
        calls = self._learned("copy")
        look = _index(calls, r"^\w*l?stat\w*\(.*/song\.bin.*(AT_SYMLINK_NOFOLLOW|^lstat)", _index(calls, "^renameat2"))
        opened = calls[_index(calls, r'^openat\(.*/song\.bin"', look)].arguments
        self.assertIn("O_NOFOLLOW", opened)
        self.assertIn("O_NONBLOCK", opened)

    def test_a_copy_is_flushed_before_its_name_and_its_name_before_the_source_is_deleted(self):
        for name, publish in (("copy", r"^renameat2\(.*/\.quillon-"), ("copy-by-link", r"^link\(.*/\.quillon-")):
            calls = self._learned(name)
            written = _index(calls, r"^write\(.*/\.quillon-\w+>")
            flushed = _index(calls, r"^fsync\(.*/\.quillon-\w+>", written)
            closed = _index(calls, r"^close\(.*/\.quillon-\w+>", flushed)
            published = _index(calls, publish, closed)
            folder = _index(calls, r"^fsync\(\d+</dev/shm/[^/>]+>", published)
            deleted = _index(calls, r'^unlink\(.*/song\.bin"', folder)
            # The last check comes directly before: of the name, then of the file by its open handle.
            self.assertRegex(calls[deleted - 2].arguments, r'/song\.bin", .*AT_SYMLINK_NOFOLLOW')
            self.assertRegex(calls[deleted - 1].arguments, r"^\d+<.*/song\.bin>, ")
            self.assertEqual([call.name for call in calls if call.name == "unlink" and "song.bin" in call.arguments],
                             ["unlink"], "the source is deleted once")

    def test_a_flush_that_fails_is_a_failure(self):
        for name in ("copy", "settings"):
            scene = _SCENES[name]
            if not scene.why_not():
                flushes = [case for case in harness.learn(scene, self.programs)
                           if case.kind == "fault" and case.call.name == "fsync"]
                self.assertGreater(len(flushes), 10)
                self._check(scene, flushes)

    def test_a_mark_is_held_while_its_file_exists(self):
        calls = self._learned("copy")
        locked = _index(calls, r"^flock\(.*\.mark>, LOCK_EX\|LOCK_NB")
        created = _index(calls, r'^openat\(.*/\.quillon-\w+", ')
        self.assertLess(locked, created)
        self.assertGreater(_index(calls, r'^unlink\(.*\.mark"'), _index(calls, r"^renameat2\(.*/\.quillon-"))

    def test_a_rename_by_links_deletes_the_old_name_only_after_a_last_check(self):
        calls = self._learned("rename-by-link")
        linked = _index(calls, r"^link\(")
        looks = [call.arguments for call in calls[linked + 1:_index(calls, r"^unlink\(", linked)]]
        self.assertEqual(len(looks), 2)
        self.assertIn("/Title.mid", looks[0])
        self.assertIn("/song.mid", looks[1])


def _add(name):
    def run(self):
        self._run_sample(name)

    setattr(Faults, "test_sample_of_" + name.replace("-", "_"), run)


for _name in _SCENES:
    _add(_name)

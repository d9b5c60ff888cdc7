"""A short pick of the campaign: a few faults, kills and power losses of every driver, and that the
instruments themselves see what they are to see. scripts/trust_campaign is the whole."""

import errno
import random
import sqlite3
import tempfile
import unittest
from pathlib import Path

import power_loss
import shim
from drivers import COMMANDS, DRIVERS, OPERATIONS, READERS
from fault_trials import Fault, Scene
from loss_trials import Losses, spilled_scene
from run_state import state_of

FAULTS = 2  # of each driver, and as many allocations that fail
LOSSES = 12
SEED = 7
IN_MEMORY = Path("/dev/shm")


class TrustCase(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(dir=IN_MEMORY if IN_MEMORY.is_dir() else None)
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.source = random.Random(SEED)

    def scene(self, driver):
        return Scene(driver, self.folder / str(DRIVERS.index(driver)))

    def pick(self, scene):
        """A few faults, in the files and in the memory."""
        faults = scene.faults(self.source)
        in_files = [fault for fault in faults if fault.kind != "memory"]
        in_memory = [fault for fault in faults if fault.kind == "memory"]
        return in_files[:FAULTS] + in_memory[:FAULTS]

    def try_faults(self, drivers):
        for driver in drivers:
            scene = self.scene(driver)
            for fault in self.pick(scene):
                judgement = scene.attempt(fault, self.source)
                if judgement is not None and judgement.bad:
                    self.fail(f'--only "{driver.name}" --fault {fault}: {judgement}')


class FaultTest(TrustCase):
    def test_commands_do_all_or_nothing(self):
        self.try_faults(COMMANDS)

    def test_readers_answer_as_ever_or_say_that_they_cannot(self):
        self.try_faults(READERS)

    def test_operations_do_all_or_nothing(self):
        self.try_faults(OPERATIONS)

    def test_every_operation_of_the_driver_program_is_tried(self):
        listed = shim.run([shim.API, "--list"], self.folder).output.split()
        self.assertEqual(listed, [driver.words[0] for driver in OPERATIONS])


class KnownFaultTest(TrustCase):
    """The places where a fault once did harm, each tried as a whole."""

    def try_all(self, name, kind, mode, number, most=None):
        """Every fault of that kind in a driver, or `most` of them, evenly spread."""
        driver = next(driver for driver in DRIVERS if driver.name == name)
        scene = self.scene(driver)
        places = range(1, scene.counts[kind] + 1)
        self.assertGreater(len(places), 0, name)
        step = 1 if most is None else max(1, len(places) // most)
        for place in places[::step]:
            fault = Fault(kind, place, mode, number)
            judgement = scene.attempt(fault, self.source)
            if judgement is not None and judgement.bad:
                self.fail(f'--only "{name}" --fault {fault}: {judgement}')

    def test_a_folder_without_sync_is_told_as_stored(self):
        for name in (
            *("missing --apply", "load, over a set", "load, new run", "report, new page"),
            *("register", "unregister", "API reset-time-series", "API format-data-as"),
            *("API save-column-data", "API parse-over", "API clear"),
        ):
            self.try_all(name, "sync", "once", errno.EIO)

    def test_a_look_at_the_file_that_fails_is_no_other_file(self):
        self.try_all("reset", "stat", "once", errno.EIO)

    def test_a_file_beside_another_is_removed_whatever_fails(self):
        for name in ("plot --svg", "load, new run"):
            self.try_all(name, "stat", "always", errno.EIO, most=30)

    def test_destructors_need_no_memory(self):
        for name in ("load, new run", "history"):
            self.try_all(name, "memory", "always", errno.ENOMEM, most=20)

    def test_an_operation_that_fails_late_is_undone(self):
        for name in ("API clone", "API calculate-statistics", "API memory-parse-over"):
            self.try_all(name, "memory", "always", errno.ENOMEM, most=20)
        for name in ("API update-category", "API update-merging", "API clear"):
            self.try_all(name, "write", "once", errno.EIO)


class LossTest(TrustCase):
    drivers = ("load, new run", "load, over a set", "missing --apply", "embed", "API parse-over")

    def chosen(self):
        return [driver for driver in DRIVERS if driver.name in self.drivers]

    def test_a_power_loss_leaves_the_old_or_the_new_run(self):
        for driver in self.chosen():
            spilled = spilled_scene(driver, self.folder / driver.name)
            for scene, is_spilled in ((self.scene(driver), False), (spilled, True)):
                losses = Losses(scene, is_spilled)
                for i in range(LOSSES):
                    judgement = losses.attempt(self.source)
                    self.assertEqual(judgement.bad, "", (driver.name, is_spilled, i, judgement))

    def test_without_syncs_a_power_loss_is_seen(self):
        losses = Losses(self.scene(self.chosen()[1]), obeys_sync=False)
        bad = sum(losses.attempt(self.source).bad != "" for _ in range(4 * LOSSES))
        self.assertGreater(bad, 0)


class InstrumentTest(TrustCase):
    """What the judgements rest on."""

    driver = next(driver for driver in COMMANDS if driver.name == "load, over a set")

    def changed(self, statement):
        """Whether the state of a folder is another one after a statement."""
        scene = Scene(self.driver, Path(tempfile.mkdtemp(dir=self.folder)))
        scene.start_again()
        before = state_of(scene.folder)
        connection = sqlite3.connect(scene.folder / "run.db")
        with connection:
            connection.execute(statement)
        connection.close()
        return state_of(scene.folder) != before

    def test_the_digest_sees_every_kind_of_content(self):
        for statement in (
            "UPDATE TrainingSet SET d1 = d1 + 1 WHERE row = 7",
            "UPDATE OriginalData SET d0 = '0.250' WHERE row = 1",
            "UPDATE DataSetColumn SET OriginalLabel = 'x' WHERE ColumnIndex = 2",
            "UPDATE DataSetLabels SET label = 'x' WHERE [column] = 0",
            "UPDATE DataSetStatistics SET Medoid = 0 WHERE ColumnIndex = 1",
            "INSERT INTO DataSetColumnCategories VALUES ('d0', 'x', 1, 1)",
            "INSERT INTO MissingMappings VALUES (1, 1, 1, 'NA', NULL, 0)",
            "UPDATE RunParameters SET intvalue = 7 WHERE element = 'ProblemCategory'",
            "UPDATE RunHistory SET Parameters = '{}'",
            "CREATE TABLE Other (a)",
        ):
            self.assertTrue(self.changed(statement), statement)

    def test_the_digest_does_not_see_the_time(self):
        self.assertFalse(self.changed("UPDATE RunHistory SET Time = '2001-02-03T04:05:06Z'"))

    def test_counts_are_of_the_command_alone(self):
        scene = self.scene(self.driver)
        for kind in ("open", "read", "write", "sync", "unlink", "stat", "memory"):
            self.assertGreater(scene.counts[kind], 0, kind)

    def test_a_kill_strikes_where_it_is_told(self):
        scene = self.scene(self.driver)
        scene.start_again()
        last = scene.counts["unlink"]
        plan = Fault("unlink", last, "kill")
        outcome = shim.run_shimmed(
            scene.command(), scene.folder, scene.notes, TRUST_FAULT=str(plan)
        )
        self.assertEqual((outcome.code, outcome.was_hit), (-9, True))
        beyond = Fault("unlink", last + 1, "kill")
        scene.start_again()
        outcome = shim.run_shimmed(
            scene.command(), scene.folder, scene.notes, TRUST_FAULT=str(beyond)
        )
        self.assertEqual((outcome.code, outcome.was_hit), (0, False))

    def test_a_small_cache_spills(self):
        scene = spilled_scene(self.driver, self.folder)
        self.assertEqual(
            (Losses(scene).spills, Losses(scene, is_spilled=True).spills), (False, True)
        )


class DiskTest(unittest.TestCase):
    """The model of a disk that loses its power."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        (self.folder / "old").write_bytes(b"a" * 2048)
        self.source = random.Random(SEED)

    def images(self, events, obeys_sync=True, tries=300):
        """Every state of the folder that was seen after a loss."""
        seen = set()
        for _ in range(tries):
            disk = power_loss.Disk(self.folder, obeys_sync)
            for word, *fields in events:
                data = fields.pop() if word == "write" else b""
                disk.do(power_loss.Event(word, tuple(fields), data))
            found = disk.after_loss(self.source)
            seen.add(tuple(sorted((Path(p).name, c) for p, c in found.items())))
        return seen

    OPEN = ("open", "3", "old", "there", "kept")
    WRITE = ("write", "3", "512", "1024", b"b" * 1024)

    def test_what_was_not_synced_may_be_there_in_pieces(self):
        a, b = b"a" * 512, b"b" * 512
        self.assertEqual(
            {dict(state)["old"] for state in self.images([self.OPEN, self.WRITE])},
            {a + one + two + a for one in (a, b) for two in (a, b)},
        )

    def test_what_was_synced_is_there(self):
        events = [self.OPEN, self.WRITE, ("sync", "3")]
        whole = b"a" * 512 + b"b" * 1024 + b"a" * 512
        self.assertEqual(self.images(events), {(("old", whole),)})
        self.assertEqual(len(self.images(events, obeys_sync=False)), 4)

    def test_a_name_is_there_when_its_folder_was_synced(self):
        events = [("rename", "old", "new")]
        names = {tuple(name for name, _ in state) for state in self.images(events)}
        self.assertEqual(names, {("old",), ("new",)})
        events += [("open", "4", str(self.folder), "there", "kept"), ("sync", "4")]
        names = {tuple(name for name, _ in state) for state in self.images(events)}
        self.assertEqual(names, {("new",)})

    def test_a_file_is_made_and_removed_with_its_name_alone(self):
        events = [("open", "3", "new", "made", "kept"), ("unlink", "old")]
        names = {tuple(name for name, _ in state) for state in self.images(events)}
        self.assertEqual(names, {("old",), ("new",), ("new", "old"), ()})


if __name__ == "__main__":
    unittest.main()

"""Power losses in the middle and at the end of a driver, on copies of what it wrote."""

import hashlib

import shim
from fault_trials import Judgement, Scene
from power_loss import Disk, read_log, spills
from run_state import Damaged

SMALL_CACHE = "1"  # page: changed ones have to be written before the commit
SPILLING_SCALE = 4  # of the files, so that there are pages enough


def spilled_scene(driver, place):
    """A driver with data enough for a page cache that is full before the commit."""
    return Scene(driver, place / "spilled", SPILLING_SCALE)


class Losses:
    """The log of one driver's work, and tries of power losses in it."""

    def __init__(self, scene, is_spilled=False, obeys_sync=True):
        self.scene = scene
        self.obeys_sync = obeys_sync
        self.judged = {}
        log = scene.notes / "log"
        changes = {"TRUST_LOG": str(log)}
        if is_spilled:
            changes["TRUST_CACHE_PAGES"] = SMALL_CACHE
        scene.start_again()
        outcome = shim.run_shimmed(
            scene.command(), scene.folder, scene.notes, scene.driver.is_operation, **changes
        )
        assert outcome.code == 0, (scene.driver.name, outcome)
        written = {str(p): p.read_bytes() for p in scene.folder.rglob("*") if p.is_file()}
        self.events = read_log(log)
        self.spills = spills(self.events)
        scene.start_again()
        disk = self.disk_after(len(self.events))
        assert disk.whole() == written, f"{scene.driver.name}: the log does not tell all"
        inside = str(scene.folder)
        self.changes = [
            i + 1
            for i, event in enumerate(self.events)
            if event.word in ("write", "truncate", "unlink", "rename", "link", "sync")
            or event.word == "open" and event.fields[2] == "made" and inside
        ]

    def disk_after(self, count):
        disk = Disk(self.scene.folder, self.obeys_sync)
        for event in self.events[:count]:
            disk.do(event)
        return disk

    def attempt(self, source):
        """One power loss: every fourth one right after the command has ended."""
        scene = self.scene
        scene.start_again()
        is_over = source.random() < 0.25 or not self.changes
        count = len(self.events) if is_over else source.choice(self.changes)
        images = self.disk_after(count).after_loss(source)
        key = (is_over, self.digest(images))
        if key not in self.judged:
            self.lay_out(images)
            self.judged[key] = self.judge(is_over)
        return self.judged[key]

    def digest(self, images):
        whole = hashlib.sha256()
        for path in sorted(images):
            whole.update(f"{path}\0{len(images[path])}\0".encode())
            whole.update(images[path])
        return whole.digest()

    def lay_out(self, images):
        for path in self.scene.folder.rglob("*"):
            if path.is_file():
                path.unlink()
        for path, content in images.items():
            with open(path, "wb") as file:
                file.write(content)

    def judge(self, is_over):
        try:
            where, bad = self.scene.place_of_state()
        except Damaged as damage:
            return Judgement("damaged run", str(damage))
        if bad:
            return bad
        if is_over and where != "after":
            return Judgement("lost after the command had ended with 0")
        return self.scene.try_next(where)

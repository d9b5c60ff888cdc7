"""The whole campaign: faults, kills and power losses, counted. scripts/trust_campaign runs it."""

import argparse
import collections
import random
import sys
import tempfile
import threading
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from drivers import DRIVERS
from fault_trials import Fault, Scene
from loss_trials import Losses, spilled_scene

LOSSES = 400  # of each changing driver, and as many with a small page cache
MOST_SHOWN = 3  # examples of each kind of trouble
IN_MEMORY = Path("/dev/shm")  # the tries are many, and no disk needs to wear out


class Tally:
    """What was tried and what came of it."""

    def __init__(self):
        self.tries = collections.Counter()
        self.bad = collections.Counter()
        self.troubles = collections.defaultdict(list)
        self.lock = threading.Lock()

    def note(self, driver, experiment, judgement, how):
        with self.lock:
            self.tries[driver.name, experiment] += 1
            if judgement.bad:
                self.bad[driver.name, experiment] += 1
                self.troubles[experiment, judgement.bad].append((driver.name, how, judgement.detail))

    def print(self):
        experiments = sorted({experiment for _, experiment in self.tries})
        for experiment in experiments:
            print(f"\n{experiment}")
            for name in sorted({n for n, e in self.tries if e == experiment}):
                key = name, experiment
                print(f"  {name:38} {self.tries[key]:6} tries {self.bad[key]:5} bad")
        print("\nexperiment                                 tries    bad")
        for experiment in experiments:
            tries = sum(n for (_, e), n in self.tries.items() if e == experiment)
            bad = sum(n for (_, e), n in self.bad.items() if e == experiment)
            print(f"{experiment:40} {tries:7} {bad:6}")
        for (experiment, trouble), cases in sorted(self.troubles.items()):
            print(f"\n{len(cases)} x {trouble} ({experiment})")
            for name, how, detail in cases[:MOST_SHOWN]:
                print(f'  --only "{name}" --fault {how}   {" ".join(detail.split())[:300]}')


class Work:
    """One driver's share of the campaign, taken in turns with the others."""

    def __init__(self, driver, place, options):
        self.driver = driver
        self.source = random.Random(f"{options.seed} {driver.name}")
        self.place = place
        self.scene = Scene(driver, place / "small")
        self.steps = self.plan(options)

    def plan(self, options):
        """Yields (experiment, judgement, how) until all is tried."""
        steps = []
        if "faults" in options.what:
            steps.append(self.fault_steps())
        if "losses" in options.what and self.driver.changes and not self.is_in_memory():
            steps.append(self.loss_steps(options))
        while steps:
            for step in list(steps):
                try:
                    yield next(step)
                except StopIteration:
                    steps.remove(step)

    def is_in_memory(self):
        return self.driver.is_operation and self.scene.leaves_run_alone()

    def fault_steps(self):
        for fault in self.scene.faults(self.source):
            judgement = self.scene.attempt(fault, self.source)
            if judgement is not None:
                yield fault.experiment(), judgement, fault
        if self.driver.changes and not self.driver.is_operation:
            yield "standard output is full", self.scene.full_output(), "output"

    def loss_steps(self, options):
        kinds = [
            ("power loss", Losses(self.scene)),
            ("power loss, cache spilled", Losses(spilled_scene(self.driver, self.place), True)),
            ("control: syncs ignored", Losses(self.scene, obeys_sync=False)),
        ]
        kinds = [(name, losses) for name, losses in kinds if losses.spills or "spilled" not in name]
        for i in range(options.losses):
            for name, losses in kinds:
                yield name, losses.attempt(self.source), f"loss {i}"


def run(options):
    tally = Tally()
    end = time.monotonic() + 60 * options.minutes
    chosen = [driver for driver in DRIVERS if options.only in driver.name]
    if not chosen:
        sys.exit(f"trust_campaign: no driver has {options.only!r} in its name")
    base = IN_MEMORY if options.folder is None and IN_MEMORY.is_dir() else options.folder
    with tempfile.TemporaryDirectory(prefix="trust-", dir=base) as folder:

        def work(i):
            """The share of one thread: a step of each of its drivers in turn."""
            own = [
                Work(driver, Path(folder) / str(n), options)
                for n, driver in enumerate(chosen)
                if n % options.jobs == i
            ]
            while own and time.monotonic() < end:
                for one in list(own):
                    step = next(one.steps, None)
                    if step is None:
                        own.remove(one)
                    else:
                        tally.note(one.driver, *step)
            return not own

        with ThreadPoolExecutor(options.jobs) as pool:
            is_whole = all(list(pool.map(work, range(options.jobs))))
    tally.print()
    print(f"\nseed {options.seed}; " + ("everything was tried" if is_whole else "the time was up"))
    is_good = not any(n for (_, e), n in tally.bad.items() if not e.startswith("control"))
    controls = [key for key in tally.tries if key[1].startswith("control")]
    if controls and not any(tally.bad[key] for key in controls):
        print("the control found nothing: the experiment is blind")
        return 1
    return 0 if is_good else 1


def repeat(options):
    """Tries one fault again and shows what it did."""
    kind, place, mode, number = options.fault.split(":")
    driver = next(driver for driver in DRIVERS if options.only in driver.name)
    with tempfile.TemporaryDirectory(prefix="trust-") as folder:
        scene = Scene(driver, Path(folder) / "one")
        for seed in range(2):  # an operation: with and without a second attempt
            fault = Fault(kind, int(place), mode, int(number))
            print(driver.name, fault, scene.attempt(fault, random.Random(seed)))
    return 0


def main():
    parser = argparse.ArgumentParser(prog="trust_campaign", description=__doc__)
    parser.add_argument("--minutes", type=float, default=60, help="when to stop (default 60)")
    parser.add_argument("--only", default="", help="drivers with this in their name")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--jobs", type=int, default=1, help="threads (default 1)")
    parser.add_argument("--losses", type=int, default=LOSSES, help="power losses of each driver")
    parser.add_argument("--what", default="faults,losses", help="faults, losses or both")
    parser.add_argument("--folder", default=None, help="where to work (default: in memory)")
    parser.add_argument("--fault", help="try KIND:N:MODE:ERRNO alone, with --only")
    options = parser.parse_args()
    return repeat(options) if options.fault else run(options)


if __name__ == "__main__":
    sys.exit(main())

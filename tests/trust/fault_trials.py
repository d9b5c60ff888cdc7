"""One driver under faults: what it should have done, and a judgement of what it did."""

import errno
import random
import re
import shutil
from typing import NamedTuple

import shim
from drivers import files
from run_state import RUN, Damaged, plain_text, state_of

KINDS = ("open", "read", "write", "sync", "truncate", "unlink", "rename", "stat")
ERRORS = {
    "open": (errno.EIO, errno.EMFILE, errno.ENOMEM),
    "read": (errno.EIO,),
    "write": (errno.ENOSPC, errno.EIO),
    "sync": (errno.EIO, errno.ENOSPC),
    "truncate": (errno.EIO,),
    "unlink": (errno.EIO,),
    "rename": (errno.EIO, errno.ENOSPC),
    "stat": (errno.EIO, errno.ENOMEM),
    "memory": (errno.ENOMEM,),
}
KILLS = ("kill", "torn")
SIGKILL = -9
RECOVERED = re.compile(r"^tslm5: warning: .* was interrupted .*\n$")
# SQLite committed, but the folder could not be synced: stored, and perhaps lost with the power.
STORED_UNSYNCED = re.compile(r"error 1290: ")
READY = re.compile(r", ready \d")
# A failure after the commit must not be told as one of the whole.
SAYS_STORED = re.compile(
    r"; .* all the same\n$|is stored in .*, but|, but a power loss may still undo it"
)


class Fault(NamedTuple):
    kind: str
    place: int  # the n-th call of that kind, from 1
    mode: str  # of the shim
    number: int = errno.EIO

    def __str__(self):
        return f"{self.kind}:{self.place}:{self.mode}:{self.number}"

    def experiment(self):
        if self.kind == "memory":
            return f"no memory, {'for good' if self.mode == 'always' else 'once'}"
        if self.mode in KILLS:
            return "killed at a file operation"
        return f"file operation fails, {'for good' if self.mode == 'always' else 'once'}"


class Judgement(NamedTuple):
    bad: str  # "" when all is as it should be, else what is wrong in a few words
    detail: str = ""
    state: str = ""  # "before" or "after"


GOOD = Judgement("")


class Scene:
    """A driver with the state that it starts from and the one that it should lead to."""

    def __init__(self, driver, place, scale=1):
        self.driver = driver
        self.scale = scale  # of the files that are loaded
        self.notes = place / "notes"
        self.before_folder = place / "before"
        self.folder = place / "try"
        self.notes.mkdir(parents=True)
        self.prepare()
        self.learn()

    def prepare(self):
        self.folder.mkdir()
        for name, text in files(self.scale).items():
            (self.folder / name).write_text(text)
        (self.folder / "components").mkdir()
        for words in self.driver.before:
            outcome = shim.run(shim.words_before(words, self.folder), self.folder)
            assert outcome.code == 0, (self.driver.name, words, outcome)
        self.folder.rename(self.before_folder)

    def start_again(self):
        shutil.rmtree(self.folder, ignore_errors=True)
        shutil.copytree(self.before_folder, self.folder)

    def learn(self):
        """What the driver does when nothing fails, once and twice."""
        self.start_again()
        self.state_before = state_of(self.folder)
        self.info_before = self.info()
        if self.driver.is_operation:
            looked = shim.run(self.command("--look"), self.folder)
            assert looked.code == 0, (self.driver.name, looked)
            self.set_before = self.line(looked, "set")
            self.start_again()
        self.counts, outcome = shim.count(
            self.command(), self.folder, self.notes, self.driver.is_operation
        )
        assert outcome.code == 0, (self.driver.name, outcome)
        self.output = self.plain(outcome.output)
        self.set_after = self.line(outcome, "set")
        self.info_after = self.info()
        self.state_after = state_of(self.folder)
        if self.driver.is_operation:
            assert self.state_before != self.state_after or self.leaves_run_alone(), self.driver.name
        elif self.driver.changes:
            assert self.state_before != self.state_after, self.driver.name
        second = shim.run(self.command(), self.folder)
        self.code_twice = second.code
        self.state_twice = state_of(self.folder)

    def leaves_run_alone(self):
        return self.driver.words[0].startswith(("memory-", "nominal-", "report"))

    def command(self, *more):
        return shim.arguments(self.driver, self.folder, *more)

    def plain(self, text):
        return plain_text(text, self.folder)

    def info(self):
        """What the program itself says of the run; None without a run."""
        if not (self.folder / RUN).exists():
            return None
        outcome = shim.run([shim.PROGRAM, "info", RUN], self.folder)
        error = self.plain(outcome.error)
        # A run with an interrupted change is recovered by the first who looks, who says so.
        return outcome.code, self.plain(outcome.output), "" if RECOVERED.search(error) else error

    @staticmethod
    def line(outcome, name):
        """The last line of an operation's output that begins with that name."""
        lines = [line for line in outcome.output.splitlines() if line.startswith(f"{name}: ")]
        return lines[-1] if lines else ""

    def faults(self, source):
        """Every fault of every file operation, and as many of the allocations, in random order."""
        faults = []
        for kind in KINDS:
            modes = ["once", "always", "kill", *(["torn", "partial"] if kind == "write" else [])]
            faults += [
                Fault(kind, place, mode, source.choice(ERRORS[kind]))
                for place in range(1, self.counts[kind] + 1)
                for mode in modes
            ]
        places = range(1, self.counts["memory"] + 1)
        drawn = source.sample(places, min(len(places), max(200, len(faults) // 2)))
        memory = [
            Fault("memory", place, source.choice(("once", "always")), errno.ENOMEM)
            for place in drawn
        ]
        faults += memory
        source.shuffle(faults)
        return faults

    def attempt(self, fault, source=random):
        """Tries the driver with one fault; None when the fault did not strike."""
        self.start_again()
        again = self.driver.is_operation and fault.mode not in KILLS and source.random() < 0.5
        outcome = shim.run_shimmed(
            self.command(*(["--again"] if again else [])),
            self.folder,
            self.notes,
            self.driver.is_operation,
            TRUST_FAULT=str(fault),
        )
        if not outcome.was_hit:
            return None
        try:
            if self.driver.is_operation:
                return self.judge_operation(outcome, fault, again)
            if not self.driver.changes:
                return self.judge_reader(outcome, fault)
            return self.judge_command(outcome, fault)
        except Damaged as damage:
            return Judgement("damaged run", str(damage))

    def full_output(self):
        """Tries the driver with a standard output that takes nothing."""
        self.start_again()
        with open("/dev/full", "wb") as full:
            outcome = shim.run(self.command(), self.folder, output=full)
        if outcome.code == 0:
            return Judgement("exit 0 without an answer")
        return self.judge_command(outcome, Fault("output", 1, "always"))

    def ended_badly(self, outcome, fault):
        """What is wrong with how the process ended, or None."""
        if outcome.code is None:
            return Judgement("did not end")
        if fault.mode in KILLS:
            return None if outcome.code == SIGKILL else Judgement("not killed", str(outcome))
        if outcome.code < 0:
            return self.crash(outcome)
        return None

    def crash(self, outcome):
        """A crash, and whether it left the run whole."""
        try:
            left = self.place_of_state()[1]
        except Damaged as damage:
            left = Judgement("damaged run", str(damage))
        what = f"crash, signal {-outcome.code}"
        return Judgement(f"{what}; {left.bad}" if left else what, outcome.error)

    def wrong_words(self, outcome):
        """What is wrong with the words of a command that failed, or None."""
        if outcome.code != 3:
            return Judgement(f"exit code {outcome.code} for trouble of the system", outcome.error)
        lines = outcome.error.splitlines()
        if not lines or not lines[-1].startswith("tslm5: ") or len(lines[-1]) < 12:
            return Judgement("no words", outcome.error)
        return None

    def judge_reader(self, outcome, fault):
        bad = self.ended_badly(outcome, fault)
        if bad:
            return bad
        if outcome.code == 0 and self.plain(outcome.output) != self.output:
            return Judgement("exit 0 with another answer", outcome.output[:300])
        if outcome.code > 0:
            bad = self.wrong_words(outcome)
            if bad:
                return bad
        if state_of(self.folder) != self.state_before:
            return Judgement("a reading command changed something")
        return GOOD

    def judge_command(self, outcome, fault):
        bad = self.ended_badly(outcome, fault)
        if bad:
            return bad
        where, bad = self.place_of_state()
        if bad:
            return bad
        if fault.mode not in KILLS:
            if outcome.code == 0:
                if where != "after":
                    return Judgement("exit 0, but nothing was done", outcome.output)
                if fault.kind != "output" and self.plain(outcome.output) != self.output:
                    return Judgement("exit 0 with another answer", outcome.output[:300])
            else:
                bad = self.wrong_words(outcome)
                if bad:
                    return bad
                is_told = self.driver.may_store_first or SAYS_STORED.search(outcome.error)
                if where == "after" and not is_told:
                    return Judgement("done, but told as failed", outcome.error)
            if self.litter() and fault.kind != "unlink":  # what cannot be removed stays
                return Judgement("files left", " ".join(self.litter()))
        return self.try_next(where)

    def judge_operation(self, outcome, fault, again):
        bad = self.ended_badly(outcome, fault)
        if bad:
            return bad
        where, bad = self.place_of_state(outcome)
        if bad:
            return bad
        if fault.mode in KILLS:
            return self.try_next(where)
        if outcome.code not in (0, 3):
            return Judgement(f"exit code {outcome.code}", outcome.error)
        if "unreadable" in outcome.output:
            return Judgement("the set cannot be read", outcome.output)
        attempts = [line for line in outcome.output.splitlines() if line.startswith("attempt: ")]
        held = self.line(outcome, "set")
        if outcome.code == 0:
            if where != "after" and not self.leaves_run_alone():
                return Judgement("done, but the run is as before", outcome.output)
            if held != self.set_after and not (len(attempts) > 1 and self.driver.is_in_transaction):
                return Judgement("done, but the set holds something else", outcome.output)
            return self.try_next("after") if self.driver.words[0] != "create-schema" else GOOD
        if again and not STORED_UNSYNCED.search(outcome.output):
            return Judgement("fails again without a fault", outcome.output)
        if where == "after" and STORED_UNSYNCED.search(outcome.output):
            if held != self.set_after:
                return Judgement("stored, but the set holds something else", outcome.output)
            return self.try_next("after")
        if where == "after" and not self.leaves_run_alone():
            return Judgement("done, but told as failed", outcome.output)
        if self.driver.is_in_transaction:
            return self.try_next("before")
        if self.driver.words[0].startswith("set-data"):  # a failed one is not ready, by contract
            held = READY.sub(", ready 1" if "ready 1" in self.set_before else ", ready 0", held)
        if held not in (self.set_before, self.set_after):
            return Judgement("failed, and the set holds something else", outcome.output)
        if held != self.set_before:
            return Judgement("failed, but the set is changed", outcome.output)
        return self.try_next("before")

    def litter(self):
        """Files that neither state has."""
        known = {*self.state_before, *self.state_after}
        return sorted({*state_of(self.folder)} - known)

    def place_of_state(self, outcome=None):
        """Whether the folder is as "before" or "after", or a judgement if it is neither. The program
        itself looks first."""
        told = self.info()
        if told is not None and told[0] != 0:
            return "", Judgement("the run cannot be read afterwards", told[2])
        if told is not None and RUN not in state_of(self.folder):
            told = None
        known = {*self.state_before, *self.state_after}
        state = {name: value for name, value in state_of(self.folder).items() if name in known}
        if state == self.state_before and told == self.info_before:
            return ("after" if state == self.state_after else "before"), None
        if state == self.state_after and told == self.info_after:
            return "after", None
        detail = f"{told} {state}" + (f" {outcome.output}" if outcome else "")
        if state in (self.state_before, self.state_after):
            return "", Judgement("the program tells something else than the run holds", detail)
        return "", Judgement("neither before nor after", detail)

    def try_next(self, where):
        """The same again, without a fault: it leads from before to after, and from after to what
        doing it twice leads to."""
        outcome = shim.run(self.command(), self.folder)
        code = 0 if where == "before" else self.code_twice
        expected = self.state_after if where == "before" else self.state_twice
        known = {*self.state_before, *self.state_after}
        state = {name: value for name, value in state_of(self.folder).items() if name in known}
        if self.leaves_run_alone() and self.driver.is_operation:
            expected = state
        if where == "after" and self.state_before == self.state_after:
            code, expected = outcome.code if outcome.code == 0 else code, state
        if outcome.code != code:
            return Judgement("the next command fails", outcome.error)
        if state != expected:
            return Judgement("the next command does something else", str(state))
        return Judgement("", state=where)

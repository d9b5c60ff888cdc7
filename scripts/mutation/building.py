"""The build of a copy of the project in which all mutants of a run stand."""

import re
import shutil
import subprocess
from pathlib import Path

from mutation.rewriting import Mutant, mutant_at, rewrite

SWITCH = Path(__file__).resolve().with_name("switch.h")
PLACE = re.compile(r"^(?P<path>[^\s:][^:\n]*):(?P<line>\d+):(?:\d+:)? (?P<word>error|.*required from)",
                   re.MULTILINE)  # fmt: skip
MOST_BUILDS = 12


class BuildFailure(Exception):
    """The copy cannot be built, and no mutant is to blame."""


class Copy:
    """A copy of the project's files in `folder`, built there in `folder`/build/dev."""

    def __init__(self, root: Path, folder: Path, configure: list[str], jobs: int):
        self.root = root
        self.folder = folder
        self.build_folder = folder / "build" / "dev"
        self._configure = configure
        self._jobs = str(jobs)

    def build(self, mutants: list[Mutant], targets: list[str]) -> list[Mutant]:
        """Builds the copy with the mutants that compile, and returns those."""
        paths = sorted({one.path for one in mutants})
        self._bring_up_to_date(set(paths))
        kept = list(mutants)
        for _ in range(MOST_BUILDS):
            for path in paths:
                self._write_mutated(path, [one for one in kept if one.path == path])
            self._configure_build()
            command = ["ninja", "-C", str(self.build_folder), "-k", "0", "-j", self._jobs, *targets]
            built = subprocess.run(command, capture_output=True, text=True)
            if built.returncode == 0:
                return kept
            guilty = self._guilty(built.stdout, kept)
            if not guilty:
                raise BuildFailure(built.stdout[-4000:] + built.stderr[-1000:])
            kept = [one for one in kept if one.number not in guilty]
        raise BuildFailure(f"mutants still fail to compile after {MOST_BUILDS} builds")

    def _configure_build(self) -> None:
        if (self.build_folder / "build.ninja").is_file():
            return
        command = ["cmake", "--preset", "dev", "-DTSLM5_BENCHMARKS=OFF", *self._configure]
        subprocess.run(command, cwd=self.folder, check=True, stdout=subprocess.DEVNULL)

    def _bring_up_to_date(self, mutated: set[str]) -> None:
        """Copies what differs; what is the same keeps its time, so that it is not built again."""
        listed = subprocess.run(
            ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
            cwd=self.root, check=True, capture_output=True, text=True).stdout  # fmt: skip
        paths = {path for path in listed.split("\0") if (self.root / path).is_file()}
        for path in paths - mutated:
            write_if_new(self.folder / path, (self.root / path).read_bytes())
            shutil.copymode(self.root / path, self.folder / path)

    def _write_mutated(self, path: str, mutants: list[Mutant]) -> None:
        text = (self.root / path).read_text(encoding="utf-8")
        if mutants:
            text = rewrite(text, mutants, str(SWITCH), str(self.folder / path))
        write_if_new(self.folder / path, text.encode())

    def _guilty(self, output: str, mutants: list[Mutant]) -> set[int]:
        """The mutants at the places that the compiler names; else all of a file that failed."""
        guilty = set()
        for failure in output.split("FAILED: ")[1:]:
            found = {
                mutant.number
                for match in PLACE.finditer(failure)
                if (mutant := mutant_at(mutants, self._relative(match["path"]), int(match["line"])))
            }
            if not found:
                object_path = failure.split(maxsplit=1)[0]
                found = {one.number for one in mutants
                         if object_path.endswith("/" + one.path.split("/", 2)[-1] + ".o")}  # fmt: skip
            guilty |= found
        return guilty

    def _relative(self, path: str) -> str:
        """A path as the compiler names it, relative to the copy."""
        resolved = (self.build_folder / path).resolve()
        return resolved.relative_to(self.folder).as_posix() if resolved.is_relative_to(self.folder) else path


def write_if_new(path: Path, content: bytes) -> None:
    if path.is_file() and path.read_bytes() == content:
        return
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(content)

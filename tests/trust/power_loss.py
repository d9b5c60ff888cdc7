"""What a power loss can leave on the disk, from the log of what a process wrote.

The model is harsher than any file system in use. What was done to a file since it was last synced may
have reached the disk or not, each operation for itself, a write in pieces of 512 bytes; a part of a
file that grew and was not written holds zeros or garbage. What was done to names (a file made,
removed, renamed, linked) since their folder was last synced may have reached it or not, each for
itself. What was synced is there."""

import copy
import os
from pathlib import Path
from typing import NamedTuple

SECTOR = 512


class Unreadable(Exception):
    """The log tells of something that the model does not know."""


class Event(NamedTuple):
    word: str
    fields: tuple
    data: bytes = b""


def read_log(path):
    raw = path.read_bytes()
    events = []
    place = 0
    while place < len(raw):
        end = raw.index(b"\n", place)
        word, *fields = raw[place:end].decode().split("\t")
        place = end + 1
        data = b""
        if word == "write":
            data = raw[place : place + int(fields[2])]
            place += len(data)
        if word == "unknown":
            raise Unreadable(fields[0])
        events.append(Event(word, tuple(fields), data))
    return events


class File:
    def __init__(self, content=b""):
        self.on_disk = bytearray(content)
        self.pending = []  # ("write", offset, data) or ("truncate", size)

    def sync(self):
        for change in self.pending:
            apply_whole(self.on_disk, change)
        self.pending.clear()


def apply_whole(content, change):
    if change[0] == "truncate":
        size = change[1]
        content.extend(b"\0" * (size - len(content)))
        del content[size:]
        return
    _, offset, data = change
    content.extend(b"\0" * (offset - len(content)))
    content[offset : offset + len(data)] = data


def apply_torn(content, change, source):
    """Some of the 512-byte pieces of a write."""
    if change[0] == "truncate":
        apply_whole(content, change)
        return
    _, offset, data = change
    grows_to = offset + len(data)
    old_size = len(content)
    if grows_to > old_size:
        filler = source.choice((lambda n: b"\0" * n, source.randbytes))
        content.extend(filler(grows_to - old_size))
    start = 0
    while start < len(data):
        end = min(len(data), (offset + start) // SECTOR * SECTOR + SECTOR - offset)
        if source.random() < 0.5:
            content[offset + start : offset + end] = data[start:end]
        start = end
    if grows_to > old_size and source.random() < 0.3:
        del content[source.randint(old_size, grows_to) :]


class Disk:
    """Files and names, as the process sees them and as they are on the disk."""

    def __init__(self, folder, obeys_sync=True):
        self.folder = Path(folder)
        self.obeys_sync = obeys_sync
        self.names = {}
        for path in self.folder.rglob("*"):
            if path.is_file():
                self.names[str(path)] = File(path.read_bytes())
        self.names_on_disk = dict(self.names)
        self.pending_names = []  # ("link", path, file), ("unlink", path), ("rename", from, to, file)
        self.open_files = {}

    def path(self, name):
        return os.path.normpath(self.folder / name)

    def do(self, event):
        getattr(self, f"do_{event.word}")(*event.fields, **({"data": event.data} if event.data else {}))

    def do_open(self, number, name, made, emptied):
        path = self.path(name)
        self.open_files[number] = path
        if os.path.isdir(path):
            return
        if made == "made":
            self.names[path] = File()
            self.pending_names.append(("link", path, self.names[path]))
        file = self.names.get(path)
        self.open_files[number] = file or path
        if file and emptied == "emptied" and made != "made":
            file.pending.append(("truncate", 0))

    def do_close(self, number):
        self.open_files.pop(number, None)

    def file_of(self, number):
        file = self.open_files.get(number)
        return file if isinstance(file, File) else None

    def do_write(self, number, offset, _, data=b""):
        if file := self.file_of(number):
            file.pending.append(("write", int(offset), data))

    def do_truncate(self, number, size):
        if file := self.file_of(number):
            file.pending.append(("truncate", int(size)))

    def do_sync(self, number):
        if not self.obeys_sync:
            return
        if file := self.file_of(number):
            file.sync()
        elif number in self.open_files:
            folder = self.open_files[number]
            here = [c for c in self.pending_names if os.path.dirname(c[1]) == folder]
            for change in here:
                apply_name(self.names_on_disk, change)
                self.pending_names.remove(change)

    def do_unlink(self, name):
        path = self.path(name)
        if self.names.pop(path, None):
            self.pending_names.append(("unlink", path))

    def do_rename(self, old, new):
        old, new = self.path(old), self.path(new)
        file = self.names.pop(old, None)
        if file:
            self.names[new] = file
            self.pending_names.append(("rename", old, new, file))

    def do_link(self, old, new):
        file = self.names.get(self.path(old))
        if file:
            self.names[self.path(new)] = file
            self.pending_names.append(("link", self.path(new), file))

    def whole(self):
        """The files as the process sees them: path to content."""
        names = copy.copy(self.names)
        return {path: content_now(file) for path, file in names.items()}

    def after_loss(self, source):
        """The files as a power loss now could leave them."""
        share = source.choice((0.0, 0.5, 1.0, source.random()))
        names = dict(self.names_on_disk)
        for change in self.pending_names:
            if source.random() < share:
                apply_name(names, change)
        share = source.choice((0.0, 0.5, 1.0, source.random()))
        contents = {}
        images = {}
        for path, file in names.items():
            if id(file) not in contents:
                content = bytearray(file.on_disk)
                for change in file.pending:
                    if source.random() >= share:
                        continue
                    if source.random() < 0.5:
                        apply_whole(content, change)
                    else:
                        apply_torn(content, change, source)
                contents[id(file)] = bytes(content)
            images[path] = contents[id(file)]
        return images


def content_now(file):
    content = bytearray(file.on_disk)
    for change in file.pending:
        apply_whole(content, change)
    return bytes(content)


def apply_name(names, change):
    if change[0] == "link":
        names[change[1]] = change[2]
    elif change[0] == "unlink":
        names.pop(change[1], None)
    else:
        names.pop(change[1], None)
        names[change[2]] = change[3]


def spills(events):
    """Whether the database was written before its journal was finished: the page cache was full."""
    paths = {}
    has_written_run = False
    for event in events:
        if event.word == "open":
            paths[event.fields[0]] = event.fields[1]
        if event.word == "unlink" and event.fields[0].endswith("-journal"):
            has_written_run = False
        if event.word != "write":
            continue
        path = paths.get(event.fields[0], "")
        if path.endswith("-journal") and has_written_run and int(event.fields[2]) > SECTOR:
            return True
        has_written_run = has_written_run or ".db" in path and not path.endswith("-journal")
    return False

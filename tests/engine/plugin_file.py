# SPDX-License-Identifier: MIT
"""Writes the plug-in that a walk adds to a dungeon, and reads saved games: both are records."""

import itertools
import struct
from dataclasses import dataclass
from pathlib import Path
from typing import Dict, Iterator, List, Sequence, Tuple

Part = Tuple[str, bytes]


def part(tag: str, data: bytes) -> bytes:
    """A part of a record."""
    return tag.encode() + struct.pack("<I", len(data)) + data


def record(tag: str, *parts: bytes) -> bytes:
    """A record."""
    body = b"".join(parts)
    return tag.encode() + struct.pack("<III", len(body), 0, 0) + body


def text(words: str) -> bytes:
    """A text with its end."""
    return words.encode("cp1252") + b"\0"


def variable(name: str) -> bytes:
    """A global variable that begins with 0."""
    return record("GLOB", part("NAME", text(name)), part("FNAM", b"f"), part("FLTV", bytes(4)))


def setting(name: str, value: float) -> bytes:
    """A number among the game's settings."""
    return record("GMST", part("NAME", name.encode()), part("FLTV", struct.pack("<f", value)))


def script(name: str, source: str) -> bytes:
    """A script, which the engine compiles itself."""
    head = name.encode().ljust(32, b"\0") + bytes(20)
    return record("SCPT", part("SCHD", head), part("SCDT", b""), part("SCTX", source.encode()))


@dataclass(frozen=True)
class Placed:
    """A reference, by its number; above 2^24 it is one of the second master's that is changed."""

    number: int
    id: str
    position: Sequence[float]
    rotation: Sequence[float]
    lock: int = 0

    def parts(self) -> bytes:
        """The parts of a cell that place it."""
        locked = part("FLTV", struct.pack("<i", self.lock)) if self.lock else b""
        place = struct.pack("<6f", *self.position, *self.rotation)
        return (
            part("FRMR", struct.pack("<I", self.number))
            + part("NAME", text(self.id))
            + locked
            + part("DATA", place)
        )


def interior(name: str, placed: Sequence[Placed]) -> bytes:
    """What is added to an interior, or changed in it."""
    flags = part("DATA", struct.pack("<IIf", 1, 0, 1.0))
    return record("CELL", part("NAME", text(name)), flags, *(each.parts() for each in placed))


def write_plugin(path: Path, masters: Sequence[str], records: List[bytes]) -> None:
    """Writes a plug-in."""
    head = struct.pack("<fI", 1.2, 0) + bytes(288) + struct.pack("<I", len(records))
    needs = b"".join(part("MAST", text(name)) + part("DATA", bytes(8)) for name in masters)
    path.write_bytes(record("TES3", part("HEDR", head), needs) + b"".join(records))


def records(data: bytes) -> Iterator[Tuple[str, List[Part]]]:
    """The records of a file, each with its parts."""
    place = 0
    while place < len(data):
        tag, size = struct.unpack_from("<4sI", data, place)
        yield tag.decode("latin-1"), list(_parts(data[place + 16 : place + 16 + size]))
        place += 16 + size


def _parts(body: bytes) -> Iterator[Part]:
    place = 0
    while place < len(body):
        tag, size = struct.unpack_from("<4sI", body, place)
        yield tag.decode("latin-1"), body[place + 8 : place + 8 + size]
        place += 8 + size


def without_entrance(data: bytes) -> bytes:
    """A plug-in without what it adds to cells of the world."""
    whole = b""
    for tag, parts in records(data):
        if tag == "CELL" and not dict(parts)["DATA"][0] & 1:
            parts = list(itertools.takewhile(lambda each: each[0] != "FRMR", parts))
        whole += record(tag, *(part(*each) for each in parts))
    return whole


def saved_variables(path: Path) -> Dict[str, float]:
    """The global variables of a saved game."""
    found: Dict[str, float] = {}
    for tag, parts in records(path.read_bytes()):
        values = dict(parts)
        if tag == "GLOB" and len(values.get("FLTV", b"")) == 4:
            name = values["NAME"].split(b"\0")[0].decode("cp1252")
            found[name] = struct.unpack("<f", values["FLTV"])[0]
    return found

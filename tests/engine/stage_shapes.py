# SPDX-License-Identifier: MIT
"""What the objects of a stage look like: the faces that the engine lets nobody through."""

import struct
from pathlib import Path
from typing import Dict, List, Sequence, Tuple

from .plan import Point
from .plugin_file import part, record, records

# Four corners in a plane.
Face = Tuple[Point, ...]

MASTER = "Morrowind.esm"


class Stage:
    """The objects of a stage and of a plug-in on it, by identifiers."""

    def __init__(self, folder: Path, plugin: Path) -> None:
        self.folder = folder
        self._parts: Dict[str, Tuple[str, Dict[str, bytes]]] = {}
        self._shapes: Dict[str, List[Face]] = {}
        for file in (folder / MASTER, plugin):
            for tag, parts in records(file.read_bytes()):
                values = dict(parts)
                if tag != "CELL" and "NAME" in values:
                    self._parts[_text(values["NAME"]).lower()] = (tag, values)

    def is_door(self, name: str) -> bool:
        """Whether an object swings open."""
        return self._record(name)[0] == "DOOR"

    def scripted_doors(self, script: str) -> List[bytes]:
        """The records of all doors, with a script to them."""
        doors = (values for tag, values in self._parts.values() if tag == "DOOR")
        order = ("NAME", "MODL", "FNAM", "SCRI")
        found = []
        for door in doors:
            parts = {**door, "SCRI": script.encode() + b"\0"}
            found.append(record("DOOR", *(part(tag, parts[tag]) for tag in order if tag in parts)))
        return found

    def shape(self, name: str) -> List[Face]:
        """The faces of an object in its own frame; none for what has no shape."""
        key = name.lower()
        if key not in self._shapes:
            tag, values = self._record(name)
            if tag == "LEVC":
                self._shapes[key] = self.shape(_text(values["CNAM"]))
            elif "MODL" in values:
                # The engine minds no case, and writes folders its own way.
                path = self.folder.joinpath("meshes", *_text(values["MODL"]).lower().split("\\"))
                self._shapes[key] = _faces(path.read_bytes())
            else:
                self._shapes[key] = []
        return self._shapes[key]

    def _record(self, name: str) -> Tuple[str, Dict[str, bytes]]:
        return self._parts.get(name.lower(), ("", {}))


def _text(data: bytes) -> str:
    return data.split(b"\0")[0].decode("cp1252")


def _faces(mesh: bytes) -> List[Face]:
    """What bars the way stands in the last piece of a mesh, four corners to a face; an actor is a
    box."""
    kind = b"NiTriShapeData"
    start = mesh.rfind(kind)
    if start < 0:
        return []
    (count,) = struct.unpack_from("<H", mesh, start + len(kind))
    numbers = struct.unpack_from(f"<{3 * count}f", mesh, start + len(kind) + 6)
    corners: List[Point] = [
        (numbers[i], numbers[i + 1], numbers[i + 2]) for i in range(0, len(numbers), 3)
    ]
    if b"RootCollisionNode" in mesh:
        return [tuple(corners[i : i + 4]) for i in range(0, len(corners), 4)]
    return _box(corners)


def _box(corners: Sequence[Point]) -> List[Face]:
    low = tuple(min(corner[axis] for corner in corners) for axis in range(3))
    high = tuple(max(corner[axis] for corner in corners) for axis in range(3))
    ring = [(low[0], low[1]), (high[0], low[1]), (high[0], high[1]), (low[0], high[1])]
    sides: List[Face] = [
        ((*a, low[2]), (*b, low[2]), (*b, high[2]), (*a, high[2]))
        for a, b in zip(ring, ring[1:] + ring[:1])
    ]
    return [*sides, tuple((*corner, high[2]) for corner in ring)]

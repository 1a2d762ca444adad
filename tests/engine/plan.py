# SPDX-License-Identifier: MIT
"""A level as the program draws it up, and where on it one can walk."""

import math
from dataclasses import dataclass
from typing import Any, Dict, FrozenSet, List, NamedTuple, Optional, Sequence, Tuple

Point = Tuple[float, float, float]

# By letter: the step to the neighbour, and the heading, clockwise from north in degrees.
SIDES: Dict[str, Tuple[int, int, float]] = {
    "n": (0, -1, 0.0),
    "e": (1, 0, 90.0),
    "s": (0, 1, 180.0),
    "w": (-1, 0, 270.0),
}
OPPOSITE = {"n": "s", "e": "w", "s": "n", "w": "e"}

# What is put down where one arrives, above the floor. [world units]
ARRIVAL_HEIGHT = 32.0


def point(numbers: Sequence[float]) -> Point:
    """Three numbers of an answer."""
    x, y, z = numbers
    return (x, y, z)


class Place(NamedTuple):
    """A cell's column and row."""

    x: int
    y: int

    def beside(self, side: str) -> "Place":
        """The neighbour on that side."""
        step = SIDES[side]
        return Place(self.x + step[0], self.y + step[1])


@dataclass(frozen=True)
class Cell:
    """What the plan says of a cell."""

    tile: str
    open: FrozenSet[str]
    doorway: str
    leads_to: Optional[str]
    on_floor: bool
    room: int
    platform: bool

    @property
    def ways(self) -> FrozenSet[str]:
        """The sides by which one leaves it for a neighbour."""
        return self.open - frozenset(self.doorway) if self.leads_to is not None else self.open


@dataclass(frozen=True)
class Room:
    """A room, by its number from 1."""

    number: int
    middle: Tuple[float, float]
    reachable: bool


@dataclass(frozen=True)
class Thing:
    """What stands on the level."""

    id: str
    sort: str
    position: Point
    degrees: Point
    scale: float
    leads_to: Optional[str]


class Level:
    """A level of the map that the program gives as data."""

    def __init__(self, answer: Dict[str, Any]) -> None:
        self.name: str = answer["name"]
        self.tileset: str = answer["tileset"]
        self.size: int = answer["cell-size"]
        self.corner = point(answer["corner"])
        self.arrival: Dict[str, Any] = answer["arrival"]
        self.cells = {Place(cell["x"], cell["y"]): _cell(cell) for cell in answer["cells"]}
        self.rooms = [_room(number, room) for number, room in enumerate(answer["rooms"], 1)]
        self.things = [
            Thing(
                thing["id"],
                thing["sort"],
                point(thing["position"]),
                point(thing["degrees"]),
                thing["scale"],
                thing["leads-to"],
            )
            for thing in answer["things"]
        ]

    def middle(self, place: Place) -> Tuple[float, float]:
        """The middle of a cell in the world."""
        return (self.corner[0] + place.x * self.size, self.corner[1] - place.y * self.size)

    def place(self, x: float, y: float) -> Place:
        """The cell at a place in the world."""
        return Place(
            math.floor((x - self.corner[0]) / self.size + 0.5),
            math.floor((self.corner[1] - y) / self.size + 0.5),
        )

    def joined(self, place: Place, side: str) -> bool:
        """Whether one walks from a cell to its neighbour."""
        here = self.cells.get(place)
        there = self.cells.get(place.beside(side))
        return (
            here is not None
            and there is not None
            and there.on_floor
            and side in here.ways
            and OPPOSITE[side] in there.ways
        )

    def reached(self, start: Place) -> List[Place]:
        """The cells that one can walk to, nearest first."""
        found = [start]
        seen = {start}
        for place in found:
            for side in SIDES:
                beside = place.beside(side)
                if beside not in seen and self.joined(place, side):
                    seen.add(beside)
                    found.append(beside)
        return found

    def goal(self, room: Room) -> Place:
        """The cell of a room that is nearest to its middle."""
        places = [place for place, cell in self.cells.items() if cell.room == room.number]
        return min(places, key=lambda place: math.dist(place, room.middle))


def _cell(answer: Dict[str, Any]) -> Cell:
    return Cell(
        answer["tile"],
        frozenset(answer["open"]),
        answer["doorway"],
        answer["leads-to"],
        answer["on-floor"],
        answer["room"],
        answer["platform"],
    )


def _room(number: int, answer: Dict[str, Any]) -> Room:
    middle = (
        answer["x"] + (answer["width"] - 1) / 2,
        answer["y"] + (answer["height"] - 1) / 2,
    )
    return Room(number, middle, answer["reachable"])

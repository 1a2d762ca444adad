# SPDX-License-Identifier: MIT
"""What the player does one after another, and what must come of it."""

import math
from dataclasses import dataclass
from typing import Dict, List, Sequence, Tuple

from .plan import Point

# Where the player was when a step ended: a place and a heading.
Stand = Tuple[float, float, float, float]

# How exact a place and a heading have to be behind a door. [world units, degrees]
PLACE, HEADING = 3.0, 1.0
# How far a walk may come out beside its end, and above or below it: a foot on the next step. [world
# units]
BESIDE, ABOVE = 64.0, 36.0


@dataclass(frozen=True)
class Step:
    """One step; where it happens is told when it goes wrong."""

    cell: str
    what: str

    def judge(self, stand: Stand) -> List[str]:
        """What is wrong with where it ended."""
        return []

    def told(self, stand: Sequence[float], why: str) -> str:
        """A line about something wrong."""
        place = ", ".join(f"{value:.0f}" for value in stand[:3])
        return f'"{self.cell}", {self.what}: {why} at ({place})'


@dataclass(frozen=True)
class Walk(Step):
    """Along a straight line; where nothing moves on, a step back and the use key."""

    start: Point
    end: Point

    def judge(self, stand: Stand) -> List[str]:
        if abs(stand[2] - self.end[2]) > ABOVE:
            return [self.told(stand, f"not on the floor at {self.end[2]:.0f}")]
        if math.dist(stand[:2], self.end[:2]) > BESIDE:
            return [self.told(stand, "off the way")]
        return []


@dataclass(frozen=True)
class Put(Step):
    """The player is put down somewhere, in an interior or in the world."""

    position: Point
    heading: float
    outside: bool = False


@dataclass(frozen=True)
class Look:
    """Where the player looks: clockwise from north, and down. [degrees]"""

    heading: float
    pitch: float


@dataclass(frozen=True)
class Use(Step):
    """The use key before a door within a level, and time for it to open."""

    look: Look


@dataclass(frozen=True)
class Door(Step):
    """The use key before a door that leads to another level."""

    look: Look
    arrival: Point
    arrival_heading: float

    def judge(self, stand: Stand) -> List[str]:
        findings = []
        if math.dist(stand[:2], self.arrival[:2]) > PLACE:
            findings.append(self.told(stand, "another place than the plug-in says"))
        if abs(stand[2] - self.arrival[2]) > ABOVE:
            findings.append(self.told(stand, "arrival beside the floor"))
        turn = (stand[3] - self.arrival_heading + 180) % 360 - 180
        if abs(turn) > HEADING:
            findings.append(self.told(stand, f"turned by {turn:.0f} degrees"))
        return findings


@dataclass(frozen=True)
class Open(Step):
    """The use key before a container, and all that is in it taken."""

    position: Point
    look: Look
    items: Tuple[str, ...]
    counts: Tuple[int, ...]

    def compare(self, found: Sequence[float], owned: Dict[str, int]) -> List[str]:
        """What the player has otherwise than he should, by what he `owned` before, to which it is
        added."""
        for item, count in zip(self.items, self.counts):
            owned[item] = owned.get(item, 0) + abs(count)
        return [
            self.told(self.position, f"{has:.0f} of {item} instead of {owned[item]}")
            for item, has in zip(self.items, found)
            if has != owned[item]
        ]


@dataclass(frozen=True)
class Picture(Step):
    """A view that is kept."""

    position: Point
    look: Look

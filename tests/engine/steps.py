# SPDX-License-Identifier: MIT
"""What the player does one after another, and what must come of it."""

import math
from dataclasses import dataclass
from typing import Dict, List, Sequence, Tuple

from .plan import Point

Spot = Tuple[float, float]
# Where the player was when a step ended: a place and a heading.
Stand = Tuple[float, float, float, float]

# How exact a place and a heading have to be behind a door. [world units, degrees]
PLACE, HEADING = 3.0, 1.0
# How far below and above a level floor somebody may stand: on something low. [world units]
BELOW, ABOVE = 6.0, 50.0
# How far from its end a walk may come out, round what stands there. [world units]
OVERSHOOT = 170.0


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

    start: Spot
    end: Spot
    floor: float
    slopes: float

    def judge(self, stand: Stand) -> List[str]:
        above = stand[2] - self.floor
        if not -BELOW - self.slopes <= above <= ABOVE + self.slopes:
            return [self.told(stand, "off the floor")]
        if math.dist(stand[:2], self.end) > OVERSHOOT:
            return [self.told(stand, "off the way")]
        return []


@dataclass(frozen=True)
class Put(Step):
    """The player is put down somewhere."""

    position: Point
    heading: float


@dataclass(frozen=True)
class Door(Step):
    """The use key before a door that leads to another level."""

    heading: float
    arrival: Point
    arrival_heading: float
    floor: float

    def judge(self, stand: Stand) -> List[str]:
        findings = []
        if math.dist(stand[:2], self.arrival[:2]) > PLACE:
            findings.append(self.told(stand, "another place than the plug-in says"))
        if not -BELOW <= stand[2] - self.floor <= BELOW:
            findings.append(self.told(stand, "arrival beside the floor"))
        turn = (stand[3] - self.arrival_heading + 180) % 360 - 180
        if abs(turn) > HEADING:
            findings.append(self.told(stand, f"turned by {turn:.0f} degrees"))
        return findings


@dataclass(frozen=True)
class Open(Step):
    """The use key before a container, and all that is in it taken."""

    position: Point
    heading: float
    pitch: float
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
    heading: float
    pitch: float

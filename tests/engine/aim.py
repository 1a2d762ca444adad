# SPDX-License-Identifier: MIT
"""What the player looks at, and from where the use key finds it."""

import math
from typing import Optional

from .ground import Ground
from .plan import Point
from .steps import Look
from .ways import Reached

# The player's eyes above his feet. [world units]
EYES = 118.0
# How far from the eyes the use key still finds something, with some to spare. [world units]
REACH = 175.0
# Farther from the middle of a thing nobody stands who uses it. [world units]
FAR = 256.0


def middle_of(ground: Ground, number: int) -> Point:
    """The middle of a thing."""
    corners = ground.corners(number)
    low = [min(corner[axis] for corner in corners) for axis in range(3)]
    high = [max(corner[axis] for corner in corners) for axis in range(3)]
    return ((low[0] + high[0]) / 2, (low[1] + high[1]) / 2, (low[2] + high[2]) / 2)


def look_at(stand: Point, end: Point) -> Look:
    """How somebody who stands there looks at a place."""
    east, north = end[0] - stand[0], end[1] - stand[1]
    down = stand[2] + EYES - end[2]
    return Look(
        math.degrees(math.atan2(east, north)),
        math.degrees(math.atan2(down, math.hypot(east, north))),
    )


def _eye(stand: Point) -> Point:
    return (stand[0], stand[1], stand[2] + EYES)


def sees(ground: Ground, stand: Point, number: int) -> bool:
    """Whether the use key finds a thing."""
    seen, distance = ground.seen(_eye(stand), middle_of(ground, number))
    return seen == number and distance < REACH


def stand_before(ground: Ground, reached: Reached, number: int) -> Optional[Point]:
    """Where one stands to use a thing, if anywhere."""
    middle = middle_of(ground, number)

    def far(place: Point) -> Optional[float]:
        # Cheap at first: there are many places.
        if abs(place[0] - middle[0]) > FAR or abs(place[1] - middle[1]) > FAR:
            return None
        return math.dist(_eye(place), middle)

    return next((place for place in reached.sorted(far) if sees(ground, place, number)), None)

# SPDX-License-Identifier: MIT
"""Closed doors on a way: where one meets them, and where one stands to open them."""

import math
from typing import List, Optional, Sequence, Tuple

from .aim import EYES, sees
from .ground import WIDTH, Ground, Leaf, to_line
from .plan import Point

# What is kept from a leaf that swings, and how far one goes back for that. [world units]
FROM_LEAF, BACK = WIDTH + 24.0, 288.0
# A way to a door is looked at in such steps, and the swing of its leaf. [world units, degrees]
FINE, SWING = 8.0, 15


def _fine(start: Point, end: Point) -> List[Point]:
    """Places on a straight line."""
    count = max(1, round(math.dist(start, end) / FINE))
    return [
        (
            start[0] + (end[0] - start[0]) * i / count,
            start[1] + (end[1] - start[1]) * i / count,
            start[2] + (end[2] - start[2]) * i / count,
        )
        for i in range(count + 1)
    ]


def first_leaf(
    ground: Ground, corners: List[Point], opened: Sequence[int]
) -> Optional[Tuple[Leaf, int, Point]]:
    """The first closed door on a way, with the straight piece and the place where it is met."""
    closed = [leaf for leaf in ground.leaves if leaf.number not in opened]
    for index, (start, end) in enumerate(zip(corners, corners[1:])):
        for place in _fine(start, end):
            for leaf in closed:
                level = leaf.low - EYES < place[2] < leaf.high
                if level and to_line(place[:2], *leaf.edge) < WIDTH:
                    return leaf, index, place
    return None


def cut_before(
    ground: Ground, corners: List[Point], index: int, place: Point, leaf: Leaf
) -> Tuple[List[Point], List[Point]]:
    """A way in two where one stands to open a door: out of its swing, with a look at it."""
    swing = [leaf.turned(degrees) for degrees in range(0, 91, SWING)]

    def away(stand: Point) -> float:
        return min(to_line(stand[:2], *edge) for edge in swing)

    choices: List[Tuple[int, Point]] = []
    behind = 0.0
    for number in range(index, -1, -1):
        end = place if number == index else corners[number + 1]
        line = _fine(corners[number], end)[::-1]
        choices += [(number, stand) for stand in line if behind + math.dist(end, stand) < BACK]
        behind += math.dist(corners[number], end)
    seeing = [choice for choice in choices if sees(ground, choice[1], leaf.number)] or choices
    best = next(
        (choice for choice in seeing if away(choice[1]) > FROM_LEAF),
        max(seeing, key=lambda choice: away(choice[1])),
    )
    number, stand = best
    return [*corners[: number + 1], stand], [stand, *corners[number + 1 :]]

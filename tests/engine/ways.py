# SPDX-License-Identifier: MIT
"""The way from place to place on a level: along the plan, and round what stands there."""

import heapq
import math
from typing import Dict, Iterator, List, Optional, Tuple

from .plan import HEADROOM, SIDES, TUNNEL, Cell, Level, Place

Spot = Tuple[float, float]
Node = Tuple[int, int]

# Nodes are about so far apart; each cell has one in its middle. [world units]
SPACING = 28.0
# What one keeps from the wall of a room's cell, and how far from the middle of a hall one walks, in
# those of caves, and in doorways. [world units]
FROM_WALL, IN_HALL, IN_CAVE, IN_DOORWAY = 66.0, 30.0, 62.0, 12.0
# An open leaf hangs into the cell as far as its middle: a doorway is walked through straight, from and
# to as far beyond that. [world units]
FROM_LEAF = 44.0
# Cells of buildings are so large, those of caves larger. [world units]
BUILDING = 256
# What one walks round, unless it hangs high or is trodden on: seats stand where rugs lie.
OBSTACLES = ("furniture", "container", "creature", "rug", "other")
# Where furniture is too close to pass at the first of these distances, the next is tried. [world
# units]
DISTANCES = (104.0, 88.0, 66.0, 44.0, 0.0)


class Ways:
    """Finds ways on a level that keep a distance from things."""

    def __init__(self, level: Level, distance: float) -> None:
        self.level = level
        self.count = 2 * round(level.size / SPACING / 2) + 1
        self.spacing = level.size / self.count
        self.things = [
            thing.position
            for thing in level.things
            if thing.sort in OBSTACLES
            and "rug" not in thing.id.lower()
            and thing.position[2] < level.floor + HEADROOM
        ]
        self.distance = distance
        self._free: Dict[Node, bool] = {}

    def node(self, spot: Spot) -> Node:
        """The node nearest to a spot."""
        return (
            round((spot[0] - self.level.corner[0]) / self.spacing),
            round((self.level.corner[1] - spot[1]) / self.spacing),
        )

    def spot(self, node: Node) -> Spot:
        """Where a node is."""
        return (
            self.level.corner[0] + node[0] * self.spacing,
            self.level.corner[1] - node[1] * self.spacing,
        )

    def free(self, node: Node) -> bool:
        """Whether one can stand there."""
        if node not in self._free:
            spot = self.spot(node)
            self._free[node] = self._open(spot) and not any(
                math.dist(spot, thing[:2]) < self.distance for thing in self.things
            )
        return self._free[node]

    def _open(self, spot: Spot) -> bool:
        place = self.level.place(*spot)
        cell = self.level.cells.get(place)
        if cell is None:
            return False
        middle = self.level.middle(place)
        return _allows(cell, self.level.size, (spot[0] - middle[0], spot[1] - middle[1]))

    def steps(self, node: Node) -> Iterator[Tuple[Node, float]]:
        """The nodes beside one, and how far they are."""
        for east in (-1, 0, 1):
            for south in (-1, 0, 1):
                beside = (node[0] + east, node[1] + south)
                if beside != node and self.passes(node, beside):
                    yield beside, math.hypot(east, south)

    def passes(self, node: Node, beside: Node) -> bool:
        """Whether one gets from a node to one beside it."""
        if not self.free(beside):
            return False
        if node[0] == beside[0] or node[1] == beside[1]:
            return self._joined(node, beside)
        corners = ((node[0], beside[1]), (beside[0], node[1]))
        return all(
            self.free(corner) and self._joined(node, corner) and self._joined(corner, beside)
            for corner in corners
        )

    def _joined(self, node: Node, beside: Node) -> bool:
        here = self.level.place(*self.spot(node))
        there = self.level.place(*self.spot(beside))
        return here == there or any(
            here.beside(side) == there and self.level.joined(here, side) for side in SIDES
        )

    def nearest(self, spot: Spot, within: float) -> Optional[Node]:
        """The free node nearest to a spot."""
        first = self.node(spot)
        reach = math.ceil(within / self.spacing)
        nodes = [
            (first[0] + east, first[1] + south)
            for east in range(-reach, reach + 1)
            for south in range(-reach, reach + 1)
        ]
        found = [(math.dist(self.spot(node), spot), node) for node in nodes if self.free(node)]
        return min(found)[1] if found else None

    def between(self, start: Spot, end: Node) -> Optional[List[Spot]]:
        """The corners of a way, without its start; none where there is no way."""
        first = self.node(start)
        best = {first: 0.0}
        before: Dict[Node, Node] = {}
        queue = [(0.0, first)]
        while queue:
            _, node = heapq.heappop(queue)
            if node == end:
                return self._straightened(_traced(before, first, end))
            for beside, length in self.steps(node):
                cost = best[node] + length
                if cost < best.get(beside, math.inf):
                    best[beside] = cost
                    before[beside] = node
                    heapq.heappush(queue, (cost + math.dist(beside, end), beside))
        return None

    def _straightened(self, nodes: List[Node]) -> List[Spot]:
        corners = [0]
        while corners[-1] < len(nodes) - 1:
            last = corners[-1]
            sights = (i for i in range(len(nodes) - 1, last, -1) if self._sees(nodes[last], nodes[i]))
            corners.append(next(sights, last + 1))
        return [self.spot(nodes[i]) for i in corners[1:]]

    def _sees(self, a: Node, b: Node) -> bool:
        count = 2 * max(abs(a[0] - b[0]), abs(a[1] - b[1]), 1)
        line = [
            (round(a[0] + (b[0] - a[0]) * i / count), round(a[1] + (b[1] - a[1]) * i / count))
            for i in range(count + 1)
        ]
        return all(
            node == beside or self.passes(node, beside) for node, beside in zip(line, line[1:])
        )


def _traced(before: Dict[Node, Node], first: Node, end: Node) -> List[Node]:
    nodes = [end]
    while nodes[-1] != first:
        nodes.append(before[nodes[-1]])
    return nodes[::-1]


def _allows(cell: Cell, size: int, offset: Spot) -> bool:
    """Whether one can stand in a cell, that far east and north of its middle."""
    if size == TUNNEL:
        return _allows_tunnel(cell, size, offset)
    if cell.tile != "room":
        return _on_arms(cell, IN_HALL if size == BUILDING else IN_CAVE, offset)
    if cell.doorway and _towards(cell.doorway, offset) > -FROM_LEAF:
        return abs(_across(cell.doorway, offset)) <= IN_DOORWAY
    room = size / 2 - FROM_WALL
    across, along = sorted((abs(offset[0]), abs(offset[1])))
    side = _side(offset)
    return along <= room or (side in cell.open and across <= room)


def _towards(side: str, offset: Spot) -> float:
    east, south, _ = SIDES[side]
    return offset[0] * east - offset[1] * south


def _across(side: str, offset: Spot) -> float:
    east, south, _ = SIDES[side]
    return offset[0] * south + offset[1] * east


def _on_arms(cell: Cell, width: float, offset: Spot) -> bool:
    across = min(abs(offset[0]), abs(offset[1]))
    along = max(abs(offset[0]), abs(offset[1]))
    return across <= width and (along <= width or _side(offset) in cell.open)


def _allows_tunnel(cell: Cell, size: int, offset: Spot) -> bool:
    if len(cell.open) != 2 or cell.open in ({"n", "s"}, {"e", "w"}):
        return _on_arms(cell, IN_CAVE, offset)
    # A bend runs round the corner between its two mouths.
    corner = (
        size / 2 * (1 if "e" in cell.open else -1),
        size / 2 * (1 if "n" in cell.open else -1),
    )
    return abs(math.dist(corner, offset) - size / 2) <= IN_CAVE


def _side(offset: Spot) -> str:
    east, north = offset
    if abs(east) > abs(north):
        return "e" if east > 0 else "w"
    return "n" if north > 0 else "s"


def way(level: Level, start: Spot, place: Place) -> Optional[List[Spot]]:
    """The corners of a way to the free spot nearest to the middle of a cell."""
    for distance in DISTANCES:
        ways = Ways(level, distance)
        end = ways.nearest(level.middle(place), level.size / 2)
        found = None if end is None else ways.between(start, end)
        if found is not None:
            return found
    return None

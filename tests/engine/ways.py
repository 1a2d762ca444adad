# SPDX-License-Identifier: MIT
"""The way from place to place on a level, with room for a body."""

import heapq
import math
from typing import Callable, Dict, Iterator, List, Optional

from .ground import COMFORT, STEP, WIDTH, Ground, Node
from .plan import Level, Point
from .stage_shapes import Stage

# What is walked round when there is a way round it, and what when there is none. [world units]
TREADS = (8.0, STEP - 1)
# A straight line may lead so close to walls, or as close as the way that it shortens. [world units]
ENOUGH = WIDTH + 14.0
# So far the floor may be from a line to be walked straight. [world units]
EVEN = 8.0
# How much longer a way may be that keeps far from walls.
DEAR = 3.0


class Ways:
    """Finds ways on a level, past low things where that is possible, else over them."""

    def __init__(self, level: Level, stage: Stage) -> None:
        self.level = level
        self._stage = stage
        self._grounds: Dict[float, Ground] = {}

    def ground(self, tread: float = TREADS[0]) -> Ground:
        """The level with what is no higher stepped onto."""
        if tread not in self._grounds:
            self._grounds[tread] = Ground(self.level, self._stage, tread)
        return self._grounds[tread]

    def floor(self, place: Point) -> Point:
        """The floor at a place, if there is any near it."""
        node = self.ground().at(place)
        return place if node is None else (*place[:2], self.ground().point(node)[2])

    def way(self, start: Point, end: Point) -> Optional[List[Point]]:
        """The corners of a way, without its start; none where there is no way."""
        for tread in TREADS:
            ground = self.ground(tread)
            first, last = ground.at(start), ground.at(end)
            if first is not None and last is not None:
                nodes = _shortest(ground, first, last)
                if nodes is not None:
                    return [ground.point(node) for node in _straightened(ground, nodes)]
        return None

    def reached(self, start: Point) -> "Reached":
        """All that one can walk to from a place."""
        return Reached(self, start)


class Reached:
    """What one can walk to from a place, at first round low things and then over them."""

    def __init__(self, ways: Ways, start: Point) -> None:
        self._ways = ways
        self._start = start
        self._nodes: Dict[float, List[Node]] = {}

    def sorted(self, far: Callable[[Point], Optional[float]]) -> Iterator[Point]:
        """All places for which there is a number, by it."""
        for tread in TREADS:
            ground = self._ways.ground(tread)
            points = (ground.point(node) for node in self._flood(tread))
            numbers = ((far(place), place) for place in points)
            yield from (
                place for _, place in sorted((n, place) for n, place in numbers if n is not None)
            )

    def _flood(self, tread: float) -> List[Node]:
        if tread not in self._nodes:
            ground = self._ways.ground(tread)
            first = ground.at(self._start)
            found = [] if first is None else [first]
            seen = set(found)
            for node in found:
                for beside in ground.beside(node):
                    if beside not in seen:
                        seen.add(beside)
                        found.append(beside)
            self._nodes[tread] = found
        return self._nodes[tread]


def _shortest(ground: Ground, first: Node, last: Node) -> Optional[List[Node]]:
    end = ground.point(last)
    best = {first: 0.0}
    before: Dict[Node, Node] = {}
    queue = [(math.dist(ground.point(first), end), first)]
    done = set()
    while queue:
        _, node = heapq.heappop(queue)
        if node == last:
            return _traced(before, first, last)
        if node in done:
            continue
        done.add(node)
        place = ground.point(node)
        for beside in ground.beside(node):
            there = ground.point(beside)
            cost = best[node] + math.dist(place, there) * _price(ground, beside)
            if cost < best.get(beside, math.inf):
                best[beside] = cost
                before[beside] = node
                heapq.heappush(queue, (cost + math.dist(there, end), beside))
    return None


def _price(ground: Ground, node: Node) -> float:
    """Near walls a way counts as longer than it is."""
    room = _room(ground, node)
    return 1.0 + (DEAR - 1.0) * (1.0 - (room - WIDTH) / COMFORT)


def _room(ground: Ground, node: Node) -> float:
    stand = ground.stand(node)
    assert stand is not None
    return min(stand.room, WIDTH + COMFORT)


def _traced(before: Dict[Node, Node], first: Node, last: Node) -> List[Node]:
    nodes = [last]
    while nodes[-1] != first:
        nodes.append(before[nodes[-1]])
    return nodes[::-1]


def _straightened(ground: Ground, nodes: List[Node]) -> List[Node]:
    """The nodes between which one walks straight, without getting closer to walls."""
    corners = []
    last = 0
    while last < len(nodes) - 1:
        step = 1
        # Farther and farther, then back: ways have hundreds of nodes.
        while last + 2 * step < len(nodes) and _straight(ground, nodes, last, last + 2 * step):
            step *= 2
        reach = last + step
        while step >= 1:
            if reach + step < len(nodes) and _straight(ground, nodes, last, reach + step):
                reach += step
            step //= 2
        corners.append(nodes[reach])
        last = reach
    return corners


def _straight(ground: Ground, nodes: List[Node], start: int, end: int) -> bool:
    room = min(ENOUGH, *(_room(ground, node) for node in nodes[start : end + 1]))
    a, b = nodes[start], nodes[end]
    start_height, end_height = ground.point(a)[2], ground.point(b)[2]
    count = max(abs(b.column[0] - a.column[0]), abs(b.column[1] - a.column[1]))
    node = a
    for i in range(1, count + 1):
        column = (
            round(a.column[0] + (b.column[0] - a.column[0]) * i / count),
            round(a.column[1] + (b.column[1] - a.column[1]) * i / count),
        )
        found = [beside for beside in ground.beside(node) if beside.column == column]
        if not found or _room(ground, found[0]) < room:
            return False
        node = found[0]
        height = start_height + (end_height - start_height) * i / count
        if abs(ground.point(node)[2] - height) > EVEN:
            return False
    return node == b

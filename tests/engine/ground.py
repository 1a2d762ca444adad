# SPDX-License-Identifier: MIT
"""A level on its stage: where a body finds room to stand, and what one sees from there."""

import math
from typing import Dict, Iterator, List, NamedTuple, Optional, Sequence, Tuple

from .plan import Level, Point, Thing
from .stage_shapes import Face, Stage

Spot = Tuple[float, float]
Column = Tuple[int, int]

# Columns are so far apart at most, and so many in a cell's width at least; each cell has one in its
# middle. [world units]
SPACING, COLUMNS = 32.0, 16
# Half the width and the whole height of the player, and what he steps onto. [world units]
WIDTH, HEIGHT, STEP = 29.3, 133.0, 34.0
# What is kept between a body and a wall, and what is better. [world units]
MARGIN, COMFORT = 6.0, 24.0
# Floors closer than that are one. [world units]
THIN = 2.0
# The steepest that one walks on: its normal's part upward.
STEEP = math.cos(math.radians(46))
# Faces are sorted into squares of that size for rays. [world units]
SQUARE = 256.0
# An opened leaf is turned so far clockwise. [degrees]
OPENED = 90.0

AROUND = [(east, south) for east in (-1, 0, 1) for south in (-1, 0, 1) if (east, south) != (0, 0)]


class Node(NamedTuple):
    """A column and its floor, counted from below."""

    column: Column
    floor: int


class Stand(NamedTuple):
    """A floor of a column, and the distance to the next wall."""

    height: float
    room: float


class Leaf(NamedTuple):
    """A door within a level, as it hangs closed."""

    number: int
    faces: List[Face]
    pivot: Point
    edge: Tuple[Spot, Spot]
    low: float
    high: float

    def turned(self, degrees: float) -> Tuple[Spot, Spot]:
        """Where the leaf stands on the map when it is opened so far."""
        start, end = self.edge
        return (_about(self.pivot, start, degrees), _about(self.pivot, end, degrees))


class Ground:
    """The surfaces of a level, in columns."""

    def __init__(self, level: Level, stage: Stage, tread: float) -> None:
        self.level = level
        # What is no higher is no obstacle but stepped onto.
        self.tread = tread
        self.spacing = min(SPACING, level.size / COLUMNS)
        self._climb = max(tread, self.spacing * math.tan(math.acos(STEEP)) + 1)
        self.leaves: List[Leaf] = []
        self._floors: Dict[Column, List[float]] = {}
        self._walls: Dict[Column, List[Tuple[float, float, float]]] = {}
        self._squares: Dict[Column, List[Tuple[int, Face]]] = {}
        self._merged: Dict[Column, List[float]] = {}
        self._stands: Dict[Column, List[Optional[Stand]]] = {}
        self._beside: Dict[Node, List[Node]] = {}
        self._faces = [
            [placed(thing, face) for face in stage.shape(thing.id)] for thing in level.things
        ]
        for number, (thing, faces) in enumerate(zip(level.things, self._faces)):
            for face in faces:
                self._add_to_squares(number, face)
            if faces and stage.is_door(thing.id) and thing.leads_to is None:
                leaf = _leaf(number, thing, faces)
                self.leaves.append(leaf)
                faces = [
                    tuple((*_about(leaf.pivot, p[:2], OPENED), p[2]) for p in face)
                    for face in faces
                ]
            for face in faces:
                self._add(face)

    def column(self, spot: Spot) -> Column:
        """The column nearest to a spot."""
        return (
            round((spot[0] - self.level.corner[0]) / self.spacing),
            round((self.level.corner[1] - spot[1]) / self.spacing),
        )

    def spot(self, column: Column) -> Spot:
        """Where a column is."""
        return (
            self.level.corner[0] + column[0] * self.spacing,
            self.level.corner[1] - column[1] * self.spacing,
        )

    def point(self, node: Node) -> Point:
        """Where one stands."""
        stand = self.stand(node)
        assert stand is not None
        return (*self.spot(node.column), stand.height)

    def stand(self, node: Node) -> Optional[Stand]:
        """How one stands at a node, if one can."""
        stands = self.stands(node.column)
        return stands[node.floor] if node.floor < len(stands) else None

    def stands(self, column: Column) -> List[Optional[Stand]]:
        """The floors of a column from below; none where a body has no room."""
        if column not in self._stands:
            floors = self._floors_of(column)
            walls = self._walls.get(column, [])
            self._stands[column] = [
                self._stand(column, height, above, walls)
                for height, above in zip(floors, [*floors[1:], math.inf])
            ]
        return self._stands[column]

    def nodes(self, column: Column) -> Iterator[Node]:
        """Where one can stand in a column."""
        for floor, stand in enumerate(self.stands(column)):
            if stand is not None:
                yield Node(column, floor)

    def beside(self, node: Node) -> List[Node]:
        """The nodes to which one gets by a step."""
        found = self._beside.get(node)
        if found is None:
            stand = self.stand(node)
            assert stand is not None
            (east, south), height = node.column, stand.height
            found = [
                Node(column, floor)
                for column in ((east + i, south + j) for i, j in AROUND)
                for floor, there in enumerate(self.stands(column))
                if there is not None and abs(there.height - height) <= self._climb
            ]
            self._beside[node] = found
        return found

    def corners(self, number: int) -> List[Point]:
        """The corners of a thing."""
        return [corner for face in self._faces[number] for corner in face]

    def at(self, place: Point, within: float = 48.0) -> Optional[Node]:
        """The node nearest to a place."""
        east, south = self.column(place[:2])
        reach = math.ceil(within / self.spacing)
        found = [
            (math.dist(self.point(node), place), node)
            for i in range(-reach, reach + 1)
            for j in range(-reach, reach + 1)
            for node in self.nodes((east + i, south + j))
        ]
        return min(found)[1] if found else None

    def seen(self, eye: Point, target: Point) -> Tuple[Optional[int], float]:
        """The number of the thing that a look from an eye to a target meets first, which may be
        behind the target, and how far away it is met."""
        way = (target[0] - eye[0], target[1] - eye[1], target[2] - eye[2])
        best = math.inf
        first = None
        for square in self._squares_between(eye, target):
            for number, face in self._squares.get(square, ()):
                part = _met(eye, way, face)
                if part is not None and part < best:
                    best, first = part, number
        return first, best * math.dist(eye, target)

    def _floors_of(self, column: Column) -> List[float]:
        if column not in self._merged:
            floors: List[float] = []
            for height in sorted(self._floors.get(column, ())):
                if floors and height - floors[-1] < THIN:
                    floors[-1] = height
                else:
                    floors.append(height)
            self._merged[column] = floors
        return self._merged[column]

    def _stand(
        self, column: Column, height: float, above: float, walls: List[Tuple[float, float, float]]
    ) -> Optional[Stand]:
        if above - height < HEIGHT:
            return None
        room = min(
            (
                distance
                for low, high, distance in walls
                if low < height + HEIGHT and high > height + self.tread
            ),
            default=math.inf,
        )
        if room < WIDTH + MARGIN:
            return None
        # Beside an edge one could fall.
        for east, south in AROUND:
            floors = self._floors_of((column[0] + east, column[1] + south))
            if not any(abs(floor - height) <= self._climb for floor in floors):
                return None
        return Stand(height, room)

    def _add(self, face: Face) -> None:
        if abs(_normal(face)[2]) >= STEEP:
            self._add_floor(face)
        else:
            self._add_wall(face)

    def _add_floor(self, face: Face) -> None:
        normal = _normal(face)
        first = face[0]
        ring = list(zip(face, face[1:] + face[:1]))
        for column in self._columns(face, 0.0):
            x, y = self.spot(column)
            turns = [
                (b[0] - a[0]) * (y - a[1]) - (b[1] - a[1]) * (x - a[0]) for a, b in ring
            ]
            if min(turns) >= -1.0 or max(turns) <= 1.0:
                height = (
                    first[2]
                    - (normal[0] * (x - first[0]) + normal[1] * (y - first[1])) / normal[2]
                )
                self._floors.setdefault(column, []).append(height)

    def _add_wall(self, face: Face) -> None:
        ends = _longest(face)
        low = min(corner[2] for corner in face)
        high = max(corner[2] for corner in face)
        for column in self._columns(face, WIDTH + COMFORT):
            distance = to_line(self.spot(column), *ends)
            if distance < WIDTH + COMFORT:
                self._walls.setdefault(column, []).append((low, high, distance))

    def _columns(self, face: Face, around: float) -> Iterator[Column]:
        east = [(corner[0] - self.level.corner[0]) / self.spacing for corner in face]
        south = [(self.level.corner[1] - corner[1]) / self.spacing for corner in face]
        more = around / self.spacing + 1e-3
        for i in range(math.ceil(min(east) - more), math.floor(max(east) + more) + 1):
            for j in range(math.ceil(min(south) - more), math.floor(max(south) + more) + 1):
                yield (i, j)

    def _add_to_squares(self, number: int, face: Face) -> None:
        for square in self._squares_between(
            (min(p[0] for p in face), min(p[1] for p in face), 0.0),
            (max(p[0] for p in face), max(p[1] for p in face), 0.0),
        ):
            self._squares.setdefault(square, []).append((number, face))

    @staticmethod
    def _squares_between(a: Point, b: Point) -> Iterator[Column]:
        west, east = sorted(math.floor(x / SQUARE) for x in (a[0], b[0]))
        south, north = sorted(math.floor(y / SQUARE) for y in (a[1], b[1]))
        for i in range(west, east + 1):
            for j in range(south, north + 1):
                yield (i, j)


def placed(thing: Thing, face: Face) -> Face:
    """A face of an object where it stands in the level."""
    if any(abs(turn) > 0.01 for turn in thing.degrees[:2]):
        raise ValueError(f"{thing.id} lies on its side: nobody knows where its faces are")
    x, y, z = thing.position
    corners = []
    for corner in face:
        east, north = _turned((corner[0] * thing.scale, corner[1] * thing.scale), thing.degrees[2])
        corners.append((x + east, y + north, z + corner[2] * thing.scale))
    return tuple(corners)


def to_line(spot: Spot, start: Spot, end: Spot) -> float:
    """How far a spot is from a line between two others."""
    east, north = end[0] - start[0], end[1] - start[1]
    square = east * east + north * north
    if square == 0:
        return math.dist(spot, start)
    part = ((spot[0] - start[0]) * east + (spot[1] - start[1]) * north) / square
    part = min(1.0, max(0.0, part))
    return math.hypot(spot[0] - start[0] - part * east, spot[1] - start[1] - part * north)


def _leaf(number: int, thing: Thing, faces: List[Face]) -> Leaf:
    corners = tuple(corner for face in faces for corner in face)
    heights = [corner[2] for corner in corners]
    return Leaf(number, faces, thing.position, _longest(corners), min(heights), max(heights))


def _longest(corners: Sequence[Point]) -> Tuple[Spot, Spot]:
    """The two corners that are farthest apart on the map."""
    ends = max(
        ((a, b) for n, a in enumerate(corners) for b in corners[n + 1 :]),
        key=lambda pair: math.dist(pair[0][:2], pair[1][:2]),
    )
    return ends[0][:2], ends[1][:2]


def _turned(spot: Spot, degrees: float) -> Spot:
    c, s = math.cos(math.radians(degrees)), math.sin(math.radians(degrees))
    return (spot[0] * c + spot[1] * s, spot[1] * c - spot[0] * s)


def _about(pivot: Point, spot: Spot, degrees: float) -> Spot:
    east, north = _turned((spot[0] - pivot[0], spot[1] - pivot[1]), degrees)
    return (pivot[0] + east, pivot[1] + north)


def _cross(a: Point, b: Point) -> Point:
    return (a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0])


def _minus(a: Point, b: Point) -> Point:
    return (a[0] - b[0], a[1] - b[1], a[2] - b[2])


def _dot(a: Point, b: Point) -> float:
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]


def _normal(face: Face) -> Point:
    normal = _cross(_minus(face[1], face[0]), _minus(face[3], face[0]))
    length = math.sqrt(_dot(normal, normal))
    if length == 0:
        return (0.0, 0.0, 1.0)
    return (normal[0] / length, normal[1] / length, normal[2] / length)


def _met(eye: Point, way: Point, face: Face) -> Optional[float]:
    """At which part of its way a look meets a face."""
    normal = _normal(face)
    ahead = _dot(way, normal)
    if abs(ahead) < 1e-9:
        return None
    part = _dot(_minus(face[0], eye), normal) / ahead
    if part <= 0:
        return None
    place = (eye[0] + part * way[0], eye[1] + part * way[1], eye[2] + part * way[2])
    sides = [
        _dot(_cross(_minus(b, a), _minus(place, a)), normal)
        for a, b in zip(face, face[1:] + face[:1])
    ]
    return part if min(sides) >= -0.1 or max(sides) <= 0.1 else None

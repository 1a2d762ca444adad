# SPDX-License-Identifier: MIT
"""Where the player is led in a dungeon: the steps, put together from what the program says."""

import math
from typing import Any, Dict, List, Optional, Tuple

from .plan import SIDES, Level, Place, Point, Room, Thing, point
from .steps import Door, Open, Picture, Put, Spot, Step, Walk
from .ways import Ways, way

# Where a door leads: a place, and the heading there.
Entry = Tuple[Point, float]

# The player's eyes above his feet. [world units]
EYES = 118.0
# How far from a door between levels the use key is pressed, and what one keeps from a container at
# least. [world units]
BEFORE_DOOR, BEFORE_CONTAINER = 118.0, 56.0
# How far away the use key still finds something. [world units]
REACH = 150.0
# How far above a place the player is put down. [world units]
ABOVE = 8.0


class Course:
    """The steps through a dungeon."""

    def __init__(self, levels: List[Level], inspection: Dict[str, Any]) -> None:
        self.levels = levels
        self.inspection = inspection
        self.steps: List[Step] = []
        self.findings: List[str] = []

    def lay(self) -> None:
        """Leads through every room, opens containers, and takes every door between levels, both
        ways."""
        at = self._arrive()
        for level, following in zip(self.levels, [*self.levels[1:], None]):
            at = self._rooms(level, at)
            self._views(level, at)
            self._containers(level)
            if following is not None:
                self.steps.append(Put(level.name, "back", (*at, level.floor + ABOVE), 0.0))
                at = self._doors(level, following, at)

    def lay_to(self, room: Room) -> None:
        """Leads to one room of the first level and no further."""
        level = self.levels[0]
        self._lead(level, self._arrive(), level.goal(room), room_words(room.number))

    def _arrive(self) -> Spot:
        first = self.levels[0]
        position = first.arrival["position"]
        heading = float(first.arrival["degrees"])
        self.steps.append(Put(first.name, "arrival", point(position), heading))
        return (position[0], position[1])

    def _rooms(self, level: Level, at: Spot) -> Spot:
        """Leads through all rooms, those with the shortest ways first."""
        near = {place: i for i, place in enumerate(level.reached(level.place(*at)))}
        goals = {room.number: level.goal(room) for room in level.rooms if room.reachable}
        for number in sorted(goals, key=lambda number: near.get(goals[number], len(near))):
            at = self._lead(level, at, goals[number], room_words(number))
        return at

    def _lead(self, level: Level, at: Spot, place: Place, what: str) -> Spot:
        corners = way(level, at, place)
        if corners is None:
            self.findings.append(f'"{level.name}", {what}: the plan has none')
            return at
        return self._walk(level, at, corners, what)

    def _walk(self, level: Level, at: Spot, corners: List[Spot], what: str) -> Spot:
        for corner in corners:
            if math.dist(at, corner) > 1:
                self.steps.append(Walk(level.name, what, at, corner, level.floor, level.slopes))
                at = corner
        return at

    def _views(self, level: Level, at: Spot) -> None:
        place = (*at, level.floor + ABOVE)
        for heading in (0.0, 120.0):
            self.steps.append(Picture(level.name, f"view {heading:.0f}", place, heading, 4.0))

    def _containers(self, level: Level) -> None:
        """Opens one container of each kind before which somebody can stand."""
        records = {record["id"]: record for record in self.inspection["containers"]}
        kinds = set()
        for thing in level.things:
            record = records.get(thing.id)
            if record is None or record["model"] in kinds:
                continue
            stand = _before(level, thing)
            if stand is not None:
                kinds.add(record["model"])
                self.steps.append(_open(level, thing, record, stand))

    def _doors(self, level: Level, following: Level, at: Spot) -> Spot:
        """Leads to the door of the next level, through it, back, and through it again."""
        what = f'the door to "{following.name}"'
        place, side = _door(level, following)
        at = self._lead(level, at, place, what)
        east, south, heading = SIDES[side]
        middle = level.middle(place)
        reach = max(0.0, level.size / 2 - BEFORE_DOOR)
        self._walk(level, at, [(middle[0] + east * reach, middle[1] - south * reach)], what)
        there = self._entry(level, following)
        back = self._entry(following, level)
        self.steps.append(_use(level, heading, following, there))
        self.steps.append(_use(following, there[1] + 180, level, back))
        self.steps.append(_use(level, back[1] + 180, following, there))
        return (there[0][0], there[0][1])

    def _entry(self, level: Level, other: Level) -> Entry:
        """Where the door to another level leads, as the plug-in says: place and heading."""
        cell = next(cell for cell in self.inspection["cells"] if cell["name"] == level.name)
        leads = (reference["destination"] for reference in cell["references"])
        found = next(lead for lead in leads if lead is not None and lead["cell"] == other.name)
        return point(found["position"]), found["degrees"][2]


def room_words(number: int) -> str:
    """What a step on the way to a room is called."""
    return f"the way to room {number}"


def _use(
    level: Level,
    heading: float,
    other: Level,
    entry: Entry,
) -> Door:
    what = f'through the door to "{other.name}"'
    return Door(level.name, what, heading, entry[0], entry[1], other.floor)


def _door(level: Level, following: Level) -> Tuple[Place, str]:
    return next(
        (place, cell.doorway)
        for place, cell in level.cells.items()
        if cell.leads_to == following.name
    )


def _before(level: Level, thing: Thing) -> Optional[Spot]:
    """Where one stands before a container, if anywhere."""
    spot = thing.position[:2]
    cell = level.cells.get(level.place(*spot))
    if cell is None or cell.platform or cell.tile != "room":
        return None
    ways = Ways(level, BEFORE_CONTAINER)
    node = ways.nearest(spot, REACH)
    return None if node is None else ways.spot(node)


def _open(level: Level, thing: Thing, record: Dict[str, Any], stand: Spot) -> Open:
    east, north = thing.position[0] - stand[0], thing.position[1] - stand[1]
    down = level.floor + EYES - thing.position[2]
    items = record["items"]
    return Open(
        level.name,
        f'{record["name"]} "{thing.id}"',
        (*stand, level.floor + ABOVE),
        math.degrees(math.atan2(east, north)),
        math.degrees(math.atan2(down, math.hypot(east, north))),
        tuple(item["id"] for item in items),
        tuple(item["count"] for item in items),
    )

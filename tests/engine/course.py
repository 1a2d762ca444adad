# SPDX-License-Identifier: MIT
"""Where the player is led in a dungeon: the steps, put together from what the program says."""

import math
from typing import Any, Dict, List, Optional, Tuple

from .aim import look_at, middle_of, sees, stand_before
from .leaves import cut_before, first_leaf
from .plan import ARRIVAL_HEIGHT, Level, Point, Room, Thing, point
from .stage_shapes import Stage
from .steps import Door, Look, Open, Picture, Put, Step, Use, Walk
from .ways import Reached, Ways

# Where a door leads: a place, and the heading there.
Entry = Tuple[Point, float]

# What a door to the world leads to, and how far from the entrance one begins. [world units]
OUTSIDE, FIELD = "", 400.0
# How far above a place the player is put down. [world units]
ABOVE = 4.0
# How far from the middle of a room's cell one may stand to have been in the room. [cells]
MIDDLE = 1.0
# How far from the middle of a part of a platform one stands on it. [world units]
ON_PLATFORM = 48.0


class Course:
    """The steps through a dungeon."""

    def __init__(self, levels: List[Level], inspection: Dict[str, Any], stage: Stage) -> None:
        self.inspection = inspection
        self.steps: List[Step] = []
        self.findings: List[str] = []
        self._all = [Ways(level, stage) for level in levels]
        # The doors that stand open, by level and number of the thing.
        self._opened: Dict[str, List[int]] = {level.name: [] for level in levels}

    def lay(self) -> None:
        """Leads through every room, opens containers, and takes every door between levels, both
        ways."""
        at = self._arrive()
        for ways, following in zip(self._all, [*self._all[1:], None]):
            reached = ways.reached(at)
            at = self._rooms(ways, reached, at)
            at = self._platform(ways, reached, at)
            self._view(ways, at)
            self._containers(ways, reached)
            if following is not None:
                self.steps.append(Put(ways.level.name, "back", _above(at), 0.0))
                at = self._doors(ways, following, at)

    def lay_to(self, room: Room) -> None:
        """Leads to one room of the first level and no further."""
        ways = self._all[0]
        at = self._arrive()
        goals = _goals(ways.level, ways.reached(at))
        self._lead(ways, at, goals[room.number], room_words(room.number))

    def lay_from_world(self) -> None:
        """Enters the first level from the world, leads to the room farthest from there, and out."""
        ways = self._all[0]
        outside = self.inspection["exteriors"][0]
        outer = outside["references"][0]
        inner = _door(ways.level, OUTSIDE)
        entry, way_out = _lead_of(outer), _lead_of(self._leading(ways.level, OUTSIDE))
        ahead = math.radians(way_out[1])
        x, y, z = way_out[0]
        start = (x + FIELD * math.sin(ahead), y + FIELD * math.cos(ahead), z)
        name = outside["name"]
        self.steps.append(Put(name, "in the field", _above(start), way_out[1], True))
        self._walk(ways.level, [start, (x, y, z)], "the way to the entrance")
        look = look_at((x, y, z), point(outer["position"]))
        at = ways.floor(entry[0])
        self.steps.append(Door(name, "through the entrance", look, at, entry[1]))
        goals = _goals(ways.level, ways.reached(at))
        near = {place: i for i, place in enumerate(ways.level.reached(ways.level.place(*at[:2])))}
        last = max(goals, key=lambda number: near.get(ways.level.place(*goals[number][:2]), 0))
        at = self._lead(ways, at, goals[last], room_words(last))
        stand = stand_before(ways.ground(), ways.reached(at), inner)
        if stand is None:
            self._find(ways.level, "the door to the world: nobody can stand before it")
            return
        self._lead(ways, at, stand, "the way out")
        look = look_at(stand, middle_of(ways.ground(), inner))
        self.steps.append(Door(ways.level.name, "through the door to the world", look, *way_out))

    def _arrive(self) -> Point:
        ways = self._all[0]
        position = point(ways.level.arrival["position"])
        heading = float(ways.level.arrival["degrees"])
        self.steps.append(Put(ways.level.name, "arrival", position, heading))
        return (position[0], position[1], position[2] - ARRIVAL_HEIGHT)

    def _rooms(self, ways: Ways, reached: Reached, at: Point) -> Point:
        """Leads through all rooms, always to the nearest by the plan."""
        level = ways.level
        goals = _goals(level, reached)
        left = [room.number for room in level.rooms if room.reachable]
        for number in [number for number in left if number not in goals]:
            self._find(level, f"{room_words(number)}: there is none on the stage")
            left.remove(number)
        while left:
            near = {place: i for i, place in enumerate(level.reached(level.place(*at[:2])))}
            number = min(left, key=lambda n: near.get(level.place(*goals[n][:2]), len(near)))
            left.remove(number)
            at = self._lead(ways, at, goals[number], room_words(number))
        return at

    def _platform(self, ways: Ways, reached: Reached, at: Point) -> Point:
        """Leads onto a platform, if the level has any."""
        ground = ways.ground()
        tops = [
            (middle_of(ground, number), max(corner[2] for corner in ground.corners(number)))
            for number, thing in enumerate(ways.level.things)
            if thing.sort == "platform"
        ]

        def far(place: Point) -> Optional[float]:
            on_one = any(
                abs(place[2] - top) < 1 and math.dist(place[:2], middle[:2]) < ON_PLATFORM
                for middle, top in tops
            )
            return math.dist(place, at) if on_one else None

        if not tops:
            return at
        goal = next(iter(reached.sorted(far)), None)
        if goal is None:
            self._find(ways.level, "the way onto a platform: there is none on the stage")
            return at
        return self._lead(ways, at, goal, "the way onto a platform")

    def _lead(self, ways: Ways, at: Point, end: Point, what: str) -> Point:
        corners = ways.way(at, end)
        if corners is None:
            self._find(ways.level, f"{what}: there is none on the stage")
            return at
        corners = [at, *corners]
        while True:
            stop = first_leaf(ways.ground(), corners, self._opened[ways.level.name])
            if stop is None:
                break
            leaf, index, place = stop
            start, corners = cut_before(ways.ground(), corners, index, place, leaf)
            self._walk(ways.level, start, what)
            look = look_at(start[-1], middle_of(ways.ground(), leaf.number))
            self.steps.append(Use(ways.level.name, what, look))
            self._opened[ways.level.name].append(leaf.number)
        self._walk(ways.level, corners, what)
        return end

    def _walk(self, level: Level, corners: List[Point], what: str) -> None:
        for start, end in zip(corners, corners[1:]):
            if math.dist(start[:2], end[:2]) > 1:
                self.steps.append(Walk(level.name, what, start, end))

    def _view(self, ways: Ways, at: Point) -> None:
        """Where he came from to the last room."""
        came = next((step for step in reversed(self.steps) if isinstance(step, Walk)), None)
        back = came.start if came is not None else (at[0], at[1] + 1.0, at[2])
        look = Look(look_at(at, back).heading, 4.0)
        self.steps.append(Picture(ways.level.name, "view", _above(at), look))

    def _containers(self, ways: Ways, reached: Reached) -> None:
        """Opens one container of each kind."""
        records = {record["id"]: record for record in self.inspection["containers"]}
        kinds: Dict[str, bool] = {}
        for number, thing in enumerate(ways.level.things):
            record = records.get(thing.id)
            if record is None or kinds.get(record["model"]):
                continue
            stand = stand_before(ways.ground(), reached, number)
            kinds[record["model"]] = stand is not None
            if stand is not None:
                self.steps.append(_open(ways, number, record, stand))
        for model in (model for model, opened in kinds.items() if not opened):
            self._find(ways.level, f"nobody can stand before any {model}")

    def _doors(self, ways: Ways, following: Ways, at: Point) -> Point:
        """Leads to the door of the next level, through it, back, and through it again."""
        there = self._through(ways, following, at)
        back = self._through(following, ways, there)
        return self._through(ways, following, back)

    def _through(self, ways: Ways, other: Ways, at: Point) -> Point:
        """Leads to a door and through it."""
        number = _door(ways.level, other.level.name)
        what = f'the door to "{other.level.name}"'
        stand = at
        if not sees(ways.ground(), at, number):
            found = stand_before(ways.ground(), ways.reached(at), number)
            if found is None:
                self._find(ways.level, f"{what}: nobody can stand before it")
                return at
            stand = self._lead(ways, at, found, what)
        place, heading = _lead_of(self._leading(ways.level, other.level.name))
        arrival = other.floor(place)
        look = look_at(stand, middle_of(ways.ground(), number))
        self.steps.append(Door(ways.level.name, f"through {what}", look, arrival, heading))
        return arrival

    def _leading(self, level: Level, other: str) -> Dict[str, Any]:
        """The door of a level that leads to another, as the plug-in has it."""
        cell = next(cell for cell in self.inspection["cells"] if cell["name"] == level.name)
        leads = (each for each in cell["references"] if each["destination"] is not None)
        found: Dict[str, Any] = next(each for each in leads if each["destination"]["cell"] == other)
        return found

    def _find(self, level: Level, what: str) -> None:
        self.findings.append(f'"{level.name}", {what}')


def room_words(number: int) -> str:
    """What a step on the way to a room is called."""
    return f"the way to room {number}"


def _above(place: Point) -> Point:
    return (place[0], place[1], place[2] + ABOVE)


def _goals(level: Level, reached: Reached) -> Dict[int, Point]:
    """The place in each room that is nearest to its middle, of those with one near it."""
    middles = {room.number: level.middle(level.goal(room)) for room in level.rooms}
    goals: Dict[int, Tuple[float, Point]] = {}

    def far(place: Point) -> Optional[float]:
        cell = level.cells.get(level.place(*place[:2]))
        return None if cell is None or cell.room == 0 else math.dist(place[:2], middles[cell.room])

    for place in reached.sorted(far):
        number = level.cells[level.place(*place[:2])].room
        goals.setdefault(number, (math.dist(place[:2], middles[number]), place))
        if len(goals) == len(level.rooms):
            break
    return {
        number: place for number, (far_off, place) in goals.items() if far_off < MIDDLE * level.size
    }


def _open(ways: Ways, number: int, record: Dict[str, Any], stand: Point) -> Open:
    thing: Thing = ways.level.things[number]
    items = record["items"]
    return Open(
        ways.level.name,
        f'{record["name"]} "{thing.id}"',
        _above(stand),
        look_at(stand, middle_of(ways.ground(), number)),
        tuple(item["id"] for item in items),
        tuple(item["count"] for item in items),
    )


def _door(level: Level, other: str) -> int:
    """The number of the door to another level."""
    return next(number for number, thing in enumerate(level.things) if thing.leads_to == other)


def _lead_of(door: Dict[str, Any]) -> Entry:
    """Where one comes out behind a door of the plug-in."""
    lead = door["destination"]
    return point(lead["position"]), lead["degrees"][2]

# SPDX-License-Identifier: MIT
"""Rooms that are shut on purpose: the walk has to notice."""

import math
from typing import Any, Dict, Iterator, List, Tuple

from .plan import SIDES, Level, Place, Room
from .plugin_file import Placed, interior

# Of the guide's masters the second is the dungeon: its references are changed by such numbers.
OF_DUNGEON = 2 << 24
# Nothing opens it.
LOCK = 100
# Added references are numbered from here.
ADDED = 1


def ways_out(level: Level, room: Room) -> List[Tuple[Place, str]]:
    """Where one leaves a room: cell and side."""
    return [
        (place, side)
        for place, cell in level.cells.items()
        if cell.room == room.number
        for side in SIDES
        if level.joined(place, side) and level.cells[place.beside(side)].room != room.number
    ]


def walled_off(level: Level, room: Room) -> bytes:
    """A wall of the level's own set across every way out of a room."""
    walls = [_wall(level, place, side) for place, side in ways_out(level, room)]
    placed = [
        Placed(ADDED + number, *wall) for number, wall in enumerate(walls)
    ]
    return interior(level.name, placed)


def _wall(level: Level, place: Place, side: str) -> Tuple[str, List[float], List[float]]:
    """A piece that has a wall on one side and no other, turned for that to be `side`."""
    piece, middle, closed = next(_walls(level))
    turn = math.radians(SIDES[side][2] - SIDES[closed][2])
    east, north = piece.position[0] - middle[0], piece.position[1] - middle[1]
    x, y = level.middle(place)
    position = [
        x + east * math.cos(turn) + north * math.sin(turn),
        y + north * math.cos(turn) - east * math.sin(turn),
        piece.position[2],
    ]
    return piece.id, position, [0.0, 0.0, math.radians(piece.degrees[2]) + turn]


def _walls(level: Level) -> Iterator[Tuple[Any, Tuple[float, float], str]]:
    for thing in level.things:
        place = level.place(*thing.position[:2])
        cell = level.cells.get(place)
        if thing.sort == "tile" and cell is not None and cell.tile == "room" and not cell.doorway:
            closed = [side for side in SIDES if side not in cell.open]
            if len(closed) == 1:
                yield thing, level.middle(place), closed[0]


def locked(level: Level, room: Room, inspection: Dict[str, Any]) -> bytes:
    """Locks the door in every way out of a room."""
    cell = next(cell for cell in inspection["cells"] if cell["name"] == level.name)
    doors = [
        reference
        for place, side in ways_out(level, room)
        for reference in cell["references"]
        if is_door_at(level, place, side, reference)
    ]
    return interior(
        level.name,
        [
            Placed(
                OF_DUNGEON + door["number"], door["id"], door["position"], door["rotation"], LOCK
            )
            for door in doors
        ],
    )


def is_door_at(level: Level, place: Place, side: str, reference: Dict[str, Any]) -> bool:
    """Whether a reference is the leaf in a way out."""
    middle = level.middle(place)
    step = SIDES[side]
    border = (middle[0] + step[0] * level.size / 2, middle[1] - step[1] * level.size / 2)
    words = reference["id"].lower()
    is_door = "door" in words and not any(no in words for no in ("jamb", "doorway", "frame"))
    return is_door and math.dist(border, reference["position"][:2]) < level.size / 2


def shut_room(level: Level, inspection: Dict[str, Any]) -> Room:
    """A room that is not the first, with a door in every way out."""
    start = level.cells[level.place(*level.arrival["position"][:2])].room
    cell = next(cell for cell in inspection["cells"] if cell["name"] == level.name)
    return next(
        room
        for room in level.rooms
        if room.number != start
        and room.reachable
        and ways_out(level, room)
        and all(
            any(is_door_at(level, place, side, each) for each in cell["references"])
            for place, side in ways_out(level, room)
        )
    )

# SPDX-License-Identifier: MIT
"""One dungeon, from its options to what was found in it."""

import csv
import time
from collections import Counter
from dataclasses import dataclass, field
from pathlib import Path
from typing import Callable, Dict, List, Optional

from . import controls
from .course import Course, room_words
from .dungeons import Dungeon, Made, make
from .plan import Level, Room
from .plugin_file import without_entrance
from .run import Outcome, run
from .stage_shapes import Stage
from .steps import Door, Open


@dataclass(frozen=True)
class Places:
    """Where everything lies."""

    library: Path
    data: Path
    stages: Path
    results: Path


@dataclass
class Result:
    """What came of a trial."""

    name: str
    findings: List[str] = field(default_factory=list)
    held_up: List[str] = field(default_factory=list)
    rooms: int = 0
    doors: int = 0
    containers: int = 0
    seconds: float = 0.0
    pieces: Dict[str, int] = field(default_factory=dict)
    required: bool = True

    def line(self) -> str:
        """A row of the report."""
        state = "ok" if not self.findings else "FAILED" if self.required else "failed (drawn anew)"
        numbers = (self.rooms, self.doors, self.containers, len(self.held_up))
        counts = "".join(f"{number:5}" for number in numbers) + f"{self.seconds:7.0f} s"
        return f"{counts}  {self.name}: {state}"


@dataclass(frozen=True)
class Trial:
    """A dungeon to walk through."""

    dungeon: Dungeon
    required: bool = True

    @property
    def name(self) -> str:
        """A name for its folder and its row."""
        return self.dungeon.name

    def play(self, places: Places) -> Result:
        """Walks through it."""
        result = Result(self.name, required=self.required)
        start = time.monotonic()
        try:
            self._play(places, result)
        except Exception as fault:  # whatever it is, the others are still tried
            result.findings.append(f"{type(fault).__name__}: {fault}")
        result.seconds = time.monotonic() - start
        return result

    def _play(self, places: Places, result: Result) -> None:
        folder = _folder(places, self.name)
        made = make(self.dungeon, folder, places.library, places.data)
        stage = Stage(places.stages / self.dungeon.config, folder / made.file)
        course = Course(made.levels, made.inspection, stage)
        course.lay()
        outcome = run(course.steps, stage, folder, made.file)
        done = course.steps[: outcome.done]
        result.pieces = _pieces(made.levels, places.data)
        result.rooms = _rooms_seen(made.levels, course, outcome)
        result.doors = sum(isinstance(step, Door) for step in done)
        result.containers = sum(isinstance(step, Open) for step in done)
        result.findings += course.findings + outcome.findings
        result.held_up = outcome.held_up


def _rooms_seen(levels: List[Level], course: Course, outcome: Outcome) -> int:
    """How many of the rooms that can be reached the player was in."""
    rooms = [
        (level.name, room_words(room.number))
        for level in levels
        for room in level.rooms
        if room.reachable
    ]
    missed = {(step.cell, step.what) for step in course.steps[outcome.done :]}
    return sum(room not in missed for room in rooms)


# Shuts a room by records that are loaded after the dungeon.
Shut = Callable[[Made, Level, Room], bytes]


@dataclass(frozen=True)
class Control(Trial):
    """A dungeon with a room that is shut: nobody may get into it."""

    what: str = ""
    shut: Optional[Shut] = None

    @property
    def name(self) -> str:
        return f"{self.what} in {self.dungeon.name}"

    def _play(self, places: Places, result: Result) -> None:
        assert self.shut is not None
        folder = _folder(places, self.name)
        made = make(self.dungeon, folder, places.library, places.data)
        level = made.levels[0]
        room = controls.shut_room(level, made.inspection)
        stage = Stage(places.stages / self.dungeon.config, folder / made.file)
        course = Course(made.levels, made.inspection, stage)
        course.lay_to(room)
        changes = [self.shut(made, level, room)]
        outcome = run(course.steps, stage, folder, made.file, changes)
        result.findings += course.findings + _not_shut(level, room, outcome)


@dataclass(frozen=True)
class FromWorld(Trial):
    """A dungeon that is entered from the world; without the door there nobody gets in."""

    has_door: bool = True

    @property
    def name(self) -> str:
        words = "entered from the world" if self.has_door else "the door in the world removed from"
        return f"{words}: {self.dungeon.name}"

    def _play(self, places: Places, result: Result) -> None:
        folder = _folder(places, self.name)
        stage_folder = places.stages / self.dungeon.config
        made = make(self.dungeon, folder, places.library, places.data, stage_folder)
        stage = Stage(stage_folder, folder / made.file)
        course = Course(made.levels, made.inspection, stage)
        course.lay_from_world()
        if not self.has_door:
            plugin = folder / made.file
            plugin.write_bytes(without_entrance(plugin.read_bytes()))
        outcome = run(course.steps, stage, folder, made.file)
        if self.has_door:
            result.doors = sum(isinstance(step, Door) for step in course.steps[: outcome.done])
            result.findings += course.findings + outcome.findings
        elif not isinstance(outcome.stuck, Door):
            result.findings += outcome.findings or ["the player got in without a door"]


def _not_shut(level: Level, room: Room, outcome: Outcome) -> List[str]:
    """What speaks against the player having been stopped before the room."""
    if outcome.stuck is None:
        return outcome.findings or [f"the player got into room {room.number}"]
    place = level.place(outcome.place[0], outcome.place[1])
    inside = level.cells[place].room == room.number if place in level.cells else False
    if inside or outcome.stuck.what != room_words(room.number):
        return outcome.findings
    return outcome.findings[:-1]


def _pieces(levels: List[Level], data: Path) -> Dict[str, int]:
    """How the measures of the pieces are known that the levels are built of."""
    with open(data / "pieces.csv", newline="", encoding="utf-8") as table:
        known = {row["id"].lower(): row["known"] for row in csv.DictReader(table)}
    words = (
        known.get(thing.id.lower(), "shaped")
        for level in levels
        for thing in level.things
        if thing.sort in ("tile", "door")
    )
    return dict(Counter(words))


def _folder(places: Places, name: str) -> Path:
    folder = places.results / "".join(c if c.isalnum() or c in " -" else "_" for c in name)
    folder.mkdir(parents=True, exist_ok=True)
    return folder


def control_trials(dungeon: Dungeon) -> List[Trial]:
    """A room walled off, and one behind locked doors."""
    return [
        Control(
            dungeon,
            True,
            "a room walled off",
            lambda made, level, room: controls.walled_off(level, room),
        ),
        Control(
            dungeon,
            True,
            "a room locked",
            lambda made, level, room: controls.locked(level, room, made.inspection),
        ),
    ]

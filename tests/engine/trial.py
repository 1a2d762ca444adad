# SPDX-License-Identifier: MIT
"""One dungeon, from its options to what was found in it."""

import time
from dataclasses import dataclass, field
from pathlib import Path
from typing import Callable, List, Optional

from . import controls
from .course import Course, room_words
from .dungeons import Dungeon, Made, make
from .plan import Level, Room
from .run import Outcome, run
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
    rooms: int = 0
    doors: int = 0
    containers: int = 0
    seconds: float = 0.0
    required: bool = True

    def line(self) -> str:
        """A row of the report."""
        state = "ok" if not self.findings else "FAILED" if self.required else "failed (drawn anew)"
        counts = f"{self.rooms:4} {self.doors:4} {self.containers:4} {self.seconds:6.0f} s"
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
        course = Course(made.levels, made.inspection)
        course.lay()
        outcome = run(course.steps, places.stages / self.dungeon.config, folder, made.file)
        done = course.steps[: outcome.done]
        result.rooms = sum(room.reachable for level in made.levels for room in level.rooms)
        result.doors = sum(isinstance(step, Door) for step in done)
        result.containers = sum(isinstance(step, Open) for step in done)
        result.findings += course.findings + outcome.findings


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
        course = Course(made.levels, made.inspection)
        course.lay_to(room)
        changes = [self.shut(made, level, room)]
        stage = places.stages / self.dungeon.config
        outcome = run(course.steps, stage, folder, made.file, changes)
        result.findings += course.findings + _not_shut(level, room, outcome)


def _not_shut(level: Level, room: Room, outcome: Outcome) -> List[str]:
    """What speaks against the player having been stopped before the room."""
    if outcome.stuck is None:
        return outcome.findings or [f"the player got into room {room.number}"]
    place = level.place(outcome.place[0], outcome.place[1])
    inside = level.cells[place].room == room.number if place in level.cells else False
    if inside or outcome.stuck.what != room_words(room.number):
        return outcome.findings
    return outcome.findings[:-1]


def _folder(places: Places, name: str) -> Path:
    folder = places.results / "".join(c if c.isalnum() or c in " -" else "_" for c in name)
    folder.mkdir(parents=True, exist_ok=True)
    return folder


def control_trials(dungeon: Dungeon) -> List[Trial]:
    """A room walled off, and one behind locked doors."""
    return [
        Control(dungeon, True, "a room walled off", lambda made, level, room: controls.walled_off(level, room)),
        Control(
            dungeon,
            True,
            "a room locked",
            lambda made, level, room: controls.locked(level, room, made.inspection),
        ),
    ]

# SPDX-License-Identifier: MIT
"""The script by which the engine takes the player through the steps.

It steers the player along straight pieces and lets the engine's physics move him. It has no lists: a
chain of conditions gives it the numbers of each step. What it finds out it leaves in global variables,
which a saved game holds; what it wants of whoever presses the keys it says by starting a script that
does not exist, whose name comes into the log.
"""

import math
import re
from typing import Callable, Dict, List, Sequence

from .steps import Door, Open, Picture, Put, Step, Use, Walk

# How fast the player walks. [world units a second]
SPEED = 1000.0
# Where a picture takes longer, the player goes slower, or he would run past corners. [seconds]
SHORT = 0.02
# How far before the end of a straight piece he goes slower too, and how much. [world units]
NEAR, SLOWER = 64, 0.4
# How far the player steps back from what he is stuck at. [world units]
BACK = 96
# How often he tries to get on.
TRIES = 3
# How long he waits there before he goes on, and how long for a leaf to open. [seconds]
REST, OPENING = 1.2, 5
# How long a view is drawn, so that there is time for a picture of it. [seconds]
SEEN = 4
# Where a leaf is open: it turns by 90 degrees.
OPEN = 89

# In the order of the parts of _SOURCE.
KINDS = (Walk, Put, Use, Door, Open, Picture)

# What the log says of a script that does not exist: the wish, or that a step is done.
WISH = re.compile(r"wk_(run|use|take|picture|stuck|next|end)_wish")

_SOURCE = f"""
begin wk_walk
FLOATS
short kind
short phase
short tries
short over
short begun
short going
float wait
if ( wk_end == 1 )
    player->SetSpeed 0
    return
endif
set t to ( t + GetSecondsPassed )
set x to ( player->GetPos x )
set y to ( player->GetPos y )
if ( begun == 0 )
    BEGIN
    set begun to 1
    set t to 0
    set phase to 0
    set tries to 0
    set over to 0
    set best to -9999
    return
endif

if ( kind == 0 )
    set along to ( ( ( x - x0 ) * ux ) + ( ( y - y0 ) * uy ) )
    set off to ( ( ( x - x0 ) * uy ) - ( ( y - y0 ) * ux ) )
    if ( along > ( length - 6 ) )
        set over to 1
    endif
    set pace to 100
    if ( along > ( length - {NEAR} ) )
        set pace to ( 100 * {SLOWER} )
    endif
    if ( GetSecondsPassed > {SHORT} )
        set pace to ( pace * {SHORT} / GetSecondsPassed )
    endif
    if ( phase == 0 )
        player->SetSpeed ( pace )
        set a to ( heading - ( off * 1.2 ) )
        if ( off > 40 )
            set a to ( heading - 48 )
        endif
        if ( off < -40 )
            set a to ( heading + 48 )
        endif
        player->SetAngle x 0
        player->SetAngle z ( a )
        if ( along > ( best + 4 ) )
            if ( best > -9999 )
                set going to 1
            endif
            set best to along
            set t to 0
        endif
        if ( going == 0 )
            if ( t > wait )
                set wait to 5
                set t to 0
                WISH run
            endif
        elseif ( t > 0.8 )
            set phase to 1
            set t to 0
            WISH stuck
        endif
    elseif ( phase == 1 )
        player->SetSpeed ( pace / 3 )
        player->SetAngle z ( heading + 180 )
        if ( along < ( best - {BACK} ) )
            set t to 5
        endif
        if ( t > 1.5 )
            player->SetSpeed 0
            set phase to 2
            set t to 0
        endif
    elseif ( phase == 2 )
        player->SetAngle z ( heading )
        if ( t > 0.25 )
            set tries to ( tries + 1 )
            set phase to 3
            set t to 0
            if ( tries > {TRIES} )
                GIVE_UP
            elseif ( tries == 2 )
                WISH use
            endif
        endif
    else
        player->SetAngle z ( heading )
        if ( t > {REST} )
            set best to -9999
            set phase to 0
            set t to 0
        endif
    endif
endif

if ( kind == 1 )
    player->SetSpeed 0
    if ( t > 0.5 )
        set over to 1
    endif
endif

if ( kind > 1 )
    player->SetSpeed 0
    if ( phase == 0 )
        player->SetAngle x ( pitch )
        player->SetAngle z ( heading )
        if ( t > 0.3 )
            set phase to 1
            set t to 0
            set wk_used to 0
            if ( kind == 5 )
                ToggleWorld
                WISH picture
            else
                WISH use
            endif
        endif
    elseif ( kind == 2 )
        if ( wk_used == 2 )
            set over to 1
        elseif ( t > {OPENING} )
            set tries to ( tries + 1 )
            set phase to 0
            set t to 0
            if ( wk_used == 1 )
                set over to 1
            elseif ( tries == 2 )
                set over to 1
            endif
        endif
    elseif ( kind == 3 )
        if ( phase == 1 )
            set along to ( x - x0 )
            set off to ( y - y0 )
            if ( along < 24 )
                if ( along > -24 )
                    if ( off < 24 )
                        if ( off > -24 )
                            set phase to 2
                            set t to 0
                        endif
                    endif
                endif
            endif
            if ( t > 6 )
                AGAIN
            endif
        elseif ( t > 0.6 )
            set over to 1
        endif
    elseif ( kind == 4 )
        if ( phase == 1 )
            if ( MenuMode == 1 )
                set phase to 2
                set t to 0
                WISH take
            elseif ( t > 5 )
                AGAIN
            endif
        elseif ( MenuMode == 0 )
            TAKEN
            if ( has > had )
                COUNT
                set over to 1
            else
                AGAIN
            endif
        elseif ( t > 5 )
            set t to 0
            WISH take
        endif
    elseif ( t > {SEEN} )
        ToggleWorld
        set over to 1
    endif
endif

if ( over == 1 )
    KEEP
    set wk_step to ( wk_step + 1 )
    set begun to 0
    if ( wk_step == LAST )
        set wk_end to 1
        ToggleWorld
        WISH end
    else
        WISH next
    endif
endif
end wk_walk
"""


# Doors tell when they are used, and when they stand open.
LEAF = f"""
begin wk_leaf
short turns
float turn
if ( OnActivate == 1 )
    set wk_used to 1
    set turns to 1
    Activate
endif
if ( turns == 1 )
    set turn to ( GetAngle z - GetStartingAngle z )
    if ( turn < 0 )
        set turn to ( turn + 360 )
    endif
    if ( turn > {OPEN} )
        set turns to 0
        set wk_used to 2
    endif
endif
end wk_leaf
"""


def stand_names(number: int) -> List[str]:
    """The variables that hold where the player stood when a step ended."""
    return [f"wk_{axis}{number}" for axis in "xyza"]


def count_names(number: int, step: Open) -> List[str]:
    """The variables that hold how many of each item the player had then."""
    return [f"wk_c{number}_{index}" for index in range(len(step.items))]


def variables(steps: Sequence[Step]) -> List[str]:
    """The global variables of a script."""
    names = ["wk_step", "wk_end", "wk_used", "wk_x", "wk_y", "wk_z"]
    for number, step in enumerate(steps):
        names += stand_names(number)
        if isinstance(step, Open):
            names += count_names(number, step)
    return names


def source(steps: Sequence[Step]) -> str:
    """The script for these steps."""
    give_up = [
        "set wk_x to x",
        "set wk_y to y",
        "set wk_z to ( player->GetPos z )",
        "set wk_end to 1",
        "ToggleWorld",
        "StartScript wk_end_wish",
    ]
    parts: Dict[str, Callable[[str], List[str]]] = {
        "FLOATS": lambda _: [
            f"float {name}"
            for name in "t x y a x0 y0 ux uy length heading pitch along off best pace had has".split()
        ],
        "BEGIN": lambda _: _chain([_begin(step) for step in steps]),
        "TAKEN": lambda _: _chain([_taken(step, "has") for step in steps]),
        "COUNT": lambda _: _chain([_count(number, step) for number, step in enumerate(steps)]),
        "KEEP": lambda _: _chain([_keep(number) for number in range(len(steps))]),
        "WISH": lambda wish: [f"StartScript wk_{wish}_wish"],
        "AGAIN": lambda _: [
            "set tries to ( tries + 1 )",
            "set phase to 0",
            "set t to 0",
            "if ( tries == 3 )",
            *give_up,
            "endif",
        ],
        "GIVE_UP": lambda _: give_up,
    }
    lines: List[str] = []
    for line in _SOURCE.replace("LAST", str(len(steps))).splitlines():
        word, _, rest = line.strip().partition(" ")
        lines += parts[word](rest) if word in parts else [line.strip()]
    return "\n".join(lines) + "\n"


def _chain(bodies: Sequence[List[str]]) -> List[str]:
    """The lines of the step that is at hand."""
    chain: List[str] = []
    for number, body in enumerate(bodies):
        if body:
            chain += [f"{'elseif' if chain else 'if'} ( wk_step == {number} )", *body]
    return [*chain, "endif"] if chain else []


def _begin(step: Step) -> List[str]:
    """What the script has to know of a step, and what is done as it begins."""
    values: Dict[str, float] = {"kind": KINDS.index(type(step))}
    calls: List[str] = []
    if isinstance(step, Walk):
        east, north = step.end[0] - step.start[0], step.end[1] - step.start[1]
        length = math.hypot(east, north)
        values.update(x0=step.start[0], y0=step.start[1], ux=east / length, uy=north / length)
        values.update(length=length, heading=math.degrees(math.atan2(east, north)))
    if isinstance(step, Put):
        place = " ".join(_number(value) for value in (*step.position, step.heading))
        inside = f'player->PositionCell {place} "{step.cell}"'
        calls = [f"player->Position {place}" if step.outside else inside]
    if isinstance(step, Door):
        values.update(x0=step.arrival[0], y0=step.arrival[1])
    if isinstance(step, (Use, Door, Open, Picture)):
        values.update(heading=step.look.heading, pitch=step.look.pitch)
    if isinstance(step, (Open, Picture)):
        axes = zip("xyz", step.position)
        calls = [f"player->SetPos {axis} {_number(value)}" for axis, value in axes]
    if isinstance(step, Open):
        calls += _taken(step, "had") if step.items else ["set had to ( 0 - 1 )"]
    return [*(f"set {name} to {_number(value)}" for name, value in values.items()), *calls]


def _taken(step: Step, name: str) -> List[str]:
    """How many of a container's first item the player has."""
    if not isinstance(step, Open):
        return []
    count = f'player->GetItemCount "{step.items[0]}"' if step.items else "0"
    return [f"set {name} to ( {count} )"]


def _count(number: int, step: Step) -> List[str]:
    if not isinstance(step, Open):
        return []
    pairs = zip(count_names(number, step), step.items)
    return [f'set {name} to ( player->GetItemCount "{item}" )' for name, item in pairs]


def _keep(number: int) -> List[str]:
    where = ("GetPos x", "GetPos y", "GetPos z", "GetAngle z")
    names = stand_names(number)
    return [f"set {name} to ( player->{what} )" for name, what in zip(names, where)]


def _number(value: float) -> str:
    # The script's own language takes no sign before a number everywhere.
    return f"( 0 {'-' if value < 0 else '+'} {abs(value):.5f} )"

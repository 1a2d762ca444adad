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

from .steps import Door, Open, Picture, Put, Step, Walk

# How fast the player walks. [world units a second]
SPEED = 600.0
# Where a picture takes longer, the player goes slower, or he would run past corners. [seconds]
SHORT = 0.04
# How far the player steps back from a door: beyond the leaf, which may swing towards him, and not
# beyond the reach of the use key, which is 192 from his middle. [world units]
BACK = 128
# How far beside the way the player goes round what stands there, on one side and then on the other.
# [world units]
ASIDE = 90
# How often a door, or a leaf that hangs in the way, is tried.
TRIES = 4

# In the order of the parts of _SOURCE.
KINDS = (Walk, Put, Door, Open, Picture)

# What the log says of a script that does not exist, with the wish and the number of the step.
WISH = re.compile(r"wk_(run|use|take|picture|end)(?:_(\d+))?\b")

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
    set aside to 0
    set over to 0
    set best to -9999
    return
endif

if ( kind == 0 )
    set along to ( ( ( x - x0 ) * ux ) + ( ( y - y0 ) * uy ) )
    set off to ( ( ( x - x0 ) * uy ) - ( ( y - y0 ) * ux ) - aside )
    if ( along > length )
        set over to 1
    endif
    set pace to 100
    if ( GetSecondsPassed > {SHORT} )
        set pace to ( 100 * {SHORT} / GetSecondsPassed )
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
        if ( along > ( best + 6 ) )
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
        elseif ( t > 0.6 )
            set phase to 1
            set t to 0
        endif
    elseif ( phase == 1 )
        player->SetSpeed ( pace / 3 )
        player->SetAngle z ( heading + 180 )
        if ( along < ( best - {BACK} ) )
            set t to 5
        endif
        if ( t > 4 )
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
            elseif ( tries == 1 )
                WISH use
            elseif ( tries == 2 )
                set aside to {ASIDE}
                set t to 2
            elseif ( tries == 3 )
                set aside to ( 0 - {ASIDE} )
                set t to 2
            else
                set aside to 0
                WISH use
            endif
        endif
    else
        player->SetAngle z ( heading )
        if ( t > 1.7 )
            set best to -9999
            set phase to 0
            set t to 0
        endif
    endif
endif

if ( kind == 1 )
    player->SetSpeed 0
    if ( t > 1 )
        set over to 1
    endif
endif

if ( kind == 2 )
    player->SetSpeed 0
    if ( phase == 0 )
        player->SetAngle x 0
        player->SetAngle z ( heading )
        if ( t > 0.5 )
            set phase to 1
            set t to 0
            WISH use
        endif
    elseif ( phase == 1 )
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
            GIVE_UP
        endif
    elseif ( t > 1 )
        set over to 1
    endif
endif

if ( kind == 3 )
    player->SetSpeed 0
    player->SetAngle x ( pitch )
    player->SetAngle z ( heading )
    if ( phase == 0 )
        if ( t > 0.8 )
            set phase to 1
            set t to 0
            WISH use
        endif
    elseif ( phase == 1 )
        if ( MenuMode == 1 )
            set phase to 2
            WISH take
        endif
        if ( t > 5 )
            GIVE_UP
        endif
    elseif ( MenuMode == 0 )
        COUNT
        set over to 1
    endif
endif

if ( kind == 4 )
    player->SetSpeed 0
    player->SetAngle x ( pitch )
    player->SetAngle z ( heading )
    if ( phase == 0 )
        if ( t > 1 )
            set phase to 1
            set t to 0
            WISH picture
        endif
    elseif ( t > 1 )
        set over to 1
    endif
endif

if ( over == 1 )
    KEEP
    set wk_step to ( wk_step + 1 )
    set begun to 0
    if ( wk_step == LAST )
        set wk_end to 1
        StartScript wk_end
    endif
endif
end wk_walk
"""


def stand_names(number: int) -> List[str]:
    """The variables that hold where the player stood when a step ended."""
    return [f"wk_{axis}{number}" for axis in "xyza"]


def count_names(number: int, step: Open) -> List[str]:
    """The variables that hold how many of each item the player had then."""
    return [f"wk_c{number}_{index}" for index in range(len(step.items))]


def variables(steps: Sequence[Step]) -> List[str]:
    """The global variables of a script."""
    names = ["wk_step", "wk_end", "wk_x", "wk_y", "wk_z"]
    for number, step in enumerate(steps):
        names += stand_names(number)
        if isinstance(step, Open):
            names += count_names(number, step)
    return names


def source(steps: Sequence[Step]) -> str:
    """The script for these steps."""
    parts: Dict[str, Callable[[str], List[str]]] = {
        "FLOATS": lambda _: [
            f"float {name}"
            for name in "t x y a x0 y0 ux uy length heading pitch along off best pace aside".split()
        ],
        "BEGIN": lambda _: _chain([_begin(step) for step in steps]),
        "COUNT": lambda _: _chain([_count(number, step) for number, step in enumerate(steps)]),
        "KEEP": lambda _: _chain([_keep(number) for number in range(len(steps))]),
        "WISH": lambda wish: _chain([[f"StartScript wk_{wish}_{i}"] for i in range(len(steps))]),
        "GIVE_UP": lambda _: [
            "set wk_x to x",
            "set wk_y to y",
            "set wk_z to ( player->GetPos z )",
            "set wk_end to 1",
            "StartScript wk_end",
        ],
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
        calls = [f'player->PositionCell {place} "{step.cell}"']
    if isinstance(step, Door):
        values.update(heading=step.heading, x0=step.arrival[0], y0=step.arrival[1])
    if isinstance(step, (Open, Picture)):
        values.update(heading=step.heading, pitch=step.pitch)
        axes = zip("xyz", step.position)
        calls = [f"player->SetPos {axis} {_number(value)}" for axis, value in axes]
    return [*(f"set {name} to {_number(value)}" for name, value in values.items()), *calls]


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

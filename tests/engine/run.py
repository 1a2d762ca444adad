# SPDX-License-Identifier: MIT
"""A course run in the engine: the keys that the script wishes for, and what came of it."""

from dataclasses import dataclass, field
from pathlib import Path
from typing import Dict, List, Optional, Sequence

from .engine import Engine, EngineError
from .log_lines import errors
from .plugin_file import saved_variables, script, setting, variable, write_plugin
from .script import LEAF, SPEED, WISH, count_names, source, stand_names, variables
from .stage_shapes import MASTER, Stage
from .steps import Open, Step, Walk

# So long nothing is heard of the player at most: a long way without a door. [seconds]
PATIENCE = 120.0
# One speed for walking and running, and one that never tires.
SETTINGS = {
    "fMinWalkSpeed": 0.0,
    "fMaxWalkSpeed": SPEED,
    "fBaseRunMultiplier": 1.0,
    "fAthleticsRunBonus": 0.0,
    "fFatigueRunBase": 0.0,
    "fFatigueRunMult": 0.0,
}
# What is pressed for which wish: to walk by oneself from now on, to use what one looks at, and "Take
# All" of the window of a container, which stands to the left of "Close".
KEYS = {"run": ("q",), "use": ("space",), "take": ("Left", "Return")}
GUIDE = "walk-guide.esp"


@dataclass
class Outcome:
    """What a run left behind."""

    findings: List[str]
    done: int
    held_up: List[str] = field(default_factory=list)
    stuck: Optional[Step] = None
    place: Sequence[float] = ()


def run(
    steps: Sequence[Step], stage: Stage, folder: Path, plugin: str, changes: Sequence[bytes] = ()
) -> Outcome:
    """Leads the player through the steps in the plug-in of a folder, which pictures come into.
    `changes` are records that are loaded after it."""
    records = [variable(name) for name in variables(steps)]
    records += [setting(name, value) for name, value in SETTINGS.items()]
    records += [script("wk_leaf", LEAF), *stage.scripted_doors("wk_leaf")]
    records += [script("wk_walk", source(steps)), *changes]
    write_plugin(folder / GUIDE, [MASTER, plugin], records)
    console = ["ToggleMenus", "ToggleWorld", "StartScript wk_walk"]
    content = [MASTER, plugin, GUIDE]
    with Engine([stage.folder, folder], content, steps[0].cell, console) as engine:
        try:
            engine.wait("Loading cell", 120)
            held_up = _serve(engine, steps, folder)
            outcome = _judged(steps, saved_variables(engine.save()))
            outcome.held_up = held_up
        except EngineError as fault:
            outcome = Outcome([str(fault)], 0)
        log = engine.log
    (folder / "engine.log").write_text(log)
    outcome.findings += [f"OpenMW says: {line}" for line in errors(log)]
    return outcome


def _serve(engine: Engine, steps: Sequence[Step], folder: Path) -> List[str]:
    """Does what the script wishes for until it ends. Tells where the player was held up."""
    held_up: List[str] = []
    read = 0
    done = 0
    while True:
        wish = engine.wait(WISH.pattern, PATIENCE, read)
        read = wish.end()
        if wish[1] == "end":
            engine.draw()
            engine.picture(folder / "end.png")
            return held_up
        if wish[1] == "next":
            done += 1
        elif wish[1] == "stuck":
            step = steps[done]
            held_up.append(step.told(step.end if isinstance(step, Walk) else (), "held up before"))
        elif wish[1] == "picture":
            engine.draw()
            engine.picture(folder / f"{steps[done].cell}, {steps[done].what}.png")
        else:
            engine.key(*KEYS[wish[1]])


def _judged(steps: Sequence[Step], values: Dict[str, float]) -> Outcome:
    done = int(values["wk_step"])
    outcome = Outcome([], done)
    owned: Dict[str, int] = {}
    for number, step in enumerate(steps[:done]):
        x, y, z, heading = (values[name] for name in stand_names(number))
        outcome.findings += step.judge((x, y, z, heading))
        if isinstance(step, Open):
            counts = [values[name] for name in count_names(number, step)]
            outcome.findings += step.compare(counts, owned)
    if done < len(steps):
        outcome.stuck = steps[done]
        outcome.place = [values[name] for name in ("wk_x", "wk_y", "wk_z")]
        outcome.findings.append(outcome.stuck.told(outcome.place, "no further"))
    return outcome

# SPDX-License-Identifier: MIT
"""The dungeons that are walked through, and how the program makes them."""

import json
import random
from dataclasses import dataclass
from pathlib import Path
from typing import Any, Dict, List

import vaultry

from .plan import Level

# By the names of the files in data.
BUILDINGS = ("Imperial small", "Velothi", "Common stone", "Common plain", "Hlaalu", "Common rich")


@dataclass(frozen=True)
class Dungeon:
    """A configuration and options of a run; the seed is among them."""

    config: str
    options: Dict[str, object]

    @property
    def name(self) -> str:
        """A name for the folder of its files."""
        words = [self.config] + [
            str(value) if not isinstance(value, bool) else name
            for name, value in self.options.items()
            if name != "seed"
        ]
        return " ".join([*words, f'seed {self.options["seed"]}'])


# What has to pass; the longest stand first, so that two processors end together.
DUNGEONS = (
    Dungeon("vaultry", {"tileset": "Velothi", "levels": 3, "seed": 7}),
    *(
        Dungeon("vaultry", {"tileset": name, "seed": 1})
        for name in ("Imperial small", "Velothi", "Common stone", "Hlaalu")
    ),
)

# One of them, of which a room is shut besides.
CONTROL = Dungeon("vaultry", {"tileset": "Imperial small", "seed": 1})


def drawn() -> List[Dungeon]:
    """Three dungeons that nobody walked through before."""
    chance = random.SystemRandom()
    seeds = [chance.randrange(1 << 32) for _ in range(3)]
    return [
        Dungeon("vaultry", {"tileset": chance.choice(BUILDINGS), "levels": 2, "seed": seed})
        for seed in seeds
    ]


@dataclass
class Made:
    """A dungeon as the program made it."""

    file: str
    levels: List[Level]
    inspection: Dict[str, Any]


def make(dungeon: Dungeon, folder: Path, library: Path, data: Path) -> Made:
    """Generates a dungeon into a folder."""
    plugin = folder / "walk.esp"
    with vaultry.Generator(library) as generator:
        generator.init(data / f"{dungeon.config}.xml")
        for option, value in dungeon.options.items():
            generator.set(option, value)
        generator.set("cell", "Walk")
        generator.set("treasure-theme", "Modest hoard")
        generator.set("stamp", 1)
        generator.generate(plugin)
        answer = generator.map_data
        inspection = generator.inspect(generator.plugin, plugin.name)
    (folder / "map.json").write_text(json.dumps(answer))
    return Made(plugin.name, [Level(level) for level in answer["levels"]], inspection)

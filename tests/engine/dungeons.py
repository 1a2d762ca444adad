# SPDX-License-Identifier: MIT
"""The dungeons that are walked through, and how the program makes them."""

import json
import random
from dataclasses import dataclass
from pathlib import Path
from typing import Any, Dict, List, Optional

import vaultry

from .plan import Level

# The tile sets, by the names of the files in data.
BUILDINGS = ("Imperial small", "Velothi", "Common stone", "Common plain", "Hlaalu", "Common rich")
ROCKS = ("Mold", "Mud", "Pyroclastic", "Lava", "Bone")
# The layouts of chambers, one for each kind of rock.
CAVERNS = ("Sea Caves", "Three Caverns", "Hermitage", "Terraced Caves", "Smugglers' Grotto")


@dataclass(frozen=True)
class Dungeon:
    """A configuration and options of a run; the seed is among them."""

    config: str
    options: Dict[str, object]

    @property
    def name(self) -> str:
        """A name for the folder of its files."""
        words = [
            name if value is True else f"{value} levels" if name == "levels" else str(value)
            for name, value in self.options.items()
            if name != "seed"
        ]
        return " ".join([self.config, *words, f'seed {self.options["seed"]}'])


def _building(name: str, seed: int, **more: object) -> Dungeon:
    return Dungeon("vaultry", {"tileset": name, **more, "seed": seed})


def _tunnels(rock: str, seed: int, **more: object) -> Dungeon:
    return Dungeon("caves", {"cave-tileset": f"{rock} cave tunnels", **more, "seed": seed})


def _chambers(rock: str, layout: str, seed: int) -> Dungeon:
    words = {"cave-tileset": f"{rock} cave rooms", "cave-template": layout}
    return Dungeon("grottoes", {"fixed": True, **words, "platforms": True, "seed": seed})


# What has to pass; the longest stand first, so that the processors end together.
DUNGEONS = (
    _building("Velothi", 7, levels=3),
    _building("Velothi", 41, size="Large", spacing="Tight"),
    _building("Hlaalu", 42, size="Large", spacing="Tight"),
    _building("Imperial small", 5, size="Large"),
    _building("Hlaalu", 741720803, levels=2),
    _building("Common stone", 872239314, levels=2),
    *(_tunnels(rock, seed) for seed, rock in enumerate(ROCKS, 1)),
    *(_building(name, seed) for seed, name in enumerate(BUILDINGS, 1)),
    Dungeon("caves", {"tileset": "Velothi", "seed": 3}),
    _building("Imperial small", 2, fixed=True, template="Sunken Shrine"),
    _building("Common rich", 2, fixed=True, template="Watch Stair"),
    *(_chambers(*each, seed) for seed, each in enumerate(zip(ROCKS, CAVERNS), 1)),
    Dungeon("grottoes", {"tileset": "Velothi", "fixed": True, "seed": 1}),
)

# One of them, of which a room is shut besides.
CONTROL = _building("Imperial small", 1)

# One with a way in from the world, beside the slope of the stage.
ENTERED = _building("Imperial small", 3, entrance="1000,500,,90")


def drawn() -> List[Dungeon]:
    """Three dungeons that nobody walked through before: of buildings, tunnels and chambers."""
    chance = random.SystemRandom()
    seeds = [chance.randrange(1 << 32) for _ in range(3)]
    return [
        _building(chance.choice(BUILDINGS), seeds[0], levels=2),
        _tunnels(chance.choice(ROCKS), seeds[1], levels=2),
        _chambers(chance.choice(ROCKS), chance.choice(CAVERNS), seeds[2]),
    ]


@dataclass
class Made:
    """A dungeon as the program made it."""

    file: str
    levels: List[Level]
    inspection: Dict[str, Any]


def make(
    dungeon: Dungeon, folder: Path, library: Path, data: Path, game: Optional[Path] = None
) -> Made:
    """Generates a dungeon into a folder; `game` has the files of the world that it is entered
    from."""
    plugin = folder / "walk.esp"
    with vaultry.Generator(library) as generator:
        generator.init(data / f"{dungeon.config}.xml")
        for option, value in dungeon.options.items():
            generator.set(option, value)
        if game is not None:
            generator.set("game", str(game))
        generator.set("cell", "Walk")
        generator.set("treasure-theme", "Modest hoard")
        generator.set("stamp", 1)
        generator.generate(plugin)
        answer = generator.map_data
        inspection = generator.inspect(generator.plugin, plugin.name)
    (folder / "map.json").write_text(json.dumps(answer))
    return Made(plugin.name, [Level(level) for level in answer["levels"]], inspection)

# SPDX-License-Identifier: MIT
"""The error lines of the engine that say nothing about a dungeon."""

import re
from typing import List, Tuple

from .script import WISH

WINDOWS = "menu_|tx_menu|tx_cursor|cursor_|target|door_icon|compass|scroll|player_hit"
SKY = "tx_sky|tx_moon|tx_masser|tx_secunda|tx_sun|tx_raindrop|_land_default|water/"
WEATHER = "sky_|ashcloud|blightcloud|snow|blizzard|xargonian_swimkna"

# What is let pass, and why. None names a thing of a dungeon.
ALLOWED: Tuple[Tuple[str, str], ...] = (
    (r"Failed to add global script main: ", "the game's own first script, which a stage lacks"),
    (rf"textures/({WINDOWS})", "windows"),
    (r"icons[/\\]", "pictures of what is carried, and of windows"),
    (rf"textures/({SKY})", "outdoors"),
    (rf"meshes/({WEATHER})", "outdoors, and a beast"),
)

_LINE = re.compile(r"^\[[\d:.]+ (\w)\] (.*)$", re.MULTILINE)


def errors(log: str) -> List[str]:
    """The error lines that are not let pass, each once."""
    found = [text for level, text in _LINE.findall(log) if level == "E"]
    found += re.findall(r"^.*(?:Fatal|what\(\)).*$", log, re.MULTILINE)
    return [
        line
        for line in dict.fromkeys(found)
        if not WISH.search(line) and not any(re.search(allowed, line) for allowed, _ in ALLOWED)
    ]

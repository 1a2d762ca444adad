#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Generates a dungeon from Python.

    generate.py LIBRARY CONFIGURATION PLUGIN [OPTION=VALUE ...]

LIBRARY is libvaultry.so or Vaultry.dll; options are those of the command line without the dashes,
for instance size=Large seed=7 levels=2.
"""

import sys
from typing import List

import vaultry


def main(arguments: List[str]) -> None:
    if len(arguments) < 3 or not all("=" in option for option in arguments[3:]):
        sys.exit(__doc__)
    library, config, plugin, *options = arguments
    with vaultry.Generator(library) as generator:
        generator.init(config)
        for option in options:
            generator.set(*option.split("=", 1))
        report = generator.generate(plugin)
        print(f"seed {generator.seed}")
        for level in report["levels"]:
            print(f"level {level['level']}: {level['reachable-rooms']} of {level['rooms']} rooms")


if __name__ == "__main__":
    try:
        main(sys.argv[1:])
    except vaultry.VaultryError as error:
        sys.exit(str(error))

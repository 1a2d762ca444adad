#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Generates a dungeon from Python.

    generate.py CONFIGURATION PLUGIN [OPTION=VALUE ...]

Options are those of the command line without the dashes, for instance size=Large seed=7 levels=2.
Where the system does not find the library, the environment variable VAULTRY_LIBRARY tells its path.
"""

import sys
from typing import List

import vaultry


def main(arguments: List[str]) -> None:
    if len(arguments) < 2 or not all("=" in option for option in arguments[2:]):
        sys.exit(__doc__)
    config, plugin, *options = arguments
    with vaultry.Generator() as generator:
        generator.init(config)
        for option in options:
            generator.set(*option.split("=", 1))
        report = generator.generate(plugin)
        print(f"seed {report['seed']}")
        for level in report["levels"]:
            print(f"level {level['level']}: {level['reachable-rooms']} of {level['rooms']} rooms")


if __name__ == "__main__":
    try:
        main(sys.argv[1:])
    except vaultry.VaultryError as error:
        sys.exit(str(error))

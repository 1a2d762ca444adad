#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Generates a dungeon from Python, through the library's C interface.

    generate.py LIBRARY CONFIGURATION PLUGIN [OPTION=VALUE ...]

LIBRARY is libvaultry.so or Vaultry.dll; options are those of the command line without the dashes,
for instance size=Large seed=7 levels=2.
"""

import ctypes
import json
import sys

PROGRESS = ctypes.CFUNCTYPE(
    ctypes.c_int, ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int32, ctypes.c_int32
)
TEXT, HANDLE, RESULT = ctypes.c_char_p, ctypes.c_void_p, ctypes.c_int

# Of each function used: what it returns and what it takes.
FUNCTIONS = {
    "vaultry_create": (HANDLE, []),
    "vaultry_destroy": (None, [HANDLE]),
    "vaultry_init": (RESULT, [HANDLE, TEXT]),
    "vaultry_set": (RESULT, [HANDLE, TEXT, TEXT]),
    "vaultry_set_progress": (None, [HANDLE, PROGRESS, ctypes.c_void_p]),
    "vaultry_generate": (RESULT, [HANDLE, TEXT]),
    "vaultry_last_seed": (ctypes.c_uint32, [HANDLE]),
    "vaultry_walkability_json": (TEXT, [HANDLE]),
    "vaultry_error_count": (ctypes.c_size_t, [HANDLE]),
    "vaultry_error": (TEXT, [HANDLE, ctypes.c_size_t]),
}


class VaultryError(Exception):
    """What the library said is wrong."""


class Generator:
    """A generator of the library; to be used in a with statement."""

    def __init__(self, library):
        self.calls = ctypes.CDLL(library)
        for name, (result, arguments) in FUNCTIONS.items():
            function = getattr(self.calls, name)
            function.restype, function.argtypes = result, arguments
        self.handle = self.calls.vaultry_create()
        if not self.handle:
            raise MemoryError

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.calls.vaultry_destroy(self.handle)

    def _check(self, result):
        if result != 0:
            count = self.calls.vaultry_error_count(self.handle)
            lines = [self.calls.vaultry_error(self.handle, i).decode() for i in range(count)]
            raise VaultryError("\n".join(lines) or f"result {result}")

    def init(self, config):
        self._check(self.calls.vaultry_init(self.handle, config.encode()))

    def set(self, option, value):
        self._check(self.calls.vaultry_set(self.handle, option.encode(), str(value).encode()))

    def on_progress(self, function):
        # Kept, or the callback would be collected while the library still calls it.
        self.progress = PROGRESS(lambda _, text, *numbers: function(text.decode(), *numbers) or 0)
        self.calls.vaultry_set_progress(self.handle, self.progress, None)

    def generate(self, plugin):
        self._check(self.calls.vaultry_generate(self.handle, plugin.encode()))
        return json.loads(self.calls.vaultry_walkability_json(self.handle))

    @property
    def seed(self):
        return self.calls.vaultry_last_seed(self.handle)


def main(arguments):
    if len(arguments) < 3:
        sys.exit(__doc__)
    library, config, plugin, *options = arguments
    with Generator(library) as generator:
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
    except VaultryError as error:
        sys.exit(str(error))

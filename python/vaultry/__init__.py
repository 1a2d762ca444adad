# SPDX-License-Identifier: MIT
"""Dungeon interiors as TES3 plug-ins, made by the shared library and asked of it.

    import vaultry

    with vaultry.Generator() as generator:
        generator.init("rooms.xml")
        generator.set("size", "Large")
        report = generator.generate("dungeon.esp")

Threads may use a generator each at the same time; a generator is used by one thread at a time, and
only cancel may be called by another.
"""

from ._errors import (
    ArgumentError,
    BusyError,
    CanceledError,
    ClosedError,
    LibraryError,
    NotWrittenError,
    RefusedError,
    VaultryError,
)
from ._generator import Answer, Generator
from ._library import VERSION as __version__
from ._progress import Progress

__all__ = [
    "Answer",
    "ArgumentError",
    "BusyError",
    "CanceledError",
    "ClosedError",
    "Generator",
    "LibraryError",
    "NotWrittenError",
    "Progress",
    "RefusedError",
    "VaultryError",
    "__version__",
]

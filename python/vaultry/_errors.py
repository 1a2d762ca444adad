# SPDX-License-Identifier: MIT
"""What can go wrong, as exceptions."""

from typing import Dict, Sequence, Type


class VaultryError(Exception):
    """What the library said is wrong; `errors` holds it line by line."""

    def __init__(self, message: str, errors: Sequence[str] = ()) -> None:
        super().__init__(message)
        self.errors = list(errors)


class LibraryError(VaultryError):
    """The shared library was not found, or is of another version than this module."""


class RefusedError(VaultryError):
    """There is no usable configuration, no dungeon as it is wanted, no answer to a question, or the
    library is at fault."""


class CanceledError(VaultryError):
    """The progress function or cancel asked to stop; nothing was written."""


class NotWrittenError(VaultryError):
    """The plug-in could not be written whole; an earlier file is as it was."""


class ArgumentError(VaultryError, ValueError):
    """There is no such option, or it does not take the value."""


class BusyError(VaultryError):
    """The generator is at work, and this is called from its progress function or another thread."""


class ClosedError(VaultryError):
    """The generator was closed."""


OK = 0
REFUSED = 1
NO_MEMORY = 5

# By the results of the C interface.
RAISED: Dict[int, Type[Exception]] = {
    REFUSED: RefusedError,
    2: CanceledError,
    3: NotWrittenError,
    4: ArgumentError,
    NO_MEMORY: MemoryError,
    6: BusyError,
}


def error_of(result: int, errors: Sequence[str]) -> Exception:
    """The exception for a result that is not OK."""
    kind = RAISED.get(result, VaultryError)
    if not issubclass(kind, VaultryError):
        return kind()
    return kind("\n".join(errors) or f"result {result}", errors)

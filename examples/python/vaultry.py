# SPDX-License-Identifier: MIT
"""The library from Python, through its C interface and ctypes. Nothing else is needed.

    with vaultry.Generator("libvaultry.so") as generator:
        generator.init("rooms.xml")
        generator.set("size", "Large")
        report = generator.generate("dungeon.esp")

Threads may use a generator each at the same time; a generator is used by one thread at a time.
"""

import ctypes
import json
import os
from types import TracebackType
from typing import Any, Callable, Dict, List, Optional, Type, Union

Path = Union[str, "os.PathLike[str]"]
# Of the step under way: what it is, how many levels are done, and of how many. A true answer
# cancels the run, and so does an exception, which generate then raises.
Progress = Callable[[str, int, int], object]

_PROGRESS = ctypes.CFUNCTYPE(
    ctypes.c_int, ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int32, ctypes.c_int32
)
_TEXT, _HANDLE, _RESULT = ctypes.c_char_p, ctypes.c_void_p, ctypes.c_int

# Of each function: what it returns and what it takes.
_FUNCTIONS = {
    "vaultry_version": (_TEXT, []),
    "vaultry_create": (_HANDLE, []),
    "vaultry_destroy": (_RESULT, [_HANDLE]),
    "vaultry_init": (_RESULT, [_HANDLE, _TEXT]),
    "vaultry_init_from_memory": (_RESULT, [_HANDLE, _TEXT, ctypes.c_size_t, _TEXT]),
    "vaultry_set": (_RESULT, [_HANDLE, _TEXT, _TEXT]),
    "vaultry_option": (_TEXT, [ctypes.c_size_t]),
    "vaultry_set_progress": (_RESULT, [_HANDLE, _PROGRESS, ctypes.c_void_p]),
    "vaultry_generate": (_RESULT, [_HANDLE, _TEXT]),
    "vaultry_last_seed": (ctypes.c_uint32, [_HANDLE]),
    "vaultry_last_stamp": (ctypes.c_int64, [_HANDLE]),
    "vaultry_run_json": (_TEXT, [_HANDLE]),
    "vaultry_error_count": (ctypes.c_size_t, [_HANDLE]),
    "vaultry_error": (_TEXT, [_HANDLE, ctypes.c_size_t]),
}


class VaultryError(Exception):
    """What the library said is wrong; `errors` holds it line by line."""

    def __init__(self, errors: List[str], otherwise: str) -> None:
        super().__init__("\n".join(errors) or otherwise)
        self.errors = errors


class RefusedError(VaultryError):
    """There is no usable configuration, no dungeon as it is wanted, or the library is at fault."""


class CanceledError(VaultryError):
    """The progress function asked to stop; nothing was written."""


class NotWrittenError(VaultryError):
    """The plug-in could not be written whole; an earlier file is as it was."""


class ArgumentError(VaultryError, ValueError):
    """There is no such option, or it does not take the value."""


class BusyError(VaultryError):
    """The generator is at work, and this is called from its progress function or another thread."""


class ClosedError(VaultryError):
    """The generator was closed."""


_ERRORS: Dict[int, Type[VaultryError]] = {
    1: RefusedError,
    2: CanceledError,
    3: NotWrittenError,
    4: ArgumentError,
    6: BusyError,
}
_NO_MEMORY = 5


def _bytes(text: str) -> bytes:
    """UTF-8 for the library, which takes a zero byte for the end."""
    if "\0" in text:
        raise ValueError("the text holds a zero byte")
    return text.encode("utf-8")


def _path(path: Path) -> bytes:
    """The bytes by which Python itself knows a file."""
    name = os.fsencode(path)
    if b"\0" in name:
        raise ValueError("the path holds a zero byte")
    return name


class Generator:
    """A generator of the library; to be closed in the end, or used in a with statement."""

    def __init__(self, library: Path) -> None:
        """Loads the shared library from a path, or by its name from where the system has it."""
        self._handle: Optional[int] = None
        self._progress: Any = None
        self._user: Optional[Progress] = None
        self._raised: Optional[BaseException] = None
        self._calls = ctypes.CDLL(os.fspath(library))
        for name, (result, arguments) in _FUNCTIONS.items():
            function = getattr(self._calls, name)
            function.restype, function.argtypes = result, arguments
        self._handle = self._calls.vaultry_create()
        if not self._handle:
            raise MemoryError

    def __enter__(self) -> "Generator":
        self._require()
        return self

    def __exit__(
        self,
        kind: Optional[Type[BaseException]],
        value: Optional[BaseException],
        traceback: Optional[TracebackType],
    ) -> None:
        self.close()

    def __del__(self) -> None:
        if getattr(self, "_handle", None) is not None:
            self._calls.vaultry_destroy(self._handle)

    def close(self) -> None:
        """Frees the generator; once is enough. A generator at work raises BusyError."""
        if self._handle is not None:
            self._check(self._calls.vaultry_destroy(self._handle))
            self._handle = None

    @property
    def version(self) -> str:
        """The version of the library."""
        text: bytes = self._calls.vaultry_version()
        return text.decode("utf-8")

    @property
    def options(self) -> List[str]:
        """The names of all options."""
        names: List[str] = []
        while True:
            name = self._calls.vaultry_option(len(names))
            if name is None:
                return names
            names.append(name.decode("utf-8"))

    def init(self, config: Path) -> None:
        """Reads the configuration file."""
        self._check(self._calls.vaultry_init(self._require(), _path(config)))

    def init_from_memory(self, document: bytes, name: str) -> None:
        """Reads a configuration held in memory; `name` stands for the file in messages."""
        calls, handle = self._calls, self._require()
        self._check(
            calls.vaultry_init_from_memory(handle, document, len(document), _bytes(name))
        )

    def set(self, option: str, value: object) -> None:
        """Sets an option to what its switch on the command line takes; switches to True or False."""
        text = str(value).lower() if isinstance(value, bool) else str(value)
        self._check(self._calls.vaultry_set(self._require(), _bytes(option), _bytes(text)))

    def on_progress(self, function: Optional[Progress]) -> None:
        """Has a function called during later runs; None ends that."""
        # Kept, or the callback would be collected while the library still calls it.
        callback = _PROGRESS(0 if function is None else self._on_progress)
        self._check(self._calls.vaultry_set_progress(self._require(), callback, None))
        self._progress, self._user = callback, function

    def generate(self, plugin: Path) -> Dict[str, Any]:
        """Writes a plug-in and returns what the run came to."""
        result = self._calls.vaultry_generate(self._require(), _path(plugin))
        raised, self._raised = self._raised, None
        if raised is not None:
            raise raised
        self._check(result)
        text = self._calls.vaultry_run_json(self._require())
        if text is None:
            raise MemoryError
        report: Dict[str, Any] = json.loads(text.decode("utf-8"))
        return report

    @property
    def seed(self) -> int:
        """The seed of the last run."""
        return int(self._calls.vaultry_last_seed(self._require()))

    @property
    def stamp(self) -> int:
        """The stamp of the last run."""
        return int(self._calls.vaultry_last_stamp(self._require()))

    @property
    def errors(self) -> List[str]:
        """What the last init, set or generate met, also when it succeeded."""
        handle = self._require()
        count = self._calls.vaultry_error_count(handle)
        lines = (self._calls.vaultry_error(handle, index) for index in range(count))
        return [line.decode("utf-8") for line in lines if line is not None]

    def _on_progress(self, _: object, text: bytes, position: int, steps: int) -> int:
        # ctypes would print an exception and go on.
        try:
            assert self._user is not None
            return 1 if self._user(text.decode("utf-8"), position, steps) else 0
        except BaseException as exception:  # pylint: disable=broad-except
            self._raised = exception
            return 1

    def _require(self) -> int:
        if self._handle is None:
            raise ClosedError([], "the generator was closed")
        return self._handle

    def _check(self, result: int) -> None:
        if result == 0:
            return
        if result == _NO_MEMORY:
            raise MemoryError
        raise _ERRORS.get(result, VaultryError)(self.errors, f"result {result}")

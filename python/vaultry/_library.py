# SPDX-License-Identifier: MIT
"""The shared library: where it is looked for, and what its functions take."""

import ctypes
import os
import sys
from typing import Any, Dict, List, Optional, Tuple, Union

from ._errors import LibraryError

Path = Union[str, "os.PathLike[str]"]

VERSION = "0.1.0"
# Each minor version of the library may change its functions.
_SERIES = ".".join(VERSION.split(".")[:2])

_NAMES = {
    "win32": ["Vaultry.dll"],
    "darwin": [f"libvaultry.{_SERIES}.dylib", "libvaultry.dylib"],
}
_OTHER_NAMES = [f"libvaultry.so.{_SERIES}", "libvaultry.so"]
_ADVICE = (
    "install the library where the system looks for libraries, or tell where it is: by the "
    "environment variable VAULTRY_LIBRARY or by Generator(path)"
)

PROGRESS = ctypes.CFUNCTYPE(
    ctypes.c_int, ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int32, ctypes.c_int32
)
_HANDLE = _ADDRESS = ctypes.c_void_p
_TEXT, _INT, _SIZE = ctypes.c_char_p, ctypes.c_int, ctypes.c_size_t

# Of each function: what it returns and what it takes.
FUNCTIONS: Dict[str, Tuple[Any, List[Any]]] = {
    "vaultry_version": (_TEXT, []),
    "vaultry_create": (_HANDLE, []),
    "vaultry_destroy": (_INT, [_HANDLE]),
    "vaultry_init": (_INT, [_HANDLE, _TEXT]),
    "vaultry_init_from_memory": (_INT, [_HANDLE, _TEXT, _SIZE, _TEXT]),
    "vaultry_use_preset": (_INT, [_HANDLE, _TEXT]),
    "vaultry_set": (_INT, [_HANDLE, _TEXT, _TEXT]),
    "vaultry_option": (_TEXT, [_SIZE]),
    "vaultry_set_progress": (_INT, [_HANDLE, PROGRESS, _ADDRESS]),
    "vaultry_generate": (_INT, [_HANDLE, _TEXT]),
    "vaultry_run": (_INT, [_HANDLE]),
    "vaultry_cancel": (None, [_HANDLE]),
    "vaultry_plugin": (_ADDRESS, [_HANDLE, ctypes.POINTER(_SIZE)]),
    "vaultry_last_seed": (ctypes.c_uint32, [_HANDLE]),
    "vaultry_last_stamp": (ctypes.c_int64, [_HANDLE]),
    "vaultry_schema": (_INT, []),
    "vaultry_run_json": (_TEXT, [_HANDLE]),
    "vaultry_map": (_TEXT, [_HANDLE, _TEXT]),
    "vaultry_facts_json": (_TEXT, [_HANDLE]),
    "vaultry_fact_list_json": (_TEXT, [_HANDLE]),
    "vaultry_judge_json": (_TEXT, [_HANDLE, _TEXT]),
    "vaultry_choices_json": (_TEXT, [_HANDLE]),
    "vaultry_presets_json": (_TEXT, [_HANDLE]),
    "vaultry_problems_json": (_TEXT, [_HANDLE]),
    "vaultry_options_json": (_TEXT, [_HANDLE]),
    "vaultry_grammar_json": (_TEXT, [_HANDLE]),
    "vaultry_command_line": (_TEXT, [_HANDLE]),
    "vaultry_command_line_json": (_TEXT, [_HANDLE, _TEXT]),
    "vaultry_check_json": (_TEXT, [_HANDLE, _TEXT, _SIZE, _TEXT]),
    "vaultry_shapes_json": (_TEXT, [_HANDLE, _TEXT, _SIZE, _TEXT]),
    "vaultry_inspect_json": (_TEXT, [_HANDLE, _ADDRESS, _SIZE, _TEXT]),
    "vaultry_compare_json": (_TEXT, [_HANDLE, _ADDRESS, _SIZE, _ADDRESS, _SIZE]),
    "vaultry_error_count": (_SIZE, [_HANDLE]),
    "vaultry_error": (_TEXT, [_HANDLE, _SIZE]),
}


def load(library: Optional[Path]) -> ctypes.CDLL:
    """The library from a path, or else from where VAULTRY_LIBRARY or the system says it is."""
    given = os.fspath(library) if library is not None else os.environ.get("VAULTRY_LIBRARY")
    calls = _first([given] if given else _NAMES.get(sys.platform, _OTHER_NAMES))
    _require_series(calls)
    for name, (result, arguments) in FUNCTIONS.items():
        function = _function(calls, name)
        function.restype, function.argtypes = result, arguments
    return calls


def _first(names: List[str]) -> ctypes.CDLL:
    faults = []
    for name in names:
        try:
            return ctypes.CDLL(name)
        except OSError as error:
            faults.append(str(error))
    raise LibraryError(f"there is no library: {'; '.join(faults)}; {_ADVICE}", faults)


def _require_series(calls: ctypes.CDLL) -> None:
    version = _function(calls, "vaultry_version")
    version.restype = _TEXT
    number = version().decode("utf-8")
    if number.split(".")[:2] != _SERIES.split("."):
        raise LibraryError(
            f"{calls._name} is version {number}, and this module is for {_SERIES}; {_ADVICE}"
        )


def _function(calls: ctypes.CDLL, name: str) -> Any:
    try:
        return getattr(calls, name)
    except AttributeError:
        raise LibraryError(
            f"{calls._name} has no {name}, which version {VERSION} has; {_ADVICE}"
        ) from None

# SPDX-License-Identifier: MIT
"""A generator: it reads a configuration, takes options, makes dungeons and tells about them."""

import ctypes
import json
import os
import threading
from types import TracebackType
from typing import Any, Dict, List, Optional, Type

from ._errors import NO_MEMORY, OK, REFUSED, ClosedError, error_of
from ._interrupt import interrupting
from ._library import PROGRESS, Path, load
from ._progress import Listener, Progress

# An object of JSON, with the numbers "schema" and "version"; docs/embedding.md tells what else.
Answer = Dict[str, Any]


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
    """A generator of the library; to be closed in the end, or used in a with statement.

    What the library says is wrong is raised as a VaultryError. What is asked about the last run is
    refused, a RefusedError, when there was none since the configuration was read.
    """

    _handle: Optional[int] = None

    def __init__(self, library: Optional[Path] = None) -> None:
        """Loads the shared library: from a path, else from that in the environment variable
        VAULTRY_LIBRARY, else by its name from where the system has it."""
        # Held while the handle must not go away under another thread, or goes.
        self._gate = threading.RLock()
        self._listener = Listener()
        # Kept, or it would be collected while the library still calls it.
        self._callback = PROGRESS(self._listener)
        self._calls: Any = load(library)
        self._handle = self._calls.vaultry_create()
        if not self._handle:
            raise MemoryError
        self._check(self._listen())

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
        if self._handle is not None:
            self._calls.vaultry_destroy(self._handle)

    def close(self) -> None:
        """Frees the generator; once is enough. A generator at work raises BusyError."""
        with self._gate:
            if self._handle is not None:
                self._check(self._calls.vaultry_destroy(self._handle))
                self._handle = None

    @property
    def version(self) -> str:
        """The version of the library."""
        text: bytes = self._calls.vaultry_version()
        return text.decode("utf-8")

    @property
    def schema(self) -> int:
        """The number under "schema" in every answer; it grows when a key changes its meaning."""
        return int(self._calls.vaultry_schema())

    # Configuration and options

    def init(self, config: Path) -> None:
        """Reads the configuration file, and forgets all names that were set."""
        self._do(self._calls.vaultry_init, _path(config))

    def init_from_memory(self, document: bytes, name: str = "memory") -> None:
        """Reads a configuration held in memory; `name` stands for the file in messages."""
        call = self._calls.vaultry_init_from_memory
        self._do(call, document, len(document), _bytes(name))

    def use_preset(self, name: str) -> None:
        """Reads the configuration of a built-in preset and sets what belongs together with it."""
        self._do(self._calls.vaultry_use_preset, _bytes(name))

    def set(self, option: str, value: object) -> None:
        """Sets an option to what its switch on the command line takes; a switch, True or False."""
        text = str(value).lower() if isinstance(value, bool) else str(value)
        self._do(self._calls.vaultry_set, _bytes(option), _bytes(text))

    @property
    def option_names(self) -> List[str]:
        """The names of all options."""
        names: List[str] = []
        while True:
            name = self._calls.vaultry_option(len(names))
            if name is None:
                return names
            names.append(name.decode("utf-8"))

    @property
    def options(self) -> Answer:
        """Every option with its kind, bounds, words and default."""
        return self._tell(self._calls.vaultry_options_json)

    @property
    def choices(self) -> Answer:
        """Everything in the configuration that an option can name."""
        return self._tell(self._calls.vaultry_choices_json)

    @property
    def presets(self) -> Answer:
        """The built-in presets with name, description and options."""
        return self._tell(self._calls.vaultry_presets_json)

    @property
    def problems(self) -> Answer:
        """What is wrong with the configuration that was read, with places."""
        return self._tell(self._calls.vaultry_problems_json)

    @property
    def grammar(self) -> Answer:
        """What a configuration may hold: elements and their attributes."""
        return self._tell(self._calls.vaultry_grammar_json)

    # Runs

    def on_progress(self, function: Optional[Progress]) -> None:
        """Has a function called during later runs; None ends that."""
        self._check(self._listen())
        self._listener.function = function

    def generate(self, plugin: Path) -> Answer:
        """Generates a plug-in, writes it to a file and returns the report on the run."""
        return self._make(self._calls.vaultry_generate, _path(plugin))

    def run(self) -> Answer:
        """Like generate, but writes nothing; `plugin` has the bytes."""
        return self._make(self._calls.vaultry_run)

    def cancel(self) -> None:
        """Cancels the call that is under way; any thread may do so, at any time."""
        with self._gate:
            self._calls.vaultry_cancel(self._require())

    # The last run

    @property
    def report(self) -> Answer:
        """How the last run ended, what chance chose, what became of each level."""
        return self._tell(self._calls.vaultry_run_json)

    @property
    def plugin(self) -> bytes:
        """The bytes of the plug-in."""
        length = ctypes.c_size_t()
        address = self._calls.vaultry_plugin(self._require(), ctypes.byref(length))
        if address is None:
            raise self._refusal()
        return bytes((ctypes.c_char * length.value).from_address(address).raw)

    @property
    def seed(self) -> int:
        """The seed; 0 before any run. It and the stamp repeat the run to the byte."""
        return int(self._calls.vaultry_last_seed(self._require()))

    @property
    def stamp(self) -> int:
        """The stamp; 0 before any run."""
        return int(self._calls.vaultry_last_stamp(self._require()))

    @property
    def command_line(self) -> str:
        """The command line that makes the plug-in again, for a POSIX shell."""
        return self._ask(self._calls.vaultry_command_line)

    def map(self, kind: str) -> str:
        """The map, as "svg", "html", "text" or "json"."""
        return self._ask(self._calls.vaultry_map, _bytes(kind))

    @property
    def map_data(self) -> Answer:
        """The map as data: cells, rooms, and everything that is placed with its place and turn."""
        return self._tell(self._calls.vaultry_map, b"json")

    @property
    def facts(self) -> Answer:
        """The facts of the dungeon, the numbers that a search asks for."""
        return self._tell(self._calls.vaultry_facts_json)

    @property
    def fact_list(self) -> Answer:
        """All facts that there are, with what they say and their bounds; no run is needed."""
        return self._tell(self._calls.vaultry_fact_list_json)

    def judge(self, condition: str) -> Answer:
        """Whether a condition such as "rooms >= 12 and walkable" holds; None without a dungeon."""
        return self._tell(self._calls.vaultry_judge_json, _bytes(condition))

    # What others made

    def read_command_line(self, line: str) -> Answer:
        """What a line such as `command_line` asks for; nothing is set."""
        return self._tell(self._calls.vaultry_command_line_json, _bytes(line))

    def check(self, document: bytes, name: str = "memory") -> Answer:
        """Everything that is wrong with a configuration, which the generator does not take over."""
        call = self._calls.vaultry_check_json
        return self._tell(call, document, len(document), _bytes(name))

    def shapes(self, document: Optional[bytes] = None, name: str = "builtin") -> Answer:
        """The triangles of all that a configuration names; without one, of the built-in `name`."""
        call = self._calls.vaultry_shapes_json
        return self._tell(call, document, len(document or b""), _bytes(name))

    def inspect(self, plugin: bytes, name: str = "memory") -> Answer:
        """Everything that a plug-in holds, and what does not fit."""
        return self._tell(self._calls.vaultry_inspect_json, plugin, len(plugin), _bytes(name))

    def compare(self, a: bytes, b: bytes) -> Answer:
        """What differs between two plug-ins."""
        return self._tell(self._calls.vaultry_compare_json, a, len(a), b, len(b))

    @property
    def errors(self) -> List[str]:
        """What the last init, set or run met, also when it succeeded, or the last refusal since."""
        handle = self._require()
        count = self._calls.vaultry_error_count(handle)
        lines = (self._calls.vaultry_error(handle, index) for index in range(count))
        return [line.decode("utf-8") for line in lines if line is not None]

    def _require(self) -> int:
        if self._handle is None:
            raise ClosedError("the generator was closed")
        return self._handle

    def _check(self, result: int) -> None:
        if result != OK:
            raise error_of(result, self.errors)

    def _listen(self) -> int:
        result: int = self._calls.vaultry_set_progress(self._require(), self._callback, None)
        return result

    def _do(self, call: Any, *arguments: object) -> None:
        self._check(call(self._require(), *arguments))

    def _make(self, call: Any, *arguments: object) -> Answer:
        handle = self._require()
        with interrupting(self.cancel):
            result = call(handle, *arguments)
            self._listener.raise_kept()
        self._check(result)
        return self.report

    def _ask(self, call: Any, *arguments: object) -> str:
        text: Optional[bytes] = call(self._require(), *arguments)
        if text is None:
            raise self._refusal()
        return text.decode("utf-8")

    def _tell(self, call: Any, *arguments: object) -> Answer:
        answer: Answer = json.loads(self._ask(call, *arguments))
        return answer

    def _refusal(self) -> Exception:
        """Why there is no answer."""
        # To listen as before changes nothing, and is refused while the generator is at work.
        result = self._listen()
        errors = self.errors
        if result == OK:
            result = REFUSED if errors else NO_MEMORY
        return error_of(result, errors)

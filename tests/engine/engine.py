# SPDX-License-Identifier: MIT
"""OpenMW as an object: started without a screen, with keys to press and a log to read."""

import os
import re
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path
from types import TracebackType
from typing import List, Optional, Sequence, Type

WIDTH, HEIGHT = 480, 360

SETTINGS = f"""[Video]
resolution x = {WIDTH}
resolution y = {HEIGHT}
fullscreen = false
vsync = false
framerate limit = 60
[Camera]
viewing distance = 6666
[Navigator]
enable = false
[Saves]
autosave = false
[Physics]
async num threads = 0
[HUD]
crosshair = false
"""


class EngineError(Exception):
    """The engine did not do what it always does."""


def missing() -> List[str]:
    """The programs that are not there."""
    programs = [_openmw(), "Xvfb", "xdotool", "import"]
    return [program for program in programs if shutil.which(program) is None]


def _openmw() -> str:
    # Debian's games are not on the path of an administrator.
    return shutil.which("openmw") or "/usr/games/openmw"


class Engine:
    """A running engine; used in a with statement, it ends with that."""

    def __init__(
        self, folders: Sequence[Path], content: Sequence[str], cell: str, console: Sequence[str]
    ) -> None:
        self._folder = Path(tempfile.mkdtemp(prefix="vaultry-walk-"))
        self._console = console
        self._words = ["--no-sound", "--skip-menu", "--no-grab", "--start", cell]
        for folder in folders:
            self._words += ["--data", _quoted(folder.resolve())]
        for file in content:
            self._words += ["--content", file]
        self._screen: Optional[subprocess.Popen[bytes]] = None
        self._engine: Optional[subprocess.Popen[bytes]] = None

    def __enter__(self) -> "Engine":
        try:
            self._start()
        except BaseException:
            self._stop()
            raise
        return self

    def __exit__(
        self,
        kind: Optional[Type[BaseException]],
        value: Optional[BaseException],
        traceback: Optional[TracebackType],
    ) -> None:
        self._stop()

    def _start(self) -> None:
        config = self._folder / ".config" / "openmw"
        config.mkdir(parents=True)
        (config / "settings.cfg").write_text(SETTINGS)
        console = self._folder / "console.txt"
        console.write_text("\n".join(self._console) + "\n", encoding="cp1252")
        runtime = self._folder / "run"
        runtime.mkdir(mode=0o700)
        self._environment = {
            name: value
            for name, value in os.environ.items()
            if name not in ("XDG_CONFIG_HOME", "XDG_DATA_HOME", "WAYLAND_DISPLAY")
        }
        self._environment.update(
            HOME=str(self._folder),
            XDG_RUNTIME_DIR=str(runtime),
            DISPLAY=self._start_screen(),
            LIBGL_ALWAYS_SOFTWARE="1",
            LP_NUM_THREADS="1",
        )
        with open(self._folder / "log", "wb") as log:
            self._engine = subprocess.Popen(
                [_openmw(), *self._words, "--script-run", str(console)],
                env=self._environment,
                stdout=log,
                stderr=subprocess.STDOUT,
            )

    def _start_screen(self) -> str:
        """Starts a screen of the engine's own; its name."""
        reading, writing = os.pipe()
        self._screen = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", f"{WIDTH}x{HEIGHT}x24"],
            pass_fds=[writing],
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
        )
        os.close(writing)
        # The whole line: the server ends when nobody takes the rest.
        with open(reading, "rb") as pipe:
            number = pipe.readline().strip().decode()
        if not number:
            raise EngineError("Xvfb did not start")
        return ":" + number

    def _stop(self) -> None:
        for process in (self._engine, self._screen):
            if process is not None and process.poll() is None:
                process.send_signal(signal.SIGTERM)
                try:
                    process.wait(8)
                except subprocess.TimeoutExpired:
                    process.kill()
                    process.wait()
        shutil.rmtree(self._folder, ignore_errors=True)

    @property
    def log(self) -> str:
        """Everything that the engine said."""
        return (self._folder / "log").read_text(errors="replace")

    def wait(self, pattern: str, seconds: float, after: int = 0) -> "re.Match[str]":
        """Waits for the log to say something behind its first `after` characters."""
        assert self._engine is not None
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            found = re.compile(pattern).search(self.log, after)
            if found:
                return found
            if self._engine.poll() is not None:
                raise EngineError(f"OpenMW ended with status {self._engine.returncode}")
            time.sleep(0.05)
        raise EngineError(f"OpenMW did not say {pattern} within {seconds:.0f} seconds")

    def key(self, *names: str) -> None:
        """Presses keys one after another, long enough for a slow picture."""
        for name in names:
            for action in ("keydown", "keyup"):
                subprocess.run(["xdotool", action, name], env=self._environment, check=True)
                time.sleep(0.1)

    @staticmethod
    def draw() -> None:
        """Gives the engine time for what is new on the screen."""
        time.sleep(1.0)

    def picture(self, path: Path) -> None:
        """Keeps what is on the screen."""
        words = ["import", "-window", "root", "+dither", "-colors", "64", str(path)]
        subprocess.run(words, env=self._environment, check=True)

    def save(self) -> Path:
        """Saves the game; the file."""
        for _ in range(3):
            self.key("F5")
            end = time.monotonic() + 10
            while time.monotonic() < end:
                found = list(self._folder.glob(".local/share/openmw/saves/**/*.omwsave"))
                if found and _is_whole(found[0]):
                    return found[0]
                time.sleep(0.2)
        raise EngineError("OpenMW saved no game")


def _quoted(folder: Path) -> str:
    """A folder as the engine takes it, which would end it at a blank."""
    escaped = str(folder).replace("&", "&&").replace('"', '&"')
    return f'"{escaped}"'


def _is_whole(path: Path) -> bool:
    size = path.stat().st_size
    time.sleep(0.4)
    return size > 0 and path.stat().st_size == size

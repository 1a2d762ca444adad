# SPDX-License-Identifier: MIT
"""Ctrl-C while the library works."""

import contextlib
import signal
import threading
from typing import Callable, Iterator


def _raises_at_once() -> bool:
    """Whether Ctrl-C is KeyboardInterrupt here: only in the main thread, and unless the program
    has it do something else."""
    return (
        threading.current_thread() is threading.main_thread()
        and signal.getsignal(signal.SIGINT) is signal.default_int_handler
    )


@contextlib.contextmanager
def interrupting(cancel: Callable[[], None]) -> Iterator[None]:
    """Has Ctrl-C cancel what is done meanwhile, and raises KeyboardInterrupt after it. Raised at
    once it would be lost: Python would be on its way into a function that the library calls."""
    if not _raises_at_once():
        yield
        return
    pressed = threading.Event()

    def press(*_: object) -> None:
        pressed.set()
        cancel()

    signal.signal(signal.SIGINT, press)
    try:
        yield
    finally:
        signal.signal(signal.SIGINT, signal.default_int_handler)
        if pressed.is_set():
            raise KeyboardInterrupt

# SPDX-License-Identifier: MIT
"""What the library calls during a run."""

from typing import Callable, Optional

# Of the step under way: what it is, how many levels are done, and of how many. A true answer
# cancels the run, and so does an exception, which generate and run then raise.
Progress = Callable[[str, int, int], object]


class Listener:
    """Asks the user's function, if there is one, and keeps what it raises: past the library it
    cannot go. Python notices Ctrl-C only where it runs itself, so this is called in any case."""

    function: Optional[Progress] = None
    _raised: Optional[BaseException] = None

    def __call__(self, _: object, text: bytes, position: int, steps: int) -> int:
        if self.function is None:
            return 0
        try:
            return 1 if self.function(text.decode("utf-8"), position, steps) else 0
        except BaseException as exception:  # pylint: disable=broad-except
            self._raised = exception
            return 1

    def raise_kept(self) -> None:
        """Raises what was kept, once."""
        raised, self._raised = self._raised, None
        if raised is not None:
            raise raised

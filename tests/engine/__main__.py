# SPDX-License-Identifier: MIT
"""Walks through dungeons in OpenMW; see scripts/walk."""

import argparse
import os
import subprocess
import sys
import time
from concurrent.futures import ThreadPoolExecutor, as_completed
from pathlib import Path
from typing import List

from .dungeons import CONTROL, DUNGEONS, ENTERED, drawn
from .engine import missing
from .trial import FromWorld, Places, Result, Trial, control_trials

# Dungeons for each processor: engines wait for the player's legs most of the time.
AT_ONCE = 2


def _arguments() -> argparse.Namespace:
    parser = argparse.ArgumentParser(prog="scripts/walk", description=__doc__)
    parser.add_argument("names", nargs="*", metavar="WORD", help="only dungeons with it in a name")
    parser.add_argument("--build", type=Path, required=True, help="folder of the built program")
    parser.add_argument("--results", type=Path, required=True, help="folder to write into")
    parser.add_argument(
        "--jobs", type=int, default=AT_ONCE * (os.cpu_count() or 1), help="dungeons at once"
    )
    return parser.parse_args()


def _stages(program: Path, data: Path, folder: Path) -> None:
    """A stage for each configuration: one piece may stand differently in each."""
    for config in sorted({dungeon.config for dungeon in DUNGEONS}):
        words = ["stage", str(folder / config), "-c", str(data / f"{config}.xml")]
        subprocess.run([str(program), *words], check=True)


def _trials(words: List[str]) -> List[Trial]:
    trials = [Trial(dungeon) for dungeon in DUNGEONS]
    trials += control_trials(CONTROL)
    trials += [FromWorld(ENTERED), FromWorld(ENTERED, has_door=False)]
    trials += [Trial(dungeon, required=False) for dungeon in drawn()]
    return [trial for trial in trials if all(word in trial.name for word in words)]


def _report(results: List[Result], seconds: float) -> List[str]:
    lines = ["rooms, times through a door between levels, containers, times held up, seconds"]
    lines += [result.line() for result in results]
    lines += ["", "pieces of which those rooms are built, by how their measures are known"]
    for result in results:
        pieces = ", ".join(f"{count} {word}" for word, count in sorted(result.pieces.items()))
        lines += [f"{result.name}: {pieces}"] if pieces else []
    lines.append("")
    for result in results:
        lines += [f"{result.name}: {line}" for line in [*result.findings, *result.held_up]]
    failed = sum(bool(result.findings) and result.required for result in results)
    rooms = sum(result.rooms for result in results)
    lines.append(
        f"{len(results)} dungeons, {rooms} rooms, {sum(r.doors for r in results)} times through a "
        f"door, {sum(r.containers for r in results)} containers in {seconds:.0f} s; {failed} failed"
    )
    return lines


def main() -> int:
    """Plays all trials and reports on them."""
    arguments = _arguments()
    lacking = missing()
    if lacking:
        words = f"{', '.join(lacking)} missing; run scripts/setup walk"
        print(f"scripts/walk: {words}", file=sys.stderr)
        return 2
    root = Path(__file__).resolve().parents[2]
    results: Path = arguments.results
    places = Places(
        arguments.build / "lib" / "libvaultry.so", root / "data", results / "stages", results
    )
    results.mkdir(parents=True, exist_ok=True)
    _stages(arguments.build / "bin" / "vaultry", places.data, places.stages)
    start = time.monotonic()
    done: List[Result] = []
    with ThreadPoolExecutor(arguments.jobs) as pool:
        waiting = [pool.submit(trial.play, places) for trial in _trials(arguments.names)]
        for ended in as_completed(waiting):
            done.append(ended.result())
            print(done[-1].line(), flush=True)
            for finding in done[-1].findings:
                print(f"    {finding}", flush=True)
    lines = _report(done, time.monotonic() - start)
    (results / "report.txt").write_text("\n".join(lines) + "\n")
    print(lines[-1])
    return int(any(result.findings and result.required for result in done))


if __name__ == "__main__":
    sys.exit(main())

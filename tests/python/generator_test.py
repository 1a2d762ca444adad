# SPDX-License-Identifier: MIT
"""The Python module as its users see it. Arguments: LIBRARY, SOURCE (the project's folder)."""

import contextlib
import gc
import hashlib
import io
import json
import os
import pathlib
import pickle
import signal
import subprocess
import sys
import tempfile
import threading
import unittest

LIBRARY, SOURCE = sys.argv[1], pathlib.Path(sys.argv[2])
MODULE = SOURCE / "python"
EXAMPLE = SOURCE / "examples" / "python" / "generate.py"
CONFIG = SOURCE / "data" / "vaultry.xml"
sys.dont_write_bytecode = True
sys.path.insert(0, str(MODULE))

import vaultry  # noqa: E402


class Stop(Exception):
    """Raised by a progress function."""


class PythonTest(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.plugin = pathlib.Path(folder.name) / "m\u00e4de.esp"
        self.generator = vaultry.Generator(LIBRARY)
        self.addCleanup(self.generator.close)

    def configure(self, generator: vaultry.Generator, **options: object) -> None:
        generator.init(CONFIG)
        for option, value in {"seed": 7, "stamp": 1, "levels": 3, **options}.items():
            generator.set(option, value)

    def make(self, generator: vaultry.Generator) -> str:
        generator.generate(self.plugin)
        return hashlib.sha256(self.plugin.read_bytes()).hexdigest()

    def test_makes_a_plugin(self) -> None:
        self.configure(self.generator, size="Small")
        report = self.generator.generate(self.plugin)
        self.assertEqual((report["result"], report["seed"], report["stamp"]), ("made", 7, 1))
        self.assertEqual([level["level"] for level in report["levels"]], [1, 2, 3])
        self.assertEqual(report, self.generator.report)
        self.assertEqual(self.plugin.read_bytes()[:4], b"TES3")
        self.assertEqual((self.generator.seed, self.generator.stamp), (7, 1))
        self.assertEqual(self.generator.errors, [])

    def test_a_run_has_the_bytes_of_the_file(self) -> None:
        self.configure(self.generator, cell="Keep")
        report = self.generator.generate(self.plugin)
        written = self.plugin.read_bytes()
        self.assertEqual(self.generator.plugin, written)
        self.plugin.unlink()
        self.assertEqual(self.generator.run(), report)
        self.assertEqual(self.generator.plugin, written)
        self.assertFalse(self.plugin.exists())

    def test_uses_a_preset(self) -> None:
        names = [preset["name"] for preset in self.generator.presets["presets"]]
        self.assertEqual(names[0], "tomb")
        self.generator.use_preset("Tomb")
        self.generator.set("levels", 1)
        report = self.generator.run()
        self.assertEqual(report["options"]["creature-theme"], "Undead")
        self.assertEqual(report["options"]["levels"], 1)
        with self.assertRaisesRegex(vaultry.ArgumentError, 'did you mean "tomb"'):
            self.generator.use_preset("tom")

    def test_reads_from_memory(self) -> None:
        self.configure(self.generator)
        expected = self.make(self.generator)
        self.generator.init_from_memory(CONFIG.read_bytes(), "memory")
        self.assertEqual(self.make(self.generator), expected)

    def test_an_exception_of_the_progress_function_ends_the_run_and_is_raised(self) -> None:
        self.configure(self.generator)

        def fail(text: str, position: int, steps: int) -> None:
            raise Stop(text, steps)

        self.generator.on_progress(fail)
        printed = io.StringIO()
        with contextlib.redirect_stderr(printed), self.assertRaises(Stop) as caught:
            self.generator.generate(self.plugin)
        self.assertEqual(caught.exception.args[1], 3)
        self.assertEqual(printed.getvalue(), "")
        self.assertFalse(self.plugin.exists())
        self.generator.on_progress(None)
        self.make(self.generator)

    def test_an_interrupt_in_the_progress_function_is_raised_too(self) -> None:
        self.configure(self.generator)

        def interrupt(*_: object) -> None:
            raise KeyboardInterrupt

        self.generator.on_progress(interrupt)
        with self.assertRaises(KeyboardInterrupt):
            self.generator.generate(self.plugin)

    def test_ctrl_c_ends_a_run_without_a_progress_function(self) -> None:
        self.configure(self.generator, size="Large", levels=1000)
        begun = threading.Event()

        def press() -> None:
            begun.wait()
            os.kill(os.getpid(), signal.SIGINT)

        # The other thread wakes only when this one is in the library.
        interval = sys.getswitchinterval()
        sys.setswitchinterval(1000)
        self.addCleanup(sys.setswitchinterval, interval)
        other = threading.Thread(target=press)
        other.start()
        with self.assertRaises(KeyboardInterrupt):
            begun.set()
            while True:
                self.generator.run()
        other.join()
        self.assertEqual(self.generator.report["result"], "cancelled")
        self.assertIs(signal.getsignal(signal.SIGINT), signal.default_int_handler)
        self.configure(self.generator)
        self.assertEqual(self.generator.run()["result"], "made")

    def test_ctrl_c_is_left_to_programs_that_have_it_do_something_else(self) -> None:
        self.configure(self.generator)
        heard = []
        before = signal.signal(signal.SIGINT, lambda number, frame: heard.append(number))
        self.addCleanup(signal.signal, signal.SIGINT, before)
        self.generator.on_progress(lambda *_: os.kill(os.getpid(), signal.SIGINT))
        self.assertEqual(self.generator.run()["result"], "made")
        self.assertEqual(set(heard), {signal.SIGINT})

    def test_an_exception_beside_ctrl_c_is_not_kept_for_the_next_run(self) -> None:
        self.configure(self.generator)

        def fail(*_: object) -> None:
            os.kill(os.getpid(), signal.SIGINT)
            raise Stop

        self.generator.on_progress(fail)
        with self.assertRaises(KeyboardInterrupt):
            self.generator.run()
        self.generator.on_progress(None)
        self.assertEqual(self.generator.run()["result"], "made")

    def test_another_thread_cancels(self) -> None:
        self.generator.cancel()  # nothing is under way: nobody hears it
        self.configure(self.generator)
        begun, canceled = threading.Event(), threading.Event()

        def cancel() -> None:
            begun.wait(60)
            self.generator.cancel()
            canceled.set()

        def wait(*_: object) -> None:
            begun.set()
            canceled.wait(60)

        other = threading.Thread(target=cancel)
        other.start()
        self.generator.on_progress(wait)
        with self.assertRaises(vaultry.CanceledError):
            self.generator.generate(self.plugin)
        other.join()
        self.assertFalse(self.plugin.exists())
        self.assertEqual(self.generator.report["result"], "cancelled")
        self.assertEqual(self.generator.run()["result"], "made")

    def test_a_true_answer_cancels(self) -> None:
        self.configure(self.generator)
        self.generator.on_progress(lambda *_: "stop")
        with self.assertRaises(vaultry.CanceledError):
            self.generator.generate(self.plugin)
        self.assertFalse(self.plugin.exists())

    def test_shows_its_progress(self) -> None:
        self.configure(self.generator)
        heard = []
        self.generator.on_progress(lambda *step: heard.append(step))
        gc.collect()
        self.make(self.generator)
        self.assertIn("Generating Layouts", {text for text, _, _ in heard})
        self.assertEqual(heard[-1][1:], (3, 3))

    def test_a_generator_at_work_cannot_be_used(self) -> None:
        self.configure(self.generator)
        expected = self.make(self.generator)
        refused = []

        def meddle(text: str, position: int, steps: int) -> None:
            for use in (
                lambda: self.generator.set("seed", 8),
                self.generator.close,
                self.generator.run,
                lambda: self.generator.on_progress(None),
                lambda: self.generator.facts,
                lambda: self.generator.plugin,
            ):
                with self.assertRaises(vaultry.BusyError) as caught:
                    use()
                refused.append(str(caught.exception))

        self.generator.on_progress(meddle)
        self.assertEqual(self.make(self.generator), expected)
        for said in refused:
            self.assertIn("the generator is at work", said)

    def test_a_closed_generator_says_so(self) -> None:
        self.configure(self.generator)
        self.generator.close()
        self.generator.close()
        for use in (
            lambda: self.generator.init(CONFIG),
            lambda: self.generator.set("seed", 1),
            lambda: self.generator.on_progress(None),
            lambda: self.generator.generate(self.plugin),
            self.generator.run,
            self.generator.cancel,
            lambda: self.generator.seed,
            lambda: self.generator.plugin,
            lambda: self.generator.facts,
            lambda: self.generator.errors,
            self.generator.__enter__,
        ):
            with self.assertRaisesRegex(vaultry.ClosedError, "the generator was closed"):
                use()

    def test_closes_itself(self) -> None:
        with self.generator as generator:
            self.assertIs(generator, self.generator)
        with self.assertRaises(vaultry.ClosedError):
            self.generator.set("seed", 1)

    def test_what_is_wrong_is_told(self) -> None:
        self.configure(self.generator)
        with self.assertRaisesRegex(vaultry.ArgumentError, "from 1 to 1000"):
            self.generator.set("levels", 1001)
        with self.assertRaisesRegex(vaultry.ArgumentError, "letters that the game lacks: \u03a9"):
            self.generator.set("cell", "\u03a9mega")
        with self.assertRaises(vaultry.NotWrittenError):
            self.generator.generate(self.plugin.parent / "none" / "made.esp")
        with self.assertRaisesRegex(vaultry.RefusedError, "none.xml"):
            self.generator.init(self.plugin.parent / "none.xml")
        with self.assertRaisesRegex(ValueError, "zero byte"):
            self.generator.set("cell", "a\0b")

    def test_errors_travel_between_processes(self) -> None:
        with self.assertRaises(vaultry.ArgumentError) as caught:
            self.generator.set("levels", 0)
        again = pickle.loads(pickle.dumps(caught.exception))
        self.assertEqual(str(again), str(caught.exception))
        self.assertEqual(again.errors, caught.exception.errors)
        self.assertEqual(len(again.errors), 1)

    def test_takes_every_kind_of_value(self) -> None:
        self.configure(self.generator)
        self.generator.set("random-tileset", True)
        self.generator.set("random-tileset", False)
        self.generator.set("levels", 1000)
        self.generator.set("levels", "1")
        self.assertEqual(len(self.generator.run()["levels"]), 1)

    def test_without_a_run_there_is_nothing_to_tell(self) -> None:
        self.assertEqual((self.generator.seed, self.generator.stamp), (0, 0))
        self.generator.init(CONFIG)
        for ask in (
            lambda: self.generator.report,
            lambda: self.generator.plugin,
            lambda: self.generator.map_data,
            lambda: self.generator.facts,
            lambda: self.generator.command_line,
        ):
            with self.assertRaises(vaultry.RefusedError) as caught:
                ask()
            self.assertEqual(self.generator.errors, caught.exception.errors)
        self.generator.run()
        self.generator.init(CONFIG)
        with self.assertRaisesRegex(vaultry.RefusedError, "nothing was generated"):
            self.generator.report

    def test_tells_options_and_choices(self) -> None:
        self.generator.init(CONFIG)
        told = [option["name"] for option in self.generator.options["options"]]
        self.assertEqual(self.generator.option_names, told)
        self.assertIn("seed", told)
        choices = self.generator.choices
        self.assertEqual(choices["config"], str(CONFIG))
        for tileset in choices["tilesets"]:
            self.generator.set("tileset", tileset["name"])

    def test_tells_versions(self) -> None:
        self.assertEqual(self.generator.version, vaultry.__version__)
        options = self.generator.options
        self.assertEqual(options["version"], self.generator.version)
        self.assertEqual(options["schema"], self.generator.schema)

    def test_tells_problems_and_the_grammar(self) -> None:
        document = b"<OstrelData>\n<Nonsense/><Tileset Name='a' TsType='Room'/></OstrelData>"
        self.generator.init_from_memory(document, "mine.xml")
        (problem,) = self.generator.problems["problems"]
        self.assertEqual((problem["file"], problem["line"]), ("mine.xml", 2))
        self.assertEqual(len(self.generator.errors), 1)
        elements = [element["name"] for element in self.generator.grammar["elements"]]
        self.assertIn("TileSet", elements)

    def test_tells_shapes(self) -> None:
        shapes = self.generator.shapes()
        self.assertEqual(shapes["surfaces"][0]["name"], "floor")
        self.assertGreater(len(shapes["shapes"]), 100)
        document = b"<OstrelData/>"
        few = self.generator.shapes(document, "mine.xml")["shapes"]
        self.assertLess(len(few), len(shapes["shapes"]))
        with self.assertRaisesRegex(vaultry.RefusedError, '"builtin:none"'):
            self.generator.shapes(name="builtin:none")

    def test_draws_maps(self) -> None:
        self.configure(self.generator)
        self.generator.run()
        for kind, part in (("svg", "<svg"), ("html", "<!DOCTYPE html>"), ("text", "north is up")):
            self.assertIn(part, self.generator.map(kind))
        self.assertEqual(len(self.generator.map_data["levels"]), 3)
        self.assertEqual(self.generator.map_data, json.loads(self.generator.map("json")))
        with self.assertRaisesRegex(vaultry.RefusedError, 'a map is "svg"'):
            self.generator.map("png")

    def test_tells_and_judges_facts(self) -> None:
        self.assertIsNone(self.generator.judge("rooms >= 2")["holds"])
        self.configure(self.generator)
        self.generator.run()
        facts = self.generator.facts["facts"]
        self.assertEqual(facts["bytes"], len(self.generator.plugin))
        listed = [fact["name"] for fact in self.generator.fact_list["facts"]]
        self.assertEqual(sorted(listed), sorted(facts))
        rooms = facts["rooms"]
        self.assertIs(self.generator.judge(f"rooms >= {rooms}")["holds"], True)
        self.assertIs(self.generator.judge(f"rooms > {rooms}")["holds"], False)
        with self.assertRaisesRegex(vaultry.RefusedError, '"romms" is no fact'):
            self.generator.judge("romms > 1")

    def test_command_lines_are_told_and_read(self) -> None:
        self.configure(self.generator, cell="It's")
        self.generator.run()
        expected = self.generator.plugin
        asked = self.generator.read_command_line(self.generator.command_line)
        self.assertEqual(asked["options"]["cell"], "It's")
        with vaultry.Generator(LIBRARY) as other:
            other.init(asked["config"])
            for option, value in asked["options"].items():
                other.set(option, value)
            other.run()
            self.assertEqual(other.plugin, expected)

    def test_checks_a_configuration_that_it_does_not_take_over(self) -> None:
        self.configure(self.generator)
        report = self.generator.check(b"<OstrelData><Tileset Name='a'/></OstrelData>", "mine.xml")
        self.assertEqual((report["config"], report["clean"]), ("mine.xml", False))
        self.assertFalse(self.generator.check(b"")["usable"])
        self.assertTrue(self.generator.check(CONFIG.read_bytes())["usable"])
        self.assertEqual(self.generator.run()["result"], "made")

    def test_inspects_and_compares_plugins(self) -> None:
        self.configure(self.generator)
        self.generator.run()
        first = self.generator.plugin
        inspected = self.generator.inspect(first, "keep.esp")
        self.assertEqual((inspected["path"], len(inspected["cells"])), ("keep.esp", 3))
        self.assertIs(self.generator.compare(first, first)["same"], True)
        self.generator.set("seed", 8)
        self.generator.run()
        self.assertIs(self.generator.compare(first, self.generator.plugin)["same"], False)
        for bytes_of_none in (b"", b"abc", first[:3]):
            with self.assertRaisesRegex(vaultry.RefusedError, '"x" is not a plug-in'):
                self.generator.inspect(bytes_of_none, "x")

    def test_two_threads_make_what_one_makes(self) -> None:
        sizes = ("Large", "Tiny")

        def work(size: str, folder: pathlib.Path, made: list) -> None:
            with vaultry.Generator(LIBRARY) as generator:
                self.configure(generator, size=size)
                for turn in range(4):
                    plugin = folder / f"{turn}.esp"
                    generator.generate(plugin)
                    made.append(plugin.read_bytes())

        with tempfile.TemporaryDirectory() as name:
            folders = [pathlib.Path(name) / size for size in sizes]
            expected = []
            for size, folder in zip(sizes, folders):
                folder.mkdir()
                alone: list = []
                work(size, folder, alone)
                expected.append(alone)
            together: list = [[] for _ in sizes]
            threads = [
                threading.Thread(target=work, args=(size, folder, made))
                for size, folder, made in zip(sizes, folders, together)
            ]
            for thread in threads:
                thread.start()
            for thread in threads:
                thread.join()
        self.assertTrue(together == expected)

    def run_example(self, *arguments: str) -> "subprocess.CompletedProcess[str]":
        environment = {**os.environ, "PYTHONPATH": str(MODULE), "VAULTRY_LIBRARY": LIBRARY}
        return subprocess.run(
            [sys.executable, "-B", str(EXAMPLE), str(CONFIG), *arguments],
            env=environment,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            universal_newlines=True,
        )

    def test_the_example_runs(self) -> None:
        run = self.run_example(str(self.plugin), "seed=7", "stamp=1", "levels=3")
        self.assertEqual((run.returncode, run.stderr), (0, ""))
        self.assertRegex(run.stdout, r"^seed 7\nlevel 1: \d+ of \d+ rooms\n")
        self.configure(self.generator)
        written = hashlib.sha256(self.plugin.read_bytes()).hexdigest()
        self.assertEqual(self.make(self.generator), written)

    def test_the_example_says_what_is_wrong(self) -> None:
        for arguments, said in (
            (["x.esp", "size=Huge"], "is none of Random, Tiny"),
            (["x.esp", "size"], "generate.py CONFIGURATION PLUGIN"),
        ):
            run = self.run_example(*arguments)
            self.assertEqual(run.returncode, 1)
            self.assertIn(said, run.stderr)
            self.assertNotIn("Traceback", run.stderr)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)

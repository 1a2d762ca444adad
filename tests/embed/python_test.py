# SPDX-License-Identifier: MIT
"""The Python example as its users see it. Arguments: LIBRARY, SOURCE (the project's folder)."""

import contextlib
import gc
import hashlib
import io
import pathlib
import subprocess
import sys
import tempfile
import threading
import unittest

LIBRARY, SOURCE = sys.argv[1], pathlib.Path(sys.argv[2])
EXAMPLE = SOURCE / "examples" / "python"
CONFIG = SOURCE / "data" / "vaultry.xml"
sys.dont_write_bytecode = True
sys.path.insert(0, str(EXAMPLE))

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
        self.assertEqual([level["level"] for level in report["levels"]], [1, 2, 3])
        self.assertEqual(self.plugin.read_bytes()[:4], b"TES3")
        self.assertEqual((self.generator.seed, self.generator.stamp), (7, 1))
        self.assertEqual(self.generator.errors, [])

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
            for use in (lambda: self.generator.set("seed", 8), self.generator.close):
                with self.assertRaises(vaultry.BusyError) as caught:
                    use()
                refused.append(str(caught.exception))

        self.generator.on_progress(meddle)
        self.assertEqual(self.make(self.generator), expected)
        self.assertIn("the generator is at work", refused[0])

    def test_a_closed_generator_says_so(self) -> None:
        self.configure(self.generator)
        self.generator.close()
        self.generator.close()
        for use in (
            lambda: self.generator.init(CONFIG),
            lambda: self.generator.set("seed", 1),
            lambda: self.generator.on_progress(None),
            lambda: self.generator.generate(self.plugin),
            lambda: self.generator.seed,
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

    def test_takes_every_kind_of_value(self) -> None:
        self.configure(self.generator)
        self.generator.set("random-tileset", True)
        self.generator.set("random-tileset", False)
        self.assertIn("seed", self.generator.options)
        self.assertRegex(self.generator.version, r"^\d+\.\d+\.\d+")

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

    def test_the_program_runs(self) -> None:
        program = [sys.executable, "-B", str(EXAMPLE / "generate.py"), LIBRARY, str(CONFIG)]
        run = subprocess.run(
            program + [str(self.plugin), "seed=7", "stamp=1", "levels=3"],
            stdout=subprocess.PIPE,
            universal_newlines=True,
        )
        self.assertEqual(run.returncode, 0)
        self.assertRegex(run.stdout, r"^seed 7\nlevel 1: \d+ of \d+ rooms\n")
        self.configure(self.generator)
        written = hashlib.sha256(self.plugin.read_bytes()).hexdigest()
        self.assertEqual(self.make(self.generator), written)

    def test_the_program_says_what_is_wrong(self) -> None:
        program = [sys.executable, "-B", str(EXAMPLE / "generate.py"), LIBRARY, str(CONFIG)]
        for arguments, said in (
            (["x.esp", "size=Huge"], "is none of Random, Tiny"),
            (["x.esp", "size"], "LIBRARY is libvaultry.so"),
        ):
            run = subprocess.run(
                program + arguments, stderr=subprocess.PIPE, universal_newlines=True
            )
            self.assertEqual(run.returncode, 1)
            self.assertIn(said, run.stderr)
            self.assertNotIn("Traceback", run.stderr)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)

# SPDX-License-Identifier: MIT
"""How the Python module finds the library, and that it knows all of it. Arguments: LIBRARY, SOURCE
(the project's folder)."""

import ctypes
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import unittest.mock

LIBRARY, SOURCE = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
MODULE = SOURCE / "python"
sys.dont_write_bytecode = True
sys.path.insert(0, str(MODULE))

import vaultry  # noqa: E402
from vaultry import _errors, _library  # noqa: E402

SERIES = ".".join(vaultry.__version__.split(".")[:2])

HANDLE = ADDRESS = ctypes.c_void_p
C_TYPES = {
    "void": None,
    "int": ctypes.c_int,
    "enum vaultry_result": ctypes.c_int,
    "size_t": ctypes.c_size_t,
    "size_t*": ctypes.POINTER(ctypes.c_size_t),
    "uint32_t": ctypes.c_uint32,
    "int32_t": ctypes.c_int32,
    "int64_t": ctypes.c_int64,
    "const char*": ctypes.c_char_p,
    "const void*": ADDRESS,
    "void*": ADDRESS,
    "vaultry_generator*": HANDLE,
    "const vaultry_generator*": HANDLE,
    "vaultry_progress": _library.PROGRESS,
}


def types_of(arguments: str) -> list:
    if arguments == "void":
        return []
    return [C_TYPES[re.sub(r" ?\w+$", "", argument.strip())] for argument in arguments.split(",")]


class HeaderTest(unittest.TestCase):
    def setUp(self) -> None:
        header = (SOURCE / "vaultry" / "vaultry.h").read_text(encoding="utf-8")
        self.header = re.sub(r"\s+", " ", re.sub(r"/\*.*?\*/", "", header, flags=re.DOTALL))

    def test_every_function_is_called_as_it_is_declared(self) -> None:
        declared = re.findall(r"VAULTRY_API ([^()]+?) ?(vaultry_\w+)\(([^()]*)\);", self.header)
        self.assertEqual(len(declared), self.header.count("VAULTRY_API"))
        expected = {name: (C_TYPES[kind], types_of(takes)) for kind, name, takes in declared}
        self.assertEqual(_library.FUNCTIONS, expected)

    def test_every_function_is_used(self) -> None:
        module = (MODULE / "vaultry" / "_generator.py").read_text(encoding="utf-8")
        self.assertEqual(set(re.findall(r"_calls\.(\w+)", module)), set(_library.FUNCTIONS))

    def test_the_progress_function_is_called_as_it_is_declared(self) -> None:
        (declared,) = re.findall(r"typedef int \(\*vaultry_progress\)\(([^()]*)\);", self.header)
        self.assertEqual(list(_library.PROGRESS._argtypes_), types_of(declared))

    def test_every_result_has_its_exception(self) -> None:
        values = re.findall(r"VAULTRY_[A-Z_]+ = (\d+)", self.header)
        self.assertGreater(len(values), 1)
        self.assertEqual({int(value) for value in values}, {_errors.OK, *_errors.RAISED})


class FindingTest(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def version(self, module: pathlib.Path = MODULE, **variables: str) -> str:
        """What a program prints that uses the library which is found."""
        program = "import vaultry; print(vaultry.Generator().version)"
        environment = {**os.environ, "PYTHONPATH": str(module), **variables}
        if "VAULTRY_LIBRARY" not in variables:
            environment.pop("VAULTRY_LIBRARY", None)
        run = subprocess.run(
            [sys.executable, "-B", "-c", program],
            cwd=str(self.folder),
            env=environment,
            stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT,
            universal_newlines=True,
        )
        return run.stdout.strip().splitlines()[-1]

    def refusal(self, library: str, variable: str = "") -> str:
        with unittest.mock.patch.dict(os.environ, VAULTRY_LIBRARY=variable):
            with self.assertRaises(vaultry.LibraryError) as caught:
                vaultry.Generator(library or None)
        return str(caught.exception)

    def test_a_path_is_taken_before_the_variable(self) -> None:
        with unittest.mock.patch.dict(os.environ, VAULTRY_LIBRARY="none.so"):
            with vaultry.Generator(LIBRARY) as generator:
                self.assertEqual(generator.version, vaultry.__version__)

    def test_the_variable_tells_where_it_is(self) -> None:
        self.assertEqual(self.version(VAULTRY_LIBRARY=str(LIBRARY)), vaultry.__version__)

    def test_the_system_finds_it_by_either_name(self) -> None:
        for name in ("libvaultry.so", f"libvaultry.so.{SERIES}"):
            place = self.folder / name / "lib"
            place.mkdir(parents=True)
            shutil.copy(str(LIBRARY), str(place / name))
            found = self.version(LD_LIBRARY_PATH=str(place), VAULTRY_LIBRARY="")
            self.assertEqual(found, vaultry.__version__)

    def test_a_library_that_is_not_there_is_told_with_what_to_do(self) -> None:
        for said in (self.refusal("./none.so"), self.refusal("", "./none.so")):
            self.assertRegex(said, r"^there is no library: \./none\.so: ")
            self.assertIn("environment variable VAULTRY_LIBRARY", said)

    def test_names_are_those_of_the_system(self) -> None:
        for system, names in (
            ("win32", ["Vaultry.dll"]),
            ("darwin", [f"libvaultry.{SERIES}.dylib", "libvaultry.dylib"]),
        ):
            with unittest.mock.patch.object(sys, "platform", system):
                said = self.refusal("")
            for name in names:
                self.assertIn(f"{name}: ", said)

    def test_another_library_is_refused(self) -> None:
        said = self.refusal("libc.so.6")
        self.assertRegex(said, "^libc.so.6 has no vaultry_version, which version ")

    def copied_module(self, number: str) -> pathlib.Path:
        """The module as it would be for another version of the library."""
        copy = self.folder / number
        shutil.copytree(str(MODULE / "vaultry"), str(copy / "vaultry"))
        file = copy / "vaultry" / "_library.py"
        text = file.read_text(encoding="utf-8")
        changed = text.replace(f'VERSION = "{vaultry.__version__}"', f'VERSION = "{number}"')
        self.assertNotEqual(text, changed)
        file.write_text(changed, encoding="utf-8")
        return copy

    def test_a_library_of_another_minor_version_is_refused(self) -> None:
        major, minor, _ = map(int, vaultry.__version__.split("."))
        patched = self.copied_module(f"{major}.{minor}.99")
        self.assertEqual(self.version(patched, VAULTRY_LIBRARY=str(LIBRARY)), vaultry.__version__)
        other = self.copied_module(f"{major}.{minor + 1}.0")
        self.assertRegex(
            self.version(other, VAULTRY_LIBRARY=str(LIBRARY)),
            rf"is version {vaultry.__version__}, and this module is for {major}\.{minor + 1};",
        )


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)

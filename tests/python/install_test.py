# SPDX-License-Identifier: MIT
"""The Python module installed by pip, without a network, and used from there. Arguments: LIBRARY,
SOURCE (the project's folder)."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

LIBRARY, SOURCE = sys.argv[1], pathlib.Path(sys.argv[2])

# What the installed module is asked for; arguments: the folder that it is in, and a configuration.
USE = """
import importlib.metadata
import pathlib
import sys

folder = sys.argv[1]
sys.path.insert(0, folder)
import vaultry

assert pathlib.Path(vaultry.__file__).parent.parent == pathlib.Path(folder), vaultry.__file__
assert (pathlib.Path(vaultry.__file__).parent / "py.typed").exists()
assert importlib.metadata.version("vaultry") == vaultry.__version__
with vaultry.Generator() as generator:
    assert generator.version == vaultry.__version__
    generator.init(sys.argv[2])
    assert generator.run()["result"] == "made"
    assert generator.plugin[:4] == b"TES3"
"""


class InstallTest(unittest.TestCase):
    def python(self, *arguments: str, **variables: str) -> None:
        run = subprocess.run(
            [sys.executable, "-I", "-B", *arguments],
            env={**os.environ, **variables},
            stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT,
            universal_newlines=True,
        )
        self.assertEqual(run.returncode, 0, run.stdout)

    def test_pip_installs_it_and_it_works_from_there(self) -> None:
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name).resolve()
            # pip builds in the folder of the sources.
            sources, target = folder / "sources", folder / "target"
            left = shutil.ignore_patterns("build", "*.egg-info", "__pycache__")
            shutil.copytree(str(SOURCE / "python"), str(sources), ignore=left)
            install = ["-m", "pip", "install", "--isolated", "--no-index", "--no-build-isolation"]
            self.python(*install, "--target", str(target), str(sources), HOME=name)
            config = SOURCE / "data" / "vaultry.xml"
            self.python("-c", USE, str(target), str(config), VAULTRY_LIBRARY=LIBRARY)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)

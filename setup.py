# SPDX-FileCopyrightText: 2026 The KyMath authors
# SPDX-License-Identifier: Apache-2.0
"""The wheel of the Python module, which CMake builds: for `pip install .`"""
import pathlib
import re
import shutil
import subprocess
import sys

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

root = pathlib.Path(__file__).parent.resolve()
(root / "build").mkdir(exist_ok=True)  # for all that is made


class CMakeBuild(build_ext):
    def run(self):
        build = root / "build" / "wheel"
        for command in (
                ["--preset", "install", "-B", build, "-DKYMATH_PYTHON=ON",
                 f"-DPython3_EXECUTABLE={sys.executable}"],
                ["--build", build, "--target", "kymath_python"]):
            subprocess.run(["cmake", *command], cwd=root, check=True)
        shutil.copytree(build / "python/kymath", pathlib.Path(self.build_lib, "kymath"), dirs_exist_ok=True,
                        ignore=shutil.ignore_patterns("__pycache__"))


setup(
    version=re.search(r"^    VERSION (.+)$", (root / "CMakeLists.txt").read_text(), re.M)[1],
    ext_modules=[Extension(f"kymath.{name}", [], py_limited_api=True) for name in ("_core", "_arrays")],
    cmdclass={"build_ext": CMakeBuild},
    options={"bdist_wheel": {"py_limited_api": "cp311"}, "egg_info": {"egg_base": "build"}})

# SPDX-License-Identifier: MIT
"""Builds the compiled part by CMake. CMAKE_ARGS may hold further arguments for it."""

import os
import shlex
import subprocess
import sys
from pathlib import Path

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

HERE = Path(__file__).resolve().parent


class CMakeBuild(build_ext):
    def build_extension(self, ext: Extension) -> None:
        package = Path(self.get_ext_fullpath(ext.name)).resolve().parent
        build = Path(self.build_temp).resolve()
        configure = [
            "cmake", "-S", str(HERE), "-B", str(build), "-DCMAKE_BUILD_TYPE=Release",
            f"-DVEXMATH_PYTHON_VERSION={self.distribution.get_version()}",
            f"-DPython_EXECUTABLE={sys.executable}",
        ]  # fmt: skip
        subprocess.check_call(configure + shlex.split(os.environ.get("CMAKE_ARGS", "")))
        jobs = str(self.parallel or os.cpu_count() or 1)
        subprocess.check_call(["cmake", "--build", str(build), "--parallel", jobs])
        install = ["cmake", "--install", str(build), "--strip", "--prefix", str(package)]
        subprocess.check_call(install)
        # The stubs describe what was built.
        stubs = subprocess.check_output([sys.executable, str(HERE / "stubs.py"), str(package)])
        (package / "__init__.pyi").write_bytes(stubs)


setup(ext_modules=[Extension("vexmath._vexmath", [])], cmdclass={"build_ext": CMakeBuild})

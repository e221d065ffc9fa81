#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs the recipe without Conan, with plain versions of the classes and functions that it uses.

usage: stand_in.py WORK_FOLDER

The package is made in WORK_FOLDER/package from the files that the recipe exports.
"""

import importlib.util
import shutil
import subprocess
import sys
from pathlib import Path
from types import ModuleType, SimpleNamespace

RECIPE = Path(__file__).with_name('conanfile.py')


def run(*command):
    subprocess.run([str(part) for part in command], check=True, stdout=subprocess.DEVNULL)


class ConanFile:
    def use(self, work):
        self.export_sources_folder = self.source_folder = str(work / 'source')
        self.build_folder, self.package_folder = str(work / 'build'), str(work / 'package')
        self.options = SimpleNamespace(**self.default_options)
        self.cpp_info = SimpleNamespace(set_property=lambda name, value: None)


class CMakeToolchain:
    def __init__(self, recipe):
        self.recipe, self.variables = recipe, {'BUILD_SHARED_LIBS': recipe.options.shared}

    def generate(self):
        self.recipe.cmake_options = [f'-D{name}={"ON" if value else "OFF"}'
                                     for name, value in self.variables.items()]


class CMake:
    def __init__(self, recipe):
        self.recipe = recipe

    def configure(self):
        run('cmake', '-S', self.recipe.source_folder, '-B', self.recipe.build_folder, '-G', 'Ninja',
            '-DCMAKE_BUILD_TYPE=Release', '-DCMAKE_INSTALL_LIBDIR=lib', *self.recipe.cmake_options)

    def build(self):
        run('cmake', '--build', self.recipe.build_folder, '--parallel', 2)

    def install(self):
        run('cmake', '--install', self.recipe.build_folder, '--prefix', self.recipe.package_folder)


def copy(_, pattern, src, dst):
    """The file of that name, or all files below a folder for the pattern `folder/*`."""
    source = Path(src) / pattern
    files = source.parent.rglob(source.name) if '*' in pattern else [source]
    for file in filter(Path.is_file, files):
        target = Path(dst) / file.relative_to(src)
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(file, target)


def stand_in(name, **members):
    sys.modules[name] = ModuleType(name)
    vars(sys.modules[name]).update(members)


def main(work):
    stand_in('conan', ConanFile=ConanFile)
    stand_in('conan.tools')
    stand_in('conan.tools.cmake', CMake=CMake, CMakeToolchain=CMakeToolchain,
             cmake_layout=lambda recipe: None)
    stand_in('conan.tools.files', copy=copy)
    found = importlib.util.spec_from_file_location('conanfile', RECIPE)
    module = importlib.util.module_from_spec(found)
    found.loader.exec_module(module)

    recipe = module.VexmathConan()
    recipe.use(work)
    for step in ('set_version', 'export_sources', 'layout', 'generate', 'build', 'package',
                 'package_info'):
        getattr(recipe, step)()
    print(f'{recipe.name} {recipe.version}: {", ".join(recipe.cpp_info.libs)}')


if __name__ == '__main__':
    main(Path(sys.argv[1]).resolve())

# SPDX-License-Identifier: MIT
"""Recipe for Conan 2:  conan create packaging/conan"""

import re
from pathlib import Path

from conan import ConanFile
from conan.tools.cmake import CMake, CMakeToolchain, cmake_layout
from conan.tools.files import copy

ROOT = Path(__file__).resolve().parents[2]


class VexmathConan(ConanFile):
    name = 'vexmath'
    license = 'MIT'
    description = 'Geometry and linear-algebra kernel for mechanical CAD'
    settings = 'os', 'compiler', 'build_type', 'arch'
    options = {'shared': [True, False]}
    default_options = {'shared': True}
    package_type = 'library'

    def set_version(self):
        text = (ROOT / 'CMakeLists.txt').read_text()
        self.version = re.search(r'^  VERSION ([\d.]+)$', text, re.M)[1]

    def export_sources(self):
        for pattern in ('CMakeLists.txt', 'LICENSE', 'cmake/*', 'debugger/*', 'docs/*.md', 'include/*',
                        'src/*'):
            copy(self, pattern, src=str(ROOT), dst=self.export_sources_folder)

    def layout(self):
        cmake_layout(self)

    def generate(self):
        toolchain = CMakeToolchain(self)
        for part in ('TESTS', 'EXAMPLES', 'APPS'):
            toolchain.variables[f'VEXMATH_BUILD_{part}'] = False
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()
        copy(self, 'LICENSE', src=self.source_folder, dst=str(Path(self.package_folder) / 'licenses'))

    def package_info(self):
        self.cpp_info.libs = ['vexmath']
        # CMake projects use the package files that are installed, which have all targets.
        self.cpp_info.set_property('cmake_find_mode', 'none')
        self.cpp_info.builddirs = ['lib/cmake/vexmath']
        if not self.options.shared:
            self.cpp_info.defines = ['VEXMATH_STATIC']

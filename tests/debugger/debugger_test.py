#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares what gdb, lldb and Visual Studio show with docs/debugging.md and values.md.

The declarations of both pages become a program. The debuggers run it against an installed tree, and
against the same tree after it was moved. gdb stands in for Visual Studio.

usage: debugger_test.py SOURCE BUILD WORK COMPILER [unittest arguments]
"""

import os
import re
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

SOURCE, BUILD, WORK = map(Path, sys.argv[1:4])
COMPILER = sys.argv[4]
HERE = Path(__file__).parent
sys.path.insert(0, str(SOURCE / 'debugger'))
from vexmath_texts import TEXTS

PROGRAM = '''\
#include <vexmath/vexmath.h>
#include <cmath>
#include <cstdlib>
#include <cstring>
using namespace std;
void *const fence = reinterpret_cast<void *>(16);
[[gnu::noinline]] void keep(void const *value) { asm volatile("" : : "r"(value) : "memory"); }
[[gnu::noinline]] void stop() { asm volatile(""); }
int main() {
    %s
    mgPoint_c *handle = list.Data();
    keep(&handle);
    stop();
    quick_exit(0);
}
'''
# The first option describes classes with virtual functions too, which compilers otherwise leave to
# the library. The others make optimised functions that lldb 14 can read: GCC splits them.
CLANG = 'clang' in subprocess.check_output([COMPILER, '--version'], text=True)
WHOLE_CLASSES = '-fstandalone-debug' if CLANG else '-femit-class-debug-always'
OPTIMISED = ['-O2'] if CLANG else ['-O2', '-fno-reorder-blocks-and-partition']
# Debian's lldb does not look for its own Python module where it is, and takes the libraries of the
# first python3 in the path, which need not be Debian's.
LLDB_MODULE = next(Path('/usr/lib').glob('llvm-*/lib/python3*/*/lldb/embedded_*.py'), None)
# What a .natvis file cannot tell, see docs/debugging.md.
UNLIKE_IN_NATVIS = {'tooLong', 'written', 'half', 'types', 'constraints', 'helper', 'same', 'wild',
                    'nanDirection', 'badSet'}


def rows(page):
    """Name, declaration and text of each value on a page."""
    for declaration, text in re.findall(r'^\| `(.+)` \| `(.+)` \|$', page.read_text(), re.M):
        yield re.match(r'[\w<>]+(?: const)? &?(\w+)', declaration)[1], declaration, text


VALUES = [*rows(SOURCE / 'docs/debugging.md'), *rows(HERE / 'values.md')]
NAMES = [name for name, _, _ in VALUES]


def run(*command, **environment):
    done = subprocess.run([str(word) for word in command], stdout=subprocess.PIPE, timeout=300,
                          stderr=subprocess.STDOUT, text=True, env={**os.environ, **environment})
    if done.returncode != 0:
        raise AssertionError(done.stdout)
    return done.stdout


def compile_program(prefix, *options):
    body = '\n'.join(f'{declaration}; keep(&{name});' for name, declaration, _ in VALUES)
    (WORK / 'values.cpp').write_text(PROGRAM % body)
    library = next(prefix.rglob('libvexmath.so')).parent
    run(COMPILER, '-std=c++17', '-w', '-g', *options, '-I', prefix / 'include', WORK / 'values.cpp',
        '-o', WORK / 'values', '-L', library, f'-Wl,-rpath,{library}', '-lvexmath')


def in_gdb(prefix, *commands):
    options = [word for line in ('break stop', 'run', 'up', *commands) for word in ('-ex', line)]
    return run('gdb', '-nx', '-batch', '-iex', f'add-auto-load-safe-path {prefix}',
               '-iex', 'set width 0', *options, WORK / 'values')


def in_lldb(prefix, *commands):
    start = (f'command script import {prefix}/share/vexmath/debugger/vexmath_lldb.py',
             'settings set target.disable-aslr false', 'breakpoint set -n stop', 'run', 'up')
    options = [word for line in (*start, *commands) for word in ('-o', line)]
    return run('lldb', '--no-lldbinit', '--batch', *options, WORK / 'values',
               PATH='/usr/bin:/bin', PYTHONPATH=str(LLDB_MODULE.parents[1]))


def without_elements(_, text):
    return text.split(' = {')[0]


class DebuggerTest(unittest.TestCase):
    maxDiff = None

    def compare(self, shown, text_of=lambda _, text: text):
        self.assertEqual(len(shown), len(VALUES))
        for (name, _, text), line in zip(VALUES, shown):
            with self.subTest(name):
                pattern = re.escape(text_of(name, text)).replace(r'\.\.\.', '.*')
                self.assertRegex(line, f'^{pattern}$')

    def check_gdb(self, prefix):
        shown = in_gdb(prefix, *(f'print {name}' for name in NAMES), 'print $vexmath_array(handle)')
        *texts, array = re.findall(r'^\$\d+ = (?:\(.+ &\) @0x\w+: )?(.+)$', shown, re.M)
        self.assertEqual(array, '{(1, 2, 3), (1, 2.5, 1e+20)}')
        self.compare(texts)

    def check_lldb(self, prefix):
        shown = in_lldb(prefix, *(f'frame variable {name}' for name in NAMES))
        # Elements are on lines of their own, and the members of what a reference refers to.
        shown = re.sub(r':? {((?:\n  \[\d+\] = .+)+)\n}', lambda list_: ' = {' + ', '.join(
            re.findall('= (.+)', list_[1])) + '}', shown)
        shown = re.sub(r'( = 0x.+?)(: {| {})$', r'\1', shown, flags=re.M)
        # Clang does not tell lldb 14 the type of the elements.
        self.compare(re.findall(r'^\(.+?\) \w+ = (?:0x\w+ )?(.+)$', shown, re.M),
                     without_elements if CLANG else lambda _, text: text)

    def check_natvis(self, prefix):
        shown = in_gdb(prefix, f'source {HERE}/natvis_in_gdb.py',
                       f'natvis {prefix}/share/vexmath/debugger/vexmath.natvis {" ".join(NAMES)}')
        self.compare(re.findall(r'^natvis \w+ = (.+)$', shown, re.M), lambda name, text:
                     '...' if name in UNLIKE_IN_NATVIS else without_elements(name, text))

    def test_values_are_shown_from_an_installed_and_from_a_moved_tree(self):
        shutil.rmtree(WORK, ignore_errors=True)
        installed, moved = WORK / 'installed', WORK / 'moved'
        run('cmake', '--install', BUILD, '--prefix', installed)
        compile_program(installed, '-O0', WHOLE_CLASSES)
        self.check_gdb(installed)
        self.check_natvis(installed)
        installed.rename(moved)
        compile_program(moved, *OPTIMISED)
        self.check_gdb(moved)
        if not (LLDB_MODULE and shutil.which('lldb')):
            self.skipTest('lldb is missing or has no Python: NOT TESTED')
        self.check_lldb(moved)

    def test_below_usr_the_script_is_in_the_folder_that_gdb_trusts(self):
        root = WORK.with_name(WORK.name + '_system')
        run('cmake', '--install', BUILD, '--prefix', '/usr', DESTDIR=str(root))
        library = next(root.rglob('libvexmath.so.*.*.*[0-9]')).relative_to(root)
        self.assertEqual([*root.rglob('libvexmath*.py')],
                         [root / f'usr/share/gdb/auto-load/{library}-gdb.py'])

    def test_each_public_class_has_a_text(self):
        opt_in = ('format.h', 'hash.h')  # which declare no class of values
        headers = ''.join(h.read_text() for h in (SOURCE / 'include/vexmath').glob('*.h')
                          if h.name not in opt_in)
        classes = re.findall(r'^(?:typedef )?(?:class|struct)(?: VEXMATH_\w+)? (\w+)\b(?!;)',
                             headers, re.M)
        natvis = re.findall(r'<Type Name="(\w+)', (SOURCE / 'debugger/vexmath.natvis').read_text())
        shown = re.findall(r'^(\w+)', '\n'.join(declaration for _, declaration, _ in VALUES), re.M)
        self.assertEqual(sorted(classes), sorted(TEXTS))
        self.assertEqual(sorted(natvis), sorted(TEXTS))
        self.assertEqual(set(shown), set(TEXTS))


if __name__ == '__main__':
    unittest.main(argv=sys.argv[:1] + sys.argv[5:])

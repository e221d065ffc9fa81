#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes docs/trust.md from what the last measurements left in the build folder.

usage: trust.py BUILD_FOLDER TEMPLATE OUTPUT
"""

import json
import sys
from pathlib import Path

FUZZERS = Path(__file__).resolve().parents[2] / 'tests/fuzz'
FUZZ_SECONDS = 600  # of each target, at least
CHANGES = 400  # in the sample, at least


def table(head, rows):
    lines = [head, ['---'] * len(head), *rows]
    return '\n'.join('| ' + ' | '.join(map(str, line)) + ' |' for line in lines)


def thousands(number):
    return f'{number:,}'.replace(',', ' ')


def fuzzing(path):
    runs = json.loads(path.read_text())
    targets = {file.stem.removeprefix('fuzz_') for file in FUZZERS.glob('fuzz_*.cpp')}
    if missing := targets - {run['target'] for run in runs}:
        sys.exit(f'not fuzzed yet, or with a finding: {", ".join(sorted(missing))}')
    if short := [run['target'] for run in runs if run['seconds'] < FUZZ_SECONDS]:
        sys.exit(f'fuzzed for less than {FUZZ_SECONDS} s: {", ".join(short)}')
    rows = [(f'`{run["target"]}`', run['seconds'], thousands(run['executions'])) for run in runs]
    total = sum(run['executions'] for run in runs)
    return (table(('target', 'seconds', 'inputs'), rows)
            + f'\n\n{thousands(total)} inputs in all, without a finding.')


def mutation(path):
    """The scores of each room, with the seed of their sample."""
    scores = path.read_text().strip()
    counted = int(scores.splitlines()[-1].split('|')[2])
    if counted < CHANGES:
        sys.exit(f'{path} has {counted} changes, and {CHANGES} are wanted')
    seed = json.loads(path.with_suffix('.json').read_text())['seed']
    return f'A sample of {counted} changes, drawn with the seed {seed}:\n\n{scores}'


def coverage(path):
    """The shares of each folder and of all files."""
    summary = json.loads(path.read_text())
    rooms = {}
    for file in summary['files']:
        room = rooms.setdefault(str(Path(file['filename']).parent), [0, 0, 0, 0])
        for i, key in enumerate(('line_covered', 'line_total', 'branch_covered', 'branch_total')):
            room[i] += file[key]
    rows = [(f'`{name}`', f'{100 * n[0] / n[1]:.1f} %', f'{100 * n[2] / n[3]:.1f} %' if n[3] else '')
            for name, n in sorted(rooms.items()) if n[1]]
    rows.append(('**all**', f'**{summary["line_percent"]:.1f} %**',
                 f'**{summary["branch_percent"]:.1f} %**'))
    return table(('folder', 'lines', 'branches'), rows)


def main(build, template, output):
    parts = {'matrix': (build / 'matrix/table.md', Path.read_text),
             'mutation': (build / 'mutate/report.md', mutation),
             'coverage': (build / 'coverage/report/summary.json', coverage),
             'fuzzing': (build / 'fuzz/executions.json', fuzzing)}
    missing = [str(path) for path, _ in parts.values() if not path.exists()]
    if missing:
        sys.exit(f'not measured yet: {", ".join(missing)}')
    page = template.read_text()
    for name, (path, text) in parts.items():
        page = page.replace(f'{{{name}}}', text(path).strip())
    output.write_text(page)


if __name__ == '__main__':
    main(*map(Path, sys.argv[1:]))

# SPDX-License-Identifier: MIT
"""The command `natvis FILE NAME...` for gdb: prints variables as Visual Studio would by the file.

It fails when an expression of the file names a member that its class does not have."""

import re
import xml.etree.ElementTree as xml

import gdb
import gdb.types
from vexmath_texts import shortest

SPACE = '{http://schemas.microsoft.com/vstudio/debugger/natvis/2010}'
NOT_MEMBERS = {'this', 'sizeof', 'int', 'short', 'mgXform_c', 'mgPerspInfo_c'}


def evaluate(expression, value):
    """An expression in the place of a member function of the value."""
    this = f'(({value.type.unqualified()} *){int(value.address)})'
    full = re.sub(r'(?<![\w.])[A-Za-z_]\w*',
                  lambda word: word[0] if word[0] in NOT_MEMBERS else f'{this}->{word[0]}',
                  expression)
    return gdb.parse_and_eval(re.sub(r'\bthis\b', this, full))


def holes(display):
    """Each expression in braces, and the view that it asks for."""
    return re.findall(r'{([^{}]*?)(?:,view\((\w+)\))?}', display.text or '')


def check(visual, value):
    """Evaluates all expressions of a class, used or not."""
    for node in visual.iter():
        expressions = [e for e, _ in holes(node)] + [node.get('Condition') or '1']
        if node.tag in (SPACE + 'Size', SPACE + 'ValuePointer', SPACE + 'ExpandedItem'):
            expressions.append(node.text)
        for expression in expressions:
            try:
                evaluate(expression, value)
            except gdb.MemoryError:  # of a null pointer: the names exist
                pass


def show(visuals, value, view=''):
    kind = gdb.types.get_basic_type(value.type)
    if kind.code == gdb.TYPE_CODE_FLT:
        return shortest(float(value), kind.sizeof)
    if kind.code != gdb.TYPE_CODE_STRUCT:
        return str(int(value))
    visual = visuals.get(re.sub('<.*>', '<*>', kind.tag))
    if visual is None:
        return str(value)
    check(visual, value)
    for display in visual.findall(SPACE + 'DisplayString'):
        wanted, condition = display.get('IncludeView', view), display.get('Condition')
        if wanted == view and (condition is None or evaluate(condition, value)):
            texts = iter([show(visuals, evaluate(e, value), v) for e, v in holes(display)])
            return re.sub('{[^{}]*}', lambda _: next(texts), display.text or '')
    return 'no text'


class Natvis(gdb.Command):
    def __init__(self):
        super().__init__('natvis', gdb.COMMAND_USER)

    def invoke(self, argument, _):
        path, *names = argument.split()
        visuals = {t.get('Name'): t for t in xml.parse(path).getroot().findall(SPACE + 'Type')}
        for name in names:
            try:
                print(f'natvis {name} =', show(visuals, gdb.parse_and_eval(f'*&{name}')))
            except gdb.MemoryError as error:
                print(f'natvis {name} = <error: {error}>')


Natvis()

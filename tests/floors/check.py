#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Fails when a file of the library includes a file of a higher floor: check.py <source folder>.

src/floors.txt says which room stands on which floor, and which public headers belong to a room.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(sys.argv[1])
PUBLIC = ROOT / "include" / "vexmath"
PLATFORM = ROOT / "src" / "platform" / "include" / "vexmath_platform"
BASE = 0
TOP = "vexmath.h"  # includes every header, and only callers include it


def read_floors():
    """The floor of each room, and the room of each public header."""
    floors, rooms, room = {}, {}, None
    for line in (ROOT / "src" / "floors.txt").read_text().splitlines():
        words = line.split()
        if not words or words[0] == "#":
            continue
        if not line[0].isspace():
            room = words[1]
            floors[room] = words[0] if words[0] == "apart" else int(words[0])
            words = words[2:]
        rooms.update(dict.fromkeys(words, room))
    return floors, rooms


def detail_rooms(rooms):
    """The room of each header in detail/: that of the public header which includes it."""
    found = {}
    for name, room in rooms.items():
        for detail in re.findall(r"#include <vexmath/(detail/[^>]+)>", (PUBLIC / name).read_text()):
            found.setdefault(detail, room)
    return found


def room_of(path, rooms):
    if path.is_relative_to(PUBLIC):
        return rooms.get(path.relative_to(PUBLIC).as_posix())
    if path.is_relative_to(PLATFORM):
        return "platform"
    folder = path.parent.relative_to(ROOT / "src").as_posix()
    return "base" if folder == "." else folder


def included(path):
    """The files of this project that a file includes."""
    for quoted, name in re.findall(r'#include ([<"])([^>"]+)[>"]', path.read_text()):
        nearby = [path.parent, ROOT / "src"] if quoted == '"' else []
        for folder in [*nearby, ROOT / "include", PLATFORM.parent]:
            if (folder / name).is_file():
                yield (folder / name).resolve()
                break


def may_include(room, other, floors):
    if room == other or floors[other] == BASE:
        return True
    if "apart" in (floors[room], floors[other]):
        return other == "platform"  # the host's types
    return floors[other] < floors[room]


def main():
    floors, rooms = read_floors()
    rooms.update(detail_rooms(rooms))
    faults = []
    sources = [path for folder in ("include", "src") for path in (ROOT / folder).rglob("*.*")]
    checked = 0
    for path in sorted(path.resolve() for path in sources if path.suffix in (".h", ".cpp")):
        if path == PUBLIC.resolve() / TOP:
            continue
        shown = path.relative_to(ROOT.resolve())
        room = room_of(path, rooms)
        if room not in floors:
            faults.append(f"{shown}: src/floors.txt has no room for it")
            continue
        checked += 1
        for other in included(path):
            its_room = room_of(other, rooms)
            if its_room in floors and not may_include(room, its_room, floors):
                faults.append(
                    f"{shown} ({room}, floor {floors[room]}) includes"
                    f" {other.relative_to(ROOT.resolve())} ({its_room}, floor {floors[its_room]})"
                )
    print("\n".join(faults) or f"{checked} files, none includes a file of a higher floor")
    return 1 if faults else 0


if __name__ == "__main__":
    ROOT, PUBLIC, PLATFORM = ROOT.resolve(), PUBLIC.resolve(), PLATFORM.resolve()
    sys.exit(main())

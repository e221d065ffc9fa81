#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Fails when a file of the library includes a file of a higher floor: check.py <source folder>.

src/floors.txt says which room stands on which floor, and which headers belong to a room.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(sys.argv[1]).resolve()
SOURCES = ROOT / "src"
PUBLIC = ROOT / "include" / "vexmath"
PLATFORM = SOURCES / "platform" / "include" / "vexmath_platform"
ALL_HEADERS = PUBLIC / "vexmath.h"  # includes every header, and only callers include it


def read_floors():
    """The floor of each room, and the room of each header."""
    floors, rooms = {}, {}
    for line in (SOURCES / "floors.txt").read_text().splitlines():
        words = line.split()
        if not words or words[0] == "#":
            continue
        if not line[0].isspace():  # a line that begins with spaces goes on with the last room
            floor, room, *words = words
            floors[room] = floor if floor == "apart" else int(floor)
        rooms |= {PUBLIC / name: room for name in words}
    return floors, rooms


def included(path):
    """The files of the library that a file includes."""
    for mark, name in re.findall(r'^#include ([<"])([^>"]+)[>"]', path.read_text(), re.M):
        nearby = [path.parent, SOURCES] if mark == '"' else []
        for folder in [*nearby, PUBLIC.parent, PLATFORM.parent]:
            if (folder / name).is_file():
                yield (folder / name).resolve()
                break


def room_of(path, rooms):
    if PUBLIC in path.parents:
        return rooms.get(path)
    if PLATFORM in path.parents:
        return "platform"
    folder = path.parent.relative_to(SOURCES).as_posix()
    return "base" if folder == "." else folder


def may_include(room, other, floors):
    if other in (room, "base") or other not in floors:
        return True
    if "apart" in (floors[room], floors[other]):
        return other == "platform"  # the host's types
    return floors[other] < floors[room]


def main():
    floors, rooms = read_floors()
    files = {*PUBLIC.rglob("*.h"), *SOURCES.rglob("*.h"), *SOURCES.rglob("*.cpp")} - {ALL_HEADERS}
    faults = [f"src/floors.txt names {path}, which is not there" for path in rooms if not path.is_file()]
    for path in sorted(files):
        room = room_of(path, rooms)
        if room not in floors:
            faults.append(f"{path}: src/floors.txt has no room for it")
            continue
        for other in included(path):
            its = room_of(other, rooms)
            if not may_include(room, its, floors):
                faults.append(f"{path} ({room}, floor {floors[room]}) includes"
                              f" {other} ({its}, floor {floors[its]})")
    print("\n".join(faults) or f"{len(files)} files, none includes a file of a higher floor")
    return bool(faults)


if __name__ == "__main__":
    sys.exit(main())

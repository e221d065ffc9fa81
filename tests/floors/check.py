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
    if other in (room, "base"):
        return True
    if "apart" in (floors[room], floors[other]):
        return other == "platform"  # the host's types
    return floors[other] < floors[room]


def main():
    floors, rooms = read_floors()
    files = sorted({*PUBLIC.rglob("*.h"), *SOURCES.rglob("*.h"), *SOURCES.rglob("*.cpp")})
    files.remove(ALL_HEADERS)
    faults = [f"src/floors.txt names {path.relative_to(ROOT)}, which is not there"
              for path in rooms if not path.is_file()]
    for path in files:
        room = room_of(path, rooms)
        if room not in floors:
            faults.append(f"{path.relative_to(ROOT)}: src/floors.txt has no room for it")
            continue
        for other in included(path):
            its_room = room_of(other, rooms)
            if its_room in floors and not may_include(room, its_room, floors):
                faults.append(
                    f"{path.relative_to(ROOT)} ({room}, floor {floors[room]}) includes"
                    f" {other.relative_to(ROOT)} ({its_room}, floor {floors[its_room]})"
                )
    print("\n".join(faults) or f"{len(files)} files, none includes a file of a higher floor")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Measures how many changes of the library its tests notice.

Each trial alters one operator, constant, condition, statement or pair of arguments in src/ or
include/, drawn at random. The GoogleTest programs run on the altered library, then the golden
program. The results are lines of build/mutate/seed-<seed>.jsonl, in the order in which they end.

Changes that the compiler refuses are left out. So are those that leave all objects as they were,
and those that equivalent.txt explains.
"""

import argparse
import collections
import concurrent.futures
import functools
import hashlib
import itertools
import json
import random
import sys
import threading
import time

import build
from changes import changes_of

ROOMS = (
    "platform", "vector", "matrix", "transform", "bounds", "primitives", "queries", "tessellation",
    "support", "selection",
)  # fmt: skip
# Rooms without tests of their own, and those that use them first.
TESTED_IN = {"simd": "transform", "base": "vector"}
MISSED = ("golden", "unnoticed")  # golden: noticed by the golden program alone
COUNTED = ("noticed", *MISSED)
REVIEWED = build.ROOT / "tools" / "mutate" / "equivalent.txt"


def sources():
    """(file, room) of each file that may change."""
    header_rooms = {}
    for line in (build.ROOT / "src" / "floors.txt").read_text().splitlines():
        words = line.split()
        if words and words[0] == "#":
            continue
        if words and words[0][0].isalnum():
            room = words[1]
        header_rooms.update((w, room) for w in words if w.endswith(".h"))
    for path in sorted((build.ROOT / "include" / "vexmath").rglob("*.h")):
        name = path.relative_to(build.ROOT / "include" / "vexmath").as_posix()
        if name in header_rooms:
            yield path.relative_to(build.ROOT).as_posix(), room_of(header_rooms[name])
    for path in sorted((build.ROOT / "src").rglob("*.[hc]*")):
        name = path.relative_to(build.ROOT)
        if path.suffix in (".h", ".cpp") and len(name.parts) > 2:
            yield name.as_posix(), room_of(name.parts[1])


def room_of(place):
    room = place.split("/")[0]
    return TESTED_IN.get(room, room)


@functools.lru_cache(maxsize=None)
def text_of(file):
    """The source as it was at the first call: the tree may be edited during a run."""
    return (build.ROOT / file).read_text()


def drawn(rooms, seed):
    """(room, change) in the order of the sample: the rooms in turn, each in its random order."""
    found = collections.defaultdict(list)
    for file, room in sources():
        found[room] += changes_of(file, text_of(file))
    orders = []
    for room in rooms:
        random.Random(f"{seed} {room}").shuffle(found[room])
        orders.append([(room, change) for change in found[room]])
    return [x for turn in itertools.zip_longest(*orders) for x in turn if x is not None]


def place(line):
    """What tells a change from all others."""
    return line["file"], line["start"], line["end"], line["text"]


def digest():
    """One number for the source that changes are made to."""
    seen = hashlib.sha256()
    for file, _ in sources():
        seen.update((file + text_of(file)).encode())
    return seen.hexdigest()[:16]


def shown(change):
    """The line of a change, and its lines before and after with single spaces."""
    text = text_of(change.file)
    first = text.rfind("\n", 0, change.start) + 1
    last = text.find("\n", change.end)
    after = text[first : change.start] + change.text + text[change.end : last]
    return {
        "line": text.count("\n", 0, change.start) + 1,
        "before": " ".join(text[first:last].split()),
        "after": " ".join(after.split()),
    }


def reviewed():
    """(file, before, after) of each change that equivalent.txt explains; after may be * for any."""
    known, entry = set(), {}
    for line in REVIEWED.read_text().splitlines():
        key, _, entry[key] = line.partition(": ")
        if key == "after":
            known.add((entry["file"], entry["before"], entry["after"]))
    return known


def is_reviewed(line, known):
    return any((line["file"], line["before"], after) in known for after in (line["after"], "*"))


class Results:
    """The lines of one sample's file."""

    def __init__(self, path):
        self.path = path
        self.head, self.lines = {}, []
        if path.exists():
            self.head, *self.lines = map(json.loads, path.read_text().splitlines())

    def begin(self, **head):
        self.head, self.lines = head, []
        self.path.parent.mkdir(parents=True, exist_ok=True)
        self.path.write_text(json.dumps(head) + "\n")

    def keep(self, lines):
        lines = list(lines)
        self.begin(**self.head)
        for line in lines:
            self.add(line)

    def add(self, line):
        self.lines.append(line)
        with self.path.open("a") as file:
            file.write(json.dumps(line) + "\n")

    def review(self, known):
        """Follows the list of explained changes, which may have been edited since the run."""
        for line in self.lines:
            if is_reviewed(line, known) and line["verdict"] in MISSED:
                line["verdict"] = "reviewed"
            elif not is_reviewed(line, known) and line["verdict"] == "reviewed":
                line["verdict"] = "unnoticed"

    def with_verdict(self, *verdicts):
        return [line for line in self.lines if line["verdict"] in verdicts]


def run_sample(results, queue, count):
    """Judges the changes of the queue until `count` of them have changed the library."""
    known = reviewed()
    done = set(map(place, results.lines))
    waiting = iter([x for x in queue if place(vars(x[1])) not in done])
    base = build.Base()
    print("seconds of each program:", {p: round(base.seconds[p], 1) for p in base.order})
    lock, begun = threading.Lock(), time.monotonic()

    def work(worker):
        while True:
            with lock:
                enough = len(results.with_verdict(*COUNTED)) >= count
                room, change = (None, None) if enough else next(waiting, (None, None))
            if change is None:
                return
            line = judged(base, worker, room, change, known)
            with lock:
                results.add(line)
                tell(results, line, (time.monotonic() - begun) / 60)

    with concurrent.futures.ThreadPoolExecutor(build.WORKERS) as pool:
        for job in [pool.submit(work, worker) for worker in range(build.WORKERS)]:
            job.result()


def judged(base, worker, room, change, known):
    line = {"room": room, **vars(change), **shown(change)}
    begun = time.monotonic()
    if is_reviewed(line, known):
        verdict, by = "reviewed", ""
    else:
        verdict, by = build.Trial(base, worker, room, change).verdict()
    return {**line, "verdict": verdict, "by": by, "seconds": round(time.monotonic() - begun, 1)}


def tell(results, line, minutes):
    counted = len(results.with_verdict(*COUNTED))
    if line["verdict"] in MISSED:
        print(f"{line['verdict']}: {line['file']}:{line['line']}", flush=True)
        print(f"    {line['before']}\n    {line['after']}", flush=True)
    elif len(results.lines) % 20 == 0:
        print(f"{counted} changes in {minutes:.0f} minutes", flush=True)


def table(results):
    """The scores as a table, and the changes that the suites do not notice."""
    text = ["| Room | Changes | Suites notice | With the golden file |", "|---|---:|---:|---:|"]
    counted = results.with_verdict(*COUNTED)
    for room in [*ROOMS, "all"]:
        of_room = [r["verdict"] for r in counted if room in (r["room"], "all")]
        if of_room:
            noticed = of_room.count("noticed")
            text.append(
                f"| {room} | {len(of_room)} | {share(noticed, of_room)} |"
                f" {share(noticed + of_room.count('golden'), of_room)} |"
            )
    return "\n".join(text)


def share(part, whole):
    return f"{100 * part / len(whole):.1f} %"


def survivors(results):
    text = []
    missed = results.with_verdict(*MISSED)
    for line in sorted(missed, key=lambda r: (r["file"], r["line"])):
        by = " (the golden file notices)" if line["verdict"] == "golden" else ""
        text += [f"{line['file']}:{line['line']}{by}", f"  {line['before']}", f"  {line['after']}"]
    return "\n".join(text)


def report(results, room):
    """Of one room, in files of its own."""
    suffix = f"-{room}" if room else ""
    counts = collections.Counter(line["verdict"] for line in results.lines)
    (build.BUILD / f"report{suffix}.json").write_text(
        json.dumps({**results.head, "verdicts": counts, "changes": results.lines}, indent=1)
    )
    (build.BUILD / f"report{suffix}.md").write_text(table(results) + "\n")
    (build.BUILD / f"survivors{suffix}.txt").write_text(survivors(results) + "\n")


def arguments():
    parser = argparse.ArgumentParser(prog="./dev mutate", description=__doc__.split("\n")[0])
    parser.add_argument("room", nargs="?", choices=ROOMS, help="all rooms in turn if none is given")
    parser.add_argument("--sample", type=int, default=100, help="changes that alter the library")
    parser.add_argument("--seed", default="1", help="another seed draws other changes")
    parser.add_argument("--resume", action="store_true", help="go on where the seed's run stopped")
    parser.add_argument("--again", action="store_true", help="try what was not noticed once more")
    parser.add_argument("--report", action="store_true", help="only give the scores of that run")
    return parser.parse_args()


def main():
    given = arguments()
    rooms = [given.room] if given.room else ROOMS
    name = "-".join(["seed", given.seed, *([given.room] if given.room else [])])
    results = Results(build.BUILD / f"{name}.jsonl")
    if given.report:
        results.review(reviewed())
        report(results, given.room)
        print(table(results))
        return
    if given.resume or given.again:
        if results.head.get("source") != digest():
            sys.exit("the source is not that of the stopped run: begin again without --resume")
    else:
        results.begin(seed=given.seed, source=digest())
    build.copy_tree()
    if given.again:
        results.review(reviewed())
        missed = set(map(place, results.with_verdict(*MISSED)))
        queue = [x for x in drawn(rooms, given.seed) if place(vars(x[1])) in missed]
        results.keep(line for line in results.lines if place(line) not in missed)
        run_sample(results, queue, sys.maxsize)
    else:
        run_sample(results, drawn(rooms, given.seed), given.sample)
    report(results, given.room)
    print(table(results))
    print(survivors(results))


if __name__ == "__main__":
    main()

# SPDX-License-Identifier: MIT
"""The pairs and the order of one process, from two workers, also when one of them is killed."""

import os
import signal
import threading

import numpy as np
import pytest
from distributed import Client, LocalCluster

import vexmath as vm
from vexmath import distributed

RANDOM = np.random.default_rng(3)
NAN, INF = float("nan"), float("inf")


@pytest.fixture(scope="module")
def client():
    with LocalCluster(n_workers=2, threads_per_worker=1, processes=True, dashboard_address=None,
                      host="127.0.0.1") as cluster, Client(cluster) as made:  # fmt: skip
        yield made


def assembly(count):
    """Parts rotated freely; some span all cells, some are unset, stale, infinite or not placed."""
    places = RANDOM.uniform(-30, 30, (count, 3)) * RANDOM.choice([1, 1, 0.1], (count, 1))
    sizes = RANDOM.exponential(1.0, (count, 3)) + 0.01
    boxes = [vm.Box(tuple(-s), tuple(s)) for s in sizes]
    placements = [
        vm.rotate(RANDOM.uniform(-3, 3), tuple(RANDOM.normal(size=3)), 0.0) * vm.translate(tuple(p))
        for p in places
    ]
    boxes[:2] = [vm.Box((-40, -0.1, -0.1), (40, 0.1, 0.1)), vm.Box((-40, -40, -40), (40, 40, 40))]
    for i in range(3, 60, 3):
        boxes[i] = vm.Box()
        boxes[i + 1].set_sphere_only((NAN, 0, 0), 5.0)
    boxes[100].set_corners_only((-INF, -1, -1), (INF, 1, 1))
    boxes[101].set_sphere_only((50, 0, 0), 3.0)
    placements[102] = vm.scale(placements[102], 1e5)
    placements[103].perspective = vm.Perspective((0, 0, -100), 50.0)
    placements[104] = vm.Transform(vm.Matrix([1, 0, 0, 0, 1, 0, 0, 1, 0], False, True), (1, 2, 3))
    return boxes, placements


def expected(parts):
    return vm.find_placed_clashes(*parts).tolist()


def test_the_pairs_and_order_of_one_process(client):
    parts = assembly(2000)
    pairs = distributed.clashes(parts, client, parts_per_cell=200)
    assert len(pairs) > 2000 and pairs.tolist() == expected(parts)


def test_crossed_rods_whose_world_boxes_are_apart(client):
    rod = vm.Box((-10, -0.1, -0.1), (10, 0.1, 0.1))
    up, down = vm.rotate(0.785, (0, 0, 1), 0.0), vm.rotate(-0.785, (0, 0, 1), 0.0)
    placements = [up, down * vm.translate((9.0, 0, 5.0))] * 20
    rows = vm.placement_rows(placements)
    rows[:, 9] += np.arange(40) // 2 * 300.0
    parts = (vm.box_rows([rod] * 40), rows)
    assert distributed.clashes(parts, client, parts_per_cell=4).tolist() == expected(parts)


def test_nothing_to_find(client):
    for boxes in ([], [vm.Box()] * 3, [vm.Box((0, 0, 0), 1.0)]):
        parts = (boxes, [vm.Transform()] * len(boxes))
        assert distributed.clashes(parts, client).shape == (0, 2)


def test_a_worker_is_killed_in_the_middle(client, monkeypatch):
    parts = assembly(2500)
    started, killed = threading.Event(), []
    workers = client.run(os.getpid)

    def kill():
        started.wait()
        while not killed:
            for address, tasks in client.processing().items():
                if tasks and not killed:
                    os.kill(workers[address], signal.SIGKILL)
                    killed.append(address)

    thread = threading.Thread(target=kill)
    thread.start()
    gather = client.gather
    monkeypatch.setattr(client, "gather", lambda futures: (started.set(), gather(futures))[1])
    pairs = distributed.clashes(parts, client, parts_per_cell=100)
    thread.join()
    assert killed and pairs.tolist() == expected(parts)

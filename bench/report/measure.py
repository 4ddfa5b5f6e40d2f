"""Runs commands side by side, and measures what they cost."""

import dataclasses
import os
import statistics
import sys
import tempfile
import time


@dataclasses.dataclass
class Cost:
    wall: float  # seconds
    processor: float  # seconds, of the command and its children


def run(command, output="/dev/null"):
    """Runs a command to its end, with its standard output in a file; its cost. Raises when it fails."""
    start = time.monotonic()
    process = os.posix_spawnp(command[0], command, os.environ, file_actions=[
        (os.POSIX_SPAWN_OPEN, 1, output, os.O_WRONLY | os.O_CREAT | os.O_TRUNC, 0o666),
        (os.POSIX_SPAWN_OPEN, 2, "/dev/null", os.O_WRONLY, 0)])
    _, status, usage = os.wait4(process, 0)
    wall = time.monotonic() - start
    if status != 0:
        raise RuntimeError(f"failed: {' '.join(command)}")
    return Cost(wall, usage.ru_utime + usage.ru_stime)


def memory_of(command):
    """The bytes that the largest process of a command holds at its peak, or None when the command fails.

    Another program starts it: what this one holds would count as the command's."""
    with tempfile.NamedTemporaryFile("r") as result:
        try:
            run(["/usr/bin/time", "-o", result.name, "-f", "%M", *command])
        except RuntimeError:
            return None
        return int(result.read()) * 1024


def speed_of_two():
    """How many times the work of one process two of them do on this machine, side by side, when nothing is in their way."""
    command = [sys.executable, "-c", "sum(i * i for i in range(10_000_000))"]

    def seconds(count):
        start = time.monotonic()
        processes = [os.posix_spawnp(command[0], command, os.environ) for _ in range(count)]
        for process in processes:
            os.waitpid(process, 0)
        return time.monotonic() - start

    return statistics.median(2 * seconds(1) / seconds(2) for _ in range(5))


def side_by_side(commands, rounds, outputs=None):
    """The costs of each of the named commands, which take turns: {name: [Cost, ...]}. `outputs` has the files that the
    standard output of some of them goes to."""
    costs = {name: [] for name in commands}
    for _ in range(rounds):
        for name, command in commands.items():
            costs[name].append(run(command, (outputs or {}).get(name, os.devnull)))
    return costs


def typical(costs, what="wall"):
    """The median of a list of costs."""
    return statistics.median(getattr(cost, what) for cost in costs)


@dataclasses.dataclass
class Ratio:
    least: float
    median: float
    greatest: float

    def __str__(self):
        return f"{self.median:.2f} ({self.least:.2f} to {self.greatest:.2f})"


def ratio(of, to, what="wall"):
    """The ratio of two lists of costs, round by round."""
    values = [getattr(a, what) / getattr(b, what) for a, b in zip(of, to)]
    return Ratio(min(values), statistics.median(values), max(values))

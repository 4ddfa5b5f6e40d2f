"""Runs commands side by side, and measures what they cost."""

import dataclasses
import os
import statistics
import time


@dataclasses.dataclass
class Cost:
    wall: float  # seconds
    processor: float  # seconds, of the command and its children
    memory: int  # bytes, the greatest of any of its processes


def run(command):
    """Runs a command to its end, without its output; its cost. Raises when it fails."""
    start = time.monotonic()
    process = os.posix_spawnp(command[0], command, os.environ,
                              file_actions=[(os.POSIX_SPAWN_OPEN, 1, "/dev/null", os.O_WRONLY, 0)])
    _, status, usage = os.wait4(process, 0)
    wall = time.monotonic() - start
    if status != 0:
        raise RuntimeError(f"failed: {' '.join(command)}")
    return Cost(wall, usage.ru_utime + usage.ru_stime, usage.ru_maxrss * 1024)


def first_round(commands):
    """One round; what fails, for want of memory say, is left out."""
    costs = {}
    for name, command in commands.items():
        try:
            costs[name] = [run(command)]
        except RuntimeError:
            continue
    return costs


def side_by_side(commands, rounds):
    """The costs of each of the named commands, which take turns: {name: [Cost, ...]}."""
    costs = {name: [] for name in commands}
    for _ in range(rounds):
        for name, command in commands.items():
            costs[name].append(run(command))
    return costs


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

"""Plots, drawn by gnuplot."""

import subprocess


def draw(path, commands):
    script = [f"set terminal svg size 720,420 background '#ffffff'", f"set output '{path}'", "set key outside", "set grid"]
    subprocess.run(["gnuplot"], input="\n".join(script + commands), text=True, check=True)


def cleaning(path, ratios):
    """Ratios by the number of notes, from 1, for each name of a curve."""
    blocks = []
    curves = []
    for number, (name, values) in enumerate(ratios.items()):
        points = "\n".join(f"{notes} {value}" for notes, value in enumerate(values, 1))
        blocks.append(f"$ratios{number} << EOD\n{points}\nEOD")
        curves.append(f"$ratios{number} with linespoints title '{name}'")
    draw(path, ["set xlabel 'notes a chord'", "set ylabel 'CleanTGF / memcpy'", "set yrange [0:*]", *blocks,
                "plot " + ", ".join(curves)])


def growth(path, points, column, unit):
    """Cost over size, on logarithmic axes; `points` gives (size, seconds, bytes) by tool."""
    blocks = []
    curves = []
    for number, (tool, measured) in enumerate(points.items()):
        rows = "\n".join(f"{row[0]} {row[column]}" for row in measured)
        blocks.append(f"$tool{number} << EOD\n{rows}\nEOD")
        curves.append(f"$tool{number} with linespoints title '{tool}'")
    draw(path, ["set logscale xy", "set xlabel 'bytes of XML'", f"set ylabel '{unit}'", *blocks, "plot " + ", ".join(curves)])

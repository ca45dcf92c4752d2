#!/usr/bin/env python3
"""How the limits of one parameter follow the value of another one: writes a range of values to the first, tabulates
the limits of the second, and draws them.

    limits_curve.py DB TYPE VARIED OBSERVED [--steps N] [--svg FILE]

VARIED and OBSERVED are paths CH/G/P of numbers. VARIED is a text user's edit at each step, so that the rules of the
device run; a step that it refuses is left out.
"""

import argparse
import os
import sys

import ov_model


def parameter_at(module, path):
    try:
        channel, group, parameter = path.split("/")
        return module.Spec().channels()[channel].groups()[group].parameters()[parameter].Gui()
    except (KeyError, ValueError):
        sys.exit(f"limits_curve: no parameter {path}")


def curve(varied, observed, steps):
    """Tuples of the varied value and the limits that the observed parameter has then."""
    low, high = float(varied.Min()), float(varied.Max())
    points = []
    for step in range(steps + 1):
        text = varied.FormatValue(low + (high - low) * step / steps)
        if not varied.consistent(text):
            continue
        varied.value = text
        points.append((float(varied.Spec().value), float(observed.Min()), float(observed.Max())))
    return points


def scale(value, low, high, size):
    return 0 if high == low else round((value - low) / (high - low) * size)


def print_table(points, varied, observed):
    low = min(point[1] for point in points)
    high = max(point[2] for point in points)
    print(f"{varied.name()} [{varied.unit()}]: limits of {observed.name()} [{observed.unit()}]")
    for value, least, most in points:
        begin, end = scale(least, low, high, 50), scale(most, low, high, 50)
        print(f"{value:>10g} {least:>10g} {most:>10g}  {' ' * begin}[{'-' * (end - begin)}]")


def svg(points):
    """The band between the limits as a drawing."""
    xs = [point[0] for point in points]
    ys = [limit for point in points for limit in point[1:]]

    def place(x, y):
        return f"{scale(x, min(xs), max(xs), 600) + 20},{380 - scale(y, min(ys), max(ys), 360)}"

    band = [place(x, least) for x, least, _ in points] + [place(x, most) for x, _, most in reversed(points)]
    return ('<svg xmlns="http://www.w3.org/2000/svg" width="640" height="400">'
            f'<polygon points="{" ".join(band)}" fill="#cde" stroke="#247"/></svg>\n')


def main():
    parser = argparse.ArgumentParser(description="How the limits of one parameter follow the value of another one.")
    parser.add_argument("database", metavar="DB")
    parser.add_argument("type", metavar="TYPE")
    parser.add_argument("varied", metavar="VARIED", help="path CH/G/P of the parameter that is written")
    parser.add_argument("observed", metavar="OBSERVED", help="path of the one whose limits are asked")
    parser.add_argument("--steps", type=int, default=10, metavar="N")
    parser.add_argument("--svg", metavar="FILE", help="write the drawing as well")
    options = parser.parse_args()
    if options.steps < 1:
        parser.error("--steps must be at least 1")

    with ov_model.create("CBase_Module") as module:
        module.SetSourcePath(os.path.abspath(options.database))
        module.SetLanguage(9)
        if not module.Load(options.type):
            sys.exit(f"limits_curve: cannot load '{options.type}' from {options.database}")
        varied, observed = parameter_at(module, options.varied), parameter_at(module, options.observed)
        points = curve(varied, observed, options.steps)
        if not points:
            sys.exit(f"limits_curve: {options.varied} takes no value")
        print_table(points, varied, observed)
    if options.svg:
        with open(options.svg, "w", encoding="utf-8") as file:
            file.write(svg(points))


if __name__ == "__main__":
    main()

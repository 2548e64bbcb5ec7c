#!/usr/bin/env python3
"""Turns a list of shapes into NC code.

    shapes_to_nc.py TUNING [OUTPUT.nc]      without OUTPUT the NC text goes to standard output

The module brindle must be on PYTHONPATH. Shapes are millimetres; each is cut by the tool with the number `tool` of the
tuning. What else can be drawn is a function that adds its lines and arcs to the host.
"""
import dataclasses
import datetime
import sys

import brindle


@dataclasses.dataclass
class Rectangle:
    """Cut clockwise from its lower left corner; `radius` rounds the corners."""

    x: float
    y: float
    width: float
    height: float
    radius: float = 0.0
    tool: int = 1

    def bounds(self):
        return self.x, self.y, self.x + self.width, self.y + self.height

    def add_to(self, host):
        left, bottom, right, top = self.bounds()
        r = self.radius
        corners = [(left, top, 0, -r, r, 0), (right, top, -r, 0, 0, -r), (right, bottom, 0, r, -r, 0),
                   (left, bottom, r, 0, 0, r)]
        at = (left, bottom + r)
        for x, y, from_x, from_y, to_x, to_y in corners:
            start, end = (x + from_x, y + from_y), (x + to_x, y + to_y)
            host.add_line(self.tool, at, start)
            if r > 0:
                host.add_arc(self.tool, start, end, (x + from_x + to_x, y + from_y + to_y), clockwise=True)
            at = end


@dataclasses.dataclass
class Circle:
    """Cut counter-clockwise, as a hole is."""

    x: float
    y: float
    radius: float
    tool: int = 1

    def bounds(self):
        return self.x - self.radius, self.y - self.radius, self.x + self.radius, self.y + self.radius

    def add_to(self, host):
        start = (self.x + self.radius, self.y)
        host.add_arc(self.tool, start, start, (self.x, self.y))


@dataclasses.dataclass
class Line:
    x1: float
    y1: float
    x2: float
    y2: float
    tool: int = 1

    def bounds(self):
        return min(self.x1, self.x2), min(self.y1, self.y2), max(self.x1, self.x2), max(self.y1, self.y2)

    def add_to(self, host):
        host.add_line(self.tool, (self.x1, self.y1), (self.x2, self.y2))


# A card with a crease, two holes and rounded corners: what is inside is cut before the outline.
SHAPES = [
    Line(0.0, 25.0, 80.0, 25.0, tool=2),
    Circle(15.0, 12.5, 4.0),
    Circle(65.0, 12.5, 4.0),
    Rectangle(0.0, 0.0, 80.0, 50.0, radius=5.0),
]


def nc_of(shapes, tuning, name):
    """The NC text of the shapes, and the messages of the run."""
    bounds = [shape.bounds() for shape in shapes]
    left, bottom = (min(box[axis] for box in bounds) for axis in (0, 1))
    right, top = (max(box[axis] for box in bounds) for axis in (2, 3))
    now = datetime.datetime.now()
    with brindle.Host() as host:
        host.load_tuning(tuning)
        host.set_job(date=f"{now:%Y-%m-%d}", time=f"{now:%H:%M:%S}", drawing_name=name, blank=(right, top))
        host.start_main(name, center=((left + right) / 2, (bottom + top) / 2))
        for shape in shapes:
            shape.add_to(host)
        return host.run(), host.messages()


def main(arguments):
    if len(arguments) not in (1, 2):
        print(__doc__, file=sys.stderr)
        return 2
    try:
        nc, messages = nc_of(SHAPES, arguments[0], "CARD")
        for message in messages:
            print(f"shapes_to_nc: warning: {message}", file=sys.stderr)
        if len(arguments) == 1:
            sys.stdout.buffer.write(nc.text.encode())
        else:
            brindle.write_nc(arguments[1], nc.segments)
    except (brindle.BrindleError, OSError) as error:
        print(f"shapes_to_nc: {error}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))

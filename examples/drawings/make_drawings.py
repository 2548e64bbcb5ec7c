#!/usr/bin/env python3
"""Makes the example drawings, CFF2 files in millimetres, beside this script.

    make_drawings.py [-o FOLDER] [NAME...]      all of them, or those named

Line types are 1 cut, 2 crease, 3 perforation, unless a drawing's comment file says otherwise. An arc's radius word is
its radius, positive for clockwise and negative for counter-clockwise.
"""
import argparse
import math
import pathlib

CUT, CREASE, PERFORATION = 1, 2, 3


def number(value):
    text = f"{value:.3f}".rstrip("0").rstrip(".")
    return "0" if text == "-0" else text


class Shapes:
    """Records of one program, in the order in which they are to be cut. `bridge_every` puts a bridge of `bridge_width`
    into each piece of that length, from the next record on; 0 stops that."""

    def __init__(self, cut_width=0.7):
        self.records = []
        self.cut_width = cut_width
        self.bridge_every = 0
        self.bridge_width = 6

    def _bridges(self, length):
        count = int(length / self.bridge_every) if self.bridge_every else 0
        return count, self.bridge_width if count else 0

    def line(self, tool, start, end):
        count, width = self._bridges(math.dist(start, end))
        words = [self.cut_width, tool, 0, *start, *end, count, width]
        self.records.append("L," + ",".join(map(number, words)))

    def arc(self, tool, start, end, center, clockwise):
        radius = math.dist(start, center)
        assert math.isclose(radius, math.dist(end, center), abs_tol=0.001), (start, end, center)
        count, width = self._bridges(radius * sweep(start, end, center, clockwise))
        words = [self.cut_width, tool, 0, *start, *end, *center, radius if clockwise else -radius, width, count]
        self.records.append("A," + ",".join(map(number, words)))

    def circle(self, tool, center, radius, clockwise=False):
        start = (center[0] + radius, center[1])
        self.arc(tool, start, start, center, clockwise)

    def path(self, tool, points, closed=False):
        """Lines through `points`; a point with a third number is rounded with that radius."""
        corners = [corner(*neighbours) for neighbours in zip(*shifted(points, closed))]
        if not closed:
            corners = [(points[0], None, points[0]), *corners, (points[-1], None, points[-1])]
        following = corners[1:] + corners[:1] if closed else corners[1:]
        for (_, _, leave), (arrive, arc, leave_next) in zip(corners, following):
            if math.dist(leave[:2], arrive[:2]) > 0.0005:
                self.line(tool, leave[:2], arrive[:2])
            if arc:
                self.arc(tool, arrive, leave_next, *arc)

    def text(self, at, height, degrees, text):
        words = ["T", "0", "0", "0", number(at[0]), number(at[1]), f"{math.radians(degrees):.6f}", str(height), "0"]
        self.records += [",".join(words), text]

    def call(self, name, at, degrees=0, mirror_x=False, mirror_y=False):
        place = f"{number(at[0])},{number(at[1])},{math.radians(degrees):.6f}"
        self.records.append(f"C,{name},{place},{int(mirror_x)},{int(mirror_y)}")


def sweep(start, end, center, clockwise):
    """The angle of an arc; a full turn if it ends where it starts."""
    turn = angle(center, end) - angle(center, start)
    return (-turn if clockwise else turn) % math.tau or math.tau


def angle(origin, point):
    return math.atan2(point[1] - origin[1], point[0] - origin[0])


def shifted(points, closed):
    """Each corner's predecessor, the corner, its successor."""
    if closed:
        return points[-1:] + points[:-1], points, points[1:] + points[:1]
    return points[:-2], points[1:-1], points[2:]


def corner(before, at, after):
    """Where the path arrives at a corner, (center, clockwise) of its rounding or None, where the path goes on."""
    if len(at) < 3:
        return at, None, at
    x, y, radius = at
    towards, away = angle(at, before), angle(at, after)
    half = ((away - towards + math.pi) % math.tau - math.pi) / 2
    cut_back = abs(radius / math.tan(half))
    center_distance = abs(radius / math.sin(half))
    center = (x + center_distance * math.cos(towards + half), y + center_distance * math.sin(towards + half))
    arrive = (x + cut_back * math.cos(towards), y + cut_back * math.sin(towards))
    leave = (x + cut_back * math.cos(away), y + cut_back * math.sin(away))
    clockwise = (at[0] - before[0]) * (after[1] - y) - (y - before[1]) * (after[0] - x) < 0
    return arrive, (center, clockwise), leave


def file_text(name, size, main, subs=()):
    corner_words = ",".join(map(number, size))
    lines = ["$BOF", "V2", "ORDER", "END", f"MAIN,{name}", "UM", "LL,0,0", f"UR,{corner_words}", "SCALE,1,1"]
    lines += main.records + ["END"]
    for sub_name, shapes in subs:
        lines += [f"SUB,{sub_name}", *shapes.records, "END"]
    return "".join(line + "\n" for line in lines + ["$EOF"])


# ---- folding_box: a carton with tuck-in lids, 80 x 40 x 110 mm, laid flat ----

def folding_box():
    glue, front, side, back, last = 14, 94, 134, 214, 253.5  # right edge of the glue flap and of the four panels
    bottom, top, height = 55, 165, 220

    def mirrored(points):
        return [(point[0], height - point[1], *point[2:]) for point in reversed(points)]

    dust_1 = [(front, top), (front + 1, top + 4), (front + 5, top + 24, 5), (side - 7, top + 24, 8),
              (side - 1, top + 6), (side, top)]
    lid = [(side, top), (side, height, 12), (back, height, 12), (back, top)]
    dust_2 = [(back, top), (back + 1, top + 6), (back + 7, top + 24, 8), (last - 5, top + 24, 5),
              (last - 1, top + 4), (last, top)]

    box = Shapes()
    box.bridge_every = 60
    for x in (glue, front, side, back):
        box.line(CREASE, (x, bottom), (x, top))
    for y in (bottom, top):
        box.line(CREASE, (front, y), (side, y))
        box.line(CREASE, (side + 5, y), (back - 5, y))
        box.line(CREASE, (back, y), (last, y))
    for y in (bottom - 40, top + 40):
        box.line(CREASE, (side + 6, y), (back - 6, y))
    box.bridge_every = 0
    box.line(PERFORATION, (glue, 140), (front, 140))
    for y in (bottom, top):  # slits at the ends of the lid's creases
        box.line(CUT, (side, y), (side + 5, y))
        box.line(CUT, (back, y), (back - 5, y))
    for y in (bottom - 40, top + 40):
        box.line(CUT, (side, y), (side + 6, y))
        box.line(CUT, (back, y), (back - 6, y))
    # The outline, clockwise from the upper left corner of the front panel, with a thumb notch in its upper edge.
    box.bridge_every = 50
    box.line(CUT, (glue, top), (45, top))
    box.arc(CUT, (45, top), (63, top), (54, top), clockwise=False)
    box.line(CUT, (63, top), (front, top))
    box.path(CUT, dust_1)
    box.path(CUT, lid)
    box.path(CUT, dust_2)
    box.line(CUT, (last, top), (last, bottom))
    box.path(CUT, mirrored(dust_2))
    box.path(CUT, mirrored(lid))
    box.path(CUT, mirrored(dust_1))
    box.line(CUT, (front, bottom), (glue, bottom))
    box.path(CUT, [(glue, bottom), (0, bottom + 6, 3), (0, top - 6, 3), (glue, top)])
    return file_text("FOLDING_BOX", (last, height), box)


# ---- plate: a base plate of circles and slots ----

def plate():
    shapes = Shapes(cut_width=0.2)
    for center in ((15, 15), (185, 15), (185, 105), (15, 105)):
        shapes.circle(CUT, center, 4)
    for step in range(6):
        turn = math.radians(60 * step)
        shapes.circle(CUT, (100 + 32 * math.cos(turn), 60 + 32 * math.sin(turn)), 2.5, clockwise=step % 2 == 1)
    shapes.circle(CUT, (100, 60), 20, clockwise=True)
    for left, right, low, high in ((36, 44, 40, 80), (156, 164, 40, 80)):  # upright slots with round ends
        middle = (left + right) / 2
        shapes.line(CUT, (left, low), (left, high))
        shapes.arc(CUT, (left, high), (right, high), (middle, high), clockwise=True)
        shapes.line(CUT, (right, high), (right, low))
        shapes.arc(CUT, (right, low), (left, low), (middle, low), clockwise=True)
    slot = [(x, y, 3) for x, y in ((70, 8), (130, 8), (130, 14), (70, 14))]
    shapes.path(CUT, slot, closed=True)
    shapes.line(CREASE, (0, 20), (200, 20))
    shapes.path(CUT, [(0, 0, 10), (0, 120, 10), (200, 120, 10), (200, 0, 10)], closed=True)
    return file_text("PLATE", (200, 120), shapes)


# ---- large: a sheet of rounded hexagons ----

def large():
    shapes = Shapes(cut_width=0.2)
    columns, rows, radius, rounding = 43, 39, 11, 2
    spacing_x, spacing_y = 26, 22.5
    for row in range(rows):
        for step in range(columns):
            column = step if row % 2 == 0 else columns - 1 - step  # to and fro
            x = 25 + column * spacing_x + (spacing_x / 2 if row % 2 else 0)
            y = 20 + row * spacing_y
            turns = [math.radians(60 * corner_number + 30) for corner_number in range(6)]
            ring = [(x + radius * math.cos(turn), y + radius * math.sin(turn), rounding) for turn in turns]
            shapes.path(CUT, ring, closed=True)
    shapes.path(CUT, [(0, 0), (0, 900), (1180, 900), (1180, 0)], closed=True)
    return file_text("LARGE", (1180, 900), shapes)


# ---- nested_sheet: two parts, called many times, turned and mirrored ----

def nested_sheet():
    sheet = Shapes(cut_width=0.2)
    sheet.circle(CUT, (10, 10), 3)
    sheet.circle(CUT, (290, 190), 3)
    sheet.call("BRACKET", (20, 20))
    sheet.call("BRACKET", (130, 20), mirror_x=True)
    sheet.call("BRACKET", (20, 110), mirror_y=True)
    sheet.call("BRACKET", (200, 20), degrees=90)
    sheet.call("BRACKET", (210, 100), degrees=30, mirror_x=True)
    sheet.call("BRACKET", (130, 150), degrees=180)
    sheet.call("WASHER", (240, 40))
    sheet.call("WASHER", (270, 40), degrees=45)
    sheet.call("WASHER", (270, 70), degrees=45, mirror_y=True)
    sheet.path(CUT, [(0, 0), (300, 0), (300, 200), (0, 200)], closed=True)

    bracket = Shapes(cut_width=0.2)
    bracket.circle(CUT, (8, 8), 2.5)
    bracket.arc(CUT, (30, 12), (40, 12), (35, 12), clockwise=True)
    bracket.line(CREASE, (15, 0), (15, 20))
    bracket.path(CUT, [(0, 0, 3), (50, 0), (50, 8, 4), (20, 20), (15, 40, 3), (0, 40)], closed=True)
    washer = Shapes(cut_width=0.2)
    washer.circle(CUT, (0, 0), 4)
    washer.line(CREASE, (4, 0), (7, 0))
    washer.circle(CUT, (0, 0), 9, clockwise=True)
    return file_text("NESTED_SHEET", (300, 200), sheet, [("BRACKET", bracket), ("WASHER", washer)])


# ---- knife_sheet: sharp corners, soft corners, smooth chains ----

def knife_sheet():
    shapes = Shapes(cut_width=0.2)
    star = [(60 + radius * math.sin(math.radians(36 * i)), 60 + radius * math.cos(math.radians(36 * i)))
            for i, radius in ((i, 50 if i % 2 == 0 else 22) for i in range(10))]
    shapes.path(CUT, star, closed=True)
    # A leaf of short chords that turn by 6 degrees each, and by far more at its two tips.
    upper = [(200 - 70 * math.cos(math.radians(a)), 25 + 70 * math.sin(math.radians(a))) for a in range(30, 151, 6)]
    lower = [(x, 120 - y) for x, y in reversed(upper)]
    shapes.path(CUT, upper + lower[1:-1], closed=True)
    # Straights and quarter arcs that meet without a kink.
    shapes.path(CREASE, [(300, 20, 15), (300, 100, 15), (400, 100, 15), (400, 20, 15)], closed=True)
    shapes.path(CUT, [(280, 10, 20), (280, 110, 20), (420, 110, 20), (420, 10, 20)], closed=True)
    # A wave of arcs.
    for step in range(4):
        x = 20 + 40 * step
        shapes.arc(CUT, (x, 140), (x + 20, 140), (x + 10, 130), clockwise=True)
        shapes.arc(CUT, (x + 20, 140), (x + 40, 140), (x + 30, 150), clockwise=False)
    return file_text("KNIFE_SHEET", (440, 160), shapes)


# ---- engraving: a name plate ----

def engraving():
    shapes = Shapes(cut_width=0.3)
    shapes.text((12, 46), 8, 0, "PUMP STATION 4")
    shapes.text((12, 34), 5, 0, "TYPE \"K\" 250")
    shapes.text((12, 24), 5, 0, "SERIAL 0815-4711")
    shapes.text((110, 12), 5, 90, "SERVICE")
    shapes.text((100, 12), 4, 45, "230 V")
    shapes.line(1, (10, 42), (90, 42))
    shapes.line(1, (10, 20), (90, 20))
    shapes.path(2, [(0, 0, 5), (0, 60, 5), (120, 60, 5), (120, 0, 5)], closed=True)
    return file_text("NAME_PLATE", (120, 60), shapes)


DRAWINGS = (folding_box, plate, large, nested_sheet, knife_sheet, engraving)


def main():
    makers = {maker.__name__: maker for maker in DRAWINGS}
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("-o", "--output", metavar="FOLDER", default=pathlib.Path(__file__).parent, type=pathlib.Path)
    parser.add_argument("names", metavar="NAME", nargs="*", help="of " + ", ".join(makers))
    options = parser.parse_args()
    for name in options.names or makers:
        if name not in makers:
            parser.error(f"no drawing {name}")
        (options.output / f"{name}.cf2").write_text(makers[name](), encoding="utf-8", newline="")


if __name__ == "__main__":
    main()

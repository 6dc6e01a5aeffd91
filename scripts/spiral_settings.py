#!/usr/bin/env python3
"""Writes the settings of the sample "spiral": two arms of stars that wind out of a bright core, seven empires that
hold the arms, and a small companion of the eighth.
Usage: scripts/spiral_settings.py > share/settings/spiral.txt

Every origin is a region of its own, and regions grow until they meet: stars sown close together stay small, while the
few origins between the arms keep the empires and the stars out of the void."""

import math
import pathlib
import random
import sys

WIDTH, HEIGHT = 160, 120
# Places are in cell heights from the map's upper left corner; columns are this far apart.
COLUMN = math.sqrt(3) / 2
RIGHT, BOTTOM = WIDTH * COLUMN, HEIGHT
CENTRE = (RIGHT / 2, BOTTOM / 2)
COMPANION = (117, 17)

VOID, RED, ORANGE, YELLOW, WHITE, BLUE, NEUTRON = range(7)
FREE, AURELIA, BOREA, CORVUS, DRAKON, ELYSIA, FERONIA, GALATEA, HYDRA = range(9)
ARMS = ((FERONIA, AURELIA, DRAKON), (HYDRA, BOREA, GALATEA))
EMPIRES_BEGIN = 0.17

STAR_GAP, VOID_GAP = 2.2, 6


def around(centre, radius, angle):
    """The whole galaxy is a little wider than high, as the map is."""
    return centre[0] + 1.2 * radius * math.cos(angle), centre[1] + radius * math.sin(angle)


def arm_place(arm, along):
    """A logarithmic spiral; `along` is 0 at the core and 1 at the arm's end."""
    return around(CENTRE, 8 * 6.2 ** along, math.pi * arm + 2.3 * math.pi * along + 0.5)


def is_inside(place):
    return 0 <= place[0] < RIGHT and 0 <= place[1] < BOTTOM


class Sown:
    """Origins of stars, none nearer to another than it asks for."""

    def __init__(self):
        self.origins = []

    def sow(self, place, star, gap=STAR_GAP):
        if is_inside(place) and all(math.dist(place, other) >= gap for other, _ in self.origins):
            self.origins.append((place, star))


def pick(*weights):
    """A star by its weight: void, red, orange, yellow, white, blue, neutron."""
    return random.choices(range(7), weights)[0]


def sow_ball(sown, centre, radius):
    """Yellow and white inside, red and orange at the rim."""
    for _ in range(3000):
        distance = radius * math.sqrt(random.random())
        star = pick(0, 0, 25, 50, 25, 0, 0) if distance < 0.7 * radius else pick(10, 20, 45, 20, 5, 0, 0)
        sown.sow(around(centre, distance, random.uniform(0, 2 * math.pi)), star)


def sow_arms(sown):
    """Blue and white along the middle, red and void beside it."""
    for _ in range(8000):
        along, aside = random.random(), random.gauss(0, 1)
        x, y = arm_place(random.randrange(2), along)
        distance, angle = aside * (1.5 + 1.8 * along), random.uniform(0, 2 * math.pi)
        star = pick(0, 10, 8, 12 * (1 - along), 34, 40, 10) if abs(aside) < 0.9 else pick(45, 30, 10, 2, 4, 6, 8)
        sown.sow((x + distance * math.cos(angle), y + distance * math.sin(angle)), star)


def star_origins():
    sown = Sown()
    sow_ball(sown, CENTRE, 10)
    sow_ball(sown, COMPANION, 5)
    sow_arms(sown)
    for _ in range(20000):
        sown.sow((random.uniform(0, RIGHT), random.uniform(0, BOTTOM)), VOID, VOID_GAP)
    return sown.origins


def beside(arm, along, distance):
    """The two places at this distance from an arm's middle line."""
    (x, y), (next_x, next_y) = arm_place(arm, along), arm_place(arm, along + 0.01)
    angle = math.atan2(next_y - y, next_x - x) + math.pi / 2
    for side in (distance, -distance):
        yield x + side * math.cos(angle), y + side * math.sin(angle)


def arm_origins(arm):
    """Capitals and provinces along an arm, each between two origins that are free."""
    last = CENTRE
    for step in range(1000):
        along = EMPIRES_BEGIN + (1 - EMPIRES_BEGIN) * step / 1000
        place = arm_place(arm, along)
        if math.dist(place, last) < 5 + 4 * along:
            continue
        last = place
        yield place, ARMS[arm][int(3 * step / 1000)]
        for free in beside(arm, along, 8 + 6 * along):
            if math.dist(free, CENTRE) > 11:
                yield free, FREE


def ring(centre, radius, count):
    return [around(centre, radius, 2 * math.pi * place / count) for place in range(count)]


def empire_origins():
    origins = [(CENTRE, CORVUS), (COMPANION, ELYSIA)]
    origins += [(place, FREE) for place in ring(COMPANION, 15, 8)]
    for arm in range(2):
        origins += arm_origins(arm)
        origins += [(arm_place(arm, 1.07), FREE)]
    return [(place, empire) for place, empire in origins if is_inside(place)]


def percent(part, whole):
    return f"{100 * part / whole:.1f}"


def region(number, member, origins):
    yield f"[Fill/Region/{number}]"
    yield f'member="{member}"'
    for place, ((x, y), value) in enumerate(origins):
        yield f"[Fill/Region/{number}/Values/{place}]"
        yield from (f"value={value}", f"x={percent(x, RIGHT)}", f"y={percent(y, BOTTOM)}")


def stray_stars():
    """What border cells and origins show, since no region stores a value there."""
    yield from ("[Fill/Global/0]", 'member="Star"', "coverage=9")
    for place, (star, share) in enumerate(((RED, 50), (YELLOW, 25), (BLUE, 25))):
        yield from (f"[Fill/Global/0/Values/{place}]", f"value={star}", f"share={share}")


def main():
    random.seed(9)
    definitions = pathlib.Path(__file__).parent.parent / "share/Definitions.txt"
    classes = [line for line in definitions.read_text().splitlines() if line and not line.startswith("//")]
    lines = ["// Two arms of stars and the empires that hold them. Written by scripts/spiral_settings.py.", "", *classes, ""]
    lines += ["[Fill]", f"Width={WIDTH}", f"Height={HEIGHT}", "Seed=3", *stray_stars()]
    lines += [*region(0, "Star", star_origins()), *region(1, "Empire", empire_origins())]
    sys.stdout.buffer.write("".join(line + "\r\n" for line in lines).encode())


main()

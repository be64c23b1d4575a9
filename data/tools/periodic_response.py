#!/usr/bin/env python3
"""Steady U-factor, time lag and decrement factor of a layered construction.

ISO 13786 periodic (24 h) heat transfer matrices: each layer's matrix from its
thickness, conductivity, density and specific heat, air films and massless
insulation as pure resistances, multiplied from the inside surface outwards.
Decrement = |Y12| / U; time lag = the phase of Y12 in hours. Used for the
"computed" rows of data/constructions.csv (run it to see them).
"""
import cmath
import math

RIP = 0.17611   # m2.K/W per h.ft2.F/Btu
W_IP = 5.678263  # W/m2.K per Btu/h.ft2.F
PERIOD = 86400.0


def layer(d, k, rho, c):
    delta = math.sqrt(k * PERIOD / (math.pi * rho * c))
    a = complex(1, 1) * d / delta
    return [[cmath.cosh(a), -delta / (k * complex(1, 1)) * cmath.sinh(a)],
            [-k * complex(1, 1) / delta * cmath.sinh(a), cmath.cosh(a)]]


def resistance(r_ip):
    return [[1, -r_ip * RIP], [0, 1]]


def mul(a, b):
    return [[a[0][0] * b[0][0] + a[0][1] * b[1][0], a[0][0] * b[0][1] + a[0][1] * b[1][1]],
            [a[1][0] * b[0][0] + a[1][1] * b[1][0], a[1][0] * b[0][1] + a[1][1] * b[1][1]]]


def response(layers, r_inside, r_outside=0.17):
    """layers outside to inside: ('R', r_ip) or ('L', m, W/m.K, kg/m3, J/kg.K)."""
    z = resistance(r_inside)
    r_total = (r_inside + r_outside) * RIP
    for item in reversed(layers):
        if item[0] == 'R':
            z = mul(z, resistance(item[1]))
            r_total += item[1] * RIP
        else:
            z = mul(z, layer(*item[1:]))
            r_total += item[1] / item[2]
    z = mul(z, resistance(r_outside))
    y12 = -1 / z[0][1]
    u = 1 / r_total
    lag = (PERIOD / 3600) / (2 * math.pi) * ((-cmath.phase(y12)) % (2 * math.pi))
    return u / W_IP, lag, abs(y12) / u


CONCRETE_8 = ('L', 0.2032, 1.311, 2240, 836.8)
CONCRETE_6 = ('L', 0.1524, 1.311, 2240, 836.8)
GYPSUM = ('L', 0.0127, 0.16, 784.9, 830)
PLYWOOD_58 = ('L', 0.0159, 0.12, 544, 1210)
PLYWOOD_34 = ('L', 0.0191, 0.12, 544, 1210)
WALL, ROOF, FLOOR = 0.68, 0.61, 0.92

ROWS = [
    ('19 8in concrete, R-15 c.i.', [CONCRETE_8, ('R', 15), GYPSUM], WALL),
    ('20 wood frame 2x6 R-19, R-15 c.i.', [('R', 15), PLYWOOD_58, ('R', 13.2), GYPSUM], WALL),
    ('23 attic, R-60 ceiling', [('R', 50), GYPSUM], ROOF),
    ('24 6in concrete floor, R-20 c.i.', [('R', 20), CONCRETE_6], FLOOR),
    ('25 wood joist floor, R-30', [('R', 28), PLYWOOD_34], FLOOR),
    # Checks against the reference sheet's own values (W4 0.074 / 6.7 h / 0.38).
    ('check: 8in concrete alone', [CONCRETE_8], WALL),
    ('check: 8in concrete, R-11.4, gypsum', [CONCRETE_8, ('R', 11.4), GYPSUM], WALL),
]

if __name__ == '__main__':
    for name, layers, r_in in ROWS:
        u, lag, dec = response(layers, r_in)
        print(f'{name:40s} U {u:.3f}  lag {lag:4.1f} h  decrement {dec:.2f}')

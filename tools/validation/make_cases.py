#!/usr/bin/env python3
"""Writes the standard single-zone test cases (600, 900) as ordinary I-P
project files, with their control files.

Time lag and decrement factor of each construction come from its layers by
the periodic (24 h) transfer-matrix method of ISO 13786: the decrement factor
is |Y12| / U and the time lag is the phase delay of Y12 in hours. The internal
mass is the inner sides' areal heat capacity by the same method.

usage: make_cases.py <output folder>
"""
import cmath
import math
import os
import sys

PERIOD = 86400.0
W_M2K_TO_IP = 0.1761102          # W/m2K -> Btu/h ft2 F
M2_TO_FT2 = 10.76391
M_TO_FT = 1.0 / 0.3048
MJK_TO_BTUF = 1e6 / 1055.056 / 1.8


def layer_matrix(d, lam, rho, c):
    delta = math.sqrt(lam * PERIOD / (math.pi * rho * c))
    x = d / delta
    ch, sh, co, si = math.cosh(x), math.sinh(x), math.cos(x), math.sin(x)
    z11 = complex(ch * co, sh * si)
    z12 = -delta / (2 * lam) * complex(sh * co + ch * si, ch * si - sh * co)
    z21 = -lam / delta * complex(sh * co - ch * si, sh * co + ch * si)
    return [[z11, z12], [z21, z11]]


def resistance_matrix(r):
    return [[1, -r], [0, 1]]


def mul(a, b):
    return [[a[0][0] * b[0][0] + a[0][1] * b[1][0], a[0][0] * b[0][1] + a[0][1] * b[1][1]],
            [a[1][0] * b[0][0] + a[1][1] * b[1][0], a[1][0] * b[0][1] + a[1][1] * b[1][1]]]


def periodic_response(layers, films):
    """layers outside -> inside: (d, lambda, rho, c) or ('R', r); films (h_in, h_out) W/m2K.
    Returns (U air-to-air, decrement, lag h)."""
    r_si, r_se = 1.0 / films[0], 1.0 / films[1]
    z = resistance_matrix(r_se)
    r_total = r_se + r_si
    for layer in layers:
        if layer[0] == 'R':
            m = resistance_matrix(layer[1])
            r_total += layer[1]
        else:
            m = layer_matrix(*layer)
            r_total += layer[0] / layer[1]
        z = mul(m, z)
    z = mul(resistance_matrix(r_si), z)
    y12 = -1.0 / z[0][1]
    u = 1.0 / r_total
    lag = (-cmath.phase(y12)) % (2 * math.pi) * 24.0 / (2 * math.pi)
    return u, abs(y12) / u, lag


def engine_construction_capacity(u_ip, lag):
    """What the engine adds to the room's capacity per ft2 of an opaque row (Btu/ft2F)."""
    return min(10.0, 0.26 * u_ip * lag * lag)


# The room's capacity is what its constructions store over a day: the ISO 13786
# areal heat capacity of each construction's inner side at the 24 h period, not
# the layers' full capacity (a 100 mm concrete layer behind its surface stores
# 78 % of its capacity in a daily cycle). It is taken at the inner surface: the
# engine's network carries the inside film itself, between mass and room.
R_SE = 1.0 / 25.0


def areal_capacity(layers):
    """Areal heat capacity of the inner side at the surface, J/m2K."""
    r_si, r_se = 0.0, R_SE
    z = resistance_matrix(r_se)
    for layer in layers:
        z = mul(resistance_matrix(layer[1]) if layer[0] == 'R' else layer_matrix(*layer), z)
    z = mul(resistance_matrix(r_si), z)
    return PERIOD / (2 * math.pi) * abs((z[1][1] - 1) / z[0][1])


WALL_600 = [(0.009, 0.14, 530, 900), (0.066, 0.04, 12, 840), (0.012, 0.16, 950, 840)]
WALL_900 = [(0.009, 0.14, 530, 900), (0.0615, 0.04, 10, 1400), (0.100, 0.51, 1400, 1000)]
ROOF = [(0.019, 0.14, 530, 900), (0.1118, 0.04, 12, 840), (0.010, 0.16, 950, 840)]
FLOOR_600 = [('R', 25.075), (0.025, 0.14, 650, 1200)]
FLOOR_900 = [('R', 25.175), (0.080, 1.13, 1400, 1000)]
# Surface coefficients (interior, exterior) W/m2K of the edition that runs on
# 725650TYCST.epw. They are the combined coefficients its air-to-air U-values
# are defined with (walls 0.418/0.417, roof 0.276, floor 0.039, window 2.10);
# the older edition's 8.29/29.3 films belong to its own weather file and must
# not be mixed with this one.
FILMS_WALL, FILMS_ROOF, FILMS_FLOOR = (1.8, 21.6), (1.7, 21.8), (3.7, 5.2)
U_WALL = periodic_response(WALL_600, FILMS_WALL)[0]
U_WALL_HEAVY = periodic_response(WALL_900, FILMS_WALL)[0]
U_ROOF = periodic_response(ROOF, FILMS_ROOF)[0]
U_WINDOW = 2.10
SHGC, DL_TRANS = 0.769, 0.79

FLOOR_M2, N_WALL, E_WALL, WINDOW, HEIGHT = 48.0, 21.6, 16.2, 12.0, 2.7
OPAQUE_WALLS = 2 * N_WALL + 2 * E_WALL - WINDOW


def num(v, digits=4):
    """A value as the project file prints a number: leading blank, no leading zero."""
    s = ('%.*f' % (digits, v)).rstrip('0').rstrip('.')
    if s.startswith('0.'):
        s = s[1:]
    if s.startswith('-0.'):
        s = '-' + s[2:]
    return (' ' if v >= 0 else '') + s + ' '


# Denver's monthly statistics as the project file's weather block holds them.
DENVER_STATS = [
    '          Jan   Feb   Mar   Apr   May   Jun   Jul   Aug   Sep   Oct   Nov   Dec',
    'DB Ave   29.7  33.4  39.0  48.2  57.2  66.9  73.5  71.4  62.3  51.4  39.0  30.3',
    'Ave std   7.8   7.4   6.9   6.3   5.5   4.8   3.4   3.6   5.0   5.8   7.0   7.6',
    'DB Max   43.2  46.6  52.2  61.8  70.8  81.4  88.2  85.8  77.5  66.3  52.5  44.5',
    'Max std   9.6   9.1   8.7   8.0   7.1   6.0   4.4   4.6   6.3   7.6   8.9   9.4',
    'DP Ave   14.2  16.8  20.1  25.6  35.7  43.8  49.2  49.0  39.2  27.9  19.6  14.8',
    'DP std    8.6   8.4   8.8   8.7   7.6   6.3   5.1   5.2   6.8   8.0   8.4   8.7',
    'SOLAR     840  1120  1510  1890  2090  2310  2270  2030  1730  1290   900   740',
    'WIND      8.7   8.9   9.7  10.2   9.6   9.0   8.5   8.1   8.2   8.1   8.4   8.5',
]


def wall_type(i, name, absorb, layers, films):
    u, dec, lag = periodic_response(layers, films)
    return ['ID. #     %d' % i, 'Descript. ' + name, 'U-Factor  ' + num(u * W_M2K_TO_IP).strip(),
            'Solar Abs ' + num(absorb).strip(), 'Time Lag  ' + num(lag, 2).strip(),
            'Dec. Fact ' + num(dec, 3).strip(), 'Ins. Cost 0']


def row(wall_id, area_m2, orient, exposure, slope, window_m2=0.0, sill_m=0.0, top_m=0.0):
    return ['Wall ID.  ' + num(wall_id), 'Wall Area ' + num(area_m2 * M2_TO_FT2, 2), 'WallOrien ' + num(orient),
            'Surf Exp. ' + num(exposure), 'Ext. Shd. N0', 'Window ID ' + num(1 if window_m2 else 0),
            'Win. Area ' + num(window_m2 * M2_TO_FT2, 2), 'Rf/Wl Slp ' + num(slope), 'S/W/B     B',
            'Ven. Blnd  0 ', 'DiffTrans  0 ', 'Sill High ' + num(sill_m * M_TO_FT, 3),
            'Window Ht ' + num(top_m * M_TO_FT, 3), 'Grnd Refl  .2 ']


def sketch(height_ft, area_ft2):
    lines = ['Grid Size   : 1', 'Orientation : 0', 'No. of Flrs : 1', 'Room Height :' + num(height_ft, 3).rstrip(),
             'Floor Area  :' + num(area_ft2, 2).rstrip(), 'Section Area:' + num(area_ft2, 2).rstrip()]
    for z in range(1, 26):
        lines.append('ZoneName[%d%s]: Zone 1-%d' % (z, ' ' if z < 10 else '', z))
    for r in range(60, 0, -1):
        cells = ('0' * 10 + '1' * 8 + '0' * 62) if 20 <= r < 26 else '0' * 80
        lines.append(cells + ' ')
    return lines


def case(heavy):
    wall_layers = WALL_900 if heavy else WALL_600
    floor_layers = FLOOR_900 if heavy else FLOOR_600
    interior = (areal_capacity(wall_layers) * OPAQUE_WALLS + areal_capacity(ROOF) * FLOOR_M2 +
                areal_capacity(floor_layers) * FLOOR_M2) / 1e6 * MJK_TO_BTUF
    area_ft2 = FLOOR_M2 * M2_TO_FT2
    # The engine counts 1 Btu/ft2F of furnishings and, for every opaque row, a
    # capacity from the construction's U and lag; the rest is internal mass.
    engine_own = area_ft2 * 1.0
    for layers, films, area_m2 in ((wall_layers, FILMS_WALL, OPAQUE_WALLS), (ROOF, FILMS_ROOF, FLOOR_M2),
                                   (floor_layers, FILMS_FLOOR, FLOOR_M2)):
        u, _, lag = periodic_response(layers, films)
        engine_own += area_m2 * M2_TO_FT2 * engine_construction_capacity(round(u * W_M2K_TO_IP, 4), round(lag, 2))
    internal_mass = (interior - engine_own) / area_ft2 / 0.2
    name = 'Case 900 heavyweight' if heavy else 'Case 600 lightweight'
    lines = ['MARLOVEN  .83774665  4  IP',
             'Bld. Type Test cell', 'Proj.Name Standard test ' + ('900' if heavy else '600'),
             'Proj.Desc 8 x 6 x 2.7 m single zone, 12 m2 south glazing', 'Location  Denver CO',
             'Dsgn. Stg Validation', 'Schm. Num 1', 'Con. Year 2025', 'Orient.   0', 'FloorArea ' + num(area_ft2, 2).strip(),
             'Con. Cost 0', 'Occ. Days 7', 'An Hldays 0', 'WEATHER',
             ' ' * 51 + 'WMO#  Lat. Long.  STM.  Elev',
             ('DENVER INTL AP, CO').ljust(50) + '72565' + '  39.8' + ' 104.7' + '     7' + '  5413',
            ] + DENVER_STATS + [
             'DesTemps   91.3  57.4 -2.1 ', 'ECONOMICS',
             'Econ.Life 20', 'Mech.Life 20', 'SolarLife 20', 'Disc.Rate 3', 'Cost Esc. 2', 'Elec.Cost .1',
             'Elec.Esc. 2', 'Gas  Cost 1', 'Gas  Esc. 2', 'WaterCost 4', 'WaterEsc. 2', 'DemCharge  N',
             'WALL AND ROOF PROPERTIES']
    lines += wall_type(1, 'Heavy wall: siding, foam, concrete block' if heavy else 'Light wall: siding, fiberglass, plasterboard',
                       0.6, wall_layers, FILMS_WALL)
    lines += wall_type(2, 'Roof: deck, fiberglass, plasterboard', 0.6, ROOF, FILMS_ROOF)
    lines += wall_type(3, 'Insulated raised floor' + (', concrete slab' if heavy else ', timber'), 0.0, floor_layers,
                       FILMS_FLOOR)
    lines += ['9999', 'WINDOW PROPERTIES', 'ID. #     1', 'Descript. Double clear, 12 mm air gap',
              'U-Factor  ' + num(U_WINDOW * W_M2K_TO_IP).strip(), 'S.H.G.C.  ' + num(SHGC).strip(), 'Emissiv.  .84',
              'DL. Trans ' + num(DL_TRANS).strip(), 'Ins. Cost 0', '9999',
              'PROFILES', 'Occ', '1', ' ' + ' '.join(['0'] * 24), '99', 'HW', '1', ' ' + ' '.join(['0'] * 24), '99',
              'Vent', '1', ' ' + ' '.join(['0'] * 24), '99', 'Lite', '1', ' ' + ' '.join(['1'] * 24), '99',
              'Temp', '1', ' ' + ' '.join(['80.6'] * 24), '2', ' ' + ' '.join(['68'] * 24), '99', 'ZONES',
              'Zone No.  11', 'Zone Name ' + name, 'Flr. Area ' + num(area_ft2, 2).strip(),
              'Int. Mass ' + num(internal_mass, 2).strip(), 'No.People 0', 'Occ. Prof 1', 'HW/person 0', 'HW.  Prof 1',
              'OA CFM    CP0', 'Vent Prof 1', 'Lite Type 1', 'Cost/sqft 0', 'Watt/sqft ' + num(200.0 / area_ft2, 5).strip(),
              'EquipLoad 0', 'Lite Prof 1', 'S-Occ.    1', 'W-Occ.    2', 'S-Unocc.  1', 'W-Unocc.  2', 'Cool.Type 5',
              'Heat.Type 1', 'Nat. Vent No', 'CFM/sqft. 0', 'Inf. Rate .5', 'Daylight  No', 'DL Depth  0', 'Target FC 0',
              'Econ.CycleNo', 'Stat.Pres 0', 'Cool SEER 10', 'Heat COP  1', '1st Cost  0', 'Maint Cost0']
    lines += row(1, N_WALL, 0, 2, 90) + row(1, E_WALL, 90, 2, 90)
    lines += row(1, N_WALL, 180, 2, 90, WINDOW, 0.2, 2.2) + row(1, E_WALL, 270, 2, 90)
    lines += row(2, FLOOR_M2, 0, 6, 0) + row(3, FLOOR_M2, 0, 2, 180)
    lines += ['9999', 'BUILDING MATRIX'] + sketch(HEIGHT * M_TO_FT, area_ft2)
    return '\r\n'.join(lines) + '\r\n'


def control(run_type):
    lines = ['Run type  : ' + ' %d' % run_type, 'Wthr type : ' + ' 4            1 ', '1st day   : ' + ' 4 ',
             'Run begin : ' + ' 1', 'Run end   : ' + ' 365', 'Hourly out: ' + ' 0 ', 'Skip month: ',
             'Comfort   : ' + ' 68 '.ljust(10) + ' 79 ']
    return '\r\n'.join(lines) + '\r\n'


def main():
    out = sys.argv[1] if len(sys.argv) > 1 else '.'
    os.makedirs(out, exist_ok=True)
    for heavy, name in ((False, 'case600'), (True, 'case900')):
        with open(os.path.join(out, name + '.inp'), 'w', newline='', encoding='latin-1') as f:
            f.write(case(heavy))
    for run_type, name in ((3, 'hvac'), (4, 'free_float')):
        with open(os.path.join(out, name + '.tmp'), 'w', newline='', encoding='latin-1') as f:
            f.write(control(run_type))
    for label, layers, films in (('wall 600', WALL_600, FILMS_WALL), ('wall 900', WALL_900, FILMS_WALL),
                                 ('roof', ROOF, FILMS_ROOF), ('floor 600', FLOOR_600, FILMS_FLOOR),
                                 ('floor 900', FLOOR_900, FILMS_FLOOR)):
        u, dec, lag = periodic_response(layers, films)
        print('%-10s U %.3f W/m2K  decrement %.3f  lag %.2f h' % (label, u, dec, lag))


if __name__ == '__main__':
    main()

#!/usr/bin/env python3
"""Writes the office used to check the engine's energy figures in three climates:
a one-storey 90 x 60 ft office (5,400 ft2) with four 15 ft perimeter zones and a
core, envelope and lighting at the 2007 prescriptive levels of climate zone 4,
rooftop units with gas heat and economisers. One project file per climate, each
with its own design temperatures; the run reads the city's recorded year.

usage: make_office.py [out folder]   (default: tests/engine/fixtures/office)
"""
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from make_cases import DENVER_STATS, num  # noqa: E402

REPO = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))

# name, location, WMO line fields, design temperatures (summer DB, WB, winter DB; 0.4 % / 99.6 %)
CLIMATES = [
    ('miami', 'Miami FL', 'MIAMI INTL AP, FL', '72202', '25.8', '80.3', '5', '30', (91.8, 77.2, 46.7)),
    ('baltimore', 'Baltimore MD', 'BALTIMORE-WASHINGTON INTL AP, MD', '72406', '39.2', '76.7', '5', '156',
     (93.6, 75.1, 13.3)),
    ('minneapolis', 'Minneapolis MN', 'MINNEAPOLIS-ST PAUL INTL AP, MN', '72658', '44.9', '93.2', '6', '837',
     (91.0, 72.6, -12.3)),
]


def profile(values):
    return ' ' + ' '.join(num(v, 2).strip() or '0' for v in values)


OCC = [0] * 6 + [.1, .2, .95, .95, .95, .95, .5, .95, .95, .95, .95, .3, .1, .1, .1, .1, .05, .05]
LITE = [.05] * 6 + [.1, .3, .9, .9, .9, .9, .8, .9, .9, .9, .9, .5, .3, .3, .2, .2, .1, .05]
VENT = [0] * 6 + [1] * 13 + [0] * 5
HW = [0] * 6 + [.1, .2, .5, .4, .4, .6, .8, .6, .4, .4, .3, .2, .1, .05, .05, 0, 0, 0]
COOL_OCC = [85] * 6 + [75] * 16 + [85] * 2
HEAT_OCC = [60] * 6 + [70] * 16 + [60] * 2


def row(wall_id, area, orient, exposure, slope, window=0.0):
    return ['Wall ID.  ' + num(wall_id), 'Wall Area ' + num(area, 2), 'WallOrien ' + num(orient),
            'Surf Exp. ' + num(exposure), 'Ext. Shd. N0', 'Window ID ' + num(1 if window else 0),
            'Win. Area ' + num(window, 2), 'Rf/Wl Slp ' + num(slope), 'S/W/B     B', 'Ven. Blnd  0 ',
            'DiffTrans  0 ', 'Sill High ' + num(3.0 if window else 0, 3), 'Window Ht ' + num(7.0 if window else 0, 3),
            'Grnd Refl  .2 ']


def zone(number, name, area, rows, daylight=False):
    people = area / 200.0
    lines = ['Zone No.  %d' % number, 'Zone Name ' + name, 'Flr. Area ' + num(area, 2).strip(), 'Int. Mass 2',
             'No.People ' + num(people, 2).strip(), 'Occ. Prof 1', 'HW/person 1', 'HW.  Prof 1', 'OA CFM    CP20',
             'Vent Prof 1', 'Lite Type 1', 'Cost/sqft 2', 'Watt/sqft 1', 'EquipLoad .75', 'Lite Prof 1',
             'S-Occ.    1', 'W-Occ.    2', 'S-Unocc.  3', 'W-Unocc.  4', 'Cool.Type 5', 'Heat.Type 1', 'Nat. Vent No',
             'CFM/sqft. 0', 'Inf. Rate .3', 'Daylight  ' + ('Yes' if daylight else 'No'),
             'DL Depth  ' + ('15' if daylight else '0'), 'Target FC ' + ('50' if daylight else '0'), 'Econ.CycleYes',
             'Stat.Pres 0', 'Cool SEER 13', 'Heat COP  80', '1st Cost  3000', 'Maint Cost100']
    for r in rows:
        lines += row(*r)
    return lines + ['9999']


def sketch(two_zones=False):
    lines = ['Grid Size   : 1.5', 'Orientation : 0', 'No. of Flrs : 1', 'Room Height : 10', 'Floor Area  : 5400',
             'Section Area: 5400']
    names = ['South', 'Core'] if two_zones else ['South', 'East', 'North', 'West', 'Core']
    for z in range(1, 26):
        lines.append('ZoneName[%d%s]: %s' % (z, ' ' if z < 10 else '', names[z - 1] if z <= len(names) else 'Zone 1-%d' % z))
    for r in range(60, 0, -1):
        cells = ''
        for c in range(1, 81):
            inside = 1 <= c <= 60 and 1 <= r <= 40
            if not inside:
                cells += '0'
            elif r <= 10:
                cells += '1'
            elif two_zones:
                cells += '2'
            elif r > 30:
                cells += '3'
            elif c > 50:
                cells += '2'
            elif c <= 10:
                cells += '4'
            else:
                cells += '5'
        lines.append(cells + ' ')
    return lines


def office(climate, two_zones=False):
    key, location, station, wmo, lat, lon, tz, elev, design = climate
    lines = ['MARLOVEN  .31415926  4  IP', 'Bld. Type Office OF', 'Proj.Name Small office ' + key,
             'Proj.Desc One storey, four perimeter zones and a core', 'Location  ' + location, 'Dsgn. Stg Check',
             'Schm. Num 1', 'Con. Year 2025', 'Orient.   0', 'FloorArea 5400', 'Con. Cost 150', 'Occ. Days 5',
             'An Hldays 10', 'WEATHER', ' ' * 51 + 'WMO#  Lat. Long.  STM.  Elev',
             station.ljust(50)[:50] + wmo + lat.rjust(6) + lon.rjust(6) + tz.rjust(6) + elev.rjust(6),
            ] + DENVER_STATS + [
             'DesTemps  %6.1f%6.1f%5.1f ' % design, 'ECONOMICS',
             'Econ.Life 25', 'Mech.Life 15', 'SolarLife 20', 'Disc.Rate 3', 'Cost Esc. 2', 'Elec.Cost .11',
             'Elec.Esc. 1', 'Gas  Cost 1.1', 'Gas  Esc. 1', 'WaterCost 5', 'WaterEsc. 1', 'DemCharge  N',
             'WALL AND ROOF PROPERTIES',
             'ID. #     1', 'Descript. Steel-framed wall, R-13 + R-7.5 c.i.', 'U-Factor  .064', 'Solar Abs .7',
             'Time Lag  2', 'Dec. Fact .9', 'Ins. Cost .8',
             'ID. #     2', 'Descript. Roof, insulation entirely above deck, R-20 c.i.', 'U-Factor  .048',
             'Solar Abs .7', 'Time Lag  1.5', 'Dec. Fact .95', 'Ins. Cost 1.2', '9999',
             'WINDOW PROPERTIES', 'ID. #     1', 'Descript. Double low-e, metal frame', 'U-Factor  .55',
             'S.H.G.C.  .4', 'Emissiv.  .84', 'DL. Trans .5', 'Ins. Cost 25', '9999',
             'PROFILES', 'Occ', '1', profile(OCC), '99', 'HW', '1', profile(HW), '99', 'Vent', '1', profile(VENT), '99',
             'Lite', '1', profile(LITE), '99', 'Temp', '1', profile(COOL_OCC), '2', profile(HEAT_OCC), '3',
             profile([85] * 24), '4', profile([60] * 24), '99', 'ZONES']
    if two_zones:
        # The check of the whole chain: a daylit south perimeter and the rest as one core.
        lines += zone(11, 'South', 1350, [(1, 900, 180, 2, 90, 180), (2, 1350, 0, 6, 0)], daylight=True)
        lines += zone(12, 'Core', 4050, [(1, 900, 0, 2, 90, 180), (1, 600, 90, 2, 90, 120),
                                         (1, 600, 270, 2, 90, 120), (2, 4050, 0, 6, 0)])
        return '\r\n'.join(lines + ['BUILDING MATRIX'] + sketch(True)) + '\r\n'
    # Façades 10 ft high, 20 % glazed; N and S zones hold the 15 ft end walls of the corners.
    lines += zone(11, 'South', 1350, [(1, 900, 180, 2, 90, 180), (1, 150, 90, 2, 90, 30), (1, 150, 270, 2, 90, 30),
                                      (2, 1350, 0, 6, 0)])
    lines += zone(12, 'East', 450, [(1, 300, 90, 2, 90, 60), (2, 450, 0, 6, 0)])
    lines += zone(13, 'North', 1350, [(1, 900, 0, 2, 90, 180), (1, 150, 90, 2, 90, 30), (1, 150, 270, 2, 90, 30),
                                      (2, 1350, 0, 6, 0)])
    lines += zone(14, 'West', 450, [(1, 300, 270, 2, 90, 60), (2, 450, 0, 6, 0)])
    lines += zone(15, 'Core', 1800, [(2, 1800, 0, 6, 0)])
    lines += ['BUILDING MATRIX'] + sketch()
    return '\r\n'.join(lines) + '\r\n'


def control():
    lines = ['Run type  :  3', 'Wthr type :  4            1 ', '1st day   :  4 ', 'Run begin :  1', 'Run end   :  365',
             'Hourly out:  0 ', 'Skip month: ', 'Comfort   :  68        79 ']
    return '\r\n'.join(lines) + '\r\n'


def main():
    out = sys.argv[1] if len(sys.argv) > 1 else os.path.join(REPO, 'tests', 'engine', 'fixtures', 'office')
    os.makedirs(out, exist_ok=True)
    for c in CLIMATES:
        with open(os.path.join(out, 'office_%s.inp' % c[0]), 'w', newline='', encoding='latin-1') as f:
            f.write(office(c))
    with open(os.path.join(out, 'office_two_zones.inp'), 'w', newline='', encoding='latin-1') as f:
        f.write(office(CLIMATES[1], two_zones=True))
    with open(os.path.join(out, 'year.tmp'), 'w', newline='', encoding='latin-1') as f:
        f.write(control())


if __name__ == '__main__':
    main()

#!/usr/bin/env python3
"""Runs the standard single-zone test cases (600, 900 and their free-float
versions) with tarn64 on the recorded Denver year and prints ours against the
reference programs' minimum and maximum.

usage: run_standard_cases.py [path/to/tarn64] [weather folder]
Defaults: build/engine/tarn64 and ../shared/weather, relative to the repository.
"""
import os
import shutil
import subprocess
import sys
import tempfile

REPO = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
CASES = os.path.join(REPO, 'tests', 'engine', 'fixtures', 'bestest')
KBTU_TO_KW, MBTU_TO_MWH = 0.293071, 0.293071
# (case, quantity, min, max): reference programs, edition using 725650TYCST.epw.
REFERENCE = [
    ('600', 'annual heating MWh', 3.993, 4.504), ('600', 'annual sensible cooling MWh', 5.432, 6.162),
    ('600', 'peak heating kW', 3.020, 3.359), ('600', 'peak sensible cooling kW', 5.422, 6.481),
    ('900', 'annual heating MWh', 1.379, 1.814), ('900', 'annual sensible cooling MWh', 2.267, 2.714),
    ('900', 'peak heating kW', 2.443, 2.778), ('900', 'peak sensible cooling kW', 2.556, 3.376),
    ('600FF', 'maximum zone temperature C', 62.4, 68.4), ('600FF', 'minimum zone temperature C', -13.8, -9.9),
    ('600FF', 'annual mean zone temperature C', 24.3, 26.1),
    ('900FF', 'maximum zone temperature C', 43.3, 46.0), ('900FF', 'minimum zone temperature C', 0.6, 2.2),
    ('900FF', 'annual mean zone temperature C', 24.5, 25.7),
]


def field(line, col, width):
    text = line[col - 1:col - 1 + width].strip()
    try:
        return float(text)
    except ValueError:
        return 0.0


def run(tarn64, weather, case, control):
    d = tempfile.mkdtemp(prefix='tarn64-case-')
    try:
        shutil.copy(os.path.join(CASES, 'case%s.inp' % case), os.path.join(d, 'ecalc$.inp'))
        shutil.copy(os.path.join(CASES, control), os.path.join(d, 'ecalc$.tmp'))
        shutil.copy(weather, os.path.join(d, 'ecalc$.tmy'))
        done = subprocess.run([tarn64], cwd=d)
        if done.returncode != 0:
            sys.exit('tarn64 failed on case %s: %s' % (case, open(os.path.join(d, 'tarn64.err'), 'rb').read().decode('latin-1')))
        out = {}
        for name in ('sim$.out', 'ecalc$.flt'):
            with open(os.path.join(d, name), 'rb') as f:
                out[name] = f.read().decode('latin-1').split('\r\n')
        return out
    finally:
        shutil.rmtree(d)


def loads(lines):
    roof = next(i for i, l in enumerate(lines) if l.startswith('ROOF'))
    total = lines[roof + 13]
    latent = [lines[roof + r] for r in (6, 8, 10)]
    return {
        'annual heating MWh': -field(total, 100, 8) * MBTU_TO_MWH,
        'annual sensible cooling MWh': (field(total, 117, 8) - sum(field(l, 117, 8) for l in latent)) * MBTU_TO_MWH,
        'peak heating kW': -field(total, 29, 8) * KBTU_TO_KW,
        'peak sensible cooling kW': (field(total, 45, 8) - sum(field(l, 45, 8) for l in latent)) * KBTU_TO_KW,
    }


def comfort(lines):
    c = lambda f: (f - 32.0) / 1.8
    zone = next(l for l in lines if l.startswith('     11'))
    mean = next(l for l in lines if l.startswith('      YEAR MEAN'))
    return {'minimum zone temperature C': c(field(zone, 91, 8)), 'maximum zone temperature C': c(field(zone, 100, 8)),
            'annual mean zone temperature C': c(field(mean, 17, 7))}


def main():
    tarn64 = os.path.abspath(sys.argv[1]) if len(sys.argv) > 1 else os.path.join(REPO, 'build', 'engine', 'tarn64')
    folder = sys.argv[2] if len(sys.argv) > 2 else os.path.join(REPO, '..', 'shared', 'weather')
    weather = os.path.join(folder, 'recorded', '725650TYCST.epw')
    if not os.path.exists(weather):
        print('SKIPPED: the recorded Denver weather %s is not there' % weather)
        return
    ours = {}
    for case in ('600', '900'):
        ours[case] = loads(run(tarn64, weather, case, 'hvac.tmp')['sim$.out'])
        ours[case + 'FF'] = comfort(run(tarn64, weather, case, 'free_float.tmp')['ecalc$.flt'])
    print('%-6s %-32s %9s %9s %9s  %s' % ('CASE', 'QUANTITY', 'OURS', 'REF MIN', 'REF MAX', 'RESULT'))
    inside = 0
    for case, quantity, lo, hi in REFERENCE:
        v = ours[case][quantity]
        ok = lo <= v <= hi
        inside += ok
        print('%-6s %-32s %9.3f %9.3f %9.3f  %s' % (case, quantity, v, lo, hi, 'inside' if ok else 'OUTSIDE'))
    print('%d of %d inside the reference range' % (inside, len(REFERENCE)))


if __name__ == '__main__':
    main()

#!/usr/bin/env python3
"""Computes the signals of `quorvel-cli verify` and their ratings again, from formulas and definitions, and compares
them with what the tool expects and what it got.

    check_verification.py TOOL
"""

import json
import math
import subprocess
import sys

import ratings

GOT_TOLERANCE = 1e-9

# Exact fractions at every lag would take minutes, too.
ratings.pearson = ratings.quick_pearson


def half_away(value):
    """round() of Python takes halves to the even number."""
    return math.copysign(math.floor(abs(value) + 0.5), value)


def sine(i):
    return math.sin(i / 9)


# Number of samples, m(i), c(i). The pairs of more samples would take minutes.
ISO_PAIRS = {
    "steps": (300, lambda i: half_away(3 * math.sin(i / 7)), lambda i: half_away(3 * math.sin((i - 3) / 7))),
    "ramp": (200, float, lambda i: 1.5 * i),
    "late": (200, sine, lambda i: math.sin((i - 45) / 9)),
    "opposite": (200, sine, lambda i: -sine(i)),
    "constants 10, 13": (200, lambda i: 10.0, lambda i: 13.0),
    "zero reference": (200, lambda i: 0.0, sine),
    "zero computed": (200, sine, lambda i: 0.0),
    "both zero": (200, lambda i: 0.0, lambda i: 0.0),
}


def decaying_sine(start, gain=1.0):
    times = [0.02 * i - start for i in range(101)]
    return [gain * math.exp(-t) * math.sin(2 * math.pi * t) if t > 0 else 0.0 for t in times]


SINE_PAIRS = {
    "sine x 1.2": decaying_sine(.14, 1.2),
    "sine x 0.8": decaying_sine(.14, .8),
    "sine late": decaying_sine(.24),
    "sine early": decaying_sine(.04),
    "sine late x 1.2": decaying_sine(.24, 1.2),
}


def iso_values(count, reference, computed):
    scores = ratings.iso_scores([reference(i) for i in range(count)], [computed(i) for i in range(count)])
    return {"ISO " + (name if name == "lag" else name.upper()): scores[name]
            for name in ("r", "z", "ep", "em", "es", "lag")}


def sine_values(computed):
    reference = decaying_sine(.14)
    families = ratings.magnitude_phase_families(reference, computed)
    knowles_gear = ratings.knowles_gear(reference, computed, 0.0, 0.02)
    values = {f"{name} {part.upper()}": families[family][part]
              for name, family in (("Sprague-Geers", "spragueGeers"), ("Russell", "russell")) for part in "mpc"}
    return {**values, **{f"Knowles-Gear {part.upper()}": knowles_gear[part] for part in ("m", "toa", "c")}}


def faults_of(name, checks, values):
    """What differs in a case, and how many values were compared."""
    faults = [] if set(checks) == set(values) else [f"{name}: {sorted(checks)} instead of {sorted(values)}"]
    for metric, value in values.items():
        check = checks.get(metric)
        if check is None:
            continue
        if not abs(check["got"] - value) <= GOT_TOLERANCE:
            faults.append(f"{name}, {metric}: got {check['got']!r}, here {value!r}")
        if not abs(check["expected"] - value) <= check["tolerance"]:
            faults.append(f"{name}, {metric}: expected {check['expected']!r}, here {value!r}")
    return faults


def main():
    printed = subprocess.run([sys.argv[1], "verify", "--json"], capture_output=True, check=False)
    cases = {case["name"]: {check["metric"]: check for check in case["checks"]}
             for case in json.loads(printed.stdout)["cases"]}
    values = {**{name: iso_values(*pair) for name, pair in ISO_PAIRS.items()},
              **{name: sine_values(computed) for name, computed in SINE_PAIRS.items()}}
    faults = [fault for name in values for fault in faults_of(name, cases.get(name, {}), values[name])]
    print("\n".join(faults), end="\n" if faults else "")
    print(f"{sum(map(len, values.values()))} values of {len(values)} cases compared, {len(faults)} faults")
    return 1 if faults or len(values) != 13 else 0


if __name__ == "__main__":
    sys.exit(main())

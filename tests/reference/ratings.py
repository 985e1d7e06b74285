"""All families of ratings by their plain definitions: every sum over all terms, every lag by itself, the warping with
its whole matrix and the path traced back. `m` is the reference, `c` the computed signal; a value is a number, or None
where it is not available."""

import math
from fractions import Fraction

TIE = 1e-12


def finite(*signals):
    return all(math.isfinite(value) for values in signals for value in values)


def ratable(m, c):
    return len(m) > 0 and len(m) == len(c) and finite(m, c)


def peak(values):
    return max((abs(value) for value in values), default=0.0)


def clip(value):
    return max(-1.0, min(1.0, value))


def number(compute):
    """A result beyond the range of numbers is not available."""
    try:
        value = compute()
    except OverflowError:
        return None
    return value if math.isfinite(value) else None


# --- correlations and lags ---

def pearson(x, y):
    """None where either is constant. Means and sums are exact, so that nothing is lost to a large mean."""
    if min(x) == max(x) or min(y) == max(y):
        return None
    mean_x, mean_y = sum(map(Fraction, x)) / len(x), sum(map(Fraction, y)) / len(y)
    return cosine([float(Fraction(value) - mean_x) for value in x], [float(Fraction(value) - mean_y) for value in y])


def cosine(x, y):
    if peak(x) == 0.0 or peak(y) == 0.0:
        return None
    x, y = [value / peak(x) for value in x], [value / peak(y) for value in y]
    products = math.fsum(a * b for a, b in zip(x, y))
    return clip(products / math.sqrt(math.fsum(a * a for a in x)) / math.sqrt(math.fsum(b * b for b in y)))


def overlap(m, c, lag):
    """Positive: the computed signal is late."""
    if lag >= 0:
        return m[:len(m) - lag], c[lag:]
    return m[-lag:], c[:len(c) + lag]


def quick_pearson(x, y):
    """As pearson, for one of very many lags; sums are rounded once each."""
    if min(x) == max(x) or min(y) == max(y):
        return None
    mean_x, mean_y = math.fsum(x) / len(x), math.fsum(y) / len(y)
    return cosine([value - mean_x for value in x], [value - mean_y for value in y])


def best_lag(m, c, most, correlation):
    """The lag with the largest correlation of 0, 1, -1, 2, -2 ...; None correlations are passed over."""
    best, best_value = None, None
    for shift in range(most + 1):
        for lag in ((shift, -shift) if shift else (0,)):
            value = correlation(*overlap(m, c, lag))
            if value is not None and (best is None or value > best_value + TIE):
                best, best_value = lag, value
    return best, best_value


# --- ISO/TS 18571 ---

def corridor(m, c, inner, outer, exponent):
    largest, total = peak(m), 0.0
    for a, b in zip(m, c):
        distance = abs(a - b) / largest if largest else (0.0 if a == b else math.inf)
        if distance < inner:
            total += 1.0
        elif distance <= outer:
            total += ((outer - distance) / (outer - inner)) ** exponent
    return total / len(m)


def by_rule(x, y):
    """The correlation that the phase search uses where there is none."""
    value = quick_pearson(x, y)
    return value if value is not None else (1.0 if x == y else 0.0)


def warping_sums(a, b, width):
    """Sums of |b - a| and |a| along the cheapest path, a over j and b over i."""
    size = len(a)
    cost = {}
    for i in range(size):
        for j in range(max(0, i - width + 1), min(size, i + width)):
            before = [cost[cell] for cell in ((i - 1, j), (i, j - 1), (i - 1, j - 1)) if cell in cost]
            cost[i, j] = (min(before) if before else 0.0) + (b[i] - a[j]) * (b[i] - a[j])
    path = [(size - 1, size - 1)]
    while path[-1] != (0, 0):
        i, j = path[-1]
        cells = [cell for cell in ((i - 1, j), (i, j - 1), (i - 1, j - 1)) if cell in cost]
        path.append(min(cells, key=cost.get))
    return math.fsum(abs(b[i] - a[j]) for i, j in path), math.fsum(abs(a[j]) for _, j in path)


def slope(y):
    last = len(y) - 1
    gradient = [y[1] - y[0]] + [(y[i + 1] - y[i - 1]) / 2 for i in range(1, last)] + [y[last] - y[last - 1]]
    smooth = []
    for i in range(len(y)):
        reach = min(4, i, last - i)
        smooth.append(math.fsum(gradient[i - reach:i + reach + 1]) / (2 * reach + 1))
    return smooth


def error_score(difference, divisor, largest):
    """The score and whether it is by rule."""
    if divisor == 0.0:
        return (1.0 if difference == 0.0 else 0.0), True
    return max(0.0, 1.0 - difference / divisor / largest), False


def iso_scores(m, c):
    """The algorithm's scores, degenerate signals included."""
    size = len(m)
    lag, _ = best_lag(m, c, size // 5, by_rule)
    if size - abs(lag) < 9:
        lag = 0
    a, b = overlap(m, c, lag)
    em, em_rule = error_score(*warping_sums(a, b, min(len(a), max(1, -(-len(a) // 10)))), 0.5)
    slope_a, slope_b = slope(a), slope(b)
    es, es_rule = error_score(math.fsum(abs(y - x) for x, y in zip(slope_a, slope_b)),
                              math.fsum(map(abs, slope_a)), 2.0)
    z = corridor(m, c, 0.05, 0.5, 2)
    ep = max(0.0, (size - 5 * abs(lag)) / size)
    return {"z": z, "ep": ep, "em": em, "es": es, "r": 0.4 * z + 0.2 * (ep + em + es), "lag": lag,
            "correlation": pearson(a, b), "magnitudeByRule": em_rule, "slopeByRule": es_rule}


def iso(m, c):
    if not ratable(m, c) or len(m) < 9 or peak(m) == 0.0:
        return {**dict.fromkeys(("r", "z", "ep", "em", "es", "lag", "correlation", "grade")),
                "magnitudeByRule": False, "slopeByRule": False}
    # By a power of two, so that no digit changes and no square leaves the range of numbers.
    shift = -math.frexp(max(peak(m), peak(c)))[1]
    scores = iso_scores([math.ldexp(value, shift) for value in m], [math.ldexp(value, shift) for value in c])
    scores["grade"] = sum(scores["r"] <= limit for limit in (0.94, 0.80, 0.58))
    return scores


# --- magnitude and phase ---

def weights(size):
    return [1.0] if size == 1 else [0.5] + [1.0] * (size - 2) + [0.5]


def magnitude_phase(m, c):
    """Gain, angle and the products' sign from exact sums; None without one of the signals."""
    weight = [Fraction(value) for value in weights(len(m))]
    exact_m, exact_c = [Fraction(value) for value in m], [Fraction(value) for value in c]
    mm = sum(w * x * x for w, x in zip(weight, exact_m))
    cc = sum(w * y * y for w, y in zip(weight, exact_c))
    mc = sum(w * x * y for w, x, y in zip(weight, exact_m, exact_c))
    if mm == 0 or cc == 0:
        return mm == 0, None, None, 0
    # The sine and the cosine squared are exact, so no digit of a small angle is lost.
    sine = math.sqrt(1 - mc * mc / (mm * cc))
    angle = math.atan2(sine, math.copysign(math.sqrt(mc * mc / (mm * cc)), float(mc > 0) - 0.5))
    return False, root_of(cc / mm), angle, (mc > 0) - (mc < 0)


def root_of(fraction):
    """Square root of an exact quotient; infinite where it is beyond the range of numbers."""
    shift = (fraction.numerator.bit_length() - fraction.denominator.bit_length()) // 2
    try:
        return math.ldexp(math.sqrt(fraction / Fraction(2) ** (2 * shift)), shift)
    except OverflowError:
        return math.inf


def metric(magnitude, phase, combined):
    return {"m": number(lambda: magnitude), "p": number(lambda: phase), "c": number(lambda: combined)}


def magnitude_phase_families(m, c):
    nothing = {"m": None, "p": None, "c": None}
    names = ("spragueGeers", "geers", "geersCsa", "russell")
    if not ratable(m, c):
        return {name: nothing for name in names}
    reference_zero, gain, angle, sign = magnitude_phase(m, c)
    if gain is None:
        rest = nothing if reference_zero else {"m": -1.0, "p": None, "c": None}
        return {name: nothing if name == "russell" else rest for name in names}
    error, phase, cosine_of = gain - 1.0, angle / math.pi, math.cos(angle)
    q = gain - 1.0 / gain if gain else -math.inf
    russell = math.copysign(math.log10(1.0 + abs(q)), q)
    return {"spragueGeers": metric(error, phase, math.hypot(error, phase)),
            "geers": metric(error, 1.0 - cosine_of, math.hypot(error, 1.0 - cosine_of)),
            "geersCsa": metric(error, 1.0 - abs(cosine_of),
                               (-1.0 if sign < 0 else 1.0) * math.hypot(error, 1.0 - abs(cosine_of))),
            "russell": metric(russell, phase, math.sqrt(math.pi / 4.0) * math.hypot(russell, phase))}


# --- Knowles-Gear ---

def arrival(values):
    """Position, in samples, where the signal's lines reach 5 % of its peak."""
    level = 0.05 * peak(values)
    i = next(i for i, value in enumerate(values) if abs(value) >= level)
    if i == 0:
        return 0.0
    before, after = values[i - 1], values[i]
    return i - 1 + (math.copysign(level, after) - before) / (after - before)


def between(values, position):
    last = len(values) - 1
    if position < -1e-9 or position > last + 1e-9:
        return None
    position = min(max(position, 0.0), float(last))
    i = min(int(position), max(last - 1, 0))
    if last == 0:
        return values[0]
    return values[i] + (position - i) * (values[i + 1] - values[i])


def knowles_gear(m, c, start, step):
    nothing = {"m": None, "toa": None, "c": None}
    if not ratable(m, c) or peak(m) == 0.0 or peak(c) == 0.0:
        return nothing
    scale = max(peak(m), peak(c))
    m, c = [value / scale for value in m], [value / scale for value in c]
    at_m, at_c = arrival(m), arrival(c)
    errors, squares = [], []
    for i, (weight, value) in enumerate(zip(weights(len(m)), m)):
        moved = between(c, i + at_c - at_m)
        if moved is not None:
            errors.append(weight * abs(value) * (moved - value) ** 2)
            squares.append(weight * abs(value) * value ** 2)
    magnitude = math.sqrt(math.fsum(errors) / math.fsum(squares)) if math.fsum(squares) > 0.0 else None
    since_zero = abs(start / step + at_m)
    time = abs(at_c - at_m) / since_zero if since_zero > 1e-9 else None
    combined = None if magnitude is None or time is None else math.sqrt((10.0 * magnitude ** 2 + 2.0 * time ** 2) / 12.0)
    return {"m": magnitude, "toa": time, "c": combined}


# --- ANOVA and the roadside verdict ---

def anova(m, c):
    if not ratable(m, c) or peak(m) == 0.0:
        return {"mean": None, "standardDeviation": None, "t": None}
    residual = [a / peak(m) - b / peak(m) for a, b in zip(m, c)]
    size = len(m)
    mean = math.fsum(residual) / size
    if size < 2:
        return {"mean": mean, "standardDeviation": None, "t": None}
    deviation = math.sqrt(math.fsum((value - mean) ** 2 for value in residual) / (size - 1))
    t = None if deviation <= 1e-12 * abs(mean) else mean / (deviation / math.sqrt(size))
    return {"mean": mean, "standardDeviation": deviation, "t": t}


def roadside(sprague_geers, statistics):
    limited = ((sprague_geers["m"], 0.40), (sprague_geers["p"], 0.40), (statistics["mean"], 0.05),
               (statistics["standardDeviation"], 0.35))
    if any(value is None for value, _ in limited):
        return {"passes": None}
    return {"passes": all(abs(value) <= limit for value, limit in limited)}


# --- single values ---

VALUES = ("rms", "nrmsePeak", "nrmseRange", "nrmseRms", "pearson", "nard", "r2", "regression", "theil", "whang",
          "zilliacus", "rss", "wifac")


def ratio(a, b, defined):
    return a / b if defined else None


def single_values(m, c):
    if not ratable(m, c):
        return dict.fromkeys(VALUES)
    scale = max(peak(m), peak(c)) or 1.0
    m, c = [value / scale for value in m], [value / scale for value in c]
    size = len(m)
    e = [b - a for a, b in zip(m, c)]
    ee, mm, cc = (math.fsum(value * value for value in values) for values in (e, m, c))
    abs_e, abs_m, abs_c = (math.fsum(map(abs, values)) for values in (e, m, c))
    mean = math.fsum(m) / size
    variation = math.fsum((value - mean) ** 2 for value in m)
    some, varies, any_some = peak(m) > 0.0, max(m) > min(m), peak(m) > 0.0 or peak(c) > 0.0
    rms = math.sqrt(ee / size)
    square = 1.0 - (size - 1) / size * ee / variation if varies else None
    if square is not None and abs(square) <= 1e-12:
        square = 0.0  # rounding, of which a root would show half of the digits
    return {"rms": number(lambda: rms * scale), "nrmsePeak": ratio(rms, peak(m), some),
            "nrmseRange": ratio(rms, max(m) - min(m), varies), "nrmseRms": ratio(rms, math.sqrt(mm / size), some),
            "pearson": pearson(m, c), "nard": cosine(m, c),
            "r2": 1.0 - ee / variation if varies else None,
            "regression": math.sqrt(square) if square is not None and square >= 0.0 else None,
            "theil": ratio(math.sqrt(ee), math.sqrt(mm) + math.sqrt(cc), any_some),
            "whang": ratio(abs_e, abs_m + abs_c, any_some), "zilliacus": ratio(abs_e, abs_m, some),
            "rss": ratio(math.sqrt(ee), math.sqrt(mm), some), "wifac": wifac(m, c)}


def wifac(m, c):
    terms = [(w * max(a * a, b * b), 1.0 - max(0.0, a * b) / max(a * a, b * b))
             for w, a, b in zip(weights(len(m)), m, c) if max(a * a, b * b) > 0.0]
    if not terms:
        return 1.0
    return 1.0 - math.sqrt(math.fsum(u * miss ** 2 for u, miss in terms) / math.fsum(u for u, _ in terms))


# --- CORA-like ---

CORA = ("corridor", "shape", "size", "phase", "crossCorrelation", "total", "lag", "start", "end")


def cora_interval(m):
    """First and last sample of the evaluation."""
    largest, last = peak(m), len(m) - 1
    first = next(i for i in range(len(m)) if abs(m[i]) >= 0.03 * largest)
    end = next(i for i in range(last, -1, -1) if abs(m[i]) >= 0.075 * largest)
    if end == last:
        away = [i for i in range(first + 1, len(m)) if abs(m[i] - m[last]) > 0.2 * largest]
        end = away[-1] if away else last
    more = 0.01 * (end - first)
    return max(0, math.ceil(first - more - 1e-9)), min(last, math.floor(end + more + 1e-9))


def cora(m, c, start, step):
    result = dict.fromkeys(CORA)
    if not ratable(m, c) or peak(m) == 0.0:
        return result
    first, end = cora_interval(m)
    if end <= first:
        return result
    x, y = m[first:end + 1], c[first:end + 1]
    result.update(start=start + first * step, end=start + end * step, corridor=corridor(x, y, 0.05, 0.5, 2))
    size = len(x)
    lag, correlation = best_lag(x, y, size - -(-4 * size // 5), cosine)
    if lag is None:
        return result
    part_x, part_y = overlap(x, y, lag)
    scale = max(peak(part_x), peak(part_y))
    squares_x, squares_y = (math.fsum((value / scale) ** 2 for value in part) for part in (part_x, part_y))
    shape = ((correlation + 1.0) / 2.0) ** 10
    scores = {"shape": shape, "size": min(squares_x / squares_y, squares_y / squares_x)}
    delay = abs(lag) / (size - 1)
    scores["phase"] = 1.0 if delay < 0.01 else max(0.0, (0.12 - delay) / 0.11)
    whole = 0.5 * shape + 0.25 * scores["size"] + 0.25 * scores["phase"]
    result.update(scores, crossCorrelation=whole, total=0.5 * result["corridor"] + 0.5 * whole, lag=lag)
    return result


def rate(m, c, start, step):
    """Every value of every family under the names that results use: {"iso.r": ...}."""
    families = {"iso": iso(m, c), **magnitude_phase_families(m, c), "anova": anova(m, c),
                "values": single_values(m, c), "knowlesGear": knowles_gear(m, c, start, step),
                "cora": cora(m, c, start, step)}
    families["roadside"] = roadside(families["spragueGeers"], families["anova"])
    return {"%s.%s" % (family, name): value for family, values in families.items() for name, value in values.items()}

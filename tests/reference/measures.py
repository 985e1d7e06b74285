"""The measures of one computed signal against the reference, the sixteen columns and their verdicts."""

from ieee import divide, largest, root, smallest

WHITE = 2.220446049250313e-16
DEFAULT_CRITICAL = {"residual": 5.0, "stddev": 20.0, "corridor": 0.1, "correlation": 0.05, "t": 2.58, "moment": 0.2}
SCALARS = ("meanSquareResidual", "computedPeak", "referencePeak", "computedMaximum", "referenceMaximum",
           "computedMinimum", "referenceMinimum", "residualStandardDeviation", "residualSum", "residualSumOfSquares",
           "percentOutsideCorridor", "pointCount", "correlationFactor", "magnitudeError", "phaseError",
           "comprehensiveError", "tStatistic", "minimumTime", "maximumTime", "corridorSize")


def untouched(corridor):
    """The measures of a signal that cannot be compared."""
    measures = dict.fromkeys(SCALARS, 0.0)
    measures.update(momentDifferences=[0.0] * 6, corridorSize=corridor)
    return measures


def compute(computed, reference, corridor):
    """The measures; `computed` is resampled and cut, `reference` stays."""
    measures = untouched(corridor)
    if not computed.y or not reference.y:
        return measures
    reference = reference.copy()
    step = reference.step
    if computed.step != step:
        computed.resample(step)
    start, stop = reference.x_min(), reference.x_max()
    if computed.x_min() != start or computed.x_max() != stop:
        start, stop = max(start, computed.x_min()), min(stop, computed.x_max())
        computed.truncate_by_time(start, stop)
        reference.truncate_by_time(start, stop)
    if not computed.y or not reference.y:
        return measures
    measures.update(minimumTime=start, maximumTime=stop,
                    computedMaximum=largest(computed.y), computedMinimum=smallest(computed.y),
                    referenceMaximum=largest(reference.y), referenceMinimum=smallest(reference.y))
    count = min(len(computed.y), len(reference.y))
    fill(measures, computed.y[:count], reference.y[:count], count, step, corridor)
    return measures


def powers(time):
    values = [1.0]
    for _ in range(5):
        values.append(values[-1] * time)
    return values


class WeightedSums:
    """Trapezoid sums: the ends once, the points between twice."""

    def __init__(self):
        self.computed, self.reference = [0.0] * 6, [0.0] * 6
        self.cross = self.computed_square = self.reference_square = 0.0

    def add(self, weight, time, c, r):
        for k, power in enumerate(powers(time)):
            self.computed[k] += weight * (power * c)
            self.reference[k] += weight * (power * r)
        self.cross += weight * (c * r)
        self.computed_square += weight * (c * c)
        self.reference_square += weight * (r * r)


def fill(measures, c, r, count, step, corridor):
    sums = WeightedSums()
    sums.add(1.0, step * 1.0, c[0], r[0])
    sums.add(1.0, step * float(count), c[count - 1], r[count - 1])
    residual = c[0] - r[0]
    total, squares = residual, residual * residual
    computed_peak, reference_peak = c[0], r[0]
    outside = 1 if abs(residual) > 4.0 else 0
    for i in range(1, count - 1):
        sums.add(2.0, step * float(i + 1), c[i], r[i])
        residual = c[i] - r[i]
        total += residual
        squares += residual * residual
        computed_peak = abs(c[i]) if abs(c[i]) > computed_peak else computed_peak
        reference_peak = abs(r[i]) if abs(r[i]) > reference_peak else reference_peak
        outside += 1 if abs(residual) > corridor else 0
    n = float(count)
    deviation = root((squares - total * total / n) / n)
    measures.update(pointCount=count, computedPeak=computed_peak, referencePeak=reference_peak, residualSum=total,
                    residualSumOfSquares=squares, percentOutsideCorridor=outside * 100.0 / n,
                    residualStandardDeviation=deviation, meanSquareResidual=squares / n,
                    tStatistic=divide(total / n, deviation / root(n)),
                    correlationFactor=divide(step * sums.cross / 2.0, root(step * sums.computed_square / 2.0)
                                             * root(step * sums.reference_square / 2.0)),
                    momentDifferences=[abs(divide(a - b, a)) for a, b in zip(sums.computed, sums.reference)])
    fill_error_measures(measures, c, r)


def fill_error_measures(measures, c, r):
    cc = rr = cr = 0.0
    for a, b in zip(c, r):
        cc += a * a
        rr += b * b
        cr += a * b
    magnitude = divide(root(rr), root(cc)) - 1.0
    phase = 1.0 - divide(root(abs(cr)), root(root(rr) * root(cc)))
    measures.update(magnitudeError=magnitude, phaseError=phase,
                    comprehensiveError=root(magnitude * magnitude + phase * phase))


def column_texts(path, reference_name, measures):
    n, peak = float(measures["pointCount"]), measures["referencePeak"]
    total, deviation = measures["residualSum"], measures["residualStandardDeviation"]
    return [path, "%.1f" % measures["computedPeak"],
            "%f (%.2f %%)" % (divide(total, n), divide(abs(total), n * peak) * 100.0),
            "%f (%.2f %%)" % (deviation, divide(deviation, peak) * 100.0),
            "%.2f" % measures["percentOutsideCorridor"], "%.3f" % measures["correlationFactor"],
            "%.2f" % abs(measures["tStatistic"]), *("%.3f" % moment for moment in measures["momentDifferences"]),
            reference_name, "%.4f" % measures["minimumTime"], "%.4f" % measures["maximumTime"]]


def verdicts(measures, critical):
    n, peak = float(measures["pointCount"]), measures["referencePeak"]
    judged = {2: (abs(divide(measures["residualSum"], n * peak)) * 100.0, critical["residual"]),
              3: (divide(measures["residualStandardDeviation"], peak) * 100.0, critical["stddev"]),
              4: (measures["percentOutsideCorridor"] / 100.0, critical["corridor"]),
              5: (1.0 - measures["correlationFactor"], critical["correlation"]),
              6: (abs(measures["tStatistic"]), critical["t"])}
    for k, moment in enumerate(measures["momentDifferences"]):
        judged[7 + k] = (moment, critical["moment"])
    words = []
    for column in range(16):
        value, threshold = judged.get(column, (WHITE, 0.0))
        words.append("none" if value == WHITE else "good" if threshold > value else "bad")
    return words

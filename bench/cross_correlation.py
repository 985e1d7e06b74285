#!/usr/bin/python3
"""Times the Cross Correlation page against SciPy's correlate on the same signals, in one run.

    bench/cross_correlation.py BUILD [SAMPLES [STEP [REPEATS]]]

BUILD is a release build folder configured with -DQUORVEL_BENCHMARKS=ON in which the target
quorvel_cross_correlation_page was built. The default is 300 000 samples 1e-6 s apart, so 20 001 offsets, for one
computed signal: two correlations, the reference with itself and with the computed signal. SciPy does the same two with
scipy.signal.correlate(method="fft"); the page's other work (means, division by the overlap, curves as records) is
in the page's time only. Each side is timed inside its own process; they run one after the other.

The page's values are checked against SciPy's. The exit status is 1 when they disagree or the page is not faster.
Needs Debian's python3-scipy.
"""
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import numpy
import scipy
import scipy.signal


def time_scipy(a, b, repeats):
    milliseconds = []
    for _ in range(repeats):
        start = time.perf_counter()
        scipy.signal.correlate(a, a, method="fft")
        scipy.signal.correlate(a, b, method="fft")
        milliseconds.append((time.perf_counter() - start) * 1e3)
    return milliseconds


def time_page(driver, folder, a, b, step, repeats):
    a.tofile(folder / "reference")
    b.tofile(folder / "computed")
    command = [driver, folder / "reference", folder / "computed", repr(step), str(repeats), folder / "curves"]
    output = subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout
    return [float(line) for line in output.split()], numpy.fromfile(folder / "curves").reshape(2, -1)


def covariances(a, b, largest):
    """The page's values made from SciPy's correlation."""
    a = a - a.mean()
    b = b - b.mean()
    lags = scipy.signal.correlation_lags(len(a), len(b))
    wanted = numpy.abs(lags) <= largest
    return scipy.signal.correlate(a, b, method="fft")[wanted] / (len(a) - numpy.abs(lags[wanted]))


def report(name, milliseconds):
    print(f"{name:8} first {milliseconds[0]:8.2f} ms   best {min(milliseconds):8.2f} ms   "
          f"median {statistics.median(milliseconds):8.2f} ms   of {len(milliseconds)}")


def main(arguments):
    driver = Path(arguments[0]) / "bin" / "quorvel_cross_correlation_page"
    samples = int(arguments[1]) if len(arguments) > 1 else 300_000
    step = float(arguments[2]) if len(arguments) > 2 else 1e-6
    repeats = int(arguments[3]) if len(arguments) > 3 else 15

    random = numpy.random.default_rng(20)
    a = random.standard_normal(samples) + 5.0
    b = 0.7 * numpy.roll(a, 37) + random.standard_normal(samples)
    with tempfile.TemporaryDirectory() as folder:
        page, curves = time_page(driver, Path(folder), a, b, step, repeats)
    reference = time_scipy(a, b, repeats)

    largest = curves.shape[1] // 2
    print(f"{samples} samples, step {step:g} s, {curves.shape[1]} offsets, numpy {numpy.__version__}, "
          f"SciPy {scipy.__version__}")
    report("page", page)
    report("SciPy", reference)
    ratio = statistics.median(reference) / statistics.median(page)
    print(f"SciPy / page: first {reference[0] / page[0]:.2f}, best {min(reference) / min(page):.2f}, "
          f"median {ratio:.2f}")

    error = max(numpy.abs(curves[0] - covariances(a, a, largest)).max() / a.var(),
                numpy.abs(curves[1] - covariances(a, b, largest)).max() / (a.std() * b.std()))
    print(f"largest difference from SciPy's values: {error:.1e} of the product of the standard deviations")
    return 0 if error <= 1e-12 and ratio > 1.0 and reference[0] > page[0] else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))

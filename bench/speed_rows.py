"""The rows of the speed table: what is done, on which files, how good it must be."""

from dataclasses import dataclass
from typing import Optional


@dataclass(frozen=True)
class Size:
    """How large the data of a run of the table are."""

    samples: int
    samples_of_correlation: int
    long_run: tuple[int, int]  # files and samples of each
    medium_run: tuple[int, int]
    many_files: int
    growth: tuple[int, ...]  # numbers of samples, ascending
    counts: tuple[int, int, int]  # numbers of files


FULL = Size(1_000_000, 300_000, (8, 1_000_000), (50, 100_000), 1_000, (10_000, 100_000, 1_000_000, 10_000_000),
            (10, 100, 1_000))
QUICK = Size(10_000, 3_000, (2, 10_000), (3, 5_000), 10, (10_000, 20_000), (2, 5, 10))

SAMPLES_OF_MANY = 2_000
STEPS = {"y": 1e-5, "slow": 1e-4, "exact": 2.0**-13}


@dataclass(frozen=True)
class Row:
    """A work item timed inside the processes of the driver, of the peer and of the bare loops."""

    name: str
    title: str
    peer: str
    item: str
    files: object  # function of the number of samples to the names of the data files
    ratio: Optional[float]  # peer / ours, at least
    over_bare: Optional[float] = None  # ours / bare, at most; None: there is no bare loop
    tolerance: float = 1e-6  # between the digests of both sides
    rounds: int = 15

    def samples(self, size):
        return size.samples_of_correlation if self.item == "cross-correlation" else size.samples


def read(numbers, form="xy"):
    return lambda samples: [f"{form}-{numbers}-{samples}-1.uds"]


def signal(samples):
    return [f"y-sun-{samples}-1.uds"]


def pair(samples):
    return [f"y-sun-{samples}-2.uds", f"y-sun-{samples}-1.uds"]


def cut_pair(samples):
    return [f"y-sun-{samples * 9 // 10}-2.uds", f"y-sun-{samples}-1.uds"]


def lag_pair(samples):
    return [f"lag-sun-{samples}-2.uds", f"lag-sun-{samples}-1.uds"]


ROWS = (
    Row("read-sun", "read UDS, SUN, X-Y", "numpy.fromfile, byteswap, astype", "read-uds", read("sun"), 2, 1.5),
    Row("read-vax", "read UDS, VAX, X-Y", "numpy.fromfile, shuffles, astype", "read-uds", read("vax"), 2, 1.5),
    Row("read-ieee", "read UDS, IEEE, X-Y", "numpy.fromfile, astype", "read-uds", read("ieee"), 2, 1.5),
    Row("read-ordinates", "read UDS, SUN, Y", "the same, and the axis", "read-uds", read("sun", "y"), 2, 1.5),
    Row("read-ascii", "read ASCII, two numbers a line", "pandas.read_csv, C engine", "read-ascii",
        lambda samples: [f"lines-{samples}.txt"], 6, 1.6, rounds=9),
    Row("filter", "filter, CFC 60", "scipy.signal.sosfiltfilt", "filter", signal, 4, 1.2),
    Row("resample", "resample to 0.7 of the step", "numpy.interp", "resample", signal, 3, 1.5),
    Row("integrate", "integrate", "scipy.integrate.cumulative_trapezoid", "integrate", signal, 5, 1.5),
    Row("measures", "all measures of a pair", "vectorized NumPy", "measures", pair, 6, 1.5),
    Row("measures-cut", "all measures, after a cut", "vectorized NumPy", "measures", cut_pair, 5, 1.5),
    Row("cross-correlation", "Cross Correlation page", 'scipy.signal.correlate(method="fft")', "cross-correlation",
        lag_pair, 6),
    Row("cumulative-density", "Cumulative Density page", "numpy.sort, searchsorted", "cumulative-density", pair, 8),
)


@dataclass(frozen=True)
class Run:
    """A run of quorvel-cli timed as a whole process."""

    name: str
    title: str
    peer: str
    ratio: float
    over_bare: Optional[float] = None
    rounds: int = 5
    files: int = 0
    samples: int = 0
    form: str = "y"

    def reference(self):
        return f"{self.form}-sun-{self.samples}-0.uds"

    def computed(self, count=None):
        return [f"{self.form}-sun-{self.samples}-{seed + 1}.uds" for seed in range(count or self.files)]

    def window(self):
        """All but the first and the last tenth, where filters differ in how they start."""
        length = self.samples * STEPS[self.form]
        return [repr(0.1 * length), repr(0.9 * length)]

    def memory_limit(self, share):
        """Megabytes: so many times the ordinates of all files as doubles, and 20."""
        return share * (self.files + 1) * self.samples * 8e-6 + 20.0


def comparisons(size):
    def run(name, files, samples, ratio, over_bare=None):
        form = "y" if samples >= 100_000 else "slow"  # long enough for the filter to settle
        title = f"run: {files:,} × {samples:,} samples".replace(",", " ")
        return Run(name, title, "the clean script", ratio, over_bare, 5, files, samples, form)

    return (run("run-long", *size.long_run, 5, 2.0), run("run-medium", *size.medium_run, 8, 2.0),
            run("run-many", size.many_files, SAMPLES_OF_MANY, 10))


def checked():
    """A small run by which the sides of a comparison are checked against each other. Single precision holds its step
    exactly: with any other the product's cut to the common range may leave two signals one sample apart."""
    return Run("check", "check", "the clean script", 0, files=2, samples=20_000, form="exact")


def start(_size):
    return Run("start", "start, one small comparison", 'python3 -c "import numpy, scipy.signal"', 40, rounds=15,
               files=1, samples=SAMPLES_OF_MANY, form="slow")


def json_pages(size):
    return Run("json-pages", "--pages --json of 2 signals", "json.dump of the same arrays", 4, rounds=3, files=1,
               samples=size.samples)

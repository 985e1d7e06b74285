#!/usr/bin/python3
"""Times the desktop program from the start of its process to its visible window, under a virtual screen.

    xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" bench/window_start.py BUILD [REPEATS]

BUILD is a release build folder. The program is started with a file name, so that no dialog opens, and counts as visible
once the X server maps its window and names it. The server is asked every two milliseconds or so; the first start, which
also fills the disk cache, is shown separately. Without -noreset the server would restart whenever the last query ends.
Needs Debian's xvfb, xauth and xdotool.
"""
import os
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

LONGEST_S = 30


def is_visible(process):
    search = ["xdotool", "search", "--onlyvisible", "--pid", str(process.pid), "--name", "^Quorvel$"]
    return subprocess.run(search, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False).stdout != b""


def time_start(program, home):
    environment = {**os.environ, "XDG_CONFIG_HOME": home, "XDG_RUNTIME_DIR": home, "QT_QPA_PLATFORM": "xcb"}
    start = time.perf_counter()
    process = subprocess.Popen([program, "no-such-file.001"], env=environment)
    try:
        while not is_visible(process):
            if time.perf_counter() - start > LONGEST_S or process.poll() is not None:
                sys.exit("The window did not appear.")
        return (time.perf_counter() - start) * 1e3
    finally:
        process.terminate()
        process.wait()


def main():
    if not 2 <= len(sys.argv) <= 3:
        sys.exit(__doc__)
    program = Path(sys.argv[1]) / "bin" / "quorvel"
    repeats = int(sys.argv[2]) if len(sys.argv) == 3 else 15
    with tempfile.TemporaryDirectory() as home:
        first = time_start(program, home)
        times = [time_start(program, home) for _ in range(repeats)]
    print(f"first start          {first:7.1f} ms")
    print(f"{repeats} more: min {min(times):.1f}, median {statistics.median(times):.1f}, max {max(times):.1f} ms")


if __name__ == "__main__":
    main()

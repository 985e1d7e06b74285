"""Processes that are timed: whole ones, and ones that time single runs themselves."""

import re
import subprocess
from dataclasses import dataclass
from pathlib import Path


@dataclass
class Cost:
    milliseconds: float  # user and system time
    megabytes: float  # peak of the memory in use


def output_of(command):
    return subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, text=True, check=True).stdout


def run_whole(starter, command):
    """Cost of one whole process, its output discarded; `starter` is bench/process_cost.cpp."""
    return Cost(*(float(word) for word in output_of([starter, *command]).split()))


def peak_megabytes(process):
    """Largest memory of a running process so far, preparation included."""
    status = Path(f"/proc/{process.pid}/status").read_text(encoding="ascii")
    return int(re.search(r"^VmHWM:\s*(\d+) kB$", status, re.MULTILINE)[1]) * 1024e-6


class Worker:
    """A process that does its work item at each command; see bench/work_item.h."""

    def __init__(self, command):
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def ask(self, command):
        self.process.stdin.write(command + "\n")
        self.process.stdin.flush()
        answer = self.process.stdout.readline()
        if not answer:
            raise RuntimeError("no answer from " + " ".join(map(str, self.process.args)))
        return [float(word) for word in answer.split()]

    def run(self):
        return self.ask("run")[0]

    def digest(self):
        return self.ask("digest")

    def end(self):
        """Ends the process; the peak of its memory."""
        megabytes = peak_megabytes(self.process)
        self.process.stdin.close()
        self.process.stdout.close()
        if self.process.wait() != 0:
            raise RuntimeError("failed: " + " ".join(map(str, self.process.args)))
        return megabytes

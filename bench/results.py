"""Reads what the benchmarks wrote as JSON."""
import json
import re
import statistics

# What is appended to the names of cases that are run in a way of their own.
APPENDED = re.compile(r"(iterations|repeats|min_time):.*|manual_time")
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


class Results:
    """The runs of all repetitions, by the parts of the name of their case."""

    def __init__(self, *paths):
        self.runs = {}
        self.errors = {}
        for path in paths:
            written = json.loads(path.read_text(encoding="utf-8"))
            self.machine = written["context"]
            for run in written["benchmarks"]:
                if run["run_type"] == "iteration":
                    self.add(run)

    def add(self, run):
        case = tuple(part for part in run["run_name"].split("/") if not APPENDED.fullmatch(part))
        if run.get("error_occurred"):
            self.errors[case] = run["error_message"]
        else:
            self.runs.setdefault(case, []).append(run)

    def median(self, case, value):
        """The median of `value(run)` over the repetitions of a case, None when there is none."""
        values = [value(run) for run in self.runs.get(case, [])]
        return statistics.median(values) if values and None not in values else None

    def repetitions(self):
        return max(map(len, self.runs.values()))


def counter(name):
    return lambda run: run[name]


def processor_nanoseconds(run):
    """Of one iteration, as the library measured it."""
    return run["cpu_time"] * NANOSECONDS[run["time_unit"]]


def manual_nanoseconds(run):
    """Of one iteration, as the case measured it."""
    return run["real_time"] * NANOSECONDS[run["time_unit"]]

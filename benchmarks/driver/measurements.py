"""Benchmarks that are measured from outside the program: start, memory, idle, second start."""
import argparse
import pathlib
import subprocess
import time

from processes import Home, Program, evict, run_ms
from summary import Result

SETTLE_S = 5  # after a start: the first refresh comes after 2 s, the statistics request fails soon after


def in_turn(pairs, program, bare):
    """Runs both in turn, in alternating order; returns the values of both."""
    values, bare_values = [], []
    for number in range(pairs):
        for measured, kept in ((program, values), (bare, bare_values))[::1 if number % 2 == 0 else -1]:
            kept.append(measured())
    return values, bare_values


def start(build, options):
    """1: from process start to the first painted frame."""
    program = [build / "src/tandry"]
    bare = [build / "benchmarks/bench_bare_windows"]
    with Home() as home:
        def first_frame(command):
            with Program(command, home) as running:
                return running.first_frame_ms()

        def cold_frame(command):
            evict(files)
            return first_frame(command)

        files = set()
        for command in (program, bare):
            with Program(command, home) as running:
                running.first_frame_ms()
                files |= running.mapped_files()
        for folder in qt_folders(files):
            files |= {str(path) for path in folder.rglob("*") if path.is_file()}

        warm = in_turn(options.pairs, lambda: first_frame(program), lambda: first_frame(bare))
        cold = in_turn(options.pairs, lambda: cold_frame(program), lambda: cold_frame(bare))
    return [Result("1", "start, warm", "ms", *warm, reach="≤ 1.5"),
            Result("1", "start, cold", "ms", *cold, reach="≤ 1.5")]


def qt_folders(files):
    """The folders of documents, plugins and fonts, which are read without being mapped."""
    qt = {pathlib.Path(name).parents[1] for name in files if "/plugins/" in name or "/qml/" in name}
    return [folder for folder in qt | {pathlib.Path("/usr/share/fonts"), pathlib.Path("/etc/fonts")}
            if folder.is_dir()]


def memory(build, options):
    """2: memory (proportional set size) after the start, after opening every window, after days of ticks."""
    program = [build / "benchmarks/bench_resident"]
    bare = [build / "benchmarks/bench_bare_windows"]
    after_start, after_opening, growth = ([], []), ([], []), ([], [])
    with Home() as home:
        for _ in range(options.pairs):
            for side, command in enumerate((program, bare)):
                with Program(command + (["hidden"] if side else []), home) as running:
                    running.order("show")
                    running.live(options.settle)
                    after_start[side].append(running.pss_mib())
                    running.order("open all")
                    running.live(options.settle)
                    after_opening[side].append(running.pss_mib())
                    if side == 0:
                        for kept, value in zip(growth, growth_over_days(running, options)):
                            kept.append(value)
    return [Result("2", "memory after start", "MiB", *after_start, reach="≤ 1.4"),
            Result("2", "memory, every window open", "MiB", *after_opening, reach="≤ 1.4"),
            Result("2", "growth over a day of ticks", "MiB", growth[0], reach="none"),
            Result("2", f"growth from day {options.days} to day {2 * options.days}", "MiB", growth[1], reach="none")]


def growth_over_days(running, options):
    """The growth over one day, and over sixty days once the scripts' engines collect garbage regularly."""
    def after(days):
        for _ in range(days):
            running.order("day")
        running.live(options.settle)
        running.order("collect")
        return running.pss_mib()

    start = after(0)
    first = after(1)
    level = after(options.days)
    return first - start, after(options.days) - level


def rest(build, options):
    """3: a hidden program sleeps; a shown one only blinks its cursor."""
    program = [build / "benchmarks/bench_resident"]
    bare = [build / "benchmarks/bench_bare_field"]
    return hidden(program, options) + shown(program, bare, options)


def hidden(command, options):
    # All at once: sleeping programs do not disturb each other.
    homes = [Home() for _ in range(options.pairs)]
    programs = [Program(command, home) for home in homes]
    try:
        for running in programs:
            running.order("show")
        for running in programs:
            running.live(options.settle / options.pairs)
            running.order("hide")
        programs[-1].live(options.settle)
        before = [(running.cpu_ticks(), running.wake_ups()) for running in programs]
        time.sleep(options.hidden)
        after = [(running.cpu_ticks(), running.wake_ups()) for running in programs]
    finally:
        for running, home in zip(programs, homes):
            running.__exit__()
            home.__exit__()
    ticks = [end[0] - begin[0] for begin, end in zip(before, after)]
    wake_ups = [end[1] - begin[1] for begin, end in zip(before, after)]
    return [Result("3", f"hidden for {options.hidden} s", "ticks", ticks, reach="≤ 1"),
            Result("3", f"hidden for {options.hidden} s", "wake-ups", wake_ups, reach="≤ 5")]


def shown(program, bare, options):
    cpu, wake_ups = ([], []), ([], [])
    with Home() as home:
        for _ in range(options.pairs):
            for side, command in enumerate((program, bare)):
                with Program(command, home) as running:
                    running.order("show")
                    running.live(options.settle)
                    begin = running.cpu_ms(), running.wake_ups()
                    running.live(options.shown)
                    cpu[side].append(running.cpu_ms() - begin[0])
                    wake_ups[side].append(running.wake_ups() - begin[1])
    return [Result("3", f"shown for {options.shown} s, processor", "ms", *cpu, reach="≤ 1.3"),
            Result("3", f"shown for {options.shown} s", "wake-ups", *wake_ups, reach="≤ 1.3")]


def second_start(build, options):
    """10: a second start, from process start to exit, while the first instance is idle."""
    program = [build / "src/tandry"]
    bare = [build / "benchmarks/bench_bare_application"]
    with Home() as home, Program(program, home) as first:
        first.first_frame_ms()
        first.live(options.settle)

        def until_exit(command):
            taken = run_ms(command, home)
            # The first instance becomes idle before the next start.
            first.live(0.3)
            return taken

        values = in_turn(options.pairs, lambda: until_exit(program), lambda: until_exit(bare))
    return [Result("10", "second start", "ms", *values, reach="≤ 1.3")]


def opening(build, options):
    """12: loading after the first frame, and the first use of each window compared with the second; one process for each
    pair."""
    results = {}
    single = argparse.Namespace(**{**vars(options), "pairs": 1})
    for _ in range(options.pairs):
        for result in inside("opening", build, single, patients=1000 if options.pairs > 1 else 100, number="12",
                             reaches=OPENING_REACHES):
            kept = results.setdefault(result.label, result)
            if kept is not result:
                kept.values += result.values
                kept.bare = result.bare and kept.bare + result.bare
    return list(results.values())


OPENING_REACHES = {"everything loaded after the first frame": "≤ 300 ms", **{
    f"first {what}, beside the second": "≤ 1.2" for what in ("letter", "opening of the list",
                                                            "opening of the contacts")}}


def inside(name, build, options, *, patients, number, reaches=None):
    """Runs a benchmark that measures within one process and parses its output."""
    with Home() as home:
        answer = subprocess.run(
            [build / "benchmarks" / f"bench_{name}", "--pairs", str(options.pairs), "--patients", str(patients)],
            env=dict(home.environment(), QT_LOGGING_RULES=""), stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
            text=True, check=True, timeout=3600)
    results = {}
    for line in answer.stdout.splitlines():
        kind, label, *numbers = line.split("\t")
        result = results.setdefault(label, Result(number, f"{label}, {patients:,} patients", unit(label), [],
                                                  [] if kind == "pair" else None, (reaches or {}).get(label, "")))
        result.values.append(float(numbers[0]))
        if kind == "pair":
            result.bare.append(float(numbers[1]))
    return list(results.values())


def unit(label):
    return {"frames dropped per 1,000": "frames", "report, characters": "characters"}.get(label, "ms")

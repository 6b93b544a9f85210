#!/usr/bin/env python3
"""Runs whole commands interleaved (A, B, C, A, B, C, ...) and reports, for
each, wall time and CPU time (user + system of the process and everything it
waited for) as min and median over the repeats, and the ratio of each to the
first command.

    interleave.py --repeats N --warmup W NAME=COMMAND NAME=COMMAND ...

COMMAND is split as a shell would split it and run without a shell. With --reported, each command prints its own
"WALL_MS CPU_MS" as its last line (a timer such as build/bench/tray-launch
that measures up to an event) and those are taken instead. Prints a
markdown table. A command that fails stops the run with its output.
"""
import argparse
import resource
import shlex
import statistics
import subprocess
import sys
import time


def run_once(command, reported):
    start = time.perf_counter()
    process = subprocess.Popen(shlex.split(command),
                               stdout=subprocess.PIPE if reported else subprocess.DEVNULL,
                               stderr=subprocess.PIPE)
    out, err = process.communicate()
    wall = time.perf_counter() - start
    if process.returncode != 0:
        sys.exit(f"failed ({process.returncode}): {command}\n{err.decode(errors='replace')}")
    if reported:
        wall_ms, cpu_ms = out.decode().split()[-2:]
        return float(wall_ms), float(cpu_ms)
    usage = resource.getrusage(resource.RUSAGE_CHILDREN)
    cpu = usage.ru_utime + usage.ru_stime - run_once.children
    run_once.children = usage.ru_utime + usage.ru_stime
    return wall * 1000, cpu * 1000


run_once.children = 0.0


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--repeats", type=int, default=10)
    parser.add_argument("--warmup", type=int, default=2)
    parser.add_argument("--between", default="", help="a command run after each one (not timed)")
    parser.add_argument("--reported", action="store_true",
                        help="the commands print their own WALL_MS CPU_MS")
    parser.add_argument("commands", nargs="+")
    args = parser.parse_args()
    named = [c.split("=", 1) for c in args.commands]
    results = {name: ([], []) for name, _ in named}
    for round_ in range(args.warmup + args.repeats):
        for name, command in named:
            wall, cpu = run_once(command, args.reported)
            if args.between:
                subprocess.run(["/bin/sh", "-c", args.between], check=False)
                usage = resource.getrusage(resource.RUSAGE_CHILDREN)
                run_once.children = usage.ru_utime + usage.ru_stime
            if round_ >= args.warmup:
                results[name][0].append(wall)
                results[name][1].append(cpu)
    first = named[0][0]
    base_walls, base_cpus = results[first]
    print(f"Interleaved, {args.repeats} repeats after {args.warmup} warm-ups; "
          f"ratios to {first}, of the minima and of the medians.\n")
    print("| command | wall min–median | CPU min–median | wall ÷ " + first + " | CPU ÷ " + first + " |")
    print("|---|---|---|---|---|")
    for name, _ in named:
        walls, cpus = results[name]
        print(f"| {name} | {min(walls):.1f}–{statistics.median(walls):.1f} ms "
              f"| {min(cpus):.1f}–{statistics.median(cpus):.1f} ms "
              f"| {min(walls) / min(base_walls):.2f}–{statistics.median(walls) / statistics.median(base_walls):.2f} "
              f"| {min(cpus) / min(base_cpus):.2f}–{statistics.median(cpus) / statistics.median(base_cpus):.2f} |")


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Makes NC files from all CFF2 drawings of a folder, on all processor cores.

    post_folder.py TUNING FOLDER OUTPUT_FOLDER

The module brindle must be on PYTHONPATH. Each drawing gives a file of its name with .nc, whole or not at all. Messages
go to standard error. The exit status is 0 if all went well, 1 if a drawing failed, 2 for wrong usage.

The library has one session in a process, so drawings are spread over processes, each of which works on one after the
other, in a new session each.
"""
import concurrent.futures
import datetime
import pathlib
import signal
import sys

import brindle


def post(tuning, drawing, output, date, time):
    """Makes the NC file of one drawing, and gives the messages of its run."""
    with brindle.Host() as host:
        host.load_tuning(tuning)
        host.set_job(date=date, time=time, output_name=output.name)
        host.open_drawing(drawing)
        nc = host.run()
        brindle.write_nc(output, nc.segments)
        return host.messages()


class Progress:
    """A line on the terminal that says how many are done, and vanishes for messages."""

    def __init__(self, count):
        self.count = count
        self.shown = sys.stderr.isatty()

    def show(self, done):
        if self.shown:
            print(f"\r{done} of {self.count} drawings done", end="", file=sys.stderr, flush=True)

    def clear(self):
        if self.shown:
            print("\r\033[K", end="", file=sys.stderr, flush=True)


def outcome(drawing, job):
    """Waits for a job: whether it went well, and the lines to print."""
    try:
        return True, [f"{drawing}: warning: {message}" for message in job.result()]
    except brindle.InputError as error:
        return False, [str(error)]
    except (OSError, brindle.BrindleError, concurrent.futures.BrokenExecutor) as error:
        return False, [f"{drawing}: {error}"]


def report(drawings, jobs):
    """Waits for all jobs and prints their messages in order; true if all went well."""
    progress = Progress(len(drawings))
    all_good = True
    for done, (drawing, job) in enumerate(zip(drawings, jobs)):
        progress.show(done)
        good, lines = outcome(drawing, job)
        progress.clear()
        all_good = all_good and good
        for line in lines:
            print(f"post_folder: {line}", file=sys.stderr)
    return all_good


def tuning_fault(tuning):
    """What keeps all jobs from running, or None."""
    try:
        with brindle.Host() as host:
            host.load_tuning(tuning)
    except brindle.BrindleError as error:
        return str(error)
    return None


def post_all(tuning, drawings, output_folder):
    now = datetime.datetime.now()
    date, time = f"{now:%Y-%m-%d}", f"{now:%H:%M:%S}"
    # Ctrl-C stops this process, which lets the others finish what they have begun.
    with concurrent.futures.ProcessPoolExecutor(initializer=signal.signal,
                                                initargs=(signal.SIGINT, signal.SIG_IGN)) as pool:
        jobs = [pool.submit(post, tuning, drawing, output_folder / (drawing.stem + ".nc"), date, time)
                for drawing in drawings]
        try:
            return report(drawings, jobs)
        except KeyboardInterrupt:
            pool.shutdown(cancel_futures=True)
            raise


def main(arguments):
    if len(arguments) != 3:
        print(__doc__, file=sys.stderr)
        return 2
    tuning, folder, output_folder = map(pathlib.Path, arguments)
    drawings = sorted(folder.glob("*.cf2"))
    fault = tuning_fault(tuning) if drawings else f"{folder}: holds no .cf2 file"
    if fault:
        print(f"post_folder: {fault}", file=sys.stderr)
        return 1
    output_folder.mkdir(parents=True, exist_ok=True)
    try:
        return 0 if post_all(tuning, drawings, output_folder) else 1
    except KeyboardInterrupt:
        return 130


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))

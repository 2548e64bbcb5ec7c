#!/usr/bin/env python3
"""Follows the README: writes its files, runs its commands and compares what they print.

    readme.py README.md         in an empty folder, with the commands on the path

A block fenced as ```text NAME is added to the file NAME. In a block fenced as ```console, lines after `$ ` are
commands, and what is below one is what it prints, messages included. Blanks and carriage returns at line ends don't
count.
"""
import re
import subprocess
import sys

FENCED = re.compile(r"^```(\S*) ?(.*?)\n(.*?)^```$", re.MULTILINE | re.DOTALL)


def lines_of(text):
    return [line.rstrip() for line in text.rstrip().splitlines()]


def commands_of(block):
    """Pairs of a command and the lines that it is to print."""
    for part in re.split(r"^\$ ", block, flags=re.MULTILINE)[1:]:
        command, _, output = part.partition("\n")
        yield command, lines_of(output)


def output_of(command):
    run = subprocess.run(command, shell=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8")
    return run.stdout


def main():
    failures = commands = 0
    for kind, name, block in FENCED.findall(open(sys.argv[1], encoding="utf-8").read()):
        if kind == "text":
            with open(name, "a", encoding="utf-8") as file:
                file.write(block)
        for command, expected in commands_of(block) if kind == "console" else ():
            commands += 1
            printed = lines_of(output_of(command))
            if printed != expected:
                failures += 1
                print(f"$ {command}", *printed, "expected:", *expected, sep="\n", end="\n\n")
    if commands == 0:
        print("no commands")
    return 1 if failures or commands == 0 else 0


if __name__ == "__main__":
    sys.exit(main())

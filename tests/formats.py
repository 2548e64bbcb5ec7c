#!/usr/bin/env python3
"""The formats of findings agree: text, JSON and SARIF of tunings that are made from the examples by random faults.

    formats.py COMMAND EXAMPLES    in an empty folder
"""
import glob
import json
import random
import re
import subprocess
import sys
import urllib.parse

COUNT, BATCH = 2000, 250
TEXT_LINE = re.compile(r"^(.*):(\d+):(\d+):\s+(warning|error|info|note):\s+(.*)$")  # as editors have it
LEVELS = {"error": "error", "loss": "error", "warning": "warning", "info": "note"}
ODD = ["ä", "€", "\U0001d11e", "\xff", "\x01", "!", "<@", "]", ">", "(", "1e999", "chr(", "\t", '"', "\\", " "]
failures = 0


def fail(text):
    global failures
    failures += 1
    if failures < 20:
        print("FAILED:", text)


# ---- Faults ----

def in_line(line, random_):
    at = random_.randrange(len(line) + 1)
    kind = random_.randrange(4)
    if kind == 0:
        return line[:at] + random_.choice(ODD) + line[at:]
    if kind == 1:
        return line[:at] + line[at + 1:]
    if kind == 2:
        return line[:at] + line[at:at + 1].swapcase() + line[at + 1:]
    words = line.split(" ")
    words[random_.randrange(len(words))] = random_.choice(["no", "true", "-1", "10mm", "X", "NNUL", "<@EndPtWord>"])
    return " ".join(words)


def mutated(lines, random_):
    lines = list(lines)
    for _ in range(random_.randrange(1, 6)):
        at = random_.randrange(len(lines))
        kind = random_.randrange(6)
        if kind == 0:
            lines.insert(at, random_.choice(lines))
        elif kind == 1:
            del lines[at]
        else:
            lines[at] = in_line(lines[at], random_)
    return lines


def make_tunings(examples):
    random_ = random.Random(20261125)
    sources = [open(path, encoding="utf-8").read().splitlines() for path in sorted(glob.glob(examples + "/*/*.tun"))]
    names = []
    for number in range(COUNT):
        lines = mutated(random_.choice(sources), random_)
        names.append(f"odd name % {number}.tun" if number % 50 == 0 else f"{number}.tun")
        # A byte that is no UTF-8 among the others.
        data = "\n".join(lines).encode().replace("\xff".encode(), b"\xff")
        open(names[-1], "wb").write(data)
    return names


# ---- Formats ----

def output(command, form, names):
    run = subprocess.run([command, "check", "--format", form, *names], capture_output=True, check=False)
    if run.returncode not in (0, 1):
        fail(f"{form}: exit status {run.returncode}")
    return run.returncode, run.stdout, run.stderr.decode()


def as_text(finding):
    kind = "error: loss" if finding["severity"] == "loss" else finding["severity"]
    way_out = f" ({finding['help']})" if finding["help"] else ""
    return (f"{finding['file']}:{finding['line'] or 1}:{finding['column'] or 1}: {kind}: "
            f"{finding['message']}{way_out} [{finding['rule']}]")


def check_text(findings, text):
    lines = [line for line in text.split("\n") if TEXT_LINE.match(line) and not line.startswith("    ")]
    expected = [as_text(finding) for finding in findings]
    if lines != expected:
        odd = next((pair for pair in zip(lines, expected) if pair[0] != pair[1]), (len(lines), len(expected)))
        fail(f"text and JSON: {odd}")


def check_place(finding, lines):
    if finding["line"] is None:
        return
    line = lines[finding["line"] - 1]
    first, last = finding["column"], finding["end_column"]
    if first is not None and not 1 <= first < last <= max(len(line) + 1, 2):
        fail(f"columns {first} to {last} of {line!r}")
    word = re.match(r"unknown key '(.*)'$", finding["message"])
    if word and word[1] != re.sub("[\x00-\x1f\x7f-\x9f]", "?", line[first - 1:last - 1]):
        fail(f"{word[1]!r} is not at {first} of {line!r}")


def region_of(finding):
    names = {"line": "startLine", "column": "startColumn", "end_column": "endColumn"}
    return {theirs: finding[ours] for ours, theirs in names.items() if finding[ours] is not None}


def check_result(finding, result, rules):
    way_out = f" ({finding['help']})" if finding["help"] else ""
    place = result["locations"][0]["physicalLocation"]
    uri = place["artifactLocation"]["uri"]
    same = [(result["ruleId"], finding["rule"]), (rules[result["ruleIndex"]]["id"], finding["rule"]),
            (result["level"], LEVELS[finding["severity"]]), (result["properties"]["severity"], finding["severity"]),
            (result["message"]["text"], finding["message"] + way_out), (urllib.parse.unquote(uri), finding["file"]),
            (place.get("region", {}), region_of(finding))]
    if not re.fullmatch(r"(?:[A-Za-z0-9._~/-]|%[0-9A-F]{2})+", uri):
        fail(f"no relative reference: {uri}")
    for theirs, ours in same:
        if theirs != ours:
            fail(f"SARIF and JSON: {theirs!r}, {ours!r}")


def check_sarif(findings, log):
    run, = log["runs"]
    rules = run["tool"]["driver"]["rules"]
    identifiers = [rule["id"] for rule in rules]
    if (log["version"], run["columnKind"]) != ("2.1.0", "unicodeCodePoints") or not run["tool"]["driver"]["name"]:
        fail("head of the SARIF log")
    if len(set(identifiers)) != len(identifiers):
        fail("a rule is there twice")
    if any(rule["defaultConfiguration"]["level"] not in LEVELS.values() for rule in rules):
        fail("no level of a rule")
    if len(run["results"]) != len(findings):
        fail(f"{len(run['results'])} results for {len(findings)} findings")
    for finding, result in zip(findings, run["results"]):
        check_result(finding, result, rules)


def characters(path):
    data = open(path, "rb").read().decode("utf-8", "surrogateescape")
    data = re.sub("[\udc80-\udcff]", lambda byte: chr(ord(byte[0]) - 0xDC00), data)  # a stray byte is one character
    return [line.removesuffix("\r") for line in data.split("\n")]


def check_batch(command, names):
    json_status, data, _ = output(command, "json", names)
    findings = json.loads(data)
    sarif_status, log, _ = output(command, "sarif", names)
    text_status, nothing, text = output(command, "text", names)
    if nothing or not json_status == sarif_status == text_status:
        fail(f"exit statuses {json_status}, {sarif_status}, {text_status}")
    lines = {name: characters(name) for name in names}
    for finding in findings:
        check_place(finding, lines[finding["file"]])
    check_text(findings, text)
    check_sarif(findings, json.loads(log))
    return len(findings)


# Mending what has been mended changes nothing, and makes no error.
def check_mends(command, names):
    _, before, _ = output(command, "json", names)
    subprocess.run([command, "check", "--fix", "--format", "json", *names], capture_output=True, check=False)
    _, after, _ = output(command, "json", names)
    shown = subprocess.run([command, "check", "--fix=dry", *names], capture_output=True, check=False).stdout
    mended = len(json.loads(before)) - len(json.loads(after))
    if shown:
        fail(f"mended twice: {shown[:500]}")
    if mended < 20:
        fail(f"only {mended} findings less")


def main():
    command, examples = sys.argv[1:]
    names = make_tunings(examples)
    found = sum(check_batch(command, names[i:i + BATCH]) for i in range(0, COUNT, BATCH))
    check_mends(command, names[:500])
    print(f"{COUNT} tunings, {found} findings, {failures} failures")
    return 1 if failures or found < COUNT else 0


if __name__ == "__main__":
    sys.exit(main())

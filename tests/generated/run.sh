#!/usr/bin/env bash
# All generated jobs through a runner; and one with a wrong result, which the runner must notice.
# usage: run.sh RUNNER
set -uo pipefail
jobs=$(dirname "$0")/jobs.jsonl.xz
xz -dc "$jobs" | "$1" || exit 1

wrong=$(xz -dc "$jobs" 2>/dev/null | head -n 1 | sed 's/"results":\[\[\]/"results":[["wrong"]/' | "$1")
[[ $wrong == *'expected ["wrong"]'*'1 jobs, 1 failed' ]] || { echo "a wrong result is not noticed: $wrong"; exit 1; }

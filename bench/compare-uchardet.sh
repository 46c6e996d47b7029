#!/usr/bin/env bash
# Times `captora-cli detect-encoding` against the `uchardet` command line on the same file,
# each run as a whole program (start-up included), and prints the ratio ours / theirs.
#
#   bench/compare-uchardet.sh [FILE] [RUNS]
#
# Without FILE it writes a 1 MB Russian subtitle file in code page 1251 made from the
# evaluation texts. Run it from a build made with the "dev" preset (or set CAPTORA_CLI).
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
cli=${CAPTORA_CLI:-$here/../build/dev/src/cli/captora-cli}
runs=${2:-10}
command -v uchardet >/dev/null || { echo "uchardet is not installed (apt-get install uchardet)" >&2; exit 2; }
[[ -x $cli ]] || { echo "no captora-cli at $cli: build first (cmake --build --preset dev)" >&2; exit 2; }

file=${1:-}
if [[ -z $file ]]; then
    file=$(mktemp --suffix=.srt)
    trap 'rm -f "$file"' EXIT
    python3 - "$here/../tests/data/encoding/texts/Russian.txt" "$file" <<'PY'
import sys
lines = [l for l in open(sys.argv[1], encoding="utf-8").read().split("\n") if l]
out, n = [], 0
while n < 1_000_000:
    t = 1000 + len(out) * 2500
    cue = "%d\n00:%02d:%02d,000 --> 00:%02d:%02d,500\n%s\n\n" % (
        len(out) + 1, t // 60000 % 60, t // 1000 % 60, t // 60000 % 60, (t + 2000) // 1000 % 60,
        lines[len(out) % len(lines)])
    out.append(cue)
    n += len(cue.encode("cp1251"))
open(sys.argv[2], "wb").write("".join(out).encode("cp1251")[:1_000_000])
PY
fi

# Milliseconds of wall-clock time for RUNS runs of the command, best run.
best_ms() {
    local best=
    for ((i = 0; i < runs; i++)); do
        local start end
        start=$(date +%s%N)
        "$@" >/dev/null 2>&1 || true
        end=$(date +%s%N)
        local ms=$(((end - start) / 1000))
        [[ -z $best || $ms -lt $best ]] && best=$ms
    done
    echo "$best"
}

# Milliseconds of processor time (user + system) of the command, best of RUNS: on a loaded
# machine the wall-clock time mostly measures the wait for a processor. Taken from the
# child's own resource usage (wait4), to the microsecond: /usr/bin/time counts in steps of
# 10 ms, as long as a whole run takes.
best_cpu_ms() {
    python3 - "$runs" "$@" <<'PY'
import os, subprocess, sys
runs, command = int(sys.argv[1]), sys.argv[2:]
best = None
for _ in range(runs):
    child = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    _, _, usage = os.wait4(child.pid, 0)
    child.returncode = 0  # reaped above
    ms = (usage.ru_utime + usage.ru_stime) * 1000
    best = ms if best is None else min(best, ms)
print("%.1f" % best)
PY
}

echo "file: $file ($(stat -c %s "$file") bytes)"
echo "captora-cli says: $("$cli" detect-encoding "$file" | grep -E '^(encoding|decision)' | tr '\n' ' ')"
echo "uchardet says:    $(uchardet "$file")"
ours=$(best_ms "$cli" detect-encoding "$file")
theirs=$(best_ms uchardet "$file")
printf 'captora-cli detect-encoding: %d.%03d ms (best of %d)\n' $((ours / 1000)) $((ours % 1000)) "$runs"
printf 'uchardet:                    %d.%03d ms (best of %d)\n' $((theirs / 1000)) $((theirs % 1000)) "$runs"
awk -v a="$ours" -v b="$theirs" 'BEGIN { printf "ratio ours/theirs: %.2f\n", a / b }'
ours_cpu=$(best_cpu_ms "$cli" detect-encoding "$file")
theirs_cpu=$(best_cpu_ms uchardet "$file")
printf 'processor time: captora-cli %s ms, uchardet %s ms (best of %d): ratio %s\n' "$ours_cpu" \
    "$theirs_cpu" "$runs" "$(awk -v a="$ours_cpu" -v b="$theirs_cpu" 'BEGIN { printf "%.2f", a / (b ? b : 1) }')"

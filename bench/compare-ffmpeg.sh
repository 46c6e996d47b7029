#!/usr/bin/env bash
# Times, in one run on the same file, `captora-cli convert` of a 100,000-cue SubRip file of
# two-line cues (about 9.5 MB) against ffmpeg doing the same conversion, and prints the
# ratio ours/theirs, by wall-clock time (best of N runs) and by CPU time (user + system, best
# of N). Also reports the peak memory (maximum resident set) of `captora-cli dump` on that
# file. Targets: ratio <= 0.08, dump peak <= 60 MB.
# Usage: bench/compare-ffmpeg.sh [path/to/captora-cli] [runs, default 5]
set -euo pipefail
here="$(cd "$(dirname "$0")" && pwd)"
cli="${1:-$here/../build/release/src/cli/captora-cli}"
[[ -x "$cli" ]] || cli="$here/../build/dev/src/cli/captora-cli"
runs="${2:-5}"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$here/make-big-srt.sh" 100000 > "$work/big.srt"
echo "Input: $(wc -c < "$work/big.srt") bytes, 100000 cues of two lines"
echo "Program: $cli"

# Best wall-clock and best CPU seconds of $runs runs: prints "wall cpu".
best() {
    local best_wall="" best_cpu="" line wall cpu
    for ((i = 0; i < runs; i++)); do
        line=$(/usr/bin/time -f '%e %U %S' "$@" 2>&1 >/dev/null | tail -n 1)
        wall=$(awk '{ print $1 }' <<<"$line")
        cpu=$(awk '{ printf "%.2f", $2 + $3 }' <<<"$line")
        if [[ -z "$best_wall" ]] || awk -v a="$wall" -v b="$best_wall" 'BEGIN { exit !(a < b) }'; then
            best_wall=$wall
        fi
        if [[ -z "$best_cpu" ]] || awk -v a="$cpu" -v b="$best_cpu" 'BEGIN { exit !(a < b) }'; then
            best_cpu=$cpu
        fi
    done
    echo "$best_wall $best_cpu"
}

# Alternating, so that a busy moment of the machine falls on both.
read -r ours_wall ours_cpu < <(best "$cli" convert "$work/big.srt" "$work/out.srt")
read -r theirs_wall theirs_cpu < <(best ffmpeg -nostdin -v error -i "$work/big.srt" -f srt -y "$work/out2.srt")
read -r ours_wall2 ours_cpu2 < <(best "$cli" convert "$work/big.srt" "$work/out.srt")
ours_wall=$(awk -v a="$ours_wall" -v b="$ours_wall2" 'BEGIN { print (a < b ? a : b) }')
ours_cpu=$(awk -v a="$ours_cpu" -v b="$ours_cpu2" 'BEGIN { print (a < b ? a : b) }')
read -r cat_wall _ < <(best cat "$work/big.srt")

ratio() { awk -v a="$1" -v b="$2" 'BEGIN { if (b > 0) printf "%.3f", a / b; else print "n/a" }'; }
echo "captora-cli convert: ${ours_wall} s wall, ${ours_cpu} s CPU"
echo "ffmpeg:              ${theirs_wall} s wall, ${theirs_cpu} s CPU"
echo "cat:                 ${cat_wall} s wall"
echo "ratio ours/ffmpeg:   $(ratio "$ours_wall" "$theirs_wall") wall, $(ratio "$ours_cpu" "$theirs_cpu") CPU (target <= 0.08)"

peak_kb=$(/usr/bin/time -f '%M' "$cli" dump "$work/big.srt" 2>&1 >/dev/null | tail -n 1)
echo "captora-cli dump peak memory: $((peak_kb / 1024)) MB (target <= 60 MB)"

#!/usr/bin/env bash
# Times, in one run on the same file, `captora-cli convert` of a 100,000-cue SubRip file
# against ffmpeg doing the same conversion, and prints the ratio ours/theirs. Also reports
# the peak memory of `captora-cli dump` on that file.
# Usage: bench/compare-ffmpeg.sh [path/to/captora-cli]
set -euo pipefail
here="$(cd "$(dirname "$0")" && pwd)"
cli="${1:-$here/../build/release/src/cli/captora-cli}"
[[ -x "$cli" ]] || cli="$here/../build/dev/src/cli/captora-cli"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$here/make-big-srt.sh" 100000 > "$work/big.srt"
echo "Input: $(wc -c < "$work/big.srt") bytes, 100000 cues"

# Best of three runs, in seconds.
best() {
    local best_time="" t
    for _ in 1 2 3; do
        local start end
        start=$(date +%s.%N)
        "$@" >/dev/null 2>&1
        end=$(date +%s.%N)
        t=$(awk -v a="$start" -v b="$end" 'BEGIN { printf "%.4f", b - a }')
        if [[ -z "$best_time" ]] || awk -v a="$t" -v b="$best_time" 'BEGIN { exit !(a < b) }'; then
            best_time=$t
        fi
    done
    echo "$best_time"
}

ours=$(best "$cli" convert "$work/big.srt" "$work/out.srt")
theirs=$(best ffmpeg -v error -i "$work/big.srt" -f srt -y "$work/out2.srt")
catting=$(best cat "$work/big.srt")
ratio=$(awk -v a="$ours" -v b="$theirs" 'BEGIN { printf "%.3f", a / b }')
echo "captora-cli convert: ${ours} s"
echo "ffmpeg:              ${theirs} s"
echo "cat:                 ${catting} s"
echo "ratio ours/ffmpeg:   ${ratio} (target <= 0.1)"

peak_kb=$(/usr/bin/time -f '%M' "$cli" dump "$work/big.srt" 2>&1 >/dev/null | tail -n 1)
echo "captora-cli dump peak memory: $((peak_kb / 1024)) MB (target < 60 MB)"

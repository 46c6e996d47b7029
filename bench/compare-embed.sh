#!/usr/bin/env bash
# Times, in one run on the same files, `captora-cli embed` of a large movie with three
# subtitle files and a chapter file against `ffmpeg -c copy` doing the same job (same
# tracks, M4V, fast start) and against `cp` of the movie, and prints both ratios. Then times
# `captora-cli extract` of the result's three subtitle tracks against ffmpeg extracting them.
# The movie is made by stream-copy looping a short clip up to about SIZE_MB megabytes.
# Usage: bench/compare-embed.sh [SIZE_MB (default 1024)] [path/to/captora-cli]
set -euo pipefail
here="$(cd "$(dirname "$0")" && pwd)"
size_mb="${1:-1024}"
cli="${2:-$here/../build/release/src/cli/captora-cli}"
[[ -x "$cli" ]] || cli="$here/../build/dev/src/cli/captora-cli"
work=$(mktemp -d "${TMPDIR:-/tmp}/captora-embed-bench.XXXXXX")
trap 'rm -rf "$work"' EXIT
cd "$work"

# A 10-second clip at a high bit rate, looped by stream copy.
ffmpeg -v error -f lavfi -i "testsrc2=d=10:s=1280x720:r=25" -f lavfi -i "sine=d=10" \
    -c:v libx264 -preset ultrafast -qp 8 -c:a aac -b:a 192k clip.mp4
clip_bytes=$(stat -c %s clip.mp4)
loops=$(( (size_mb * 1024 * 1024 + clip_bytes - 1) / clip_bytes ))
ffmpeg -v error -stream_loop $((loops - 1)) -i clip.mp4 -c copy movie.mp4
seconds=$((loops * 10))
echo "Movie: $(stat -c %s movie.mp4) bytes, ${seconds} s (${loops} loops of a ${clip_bytes}-byte clip)"

# Three languages, one cue every 3 seconds, and a chapter every 5 minutes.
for lang in en de fr; do
    awk -v n=$((seconds / 3)) -v lang="$lang" 'function t(s) { return sprintf("%02d:%02d:%02d,%03d", s / 3600, (s % 3600) / 60, s % 60, 0) }
        BEGIN { for (i = 0; i < n; i++) printf "%d\n%s --> %s\n%s line %d\n\n", i + 1, t(i * 3), t(i * 3 + 2), lang, i + 1 }' \
        > "movie.$lang.srt"
done
awk -v n=$(( (seconds + 299) / 300 )) -v len="$seconds" 'function t(s) { return sprintf("%02d:%02d:%02d.000", s / 3600, (s % 3600) / 60, s % 60) }
    BEGIN { print "WEBVTT\n"; for (i = 0; i < n; i++) { e = (i + 1) * 300; if (e > len) e = len; printf "%d\n%s --> %s\nChapter %d\n\n", i + 1, t(i * 300), t(e), i + 1 } }' \
    > movie.vtt
awk -v n=$(( (seconds + 299) / 300 )) -v len="$seconds" \
    'BEGIN { print ";FFMETADATA1"; for (i = 0; i < n; i++) { e = (i + 1) * 300; if (e > len) e = len; printf "[CHAPTER]\nTIMEBASE=1/1\nSTART=%d\nEND=%d\ntitle=Chapter %d\n", i * 300, e, i + 1 } }' \
    > chapters.txt

# Wall-clock seconds of one run of a command (output discarded).
timed() {
    local start end
    start=$(date +%s.%N)
    "$@" >/dev/null 2>&1
    end=$(date +%s.%N)
    awk -v a="$start" -v b="$end" 'BEGIN { printf "%.3f", b - a }'
}

cat movie.mp4 > /dev/null # the same warm page cache for everyone
copying=$(timed cp movie.mp4 copy.mp4)
rm -f copy.mp4
ours=$(timed "$cli" embed movie.mp4)
theirs=$(timed ffmpeg -v error -i movie.mp4 -i movie.en.srt -i movie.de.srt -i movie.fr.srt -i chapters.txt \
    -map 0 -map 1 -map 2 -map 3 -map_chapters 4 -c copy -c:s mov_text \
    -metadata:s:s:0 language=eng -metadata:s:s:1 language=deu -metadata:s:s:2 language=fra \
    -movflags +faststart -f ipod ffmpeg.m4v)
[[ -s movie-Output.m4v ]] || { echo "captora-cli embed wrote nothing" >&2; exit 1; }
echo "output: ours $(stat -c %s movie-Output.m4v) bytes, ffmpeg's $(stat -c %s ffmpeg.m4v) bytes"
echo "captora-cli embed:   ${ours} s"
echo "ffmpeg -c copy:      ${theirs} s"
echo "cp:                  ${copying} s"
echo "ratio ours/ffmpeg:   $(awk -v a="$ours" -v b="$theirs" 'BEGIN { printf "%.2f", a / b }') (target <= 1.0)"
echo "ratio ours/cp:       $(awk -v a="$ours" -v b="$copying" 'BEGIN { printf "%.2f", a / b }')"
echo "ratio ffmpeg/cp:     $(awk -v a="$theirs" -v b="$copying" 'BEGIN { printf "%.2f", a / b }')"

rm -f movie.*.srt movie.vtt ffmpeg.m4v
ours_x=$(timed "$cli" extract movie-Output.m4v)
theirs_x=$(timed ffmpeg -v error -i movie-Output.m4v -map 0:s:0 -y x0.srt -map 0:s:1 -y x1.srt -map 0:s:2 -y x2.srt)
ls movie-Output.*.srt >/dev/null || { echo "captora-cli extract wrote nothing" >&2; exit 1; }
echo "captora-cli extract: ${ours_x} s"
echo "ffmpeg extract:      ${theirs_x} s"
echo "ratio ours/ffmpeg:   $(awk -v a="$ours_x" -v b="$theirs_x" 'BEGIN { printf "%.2f", a / b }')"

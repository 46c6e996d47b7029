#!/usr/bin/env bash
# Times, in one run on the same file, Captora's whole audio analysis of a two-hour film with
# a 5.1 AAC track (peaks and speech, `captora-cli speech`) against `ffmpeg -i X -vn -ac 1
# -ar 8000 out.wav` decoding the same track, and prints the ratio (goal: at most 0.7), the
# analysis's peak memory (goal: under 60 MB), the time to the first peaks around a playing
# position (goal: under 0.5 s) and the cached reopening (goal: under 0.2 s).
# The film is made by stream-copy looping a minute of speech spoken by espeak-ng over
# pink noise, the speech in the centre channel.
# Usage: bench/compare-audio.sh [MINUTES (default 120)] [BUILD_DIR (default build/release, else build/dev)]
set -euo pipefail
# Numbers are written and read with a decimal point, whatever the locale.
export LC_ALL=C
here="$(cd "$(dirname "$0")" && pwd)"
minutes="${1:-120}"
build="${2:-$here/../build/release}"
[[ -x "$build/src/cli/captora-cli-media" ]] || build="$here/../build/dev"
# The runs happen in a work folder: a build folder given relative to here must still be found.
build="$(cd "$build" && pwd)"
cli="$build/src/cli/captora-cli-media"
bench="$build/bench/audio_analysis_bench"
work=$(mktemp -d "${TMPDIR:-/tmp}/captora-audio-bench.XXXXXX")
trap 'rm -rf "$work"' EXIT
cd "$work"
ff() { ffmpeg -nostdin -v error -y "$@"; }

# One minute: a sentence every few seconds in the centre, pink noise 10 dB lower around it.
espeak-ng -v en -w s1.wav "We should have left the city before the storm reached the coast."
espeak-ng -v de -w s2.wav "Niemand hat gesehen, wer die Tür geöffnet hat."
ff -i s1.wav -i s2.wav -filter_complex \
    "[0:a]adelay=2000|2000,apad[a];[1:a]adelay=9000|9000,apad[b];[a][b]amix=inputs=2:normalize=0,aloop=loop=3:size=15*22050,atrim=0:60,aresample=48000[speech]" \
    -map "[speech]" -t 60 speech.wav
ff -f lavfi -i "anoisesrc=color=pink:amplitude=0.05:r=48000" -t 60 noise.wav
ff -f lavfi -i "testsrc=size=160x120:rate=1" -i speech.wav -i noise.wav -filter_complex \
    "[1:a][2:a]amerge=inputs=2,pan=5.1|FL=c1|FR=c1|FC=c0+0.3*c1|LFE=0.3*c1|BL=0.5*c1|BR=0.5*c1[a]" \
    -map 0:v -map "[a]" -c:v mpeg4 -q:v 10 -c:a aac -b:a 384k -t 60 clip.mp4
ff -stream_loop $((minutes - 1)) -i clip.mp4 -c copy movie.mp4
echo "Film: $(stat -c %s movie.mp4) bytes, ${minutes} minutes, $(ffprobe -v error -select_streams a \
    -show_entries stream=codec_name,channel_layout -of csv=p=0 movie.mp4) audio"

# Wall-clock seconds of one run of a command (output discarded).
timed() {
    local start end
    start=$(date +%s.%N)
    "$@" >/dev/null 2>&1
    end=$(date +%s.%N)
    echo "$end - $start" | bc -l
}
# Processor seconds (user and system) of one run.
cpu() { /usr/bin/time -f "%U %S" "$@" 2>&1 >/dev/null | tail -1 | awk '{ print $1 + $2 }'; }
best() { printf '%s\n' "$@" | sort -g | head -1; }

# Alternating runs, the better of two each, so that both see the same load.
ours=() theirs=()
for round in 1 2; do
    theirs+=("$(timed ffmpeg -nostdin -v error -y -i movie.mp4 -vn -ac 1 -ar 8000 out.wav)")
    ours+=("$(timed "$cli" speech --no-cache movie.mp4)")
done
t_ffmpeg=$(best "${theirs[@]}")
t_ours=$(best "${ours[@]}")
printf "ffmpeg to an 8 kHz mono WAV: %.2f s\n" "$t_ffmpeg"
printf "captora-cli speech (whole analysis): %.2f s\n" "$t_ours"
printf "ratio: %.2f (goal: at most 0.7)\n" "$(echo "$t_ours / $t_ffmpeg" | bc -l)"
printf "processor time: ffmpeg %.2f s, captora-cli speech %.2f s (on both cores together)\n" \
    "$(cpu ffmpeg -nostdin -v error -y -i movie.mp4 -vn -ac 1 -ar 8000 out.wav)" \
    "$(cpu "$cli" speech --no-cache movie.mp4)"
echo "load average while measuring: $(cut -d' ' -f1-3 /proc/loadavg) on $(nproc) cores"

# Peak memory: of the whole process, and of the analysis itself, above what the same command
# takes for a one-minute clip (the program with its FFmpeg, Qt and other libraries loaded).
peak() { /usr/bin/time -v "$@" 2>&1 >/dev/null | awk '/Maximum resident set size/ { print $6 / 1024 }'; }
film_mb=$(peak "$cli" speech --no-cache movie.mp4)
clip_mb=$(peak "$cli" speech --no-cache clip.mp4)
printf "peak memory: %.1f MB for the film, %.1f MB for a one-minute clip: the analysis takes %.1f MB (goal: under 60 MB)\n" \
    "$film_mb" "$clip_mb" "$(echo "$film_mb - $clip_mb" | bc -l)"

# The window's case: the first peaks around a playing position, and the cached reopening.
"$bench" movie.mp4 $((minutes * 30))
export XDG_CACHE_HOME="$work/cache"
"$cli" speech movie.mp4 >/dev/null
printf "captora-cli speech, cached: %.3f s (the whole command, start-up included)\n" \
    "$(timed "$cli" speech movie.mp4)"

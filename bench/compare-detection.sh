#!/usr/bin/env bash
# Encoding detection on the held-out part of the corpus, in one run: per encoding and in
# total, our accuracy (the loader's automatic detection, then the language rules at ratio
# 0.6: the text is exactly the one the true encoding gives), our silent-wrong rate (another
# text, without asking) and how often we ask; uchardet's accuracy (Debian's uchardet
# program) and that of ICU's charset detector; the time of each. Then the whole-program time
# of `captora-cli detect-encoding` and of `uchardet` on a 1 MB file.
#
#   bench/compare-detection.sh [CORPUS]        (CORPUS: build/encoding-corpus)
#
# Build the corpus first with tools/encoding-corpus/build-corpus.sh, and the programs with
# the "dev" preset (or set CAPTORA_BUILD to another build folder).
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
corpus=${1:-$here/../build/encoding-corpus}
build=${CAPTORA_BUILD:-$here/../build/dev}
compare=$build/bench/detection_compare
index=$corpus/tests/index.tsv
command -v uchardet >/dev/null || { echo "uchardet is not installed (apt-get install uchardet)" >&2; exit 2; }
[[ -x $compare ]] || { echo "no $compare: build first (cmake --build --preset dev)" >&2; exit 2; }
[[ -f $index ]] || { echo "no $index: run tools/encoding-corpus/build-corpus.sh first" >&2; exit 2; }

answers=$(mktemp)
trap 'rm -f "$answers"' EXIT
start=$(date +%s%N)
(cd "$corpus/tests" && cut -f1 index.tsv | xargs -d '\n' uchardet) > "$answers.raw"
end=$(date +%s%N)
# uchardet prints "path: CHARSET" for each file when given several.
sed "s|^|$corpus/tests/|" "$answers.raw" > "$answers"
rm -f "$answers.raw"
"$compare" "$index" "$answers" $(((end - start) / 1000000))

echo
"$here/compare-uchardet.sh" "" 5

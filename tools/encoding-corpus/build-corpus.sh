#!/usr/bin/env bash
# Builds the multilingual text corpus of the encoding rules from Debian packages.
#
#   tools/encoding-corpus/build-corpus.sh [OUT]        (OUT: build/encoding-corpus)
#
# Installs the packages of packages.txt beside this script when they are missing (as root;
# otherwise it names them and stops), then writes OUT/train/<language>/*.txt and
# OUT/heldout/<language>/*.txt (collect.py) and the held-out test files in every encoding
# of each language, OUT/tests/ with OUT/tests/index.tsv (make-tests.py). The rules
# generator (tools/encoding-rules/generate.py) reads OUT/train only; the comparison
# (bench/compare-detection.sh) reads OUT/tests only.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
out=${1:-$here/../../build/encoding-corpus}

mapfile -t packages < <(grep -v '^#' "$here/packages.txt")
missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if ((${#missing[@]})); then
    if [[ $(id -u) -ne 0 ]]; then
        echo "missing Debian packages (install them as root): ${missing[*]}" >&2
        exit 2
    fi
    apt-get update
    DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"
fi

rm -rf "$out"
mkdir -p "$out"
python3 "$here/collect.py" "$out"
python3 "$here/make-tests.py" "$out"
echo "corpus in $out"

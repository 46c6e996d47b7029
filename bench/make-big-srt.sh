#!/usr/bin/env bash
# Writes a SubRip file of N cues (default 100,000) to stdout: every cue has two text lines,
# every 50th is forced. 100,000 cues make about 9.5 MB.
set -euo pipefail
n="${1:-100000}"
awk -v n="$n" 'function t(x,   h, m, s, ms) {
        ms = x % 1000; x = int(x / 1000); s = x % 60; x = int(x / 60); m = x % 60; h = int(x / 60)
        return sprintf("%02d:%02d:%02d,%03d", h, m, s, ms)
    }
    BEGIN {
        for (i = 1; i <= n; i++) {
            start = i * 2500; end = start + 1800 + (i % 7) * 100
            printf "%d\n%s --> %s%s\n", i, t(start), t(end), (i % 50 == 0 ? " !!!" : "")
            printf "Line %d of the film, \"quoted\", Ümlaut\nand its line two\n\n", i
        }
    }'

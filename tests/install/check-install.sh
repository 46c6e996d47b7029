#!/usr/bin/env bash
# Checks of the installed program, one per first argument:
#   layout BUILD_DIR SOURCE_DIR VERSION WITH_WINDOW
#       `cmake --install` into a temporary prefix puts every file in its FHS place and nothing
#       elsewhere; the installed captora-cli runs, also after the whole tree moved, and reads
#       its resources from the installed tree, not from the source tree.
#   documented CLI SOURCE_DIR
#       the manual page and the bash completion name every command and option of captora-cli.
#   completion SOURCE_DIR
#       the bash completion completes commands, options and option values.
#   mime-types SOURCE_DIR
#       the desktop entry claims the types shared-mime-info gives every subtitle and movie
#       file name Captora opens.
set -euo pipefail

failures=0
fail() {
    echo "FAILED: $*" >&2
    failures=$((failures + 1))
}
expect_file() { [[ -f "$1" ]] || fail "missing $1"; }

# The width and height of a PNG file, from its header.
png_size() {
    local hex
    hex=$(od -An -tx1 -j16 -N8 "$1" | tr -d ' \n')
    echo "$((16#${hex:0:8}))x$((16#${hex:8:8}))"
}

check_layout() {
    local build=$1 source=$2 version=$3 with_window=$4
    local tmp
    tmp=$(mktemp -d)
    trap 'rm -rf "$tmp"' RETURN
    local prefix=$tmp/usr
    cmake --install "$build" --prefix "$prefix" >"$tmp/install.log" || {
        cat "$tmp/install.log" >&2
        fail "cmake --install failed"
        return
    }

    # Programs.
    local programs=(captora-cli)
    [[ $with_window == ON ]] && programs+=(captora)
    for program in "${programs[@]}"; do
        [[ -x $prefix/bin/$program ]] || fail "bin/$program is not an installed program"
    done
    # The movie commands' program, which captora-cli hands them to.
    [[ -x $prefix/libexec/captora/captora-cli-media ]] || fail "libexec/captora/captora-cli-media is missing"

    # Resources: the same files as the source tree's resources folder.
    local data=$prefix/share/captora
    (cd "$source/resources" && find . -type f | sort) >"$tmp/want"
    (cd "$data" && find . -type f ! -path './translations/*' | sort) >"$tmp/have"
    diff -u "$tmp/want" "$tmp/have" >&2 || fail "share/captora differs from the resources folder"
    # Translations, when the build makes any, are all .qm files.
    if [[ -d $data/translations ]]; then
        find "$data/translations" -type f ! -name '*.qm' | grep . >&2 && fail "non-.qm file in translations"
    fi

    # Desktop integration.
    local id=org.captora.Captora
    expect_file "$prefix/share/applications/$id.desktop"
    expect_file "$prefix/share/metainfo/$id.metainfo.xml"
    expect_file "$prefix/share/icons/hicolor/scalable/apps/$id.svg"
    for size in 16 22 24 32 48 64 128 256; do
        local png=$prefix/share/icons/hicolor/${size}x${size}/apps/$id.png
        if [[ -f $png ]]; then
            [[ $(png_size "$png") == "${size}x${size}" ]] || fail "$png is $(png_size "$png")"
        else
            fail "missing $png"
        fi
    done
    grep -qx "Exec=captora %F" "$prefix/share/applications/$id.desktop" || fail "the desktop entry runs no captora"
    grep -qx "Icon=$id" "$prefix/share/applications/$id.desktop" || fail "the desktop entry names another icon"

    # Manuals (compressed, without a time stamp), completion, package documents.
    for page in captora captora-cli; do
        local man=$prefix/share/man/man1/$page.1.gz
        if [[ -f $man ]]; then
            gzip -t "$man" || fail "$man is no gzip file"
            zcat "$man" | grep -q "^\.TH .*\"Captora $version\"" || fail "$man is not of version $version"
        else
            fail "missing $man"
        fi
    done
    expect_file "$prefix/share/bash-completion/completions/captora-cli"
    expect_file "$prefix/share/doc/captora/copyright"
    expect_file "$prefix/share/doc/captora/changelog.gz"

    # The versions the package and software centres show are the program's.
    local newest
    newest=$(grep -o '<release version="[^"]*"' "$prefix/share/metainfo/$id.metainfo.xml" | head -n 1 | cut -d'"' -f2)
    [[ $newest == "$version" ]] || fail "the newest release in the metainfo is $newest, not $version"
    newest=$(zcat "$prefix/share/doc/captora/changelog.gz" | head -n 1 | sed -n 's/^captora (\([^)]*\)).*/\1/p')
    [[ $newest == "$version" ]] || fail "the newest changelog entry is $newest, not $version"

    # Nothing outside those places.
    (cd "$prefix" && find . -type f | grep -Ev '^\./(bin/[^/]+|libexec/captora/captora-cli-media|share/(captora|applications|metainfo|icons/hicolor|man/man1|bash-completion/completions|doc/captora)/.+)$') \
        >"$tmp/stray" || true
    [[ -s $tmp/stray ]] && fail "files outside their places: $(tr '\n' ' ' <"$tmp/stray")"

    # The installed CLI runs from a moved tree and reads the installed resources: a Russian
    # text in code page 1251 is recognised by the installed rules.
    mv "$prefix" "$tmp/moved"
    prefix=$tmp/moved
    local out
    out=$(env -u CAPTORA_RESOURCES "$prefix/bin/captora-cli" --version) || fail "captora-cli --version failed"
    [[ $out == "captora-cli $version" ]] || fail "captora-cli --version said '$out'"
    iconv -f UTF-8 -t CP1251 "$source/tests/data/encoding/texts/Russian.txt" >"$tmp/russian.srt"
    if out=$(cd "$tmp" && env -u CAPTORA_RESOURCES "$prefix/bin/captora-cli" detect-encoding russian.srt 2>&1); then
        grep -q "Cyrillic (Windows)" <<<"$out" || fail "the installed rules did not find code page 1251: $out"
    else
        fail "detect-encoding with the installed rules failed: $out"
    fi
    # Without the installed rules it must fail: it may not fall back to the source tree.
    rm -r "$prefix/share/captora"
    if out=$(cd "$tmp" && env -u CAPTORA_RESOURCES "$prefix/bin/captora-cli" detect-encoding russian.srt 2>&1); then
        fail "an installed captora-cli without its rules still detected the encoding: $out"
    fi
}

# Every command of `captora-cli --help` and every option of each command's --help.
cli_commands() { "$1" --help | sed -n '/^Commands:/,/^$/p' | sed -n 's/^  \([a-z][a-z-]*\).*/\1/p'; }
cli_options() { "$1" "$2" --help | grep -Eo -- '(^|[ ,])--?[a-z][a-z-]*' | grep -Eo -- '--?[a-z-]+' | grep -Evx -- '-h|--help'; }

check_documented() {
    local cli=$1 source=$2
    local manual=$source/packaging/man/captora-cli.1.in
    local completion=$source/packaging/completion/captora-cli
    local commands
    commands=$(cli_commands "$cli")
    [[ $(wc -l <<<"$commands") -ge 10 ]] || fail "could not read the commands from --help: $commands"
    for command in $commands; do
        # The manual writes a minus as \-.
        grep -q "^\.BI\? ${command//-/\\\\-}\b" "$manual" || fail "the manual has no entry for $command"
        grep -Eq "(^|[ \"])$command([ \"]|$)" <(sed -n '/local commands=/,/"$/p' "$completion") ||
            fail "the completion does not offer $command"
        grep -Eq "^ *$command\)" "$completion" || fail "the completion has no options for $command"
        for option in $(cli_options "$cli" "$command"); do
            grep -q -- "${option//-/\\\\-}" "$manual" || fail "the manual does not name $command $option"
            local offered
            offered=$(grep -E "^ *$command\)" "$completion")
            [[ $offered == *'$reading'* ]] && offered+=" --fps --length --encoding --strict-encoding --chapters --salvage"
            grep -Eq -- "(\"| )$option( |\"|$)" <<<"$offered" || fail "the completion does not offer $command $option"
        done
    done
}

# What the completion function offers for a command line (the cursor at its end).
complete_line() {
    local line=$1 source=$2
    bash -c '
        source /usr/share/bash-completion/bash_completion
        source "$1"
        read -ra COMP_WORDS <<<"$2"
        [[ $2 == *" " ]] && COMP_WORDS+=("")
        COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
        COMP_LINE=$2
        COMP_POINT=${#2}
        _captora_cli captora-cli "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}"
        ((${#COMPREPLY[@]} == 0)) || printf "%s\n" "${COMPREPLY[@]}" | sort | tr "\n" " "
    ' bash "$source/packaging/completion/captora-cli" "$line"
}

check_completion() {
    local source=$1
    local tmp
    tmp=$(mktemp -d)
    trap 'rm -rf "$tmp"' RETURN
    touch "$tmp/Film.mp4" "$tmp/Film.srt" "$tmp/notes.odt"
    cd "$tmp"
    local got
    expect() {
        got=$(complete_line "$1" "$source")
        [[ $got == "$2" ]] || fail "'$1' completes to '$got', not '$2'"
    }
    expect "captora-cli sy" "sync "
    expect "captora-cli de" "detect-encoding "
    expect "captora-cli sync --m" "--mode "
    expect "captora-cli sync --mode " "fix shift single "
    expect "captora-cli convert --format " "srt vtt "
    expect "captora-cli shift --" "--by --chapters --encoding --fps --help --length --output --salvage --strict-encoding "
    expect "captora-cli embed " "Film.mp4 "
    expect "captora-cli dump " "Film.srt "
    expect "captora-cli encodings " ""
}

check_mime_types() {
    local source=$1
    local globs=/usr/share/mime/globs2
    [[ -f $globs ]] || {
        echo "no shared-mime-info here: skipped"
        exit 77
    }
    local claimed
    claimed=$(sed -n 's/^MimeType=//p' "$source/packaging/org.captora.Captora.desktop" | tr ';' '\n')
    # Every type named must exist, and every file name Captora opens must be claimed under
    # each type shared-mime-info gives it (a .sub file is MicroDVD or SubViewer; MPSub is
    # not read).
    for type in $claimed; do
        grep -q ":$type:" "$globs" || grep -q "^$type " /usr/share/mime/aliases ||
            fail "shared-mime-info knows no type $type"
    done
    for name in srt ssa ass sub vtt mp4 m4v mov mkv webm avi mpg m2ts ogv wmv flv 3gp; do
        local types
        types=$(grep -E ":\*\.$name(:|$)" "$globs" | cut -d: -f2 | grep -Ev '^(text/x-mpsub|audio/.*)$' | sort -u)
        [[ -n $types ]] || fail "shared-mime-info has no type for .$name"
        for type in $types; do
            grep -qx "$type" <<<"$claimed" || fail "the desktop entry does not claim $type (.$name)"
        done
    done
}

mode=$1
shift
case $mode in
    layout) check_layout "$@" ;;
    documented) check_documented "$@" ;;
    completion) check_completion "$@" ;;
    mime-types) check_mime_types "$@" ;;
    *)
        echo "unknown check $mode" >&2
        exit 2
        ;;
esac
if ((failures > 0)); then
    echo "$failures check(s) failed" >&2
    exit 1
fi
echo "passed"

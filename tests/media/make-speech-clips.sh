#!/usr/bin/env bash
# Makes movies with speech at known times for the speech detector's measurements.
#
#   make-speech-clips.sh OUTDIR tuning|heldout [every-format]
#
# Each clip is 36 s of a background (silence, music-like tones or pink noise 10 dB below the
# speech) with five utterances spoken by espeak-ng at known times, muxed with a testsrc
# picture as MP4 and MKV, with AAC stereo or 5.1 (speech in the centre channel): each clip in
# one of the four, in turn, or in all four with "every-format". Beside each
# movie, <movie>.truth lists the utterances as "start end" in seconds, measured on the
# spoken audio itself (its first and last sample above -50 dB). The Matroska files keep the
# AAC encoder's 1024 samples of priming that the MP4 edit list drops, so their sound starts
# 1024/48000 s later: their truth says so.
#
# The two sets share nothing: the detector is tuned on "tuning" and measured on "heldout",
# with other voices, languages and texts.
set -euo pipefail
# Numbers are written and read with a decimal point, whatever the locale.
export LC_ALL=C

out=$1
set_name=$2
every_format=${3:-}
mkdir -p "$out"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

ff() { ffmpeg -nostdin -hide_banner -loglevel error -y "$@"; }

# Speech and background levels (RMS, dB below full scale).
speech_db=-20
background_db=-30
length=36

if [[ $set_name == tuning ]]; then
    voices=(en de en-us+m3)
    texts=(
        "The quick brown fox jumps over the lazy dog."
        "Where were you last night?"
        "I told you, never open that door again."
        "Fine. Let us go."
        "Nobody knows what happened on the island that summer."
        "Seven."
        "Please, sit down and listen to me for a moment."
    )
    gaps=(2.1 3.4 2.8 4.2 3.0)
    backgrounds=(silence tones noise)
else
    voices=(fr es en+f3 it)
    texts=(
        "Bonjour, comment allez-vous aujourd'hui?"
        "Hay algo que no me has contado."
        "Run! They are right behind us."
        "Yes."
        "It was the coldest winter anyone could remember."
        "Questa volta non torneremo indietro."
        "Do you hear that? Something is moving outside."
    )
    gaps=(2.6 3.1 4.5 2.4 3.7)
    backgrounds=(noise silence tones)
fi

# Scales a WAV file to an RMS level: normalize IN OUT DB.
normalize() {
    local mean
    mean=$(ffmpeg -nostdin -hide_banner -i "$1" -af volumedetect -f null - 2>&1 |
        sed -n 's/.*mean_volume: \(-\?[0-9.]*\) dB.*/\1/p')
    ff -i "$1" -af "volume=$(awk -v t="$3" -v m="$mean" 'BEGIN { printf "%.2f", t - m }')dB" -ar 48000 -ac 1 "$2"
}

clip=0
for voice in "${voices[@]}"; do
    for background in "${backgrounds[@]}"; do
        clip=$((clip + 1))
        name=$(printf "%s-%02d-%s-%s" "$set_name" "$clip" "${voice//+/_}" "$background")
        inputs=()
        filters=""
        truth=""
        time=1.3
        for u in 0 1 2 3 4; do
            text=${texts[$(((clip + u * 3) % ${#texts[@]}))]}
            espeak-ng -v "$voice" -s $((150 + (clip * 7 + u * 11) % 40)) -w "$work/raw.wav" "$text"
            # Cut the synthesiser's own silence so that the utterance starts and ends on sound.
            ff -i "$work/raw.wav" -af "silenceremove=start_periods=1:start_threshold=-50dB,areverse,silenceremove=start_periods=1:start_threshold=-50dB,areverse" \
                -ar 48000 "$work/trim.wav"
            normalize "$work/trim.wav" "$work/u$u.wav" $speech_db
            duration=$(ffprobe -v error -show_entries format=duration -of csv=p=0 "$work/u$u.wav")
            inputs+=(-i "$work/u$u.wav")
            delay=$(awk -v t="$time" 'BEGIN { printf "%d", t * 1000 + 0.5 }')
            filters+="[$u:a]adelay=${delay}|${delay},apad[s$u];"
            truth+="$(awk -v t="$time" -v d="$duration" 'BEGIN { printf "%.3f %.3f", t, t + d }')"$'\n'
            time=$(awk -v t="$time" -v d="$duration" -v g="${gaps[$u]}" 'BEGIN { printf "%.3f", t + d + g }')
        done
        case $background in
            silence) ff -f lavfi -i "anullsrc=r=48000:cl=mono" -t $length "$work/bg0.wav" ;;
            tones) ff -f lavfi -i "aevalsrc='0.3*sin(2*PI*t*(196+98*mod(floor(t*2),5)))+0.2*sin(2*PI*t*(294+49*mod(floor(t*3),4)))+0.1*sin(2*PI*t*(587+73*mod(floor(t),3)))':s=48000" -t $length "$work/bg0.wav" ;;
            noise) ff -f lavfi -i "anoisesrc=color=pink:amplitude=0.3:r=48000:seed=$clip" -t $length "$work/bg0.wav" ;;
        esac
        if [[ $background == silence ]]; then
            cp "$work/bg0.wav" "$work/bg.wav"
        else
            normalize "$work/bg0.wav" "$work/bg.wav" $background_db
        fi
        # The speech alone (the 5.1 track's centre), then speech and background together.
        ff "${inputs[@]}" -filter_complex \
            "${filters}[s0][s1][s2][s3][s4]amix=inputs=5:normalize=0:duration=longest,atrim=0:$length[speech]" \
            -map "[speech]" "$work/speech.wav"
        ff -i "$work/speech.wav" -i "$work/bg.wav" -filter_complex "[0:a][1:a]amix=inputs=2:normalize=0:duration=longest" \
            -t $length "$work/mix.wav"
        printf "%s" "$truth" >"$work/truth"
        # Stereo or 5.1 (dialogue in the centre with a little of the background, the
        # background alone around it), in MP4 or Matroska.
        video=(-f lavfi -i "testsrc=size=160x120:rate=25" -t $length)
        formats=(stereo.mp4 51.mkv stereo.mkv 51.mp4)
        [[ -n $every_format ]] || formats=("${formats[$((clip % 4))]}")
        for format in "${formats[@]}"; do
            movie="$out/$name-$format"
            if [[ $format == stereo.* ]]; then
                ff "${video[@]}" -i "$work/mix.wav" -map 0:v -map 1:a -c:v mpeg4 -q:v 10 -c:a aac -b:a 96k \
                    -ac 2 -shortest "$movie"
            else
                ff "${video[@]}" -i "$work/speech.wav" -i "$work/bg.wav" -filter_complex \
                    "[1:a][2:a]amerge=inputs=2,pan=5.1|FL=c1|FR=c1|FC=c0+0.5*c1|LFE=0.5*c1|BL=c1|BR=c1[a]" \
                    -map 0:v -map "[a]" -c:v mpeg4 -q:v 10 -c:a aac -b:a 256k -shortest "$movie"
            fi
            shift_by=0
            [[ $format == *.mkv ]] && shift_by=$(awk 'BEGIN { printf "%.6f", 1024 / 48000 }')
            awk -v d="$shift_by" '{ printf "%.3f %.3f\n", $1 + d, $2 + d }' "$work/truth" >"$movie.truth"
        done
    done
done

#!/usr/bin/env bash
# From a stream recording to a captioned Short, the way a script would do it: the project is plain JSON, so what
# a person would do in a window is a few lines of jq here.
#
#   make.sh PROGRAM OUT    makes all of it in the folder OUT, which is emptied of an earlier run's first
set -euo pipefail
[ $# = 2 ] || { sed -n '2,${/^#/!q; s/^# \{0,1\}//p}' "$0"; exit 2; }
here=$(cd "$(dirname "$0")" && pwd)
murbo=$(realpath "$1")
mkdir -p "$2"
out=$(cd "$2" && pwd)
project=$out/first-short.mbproj
recording="$out/2026-11-21 20-15-00.mp4"
short="$out/One heart, one jump.mp4"
say() { printf '\033[1m%s\033[0m\n' "$*"; }

rm -rf "$project" "$out/stills" "$short" "${short%.mp4}.srt"
if [ -e "$recording" ]; then
    say "The recording is there from an earlier run"
else
    say "Recording a stream (half a minute or so)"
    rm -rf "$out/recording.part"
    "$here/record.sh" "$out/recording.part"
    mv "$out/recording.part"/* "$out/" && rmdir "$out/recording.part"
fi

say "Bringing it in"
"$murbo" --new "$project"
"$murbo" --add-stream "$project" "$recording"

# Where whisper-cli and a model are, Murbo listens for itself. What it heard is then put aside for what was really
# said, so that the Short is the same with every model. SPEECH_HOME is the folder that holds .whisper-models.
heard_by=${SPEECH_HOME:-$HOME}
if command -v whisper-cli >/dev/null && [ -e "$heard_by/.whisper-models/ggml-large-v3-turbo.bin" ]; then
    say "Listening to it"
    jq '.language = "en"' "$project/project.json" >"$out/project.part"
    mv "$out/project.part" "$project/project.json"
    HOME=$heard_by "$murbo" --transcribe "$project" all
fi

# What was said. A transcript is a file of its own beside project.json, named after its source.
source=$(jq -r '.sources[0].id' "$project/project.json")
mkdir -p "$project/transcripts" "$project/media"
jq -R -n --sort-keys '
    {notes: [], lines: [inputs | split("\t") | {start: (.[0] | tonumber), "end": (.[1] | tonumber), text: .[2]}]}
    | .lines |= [to_entries[] | .value + {id: ("00000000-0000-4000-8000-000000000" + (100 + .key | tostring))}]
    ' "$out/lines.tsv" >"$project/transcripts/$source.json"

# The video: its cuts and its look.
cp "$out/music.m4a" "$out/whoosh.wav" "$project/media/"
jq --sort-keys -f "$here/video.jq" "$project/project.json" >"$out/project.new"
mv "$out/project.new" "$project/project.json"
"$murbo" --summary "$project"

say "Exporting"
"$murbo" --export "$project" V1 "$short" --srt
"$murbo" --still "$project" V1 1.3,3.9,5.4,10.44,11.1,17.6 "$out/stills"
inputs=()
for still in "$out"/stills/*.jpg; do inputs+=(-i "$still"); done
ffmpeg -hide_banner -loglevel error -nostdin -y "${inputs[@]}" -filter_complex "hstack=$((${#inputs[@]} / 2)),scale=1500:-2:flags=lanczos" \
    -q:v 4 "$out/stills.jpg"

say "Done. Watch it:"
printf '  %s\n' "$short" "${short%.mp4}.srt" "$out/stills/" "$out/stills.jpg" "$project"

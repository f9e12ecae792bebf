#!/usr/bin/env bash
# A whole Short made by commands alone: footage in, marks, cuts, framing, captions, sound, some of it undone.
# The lines stand in the .jsonl files here, with what each is answered beside them in answers.jsonl.
#
#   make.sh PROGRAM FOOTAGE OUT    FOOTAGE holds the recordings and sounds that the lines name
set -euo pipefail
[ $# = 3 ] || { sed -n '2,${/^#/!q; s/^# \{0,1\}//p}' "$0"; exit 2; }
here=$(cd "$(dirname "$0")" && pwd)
murbo=$(realpath "$1")
footage=$(realpath "$2")
mkdir -p "$3"
out=$(cd "$3" && pwd)
project=$out/script.mbproj
rm -rf "$project"

cd "$footage"
"$murbo" --new "$project"
"$murbo" --script "$project" "$here/1-footage.jsonl"

# What is said in the recording, as a transcriber would have written it down: a file named after its source.
source=$(jq -r '.sources[] | select(.path | endswith("talk-seven-people.mp4")).id' "$project/project.json")
mkdir -p "$project/transcripts"
cp "$here/said.json" "$project/transcripts/$source.json"

"$murbo" --script "$project" "$here/2-short.jsonl"
"$murbo" --export "$project" V1 "$out/Blue and White.mp4" --srt

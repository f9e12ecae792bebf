#!/usr/bin/env bash
# Real clients of the protocol against a project that is open: its SDK makes a Short over HTTP and over the
# bridge, its inspector lists and calls, its conformance suite holds the scenarios that apply here.
#
#   tests/clients/clients.sh DOOR PROGRAM FOOTAGE FOLDER
#
# The clients are npm packages, installed into FOLDER. Without npm or a network they are left out: code 77.
set -euo pipefail
door=$(realpath "$1")
murbo=$(realpath "$2")
footage=$(realpath "$3")
mkdir -p "$4"
folder=$(realpath "$4")
here=$(cd "$(dirname "$0")" && pwd)
skip() { echo "Left out: $*"; exit 77; }

command -v npm >/dev/null || skip "npm is not installed"
[ -e "$footage/talk-seven-people.mp4" ] || skip "the footage is not at hand"
cp "$here/package.json" "$here/short.mjs" "$folder/"
cd "$folder"
if ! cmp -s package.json installed.json; then
    timeout 300 npm install --no-audit --no-fund --loglevel=error >npm.log 2>&1 || skip "npm could not install the clients (see $folder/npm.log)"
    cp package.json installed.json
fi
node=$folder/node_modules/.bin/node
bin=$folder/node_modules/.bin

work=$(mktemp -d)
trap 'rm -rf "$work"; [ -z "${serving:-}" ] || kill "$serving" 2>/dev/null || true' EXIT
export HOME=$work/home XDG_CONFIG_HOME=$work/config
mkdir -p "$HOME/Movies/Murbo/Sounds"
cp "$footage"/sounds/*.flac "$HOME/Movies/Murbo/Sounds/"

# A recording of seven people who say a sentence each, three seconds long.
recording() { # PROJECT
    "$murbo" --new "$1" >/dev/null
    "$murbo" --add-files "$1" "$footage/talk-seven-people.mp4" >/dev/null
    "$node" - "$1" <<'SCRIPT'
const fs = require('node:fs');
const package = process.argv[2];
const project = JSON.parse(fs.readFileSync(`${package}/project.json`));
const said = ['lay blue by c two again', 'bin blue at f two now', 'place white in j three please',
    'set white in z three now', 'lay blue at x four now', 'set blue with e five now', 'bin red by k seven now'];
const lines = said.map((text, at) => ({
    id: `00000000-0000-4000-8000-00000000010${at}`, start: 3 * at + 0.4, end: 3 * at + 2.6, text,
}));
fs.mkdirSync(`${package}/transcripts`, { recursive: true });
fs.writeFileSync(`${package}/transcripts/${project.sources[0].id}.json`, JSON.stringify({ lines, notes: [] }));
SCRIPT
}

for way in http bridge; do
    recording "$work/$way.mbproj"
    timeout 60 "$node" short.mjs "$door" "$work/$way.mbproj" "$way"
done

# ------------------------------------------------------------ the inspector and the suite --
mkfifo "$work/owner"
"$door" "$work/http.mbproj" <"$work/owner" >"$work/port" &
serving=$!
exec 3>"$work/owner"
for _ in $(seq 100); do [ ! -s "$work/port" ] || break; sleep 0.1; done
url=http://127.0.0.1:$(cat "$work/port")/mcp

inspect() { PATH=$bin:$PATH timeout 60 mcp-inspector --cli "$url" --transport http "$@"; }
inspect --method tools/list | grep -q '"name": "write_playbook"'
inspect --method tools/call --tool-name read_video --tool-arg video=V1 | grep -q 'sfx-boom.flac'
echo "inspector: lists and calls"

for scenario in server-initialize ping tools-list prompts-list dns-rebinding-protection server-sse-polling \
    server-sse-multiple-streams tools-call-simple-text tools-call-error; do
    timeout 60 "$node" "$bin/conformance" server --url "$url" --scenario $scenario >suite.log 2>&1 ||
        { cat suite.log; echo "conformance: $scenario fails"; exit 1; }
done
echo "conformance: nine scenarios pass"

#!/usr/bin/env bash
# packaging/whisper.sh FOLDER: puts whisper.cpp's command-line tool, whisper-cli, into FOLDER, unless this machine
# has one already. It is built from the sources (MIT) that an npm package carries; the archive is held against the
# sum below, so a mirror can't slip in another. About two minutes on two cores, once. Without npm, a compiler or a
# network nothing fails: what needs the tool is then left out, and says so.
set -euo pipefail

folder=${1:?folder}
package=nodejs-whisper@0.3.1
sum=92041caf2b26c74b7f489fedf37bd093f216eebd61df512045ec2d19d0531d37

without() {
    echo "Nothing is transcribed on this machine: $1." >&2
    exit 0
}

installed() {
    local place
    for place in /opt/homebrew/bin /usr/local/bin /usr/bin "$HOME/.local/bin" "$folder"; do
        [ ! -x "$place/whisper-cli" ] || return 0
    done
    command -v whisper-cli >/dev/null
}

fetch() ( # FOLDER: unpacks the tool's sources
    # `set -e` does not hold in a function whose failure is answered for: each step says so itself.
    cd "$1" || return 1
    archive=$(npm pack --silent --fetch-retries=1 --fetch-timeout=60000 "$package" 2>/dev/null) || return 1
    echo "$sum  $archive" | sha256sum --check --status --strict || return 1
    tar xzf "$archive" --no-same-owner --no-same-permissions package/cpp/whisper.cpp
)

build() ( # FOLDER
    cd "$1" || return 1
    # Not for this very processor: a build folder may move to another machine. With OpenMP, whose threads can wait
    # asleep: the tool's own spin, and starve each other where the machine is busy.
    nice cmake -S package/cpp/whisper.cpp -B build -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF \
        -DGGML_NATIVE=OFF -DGGML_OPENMP=ON -DGGML_CCACHE=OFF -DWHISPER_BUILD_TESTS=OFF -DWHISPER_BUILD_SERVER=OFF ||
        return 1
    nice cmake --build build --target whisper-cli --parallel "$(nproc)"
)

! installed || exit 0
for needed in npm cmake g++; do
    command -v $needed >/dev/null || without "whisper-cli is built with $needed, which is not installed"
done
echo "Building whisper-cli into $folder (once, some minutes)" >&2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
fetch "$scratch" || without "the sources of whisper-cli could not be fetched"
build "$scratch" >"$scratch/log" 2>&1 || { tail -n 20 "$scratch/log" >&2; without "whisper-cli could not be built"; }
mkdir -p "$folder"
install -m 755 "$scratch/build/bin/whisper-cli" "$folder/whisper-cli"

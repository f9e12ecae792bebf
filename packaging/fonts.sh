#!/usr/bin/env bash
# packaging/fonts.sh FOLDER: puts the rounded faces of captions into FOLDER, where they are not there yet.
#
# Nunito (Latin, Cyrillic), Mitr (Thai) and M PLUS Rounded 1c (Japanese), all under the SIL Open Font License, come
# as npm packages. Each file is held against the sum below, so a mirror can't slip in another. Without npm or a
# network nothing fails: captions then take the plain faces of the system.
set -euo pipefail

folder=${1:?folder}
packages="@expo-google-fonts/nunito@0.4.2 @expo-google-fonts/mitr@0.4.1 @expo-google-fonts/m-plus-rounded-1c@0.4.4"

sums() {
    cat <<'SUMS'
b0885056b60511b29aa9f69198055fe3bad13e76ec8a9b9e37cd61da7b4ee1e5  Nunito_400Regular.ttf
2590799f71eef8d473a63bf86f8f37729395faa3ac8552b7b93b2c03ccab110c  Nunito_500Medium.ttf
c7fd194467c320db02afd5ebf09262ff900ab6065c61fc2eaa300f0236a48a74  Nunito_600SemiBold.ttf
ad443e47990c5fc4b263693b3018b7807868263b8c42ccb1115e030158931960  Nunito_700Bold.ttf
33834506fb216047a70654dce857e073412d78943678052024a9d1cf89cec724  Nunito_800ExtraBold.ttf
8de64ddb7d985763dd8dde658a9a2bb011f7509edcca475c02b281f4fe819e42  Nunito_900Black.ttf
d040f22b38bcbd6add201209f8228f943518cbff7f43931aa08edb6f641eedd1  Mitr_300Light.ttf
958ae1dcb981011793083ac970013bbb3d502e5e561450bb8f816db4d6d24a82  Mitr_400Regular.ttf
829b9f707dca59047459bad73ff97865923c879dd3331a0b27ea41aa6e26b615  Mitr_500Medium.ttf
f6a2d6904210fe866919f69221cf024aa8fa0f5b2ec4da8191b04e44f44e1597  Mitr_600SemiBold.ttf
6aa0cb702b2924a2be8c51294f3de8014dd9e04d5178387ead24c513f4827476  Mitr_700Bold.ttf
20675c35244fe1d0f142c91b13761bbb0cfb4f47e584206ecf07e12cc70fb7db  MPLUSRounded1c_400Regular.ttf
eb0a4d475a4d9c0438b11c3d58f302fe465e15b570132569b2d4dc12617b3309  MPLUSRounded1c_500Medium.ttf
7cc22dbfebb98959d01f4dd86efcb8283ee9754319bfecb03e222ccfa82c65fb  MPLUSRounded1c_700Bold.ttf
c230a2d30c13324e51057071cd335f99d43bcb99ff6b1816a9455d1a86e13f39  MPLUSRounded1c_800ExtraBold.ttf
90aa76fcfd9fe49a615c7c0475a545be91cc41e13ba9e41fe83441ff9c5604df  MPLUSRounded1c_900Black.ttf
SUMS
}

whole() ( # FOLDER: whether every face is there and unharmed
    cd "$1" 2>/dev/null && sums | sha256sum --check --status --strict 2>/dev/null
)

fetch() ( # FOLDER: unpacks the packages, faces and licences side by side
    cd "$1"
    for package in $packages; do
        archive=$(npm pack --silent --fetch-retries=1 --fetch-timeout=20000 "$package" 2>/dev/null) || return 1
        mkdir unpacked
        tar xzf "$archive" -C unpacked --no-same-owner --no-same-permissions || return 1
        sums | while read -r _ name; do
            find unpacked -name "$name" -exec install -m 644 {} . \;
        done
        name=${package##*/}
        install -m 644 unpacked/package/LICENSE_FONT "OFL-${name%@*}.txt" || return 1
        rm -r unpacked "$archive"
    done
)

plain() {
    echo "Captions will use the plain faces of the system: $1." >&2
    exit 0
}

! whole "$folder" || exit 0
command -v npm >/dev/null || plain "the rounded ones come through npm, which is not installed"
echo "Fetching the rounded faces of captions into $folder" >&2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
fetch "$scratch" || plain "the rounded ones could not be fetched"
whole "$scratch" || plain "the rounded ones that came are not those that were asked for"
mkdir -p "$folder"
mv "$scratch"/* "$folder"

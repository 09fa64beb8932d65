#!/bin/sh
# Makes the .ico files from the drawings beside them. Run it after a drawing has changed and commit both. Needs
# rsvg-convert (librsvg2-bin) and icotool (icoutils).
set -eu
cd "$(dirname "$0")"
pixels=$(mktemp -d)
trap 'rm -r "$pixels"' EXIT

for drawing in *.svg; do
    name=${drawing%.svg}
    sizes="16 20 24 32"
    if [ "$name" = program ]; then
        sizes="$sizes 48 256"
    fi
    images=
    for size in $sizes; do
        image=$pixels/$name-$size.png
        rsvg-convert --width "$size" --height "$size" --output "$image" "$drawing"
        # The largest is kept as PNG inside the .ico; as a plain bitmap it would take a quarter of a megabyte.
        if [ "$size" = 256 ]; then
            images="$images --raw=$image"
        else
            images="$images $image"
        fi
    done
    # shellcheck disable=SC2086  # a list of words
    icotool --create --output="$name.ico" $images
done

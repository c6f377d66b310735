#!/usr/bin/env bash
# Shows the main job: the text of each sample document, as a search service gets it.
set -euo pipefail
cd "$(dirname "$0")/.."
shopt -s nullglob

build=build/release
samples=("$build"/samples/*)
if [ ${#samples[@]} -eq 0 ]; then
    echo "There are no samples in $build/samples; 'make build' makes them." >&2
    exit 1
fi

echo "The build has made these sample documents:"
printf '    %s\n' "${samples[@]}"
echo "pvindex loads the importer, hands it one after the other and prints the text it answers:"
echo "    $build/bin/pvindex text ${samples[*]}"
echo
exec "$build/bin/pvindex" text "${samples[@]}"

#!/usr/bin/env bash
# Shows the main job: the text of each sample document, as a search service gets it.
set -uo pipefail
cd "$(dirname "$0")/../build/release" || exit 1
shopt -s nullglob

samples=(samples/*)
if [ ${#samples[@]} -eq 0 ]; then
    echo "There are no samples in build/release/samples; 'make build' makes them." >&2
    exit 1
fi

echo "The build has made these sample documents in build/release:"
printf '    %s\n' "${samples[@]}"
echo "pvindex loads the importer, hands it one after the other and prints the text it answers."
echo "One of them needs a newer reader and is refused."
echo
echo "build/release\$ bin/pvindex text samples/*"
bin/pvindex text "${samples[@]}"

# 1 says that some file could not be read: the one that was to be refused.
status=$?
[ "$status" -eq 1 ] || { echo "demo: pvindex ended with status $status, not 1" >&2; exit 1; }
echo
echo "Try it on files of your own: build/release/bin/pvindex text --json FILE..."

#!/usr/bin/env bash
# Finds test data that no test reads, and data whose origin or licence nobody tells.
#
# A file is read by a test that names it in a string, alone or after its folders, or that walks a
# folder above it and names that. A folder's README.md tells of each file in it, by its name
# up to the first dot.
set -euo pipefail
# shellcheck source=files.sh
. "$(dirname "$0")/files.sh"
cd "$tree"

findings=0
report() {
    echo "$1"
    findings=1
}

# Prints those of the tests' sources that match one of the patterns given with -e.
tests_with() {
    xargs -r -d '\n' grep -lE "$@" -- <<<"$sources" || [ $? -eq 123 ]
}

# A pattern that matches the text and nothing else.
literally() { sed 's/[][\.*^$+?(){}|]/\\&/g' <<<"$1"; }

# Whether a test walks the file's folder or one above it, up to Tests/Data itself.
is_walked() {
    local folder=${1%/*}
    while [[ $folder == Tests/Data/* ]]; do
        if grep -Fxq -- "$folder" <<<"$walked"; then return; fi
        folder=${folder%/*}
    done
    return 1
}

# Whether a test names the file.
is_named() { [ -n "$(tests_with -e "[\"/]$(literally "${1##*/}")\"")" ]; }

files=$(our_files)
sources=$(grep -E '^(Tests|Fuzz|Benchmarks)/.*(\.(c|cpp|h|sh)|/CMakeLists\.txt)$' <<<"$files" |
    grep -v '^Tests/Data/' || true)
# A folder that is a document counts as one file.
data=$(grep '^Tests/Data/' <<<"$files" | sed 's|\(\.rtfd\)/.*|\1|' | sort -u || true)
folders=$(sed -n 's|/[^/]*$||p' <<<"$data" | sort -u)

# The folders that some test walks: one source holds the walk and the folder's name.
walked=$(while IFS= read -r folder; do
    [ -n "$folder" ] || continue
    holders=$(tests_with -e "\"$(literally "${folder#Tests/Data/}")\"")
    if [ -n "$holders" ] && xargs -d '\n' grep -q directory_iterator -- <<<"$holders"; then
        echo "$folder"
    fi
done <<<"$folders")

while IFS= read -r file; do
    case $file in
    '' | */README.md) continue ;;
    esac
    readme=${file%/*}/README.md
    if [ ! -f "$readme" ]; then continue; fi  # said once for its folder, below
    name=${file##*/}
    grep -Fq -- "${name%%.*}" "$readme" || report "$file: $readme does not tell of it"
    is_walked "$file" || is_named "$file" || report "$file: no test reads it"
done <<<"$data"

while IFS= read -r folder; do
    [ -n "$folder" ] || continue
    if [ ! -f "$folder/README.md" ]; then
        report "$folder: has no README.md"
        continue
    fi
    for word in origin licence; do
        grep -iqw -- "$word" "$folder/README.md" ||
            report "$folder/README.md: does not tell the $word"
    done
done <<<"$folders"
exit "$findings"

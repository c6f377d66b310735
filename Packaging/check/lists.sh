#!/usr/bin/env bash
# Finds sources and tests that no build list names, fuzz targets without seeds, texts that do not end
# with exactly one newline, and shell scripts that do not parse.
set -euo pipefail
# shellcheck source=files.sh
. "$(dirname "$0")/files.sh"
cd "$tree"

findings=0
report() {
    echo "$1"
    findings=1
}

# The CMakeLists.txt of the file's folder or, where there is none, of the nearest folder above.
build_list_of() {
    local folder
    folder=$(dirname "$1")
    until [ -f "$folder/CMakeLists.txt" ] || [ "$folder" = . ]; do
        folder=$(dirname "$folder")
    done
    echo "$folder/CMakeLists.txt"
}

# Whether a list names the file, by its path from the list's folder; comments do not count.
is_listed() {
    local list=$1 name=${2#"$(dirname "$1")/"}
    [ -f "$list" ] &&
        # Without -q, which ends the pipe before its writers are done and makes that a failure.
        sed 's/#.*//' "$list" | tr -s '[:space:]()"' '\n' | grep -Fx -- "$name" >/dev/null
}

files=$(our_files)
while IFS= read -r file; do
    case $file in
    Tests/Data/* | Fuzz/*/corpus/*) continue ;;  # kept byte for byte
    *.cpp | *.c | Tests/*Test.sh)
        is_listed "$(build_list_of "$file")" "$file" ||
            report "$file: is not listed in $(build_list_of "$file")"
        ;;
    esac

    # An empty file has no line to end; a binary one has no lines at all.
    if grep -Iq '' "$file"; then
        case $(tail -c 2 "$file" | od -An -tx1 | tr -d ' ') in
        0a0a) report "$file: ends with an empty line" ;;
        *0a) ;;
        *) report "$file: the last line has no end" ;;
        esac
    fi

    if [[ $file == *.sh ]] || head -c 64 "$file" | grep -aq '^#!.*\bbash'; then
        bash -n "$file" || report "$file: does not parse"
    fi
done <<<"$files"

# The fuzz targets, as the folders that their seeds lie in: a seed is a file of such a folder.
targets=$(grep -E '^Fuzz/.*CMakeLists\.txt$' <<<"$files" | while IFS= read -r list; do
    sed -n "s|^pv_fuzz(\([a-z_]*\).*|${list%/*}/corpus/\1|p" "$list"
done)
seeded=$(sed -nE 's|^(Fuzz/.*/corpus/[^/]+)/[^/]+$|\1|p' <<<"$files" | sort -u)
while IFS= read -r corpus; do
    report "$corpus: a fuzz target without seeds"
done < <(comm -23 <(sort <<<"$targets") <(echo "$seeded") | sed '/^$/d')
while IFS= read -r corpus; do
    report "$corpus: seeds of no fuzz target"
done < <(comm -13 <(sort <<<"$targets") <(echo "$seeded") | sed '/^$/d')
exit "$findings"

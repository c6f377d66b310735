#!/usr/bin/env bash
# Finds what clang-tidy finds, in all sources and the headers that they include; but for benchmarks,
# which have a build of their own.
#
# A source that was found clean is looked at again only when it changes or what its verdict rests
# on does: a header of ours, the settings, the way it is compiled. The clean ones are remembered by
# hash in build/tidy, or in a folder that PARLAVOX_TIDY_CACHE names and that checkouts may share;
# what was of no use for two months is forgotten.
set -euo pipefail
# shellcheck source=files.sh
. "$(dirname "$0")/files.sh"
rules=$(cd "$(dirname "$0")" && pwd)/tidy.awk
cd "$tree"

clean=${PARLAVOX_TIDY_CACHE:-build/tidy}
listings=build/clang/tidy
rm -rf "$listings"
mkdir -p "$clean" "$listings"
find "$clean" -type f -mtime +60 -delete
cmake --preset clang --log-level=ERROR >/dev/null

status=0
our_files | grep -E '\.(h|c|cpp)$|(^|/)\.clang-tidy$' | grep -Ev '^(Tests/Data|Benchmarks)/' |
    xargs -r -d '\n' sha256sum -- |
    awk -v tree="$tree" -v listings="$listings" -f "$rules" - build/clang/compile_commands.json |
    sort || status=1

# Looks at one source, given its listing's hash and name; prints its findings, one a line.
look_at() {
    local source output
    source=$(basename "$2" | tr % /)
    if output=$(clang-tidy-14 --quiet -p build/clang "$source" 2>&1); then
        touch "$clean/$1"
        return
    fi
    # Findings without the lines that they quote; when there are none, the tool itself has failed.
    grep -E '^/[^:]*:[0-9]+:[0-9]+: (warning|error): ' <<<"$output" ||
        printf '%s: %s\n' "$source" "$output"
    return 1
}
export -f look_at
export clean

version=$(clang-tidy-14 --version | sed -n 's/.*version //p')
findings=$(find "$listings" -type f -exec sha256sum {} + | sort -k 2 |
    while read -r hash listing; do
        verdict=$(sha256sum <<<"$version $hash" | cut -c 1-64)
        if [ -e "$clean/$verdict" ]; then
            touch "$clean/$verdict"
        else
            printf '%s\n' "$verdict" "$listing"
        fi
    done |
    xargs -r -n 2 -P "${JOBS:-$(nproc)}" bash -c 'look_at "$@"' bash) || status=1

# A header's findings come with each source that includes it, under a path of the link farm.
if [ -n "$findings" ]; then
    sed -E "s|^$tree/(build/clang/include/[^/]*/)?||" <<<"$findings" | sort -u
fi
exit "$status"

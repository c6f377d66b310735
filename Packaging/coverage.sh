#!/usr/bin/env bash
# Tells how much of the code the tests have executed; run by `make coverage` after them.
#
# Prints a report of lines and branches for each file and folder, leaves it in
# build/coverage/report.txt and pages to browse in build/coverage/html/index.html. Fails when a
# folder has less than coverage.awk wants of it.
#
# Branches that only exceptions take do not count, nor do lines of nothing but braces that no test
# has reached: there the compiler has put what runs when an exception passes.
set -euo pipefail
cd "$(dirname "$0")/.."

build=build/coverage
mkdir -p "$build/html"

# The compiler's notes on sources that are gone by now belong to nobody. Those with __ in their path
# were compiled from another folder.
find "$build" -name '*.gcno' ! -path '*/__/*' | while IFS= read -r notes; do
    source=${notes#"$build"/}
    source=${source%%/CMakeFiles/*}/${source#*.dir/}
    [ -e "${source%.gcno}" ] || rm "$notes"
done

gcovr --root . --object-directory "$build" "$build" \
    --filter "($build/include/[^/]*/)?(Platform|Sources|Host|Tools)/" \
    --exclude-throw-branches --exclude-unreachable-branches \
    --csv "$build/summary.csv" --html-details "$build/html/index.html"

status=0
{
    # Both programs read the same marks. A mark stands in a comment that goes on with the reason.
    grep -rnE '(GCOVR?|LCOV)_EXCL' Platform Sources Host Tools --include='*.h' --include='*.cpp' |
        awk '{ count++; print }
             !/_EXCL_STOP/ && !/_EXCL_[A-Z_]*: [A-Za-z]/ { print "  has no reason"; missing = 1 }
             END { print count + 0 " marks that exclude code"; exit missing + 0 }' || status=1
    # Headers are found through the build's link farms.
    sed "s|^$build/include/[^/]*/||" "$build/summary.csv" | sort |
        awk -f Packaging/coverage.awk || status=1
} >"$build/report.txt"
cat "$build/report.txt"
exit "$status"

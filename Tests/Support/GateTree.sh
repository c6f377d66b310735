# A small vocabulary for tests of the gates: trees with chosen files, and what a gate says of them.
# Sourced, not run; the first argument of the test is the gate's script.

set -euo pipefail
gate=$1
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
failures=0

# Empties the tree.
new_tree() {
    rm -rf "$tree"
    mkdir "$tree"
}

# write FILE CONTENT...: makes a file of lines; printf's escapes work in them.
write() {
    mkdir -p "$tree/$(dirname "$1")"
    printf '%b\n' "${@:2}" >"$tree/$1"
}

# expect_ok NAME: the gate finds nothing in the tree.
expect_ok() {
    local output
    if ! output=$("$gate" "$tree" 2>&1) || [ -n "$output" ]; then
        echo "FAILED: $1: expected no finding, got:"
        echo "$output"
        failures=1
    fi
}

# expect_finding NAME TEXT: the gate fails, and its one finding holds TEXT.
expect_finding() {
    local output status=0
    output=$("$gate" "$tree" 2>&1) || status=$?
    if [ "$status" -eq 0 ] || [ "$(wc -l <<<"$output")" -ne 1 ] || [[ $output != *"$2"* ]]; then
        echo "FAILED: $1: expected one finding with '$2', got (exit code $status):"
        echo "$output"
        failures=1
    fi
}

# finish: the last line of a test.
finish() { exit "$failures"; }

# For the gates: which tree they look at, and which files in it are ours. Sourced, not run.

# The tree to check: the argument of the gate, or the one that it lies in.
tree=$(cd "${1:-$(dirname "${BASH_SOURCE[0]}")/../..}" && pwd -P)

# Prints the paths of our files below the tree, also of new ones that git does not track yet.
# A tree that is no checkout, as unpacked from an archive, is taken whole but for the build folder.
our_files() {
    if [ "$(git -C "$tree" rev-parse --show-toplevel 2>/dev/null)" = "$tree" ]; then
        git -C "$tree" ls-files --cached --others --exclude-standard | sort -u
    else
        (cd "$tree" && find . -path ./build -prune -o -path ./.git -prune -o -type f -print) |
            sed 's|^\./||' | sort
    fi | while IFS= read -r file; do
        # A file that was removed but not yet committed is still listed.
        if [ -f "$tree/$file" ]; then echo "$file"; fi
    done
}

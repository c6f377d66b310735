#!/usr/bin/env bash
# Finds code that is not laid out as .clang-format says; with --apply, lays it out.
set -euo pipefail

mode=(--dry-run -Werror)
if [ "${1:-}" = --apply ]; then
    mode=(-i)
    shift
fi
# shellcheck source=files.sh
. "$(dirname "$0")/files.sh"
cd "$tree"

our_files | grep -E '\.(h|c|cpp)$' | grep -v '^Tests/Data/' |
    xargs -r -d '\n' clang-format-14 --style=file "${mode[@]}"

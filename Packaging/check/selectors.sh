#!/usr/bin/env bash
# Finds functions that differ from the keyword names in their comments.
# The rules are in selectors.awk.
set -euo pipefail
# shellcheck source=files.sh
. "$(dirname "$0")/files.sh"
rules=$(cd "$(dirname "$0")" && pwd)/selectors.awk
cd "$tree"

our_files | grep -E '\.(h|cpp)$' | grep -v '^Tests/Data/' | awk -f "$rules"

#!/usr/bin/env bash
# Finds includes that do not point down the storeys, and libraries' headers out of their place.
# The rules are in includes.awk.
set -euo pipefail
# shellcheck source=files.sh
. "$(dirname "$0")/files.sh"
rules=$(cd "$(dirname "$0")" && pwd)/includes.awk
cd "$tree"

our_files | grep -E '\.(h|c|cpp)$' | grep -v '^Tests/Data/' | awk -f "$rules"

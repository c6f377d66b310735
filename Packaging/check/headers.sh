#!/usr/bin/env bash
# Compiles every header of ours alone; the C headers also as C.
set -euo pipefail
cd "$(dirname "$0")/../.."

cmake --preset dev --log-level=NOTICE
cmake --build --preset dev --parallel "${JOBS:-$(nproc)}" --target headers_alone \
    -- -k 0

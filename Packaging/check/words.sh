#!/usr/bin/env bash
# Finds references to papers and places outside the project, which its readers do not have.
set -euo pipefail
# shellcheck source=files.sh
. "$(dirname "$0")/files.sh"
cd "$tree"

# The brackets keep the pattern from finding itself.
words='\b[Ss]pecifications?\b|\b[Tt]he [Ss]pec\b|\bspec\.md\b'
words+='|\bPart [0-9]+\.[0-9]+\b|\bParts [0-9]+\.[0-9]+\b'
words+='|\b[Ss]ubagents?\b|/[w]ork/|\.\./shared'

files=$(our_files | grep -Ev '^(Tests/Data|\.ci)/')
# xargs answers 123 when grep has found nothing in some of the files.
found=$(xargs -r -d '\n' grep -EnHI "$words" -- <<<"$files") || [ $? -eq 123 ]
if [ -n "$found" ]; then
    echo "$found"
    exit 1
fi

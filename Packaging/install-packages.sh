#!/usr/bin/env bash
# Installs the packages of debian-packages.txt that are missing; does nothing when none is.
set -euo pipefail

list=${1:-$(dirname "$0")/debian-packages.txt}

if ! command -v dpkg-query >/dev/null; then
    echo "This is no Debian system; please see to the packages of $list yourself." >&2
    exit 0
fi

wanted=$(sed 's/#.*//' "$list" | tr -s '[:space:]' '\n' | sed '/^$/d' | sort -u)
# dpkg-query complains about the packages that it has never heard of; those are missing, too.
# shellcheck disable=SC2086
installed=$(dpkg-query --show --showformat='${db:Status-Status} ${Package}\n' $wanted 2>/dev/null |
    sed -n 's/^installed //p' | sort -u) || true
missing=$(comm -23 <(echo "$wanted") <(echo "$installed") | paste -sd ' ')

if [ -z "$missing" ]; then
    exit 0
fi

install="apt-get install -y --no-install-recommends $missing"
export DEBIAN_FRONTEND=noninteractive
if [ "$(id -u)" -eq 0 ]; then
    echo "Installing: $missing"
    apt-get update
    $install
elif sudo -n true 2>/dev/null; then
    echo "Installing: $missing"
    sudo -n apt-get update
    sudo -n env DEBIAN_FRONTEND=noninteractive $install
else
    echo "Some packages are missing. Please run this as a person who may install them:" >&2
    echo "    sudo sh -c 'apt-get update && $install'" >&2
    exit 1
fi

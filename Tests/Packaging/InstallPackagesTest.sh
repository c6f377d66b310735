#!/usr/bin/env bash
# Missing packages are installed by whoever may; others are told the one command to run.
# The first argument is the script under test.
set -euo pipefail
script=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
failures=0

printf '%s\n' '# reasons' 'alpha   # why' '' 'beta' 'gamma' >"$folder/list.txt"

# Programs that stand in for the system's: they write down their calls.
stand_in() {
    printf '#!/usr/bin/env bash\n%s\n' "$2" >"$folder/$1"
    chmod +x "$folder/$1"
}
stand_in apt-get 'echo "apt-get $* frontend=${DEBIAN_FRONTEND:-}" >>"$CALLS"'
stand_in id 'echo "$TEST_UID"'
stand_in sudo '[ "$TEST_SUDO" = yes ] || exit 1; shift; "$@"'
stand_in dpkg-query '
status=0
for package in "${@:3}"; do
    case " $TEST_INSTALLED " in
    *" $package "*) echo "installed $package" ;;
    *" ($package) "*) echo "config-files $package" ;;
    *) echo "no packages found matching $package" >&2; status=1 ;;
    esac
done
exit $status'

# check NAME INSTALLED UID SUDO WANTED_STATUS WANTED_CALLS WANTED_OUTPUT
check() {
    local status=0 output calls
    export CALLS=$folder/calls TEST_INSTALLED=$2 TEST_UID=$3 TEST_SUDO=$4
    : >"$CALLS"
    output=$(PATH=$folder:$PATH "$script" "$folder/list.txt" 2>&1) || status=$?
    calls=$(paste -sd '|' "$CALLS")
    if [ "$status" != "$5" ] || [ "$calls" != "$6" ] || [[ $output != *"$7"* ]]; then
        echo "FAILED: $1: exit code $status, calls '$calls', output '$output'"
        failures=1
    fi
}

update='apt-get update frontend=noninteractive'
install='apt-get install -y --no-install-recommends'
check "nothing is missing" "alpha beta gamma" 0 no 0 "" ""
check "root installs what is missing" "beta" 0 no 0 \
    "$update|$install alpha gamma frontend=noninteractive" "Installing: alpha gamma"
check "removed but configured is missing" "alpha beta (gamma)" 0 no 0 \
    "$update|$install gamma frontend=noninteractive" "Installing: gamma"
check "nothing at all is installed" "" 0 no 0 \
    "$update|$install alpha beta gamma frontend=noninteractive" "Installing"
check "sudo installs without a question" "alpha" 1000 yes 0 \
    "$update|$install beta gamma frontend=noninteractive" "Installing: beta gamma"
check "others are told what to run" "alpha gamma" 1000 no 1 "" \
    "sudo sh -c 'apt-get update && $install beta'"
exit "$failures"

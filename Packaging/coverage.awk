# Makes a report of gcovr's summary, a line for each file and one for each folder, and exits with 1
# when a folder has less than is wanted of it: all lines of Sources, 95 % of each Platform folder.

BEGIN { FS = "," }

# A share in percent that is 100.0 only for all.
function percent(part, whole,    value) {
    if (whole == 0 || part == whole) return "100.0"
    value = int(1000 * part / whole) / 10
    return sprintf("%.1f", value)
}

function tell(lines, ranLines, branches, ranBranches, name) {
    printf "%5s %% of %5d lines  %5s %% of %5d branches  %s\n", \
        percent(ranLines, lines), lines, percent(ranBranches, branches), branches, name
}

# The part of the tree that a file counts for.
function folderOf(path,    parts) {
    split(path, parts, "/")
    return (parts[1] == "Platform") ? parts[1] "/" parts[2] : parts[1]
}

function wanted(folder) {
    if (folder == "Sources") return 100
    return (folder ~ /^Platform\//) ? 95 : 0
}

$1 != "filename" {
    tell($2, $3, $5, $6, $1)
    folder = folderOf($1)
    if (!(folder in lines)) folders[++count] = folder
    lines[folder] += $2
    ranLines[folder] += $3
    branches[folder] += $5
    ranBranches[folder] += $6
}

END {
    print ""
    for (i = 1; i <= count; i++) {
        folder = folders[i]
        tell(lines[folder], ranLines[folder], branches[folder], ranBranches[folder], folder)
    }
    for (i = 1; i <= count; i++) {
        folder = folders[i]
        if (100 * ranLines[folder] < wanted(folder) * lines[folder]) {
            print "FAIL  " folder ": " percent(ranLines[folder], lines[folder]) " % of lines, " \
                wanted(folder) " % are wanted"
            failed = 1
        }
    }
    if (!("Sources" in lines)) {
        print "FAIL  nothing of Sources was built to be counted"
        failed = 1
    }
    exit failed + 0
}

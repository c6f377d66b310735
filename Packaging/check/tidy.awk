# Writes down what a verdict of clang-tidy on a source rests on: for each source one file of the
# folder `listings`, named like the source with % for /. It holds the source's compile commands, and
# the hashes of the source, of all of our files that it includes, and of the settings.
#
# Reads lines of sha256sum for all of our files, then the database of compile commands as CMake
# writes it for Ninja: one field a line. Paths lose the `tree` that they begin with. Prints one line
# for each of our sources and headers that clang-tidy never sees and exits with 1 when there is any.

# The text without the tree's own path, wherever it stands.
function relative(text,    place, result) {
    while (place = index(text, tree "/")) {
        result = result substr(text, 1, place - 1)
        text = substr(text, place + length(tree) + 1)
    }
    return result text
}

# The value of a field of the database.
function valueOf(text) {
    sub(/^ *"[a-z]+": "/, "", text)
    sub(/",?$/, "", text)
    return relative(text)
}

# Reads what a file of ours includes, once.
function readIncludes(path,    text, part) {
    if (path in includes) return
    includes[path] = ""
    while ((getline text < path) > 0) {
        if (text !~ /^[ \t]*#[ \t]*include[ \t]*"/) continue
        split(text, part, "\"")
        if (part[2] in hashes) includes[path] = includes[path] part[2] "\n"
    }
    close(path)
}

# The file and all that it includes, in one fixed order.
function closure(path,    queue, count, i, j, found, targets, seen, result) {
    queue[count = 1] = path
    seen[path] = 1
    for (i = 1; i <= count; i++) {
        result = result hashes[queue[i]] " " queue[i] "\n"
        readIncludes(queue[i])
        found = split(includes[queue[i]], targets, "\n")
        for (j = 1; j < found; j++) {
            if (targets[j] in seen) continue
            seen[targets[j]] = 1
            covered[targets[j]] = 1
            queue[++count] = targets[j]
        }
    }
    return result
}

# The settings for a file: those of its folder and of all above it.
function settingsFor(path,    result) {
    while (sub(/\/?[^\/]*$/, "", path) && path != "") {
        if ((path "/.clang-tidy") in hashes) result = result hashes[path "/.clang-tidy"] "\n"
    }
    return result hashes[".clang-tidy"] "\n"
}

FNR == NR {
    path = substr($0, 67)
    hashes[path] = $1
    next
}
/^ *"command": / { command = valueOf($0) }
/^ *"file": / {
    path = valueOf($0)
    if (path in hashes) commands[path] = commands[path] command "\n"
}

END {
    for (path in commands) {
        name = path
        gsub(/\//, "%", name)
        listing = listings "/" name
        printf "%s%s%s", commands[path], settingsFor(path), closure(path) > listing
        close(listing)
    }
    for (path in hashes) {
        if (path ~ /\.(c|cpp)$/ && !(path in commands)) {
            print path ": is not compiled, so that clang-tidy does not see it"
            findings = 1
        } else if (path ~ /\.h$/ && !(path in covered)) {
            print path ": no source includes it, so that clang-tidy does not see it"
            findings = 1
        }
    }
    exit findings + 0
}

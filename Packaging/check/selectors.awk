# Compares keyword names with the functions that they belong to, in the files whose paths it reads,
# one a line. Prints one line a finding and exits with 1 when there is any.
#
# `/// Selector: a:b:c:` is the last line of a function's comment. The function
# - is named `a`, or after joined keywords: `aB`, `aBC`;
# - has a parameter for each colon, named after its keyword unless that is joined into the name, and
#   the first is named for what it is;
# - as a free function has the object that is asked as one more parameter, before the others;
# - as a constructor is named after its class; its keyword name begins with `init`, or as `fontWith`
#   does in a class Font.
# A class has each keyword name once.

BEGIN {
    # Exceptions: keyword names whose last keyword has no parameter, because it has no meaning here.
    meaningless["copyWithZone:"] = 1  # a zone is a place to take memory from
}

function report(line, text) {
    print file ":" line ": " text
    findings = 1
}

function indentOf(text) { match(text, /^ */); return RLENGTH }

function capital(word) { return toupper(substr(word, 1, 1)) substr(word, 2) }

# Splits the text of a parameter list at its outer commas; returns how many there are.
function splitParameters(text, parameters,    i, c, depth, count) {
    if (text ~ /^ *$/) return 0
    count = 1
    parameters[1] = ""
    for (i = 1; i <= length(text); i++) {
        c = substr(text, i, 1)
        if (index("(<[{", c)) depth++
        if (index(")>]}", c)) depth--
        if (c == "," && depth == 0) parameters[++count] = ""
        else parameters[count] = parameters[count] c
    }
    return count
}

# The name that a parameter's declaration ends with, empty when it has only a type.
function parameterName(text) {
    sub(/ *=.*$/, "", text)
    sub(/(\[[^\]]*\])* *$/, "", text)
    if (text !~ /[A-Za-z0-9_>)*&]+[ *&]+[A-Za-z_][A-Za-z0-9_]*$/) return ""
    match(text, /[A-Za-z_][A-Za-z0-9_]*$/)
    return substr(text, RSTART)
}

# How many keywords the function's name joins; 0 when it is none of their joints.
function joinedKeywords(name, keywords, count,    i, joint) {
    for (i = 1; i <= count; i++) {
        joint = (i == 1) ? keywords[1] : joint capital(keywords[i])
        if (name == joint) return i
    }
    return 0
}

# Compares a declaration, from its start to the end of its parameter list.
function compare(line, selector, class, declaration,
                 keywords, colons, count, head, name, joined, parameters, first, i, parameter) {
    split("", keywords)
    split("", parameters)
    colons = gsub(/:/, ":", selector)
    split(selector, keywords, ":")
    head = declaration
    sub(/ *\(.*$/, "", head)
    match(head, /[A-Za-z_][A-Za-z0-9_]*$/)
    name = substr(head, RSTART)
    sub(/^[^(]*\(/, "", declaration)
    sub(/\)$/, "", declaration)
    count = splitParameters(declaration, parameters)

    joined = joinedKeywords(name, keywords, colons > 1 ? colons : 1)
    if (class != "" && name == class &&
        (selector ~ /^init/ || index(tolower(selector), tolower(class) "with") == 1)) joined = 1
    if (joined == 0) {
        report(line, selector " stands at a function named " name)
        return
    }
    first = (class == "") ? 2 : 1
    if (selector in meaningless) colons--
    if (count != colons + first - 1) {
        report(line, selector " stands at a function with " count " parameters")
        return
    }
    for (i = joined + 1; i <= colons; i++) {
        parameter = parameterName(parameters[i + first - 1])
        if (parameter != keywords[i]) {
            report(line, selector " stands at a function whose parameter " keywords[i] \
                         " is named \"" parameter "\"")
        }
    }
}

# Reads on to the end of the parameter list that begins after line `start`; empty without one.
function declarationAfter(    text, declaration, depth, i, c) {
    while ((getline text < file) > 0) {
        number++
        if (declaration == "" && text ~ /^ *($|\/\/)/) return ""
        sub(/^ +/, " ", text)
        for (i = 1; i <= length(text); i++) {
            c = substr(text, i, 1)
            if (depth == 0 && (c == ";" || c == "{")) return ""
            if (c == "(") depth++
            declaration = declaration c
            if (c == ")" && --depth == 0) return declaration
        }
    }
    return ""
}

{
    file = $0
    number = 0
    split("", classAt)
    split("", lineOf)
    while ((getline text < file) > 0) {
        number++
        if (text ~ /^ *(class|struct) [A-Za-z0-9_]+[^;]*$/) {
            split(substr(text, indentOf(text) + 1), words, " ")
            classAt[indentOf(text)] = words[2]
        }
        if (text !~ /\/\/ *Selector:/) continue
        line = number
        indent = indentOf(text)
        class = (indent > 0) ? classAt[indent - 4] : ""
        if (text !~ /^ *\/\/\/ Selector: [A-Za-z][A-Za-z0-9]*(:([A-Za-z0-9]+:)*)?$/) {
            report(line, "no keyword name")
            continue
        }
        selector = text
        sub(/^.*Selector: /, "", selector)
        if ((class, selector) in lineOf) {
            report(line, selector " is also at line " lineOf[class, selector])
        }
        lineOf[class, selector] = line
        declaration = declarationAfter()
        if (declaration == "") report(line, selector " is not followed by a function")
        else compare(line, selector, class, declaration)
    }
    close(file)
}

END { exit findings + 0 }

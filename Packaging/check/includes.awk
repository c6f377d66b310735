# Checks the includes of the files whose paths it reads, one a line. Prints one line a finding and
# exits with 1 when there is any.
#
# An arrow points from a folder to those that it may include besides itself. Where the longest
# folder that a path begins with has no arrows here, the file has no place in the house.

function arrow(folder, targets) { arrows[folder] = folder " " targets }

BEGIN {
    foundation = "Platform/Foundation"
    platform = foundation " Platform/Text Platform/Document"

    arrow(foundation, "")
    arrow("Platform/Text", foundation)
    arrow("Platform/Document", foundation " Platform/Text")
    arrow("Platform/CoreFoundation", foundation)

    arrow("Sources/CocoaExtensions/Zip", foundation)
    arrow("Sources/TextAnalysis", foundation " Platform/Text")
    arrow("Sources/TextImport", foundation " Platform/Text Sources/TextAnalysis")
    arrow("Sources/Document", platform \
          " Sources/CocoaExtensions/Zip Sources/TextImport Sources/TextAnalysis")
    arrow("Sources/Importer", "Sources/Document Platform/CoreFoundation " foundation)

    # The plug-in's C header is all that the host knows of it.
    arrow("Host", platform " Platform/CoreFoundation Sources/TextAnalysis Sources/Importer")
    arrow("Tools", "Platform Sources")
    # It makes the tables of the language tagger.
    arrow("Packaging", foundation " Platform/Text")

    # These look at everything, and at the libraries that they test with.
    arrow("Tests", "Platform Sources Host Tools Packaging Fuzz")
    arrow("Fuzz", "Platform Sources Host Tools Tests")
    arrow("Benchmarks", "Platform Sources Host Tools Tests")

    split("algorithm any array atomic barrier bit bitset charconv chrono codecvt compare complex " \
          "concepts condition_variable coroutine deque exception execution filesystem format " \
          "forward_list fstream functional future initializer_list iomanip ios iosfwd iostream " \
          "istream iterator latch limits list locale map memory memory_resource mutex new " \
          "numbers numeric optional ostream queue random ranges ratio regex scoped_allocator " \
          "semaphore set shared_mutex source_location span sstream stack stdexcept stop_token " \
          "streambuf string string_view strstream syncstream system_error thread tuple " \
          "type_traits typeindex typeinfo unordered_map unordered_set utility valarray variant " \
          "vector version cassert cctype cerrno cfenv cfloat cinttypes climits clocale cmath " \
          "csetjmp csignal cstdarg cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar " \
          "cwctype cxxabi.h", names, " ")
    for (i in names) standard[names[i]] = 1
    split("aio alloca argz arpa/inet assert byteswap complex cpuid ctype dirent dlfcn elf endian " \
          "envz err errno error execinfo fcntl features fenv float fnmatch ftw getopt glob grp " \
          "immintrin inttypes iso646 langinfo libgen limits link locale malloc math mntent " \
          "monetary netdb netinet/in netinet/tcp nl_types paths poll pthread pwd resolv sched " \
          "search semaphore setjmp shadow signal spawn stdalign stdarg stdatomic stdbool stddef " \
          "stdint stdio stdlib stdnoreturn string strings syscall sysexits syslog termios time " \
          "uchar ucontext unistd utime wait wchar wctype wordexp x86intrin", names, " ")
    for (i in names) standard[names[i] ".h"] = 1
}

function isStandard(header) {
    return header in standard || header ~ /^(sys|linux|sanitizer)\/[a-z0-9_\/]+\.h$/
}

# Whether `path` lies in `folder` or below it.
function liesIn(path, folder) { return index(path, folder "/") == 1 }

# The longest folder with arrows that `path` lies in, empty when there is none.
function placeOf(path,    folder, place) {
    for (folder in arrows) {
        if (liesIn(path, folder) && length(folder) > length(place)) place = folder
    }
    return place
}

function report(text) {
    print file ":" line ": " text
    findings = 1
}

function checkOurs(header,    targets, count, i, allowed) {
    if (header !~ /^(Platform|Sources|Host|Tools|Packaging|Tests|Fuzz|Benchmarks)\//) {
        report("\"" header "\" is not written from the top of the tree")
        return
    }
    if (header ~ /(^|\/)\.\.?\//) {
        report("\"" header "\" has steps in its path")
        return
    }
    count = split(arrows[place], targets, " ")
    for (i = 1; i <= count; i++) {
        if (liesIn(header, targets[i])) allowed = 1
    }
    if (isPublicC && !liesIn(header, place)) allowed = 0
    if (place == "Host" && liesIn(header, "Sources/Importer") &&
        header !~ /^Sources\/Importer\/[A-Za-z0-9]+\.h$/) allowed = 0
    if (!allowed) report(place " may not include \"" header "\"")
}

function checkTheirs(header,    isCode) {
    if (isStandard(header) || place ~ /^(Tests|Fuzz|Benchmarks)$/) return
    isCode = file ~ /\.(c|cpp)$/
    if (liesIn(file, "Platform") && isCode) return
    if (place == "Sources/CocoaExtensions/Zip" && isCode && header == "zlib.h") return
    if (place == "Packaging" && isCode && liesIn(header, "unicode")) return
    if (place ~ /^(Host|Tools)$/ && header ~ /^(CLI|fmt|nlohmann)\//) return
    report("the library header <" header "> has no place here")
}

{
    file = $0
    line = 0
    place = placeOf(file)
    if (place == "") {
        print file ": its folder has no place among the storeys; add it to includes.awk"
        findings = 1
        next
    }
    # Headers of the C library that its users see; the others are for its own code.
    isPublicC = file ~ /^Platform\/CoreFoundation\/(CF[A-Za-z0-9]*|CoreFoundation)\.h$/
    while ((getline text < file) > 0) {
        line++
        if (text !~ /^[ \t]*#[ \t]*include/) continue
        sub(/^[ \t]*#[ \t]*include(_next)?[ \t]*/, "", text)
        if (text ~ /^"[^"]+"/) {
            split(text, part, "\"")
            checkOurs(part[2])
        } else if (text ~ /^<[^>]+>/) {
            split(text, part, /[<>]/)
            checkTheirs(part[2])
        } else {
            report("an include that a macro names")
        }
    }
    close(file)
}

END { exit findings + 0 }

// An archive of many members: opening it and reading the contents of each, beside two libraries
// that many programs use for that.
//
// Short members show what an entry costs beside inflating it. The inflating takes the same zlib
// everywhere: where it is most of the work no reader can be much faster than another, and inflating
// alone is the yardstick.

#include <archive.h>
#include <archive_entry.h>
#include <benchmark/benchmark.h>
#include <zip.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "Benchmarks/Support/Benchmarks.h"
#include "Benchmarks/Support/Floor.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"

namespace bench {
namespace {

/// What was read: enough to see that all read the same.
struct Totals {
    std::uint64_t members = 0;
    std::uint64_t bytes = 0;

    friend bool operator==(const Totals&, const Totals&) = default;
};

void sum(const platform::FileWrapper& folder, Totals& totals) {
    for (const auto& [key, child] : folder.fileWrappers()) {
        if (child->isDirectory()) {
            sum(*child, totals);
        } else {
            ++totals.members;
            totals.bytes += child->regularFileContents()->size();
        }
    }
}

Totals readWithZipWrapper(const std::string& path) {
    Totals totals;
    sum(*parlavox::ZipWrapper::initWithPath(path), totals);
    return totals;
}

Totals readWithLibzip(const std::string& path) {
    Totals totals;
    zip_t* const archive = zip_open(path.c_str(), ZIP_RDONLY, nullptr);
    const zip_int64_t count = zip_get_num_entries(archive, 0);
    for (zip_uint64_t i = 0; i < static_cast<zip_uint64_t>(count); ++i) {
        zip_stat_t status;
        zip_stat_index(archive, i, 0, &status);
        std::vector<char> contents(status.size);
        zip_file_t* const file = zip_fopen_index(archive, i, 0);
        totals.bytes += static_cast<std::uint64_t>(zip_fread(file, contents.data(), status.size));
        zip_fclose(file);
        ++totals.members;
        benchmark::DoNotOptimize(contents.data());
    }
    zip_discard(archive);
    return totals;
}

Totals readWithLibarchive(const std::string& path) {
    constexpr std::size_t kBlockSize = 65536;
    Totals totals;
    archive* const reader = archive_read_new();
    archive_read_support_format_zip(reader);
    archive_read_open_filename(reader, path.c_str(), kBlockSize);
    archive_entry* entry = nullptr;
    while (archive_read_next_header(reader, &entry) == ARCHIVE_OK) {
        std::vector<char> contents(static_cast<std::size_t>(archive_entry_size(entry)));
        totals.bytes +=
            static_cast<std::uint64_t>(archive_read_data(reader, contents.data(), contents.size()));
        ++totals.members;
        benchmark::DoNotOptimize(contents.data());
    }
    archive_read_free(reader);
    return totals;
}

using Reader = Totals (*)(const std::string& path);

std::string add(const std::string& name, Reader read, const std::string& path) {
    benchmark::RegisterBenchmark(name.c_str(), [read, path](benchmark::State& state) {
        for (auto _ : state) {
            benchmark::DoNotOptimize(read(path));
        }
    })->Unit(benchmark::kMillisecond);
    return name;
}

Totals inflateAlone(const std::string& path) {
    return {0, floorInflate(path.c_str())};
}

void compare(const Packages& packages, Report& report, std::uint64_t size, bool areDeflated) {
    constexpr std::uint64_t kMembers = 10'000;
    constexpr double kTimesInflating = 1.5;
    const Target target = areDeflated ? Target::none() : Target::atLeast(3);
    const std::string path = packages.pathOfMembers(kMembers, size, areDeflated);
    const Totals wanted = readWithZipWrapper(path);
    if (wanted != Totals{kMembers, kMembers * size} || readWithLibzip(path) != wanted ||
        readWithLibarchive(path) != wanted) {
        std::fprintf(stderr, "%s: the contents differ\n", path.c_str());
        std::abort();
    }
    const std::string shape = "10000 members of " + std::to_string(size) + " bytes, " +
                              (areDeflated ? "deflated" : "stored");
    const std::string ours = add("ZipWrapper: " + shape, readWithZipWrapper, path);
    report.compare(
        {shape + ", libzip", ours, add("libzip: " + shape, readWithLibzip, path), target});
    report.compare({shape + ", libarchive", ours,
                    add("libarchive: " + shape, readWithLibarchive, path), target});
    if (areDeflated) {
        report.compare({shape + ", zlib alone", ours, add("zlib: " + shape, inflateAlone, path),
                        Target::atMost(kTimesInflating)});
    }
}

}  // namespace

void addZipBenchmarks(const Packages& packages, Report& report) {
    constexpr double kLinear = 2.1;
    report.begin("Archives of many members, opened and read, beside other libraries");
    compare(packages, report, 100, true);
    compare(packages, report, 100, false);
    compare(packages, report, 1000, true);
    const auto read = [&](std::uint64_t members) {
        return add("Linear: " + std::to_string(members) + " members", readWithZipWrapper,
                   packages.pathOfMembers(members, 100, true));
    };
    const std::string half = read(10'000);
    report.compare({"20000 members / 10000", read(20'000), half, Target::atMost(kLinear)});
}

}  // namespace bench

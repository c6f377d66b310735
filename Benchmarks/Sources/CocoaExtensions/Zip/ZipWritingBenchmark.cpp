// Archives written to the disk, beside three libraries that many programs use for that.
//
// Many short members show what an entry costs; one long member what checksum, deflating and writing
// cost. The deflating takes the same zlib everywhere, at the same level. Archives of ours are made
// with the largest tables that zlib knows, and so are libzip's; the smaller ones that others take
// by themselves are quicker where they fit a cache, and are shown for information.

#include <archive.h>
#include <archive_entry.h>
#include <benchmark/benchmark.h>
#include <zip.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Benchmarks/Support/Benchmarks.h"
#include "Benchmarks/Support/Minizip.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"

namespace bench {
namespace {

/// What is to be written, and how.
struct Job {
    std::string path;
    std::uint32_t level = 0;
    std::vector<std::string> names;
    std::vector<std::string> contents;
    std::shared_ptr<parlavox::ZipWrapper> archive;
};

class OneLevel final : public parlavox::ZipWrapperDelegate {
public:
    explicit OneLevel(std::uint32_t level) : level_(level) {}

    std::optional<std::uint32_t> compressLevelForFileWrapper(
        const std::shared_ptr<platform::FileWrapper>&, const parlavox::ZipWrapper&) override {
        return level_;
    }

private:
    std::uint32_t level_;
};

void writeWithZipWrapper(const Job& job) {
    job.archive->writeToFile(job.path, platform::Atomically::No, platform::UpdateFilenames::No);
}

void writeWithLibzip(const Job& job) {
    zip_t* const archive = zip_open(job.path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    const zip_int32_t method = job.level == 0 ? ZIP_CM_STORE : ZIP_CM_DEFLATE;
    for (std::size_t i = 0; i < job.names.size(); ++i) {
        zip_source_t* const source =
            zip_source_buffer(archive, job.contents[i].data(), job.contents[i].size(), 0);
        const auto index = static_cast<zip_uint64_t>(
            zip_file_add(archive, job.names[i].c_str(), source, ZIP_FL_ENC_UTF_8));
        zip_set_file_compression(archive, index, method, job.level);
    }
    zip_close(archive);
}

void writeWithLibarchive(const Job& job) {
    archive* const writer = archive_write_new();
    archive_write_set_format_zip(writer);
    archive_write_set_format_option(writer, "zip", "compression",
                                    job.level == 0 ? "store" : "deflate");
    if (job.level > 0) {
        archive_write_set_format_option(writer, "zip", "compression-level",
                                        std::to_string(job.level).c_str());
    }
    archive_write_open_filename(writer, job.path.c_str());
    archive_entry* const entry = archive_entry_new();
    for (std::size_t i = 0; i < job.names.size(); ++i) {
        archive_entry_clear(entry);
        archive_entry_set_pathname(entry, job.names[i].c_str());
        archive_entry_set_size(entry, static_cast<la_int64_t>(job.contents[i].size()));
        archive_entry_set_filetype(entry, AE_IFREG);
        archive_entry_set_perm(entry, 0644);
        archive_write_header(writer, entry);
        archive_write_data(writer, job.contents[i].data(), job.contents[i].size());
    }
    archive_entry_free(entry);
    archive_write_free(writer);
}

// Memory levels of zlib.
constexpr int kSmallTables = 8;
constexpr int kLargeTables = 9;

template <int kMemoryLevel>
void writeWithTables(const Job& job) {
    writeWithMinizip(job.path, job.level, kMemoryLevel, job.names, job.contents);
}

using Writer = void (*)(const Job& job);

/// The contents by their names, as a library reads them that knows all of these archives.
std::map<std::string, std::string> readBack(const std::string& path) {
    std::map<std::string, std::string> members;
    zip_t* const archive = zip_open(path.c_str(), ZIP_RDONLY, nullptr);
    const zip_int64_t count = archive != nullptr ? zip_get_num_entries(archive, 0) : 0;
    for (zip_uint64_t i = 0; i < static_cast<zip_uint64_t>(count); ++i) {
        zip_stat_t status;
        zip_stat_index(archive, i, 0, &status);
        std::string contents(status.size, '\0');
        zip_file_t* const file = zip_fopen_index(archive, i, 0);
        zip_fread(file, contents.data(), contents.size());
        zip_fclose(file);
        members[status.name] = std::move(contents);
    }
    zip_discard(archive);
    return members;
}

void check(const Job& job, Writer write) {
    write(job);
    const auto members = readBack(job.path);
    bool isEqual = members.size() == job.names.size();
    for (std::size_t i = 0; i < job.names.size() && isEqual; ++i) {
        const auto found = members.find(job.names[i]);
        isEqual = found != members.end() && found->second == job.contents[i];
    }
    if (!isEqual) {
        std::fprintf(stderr, "%s: the contents differ\n", job.path.c_str());
        std::abort();
    }
    std::remove(job.path.c_str());
}

std::string add(const std::string& name, Writer write, const std::shared_ptr<const Job>& job) {
    check(*job, write);
    benchmark::RegisterBenchmark(name.c_str(), [write, job](benchmark::State& state) {
        for (auto _ : state) {
            write(*job);
        }
        std::remove(job->path.c_str());
    })->Unit(benchmark::kMillisecond);
    return name;
}

std::shared_ptr<const Job> jobOf(const Packages& packages, std::uint64_t count, std::uint64_t size,
                                 std::uint32_t level) {
    auto job = std::make_shared<Job>();
    job->path = packages.folder() + "/written.zip";
    job->level = level;
    const std::string letters = prose(count * size);
    std::vector<platform::FileWrapperEntry> children;
    for (std::uint64_t i = 0; i < count; ++i) {
        job->names.push_back("chapter-" + std::to_string(i) + ".txt");
        job->contents.push_back(letters.substr(i * size, size));
        children.push_back({job->names.back(), platform::FileWrapper::initRegularFileWithContents(
                                                   platform::Data::copyOf(job->contents.back()))});
    }
    job->archive = parlavox::ZipWrapper::initDirectoryWithFileWrappers(std::move(children));
    job->archive->setDelegate(std::make_shared<OneLevel>(level));
    return job;
}

void compare(const Packages& packages, Report& report, std::uint64_t count, std::uint64_t size,
             std::uint32_t level) {
    constexpr double kNoSlower = 1.03;
    const auto job = jobOf(packages, count, size, level);
    const std::string shape = std::to_string(count) + " of " + std::to_string(size) + " bytes, " +
                              (level == 0 ? "stored" : "level " + std::to_string(level));
    const std::string ours = add("ZipWrapper writes " + shape, writeWithZipWrapper, job);
    const Target noSlower = Target::atMost(kNoSlower);
    const Target forSmallTables = level == 0 ? noSlower : Target::none();
    const struct {
        const char* name;
        Writer write;
        Target target;
    } kPeers[] = {
        {"libzip", writeWithLibzip, noSlower},
        {"minizip", writeWithTables<kLargeTables>, noSlower},
        {"minizip's tables", writeWithTables<kSmallTables>, forSmallTables},
        {"libarchive", writeWithLibarchive, forSmallTables},
    };
    for (const auto& peer : kPeers) {
        const std::string other = add(std::string(peer.name) + " writes " + shape, peer.write, job);
        report.compare({shape + ", " + peer.name, ours, other, peer.target});
    }
}

}  // namespace

void addZipWritingBenchmarks(const Packages& packages, Report& report) {
    constexpr std::uint64_t kMany = 10'000;
    constexpr std::uint64_t kLong = 20'000'000;
    report.begin("Archives written, beside other libraries");
    for (const std::uint32_t level : {0U, 1U, 6U}) {
        compare(packages, report, kMany, 100, level);
        compare(packages, report, kMany, 1000, level);
        compare(packages, report, 1, kLong, level);
    }
}

}  // namespace bench

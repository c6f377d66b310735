// Archives that other programs wrote, damaged and hostile ones among them, against a table of what
// they open to.

#include <gtest/gtest.h>
#include <zlib.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <new>
#include <nlohmann/json.hpp>
#include <set>
#include <string>

#include "Sources/CocoaExtensions/Zip/ArchiveRangeError.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"
#include "Tests/Sources/CocoaExtensions/Zip/ZipTestFolder.h"
#include "Tests/Support/BoundedChild.h"
#include "Tests/Support/Fixtures.h"
#include "Tests/Support/TestData.h"

namespace parlavox {
namespace {

using Json = nlohmann::ordered_json;
using platform::FileWrapper;

/// The tree below `folder`: null for a folder, size and CRC-32 of the contents for a file.
void listTree(const FileWrapper& folder, const std::string& path, Json& tree) {
    for (const auto& [key, child] : folder.fileWrappers()) {
        const std::string place = path + key;
        if (child->isDirectory()) {
            tree[place + "/"] = nullptr;
            listTree(*child, place + "/", tree);
            continue;
        }
        const auto contents = child->regularFileContents();
        if (!contents) {
            tree[place] = "no contents";
            continue;
        }
        const auto* const bytes = reinterpret_cast<const Bytef*>(contents->bytes());
        tree[place] = {contents->size(), crc32_z(crc32_z(0, nullptr, 0), bytes, contents->size())};
    }
}

Json outcomeOf(const std::string& path) {
    try {
        const auto archive = ZipWrapper::initWithPath(path);
        if (archive == nullptr) {
            return {{"answers", nullptr}};
        }
        Json tree = Json::object();
        listTree(*archive, "", tree);
        return {{"tree", tree}};
    } catch (const ArchiveRangeError&) {
        return {{"raises", "ArchiveRangeError"}};
    } catch (const platform::AssertionFailure& failure) {
        return {{"raises", "AssertionFailure: " + failure.reason()}};
    } catch (const std::bad_alloc&) {
        return {{"raises", "std::bad_alloc"}};
    }
}

/// What opening the archive at `path` comes to in a process of its own. Files beyond a size cannot
/// be written there, which is a full disk to the archive: it keeps such entries in memory.
Json outcomeWithinBounds(const std::string& path) {
    constexpr rlim_t kSeconds = 60;
    constexpr rlim_t kMemory = rlim_t{512} << 20;
    constexpr rlim_t kLargestFile = rlim_t{1} << 20;
    const std::string outcome = test::resultOfChild(kSeconds, kMemory, [&] {
        const rlimit file{kLargestFile, kLargestFile};
        setrlimit(RLIMIT_FSIZE, &file);
        signal(SIGXFSZ, SIG_IGN);
        return outcomeOf(path).dump();
    });
    return Json::accept(outcome) ? Json::parse(outcome) : Json(outcome);
}

Json outcomes() {
    std::ifstream file(test::dataPath("zip/outcomes.json"));
    return Json::parse(file);
}

TEST(RealArchives, OpenToWhatTheTableSays) {
    const ZipTestFolder folderOfSpooledEntries;
    std::size_t seen = 0;
    const Json rows = outcomes();
    for (const auto& [name, row] : rows.items()) {
        const auto path = test::fixturePath("zip/" + name);
#ifdef PV_TEST_HAS_SHADOW_MEMORY
        const bool isBounded = row["outcome"] != Json{{"raises", "std::bad_alloc"}};
#else
        const bool isBounded = true;
#endif
        if (!path || !isBounded) {
            continue;
        }
        SCOPED_TRACE(name);
        ++seen;
        EXPECT_EQ(outcomeWithinBounds(*path).dump(), row["outcome"].dump());
    }
    EXPECT_GE(seen, 198u) << "those that lie in the tree";
}

TEST(RealArchives, HaveAReasonWhereAnotherReaderSeesSomethingElse) {
    const Json rows = outcomes();
    for (const auto& [name, row] : rows.items()) {
        EXPECT_EQ(row.contains("reason"), row.contains("python")) << name;
        if (row.contains("python") && row["outcome"].contains("tree")) {
            EXPECT_NE(row["python"], row["outcome"]["tree"]) << name;
        }
    }
}

TEST(RealArchives, EveryFileHasARow) {
    const Json rows = outcomes();
    const char* const more = std::getenv("PARLAVOX_FIXTURES");
    for (const auto& data : {test::dataPath(""), std::filesystem::path(more ? more : "")}) {
        if (!std::filesystem::exists(data / "zip")) {
            continue;
        }
        for (const auto& file : std::filesystem::directory_iterator(data / "zip")) {
            const std::string extension = file.path().extension();
            if (extension == ".zip" || extension == ".ZIP") {
                EXPECT_TRUE(rows.contains(file.path().filename().string())) << file.path();
            }
        }
    }
}

}  // namespace
}  // namespace parlavox

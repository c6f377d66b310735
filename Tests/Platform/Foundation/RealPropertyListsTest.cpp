// Property lists that other programs wrote, and hostile ones, against what other readers see.

#include <gtest/gtest.h>
#include <zlib.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/PropertyListSerialization.h"
#include "Tests/Support/BoundedChild.h"
#include "Tests/Support/Fixtures.h"
#include "Tests/Support/PropertyListJson.h"
#include "Tests/Support/TestData.h"

namespace platform {
namespace {

using test::Json;

Json verdicts() {
    std::ifstream file(test::dataPath("plist/verdicts.json"));
    return Json::parse(file);
}

Data contentsOf(const std::filesystem::path& path) {
    return FileManager::defaultManager().contentsAtPath(path).value();
}

Result<Value> read(const Data& data) {
    return PropertyListSerialization::propertyListWithData(data);
}

/// What another reader saw in the list, from the file that lies beside it: JSON, or the old text
/// format where the list is in that form.
std::string expectedIn(const std::filesystem::path& path, PropertyListFormat format) {
    const Data expected = contentsOf(path.string() + ".expected.txt");
    return format == PropertyListFormat::OpenStep ? test::jsonOf(read(expected).value()).dump()
                                                  : Json::parse(expected.view()).dump();
}

void expectValue(const std::filesystem::path& path, const Json& row) {
    PropertyListFormat format = PropertyListFormat::Binary;
    const auto value = PropertyListSerialization::propertyListWithData(contentsOf(path), &format);
    ASSERT_TRUE(value) << value.fault().detail;
    if (row.contains("elements")) {
        EXPECT_EQ(value.value().array()->size(), row["elements"]);
        return;
    }
    const std::string seen = test::jsonOf(value.value()).dump();
    if (row.contains("digest")) {
        const std::string ascii = test::jsonOf(value.value()).dump(-1, ' ', true);
        EXPECT_EQ(ascii.size(), row["digest"]["characters"]);
        EXPECT_EQ(crc32_z(0, reinterpret_cast<const Bytef*>(ascii.data()), ascii.size()),
                  row["digest"]["crc32"]);
    } else if (row.contains("value")) {
        EXPECT_EQ(seen, row["value"].dump());
    } else {
        EXPECT_EQ(seen, expectedIn(path, format));
    }
}

TEST(RealPropertyLists, HoldWhatOtherReadersSee) {
    std::size_t seen = 0;
    const Json rows = verdicts();
    for (const auto& [name, row] : rows.items()) {
        const auto path = test::fixturePath("plist/" + name);
        if (!path) {
            continue;
        }
        SCOPED_TRACE(name);
        ++seen;
        if (row["verdict"] == "read") {
            expectValue(*path, row);
        } else {
            const auto value = read(contentsOf(*path));
            ASSERT_FALSE(value);
            EXPECT_NE(value.fault().detail, "");
        }
    }
    EXPECT_GE(seen, 54u) << "those that lie in the tree";
}

TEST(RealPropertyLists, HaveAReasonWhereOthersReadThemOtherwise) {
    const Json rows = verdicts();
    for (const auto& [name, row] : rows.items()) {
        bool othersAgree = !row.contains("value");
        for (const auto& [reader, verdict] : row["others"].items()) {
            othersAgree =
                othersAgree && verdict == (row["verdict"] == "read" ? "reads" : "refuses");
        }
        EXPECT_EQ(row.contains("reason"), !othersAgree) << name;
    }
}

TEST(RealPropertyLists, EveryFileHasARow) {
    const Json rows = verdicts();
    const char* const more = std::getenv("PARLAVOX_FIXTURES");
    for (const auto& folder : {test::dataPath(""), std::filesystem::path(more ? more : "")}) {
        if (!std::filesystem::exists(folder / "plist")) {
            continue;
        }
        for (const auto& file : std::filesystem::directory_iterator(folder / "plist")) {
            const std::string name = file.path().filename();
            const bool isList = !name.ends_with(".expected.txt") && !name.ends_with(".md") &&
                                name != "verdicts.json";
            EXPECT_EQ(isList, rows.contains(name)) << name;
        }
    }
}

TEST(RealPropertyLists, AreReadWithinBounds) {
    constexpr rlim_t kSeconds = 60;
    constexpr rlim_t kMemory = rlim_t{512} << 20;
    const std::string result = test::resultOfChild(kSeconds, kMemory, [] {
        std::string readOtherwise;
        const Json rows = verdicts();
        for (const auto& [name, row] : rows.items()) {
            const auto path = test::fixturePath("plist/" + name);
            const bool isRead = row["verdict"] == "read";
            if (path && static_cast<bool>(read(contentsOf(*path))) != isRead) {
                readOtherwise += name + " ";
            }
        }
        return "read otherwise: " + readOtherwise;
    });
    EXPECT_EQ(result, "read otherwise: ");
}

}  // namespace
}  // namespace platform

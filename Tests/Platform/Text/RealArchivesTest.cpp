// Archives that other programs wrote, against what another reader sees in them.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/KeyedArchiver.h"
#include "Platform/Foundation/KeyedUnarchiver.h"
#include "Platform/Text/AttributedStringCoding.h"
#include "Tests/Support/Fixtures.h"
#include "Tests/Support/GraphJson.h"
#include "Tests/Support/TestData.h"

namespace platform {
namespace {

using test::GraphJson;
using test::SharedObjects;
using Json = GraphJson::Json;

std::optional<std::filesystem::path> pathOf(const std::string& name) {
    return test::fixturePath("keyed-archives/" + name);
}

Data contentsOf(const std::filesystem::path& path) {
    return FileManager::defaultManager().contentsAtPath(path).value();
}

/// The only top-level object of an archive.
Value rootOf(const Data& archive, const std::string& key = "root") {
    const auto unarchiver = KeyedUnarchiver::initForReadingWithData(archive);
    unarchiver->addClasses(attributedTextClasses());
    return unarchiver->containsValueForKey(key) ? unarchiver->decodeObjectForKey(key)
                                                : unarchiver->decodeObject();
}

Json expectations() {
    std::ifstream file(test::dataPath("keyed-archives/roots.json"));
    return Json::parse(file);
}

TEST(RealArchives, DecodeToTheRootsThatAnotherReaderSees) {
    std::size_t seen = 0;
    const Json rows = expectations();
    for (const auto& [name, want] : rows.items()) {
        SCOPED_TRACE(name);
        const auto path = pathOf(name);
        if (!path) {
            continue;
        }
        ++seen;
        const Value root = rootOf(contentsOf(*path), want.value("key", "root"));
        if (want.contains("root")) {
            EXPECT_EQ(GraphJson(SharedObjects::Repeated).of(root), want["root"]);
        }
        if (want.contains("texts")) {
            GraphJson graph(SharedObjects::Numbered);
            (void)graph.of(root);
            EXPECT_EQ(graph.texts(), want["texts"].get<std::multiset<Json>>());
        }
    }
    EXPECT_GE(seen, 17u) << "those that lie in the tree";
}

TEST(RealArchives, EveryArchiveInTheTreeHasARow) {
    const Json rows = expectations();
    for (const auto& file : std::filesystem::directory_iterator(test::dataPath("keyed-archives"))) {
        const std::string name = file.path().filename();
        const bool isArchive =
            name.ends_with(".archive") || name.ends_with(".plist") || name.ends_with(".nib");
        EXPECT_EQ(isArchive, rows.contains(name)) << name;
    }
}

TEST(RealArchives, WrittenAgainHoldTheSame) {
    const Json rows = expectations();
    for (const auto& [name, want] : rows.items()) {
        const auto path = pathOf(name);
        if (!path) {
            continue;
        }
        const Value root = rootOf(contentsOf(*path), want.value("key", "root"));
        const Json before = GraphJson(SharedObjects::Numbered).of(root);
        SCOPED_TRACE(name);
        const Value binary = rootOf(KeyedArchiver::archivedDataWithRootObject(root));
        EXPECT_EQ(GraphJson(SharedObjects::Numbered).of(binary), before);
        const auto archiver = KeyedArchiver::init();
        archiver->setOutputFormat(PropertyListFormat::Xml);
        archiver->encodeObject(root, "root");
        try {
            const Value xml = rootOf(archiver->encodedData());
            EXPECT_EQ(GraphJson(SharedObjects::Numbered).of(xml), before);
        } catch (const ArchiveException& exception) {
            // Key equivalents of menus are control characters.
            EXPECT_TRUE(name.ends_with(".nib")) << exception.reason();
            EXPECT_TRUE(exception.reason().ends_with("which XML cannot hold"))
                << exception.reason();
        }
    }
}

}  // namespace
}  // namespace platform

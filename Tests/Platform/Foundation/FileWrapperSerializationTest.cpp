#include "Platform/Foundation/FileWrapperSerialization.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "Platform/Foundation/FileWrapper.h"

namespace platform {
namespace {

using namespace std::string_view_literals;
using Wrapper = std::shared_ptr<FileWrapper>;

Wrapper file(std::string_view contents, std::string name = {}) {
    auto wrapper = FileWrapper::initRegularFileWithContents(Data::copyOf(contents));
    if (!name.empty()) {
        wrapper->setPreferredFilename(std::move(name));
    }
    return wrapper;
}

std::string number(std::uint32_t value) {
    std::string bytes;
    for (unsigned i = 0; i < 4; ++i) {
        bytes.push_back(static_cast<char>(value >> (8 * i)));
    }
    return bytes;
}

std::string record(std::string_view contents) {
    return number(1) + number(static_cast<std::uint32_t>(contents.size())) + std::string(contents);
}

const std::string kHead = "rtfd" + number(0);

/// A folder's record of names and records.
std::string folder(const std::vector<std::pair<std::string, std::string>>& records) {
    std::string bytes = number(3) + number(static_cast<std::uint32_t>(records.size()));
    for (const auto& [name, contents] : records) {
        bytes += number(static_cast<std::uint32_t>(name.size())) + name;
    }
    for (const auto& [name, contents] : records) {
        bytes += number(static_cast<std::uint32_t>(contents.size()));
    }
    for (const auto& [name, contents] : records) {
        bytes += contents;
    }
    return bytes;
}

Result<Wrapper> read(std::string bytes) {
    return fileWrapperFromSerializedRepresentation(Data::adopt(std::move(bytes)));
}

/// The tree in one line: names, contents, folders in braces.
std::string shown(const FileWrapper& wrapper) {
    if (wrapper.isRegularFile()) {
        return std::string(wrapper.regularFileContents()->view());
    }
    std::string text = "{";
    for (const auto& [key, child] : wrapper.fileWrappers()) {
        text += key + "=" + shown(*child) + ";";
    }
    return text + "}";
}

TEST(FileWrapperSerialization, AnEmptyFolderHasTheKnownBytes) {
    const Wrapper wrapper = FileWrapper::initDirectoryWithFileWrappers({});
    wrapper->setPreferredFilename("Test1");
    const auto bytes = wrapper->serializedRepresentation();
    ASSERT_TRUE(bytes);
    EXPECT_EQ(bytes->view(),
              "rtfd\0\0\0\0\x03\0\0\0\x02\0\0\0"
              "\x13\0\0\0__@PreferredName@__\x17\0\0\0__@UTF8PreferredName@__"
              "\x0D\0\0\0\x0D\0\0\0"
              "\x01\0\0\0\x05\0\0\0Test1\x01\0\0\0\x05\0\0\0Test1"sv);
}

TEST(FileWrapperSerialization, TreesAreReadBackAsTheyWere) {
    const Wrapper inner = FileWrapper::initDirectoryWithFileWrappers(
        {{"deep.txt", file("deep")}, {"empty", file("")}});
    const Wrapper tree = FileWrapper::initDirectoryWithFileWrappers(
        {{"TXT.rtf", file("{\\rtf1}")}, {"Fotos \u00E9", inner}});
    tree->setPreferredFilename("Brief \u00FC.rtfd");
    const auto bytes = tree->serializedRepresentation();
    ASSERT_TRUE(bytes);
    EXPECT_NE(bytes->view().find("Brief _.rtfd"), std::string_view::npos) << "the form in ASCII";

    const Wrapper again = FileWrapper::initWithSerializedRepresentation(*bytes);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->preferredFilename(), "Brief \u00FC.rtfd");
    EXPECT_EQ(again->filename(), std::nullopt);
    EXPECT_EQ(shown(*again), "{TXT.rtf={\\rtf1};Fotos \u00E9={deep.txt=deep;empty=;};}");
    EXPECT_EQ(again->serializedRepresentation(), bytes);
}

TEST(FileWrapperSerialization, AFileAloneKeepsItsName) {
    const auto bytes = file("contents", "a.png")->serializedRepresentation();
    ASSERT_TRUE(bytes);
    const Wrapper again = FileWrapper::initWithSerializedRepresentation(*bytes);
    ASSERT_NE(again, nullptr);
    ASSERT_TRUE(again->isRegularFile());
    EXPECT_EQ(again->regularFileContents(), Data::copyOf("contents"));
    EXPECT_EQ(again->preferredFilename(), "a.png");
}

TEST(FileWrapperSerialization, ReadsFormsThatOtherWritersUse) {
    const std::string padded =
        number(1) + number(0x80000000) + number(3) + number(5) + std::string(5, '\0') + "abc";
    const struct {
        const char* name;
        std::string top;
        const char* want;
        std::optional<std::string> preferredName;
    } kRows[] = {
        {"padding before the bytes", folder({{"a", padded}}), "{a=abc;}", std::nullopt},
        {"a bare file", record("abc"), "abc", std::nullopt},
        {"a file inside a record of its own", folder({{"a", folder({{"..", padded}})}}), "{a=abc;}",
         std::nullopt},
        {"the name in ASCII alone", folder({{"__@PreferredName@__", record("n")}}), "{}", "n"},
        {"UTF-8 wins in front",
         folder(
             {{"__@UTF8PreferredName@__", record("\u00FC")}, {"__@PreferredName@__", record("_")}}),
         "{}", "\u00FC"},
        {"attributes and unknown records are passed over",
         folder({{".", number(9)}, {"link", number(2) + "where"}, {"a", record("b")}}), "{a=b;}",
         std::nullopt},
        {"a child without a name is passed over", folder({{"", record("b")}}), "{}", std::nullopt},
        {"namesakes get keys of their own", folder({{"a", record("1")}, {"a", record("2")}}),
         "{a=1;1__#$!@%!#__a=2;}", std::nullopt},
        {"bytes after the record", record("abc") + "more", "abc", std::nullopt},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto wrapper = read(kHead + row.top);
        ASSERT_TRUE(wrapper) << wrapper.fault().detail;
        EXPECT_EQ(shown(*wrapper.value()), row.want);
        EXPECT_EQ(wrapper.value()->preferredFilename(), row.preferredName);
    }
}

TEST(FileWrapperSerialization, DamageIsAFaultWithItsPlace) {
    std::string nested = record("x");
    for (int i = 0; i < 200; ++i) {
        nested = folder({{"d", nested}});
    }
    const struct {
        const char* name;
        std::string bytes;
        FaultCode code;
        const char* detail;
    } kRows[] = {
        {"nothing", "", FaultCode::Malformed, "serialized file: no signature at offset 0"},
        {"another signature", "rtfx" + number(0) + record("x"), FaultCode::Malformed,
         "serialized file: no signature at offset 0"},
        {"another version", "rtfd" + number(1) + record("x"), FaultCode::Malformed,
         "serialized file: no signature at offset 0"},
        {"an unknown kind", kHead + number(2), FaultCode::Unsupported,
         "serialized file: neither file nor folder at offset 12"},
        {"a file that ends early", kHead + number(1) + number(4) + "abc", FaultCode::Truncated,
         "serialized file: file of 4 bytes at offset 16"},
        {"padding beyond the end", kHead + number(1) + number(0x80000000) + number(1) + number(99),
         FaultCode::Truncated, "serialized file: padding of 99 bytes at offset 24"},
        {"more names than bytes", kHead + number(3) + number(0xFFFFFFFF), FaultCode::Truncated,
         "serialized file: 4294967295 names at offset 16"},
        {"a record longer than its folder",
         kHead + number(3) + number(1) + number(1) + "a" + number(50) + record("b"),
         FaultCode::Truncated, "serialized file: record of 50 bytes at offset 25"},
        {"a name that is a folder", kHead + folder({{"..", folder({})}}), FaultCode::Malformed,
         "serialized file: .. that is no file at offset 30"},
        {"nested too deep", kHead + nested, FaultCode::TooDeep,
         "serialized file: folders nested deeper than 128 levels at offset 2201"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto wrapper = read(row.bytes);
        ASSERT_FALSE(wrapper);
        EXPECT_EQ(wrapper.fault().code, row.code);
        EXPECT_EQ(wrapper.fault().detail, row.detail);
        EXPECT_EQ(FileWrapper::initWithSerializedRepresentation(Data::copyOf(row.bytes)), nullptr);
    }
}

TEST(FileWrapperSerialization, NoPrefixIsReadBeyondItsEnd) {
    const std::string whole = kHead + folder({{"a", folder({{"b", record("c")}})}});
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_FALSE(read(whole.substr(0, length))) << length;
    }
    EXPECT_TRUE(read(whole));
}

TEST(FileWrapperSerialization, LinksAreLeftOutAndHaveNoFormThemselves) {
    const Wrapper link = FileWrapper::initSymbolicLinkWithDestination("/a");
    EXPECT_EQ(link->serializedRepresentation(), std::nullopt);
    const Wrapper tree =
        FileWrapper::initDirectoryWithFileWrappers({{"link", link}, {"a", file("b")}});
    EXPECT_EQ(shown(*FileWrapper::initWithSerializedRepresentation(
                  tree->serializedRepresentation().value())),
              "{a=b;}");
}

TEST(FileWrapperSerialization, ReservedNamesAreNotWrittenAsChildren) {
    for (const char* name : {"..", ".", "__@PreferredName@__", "__@UTF8PreferredName@__"}) {
        const Wrapper tree = FileWrapper::initDirectoryWithFileWrappers({{name, file("b")}});
        EXPECT_EQ(tree->serializedRepresentation(), std::nullopt) << name;
    }
}

TEST(FileWrapperSerialization, FoldersTooDeepToBeReadAreNotWritten) {
    Wrapper tree = FileWrapper::initDirectoryWithFileWrappers({});
    for (int i = 0; i < 128; ++i) {
        tree = FileWrapper::initDirectoryWithFileWrappers({{"d", tree}});
    }
    const auto deepest = tree->serializedRepresentation();
    ASSERT_TRUE(deepest);
    EXPECT_NE(FileWrapper::initWithSerializedRepresentation(*deepest), nullptr);
    EXPECT_EQ(FileWrapper::initDirectoryWithFileWrappers({{"d", tree}})->serializedRepresentation(),
              std::nullopt);
}

}  // namespace
}  // namespace platform

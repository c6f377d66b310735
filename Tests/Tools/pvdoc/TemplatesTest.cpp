// pvdoc templates: the list of tag templates of a document, and that nothing else changes.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Platform/Foundation/KeyedUnarchiver.h"
#include "Platform/Foundation/OpaqueObject.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"
#include "Sources/Document/PackageFormat.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tools/pvdoc/ArchiveListing.h"
#include "Tools/pvdoc/Templates.h"
#include "Tools/samples/ArchiveBuilder.h"
#include "Tools/samples/PackageBuilder.h"
#include "Tools/samples/ZipBuilder.h"

namespace pvdoc {
namespace {

using platform::Data;
using platform::Uid;
using platform::Value;

/// An archive of the templates "a", an object of an unknown class, and "c".
Data archivedTemplates() {
    samples::ArchiveBuilder b;
    const Uid type = b.addClass({"AcmeTemplate", "NSObject"});
    const Uid inner = b.addInstance(type, {{"depth", Value(2)}});
    const Uid object =
        b.addInstance(type, {{"name", Value(b.add(u"pause"))}, {"inner", Value(inner)}});
    return b.finish(b.addArray({b.add(u"a"), object, b.add(u"c")}));
}

/// A document with odd members besides those of the format.
samples::ZipBuilder package(const Data& templates) {
    samples::ZipBuilder zip;
    zip.add("contents.plist", samples::contentsPlist(), samples::Packing::Stored);
    zip.add("tagTemplates.plist", templates);
    zip.add("text.plist", std::string(5000, 't') + "no archive at all");
    zip.add("images/", "");
    zip.add("images/\u00E4.png", "pixels", samples::Packing::Stored);
    return zip;
}

class PvdocTemplates : public ::testing::Test {
protected:
    std::string write(const Data& archive) const {
        return disk.write("a.parlavox", archive.view());
    }

    /// The contents of a member; nothing when there is none.
    std::optional<Data> member(const std::string& name) const {
        const auto archive = parlavox::ZipWrapper::initWithPath(disk.path("a.parlavox"));
        const auto wrapper = archive->fileWrapperForKey(name);
        return wrapper != nullptr ? wrapper->regularFileContents() : std::nullopt;
    }

    Value archivedRoot() const {
        return platform::KeyedUnarchiver::initForReadingWithData(*member("tagTemplates.plist"))
            ->decodeObject();
    }

    const test::TemporaryFolder disk;
};

constexpr char kListing[] =
    "     0  \"a\"\n"
    "     1  AcmeTemplate, 2 fields\n"
    "     2  \"c\"\n";

TEST_F(PvdocTemplates, AreListedAndTheFileStaysAsItIs) {
    const Data archive = package(archivedTemplates()).finish();
    TemplatesOptions options;
    options.file = write(archive);
    const auto listing = templates(options);
    ASSERT_TRUE(listing) << listing.fault().detail;
    EXPECT_EQ(listing.value(), kListing);
    EXPECT_EQ(disk.read("a.parlavox"), archive.view());
}

TEST_F(PvdocTemplates, ChangeAndAllElseStays) {
    const struct {
        const char* name;
        TemplatesOptions options;
        std::string listing;
    } kRows[] = {
        {"insert at the end",
         {{}, {"x", "y"}, {}, {}, {}, {}},
         std::string(kListing) + "     3  \"x\"\n     4  \"y\"\n"},
        {"insert at the start",
         {{}, {"x"}, 0, {}, {}, {}},
         "     0  \"x\"\n     1  \"a\"\n     2  AcmeTemplate, 2 fields\n     3  \"c\"\n"},
        {"remove some, in any order",
         {{}, {}, {}, {2, 0, 2}, {}, {}},
         "     0  AcmeTemplate, 2 fields\n"},
        {"move down",
         {{}, {}, {}, {}, 0, 2},
         "     0  AcmeTemplate, 2 fields\n     1  \"c\"\n     2  \"a\"\n"},
        {"move up",
         {{}, {}, {}, {}, 1, 0},
         "     0  AcmeTemplate, 2 fields\n     1  \"a\"\n     2  \"c\"\n"},
    };
    const Data archive = package(archivedTemplates()).finish();
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        TemplatesOptions options = row.options;
        options.file = write(archive);
        const auto before = listArchive(archive).value().members;
        const auto listing = templates(options);
        ASSERT_TRUE(listing) << listing.fault().detail;
        EXPECT_EQ(listing.value(), row.listing);
        TemplatesOptions again;
        again.file = options.file;
        EXPECT_EQ(templates(again).value(), row.listing);
        const auto after = listArchiveFile(options.file).value().members;
        ASSERT_EQ(after.size(), before.size());
        for (std::size_t i = 0; i < after.size(); ++i) {
            EXPECT_EQ(after[i].name, before[i].name);
            if (after[i].name != parlavox::kTagTemplatesMember) {
                EXPECT_EQ(after[i].checksum, before[i].checksum);
                EXPECT_EQ(after[i].method, before[i].method);
            }
        }
        EXPECT_EQ(member("text.plist"), Data::copyOf(std::string(5000, 't') + "no archive at all"));
        EXPECT_EQ(member("contents.plist"), samples::contentsPlist());
    }
}

TEST_F(PvdocTemplates, OfUnknownClassesKeepAllTheirFields) {
    TemplatesOptions options;
    options.file = write(package(archivedTemplates()).finish());
    options.moved = 1;
    options.to = 0;
    ASSERT_TRUE(templates(options));
    const Value root = archivedRoot();
    const auto object =
        std::dynamic_pointer_cast<const platform::OpaqueObject>(root.array()->front().object());
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->type->names, (std::vector<std::string>{"AcmeTemplate", "NSObject"}));
    EXPECT_EQ((*object)["name"], Value(u"pause"));
    const auto inner =
        std::dynamic_pointer_cast<const platform::OpaqueObject>((*object)["inner"].object());
    ASSERT_NE(inner, nullptr);
    EXPECT_EQ((*inner)["depth"], Value(2));
}

TEST_F(PvdocTemplates, ComeIntoBeingAndVanishWithTheirMember) {
    TemplatesOptions options;
    options.file = write(samples::package(Data::copyOf("text")));
    EXPECT_EQ(templates(options).value(), "");
    options.inserted = {"Gr\u00FC\u00DFe"};
    EXPECT_EQ(templates(options).value(), "     0  \"Gr\u00FC\u00DFe\"\n");
    EXPECT_EQ(archivedRoot(), Value(platform::Array{Value(u"Gr\u00FC\u00DFe")}));
    options.inserted.clear();
    options.removed = {0};
    EXPECT_EQ(templates(options).value(), "");
    EXPECT_EQ(member("tagTemplates.plist"), std::nullopt);
    EXPECT_EQ(member("text.plist"), Data::copyOf("text"));
}

TEST_F(PvdocTemplates, AreNotChangedWhereSomethingWouldBeLost) {
    const Data good = archivedTemplates();
    samples::ZipBuilder damaged = package(good);
    damaged.add("damaged", "contents").central.DataDescriptor.CRC32 += 1;
    samples::ZipBuilder twice = package(good);
    twice.add("text.plist", "another");
    samples::ZipBuilder withEmpty = package(good);
    withEmpty.add("empty", "");
    samples::ZipBuilder newer;
    newer.add("contents.plist", samples::contentsPlist(3));
    samples::ZipBuilder other;
    other.add("text.plist", "x");
    const auto insertion = [] {
        TemplatesOptions options;
        options.inserted = {"x"};
        return options;
    }();
    TemplatesOptions beyond = insertion;
    beyond.at = 4;
    TemplatesOptions removal;
    removal.removed = {0, 3};
    TemplatesOptions move;
    move.moved = 0;
    move.to = 3;
    samples::ArchiveBuilder string;
    const Data noArray = string.finish(string.add(u"text"));
    const struct {
        const char* name;
        Data archive;
        TemplatesOptions options;
        const char* fault;
    } kRows[] = {
        {"a damaged member", damaged.finish(), insertion,
         "damaged: is damaged: the contents are not what the directory says"},
        {"a member twice", twice.finish(), insertion, "text.plist: "},
        {"an empty member", withEmpty.finish(), insertion,
         "empty: an empty file, which archives of this form don't list"},
        {"a newer document", newer.finish(), insertion,
         "needs a newer reader (compatibility version 3)"},
        {"no document", other.finish(), insertion, "no contents.plist in the archive"},
        {"no archive", Data::copyOf("words"), insertion, "shorter than an end record"},
        {"no templates", package(Data::copyOf("x")).finish(), insertion, "tagTemplates.plist: "},
        {"no list", package(noArray).finish(), insertion,
         "tagTemplates.plist: its root is no array"},
        {"inserted beyond the end", package(good).finish(), beyond,
         "no place 4 in a list of 3 templates"},
        {"removed beyond the end", package(good).finish(), removal,
         "no place 3 in a list of 3 templates"},
        {"moved beyond the end", package(good).finish(), move,
         "no place 3 in a list of 3 templates"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        TemplatesOptions options = row.options;
        options.file = write(row.archive);
        const auto refused = templates(options);
        ASSERT_FALSE(refused);
        EXPECT_TRUE(refused.fault().detail.starts_with(options.file + ": " + row.fault))
            << refused.fault().detail;
        EXPECT_EQ(disk.read("a.parlavox"), row.archive.view());
        EXPECT_EQ(disk.count(), 1);
    }
}

}  // namespace
}  // namespace pvdoc

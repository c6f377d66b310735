#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "Platform/Foundation/Clock.h"
#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/KeyedUnarchiver.h"
#include "Sources/CocoaExtensions/Zip/ArchiveRangeError.h"
#include "Sources/Document/Document.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/Support/TestData.h"
#include "Tools/samples/ArchiveBuilder.h"
#include "Tools/samples/PackageBuilder.h"

namespace parlavox {
namespace {

using platform::Data;
using platform::Dictionary;
using platform::Error;
using platform::PropertyListFormat;
using platform::PropertyListSerialization;
using platform::Uid;
using platform::URL;
using platform::Value;
using samples::ArchiveBuilder;
using samples::ZipBuilder;

const Error kUntouched{"earlier", 7, "kept"};

}  // namespace

/// Reaches a step of reading that only a broken disk would show.
class DocumentTestPeer {
public:
    static void readText(Document& document, const platform::FileWrapper& member) {
        document.readText(member);
    }
};

namespace {

/// What reading a package gave.
struct Reading {
    bool wasRead = false;
    std::optional<Error> error;
    std::u16string text;
};

class DocumentReading : public ::testing::Test {
protected:
    Reading read(const Data& package, const std::string& type = kDocumentType) const {
        const auto document = Document::init();
        Reading reading;
        reading.error = kUntouched;
        reading.wasRead = document->readFromURL(
            URL::fileURLWithPath(folder.write("document", package.view())), type, &reading.error);
        reading.text = document->textStorage()->string();
        return reading;
    }

    test::TemporaryFolder folder;
};

Data packageWithContents(std::string_view contents) {
    ZipBuilder zip;
    zip.add("contents.plist", contents);
    zip.add("text.plist", samples::archiveOfText(u"words"));
    return zip.finish();
}

Data packageWithHeader(const Value& contents) {
    return packageWithContents(
        PropertyListSerialization::dataWithPropertyList(contents, PropertyListFormat::Binary)
            .value()
            .view());
}

TEST_F(DocumentReading, TextOfAPackageIsInstalled) {
    const Reading reading = read(samples::package(samples::archiveOfText(u"caf\u00E9 \U0001F600")));
    EXPECT_TRUE(reading.wasRead);
    EXPECT_EQ(reading.text, u"caf\u00E9 \U0001F600");
    EXPECT_EQ(reading.error, kUntouched);
}

TEST_F(DocumentReading, AttributesComeWithTheText) {
    ArchiveBuilder builder;
    const Uid size = builder.add(u"Size");
    const Uid ten = builder.addDictionary({{size, builder.add(Value(10))}});
    const Uid twelve = builder.addDictionary({{size, builder.add(Value(12))}});
    const Data archive =
        builder.finish(builder.addAttributedString(u"two runs", {ten, twelve}, {{3, 0}, {5, 1}}));
    const auto document = Document::init();
    ASSERT_TRUE(document->readFromURL(
        URL::fileURLWithPath(folder.write("document", samples::package(archive).view())),
        kDocumentType, nullptr));
    const auto& runs = document->textStorage()->attributedString().runs();
    ASSERT_EQ(runs.size(), 2u);
    EXPECT_EQ(runs[0].length, 3u);
    EXPECT_EQ((*runs[0].attributes)["Size"], Value(10));
    EXPECT_EQ(runs[1].length, 5u);
    EXPECT_EQ((*runs[1].attributes)["Size"], Value(12));
}

TEST_F(DocumentReading, CompatibilityVersionGatesTheReading) {
    struct Row {
        const char* name;
        Value version;
        bool wasRead;
        bool isNewer;
    };
    const Row rows[] = {
        {"2", Value(2), true, false},
        {"0", Value(0), true, false},
        {"negative", Value(-1), true, false},
        {"the smallest", Value(std::numeric_limits<std::int64_t>::min()), true, false},
        {"3", Value(3), false, true},
        {"100", Value(100), false, true},
        {"above the signed range", Value(std::numeric_limits<std::uint64_t>::max()), false, true},
        {"the string 2", Value(u"2"), true, false},
        {"the string 3", Value(u"3"), false, true},
        {"a string without digits", Value(u"two"), true, false},
        {"2.9 is 2", Value(2.9), true, false},
        {"3.0", Value(3.0), false, true},
        {"true is 1", Value(true), true, false},
        {"missing", Value(), false, false},
        {"data counts as missing", Value(Data::copyOf("2")), false, false},
        {"an array counts as missing", Value(platform::Array{Value(2)}), false, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const Reading reading =
            read(samples::package(samples::archiveOfText(u"words"), row.version));
        EXPECT_EQ(reading.wasRead, row.wasRead);
        EXPECT_EQ(reading.text, row.wasRead ? u"words" : u"");
        EXPECT_EQ(reading.error,
                  row.isNewer ? Error({"PVSpecificErrorDomain", 0, ""}) : kUntouched);
    }
}

TEST_F(DocumentReading, NewerReaderNeedsNoErrorLocation) {
    const std::string path =
        folder.write("newer", samples::package(samples::archiveOfText(u"words"), 3).view());
    EXPECT_FALSE(Document::init()->readFromURL(URL::fileURLWithPath(path), kDocumentType, nullptr));
    EXPECT_STREQ(platform::lastFailure(), "needs a newer reader (compatibility version 3)");
}

TEST_F(DocumentReading, PackagesWithoutAUsableHeaderAreRefusedWithoutAnError) {
    ZipBuilder noContents;
    noContents.add("text.plist", samples::archiveOfText(u"words"));
    ZipBuilder folderContents;
    folderContents.add("contents.plist/", "");
    ZipBuilder otherCase;
    otherCase.add("Contents.plist", samples::contentsPlist());
    ZipBuilder deeper;
    deeper.add("folder/contents.plist", samples::contentsPlist());
    struct Row {
        const char* name;
        Data package;
        const char* cause;
    };
    const Row rows[] = {
        {"no archive", Data::copyOf("text text text text text text text"),
         "no zip archive: no end record in its last 22 bytes"},
        {"empty file", Data(), "no zip archive: only 0 bytes"},
        {"no contents.plist", noContents.finish(), "no contents.plist in the archive"},
        {"contents.plist is a folder", folderContents.finish(), "no contents.plist in the archive"},
        {"names are case-sensitive", otherCase.finish(), "no contents.plist in the archive"},
        {"members lie at the top", deeper.finish(), "no contents.plist in the archive"},
        {"no property list", packageWithContents("{words}"),
         "contents.plist: not well-formed (invalid token) in line 1; "
         "as old text format: no '=' or ';' after a key in line 1"},
        {"a string", packageWithContents("words"),
         "contents.plist: no compatibility version in the header"},
        {"another root", packageWithHeader(Value(platform::Array{})),
         "contents.plist: no compatibility version in the header"},
        {"no header", packageWithHeader(Value(Dictionary{{"compatibility_version", Value(2)}})),
         "contents.plist: no compatibility version in the header"},
        {"a header of another kind", packageWithHeader(Value(Dictionary{{"header", Value(u"2")}})),
         "contents.plist: no compatibility version in the header"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        platform::clearFailure();
        const Reading reading = read(row.package);
        EXPECT_FALSE(reading.wasRead);
        EXPECT_EQ(reading.error, kUntouched);
        EXPECT_STREQ(platform::lastFailure(), row.cause);
    }
}

TEST_F(DocumentReading, AHeaderMayBeInTheOldTextFormat) {
    const Reading reading = read(packageWithContents("{ header = {compatibility_version = 2;}; }"));
    EXPECT_TRUE(reading.wasRead);
    EXPECT_EQ(reading.text, u"words");
    const Reading newer = read(packageWithContents("header = {compatibility_version = \"3\";};"));
    EXPECT_FALSE(newer.wasRead);
    EXPECT_NE(newer.error, kUntouched);
}

TEST_F(DocumentReading, OtherHeaderValuesAreNotLookedAt) {
    const Reading reading = read(packageWithHeader(
        Dictionary{{"header", Value(Dictionary{{"compatibility_version", Value(2)},
                                               {"document_format_version", Value(99)},
                                               {"application", Value(7)}})}}));
    EXPECT_TRUE(reading.wasRead);
    EXPECT_EQ(reading.text, u"words");
}

TEST_F(DocumentReading, PackageWithoutTextIsAnEmptyDocument) {
    ZipBuilder none;
    none.add("contents.plist", samples::contentsPlist());
    none.add("documentSettings.plist", "not looked at");
    none.add("tagTemplates.plist", "not looked at");
    ZipBuilder folderText;
    folderText.add("contents.plist", samples::contentsPlist());
    folderText.add("text.plist/", "");
    ArchiveBuilder null;
    for (const Data& package :
         {none.finish(), folderText.finish(), samples::package(null.finish(Uid{0}))}) {
        const Reading reading = read(package);
        EXPECT_TRUE(reading.wasRead);
        EXPECT_EQ(reading.text, u"");
    }
}

TEST_F(DocumentReading, PlainStringAsRootIsTextWithoutAttributes) {
    ArchiveBuilder builder;
    const Reading reading = read(samples::package(builder.finish(builder.add(u"a bare string"))));
    EXPECT_TRUE(reading.wasRead);
    EXPECT_EQ(reading.text, u"a bare string");
}

TEST_F(DocumentReading, DamagedTextRaisesInsteadOfTurningEmpty) {
    ArchiveBuilder number;
    const Uid seven = number.add(Value(7));
    ArchiveBuilder thing;
    const Uid unknown = thing.addInstance(thing.addClass({"AcmeThing", "NSObject"}), {});
    ArchiveBuilder far;
    struct Row {
        const char* name;
        Data text;
        const char* cause;
    };
    const Data good = samples::archiveOfText(u"words");
    const Row rows[] = {
        {"no property list", Data::copyOf("words"), "text.plist: syntax error in line 1"},
        {"cut off", good.subdataWithRange({0, good.size() - 1}), nullptr},
        {"a number", number.finish(seven), "text.plist: root object that is no text"},
        {"an unknown class", thing.finish(unknown),
         "text.plist: root object of class AcmeThing, which is no text"},
        {"a root outside of the table", far.finish(Uid{9}), "text.plist: reference 9 of 1"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_THROW(read(samples::package(row.text)), platform::UnarchiveException);
        if (row.cause != nullptr) {
            EXPECT_STREQ(platform::lastFailure(), row.cause);
        }
    }
}

TEST_F(DocumentReading, TextWhoseBytesCannotBeHadRaises) {
    class Unreadable final : public platform::FileWrapper {
    public:
        static std::shared_ptr<Unreadable> make() {
            return std::make_shared<Unreadable>(Creation());
        }
        explicit Unreadable(Creation key) : FileWrapper(key) { initRegular(); }
        std::optional<Data> regularFileContents() const override { return std::nullopt; }
    };
    const auto document = Document::init();
    EXPECT_THROW(DocumentTestPeer::readText(*document, *Unreadable::make()),
                 platform::UnarchiveException);
    EXPECT_STREQ(platform::lastFailure(), "text.plist: contents that can't be read");
}

TEST_F(DocumentReading, DamagedArchiveRaises) {
    ZipBuilder zip;
    zip.add("contents.plist", samples::contentsPlist());
    zip.add("empty", "");
    EXPECT_THROW(read(zip.finish()), ArchiveRangeError);
}

TEST_F(DocumentReading, ForeignTypeIsTheSameFormat) {
    const Data package = samples::package(samples::archiveOfText(u"words"));
    EXPECT_EQ(read(package, "com.fernleaf.scribo.scribo").text, u"words");
    EXPECT_EQ(read(package, "COM.Fernleaf.Scribo.SCRIBO").text, u"words")
        << "types are compared as the type registry does";
    EXPECT_FALSE(
        read(samples::package(samples::archiveOfText(u""), 3), "com.fernleaf.scribo.scribo")
            .wasRead);
}

TEST_F(DocumentReading, FailedReadingKeepsTheText) {
    const auto document = Document::init();
    ASSERT_TRUE(document->readFromURL(
        URL::fileURLWithPath(
            folder.write("good", samples::package(samples::archiveOfText(u"words")).view())),
        kDocumentType, nullptr));
    EXPECT_FALSE(document->readFromURL(URL::fileURLWithPath(folder.path("missing")), kDocumentType,
                                       nullptr));
    EXPECT_FALSE(document->readFromURL(URL::fileURLWithPath(folder.write("bad", "\x01")),
                                       "public.plain-text", nullptr));
    EXPECT_EQ(document->textStorage()->string(), u"words");
}

TEST_F(DocumentReading, RealArchivesGiveTheirText) {
    int count = 0;
    for (const auto& file : std::filesystem::directory_iterator(test::dataPath("keyed-archives"))) {
        auto expected = file.path();
        expected.replace_extension(".expected.txt");
        if (file.path().extension() != ".archive" || !std::filesystem::exists(expected)) {
            continue;
        }
        SCOPED_TRACE(file.path());
        const auto contents = [](const std::filesystem::path& path) {
            std::ifstream stream(path, std::ios::binary);
            return std::string(std::istreambuf_iterator<char>(stream), {});
        };
        const Reading reading = read(samples::package(Data::adopt(contents(file.path()))));
        EXPECT_TRUE(reading.wasRead);
        EXPECT_EQ(Value(reading.text).utf8(), contents(expected));
        ++count;
    }
    EXPECT_EQ(count, 4);
}

TEST_F(DocumentReading, EveryPrefixOfAGoodPackageIsRefused) {
    const Data package = samples::package(samples::archiveOfText(u"words"));
    for (std::size_t size = 0; size < package.size(); ++size) {
        EXPECT_FALSE(read(package.subdataWithRange({0, size})).wasRead) << size;
    }
}

TEST_F(DocumentReading, TextOfMoreThanTenMebibytesIsRead) {
    std::u16string text;
    while (text.size() < std::size_t{11} * 1024 * 1024) {
        text += u"lighthouse ";
    }
    const Reading reading = read(samples::package(samples::archiveOfText(text)));
    EXPECT_TRUE(reading.wasRead);
    EXPECT_EQ(reading.text, text);
}

// Other formats.

TEST_F(DocumentReading, PlainTextIsImported) {
    const auto document = Document::init();
    std::optional<Error> error;
    EXPECT_TRUE(document->readFromURL(URL::fileURLWithPath(folder.write("a.txt", "caf\xC3\xA9")),
                                      "public.plain-text", &error));
    EXPECT_EQ(error, std::nullopt);
    EXPECT_EQ(document->textStorage()->string(), u"caf\u00E9");
    EXPECT_TRUE(document->isDocumentEdited()) << "an import is an unsaved change";
    EXPECT_EQ(document->fileType(), kDocumentType);
    EXPECT_EQ(document->isEditing(), Editing::Yes);
}

TEST_F(DocumentReading, ImportsThatFailLeaveWhatTheBaseClassLeaves) {
    const auto document = Document::init();
    std::optional<Error> error;
    EXPECT_FALSE(document->readFromURL(
        URL::fileURLWithPath(folder.write("a.bin", std::string_view("\0\1", 2))),
        "public.plain-text", &error));
    EXPECT_EQ(error, std::nullopt) << "bytes that are no text";
    EXPECT_FALSE(document->readFromURL(URL::fileURLWithPath(folder.path("missing")),
                                       "public.plain-text", &error));
    EXPECT_EQ(error->code, 260);
    EXPECT_FALSE(
        document->readFromURL(URL::fileURLWithPath(folder.path()), "public.folder", &error));
    EXPECT_EQ(error->code, 256);
    EXPECT_FALSE(document->isDocumentEdited());
}

TEST_F(DocumentReading, PdfThatCannotBeReadIsRefused) {
    for (const char* type : {"com.adobe.pdf", "COM.Adobe.PDF"}) {
        for (const char* bytes : {"%PDF-1.7\n", "plain words", ""}) {
            SCOPED_TRACE(bytes);
            platform::clearFailure();
            const Reading reading = read(Data::copyOf(bytes), type);
            EXPECT_FALSE(reading.wasRead);
            EXPECT_EQ(reading.error, kUntouched);
            EXPECT_NE(platform::lastFailure(), nullptr);
        }
    }
}

TEST_F(DocumentReading, RtfIsReadWhateverItsType) {
    for (const char* type : {"public.rtf", "public.plain-text"}) {
        const Reading reading = read(Data::copyOf("{\\rtf1 caf\\'e9{\\pict 00}\\par}"), type);
        EXPECT_TRUE(reading.wasRead) << type;
        EXPECT_EQ(reading.text, u"caf\u00E9\n") << type;
    }
}

TEST_F(DocumentReading, HtmlIsReadWhateverItsType) {
    for (const char* type : {"public.html", "public.plain-text"}) {
        const Reading reading = read(Data::copyOf("<html><p>caf&eacute;"), type);
        EXPECT_TRUE(reading.wasRead) << type;
        EXPECT_EQ(reading.text, u"caf\u00E9\n") << type;
    }
}

TEST_F(DocumentReading, APieceOfAPageIsKnownByItsType) {
    EXPECT_EQ(read(Data::copyOf("<p>words</p>"), "public.html").text, u"words\n");
    EXPECT_EQ(read(Data::copyOf("<p>words</p>"), "public.plain-text").text, u"<p>words</p>");
}

TEST_F(DocumentReading, FormatsWithoutAReaderAreRefusedWhateverTheirType) {
    platform::clearFailure();
    EXPECT_FALSE(read(Data::copyOf("%PDF-1.7"), "public.plain-text").wasRead);
    EXPECT_STREQ(platform::lastFailure(), "no text: PDF");
}

// Making documents.

TEST_F(DocumentReading, NewDocumentHasItsDefaults) {
    const auto document = Document::init();
    EXPECT_EQ(document->fileType(), "com.brightmill.parlavox.parlavox");
    EXPECT_EQ(document->fileURL(), std::nullopt);
    EXPECT_EQ(document->textStorage()->string(), u"");
    EXPECT_EQ(document->isEditing(), Editing::Yes);
    EXPECT_EQ(document->mainWindowController(), nullptr);
    EXPECT_EQ(document->setUpPrintInfoDefaults(), SetUpPrintInfoDefaults::No);
    EXPECT_EQ(document->tagsPanelVisible(), TagsPanelVisible::Yes);
    EXPECT_EQ(document->customTagTemplates(), std::nullopt);
    EXPECT_EQ(document->cursorLocation(), 0u);
    EXPECT_EQ(document->textLayoutOrientation(), 0);
    EXPECT_EQ(document->backgroundColor(), nullptr);
    EXPECT_EQ(document->windowSize(), WindowSize());
    EXPECT_FALSE(document->isDocumentEdited());
    EXPECT_TRUE(Document::canConcurrentlyReadDocumentsOfType("public.rtf"));
    EXPECT_TRUE(Document::canConcurrentlyReadDocumentsOfType("no such type"));
}

TEST_F(DocumentReading, AccessorsStoreAndLoad) {
    const auto document = Document::init();
    document->setEditing(Editing::No);
    document->setTagsPanelVisible(TagsPanelVisible::No);
    document->setCursorLocation(17);
    document->setTextLayoutOrientation(-1);
    document->setWindowSize({640, 480.5});
    const auto color = std::make_shared<const platform::OpaqueObject>();
    document->setBackgroundColor(color);
    document->setSetUpPrintInfoDefaults(SetUpPrintInfoDefaults::Yes);
    auto controller = std::make_shared<platform::Object>();
    document->setMainWindowController(controller);
    EXPECT_EQ(document->mainWindowController(), controller);
    controller.reset();
    EXPECT_EQ(document->mainWindowController(), nullptr) << "the document owns no controller";
    EXPECT_EQ(document->setUpPrintInfoDefaults(), SetUpPrintInfoDefaults::Yes);
    EXPECT_EQ(document->isEditing(), Editing::No);
    EXPECT_EQ(document->tagsPanelVisible(), TagsPanelVisible::No);
    EXPECT_EQ(document->cursorLocation(), 17u);
    EXPECT_EQ(document->textLayoutOrientation(), -1);
    EXPECT_EQ(document->windowSize(), (WindowSize{640, 480.5}));
    EXPECT_EQ(document->backgroundColor(), color);
    EXPECT_FALSE(document->isDocumentEdited());
}

TEST_F(DocumentReading, ReplacingTheRealStorageMakesANewOne) {
    const auto document = Document::init();
    const auto before = document->textStorage();
    document->replaceRealStorageWithAttributedString(platform::AttributedString(u"new"));
    EXPECT_NE(document->textStorage(), before);
    EXPECT_EQ(document->textStorage()->string(), u"new");
    EXPECT_EQ(before->string(), u"");
    EXPECT_FALSE(document->isDocumentEdited());
}

TEST_F(DocumentReading, OpenedPackageIsBoundToItsFile) {
    const URL url = URL::fileURLWithPath(
        folder.write("a", samples::package(samples::archiveOfText(u"words")).view()));
    const auto document = Document::initWithContentsOfURL(url, kForeignDocumentType, nullptr);
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(document->fileURL(), url);
    EXPECT_EQ(document->fileType(), kForeignDocumentType);
    EXPECT_TRUE(document->fileModificationDate());
    EXPECT_FALSE(document->isDocumentEdited());
    EXPECT_EQ(document->textStorage()->string(), u"words");
}

TEST_F(DocumentReading, ImportedDocumentIsNewAndUntitled) {
    const URL url = URL::fileURLWithPath(folder.write("a.txt", "words"));
    const auto document = Document::initWithContentsOfURL(url, "public.plain-text", nullptr);
    ASSERT_NE(document, nullptr);
    EXPECT_EQ(document->fileURL(), std::nullopt);
    EXPECT_EQ(document->fileType(), kDocumentType);
    EXPECT_TRUE(document->isDocumentEdited());
    ASSERT_TRUE(document->fileModificationDate());
    EXPECT_LT(std::abs(document->fileModificationDate()->secondsSinceReferenceDate -
                       platform::currentDate().secondsSinceReferenceDate),
              60);
}

TEST_F(DocumentReading, WhatCannotBeReadMakesNoDocument) {
    std::optional<Error> error;
    const URL newer = URL::fileURLWithPath(
        folder.write("newer", samples::package(samples::archiveOfText(u"words"), 3).view()));
    EXPECT_EQ(Document::initWithContentsOfURL(newer, kDocumentType, &error), nullptr);
    EXPECT_EQ(error, Error({"PVSpecificErrorDomain", 0, ""}));
    const URL binary = URL::fileURLWithPath(folder.write("a.bin", "\x89PNG\r\n\x1A\n"));
    EXPECT_EQ(Document::initWithContentsOfURL(binary, "public.plain-text", nullptr), nullptr);
}

TEST_F(DocumentReading, ArchivesAreAskedToDeflateFast) {
    const auto document = Document::init();
    const auto archive = ZipWrapper::initWithData(Data(), nullptr);
    EXPECT_EQ(document->compressLevelForFileWrapper(archive, *archive), 1u);
}

}  // namespace
}  // namespace parlavox

#include "Platform/Text/RtfdReader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/TextAttachment.h"
#include "Platform/Text/TextReader.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/Support/TestData.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

std::shared_ptr<FileWrapper> wrapperAt(const std::string& path) {
    return FileWrapper::initWithPath(path, FileReading::WhenAsked, nullptr);
}

std::shared_ptr<FileWrapper> folder(std::vector<FileWrapperEntry> children) {
    return FileWrapper::initDirectoryWithFileWrappers(std::move(children));
}

FileWrapperEntry file(const char* name, std::string_view contents) {
    return {name, FileWrapper::initRegularFileWithContents(Data::copyOf(contents))};
}

/// The words without attachments, one blank between two.
std::string wordsIn(std::u16string text) {
    std::erase(text, kAttachmentCharacter);
    // One reader makes narrow blanks of two in a row.
    std::replace(text.begin(), text.end(), u'\u2006', u' ');
    std::istringstream words(utf8FromUtf16(text));
    std::string joined;
    for (std::string word; words >> word;) {
        joined += word + " ";
    }
    return joined;
}

TEST(RtfdReader, ReadsRealDocuments) {
    int count = 0;
    for (const auto& item : fs::directory_iterator(test::dataPath("rtfd"))) {
        const std::string path = item.path().string();
        if (item.path().extension() != ".rtfd" || path.ends_with("made-no-txt.rtfd")) {
            continue;
        }
        SCOPED_TRACE(path);
        const auto expected = utf16FromUtf8Lossy(
            FileManager::defaultManager().contentsAtPath(path + ".expected.txt")->view());
        const auto wrapper = wrapperAt(path);
        const auto text = attributedStringFromRtfd(*wrapper);
        ASSERT_TRUE(text);
        EXPECT_EQ(wordsIn(text.value().string()), wordsIn(expected));
        const auto flat = wrapper->serializedRepresentation();
        ASSERT_TRUE(flat);
        for (const auto& same :
             {attributedStringFromFlatRtfd(*flat), attributedStringFromData(*flat),
              attributedStringFromRtfd(*FileWrapper::initRegularFileWithContents(*flat))}) {
            ASSERT_TRUE(same);
            EXPECT_EQ(same.value().string(), text.value().string());
        }
        ++count;
    }
    EXPECT_EQ(count, 5);
}

TEST(RtfdReader, AttachmentsHaveTheFoldersFiles) {
    const auto document = folder(
        {file("TXT.rtf",
              "{\\rtf1\\ansi a{{\\NeXTGraphic picture.png \\width640\n}\xAC}b{{\\NeXTGraphic "
              "none.png \\width640\n}\xAC}c{{\\NeXTGraphic picture.png \\width640\n}\xAC}}"),
         file("picture.png", "bytes")});
    const auto text = attributedStringFromRtfd(*document);
    ASSERT_TRUE(text);
    ASSERT_EQ(text.value().string(), u"a\uFFFCb\uFFFCc\uFFFC");
    const auto attachmentAt = [&](std::uint64_t index) {
        const auto attributes = text.value().attributesAtIndex(index);
        return std::dynamic_pointer_cast<const TextAttachment>(
            (*attributes)[kAttachmentAttributeName].object());
    };
    ASSERT_NE(attachmentAt(1), nullptr);
    ASSERT_NE(attachmentAt(1)->fileWrapper(), nullptr);
    EXPECT_EQ(attachmentAt(1)->fileWrapper()->regularFileContents(), Data::copyOf("bytes"));
    ASSERT_NE(attachmentAt(3), nullptr);
    EXPECT_EQ(attachmentAt(3)->fileWrapper(), nullptr) << "the file is missing";
    EXPECT_EQ(attachmentAt(5), attachmentAt(1));
}

TEST(RtfdReader, FilesAreReadWhenTheyAreAskedFor) {
    const test::TemporaryFolder disk;
    disk.write("a.rtfd/TXT.rtf", "{\\rtf1 {{\\NeXTGraphic late.png \\width1\n}\xAC}}");
    disk.write("a.rtfd/late.png", "early");
    const auto text = attributedStringFromRtfd(*wrapperAt(disk.path("a.rtfd")));
    ASSERT_TRUE(text);
    disk.write("a.rtfd/late.png", "late");
    const auto attachment = std::dynamic_pointer_cast<const TextAttachment>(
        (*text.value().attributesAtIndex(0))[kAttachmentAttributeName].object());
    ASSERT_NE(attachment, nullptr);
    EXPECT_EQ(attachment->fileWrapper()->regularFileContents(), Data::copyOf("late"));
}

TEST(RtfdReader, TheTextMayBeCalledInAnyCase) {
    EXPECT_EQ(attributedStringFromRtfd(*folder({file("txt.RTF", "{\\rtf1 a}")})).value().string(),
              u"a");
    EXPECT_EQ(attributedStringFromRtfd(
                  *folder({file("txt.rtf", "{\\rtf1 b}"), file("TXT.rtf", "{\\rtf1 a}")}))
                  .value()
                  .string(),
              u"a");
}

TEST(RtfdReader, RefusesWhatHasNoText) {
    const struct {
        const char* name;
        std::shared_ptr<FileWrapper> wrapper;
    } kRows[] = {
        {"no text", wrapperAt(test::dataPath("rtfd/made-no-txt.rtfd"))},
        {"nothing", folder({})},
        {"a folder as text", folder({{"TXT.rtf", folder({})}})},
        {"a link as text",
         folder({{"TXT.rtf", FileWrapper::initSymbolicLinkWithDestination("/etc/passwd")}})},
        {"a link", FileWrapper::initSymbolicLinkWithDestination("/")},
        {"a file", FileWrapper::initRegularFileWithContents(Data::copyOf("{\\rtf1 a}"))},
        {"binary data as text", folder({file("TXT.rtf", std::string(100, '\1'))})},
        {"flat RTFD as text",
         folder(
             {file("TXT.rtf",
                   folder({file("TXT.rtf", "{\\rtf1 a}")})->serializedRepresentation()->view())})},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_FALSE(attributedStringFromRtfd(*row.wrapper));
    }
    const auto flatFile =
        FileWrapper::initRegularFileWithContents(Data::copyOf("a"))->serializedRepresentation();
    EXPECT_FALSE(attributedStringFromFlatRtfd(*flatFile));
    EXPECT_FALSE(attributedStringFromFlatRtfd(Data::copyOf("rtfd")));
}

}  // namespace
}  // namespace platform

// Makes the sample documents: make_samples FOLDER
// or a package around a given archive of text: make_samples --package ARCHIVE FILE

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/FileWrapper.h"
#include "Platform/Foundation/PathString.h"
#include "Tools/samples/ArchiveBuilder.h"
#include "Tools/samples/PackageBuilder.h"

namespace {

using platform::Data;
using platform::Dictionary;
using platform::FileManager;
using platform::Uid;
using platform::Value;
using samples::ArchiveBuilder;
using samples::TextRun;

/// A stretch of a sample's text: a heading, body text, or text with a tag of the application.
enum class Style { Heading, Body, Pause };

struct Piece {
    std::u16string_view text;
    Style style;
};

Uid font(ArchiveBuilder& archive, std::u16string_view name, double size) {
    return archive.addInstance(archive.addClass({"NSFont", "NSObject"}),
                               {{"NSName", Value(archive.add(std::u16string(name)))},
                                {"NSSize", Value(size)},
                                {"NSfFlags", Value(16)}});
}

/// The attribute sets in the order of the styles. The tag's class is one that no reader but the
/// application knows.
std::vector<Uid> attributeSets(ArchiveBuilder& archive) {
    const Uid fontKey = archive.add(u"NSFont");
    const Uid tagKey = archive.add(u"AcmePauseTag");
    const Uid body = font(archive, u"Helvetica", 12);
    const Uid tag = archive.addInstance(
        archive.addClass({"AcmePauseTagValue", "AcmeTagValue", "NSObject"}),
        {{"milliseconds", Value(250)}, {"label", Value(archive.add(u"short pause"))}});
    return {archive.addDictionary({{fontKey, font(archive, u"Helvetica-Bold", 18)}}),
            archive.addDictionary({{fontKey, body}}),
            archive.addDictionary({{fontKey, body}, {tagKey, tag}})};
}

Data archiveOfPieces(const std::vector<Piece>& pieces) {
    ArchiveBuilder archive;
    std::u16string text;
    std::vector<TextRun> runs;
    for (const Piece& piece : pieces) {
        text += piece.text;
        runs.push_back({piece.text.size(), static_cast<std::uint64_t>(piece.style)});
    }
    return archive.finish(archive.addAttributedString(text, attributeSets(archive), runs));
}

/// A short text with an attached picture of eleven mebibytes, so that the member is spooled.
Data archiveWithAttachment() {
    constexpr std::size_t kPictureSize = 11 * 1024 * 1024;
    ArchiveBuilder archive;
    const Uid picture = archive.addInstance(
        archive.addClass({"NSFileWrapper", "NSObject"}),
        {{"NSFileWrapperData", Value(archive.add(Data::adopt(std::string(kPictureSize, ' '))))}});
    const Uid attachment =
        archive.addInstance(archive.addClass({"NSTextAttachment", "NSObject"}),
                            {{"NSFileWrapper", Value(picture)}, {"NSCell", Value(Uid{0})}});
    const Uid plain = archive.addDictionary({});
    const Uid attached = archive.addDictionary({{archive.add(u"NSAttachment"), attachment}});
    return archive.finish(archive.addAttributedString(
        u"A picture of eleven mebibytes stands here: \uFFFC. It has no words.\n", {plain, attached},
        {{43, 0}, {1, 1}, {23, 0}}));
}

struct Sample {
    std::string_view name;
    Data package;
};

std::vector<Sample> makeSamples() {
    const Data english = archiveOfPieces({
        {u"Notes on the lighthouse\n", Style::Heading},
        {u"The keeper climbed two hundred steps every evening. ", Style::Body},
        {u"Then he lit the lamp.\n", Style::Pause},
        {u"\u201CIt isn\u2019t far,\u201D he used to say, \u201Conly high.\u201D\n", Style::Body},
    });
    const Data german = archiveOfPieces({
        {u"Der Leuchtturmw\u00E4rter\n", Style::Heading},
        {u"Jeden Abend stieg er zweihundert Stufen hinauf. ", Style::Body},
        {u"Gr\u00FC\u00DFe aus der H\u00F6he!\n", Style::Body},
    });
    const Data japanese = archiveOfPieces({
        {u"\u706F\u53F0\n", Style::Heading},
        {u"\u6BCE\u6669\u3001\u4E8C\u767E\u6BB5\u3092\u767B\u308A\u307E\u3057\u305F\u3002\n",
         Style::Body},
    });
    const Data greek = archiveOfPieces({
        {u"\u039F \u03C6\u03AC\u03C1\u03BF\u03C2\n", Style::Heading},
        {u"\u039A\u03AC\u03B8\u03B5 \u03B2\u03C1\u03AC\u03B4\u03C5 \u03AC\u03BD\u03B1\u03B2\u03B5 "
         u"\u03C4\u03BF \u03C6\u03C9\u03C2. \U0001F526\n",
         Style::Body},
    });
    return {
        {"english-notes.parlavox", samples::package(english)},
        {"german-story.parlavox", samples::package(german)},
        {"greek-evening.parlavox", samples::package(greek)},
        {"japanese-lighthouse.parlavox", samples::package(japanese, 2, samples::Packing::Stored)},
        {"with-a-large-picture.parlavox", samples::package(archiveWithAttachment())},
        {"from-another-application.scribo",
         samples::package(samples::archiveOfText(u"The very same format under another name.\n"),
                          Value(u"2"))},
        {"needs-a-newer-reader.parlavox", samples::package(english, 3)},
    };
}

bool writeFile(const std::string& path, const Data& contents) {
    const bool isWritten =
        platform::FileWrapper::initRegularFileWithContents(contents)->writeToFile(
            path, platform::Atomically::Yes, platform::UpdateFilenames::No);
    if (!isWritten) {
        std::fprintf(stderr, "make_samples: %s: cannot be written\n", path.c_str());
    }
    return isWritten;
}

int writeSamples(const std::string& folder) {
    const FileManager& manager = FileManager::defaultManager();
    manager.createDirectoryAtPath(folder, platform::IntermediateDirectories::Yes);
    for (const Sample& sample : makeSamples()) {
        if (!writeFile(platform::stringByAppendingPathComponent(folder, sample.name),
                       sample.package)) {
            return 1;
        }
    }
    return 0;
}

int writePackage(const std::string& archive, const std::string& file) {
    const auto text = FileManager::defaultManager().contentsAtPath(archive);
    if (!text) {
        std::fprintf(stderr, "make_samples: %s: cannot be read\n", archive.c_str());
        return 1;
    }
    return writeFile(file, samples::package(*text)) ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.size() == 1) {
        return writeSamples(arguments[0]);
    }
    if (arguments.size() == 3 && arguments[0] == "--package") {
        return writePackage(arguments[1], arguments[2]);
    }
    std::fputs("usage: make_samples FOLDER | make_samples --package ARCHIVE FILE\n", stderr);
    return 2;
}

// Archives and whole documents.

#include <string>
#include <string_view>
#include <utility>

#include "Fuzz/Support/Seeds.h"
#include "Tools/samples/ArchiveBuilder.h"
#include "Tools/samples/PackageBuilder.h"
#include "Tools/samples/ZipBuilder.h"

namespace fuzz {
namespace {

using platform::Data;
using platform::Value;
using samples::Packing;
using samples::ZipBuilder;
using samples::ZipEntry;

constexpr std::string_view kLine = "One line, one line, one line and the last line.\n";

Data archiveOfNames(std::initializer_list<std::string_view> names) {
    ZipBuilder zip;
    for (const std::string_view name : names) {
        zip.add(name, name.ends_with('/') ? std::string_view() : kLine);
    }
    return zip.finish();
}

/// An archive of a good entry and one that `spoil` changes.
template <class Spoil>
Data spoiltArchive(Spoil spoil, Packing packing = Packing::Deflated) {
    ZipBuilder zip;
    zip.add("good.txt", kLine);
    spoil(zip.add("odd.txt", kLine, packing));
    return zip.finish();
}

Data archiveWithEnd(ZipBuilder::EndHook hook, std::string_view behind = {}) {
    ZipBuilder zip;
    zip.add("first.txt", kLine);
    zip.add("folder/second.txt", kLine, Packing::Stored);
    return Data::copyOf(std::string(zip.finish(hook).view()) + std::string(behind));
}

void setDeclaredSize(ZipEntry& entry, std::uint32_t size) {
    entry.local.DataDescriptor.UncompressedSize = size;
    entry.central.DataDescriptor.UncompressedSize = size;
}

void setMethod(ZipEntry& entry, std::uint16_t method) {
    entry.local.CompressionMethod = method;
    entry.central.CompressionMethod = method;
}

std::vector<Seed> nameSeeds() {
    using namespace std::string_view_literals;
    return {
        {"empty", archiveOfNames({})},
        {"folders", archiveOfNames({"a/", "a/b/c.txt", "a/b/d/e.txt", "f/"})},
        {"backslash", archiveOfNames({"a\\b.txt", "..\\c.txt"})},
        {"climbing", archiveOfNames({"../a.txt", "/b.txt", "./c.txt", "d//e.txt"})},
        {"no-component", archiveOfNames({"/", "//", "a.txt"})},
        {"same-name", archiveOfNames({"a.txt", "a.txt", "a.txt"})},
        {"file-as-folder", archiveOfNames({"a", "a/b"})},
        {"folder-as-file", archiveOfNames({"a/b", "a"})},
        {"nul-in-name", archiveOfNames({"a\0b.txt"sv})},
        {"utf-8-name", archiveOfNames({"caf\xC3\xA9/\xF0\x9F\x95\x98.txt"})},
        {"bad-utf-8-name", archiveOfNames({"\xFF\xFE.txt", "b.txt"})},
    };
}

std::vector<Seed> entrySeeds() {
    return {
        {"stored", spoiltArchive([](ZipEntry&) {}, Packing::Stored)},
        {"zero-size", spoiltArchive([](ZipEntry& entry) { setDeclaredSize(entry, 0); })},
        {"half-size", spoiltArchive([](ZipEntry& entry) { setDeclaredSize(entry, 24); })},
        {"third-size", spoiltArchive([](ZipEntry& entry) { setDeclaredSize(entry, 16); })},
        {"larger-size", spoiltArchive([](ZipEntry& entry) { setDeclaredSize(entry, 500); })},
        {"spooled", spoiltArchive([](ZipEntry& entry) { setDeclaredSize(entry, 11 << 20); })},
        {"method-9", spoiltArchive([](ZipEntry& entry) { setMethod(entry, 9); })},
        {"method-11", spoiltArchive([](ZipEntry& entry) { setMethod(entry, 11); })},
        {"garbage", spoiltArchive([](ZipEntry& entry) { entry.data = Data::copyOf(kLine); })},
        {"unlisted", spoiltArchive([](ZipEntry& entry) { entry.isListed = false; })},
        {"local-version",
         spoiltArchive([](ZipEntry& entry) { entry.local.VersionToExtract = 20; })},
        {"far-offset",
         spoiltArchive([](ZipEntry& entry) { entry.central.LocalHeaderOffset = 0x7FFF0000; })},
        {"long-extra",
         spoiltArchive([](ZipEntry& entry) { entry.local.ExtraFieldLength = 0xFFFF; })},
        {"long-name", spoiltArchive([](ZipEntry& entry) { entry.central.FilenameLength = 5000; })},
    };
}

std::vector<Seed> endSeeds() {
    return {
        {"count-too-high",
         archiveWithEnd([](parlavox::SDirectory& end) { end.EntriesOnDisk = ++end.TotalEntries; })},
        {"count-too-low",
         archiveWithEnd([](parlavox::SDirectory& end) { end.EntriesOnDisk = --end.TotalEntries; })},
        {"counts-differ", archiveWithEnd([](parlavox::SDirectory& end) { ++end.TotalEntries; })},
        {"directory-at-start",
         archiveWithEnd([](parlavox::SDirectory& end) { end.DirectoryOffset = 0; })},
        {"directory-outside",
         archiveWithEnd([](parlavox::SDirectory& end) { end.DirectoryOffset = 0x10000; })},
        {"comment",
         archiveWithEnd([](parlavox::SDirectory& end) { end.CommentLength = 8; }, "comment.")},
    };
}

Data documentOf(const Data& contents, std::string_view textName, const Data& text) {
    ZipBuilder zip;
    zip.add("contents.plist", contents);
    zip.add(textName, text);
    return zip.finish();
}

Data withHeader(const Data& text, std::string_view header) {
    return documentOf(Data::copyOf("<plist version=\"1.0\">" + std::string(header) + "</plist>"),
                      "text.plist", text);
}

std::vector<Seed> headerSeeds(const Data& text) {
    return {
        {"newer", samples::package(text, 3)},
        {"old", samples::package(text, 0)},
        {"version-as-text", samples::package(text, Value(u"2 and more"))},
        {"version-as-real", samples::package(text, Value(2.9))},
        {"no-version", samples::package(text, Value())},
        {"no-header", withHeader(text, "<dict/>")},
        {"header-is-array", withHeader(text, "<dict><key>header</key><array/></dict>")},
        {"root-is-string", withHeader(text, "<string>header</string>")},
    };
}

/// What the target takes: the size of the output, then the data.
Data rawDeflate(std::string_view text, std::size_t size) {
    std::string bytes{static_cast<char>(size & 0xFF), static_cast<char>(size >> 8)};
    bytes += ZipBuilder().add("a", text).data.view();
    return Data::copyOf(bytes);
}

}  // namespace

std::vector<Seed> rawDeflateSeeds() {
    std::string lines;
    for (int i = 0; i < 200; ++i) {
        lines += std::to_string(i * 7919) + ' ' + std::string(kLine);
    }
    return {
        {"short", rawDeflate(kLine, kLine.size())},
        {"long", rawDeflate(lines, lines.size())},
        {"output-too-small", rawDeflate(lines, lines.size() - 1)},
        {"output-too-large", rawDeflate(kLine, kLine.size() + 1)},
        {"empty", rawDeflate("", 0)},
    };
}

std::vector<Seed> zipSeeds() {
    std::vector<Seed> seeds = nameSeeds();
    for (auto& more : {entrySeeds(), endSeeds()}) {
        seeds.insert(seeds.end(), more.begin(), more.end());
    }
    return seeds;
}

std::vector<Seed> documentSeeds() {
    const Data text = samples::archiveOfText(u"Dear caf\u00E9 \U0001F558");
    const Data contents = samples::contentsPlist();
    std::vector<Seed> seeds = headerSeeds(text);
    const auto add = [&](std::string name, Data document) {
        seeds.push_back({std::move(name), std::move(document)});
    };
    add("deflated", samples::package(text));
    add("stored", samples::package(text, 2, Packing::Stored));
    add("textless", documentOf(contents, "other.plist", text));
    add("text-is-folder", documentOf(contents, "text.plist/part", text));
    add("text-in-folder", documentOf(contents, "folder/text.plist", text));
    add("text-is-noise", documentOf(contents, "text.plist", Data::copyOf("noise")));
    add("text-is-empty", documentOf(contents, "text.plist", Data()));
    for (const Seed& archive : keyedArchiveSeeds()) {
        add("archive-" + archive.name, samples::package(archive.contents, 2, Packing::Stored));
    }
    return seeds;
}

}  // namespace fuzz

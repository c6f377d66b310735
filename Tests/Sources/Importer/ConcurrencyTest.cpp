// The import function on many threads at once, of one instance and over the same files.

#include <gtest/gtest.h>

#include <barrier>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"
#include "Tests/Support/LoadedImporter.h"
#include "Tests/Support/TemporaryDirectory.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tools/samples/ArchiveBuilder.h"
#include "Tools/samples/PackageBuilder.h"
#include "Tools/samples/ZipBuilder.h"

namespace {

using platform::Data;
using test::CFOwner;
using test::LoadedImporter;
using test::TemporaryDirectory;
using test::TemporaryFolder;

constexpr int kThreads = 8;

/// What came of one call.
struct Outcome {
    bool wasRead = false;
    bool hasRaised = false;
    std::optional<std::u16string> text;
    std::string reason;
};

struct Sample {
    std::string name;
    Data contents;
    Outcome want;  ///< its reason is a part of the line
};

std::u16string longText() {
    std::u16string text;
    while (text.size() < parlavox::ZipWrapper::kLargestEntryInMemory + 1) {
        text += u"A line of a very long book that nobody will ever print.\n";
    }
    return text;
}

Data packageWithAttachment() {
    samples::ZipBuilder zip;
    zip.add("contents.plist", samples::contentsPlist());
    zip.add("pages/scan.bin", std::string(parlavox::ZipWrapper::kLargestEntryInMemory + 1, '\0'));
    zip.add("text.plist", samples::archiveOfText(u"beside a scan"));
    return zip.finish();
}

Data packageWithEntryOutside() {
    samples::ZipBuilder zip;
    zip.add("contents.plist", samples::contentsPlist());
    zip.add("text.plist", samples::archiveOfText(u"lost")).central.LocalHeaderOffset = 0x7FFFFFFF;
    return zip.finish();
}

std::vector<Sample> makeSamples() {
    const std::u16string book = longText();
    const Data letter = samples::archiveOfText(u"Dear caf\u00E9 \U0001F558");
    return {
        {"good", samples::package(letter), {true, false, u"Dear caf\u00E9 \U0001F558", ""}},
        {"stored",
         samples::package(letter, 2, samples::Packing::Stored),
         {true, false, u"Dear caf\u00E9 \U0001F558", ""}},
        {"large text", samples::package(samples::archiveOfText(book)), {true, false, book, ""}},
        {"large member", packageWithAttachment(), {true, false, u"beside a scan", ""}},
        {"newer", samples::package(letter, 3), {false, false, {}, "newer reader"}},
        {"no archive", Data::copyOf("a letter"), {false, false, {}, "no zip archive"}},
        {"damaged text", samples::package(Data::copyOf("noise")), {false, true, {}, "text.plist"}},
        {"entry outside", packageWithEntryOutside(), {false, true, {}, "of an archive of"}},
    };
}

std::optional<std::u16string> textIn(CFDictionaryRef attributes) {
    const auto text =
        static_cast<CFStringRef>(CFDictionaryGetValue(attributes, kMDItemTextContent));
    if (text == nullptr) {
        return std::nullopt;
    }
    std::u16string units(static_cast<std::size_t>(CFStringGetLength(text)), u'\0');
    CFStringGetCharacters(text, CFRangeMake(0, CFStringGetLength(text)),
                          reinterpret_cast<UniChar*>(units.data()));
    return units;
}

Outcome import(const LoadedImporter& importer, const std::string& path) {
    const CFOwner<CFMutableDictionaryRef> attributes(CFDictionaryCreateMutable(
        kCFAllocatorDefault, 0, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
    const auto type = test::makeCFString("com.brightmill.parlavox.parlavox");
    Outcome outcome;
    try {
        outcome.wasRead = importer.import(attributes.get(), type.get(), path);
    } catch (const std::exception&) {
        outcome.hasRaised = true;
    }
    outcome.text = textIn(attributes.get());
    outcome.reason = importer.lastFailure();
    return outcome;
}

void expectOutcome(const Outcome& got, const Sample& sample) {
    SCOPED_TRACE(sample.name);
    EXPECT_EQ(got.wasRead, sample.want.wasRead);
    EXPECT_EQ(got.hasRaised, sample.want.hasRaised);
    // Not EXPECT_EQ, which would print ten million units.
    EXPECT_TRUE(got.text == sample.want.text);
    EXPECT_NE(got.reason.find(sample.want.reason), std::string::npos) << got.reason;
    EXPECT_EQ(got.reason.empty(), sample.want.reason.empty()) << got.reason;
}

/// Imports all samples; threads begin at different ones, so that every kind meets every other.
void importAll(const LoadedImporter& importer, const TemporaryFolder& files,
               const std::vector<Sample>& samples, std::size_t first) {
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const Sample& sample = samples[(first + i) % samples.size()];
        expectOutcome(import(importer, files.path(sample.name)), sample);
    }
}

TEST(GetMetadataForFile, GivesEachOfManyThreadsItsOwnResult) {
    const TemporaryFolder files;
    const TemporaryDirectory spooled;
    const auto samples = makeSamples();
    for (const Sample& sample : samples) {
        files.write(sample.name, sample.contents.view());
    }
    const LoadedImporter importer(PV_TEST_BUNDLE);
    ASSERT_TRUE(importer.isLoaded());

    std::barrier start(kThreads);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < kThreads; ++i) {
        threads.emplace_back([&, i] {
            start.arrive_and_wait();
            importAll(importer, files, samples, i);
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_FALSE(std::filesystem::is_empty(spooled.path())) << "nothing was spooled";
    EXPECT_EQ(spooled.countFiles(), 0);
}

}  // namespace

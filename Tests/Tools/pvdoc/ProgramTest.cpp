// What pvdoc does for a user, command by command.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "Platform/Text/AttributedString.h"
#include "Sources/Document/Document.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/Support/TestData.h"
#include "Tools/pvdoc/CommandLine.h"
#include "Tools/pvdoc/Explain.h"
#include "Tools/pvdoc/Info.h"
#include "Tools/pvdoc/Pack.h"
#include "Tools/samples/ArchiveBuilder.h"
#include "Tools/samples/PackageBuilder.h"

namespace pvdoc {
namespace {

using platform::Data;
using platform::Value;

PackOptions packing(const std::string& source, const std::string& target) {
    PackOptions options;
    options.source = source;
    options.target = target;
    options.compatibilityVersion = 2;
    return options;
}

std::shared_ptr<parlavox::Document> opened(const std::string& path) {
    return parlavox::Document::initWithContentsOfURL(platform::URL::fileURLWithPath(path),
                                                     parlavox::kDocumentType, nullptr);
}

/// The lines of a report whose label is `label`.
std::vector<std::string> linesOf(const std::string& report, const std::string& label) {
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < report.size();) {
        const std::size_t end = report.find('\n', start);
        const std::string line = report.substr(start, end - start);
        if (line.starts_with(label + " ")) {
            lines.push_back(line.substr(line.find_first_not_of(' ', label.size())));
        }
        start = end + 1;
    }
    return lines;
}

using Lines = std::vector<std::string>;

TEST(Pvdoc, PacksATextThatTheDocumentReadsBack) {
    const test::TemporaryFolder folder;
    folder.write("a.png", "pixels");
    const std::string source = folder.write(
        "in.txt", "Gr\u00FC\u00DFe {{tag Pause AcmePause n=1}}und{{/tag}} {{attach a.png}}\n");
    for (const bool isStored : {false, true}) {
        PackOptions options = packing(source, folder.path(isStored ? "s.parlavox" : "d.parlavox"));
        options.isStored = isStored;
        const auto packed = pack(options);
        ASSERT_TRUE(packed) << packed.fault().detail;
        const auto document = opened(options.target);
        ASSERT_NE(document, nullptr);
        const platform::AttributedString& text = document->textStorage()->attributedString();
        EXPECT_EQ(text.string(), u"Gr\u00FC\u00DFe und \uFFFC\n");
        EXPECT_EQ(text.runs().size(), 5u);
        EXPECT_EQ((*text.attributesAtIndex(6)).entries().front().first, "Pause");
    }
}

TEST(Pvdoc, NeverReplacesAFileUnasked) {
    const test::TemporaryFolder folder;
    const std::string source = folder.write("in.txt", "new");
    const std::string target = folder.write("out.parlavox", "old");
    PackOptions options = packing(source, target);
    const auto refused = pack(options);
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.fault().detail, target + ": is there already; --force replaces it");
    EXPECT_EQ(folder.read("out.parlavox"), "old");
    options.overwrite = Overwrite::Yes;
    EXPECT_TRUE(pack(options));
    EXPECT_EQ(opened(target)->textStorage()->string(), u"new");
}

TEST(Pvdoc, SaysWhatKeepsATextFromBeingPacked) {
    const test::TemporaryFolder folder;
    const struct {
        const char* name;
        std::string source, target, fault;
    } kRows[] = {
        {"no text", folder.path("none.txt"), folder.path("out"),
         folder.path("none.txt") + ": No such file or directory"},
        {"a folder", folder.path(), folder.path("out"), folder.path() + ": not a regular file"},
        {"a wrong mark", folder.write("a.txt", "x\n{{bold}}"), folder.path("out"),
         folder.path("a.txt") + ": line 2: unknown mark bold"},
        {"no such attachment", folder.write("b.txt", "{{attach c.png}}"), folder.path("out"),
         folder.path("b.txt") + ": line 1: c.png: No such file or directory"},
        {"no place for the document", folder.write("c.txt", "x"), folder.path("no/such/out"),
         folder.path("no/such/out") + ": No such file or directory"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto packed = pack(packing(row.source, row.target));
        ASSERT_FALSE(packed);
        EXPECT_EQ(packed.fault().detail, row.fault);
        EXPECT_FALSE(std::filesystem::exists(row.target));
    }
}

TEST(Pvdoc, InfoListsMembersAndHeader) {
    const test::TemporaryFolder folder;
    PackOptions options = packing(folder.write("in.txt", "text"), folder.path("a.parlavox"));
    options.isStored = true;
    options.compatibilityVersion = 7;
    ASSERT_TRUE(pack(options));
    const auto report = info(options.target);
    ASSERT_TRUE(report) << report.fault().detail;
    EXPECT_EQ(linesOf(report.value(), "archive").front().substr(0, 13), "end record at");
    const Lines members = linesOf(report.value(), "member");
    ASSERT_EQ(members.size(), 2u);
    EXPECT_EQ(members[0].substr(0, 23), "contents.plist, stored,");
    EXPECT_EQ(members[1].substr(0, 19), "text.plist, stored,");
    EXPECT_EQ(linesOf(report.value(), "header"), Lines{"5 keys"});
    EXPECT_NE(report.value().find("application = \"pvdoc\""), std::string::npos);
    EXPECT_NE(report.value().find("compatibility_version = 7"), std::string::npos);
}

TEST(Pvdoc, InfoTellsOfDamage) {
    const test::TemporaryFolder folder;
    samples::ZipBuilder nameless;
    nameless.add("contents.plist", "no list \x01");
    samples::ZipBuilder lying;
    lying.add("a", "b").central.Signature = 1;
    samples::ZipBuilder bare;
    bare.add("other", "b");
    samples::ZipBuilder odd;
    odd.add("line\nbreak", "b").central.CompressionMethod = 12;
    const struct {
        const char* name;
        Data archive;
        const char* label;
        const char* line;
    } kRows[] = {
        {"a header that is no list", nameless.finish(), "header", "no property list: "},
        {"no header", bare.finish(), "header", "none: no member contents.plist"},
        {"a damaged archive", lying.finish(), "header", "none: bytes 32 to 432 of an archive of"},
        {"a record that is none", lying.finish(), "damage", "no record at 0 of the directory"},
        {"an odd name and method", odd.finish(), "member", "line?break, method 12, "},
        {"no dictionary",
         [] {
             samples::ZipBuilder zip;
             zip.add("contents.plist", "<plist><array/></plist>");
             return zip.finish();
         }(),
         "header", "none in the property list"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto report = info(folder.write("a.zip", row.archive.view()));
        ASSERT_TRUE(report) << report.fault().detail;
        const Lines lines = linesOf(report.value(), row.label);
        ASSERT_FALSE(lines.empty()) << report.value();
        EXPECT_TRUE(lines.front().starts_with(row.line)) << lines.front();
    }
    const struct {
        std::string contents;
        const char* fault;
    } kRefused[] = {
        {"", "no archive: shorter than an end record"},
        {std::string(30, 'x'), "no archive: no end record in its last 22 bytes"},
    };
    for (const auto& row : kRefused) {
        const auto report = info(folder.write("a.zip", row.contents));
        ASSERT_FALSE(report);
        EXPECT_EQ(report.fault().detail, row.fault);
    }
}

TEST(Pvdoc, ExplainsADocumentStepByStep) {
    const test::TemporaryFolder folder;
    const std::string source =
        folder.write("in.txt", "a{{tag Pause AcmePause n=1}}b{{/tag}}{{font F 9}}c{{/font}}");
    const std::string target = folder.path("a.parlavox");
    ASSERT_TRUE(pack(packing(source, target)));
    const auto explained = explain(target);
    ASSERT_TRUE(explained) << explained.fault().detail;
    EXPECT_TRUE(explained.value().isRead);
    const std::string& report = explained.value().report;
    EXPECT_EQ(linesOf(report, "type"),
              Lines{"com.brightmill.parlavox.parlavox, as the extension \"parlavox\" says"});
    EXPECT_EQ(linesOf(report, "version"), Lines{"compatibility version 2: this reader knows it"});
    EXPECT_EQ(linesOf(report, "member").size(), 2u);
    EXPECT_EQ(linesOf(report, "text").front().substr(0, 30), "keyed archive by TextArchiver,");
    EXPECT_EQ(linesOf(report, "root"), Lines{"attributed text"});
    EXPECT_EQ(linesOf(report, "runs"), Lines{"3 runs with 3 sets of attributes"});
    EXPECT_EQ(linesOf(report, "class"),
              (Lines{"AcmePause, 1 object in Pause, not known: kept as it is",
                     "NSFont, 1 object in NSFont, understood"}));
    EXPECT_EQ(linesOf(report, "result"), Lines{"text of 3 UTF-16 units"});
}

TEST(Pvdoc, ExplainsWhyAFileGivesNoText) {
    const test::TemporaryFolder folder;
    samples::ArchiveBuilder font;
    const Data fontArchive = font.finish(font.addInstance(font.addClass({"NSFont", "NSObject"}),
                                                          {{"NSName", Value(font.add(u"F"))}}));
    samples::ZipBuilder bare;
    bare.add("other", "x");
    const struct {
        const char* name;
        Data contents;
        const char* label;
        const char* line;
        const char* result;
    } kRows[] = {
        {"a newer document", samples::package(samples::archiveOfText(u"x"), 9), "version",
         "compatibility version 9: a newer reader is needed, the file is refused",
         "not read: needs a newer reader (compatibility version 9)"},
        {"a root that is no text", samples::package(fontArchive), "root",
         "an object of class NSFont, which is no text",
         "not read: root object of class NSFont, which is no text"},
        {"a text that is no list", samples::package(Data::copyOf("\x01")), "text",
         "no property list: ", "not read: "},
        {"a text that is another list", samples::package(Data::copyOf("<plist><array/></plist>")),
         "text", "no keyed archive", "not read: "},
        {"no members of ours", bare.finish(), "member", "contents.plist is not there",
         "not read: no contents.plist in the archive"},
        {"no version", samples::package(samples::archiveOfText(u"x"), Value()), "version",
         "no compatibility version: the file is refused",
         "not read: contents.plist: no compatibility version in the header"},
        {"no archive", Data::copyOf("text"), "archive", "none: shorter than an end record",
         "not read: "},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto explained = explain(folder.write("a.parlavox", row.contents.view()));
        ASSERT_TRUE(explained) << explained.fault().detail;
        EXPECT_FALSE(explained.value().isRead);
        const Lines lines = linesOf(explained.value().report, row.label);
        ASSERT_FALSE(lines.empty()) << explained.value().report;
        EXPECT_TRUE(lines.front().starts_with(row.line)) << lines.front();
        const Lines results = linesOf(explained.value().report, "result");
        ASSERT_EQ(results.size(), 1u);
        EXPECT_TRUE(results.front().starts_with(row.result)) << results.front();
    }
}

TEST(Pvdoc, ExplainsOtherRootsAndOtherFiles) {
    const test::TemporaryFolder folder;
    samples::ArchiveBuilder string;
    const Data plainString = string.finish(string.add(u"text"));
    const std::string many = [] {
        std::string marks;
        for (int i = 0; i < 25; ++i) {
            marks += "a{{underline}}b{{/underline}}";
        }
        return marks;
    }();
    ASSERT_TRUE(pack(packing(folder.write("in.txt", many), folder.path("many.parlavox"))));
    const struct {
        const char* name;
        std::string path;
        const char* label;
        const char* line;
    } kRows[] = {
        {"a plain string", folder.write("s.scribo", samples::package(plainString).view()), "root",
         "a plain string: text without attributes"},
        {"the null object",
         folder.write("n.parlavox",
                      samples::package(samples::ArchiveBuilder().finish(platform::Uid{0})).view()),
         "root", "the null object: an empty document"},
        {"plain text", folder.write("notes", "words"), "type",
         "public.plain-text, as the bytes look like it; the extension \"\" says nothing"},
        {"many runs", folder.path("many.parlavox"), "runs", "50 runs with 2 sets of attributes"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto explained = explain(row.path);
        ASSERT_TRUE(explained) << explained.fault().detail;
        EXPECT_TRUE(explained.value().isRead) << explained.value().report;
        EXPECT_EQ(linesOf(explained.value().report, row.label), Lines{row.line});
    }
    EXPECT_NE(explain(folder.path("many.parlavox")).value().report.find("and 30 more"),
              std::string::npos);
    EXPECT_FALSE(explain(folder.path("none")));
}

TEST(Pvdoc, ExplainsSharedContainersWithoutGoingThroughThemAgainAndAgain) {
    const test::TemporaryFolder folder;
    samples::ArchiveBuilder b;
    platform::Uid doubling = b.add(u"core");
    for (int i = 0; i < 50; ++i) {
        doubling = b.addArray({doubling, doubling});
    }
    const Data archive =
        b.finish(b.addAttributedString(u"x", {b.addDictionary({{b.add(u"odd"), doubling}})}));
    const auto explained = explain(folder.write("a.parlavox", samples::package(archive).view()));
    ASSERT_TRUE(explained);
    EXPECT_TRUE(explained.value().isRead) << explained.value().report;
}

TEST(Pvdoc, ReadsItsCommandLine) {
    const auto read = [](std::vector<const char*> arguments) {
        arguments.insert(arguments.begin(), "pvdoc");
        return CommandLine::read(static_cast<int>(arguments.size()), arguments.data());
    };
    const CommandLine packed = read({"pack", "--force", "--stored", "in", "[out]"});
    ASSERT_TRUE(packed.request);
    EXPECT_EQ(packed.request->command, Command::Pack);
    EXPECT_EQ(packed.request->pack.source, "in");
    EXPECT_EQ(packed.request->pack.target, "./[out]") << "brackets are no list of names";
    EXPECT_EQ(packed.request->pack.compatibilityVersion, 2);
    EXPECT_TRUE(packed.request->pack.isStored);
    EXPECT_EQ(packed.request->pack.overwrite, Overwrite::Yes);
    EXPECT_EQ(read({"pack", "a", "b"}).request->pack.overwrite, Overwrite::No);
    EXPECT_EQ(read({"info", "f"}).request->command, Command::Info);
    EXPECT_EQ(read({"explain", "f"}).request->file, "f");
    EXPECT_EQ(read({"--version"}).output.substr(0, 6), "pvdoc ");
    EXPECT_NE(read({"--help"}).output.find("Exit status:"), std::string::npos);
    EXPECT_NE(read({"pack", "--help"}).output.find("{{font NAME SIZE}}"), std::string::npos);
    for (const CommandLine& wrong : {read({}), read({"pack", "a"}), read({"info"}),
                                     read({"pack", "--compatibility-version", "x", "a", "b"})}) {
        EXPECT_FALSE(wrong.request);
        EXPECT_EQ(wrong.status, kWrongCommandLine);
        EXPECT_TRUE(wrong.error.starts_with("pvdoc: wrong command line: ")) << wrong.error;
    }
}

TEST(Pvdoc, ReadsTheCommandsThatWrite) {
    const auto read = [](std::vector<const char*> arguments) {
        arguments.insert(arguments.begin(), "pvdoc");
        return CommandLine::read(static_cast<int>(arguments.size()), arguments.data());
    };
    const CommandLine exported = read({"export", "--as", "txt", "a", "b", "--force"});
    ASSERT_TRUE(exported.request) << exported.error;
    EXPECT_EQ(exported.request->command, Command::Export);
    EXPECT_EQ(exported.request->exportFormat, ExportFormat::Text);
    EXPECT_EQ(exported.request->conversion.source, "a");
    EXPECT_EQ(exported.request->conversion.overwrite, Overwrite::Yes);
    const CommandLine inserted =
        read({"templates", "a", "--insert", "x", "--insert", "y", "--at", "3"});
    ASSERT_TRUE(inserted.request) << inserted.error;
    EXPECT_EQ(inserted.request->templates.inserted, (std::vector<std::string>{"x", "y"}));
    EXPECT_EQ(inserted.request->templates.at, 3u);
    const CommandLine removed = read({"templates", "a", "--remove", "3", "1"});
    ASSERT_TRUE(removed.request) << removed.error;
    EXPECT_EQ(removed.request->templates.removed, (std::vector<std::uint64_t>{3, 1}));
    const CommandLine moved = read({"templates", "a", "--move", "0", "--to", "2"});
    ASSERT_TRUE(moved.request) << moved.error;
    EXPECT_EQ(moved.request->templates.moved, 0u);
    EXPECT_EQ(moved.request->templates.to, 2u);
    EXPECT_EQ(read({"zip", "a", "b"}).request->zip.level, kUsualLevel);
    EXPECT_EQ(read({"zip", "a", "b", "--level", "0"}).request->zip.level, 0u);
    EXPECT_EQ(read({"unzip", "a", "b", "--force"}).request->unzip.overwrite, Overwrite::Yes);
    for (const CommandLine& wrong :
         {read({"export", "a", "b"}), read({"zip", "a", "b", "--level", "10"}),
          read({"templates", "a", "--at", "1"}), read({"templates", "a", "--move", "1"}),
          read({"templates", "a", "--insert", "x", "--remove", "1"}),
          read({"templates", "a", "--move", "1", "--to", "0", "--remove", "1"})}) {
        EXPECT_FALSE(wrong.request);
        EXPECT_EQ(wrong.status, kWrongCommandLine);
    }
}

/// The exit status and output of the program, both streams in one.
std::pair<int, std::string> run(const std::string& arguments) {
    std::FILE* const pipe = ::popen(("exec 2>&1; " PV_DOC_PROGRAM " " + arguments).c_str(), "r");
    std::string output;
    char part[4096];
    while (const std::size_t count = std::fread(part, 1, sizeof part, pipe)) {
        output.append(part, count);
    }
    return {WEXITSTATUS(::pclose(pipe)), output};
}

TEST(Pvdoc, EndsWithTheStatusThatItPromises) {
    const test::TemporaryFolder folder;
    folder.write("in.txt", "text");
    folder.write("bad.parlavox", "no archive");
    folder.write("folder/empty", "");
    folder.write("folder/a", "contents");
    const std::string cd = "--version > /dev/null; cd '" + folder.path() + "'; " PV_DOC_PROGRAM " ";
    const struct {
        const char* name;
        const char* arguments;
        int status;
        const char* output;
    } kRows[] = {
        {"packs", "pack in.txt a.parlavox", 0, ""},
        {"refuses to replace", "pack in.txt a.parlavox", 1,
         "pvdoc: a.parlavox: is there already; --force replaces it\n"},
        {"explains", "explain a.parlavox", 0, "file       a.parlavox"},
        {"explains a failure", "explain bad.parlavox", 1, "file       bad.parlavox"},
        {"informs", "info a.parlavox", 0, "file       a.parlavox"},
        {"names the file", "info bad.parlavox", 1,
         "pvdoc: bad.parlavox: no archive: shorter than an end record\n"},
        {"names a missing file", "explain none", 1, "pvdoc: none: No such file or directory\n"},
        {"wants a command", "", 2, "pvdoc: wrong command line: "},
        {"saves", "save in.txt s.parlavox", 0,
         "s.parlavox: saved without its text, as this format's own save does; pvdoc pack makes "
         "documents with their text\n"},
        {"loses no text", "save --force in.txt a.parlavox", 1,
         "pvdoc: a.parlavox: holds a text (text.plist), which saving would lose; not replaced\n"},
        {"exports", "export --as txt a.parlavox a.txt", 0, ""},
        {"exports to no other format", "export --as pdf a.parlavox a.pdf", 2,
         "pvdoc: wrong command line: --as: pdf not in {rtf,txt}\n"},
        {"changes templates", "templates a.parlavox --insert one --insert two", 0,
         "     0  \"one\"\n     1  \"two\"\n"},
        {"names a place that is none", "templates a.parlavox --remove 2", 1,
         "pvdoc: a.parlavox: no place 2 in a list of 2 templates\n"},
        {"zips, and names what will not be found", "zip folder a.zip --level 9", 0,
         "pvdoc: folder/empty: is empty; the format lists no empty files, so it will not be "
         "found\n"},
        {"refuses to replace an archive", "zip folder a.zip", 1,
         "pvdoc: a.zip: is there already; --force replaces it\n"},
        {"unzips", "unzip a.zip unzipped", 0, ""},
        {"refuses to mix files unasked", "unzip a.zip unzipped", 1,
         "pvdoc: unzipped: is not empty; --force puts files between those that are there\n"},
        {"tells that nobody takes the output", "info a.parlavox > /dev/full", 1,
         "pvdoc: standard output: cannot be written\n"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto [status, output] = run(cd + row.arguments);
        EXPECT_EQ(status, row.status);
        EXPECT_TRUE(output.starts_with(row.output)) << output;
    }
}

TEST(Pvdoc, LeavesNoTemporaryFiles) {
    const test::TemporaryFolder folder;
    const test::TemporaryFolder temporary;
    folder.write("large.bin", std::string(std::size_t{11} * 1024 * 1024, ' '));
    folder.write("in.txt", "{{attach large.bin}}");
    const std::string document = folder.path("a.parlavox");
    ASSERT_TRUE(pack(packing(folder.path("in.txt"), document)));
    const auto [status, output] = run("--version > /dev/null; TMPDIR='" + temporary.path() +
                                      "' " PV_DOC_PROGRAM " explain '" + document + "'");
    EXPECT_EQ(status, 0) << output;
    EXPECT_TRUE(temporary.names().empty());
}

TEST(PvdocExplain, TellsWhichHyphensGoAndWhy) {
    const std::string path = test::dataPath("pdf/made-de-two-columns.pdf");
    const auto explained = explain(path);
    ASSERT_TRUE(explained);
    EXPECT_TRUE(explained.value().isRead);
    const std::string& report = explained.value().report;
    EXPECT_NE(report.find(" words in two parts, "), std::string::npos) << report;
    EXPECT_NE(report.find("Treuhand- schaft, joined: one word in de\n"), std::string::npos)
        << report;
}

TEST(PvdocExplain, TakesADocumentThatIsAFolder) {
    const std::string path = test::dataPath("rtfd/made-graphic.rtfd");
    for (const std::string& same : {path, path + "/"}) {
        const auto explained = explain(same);
        ASSERT_TRUE(explained);
        EXPECT_TRUE(explained.value().isRead) << explained.value().report;
    }
    EXPECT_FALSE(explain(test::dataPath("rtfd"))) << "any other folder";
}

}  // namespace
}  // namespace pvdoc

// Property lists, keyed archives and texts.

#include <limits>
#include <string_view>
#include <utility>

#include "Fuzz/Support/Seeds.h"
#include "Platform/Foundation/FileWrapper.h"
#include "Platform/Foundation/PropertyListSerialization.h"
#include "Tools/samples/ArchiveBuilder.h"

namespace fuzz {
namespace {

using platform::Array;
using platform::Data;
using platform::Date;
using platform::Dictionary;
using platform::PropertyListFormat;
using platform::PropertyListSerialization;
using platform::Uid;
using platform::Value;
using samples::ArchiveBuilder;
using namespace std::string_view_literals;

Data bytesOf(const Value& value, PropertyListFormat format = PropertyListFormat::Binary) {
    return PropertyListSerialization::dataWithPropertyList(value, format).value();
}

/// A value of every kind, of widths on both sides of where the binary form changes.
Value everyKind() {
    const Value letters = std::u16string(14, u'a');
    return Dictionary{
        {"true", true},
        {"integers", Array{0, 255, 256, 65536, -1, std::numeric_limits<std::int64_t>::max(),
                           std::numeric_limits<std::uint64_t>::max()}},
        {"reals", Array{0.5, -1e300, Value(Date{700000000.25})}},
        {"strings", Array{u"", letters, std::u16string(15, u'b'), u"caf\u00E9 \U0001F558"}},
        {"data", Array{Data(), Data::copyOf("bytes"), Data::copyOf(std::string(300, 'x'))}},
        {"shared", Array{letters, letters, Array{}, Dictionary{}}},
    };
}

Value nested(int depth) {
    Value value = u"core";
    for (int i = 0; i < depth; ++i) {
        value = i % 2 == 0 ? Value(Array{value, i}) : Value(Dictionary{{"inner", value}});
    }
    return value;
}

Data xmlOf(std::string_view body) {
    return Data::copyOf("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" +
                        std::string(body) + "</plist>\n");
}

Data utf16Of(std::string_view ascii, bool isBigEndian) {
    std::string bytes(isBigEndian ? "\xFE\xFF" : "\xFF\xFE");
    for (const char unit : ascii) {
        bytes += isBigEndian ? std::string{'\0', unit} : std::string{unit, '\0'};
    }
    return Data::copyOf(bytes);
}

using Format = PropertyListFormat;

/// Two attribute sets, one with values of classes that nobody knows, and three runs.
Data archiveWithRuns(Format format, const std::vector<samples::TextRun>& runs) {
    ArchiveBuilder builder;
    const Uid font = builder.addInstance(builder.addClass({"PVUnheardOfFont", "NSObject"}),
                                         {{"size", 12.5}, {"name", Value(builder.add(u"Serif"))}});
    const Uid plain = builder.addDictionary({});
    const Uid styled = builder.addDictionary({{builder.add(u"font"), font},
                                              {builder.add(u"level"), builder.add(3)},
                                              {builder.add(u"day"), builder.add(Date{1})}});
    return builder.finish(builder.addAttributedString(u"One two three", {plain, styled}, runs),
                          format);
}

Data archiveOfCycle() {
    ArchiveBuilder builder;
    const Uid type = builder.addClass({"PVRing", "NSObject"});
    const Uid ring = builder.addInstance(type, {{"next", Value(Uid{type.index + 1})}});
    return builder.finish(builder.addArray({ring, ring}));
}

Data archiveOfArrays(int depth) {
    ArchiveBuilder builder;
    Uid inner = builder.add(u"core");
    for (int i = 0; i < depth; ++i) {
        inner = builder.addArray({inner, inner});
    }
    return builder.finish(inner);
}

/// An attributed string with these fields and no others.
Data archiveOfFields(Dictionary fields) {
    ArchiveBuilder builder;
    return builder.finish(builder.addInstance(builder.addClass({"NSAttributedString", "NSObject"}),
                                              std::move(fields)));
}

Data archiveOfMutableString() {
    ArchiveBuilder builder;
    const Uid string =
        builder.addInstance(builder.addClass({"NSMutableString", "NSString", "NSObject"}),
                            {{"NS.string", Value(builder.add(u"plain"))}});
    return builder.finish(string);
}

/// A font, a colour, a style with a tab and an attachment with a file, in the forms that real
/// archives have.
Data archiveOfTypedAttributes() {
    ArchiveBuilder b;
    const Uid font =
        b.addInstance(b.addClass({"NSFont", "NSObject"}),
                      {{"NSName", Value(b.add(u"Helvetica"))}, {"NSSize", 12.0}, {"NSfFlags", 16}});
    const Uid color =
        b.addInstance(b.addClass({"NSColor", "NSObject"}),
                      {{"NSColorSpace", 1}, {"NSRGB", Value(Data::copyOf("0.5 0 1 0.25\0"sv))}});
    const Uid tab = b.addInstance(b.addClass({"NSTextTab", "NSObject"}), {{"NSLocation", 36.0}});
    const Uid style = b.addInstance(b.addClass({"NSParagraphStyle", "NSObject"}),
                                    {{"NSAlignment", 2}, {"NSTabStops", Value(b.addArray({tab}))}});
    const Uid wrapper =
        b.addInstance(b.addClass({"NSFileWrapper", "NSObject"}),
                      {{"NSFileWrapperData", Value(b.add(fileWrapperSeeds().front().contents))}});
    const Uid attachment = b.addInstance(b.addClass({"NSTextAttachment", "NSObject"}),
                                         {{"NSFileWrapper", Value(wrapper)}});
    const Uid link =
        b.addInstance(b.addClass({"NSURL", "NSObject"}),
                      {{"NS.base", Value(Uid{0})}, {"NS.relative", Value(b.add(u"x"))}});
    const Uid set = b.addDictionary({{b.add(u"NSFont"), font},
                                     {b.add(u"NSColor"), color},
                                     {b.add(u"NSParagraphStyle"), style},
                                     {b.add(u"NSAttachment"), attachment},
                                     {b.add(u"NSLink"), link}});
    return b.finish(b.addAttributedString(u"\uFFFC", {set}));
}

/// An object of a known class that contains itself.
Data archiveOfKnownCycle() {
    ArchiveBuilder b;
    const Uid type = b.addClass({"NSFont", "NSObject"});
    return b.finish(b.addInstance(
        type, {{"NSName", Value(b.add(u"F"))}, {"self", Value(Uid{type.index + 2})}}));
}

Data archiveOfUnkeyed() {
    ArchiveBuilder builder;
    const Uid text = builder.addAttributedString(u"unkeyed");
    return builder.finishWithTop({{"$0", Value(text)}, {"other", Value(Uid{0})}});
}

}  // namespace

std::vector<Seed> propertyListSeeds() {
    constexpr auto kSmall = "<dict><key>a</key><integer>0x1F</integer></dict>"sv;
    return {
        {"binary-kinds", bytesOf(everyKind())},
        {"binary-nested", bytesOf(nested(20))},
        {"binary-uid", bytesOf(Array{Uid{1}, Uid{70000}})},
        {"binary-scalar", bytesOf(Value(7))},
        {"xml-kinds", bytesOf(everyKind(), Format::Xml)},
        {"xml-nested", bytesOf(nested(20), Format::Xml)},
        {"xml-hex", xmlOf(kSmall)},
        {"xml-entities", xmlOf("<string>&lt;&amp;&#233;&#x1F558;<![CDATA[<raw>]]></string>")},
        {"xml-comment", xmlOf("<!-- a --><array><!-- b --><true/><?p i?></array>")},
        {"xml-base64", xmlOf("<data>\n\tQUJD\n\tREU=\n</data>")},
        {"xml-uid", xmlOf("<dict><key>CF$UID</key><integer>3</integer></dict>")},
        {"xml-doctype", Data::copyOf("<!DOCTYPE plist [<!ENTITY e \"x\">]><plist><string>&e;"
                                     "</string></plist>"sv)},
        {"xml-utf-16", utf16Of("<plist><string>wide</string></plist>", false)},
        {"xml-unended", Data::copyOf("<plist><array><dict><key>a"sv)},
        {"old-style", Data::copyOf("{ a = b; \"c d\" = (1, <0fbd77>); }"sv)},
        {"old-style-escapes", Data::copyOf("(\"\\a\\101\\375\\377\\U20AC\\UD83D\\\n\", '\\'')"sv)},
        {"old-style-comments", Data::copyOf("// one\n{ /* two */ a; b = /usr//lib; } /* three"sv)},
        {"old-style-strings", Data::copyOf("\"Quit\" = \"Beenden\";\nopen = {a = ();};"sv)},
        {"old-style-utf-16", utf16Of("{ a = (b, c); }", false)},
        {"old-style-bare", Data::copyOf("\0?\0(\0a\0)"sv)},
        {"old-style-deep", Data::copyOf(std::string(600, '(') + std::string(600, ')'))},
        {"blank", Data::copyOf(" \n// nothing"sv)},
        {"empty", Data()},
    };
}

std::vector<Seed> keyedArchiveSeeds() {
    ArchiveBuilder nothing;
    const auto good = std::vector<samples::TextRun>{{3, 0}, {5, 1}, {5, 0}};
    return {
        {"plain", samples::archiveOfText(u"plain \u00E9\U0001F558")},
        {"runs", archiveWithRuns(Format::Binary, good)},
        {"runs-xml", archiveWithRuns(Format::Xml, good)},
        {"runs-too-long", archiveWithRuns(Format::Binary, {{3, 0}, {500, 1}})},
        {"runs-unknown-set", archiveWithRuns(Format::Binary, {{3, 0}, {5, 9}, {5, 1}})},
        {"runs-empty", archiveWithRuns(Format::Binary, {{0, 0}, {13, 1}})},
        {"cycle", archiveOfCycle()},
        {"doubling", archiveOfArrays(25)},
        {"no-text", archiveOfFields({})},
        {"text-outside", archiveOfFields({{"NSString", Value(Uid{99})}})},
        {"text-is-class", archiveOfFields({{"NSString", Value(Uid{1})}})},
        {"mutable-string", archiveOfMutableString()},
        {"typed-attributes", archiveOfTypedAttributes()},
        {"cycle-of-a-font", archiveOfKnownCycle()},
        {"unkeyed", archiveOfUnkeyed()},
        {"null-root", nothing.finish(Uid{0})},
        {"root-outside", nothing.finish(Uid{5})},
    };
}

std::vector<Seed> fileWrapperSeeds() {
    const auto file = [](std::string_view contents) {
        return platform::FileWrapper::initRegularFileWithContents(Data::copyOf(contents));
    };
    const auto alone = file("pixels");
    alone->setPreferredFilename("a.png");
    const auto tree = platform::FileWrapper::initDirectoryWithFileWrappers(
        {{"TXT.rtf", file("{\\rtf1}")},
         {"inner", platform::FileWrapper::initDirectoryWithFileWrappers({{"deep", file("")}})}});
    constexpr auto kPadded =
        "rtfd\0\0\0\0\3\0\0\0\1\0\0\0\2\0\0\0..\x13\0\0\0"
        "\1\0\0\0\0\0\0\x80\2\0\0\0\1\0\0\0\0ab"sv;
    return {
        {"file", *alone->serializedRepresentation()},
        {"tree", *tree->serializedRepresentation()},
        {"padded", Data::copyOf(kPadded)},
        {"many-names", Data::copyOf("rtfd\0\0\0\0\3\0\0\0\xFF\xFF\xFF\xFF"sv)},
        {"empty", Data()},
    };
}

std::vector<Seed> markedUpTextSeeds() {
    return {
        {"plain", Data::copyOf("plain { text }\n"sv)},
        {"marks", Data::copyOf("{{font \"Times New Roman\" 12.5}}a{{underline}}b{{/underline}}"
                               "{{/font}}{{color 1 0 0.5 0.25}}c{{/color}}{{align center}}d"
                               "{{/align}}{{link x}}e{{/link}}"sv)},
        {"tag",
         Data::copyOf("{{tag Pause AcmePause n=-3 x=1.5 on=true label=\"a b\"}}w{{/tag}}"sv)},
        {"attachment", Data::copyOf("{{attach a.png}}"sv)},
        {"plain-braces", Data::copyOf("\\{{font}} {{"sv)},
        {"open", Data::copyOf("{{font F 9}}"sv)},
    };
}

std::vector<Seed> textSeeds() {
    return {
        {"ascii", Data::copyOf("Two lines\nof text.\r\n"sv)},
        {"utf-8", Data::copyOf("caf\xC3\xA9 \xF0\x9F\x95\x98"sv)},
        {"utf-8-mark", Data::copyOf("\xEF\xBB\xBF"
                                    "caf\xC3\xA9"sv)},
        {"utf-8-cut", Data::copyOf("caf\xC3"sv)},
        {"utf-8-surrogate", Data::copyOf("a\xED\xA0\x80"
                                         "b"sv)},
        {"utf-16-le", utf16Of("wide", false)},
        {"utf-16-be", utf16Of("wide", true)},
        {"utf-16-odd", Data::copyOf("\xFF\xFE"
                                    "a"sv)},
        {"utf-16-lone", Data::copyOf("\xFF\xFE\x00\xD8"
                                     "a\0"sv)},
        {"utf-16-bare", Data::copyOf("w\0i\0d\0e\0"sv)},
        {"latin-1", Data::copyOf("caf\xE9"sv)},
        {"control", Data::copyOf("a\0b\x01\x0C\x1B\x7F"sv)},
        {"rtf", Data::copyOf("{\\rtf1\\ansi caf\\'e9 \\u8364?\\par}"sv)},
        {"html", Data::copyOf("<!DOCTYPE html><p>caf&eacute;<br>x</p>"sv)},
        {"empty", Data()},
    };
}

}  // namespace fuzz

#include "Platform/CoreFoundation/CFBundle.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "Tests/Platform/CoreFoundation/BundleFolder.h"

namespace {

using namespace std::string_view_literals;
using test::BundleFolder;
using test::makeURL;
using test::own;
using test::pathOf;
using test::plugInInfo;
using test::Ref;
using test::utf8Of;

struct LayoutRow {
    const char* name;
    std::string bundle;
    std::string infoPlist;
    const char* executableName;  // the value of CFBundleExecutable, null for none
    std::vector<std::string> executables;
    std::vector<std::pair<std::string, std::string>> links;
    std::string loads;  // empty: nothing
};

const LayoutRow kLayoutRows[] = {
    {"the recommended one",
     "X.plug",
     "X.plug/Contents/Info.plist",
     nullptr,
     {"X.plug/Contents/Linux/X"},
     {},
     "X.plug/Contents/Linux/X"},
    {"as a library",
     "X.plug",
     "X.plug/Contents/Info.plist",
     nullptr,
     {"X.plug/Contents/Linux/libX.so"},
     {},
     "X.plug/Contents/Linux/libX.so"},
    {"plain name before library",
     "X.plug",
     "X.plug/Contents/Info.plist",
     nullptr,
     {"X.plug/Contents/Linux/libX.so", "X.plug/Contents/Linux/X"},
     {},
     "X.plug/Contents/Linux/X"},
    {"platform folder before the others",
     "X.plug",
     "X.plug/Contents/Info.plist",
     nullptr,
     {"X.plug/X", "X.plug/Contents/X", "X.plug/Contents/Linux/libX.so"},
     {},
     "X.plug/Contents/Linux/libX.so"},
    {"a suffix is not added",
     "X.plug",
     "X.plug/Contents/Info.plist",
     "X",
     {"X.plug/Contents/Linux/X.so"},
     {},
     ""},
    {"a suffix that the list names",
     "Y.plug",
     "Y.plug/Contents/Info.plist",
     "X.so",
     {"Y.plug/Contents/Linux/X.so"},
     {},
     "Y.plug/Contents/Linux/X.so"},
    {"a library that the list names",
     "Y.plug",
     "Y.plug/Contents/Info.plist",
     "libX.so",
     {"Y.plug/Contents/Linux/libX.so"},
     {},
     "Y.plug/Contents/Linux/libX.so"},
    {"another platform's folder",
     "X.plug",
     "X.plug/Contents/Info.plist",
     nullptr,
     {"X.plug/Contents/MacOS/X"},
     {},
     ""},
    {"the platform folder as a link",
     "X.plug",
     "X.plug/Contents/Info.plist",
     nullptr,
     {"X.plug/Contents/MacOS/X"},
     {{"X.plug/Contents/Linux", "MacOS"}},
     "X.plug/Contents/Linux/X"},
    {"the executable as a link",
     "X.plug",
     "X.plug/Contents/Info.plist",
     nullptr,
     {"X.plug/Contents/MacOS/X"},
     {{"X.plug/Contents/Linux/X", "../MacOS/X"}},
     "X.plug/Contents/Linux/X"},
    {"a folder in the name",
     "X.plug",
     "X.plug/Contents/Info.plist",
     "MacOS/X",
     {"X.plug/Contents/MacOS/X"},
     {},
     "X.plug/Contents/MacOS/X"},
    {"in Contents",
     "X.plug",
     "X.plug/Contents/Info.plist",
     nullptr,
     {"X.plug/Contents/X"},
     {},
     "X.plug/Contents/X"},
    {"a library in Contents",
     "X.plug",
     "X.plug/Contents/Info.plist",
     nullptr,
     {"X.plug/Contents/libX.so"},
     {},
     "X.plug/Contents/libX.so"},
    {"in the bundle's folder",
     "X.plug",
     "X.plug/Contents/Info.plist",
     nullptr,
     {"X.plug/X"},
     {},
     "X.plug/X"},
    {"flat", "X.plug", "X.plug/Info.plist", nullptr, {"X.plug/X"}, {}, "X.plug/X"},
    {"flat library",
     "X.plug",
     "X.plug/Info.plist",
     nullptr,
     {"X.plug/libX.so"},
     {},
     "X.plug/libX.so"},
    {"flat with a platform folder",
     "X.plug",
     "X.plug/Info.plist",
     nullptr,
     {"X.plug/Linux/X"},
     {},
     "X.plug/Linux/X"},
    {"list among resources",
     "X.plug",
     "X.plug/Resources/Info.plist",
     nullptr,
     {"X.plug/X"},
     {},
     "X.plug/X"},
    {"shared resources",
     "share/X.resources",
     "share/X.resources/Info.plist",
     nullptr,
     {"lib/libX.so"},
     {},
     "lib/libX.so"},
    {"resources beside a library",
     "X.resources",
     "X.resources/Info.plist",
     nullptr,
     {"libX.so"},
     {},
     "libX.so"},
    {"no extension",
     "X",
     "X/Contents/Info.plist",
     nullptr,
     {"X/Contents/Linux/X"},
     {},
     "X/Contents/Linux/X"},
    {"a folder of the executable's name",
     "X.plug",
     "X.plug/Contents/Info.plist",
     nullptr,
     {"X.plug/Contents/Linux/X/Y", "X.plug/Contents/X"},
     {},
     "X.plug/Contents/X"},
};

void makeLayout(const BundleFolder& folder, const LayoutRow& row) {
    std::string more;
    if (row.executableName != nullptr) {
        more =
            "<key>CFBundleExecutable</key><string>" + std::string(row.executableName) + "</string>";
    }
    folder.write(row.infoPlist, plugInInfo(more));
    for (const std::string& executable : row.executables) {
        folder.putPlugIn(executable);
    }
    for (const auto& [name, target] : row.links) {
        folder.link(name, target);
    }
}

TEST(CFBundle, FindsAndLoadsItsExecutable) {
    for (const LayoutRow& row : kLayoutRows) {
        SCOPED_TRACE(row.name);
        const BundleFolder folder;
        makeLayout(folder, row);
        const auto bundle = folder.open(row.bundle);
        ASSERT_NE(bundle, nullptr);
        EXPECT_EQ(utf8Of(CFBundleGetIdentifier(bundle.get())), "test.plugin");
        const std::string want = row.loads.empty() ? "(none)" : folder.path(row.loads);
        EXPECT_EQ(pathOf(own(CFBundleCopyExecutableURL(bundle.get())).get()), want);
        EXPECT_FALSE(CFBundleIsExecutableLoaded(bundle.get()));
        EXPECT_EQ(CFBundleLoadExecutable(bundle.get()), !row.loads.empty());
        EXPECT_EQ(CFBundleIsExecutableLoaded(bundle.get()), !row.loads.empty());
        CFBundleUnloadExecutable(bundle.get());
        EXPECT_FALSE(CFBundleIsExecutableLoaded(bundle.get()));
        EXPECT_EQ(dlopen(want.c_str(), RTLD_NOW | RTLD_NOLOAD), nullptr) << "still mapped";
    }
}

TEST(CFBundle, GivesFunctionsByName) {
    const BundleFolder folder;
    folder.makePlugIn("X.plug");
    const auto bundle = folder.open("X.plug");
    using Marker = int (*)();
    const auto marker = reinterpret_cast<Marker>(
        CFBundleGetFunctionPointerForName(bundle.get(), CFSTR("TestPlugInMarker")));
    ASSERT_NE(marker, nullptr);
    EXPECT_EQ(marker(), 4711);
    EXPECT_EQ(CFBundleGetFunctionPointerForName(bundle.get(), CFSTR("NoSuchName")), nullptr);
    EXPECT_EQ(CFBundleGetFunctionPointerForName(bundle.get(), nullptr), nullptr);
    CFBundleUnloadExecutable(bundle.get());
    EXPECT_NE(CFBundleGetFunctionPointerForName(bundle.get(), CFSTR("TestPlugInMarker")), nullptr)
        << "loads again";
    CFBundleUnloadExecutable(bundle.get());
}

TEST(CFBundle, OpenedAgainIsTheSameObject) {
    const BundleFolder folder;
    folder.makePlugIn("X.plug");
    const auto bundle = folder.open("X.plug");
    for (const char* name : {"X.plug", "X.plug/", "./X.plug", "/X.plug//."}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(own(CFBundleCreate(nullptr, makeURL(folder.path("") + name, true).get())),
                  bundle);
    }
    EXPECT_EQ(pathOf(own(CFBundleCopyBundleURL(bundle.get())).get()), folder.path("X.plug"));
    EXPECT_EQ(CFGetRetainCount(bundle.get()), 1);
}

TEST(CFBundle, NeedsAFolder) {
    const BundleFolder folder;
    folder.write("file.plug", "no folder");
    EXPECT_EQ(folder.open("missing.plug"), nullptr);
    EXPECT_EQ(folder.open("file.plug"), nullptr);
    EXPECT_EQ(CFBundleCreate(nullptr, nullptr), nullptr);
}

struct DamageRow {
    const char* name;
    std::string_view infoPlist;
};

constexpr DamageRow kDamageRows[] = {
    {"empty", ""},
    {"text", "hello"},
    {"cut", "<plist version=\"1.0\"><dict><key>CFBundle"},
    {"no dictionary", "<plist version=\"1.0\"><array/></plist>"},
    {"binary without an end", "bplist00\xD0"},
};

TEST(CFBundle, DamagedListsCountAsEmpty) {
    for (const DamageRow& row : kDamageRows) {
        SCOPED_TRACE(row.name);
        const BundleFolder folder;
        folder.write("X.plug/Contents/Info.plist", row.infoPlist);
        const auto bundle = folder.open("X.plug");
        ASSERT_NE(bundle, nullptr);
        EXPECT_EQ(CFDictionaryGetCount(CFBundleGetInfoDictionary(bundle.get())), 0);
        EXPECT_EQ(CFBundleGetIdentifier(bundle.get()), nullptr);
        EXPECT_FALSE(CFBundleLoadExecutable(bundle.get()));
        EXPECT_FALSE(CFPlugInIsLoadOnDemand(bundle.get()));
    }
}

TEST(CFBundle, FolderWithoutAListIsABundle) {
    const BundleFolder folder;
    folder.putPlugIn("X.plug/Contents/Linux/X");
    const auto bundle = folder.open("X.plug");
    ASSERT_NE(bundle, nullptr);
    EXPECT_EQ(CFDictionaryGetCount(CFBundleGetInfoDictionary(bundle.get())), 0);
    EXPECT_TRUE(CFBundleLoadExecutable(bundle.get())) << "the code is named after the folder";
    EXPECT_TRUE(CFBundleLoadExecutable(bundle.get())) << "it is there already";
    CFBundleUnloadExecutable(bundle.get());
    EXPECT_FALSE(CFBundleIsExecutableLoaded(bundle.get()));
}

TEST(CFBundle, EmptyExecutableNameCountsAsNone) {
    const BundleFolder folder;
    folder.makePlugIn("X.plug", plugInInfo("<key>CFBundleExecutable</key><string></string>"));
    const auto bundle = folder.open("X.plug");
    EXPECT_EQ(pathOf(own(CFBundleCopyExecutableURL(bundle.get())).get()),
              folder.path("X.plug/Contents/Linux/X"));
}

TEST(CFBundle, ExecutableNameThatHoldsNulNamesNoFile) {
    // A binary list that names "X", NUL, "Y".
    constexpr std::string_view kList =
        "bplist00\xD1\x01\x02\x5F\x10\x12"
        "CFBundleExecutable\x53X\0Y\x08\x0B\x20"
        "\0\0\0\0\0\0\x01\x01\0\0\0\0\0\0\0\x03\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x24"sv;
    const BundleFolder folder;
    folder.write("X.plug/Contents/Info.plist", kList);
    folder.putPlugIn("X.plug/Contents/Linux/X");
    const auto bundle = folder.open("X.plug");
    EXPECT_EQ(CFDictionaryGetCount(CFBundleGetInfoDictionary(bundle.get())), 1);
    EXPECT_EQ(CFBundleCopyExecutableURL(bundle.get()), nullptr);
    EXPECT_FALSE(CFBundleLoadExecutable(bundle.get()));
}

TEST(CFBundle, ReferencesOfAnArchiveAreDictionaries) {
    // A binary list of one entry, "u", with the reference 5.
    constexpr std::string_view kList =
        "bplist00\xD1\x01\x02\x51u\x80\x05\x08\x0B\x0D"
        "\0\0\0\0\0\0\x01\x01\0\0\0\0\0\0\0\x03\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x0F"sv;
    const BundleFolder folder;
    folder.write("X.plug/Info.plist", kList);
    const auto bundle = folder.open("X.plug");
    const auto* const reference = static_cast<CFDictionaryRef>(
        CFDictionaryGetValue(CFBundleGetInfoDictionary(bundle.get()), CFSTR("u")));
    ASSERT_NE(reference, nullptr);
    ASSERT_EQ(CFGetTypeID(reference), CFDictionaryGetTypeID());
    SInt64 index = 0;
    EXPECT_TRUE(
        CFNumberGetValue(static_cast<CFNumberRef>(CFDictionaryGetValue(reference, CFSTR("CF$UID"))),
                         kCFNumberSInt64Type, &index));
    EXPECT_EQ(index, 5);
}

TEST(CFBundle, RefusesWhatIsNoCode) {
    const BundleFolder folder;
    folder.write("X.plug/Contents/Info.plist", plugInInfo());
    folder.write("X.plug/Contents/Linux/X", "no code");
    const auto bundle = folder.open("X.plug");
    EXPECT_FALSE(CFBundleLoadExecutable(bundle.get()));
    EXPECT_FALSE(CFBundleIsExecutableLoaded(bundle.get()));
}

TEST(CFBundle, ListHoldsObjectsOfEveryType) {
    const BundleFolder folder;
    folder.write("X.plug/Info.plist",
                 "<plist version=\"1.0\"><dict><key>s</key><string>caf\u00E9</string>"
                 "<key>i</key><integer>-5</integer><key>r</key><real>1.5</real><key>t</key><true/>"
                 "<key>f</key><false/><key>d</key><date>2001-01-02T00:00:00Z</date>"
                 "<key>b</key><data>AQID</data>"
                 "<key>a</key><array><string>x</string><dict/></array></dict></plist>");
    const auto bundle = folder.open("X.plug");
    const auto value = [&](CFStringRef key) {
        return CFBundleGetValueForInfoDictionaryKey(bundle.get(), key);
    };
    EXPECT_EQ(utf8Of(static_cast<CFStringRef>(value(CFSTR("s")))), "caf\u00E9");
    SInt32 integer = 0;
    EXPECT_TRUE(CFNumberGetValue(static_cast<CFNumberRef>(value(CFSTR("i"))), kCFNumberSInt32Type,
                                 &integer));
    EXPECT_EQ(integer, -5);
    double real = 0;
    CFNumberGetValue(static_cast<CFNumberRef>(value(CFSTR("r"))), kCFNumberDoubleType, &real);
    EXPECT_EQ(real, 1.5);
    EXPECT_EQ(value(CFSTR("t")), kCFBooleanTrue);
    EXPECT_EQ(value(CFSTR("f")), kCFBooleanFalse);
    EXPECT_EQ(CFDateGetAbsoluteTime(static_cast<CFDateRef>(value(CFSTR("d")))), 86400);
    EXPECT_EQ(CFDataGetLength(static_cast<CFDataRef>(value(CFSTR("b")))), 3);
    const auto array = static_cast<CFArrayRef>(value(CFSTR("a")));
    ASSERT_EQ(CFArrayGetCount(array), 2);
    EXPECT_EQ(CFGetTypeID(CFArrayGetValueAtIndex(array, 1)), CFDictionaryGetTypeID());
    EXPECT_EQ(value(CFSTR("missing")), nullptr);
    EXPECT_EQ(value(nullptr), nullptr);
}

/// A binary list of a dictionary whose value is an array of the same array twice, and so on:
/// `depth` levels that would be two to the power of that many objects if each were made for itself.
std::string doublingList(int depth) {
    std::string list = "bplist00";
    std::vector<std::size_t> offsets = {list.size()};
    list += "\xD1\x01\x02"sv;
    offsets.push_back(list.size());
    list += "Qk";
    for (int level = 0; level < depth; ++level) {
        offsets.push_back(list.size());
        const char next = static_cast<char>(level + 3);
        list += {'\xA2', next, next};
    }
    offsets.push_back(list.size());
    list += "\x10\x07";
    const std::size_t table = list.size();
    for (const std::size_t offset : offsets) {
        list += {static_cast<char>(offset >> 8), static_cast<char>(offset)};
    }
    list += "\0\0\0\0\0\0\x02\x01"sv;
    for (const std::size_t number : {offsets.size(), std::size_t{0}, table}) {
        list += "\0\0\0\0\0\0"sv;
        list += {static_cast<char>(number >> 8), static_cast<char>(number)};
    }
    return list;
}

TEST(CFBundle, WhatTheListSharesIsSharedObjects) {
    const BundleFolder folder;
    folder.write("X.plug/Info.plist", doublingList(100));
    const auto bundle = folder.open("X.plug");
    CFTypeRef value = CFBundleGetValueForInfoDictionaryKey(bundle.get(), CFSTR("k"));
    int depth = 0;
    while (value != nullptr && CFGetTypeID(value) == CFArrayGetTypeID()) {
        const auto array = static_cast<CFArrayRef>(value);
        ASSERT_EQ(CFArrayGetCount(array), 2);
        value = CFArrayGetValueAtIndex(array, 1);
        if (++depth < 100) {
            EXPECT_EQ(value, CFArrayGetValueAtIndex(array, 0)) << "made twice";
        }
    }
    EXPECT_EQ(depth, 100);
}

}  // namespace

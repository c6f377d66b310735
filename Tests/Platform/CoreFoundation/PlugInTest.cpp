#include "Platform/CoreFoundation/CFPlugIn.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cctype>
#include <string>
#include <thread>
#include <vector>

#include "Platform/CoreFoundation/CFPlugInCOM.h"
#include "Tests/Platform/CoreFoundation/BundleFolder.h"

namespace {

using test::BundleFolder;
using test::makeString;
using test::own;
using test::plugInInfo;
using test::Ref;

/// The table of the test plug-in's instances.
struct Table {
    IUNKNOWN_C_GUTS;
    Boolean (*getMetadata)(void* self, CFMutableDictionaryRef attributes, CFStringRef type,
                           CFStringRef path);
};

const Table& tableOf(void* instance) {
    return **static_cast<const Table**>(instance);
}

Ref<CFUUIDRef> makeUUID(const char* text) {
    return own(CFUUIDCreateFromString(nullptr, makeString(text).get()));
}

void* createInstance() {
    return CFPlugInInstanceCreate(kCFAllocatorDefault, TEST_PLUGIN_FACTORY_UUID,
                                  TEST_PLUGIN_TYPE_UUID);
}

ULONG release(void* instance) {
    return tableOf(instance).Release(instance);
}

bool isMapped(const BundleFolder& folder, const char* executable) {
    void* const handle = dlopen(folder.path(executable).c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (handle != nullptr) {
        dlclose(handle);
    }
    return handle != nullptr;
}

constexpr char kExecutable[] = "X.plug/Contents/Linux/X";

/// Unloading any bundle unloads what is due.
void unloadAnotherBundle(const BundleFolder& folder) {
    folder.write("Other.bundle/Info.plist", "<plist version=\"1.0\"><dict/></plist>");
    CFBundleUnloadExecutable(folder.open("Other.bundle").get());
}

TEST(CFPlugIn, ServesAHostFromOpeningToUnloading) {
    const BundleFolder folder;
    folder.makePlugIn("X.plug");
    auto plugIn = folder.open("X.plug");
    ASSERT_NE(plugIn, nullptr);
    EXPECT_TRUE(CFPlugInIsLoadOnDemand(plugIn.get()));
    const auto factories =
        own(CFPlugInFindFactoriesForPlugInTypeInPlugIn(TEST_PLUGIN_TYPE_UUID, plugIn.get()));
    ASSERT_NE(factories, nullptr);
    ASSERT_EQ(CFArrayGetCount(factories.get()), 1);
    EXPECT_EQ(CFArrayGetValueAtIndex(factories.get(), 0), TEST_PLUGIN_FACTORY_UUID);
    EXPECT_FALSE(CFBundleIsExecutableLoaded(CFPlugInGetBundle(plugIn.get()))) << "loads too early";

    void* const instance = createInstance();
    ASSERT_NE(instance, nullptr);
    EXPECT_TRUE(CFBundleIsExecutableLoaded(plugIn.get()));
    void* interface = nullptr;
    ASSERT_EQ(tableOf(instance).QueryInterface(instance, CFUUIDGetUUIDBytes(TEST_PLUGIN_INTERFACE),
                                               &interface),
              S_OK);
    EXPECT_EQ(release(instance), 1u);
    const auto attributes = own(CFDictionaryCreateMutable(
        nullptr, 0, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
    const auto path = makeString("/tmp/caf\u00E9");
    EXPECT_TRUE(tableOf(interface).getMetadata(interface, attributes.get(), CFSTR("public.data"),
                                               path.get()));
    EXPECT_EQ(CFDictionaryGetValue(attributes.get(), CFSTR("kMDItemPath")), path.get());
    EXPECT_EQ(release(interface), 0u);

    EXPECT_TRUE(isMapped(folder, kExecutable)) << "gone inside the release";
    unloadAnotherBundle(folder);
    EXPECT_FALSE(isMapped(folder, kExecutable));
    EXPECT_FALSE(CFBundleIsExecutableLoaded(plugIn.get()));
}

TEST(CFPlugIn, AnswersOnlyInterfacesItHas) {
    const BundleFolder folder;
    folder.makePlugIn("X.plug");
    const auto plugIn = folder.open("X.plug");
    void* const instance = createInstance();
    ASSERT_NE(instance, nullptr);
    void* interface = &interface;
    EXPECT_EQ(tableOf(instance).QueryInterface(
                  instance, CFUUIDGetUUIDBytes(TEST_PLUGIN_FACTORY_UUID), &interface),
              E_NOINTERFACE);
    EXPECT_EQ(interface, nullptr);
    EXPECT_EQ(
        tableOf(instance).QueryInterface(instance, CFUUIDGetUUIDBytes(IUnknownUUID), &interface),
        S_OK);
    EXPECT_EQ(tableOf(instance)._reserved, nullptr);
    release(interface);
    release(instance);
    CFBundleUnloadExecutable(plugIn.get());
}

struct NoInstanceRow {
    const char* name;
    std::string info;
    const char* factory;
    const char* type;
    bool loads;
};

constexpr char kOther[] = "00000000-1111-2222-3333-444444444444";

const NoInstanceRow kNoInstanceRows[] = {
    {"unknown factory", plugInInfo(), kOther, TEST_PLUGIN_TYPE, false},
    {"foreign type", plugInInfo(), TEST_PLUGIN_FACTORY, kOther, false},
    {"function that is not there", plugInInfo("", "NoSuchFunction"), TEST_PLUGIN_FACTORY,
     TEST_PLUGIN_TYPE, true},
    {"executable that is not there", plugInInfo("<key>CFBundleExecutable</key><string>Z</string>"),
     TEST_PLUGIN_FACTORY, TEST_PLUGIN_TYPE, false},
};

TEST(CFPlugIn, AnswersNullWithoutAnInstance) {
    for (const NoInstanceRow& row : kNoInstanceRows) {
        SCOPED_TRACE(row.name);
        const BundleFolder folder;
        folder.makePlugIn("X.plug", row.info);
        const auto plugIn = folder.open("X.plug");
        EXPECT_EQ(
            CFPlugInInstanceCreate(nullptr, makeUUID(row.factory).get(), makeUUID(row.type).get()),
            nullptr);
        EXPECT_EQ(CFBundleIsExecutableLoaded(plugIn.get()), row.loads);
        CFBundleUnloadExecutable(plugIn.get());
        EXPECT_FALSE(CFBundleIsExecutableLoaded(plugIn.get()));
    }
}

std::string info(const std::string& factories, const std::string& types,
                 const std::string& registration = "<string>NO</string>") {
    return "<plist version=\"1.0\"><dict><key>CFPlugInDynamicRegistration</key>" + registration +
           factories + types + "</dict></plist>";
}

std::string factoryEntry(const std::string& uuid, const std::string& function) {
    return "<key>CFPlugInFactories</key><dict><key>" + uuid + "</key><string>" + function +
           "</string></dict>";
}

std::string typeEntry(const std::string& value) {
    return "<key>CFPlugInTypes</key><dict><key>" TEST_PLUGIN_TYPE "</key>" + value + "</dict>";
}

std::string lowerCase(std::string text) {
    for (char& c : text) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return text;
}

/// A list whose type names another factory `count` times before it names the test's own.
std::string infoOfManyNames(int count) {
    const std::string other = kOther;
    std::string names;
    for (int i = 0; i < count; ++i) {
        names += "<string>" + other + "</string>";
    }
    return info("<key>CFPlugInFactories</key><dict><key>" + other +
                    "</key><string>G</string><key>" TEST_PLUGIN_FACTORY
                    "</key><string>F</string></dict>",
                typeEntry("<array>" + names + "<string>" TEST_PLUGIN_FACTORY "</string></array>"));
}

struct RegistrationRow {
    const char* name;
    std::string info;
    CFIndex factories;
    bool onDemand;
};

const std::string kFactory = factoryEntry(TEST_PLUGIN_FACTORY, "F");
const std::string kTemplate =
    factoryEntry("00000000-0000-0000-0000-000000000000", "MyFactoryFunction");

const RegistrationRow kRegistrationRows[] = {
    {"array of one",
     info(kFactory, typeEntry("<array><string>" TEST_PLUGIN_FACTORY "</string></array>")), 1, true},
    {"single string", info(kFactory, typeEntry("<string>" TEST_PLUGIN_FACTORY "</string>")), 1,
     true},
    {"lower case",
     info(factoryEntry(lowerCase(TEST_PLUGIN_FACTORY), "F"),
          typeEntry("<string>" + lowerCase(TEST_PLUGIN_FACTORY) + "</string>")),
     1, true},
    {"text beyond ASCII after the digits",
     info(factoryEntry(TEST_PLUGIN_FACTORY "\u00E9", "F"),
          typeEntry("<string>" TEST_PLUGIN_FACTORY "\u2026</string>")),
     1, true},
    {"named behind more factories than a plug-in may name", infoOfManyNames(10000), 1, true},
    {"named as the last that a plug-in may name", infoOfManyNames(9999), 2, true},
    {"named twice",
     info(kFactory, typeEntry("<array><string>" TEST_PLUGIN_FACTORY
                              "</string><string>" TEST_PLUGIN_FACTORY "</string></array>")),
     1, true},
    {"no types", info(kFactory, ""), 0, true},
    {"type without its factory", info(kFactory, typeEntry("<string>1234</string>")), 0, true},
    {"types of a wrong kind", info(kFactory, typeEntry("<integer>5</integer>")), 0, true},
    {"factories of a wrong kind",
     info("<key>CFPlugInFactories</key><string>F</string>",
          typeEntry("<string>" TEST_PLUGIN_FACTORY "</string>")),
     0, false},
    {"function of a wrong kind",
     info("<key>CFPlugInFactories</key><dict><key>" TEST_PLUGIN_FACTORY "</key><true/></dict>",
          typeEntry("<string>" TEST_PLUGIN_FACTORY "</string>")),
     0, false},
    {"a template's leavings",
     info(kTemplate, typeEntry("<string>00000000-0000-0000-0000-"
                               "000000000000</string>")),
     0, false},
    {"registers itself", info(kFactory, "", "<string>yes</string>"), 0, false},
    {"true is not YES", info(kFactory, "", "<true/>"), 0, true},
};

TEST(CFPlugIn, RegistersWhatTheListDeclares) {
    for (const RegistrationRow& row : kRegistrationRows) {
        SCOPED_TRACE(row.name);
        const BundleFolder folder;
        folder.write("X.plug/Info.plist", row.info);
        const auto plugIn = folder.open("X.plug");
        const auto all = own(CFPlugInFindFactoriesForPlugInType(TEST_PLUGIN_TYPE_UUID));
        const auto inPlugIn =
            own(CFPlugInFindFactoriesForPlugInTypeInPlugIn(TEST_PLUGIN_TYPE_UUID, plugIn.get()));
        EXPECT_EQ(all ? CFArrayGetCount(all.get()) : 0, row.factories);
        EXPECT_EQ(all == nullptr, row.factories == 0) << "none is NULL, not an empty array";
        EXPECT_EQ(inPlugIn == nullptr, row.factories == 0);
        EXPECT_EQ(CFPlugInIsLoadOnDemand(plugIn.get()), row.onDemand);
    }
    EXPECT_EQ(CFPlugInFindFactoriesForPlugInType(TEST_PLUGIN_TYPE_UUID), nullptr)
        << "factories stay behind their bundles";
}

TEST(CFPlugIn, AFactoryBelongsToOneBundle) {
    const BundleFolder folder;
    folder.makePlugIn("X.plug");
    folder.makePlugIn("Y.plug");
    auto first = folder.open("X.plug");
    EXPECT_EQ(folder.open("Y.plug"), nullptr);
    EXPECT_EQ(folder.open("X.plug"), first);
    first.reset();
    EXPECT_NE(folder.open("Y.plug"), nullptr) << "the first bundle has gone";
}

TEST(CFPlugIn, AnInstanceKeepsItsBundleAndCode) {
    const BundleFolder folder;
    folder.makePlugIn("X.plug");
    auto plugIn = folder.open("X.plug");
    void* const instance = createInstance();
    ASSERT_NE(instance, nullptr);
    CFBundleUnloadExecutable(plugIn.get());
    EXPECT_TRUE(CFBundleIsExecutableLoaded(plugIn.get()));
    plugIn.reset();
    unloadAnotherBundle(folder);
    EXPECT_TRUE(isMapped(folder, kExecutable));
    EXPECT_EQ(release(instance), 0u) << "the last owner of the bundle goes with it";
    EXPECT_TRUE(isMapped(folder, kExecutable)) << "gone inside the release";
    unloadAnotherBundle(folder);
    EXPECT_FALSE(isMapped(folder, kExecutable));
}

TEST(CFPlugIn, LoadsAgainAfterUnloading) {
    const BundleFolder folder;
    folder.makePlugIn("X.plug");
    const auto plugIn = folder.open("X.plug");
    for (int round = 0; round < 3; ++round) {
        void* const instance = createInstance();
        ASSERT_NE(instance, nullptr);
        release(instance);
        CFBundleUnloadExecutable(plugIn.get());
        EXPECT_FALSE(isMapped(folder, kExecutable));
    }
}

TEST(CFPlugIn, IgnoresInstancesOfUnknownFactoriesAndSecondRemovals) {
    const BundleFolder folder;
    folder.makePlugIn("X.plug");
    const auto plugIn = folder.open("X.plug");
    const auto unknown = makeUUID(kOther);
    CFPlugInAddInstanceForFactory(unknown.get());
    CFPlugInRemoveInstanceForFactory(unknown.get());
    CFPlugInAddInstanceForFactory(TEST_PLUGIN_FACTORY_UUID);
    EXPECT_EQ(CFGetRetainCount(plugIn.get()), 2);
    CFPlugInRemoveInstanceForFactory(TEST_PLUGIN_FACTORY_UUID);
    CFPlugInRemoveInstanceForFactory(TEST_PLUGIN_FACTORY_UUID);
    EXPECT_EQ(CFGetRetainCount(plugIn.get()), 1);
}

TEST(CFPlugIn, ServesManyThreads) {
    const BundleFolder folder;
    folder.makePlugIn("X.plug");
    std::vector<std::thread> threads;
    std::atomic<int> failures = 0;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < 50; ++round) {
                const auto plugIn = folder.open("X.plug");
                void* const instance = createInstance();
                failures += instance == nullptr;
                if (instance != nullptr) {
                    release(instance);
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(failures, 0);
    unloadAnotherBundle(folder);
    EXPECT_FALSE(isMapped(folder, kExecutable));
}

}  // namespace

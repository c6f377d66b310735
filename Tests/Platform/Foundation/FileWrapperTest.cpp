#include "Platform/Foundation/FileWrapper.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "Platform/Foundation/Exception.h"

namespace platform {
namespace {

using Wrapper = std::shared_ptr<FileWrapper>;

Wrapper unnamedFile(std::string_view contents = "") {
    return FileWrapper::initRegularFileWithContents(Data::copyOf(contents));
}

Wrapper file(std::string name) {
    Wrapper wrapper = unnamedFile();
    wrapper->setPreferredFilename(std::move(name));
    return wrapper;
}

Wrapper folder(std::vector<FileWrapperEntry> children = {}) {
    return FileWrapper::initDirectoryWithFileWrappers(std::move(children));
}

std::vector<std::string> keys(const Wrapper& wrapper) {
    std::vector<std::string> keys;
    for (const auto& [key, child] : wrapper->fileWrappers()) {
        keys.push_back(key);
    }
    return keys;
}

using Keys = std::vector<std::string>;

TEST(FileWrapper, IsOfOneKind) {
    const struct {
        const char* name;
        Wrapper wrapper;
        bool isFile, isFolder, isLink;
    } kRows[] = {
        {"file", unnamedFile(), true, false, false},
        {"folder", folder(), false, true, false},
        {"link", FileWrapper::initSymbolicLinkWithDestination("/a"), false, false, true},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.wrapper->isRegularFile(), row.isFile);
        EXPECT_EQ(row.wrapper->isDirectory(), row.isFolder);
        EXPECT_EQ(row.wrapper->isSymbolicLink(), row.isLink);
        EXPECT_EQ(row.wrapper->filename(), std::nullopt);
        EXPECT_EQ(row.wrapper->preferredFilename(), std::nullopt);
        EXPECT_EQ(row.wrapper->contentFilePath(), std::nullopt);
        EXPECT_EQ(row.wrapper->serializedRepresentation().has_value(), !row.isLink);
    }
    EXPECT_EQ(unnamedFile("bytes")->regularFileContents(), Data::copyOf("bytes"));
    EXPECT_EQ(kRows[2].wrapper->symbolicLinkDestination(), "/a");
}

TEST(FileWrapper, MessageForAnotherKindRaises) {
    const Wrapper aFile = unnamedFile();
    const Wrapper aFolder = folder();
    const Wrapper aLink = FileWrapper::initSymbolicLinkWithDestination("/a");
    const struct {
        const char* name;
        std::function<void()> message;
    } kRows[] = {
        {"contents of a folder",
         [&] {
             (void)aFolder->regularFileContents();
         }},
        {"contents of a link",
         [&] {
             (void)aLink->regularFileContents();
         }},
        {"destination of a file",
         [&] {
             (void)aFile->symbolicLinkDestination();
         }},
        {"destination of a folder",
         [&] {
             (void)aFolder->symbolicLinkDestination();
         }},
        {"children of a file",
         [&] {
             (void)aFile->fileWrappers();
         }},
        {"children of a link",
         [&] {
             (void)aLink->fileWrappers();
         }},
        {"adding to a file",
         [&] {
             aFile->addFileWrapper(file("a"));
         }},
        {"removing from a link",
         [&] {
             aLink->removeFileWrapper(aFile);
         }},
        {"a key of a file",
         [&] {
             (void)aFile->keyForFileWrapper(aFolder);
         }},
        {"a child of a file",
         [&] {
             (void)aFile->fileWrapperForKey("a");
         }},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_THROW(row.message(), InternalInconsistencyException);
    }
}

TEST(FileWrapper, EmptyNamesRaise) {
    const Wrapper wrapper = file("a");
    EXPECT_THROW(wrapper->setFilename(""), InternalInconsistencyException);
    EXPECT_THROW(wrapper->setPreferredFilename(""), InternalInconsistencyException);
    EXPECT_EQ(wrapper->filename(), std::nullopt);
    EXPECT_EQ(wrapper->preferredFilename(), "a");
    wrapper->setFilename("b");
    EXPECT_EQ(wrapper->filename(), "b");
}

TEST(FileWrapper, FolderTakesKeysAsGivenAndNamesTheNameless) {
    const Wrapper named = file("name");
    const Wrapper nameless = unnamedFile();
    const Wrapper parent = folder({{"key", named}, {"other", nameless}});
    EXPECT_EQ(keys(parent), (Keys{"key", "other"}));
    EXPECT_EQ(named->preferredFilename(), "name");
    EXPECT_EQ(nameless->preferredFilename(), "other");
    EXPECT_EQ(parent->keyForFileWrapper(named), "key");
    EXPECT_EQ(parent->fileWrapperForKey("other"), nameless);
    EXPECT_EQ(parent->fileWrapperForKey("name"), nullptr);
}

TEST(FileWrapper, FolderRefusesChildrenThatItCannotKeep) {
    EXPECT_THROW((void)folder({{"a", nullptr}}), InvalidArgumentException);
    EXPECT_THROW((void)folder({{"", file("a")}}), InvalidArgumentException);
    EXPECT_THROW((void)folder({{"a", file("a")}, {"a", file("b")}}), InvalidArgumentException);
    const Wrapper parent = folder();
    EXPECT_THROW(parent->addFileWrapper(nullptr), InvalidArgumentException);
    EXPECT_THROW(parent->addFileWrapper(unnamedFile()), InvalidArgumentException);
    parent->setPreferredFilename("a");
    EXPECT_THROW(parent->addFileWrapper(parent), InvalidArgumentException);
    EXPECT_TRUE(parent->fileWrappers().empty());
}

TEST(FileWrapper, AddingGivesTheFirstFreeKey) {
    const Wrapper parent = folder();
    EXPECT_EQ(parent->addFileWrapper(file("image.png")), "image.png");
    const Wrapper second = file("image.png");
    EXPECT_EQ(parent->addFileWrapper(second), "1__#$!@%!#__image.png");
    EXPECT_EQ(parent->addFileWrapper(file("image.png")), "2__#$!@%!#__image.png");
    EXPECT_EQ(second->preferredFilename(), "image.png");
    parent->removeFileWrapper(second);
    EXPECT_EQ(parent->addFileWrapper(second), "1__#$!@%!#__image.png");
    EXPECT_EQ(keys(parent), (Keys{"image.png", "2__#$!@%!#__image.png", "1__#$!@%!#__image.png"}));
}

TEST(FileWrapper, RemovingComparesByIdentity) {
    const Wrapper child = file("a");
    const Wrapper parent = folder({{"a", child}, {"b", child}, {"c", file("a")}});
    parent->removeFileWrapper(file("a"));
    EXPECT_EQ(keys(parent), (Keys{"a", "b", "c"}));
    parent->removeFileWrapper(nullptr);
    parent->removeFileWrapper(child);
    EXPECT_EQ(keys(parent), Keys{"c"});
    EXPECT_EQ(parent->keyForFileWrapper(child), std::nullopt);
    EXPECT_EQ(parent->keyForFileWrapper(nullptr), std::nullopt);
}

TEST(FileWrapper, RemovingTheEntryOnesArgumentStandsIn) {
    const Wrapper parent = folder({{"a", file("a")}});
    parent->removeFileWrapper(parent->fileWrappers().begin()->child);
    EXPECT_TRUE(parent->fileWrappers().empty());
}

TEST(FileWrapper, NewPreferredNameIsTakenOverByAllFolders) {
    const Wrapper child = file("a");
    const Wrapper first = folder();
    first->addFileWrapper(child);
    first->addFileWrapper(file("b"));
    const Wrapper second = folder({{"key", child}});
    Wrapper third = folder({{"a", child}});
    third.reset();
    child->setPreferredFilename("b");
    EXPECT_EQ(keys(first), (Keys{"b", "1__#$!@%!#__b"}));
    EXPECT_EQ(first->keyForFileWrapper(child), "1__#$!@%!#__b");
    EXPECT_EQ(keys(second), Keys{"b"});
    first->removeFileWrapper(child);
    child->setPreferredFilename("c");
    EXPECT_EQ(keys(first), Keys{"b"}) << "no folder of it any more";
    EXPECT_EQ(keys(second), Keys{"c"});
}

// A folder as an archive would be one: it decides itself under which key a child is stored.
class UpperCaseFolder : public FileWrapper {
public:
    explicit UpperCaseFolder(Creation creation) : FileWrapper(creation) {}

    static std::shared_ptr<UpperCaseFolder> init() {
        auto wrapper = std::make_shared<UpperCaseFolder>(Creation());
        wrapper->initDirectory();
        // Initialisers run on an object that is shared already.
        wrapper->addFileWrapper(file("first"));
        return wrapper;
    }

    std::string addFileWrapper(Wrapper child) override {
        std::string name = *child->preferredFilename();
        name.front() = 'X';
        child->setPreferredFilename(name);
        return FileWrapper::addFileWrapper(std::move(child));
    }
};

TEST(FileWrapper, DerivedFolderStoresUnderAnotherKey) {
    const auto parent = UpperCaseFolder::init();
    EXPECT_EQ(keys(parent), Keys{"Xirst"});
    const Wrapper child = parent->fileWrapperForKey("Xirst");
    child->setPreferredFilename("second");
    EXPECT_EQ(keys(parent), Keys{"Xecond"}) << "the new name takes the same way";
    EXPECT_EQ(parent->keyForFileWrapper(child), "Xecond");
}

TEST(FileWrapper, WrapperOfNoKindYetAnswersNoMessage) {
    struct Unfinished : FileWrapper {
        explicit Unfinished(Creation creation) : FileWrapper(creation) {}
        static Wrapper make() { return std::make_shared<Unfinished>(Creation()); }
    };
    const Wrapper wrapper = Unfinished::make();
    EXPECT_FALSE(wrapper->isRegularFile() || wrapper->isDirectory() || wrapper->isSymbolicLink());
    EXPECT_THROW((void)wrapper->regularFileContents(), InternalInconsistencyException);
    EXPECT_THROW((void)wrapper->fileWrappers(), InternalInconsistencyException);
}

TEST(FileWrapper, DeepTreesEndWithoutDeepCalls) {
    for (const int depth : {2000, 100'000}) {
        Wrapper tree = folder();
        const std::weak_ptr<FileWrapper> innermost = tree;
        for (int i = 0; i < depth; ++i) {
            tree = folder({{"inner", std::move(tree)}});
        }
        tree.reset();
        EXPECT_TRUE(innermost.expired());
    }
}

TEST(FileWrapper, WhatOthersHoldOutlivesTheTree) {
    const Wrapper kept = folder({{"leaf", file("leaf")}});
    Wrapper tree = folder({{"middle", folder({{"kept", kept}})}});
    tree.reset();
    EXPECT_EQ(keys(kept), Keys{"leaf"});
    kept->setPreferredFilename("free");
    EXPECT_EQ(kept->preferredFilename(), "free");
}

TEST(FileWrapper, ManyChildrenOfOneNameAreAddedAndRenamedOneByOne) {
    constexpr int kCount = 10'000;
    const Wrapper parent = folder();
    std::vector<Wrapper> children;
    for (int i = 0; i < kCount; ++i) {
        children.push_back(file("image.png"));
        parent->addFileWrapper(children.back());
    }
    EXPECT_EQ(parent->keyForFileWrapper(children.back()), "9999__#$!@%!#__image.png");
    for (const Wrapper& child : children) {
        child->setPreferredFilename("photo.jpg");
    }
    EXPECT_EQ(parent->fileWrappers().size(), static_cast<std::size_t>(kCount));
    EXPECT_EQ(parent->fileWrappers().begin()->key, "photo.jpg");
    EXPECT_EQ(parent->keyForFileWrapper(children.back()), "9999__#$!@%!#__photo.jpg");
    for (const Wrapper& child : children) {
        parent->removeFileWrapper(child);
    }
    EXPECT_TRUE(parent->fileWrappers().empty());
}

}  // namespace
}  // namespace platform

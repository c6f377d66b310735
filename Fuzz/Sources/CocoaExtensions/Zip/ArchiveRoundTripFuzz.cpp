// Trees of files, written as archives and read back.
//
// The first byte is the level, the others describe the tree: a file or folder with its name, what a
// file holds, and the ends of folders.

#include <array>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "Fuzz/Support/Input.h"
#include "Fuzz/Support/MemoryFile.h"
#include "Platform/Foundation/FileManager.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"

namespace {

using parlavox::ZipWrapper;
using platform::Data;
using platform::FileWrapper;
using platform::FileWrapperEntry;
using Tree = std::map<std::string, std::string>;

constexpr std::uint8_t kLevels = 10;
constexpr unsigned kDeepestFolder = 40;
constexpr std::size_t kMostBytes = 1U << 16U;

/// Takes the input apart; it goes on with zeros where the input ends.
class Description {
public:
    explicit Description(std::string_view bytes) : bytes_(bytes) {}

    [[nodiscard]] bool isAtEnd() const { return bytes_.empty(); }

    std::uint8_t byte() {
        const std::string first = bytes(1);
        return first.empty() ? 0 : static_cast<std::uint8_t>(first.front());
    }

    std::string bytes(std::size_t count) {
        std::string first(bytes_.substr(0, count));
        bytes_.remove_prefix(first.size());
        return first;
    }

private:
    std::string_view bytes_;
};

/// Makes the tree and takes down what a reader must find of it.
class TreeMaker {
public:
    explicit TreeMaker(std::string_view bytes) : description_(bytes) {}

    std::vector<FileWrapperEntry> children(const std::string& path, unsigned depth) {
        std::vector<FileWrapperEntry> children;
        std::set<std::string> taken;
        while (!description_.isAtEnd()) {
            const std::uint8_t step = description_.byte();
            if (step % 4 == 0) {
                return children;
            }
            std::string name = freeName(taken);
            if (step % 4 == 1 && depth < kDeepestFolder) {
                expected[path + name + '/'];
                auto below = this->children(path + name + '/', depth + 1);
                children.push_back(
                    {name, FileWrapper::initDirectoryWithFileWrappers(std::move(below))});
            } else {
                children.push_back({name, file(path + name)});
            }
        }
        return children;
    }

    Tree expected;
    bool hasEmptyFiles = false;

private:
    std::string freeName(std::set<std::string>& taken) {
        static constexpr std::array kNames{"a", "text.plist", "\xC3\xA4", "\xE7\x81\xAF",
                                           " ", ".x",         "a\\b",     "PK\x05\x06"};
        std::string name = kNames[description_.byte() % kNames.size()];
        while (!taken.insert(name).second) {
            name += '+';
        }
        return name;
    }

    std::shared_ptr<FileWrapper> file(const std::string& path) {
        const std::string part = description_.bytes(description_.byte());
        const std::size_t times = 1 + std::size_t{description_.byte()} * 4;
        std::string contents;
        for (std::size_t i = 0; i < times && size_ + part.size() <= kMostBytes; ++i) {
            contents += part;
            size_ += part.size();
        }
        if (contents.empty()) {
            hasEmptyFiles = true;
        } else {
            expected[path] = contents;
        }
        return FileWrapper::initRegularFileWithContents(Data::copyOf(contents));
    }

    Description description_;
    std::size_t size_ = 0;
};

class OneLevel final : public parlavox::ZipWrapperDelegate {
public:
    explicit OneLevel(std::uint32_t level) : level_(level) {}

    std::optional<std::uint32_t> compressLevelForFileWrapper(
        const std::shared_ptr<FileWrapper>& wrapper, const ZipWrapper&) override {
        return wrapper->regularFileContents()->empty() ? 0 : level_;
    }

private:
    std::uint32_t level_;
};

Tree treeOf(const FileWrapper& folder, const std::string& path = "") {
    Tree tree;
    for (const auto& [key, child] : folder.fileWrappers()) {
        if (child->isDirectory()) {
            tree[path + key + '/'];
            tree.merge(treeOf(*child, path + key + '/'));
        } else {
            tree[path + key] = child->regularFileContents()->view();
        }
    }
    return tree;
}

Data written(ZipWrapper& archive, std::uint32_t level) {
    const fuzz::MemoryFile file({});
    archive.setDelegate(std::make_shared<OneLevel>(level));
    fuzz::expect(
        archive.writeToFile(file.path(), platform::Atomically::No, platform::UpdateFilenames::No),
        "a tree is written");
    return *platform::FileManager::defaultManager().contentsAtPath(file.path());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    if (size < 1) {
        return 0;
    }
    const std::uint32_t level = bytes[0] % kLevels;
    TreeMaker maker({reinterpret_cast<const char*>(bytes) + 1, size - 1});
    const auto made = ZipWrapper::initDirectoryWithFileWrappers(maker.children("", 0));
    const Data archive = written(*made, level);
    const auto read = ZipWrapper::initRegularFileWithContents(archive);
    fuzz::expect(read != nullptr, "what was written is read");
    fuzz::expect(treeOf(*read) == maker.expected, "all but empty files come back");
    const Data again = written(*read, level);
    fuzz::expect(maker.hasEmptyFiles || again == archive, "what was read is written the same way");
    return 0;
}

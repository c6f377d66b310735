#include "Platform/Foundation/Bundle.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <utility>
#include <vector>

#include "Platform/Foundation/AssertionHandler.h"
#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/PropertyListSerialization.h"
#include "Platform/Foundation/Result.h"

namespace platform {
namespace {

// Far above any real Info.plist; a larger file is a mistake or an attack.
constexpr std::size_t kLargestInformation = 16u << 20;

bool isKind(const std::string& path, mode_t kind) {
    struct stat status = {};
    return ::stat(path.c_str(), &status) == 0 && (status.st_mode & S_IFMT) == kind;
}

std::string_view withoutSlashesAtEnd(std::string_view path) {
    while (path.size() > 1 && path.back() == '/') {
        path.remove_suffix(1);
    }
    return path;
}

Result<Data> readInformation(const std::string& path) {
    // O_NONBLOCK: a pipe in the file's place must not stop us.
    const FileDescriptor file = FileDescriptor::open(path, O_RDONLY | O_NONBLOCK);
    if (!file.isOpen()) {
        return Fault{FaultCode::System, "cannot be opened"};
    }
    std::vector<std::byte> bytes;
    std::array<std::byte, 8192> block;
    for (;;) {
        const std::int64_t count = file.readFully(block);
        if (count < 0) {
            return Fault{FaultCode::System, "cannot be read"};
        }
        if (count == 0) {
            return Data::adopt(std::move(bytes));
        }
        if (bytes.size() + static_cast<std::size_t>(count) > kLargestInformation) {
            return Fault{FaultCode::Unsupported, "larger than any information"};
        }
        bytes.insert(bytes.end(), block.begin(), block.begin() + count);
    }
}

Result<Dictionary> informationInFile(const std::string& path) {
    const Data bytes = PV_TRY(readInformation(path));
    const Value root = PV_TRY(PropertyListSerialization::propertyListWithData(bytes));
    if (const Dictionary* information = root.dictionary()) {
        return *information;
    }
    return Fault{FaultCode::Malformed, "holds no dictionary"};
}

Dictionary informationInFolder(const std::string& folder) {
    std::string path = folder + "/Contents/Info.plist";
    if (!isKind(path, S_IFREG)) {
        path = folder + "/Info.plist";
    }
    Result<Dictionary> information = informationInFile(path);
    if (!information) {
        noteFailure(path + ": " + information.fault().detail);
        return {};
    }
    return std::move(information).value();
}

/// The last component of `path` up to its last dot.
std::string nameWithoutExtension(std::string_view path) {
    const std::string_view name = path.substr(path.rfind('/') + 1);
    const std::size_t dot = name.rfind('.');
    return std::string(dot == 0 ? name : name.substr(0, dot));
}

bool isFileName(std::string_view name) {
    return !name.empty() && name.find_first_of(std::string_view("/\0", 2)) == std::string::npos;
}

/// The languages that the user wants, the best first: "de_AT", then "de", of the first variable
/// that says something.
std::vector<std::string> userLanguages() {
    std::vector<std::string> languages;
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* const locale = std::getenv(variable);  // NOLINT(concurrency-mt-unsafe)
        const std::string_view name = locale != nullptr ? locale : "";
        if (!name.empty()) {
            languages.emplace_back(name.substr(0, name.find_first_of(".@")));
            languages.emplace_back(name.substr(0, name.find_first_of("_.@")));
            break;
        }
    }
    languages.emplace_back("en");
    return languages;
}

/// The folders of a bundle that may hold its string tables, in the order of the search.
std::vector<std::string> tableFolders(const std::string& resources) {
    std::vector<std::string> folders;
    for (const std::string& language : userLanguages()) {
        if (isFileName(language)) {
            folders.push_back(resources + language + ".lproj/");
        }
    }
    folders.push_back(resources);
    return folders;
}

/// The folders of a bundle that may hold its code, in the order of the search.
std::span<const std::string_view> codeFolders(const std::string& bundlePath) {
    static constexpr std::string_view kDeep[] = {"/Contents/Linux/", "/Contents/", "/"};
    static constexpr std::string_view kFlat[] = {"/Linux/", "/"};
    if (isKind(bundlePath + "/Contents", S_IFDIR)) {
        return kDeep;
    }
    return kFlat;
}

}  // namespace

constinit std::atomic<const Bundle::MainBundle*> Bundle::namedMainBundle_ = nullptr;

Bundle::Bundle(PassKey, std::string path, Dictionary information)
    : path_(std::move(path)), information_(std::move(information)) {
}

std::shared_ptr<const Bundle> Bundle::bundleWithPath(std::string_view path) {
    std::string folder(withoutSlashesAtEnd(path));
    if (folder.find('\0') != std::string::npos || !isKind(folder, S_IFDIR)) {
        return nullptr;
    }
    Dictionary information = informationInFolder(folder);
    return std::make_shared<const Bundle>(PassKey(), std::move(folder), std::move(information));
}

std::shared_ptr<const Bundle> Bundle::mainBundle() {
    if (const MainBundle* named = namedMainBundle_.load(std::memory_order_acquire)) {
        return *named;
    }
    return std::make_shared<const Bundle>(PassKey(), std::string(), Dictionary());
}

void Bundle::setMainBundle(std::string_view identifier, std::string_view shortVersionString) {
    setMainBundle(std::make_shared<const Bundle>(
        PassKey(), std::string(),
        Dictionary{{"CFBundleIdentifier", Value::fromUtf8(identifier)},
                   {"CFBundleShortVersionString", Value::fromUtf8(shortVersionString)}}));
}

void Bundle::setMainBundle(std::shared_ptr<const Bundle> bundle) {
    if (!require(bundle != nullptr, "bundle != nil", {__FILE__, __LINE__})) {
        return;
    }
    auto named = std::make_unique<const MainBundle>(std::move(bundle));
    const MainBundle* before = nullptr;
    if (namedMainBundle_.compare_exchange_strong(before, named.get(), std::memory_order_release,
                                                 std::memory_order_relaxed)) {
        (void)named.release();
    }
    (void)require(before == nullptr, "the main bundle has no name yet", {__FILE__, __LINE__});
}

Value Bundle::objectForInfoDictionaryKey(std::string_view key) const {
    return information_[key];
}

std::optional<std::string> Bundle::bundleIdentifier() const {
    return information_["CFBundleIdentifier"].utf8();
}

std::string Bundle::localizedStringForKey(std::string_view key, std::string_view value,
                                          std::string_view table) const {
    std::string name(table.empty() ? "Localizable" : table);
    name += ".strings";
    if (!path_.empty() && isFileName(name)) {
        for (const std::string& folder : tableFolders(path_ + "/Contents/Resources/")) {
            const auto strings = informationInFile(folder + name);
            if (const auto found = strings ? strings.value()[key].utf8() : std::nullopt) {
                return *found;
            }
        }
    }
    return std::string(value.empty() ? key : value);
}

std::string Bundle::executableName() const {
    return information_["CFBundleExecutable"].utf8().value_or(nameWithoutExtension(path_));
}

std::optional<std::string> Bundle::executablePath() const {
    const std::string name = executableName();
    if (path_.empty() || !isFileName(name)) {
        return std::nullopt;
    }
    for (const std::string_view folder : codeFolders(path_)) {
        const std::string start = path_ + std::string(folder);
        for (const std::string& file : {name, "lib" + name + ".so"}) {
            if (isKind(start + file, S_IFREG)) {
                return start + file;
            }
        }
    }
    return std::nullopt;
}

}  // namespace platform

#include "Platform/Foundation/PathString.h"

#include <algorithm>
#include <cstddef>

#include "Platform/Foundation/Log.h"

namespace platform {
namespace {

constexpr char kSeparator = '/';

// The root keeps its separator.
std::string_view withoutTrailingSeparators(std::string_view path) {
    while (path.size() > 1 && path.back() == kSeparator) {
        path.remove_suffix(1);
    }
    return path;
}

// A part of the path itself, so that its place is known.
std::string_view lastComponent(std::string_view path) {
    path = withoutTrailingSeparators(path);
    if (path == "/") {
        return path;
    }
    return path.substr(path.rfind(kSeparator) + 1);
}

bool turnsTextDirection(std::string_view text) {
    // U+061C, U+200E, U+200F, U+202A to U+202E, U+2066 to U+2069.
    static constexpr std::string_view kControls[] = {
        "\xD8\x9C",     "\xE2\x80\x8E", "\xE2\x80\x8F", "\xE2\x80\xAA",
        "\xE2\x80\xAB", "\xE2\x80\xAC", "\xE2\x80\xAD", "\xE2\x80\xAE",
        "\xE2\x81\xA6", "\xE2\x81\xA7", "\xE2\x81\xA8", "\xE2\x81\xA9"};
    return std::any_of(
        std::begin(kControls), std::end(kControls),
        [text](std::string_view control) { return text.find(control) != std::string_view::npos; });
}

std::string_view extensionOf(std::string_view path) {
    const std::string_view name = lastComponent(path);
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos || dot == 0) {
        return {};
    }
    const std::string_view extension = name.substr(dot + 1);
    if (extension.find(' ') != std::string_view::npos || turnsTextDirection(extension)) {
        return {};
    }
    return extension;
}

}  // namespace

std::vector<std::string> pathComponents(std::string_view path) {
    std::vector<std::string> components;
    if (path.empty()) {
        return components;
    }
    if (path.front() == kSeparator) {
        components.emplace_back("/");
    }
    std::size_t at = 0;
    while ((at = path.find_first_not_of(kSeparator, at)) != std::string_view::npos) {
        const std::size_t end = std::min(path.find(kSeparator, at), path.size());
        components.emplace_back(path.substr(at, end - at));
        at = end;
    }
    const bool isRoot = withoutTrailingSeparators(path) == "/";
    if (path.back() == kSeparator && !isRoot) {
        components.emplace_back("/");
    }
    return components;
}

bool isPathComponent(std::string_view name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

std::string lastPathComponent(std::string_view path) {
    return std::string(lastComponent(path));
}

std::string pathExtension(std::string_view path) {
    return std::string(extensionOf(path));
}

std::string stringByAppendingPathComponent(std::string_view path, std::string_view component) {
    std::string joined;
    joined.reserve(path.size() + 1 + component.size());
    const auto append = [&joined](std::string_view part) {
        for (const char c : part) {
            if (c != kSeparator || joined.empty() || joined.back() != kSeparator) {
                joined += c;
            }
        }
    };
    append(path);
    if (!path.empty()) {
        append("/");
    }
    append(component);
    joined.resize(withoutTrailingSeparators(joined).size());
    return joined;
}

std::optional<std::string> stringByAppendingPathExtension(std::string_view path,
                                                          std::string_view extension) {
    const std::string_view base = withoutTrailingSeparators(path);
    if (base.empty() || base == "/" || extension.starts_with(kSeparator)) {
        log("cannot append extension '" + std::string(extension) + "' to path '" +
            std::string(path) + "'");
        return std::nullopt;
    }
    std::string result(base);
    result += '.';
    result += extension;
    return result;
}

std::string stringByDeletingPathExtension(std::string_view path) {
    std::string_view base = withoutTrailingSeparators(path);
    if (const std::size_t size = extensionOf(base).size(); size > 0) {
        base.remove_suffix(size + 1);
    }
    return std::string(base);
}

std::string stringByDeletingLastPathComponent(std::string_view path) {
    const std::string_view base = withoutTrailingSeparators(path);
    if (base == "/") {
        return std::string(base);
    }
    const std::string_view parent = base.substr(0, base.size() - lastComponent(base).size());
    return std::string(withoutTrailingSeparators(parent));
}

}  // namespace platform

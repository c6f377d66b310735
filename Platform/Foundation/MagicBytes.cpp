#include "Platform/Foundation/MagicBytes.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "Platform/Foundation/AsciiCase.h"
#include "Platform/Foundation/Unicode.h"

namespace platform {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16BigMark = "\xFE\xFF";
constexpr std::string_view kUtf16LittleMark = "\xFF\xFE";

// Where an archive names its entries: a header's signature, and in it the place of the name's
// length and the name itself.
struct EntryHeader {
    std::string_view signature;
    std::size_t lengthOffset;
    std::size_t nameOffset;
};
constexpr EntryHeader kEntryHeaders[] = {{"PK\3\4", 26, 30}, {"PK\1\2", 28, 46}};
constexpr std::string_view kPackageEntry = "contents.plist";

bool isNameOfHeader(std::string_view bytes, std::size_t position, const EntryHeader& header) {
    if (position < header.nameOffset) {
        return false;
    }
    const std::string_view from = bytes.substr(position - header.nameOffset);
    const auto low = static_cast<std::uint8_t>(from[header.lengthOffset]);
    const auto high = static_cast<std::uint8_t>(from[header.lengthOffset + 1]);
    return from.starts_with(header.signature) && low + 256u * high == kPackageEntry.size();
}

bool namesPackageEntry(std::string_view bytes) {
    for (std::size_t position = bytes.find(kPackageEntry); position != std::string_view::npos;
         position = bytes.find(kPackageEntry, position + 1)) {
        for (const EntryHeader& header : kEntryHeaders) {
            if (isNameOfHeader(bytes, position, header)) {
                return true;
            }
        }
    }
    return false;
}

bool startsIgnoringCase(std::string_view text, std::string_view start) {
    return platform::equalIgnoringAsciiCase(text.substr(0, start.size()), start);
}

bool isHtml(std::string_view bytes) {
    if (bytes.starts_with(kUtf8Mark)) {
        bytes.remove_prefix(kUtf8Mark.size());
    }
    bytes.remove_prefix(std::min(bytes.find_first_not_of(" \t\r\n\f"), bytes.size()));
    if (startsIgnoringCase(bytes, "<!doctype html")) {
        return true;
    }
    constexpr std::string_view kTag = "<html";
    return startsIgnoringCase(bytes, kTag) && bytes.size() > kTag.size() &&
           std::string_view("> \t\r\n\f/").find(bytes[kTag.size()]) != std::string_view::npos;
}

bool isControl(char16_t unit) {
    constexpr char16_t kNextLine = 0x85;
    const bool isSpace = (unit >= u'\t' && unit <= u'\r') || unit == kNextLine;
    return !isSpace && (unit < u' ' || (unit >= 0x7F && unit < 0xA0));
}

// Drops the beginning of a form that the end of the bytes cuts off.
std::string_view withoutCutForm(std::string_view bytes) {
    for (std::size_t count = 1; count <= std::min<std::size_t>(3, bytes.size()); ++count) {
        const auto lead = static_cast<std::uint8_t>(bytes[bytes.size() - count]);
        if (lead >= 0xC0) {
            const std::size_t length = lead > 0xF4 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
            return bytes.substr(0, bytes.size() - (length > count ? count : 0));
        }
    }
    return bytes;
}

bool isUtf8Text(std::string_view bytes, bool isWhole) {
    const auto text = platform::utf16FromUtf8(isWhole ? bytes : withoutCutForm(bytes));
    return text && std::none_of(text->begin(), text->end(), isControl);
}

bool isUtf16Text(std::string_view bytes, bool isWhole, bool isBigEndian) {
    std::u16string units;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto first = static_cast<std::uint8_t>(bytes[i]);
        const auto second = static_cast<std::uint8_t>(bytes[i + 1]);
        units.push_back(
            static_cast<char16_t>(isBigEndian ? first << 8 | second : second << 8 | first));
    }
    if (!isWhole && !units.empty() && platform::isHighSurrogate(units.back())) {
        units.pop_back();
    }
    bool wantsLow = false;
    for (const char16_t unit : units) {
        if (platform::isLowSurrogate(unit) != wantsLow || isControl(unit)) {
            return false;
        }
        wantsLow = platform::isHighSurrogate(unit);
    }
    return !wantsLow && (!isWhole || bytes.size() % 2 == 0);
}

bool isPlainText(std::string_view bytes) {
    const bool isWhole = bytes.size() < kMagicBytes;
    for (const std::string_view mark : {kUtf16BigMark, kUtf16LittleMark}) {
        if (bytes.starts_with(mark)) {
            return isUtf16Text(bytes.substr(mark.size()), isWhole, mark == kUtf16BigMark);
        }
    }
    return isUtf8Text(bytes, isWhole);
}

}  // namespace

std::string_view typeOfBytes(std::string_view beginning, std::string_view end) {
    if (beginning.starts_with("PK\3\4") &&
        (namesPackageEntry(beginning) || namesPackageEntry(end))) {
        return "com.brightmill.parlavox.parlavox";
    }
    if (beginning.starts_with("%PDF-")) {
        return "com.adobe.pdf";
    }
    if (beginning.starts_with("{\\rtf")) {
        return "public.rtf";
    }
    if (isHtml(beginning)) {
        return "public.html";
    }
    return isPlainText(beginning) ? "public.plain-text" : "public.data";
}

}  // namespace platform

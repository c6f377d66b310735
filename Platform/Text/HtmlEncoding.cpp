#include "Platform/Text/HtmlEncoding.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <utility>

#include "Platform/Foundation/AsciiCase.h"
#include "Platform/Foundation/Unicode.h"
#include "Platform/Foundation/WideText.h"
#include "Platform/Text/BareWideText.h"
#include "Platform/Text/CodePageConverter.h"
#include "Platform/Text/EncodingDetector.h"
#include "Platform/Text/HtmlEncodingLabels.h"
#include "Platform/Text/HtmlSkipping.h"
#include "Platform/Text/HtmlTag.h"
#include "Platform/Text/PlainText.h"
#include "Platform/Text/SingleByteCodePages.h"

namespace platform {
namespace {

/// Bytes of UTF-8 that one byte in another encoding becomes at most. Room that is not used costs
/// nothing.
constexpr std::size_t kMostUtf8ToByte = 3;

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

/// The value behind "`name` =" in a text, in quotes or up to a blank or semicolon.
std::string_view valueBehind(std::string_view text, std::string_view name) {
    for (; text.size() > name.size(); text.remove_prefix(1)) {
        if (!equalIgnoringAsciiCase(text.substr(0, name.size()), name)) {
            continue;
        }
        std::string_view rest = text.substr(name.size());
        rest.remove_prefix(std::min(rest.find_first_not_of(kHtmlBlanks), rest.size()));
        if (!rest.starts_with('=')) {
            continue;
        }
        rest.remove_prefix(1);
        rest.remove_prefix(std::min(rest.find_first_not_of(kHtmlBlanks), rest.size()));
        if (rest.starts_with('"') || rest.starts_with('\'')) {
            const std::size_t end = rest.find(rest.front(), 1);
            return end == std::string_view::npos ? std::string_view() : rest.substr(1, end - 1);
        }
        return rest.substr(0, rest.find_first_of(" \t\n\f\r;"));
    }
    return {};
}

const char* encodingOfMeta(const HtmlTag& tag) {
    if (const std::string_view* const charset = tag.valueOf("charset")) {
        return encodingOfHtmlLabel(*charset);
    }
    const std::string_view* const pragma = tag.valueOf("http-equiv");
    const std::string_view* const content = tag.valueOf("content");
    const bool isDeclaration =
        pragma != nullptr && content != nullptr && equalIgnoringAsciiCase(*pragma, "content-type");
    return isDeclaration ? encodingOfHtmlLabel(valueBehind(*content, "charset")) : nullptr;
}

const char* encodingOfXmlDeclaration(std::string_view page) {
    if (!page.starts_with("<?xml")) {
        return nullptr;
    }
    return encodingOfHtmlLabel(valueBehind(page.substr(0, page.find('>')), "encoding"));
}

bool isSoundUtf8(std::string_view bytes) {
    constexpr std::size_t kBlock = 64;
    while (!bytes.empty()) {
        const std::string_view block = bytes.substr(0, kBlock);
        std::size_t size = isAscii(block) ? block.size() : 0;
        while (size < block.size()) {
            const std::size_t form = utf8FormLength(bytes.substr(size));
            if (form == 0) {
                return false;
            }
            size += form;
        }
        bytes.remove_prefix(size);
    }
    return true;
}

/// Whether the first sign that is no blank begins a tag or declaration in bytes; one of UTF-16 has
/// NULs inside.
bool beginsWithMarkup(std::string_view bytes) {
    bytes.remove_prefix(std::min(bytes.find_first_not_of(kHtmlBlanks), bytes.size()));
    return startsHtmlTag(bytes) || bytes.starts_with("<!") || bytes.starts_with("<?");
}

Data dataOf(const std::u16string& text) {
    return Data::adopt(utf8FromUtf16(text));
}

/// The characters of the upper bytes where an encoding is one of Windows that has a byte for each;
/// empty for others.
std::u16string_view upperHalfOf(std::string_view encoding) {
    constexpr std::string_view kWindows = "windows-";
    int number = 0;
    if (encoding.starts_with(kWindows)) {
        std::from_chars(encoding.begin() + kWindows.size(), encoding.end(), number);
    }
    return upperHalfOfCodePage(number);
}

Data converted(std::string_view bytes, std::u16string_view upperHalf) {
    constexpr std::size_t kFirstUpper = 0x80;
    std::array<std::string, kFirstUpper> characters;
    for (std::size_t i = 0; i < kFirstUpper; ++i) {
        appendUtf8(characters[i], upperHalf[i]);
    }
    std::string text;
    text.reserve(kMostUtf8ToByte * bytes.size());
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < kFirstUpper) {
            text += byte;
        } else {
            text += characters[code - kFirstUpper];
        }
    }
    return Data::adopt(std::move(text));
}

Data converted(std::string_view bytes, CodePageConverter& converter) {
    // In pieces, so that the page is never there in UTF-16 as well.
    constexpr std::size_t kPiece = 65536;
    std::string text;
    text.reserve(kMostUtf8ToByte * bytes.size());
    std::u16string units;
    for (bool isLast = false; !isLast;) {
        const std::string_view piece = bytes.substr(0, kPiece);
        bytes.remove_prefix(piece.size());
        isLast = bytes.empty();
        units.clear();
        (void)converter.append(units, piece, isLast ? BytesFollow::No : BytesFollow::Yes);
        text += utf8FromUtf16(units);
    }
    return Data::adopt(std::move(text));
}

/// UTF-8 with U+FFFD for each byte that belongs to no form.
Data mended(std::string_view bytes) {
    std::string text;
    text.reserve(kMostUtf8ToByte * bytes.size());
    while (!bytes.empty()) {
        const std::size_t form = utf8FormLength(bytes);
        if (form == 0) {
            appendUtf8(text, kReplacementCharacter);
        } else {
            text += bytes.substr(0, form);
        }
        bytes.remove_prefix(std::max<std::size_t>(form, 1));
    }
    return Data::adopt(std::move(text));
}

}  // namespace

const char* declaredHtmlEncoding(std::string_view page) {
    constexpr std::size_t kSearched = 16384;
    page = page.substr(0, kSearched);
    if (const char* const encoding = encodingOfXmlDeclaration(page)) {
        return encoding;
    }
    HtmlTag tag;
    while (true) {
        page.remove_prefix(std::min(page.find('<'), page.size()));
        if (page.empty()) {
            return nullptr;
        }
        if (!startsHtmlTag(page)) {
            page.remove_prefix(std::max<std::size_t>(htmlCommentLength(page, HtmlSyntax::Html), 1));
            continue;
        }
        const std::size_t size = readHtmlTag(page, tag);
        page.remove_prefix(size == 0 ? page.size() : size);
        const char* const encoding = tag.name == "meta" && size > 0 ? encodingOfMeta(tag) : nullptr;
        if (encoding != nullptr) {
            return encoding;
        }
    }
}

Result<Data> utf8OfHtml(const Data& page) {
    const std::string_view bytes = page.view();
    if (bytes.starts_with(kUtf8Mark)) {
        const std::string_view text = bytes.substr(kUtf8Mark.size());
        return isSoundUtf8(text) ? page.subdataWithRange({kUtf8Mark.size(), text.size()})
                                 : mended(text);
    }
    if (const auto text = utf16FromMarkedBytes(bytes)) {
        return dataOf(*text);
    }
    const auto wide = beginsWithMarkup(bytes) ? std::nullopt : evidentWideEncoding(bytes);
    if (wide) {
        return dataOf(utf16FromWideBytes(bytes, *wide));
    }
    const char* const declared = declaredHtmlEncoding(bytes);
    const bool isOther = declared != nullptr && std::string_view(declared) != kUtf8Name;
    if (const auto upperHalf = isOther ? upperHalfOf(declared) : std::u16string_view();
        !upperHalf.empty()) {
        return converted(bytes, upperHalf);
    }
    if (const auto converter = isOther ? CodePageConverter::converterNamed(declared) : nullptr) {
        return converted(bytes, *converter);
    }
    constexpr char kEscape = '\x1B';
    const bool mayBeOther = declared == nullptr && bytes.find(kEscape) != std::string_view::npos;
    if (!mayBeOther && isSoundUtf8(bytes)) {
        return page;
    }
    return dataOf(PV_TRY(plainTextFromBytes(bytes)));
}

}  // namespace platform

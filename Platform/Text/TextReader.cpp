#include "Platform/Text/TextReader.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Foundation/WideText.h"
#include "Platform/Text/RtfReader.h"

namespace platform {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF"sv;

/// Bytes that other formats begin with.
struct Signature {
    std::string_view start;
    const char* format;
};
constexpr std::array kSignatures = {
    Signature{"%PDF-"sv, "PDF"},
    Signature{"rtfd\0\0\0\0"sv, "RTFD"},
};

/// Whether text in bytes or UTF-16 begins, after white space, with `lowercase`, in any case.
template <class View>
bool beginsWith(View text, std::string_view lowercase) {
    const auto isBlank = [](auto unit) {
        return unit == ' ' || (unit >= 0x09 && unit <= 0x0D);
    };
    const auto start = std::find_if_not(text.begin(), text.end(), isBlank);
    const auto lower = [](auto unit) {
        return unit >= 'A' && unit <= 'Z' ? static_cast<decltype(unit)>(unit + 0x20) : unit;
    };
    return static_cast<std::size_t>(text.end() - start) >= lowercase.size() &&
           std::equal(lowercase.begin(), lowercase.end(), start, [&](char wanted, auto unit) {
               return lower(unit) == static_cast<decltype(unit)>(wanted);
           });
}

template <class View>
bool isHtml(View text) {
    return beginsWith(text, "<!doctype html") || beginsWith(text, "<html");
}

/// Whether `unit` is a control character that no text needs.
bool isStray(char16_t unit) {
    return unit < 0x20 && !(unit >= 0x07 && unit <= 0x0F) && unit != 0x1B && unit != 0x1A;
}

Fault notReadYet(std::string_view format) {
    return {FaultCode::Unsupported, std::string(format) + " is not read yet"};
}

Result<AttributedString> checkedText(std::u16string text) {
    if (isHtml(std::u16string_view(text))) {
        return notReadYet("HTML");
    }
    const auto strays = static_cast<std::size_t>(std::count_if(text.begin(), text.end(), isStray));
    if (strays > text.size() / 100) {
        return Fault{FaultCode::Unsupported, "no text: " + std::to_string(strays) +
                                                 " control characters among " +
                                                 std::to_string(text.size()) + " units"};
    }
    return AttributedString(std::move(text));
}

}  // namespace

Result<AttributedString> attributedStringFromData(const Data& data) {
    std::string_view bytes = data.view();
    if (isRtf(bytes)) {
        return attributedStringFromRtf(data);
    }
    for (const Signature& signature : kSignatures) {
        if (bytes.starts_with(signature.start)) {
            return notReadYet(signature.format);
        }
    }
    if (auto text = utf16FromMarkedBytes(bytes)) {
        return checkedText(std::move(*text));
    }
    if (bytes.starts_with(kUtf8Mark)) {
        bytes.remove_prefix(kUtf8Mark.size());
    }
    if (isHtml(bytes)) {
        // Before the characters: a page may declare another encoding inside.
        return notReadYet("HTML");
    }
    auto text = utf16FromUtf8(bytes);
    if (!text) {
        return Fault{FaultCode::Unsupported, "text that is not UTF-8"};
    }
    return checkedText(std::move(*text));
}

}  // namespace platform

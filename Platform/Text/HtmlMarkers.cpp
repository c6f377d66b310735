#include "Platform/Text/HtmlMarkers.h"

#include <algorithm>
#include <string_view>

#include "Platform/Foundation/AsciiCase.h"
#include "Platform/Foundation/Unicode.h"

namespace platform {
namespace {

std::string letters(std::int32_t number, char first) {
    constexpr std::int32_t kCount = 26;
    std::string text;
    for (; number > 0; number = (number - 1) / kCount) {
        text.insert(text.begin(), static_cast<char>(first + (number - 1) % kCount));
    }
    return text;
}

std::string romanDigits(std::int32_t number) {
    struct Digit {
        std::int32_t value;
        std::string_view text;
    };
    constexpr Digit kDigits[] = {{1000, "m"}, {900, "cm"}, {500, "d"}, {400, "cd"}, {100, "c"},
                                 {90, "xc"},  {50, "l"},   {40, "xl"}, {10, "x"},   {9, "ix"},
                                 {5, "v"},    {4, "iv"},   {1, "i"}};
    std::string text;
    for (const Digit& digit : kDigits) {
        for (; number >= digit.value; number -= digit.value) {
            text += digit.text;
        }
    }
    return text;
}

std::string upperCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char letter) { return static_cast<char>(letter - 'a' + 'A'); });
    return text;
}

std::string numeral(HtmlMarker marker, std::int32_t number) {
    constexpr std::int32_t kBehindRoman = 4000;
    const bool isRoman = number > 0 && number < kBehindRoman;
    if (marker == HtmlMarker::LowerLetters && number > 0) {
        return letters(number, 'a');
    }
    if (marker == HtmlMarker::UpperLetters && number > 0) {
        return letters(number, 'A');
    }
    if (marker == HtmlMarker::LowerRoman && isRoman) {
        return romanDigits(number);
    }
    if (marker == HtmlMarker::UpperRoman && isRoman) {
        return upperCase(romanDigits(number));
    }
    return std::to_string(number);
}

}  // namespace

std::u16string textOfHtmlMarker(HtmlMarker marker, std::int32_t number) {
    switch (marker) {
        case HtmlMarker::None:
            return {};
        case HtmlMarker::Disc:
            return u"\t\u2022\t";
        case HtmlMarker::Circle:
            return u"\t\u25E6\t";
        case HtmlMarker::Square:
            return u"\t\u25AA\t";
        default:
            return u"\t" + utf16FromAscii(numeral(marker, number)) + u".\t";
    }
}

HtmlMarker htmlMarkerOfType(std::string_view type, HtmlMarker otherwise) {
    struct Row {
        std::string_view type;
        HtmlMarker marker;
    };
    // The case of letters counts where they are the marker.
    constexpr Row kLetters[] = {{"1", HtmlMarker::Decimal},
                                {"a", HtmlMarker::LowerLetters},
                                {"A", HtmlMarker::UpperLetters},
                                {"i", HtmlMarker::LowerRoman},
                                {"I", HtmlMarker::UpperRoman}};
    constexpr Row kNames[] = {{"disc", HtmlMarker::Disc},
                              {"circle", HtmlMarker::Circle},
                              {"square", HtmlMarker::Square},
                              {"none", HtmlMarker::None}};
    for (const Row& row : kLetters) {
        if (type == row.type) {
            return row.marker;
        }
    }
    for (const Row& row : kNames) {
        if (equalIgnoringAsciiCase(type, row.type)) {
            return row.marker;
        }
    }
    return otherwise;
}

const char* formatOfHtmlMarker(HtmlMarker marker) {
    switch (marker) {
        case HtmlMarker::None:
            return "";
        case HtmlMarker::Disc:
            return "{disc}";
        case HtmlMarker::Circle:
            return "{circle}";
        case HtmlMarker::Square:
            return "{square}";
        case HtmlMarker::LowerLetters:
            return "{lower-alpha}.";
        case HtmlMarker::UpperLetters:
            return "{upper-alpha}.";
        case HtmlMarker::LowerRoman:
            return "{lower-roman}.";
        case HtmlMarker::UpperRoman:
            return "{upper-roman}.";
        default:
            return "{decimal}.";
    }
}

}  // namespace platform

#include "Platform/Text/RtfTables.h"

#include <algorithm>

#include "Platform/Foundation/Unicode.h"

namespace platform {
namespace {

/// Indices have 16 bits, and so do the numbers that programs give.
constexpr std::size_t kMostEntries = 0xFFFF;

constexpr std::int32_t kAnsiCharset = 0;
constexpr std::int32_t kSymbolCharset = 2;

/// Whether a code page is one of Windows, which a font's charset can mean.
bool isOfWindows(int codePage) {
    return (codePage >= 1250 && codePage <= 1258) || codePage == 874 ||
           (codePage >= 932 && codePage <= 950);
}

}  // namespace

void RtfFonts::begin(std::int32_t number) {
    end();
    if (number < 0 || number > static_cast<std::int32_t>(kMostEntries)) {
        return;
    }
    const auto place = static_cast<std::size_t>(number);
    if (place >= indices_.size()) {
        indices_.resize(place + 1);
    }
    if (indices_[place] == 0) {
        if (fonts_.size() == kMostEntries) {
            return;
        }
        fonts_.emplace_back();
        indices_[place] = static_cast<std::uint16_t>(fonts_.size());
    }
    current_ = &fonts_[indices_[place] - 1U];
    *current_ = Font();
}

void RtfFonts::setCharset(std::int32_t charset) {
    if (current_ != nullptr) {
        current_->charset = charset;
    }
}

void RtfFonts::setCodePage(std::int32_t codePage) {
    if (current_ != nullptr && isRtfCodePage(codePage)) {
        current_->codePage = codePage;
    }
}

void RtfFonts::append(std::string_view name) {
    if (current_ == nullptr) {
        return;
    }
    const std::size_t semicolon = name.find(';');
    decoder_.setCodePage(codePageOf(*current_));
    decoder_.append(current_->name, name.substr(0, semicolon));
    if (semicolon != std::string_view::npos) {
        end();
    }
}

void RtfFonts::append(char16_t unit) {
    if (current_ != nullptr) {
        decoder_.finish(current_->name);
        current_->name += unit;
    }
}

void RtfFonts::end() {
    if (current_ != nullptr) {
        decoder_.finish(current_->name);
        const std::size_t last = current_->name.find_last_not_of(u' ');
        current_->name.erase(last + 1);
        current_ = nullptr;
    }
}

std::uint16_t RtfFonts::indexOf(std::int32_t number) const {
    const auto place = static_cast<std::size_t>(number);
    return number >= 0 && place < indices_.size() ? indices_[place] : std::uint16_t{0};
}

int RtfFonts::codePageAt(std::uint16_t index) const {
    return index != 0 ? codePageOf(fonts_[index - 1U]) : documentCodePage_;
}

std::u16string_view RtfFonts::nameAt(std::uint16_t index) const {
    return index != 0 ? std::u16string_view(fonts_[index - 1U].name) : std::u16string_view();
}

int RtfFonts::codePageOf(const Font& font) const {
    if (font.codePage) {
        return *font.codePage;
    }
    if (!font.charset || (*font.charset == kAnsiCharset && !isOfWindows(documentCodePage_))) {
        return documentCodePage_;
    }
    if (*font.charset == kSymbolCharset) {
        // There are others that only say so.
        return rtfCodePageOfPictures(font.name).value_or(documentCodePage_);
    }
    const int codePage = rtfCodePageOfCharset(*font.charset);
    return codePage != 0 ? codePage : documentCodePage_;
}

void RtfColors::set(Part part, std::int32_t value) {
    const auto byte = static_cast<std::uint32_t>(std::clamp(value, 0, 0xFF));
    const unsigned shift = 8 * static_cast<unsigned>(part);
    constexpr std::uint32_t kIsSet = 0x01000000;
    entry_ = (entry_ & ~(std::uint32_t{0xFF} << shift)) | byte << shift | kIsSet;
}

void RtfColors::append(std::string_view text) {
    for (const char character : text) {
        if (character == ';' && entries_.size() < kMostEntries) {
            entries_.push_back(entry_);
            entry_ = 0;
        }
    }
}

std::uint16_t RtfColors::indexOf(std::int32_t number) const {
    const auto place = static_cast<std::size_t>(number);
    const bool isSet = number >= 0 && place < entries_.size() && entries_[place] != 0;
    return isSet ? static_cast<std::uint16_t>(place + 1) : std::uint16_t{0};
}

Rgb RtfColors::at(std::uint16_t index) const {
    const std::uint32_t entry = entries_[index - 1U];
    const auto part = [entry](Part which) {
        return ((entry >> 8 * static_cast<unsigned>(which)) & 0xFFU) / 255.0;
    };
    return {part(Part::Red), part(Part::Green), part(Part::Blue)};
}

std::uint16_t RtfTabs::with(std::uint16_t list, std::int32_t place, TextAlignment kind) {
    // As many as programs allow in a paragraph, and more lists than they need.
    constexpr std::size_t kMostTabs = 64;
    constexpr std::size_t kMostLists = 4096;
    const Tab tab{list, place, kind};
    const auto known = numbers_.find(tab);
    if (known != numbers_.end()) {
        return known->second;
    }
    if (countOf(list) == kMostTabs || lists_.size() == kMostLists) {
        return list;
    }
    lists_.push_back({tab, countOf(list) + 1});
    const auto number = static_cast<std::uint16_t>(lists_.size());
    numbers_.emplace(tab, number);
    return number;
}

std::optional<std::vector<TextTab>> RtfTabs::at(std::uint16_t list) const {
    if (list == 0) {
        return std::nullopt;
    }
    std::vector<TextTab> tabs;
    for (; list != 0; list = lists_[list - 1U].last.before) {
        const Tab& tab = lists_[list - 1U].last;
        constexpr double kTwipsInPoint = 20;
        tabs.push_back({tab.place / kTwipsInPoint, tab.kind});
    }
    std::reverse(tabs.begin(), tabs.end());
    return tabs;
}

}  // namespace platform

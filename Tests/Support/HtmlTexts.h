// Tables of pages and the text that is read from them.

#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "Platform/Text/HtmlReader.h"

namespace test {

struct HtmlRow {
    const char* name;
    std::string_view html;
    std::u16string_view want;
};

inline std::u16string textOfHtml(std::string_view html) {
    const auto text = platform::attributedStringFromHtml(platform::Data::copyOf(html));
    return text ? text.value().string() : u"(a fault)";
}

template <std::size_t kCount>
void expectTexts(const HtmlRow (&rows)[kCount]) {
    for (const HtmlRow& row : rows) {
        EXPECT_EQ(textOfHtml(row.html), row.want) << row.name;
    }
}

}  // namespace test

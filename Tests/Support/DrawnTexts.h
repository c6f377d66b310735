// Tables of drawn pages and the texts that they are read as.

#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/PdfPageLayout.h"
#include "Tests/Support/DrawnPage.h"

namespace test {

struct DrawnRow {
    const char* name;
    DrawnPage page;
    const char* want;
};

inline std::string textOf(const DrawnPage& page) {
    return platform::utf8FromUtf16(platform::attributedStringFromPdfPage(page.text()).string());
}

inline void expectTexts(std::initializer_list<DrawnRow> rows) {
    for (const DrawnRow& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(textOf(row.page), row.want);
    }
}

}  // namespace test

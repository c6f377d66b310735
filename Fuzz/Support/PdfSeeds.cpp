// PDF files, and pages as the layout's fuzz target takes them.

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "Fuzz/Support/Seeds.h"
#include "Tests/Support/MadePdf.h"

namespace fuzz {
namespace {

using platform::Data;

/// A page of lines in the form of the target: numbers stand for the first characters of its table.
class LayoutSeed {
public:
    LayoutSeed& line(int x, int y, std::string_view numbers, int size = 40) {
        for (const char number : numbers) {
            character(number == ' ' ? kBlank : number - '0', x, y, 20, 48, size);
            x += 80;
        }
        character(kLineFeed, x, y, 0, 0, size);
        return *this;
    }

    LayoutSeed& character(int number, int x, int y, int width, int height, int size) {
        bytes_ += static_cast<char>(number);
        for (const int coordinate : {x, y}) {
            bytes_ += static_cast<char>(coordinate & 0xFF);
            bytes_ += static_cast<char>(coordinate >> 8 & 0xFF);
        }
        bytes_ += static_cast<char>(width);
        bytes_ += static_cast<char>(height);
        bytes_ += static_cast<char>(size);
        return *this;
    }

    [[nodiscard]] Data data() const { return Data::copyOf(bytes_); }

private:
    // Their places in the target's table.
    static constexpr int kBlank = 24;
    static constexpr int kLineFeed = 32;

    std::string bytes_;
};

Data scattered() {
    LayoutSeed page;
    std::uint32_t state = 1;
    const auto next = [&] {
        state = state * 1664525 + 1013904223;
        return static_cast<int>(state >> 16 & 0xFFFF);
    };
    for (int i = 0; i < 200; i++) {
        page.character(next() % 64, next() % 8000, next() % 8000, next() % 256, next() % 256,
                       next() % 256);
    }
    return page.data();
}

}  // namespace

std::vector<Seed> pdfSeeds() {
    return {
        {"no-pages", Data::copyOf(test::madePdf({}))},
        {"two-columns", Data::copyOf(test::madePdf({{{50, 700, "the left column begins"},
                                                     {300, 700, "and the right one too"},
                                                     {50, 686, "and goes on until it-"},
                                                     {300, 686, "and ends where the left"}}}))},
        {"turned", Data::copyOf(test::madePdf({{{50, 700, "turned page"}}, {}}, 90))},
    };
}

std::vector<Seed> pdfLayoutSeeds() {
    constexpr int kNoNumber = -32768;
    constexpr int kInfinite = 32767;
    return {
        {"paragraph", LayoutSeed().line(0, 0, "0123 0123 01").line(0, 200, "123 45").data()},
        {"columns", LayoutSeed()
                        .line(0, 0, "0123456789012")
                        .line(1600, 0, "1234567890123")
                        .line(0, 200, "2345678901234")
                        .line(1600, 200, "3456789012345")
                        .data()},
        {"columns-half-a-line-apart", LayoutSeed()
                                          .line(0, 0, "0123456789012")
                                          .line(1600, 100, "1234567890123")
                                          .line(0, 200, "2345678901234")
                                          .line(1600, 300, "3456789012345")
                                          .data()},
        {"tall-capital", LayoutSeed()
                             .character(4, 0, 0, 80, 144, 120)
                             .line(340, 0, "0123 0123")
                             .line(340, 200, "123 4S")
                             .line(0, 400, "0123 45")
                             .data()},
        {"items", LayoutSeed()
                      .line(0, 0, "b 0123 01S")
                      .line(0, 200, "b 123 45 0")
                      .line(0, 400, "5W 12 4567")
                      .line(0, 600, "6W 01 2WWWWW 5")
                      .data()},
        {"signs-at-numbers", LayoutSeed().line(0, 0, "9:; 56k S78 l5W67 =>? 5S6 :;").data()},
        {"from-the-right", LayoutSeed().line(0, 0, "9:; =>?@A").line(900, 0, "@A@A").data()},
        {"one-place", LayoutSeed().line(0, 0, "0").line(0, 0, "1").line(0, 0, "2").data()},
        {"no-numbers", LayoutSeed()
                           .character(1, kNoNumber, kInfinite, 10, 10, 40)
                           .character(2, kInfinite, kNoNumber, 0, 255, 0)
                           .data()},
        {"scattered", scattered()},
    };
}

}  // namespace fuzz

// A page of a PDF file as tests draw it: lines of characters that are all half as wide as their
// size.

#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <vector>

#include "Platform/Text/PdfPageText.h"

namespace test {

/// A line and where its upper left corner is.
struct DrawnLine {
    double x = 0;
    double y = 0;
    std::u32string text;
    double size = 10;
    const char* font = "Plain";
};

/// What the library would say of some lines, each a piece of its own.
class DrawnPage {
public:
    DrawnPage() = default;
    DrawnPage(std::initializer_list<DrawnLine> lines) {
        for (const DrawnLine& line : lines) {
            add(line);
        }
    }

    void add(const DrawnLine& line) {
        double x = line.x;
        beginPiece(line.x, line.y);
        for (const char32_t character : line.text) {
            const double right = x + line.size / 2;
            addCharacter(character, {x, line.y, right, line.y + line.size * 1.2});
            x = right;
        }
        endRun(line);
    }

    /// A line of words that stand above each other's characters: it reads down.
    void addDown(const DrawnLine& line) {
        double y = line.y;
        beginPiece(line.x, line.y);
        for (const char32_t character : line.text) {
            const double bottom = y + line.size / 2;
            addCharacter(character, {line.x - line.size * 1.2, y, line.x, bottom});
            y = bottom;
        }
        endRun(line);
    }

    /// One that reads up.
    void addUp(const DrawnLine& line) {
        double y = line.y;
        beginPiece(line.x, line.y);
        for (const char32_t character : line.text) {
            const double top = y - line.size / 2;
            addCharacter(character, {line.x, top, line.x + line.size * 1.2, y});
            y = top;
        }
        endRun(line);
    }

    void addCharacter(char32_t character, const platform::PdfBox& box) {
        characters_.push_back(character);
        boxes_.push_back(box);
    }

    [[nodiscard]] platform::PdfPageText text() const { return {characters_, boxes_, fonts_}; }

private:
    void beginPiece(double x, double y) {
        if (!characters_.empty()) {
            addCharacter(U'\n', {x, y, x, y});
        }
    }

    void endRun(const DrawnLine& line) {
        fonts_.push_back({characters_.size(), line.font, line.size});
    }

    std::vector<char32_t> characters_;
    std::vector<platform::PdfBox> boxes_;
    std::vector<platform::PdfFontRun> fonts_;
};

}  // namespace test

#include "Platform/Foundation/WholeInflater.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Buffer.h"

namespace platform {
namespace {

std::string deflated(const std::string& text, int level, int strategy = Z_DEFAULT_STRATEGY) {
    z_stream stream{};
    EXPECT_EQ(deflateInit2(&stream, level, Z_DEFLATED, -15, 9, strategy), Z_OK);
    std::string result(text.size() + 100, '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
    stream.avail_in = static_cast<uInt>(text.size());
    stream.next_out = reinterpret_cast<Bytef*>(result.data());
    stream.avail_out = static_cast<uInt>(result.size());
    EXPECT_EQ(deflate(&stream, Z_FINISH), Z_STREAM_END);
    result.resize(stream.total_out);
    deflateEnd(&stream);
    return result;
}

std::string manyWords() {
    std::string text;
    for (int i = 0; i < 4000; ++i) {
        text += "word " + std::to_string(i * i) + (i % 7 == 0 ? ".\n" : ", ");
    }
    return text;
}

/// What inflating `compressed` into `size` bytes gives; "(no)" when it does not fill them.
std::string inflated(WholeInflater& inflater, std::string_view compressed, std::size_t size) {
    Buffer output = Buffer::zeroed(size);
    const std::string input(compressed);
    const bool isFilled = inflater.inflate(std::as_bytes(std::span(input)), output.span());
    return isFilled ? std::string(reinterpret_cast<const char*>(output.bytes()), size) : "(no)";
}

TEST(WholeInflater, FillsTheOutputFromBlocksOfEachKind) {
    const std::string text = manyWords();
    WholeInflater inflater;
    struct Row {
        const char* name;
        std::string compressed;
        std::string want;
    };
    const Row rows[] = {
        {"nothing", deflated("", 6), ""},
        {"one letter", deflated("a", 6), "a"},
        {"fixed codes", deflated(text, 6, Z_FIXED), text},
        {"dynamic codes", deflated(text, 9), text},
        {"stored blocks", deflated(text.substr(0, 90), 0), text.substr(0, 90)},
        {"a long run", deflated(std::string(1'000'000, 'a'), 9), std::string(1'000'000, 'a')},
        {"bytes behind its end", deflated("abc", 6) + "more", "abc"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(inflated(inflater, row.compressed, row.want.size()), row.want);
    }
}

TEST(WholeInflater, RefusesWhatDoesNotFillTheOutput) {
    const std::string text = manyWords();
    const std::string good = deflated(text, 6);
    std::string damaged = good;
    damaged[0] = '\x07';
    WholeInflater inflater;
    struct Row {
        const char* name;
        std::string_view compressed;
        std::size_t size;
    };
    const Row rows[] = {
        {"no input", "", 1},
        {"no input and no output", "", 0},
        {"output too small", good, text.size() - 1},
        {"output too large", good, text.size() + 1},
        {"cut off", std::string_view(good).substr(0, good.size() - 1), text.size()},
        {"a block of a reserved kind", damaged, text.size()},
        {"a distance beyond the start", std::string_view("\x4B\x04\x42\x00", 4), 10},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(inflated(inflater, row.compressed, row.size), "(no)");
        EXPECT_EQ(inflated(inflater, good, text.size()), text) << "the next input is not harmed";
    }
}

}  // namespace
}  // namespace platform

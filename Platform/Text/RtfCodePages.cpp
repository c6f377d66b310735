#include "Platform/Text/RtfCodePages.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "Platform/Text/Johab.h"

namespace platform {
namespace {

/// A code page whose characters have one byte or several, by its number and the library's name.
struct MultiByteCodePage {
    const char* name;
    int number;
    /// Whether a character may have more than two bytes.
    bool isLong = false;
};

constexpr int kJohab = 1361;

constexpr MultiByteCodePage kMultiByteCodePages[] = {
    {"windows-932", 932},     {"windows-936", 936},    {"windows-949", 949},
    {"windows-950", 950},     {"Big5-HKSCS", 951},     {"windows-949", kJohab},
    {"windows-932", 10001},   {"windows-950", 10002},  {"windows-949", 10003},
    {"windows-936", 10008},   {"euc-jp", 51932, true}, {"windows-949", 51949},
    {"gb18030", 54936, true}, {"UTF-8", 65001, true},
};

const MultiByteCodePage* multiByteCodePage(int number) {
    const auto* const found =
        std::find_if(std::begin(kMultiByteCodePages), std::end(kMultiByteCodePages),
                     [number](const MultiByteCodePage& page) { return page.number == number; });
    return found != std::end(kMultiByteCodePages) ? found : nullptr;
}

/// Whether a byte is the first of two.
bool isLead(unsigned char byte, int codePage) {
    const bool isJapanese = codePage == 932 || codePage == 10001;
    const bool isKana = byte >= 0xA0 && byte <= 0xDF;
    return byte >= 0x81 && byte <= (isJapanese ? 0xFC : 0xFE) && !(isJapanese && isKana);
}

struct CharsetCodePage {
    int charset;
    int codePage;
};

// Those from 77 to 89 are of the Macintosh.
constexpr CharsetCodePage kCharsets[] = {
    {0, 1252},     {2, kRtfPicturesCodePage},
    {77, 10000},   {78, 10001},
    {79, 10003},   {80, 10008},
    {81, 10002},   {83, 10005},
    {84, 10004},   {85, 10006},
    {86, 10081},   {87, 10021},
    {88, 10029},   {89, 10007},
    {128, 932},    {129, 949},
    {130, kJohab}, {134, 936},
    {136, 950},    {161, 1253},
    {162, 1254},   {163, 1258},
    {177, 1255},   {178, 1256},
    {179, 1256},   {180, 1256},
    {181, 1255},   {186, 1257},
    {204, 1251},   {222, 874},
    {238, 1250},   {254, 437},
    {255, 850},    {256, 10000},
};

constexpr std::u16string_view kSymbols =
    u" !\u2200#\u2203%&\u220B()\u2217+,\u2212./0123456789:;<=>?"
    u"\u2245\u0391\u0392\u03A7\u0394\u0395\u03A6\u0393\u0397\u0399\u03D1\u039A\u039B\u039C\u039D"
    u"\u039F\u03A0\u0398\u03A1\u03A3\u03A4\u03A5\u03C2\u03A9\u039E\u03A8\u0396[\u2234]\u22A5_"
    u"\u203E\u03B1\u03B2\u03C7\u03B4\u03B5\u03C6\u03B3\u03B7\u03B9\u03D5\u03BA\u03BB\u03BC\u03BD"
    u"\u03BF\u03C0\u03B8\u03C1\u03C3\u03C4\u03C5\u03D6\u03C9\u03BE\u03C8\u03B6{|}\u223C\uFFFD";
constexpr std::u16string_view kUpperSymbols =
    u"\u20AC\u03D2\u2032\u2264\u2044\u221E\u0192\u2663\u2666\u2665\u2660\u2194\u2190\u2191\u2192"
    u"\u2193\u00B0\u00B1\u2033\u2265\u00D7\u221D\u2202\u2022\u00F7\u2260\u2261\u2248\u2026\u23D0"
    u"\u23AF\u21B5\u2135\u2111\u211C\u2118\u2297\u2295\u2205\u2229\u222A\u2283\u2287\u2284\u2282"
    u"\u2286\u2208\u2209\u2220\u2207\u00AE\u00A9\u2122\u220F\u221A\u22C5\u00AC\u2227\u2228\u21D4"
    u"\u21D0\u21D1\u21D2\u21D3\u25CA\u27E8\u00AE\u00A9\u2122\u2211\u239B\u239C\u239D\u23A1\u23A2"
    u"\u23A3\u23A7\u23A8\u23A9\u23AA\uFFFD\u27E9\u222B\u2320\u23AE\u2321\u239E\u239F\u23A0\u23A4"
    u"\u23A5\u23A6\u23AB\u23AC\u23AD\uFFFD";
static_assert(kSymbols.size() == 0x60 && kUpperSymbols.size() == 0x60);

/// The private characters of fonts of pictures.
constexpr char16_t kPictures = 0xF000;

}  // namespace

bool isRtfCodePage(int number) {
    return number == kRtfPicturesCodePage || number == kRtfSymbolCodePage ||
           !upperHalfOfCodePage(number).empty() || multiByteCodePage(number) != nullptr;
}

int rtfCodePageOfCharset(int charset) {
    const auto* const found =
        std::find_if(std::begin(kCharsets), std::end(kCharsets),
                     [charset](const CharsetCodePage& row) { return row.charset == charset; });
    return found != std::end(kCharsets) ? found->codePage : 0;
}

std::optional<int> rtfCodePageOfPictures(std::u16string_view fontName) {
    constexpr std::u16string_view kPictureFonts[] = {u"Wingdings",      u"Webdings",
                                                     u"ZapfDingbats",   u"Zapf Dingbats",
                                                     u"Monotype Sorts", u"Marlett"};
    if (fontName == u"Symbol") {
        return kRtfSymbolCodePage;
    }
    const bool isOfPictures =
        std::any_of(std::begin(kPictureFonts), std::end(kPictureFonts),
                    [&](std::u16string_view start) { return fontName.starts_with(start); });
    return isOfPictures ? std::optional(kRtfPicturesCodePage) : std::nullopt;
}

char16_t rtfSymbol(std::uint8_t place) {
    if (place >= 0xA0) {
        return kUpperSymbols[place - 0xA0U];
    }
    return place >= 0x20 && place < 0x80 ? kSymbols[place - 0x20U] : char16_t{0xFFFD};
}

void RtfDecoder::setCodePage(int number) {
    if (number == page_.number) {
        return;
    }
    std::swap(page_, otherPage_);
    if (number != page_.number) {
        page_ = {number, upperHalfOfCodePage(number),
                 number != kRtfPicturesCodePage && number != kRtfSymbolCodePage};
    }
}

void RtfDecoder::append(std::u16string& text, std::string_view bytes) {
    if (isHalf_ && !bytes.empty()) {
        pending_ += bytes.front();
        bytes.remove_prefix(1);
        isHalf_ = false;
    }
    if (bytes.empty()) {
        return;
    }
    if (page_.isMultiple()) {
        wait(text, bytes);
    } else {
        finish(text);
        appendSingle(text, bytes);
    }
}

void RtfDecoder::appendSingle(std::u16string& text, std::string_view bytes) const {
    const std::size_t start = text.size();
    text.resize(start + bytes.size());
    char16_t* unit = text.data() + start;
    if (page_.isAsciiItself) {
        for (const char byte : bytes) {
            const auto place = static_cast<unsigned char>(byte);
            *unit++ = place < 0x80 ? place : page_.upperHalf[place - 0x80U];
        }
        return;
    }
    for (const char byte : bytes) {
        const auto place = static_cast<unsigned char>(byte);
        *unit++ = page_.number == kRtfSymbolCodePage
                      ? rtfSymbol(place)
                      : static_cast<char16_t>(place > 0x20 ? kPictures + place : place);
    }
}

void RtfDecoder::wait(std::u16string& text, std::string_view bytes) {
    if (pendingCodePage_ != page_.number) {
        finish(text);
        pendingCodePage_ = page_.number;
    }
    // More than this is no faster at a time.
    constexpr std::size_t kMostPending = 4096;
    if (pending_.size() > kMostPending) {
        flush(text);
    }
    pending_ += bytes;
    for (const char byte : bytes) {
        isHalf_ = !isHalf_ && isLead(static_cast<unsigned char>(byte), page_.number);
    }
}

void RtfDecoder::convert(std::u16string& text, BytesFollow follow) {
    const Converter& used = converter();
    if (used.codePage == kJohab) {
        const std::size_t whole = pending_.size() - (isHalf_ && follow == BytesFollow::Yes ? 1 : 0);
        appendJohab(text, std::string_view(pending_).substr(0, whole), *used.converter);
        pending_.erase(0, whole);
        isHalf_ = !pending_.empty();
        return;
    }
    used.converter->append(text, pending_, follow);
    pending_.clear();
    isOpen_ = follow == BytesFollow::Yes && (isHalf_ || used.isLong);
    isHalf_ = isHalf_ && isOpen_;
}

RtfDecoder::Converter& RtfDecoder::converter() {
    for (Converter& known : converters_) {
        if (known.codePage == pendingCodePage_) {
            return known;
        }
    }
    const MultiByteCodePage* const page = multiByteCodePage(pendingCodePage_);
    converters_.push_back(
        {pendingCodePage_, page->isLong, CodePageConverter::converterNamed(page->name)});
    return converters_.back();
}

}  // namespace platform

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

/// An encoding and the labels that declare it, with a blank on each side.
struct LabelRow {
    const char* encoding;
    std::string_view labels;
};
constexpr LabelRow kLabelRows[] = {
    {"utf-8",
     " utf-8 utf8 unicode-1-1-utf-8 x-unicode20utf8 utf-16 utf-16le utf-16be unicode "
     "ucs-2 iso-10646-ucs-2 csunicode "},
    {"windows-1252",
     " windows-1252 cp1252 x-cp1252 iso-8859-1 iso8859-1 iso_8859-1 iso88591 latin1 l1 ascii "
     "us-ascii ansi_x3.4-1968 iso-ir-100 ibm819 cp819 csisolatin1 x-user-defined "},
    {"windows-1250", " windows-1250 cp1250 x-cp1250 "},
    {"windows-1251", " windows-1251 cp1251 x-cp1251 "},
    {"windows-1253", " windows-1253 cp1253 x-cp1253 "},
    {"windows-1254",
     " windows-1254 cp1254 x-cp1254 iso-8859-9 iso8859-9 iso_8859-9 iso88599 "
     "latin5 l5 iso-ir-148 csisolatin5 "},
    {"windows-1255", " windows-1255 cp1255 x-cp1255 "},
    {"windows-1256", " windows-1256 cp1256 x-cp1256 "},
    {"windows-1257", " windows-1257 cp1257 x-cp1257 "},
    {"windows-1258", " windows-1258 cp1258 x-cp1258 "},
    {"windows-874", " windows-874 dos-874 iso-8859-11 iso8859-11 iso885911 tis-620 "},
    {"iso-8859-2", " iso-8859-2 iso8859-2 iso_8859-2 iso88592 latin2 l2 iso-ir-101 csisolatin2 "},
    {"iso-8859-3", " iso-8859-3 iso8859-3 iso_8859-3 iso88593 latin3 l3 iso-ir-109 csisolatin3 "},
    {"iso-8859-4", " iso-8859-4 iso8859-4 iso_8859-4 iso88594 latin4 l4 iso-ir-110 csisolatin4 "},
    {"iso-8859-5", " iso-8859-5 iso8859-5 iso_8859-5 iso88595 cyrillic iso-ir-144 "},
    {"iso-8859-6",
     " iso-8859-6 iso8859-6 iso_8859-6 iso88596 iso-8859-6-i iso-8859-6-e arabic "
     "asmo-708 ecma-114 iso-ir-127 "},
    {"iso-8859-7",
     " iso-8859-7 iso8859-7 iso_8859-7 iso88597 greek greek8 elot_928 ecma-118 "
     "sun_eu_greek iso-ir-126 "},
    {"iso-8859-8",
     " iso-8859-8 iso8859-8 iso_8859-8 iso88598 iso-8859-8-i iso-8859-8-e hebrew "
     "visual logical iso-ir-138 "},
    {"iso-8859-10", " iso-8859-10 iso8859-10 iso885910 latin6 l6 iso-ir-157 "},
    {"iso-8859-13", " iso-8859-13 iso8859-13 iso885913 "},
    {"iso-8859-14", " iso-8859-14 iso8859-14 iso885914 "},
    {"iso-8859-15", " iso-8859-15 iso8859-15 iso_8859-15 iso885915 l9 "},
    {"iso-8859-16", " iso-8859-16 "},
    {"koi8-r", " koi8-r koi8 koi koi8_r cskoi8r "},
    {"koi8-u", " koi8-u koi8-ru "},
    {"ibm866", " ibm866 866 cp866 csibm866 "},
    {"macintosh", " macintosh mac x-mac-roman csmacintosh "},
    {"x-mac-cyrillic", " x-mac-cyrillic x-mac-ukrainian "},
    {"gb18030", " gb18030 gb2312 gb_2312 gb_2312-80 gbk x-gbk chinese csgb2312 iso-ir-58 "},
    {"big5", " big5 big5-hkscs cn-big5 csbig5 x-x-big5 "},
    {"euc-jp", " euc-jp x-euc-jp cseucpkdfmtjapanese "},
    {"iso-2022-jp", " iso-2022-jp csiso2022jp "},
    {"windows-932",
     " shift_jis shift-jis sjis x-sjis ms_kanji windows-31j csshiftjis ms932 "
     "cp932 "},
    {"windows-949",
     " euc-kr cseuckr korean ks_c_5601-1987 ks_c_5601-1989 ksc5601 ksc_5601 "
     "csksc56011987 iso-ir-149 windows-949 cp949 "},
};

const char* encodingOfLabel(std::string_view label) {
    const std::size_t start = std::min(label.find_first_not_of(kHtmlBlanks), label.size());
    label.remove_prefix(start);
    label = label.substr(0, label.find_last_not_of(kHtmlBlanks) + 1);
    std::string padded(" ");
    std::transform(label.begin(), label.end(), std::back_inserter(padded), asciiLowercase);
    padded += ' ';
    if (label.empty() || label.find(' ') != std::string_view::npos) {
        return nullptr;
    }
    for (const LabelRow& row : kLabelRows) {
        if (row.labels.find(padded) != std::string_view::npos) {
            return row.encoding;
        }
    }
    return nullptr;
}

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
        return encodingOfLabel(*charset);
    }
    const std::string_view* const pragma = tag.valueOf("http-equiv");
    const std::string_view* const content = tag.valueOf("content");
    const bool isDeclaration =
        pragma != nullptr && content != nullptr && equalIgnoringAsciiCase(*pragma, "content-type");
    return isDeclaration ? encodingOfLabel(valueBehind(*content, "charset")) : nullptr;
}

const char* encodingOfXmlDeclaration(std::string_view page) {
    if (!page.starts_with("<?xml")) {
        return nullptr;
    }
    return encodingOfLabel(valueBehind(page.substr(0, page.find('>')), "encoding"));
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
    if (const auto encoding = evidentWideEncoding(bytes)) {
        return dataOf(utf16FromWideBytes(bytes, *encoding));
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

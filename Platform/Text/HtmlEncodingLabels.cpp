#include "Platform/Text/HtmlEncodingLabels.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "Platform/Foundation/AsciiCase.h"
#include "Platform/Text/HtmlTag.h"

namespace platform {
namespace {

/// An encoding and the labels that declare it, with a blank on each side.
struct LabelRow {
    const char* encoding;
    std::string_view labels;
};
constexpr LabelRow kLabelRows[] = {
    {"utf-8",
     " utf-8 utf8 unicode-1-1-utf-8 unicode11utf8 unicode20utf8 x-unicode20utf8 utf-16 utf-16le "
     "utf-16be unicode unicodefeff unicodefffe ucs-2 iso-10646-ucs-2 csunicode "},
    {"windows-1252",
     " windows-1252 cp1252 x-cp1252 iso-8859-1 iso8859-1 iso_8859-1 iso_8859-1:1987 iso88591 "
     "latin1 l1 ascii "
     "us-ascii ansi_x3.4-1968 iso-ir-100 ibm819 cp819 csisolatin1 x-user-defined "},
    {"windows-1250", " windows-1250 cp1250 x-cp1250 "},
    {"windows-1251", " windows-1251 cp1251 x-cp1251 "},
    {"windows-1253", " windows-1253 cp1253 x-cp1253 "},
    {"windows-1254",
     " windows-1254 cp1254 x-cp1254 iso-8859-9 iso8859-9 iso_8859-9 iso_8859-9:1989 iso88599 "
     "latin5 l5 iso-ir-148 csisolatin5 "},
    {"windows-1255", " windows-1255 cp1255 x-cp1255 "},
    {"windows-1256", " windows-1256 cp1256 x-cp1256 "},
    {"windows-1257", " windows-1257 cp1257 x-cp1257 "},
    {"windows-1258", " windows-1258 cp1258 x-cp1258 "},
    {"windows-874", " windows-874 dos-874 iso-8859-11 iso8859-11 iso885911 tis-620 "},
    {"iso-8859-2",
     " iso-8859-2 iso8859-2 iso_8859-2 iso_8859-2:1987 iso88592 latin2 l2 iso-ir-101 csisolatin2 "},
    {"iso-8859-3",
     " iso-8859-3 iso8859-3 iso_8859-3 iso_8859-3:1988 iso88593 latin3 l3 iso-ir-109 csisolatin3 "},
    {"iso-8859-4",
     " iso-8859-4 iso8859-4 iso_8859-4 iso_8859-4:1988 iso88594 latin4 l4 iso-ir-110 csisolatin4 "},
    {"iso-8859-5",
     " iso-8859-5 iso8859-5 iso_8859-5 iso_8859-5:1988 iso88595 cyrillic csisolatincyrillic "
     "iso-ir-144 "},
    {"iso-8859-6",
     " iso-8859-6 iso8859-6 iso_8859-6 iso_8859-6:1987 iso88596 iso-8859-6-i csiso88596i "
     "iso-8859-6-e csiso88596e arabic csisolatinarabic "
     "asmo-708 ecma-114 iso-ir-127 "},
    {"iso-8859-7",
     " iso-8859-7 iso8859-7 iso_8859-7 iso_8859-7:1987 iso88597 greek csisolatingreek greek8 "
     "elot_928 ecma-118 "
     "sun_eu_greek iso-ir-126 "},
    {"iso-8859-8",
     " iso-8859-8 iso8859-8 iso_8859-8 iso_8859-8:1988 iso88598 iso-8859-8-i csiso88598i "
     "iso-8859-8-e csiso88598e hebrew csisolatinhebrew "
     "visual logical iso-ir-138 "},
    {"iso-8859-10", " iso-8859-10 iso8859-10 iso885910 latin6 csisolatin6 l6 iso-ir-157 "},
    {"iso-8859-13", " iso-8859-13 iso8859-13 iso885913 "},
    {"iso-8859-14", " iso-8859-14 iso8859-14 iso885914 "},
    {"iso-8859-15", " iso-8859-15 iso8859-15 iso_8859-15 iso885915 l9 csisolatin9 "},
    {"iso-8859-16", " iso-8859-16 "},
    {"koi8-r", " koi8-r koi8 koi koi8_r cskoi8r "},
    {"koi8-u", " koi8-u koi8-ru "},
    {"ibm866", " ibm866 866 cp866 csibm866 "},
    {"macintosh", " macintosh mac x-mac-roman csmacintosh "},
    {"x-mac-cyrillic", " x-mac-cyrillic x-mac-ukrainian "},
    {"gb18030",
     " gb18030 gb2312 gb_2312 gb_2312-80 gbk x-gbk chinese csgb2312 csiso58gb231280 iso-ir-58 "},
    // Browsers know the signs of Hong Kong under all of these names.
    {"big5-hkscs", " big5 big5-hkscs cn-big5 csbig5 x-x-big5 "},
    {"euc-jp", " euc-jp x-euc-jp cseucpkdfmtjapanese "},
    {"iso-2022-jp", " iso-2022-jp csiso2022jp "},
    {"windows-932",
     " shift_jis shift-jis sjis x-sjis ms_kanji windows-31j csshiftjis ms932 "
     "cp932 "},
    {"windows-949",
     " euc-kr cseuckr korean ks_c_5601-1987 ks_c_5601-1989 ksc5601 ksc_5601 "
     "csksc56011987 iso-ir-149 windows-949 cp949 "},
};

}  // namespace

const char* encodingOfHtmlLabel(std::string_view label) {
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

}  // namespace platform

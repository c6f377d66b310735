#include "Platform/Text/RtfControlWords.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "Platform/Text/AttributeNames.h"
#include "Platform/Text/ParagraphStyle.h"

namespace platform {
namespace {

template <class Enum>
constexpr std::int32_t of(Enum value) {
    return static_cast<std::int32_t>(value);
}

// Destinations that other readers may pass over are marked in the file; those are here that are
// read nevertheless, and those that some writers leave unmarked.
constexpr RtfControlWord kWords[] = {
    {"NeXTGraphic", RtfAction::Destination, of(RtfDestination::Graphic)},
    {"aftncn", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"aftnsep", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"aftnsepc", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"annotation", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"ansi", RtfAction::CharacterSet, 1252},
    {"ansicpg", RtfAction::CodePage},
    {"atnauthor", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"atnid", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"b", RtfAction::Flag, of(RtfFlag::Bold)},
    {"bin", RtfAction::Binary},
    {"bkmkend", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"bkmkstart", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"blue", RtfAction::ColorPart, 2},
    {"bullet", RtfAction::Insert, 0x2022},
    {"cb", RtfAction::BackgroundColor},
    {"cell", RtfAction::EndCell},
    {"cf", RtfAction::Color},
    {"chcbpat", RtfAction::BackgroundColor},
    {"colortbl", RtfAction::Destination, of(RtfDestination::ColorTable)},
    {"column", RtfAction::Insert, 0x000C},
    {"cpg", RtfAction::FontCodePage},
    {"deff", RtfAction::DefaultFont},
    {"deleted", RtfAction::Flag, of(RtfFlag::Deleted)},
    {"do", RtfAction::Destination, of(RtfDestination::Body)},
    {"dptxbxtext", RtfAction::Destination, of(RtfDestination::Body)},
    {"emdash", RtfAction::Insert, 0x2014},
    {"emspace", RtfAction::Insert, 0x2003},
    {"endash", RtfAction::Insert, 0x2013},
    {"enspace", RtfAction::Insert, 0x2002},
    {"f", RtfAction::Font},
    {"falt", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"fcharset", RtfAction::FontCharset},
    {"fi", RtfAction::Length, of(RtfLength::FirstLine)},
    {"field", RtfAction::Destination, of(RtfDestination::Field)},
    {"filetbl", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"fldinst", RtfAction::Destination, of(RtfDestination::FieldInstruction)},
    {"fldrslt", RtfAction::Destination, of(RtfDestination::FieldResult)},
    {"fontemb", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"fonttbl", RtfAction::Destination, of(RtfDestination::FontTable)},
    {"footer", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"footerf", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"footerl", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"footerr", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"footnote", RtfAction::Destination, of(RtfDestination::Note)},
    {"formfield", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"fs", RtfAction::FontSize},
    {"ftncn", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"ftnsep", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"ftnsepc", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"generator", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"green", RtfAction::ColorPart, 1},
    {"header", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"headerf", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"headerl", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"headerr", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"highlight", RtfAction::BackgroundColor},
    {"i", RtfAction::Flag, of(RtfFlag::Italic)},
    {"info", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"ldblquote", RtfAction::Insert, 0x201C},
    {"li", RtfAction::Length, of(RtfLength::Left)},
    {"line", RtfAction::Insert, 0x2028},
    {"listoverridetable", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"listtable", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"listtext", RtfAction::Destination, of(RtfDestination::Body)},
    {"lquote", RtfAction::Insert, 0x2018},
    {"ltrmark", RtfAction::Insert, 0x200E},
    {"ltrpar", RtfAction::Direction, of(WritingDirection::LeftToRight)},
    {"mac", RtfAction::CharacterSet, 10000},
    {"maccPr", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"mbarPr", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"mborderBoxPr", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"mboxPr", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"mctrlPr", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"mdPr", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"meqArrPr", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"mfPr", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"mfuncPr", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"mgroupChrPr", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"mlimLowPr", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"mlimUppPr", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"mmPr", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"mnaryPr", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"moMath", RtfAction::Destination, of(RtfDestination::Body)},
    {"moMathPara", RtfAction::Destination, of(RtfDestination::Body)},
    {"mphantPr", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"mrPr", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"mradPr", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"msPrePr", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"msSubPr", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"msSubSupPr", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"msSupPr", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"nestcell", RtfAction::EndCell},
    {"nestrow", RtfAction::EndRow},
    {"nesttableprops", RtfAction::Destination, of(RtfDestination::Body)},
    {"nonesttables", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"nonshppict", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"nosupersub", RtfAction::Superscript},
    {"objdata", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"object", RtfAction::Destination, of(RtfDestination::Object)},
    {"page", RtfAction::Insert, 0x000C},
    {"panose", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"par", RtfAction::EndParagraph},
    {"pard", RtfAction::ParagraphDefaults},
    {"pardirnatural", RtfAction::Direction, of(WritingDirection::Natural)},
    {"pc", RtfAction::CharacterSet, 437},
    {"pca", RtfAction::CharacterSet, 850},
    {"pgdsctbl", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"pict", RtfAction::Destination, of(RtfDestination::Picture)},
    {"plain", RtfAction::Plain},
    {"pn", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"pntext", RtfAction::Destination, of(RtfDestination::Body)},
    {"pntxta", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"pntxtb", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"qc", RtfAction::Alignment, of(TextAlignment::Center)},
    {"qd", RtfAction::Alignment, of(TextAlignment::Justified)},
    {"qj", RtfAction::Alignment, of(TextAlignment::Justified)},
    {"ql", RtfAction::Alignment, of(TextAlignment::Left)},
    {"qmspace", RtfAction::Insert, 0x2005},
    {"qnatural", RtfAction::Alignment, of(TextAlignment::Natural)},
    {"qr", RtfAction::Alignment, of(TextAlignment::Right)},
    {"rdblquote", RtfAction::Insert, 0x201D},
    {"red", RtfAction::ColorPart, 0},
    {"result", RtfAction::Destination, of(RtfDestination::Body)},
    {"revtbl", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"ri", RtfAction::Length, of(RtfLength::Right)},
    {"row", RtfAction::EndRow},
    {"rquote", RtfAction::Insert, 0x2019},
    {"rtlmark", RtfAction::Insert, 0x200F},
    {"rtlpar", RtfAction::Direction, of(WritingDirection::RightToLeft)},
    {"rxe", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"sa", RtfAction::Length, of(RtfLength::After)},
    {"sb", RtfAction::Length, of(RtfLength::Before)},
    {"sect", RtfAction::EndParagraph},
    {"shp", RtfAction::Destination, of(RtfDestination::Body)},
    {"shpgrp", RtfAction::Destination, of(RtfDestination::Body)},
    {"shpinst", RtfAction::Destination, of(RtfDestination::Body)},
    {"shppict", RtfAction::Destination, of(RtfDestination::Body)},
    {"shprslt", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"shptxt", RtfAction::Destination, of(RtfDestination::Body)},
    {"sl", RtfAction::LineSpacing},
    {"slmult", RtfAction::LineSpacingKind},
    {"sn", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"sp", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"strike", RtfAction::Strikethrough, kSingleLine},
    {"striked", RtfAction::Strikethrough, kDoubleLine},
    {"stylesheet", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"sub", RtfAction::Superscript, -1},
    {"super", RtfAction::Superscript, 1},
    {"sv", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"tab", RtfAction::Insert, 0x0009},
    {"tc", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"tcn", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"template", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"tqc", RtfAction::TabKind, of(TextAlignment::Center)},
    {"tqdec", RtfAction::TabKind, of(TextAlignment::Right)},
    {"tqr", RtfAction::TabKind, of(TextAlignment::Right)},
    {"tx", RtfAction::Tab},
    {"txe", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"u", RtfAction::Unicode},
    {"uc", RtfAction::UnicodeSkip},
    {"ud", RtfAction::Destination, of(RtfDestination::InUnicode)},
    {"ul", RtfAction::Underline, kSingleLine},
    {"uld", RtfAction::Underline, kSingleLine + kDotLine},
    {"uldash", RtfAction::Underline, kSingleLine + kDashLine},
    {"uldashd", RtfAction::Underline, kSingleLine + kDashDotLine},
    {"uldashdd", RtfAction::Underline, kSingleLine + kDashDotDotLine},
    {"uldb", RtfAction::Underline, kDoubleLine},
    {"ulhwave", RtfAction::Underline, kThickLine},
    {"ulldash", RtfAction::Underline, kSingleLine + kDashLine},
    {"ulnone", RtfAction::Underline, kNoLine},
    {"ulth", RtfAction::Underline, kThickLine},
    {"ulthd", RtfAction::Underline, kThickLine + kDotLine},
    {"ulthdash", RtfAction::Underline, kThickLine + kDashLine},
    {"ulthdashd", RtfAction::Underline, kThickLine + kDashDotLine},
    {"ulthdashdd", RtfAction::Underline, kThickLine + kDashDotDotLine},
    {"ulthldash", RtfAction::Underline, kThickLine + kDashLine},
    {"ululdbwave", RtfAction::Underline, kDoubleLine},
    {"ulw", RtfAction::Underline, kSingleLine + kLineByWord},
    {"ulwave", RtfAction::Underline, kSingleLine},
    {"upr", RtfAction::Destination, of(RtfDestination::Alternatives)},
    {"v", RtfAction::Flag, of(RtfFlag::Hidden)},
    {"xe", RtfAction::Destination, of(RtfDestination::Skipped)},
    {"zwbo", RtfAction::Insert, 0x200B},
    {"zwj", RtfAction::Insert, 0x200D},
    {"zwnbo", RtfAction::Insert, 0x2060},
    {"zwnj", RtfAction::Insert, 0x200C},
};
static_assert(std::is_sorted(std::begin(kWords), std::end(kWords),
                             [](const RtfControlWord& first, const RtfControlWord& second) {
                                 return first.name < second.name;
                             }));

/// Places for words by their hashes; a word stands at the first free one.
constexpr std::size_t kPlaces = 1024;
static_assert(std::size(kWords) < kPlaces / 2);

constexpr std::size_t firstPlaceOf(std::uint32_t hash) {
    constexpr std::uint32_t kMixer = 0x9E3779B1;
    return (hash * kMixer) >> (32U - 10U);
}
static_assert(kPlaces == 1U << 10U);

constexpr std::size_t placeAfter(std::size_t place) {
    return (place + 1) % kPlaces;
}

/// One more than the number of the word at a place, 0 where there is none, and the word's hash.
struct Place {
    std::uint32_t hash = 0;
    std::uint16_t number = 0;
};

constexpr std::array<Place, kPlaces> placeTable() {
    std::array<Place, kPlaces> places{};
    std::uint16_t number = 0;
    for (const RtfControlWord& word : kWords) {
        std::uint32_t hash = kRtfWordHashStart;
        for (const char letter : word.name) {
            hash = rtfWordHash(hash, letter);
        }
        std::size_t place = firstPlaceOf(hash);
        while (places[place].number != 0) {
            place = placeAfter(place);
        }
        places[place] = {hash, ++number};
    }
    return places;
}

constexpr auto kPlaceTable = placeTable();

/// Whether two names are the same; they are too short for a call of the library.
bool areSame(std::string_view first, std::string_view second) {
    std::size_t at = 0;
    while (at < first.size() && at < second.size() && first[at] == second[at]) {
        ++at;
    }
    return at == first.size() && at == second.size();
}

}  // namespace

const RtfControlWord* rtfControlWord(const RtfToken& word) {
    for (std::size_t at = firstPlaceOf(word.hash); kPlaceTable[at].number != 0;
         at = placeAfter(at)) {
        const Place place = kPlaceTable[at];
        if (place.hash == word.hash && areSame(kWords[place.number - 1].name, word.text)) {
            return &kWords[place.number - 1];
        }
    }
    return nullptr;
}

}  // namespace platform

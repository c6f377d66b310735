#include "Platform/Text/AlphabetCost.h"

#include <algorithm>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/ControlCharacters.h"
#include "Platform/Text/Scripts.h"

namespace platform {
namespace {

constexpr float kNoText = 14;           // controls, and what no character has
constexpr float kPunctuation = 6;       // dashes, quotation marks
constexpr float kSign = 8;              // other signs
constexpr float kSignBesideLetter = 4;  // for each of its sides
constexpr float kPunctuationInWord = 8;
constexpr float kDashInWord = 3;  // some set no blanks around dashes
constexpr float kFirstLine = 7;   // lines of tables
constexpr float kOtherLine = 4;   // behind another kind
constexpr float kSameLine = 1;
constexpr float kMixedScripts = 10;
constexpr float kOtherScriptThanBefore = 3;  // of a word
constexpr float kLoneLetter = 4;             // a letter that is no word, alone
constexpr float kLetterThatIsWord = -2;      // one that is: they are frequent
constexpr float kSmallToCapital = 6;         // a capital behind a small letter
constexpr float kCapitalsToSmall = 3;        // a small letter behind two capitals
constexpr float kWordInCapital = 1.5F;       // a capital at the start of a word
constexpr float kSecondCapital = 1;          // those behind it are no surprise
constexpr float kOutOfPlace = 5;             // a form that the place in a word forbids
constexpr float kLoneMark = 6;
constexpr float kEndlessWord = 1;  // each letter behind the twentieth

// Two Latin letters beyond ASCII side by side are rare but in Vietnamese.
constexpr float kLatinPair = 2.5F;

/// The commonest letters of a script, which make up three quarters of a text, and what they and the
/// others cost: the logarithm of how many they are, less that of their share.
struct Letters {
    Script script;
    std::u16string_view common;
    float commonCost;
    float otherCost;
};

constexpr Letters kLetters[] = {
    {Script::Latin, u"", 0, 4.5F},
    {Script::Cyrillic, u"оеаинтсрвлкм", 2.8F, 4.4F},
    {Script::Greek, u"αοιετσνηυρπκμλς", 2.9F, 4.6F},
    {Script::Arabic, u"اليمونرتبةعد", 2.8F, 4.6F},
    {Script::Hebrew, u"יוהלארמתבשםנ", 2.8F, 4.2F},
    {Script::Thai, u"านรกอเงมยลวดท่้ัีส", 3.2F, 5.4F},
    {Script::Kana, u"", 0, 5.1F},
    {Script::Han, u"", 0, 8},
    {Script::Hangul, u"", 0, 7},
};
constexpr float kLetterOfOtherScript = 5;

bool isGreekCapital(char16_t unit) {
    return unit >= 0x0386 && unit <= 0x03AB && unit != 0x0390;
}

/// Letters have a case, small or capital, or none.
enum class Case { None, Small, Capital };

Case caseOf(char16_t unit, Script script) {
    if (script != Script::Latin && script != Script::Cyrillic && script != Script::Greek) {
        return Case::None;
    }
    return isCapital(unit) || (script == Script::Greek && isGreekCapital(unit)) ? Case::Capital
                                                                                : Case::Small;
}

/// The small letter for one of the Latin, the Cyrillic or the Greek script.
char16_t smallLetterOf(char16_t unit) {
    const bool isGreek = unit >= 0x0391 && unit <= 0x03A9;
    return isGreek ? static_cast<char16_t>(unit + 0x20) : smallLetter(unit);
}

float costOfLetter(char16_t unit, Script script) {
    const auto* const letters =
        std::find_if(std::begin(kLetters), std::end(kLetters),
                     [&](const Letters& row) { return row.script == script; });
    if (letters == std::end(kLetters)) {
        return kLetterOfOtherScript;
    }
    const bool isCommon = letters->common.find(smallLetterOf(unit)) != std::u16string_view::npos;
    return isCommon ? letters->commonCost : letters->otherCost;
}

bool isLine(char16_t unit) {
    return unit >= 0x2500 && unit < 0x25A0;
}

/// A vowel of Thai that stands before its consonant.
bool isThaiForevowel(char16_t unit) {
    return unit >= 0x0E40 && unit <= 0x0E44;
}

/// A mark that stands over or under a letter of its script.
bool isScriptMark(char16_t unit) {
    return unit == 0x0E31 || (unit >= 0x0E34 && unit <= 0x0E3A) ||
           (unit >= 0x0E47 && unit <= 0x0E4E) || (unit >= 0x0591 && unit <= 0x05C7);
}

bool isArabicMark(char16_t unit) {
    return unit >= 0x064B && unit <= 0x065F;
}

/// Whether a letter alone is a word in some language that has the encodings of bytes.
bool isWordOfOneLetter(char16_t unit) {
    constexpr std::u16string_view kWords = u"àèéáíóåöøавикосуюяєіїοη";
    return kWords.find(smallLetterOf(unit)) != std::u16string_view::npos;
}

/// A form of a letter that only the end of a word has.
bool isEndForm(char16_t unit) {
    constexpr std::u16string_view kEndForms = u"ςםןףץךةى";
    return kEndForms.find(unit) != std::u16string_view::npos;
}

/// Goes over a text and adds up what its characters cost.
class CostCounter {
public:
    void add(char16_t unit, char16_t next);
    void endWord();
    [[nodiscard]] float cost() const { return cost_; }

private:
    void addLetter(char16_t unit, Script script);
    void addCase(Case its);
    void addMark(char16_t unit);
    void addSign(char16_t unit, char16_t next);

    float cost_ = 0;
    char16_t last_ = u' ';
    Script script_ = Script::None;      ///< of the letter before
    Script wordScript_ = Script::None;  ///< at the start of the last word
    Case case_ = Case::None;            ///< the same
    int capitals_ = 0;                  ///< in a row, before this place
    int letters_ = 0;                   ///< of the word so far
    bool wasLone_ = false;              ///< whether the word before was one letter beyond ASCII
};

void CostCounter::add(char16_t unit, char16_t next) {
    const Script script = unit == 0xAA || unit == 0xBA ? Script::None : scriptOf(unit);
    if (unit < 0x80) {
        cost_ += isStrayControl(unit) ? kNoText : kAsciiCost;
    }
    if (script == Script::Mark || isScriptMark(unit)) {
        addMark(unit);
    } else if (script != Script::None) {
        addLetter(unit, script);
    } else {
        if (unit >= 0x80) {
            addSign(unit, next);
        }
        endWord();
    }
    last_ = unit;
}

void CostCounter::addLetter(char16_t unit, Script script) {
    if (unit >= 0x80) {
        cost_ += costOfLetter(unit, script);
        cost_ +=
            script == Script::Latin && script_ == Script::Latin && last_ >= 0x80 ? kLatinPair : 0;
    }
    if (script_ == Script::None) {
        const bool isOther = wordScript_ != Script::None && script != wordScript_;
        cost_ += isOther ? kOtherScriptThanBefore : 0;
        wordScript_ = script;
    } else if (script != script_) {
        cost_ += kMixedScripts;
    }
    if (script_ == script && isEndForm(last_)) {
        cost_ += kOutOfPlace;
    }
    if (unit >= 0x80 || last_ >= 0x80) {
        addCase(caseOf(unit, script));
    }
    letters_++;
    if (letters_ > 20 && script != Script::Thai && unit >= 0x80) {
        cost_ += kEndlessWord;
    }
    const Case its = caseOf(unit, script);
    capitals_ = its == Case::Capital ? capitals_ + 1 : 0;
    case_ = its;
    script_ = script;
}

void CostCounter::addCase(Case its) {
    if (its == Case::Capital) {
        constexpr float kCapitals[] = {kWordInCapital, kSecondCapital, 0};
        cost_ += case_ == Case::Small ? kSmallToCapital : kCapitals[std::min(capitals_, 2)];
    } else if (its == Case::Small && capitals_ >= 2) {
        cost_ += kCapitalsToSmall;
    }
}

void CostCounter::addMark(char16_t unit) {
    const Script script = isArabicMark(unit) ? Script::Arabic : scriptOf(unit);
    const bool isForeign = script != Script::Mark && script != script_;
    const bool isBare = script_ == Script::None || isForeign || isThaiForevowel(last_);
    cost_ += kAsciiCost + (isBare ? kLoneMark : 0) + (isForeign ? kMixedScripts : 0);
}

void CostCounter::addSign(char16_t unit, char16_t next) {
    const int sides = (script_ != Script::None ? 1 : 0) + (scriptOf(next) < Script::Mark ? 1 : 0);
    const float besideLetters = kSignBesideLetter * static_cast<float>(sides);
    if (unit < 0xA0 || (unit >= 0xD800 && unit < 0xF900) || unit >= 0xFFF0) {
        cost_ += kNoText;
    } else if (isLine(unit)) {
        cost_ += besideLetters;
        cost_ += unit == last_ ? kSameLine : isLine(last_) ? kOtherLine : kFirstLine;
    } else if (isSignOfWords(unit)) {
        cost_ += kPunctuation;
    } else if (isCommonSign(unit)) {
        constexpr char16_t kDash = 0x2014;
        const float inWord = unit == kDash ? kDashInWord : kPunctuationInWord;
        cost_ += kPunctuation + (sides == 2 ? inWord : 0);
    } else {
        cost_ += kSign + besideLetters;
    }
}

void CostCounter::endWord() {
    cost_ += isThaiForevowel(last_) ? kOutOfPlace : 0;
    const bool isLone = letters_ == 1 && last_ >= 0x80;
    if (isLone) {
        // Two in a row are a list of letters.
        cost_ += isWordOfOneLetter(last_) && !wasLone_ ? kLetterThatIsWord : kLoneLetter;
    }
    wasLone_ = letters_ > 0 ? isLone : wasLone_;
    script_ = Script::None;
    case_ = Case::None;
    capitals_ = 0;
    letters_ = 0;
}

}  // namespace

bool isCommonSign(char16_t unit) {
    constexpr std::u16string_view kCommon =
        u"\u00A0\u00A1\u00A3\u00A7\u00A9\u00AA\u00AB\u00AD\u00AE\u00B0\u00B1\u00B2\u00B3\u00B5"
        u"\u00B7"
        u"\u00BA\u00BB\u00BD\u00BF\u00D7\u060C\u061B\u061F\u2010\u2011\u2013\u2014\u2018\u2019"
        u"\u201A"
        u"\u201C\u201D\u201E\u2022\u2026\u2039\u203A\u20AC\u2116\u2122";
    return kCommon.find(unit) != std::u16string_view::npos;
}

bool isSignOfWords(char16_t unit) {
    return unit == u'\u2019' || unit == u'\u00AD' || unit == u'\u00B7' || unit == u'\u2011' ||
           unit == u'\u200D' || unit == u'\u200C' || unit == u'\u0640';
}

float alphabetCost(std::u16string_view text) {
    CostCounter counter;
    for (std::size_t i = 0; i < text.size(); i++) {
        counter.add(text[i], i + 1 < text.size() ? text[i + 1] : u' ');
    }
    counter.endWord();
    return counter.cost();
}

}  // namespace platform

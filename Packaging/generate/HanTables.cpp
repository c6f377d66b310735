#include "Packaging/generate/HanTables.h"

#include <unicode/translit.h>
#include <unicode/unistr.h>

#include <array>
#include <memory>
#include <stdexcept>
#include <string_view>

#include "Platform/Text/HanForms.h"

namespace packaging {
namespace {

using platform::HanForm;
using platform::kFirstHan;
using platform::kHanCount;

/// Characters that are simplified in Japan alone, or were made there.
constexpr std::u16string_view kJapanese =
    u"亜圧囲壱隠栄営駅円応桜穏仮価絵壊懐拡殻覚楽勧寛関歓観帰気戯犠拠挙暁駆勲薫恵掲渓経蛍軽継鶏撃倹"
    u"剣"
    u"圏検権県顕験厳広鉱黒済砕斎剤雑桟賛残歯児実釈収従渋獣縦粛奨焼剰壌嬢浄畳縄譲醸嘱寝図粋酔穂髄瀬"
    u"斉摂"
    u"専戦践銭潜繊禅捜挿巣総騒蔵臓続対帯滝択沢単団弾遅鋳庁聴逓鉄転伝稲闘徳悩脳覇拝廃売発髪抜蛮浜払"
    u"変辺"
    u"豊褒黙訳薬誉揺様謡頼覧竜両猟緑涙塁隷霊齢歴錬労録読顔郷働込峠畑枠栃搾";

using Transliterator = std::unique_ptr<icu::Transliterator>;

Transliterator rules(const char* name) {
    UErrorCode status = U_ZERO_ERROR;
    Transliterator made(icu::Transliterator::createInstance(name, UTRANS_FORWARD, status));
    if (U_FAILURE(status)) {
        throw std::runtime_error(std::string("ICU has no rules ") + name);
    }
    return made;
}

bool changes(const icu::Transliterator& rules, char16_t character) {
    icu::UnicodeString text(character);
    rules.transliterate(text);
    return text != icu::UnicodeString(character);
}

}  // namespace

std::string hanTables() {
    const Transliterator toTraditional = rules("Simplified-Traditional");
    const Transliterator toSimplified = rules("Traditional-Simplified");
    std::array<unsigned, kHanCount / 4> packed{};
    for (std::size_t i = 0; i < kHanCount; i++) {
        const auto character = static_cast<char16_t>(kFirstHan + i);
        const bool isSimplified = changes(*toTraditional, character);
        const bool isTraditional = changes(*toSimplified, character);
        HanForm form = HanForm::Common;
        if (kJapanese.find(character) != kJapanese.npos) {
            form = HanForm::Japanese;
        } else if (isSimplified != isTraditional) {
            form = isSimplified ? HanForm::Simplified : HanForm::Traditional;
        }
        packed[i / 4] |= static_cast<unsigned>(form) << (i % 4 * 2);
    }
    std::string source =
        "// Made by the build.\n\n#include \"Platform/Text/HanForms.h\"\n\n"
        "namespace platform {\n\nconstinit const std::uint8_t kHanForms[kHanCount / 4] = {";
    for (std::size_t i = 0; i < packed.size(); i++) {
        source += (i % 20 == 0 ? "\n    " : "") + std::to_string(packed[i]) + ",";
    }
    return source + "\n};\n\n}  // namespace platform\n";
}

}  // namespace packaging

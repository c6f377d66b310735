// Texts in little-endian UTF-16 whose language is asked for: one for each way of deciding it.

#include "Fuzz/Support/Seeds.h"

namespace fuzz {
namespace {

constexpr char16_t kSurrogates[] = {u'W', 0xD800, u'a', 0xDC00, u's', 0xD83D, 0xDE00, 0xD83D};

}  // namespace

std::vector<Seed> languageSeeds() {
    const auto seed = [](const char* name, std::u16string_view text) {
        return Seed{name, platform::Data::copyOf(littleEndianBytes(text))};
    };
    return {
        seed("empty", u""),
        seed("digits", u"12 345,67"),
        seed("latin", u"Jeden Abend stieg er zweihundert Stufen hinauf."),
        seed("cyrillic", u"Що це таке? Журнал Saint Louis"),
        seed("arabic", u"كان حارس المنارة"),
        seed("devanagari", u"यह क्या है?"),
        seed("bengali", u"প্রতি সন্ধ্যায়"),
        seed("hebrew", u"שומר המגדלור"),
        seed("ethiopic", u"መብራቱን ያበራ ነበር"),
        seed("greek", u"άναβε τη λάμπα"),
        seed("japanese", u"灯台守は毎晩階段を上り"),
        seed("chinese", u"燈塔看守人每天晚上爬上樓梯"),
        seed("korean", u"등불을 켰다 大統領"),
        seed("apostrophes", u"l'homme 's isn't '' d\u2019un"),
        seed("marks", u"u\u0308ber \u0301\u200D"),
        seed("one-word", std::u16string(3000, u'e')),
        seed("surrogates", {kSurrogates, std::size(kSurrogates)}),
        {"odd", platform::Data::copyOf(littleEndianBytes(u"Was ist") + "e")},
    };
}

}  // namespace fuzz

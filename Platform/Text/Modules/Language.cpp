// The module `language`, over CLD2's tables.
//
// CLD2's own answer is made for pages of some hundred characters: it names three languages at most
// and does not tell how close they are, which is what a second opinion needs to know. So its parts
// are used, as its development package offers them: those that look letters up in the tables, and
// of the tables the larger set, which knows more languages and more letters.

// CLD2's headers want it first.
#include <cstdio>
// The next one leans on it.
#include <cld2/internal/lang_script.h>
// NOLINTNEXTLINE(llvm-include-order): see above
#include <cld2/internal/cldutil.h>

#include <array>
#include <memory>
#include <new>

#include "Platform/Text/Modules/LanguageModule.h"

namespace CLD2 {

extern const CLD2TableSummary kQuad_obj;
extern const CLD2TableSummary kQuad_obj2;
extern const CLD2TableSummary kDeltaOcta_obj;
extern const CLD2TableSummary kDistinctOcta_obj;

}  // namespace CLD2

namespace {

using platform::Cld2Score;
using platform::LanguageFunctions;
using platform::Script;

constexpr std::array kScripts = {
    CLD2::ULScript_Latin,      CLD2::ULScript_Cyrillic, CLD2::ULScript_Arabic,
    CLD2::ULScript_Devanagari, CLD2::ULScript_Bengali,  CLD2::ULScript_Hebrew,
    CLD2::ULScript_Ethiopic,
};
static_assert(kScripts.size() == platform::kSharedScriptCount);

/// Scores by CLD2's numbers of the languages of one script; 0 is no language.
using Tally = std::array<std::int32_t, 256>;

/// Adds what one entry of a table says: three languages, and a pattern of their weights.
void add(Tally& tally, std::uint32_t entry) {
    const CLD2::uint8* const weights = CLD2::LgProb2TblEntry(static_cast<int>(entry & 0xFF));
    for (int i = 0; i < 3; i++) {
        tally[entry >> (8 * (i + 1)) & 0xFF] += CLD2::LgProb3(weights, i);
    }
}

/// Adds what was found for some letters. From a certain place on, entries come in pairs.
void addFound(Tally& tally, const CLD2::CLD2TableSummary& table, std::uint32_t place) {
    if (place < table.kCLDTableSizeOne) {
        add(tally, table.kCLDTableInd[place]);
        return;
    }
    const std::uint32_t first = place + (place - table.kCLDTableSizeOne);
    add(tally, table.kCLDTableInd[first]);
    add(tally, table.kCLDTableInd[first + 1]);
}

constexpr CLD2::ScoringTables kTables = {
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    &CLD2::kQuad_obj,
    &CLD2::kQuad_obj2,
    &CLD2::kDeltaOcta_obj,
    &CLD2::kDistinctOcta_obj,
    nullptr,
};

CLD2::ScoringContext contextFor(CLD2::ULScript script) {
    CLD2::ScoringContext context{};
    context.ulscript = script;
    context.prior_chunk_lang = CLD2::UNKNOWN_LANGUAGE;
    context.scoringtables = &kTables;
    return context;
}

void addHits(Tally& tally, const CLD2::ScoringHitBuffer& hits) {
    constexpr std::uint32_t kInSecondTable = 0x80000000u;
    for (int i = 0; i < hits.next_base; i++) {
        const auto place = static_cast<std::uint32_t>(hits.base[i].indirect);
        addFound(tally, (place & kInSecondTable) != 0 ? CLD2::kQuad_obj2 : CLD2::kQuad_obj,
                 place & ~kInSecondTable);
    }
    for (int i = 0; i < hits.next_delta; i++) {
        addFound(tally, CLD2::kDeltaOcta_obj, static_cast<std::uint32_t>(hits.delta[i].indirect));
    }
    for (int i = 0; i < hits.next_distinct; i++) {
        addFound(tally, CLD2::kDistinctOcta_obj,
                 static_cast<std::uint32_t>(hits.distinct[i].indirect));
    }
}

Tally tallyOf(CLD2::ULScript script, const char* text, int length, CLD2::ScoringHitBuffer& hits) {
    CLD2::ScoringContext context = contextFor(script);
    Tally tally{};
    // The first blank only stands before the first word. The buffer holds what a part of a long
    // text has hit; the functions say where the next part begins.
    int from = 1;
    while (from < length) {
        hits.init();
        hits.ulscript = script;
        const int next = CLD2::GetQuadHits(text, from, length, &context, &hits);
        CLD2::GetOctaHits(text, from, next, &context, &hits);
        addHits(tally, hits);
        if (next <= from) {
            break;
        }
        from = next;
    }
    return tally;
}

std::size_t score(Script script, const char* text, std::size_t length, Cld2Score* scores) {
    // 60 KiB would be much for a thread's stack.
    const std::unique_ptr<CLD2::ScoringHitBuffer> hits(new (std::nothrow) CLD2::ScoringHitBuffer);
    if (hits == nullptr) {
        return 0;
    }
    const CLD2::ULScript itsScript = kScripts[static_cast<std::size_t>(script)];
    const Tally tally = tallyOf(itsScript, text, static_cast<int>(length), *hits);
    std::size_t count = 0;
    for (std::size_t number = 1; number < tally.size(); number++) {
        if (tally[number] > 0) {
            const auto language =
                CLD2::FromPerScriptNumber(itsScript, static_cast<CLD2::uint8>(number));
            scores[count++] = {CLD2::LanguageCode(language), tally[number]};
        }
    }
    return count;
}

constexpr LanguageFunctions kFunctions = {
    {[] {
    }},
    score,
};

}  // namespace

extern "C" __attribute__((visibility("default"))) const platform::ModuleHead* parlavoxModule() {
    return &kFunctions;
}

#include "Packaging/generate/LanguageTables.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <set>
#include <tuple>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/LanguageModel.h"

namespace packaging {
namespace {

using platform::LanguageEvidence;
using platform::LanguageModelHash;
using platform::LanguageModelTable;
using platform::Script;

/// Evidence by the hash of what it is for.
using Model = std::map<std::uint32_t, std::vector<LanguageEvidence>>;

std::uint32_t hashOf(Script script, std::u16string_view text) {
    LanguageModelHash hash(script);
    for (const char16_t unit : text) {
        hash.add(unit);
    }
    return hash.value();
}

void add(Model& model, std::uint32_t hash, std::size_t place, double nats) {
    const double weight = std::clamp(std::round(16 * nats), 0.0, 255.0);
    auto& evidence = model[hash];
    const auto same = std::find_if(evidence.begin(), evidence.end(),
                                   [&](const auto& row) { return row.language == place; });
    if (weight > 0 && same == evidence.end()) {
        evidence.push_back({static_cast<std::uint8_t>(place), static_cast<std::uint8_t>(weight)});
    }
}

/// How much a word speaks for the language in which it is the `rank`th. The share of a rank is that
/// of Zipf's law; in a language that does not know it, a word still turns up as a name or a quote,
/// the more often the shorter it is.
double wordNats(std::u16string_view word, std::size_t rank) {
    const double share = 0.1 / (static_cast<double>(rank) + 3);
    const std::size_t length = word.size();
    const double strays = 1.5e-5 * (length > 2 ? 1 : length == 2 ? 4 : 100);
    return std::log(share / strays);
}

/// The same for an n-gram. Those of one word depend on each other, so each counts for a part.
double gramNats(std::u16string_view gram, std::size_t rank) {
    constexpr std::array kParts = {0.0, 0.25, 0.3, 0.35, 0.5, 0.5};
    const double share = 0.6 / (static_cast<double>(rank) + 3.5);
    constexpr double kStrays = 3e-4;
    return kParts[std::min<std::size_t>(gram.size(), 5)] * std::log(share / kStrays);
}

/// Words of Romanian are often written with a cedilla where a comma belongs.
std::u16string withCedilla(std::u16string word) {
    std::replace(word.begin(), word.end(), u'ș', u'ş');
    return word;
}

/// The places of languages among those of their script.
using Places = std::vector<std::size_t>;

Places placesOf(const std::vector<LanguageRecord>& languages) {
    std::array<std::size_t, platform::kSharedScriptCount> counts{};
    Places places;
    for (const LanguageRecord& language : languages) {
        places.push_back(counts[static_cast<std::size_t>(language.script)]++);
    }
    return places;
}

std::string number(std::size_t value) {
    return std::to_string(value) + ",";
}

template <class Values, class Write>
std::string array(const std::string& type, const std::string& name, const Values& values,
                  Write write) {
    std::string source = "constexpr " + type + " " + name + "[] = {";
    std::size_t column = 0;
    for (const auto& value : values) {
        source += column++ % 16 == 0 ? "\n    " : "";
        source += write(value);
    }
    return source + "\n};\n";
}

std::string table(const std::string& name, const Model& model) {
    std::vector<std::size_t> first{0};
    std::vector<LanguageEvidence> evidence;
    std::vector<std::size_t> buckets((1u << LanguageModelTable::kBucketBits) + 1);
    for (const auto& [hash, rows] : model) {
        evidence.insert(evidence.end(), rows.begin(), rows.end());
        first.push_back(evidence.size());
        buckets[(hash >> (32 - LanguageModelTable::kBucketBits)) + 1]++;
    }
    for (std::size_t i = 1; i < buckets.size(); i++) {
        buckets[i] += buckets[i - 1];
    }
    std::string source;
    source += array("std::uint32_t", name + "Keys", model,
                    [](const auto& row) { return number(row.first); });
    source += array("std::uint16_t", name + "First", first, number);
    source += array("LanguageEvidence", name + "Evidence", evidence, [](const auto& row) {
        return "{" + number(row.language) + std::to_string(row.weight) + "},";
    });
    source += array("std::uint16_t", name + "Buckets", buckets, number);
    return source + "\n";
}

std::string definition(const std::string& name) {
    return "constinit const LanguageModelTable " + name + "Table = {" + name + "Keys, " + name +
           "First, " + name + "Evidence, " + name + "Buckets};\n";
}

/// The letters that some but not all languages of a script write, with a bit for each that does.
std::map<char16_t, std::uint64_t> lettersIn(std::size_t script,
                                            const std::vector<LanguageRecord>& languages) {
    const Places places = placesOf(languages);
    // An array must not be empty; no text has this unit, and no language lacks it.
    std::map<char16_t, std::uint64_t> letters{{u'\0', ~std::uint64_t{0}}};
    for (std::size_t i = 0; i < languages.size(); i++) {
        if (static_cast<std::size_t>(languages[i].script) == script) {
            for (const char16_t letter : languages[i].letters) {
                letters[letter] |= std::uint64_t{1} << places[i];
            }
        }
    }
    return letters;
}

std::string languageRow(const LanguageRecord& language) {
    return "\n    {\"" + language.code + "\", " + (language.isNamed ? "true" : "false") + ", " +
           std::to_string(language.lead) + "},";
}

/// The lists of one script.
std::string listsIn(std::size_t script, const std::vector<LanguageRecord>& languages) {
    const Places places = placesOf(languages);
    const std::string suffix = std::to_string(script);
    std::string rows;
    std::map<std::string, std::size_t> codes;
    for (std::size_t i = 0; i < languages.size(); i++) {
        if (static_cast<std::size_t>(languages[i].script) == script) {
            rows += languageRow(languages[i]);
            for (const std::string& alias : languages[i].aliases) {
                codes.emplace(alias, places[i]);
            }
        }
    }
    return "constexpr Language kLanguages" + suffix + "[] = {" + rows + "\n};\n" +
           array("CodeOfLanguage", "kCodes" + suffix, codes,
                 [](const auto& row) {
                     return "{\"" + row.first + "\", " + std::to_string(row.second) + "},";
                 }) +
           array("LetterOfLanguages", "kLetters" + suffix, lettersIn(script, languages),
                 [](const auto& row) {
                     return "{" + number(row.first) + std::to_string(row.second) + "u},";
                 });
}

std::string lists(const std::vector<LanguageRecord>& languages) {
    std::string source;
    for (std::size_t script = 0; script < platform::kSharedScriptCount; script++) {
        source += listsIn(script, languages);
    }
    return source + "\n";
}

std::string listDefinition() {
    std::string source = "constinit const LanguageList kLanguageLists[kSharedScriptCount] = {\n";
    for (std::size_t script = 0; script < platform::kSharedScriptCount; script++) {
        const std::string suffix = std::to_string(script);
        source.append("    {kLanguages").append(suffix).append(", kCodes").append(suffix);
        source.append(", kLetters").append(suffix).append("},\n");
    }
    return source + "};\n";
}

Model wordModel(const std::vector<LanguageRecord>& languages) {
    Model model;
    const auto places = placesOf(languages);
    for (std::size_t i = 0; i < languages.size(); i++) {
        const auto& [script, words] = std::tie(languages[i].script, languages[i].words);
        for (std::size_t rank = 0; rank < words.size(); rank++) {
            const double nats = wordNats(words[rank], rank);
            add(model, hashOf(script, words[rank]), places[i], nats);
            add(model, hashOf(script, withCedilla(words[rank])), places[i], nats);
        }
    }
    return model;
}

/// Of several models of one language, the one that knows an n-gram best counts.
Model gramModel(const std::vector<LanguageRecord>& languages,
                const std::vector<std::vector<Grams>>& grams) {
    Model model;
    const auto places = placesOf(languages);
    for (std::size_t i = 0; i < languages.size(); i++) {
        std::map<std::u16string_view, std::size_t> ranks;
        for (const Grams& ofOneModel : grams[i]) {
            for (std::size_t rank = 0; rank < ofOneModel.size(); rank++) {
                const auto known = ranks.emplace(ofOneModel[rank], rank).first;
                known->second = std::min(known->second, rank);
            }
        }
        for (const auto& [gram, rank] : ranks) {
            add(model, hashOf(languages[i].script, gram), places[i], gramNats(gram, rank));
        }
    }
    return model;
}

bool isGram(std::u16string_view text) {
    return text != u"_" && !text.empty() && text.size() <= 5 &&
           std::all_of(text.begin(), text.end(), [](char16_t unit) {
               return unit == u'_' || platform::scriptOf(unit) < Script::None;
           });
}

}  // namespace

Grams gramsFromModel(std::string_view model) {
    Grams grams;
    std::set<std::u16string> known;
    while (!model.empty()) {
        const std::size_t end = std::min(model.find('\n'), model.size());
        const std::string_view line = model.substr(0, end);
        std::u16string gram =
            platform::utf16FromUtf8Lossy(line.substr(0, line.find_first_of("\t ")));
        std::transform(gram.begin(), gram.end(), gram.begin(), platform::smallLetter);
        if (isGram(gram) && known.insert(gram).second) {
            grams.push_back(std::move(gram));
        }
        model.remove_prefix(std::min(end + 1, model.size()));
    }
    return grams;
}

std::string languageTables(const std::vector<LanguageRecord>& languages,
                           const std::vector<std::vector<Grams>>& grams) {
    return "// Made by the build.\n\n#include \"Platform/Text/LanguageLists.h\"\n\n"
           "namespace platform {\nnamespace {\n\n" +
           lists(languages) + table("kWord", wordModel(languages)) +
           table("kGram", gramModel(languages, grams)) + "}  // namespace\n\n" +
           definition("kWord") + definition("kGram") + listDefinition() +
           "\n}  // namespace platform\n";
}

}  // namespace packaging

#include "Benchmarks/Support/Packages.h"

#include <algorithm>
#include <filesystem>
#include <random>
#include <vector>

#include "Tools/samples/ArchiveBuilder.h"
#include "Tools/samples/PackageBuilder.h"

namespace bench {
namespace {

using platform::Array;
using platform::Data;
using platform::Dictionary;
using platform::Uid;
using platform::Value;
using samples::ArchiveBuilder;

/// Draws words; common ones more often, as languages do.
class Prose {
public:
    explicit Prose(Script script) {
        const char16_t first = script == Script::Latin ? u'a' : u'\u03B1';
        for (std::size_t i = 0; i < kWords; ++i) {
            std::u16string word(2 + random_() % 9, u'\0');
            std::generate(word.begin(), word.end(),
                          [&] { return static_cast<char16_t>(first + random_() % kLetters); });
            words_.push_back(std::move(word));
        }
    }

    std::u16string text(std::uint64_t units) {
        std::u16string text;
        text.reserve(units + 16);
        while (text.size() < units) {
            text += words_[std::min(random_() % kWords, random_() % kWords)];
            text += random_() % 12 == 0 ? u'\n' : u' ';
        }
        text.resize(units);
        return text;
    }

private:
    static constexpr std::size_t kWords = 4000;
    static constexpr unsigned kLetters = 24;

    std::minstd_rand random_;
    std::vector<std::u16string> words_;
};

/// Adds the attribute sets of a shape: instances of one class, as an application's archiver writes
/// them.
class SetBuilder {
public:
    explicit SetBuilder(ArchiveBuilder& archive)
        : archive_(archive),
          setClass_(archive.addClass({"NSDictionary", "NSObject"})),
          fontKey_(archive.add(u"NSFont")),
          ownKey_(archive.add(u"AcmeMark")) {
        const Uid fontClass = archive.addClass({"NSFont", "NSObject"});
        for (const std::u16string_view name : {u"Helvetica", u"Helvetica-Bold", u"Times-Roman"}) {
            fonts_.push_back(archive.addInstance(
                fontClass, {{"NSName", Value(archive.add(std::u16string(name)))},
                            {"NSSize", Value(12.0)},
                            {"NSfFlags", Value(16)}}));
        }
    }

    Uid add(std::uint64_t number, OwnValue own) {
        const Uid value = archive_.add(own == OwnValue::Number
                                           ? Value(1000 + number)
                                           : Value::fromUtf8("mark " + std::to_string(number)));
        return archive_.addInstance(
            setClass_,
            {{"NS.keys", Value(Array{Value(fontKey_), Value(ownKey_)})},
             {"NS.objects", Value(Array{Value(fonts_[number % fonts_.size()]), Value(value)})}});
    }

private:
    ArchiveBuilder& archive_;
    Uid setClass_;
    Uid fontKey_;
    Uid ownKey_;
    std::vector<Uid> fonts_;
};

std::vector<samples::TextRun> runsOf(const Shape& shape) {
    std::vector<samples::TextRun> runs;
    if (shape.runs < 2) {
        return runs;
    }
    for (std::uint64_t i = 0; i < shape.runs; ++i) {
        const std::uint64_t begin = shape.units * i / shape.runs;
        const std::uint64_t end = shape.units * (i + 1) / shape.runs;
        runs.push_back({end - begin, i % shape.sets});
    }
    return runs;
}

}  // namespace

std::string Shape::name() const {
    std::string name = std::to_string(units) + " units, " + std::to_string(runs) + " runs, " +
                       std::to_string(sets) + " sets";
    name += own == OwnValue::String ? " with strings" : "";
    return name + (script == Script::Greek ? ", Greek" : "");
}

Data archiveOf(const Shape& shape) {
    ArchiveBuilder archive;
    SetBuilder builder(archive);
    std::vector<Uid> sets;
    for (std::uint64_t i = 0; i < shape.sets; ++i) {
        sets.push_back(builder.add(i, shape.own));
    }
    return archive.finish(
        archive.addAttributedString(Prose(shape.script).text(shape.units), sets, runsOf(shape)));
}

std::string prose(std::uint64_t size) {
    const std::u16string text = Prose(Script::Latin).text(size);
    return {text.begin(), text.end()};
}

std::string Packages::pathOf(const Shape& shape) const {
    const std::string name = shape.name() + ".parlavox";
    if (!std::filesystem::exists(folder_.path(name))) {
        folder_.write(name, samples::package(archiveOf(shape)).view());
    }
    return folder_.path(name);
}

std::string Packages::pathOfMembers(std::uint64_t count, std::uint64_t size,
                                    bool areDeflated) const {
    const std::string name = std::to_string(count) + " members of " + std::to_string(size) +
                             (areDeflated ? ", deflated.zip" : ", stored.zip");
    if (!std::filesystem::exists(folder_.path(name))) {
        const std::string letters = prose(count * size);
        samples::ZipBuilder zip;
        for (std::uint64_t i = 0; i < count; ++i) {
            zip.add("notes/chapter-" + std::to_string(i) + ".txt", letters.substr(i * size, size),
                    areDeflated ? samples::Packing::Deflated : samples::Packing::Stored);
        }
        folder_.write(name, zip.finish().view());
    }
    return folder_.path(name);
}

}  // namespace bench

// Random object graphs: what we archive, another reader and ours see alike.

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "Platform/Foundation/KeyedArchiver.h"
#include "Platform/Foundation/KeyedUnarchiver.h"
#include "Platform/Text/AttributedString.h"
#include "Platform/Text/AttributedStringCoding.h"
#include "Tests/Support/GraphJson.h"
#include "Tests/Support/TemporaryFolder.h"

namespace platform {
namespace {

using test::GraphJson;
using test::SharedObjects;
using Json = GraphJson::Json;

/// Grows values of every kind; parts occur again now and then.
class Garden {
public:
    explicit Garden(unsigned seed) : random_(seed) {}

    Value value(unsigned depth) {
        if (!grown_.empty() && pick(6) == 0) {
            return grown_[pick(grown_.size())];
        }
        Value made = depth == 0 || pick(3) == 0 ? leaf() : branch(depth - 1);
        grown_.push_back(made);
        return made;
    }

private:
    std::size_t pick(std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_);
    }

    std::u16string text() {
        static constexpr const char16_t* kPieces[] = {
            u"a",     u"Wort ", u"\u00E4\u00F6", u"\u65E5\u672C", u"\U0001F600", u"<&>\"", u"\r\n",
            u"$null", u"\t"};
        std::u16string result;
        for (std::size_t i = pick(5); i > 0; --i) {
            result += kPieces[pick(std::size(kPieces))];
        }
        return pick(20) == 0 ? u"$null" : result;
    }

    std::string key() {
        static constexpr const char* kKeys[] = {"a", "$b", "NS.objects", "key with blanks",
                                                "\u00FC"};
        return kKeys[pick(std::size(kKeys))] + std::to_string(pick(4));
    }

    Value leaf() {
        switch (pick(8)) {
            case 0:
                return Value(pick(2) == 0);
            case 1:
                return Value(static_cast<std::int64_t>(random_()) - 2147483648);
            case 2:
                return Value(static_cast<std::uint64_t>(random_()) << 32);
            case 3:
                return Value(static_cast<double>(random_()) / 16 - 1e8);
            case 4:
                return Value(Date{static_cast<double>(random_()) / 4});
            case 5:
                return Value(Data::adopt(std::string(pick(40), static_cast<char>(random_()))));
            case 6:
                return Value();
            default:
                return Value(text());
        }
    }

    Value branch(unsigned depth) {
        switch (pick(4)) {
            case 0: {
                Array array;
                for (std::size_t i = pick(5); i > 0; --i) {
                    array.push_back(value(depth));
                }
                return Value(std::move(array));
            }
            case 1:
                return Value(dictionary(depth));
            case 2:
                return opaque(depth);
            default:
                return attributedText(depth);
        }
    }

    Dictionary dictionary(unsigned depth) {
        Dictionary result;
        for (std::size_t i = pick(5); i > 0; --i) {
            result.set(key(), value(depth));
        }
        return result;
    }

    Value opaque(unsigned depth) {
        std::vector<OpaqueField> fields;
        fields.push_back({"Number", Value(static_cast<std::int64_t>(pick(9)))});
        for (std::size_t i = pick(4); i > 0; --i) {
            fields.push_back({"Field" + std::to_string(i), value(depth), FieldForm::Reference});
        }
        Array array{value(depth), value(depth)};
        fields.push_back({"Array", Value(std::move(array)), FieldForm::InlineOfReferences});
        return Value(OpaqueObject::make({"Thing" + std::to_string(pick(3)), "NSObject"}, fields));
    }

    Value attributedText(unsigned depth) {
        auto string = std::make_shared<const std::u16string>(text() + text());
        std::vector<AttributeRun> runs;
        std::vector<Attributes> sets{nullptr};
        for (std::size_t rest = string->size(); rest > 0;) {
            const std::size_t length = 1 + pick(rest);
            if (pick(2) == 0) {
                sets.push_back(std::make_shared<const Dictionary>(dictionary(depth)));
            }
            runs.push_back({length, sets[pick(sets.size())]});
            rest -= length;
        }
        return Value(std::make_shared<const AttributedString>(std::move(string), std::move(runs)));
    }

    std::mt19937 random_;
    std::vector<Value> grown_;
};

Json describe(const Value& value) {
    return GraphJson(SharedObjects::Repeated).of(value);
}

Json readBack(const Data& archive) {
    const auto unarchiver = KeyedUnarchiver::initForReadingWithData(archive);
    unarchiver->addClasses(attributedTextClasses());
    return describe(unarchiver->decodeObject());
}

Data archiveOf(const Value& value, PropertyListFormat format) {
    const auto archiver = KeyedArchiver::init();
    archiver->setOutputFormat(format);
    archiver->encodeObject(value, "root");
    return archiver->encodedData();
}

/// What the other reader prints for the files, one line each.
std::vector<std::string> oracleLines(const std::string& files) {
    const std::string command = std::string("python3 '") + PV_ARCHIVE_ORACLE + "' " + files;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::string output;
    char part[65536];
    while (const std::size_t count = std::fread(part, 1, sizeof part, pipe.get())) {
        output.append(part, count);
    }
    std::vector<std::string> lines;
    std::istringstream stream(output);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

TEST(ArchiveOracle, RandomGraphsAreSeenAlike) {
    constexpr unsigned kGraphs = 150;
    const test::TemporaryFolder folder;
    std::string files;
    std::vector<Json> wanted;
    for (unsigned seed = 0; seed < kGraphs; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const Value graph = Garden(seed).value(4);
        const Json want = describe(graph);
        for (const auto format : {PropertyListFormat::Binary, PropertyListFormat::Xml}) {
            const Data archive = archiveOf(graph, format);
            ASSERT_EQ(readBack(archive), want);
            const std::string path = folder.path() + "/" + std::to_string(wanted.size());
            std::ofstream(path, std::ios::binary) << archive.view();
            files += "'" + path + "' ";
            wanted.push_back(want);
        }
    }
    const std::vector<std::string> lines = oracleLines(files);
    ASSERT_EQ(lines.size(), wanted.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(Json::parse(lines[i]), wanted[i]) << "graph " << i / 2;
    }
}

}  // namespace
}  // namespace platform

#include "Tools/samples/ArchiveBuilder.h"

#include <utility>

namespace samples {

using platform::Array;
using platform::Data;
using platform::Dictionary;
using platform::PropertyListFormat;
using platform::PropertyListSerialization;
using platform::Uid;
using platform::Value;

ArchiveBuilder::ArchiveBuilder() {
    add(u"$null");
}

Uid ArchiveBuilder::add(Value entry) {
    objects_.push_back(std::move(entry));
    return Uid{objects_.size() - 1};
}

Uid ArchiveBuilder::addClass(std::initializer_list<std::string_view> names) {
    Array all;
    for (const std::string_view name : names) {
        all.push_back(Value::fromUtf8(name));
    }
    Value first = all.front();
    return add(Dictionary{{"$classname", std::move(first)}, {"$classes", Value(std::move(all))}});
}

Uid ArchiveBuilder::addInstance(Uid type, Dictionary fields) {
    fields.set("$class", Value(type));
    return add(Value(std::move(fields)));
}

Uid ArchiveBuilder::addArray(const std::vector<Uid>& elements) {
    Array references(elements.begin(), elements.end());
    return addInstance(addClass({"NSArray", "NSObject"}),
                       {{"NS.objects", Value(std::move(references))}});
}

Uid ArchiveBuilder::addDictionary(const std::vector<std::pair<Uid, Uid>>& entries) {
    Array keys;
    Array values;
    for (const auto& [key, value] : entries) {
        keys.emplace_back(key);
        values.emplace_back(value);
    }
    return addInstance(
        addClass({"NSDictionary", "NSObject"}),
        {{"NS.keys", Value(std::move(keys))}, {"NS.objects", Value(std::move(values))}});
}

Uid ArchiveBuilder::addAttributedString(std::u16string_view text,
                                        const std::vector<Uid>& attributeSets,
                                        const std::vector<TextRun>& runs) {
    Dictionary fields{{"NSString", Value(add(std::u16string(text)))}};
    if (runs.empty() && attributeSets.size() == 1) {
        fields.set("NSAttributes", attributeSets.front());
    } else if (!attributeSets.empty()) {
        fields.set("NSAttributes", addArray(attributeSets));
        fields.set("NSAttributeInfo", add(Data::copyOf(runTable(runs))));
    }
    return addInstance(addClass({"NSAttributedString", "NSObject"}), std::move(fields));
}

Data ArchiveBuilder::finish(Uid root, PropertyListFormat format) const {
    return finishWithTop({{"root", Value(root)}}, format);
}

Data ArchiveBuilder::finishWithTop(Dictionary top, PropertyListFormat format) const {
    const Value archive = Dictionary{{"$version", Value(100000)},
                                     {"$archiver", Value(u"NSKeyedArchiver")},
                                     {"$top", Value(std::move(top))},
                                     {"$objects", Value(objects_)}};
    return PropertyListSerialization::dataWithPropertyList(archive, format).value();
}

std::string runTable(const std::vector<TextRun>& runs) {
    std::string bytes;
    const auto append = [&](std::uint64_t number) {
        for (; number > 0x7F; number >>= 7) {
            bytes.push_back(static_cast<char>(0x80 | (number & 0x7F)));
        }
        bytes.push_back(static_cast<char>(number));
    };
    for (const TextRun& run : runs) {
        append(run.length);
        append(run.attributes);
    }
    return bytes;
}

Data archiveOfText(std::u16string_view text) {
    ArchiveBuilder builder;
    return builder.finish(builder.addAttributedString(text));
}

}  // namespace samples

#include "Platform/Foundation/KeyedArchiver.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/KeyedArchiveTable.h"
#include "Platform/Foundation/KeyedUnarchiver.h"
#include "Platform/Foundation/NameTable.h"
#include "Platform/Foundation/PreservedObject.h"

namespace platform {
namespace {

constexpr char16_t kNullName[] = u"$null";
constexpr std::int64_t kArchiveVersion = 100000;

/// Strings up to this length are compared by content, longer ones by identity only.
constexpr std::size_t kLongestCompared = 64;

/// Names a thing by its kind and the bytes that tell it from others of its kind.
template <class Bytes>
std::string nameOf(char kind, const Bytes& bytes) {
    std::string name(1 + sizeof bytes, kind);
    std::memcpy(name.data() + 1, &bytes, sizeof bytes);
    return name;
}

/// Names a thing by where it lies.
std::string nameOfPlace(char kind, const void* place) {
    return nameOf(kind, reinterpret_cast<std::uintptr_t>(place));
}

std::string nameOfString(const std::u16string& text) {
    if (text.size() > kLongestCompared) {
        return nameOfPlace('L', &text);
    }
    std::string name(1 + text.size() * sizeof(char16_t), 'S');
    std::memcpy(name.data() + 1, text.data(), text.size() * sizeof(char16_t));
    return name;
}

std::string nameOfData(const Data& data) {
    return nameOf('B', std::array{reinterpret_cast<std::uintptr_t>(data.bytes()),
                                  std::uintptr_t{data.size()}});
}

/// The object itself, or where it came from an archive what it was there: others in that archive
/// may name it so.
const Object* identityOf(const Object* object) {
    const auto* const preserved = dynamic_cast<const PreservedObject*>(object);
    return preserved != nullptr && preserved->archivedForm() != nullptr
               ? preserved->archivedForm().get()
               : object;
}

/// What tells a value from others, so that it is written once.
std::string nameOfValue(const Value& value) {
    switch (value.kind()) {
        case ValueKind::Boolean:
            return nameOf('T', *value.boolean());
        case ValueKind::Integer:
            return value.integer() ? nameOf('I', *value.integer())
                                   : nameOf('U', *value.unsignedInteger());
        case ValueKind::Real:
            return nameOf('R', *value.real());
        case ValueKind::Date:
            return nameOf('D', value.date()->secondsSinceReferenceDate);
        case ValueKind::Data:
            return nameOfData(*value.data());
        case ValueKind::String:
            return nameOfString(*value.string());
        case ValueKind::Array:
            return nameOfPlace('A', value.array());
        case ValueKind::Dictionary:
            return nameOfPlace('M', value.dictionary());
        default:
            return nameOfPlace('O', identityOf(value.object().get()));
    }
}

Value stringsValue(const std::vector<std::string>& strings) {
    Array array;
    array.reserve(strings.size());
    for (const std::string& string : strings) {
        array.push_back(Value::fromUtf8(string));
    }
    return Value(std::move(array));
}

}  // namespace

/// The table of objects as far as it is written, and the objects being encoded.
class KeyedArchiver::Archive {
public:
    explicit Archive(KeyedArchiver& archiver) : archiver_(archiver) { scopes_.emplace_back(); }

    void set(std::string key, Value value) {
        scopes_.back().fields.set(std::move(key), std::move(value));
    }

    std::string nextUnkeyed() { return "$" + std::to_string(scopes_.back().nextUnkeyed++); }

    /// Returns the reference to `value`, which is written if it was not before.
    Value reference(const Value& value) {
        if (value.isNull()) {
            return Value(Uid{0});
        }
        if (value.kind() == ValueKind::Uid) {
            raise(ArchiveException("a reference of another archive cannot be archived"));
        }
        const Value target = followed(value);
        if (target.isNull()) {
            return Value(Uid{0});
        }
        const auto [number, isNew] = known_.add(nameOfValue(target), objects_.size());
        if (!isNew) {
            reach(depth_ + heights_[number]);
            return Value(Uid{number});
        }
        addEntry();
        // A name can hold an address, which must stay in use.
        archived_.push_back(target);
        const unsigned outerDeepest = std::exchange(deepest_, depth_);
        {
            const Level level(*this);
            Value entry = entryOf(target);
            objects_[number] = std::move(entry);
        }
        heights_[number] = deepest_ - depth_;
        deepest_ = std::max(outerDeepest, deepest_);
        return Value(Uid{number});
    }

    Value inlineValue(const Value& value, FieldForm form) {
        if (form == FieldForm::Reference || value.isNull() || value.kind() == ValueKind::Uid ||
            value.kind() == ValueKind::Object) {
            return reference(value);
        }
        const Level level(*this);
        const FieldForm elementForm =
            form == FieldForm::InlineOfReferences ? FieldForm::Reference : FieldForm::Inline;
        if (const Array* const array = value.array()) {
            Array elements;
            elements.reserve(array->size());
            for (const Value& element : *array) {
                elements.push_back(inlineValue(element, elementForm));
            }
            return Value(std::move(elements));
        }
        if (const Dictionary* const dictionary = value.dictionary()) {
            std::vector<Dictionary::Entry> entries;
            entries.reserve(dictionary->size());
            for (const auto& [key, element] : dictionary->entries()) {
                entries.emplace_back(key, inlineValue(element, elementForm));
            }
            return Value(Dictionary(std::move(entries)));
        }
        return value;
    }

    /// Returns the whole archive as a property list.
    Value finish() {
        return Value(Dictionary{{"$version", Value(kArchiveVersion)},
                                {"$archiver", Value::fromUtf8(archiver_.archiverName())},
                                {"$top", Value(scopes_.front().fields)},
                                {"$objects", Value(objects_)}});
    }

private:
    /// An object that is being encoded: its fields so far.
    struct Scope {
        Dictionary fields;
        std::uint64_t nextUnkeyed = 0;
    };

    /// One more level of nesting, as readers count them, while it lives.
    class Level {
    public:
        explicit Level(Archive& archive) : archive_(archive) {
            archive_.reach(archive_.depth_);
            ++archive_.depth_;
        }
        ~Level() { --archive_.depth_; }
        Level(const Level&) = delete;
        Level& operator=(const Level&) = delete;

    private:
        Archive& archive_;
    };

    /// Notes that something lies so deep; raises where readers don't follow.
    void reach(unsigned depth) {
        if (depth > kMaxArchiveDepth) {
            raise(ArchiveException("nested deeper than " + std::to_string(kMaxArchiveDepth) +
                                   " levels"));
        }
        deepest_ = std::max(deepest_, depth);
    }

    /// Makes a place at the end of the table.
    void addEntry(Value entry = {}) {
        objects_.push_back(std::move(entry));
        heights_.push_back(0);
    }

    /// The object that a back reference stands for, null when it is gone: it was damaged, so that
    /// nobody has it. Any other value as it is.
    static Value followed(const Value& value) {
        const auto object = value.object();
        const auto* const back = dynamic_cast<const BackReference*>(object.get());
        if (back == nullptr) {
            return value;
        }
        return Value(std::static_pointer_cast<const Object>(back->target.lock()));
    }

    Value entryOf(const Value& value) {
        switch (value.kind()) {
            case ValueKind::String:
                return stringEntry(value);
            case ValueKind::Date:
                return standardObject({"NSDate", "NSObject"}, [&] {
                    set("NS.time", Value(value.date()->secondsSinceReferenceDate));
                });
            case ValueKind::Array:
                return standardObject({"NSArray", "NSObject"},
                                      [&] { set("NS.objects", references(*value.array())); });
            case ValueKind::Dictionary:
                return standardObject({"NSDictionary", "NSObject"},
                                      [&] { setDictionary(*value.dictionary()); });
            case ValueKind::Object:
                return objectEntry(value);
            default:
                return value;
        }
    }

    /// A text that looks like the null entry would be read as one: it becomes an object.
    Value stringEntry(const Value& text) {
        if (*text.string() != kNullName) {
            return text;
        }
        return standardObject({"NSMutableString", "NSString", "NSObject"},
                              [&] { set("NS.string", text); });
    }

    Value objectEntry(const Value& value) {
        const auto object = value.object();
        const auto* const codable = dynamic_cast<const Codable*>(object.get());
        if (codable == nullptr) {
            raise(ArchiveException("an object without a form in archives"));
        }
        return instance(codable->archivedClass(), [&] { codable->encodeWithCoder(archiver_); });
    }

    template <class Encode>
    Value standardObject(std::vector<std::string> names, Encode encode) {
        return instance(classNamed(std::move(names)), encode);
    }

    /// Returns the entry of an instance; its class comes after what it holds.
    template <class Encode>
    Value instance(const std::shared_ptr<const ArchivedClassNames>& type, Encode encode) {
        scopes_.emplace_back();
        encode();
        Dictionary fields = std::move(scopes_.back().fields);
        scopes_.pop_back();
        if (type != nullptr) {
            fields.set("$class", classReference(*type));
        }
        return Value(std::move(fields));
    }

    Value references(const Array& values) {
        const Level level(*this);
        Array array;
        array.reserve(values.size());
        for (const Value& value : values) {
            array.push_back(reference(value));
        }
        return Value(std::move(array));
    }

    /// Long keys are written once, too: many dictionaries may have them.
    Value keyReference(const std::string& key) {
        if (const std::size_t* const number = keys_.find(key)) {
            return Value(Uid{*number});
        }
        Value written = reference(Value::fromUtf8(key));
        keys_.add(key, written.uid()->index);
        return written;
    }

    void setDictionary(const Dictionary& dictionary) {
        const Level level(*this);
        Array keys;
        Array values;
        keys.reserve(dictionary.size());
        values.reserve(dictionary.size());
        for (const auto& [key, value] : dictionary.entries()) {
            keys.push_back(keyReference(key));
        }
        for (const auto& [key, value] : dictionary.entries()) {
            values.push_back(reference(value));
        }
        set("NS.keys", Value(std::move(keys)));
        set("NS.objects", Value(std::move(values)));
    }

    Value classReference(const ArchivedClassNames& names) {
        std::string name = "C";
        for (const auto* const list : {&names.names, &names.hints}) {
            for (const std::string& text : *list) {
                name.append(text).push_back('\0');
            }
            name.push_back('\0');
        }
        const auto [number, isNew] = known_.add(std::move(name), objects_.size());
        if (isNew) {
            Dictionary entry{{"$classname", Value::fromUtf8(names.names.front())},
                             {"$classes", stringsValue(names.names)}};
            if (!names.hints.empty()) {
                entry.set("$classhints", stringsValue(names.hints));
            }
            addEntry(Value(std::move(entry)));
        }
        return Value(Uid{number});
    }

    KeyedArchiver& archiver_;
    Array objects_{Value(kNullName)};
    /// What was written, with its place in the table.
    NameTable known_;
    NameTable keys_;
    /// How many levels are below each entry of the table; 0 while it is not finished.
    std::vector<unsigned> heights_{0};
    std::vector<Value> archived_;
    /// The archive's top level, then the objects being encoded, innermost last.
    std::vector<Scope> scopes_;
    unsigned depth_ = 0;
    /// The deepest level reached by the object that is being written.
    unsigned deepest_ = 0;
};

KeyedArchiver::KeyedArchiver() : archive_(std::make_unique<Archive>(*this)) {
}

KeyedArchiver::~KeyedArchiver() = default;

std::shared_ptr<KeyedArchiver> KeyedArchiver::init() {
    return std::shared_ptr<KeyedArchiver>(new KeyedArchiver());
}

Data KeyedArchiver::archivedDataWithRootObject(const Value& root) {
    const auto archiver = init();
    archiver->encodeObject(root, "root");
    return archiver->encodedData();
}

Result<Data> KeyedArchiver::archiveOfRootObject(const Value& root) {
    try {
        return archivedDataWithRootObject(root);
    } catch (const ArchiveException& exception) {
        return Fault{FaultCode::Unsupported, exception.reason()};
    }
}

void KeyedArchiver::encodeObject(const Value& object, std::string_view forKey) {
    archive_->set(KeyedArchiveTable::spelling(forKey), archive_->reference(object));
}

void KeyedArchiver::encodeObject(const Value& object) {
    std::string key = archive_->nextUnkeyed();
    archive_->set(std::move(key), archive_->reference(object));
}

void KeyedArchiver::encodeInteger(std::int64_t integer, std::string_view forKey) {
    archive_->set(KeyedArchiveTable::spelling(forKey), Value(integer));
}

void KeyedArchiver::encodeDouble(double number, std::string_view forKey) {
    archive_->set(KeyedArchiveTable::spelling(forKey), Value(number));
}

void KeyedArchiver::encodeBool(bool flag, std::string_view forKey) {
    archive_->set(KeyedArchiveTable::spelling(forKey), Value(flag));
}

void KeyedArchiver::encodeBytes(const Data& bytes, std::string_view forKey) {
    archive_->set(KeyedArchiveTable::spelling(forKey), Value(bytes));
}

void KeyedArchiver::encodeField(const OpaqueField& field) {
    archive_->set(field.name, archive_->inlineValue(field.value, field.form));
}

Data KeyedArchiver::encodedData() {
    auto data = PropertyListSerialization::dataWithPropertyList(archive_->finish(), format_);
    if (!data) {
        raise(ArchiveException(data.fault().detail));
    }
    return std::move(data).value();
}

}  // namespace platform

#include "Platform/Foundation/KeyedUnarchiver.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/ArchivedObject.h"
#include "Platform/Foundation/Exception.h"
#include "Tools/samples/ArchiveBuilder.h"

namespace platform {
namespace {

using samples::ArchiveBuilder;

Value decode(const Data& archive) {
    return KeyedUnarchiver::initForReadingWithData(archive)->decodeObject();
}

/// The reason with which reading `archive` fails; empty when it does not.
std::string failureOf(const Data& archive) {
    try {
        (void)decode(archive);
        return "";
    } catch (const UnarchiveException& exception) {
        return exception.reason();
    }
}

std::shared_ptr<const OpaqueObject> opaque(const Value& value) {
    return std::dynamic_pointer_cast<const OpaqueObject>(value.object());
}

Data propertyList(const Value& value) {
    return PropertyListSerialization::dataWithPropertyList(value, PropertyListFormat::Binary)
        .value();
}

TEST(KeyedUnarchiver, ReadsEveryFoundationClassInBothForms) {
    for (const auto format : {PropertyListFormat::Binary, PropertyListFormat::Xml}) {
        ArchiveBuilder b;
        const Uid mutableString =
            b.addInstance(b.addClass({"NSMutableString", "NSString", "NSObject"}),
                          {{"NS.string", Value(u"two")}});
        const Uid bytesString = b.addInstance(b.addClass({"NSString", "NSObject"}),
                                              {{"NS.bytes", Value(Data::copyOf("caf\xC3\xA9"))}});
        const Uid emptyString = b.addInstance(b.addClass({"NSString", "NSObject"}), {});
        const Uid date =
            b.addInstance(b.addClass({"NSDate", "NSObject"}), {{"NS.time", Value(12.5)}});
        const Uid data = b.addInstance(b.addClass({"NSMutableData", "NSData", "NSObject"}),
                                       {{"NS.data", Value(Data::copyOf("abc"))}});
        const Uid numbered = b.addInstance(
            b.addClass({"NSArray", "NSObject"}),
            {{"NS.object.1", Value(b.add(u"b"))}, {"NS.object.0", Value(b.add(u"a"))}});
        const Uid numberedDictionary = b.addInstance(
            b.addClass({"NSDictionary", "NSObject"}),
            {{"NS.key.0", Value(b.add(u"k"))}, {"NS.object.0", Value(b.add(Value(1)))}});
        const Uid array =
            b.addArray({b.add(u"one"), mutableString, b.add(Value(3)), b.add(Value(true)), date,
                        data, Uid{0}, bytesString, emptyString, numbered, numberedDictionary});
        const Uid root = b.addDictionary({{b.add(u"list"), array}, {b.add(u"again"), array}});
        const Value list = Array{Value(u"one"),
                                 Value(u"two"),
                                 Value(3),
                                 Value(true),
                                 Value(Date{12.5}),
                                 Value(Data::copyOf("abc")),
                                 Value(),
                                 Value(u"caf\u00E9"),
                                 Value(u""),
                                 Value(Array{Value(u"a"), Value(u"b")}),
                                 Value(Dictionary{{"k", Value(1)}})};
        EXPECT_EQ(decode(b.finish(root, format)),
                  Value(Dictionary{{"list", list}, {"again", list}}));
    }
}

TEST(KeyedUnarchiver, ReadsOddSpellingsOfTheSameFacts) {
    const Value one(1);
    const Value text(u"caf\u00E9");
    const Value utf8(Data::copyOf("caf\xC3\xA9"));
    struct Row {
        const char* name;
        const char* type;
        /// Fields; those whose names begin with "@" are references to what they hold.
        Dictionary fields;
        Value want;
    };
    const Row rows[] = {
        {"string of a reference", "NSMutableString", {{"@NS.string", text}}, text},
        {"string of inline bytes", "NSString", {{"NS.bytes", utf8}}, text},
        {"string of referenced bytes", "NSString", {{"@NS.bytes", utf8}}, text},
        {"string of a string called bytes", "NSString", {{"@NS.bytes", text}}, text},
        {"data called bytes", "NSData", {{"NS.bytes", utf8}}, utf8},
        {"data of a reference", "NSMutableData", {{"@NS.data", utf8}}, utf8},
        {"number", "NSNumber", {{"NS.number", one}}, one},
        {"number by its C type", "NSNumber", {{"NS.intval", one}}, one},
        {"truth by its C type", "NSNumber", {{"NS.boolval", Value(true)}}, Value(true)},
        {"real by its C type", "NSNumber", {{"@NS.dblval", Value(0.5)}}, Value(0.5)},
        {"date of whole seconds", "NSDate", {{"NS.time", one}}, Value(Date{1})},
        {"array of numbered fields",
         "NSMutableArray",
         {{"@NS.object.1", Value(2)}, {"@NS.object.0", one}},
         Value(Array{one, Value(2)})},
        {"numbered fields with a gap end at it",
         "NSArray",
         {{"@NS.object.0", one}, {"@NS.object.2", Value(3)}},
         Value(Array{one})},
        {"dictionary of numbered fields",
         "NSDictionary",
         {{"@NS.key.0", text}, {"@NS.object.0", one}},
         Value(Dictionary{{"caf\u00E9", one}})},
    };
    for (const auto format : {PropertyListFormat::Binary, PropertyListFormat::Xml}) {
        for (const Row& row : rows) {
            SCOPED_TRACE(row.name);
            ArchiveBuilder b;
            // Where a name is mapped, the class states no superclasses.
            const Uid type = b.add(Value(Dictionary{{"$classname", Value::fromUtf8(row.type)}}));
            Dictionary fields;
            for (const auto& [key, value] : row.fields.entries()) {
                const bool isReference = key.starts_with('@');
                fields.set(isReference ? key.substr(1) : key, isReference ? b.add(value) : value);
            }
            EXPECT_EQ(decode(b.finish(b.addInstance(type, fields), format)), row.want);
        }
    }
    ArchiveBuilder b;
    EXPECT_NE(opaque(decode(b.finish(b.addInstance(b.addClass({"NSNumber"}), {})))), nullptr)
        << "a number without a value stays as it is";
}

TEST(KeyedUnarchiver, ChoosesTheTopLevelObject) {
    struct Row {
        const char* name;
        Dictionary top;
        Value want;
    };
    ArchiveBuilder b;
    const Uid a = b.add(u"a");
    const Uid c = b.add(u"c");
    const Row rows[] = {
        {"root", {{"other", Value(c)}, {"root", Value(a)}}, Value(u"a")},
        {"the only key", {{"foundItems", Value(a)}}, Value(u"a")},
        {"unkeyed before root", {{"root", Value(c)}, {"$0", Value(a)}}, Value(u"a")},
        {"inline string", {{"root", Value(u"inline")}}, Value(u"inline")},
        {"null object", {{"root", Value(Uid{0})}}, Value()},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(decode(b.finishWithTop(row.top)), row.want);
    }
    EXPECT_EQ(failureOf(b.finishWithTop({{"x", Value(a)}, {"y", Value(c)}})),
              "keyed archive without a root object");
    EXPECT_EQ(failureOf(b.finishWithTop({})), "keyed archive without a root object");
}

TEST(KeyedUnarchiver, UnkeyedObjectsComeOneAfterAnother) {
    ArchiveBuilder b;
    const Data archive = b.finishWithTop({{"$0", Value(b.add(u"a"))}, {"$1", Value(b.add(u"b"))}});
    const auto unarchiver = KeyedUnarchiver::initForReadingWithData(archive);
    EXPECT_EQ(unarchiver->decodeObject(), Value(u"a"));
    EXPECT_EQ(unarchiver->decodeObject(), Value(u"b"));
    EXPECT_THROW((void)unarchiver->decodeObject(), UnarchiveException);

    const auto one =
        KeyedUnarchiver::initForReadingWithData(b.finishWithTop({{"$0", Value(Uid{1})}}));
    EXPECT_EQ(one->decodeObject(), Value(u"a"));
    EXPECT_THROW((void)one->decodeObject(), UnarchiveException) << "it is not the root, too";
}

TEST(KeyedUnarchiver, TopLevelKeysAreFoundAndEscaped) {
    ArchiveBuilder b;
    const Data archive = b.finishWithTop(
        {{"State", Value(b.add(u"s"))}, {"$$odd", Value(b.add(u"o"))}, {"nil", Value(Uid{0})}});
    const auto unarchiver = KeyedUnarchiver::initForReadingWithData(archive);
    EXPECT_EQ(unarchiver->decodeObjectForKey("State"), Value(u"s"));
    EXPECT_EQ(unarchiver->decodeObjectForKey("$odd"), Value(u"o"));
    EXPECT_TRUE(unarchiver->containsValueForKey("nil"));
    EXPECT_TRUE(unarchiver->decodeObjectForKey("nil").isNull());
    EXPECT_FALSE(unarchiver->containsValueForKey("none"));
    EXPECT_TRUE(unarchiver->decodeObjectForKey("none").isNull());
    unarchiver->finishDecoding();
    EXPECT_FALSE(unarchiver->containsValueForKey("State"));
    EXPECT_TRUE(unarchiver->decodeObject().isNull());
}

TEST(KeyedUnarchiver, UnknownClassesBecomeOpaqueObjectsWithAllFields) {
    ArchiveBuilder b;
    const Uid part = b.addInstance(b.addClass({"AcmePart", "NSObject"}), {{"n", Value(4)}});
    const Uid root = b.addInstance(b.addClass({"AcmeThing", "AcmeBase", "NSObject"}),
                                   {{"part", Value(part)},
                                    {"flags", Value(Array{Value(1), Value(part)})},
                                    {"none", Value(Uid{0})}});
    const auto thing = opaque(decode(b.finish(root)));
    ASSERT_NE(thing, nullptr);
    EXPECT_EQ(thing->type->names, (std::vector<std::string>{"AcmeThing", "AcmeBase", "NSObject"}));
    ASSERT_EQ(thing->fields.size(), 3u) << "the class is no field";
    const auto inner = opaque((*thing)["part"]);
    ASSERT_NE(inner, nullptr);
    EXPECT_EQ((*inner)["n"], Value(4));
    EXPECT_EQ((*(*thing)["flags"].array())[1].object(), inner) << "one object, named twice";
    EXPECT_TRUE((*thing)["none"].isNull());
}

TEST(KeyedUnarchiver, SuperclassesAndHintsServeForUnknownClasses) {
    ArchiveBuilder b;
    const Uid derived = b.addInstance(b.addClass({"AcmeString", "NSMutableString", "NSString"}),
                                      {{"NS.string", Value(u"text")}});
    EXPECT_EQ(decode(b.finish(derived)), Value(u"text"));

    const Uid hinted = b.add(Dictionary{{"$classname", Value(u"AcmeText")},
                                        {"$classhints", Value(Array{Value(u"NSString")})}});
    const Uid instance = b.addInstance(hinted, {{"NS.string", Value(u"hint")}});
    EXPECT_EQ(decode(b.finish(instance)), Value(u"hint"));
}

TEST(KeyedUnarchiver, KnownClassesCanBeAdded) {
    static constexpr CodableClass kClasses[] = {
        {"AcmePair", [](const ArchivedObject& object) -> Result<Value> {
             const Value first = PV_TRY(object.objectForKey("first"));
             const Value second = PV_TRY(object.objectForKey("second"));
             return Value(Array{first, second});
         }}};
    ArchiveBuilder b;
    const Uid root = b.addInstance(b.addClass({"AcmePair", "NSObject"}),
                                   {{"first", Value(b.add(u"a"))}, {"second", Value(2)}});
    const auto unarchiver = KeyedUnarchiver::initForReadingWithData(b.finish(root));
    unarchiver->addClasses(kClasses);
    EXPECT_EQ(unarchiver->decodeObject(), Value(Array{Value(u"a"), Value(2)}));
}

TEST(KeyedUnarchiver, CyclesThroughOpaqueObjectsAreKeptAsBackReferences) {
    ArchiveBuilder b;
    const Uid type = b.addClass({"AcmeNode", "NSObject"});
    const Uid child = b.addInstance(type, {{"parent", Value(Uid{3})}});
    const Uid root = b.addInstance(type, {{"child", Value(child)}});
    ASSERT_EQ(root.index, 3u);
    const auto parent = opaque(decode(b.finish(root)));
    ASSERT_NE(parent, nullptr);
    const auto inner = opaque((*parent)["child"]);
    ASSERT_NE(inner, nullptr);
    const auto back = std::dynamic_pointer_cast<const BackReference>((*inner)["parent"].object());
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->target.lock(), parent);
}

TEST(KeyedUnarchiver, DictionariesWithOtherKeysStayOpaque) {
    ArchiveBuilder b;
    const Uid root = b.addDictionary({{b.add(Value(7)), b.add(u"seven")}});
    const auto dictionary = opaque(decode(b.finish(root)));
    ASSERT_NE(dictionary, nullptr);
    EXPECT_EQ(dictionary->type->names.front(), "NSDictionary");
}

TEST(KeyedUnarchiver, DamageIsRaisedAndNamed) {
    ArchiveBuilder good;
    const Value noTop = Dictionary{{"$objects", Value(Array{})}};
    const Value noObjects = Dictionary{{"$top", Value(Dictionary())}};
    const Value listObjects =
        Dictionary{{"$top", Value(Dictionary())}, {"$objects", Value(Dictionary())}};
    ArchiveBuilder cyclic;
    const Uid loop = cyclic.addArray({Uid{2}});
    ArchiveBuilder pairs;
    const Uid uneven = pairs.addInstance(
        pairs.addClass({"NSDictionary"}),
        {{"NS.keys", Value(Array{Value(pairs.add(u"k"))})}, {"NS.objects", Value(Array{})}});
    ArchiveBuilder classes;
    const Uid notAClass = classes.addInstance(classes.add(u"name"), {});
    const Uid farClass = classes.addInstance(Uid{88}, {});
    const Uid inlineClass = classes.add(Value(Dictionary{{"$class", Value(u"NSArray")}}));
    const Uid noDate = classes.addInstance(classes.addClass({"NSDate"}), {});
    struct Row {
        const char* name;
        Data archive;
        const char* reason;
    };
    const Row rows[] = {
        {"no property list", Data::copyOf("words"), "syntax error in line 1"},
        {"empty", Data(), "no element found in line 1"},
        {"plain property list", propertyList(Value(u"x")),
         "property list that is no keyed archive"},
        {"no top", propertyList(noTop), "keyed archive without $top"},
        {"no objects", propertyList(noObjects), "keyed archive without $objects"},
        {"objects of another kind", propertyList(listObjects), "$objects that is no array"},
        {"root outside of the table", good.finish(Uid{41}), "reference 41 of 1"},
        {"array that contains itself", cyclic.finish(loop), "object 2 contains itself"},
        {"uneven dictionary", pairs.finish(uneven), "object 3: dictionary of 1 keys and 0 values"},
        {"class that is none", classes.finish(notAClass),
         "object 2: $class that leads to no class"},
        {"class outside of the table", classes.finish(farClass), "object 3: reference 88 of 7"},
        {"class inline", classes.finish(inlineClass), "object 4: $class that is no reference"},
        {"object 6: date without a time", classes.finish(noDate), "object 6: date without a time"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(failureOf(row.archive), row.reason);
    }
}

TEST(KeyedUnarchiver, NestingIsBoundedWhicheverEndIsDecodedFirst) {
    for (const bool innerFirst : {false, true}) {
        ArchiveBuilder b;
        std::vector<Uid> arrays{b.add(u"x")};
        const Uid type = b.addClass({"NSArray", "NSObject"});
        for (int i = 0; i < 20000; ++i) {
            arrays.push_back(
                b.addInstance(type, {{"NS.objects", Value(Array{Value(arrays.back())})}}));
        }
        if (!innerFirst) {
            arrays = {arrays.back()};
        }
        const std::string failure = failureOf(b.finish(b.addArray(arrays)));
        EXPECT_NE(failure.find(": nested deeper than 128 levels"), std::string::npos) << failure;
    }
    ArchiveBuilder b;
    Uid inner = b.add(u"x");
    for (int i = 0; i < 60; ++i) {
        inner = b.addArray({inner});
    }
    EXPECT_EQ(failureOf(b.finish(inner)), "") << "what people nest is far from the bound";
}

TEST(KeyedUnarchiver, ReferencesToReferencesEnd) {
    // In XML a table entry can itself be a reference, here to itself and around.
    ArchiveBuilder b;
    const Uid first = b.add(Value(Uid{2}));
    b.add(Value(Uid{1}));
    EXPECT_EQ(failureOf(b.finish(first)), "object 1 contains itself");
}

TEST(KeyedUnarchiver, SharedObjectsAreDecodedOnce) {
    ArchiveBuilder b;
    Uid inner = b.add(u"leaf");
    for (int i = 0; i < 40; ++i) {
        inner = b.addArray(std::vector<Uid>(10, inner));
    }
    EXPECT_EQ(decode(b.finish(inner)).array()->size(), 10u);
}

TEST(KeyedUnarchiver, BytesThatManyStringsShareCountForEachOfThem) {
    ArchiveBuilder b;
    const Uid bytes = b.add(Data::copyOf(std::string(20000, 'x')));
    const Uid type = b.addClass({"NSString", "NSObject"});
    std::vector<Uid> strings;
    for (int i = 0; i < 200; ++i) {
        strings.push_back(b.addInstance(type, {{"NS.bytes", Value(bytes)}}));
    }
    const std::string failure = failureOf(b.finish(b.addArray(strings)));
    EXPECT_NE(failure.find(": holds more than 64 times its size"), std::string::npos) << failure;
}

TEST(KeyedUnarchiver, TextsThatManyUrlsShareCountForEachOfThem) {
    ArchiveBuilder b;
    const Uid text = b.add(std::u16string(20000, u'x'));
    const Uid type = b.addClass({"NSURL", "NSObject"});
    std::vector<Uid> urls;
    for (int i = 0; i < 400; ++i) {
        urls.push_back(b.addInstance(type, {{"NS.relative", Value(text)}}));
    }
    const std::string failure = failureOf(b.finish(b.addArray(urls)));
    EXPECT_NE(failure.find(": holds more than 64 times its size"), std::string::npos) << failure;
}

TEST(KeyedUnarchiver, CollectionsOfClassesOfTheirOwnKeepTheirFields) {
    const struct {
        const char* superclass;
        Dictionary fields;
        bool isOpaque;
    } kRows[] = {
        {"NSDictionary", {{"Own", Value(1)}}, true},
        {"NSArray", {{"Own", Value(1)}}, true},
        {"NSDictionary", {}, false},
        {"NSArray", {}, false},
        {"NSArray", {{"NS.objects", Value(Array())}, {"Own", Value(1)}}, false},
        {"NSDictionary", {{"NS.keys", Value(Array())}, {"NS.objects", Value(Array())}}, false},
    };
    for (const auto& row : kRows) {
        ArchiveBuilder b;
        const Uid type = b.addClass({"AcmeValues", row.superclass, "NSObject"});
        const Value value = decode(b.finish(b.addInstance(type, row.fields)));
        EXPECT_EQ(opaque(value) != nullptr, row.isOpaque) << row.superclass;
    }
}

TEST(KeyedUnarchiver, NamesThatManyClassesShareCountForEachOfThem) {
    ArchiveBuilder b;
    const Value names = Array(1000, u"Odd");
    std::vector<Uid> objects;
    for (int i = 0; i < 100; ++i) {
        const Uid type = b.add(Dictionary{{"$classname", u"Odd"}, {"$classes", names}});
        objects.push_back(b.addInstance(type, {}));
    }
    const std::string failure = failureOf(b.finish(b.addArray(objects)));
    EXPECT_NE(failure.find(": holds more than 64 times its size"), std::string::npos) << failure;
}

TEST(KeyedUnarchiver, ManyReferencesToOneClassCostNothing) {
    // Every instance names its class through an entry of its own that holds one and the same class.
    ArchiveBuilder b;
    const Value type = Dictionary{{"$classname", u"Odd"}, {"$classes", Value(Array(100, u"Odd"))}};
    std::vector<Uid> objects;
    for (int i = 0; i < 1000; ++i) {
        objects.push_back(b.addInstance(b.add(type), {}));
    }
    EXPECT_EQ(failureOf(b.finish(b.addArray(objects))), "");
}

TEST(KeyedUnarchiver, DamagedObjectsStayDamaged) {
    static constexpr CodableClass kClasses[] = {
        {"AcmePair", [](const ArchivedObject& object) -> Result<Value> {
             const auto first = object.objectForKey("first");
             const auto second = object.objectForKey("second");
             EXPECT_FALSE(first);
             EXPECT_FALSE(second);
             EXPECT_EQ(first.fault().detail, second.fault().detail);
             return Value(u"seen");
         }}};
    ArchiveBuilder b;
    const Uid damaged = b.addInstance(b.addClass({"NSDate", "NSObject"}), {});
    const Uid root = b.addInstance(b.addClass({"AcmePair", "NSObject"}),
                                   {{"first", Value(damaged)}, {"second", Value(damaged)}});
    const auto unarchiver = KeyedUnarchiver::initForReadingWithData(b.finish(root));
    unarchiver->addClasses(kClasses);
    EXPECT_EQ(unarchiver->decodeObject(), Value(u"seen"));
}

TEST(KeyedUnarchiver, EveryPrefixOfAGoodArchiveRaises) {
    const Data archive = samples::archiveOfText(u"A text of some length, with caf\u00E9.");
    for (std::size_t size = 0; size < archive.size(); ++size) {
        EXPECT_NE(failureOf(archive.subdataWithRange({0, size})), "") << size;
    }
}

TEST(KeyedUnarchiver, AnyByteMayBeWrong) {
    const Data archive = samples::archiveOfText(u"short");
    for (std::size_t at = 0; at < archive.size(); ++at) {
        for (const int flip : {0x01, 0x10, 0x80, 0xFF}) {
            std::string bytes(archive.view());
            bytes[at] = static_cast<char>(bytes[at] ^ flip);
            // A value or an UnarchiveException; anything else ends the test.
            (void)failureOf(Data::copyOf(bytes));
        }
    }
}

}  // namespace
}  // namespace platform

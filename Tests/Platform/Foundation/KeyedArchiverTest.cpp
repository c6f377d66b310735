#include "Platform/Foundation/KeyedArchiver.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/KeyedUnarchiver.h"
#include "Platform/Foundation/URLReference.h"
#include "Tools/samples/ArchiveBuilder.h"

namespace platform {
namespace {

Value plist(const Data& archive) {
    return PropertyListSerialization::propertyListWithData(archive).value();
}

Value decode(const Data& archive) {
    return KeyedUnarchiver::initForReadingWithData(archive)->decodeObject();
}

std::shared_ptr<const OpaqueObject> opaque(const Value& value) {
    return std::dynamic_pointer_cast<const OpaqueObject>(value.object());
}

/// The table of objects of the archive of `root`.
Array objectsOf(const Value& root) {
    return *(*plist(KeyedArchiver::archivedDataWithRootObject(root)).dictionary())["$objects"]
                .array();
}

std::string failureOf(const std::function<void()>& action) {
    try {
        action();
        return "";
    } catch (const ArchiveException& exception) {
        return exception.reason();
    }
}

TEST(KeyedArchiver, TheFrameIsThatOfThePlatform) {
    const Value archive = plist(KeyedArchiver::archivedDataWithRootObject(Value(u"hello")));
    EXPECT_EQ(archive,
              Value(Dictionary{{"$version", Value(100000)},
                               {"$archiver", Value(u"NSKeyedArchiver")},
                               {"$top", Value(Dictionary{{"root", Value(Uid{1})}})},
                               {"$objects", Value(Array{Value(u"$null"), Value(u"hello")})}}));
}

TEST(KeyedArchiver, ANullRootIsAReferenceToTheNullEntry) {
    const Data archive = KeyedArchiver::archivedDataWithRootObject(Value());
    EXPECT_EQ((*plist(archive).dictionary())["$top"], Value(Dictionary{{"root", Value(Uid{0})}}));
    EXPECT_EQ(objectsOf(Value()).size(), 1u);
    const auto unarchiver = KeyedUnarchiver::initForReadingWithData(archive);
    EXPECT_TRUE(unarchiver->containsValueForKey("root"));
    EXPECT_TRUE(unarchiver->decodeObject().isNull());
}

TEST(KeyedArchiver, EveryValueIsReadBackAsItWas) {
    const struct {
        const char* name;
        Value value;
    } kRows[] = {
        {"true", Value(true)},
        {"false", Value(false)},
        {"zero", Value(0)},
        {"negative", Value(-1)},
        {"smallest", Value(std::numeric_limits<std::int64_t>::min())},
        {"above the signed range", Value(std::numeric_limits<std::uint64_t>::max())},
        {"real", Value(0.1)},
        {"whole real", Value(3.0)},
        {"infinity", Value(std::numeric_limits<double>::infinity())},
        {"date", Value(Date{-12.5})},
        {"data", Value(Data::copyOf("abc"))},
        {"no data", Value(Data())},
        {"text", Value(u"Gr\u00FC\u00DFe \U0001F600")},
        {"empty text", Value(u"")},
        {"text like the null entry", Value(u"$null")},
        {"text with NUL and a lone surrogate", Value(std::u16string{u'a', 0, 0xD800, u'b'})},
        {"array", Value(Array{Value(1), Value(), Value(u"x"), Value(Array())})},
        {"dictionary", Value(Dictionary{{"$k", Value(1)}, {"", Value(Dictionary())}})},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        const Value again = decode(KeyedArchiver::archivedDataWithRootObject(row.value));
        EXPECT_EQ(again, row.value);
        EXPECT_EQ(again.kind(), row.value.kind());
    }
}

TEST(KeyedArchiver, WhatOccursAgainIsWrittenOnce) {
    const Value shared(Array{Value(Date{1}), Value(Data::copyOf("abc"))});
    const Value longText(std::u16string(1000, u'x'));
    const Array objects =
        objectsOf(Value(Array{Value(u"text"), Value(u"text"), Value(7), Value(7), shared, shared,
                              Value(Date{1}), longText, longText}));
    // null, root, "text", 7, shared, its date, class NSDate, data, class NSArray, long text
    EXPECT_EQ(objects.size(), 10u);
}

TEST(KeyedArchiver, EqualNumbersOfDifferentKindsStayApart) {
    const Value value(Array{Value(1), Value(1.0), Value(true), Value(u"1")});
    EXPECT_EQ(decode(KeyedArchiver::archivedDataWithRootObject(value)), value);
}

TEST(KeyedArchiver, TopLevelTakesValuesOfEveryKind) {
    const auto archiver = KeyedArchiver::init();
    archiver->encodeObject(Value(u"first"));
    archiver->encodeObject(Value(u"object"), "o");
    archiver->encodeInteger(-3, "i");
    archiver->encodeDouble(2.5, "d");
    archiver->encodeBool(true, "b");
    archiver->encodeBytes(Data::copyOf("raw"), "bytes");
    archiver->encodeInteger(4, "$dollar");
    archiver->encodeObject(Value(u"second"));
    archiver->encodeInteger(5, "i");
    const Data archive = archiver->encodedData();

    const Value top = (*plist(archive).dictionary())["$top"];
    EXPECT_EQ((*top.dictionary())["i"], Value(5)) << "given again";
    EXPECT_EQ((*top.dictionary())["d"], Value(2.5));
    EXPECT_EQ((*top.dictionary())["b"], Value(true));
    EXPECT_EQ((*top.dictionary())["bytes"], Value(Data::copyOf("raw")));
    EXPECT_EQ((*top.dictionary())["$$dollar"], Value(4)) << "doubled, it meets no reserved name";

    const auto unarchiver = KeyedUnarchiver::initForReadingWithData(archive);
    EXPECT_EQ(unarchiver->decodeObject(), Value(u"first"));
    EXPECT_EQ(unarchiver->decodeObject(), Value(u"second"));
    EXPECT_EQ(unarchiver->decodeObjectForKey("o"), Value(u"object"));
    EXPECT_EQ(unarchiver->decodeObjectForKey("$dollar"), Value(4));
}

TEST(KeyedArchiver, XmlArchivesHoldTheSame) {
    const Value root(Array{Value(u"a < b\r\n"), Value(Dictionary{{"k", Value(Date{0})}})});
    const auto archiver = KeyedArchiver::init();
    EXPECT_EQ(archiver->outputFormat(), PropertyListFormat::Binary);
    archiver->setOutputFormat(PropertyListFormat::Xml);
    archiver->encodeObject(root, "root");
    const Data archive = archiver->encodedData();
    EXPECT_TRUE(archive.view().starts_with("<?xml"));
    EXPECT_NE(archive.view().find("<key>CF$UID</key>"), std::string_view::npos);
    EXPECT_EQ(decode(archive), root);
}

TEST(KeyedArchiver, FieldsKeepTheFormThatTheyHad) {
    const auto part = OpaqueObject::make({"Part", "NSObject"}, {{"n", Value(4)}});
    const Value object(OpaqueObject::make(
        {"Thing", "NSObject"},
        {{"inline", Value(u"text")},
         {"reference", Value(u"text"), FieldForm::Reference},
         {"nothing", Value(), FieldForm::Reference},
         {"numbers", Value(Array{Value(1), Value(2)})},
         {"parts", Value(Array{Value(part), Value(u"text")}), FieldForm::InlineOfReferences},
         {"table", Value(Dictionary{{"k", Value(1)}}), FieldForm::InlineOfReferences},
         {"$0", Value(9)}}));
    const Array objects = objectsOf(object);
    ASSERT_EQ(objects.size(), 7u);
    EXPECT_EQ(objects[2], Value(u"text"));
    EXPECT_EQ(objects[5], Value(1)) << "an element of the table";
    EXPECT_EQ(objects[1], Value(Dictionary{{"inline", Value(u"text")},
                                           {"reference", Value(Uid{2})},
                                           {"nothing", Value(Uid{0})},
                                           {"numbers", Value(Array{Value(1), Value(2)})},
                                           {"parts", Value(Array{Value(Uid{3}), Value(Uid{2})})},
                                           {"table", Value(Dictionary{{"k", Value(Uid{5})}})},
                                           {"$0", Value(9)},
                                           {"$class", Value(Uid{6})}}));

    const auto again = opaque(decode(KeyedArchiver::archivedDataWithRootObject(object)));
    ASSERT_NE(again, nullptr);
    const FieldForm kForms[] = {
        FieldForm::Inline, FieldForm::Reference,          FieldForm::Reference,
        FieldForm::Inline, FieldForm::InlineOfReferences, FieldForm::InlineOfReferences,
        FieldForm::Inline};
    ASSERT_EQ(again->fields.size(), std::size(kForms));
    for (std::size_t i = 0; i < std::size(kForms); ++i) {
        EXPECT_EQ(again->fields[i].form, kForms[i]) << again->fields[i].name;
    }
}

TEST(KeyedArchiver, ClassesAreWrittenOnceWithTheirSuperclassesAndHints) {
    const auto hinted = std::make_shared<OpaqueObject>();
    hinted->type = std::make_shared<const ArchivedClassNames>(
        ArchivedClassNames{{"Special", "NSObject"}, {"Usual"}});
    const Value plain(OpaqueObject::make({"Special", "NSObject"}, {}));
    const Array objects =
        objectsOf(Value(Array{Value(std::shared_ptr<const Object>(hinted)), plain,
                              Value(OpaqueObject::make({"Special", "NSObject"}, {}))}));
    const Value names(Array{Value(u"Special"), Value(u"NSObject")});
    EXPECT_EQ(objects[3], Value(Dictionary{{"$classname", Value(u"Special")},
                                           {"$classes", names},
                                           {"$classhints", Value(Array{Value(u"Usual")})}}));
    EXPECT_EQ(objects[5],
              Value(Dictionary{{"$classname", Value(u"Special")}, {"$classes", names}}));
    EXPECT_EQ(objects[6], Value(Dictionary{{"$class", Value(Uid{5})}}));
}

TEST(KeyedArchiver, AnObjectWithoutAClassStaysWithoutOne) {
    const auto object = std::make_shared<OpaqueObject>();
    object->fields = {{"n", Value(1)}};
    EXPECT_EQ(objectsOf(Value(std::shared_ptr<const Object>(object)))[1],
              Value(Dictionary{{"n", Value(1)}}));
}

TEST(KeyedArchiver, CyclesAreReferencesAgain) {
    const auto parent = std::make_shared<OpaqueObject>();
    parent->type = classNamed({"Parent", "NSObject"});
    const Value back(std::make_shared<const BackReference>(parent));
    parent->fields = {{"self", back, FieldForm::Reference}};
    const Value root(std::static_pointer_cast<const Object>(parent));
    EXPECT_EQ(objectsOf(root)[1],
              Value(Dictionary{{"self", Value(Uid{1})}, {"$class", Value(Uid{2})}}));
    const auto again = opaque(decode(KeyedArchiver::archivedDataWithRootObject(root)));
    const auto self = std::dynamic_pointer_cast<const BackReference>((*again)["self"].object());
    ASSERT_NE(self, nullptr);
    EXPECT_EQ(self->target.lock(), again);
}

TEST(KeyedArchiver, APartWrittenWithoutItsWholeBringsItAlong) {
    const auto whole = std::make_shared<OpaqueObject>();
    whole->type = classNamed({"Whole"});
    const Value part(OpaqueObject::make(
        {"Part"},
        {{"whole", Value(std::make_shared<const BackReference>(whole)), FieldForm::Reference}}));
    whole->fields = {{"part", part, FieldForm::Reference}};
    const auto again = opaque(decode(KeyedArchiver::archivedDataWithRootObject(part)));
    const auto wholeAgain = opaque((*again)["whole"]);
    ASSERT_NE(wholeAgain, nullptr);
    EXPECT_EQ(wholeAgain->type->names.front(), "Whole");
}

/// An object that archives know nothing of.
class Formless final : public Object {};

TEST(KeyedArchiver, WhatNoArchiveHoldsRaises) {
    Value deep(1);
    for (unsigned i = 0; i <= kMaxArchiveDepth; ++i) {
        deep = Value(Array{deep});
    }
    Value deepInline(1);
    for (unsigned i = 0; i <= kMaxArchiveDepth; ++i) {
        deepInline = Value(Dictionary{{"k", deepInline}});
    }
    const struct {
        const char* name;
        Value value;
        const char* reason;
    } kRows[] = {
        {"foreign reference", Value(Uid{3}), "a reference of another archive cannot be archived"},
        {"object without a form", Value(std::make_shared<const Formless>()),
         "an object without a form in archives"},
        {"too deep", deep, "nested deeper than 128 levels"},
        {"too deep inside a field", Value(OpaqueObject::make({"T"}, {{"f", deepInline}})),
         "nested deeper than 128 levels"},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(failureOf([&] { (void)KeyedArchiver::archivedDataWithRootObject(row.value); }),
                  row.reason)
            << row.name;
    }
}

TEST(KeyedArchiver, TheDeepestThatIsWrittenIsRead) {
    Value deep(1);
    unsigned levels = 0;
    std::string failure;
    while (failure.empty()) {
        const Value deeper(Array{deep});
        failure = failureOf([&] { (void)KeyedArchiver::archivedDataWithRootObject(deeper); });
        if (failure.empty()) {
            deep = deeper;
            ++levels;
        }
    }
    EXPECT_GE(levels, 60u);
    EXPECT_EQ(decode(KeyedArchiver::archivedDataWithRootObject(deep)), deep);
}

TEST(KeyedArchiver, HeightsCountWhereverAnObjectIsNamedAgain) {
    const auto nested = [](Value inner, int levels) {
        for (int i = 0; i < levels; ++i) {
            inner = Value(Array{inner});
        }
        return inner;
    };
    const Value low = nested(Value(1), 40);
    const Value high = nested(low, 40);
    const char* const kTooDeep = "nested deeper than 128 levels";
    for (const Array& root : {Array{high}, Array{low, high}, Array{high, low}}) {
        EXPECT_EQ(failureOf([&] { (void)KeyedArchiver::archivedDataWithRootObject(Value(root)); }),
                  kTooDeep);
    }
}

TEST(KeyedArchiver, AContainerThatIsGoneIsWrittenAsNull) {
    const Value part(OpaqueObject::make(
        {"Part"},
        {{"whole",
          Value(std::make_shared<const BackReference>(std::weak_ptr<const OpaqueObject>())),
          FieldForm::Reference}}));
    const auto again = opaque(decode(KeyedArchiver::archivedDataWithRootObject(part)));
    ASSERT_NE(again, nullptr);
    EXPECT_TRUE((*again)["whole"].isNull());
}

TEST(KeyedArchiver, ContainersWithReferencesAnywhereStayReferences) {
    // An array that names the next one twice, and so on: inline, each level would double.
    samples::ArchiveBuilder b;
    Uid doubling = b.add(u"core");
    for (int i = 0; i < 60; ++i) {
        doubling = b.addArray({doubling, doubling});
    }
    const Uid type = b.addClass({"Odd", "NSObject"});
    const Data archive =
        b.finish(b.addInstance(type, {{"mixed", Value(Array{Value(1), Value(doubling)})},
                                      {"nested", Value(Array{Value(Array{Value(doubling)})})},
                                      {"plain", Value(Array{Value(1), Value(Array{Value(2)})})}}));
    const auto odd = opaque(decode(archive));
    ASSERT_NE(odd, nullptr);
    EXPECT_EQ(odd->fields[0].form, FieldForm::InlineOfReferences);
    EXPECT_EQ(odd->fields[1].form, FieldForm::InlineOfReferences);
    EXPECT_EQ(odd->fields[2].form, FieldForm::Inline);
    const Data again = KeyedArchiver::archivedDataWithRootObject(Value(odd));
    EXPECT_LT(again.size(), 2 * archive.size() + 200);
}

TEST(KeyedArchiver, LongKeysOfManyDictionariesAreWrittenOnce) {
    const std::string key(10000, 'k');
    Array dictionaries;
    for (int i = 0; i < 100; ++i) {
        dictionaries.push_back(Value(Dictionary{{key, Value(i)}}));
    }
    EXPECT_LT(KeyedArchiver::archivedDataWithRootObject(Value(dictionaries)).size(), 20000u);
}

TEST(KeyedArchiver, XmlRefusesTextThatItCannotHold) {
    const auto archiver = KeyedArchiver::init();
    archiver->setOutputFormat(PropertyListFormat::Xml);
    archiver->encodeObject(Value(u"bell \x07"), "root");
    EXPECT_EQ(failureOf([&] { (void)archiver->encodedData(); }),
              "text with the unit 0x7, which XML cannot hold");
}

TEST(URLReference, IsReadAndWritten) {
    const auto base = std::make_shared<const URLReference>("https://example.org/a/");
    const auto url = std::make_shared<const URLReference>("b.html", base);
    EXPECT_EQ(url->archivedForm(), nullptr) << "it was made here";
    const Data archive = KeyedArchiver::archivedDataWithRootObject(Value(url));
    const auto again = std::dynamic_pointer_cast<const URLReference>(decode(archive).object());
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->relativeString(), "b.html");
    ASSERT_NE(again->baseURL(), nullptr);
    EXPECT_EQ(again->baseURL()->relativeString(), "https://example.org/a/");
    EXPECT_EQ(again->baseURL()->baseURL(), nullptr);
    EXPECT_EQ(KeyedArchiver::archivedDataWithRootObject(Value(again)), archive);
}

TEST(URLReference, WithoutATextStaysOpaque) {
    const Value url(OpaqueObject::make({"NSURL", "NSObject"}, {{"NS.relative", Value(4)}}));
    EXPECT_NE(opaque(decode(KeyedArchiver::archivedDataWithRootObject(url))), nullptr);
}

}  // namespace
}  // namespace platform

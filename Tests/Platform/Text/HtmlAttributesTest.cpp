// What the characters and paragraphs of pages look like.

#include "Platform/Text/HtmlAttributes.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "Platform/Foundation/URLReference.h"
#include "Platform/Text/AttributeNames.h"
#include "Platform/Text/Font.h"
#include "Platform/Text/HtmlReader.h"

namespace platform {
namespace {

AttributedString read(std::string_view html) {
    return attributedStringFromHtml(Data::copyOf(html)).value();
}

/// The attribute of the text's first "x".
Value valueAtX(const AttributedString& text, const char* name) {
    const Attributes attributes = text.attributesAtIndex(text.string().find(u'x'));
    return attributes != nullptr ? (*attributes)[name] : Value();
}

template <class Type>
std::shared_ptr<const Type> objectAtX(const AttributedString& text, const char* name) {
    return std::dynamic_pointer_cast<const Type>(valueAtX(text, name).object());
}

TEST(HtmlAttributes, NameFonts) {
    const struct {
        const char* html;
        const char* name;
        double size;
    } kRows[] = {
        {"x", "Times-Roman", 12},
        {"<b>x</b>", "Times-Bold", 12},
        {"<strong>x", "Times-Bold", 12},
        {"<i>a<b>x", "Times-BoldItalic", 12},
        {"<i>a</i>x", "Times-Roman", 12},
        {"<code>x", "Courier", 12},
        {"<pre><b>x", "Courier-Bold", 12},
        {"<h1>x", "Times-Bold", 24},
        {"<h2>x", "Times-Bold", 18},
        {"<h6>x", "Times-Bold", 8.04},
        {"<h1>a</h1>x", "Times-Roman", 12},
        {"<small>x", "Times-Roman", 10},
        {"<big><big>x", "Times-Roman", 17.28},
        {"<table><tr><th>x", "Times-Bold", 12},
        {"<b><p>x</p></b>", "Times-Bold", 12},
        {"<p><b>a<p>x", "Times-Bold", 12},
        {"<b><table><tr><td>x", "Times-Bold", 12},
        {"<p><b>a<table><tr><td>x", "Times-Roman", 12},
        {"<b><p>a</b>x", "Times-Roman", 12},
        {"<i><div>a</i><div>x", "Times-Roman", 12},
        {"<tt><p>a<p><b>x", "Courier-Bold", 12},
        {"<h1><p>x", "Times-Bold", 24},
    };
    for (const auto& row : kRows) {
        const auto font = objectAtX<Font>(read(row.html), kFontAttributeName);
        ASSERT_NE(font, nullptr) << row.html;
        EXPECT_EQ(font->fontName(), row.name) << row.html;
        EXPECT_DOUBLE_EQ(font->pointSize(), row.size) << row.html;
    }
}

TEST(HtmlAttributes, DrawLinesAndRaiseText) {
    const struct {
        const char* html;
        const char* attribute;
        int value;
    } kRows[] = {
        {"<u>x", kUnderlineStyleAttributeName, kSingleLine},
        {"<ins>x", kUnderlineStyleAttributeName, kSingleLine},
        {"<u>a</u>x", kUnderlineStyleAttributeName, 0},
        {"<s>x", kStrikethroughStyleAttributeName, kSingleLine},
        {"<del>x", kStrikethroughStyleAttributeName, kSingleLine},
        {"<sup>x", kSuperscriptAttributeName, 1},
        {"<sub>x", kSuperscriptAttributeName, -1},
        {"<sub>a</sub>x", kSuperscriptAttributeName, 0},
    };
    for (const auto& row : kRows) {
        const Value value = valueAtX(read(row.html), row.attribute);
        EXPECT_EQ(value.integer().value_or(0), row.value) << row.html << row.attribute;
    }
}

TEST(HtmlAttributes, Link) {
    const struct {
        const char* html;
        const char* url;
    } kRows[] = {
        {"<a href=http://a/?b&amp;c>x</a>", "http://a/?b&c"},
        {"<a href='../b c'><b>x</b></a>", "../b c"},
        {"<a href=b>a</a>x", nullptr},
        {"<a name=b>x</a>", nullptr},
        {"<a href=b><img alt=x></a>", "b"},
        {"<a href=' b\n'>x</a>", "b"},
        {"<a href=b><h1>x</h1></a>", "b"},
        {"<a href=b><table><tr><td>x</a>", "b"},
        {"<a href=a>a<a href=b>x", "b"},
    };
    for (const auto& row : kRows) {
        const auto url = objectAtX<URLReference>(read(row.html), kLinkAttributeName);
        ASSERT_EQ(url != nullptr, row.url != nullptr) << row.html;
        EXPECT_TRUE(url == nullptr || url->relativeString() == row.url) << row.html;
    }
}

TEST(HtmlAttributes, LayOutParagraphs) {
    const struct {
        const char* html;
        ParagraphLayout layout;
    } kRows[] = {
        {"<p align=center>x", {.alignment = TextAlignment::Center}},
        {"<div align=Right><p>x", {.alignment = TextAlignment::Right}},
        {"<p align=justify>x", {.alignment = TextAlignment::Justified}},
        {"<center>x", {.alignment = TextAlignment::Center}},
        {"<p dir=rtl>x", {.baseWritingDirection = WritingDirection::RightToLeft}},
        {"<html dir=rtl><head></head><body class=a><p>x",
         {.baseWritingDirection = WritingDirection::RightToLeft}},
        {"<html><body dir=rtl>x", {.baseWritingDirection = WritingDirection::RightToLeft}},
        {"<h3>x", {.headerLevel = 3}},
        {"<ul><li>x", {.headIndent = 36, .textLists = {{"{disc}", 0, 1}}}},
        {"<ul><li>a<ol start=3 type=a><li>x",
         {.headIndent = 72, .textLists = {{"{disc}", 0, 1}, {"{lower-alpha}.", 0, 3}}}},
    };
    for (const auto& row : kRows) {
        const auto style = objectAtX<ParagraphStyle>(read(row.html), kParagraphStyleAttributeName);
        ASSERT_NE(style, nullptr) << row.html;
        EXPECT_TRUE(style->layout() == row.layout) << row.html;
    }
    EXPECT_TRUE(valueAtX(read("<h1>a</h1>x"), kParagraphStyleAttributeName).isNull());
    EXPECT_TRUE(valueAtX(read("<p>a<span dir=rtl>x"), kParagraphStyleAttributeName).isNull());
    EXPECT_TRUE(valueAtX(read("<img align=right alt=x>"), kParagraphStyleAttributeName).isNull());
}

TEST(HtmlAttributes, ABlankLooksLikeTheElementThatItStandsIn) {
    const AttributedString text = read("a <a href=b>c</a>");
    ASSERT_EQ(text.string(), u"a c");
    EXPECT_EQ(text.runs().size(), 2U);
    EXPECT_EQ(text.runs().front().length, 2U);
}

TEST(HtmlAttributes, RunsOfOneLookShareTheirSet) {
    const AttributedString text = read("<b>a</b>b<b>c</b>");
    ASSERT_EQ(text.runs().size(), 3U);
    EXPECT_EQ(text.runs()[0].attributes, text.runs()[2].attributes);
    EXPECT_EQ(read("<p>a</p><p>b</p>").runs().size(), 1U);
}

TEST(HtmlAttributes, HaveAMost) {
    std::string html;
    for (int i = 0; i < 70'000; ++i) {
        html += "<a href=" + std::to_string(i) + ">a</a>";
    }
    const AttributedString links = read(html);
    EXPECT_EQ(links.length(), 70'000U);
    EXPECT_EQ(links.attributesAtIndex(60'000), nullptr) << "too many looks";
    EXPECT_EQ((*links.runs().back().attributes)[kLinkAttributeName], Value()) << "too many links";
    html.clear();
    for (int i = 0; i < 70'000; ++i) {
        html += "<a href=b>a</a> and more words";
    }
    html += "<a href=d>x</a>";
    EXPECT_FALSE(valueAtX(read(html), kLinkAttributeName).isNull()) << "one link, many times";
    html.clear();
    for (int i = 0; i < 10'000; ++i) {
        html += "<b>a</b>b";
    }
    EXPECT_LT(read(html).runs().size(), html.size() / 8) << "too many runs";
    html.clear();
    for (int i = 0; i < 5'000; ++i) {
        html += "<ol start=" + std::to_string(i) + "><li>";
    }
    EXPECT_FALSE(read(html + "x").string().empty()) << "too many lists";
}

}  // namespace
}  // namespace platform

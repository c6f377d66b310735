// What the parser gets of a page: names that it has no rules for, each element inside another.

#include "Platform/Text/HtmlSource.h"

#include <gtest/gtest.h>
#include <libxml/xmlmemory.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>

#include "Platform/Text/HtmlKinds.h"
#include "Platform/Text/HtmlReader.h"
#include "Platform/Text/HtmlStream.h"

namespace platform {
namespace {

/// What the parser tells.
struct Events {
    std::set<std::string> names;
    std::size_t starts = 0;
    std::size_t ends = 0;
    std::size_t deepest = 0;
    std::size_t bytes = 0;
};

Events eventsOf(std::string_view page) {
    Events events;
    const HtmlHandler handler = {
        &events,
        [](void* receiver, std::string_view name, const char* const* /*attributes*/) {
            Events& told = *static_cast<Events*>(receiver);
            told.names.emplace(name);
            ++told.starts;
            told.deepest = std::max(told.deepest, told.starts - told.ends);
        },
        [](void* receiver) { ++static_cast<Events*>(receiver)->ends; },
        [](void* receiver, std::string_view utf8) {
            static_cast<Events*>(receiver)->bytes += utf8.size();
        },
    };
    HtmlStream stream(handler);
    writeHtmlSource(page, stream);
    return events;
}

std::string repeated(std::string_view piece, std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += piece;
    }
    return text;
}

TEST(HtmlSource, GivesTheParserNoNamesOfThePage) {
    std::string page;
    const auto addElement = [&](const std::string& name) {
        page.append("<").append(name).append(" hidden>a</").append(name).append("><");
        page.append(name).append(" style='color:red'>b");
    };
    for (int i = 0; i < 3'000; ++i) {
        addElement("x" + std::to_string(i));
    }
    for (const char* const name : {"parlavox-page", "html", "head", "script<x", "a_b"}) {
        addElement(name);
    }
    for (const std::string& name : eventsOf(page).names) {
        EXPECT_NE(htmlKindNamed(name), nullptr) << name;
    }
}

TEST(HtmlSource, NestsNoDeeperThanABound) {
    for (const std::string_view piece :
         {"<div>", "<b>", "<span hidden>", "<parlavox-page>", "<ul><li>", "<table><tr><td>",
          "<font style=a><p>", "<b><object>", "<svg><text>", "<tr>", "<td>", "<math><mtr><x><mtr>",
          "<math><mtd>", "<span hidden><td>", "<template><td>"}) {
        const Events events = eventsOf(repeated(piece, 20'000) + "a");
        EXPECT_LE(events.deepest, 512U) << piece;
        EXPECT_EQ(events.starts, events.ends) << piece;
    }
}

TEST(HtmlSource, RepeatsFormatsNoMoreThanABound) {
    std::string page = "<a href=" + std::string(10'000, 'x') + ">";
    for (int i = 0; i < 40; ++i) {
        page += "<font style=a" + std::to_string(i) + ">";
    }
    page += repeated("<p>a", 5'000);
    // Most of it would be written 41 times for each paragraph.
    EXPECT_LT(eventsOf(page).starts, 15'000U);
}

TEST(HtmlSource, TellsKindsApart) {
    for (const HtmlKind& kind : kHtmlKinds) {
        EXPECT_EQ(htmlKindNamed(kind.name()), &kind) << kind.name();
        EXPECT_EQ(htmlKindOf(kind.role, kind.style, kind.level), &kind) << kind.name();
    }
    EXPECT_EQ(htmlKindNamed("table"), nullptr);
    EXPECT_EQ(htmlKindNamed(""), nullptr);
}

/// Whether one kind of element comes directly in another.
bool comesIn(const HtmlKind& inner, const HtmlKind& outer) {
    const bool isEmpty = outer.role == HtmlRole::Break || outer.role == HtmlRole::Image ||
                         outer.role == HtmlRole::Input;
    if (inner.role == HtmlRole::Cell) {
        return outer.role == HtmlRole::Row;
    }
    const bool isRowOrCell = outer.role == HtmlRole::Row || outer.role == HtmlRole::Cell;
    return !isEmpty && (inner.role != HtmlRole::Row || !isRowOrCell);
}

TEST(HtmlSource, NoKindEndsAnotherInTheParser) {
    for (const HtmlKind& outer : kHtmlKinds) {
        for (const HtmlKind& inner : kHtmlKinds) {
            if (!comesIn(inner, outer)) {
                continue;
            }
            struct Depth {
                std::size_t now = 0;
                std::size_t most = 0;
            } depth;
            const HtmlHandler handler = {
                &depth,
                [](void* receiver, std::string_view /*name*/, const char* const* /*attributes*/) {
                    Depth& told = *static_cast<Depth*>(receiver);
                    told.most = std::max(told.most, ++told.now);
                },
                [](void* receiver) { --static_cast<Depth*>(receiver)->now; },
                [](void* /*receiver*/, std::string_view /*utf8*/) {},
            };
            HtmlStream stream(handler);
            stream.writeTag("<" + std::string(outer.name()) + ">");
            stream.writeTag("<" + std::string(inner.name()) + "/>");
            stream.finish();
            EXPECT_EQ(depth.most, 2U) << outer.name() << " " << inner.name();
        }
    }
}

TEST(HtmlSource, LetsOutWhatTheHandlerRaises) {
    const HtmlHandler handler = {
        nullptr,
        [](void*, std::string_view, const char* const*) { throw std::runtime_error("a start"); },
        [](void*) {},
        [](void*, std::string_view) {},
    };
    HtmlStream stream(handler);
    EXPECT_THROW(writeHtmlSource("<p>a</p>", stream), std::runtime_error);
}

/// What libxml2 may still allocate; its own messages tell nothing when there is none.
std::size_t allowance = 0;

void* limitedMalloc(std::size_t size) {
    return size > allowance ? nullptr : std::malloc(size);
}

void* limitedRealloc(void* memory, std::size_t size) {
    return size > allowance ? nullptr : std::realloc(memory, size);
}

TEST(HtmlSource, RefusedMemoryIsNoEndOfThePage) {
    const std::string page = "<img alt=" + std::string(1'000'000, 'x') + ">";
    ASSERT_TRUE(attributedStringFromHtml(Data::copyOf(page)));
    xmlFreeFunc freeThen = nullptr;
    xmlMallocFunc mallocThen = nullptr;
    xmlReallocFunc reallocThen = nullptr;
    xmlStrdupFunc strdupThen = nullptr;
    xmlMemGet(&freeThen, &mallocThen, &reallocThen, &strdupThen);
    xmlMemSetup(std::free, limitedMalloc, limitedRealloc, strdup);
    for (const std::size_t most : {100U, 5'000U, 40'000U, 400'000U}) {
        allowance = most;
        EXPECT_THROW((void)attributedStringFromHtml(Data::copyOf(page)), std::bad_alloc) << most;
    }
    xmlMemSetup(freeThen, mallocThen, reallocThen, strdupThen);
    EXPECT_TRUE(attributedStringFromHtml(Data::copyOf(page)));
}

}  // namespace
}  // namespace platform

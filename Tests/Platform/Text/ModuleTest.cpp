#include "Platform/Text/Modules/Module.h"

#include <gtest/gtest.h>

#include <string>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/IdleResources.h"
#include "Platform/Text/Modules/UnicodeModule.h"
#include "Tests/Support/Segments.h"

namespace platform {
namespace {

TEST(Module, IsOpenedOnceAndStays) {
    const auto& functions = moduleFunctions<UnicodeFunctions>();
    EXPECT_EQ(&moduleFunctions<UnicodeFunctions>(), &functions);
    EXPECT_TRUE(functions.isLetter(U'a'));
}

TEST(Module, ThatIsNotThereIsAnErrorWithItsName) {
    try {
        (void)openModule("nowhere");
        FAIL() << "nothing was raised";
    } catch (const InternalInconsistencyException& exception) {
        EXPECT_TRUE(exception.reason().starts_with("cannot open the module nowhere: not found"))
            << exception.reason();
    }
}

TEST(Module, MakesAgainWhatWasReleased) {
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(test::unitTexts(u"One, two.", 3).own, (std::vector<std::string>{"One", "two"}));
        releaseIdleResources();
    }
}

}  // namespace
}  // namespace platform

#include "Host/Output.h"

#include <gtest/gtest.h>

#include <string>

namespace host {
namespace {

/// Writes outcomes, and tells what has arrived at the standard output.
class OutputTest : public testing::Test {
protected:
    void SetUp() override { testing::internal::CaptureStdout(); }

    static FileOutcome textOf(const std::string& path, const std::string& text) {
        FileOutcome outcome;
        outcome.path = path;
        outcome.text = text;
        outcome.ok = true;
        return outcome;
    }

    platform::Result<SharedProgress> progress = SharedProgress::make();
};

TEST_F(OutputTest, ASuccessorKnowsHowTheOutputEnds) {
    Output first(OutputForm::TextWithHeaders, progress.value());
    EXPECT_EQ(first.write(textOf("a", "One")), 0);
    Output second(OutputForm::TextWithHeaders, progress.value());
    EXPECT_EQ(second.write(textOf("b", "Two\n")), 0);
    EXPECT_EQ(second.write(textOf("c", "Three")), 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "==> a <==\nOne\n\n==> b <==\nTwo\n\n==> c <==\nThree");
}

TEST_F(OutputTest, EndsTheLineThatAStopLeftUnfinished) {
    Output output(OutputForm::Json, progress.value());
    // Stopped before anything was written, in the middle, and after the end of a file.
    EXPECT_EQ(output.endStoppedLine(Phase::Writing), 0);
    progress.value().setOutput({true, false});
    EXPECT_EQ(output.endStoppedLine(Phase::Writing), 0);
    EXPECT_EQ(output.endStoppedLine(Phase::Writing), 0);
    progress.value().setOutput({true, false});
    EXPECT_EQ(output.endStoppedLine(Phase::InHand), 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "\n");
}

TEST_F(OutputTest, TheTextsOfOneFileHaveNoHeader) {
    Output output(OutputForm::Text, progress.value());
    EXPECT_EQ(output.write(textOf("a", "")), 0);
    EXPECT_FALSE(progress.value().output().hasBegun);
    EXPECT_EQ(output.write(textOf("a", "One")), 0);
    EXPECT_EQ(progress.value().phase(), Phase::Writing);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "One");
}

}  // namespace
}  // namespace host

// Writes what has come of the files to the standard output and the standard error.
//
// Text: each file's text as it is, with headers when there is more than one file. JSON: one object
// a line and file. Failures are a line each on the standard error in both forms.
// One thread at a time.

#pragma once

#include <string>
#include <string_view>

#include "Host/FileOutcome.h"
#include "Host/SharedProgress.h"

namespace host {

/// The forms of output.
enum class OutputForm { Text, TextWithHeaders, Json };

/// Writes `text` to the descriptor, all of it. Returns 0, or the system's error number.
[[nodiscard]] int writeAll(int descriptor, std::string_view text);

/// Writes outcomes in one form.
class Output {
public:
    /// `progress` must outlive this object and keeps what the output's end looks like, so that a
    /// successor goes on where this one has been stopped.
    Output(OutputForm form, SharedProgress& progress) : form_(form), progress_(progress) {}

    /// Writes the outcome, after the phase Writing has been set. Returns 0, or the system's error
    /// number when the standard output takes no more.
    ///
    /// Throws std::bad_alloc before anything is written.
    [[nodiscard]] int write(const FileOutcome& outcome);

    /// Ends the line that a process may have left unfinished which ended in `phase`. Returns as
    /// `write` does.
    [[nodiscard]] int endStoppedLine(Phase phase);

private:
    [[nodiscard]] int writeText(std::string_view text, std::string_view before);
    [[nodiscard]] std::string headerFor(const FileOutcome& outcome) const;

    OutputForm form_;
    SharedProgress& progress_;
};

}  // namespace host

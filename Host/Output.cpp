#include "Host/Output.h"

#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string>

#include "Host/OutputText.h"

namespace host {
namespace {

std::size_t totalOf(const iovec (&pieces)[3]) {
    return pieces[0].iov_len + pieces[1].iov_len + pieces[2].iov_len;
}

void dropWritten(iovec (&pieces)[3], std::size_t count) {
    for (iovec& piece : pieces) {
        const std::size_t step = std::min(count, piece.iov_len);
        piece.iov_base = static_cast<char*>(piece.iov_base) + step;
        piece.iov_len -= step;
        count -= step;
    }
}

iovec pieceOf(std::string_view text) {
    return {const_cast<char*>(text.data()), text.size()};
}

// Three pieces in one call, so that what is short arrives whole.
int writePieces(int descriptor, iovec (&pieces)[3]) {
    while (totalOf(pieces) != 0) {
        const ssize_t count = ::writev(descriptor, pieces, 3);
        if (count >= 0) {
            dropWritten(pieces, static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return errno;
        }
    }
    return 0;
}

}  // namespace

int writeAll(int descriptor, std::string_view text) {
    iovec pieces[3] = {pieceOf(text), pieceOf({}), pieceOf({})};
    return writePieces(descriptor, pieces);
}

int Output::write(const FileOutcome& outcome) {
    if (!outcome.ok) {
        // A closed standard error is no reason to stop.
        static_cast<void>(writeAll(STDERR_FILENO, errorLine(outcome.path, outcome.error)));
    }
    if (form_ == OutputForm::Json) {
        const std::string line = jsonLine(outcome);
        progress_.setPhase(Phase::Writing);
        return writeText(line, {});
    }
    if (!outcome.ok) {
        return 0;
    }
    const std::string header = headerFor(outcome);
    progress_.setPhase(Phase::Writing);
    return writeText(outcome.text, header);
}

int Output::endStoppedLine(Phase phase) {
    return phase == Phase::Writing && !progress_.output().endsLine ? writeText("\n", {}) : 0;
}

std::string Output::headerFor(const FileOutcome& outcome) const {
    if (form_ != OutputForm::TextWithHeaders) {
        return {};
    }
    const OutputState state = progress_.output();
    std::string header(state.hasBegun ? state.endsLine ? "\n" : "\n\n" : "");
    return header.append("==> ").append(outcome.path).append(" <==\n");
}

int Output::writeText(std::string_view text, std::string_view before) {
    const bool endsLine = text.empty() || text.ends_with('\n');
    const bool addsEnd = !endsLine && ::isatty(STDOUT_FILENO) == 1;
    if (before.empty() && text.empty()) {
        return 0;
    }
    // Whoever goes on after a stop in the middle cannot know where it was.
    progress_.setOutput({true, false});
    iovec pieces[3] = {pieceOf(before), pieceOf(text), pieceOf(addsEnd ? "\n" : "")};
    const int error = writePieces(STDOUT_FILENO, pieces);
    if (error == 0) {
        progress_.setOutput({true, endsLine || addsEnd});
    }
    return error;
}

}  // namespace host

// How likely bytes are text in one of the encodings of East Asia, one or two bytes a character.
//
// Counted as a cost in nats, the negative natural logarithm of a probability; the less, the
// likelier. It rests on how texts spread over the regions of each encoding's table, where the
// common characters lie apart from the rare ones, and on the few commonest characters. Pure
// functions; any thread at once.

#pragma once

#include <cstdint>
#include <string_view>

namespace platform {

enum class DoubleByteEncoding : std::uint8_t { ShiftJis, EucJp, Gbk, Big5, EucKr, Johab };

/// Returns the cost of `bytes` as text in `encoding`. A byte of ASCII that is a character costs
/// kAsciiCost; half a character at the end costs nothing.
[[nodiscard]] float doubleByteCost(std::string_view bytes, DoubleByteEncoding encoding);

}  // namespace platform

#pragma once

#include <string>
#include <string_view>

namespace quorvane {

// The rules that all commands of the instrument share. A request is one upper-case letter, its parameters,
// CR LF. An answer begins with "A" and the same letter and ends in CR LF.

inline constexpr std::string_view kLineEnd = "\r\n";
inline constexpr char kLinkCheckLetter = 'N';
inline constexpr char kStreamLetter = 'D'; ///< starts the stream of data lines

/// @param letter      the command
/// @param parameters  fields with ";" between them, or nothing
/// @return the bytes to send
[[nodiscard]] std::string Request(char letter, std::string_view parameters = {});

/// @return whether `reply` begins with the acknowledgement of `letter` and ends in CR LF. Whatever stands
///         between is the answer's data.
[[nodiscard]] bool IsAcknowledgement(std::string_view reply, char letter);

/// The whole acknowledgement line without data: "AN" and CR LF.
[[nodiscard]] std::string BareAcknowledgement(char letter);

/// The name under which a failed exchange stands in the error log: "N Command".
[[nodiscard]] std::string CommandName(char letter);

/// The same for data lines that follow an acknowledgement: "D Command Data Read".
[[nodiscard]] std::string DataReadName(char letter);

} // namespace quorvane

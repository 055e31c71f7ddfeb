#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

/// A virtual serial line: its far end is a device that clients open, its near end is held here. Bytes pass
/// through as they are, without echo, from the first moment on. Nothing blocks.
class PseudoTerminal {
public:
    PseudoTerminal() = default;
    ~PseudoTerminal() { Close(); }
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    /// Makes a new device and closes the one before. @return why that was not possible
    [[nodiscard]] std::optional<std::string> Open();
    /// The device disappears; its clients see a line that hung up.
    void Close();

    [[nodiscard]] const std::string& Path() const { return path_; } ///< of the device that clients open
    [[nodiscard]] int Descriptor() const { return near_; }          ///< for waiting
    /// @return whether somebody has the device open
    [[nodiscard]] bool HasClient() const;
    /// What clients have sent. The bytes of a client that has left can still be read.
    [[nodiscard]] std::string Read();
    /// @return so many of the bytes are on their way; the rest does not fit for now
    [[nodiscard]] std::size_t Write(std::string_view bytes);
    /// Makes the device fresh for the next client: what the last one did not read is thrown away, line
    /// settings and exclusive use are taken back.
    /// @return false when nobody has the device and nobody can have it again: its last client took it for
    ///         itself and left without giving it back, and only the superuser may undo that
    [[nodiscard]] bool Refresh();

private:
    int near_ = -1;
    std::string path_;
};

} // namespace quorvane

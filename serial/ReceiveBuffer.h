#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace quorvane {

/// Received bytes until they are read, and the rule of the read length: a read delivers that many characters
/// or nothing.
class ReceiveBuffer {
public:
    /// Empties it. @param capacity  bytes that it takes
    void Reset(std::size_t capacity)
    {
        capacity_ = capacity;
        length_ = 0;
        bytes_.clear();
        bytes_.reserve(capacity);
    }
    [[nodiscard]] std::size_t Room() const { return capacity_ - std::min(capacity_, bytes_.size()); }
    /// Takes as much as there is room for.
    void Append(std::string_view bytes) { bytes_ += bytes.substr(0, Room()); }
    void Clear() { bytes_.clear(); }
    [[nodiscard]] int Count() const { return static_cast<int>(bytes_.size()); }
    /// @param length  characters that one read delivers; 0 or less: everything
    void SetLength(int length) { length_ = static_cast<std::size_t>(std::max(length, 0)); }
    [[nodiscard]] std::string Take()
    {
        if (bytes_.size() < length_)
            return {};
        const std::size_t length = length_ == 0 ? bytes_.size() : length_;
        std::string taken = bytes_.substr(0, length);
        bytes_.erase(0, length);
        return taken;
    }

private:
    std::string bytes_;
    std::size_t capacity_ = 0;
    std::size_t length_ = 0;
};

} // namespace quorvane

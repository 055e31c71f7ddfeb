#pragma once

namespace quorvane {

/// Keeps the computer from going to sleep by itself. Who closes the lid still can, and who chooses to sleep
/// on Windows; Linux refuses that unless an administrator insists.
class KeepAwake {
public:
    virtual ~KeepAwake() = default;
    /// From here on; asked twice it is as once. A system that cannot, or does not allow it, goes on as ever.
    virtual void Hold() = 0;
    /// It may sleep again. At the end of the program it may as well.
    virtual void Release() = 0;
};

} // namespace quorvane

#pragma once

#include "serial/PortNames.h"
#include "serial/ReceiveBuffer.h"
#include "serial/SerialControl.h"
#include "tests/support/World.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quorvane {

/// A scripted serial control in the discrete-event world. Bytes arrive when the script says so; what is sent
/// is kept and handed to `onOutput`.
class FakePort : public SerialControl {
public:
    explicit FakePort(World& world) : world_(world) {}

    // The script.
    std::optional<PortFault> openFault;
    bool refuseOutput = false;
    bool endless = false; ///< there is always one more character
    std::function<void(const std::string&)> onOutput;
    void Deliver(World::Time delay, const std::string& bytes)
    {
        world_.After(delay, [this, bytes] { Arrive(bytes); });
    }
    void Arrive(const std::string& bytes)
    {
        if (open_ && !vanished_)
            received_.Append(bytes);
    }
    /// The device goes away; noticed at the next look at the port, as with a real one.
    void Vanish() { vanished_ = true; }
    /// The same in the middle of the next read, which takes in what has come until then.
    void VanishWhileReading(const std::string& last) { last_ = last; }

    // What the code under test did.
    PortDevice device;
    LineSettings line;
    std::vector<std::string> sent;
    int opened = 0;
    int closed = 0;
    int inputLen = 0;
    long reads = 0;
    [[nodiscard]] int Waiting() const { return received_.Count(); }

    std::optional<PortFault> Open(const PortDevice& toOpen, const LineSettings& settings) override
    {
        if (openFault)
            return openFault;
        device = toOpen;
        line = settings;
        received_.Reset(settings.inBufferSize);
        SetInputLen(7); // what a port is opened with is its opener's to set
        received_.Append("left over");
        open_ = true;
        vanished_ = false;
        ++opened;
        return std::nullopt;
    }
    void Close() override
    {
        ++closed;
        open_ = false;
    }
    [[nodiscard]] bool IsOpen() const override { return open_; }
    [[nodiscard]] int InBufferCount() override
    {
        NoticeLoss();
        return endless && open_ ? static_cast<int>(line.inBufferSize) : received_.Count();
    }
    void ClearInBuffer() override { received_.Clear(); }
    void SetInputLen(int length) override
    {
        inputLen = length;
        received_.SetLength(length);
    }
    [[nodiscard]] std::string Input() override
    {
        ++reads;
        if (const auto last = std::exchange(last_, std::nullopt)) {
            received_.Append(*last);
            vanished_ = true;
        }
        NoticeLoss();
        if (endless && received_.Count() == 0 && inputLen == 1)
            return "x";
        return received_.Take();
    }
    [[nodiscard]] bool Output(std::string_view text) override
    {
        NoticeLoss();
        if (!open_ || refuseOutput)
            return false;
        sent.emplace_back(text);
        if (onOutput)
            onOutput(sent.back());
        return true;
    }

private:
    void NoticeLoss()
    {
        if (vanished_)
            open_ = false;
    }

    World& world_;
    ReceiveBuffer received_;
    bool open_ = false;
    bool vanished_ = false;
    std::optional<std::string> last_;
};

/// COMn is device "/dev/fake/n".
class FakePortNames : public PortNames {
public:
    bool present = true;   ///< the script: whether the devices are there
    mutable int looks = 0; ///< how often that was asked
    [[nodiscard]] bool Present(const PortDevice&) const override
    {
        ++looks;
        return present;
    }
    [[nodiscard]] std::optional<PortDevice> Device(int commPort) const override
    {
        if (commPort < kFirstComPort || commPort > kLastComPort)
            return std::nullopt;
        return PortDevice{"/dev/fake/" + std::to_string(commPort)};
    }
};

} // namespace quorvane

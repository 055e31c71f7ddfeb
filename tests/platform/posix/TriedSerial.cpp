#include "tests/platform/posix/TriedSerial.h"

#include "platform/posix/PosixPortProbe.h"
#include "platform/posix/PosixSerialControl.h"
#include "tests/platform/HexText.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quorvane {
namespace {

static_assert(PosixSerialControl::kOutCapacity == kOutCapacity);

std::string Variable(const char* name)
{
    const char* const text = std::getenv(name);
    return text == nullptr ? "" : text;
}

/// The Windows program, from the first use to the end of the tests.
class Servant {
public:
    Servant()
    {
        int ends[2] = {-1, -1};
        if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
            throw std::runtime_error("no pipe");
        process_ = ::fork();
        if (process_ == 0) {
            ::dup2(ends[1], STDIN_FILENO);
            ::dup2(ends[1], STDOUT_FILENO);
            const std::string runner = Variable("QUORVANE_WINDOWS_RUNNER");
            const std::string program = Variable("QUORVANE_WINDOWS_SERIAL");
            ::execl(runner.c_str(), runner.c_str(), program.c_str(), nullptr);
            ::_exit(127);
        }
        ::close(ends[1]);
        channel_ = ends[0];
        Ask("0 is-open"); // its Windows, which makes the folder of the ports, is there now
    }
    ~Servant()
    {
        ::close(channel_);
        ::waitpid(process_, nullptr, 0);
    }
    Servant(const Servant&) = delete;
    Servant& operator=(const Servant&) = delete;

    std::string Ask(const std::string& request)
    {
        const std::string line = request + '\n';
        if (::write(channel_, line.data(), line.size()) != static_cast<ssize_t>(line.size()))
            throw std::runtime_error("the Windows program is gone");
        std::string answer;
        for (char byte = 0; byte != '\n'; answer += byte) {
            if (::read(channel_, &byte, 1) != 1)
                throw std::runtime_error("the Windows program is gone");
        }
        return answer.substr(0, answer.find_last_not_of("\r\n") + 1);
    }

private:
    pid_t process_ = -1;
    int channel_ = -1;
};

Servant& TheServant()
{
    static Servant servant;
    return servant;
}

/// Lets the COM port lead to `device`, as long as it is not opened by another name. @return its device
std::string ComPortOf(const PortDevice& device)
{
    TheServant();
    const std::string number = Variable("QUORVANE_WINDOWS_PORT");
    const std::filesystem::path link = Variable("QUORVANE_WINE") + "/ports/com" + number;
    std::filesystem::remove(link);
    std::filesystem::create_symlink(device.path, link);
    return R"(\\.\COM)" + number;
}

std::optional<PortFault> FaultOf(const std::string& answer)
{
    if (answer == "open")
        return std::nullopt;
    std::istringstream words(answer);
    int kind = 0;
    std::string reason;
    words >> kind >> reason;
    return PortFault{static_cast<PortFaultKind>(kind), BytesOfHex(reason)};
}

class WindowsControl final : public SerialControl {
public:
    WindowsControl()
    {
        static int count = 0;
        number_ = std::to_string(++count) + ' ';
    }
    ~WindowsControl() override
    {
        try {
            Ask("end");
        } catch (const std::runtime_error&) {
            ADD_FAILURE() << "the Windows program has gone";
        }
    }
    WindowsControl(const WindowsControl&) = delete;
    WindowsControl& operator=(const WindowsControl&) = delete;

    [[nodiscard]] std::optional<PortFault> Open(const PortDevice& device, const LineSettings& line) override
    {
        std::ostringstream request;
        request << "open " << HexText(ComPortOf(device)) << ' ' << line.speed << ' '
                << static_cast<int>(line.parity) << ' ' << line.dataBits << ' '
                << static_cast<int>(line.stopBits) << ' ' << static_cast<int>(line.handshaking) << ' '
                << line.inBufferSize;
        return FaultOf(Ask(request.str()));
    }
    void Close() override { Ask("close"); }
    [[nodiscard]] bool IsOpen() const override { return Ask("is-open") == "1"; }
    [[nodiscard]] int InBufferCount() override { return std::stoi(Ask("count")); }
    void ClearInBuffer() override { Ask("clear"); }
    void SetInputLen(int length) override { Ask("length " + std::to_string(length)); }
    [[nodiscard]] std::string Input() override { return BytesOfHex(Ask("input")); }
    [[nodiscard]] bool Output(std::string_view text) override
    {
        return Ask("output " + HexText(text)) == "1";
    }

private:
    std::string Ask(const std::string& request) const { return TheServant().Ask(number_ + request); }

    std::string number_;
};

} // namespace

bool TriesWindows()
{
    return !Variable("QUORVANE_WINDOWS_SERIAL").empty();
}

TriedControl::TriedControl()
{
    if (TriesWindows())
        tried_ = std::make_unique<WindowsControl>();
    else
        tried_ = std::make_unique<PosixSerialControl>();
}

std::optional<PortFault> TriedProbe::Probe(const PortDevice& device) const
{
    if (TriesWindows())
        return FaultOf(TheServant().Ask("0 probe " + HexText(ComPortOf(device))));
    return PosixPortProbe().Probe(device);
}

} // namespace quorvane

#include "platform/windows/WindowsSerialControl.h"

#include "platform/windows/WindowsSerialLine.h"

#include <algorithm>
#include <utility>

namespace quorvane {
namespace {
constexpr std::size_t kLargestRead = 4096;
constexpr DWORD kPatienceMs = 200;
} // namespace

/// A read or write that the system works on; its bytes stay where they are until it is done.
struct WindowsSerialControl::Transfer {
    Transfer() : event(::CreateEventW(nullptr, TRUE, FALSE, nullptr)) { overlapped.hEvent = event.Get(); }

    Handle event;
    OVERLAPPED overlapped{};
    std::string bytes;
    bool underWay = false;
};

WindowsSerialControl::WindowsSerialControl() = default;

WindowsSerialControl::~WindowsSerialControl()
{
    Close();
}

std::optional<PortFault> WindowsSerialControl::Open(const PortDevice& device, const LineSettings& line)
{
    Close();
    in_.Reset(line.inBufferSize);
    Handle opened;
    if (auto fault = OpenLine(device.path, opened))
        return fault;
    if (auto fault = ApplyLineSettings(opened, line, kOutCapacity))
        return fault;
    ::PurgeComm(opened.Get(), PURGE_RXCLEAR);
    line_ = std::move(opened);
    write_ = std::make_unique<Transfer>();
    return std::nullopt;
}

void WindowsSerialControl::Close()
{
    if (!IsOpen())
        return;
    CloseLine();
    in_.Clear();
}

void WindowsSerialControl::CloseLine()
{
    ::CancelIoEx(line_.Get(), nullptr);
    ::PurgeComm(line_.Get(), PURGE_TXABORT | PURGE_RXABORT | PURGE_TXCLEAR | PURGE_RXCLEAR);
    EndHandshaking(line_);
    const bool stuck =
        write_->underWay && ::WaitForSingleObject(write_->event.Get(), kPatienceMs) != WAIT_OBJECT_0;
    if (stuck)
        write_.release(); // NOLINT(bugprone-unused-return-value): a driver that cancels late still uses it
    write_.reset();
    line_.Close();
    out_.clear();
}

int WindowsSerialControl::InBufferCount()
{
    Service();
    return in_.Count();
}

void WindowsSerialControl::ClearInBuffer()
{
    in_.Clear();
    // Not every driver notices in the first of them that its device has gone.
    if (IsOpen() &&
        !(::PurgeComm(line_.Get(), PURGE_RXCLEAR) && ::ClearCommError(line_.Get(), nullptr, nullptr)))
        CloseLine();
}

void WindowsSerialControl::SetInputLen(int length)
{
    in_.SetLength(length);
}

std::string WindowsSerialControl::Input()
{
    Service();
    return in_.Take();
}

bool WindowsSerialControl::Output(std::string_view text)
{
    if (IsOpen())
        SendWaiting();
    if (!IsOpen() || text.size() > kOutCapacity - WaitingToBeSent())
        return false;
    out_ += text;
    SendWaiting();
    return IsOpen();
}

std::size_t WindowsSerialControl::WaitingToBeSent() const
{
    return out_.size() + (write_->underWay ? write_->bytes.size() : 0);
}

void WindowsSerialControl::Service()
{
    if (IsOpen())
        TakeIn();
    if (IsOpen())
        SendWaiting();
}

void WindowsSerialControl::TakeIn()
{
    for (;;) {
        DWORD errors = 0;
        COMSTAT status{};
        if (!::ClearCommError(line_.Get(), &errors, &status)) {
            CloseLine();
            return;
        }
        const std::size_t size = std::min<std::size_t>(status.cbInQue, in_.Room());
        if (size == 0)
            return;
        const ReadOutcome outcome = ReadBlock(size);
        if (outcome == ReadOutcome::Lost)
            CloseLine();
        if (outcome != ReadOutcome::Taken)
            return;
    }
}

// No more is asked for than is known to be there, so this hardly waits. Should somebody else have taken the
// bytes in between, the read is called off: some systems would let it wait for the next byte, whenever that
// comes.
WindowsSerialControl::ReadOutcome WindowsSerialControl::ReadBlock(std::size_t size)
{
    auto read = std::make_unique<Transfer>();
    read->bytes.resize(std::min(size, kLargestRead));
    if (!::ReadFile(line_.Get(), read->bytes.data(), static_cast<DWORD>(read->bytes.size()), nullptr,
                    &read->overlapped) &&
        ::GetLastError() != ERROR_IO_PENDING)
        return ReadOutcome::Lost;
    const auto ended = [&] { return ::WaitForSingleObject(read->event.Get(), kPatienceMs) == WAIT_OBJECT_0; };
    if (!ended()) {
        ::CancelIoEx(line_.Get(), &read->overlapped);
        if (!ended()) {
            read.release(); // NOLINT(bugprone-unused-return-value): a driver that cancels late still uses it
            return ReadOutcome::Lost;
        }
    }
    DWORD count = 0;
    if (!::GetOverlappedResult(line_.Get(), &read->overlapped, &count, FALSE) &&
        ::GetLastError() != ERROR_OPERATION_ABORTED)
        return ReadOutcome::Lost;
    in_.Append({read->bytes.data(), count});
    return count > 0 ? ReadOutcome::Taken : ReadOutcome::Nothing;
}

void WindowsSerialControl::SendWaiting()
{
    for (;;) {
        if (write_->underWay) {
            DWORD count = 0;
            if (!::GetOverlappedResult(line_.Get(), &write_->overlapped, &count, FALSE)) {
                if (::GetLastError() != ERROR_IO_INCOMPLETE)
                    CloseLine();
                return;
            }
            write_->underWay = false;
            out_.insert(0, write_->bytes.substr(std::min<std::size_t>(count, write_->bytes.size())));
            if (count == 0)
                return; // held back; the next look tries again
        }
        if (out_.empty())
            return;
        write_->bytes = std::exchange(out_, {});
        write_->underWay = true;
        ::ResetEvent(write_->event.Get());
        const auto size = static_cast<DWORD>(write_->bytes.size());
        if (!::WriteFile(line_.Get(), write_->bytes.data(), size, nullptr, &write_->overlapped) &&
            ::GetLastError() != ERROR_IO_PENDING) {
            write_->underWay = false;
            CloseLine();
            return;
        }
    }
}

} // namespace quorvane

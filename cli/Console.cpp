#include "cli/Console.h"

#include "app/EventPump.h"

#include <thread>
#include <utility>

namespace quorvane {
namespace {

/// @return whether everything is out
bool Send(StandardStream stream, std::string& pending)
{
    std::size_t sent = 0;
    while (sent < pending.size()) {
        const std::size_t taken = WriteWithoutWaiting(stream, std::string_view(pending).substr(sent));
        if (taken == 0)
            break;
        sent += taken;
    }
    pending.erase(0, sent);
    return pending.empty();
}

} // namespace

std::string Printable(std::string text)
{
    for (char& c : text) {
        if (c < ' ' || c > '~')
            c = '?';
    }
    return text;
}

void Console::Print(std::string_view line)
{
    HideProgress();
    output_ += line;
    output_ += '\n';
    ShowProgress();
    Flush();
}

void Console::Say(std::string_view line)
{
    HideProgress();
    error_ += line;
    error_ += '\n';
    ShowProgress();
    Flush();
}

void Console::SetProgress(std::string line)
{
    if (!progressWanted_ || line == progress_ || (!Flush() && !line.empty()))
        return;
    HideProgress();
    progress_ = std::move(line);
    ShowProgress();
    Flush();
}

bool Console::Flush()
{
    const bool errorIsOut = Send(StandardStream::Error, error_);
    const bool outputIsOut = Send(StandardStream::Output, output_);
    return errorIsOut && outputIsOut;
}

void Console::FlushAll()
{
    while (!Flush())
        std::this_thread::sleep_for(kNap);
}

void Console::HideProgress()
{
    if (!progressShown_)
        return;
    error_ += "\r\x1b[K";
    progressShown_ = false;
    Flush();
}

void Console::ShowProgress()
{
    if (!progressWanted_ || progress_.empty() || !Flush())
        return;
    error_ += progress_;
    progressShown_ = true;
}

} // namespace quorvane

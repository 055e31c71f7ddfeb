#include "cli/Console.h"

#include <cstdio>
#include <utility>

namespace quorvane {
namespace {

void Write(std::FILE* stream, std::string_view text)
{
    // A failed write (a closed pipe) must not end a measurement.
    static_cast<void>(std::fwrite(text.data(), 1, text.size(), stream));
    static_cast<void>(std::fflush(stream));
}

} // namespace

Console::~Console()
{
    HideProgress();
}

void Console::Print(std::string_view line)
{
    HideProgress();
    Write(stdout, std::string(line) + '\n');
    ShowProgress();
}

void Console::Say(std::string_view line)
{
    HideProgress();
    Write(stderr, std::string(line) + '\n');
    ShowProgress();
}

void Console::SetProgress(std::string line)
{
    if (!progressWanted_ || line == progress_)
        return;
    HideProgress();
    progress_ = std::move(line);
    ShowProgress();
}

void Console::HideProgress()
{
    if (!progressShown_)
        return;
    Write(stderr, "\r\x1b[K");
    progressShown_ = false;
}

void Console::ShowProgress()
{
    if (!progressWanted_ || progress_.empty())
        return;
    Write(stderr, progress_);
    progressShown_ = true;
}

} // namespace quorvane

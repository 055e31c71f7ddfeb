#include "platform/JournalFile.h"

#include "files/JournalStore.h"

#include <algorithm>
#include <functional>

namespace quorvane {
namespace {

std::string_view WithoutEnding(std::string_view path)
{
    return path.substr(0, path.size() - (path.ends_with(kJournalEnding) ? kJournalEnding.size() : 0));
}

} // namespace

std::string NumberedJournal(const std::string& path, int number)
{
    if (number < 2)
        return path;
    std::string numbered(WithoutEnding(path));
    return numbered.append(" ").append(std::to_string(number)).append(kJournalEnding);
}

void SortNewestFirst(std::vector<std::string>& paths)
{
    std::ranges::sort(paths, std::ranges::greater(), &WithoutEnding);
}

} // namespace quorvane

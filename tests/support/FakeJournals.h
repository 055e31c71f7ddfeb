#pragma once

#include "files/JournalStore.h"

#include <cstddef>
#include <map>
#include <string>

namespace quorvane {

/// Journals in memory. What is put stands in its file at once.
class FakeJournals final : public JournalStore {
public:
    void Begin(const std::string& path) override
    {
        atHand = path;
        files[path].clear();
    }
    [[nodiscard]] bool Put(std::string_view record) override
    {
        if (atHand.empty() || room == 0)
            return false;
        --room;
        if (!Vanished())
            files[atHand] += record;
        return true;
    }
    [[nodiscard]] JournalHealth Health() const override { return health; }
    [[nodiscard]] bool Vanished() const override { return !atHand.empty() && !files.contains(atHand); }
    void Retire(const std::string& kept) override
    {
        if (atHand.empty())
            return;
        if (!kept.empty())
            files[kept] = files[atHand];
        files.erase(atHand);
        atHand.clear();
    }
    void Release() override { atHand.clear(); }
    [[nodiscard]] std::vector<std::string> LeftOver(const std::string& folder) const override
    {
        std::vector<std::string> paths;
        for (auto file = files.rbegin(); file != files.rend(); ++file)
            if (file->first.starts_with(folder) && file->first.ends_with(kJournalEnding) &&
                file->first != atHand)
                paths.push_back(file->first);
        return paths;
    }
    [[nodiscard]] std::optional<FileFault> Claim(const std::string& path, std::string& bytes) override
    {
        if (path == heldByAnother)
            return FileFault{.kind = FileFaultKind::InUse, .systemReason = {}};
        atHand = path;
        bytes = files.at(path);
        return std::nullopt;
    }

    std::map<std::string, std::string> files; ///< by path
    std::string atHand;                       ///< empty: none
    std::string heldByAnother;
    JournalHealth health;
    std::size_t room = static_cast<std::size_t>(-1); ///< records that are taken before the queue is full
};

} // namespace quorvane

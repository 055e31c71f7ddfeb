#pragma once

#include "files/AppFiles.h"
#include "platform/Platform.h"
#include "tests/support/ScratchFolder.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

namespace quorvane {

/// The system's file store and a folder of its own.
class FileStoreFixture : public testing::Test {
protected:
    [[nodiscard]] std::string In(const std::string& name) const { return folder_.Path(name); }
    [[nodiscard]] std::string Get(const std::string& name) const { return FileBytes(In(name)); }
    [[nodiscard]] std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(In("")))
            names.push_back(Utf8FromPath(entry.path().filename()));
        std::sort(names.begin(), names.end());
        return names;
    }
    void Put(const std::string& name, std::string_view bytes, unsigned mode = 0644) const
    {
        std::ofstream(In(name), std::ios::binary) << bytes;
        std::filesystem::permissions(In(name), std::filesystem::perms(mode));
    }
    void ExpectNoFile(const std::string& target)
    {
        std::string bytes = "of before";
        for (const auto& fault : {store_.CheckReplace(target), store_.Replace(target, "x"),
                                  store_.Append(target, "x"), store_.ReadWhole(target, bytes)}) {
            ASSERT_TRUE(fault) << target;
            EXPECT_EQ(fault->kind, FileFaultKind::NotAFile) << target;
            EXPECT_FALSE(fault->systemReason.empty()) << target;
        }
        EXPECT_EQ(bytes, "") << target;
    }

    ScratchFolder folder_;
    Platform system_ = MakePlatform();
    FileStore& store_ = *system_.files;
};

} // namespace quorvane

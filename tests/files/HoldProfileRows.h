#pragma once

#include "files/PrivateProfile.h"
#include "tests/files/ProfileRows.h"

#include <functional>
#include <gtest/gtest.h>

namespace quorvane {

/// Holds a private profile against the rows, in a file at `path` whose bytes are set and looked at.
inline void HoldProfileRows(PrivateProfile& profile, const std::string& path,
                            const std::function<void(const std::string&)>& put,
                            const std::function<std::string()>& get)
{
    for (const ProfileReadRow& row : ProfileReadRows()) {
        put(row.bytes);
        EXPECT_EQ(profile.ReadIniValue("S", "k", path), row.value) << row.what;
        EXPECT_EQ(profile.ReadIniValue("s", "K", path), row.value) << row.what;
    }
    for (const ProfileWriteRow& row : ProfileWriteRows()) {
        put(row.bytes);
        EXPECT_FALSE(profile.WriteIniValue("S", "k", row.value, path)) << row.what;
        EXPECT_EQ(profile.ReadIniValue("S", "k", path), row.readBack) << row.what;
        const std::string lines = "\r\n" + get() + "\r\n";
        std::size_t at = 0;
        for (const std::string& line : row.kept) {
            at = lines.find("\r\n" + line + "\r\n", at);
            ASSERT_NE(at, std::string::npos) << row.what << ": " << line;
        }
    }
}

} // namespace quorvane

#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <unistd.h>

namespace quorvane {

constexpr unsigned kOrdinaryUser = 65534;

/// Root may do everything; it acts as an ordinary user here.
inline void AsOrdinaryUser(const std::function<void()>& act)
{
    const bool isRoot = ::geteuid() == 0;
    EXPECT_TRUE(!isRoot || ::seteuid(kOrdinaryUser) == 0);
    act();
    EXPECT_TRUE(!isRoot || ::seteuid(0) == 0);
}

} // namespace quorvane

#pragma once

#include "files/AppFiles.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

namespace quorvane {

/// The bytes of a file that was made by hand.
inline std::string GoldenBytes(std::string_view name)
{
    std::ifstream file(PathFromUtf8(FileInFolder(QUORVANE_GOLDEN_FOLDER, name)), std::ios::binary);
    EXPECT_TRUE(file.is_open()) << name;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace quorvane

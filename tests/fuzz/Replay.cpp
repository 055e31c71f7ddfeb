// Tries the inputs that are kept: fuzz_replay TARGET FOLDER

#include "tests/fuzz/Targets.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

int main(int count, char** arguments)
{
    using namespace quorvane;
    if (count != 3)
        return 2;
    const auto* const target = std::ranges::find(kTargets, std::string_view(arguments[1]), &Target::name);
    if (target == std::end(kTargets))
        return 2;
    int tried = 0;
    for (const auto& entry : std::filesystem::directory_iterator(arguments[2])) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string input((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
        std::cout << entry.path().filename().string() << std::endl; // the last one shown is the one at fault
        target->tries(input);
        ++tried;
    }
    return tried > 0 ? 0 : 1;
}

// soak window SAMPLES SECONDS | soak plug HOURS SEED

#include "tests/soak/Soak.h"

#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <string_view>

int main(int count, char** arguments)
{
    if (count != 4)
        return 2;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const std::string_view what = arguments[1];
    const int first = std::atoi(arguments[2]);
    const int second = std::atoi(arguments[3]);
    const QApplication application(count, arguments);
    const bool good = what == "window" ? quorvane::SoakWindow(first, second)
                                       : quorvane::SoakPlug(first, static_cast<unsigned>(second));
    std::printf("  %s\n", good ? "good" : "BAD");
    return good ? 0 : 1;
}

#include "app/DesktopProgram.h"
#include "app/ExitStatus.h"
#include "app/ProgramVersion.h"

#include <QApplication>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

namespace {

using namespace quorvane;

std::string Usage()
{
    return R"(Usage: quorvane [--select-language | --help | --version]

Measures dust concentrations with an instrument on a serial line. Settings (Quorvane.ini) and error log
(RSErr.log) are in the program's folder, or in the user's data folder when that cannot be written, or in
the folder that the environment variable QUORVANE_HOME names. QUORVANE_COM1 to QUORVANE_COM15 name the
devices of COM1 to COM15 on Linux.

  --select-language  asks for the language of all texts first, and keeps the answer (Language.dat)
)";
}

void Print(std::FILE* stream, const std::string& text)
{
    WriteToStartersConsole();
    static_cast<void>(std::fwrite(text.data(), 1, text.size(), stream));
}

/// A failure in a handler is told and stays there; the toolkit cannot carry it any further.
class Application final : public QApplication {
public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override
    {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception& error) {
            qCritical("%s", error.what());
            return false;
        }
    }
};

int RunProgram(int argc, char** argv)
{
    const std::vector<std::string> arguments = ProgramArguments(argc, argv);
    const auto given = [&](const char* name) { return std::ranges::count(arguments, name) > 0; };
    if (given("--version") || given("--help")) { // without a display, too
        Print(stdout, given("--help") ? Usage() : "quorvane " + VersionNumber(kProgramVersion) + "\n");
        return kExitDone;
    }
    Platform platform = MakePlatform();
    const Application application(argc, argv); // takes its own options away
    QStringList others = Application::arguments().mid(1);
    others.removeAll(u"--select-language"_qs);
    if (!others.isEmpty()) {
        Print(stderr, Usage());
        return kExitUsage;
    }
    DesktopProgram program(std::move(platform));
    return program.Start(given("--select-language")) ? program.Run() : kExitFailed;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        return RunProgram(argc, argv);
    } catch (const std::exception& error) {
        Print(stderr, std::string("quorvane: ") + error.what() + "\n");
        return kExitFailed;
    }
}

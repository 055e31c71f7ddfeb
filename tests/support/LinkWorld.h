#pragma once

#include "app/ApplicationState.h"
#include "app/Texts.h"
#include "resources/StringTable.h"
#include "serial/PortLink.h"
#include "tests/support/FakeCodePage.h"
#include "tests/support/FakePort.h"
#include "tests/support/FixedLocale.h"
#include "tests/support/MemoryFileStore.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/World.h"

#include <string>

namespace quorvane {

/// A program in the discrete-event world, up to its link: settings of a fresh program, an English table.
struct LinkWorld {
    explicit LinkWorld(LocalMoment start = std::chrono::local_days(std::chrono::year(2024) / 5 / 1) +
                                           std::chrono::hours(9) + std::chrono::minutes(30))
        : world(start)
    {
        state.AppPath = "app";
        state.RunMode = true;
        state.RsPort = "COM1";
        state.RsSpeed = "38400";
        state.RsDataBit = "8";
        state.RsParity = "N";
        state.RsStopBit = "1";
        state.RsFlow = 3;
    }

    /// The error log without its heading line, and without date and time in front of each record; empty
    /// when there is none.
    [[nodiscard]] std::string LoggedErrors() const
    {
        for (const auto& [path, bytes] : files.files) {
            if (path.ends_with("RSErr.log"))
                return WithoutTimes(bytes.substr(bytes.find('\n') + 1));
        }
        return {};
    }

    /// Answers every "N" so much later.
    void AnswerLinkChecks(World::Time delay, const std::string& answer = "AN\r\n")
    {
        port.onOutput = [this, delay, answer](const std::string& text) {
            if (text == "N\r\n")
                port.Deliver(delay, answer);
        };
    }

    World world;
    ApplicationState state;
    StringTable table{TableLanguage::English};
    Texts texts{table, state};
    FakePort port{world};
    FakePortNames names;
    WorldTimer timer1{world};
    ScriptedPrompts prompts;
    MemoryFileStore files;
    FakeCodePage codePage;
    FixedLocale locale;
    SerialLog log{state, files, codePage, world, locale};
    PortLink link{state, {port, names, world, timer1, prompts, log, texts}};

private:
    [[nodiscard]] static std::string WithoutTimes(std::string records)
    {
        constexpr std::string_view kDay = "2024/05/0";
        constexpr std::size_t kStampLength = std::string_view("2024/05/01 09:30:00,").size();
        for (std::size_t at = records.find(kDay); at != std::string::npos; at = records.find(kDay, at))
            records.erase(at, kStampLength);
        return records;
    }
};

} // namespace quorvane

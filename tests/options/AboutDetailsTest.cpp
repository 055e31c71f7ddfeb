#include "options/AboutDetails.h"

#include "app/ProgramVersion.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

std::string Copied(const ApplicationState& state, TableLanguage language = TableLanguage::English)
{
    const StringTable table(language);
    const Texts texts(table, state);
    return MailText(
        AboutRows(state, texts, {.libraries = {{"Lib", "1.2", "MIT"}}, .system = "A system, linux 6.1"}));
}

const std::string kVersion = VersionNumber(kProgramVersion);

TEST(AboutDetails, EveryFactHasALineInTheProgramsLanguage)
{
    ApplicationState state;
    state.OsKind = 8;
    state.CpuName = "A processor";
    state.CpuDescription = "x86_64 Family 6";
    state.CpuManufacturer = "A maker";
    state.CpuCurrentClockSpeed = 2399.998;
    state.CpuMaxClockSpeed = 3600;
    state.CpuL2CacheSize = 2048;
    state.SystemLanguageName = "Japanese";
    state.AppPath = "/opt/quorvane";
    EXPECT_EQ(Copied(state), "Version: Quorvane Software " + kVersion + "\n" +
                                 "Library: Lib 1.2 (MIT)\n"
                                 "Processor: A processor\n"
                                 "Processor type: x86_64 Family 6\n"
                                 "Processor maker: A maker\n"
                                 "Processor clock: 2400 MHz at the start, at most 3600 MHz\n"
                                 "L2 cache: 2048 KB\n"
                                 "System: A system, linux 6.1\n"
                                 "System class: 8\n"
                                 "System language: Japanese\n"
                                 "Program files: /opt/quorvane\n");
    state.CpuMaxClockSpeed = 0;
    EXPECT_NE(Copied(state).find("\nProcessor clock: 2400 MHz at the start\n"), std::string::npos);
    state.CpuMaxClockSpeed = 3600;
    state.CpuCurrentClockSpeed = 0;
    EXPECT_NE(Copied(state, TableLanguage::Japanese).find("\nプロセッサーの周波数: 最大 3600 MHz\n"),
              std::string::npos);
}

TEST(AboutDetails, WhatTheSystemDidNotTellIsLeftOutButForTheProcessor)
{
    ApplicationState state;
    state.AppPath = "/opt/quorvane";
    state.CpuAwaited = true;
    EXPECT_NE(Copied(state).find("\nProcessor: The system is being asked...\nSystem: "), std::string::npos);
    state.CpuAwaited = false;
    EXPECT_EQ(Copied(state), "Version: Quorvane Software " + kVersion + "\n" +
                                 "Library: Lib 1.2 (MIT)\n"
                                 "Processor: unknown\n"
                                 "System: A system, linux 6.1\n"
                                 "System class: 0\n"
                                 "Program files: /opt/quorvane\n");
}

} // namespace
} // namespace quorvane

#include "app/Startup.h"

#include "files/AppFiles.h"
#include "tests/support/FixedClock.h"
#include "tests/support/FixedLocale.h"
#include "tests/support/FixedSystemInfo.h"
#include "tests/support/MemoryFileStore.h"
#include "tests/support/ScriptedPrompts.h"

#include <gtest/gtest.h>
#include <optional>

namespace quorvane {
namespace {

struct ScriptedLock : InstanceLock {
    bool PreviousInstanceRunning() override { return running; }
    bool running = false;
};

struct StartupTest : testing::Test {
    StartupResult Start()
    {
        const auto findFiles = [] { return ProgramFiles{"app", FilesPlace::UserFolder}; };
        const auto showMainWindow = [this] { stateAtWindow = state; };
        return Main(state,
                    {lock, system, locale, clock, store, prompts, texts, findFiles, {}, showMainWindow});
    }

    ScriptedLock lock;
    FixedSystemInfo system;
    FixedLocale locale;
    FixedClock clock;
    MemoryFileStore store;
    ScriptedPrompts prompts;
    ApplicationState state;
    std::optional<ApplicationState> stateWhenAsked; ///< for the processors
    std::optional<ApplicationState> stateAtWindow;
    StringTable table{TableLanguage::English};
    Texts texts{table, state};
};

TEST_F(StartupTest, LearnsEverythingBeforeItShowsTheWindow)
{
    store.files[FileInFolder("app", "Language.dat")] = "Language = 1\r\n";
    system.processors = {{{"Family 6", "Only", "Maker", 1000, 2000, 512}}};
    system.whenAsked = [this] { stateWhenAsked = state; };
    locale.systemLanguageName = "Japanese";
    locale.shortDateFormat = "dd.MM.yyyy";
    system.version = BasicVersion{6, 1, 2, ""};
    EXPECT_EQ(Start(), StartupResult::Running);
    ASSERT_TRUE(stateWhenAsked && stateAtWindow);
    EXPECT_EQ(stateWhenAsked->OsKind, 7);
    EXPECT_EQ(stateWhenAsked->SystemLanguageName, "");
    EXPECT_EQ(stateAtWindow->AppPath, "app");
    EXPECT_EQ(stateAtWindow->OsKind, 7);
    EXPECT_EQ(stateAtWindow->CpuName, "Only");
    EXPECT_EQ(stateAtWindow->SystemLanguageName, "Japanese");
    EXPECT_EQ(stateAtWindow->ShortDateFormat, "dd.MM.yyyy");
    EXPECT_EQ(stateAtWindow->LanguageMode, 1);
    EXPECT_EQ(stateAtWindow->LanguageOffset, 0) << "the window sets it";
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(StartupTest, ASecondInstanceSaysSoAndDoesNothingElse)
{
    lock.running = true;
    system.whenAsked = [] { ADD_FAILURE(); };
    EXPECT_EQ(Start(), StartupResult::AlreadyRunning);
    EXPECT_FALSE(stateAtWindow);
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(prompts.messages[0].text, "Two or more startings cannot do this application.");
    EXPECT_EQ(prompts.messages[0].icon, Icon::Exclamation);
    EXPECT_EQ(prompts.messages[0].titleId, 101);
    EXPECT_EQ(prompts.messages[0].buttons, Buttons::Ok);
    EXPECT_EQ(state.AppPath, "");
    EXPECT_EQ(state.ShortDateFormat, "");
}

TEST_F(StartupTest, NothingThatIsMissingKeepsTheProgramFromStarting)
{
    EXPECT_EQ(Start(), StartupResult::Running);
    EXPECT_EQ(state.OsKind, 1);
    EXPECT_EQ(state.LanguageMode, 0);
    EXPECT_EQ(state.CpuName, "");
    EXPECT_EQ(state.CpuMaxClockSpeed, 0);
    EXPECT_FALSE(state.CpuAwaited) << "there are none";
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(StartupTest, TheLastProcessorStays)
{
    std::vector<ProcessorRecord> two = {{"Family 6", "First", "Maker A", 1000, 2000, 512},
                                        {"Family 15", "Second", "Maker B", 1500, 3000, 1024}};
    system.processors = two;
    ASSERT_EQ(Start(), StartupResult::Running);
    EXPECT_EQ(state.CpuDescription, "Family 15");
    EXPECT_EQ(state.CpuName, "Second");
    EXPECT_EQ(state.CpuManufacturer, "Maker B");
    EXPECT_EQ(state.CpuCurrentClockSpeed, 1500);
    EXPECT_EQ(state.CpuMaxClockSpeed, 3000);
    EXPECT_EQ(state.CpuL2CacheSize, 1024);
    for (const std::optional<double> unknown : {std::optional<double>(), std::optional<double>(-1)}) {
        two[1].l2CacheSize = unknown;
        system.processors = two;
        ASSERT_EQ(Start(), StartupResult::Running);
        EXPECT_EQ(state.CpuL2CacheSize, 0) << "and not the first one's";
    }
}

} // namespace
} // namespace quorvane

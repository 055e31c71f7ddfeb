#include "app/Startup.h"

#include "files/AppFiles.h"
#include "tests/support/FixedClock.h"
#include "tests/support/FixedLocale.h"
#include "tests/support/FixedSystemInfo.h"
#include "tests/support/MemoryFileStore.h"
#include "tests/support/ScriptedPrompts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvane {
namespace {

using testing::ElementsAre;

/// What start-up did, in order; the same thing several times in a row is one.
class Protocol {
public:
    void Note(const std::string& event)
    {
        if (events.empty() || events.back() != event)
            events.push_back(event);
    }
    std::vector<std::string> events;
};

struct NotingLock : InstanceLock {
    explicit NotingLock(Protocol& p) : protocol(p) {}
    bool PreviousInstanceRunning() override
    {
        protocol.Note("instance");
        return running;
    }
    Protocol& protocol;
    bool running = false;
};

struct NotingSystem : FixedSystemInfo {
    explicit NotingSystem(Protocol& p) : protocol(p) {}
    std::optional<BasicVersion> Version() const override
    {
        protocol.Note("version");
        return version;
    }
    std::vector<ProcessorRecord> Processors() const override
    {
        protocol.Note("processors");
        return processors;
    }
    Protocol& protocol;
};

struct NotingLocale : FixedLocale {
    explicit NotingLocale(Protocol& p) : protocol(p) {}
    std::string SystemLanguageName() const override
    {
        protocol.Note("language");
        return systemLanguageName;
    }
    std::string ShortDateFormat() const override
    {
        protocol.Note("date format");
        return shortDateFormat;
    }
    Protocol& protocol;
};

struct NotingStore : MemoryFileStore {
    explicit NotingStore(Protocol& p) : protocol(p) {}
    std::optional<FileFault> ReadWhole(const std::string& path, std::string& bytes) const override
    {
        protocol.Note("read " + path);
        return MemoryFileStore::ReadWhole(path, bytes);
    }
    Protocol& protocol;
};

struct StartupTest : testing::Test {
    StartupResult Start()
    {
        prompts.whileOpen = [this] { protocol.Note("message"); };
        const auto findFiles = [this] {
            protocol.Note("files");
            return ProgramFiles{"app", FilesPlace::UserFolder};
        };
        const auto showMainWindow = [this] {
            protocol.Note("window");
            stateAtWindow = state;
        };
        return Main(state, {lock, system, locale, clock, store, prompts, texts, findFiles, showMainWindow});
    }

    Protocol protocol;
    NotingLock lock{protocol};
    NotingSystem system{protocol};
    NotingLocale locale{protocol};
    FixedClock clock;
    NotingStore store{protocol};
    ScriptedPrompts prompts;
    ApplicationState state;
    ApplicationState stateAtWindow;
    StringTable table{TableLanguage::English};
    Texts texts{table, state};
    const std::string languageFile = FileInFolder("app", "Language.dat");
};

TEST_F(StartupTest, LearnsEverythingInOrderAndThenShowsTheWindow)
{
    store.files[languageFile] = "Language = 1\r\n";
    locale.systemLanguageName = "Japanese";
    locale.shortDateFormat = "dd.MM.yyyy";
    system.version = BasicVersion{6, 1, 2, ""};
    EXPECT_EQ(Start(), StartupResult::Running);
    EXPECT_THAT(protocol.events, ElementsAre("instance", "files", "version", "processors", "language",
                                             "date format", "read " + languageFile, "window"));
    EXPECT_EQ(stateAtWindow.AppPath, "app");
    EXPECT_EQ(stateAtWindow.OsKind, 7);
    EXPECT_EQ(stateAtWindow.SystemLanguageName, "Japanese");
    EXPECT_EQ(stateAtWindow.ShortDateFormat, "dd.MM.yyyy");
    EXPECT_EQ(stateAtWindow.LanguageMode, 1);
    EXPECT_EQ(stateAtWindow.LanguageOffset, 0) << "the window sets it";
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(StartupTest, ASecondInstanceSaysSoAndDoesNothingElse)
{
    lock.running = true;
    EXPECT_EQ(Start(), StartupResult::AlreadyRunning);
    EXPECT_THAT(protocol.events, ElementsAre("instance", "message"));
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(prompts.messages[0].text, "Two or more startings cannot do this application.");
    EXPECT_EQ(prompts.messages[0].icon, Icon::Exclamation);
    EXPECT_EQ(prompts.messages[0].titleId, 101);
    EXPECT_EQ(prompts.messages[0].buttons, Buttons::Ok);
    EXPECT_EQ(state.AppPath, "");
    EXPECT_TRUE(store.files.empty());
}

TEST_F(StartupTest, NothingThatIsMissingKeepsTheProgramFromStarting)
{
    EXPECT_EQ(Start(), StartupResult::Running);
    EXPECT_EQ(state.OsKind, 1);
    EXPECT_EQ(state.LanguageMode, 0);
    EXPECT_EQ(state.CpuName, "");
    EXPECT_EQ(state.CpuMaxClockSpeed, 0);
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(StartupTest, TheLastProcessorStays)
{
    system.processors = {{"Family 6", "First", "Maker A", 1000, 2000, 512},
                         {"Family 15", "Second", "Maker B", 1500, 3000, 1024}};
    ASSERT_EQ(Start(), StartupResult::Running);
    EXPECT_EQ(state.CpuDescription, "Family 15");
    EXPECT_EQ(state.CpuName, "Second");
    EXPECT_EQ(state.CpuManufacturer, "Maker B");
    EXPECT_EQ(state.CpuCurrentClockSpeed, 1500);
    EXPECT_EQ(state.CpuMaxClockSpeed, 3000);
    EXPECT_EQ(state.CpuL2CacheSize, 1024);
    for (const std::optional<double> unknown : {std::optional<double>(), std::optional<double>(-1)}) {
        system.processors[1].l2CacheSize = unknown;
        ASSERT_EQ(Start(), StartupResult::Running);
        EXPECT_EQ(state.CpuL2CacheSize, 0) << "and not the first one's";
    }
}

} // namespace
} // namespace quorvane

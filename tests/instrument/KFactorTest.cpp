#include "instrument/KFactor.h"

#include "tests/support/InstrumentVectors.h"

#include <gtest/gtest.h>

namespace quorvane {
namespace {

TEST(KFactor, HoldsTheUpperLimitWhileTypedAndTheLowerOneWhenLeft)
{
    struct Row {
        std::string_view text; ///< typed where 0.0012 is
        double stored;
        double closed; ///< when the dialog is closed then
        bool taken, valid;
    };
    const Row rows[] = {
        {"0.0099", 0.0099, 0.0099, true, true},
        {"0.00991", 0.0012, 0.0012, false, true},
        {"0.01", 0.0012, 0.0012, false, true},
        {"-0.001", 0.0012, 0.0012, false, true},
        {"0,0001", 0.0001, 0.0001, true, true},
        {"0.00009", 0.00009, 0.0012, true, false},
        {"0", 0, 0.0012, true, false},
        {"", 0, 0.0012, true, false},
        {"0.0034 mg", 0.0034, 0.0034, true, true},
        {"abc", 0, 0.0012, true, false},
    };
    for (const Row& row : rows) {
        InstrumentProgram program;
        program.KFactor = 0.0012;
        KFactorEdit edit(program);
        EXPECT_EQ(edit.TextChanged(row.text, ","), row.taken) << row.text;
        EXPECT_EQ(program.KFactor, row.stored) << row.text;
        EXPECT_EQ(edit.IsValid(), row.valid) << row.text;
        edit.Close();
        EXPECT_EQ(program.KFactor, row.closed) << row.text;
    }
}

TEST(KFactor, GoesBackToTheLastOneThatWasFoundValid)
{
    InstrumentProgram program; // 0, as a file may hold it
    KFactorEdit edit(program);
    EXPECT_TRUE(edit.TextChanged("0.00005", "."));
    edit.Close();
    EXPECT_EQ(program.KFactor, 0.00005) << "there was none";
    EXPECT_TRUE(edit.TextChanged("0.0034", ".") && edit.IsValid());
    EXPECT_TRUE(edit.TextChanged("0.003", ".") && edit.TextChanged("0.00", "."));
    edit.Close();
    EXPECT_EQ(program.KFactor, 0.0034) << "0.003 only stood on the way";
}

TEST(KFactor, IsSentInThousandths)
{
    for (const KFactorVector& vector : kKFactorVectors) {
        const InstrumentCommand command = KFactorCommand(vector.kFactor);
        EXPECT_EQ(command.Text() + "\r\n", vector.exchange.request) << vector.exchange.what;
        EXPECT_EQ(command.waiting, InstrumentCommand::Waiting::BeforeEachRead);
        EXPECT_FALSE(command.clearInputFirst);
    }
    EXPECT_EQ(KFactorCommand(0.00125).Text(), "E1.3"); // a half is rounded away from zero
}

TEST(KFactor, SaysItsRange)
{
    const StringTable table(TableLanguage::English);
    const Message message = KFactorRangeMessage(Texts(table, {}));
    EXPECT_EQ(message.text, "It is over the setting range. Redo setup.(0.0001-0.0099)");
    EXPECT_EQ(message.icon, Icon::Critical);
    EXPECT_EQ(message.titleId, kInstrumentSettingText);
}

} // namespace
} // namespace quorvane

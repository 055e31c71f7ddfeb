#include "platform/LateAnswer.h"

#include <future>
#include <gtest/gtest.h>
#include <stdexcept>

namespace quorvane {
namespace {

/// @return the answer once it has come
int Taken(LateAnswer<int>& question)
{
    for (;;) {
        if (const auto answer = question.Take())
            return *answer;
        std::this_thread::yield();
    }
}

TEST(LateAnswer, ComesWhenItIsKnownAndOnce)
{
    std::promise<int> known;
    LateAnswer<int> question;
    EXPECT_FALSE(question.Take()) << "nobody asked";
    question.Ask([&] { return known.get_future().get(); });
    EXPECT_FALSE(question.Take());
    known.set_value(7);
    EXPECT_EQ(Taken(question), 7);
    EXPECT_FALSE(question.Take());
}

TEST(LateAnswer, IsEmptyWhereTheWorkFails)
{
    LateAnswer<int> question;
    question.Ask([]() -> int { throw std::runtime_error("refused"); });
    EXPECT_EQ(Taken(question), 0);
}

TEST(LateAnswer, NobodyWaitsForOneThatDoesNotCome)
{
    const auto goOn = std::make_shared<std::promise<void>>();
    const auto gone = std::make_shared<std::promise<void>>();
    {
        LateAnswer<int> question;
        question.Ask([goOn, gone] {
            goOn->get_future().wait();
            gone->set_value();
            return 1;
        });
    }
    goOn->set_value(); // not before the question has gone: who waits for the worker waits for ever
    gone->get_future().wait();
}

} // namespace
} // namespace quorvane

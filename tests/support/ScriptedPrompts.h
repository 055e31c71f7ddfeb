#pragma once

#include "app/Prompts.h"

#include <deque>
#include <functional>
#include <vector>

namespace quorvane {

/// Records what the operator is asked and gives the answers in turn. Without an answer left, a question is
/// answered No, a message Ok, and a save dialog is cancelled.
class ScriptedPrompts : public Prompts {
public:
    std::deque<Answer> answers; ///< for messages with Yes and No
    std::deque<std::optional<std::string>> saveNames;
    std::vector<Message> messages;           ///< shown so far
    std::vector<SaveQuestion> saveQuestions; ///< asked so far
    std::function<void()> whileOpen;         ///< what happens while a box is open

    Answer Show(const Message& message) override
    {
        messages.push_back(message);
        if (whileOpen)
            whileOpen();
        if (message.buttons == Buttons::Ok)
            return Answer::Ok;
        return Next(answers, Answer::No);
    }

    std::optional<std::string> AskSaveName(const SaveQuestion& question) override
    {
        saveQuestions.push_back(question);
        if (whileOpen)
            whileOpen();
        return Next(saveNames, std::optional<std::string>());
    }

private:
    template <typename Value>
    static Value Next(std::deque<Value>& values, Value otherwise)
    {
        if (values.empty())
            return otherwise;
        Value value = values.front();
        values.pop_front();
        return value;
    }
};

} // namespace quorvane

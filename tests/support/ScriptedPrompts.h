#pragma once

#include "app/Prompts.h"

#include <deque>
#include <functional>
#include <vector>

namespace quorvane {

/// Records what the operator is asked and gives the answers in turn. Without an answer left, a question is
/// answered No, a message Ok, and a file dialog is cancelled.
class ScriptedPrompts : public Prompts {
public:
    std::deque<Answer> answers; ///< for messages with Yes and No
    std::deque<std::optional<std::string>> saveNames;
    std::deque<std::optional<std::string>> openNames;
    std::vector<Message> messages;           ///< shown so far
    std::vector<SaveQuestion> saveQuestions; ///< asked so far
    std::vector<OpenQuestion> openQuestions;
    std::function<void()> whileOpen; ///< what happens while a box is open

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

    std::optional<std::string> AskOpenName(const OpenQuestion& question) override
    {
        openQuestions.push_back(question);
        if (whileOpen)
            whileOpen();
        return Next(openNames, std::optional<std::string>());
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

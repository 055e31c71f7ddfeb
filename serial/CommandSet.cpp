#include "serial/CommandSet.h"

namespace quorvane {

std::string Request(char letter, std::string_view parameters)
{
    std::string request(1, letter);
    request += parameters;
    request += kLineEnd;
    return request;
}

bool IsAcknowledgement(std::string_view reply, char letter)
{
    constexpr std::size_t kShortest = 4;
    return reply.size() >= kShortest && reply[0] == 'A' && reply[1] == letter && reply.ends_with(kLineEnd);
}

std::string BareAcknowledgement(char letter)
{
    return 'A' + Request(letter);
}

std::string CommandName(char letter)
{
    return std::string(1, letter) + " Command";
}

std::string DataReadName(char letter)
{
    return CommandName(letter) + " Data Read";
}

} // namespace quorvane

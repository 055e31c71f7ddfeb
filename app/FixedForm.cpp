#include "app/FixedForm.h"

#include <charconv>

namespace quorvane {
namespace {

bool IsLetter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

} // namespace

bool HasForm(std::string_view text, std::string_view form)
{
    if (text.size() != form.size())
        return false;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (IsLetter(form[i]) ? !IsDigit(text[i]) : text[i] != form[i])
            return false;
    return true;
}

std::optional<LocalMoment> MomentInForm(std::string_view text, std::string_view form)
{
    if (!HasForm(text, form))
        return std::nullopt;
    const auto number = [text](std::size_t first, std::size_t length) {
        int value = 0;
        std::from_chars(text.data() + first, text.data() + first + length, value);
        return value;
    };
    using namespace std::chrono;
    const year_month_day date{year(number(0, 4)), month(static_cast<unsigned>(number(5, 2))),
                              day(static_cast<unsigned>(number(8, 2)))};
    const int hour = number(11, 2);
    const int minute = number(14, 2);
    const int second = number(17, 2);
    if (!date.ok() || date.year() < year(1970) || hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    return local_days(date) + hours(hour) + minutes(minute) + seconds(second);
}

} // namespace quorvane

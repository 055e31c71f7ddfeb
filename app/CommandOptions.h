#pragma once

#include "app/LocalClock.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvane {

/// One option that a program knows.
struct CommandOption {
    std::string_view name;        ///< with its dashes: "--speed"; without: an argument of its own, "VALUE"
    std::string_view placeholder; ///< what stands for the value in the help: "F"; empty: takes no value
    std::string_view help;        ///< one line
    bool repeatable = false;      ///< may be given more than once
};

/// What is wrong with a command line: one line without line end, for the user.
struct UsageFault {
    std::string text;
};

/// A command line made of options, `--name VALUE` or `--name=VALUE`. A value that begins with two dashes
/// needs the second form. Arguments without a name may stand anywhere between them. Nothing is printed here
/// and nothing ends the program.
class CommandOptions {
public:
    /// `known` must outlive this object; names asked for later are among it.
    explicit CommandOptions(std::span<const CommandOption> known) : known_(known) {}

    /// Reads the arguments that follow the program's name.
    /// @return the first thing that is wrong: an unknown option, a missing or surplus value, an option
    ///         given twice, an argument that is no option
    [[nodiscard]] std::optional<UsageFault> Read(std::span<const std::string> arguments);

    [[nodiscard]] bool Has(std::string_view name) const { return values_.contains(name); }
    /// The option's value, or `otherwise` when it is not given.
    [[nodiscard]] std::string Text(std::string_view name, std::string_view otherwise = {}) const;
    /// All values of a repeatable option in the order in which they were given.
    [[nodiscard]] std::vector<std::string> Texts(std::string_view name) const;

    /// The typed readers leave `value` as it is when the option is not given. The whole text must be the
    /// value, within `least` to `most`. @return what is wrong with it
    [[nodiscard]] std::optional<UsageFault> ReadWhole(std::string_view name, std::int64_t least,
                                                      std::int64_t most, std::int64_t& value) const;
    /// A decimal number with "." and without exponent.
    [[nodiscard]] std::optional<UsageFault> ReadDecimal(std::string_view name, double least, double most,
                                                        double& value) const;
    /// One of `words`; `index` becomes its place among them.
    [[nodiscard]] std::optional<UsageFault>
    ReadChoice(std::string_view name, std::span<const std::string_view> words, std::size_t& index) const;
    /// "YYYY-MM-DD hh:mm:ss", an existing date and time of the years 1970 to 9999.
    [[nodiscard]] std::optional<UsageFault> ReadMoment(std::string_view name,
                                                       std::optional<LocalMoment>& value) const;

    /// The options with their help, one to a line, in the order of the table.
    [[nodiscard]] std::string Help() const;

private:
    [[nodiscard]] const CommandOption* Find(std::string_view name) const;
    [[nodiscard]] const CommandOption* NextUnnamed() const;
    [[nodiscard]] const std::string* Given(std::string_view name) const;

    std::span<const CommandOption> known_;
    std::map<std::string, std::vector<std::string>, std::less<>> values_;
};

/// `text` in quotation marks, fit for one line of a message: control characters become "?".
[[nodiscard]] std::string Quoted(std::string_view text);

/// Two columns, the first as wide as its widest entry: for lists in a usage text.
[[nodiscard]] std::string TwoColumns(std::span<const std::pair<std::string, std::string>> rows);

} // namespace quorvane

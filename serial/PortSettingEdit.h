#pragma once

#include "app/ApplicationState.h"
#include "app/Prompts.h"
#include "app/Texts.h"

#include <optional>
#include <string>
#include <vector>

namespace quorvane {

/// The lists of line settings.
enum class LineField { BaudRate, DataBits, Parity, StopBits, Flow };

/// The list's entries in their order.
[[nodiscard]] std::vector<std::string> LineEntries(LineField field, const Texts& texts);

/// The settings of the port being edited: they change at once and go back to what they were unless they are
/// kept. What is not picked stays as it is, in whatever form.
class PortSettingEdit {
public:
    explicit PortSettingEdit(PortSettings& port) : port_(port), before_(port) {}

    [[nodiscard]] const std::string& Port() const { return port_.RsPort; }
    void SetPort(const std::string& name) { port_.RsPort = name; }

    /// The entry, from 0, that the setting stands for, or -1 when it stands for none. Parity counts by its
    /// letter without case, whatever the language of the entries; the others by their exact value.
    [[nodiscard]] int Selected(LineField field) const;
    /// An entry was picked: its text is stored, of parity its letter "e", "o" or "n", of flow its number from
    /// 1. An index that is none stores nothing.
    void Pick(LineField field, int index);

    /// All six values are again what they were.
    void Restore() { port_ = before_; }

private:
    PortSettings& port_;
    const PortSettings before_;
};

/// What the operator is told when the chosen port is the one of the second channel. It is only told: the
/// choice stays.
/// @param secondChannelPort  empty where there is no second channel
/// @return nothing when they do not overlap
[[nodiscard]] std::optional<Message> PortOverlap(const std::string& chosen,
                                                 const std::string& secondChannelPort, const Texts& texts);

/// What the operator is told when no port was found.
[[nodiscard]] Message NoPortMessage(const Texts& texts);

} // namespace quorvane

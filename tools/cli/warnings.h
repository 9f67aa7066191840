#pragma once

#include <string>
#include <utility>
#include <vector>

namespace VelkoHost {
class ExtensionSession;
}

namespace VelkoCli {

// The rules the object keeps that a user would not guess, said in the user's terms.

// About the settings written (name and text of each write), once for a run.
std::vector<std::string> settingWarnings(
    VelkoHost::ExtensionSession& session,
    const std::vector<std::pair<std::string, std::string>>& writes);

// About one clean picture of a code type; value is the text it was asked to hold.
std::vector<std::string> valueWarnings(VelkoHost::ExtensionSession& session, unsigned type,
                                       const std::string& value);

}  // namespace VelkoCli

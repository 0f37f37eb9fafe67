#pragma once
// Where the program keeps and looks for things on this desktop.

#include <filesystem>

namespace tavvel {

struct Places {
    std::filesystem::path prefsFolder; // $XDG_CONFIG_HOME/Tavvel, default ~/.config/Tavvel
    std::filesystem::path home;
    std::filesystem::path documents; // XDG documents folder when it exists, else ~/Documents

    // The places of the user running the program, from the environment.
    static Places forCurrentUser();
};

} // namespace tavvel

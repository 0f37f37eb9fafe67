#pragma once
// Where the program keeps and looks for things on this desktop.

#include <filesystem>

namespace tavvel {

struct Places {
    std::filesystem::path prefsFolder; // $XDG_CONFIG_HOME/Tavvel, default ~/.config/Tavvel
    std::filesystem::path home;
    std::filesystem::path documents; // XDG documents folder when it exists, else ~/Documents
    // $XDG_DATA_HOME/Tavvel, default ~/.local/share/Tavvel; empty: keep no conversion history.
    std::filesystem::path dataFolder;

    // The places of the user running the program, from the environment.
    static Places forCurrentUser();
};

} // namespace tavvel

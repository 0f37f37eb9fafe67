#pragma once
// The main window's size and position, kept in the preference store between runs.

#include <string_view>

class QWidget;

namespace tavvel {
class TvPrefs;
}

namespace tavvel::gui {

inline constexpr std::string_view kWindowFrameKey = "MainWindowFrame";

// False when nothing usable is stored; the window keeps its own size then.
bool restoreFrame(QWidget& window, const TvPrefs& prefs);
void saveFrame(const QWidget& window, TvPrefs& prefs);

} // namespace tavvel::gui

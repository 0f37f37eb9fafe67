#pragma once
// Recognises the list sections (accounts, categories, securities) at the front of a QIF file,
// asks whether each list should replace the program's own, and says where the transactions,
// if any, begin.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

class Dialogs;
class TvPrefs;

class ImportQuickenExport {
public:
    // Result bits of process().
    static constexpr int kMalformed = -1;
    static constexpr int kAccountsReplaced = 1;
    static constexpr int kCategoriesReplaced = 2;
    static constexpr int kSecuritiesReplaced = 4;
    static constexpr int kEndedInsideList = 8;

    ImportQuickenExport(TvPrefs& prefs, Dialogs& dialogs) : prefs_(prefs), dialogs_(dialogs) {}

    // process:indexPtr:fromSource: — `startIndex` receives the index of the line where the
    // transactions begin (the number of lines when the scan ran to the end). A malformed list
    // part gives kMalformed before anything is asked or stored.
    int process(const std::vector<std::string_view>& lines, std::size_t& startIndex,
                std::string_view source);

private:
    TvPrefs& prefs_;
    Dialogs& dialogs_;
};

} // namespace tavvel

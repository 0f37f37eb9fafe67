#pragma once
// The end of a run: the QIF header in front of the transactions, and the output file written
// or appended to, whole and atomically.

#include <string>
#include <string_view>

namespace tavvel {

class TvPrefs;

// The header for the run. With `append` on it names the account: "!Account\nN<name>\nT<type>\n
// ^\n!Type:<type>\n" (a "Port" account gives "TPort" and "!Type:Invst"). Otherwise by run kind:
// bank "!Type:Bank\n", card "!Type:CCard\n", investment "!Type:Invst\n", undecided nothing.
std::string qifHeader(bool append, int gType, std::string_view account,
                      std::string_view accountType);

struct OutputTarget {
    std::string path;
    bool appendSwitchOn = false;
    bool appendOption = false; // the option `append`
    bool qifOutput = true;
};

// Writes the run's text to the target. The existing file's text stays in front when the file
// exists and the append switch is on, except that QIF without the `append` option (no account
// header) is never appended to. False when the write failed.
bool writeOutputFile(const OutputTarget& target, std::string_view outputText);

} // namespace tavvel

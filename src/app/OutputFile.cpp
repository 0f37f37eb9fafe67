#include "app/OutputFile.h"

#include "context/Context.h"
#include "prefs/Files.h"

#include <unistd.h>

namespace tavvel {

std::string qifHeader(bool append, int gType, std::string_view account,
                      std::string_view accountType) {
    std::string name(account);
    if (append && accountType == "Port")
        return "!Account\nN" + name + "\nTPort\n^\n!Type:Invst\n";
    if (append) {
        std::string type(accountType);
        return "!Account\nN" + name + "\nT" + type + "\n^\n!Type:" + type + "\n";
    }
    switch (gType) {
    case kTypeBank:
        return "!Type:Bank\n";
    case kTypeCreditCard:
        return "!Type:CCard\n";
    case kTypeInvestment:
        return "!Type:Invst\n";
    default:
        return "";
    }
}

bool writeOutputFile(const OutputTarget& target, std::string_view outputText) {
    bool appending = target.appendSwitchOn && (target.appendOption || !target.qifOutput);
    // The output is written as it stands unless it joins what the file holds already.
    if (!appending || ::access(target.path.c_str(), W_OK) != 0)
        return writeFileAtomically(target.path, outputText);
    auto existing = readWholeFile(target.path);
    if (!existing)
        return false; // never replace a file we could not read back
    existing->append(outputText);
    return writeFileAtomically(target.path, *existing);
}

} // namespace tavvel

#include "app/ImportQuickenExport.h"

#include "app/AppTexts.h"
#include "dialogs/Dialogs.h"
#include "dialogs/MessageFormat.h"
#include "prefs/Settings.h"

#include <optional>

namespace tavvel {

namespace {

enum class Section { none, accounts, categories, securities };

// The lists as the scan finds them; a list is "started" once its section header is met.
struct Lists {
    std::optional<Array> accounts, categories, securities;
};

// Walks the lines once. Records of the accounts and securities sections are a name line
// followed by a second line (type or symbol); anything out of that order is malformed.
class Scan {
public:
    // False when the list part is malformed. `stop` is the index of the line that ended the
    // scan, or the number of lines.
    bool run(const std::vector<std::string_view>& lines, std::size_t& stop);
    const Lists& lists() const { return lists_; }
    // A prices section is reported once the lists are known to be sound, so a malformed
    // export gets one message only.
    bool pricesSeen() const { return pricesSeen_; }
    bool sectionOpen() const { return section_ != Section::none; }

private:
    bool header(std::string_view line, bool& stopHere);
    bool recordLine(std::string_view line);
    bool pairedLine(std::string_view line, char second, std::string_view secondKey, Array& list);

    Lists lists_;
    Section section_ = Section::none;
    bool outsideAutoSwitch_ = true;
    std::optional<std::string> pendingName_;
    bool pricesSeen_ = false;
};

bool startsWith(std::string_view line, std::string_view prefix) {
    return line.substr(0, prefix.size()) == prefix;
}

bool Scan::run(const std::vector<std::string_view>& lines, std::size_t& stop) {
    for (stop = 0; stop < lines.size(); ++stop) {
        bool stopHere = false;
        if (header(lines[stop], stopHere)) {
            if (stopHere)
                return !pendingName_;
            continue;
        }
        if (!recordLine(lines[stop]))
            return false;
    }
    return !pendingName_;
}

// Section headers; true when the line was one (or an ignored "!Account").
bool Scan::header(std::string_view line, bool& stopHere) {
    if (line == "!Option:AutoSwitch") {
        lists_.accounts = Array{};
        section_ = Section::accounts;
        outsideAutoSwitch_ = false;
    } else if (line == "!Clear:AutoSwitch") {
        outsideAutoSwitch_ = true;
    } else if (line == "!Type:Cat") {
        lists_.categories = Array{};
        section_ = Section::categories;
    } else if (line == "!Type:Security") {
        lists_.securities = Array{};
        section_ = Section::securities;
    } else if (line == "!Type:Prices") {
        pricesSeen_ = true;
        section_ = Section::none;
    } else if (line == "!Account") {
        stopHere = outsideAutoSwitch_;
    } else if (startsWith(line, "!Type:")) {
        section_ = Section::none;
    } else {
        return false;
    }
    return true;
}

bool Scan::recordLine(std::string_view line) {
    switch (section_) {
    case Section::accounts:
        return pairedLine(line, 'T', "Type", *lists_.accounts);
    case Section::securities:
        return pairedLine(line, 'S', "Symbol", *lists_.securities);
    case Section::categories:
        if (startsWith(line, "N"))
            lists_.categories->emplace_back(line.substr(1));
        return true;
    case Section::none:
        return true;
    }
    return true;
}

bool Scan::pairedLine(std::string_view line, char second, std::string_view secondKey, Array& list) {
    if (startsWith(line, "N")) {
        if (pendingName_)
            return false;
        pendingName_ = std::string(line.substr(1));
        return true;
    }
    if (line.empty() || line.front() != second)
        return true;
    if (!pendingName_)
        return false;
    list.emplace_back(Dictionary{{"Name", Value(*pendingName_)},
                                 {std::string(secondKey), Value(line.substr(1))}});
    pendingName_.reset();
    return true;
}

} // namespace

int ImportQuickenExport::process(const std::vector<std::string_view>& lines,
                                 std::size_t& startIndex, std::string_view source) {
    startIndex = 0;
    if (lines.empty()) {
        prefs_.synchronize();
        return 0;
    }
    Scan scan;
    std::size_t stop = 0;
    if (!scan.run(lines, stop))
        return kMalformed;
    if (scan.pricesSeen())
        dialogs_.alert(std::string(text::listImportTitle),
                       formatMessage(text::listImportPrices, source));
    startIndex = stop;
    int result = scan.sectionOpen() ? kEndedInsideList : 0;
    struct Offer {
        const std::optional<Array>& list;
        std::string_view key, question;
        int bit;
    };
    const Offer offers[] = {
        {scan.lists().accounts, prefkey::Accounts, text::listImportAccounts, kAccountsReplaced},
        {scan.lists().categories, prefkey::Categories, text::listImportCategories,
         kCategoriesReplaced},
        {scan.lists().securities, prefkey::Securities, text::listImportSecurities,
         kSecuritiesReplaced},
    };
    for (const Offer& offer : offers) {
        if (!offer.list)
            continue;
        std::size_t answer =
            dialogs_.ask(std::string(text::listImportTitle), formatMessage(offer.question, source),
                         {std::string(text::yes), std::string(text::no)});
        if (answer != 0)
            continue;
        prefs_.setObject(offer.key, Value(*offer.list));
        result |= offer.bit;
    }
    prefs_.synchronize();
    return result;
}

} // namespace tavvel

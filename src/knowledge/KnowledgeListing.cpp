#include "knowledge/KnowledgeListing.h"

#include "knowledge/InstructionMatch.h"
#include "knowledge/KnowledgeKeys.h"
#include "knowledge/StoredList.h"
#include "prefs/Settings.h"

#include <functional>

namespace tavvel {

namespace {

using Line = std::function<std::string(const Value& entry)>;

std::string instructionLine(const Value& entry) {
    const Dictionary& record = entry.dictionary();
    std::string_view kind = has(record, ikey::descriptionMatch) ? "description" : "category";
    return matchTextOf(record) + "\t" + std::string(kind) + "\t" + textOf(record, ikey::category);
}

Line fields(std::string_view first, std::string_view second) {
    return [=](const Value& entry) {
        return std::string(textViewIn(entry, first)) + "\t" +
               std::string(textViewIn(entry, second));
    };
}

Line field(std::string_view key) {
    return [=](const Value& entry) { return std::string(textViewIn(entry, key)); };
}

std::string text(const Value& entry) {
    return entry.text();
}

struct Listing {
    std::string_view name;
    std::string_view key;
    Line line;
};

const std::vector<Listing>& listings() {
    static const std::vector<Listing> all = {
        {"instructions", prefkey::Instructions, instructionLine},
        {"descriptions", prefkey::Descriptions, text},
        {"categories", prefkey::Categories, text},
        {"accounts", prefkey::Accounts, fields(acctkey::Name, acctkey::Type)},
        {"securities", prefkey::Securities, fields(seckey::Name, seckey::Symbol)},
        {"formats", prefkey::Formats, field(fmtkey::Name)},
    };
    return all;
}

} // namespace

const std::vector<std::string_view>& knowledgeLists() {
    static const std::vector<std::string_view> names = [] {
        std::vector<std::string_view> out;
        for (const Listing& listing : listings())
            out.push_back(listing.name);
        return out;
    }();
    return names;
}

std::optional<std::string> listKnowledge(const TvPrefs& prefs, std::string_view which) {
    for (const Listing& listing : listings()) {
        if (listing.name != which)
            continue;
        std::string out;
        for (const Value& entry : listIn(prefs, listing.key))
            out += listing.line(entry) + "\n";
        return out;
    }
    return std::nullopt;
}

} // namespace tavvel

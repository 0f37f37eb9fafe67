#include "history/DescriptionWords.h"

#include <algorithm>
#include <array>

namespace tavvel {

namespace {

// Card and payment-processor marks that stand before the payee, and filler that every payee
// may carry: none says who was paid.
constexpr std::array<std::string_view, 22> kNoise = {
    "POS",  "SQ",   "TST", "SP",  "PP",        "DEBIT", "PURCHASE", "CHECKCARD",
    "CARD", "VISA", "DDA", "WWW", "COM",       "INC",   "LLC",      "CO",
    "THE",  "AND",  "OF",  "ACH", "RECURRING", "PAYPAL"};

bool isWordByte(unsigned char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
           c >= 0x80 || c == '\'';
}

struct Piece {
    std::size_t begin = 0, end = 0;
    std::string upper;
};

std::vector<Piece> pieces(std::string_view text) {
    std::vector<Piece> out;
    for (std::size_t i = 0; i < text.size();) {
        if (!isWordByte(static_cast<unsigned char>(text[i]))) {
            ++i;
            continue;
        }
        Piece p{i, i, {}};
        while (p.end < text.size() && isWordByte(static_cast<unsigned char>(text[p.end])))
            p.upper += static_cast<char>(std::toupper(static_cast<unsigned char>(text[p.end++])));
        i = p.end;
        out.push_back(std::move(p));
    }
    return out;
}

bool counts(const std::string& word) {
    if (word.size() < 2 ||
        std::any_of(word.begin(), word.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return false;
    return std::find(kNoise.begin(), kNoise.end(), word) == kNoise.end();
}

std::vector<Piece> countingPieces(std::string_view text) {
    std::vector<Piece> all = pieces(text);
    std::erase_if(all, [](const Piece& p) { return !counts(p.upper); });
    return all;
}

} // namespace

std::vector<std::string> descriptionWords(std::string_view description) {
    std::vector<std::string> words;
    for (Piece& p : countingPieces(description))
        if (std::find(words.begin(), words.end(), p.upper) == words.end())
            words.push_back(std::move(p.upper));
    return words;
}

std::string sharedStem(std::string_view description, std::string_view known) {
    std::vector<Piece> mine = pieces(description);
    std::vector<Piece> theirs = countingPieces(known);
    auto first =
        std::find_if(mine.begin(), mine.end(), [](const Piece& p) { return counts(p.upper); });
    // The stem stops at the first word the other lacks, and at a number or a card mark
    // within the description ("GROCERY OUTLET" of "GROCERY OUTLET #0977 SEATTLE").
    auto end = first;
    std::size_t n = 0;
    while (end != mine.end() && n < theirs.size() && counts(end->upper) &&
           end->upper == theirs[n].upper) {
        ++end;
        ++n;
    }
    if (n == 0)
        return {};
    return std::string(description.substr(first->begin, std::prev(end)->end - first->begin));
}

} // namespace tavvel

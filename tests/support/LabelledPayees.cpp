#include "support/LabelledPayees.h"

#include <array>
#include <random>

namespace tavvel::test {

namespace {

struct Merchant {
    const char* name;
    const char* category;
};

constexpr std::array<Merchant, 72> kMerchants = {{
    {"GROCERY OUTLET", "Groceries"},
    {"SAFEWAY", "Groceries"},
    {"TRADER JOE'S", "Groceries"},
    {"WHOLE FOODS MARKET", "Groceries"},
    {"KROGER", "Groceries"},
    {"FRED MEYER", "Groceries"},
    {"SHELL OIL", "Auto:Fuel"},
    {"CHEVRON", "Auto:Fuel"},
    {"ARCO AMPM", "Auto:Fuel"},
    {"76 FUEL STATION", "Auto:Fuel"},
    {"EXXONMOBIL", "Auto:Fuel"},
    {"JIFFY LUBE", "Auto:Service"},
    {"DISCOUNT TIRE", "Auto:Service"},
    {"LES SCHWAB TIRES", "Auto:Service"},
    {"STARBUCKS", "Dining"},
    {"BLUE BOTTLE COFFEE", "Dining"},
    {"SHELLFISH HOUSE", "Dining"},
    {"CHIPOTLE", "Dining"},
    {"PANERA BREAD", "Dining"},
    {"JOE'S PIZZA", "Dining"},
    {"THAI GINGER", "Dining"},
    {"MCDONALD'S", "Dining"},
    {"AMAZON MKTPLACE", "Shopping"},
    {"TARGET", "Shopping"},
    {"BEST BUY", "Shopping"},
    {"HOME DEPOT", "Home:Improvement"},
    {"LOWE'S HOME CENTER", "Home:Improvement"},
    {"ACE HARDWARE", "Home:Improvement"},
    {"IKEA", "Home:Furnishings"},
    {"CRATE AND BARREL", "Home:Furnishings"},
    {"AMAZON PRIME VIDEO", "Entertainment"},
    {"NETFLIX", "Entertainment"},
    {"SPOTIFY USA", "Entertainment"},
    {"AMC THEATRES", "Entertainment"},
    {"STEAM GAMES", "Entertainment"},
    {"CITY WATER DEPT", "Utilities:Water"},
    {"PUGET SOUND ENERGY", "Utilities:Gas & Electric"},
    {"SEATTLE CITY LIGHT", "Utilities:Gas & Electric"},
    {"COMCAST XFINITY", "Utilities:Internet"},
    {"VERIZON WIRELESS", "Utilities:Phone"},
    {"T-MOBILE", "Utilities:Phone"},
    {"WALGREENS", "Medical:Pharmacy"},
    {"CVS PHARMACY", "Medical:Pharmacy"},
    {"RITE AID", "Medical:Pharmacy"},
    {"KAISER PERMANENTE", "Medical:Doctor"},
    {"PACIFIC DENTAL", "Medical:Dentist"},
    {"UNITED AIRLINES", "Travel:Air"},
    {"ALASKA AIR", "Travel:Air"},
    {"DELTA AIR LINES", "Travel:Air"},
    {"MARRIOTT HOTEL", "Travel:Lodging"},
    {"HILTON HOTELS", "Travel:Lodging"},
    {"AIRBNB", "Travel:Lodging"},
    {"UBER TRIP", "Travel:Taxi"},
    {"LYFT RIDE", "Travel:Taxi"},
    {"KING COUNTY METRO", "Travel:Transit"},
    {"SOUND TRANSIT", "Travel:Transit"},
    {"PETCO", "Pets"},
    {"PETSMART", "Pets"},
    {"BANFIELD PET HOSPITAL", "Pets"},
    {"24 HOUR FITNESS", "Health:Gym"},
    {"PLANET FITNESS", "Health:Gym"},
    {"GEICO INSURANCE", "Insurance:Auto"},
    {"STATE FARM INSURANCE", "Insurance:Home"},
    {"USPS PO", "Postage"},
    {"FEDEX OFFICE", "Postage"},
    {"BARNES & NOBLE", "Books"},
    {"POWELL'S BOOKS", "Books"},
    {"GREAT CLIPS", "Personal Care"},
    {"ULTA BEAUTY", "Personal Care"},
    {"SQUARE ONE DELI", "Dining"},
    {"COSTCO WHSE", "Groceries"},
    {"COSTCO GAS", "Auto:Fuel"},
}};

constexpr std::array<const char*, 8> kPrefixes = {
    "", "", "", "SQ *", "POS ", "TST* ", "DEBIT CARD PURCHASE ", "CHECKCARD 1104 "};
constexpr std::array<const char*, 7> kPlaces = {
    "", "", " SEATTLE WA", " BELLEVUE WA", " PORTLAND OR", " REDMOND WA", " TACOMA WA"};

std::string storeNumber(std::mt19937& random) {
    std::string digits = std::to_string(1000 + random() % 9000);
    switch (random() % 4) {
    case 0:
        return "";
    case 1:
        return " #" + digits;
    case 2:
        return " " + digits;
    default:
        return " STORE " + digits.substr(2);
    }
}

std::string mixedCase(std::string text) {
    bool start = true;
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z' && !start)
            c = static_cast<char>(c - 'A' + 'a');
        start = c == ' ' || c == '*';
    }
    return text;
}

} // namespace

// Each merchant is as likely as the next; raw generator output keeps the set the same on
// every standard library.
std::vector<LabelledPayee> labelledPayees(std::size_t count, std::uint32_t seed) {
    std::mt19937 random(seed);
    std::vector<LabelledPayee> out;
    out.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const Merchant& m = kMerchants[random() % kMerchants.size()];
        std::string text = kPrefixes[random() % kPrefixes.size()] + std::string(m.name) +
                           storeNumber(random) + kPlaces[random() % kPlaces.size()];
        // Banks cut long descriptions short, often in the middle of a word.
        if (random() % 4 == 0 && text.size() > 22)
            text.resize(22);
        if (random() % 5 == 0)
            text = mixedCase(text);
        out.push_back({text, m.category});
    }
    return out;
}

} // namespace tavvel::test

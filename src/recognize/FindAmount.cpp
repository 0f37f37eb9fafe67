#include "recognize/FindAmount.h"

#include "recognize/ByteClass.h"
#include "recognize/ScanPattern.h"

#include <array>

namespace tavvel {

namespace {

// Each sign in the encodings statements arrive in: the classic Mac code page, Windows-1252
// and UTF-8.
constexpr std::array<std::string_view, 2> kPoundSigns = {"\xC2\xA3", "\xA3"};
constexpr std::array<std::string_view, 3> kEuroSigns = {"\xE2\x82\xAC", "\xDB", "\x80"};
constexpr std::array<std::string_view, 3> kNoBreakSpaces = {"\xC2\xA0", "\xCA", "\xA0"};

template <std::size_t N>
std::size_t lengthOfAny(std::string_view text, std::size_t pos,
                        const std::array<std::string_view, N>& forms) {
    for (std::string_view form : forms)
        if (text.substr(pos).starts_with(form))
            return form.size();
    return 0;
}

class AmountReader {
public:
    explicit AmountReader(std::string_view text) : text_(text) {}
    FoundAmount read();

private:
    char at() const { return byteAt(text_, pos_); }
    void skipBlanks() {
        while (at() == ' ')
            ++pos_;
    }
    bool skip(char c) {
        if (at() != c)
            return false;
        ++pos_;
        return true;
    }
    void readSignsAndCurrency();
    void readNumber();
    bool readFraction();
    bool endsAmount() const;

    std::string_view text_;
    std::size_t pos_ = 0;
    FoundAmount found_;
};

FoundAmount AmountReader::read() {
    skipBlanks();
    if (text_.substr(pos_).starts_with("USD"))
        pos_ += 3;
    readSignsAndCurrency();
    readNumber();
    // After a blank only a fraction may follow; anything else is left for the caller.
    if (at() == ' ' && !readFraction())
        return found_;
    if (skip('-'))
        found_.negative = true;
    if (!endsAmount())
        found_.amount = kUnreadableAmount;
    return found_;
}

void AmountReader::readSignsAndCurrency() {
    if (skip('-') || skip('('))
        found_.negative = true;
    skip('+');
    skipBlanks();
    skip('$');
    pos_ += lengthOfAny(text_, pos_, kPoundSigns);
    pos_ += lengthOfAny(text_, pos_, kEuroSigns);
    skipBlanks();
    if (skip('(') || skip('-'))
        found_.negative = true;
}

// A second point starts the decimals again, so later digits add tenths once more; amounts
// have always been read that way.
void AmountReader::readNumber() {
    bool decimals = false;
    double divisor = 10;
    for (char c = at(); pos_ < text_.size(); c = at()) {
        if (c == '.') {
            decimals = true;
            divisor = 10;
        } else if (isDigitByte(c)) {
            const int digit = c - '0';
            if (decimals) {
                found_.amount += digit / divisor;
                divisor *= 10;
            } else {
                found_.amount = found_.amount * 10 + digit;
            }
        } else if (c != ',') {
            return;
        }
        ++pos_;
    }
}

bool AmountReader::readFraction() {
    ScanResult r = scan(text_, pos_, " %ld/%ld%ln");
    if (r.count != 2)
        return false;
    // A fraction over zero would make the amount infinite; it is no amount at all.
    if (r.numbers[1] == 0) {
        found_.amount = kUnreadableAmount;
        return false;
    }
    found_.amount += static_cast<double>(r.numbers[0]) / static_cast<double>(r.numbers[1]);
    pos_ += static_cast<std::size_t>(*r.consumed);
    return true;
}

bool AmountReader::endsAmount() const {
    const char c = at();
    if (pos_ >= text_.size() || isSpaceByte(c) || c == '\0')
        return true;
    if (c == ')' || c == '+' || c == '<')
        return true;
    return lengthOfAny(text_, pos_, kNoBreakSpaces) > 0;
}

} // namespace

FoundAmount findAmount(std::string_view text) {
    return AmountReader(text).read();
}

} // namespace tavvel

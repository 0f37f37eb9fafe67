#include "app/QifTransactionPart.h"

#include "recognize/CaseFold.h"

#include <algorithm>

namespace tavvel {

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// Exporters leave blanks after a header ("!Type:Bank ").
std::string_view header(std::string_view line) {
    if (line.empty() || line.front() != '!')
        return {};
    std::size_t end = line.find_last_not_of(" \t");
    return line.substr(0, end + 1);
}

// The word of a "!Type:" header; nothing for other headers.
std::optional<std::string_view> typeOf(std::string_view head) {
    constexpr std::string_view prefix = "!Type:";
    if (!startsWithIgnoringCase(head, prefix))
        return std::nullopt;
    return head.substr(prefix.size());
}

bool isRegister(std::string_view type) {
    constexpr std::string_view registers[] = {"Bank", "Cash", "CCard", "Invst", "Oth A", "Oth L"};
    return std::any_of(std::begin(registers), std::end(registers),
                       [type](std::string_view r) { return equalIgnoringCase(r, type); });
}

// A header that opens a list rather than a register or an account block.
bool opensList(std::string_view head) {
    if (auto type = typeOf(head))
        return !isRegister(*type);
    return equalIgnoringCase(head, "!Option:AutoSwitch") ||
           equalIgnoringCase(head, "!Clear:AutoSwitch");
}

// One register: its account block (kNone without one), its header line and the line after
// its last.
struct Register {
    std::size_t account = kNone, header = 0, end = 0;
    std::string_view type;
    std::size_t transactions = 0;
};

// The records that have a date; the last may end with the section instead of a "^".
std::size_t transactionsIn(const std::vector<std::string_view>& lines, std::size_t from,
                           std::size_t to) {
    std::size_t count = 0;
    bool dated = false;
    for (std::size_t i = from; i < to; ++i) {
        if (lines[i].substr(0, 1) == "^") {
            count += dated;
            dated = false;
        } else if (lines[i].substr(0, 1) == "D") {
            dated = true;
        }
    }
    return count + dated;
}

std::vector<Register> registersOf(const std::vector<std::string_view>& lines,
                                  const std::vector<std::size_t>& headers) {
    std::vector<Register> registers;
    for (std::size_t k = 0; k < headers.size(); ++k) {
        auto type = typeOf(header(lines[headers[k]]));
        if (!type || !isRegister(*type))
            continue;
        Register r;
        r.header = headers[k];
        r.end = k + 1 < headers.size() ? headers[k + 1] : lines.size();
        r.type = *type;
        if (k > 0 && equalIgnoringCase(header(lines[headers[k - 1]]), "!Account"))
            r.account = headers[k - 1];
        r.transactions = transactionsIn(lines, r.header + 1, r.end);
        registers.push_back(r);
    }
    return registers;
}

// The register read: the first with transactions that the bank reader can read, else the
// first with any (an investment register, which is then refused as such).
std::size_t chosen(const std::vector<Register>& registers) {
    std::size_t any = kNone;
    for (std::size_t i = 0; i < registers.size(); ++i) {
        if (registers[i].transactions == 0)
            continue;
        if (!equalIgnoringCase(registers[i].type, "Invst"))
            return i;
        if (any == kNone)
            any = i;
    }
    return any;
}

// The register read, with the repeats of its header that follow straight on (the same
// register again); what the other registers hold is counted against it.
QifTransactionPart partFor(const std::vector<Register>& registers, std::size_t first) {
    std::size_t last = first;
    while (last + 1 < registers.size() && registers[last + 1].header == registers[last].end &&
           equalIgnoringCase(registers[last + 1].type, registers[first].type))
        ++last;
    const Register& read = registers[first];
    QifTransactionPart part{read.account == kNone ? read.header : read.account,
                            registers[last].end};
    for (std::size_t i = 0; i < registers.size(); ++i) {
        if (i >= first && i <= last)
            continue;
        if (registers[i].transactions > 0 && registers[i].account != kNone)
            part.severalAccounts = true;
        part.skipped += registers[i].transactions;
    }
    return part;
}

} // namespace

std::optional<QifTransactionPart> qifTransactionPart(const std::vector<std::string_view>& lines) {
    std::vector<std::size_t> headers;
    bool lists = false;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        std::string_view head = header(lines[i]);
        if (head.empty())
            continue;
        headers.push_back(i);
        lists = lists || opensList(head);
    }
    if (!lists)
        return std::nullopt;
    std::vector<Register> registers = registersOf(lines, headers);
    std::size_t first = chosen(registers);
    if (first == kNone)
        return QifTransactionPart{lines.size(), lines.size()};
    return partFor(registers, first);
}

} // namespace tavvel

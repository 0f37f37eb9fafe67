// The scanners over a generated statement of 20 MB and of 40 MB: every date found with a
// slash format, every word-month date, every amount, and the whole text cut into lines. Prints
// MB/s for each and the 40 MB / 20 MB time ratio, which stays near 2 while a scanner is linear.

#include "prefs/Configuration.h"
#include "recognize/BlankCounts.h"
#include "recognize/FindAmount.h"
#include "recognize/FindDate.h"
#include "recognize/FindLines.h"
#include "recognize/InputFormatKeys.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace tavvel;

constexpr std::size_t kMegabyte = 1 << 20;
const char* const kPayees[] = {
    "POS PURCHASE GROCERY STORE #1234 SPRINGFIELD", "ONLINE TRANSFER TO SAVINGS REF 55/12",
    "CARD 4411 COFFEE HOUSE LONDON", "DIRECT DEBIT ELECTRICITY CO. 2024-01", "CHEQUE 001234"};
const char* const kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                               "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

struct Statement {
    std::string text;
    std::vector<std::size_t> amounts; // where each amount starts
};

// A bank statement of about `megabytes` MB: a header, then one transaction a line with its
// date (numeric or with a word month), payee, amount and balance.
Statement makeStatement(std::size_t megabytes, bool wordMonths) {
    std::mt19937 rng(static_cast<unsigned>(megabytes) * 2 + (wordMonths ? 1 : 0));
    Statement s;
    s.text = "ACCOUNT STATEMENT\r\nDate        Description                     Amount    Balance\n";
    char line[200];
    while (s.text.size() < megabytes * kMegabyte) {
        unsigned month = rng() % 12, day = rng() % 28 + 1, cents = rng() % 500000;
        const char* payee = kPayees[rng() % std::size(kPayees)];
        int dateLength =
            wordMonths ? std::snprintf(line, sizeof line, "%s %02u, 2024", kMonths[month], day)
                       : std::snprintf(line, sizeof line, "%02u/%02u/2024", month + 1, day);
        s.text.append(line, static_cast<std::size_t>(dateLength));
        s.text += "  ";
        s.text += payee;
        s.text += "   ";
        s.amounts.push_back(s.text.size());
        int amountLength =
            std::snprintf(line, sizeof line, "%s$%u,%03u.%02u   %u.%02u\n", rng() % 3 ? "-" : "",
                          cents / 100000, cents / 100 % 1000, cents % 100, cents, cents % 100);
        s.text.append(line, static_cast<std::size_t>(amountLength));
    }
    return s;
}

const Statement& statement(std::size_t megabytes, bool wordMonths) {
    static std::map<std::pair<std::size_t, bool>, Statement> made;
    auto key = std::make_pair(megabytes, wordMonths);
    auto it = made.find(key);
    if (it == made.end())
        it = made.emplace(key, makeStatement(megabytes, wordMonths)).first;
    return it->second;
}

const Configuration& configuration() {
    static const Configuration config = Configuration::load(TAVVEL_CONFIG_FILE).value();
    return config;
}

std::size_t megabytesOf(const benchmark::State& state) {
    return static_cast<std::size_t>(state.range(0));
}

void finish(benchmark::State& state, std::size_t bytes, std::size_t found) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
    state.counters["found"] = static_cast<double>(found);
}

void slashDates(benchmark::State& state) {
    const std::string& text = statement(megabytesOf(state), false).text;
    const Dictionary format{{std::string(fmtkey::DateDelimiter), Value("/")},
                            {std::string(fmtkey::DateStart), Value("\n")},
                            {std::string(fmtkey::DateEnd), Value(" ")}};
    std::size_t found = 0;
    for (auto _ : state) {
        found = 0;
        BlankCounts blanks;
        std::int64_t length = 0;
        std::string_view rest = text;
        while (auto at = findDate(rest, length, format, configuration(), blanks)) {
            rest.remove_prefix(*at + static_cast<std::size_t>(length));
            ++found;
        }
    }
    finish(state, text.size(), found);
}

void wordMonthDates(benchmark::State& state) {
    const std::string& text = statement(megabytesOf(state), true).text;
    std::size_t found = 0;
    for (auto _ : state) {
        found = 0;
        const WordMonthDates tables(configuration());
        std::int64_t length = 0;
        std::string_view rest = text;
        while (auto at = findDateLong(rest, length, tables)) {
            rest.remove_prefix(*at + static_cast<std::size_t>(std::max<std::int64_t>(length, 1)));
            ++found;
        }
    }
    finish(state, text.size(), found);
}

void amounts(benchmark::State& state) {
    const Statement& s = statement(megabytesOf(state), false);
    double total = 0;
    for (auto _ : state) {
        total = 0;
        for (std::size_t at : s.amounts)
            total += findAmount(std::string_view(s.text).substr(at)).amount;
        benchmark::DoNotOptimize(total);
    }
    finish(state, s.text.size(), s.amounts.size());
}

void lines(benchmark::State& state) {
    const std::string& text = statement(megabytesOf(state), false).text;
    std::size_t found = 0;
    for (auto _ : state)
        found = findLines(text).size();
    finish(state, text.size(), found);
}

// What reading the word-month tables costs each call that does not hold them.
void wordMonthTablesPerCall(benchmark::State& state) {
    std::int64_t length = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(findDateLong("x", length, configuration()));
}

class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs)
            seconds_[run.run_name.function_name + "/" + run.run_name.args] =
                run.GetAdjustedCPUTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
    }

    void summary(const std::vector<std::string>& names) const {
        // CPU time: the machines these run on are shared, and waiting is not the scanner's.
        std::printf("\n%-24s %12s %12s %10s\n", "scanner (CPU time)", "MB/s 20 MB", "MB/s 40 MB",
                    "40/20 time");
        for (const std::string& name : names) {
            auto small = seconds_.find(name + "/20"), large = seconds_.find(name + "/40");
            if (small == seconds_.end() || large == seconds_.end())
                continue;
            std::printf("%-24s %12.1f %12.1f %10.2f\n", name.c_str(), 20 / small->second,
                        40 / large->second, large->second / small->second);
        }
    }

private:
    std::map<std::string, double> seconds_;
};

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::pair<std::string, void (*)(benchmark::State&)>> scanners = {
        {"findDate slash", slashDates},
        {"findDateLong", wordMonthDates},
        {"findAmount", amounts},
        {"findLines", lines}};
    std::vector<std::string> names;
    for (const auto& [name, run] : scanners) {
        benchmark::RegisterBenchmark(name.c_str(), run)
            ->Arg(20)
            ->Arg(40)
            ->Unit(benchmark::kMillisecond)
            ->MinTime(1.0);
        names.push_back(name);
    }
    benchmark::RegisterBenchmark("word-month tables per call", wordMonthTablesPerCall)
        ->Unit(benchmark::kMicrosecond);
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.summary(names);
    benchmark::Shutdown();
    return 0;
}

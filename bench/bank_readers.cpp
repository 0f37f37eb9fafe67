// The bank reader and the QIF writer over generated statements of 500,000 and 1,000,000
// transactions: an OFX bank statement (SGML form) read with fromOFX, a QIF bank file cut
// into lines and read with fromQIFLines, and a bank's CSV export (a heading line, quoted
// payees, one signed amount column) read through an input format with fromFormattedText;
// then the walk writes every record as QIF. Prints MB/s,
// records/s, the peak memory of the process as a multiple of the input size, and the
// 1,000,000 / 500,000 time ratio, which stays near 2 while reading and writing are linear.
// Times are processor times: the machines these run on are shared.

#include "bank/BankingCreditCardQIF.h"
#include "context/Context.h"
#include "dialogs/BatchDialogs.h"
#include "dialogs/RunHelpers.h"
#include "formats/OutputFormats.h"
#include "knowledge/Instructions.h"
#include "prefs/Settings.h"
#include "recognize/CalendarDate.h"
#include "recognize/FindLines.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <fstream>
#include <map>
#include <random>
#include <string>

namespace {

using namespace tavvel;

const char* const kPayees[] = {"CORNER GROCERY #12",     "PAYROLL DEPOSIT ACME WIDGETS",
                               "CITY POWER & LIGHT",     "BEAN THERE CAFE",
                               "ATM WITHDRAWAL MAIN ST", "TRANSFER TO SAVINGS"};

// One transaction's fields, drawn from a generator with a fixed seed.
struct Drawn {
    unsigned month, day, dollars, cents, number;
    const char* payee;
};

unsigned below(std::mt19937& rng, unsigned bound) {
    return static_cast<unsigned>(rng() % bound);
}

// Braced initialisation draws in order, so the same seed gives the same statement.
Drawn draw(std::mt19937& rng, unsigned index) {
    return {below(rng, 12) + 1,  below(rng, 28) + 1,
            below(rng, 2000),    below(rng, 100),
            1000 + index % 9000, kPayees[below(rng, static_cast<unsigned>(std::size(kPayees)))]};
}

// The head, then each transaction as `print` writes it into a piece (snprintf's way: the
// length written), drawn in order from the seed.
template <typename Print>
std::string generated(unsigned seed, std::string text, unsigned transactions, Print print) {
    std::mt19937 rng(seed);
    char piece[400];
    for (unsigned i = 0; i < transactions; ++i) {
        int length = print(piece, sizeof piece, draw(rng, i), i);
        text.append(piece, static_cast<std::size_t>(length));
    }
    return text;
}

std::string ofxStatement(unsigned transactions) {
    const char* head = "OFXHEADER:100\r\nDATA:OFXSGML\r\nVERSION:102\r\n\r\n<OFX><BANKMSGSRSV1>"
                       "<STMTTRNRS><STMTRS><CURDEF>USD<BANKACCTFROM><BANKID>021000000<ACCTID>"
                       "000123456789<ACCTTYPE>CHECKING</BANKACCTFROM><BANKTRANLIST>\r\n";
    return generated(20240101, head, transactions,
                     [](char* piece, std::size_t size, Drawn d, unsigned i) {
                         return std::snprintf(
                             piece, size,
                             "<STMTTRN>\r\n<TRNTYPE>DEBIT\r\n<DTPOSTED>2024%02u%02u120000[-5:EST]"
                             "\r\n<TRNAMT>-%u.%02u\r\n<FITID>%u\r\n<CHECKNUM>%u\r\n<NAME>%s\r\n"
                             "<MEMO>Card purchase %u\r\n</STMTTRN>\r\n",
                             d.month, d.day, d.dollars, d.cents, i, d.number, d.payee, i % 97);
                     }) +
           "</BANKTRANLIST></STMTRS></STMTTRNRS></BANKMSGSRSV1></OFX>\r\n";
}

std::string qifFile(unsigned transactions) {
    return generated(20240102, "!Type:Bank\n", transactions,
                     [](char* piece, std::size_t size, Drawn d, unsigned i) {
                         return std::snprintf(piece, size,
                                              "D%u/%u/2024\nT-%u.%02u\nN%u\nP%s\nMCard purchase "
                                              "%u\nLHousehold\n^\n",
                                              d.month, d.day, d.dollars, d.cents, d.number, d.payee,
                                              i % 97);
                     });
}

// A heading, then one line a transaction: date, check number (now and then), payee (quoted
// when it holds a comma), signed amount.
std::string csvStatement(unsigned transactions) {
    return generated(20240103, "Posting Date,Check Number,Description,Amount\n", transactions,
                     [](char* piece, std::size_t size, Drawn d, unsigned i) {
                         bool check = i % 5 == 0, quoted = i % 7 == 0; // "%.0u": nothing for 0
                         return std::snprintf(piece, size, "%02u/%02u/2024,%.0u,%s%s%s,%s%u.%02u\n",
                                              d.month, d.day, check ? d.number : 0u,
                                              quoted ? "\"" : "", d.payee, quoted ? ", INC.\"" : "",
                                              i % 4 == 0 ? "" : "-", d.dollars, d.cents);
                     });
}

// The input format of that export, as a user would learn it.
Dictionary csvFormat() {
    return {{"Name", Value("Bench CSV")},  {"FormatType", Value("Bank")},
            {"Fields", Value("CSV")},      {"OneTransactionPerLine", Value(true)},
            {"DateDelimiter", Value("/")}, {"DateStart", Value("\n")},
            {"DateEnd", Value(",")},       {"Date", Value(0)},
            {"Check", Value(1)},           {"Description", Value(2)},
            {"Credit", Value(3)}};
}

// A front end for a walk that never needs to ask.
const Configuration& configuration() {
    static const Configuration config = Configuration::load(TAVVEL_CONFIG_FILE).value();
    return config;
}

// A context whose store lives in memory, set for converting without adding categories.
std::unique_ptr<Context> convertingContext() {
    auto ctx = std::make_unique<Context>(configuration(), Clock::system(), Places{});
    addOption(ctx->prefs, option::dontAddCategories);
    ctx->prefs.setObject(prefkey::Categories, Value(Array{}));
    ctx->prefs.setObject(prefkey::DescriptionOutput, Value("%d"));
    ctx->prefs.setObject(prefkey::MemoOutput, Value("%m"));
    return ctx;
}

// The peak resident size of the process since the last reset, in bytes.
std::size_t peakResidentBytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("VmHWM:", 0) == 0)
            return std::stoull(line.substr(6)) * 1024;
    return 0;
}

// The peak so far becomes the current resident size (Linux: clear_refs "5").
void resetPeak() {
    std::ofstream("/proc/self/clear_refs") << "5";
}

// Reads the statement and writes every record as QIF; the number of records written.
template <typename Read> std::size_t readAndWrite(Read read, std::string& output) {
    auto ctx = convertingContext();
    BatchDialogs dialogs;
    BankingCreditCardQIF reader(*ctx);
    read(reader);
    OutputFormats writer(*ctx, dialogs);
    writer.chooseFormat("QIF");
    ErrorWarning warning(dialogs, [](const Dictionary&) {});
    Instructions instructions(ctx->prefs);
    output = "!Type:Bank\n";
    return reader
        .processInstructionsAndAppendToString(output, writer, warning, dialogs, instructions, {})
        .appended;
}

template <typename Read>
void measure(benchmark::State& state, const std::string& input, Read read) {
    resetPeak();
    std::size_t written = 0;
    for (auto _ : state) {
        std::string output;
        written = readAndWrite(read, output);
        benchmark::DoNotOptimize(output.data());
    }
    if (written != static_cast<std::size_t>(state.range(0)))
        state.SkipWithError("not every transaction was written");
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * input.size()));
    state.counters["records/s"] = benchmark::Counter(
        static_cast<double>(state.iterations() * written), benchmark::Counter::kIsRate);
    state.counters["peak x input"] =
        static_cast<double>(peakResidentBytes()) / static_cast<double>(input.size());
}

void ofxToQif(benchmark::State& state) {
    const std::string input = ofxStatement(static_cast<unsigned>(state.range(0)));
    measure(state, input, [&](BankingCreditCardQIF& reader) {
        reader.fromOFX(input, kDistantPast, kDistantFuture);
    });
}

void qifToQif(benchmark::State& state) {
    const std::string input = qifFile(static_cast<unsigned>(state.range(0)));
    measure(state, input, [&](BankingCreditCardQIF& reader) {
        std::vector<std::string> lines = findLines(input);
        lines.erase(lines.begin()); // the "!Type:Bank" header, as classification drops it
        reader.fromQIFLines(lines, kDistantPast, kDistantFuture);
    });
}

void csvToQif(benchmark::State& state) {
    const std::string input = csvStatement(static_cast<unsigned>(state.range(0)));
    const Dictionary format = csvFormat();
    BatchDialogs dialogs;
    ErrorWarning warning(dialogs, [](const Dictionary&) {});
    measure(state, input, [&](BankingCreditCardQIF& reader) {
        reader.fromFormattedText(input, format, kDistantPast, kDistantFuture, warning);
    });
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
        // CPU time: the machines these run on are shared, and waiting is not the reader's.
        std::printf("\n%-16s %14s %14s %14s\n", "read and write", "CPU s 500,000",
                    "CPU s 1,000,000", "1M/500k time");
        for (const std::string& name : names) {
            auto half = seconds_.find(name + "/500000"), whole = seconds_.find(name + "/1000000");
            if (half == seconds_.end() || whole == seconds_.end())
                continue;
            std::printf("%-16s %14.2f %14.2f %14.2f\n", name.c_str(), half->second, whole->second,
                        whole->second / half->second);
        }
    }

private:
    std::map<std::string, double> seconds_;
};

} // namespace

int main(int argc, char** argv) {
    useProcessTimeZone();
    const std::vector<std::pair<std::string, void (*)(benchmark::State&)>> conversions = {
        {"OFX to QIF", ofxToQif}, {"QIF to QIF", qifToQif}, {"CSV to QIF", csvToQif}};
    std::vector<std::string> names;
    for (const auto& [name, run] : conversions) {
        benchmark::RegisterBenchmark(name.c_str(), run)
            ->Arg(500000)
            ->Arg(1000000)
            ->Iterations(1)
            ->Unit(benchmark::kMillisecond);
        names.push_back(name);
    }
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.summary(names);
    benchmark::Shutdown();
    return 0;
}

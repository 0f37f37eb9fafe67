// A whole batch conversion as tavvel-cli --batch makes it (the statement file read and
// classified, the run form filled in, the walk, the QIF file written) of a generated QIF
// statement of 1,000,000 transactions: once against 10,000 stored instructions, which three
// transactions in four match, and once with none, where every transaction goes out as read.
// Prints both times and their ratio; finding instructions should cost at most half as much
// again as the run without them (ratio 1.5). Times are processor times: the machines these
// run on are shared.

#include "CliOptions.h"
#include "RatioReporter.h"
#include "RunCommand.h"
#include "SettingsCommand.h"
#include "TerminalDialogs.h"
#include "app/StartUp.h"
#include "context/Context.h"
#include "knowledge/KnowledgeKeys.h"
#include "prefs/Settings.h"
#include "recognize/CalendarDate.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <unistd.h>

namespace {

using namespace tavvel;
namespace fs = std::filesystem;

constexpr unsigned kTransactions = 1000000;
constexpr unsigned kInstructions = 10000;

const char* const kWords[] = {"AMAZON", "MKTP",  "SHELL",   "OIL",     "COSTCO", "WHSE",
                              "TARGET", "STORE", "NETFLIX", "UBER",    "TRIP",   "PAYPAL",
                              "CITY",   "WATER", "POWER",   "GROCERY", "MARKET", "PHARMACY",
                              "CAFE",   "PIZZA", "HOTEL",   "BAKERY",  "GARAGE", "BOOKS"};

std::string word(std::mt19937& rng) {
    return kWords[rng() % std::size(kWords)];
}

// Payee-like match texts, each one unique by its number.
std::vector<std::string> matchTexts() {
    std::mt19937 rng(kInstructions);
    std::vector<std::string> texts;
    for (unsigned i = 0; i < kInstructions; ++i)
        texts.push_back(word(rng) + " " + word(rng) + " " + std::to_string(i) + " ");
    return texts;
}

// Three descriptions in four begin with a stored match text and go on with a store number.
std::string statement(const std::vector<std::string>& matches) {
    std::mt19937 rng(20240301);
    std::string text = "!Type:Bank\n";
    char record[200];
    for (unsigned i = 0; i < kTransactions; ++i) {
        std::string payee = rng() % 4 == 0 ? "POS " + word(rng) + " " + word(rng)
                                           : matches[rng() % matches.size()] + "#";
        int length = std::snprintf(
            record, sizeof record, "D%u/%u/2024\nT-%u.%02u\nP%s%u\nMCard purchase %u\n^\n",
            static_cast<unsigned>(rng() % 12 + 1), static_cast<unsigned>(rng() % 28 + 1),
            static_cast<unsigned>(rng() % 2000), static_cast<unsigned>(rng() % 100), payee.c_str(),
            static_cast<unsigned>(rng() % 9000), i % 97);
        text.append(record, static_cast<std::size_t>(length));
    }
    return text;
}

Array instructions(const std::vector<std::string>& matches) {
    Array list;
    list.reserve(matches.size());
    for (const std::string& match : matches)
        list.emplace_back(Dictionary{{std::string(ikey::descriptionMatch), Value(match)},
                                     {std::string(ikey::newDescription), Value("Payee " + match)},
                                     {std::string(ikey::category), Value("Household")}});
    return list;
}

// The statement written once to a folder that goes with the program.
struct Files {
    fs::path folder = fs::temp_directory_path() / ("tavvel-bench-" + std::to_string(getpid()));
    fs::path input = folder / "statement.qif";
    fs::path output = folder / "converted.qif";
    Array stored;

    Files() {
        fs::create_directories(folder);
        std::vector<std::string> matches = matchTexts();
        std::ofstream(input, std::ios::binary) << statement(matches);
        stored = instructions(matches);
    }
    ~Files() {
        std::error_code ec;
        fs::remove_all(folder, ec);
    }
};

Files& files() {
    static Files once;
    return once;
}

// A store after a first start under --batch, with instructions consulted, and holding
// `stored` as its instructions. It is saved in the benchmark's own folder, never the
// current one.
std::unique_ptr<Context> startedContext(TerminalDialogs& dialogs, const Array& stored) {
    static const Configuration config = Configuration::load(TAVVEL_CONFIG_FILE).value();
    Places places;
    places.prefsFolder = files().folder / "config";
    auto ctx = std::make_unique<Context>(config, Clock::system(), places);
    awakeFromNib(*ctx, dialogs);
    std::ostringstream err;
    applySettingChanges(*ctx, {{false, "dontAddCategories"}}, err);
    ctx->prefs.setObject(prefkey::Instructions, Value(stored));
    return ctx;
}

// How many records of the output file carry an instruction's new description.
std::size_t instructedRecords(const fs::path& output) {
    std::ifstream in(output, std::ios::binary);
    std::size_t count = 0;
    for (std::string line; std::getline(in, line);)
        count += line.starts_with("PPayee ");
    return count;
}

void batchRun(benchmark::State& state, bool withInstructions) {
    Files& f = files();
    CliOptions options;
    options.batch = true;
    options.inputFile = f.input.string();
    options.run.output = f.output.string();
    const Array none;
    for (auto _ : state) {
        state.PauseTiming();
        std::istringstream in;
        std::ostringstream said, out, err;
        TerminalDialogs dialogs(in, said, true);
        auto ctx = startedContext(dialogs, withInstructions ? f.stored : none);
        state.ResumeTiming();
        if (runConversion(*ctx, dialogs, options, out, err) != kExitOK)
            state.SkipWithError(("the run failed: " + said.str() + err.str()).c_str());
    }
    // The instructions must really apply: their descriptions in the output, or none.
    std::size_t described = instructedRecords(f.output);
    if ((described > 0) != withInstructions)
        state.SkipWithError("the instructions were not applied as stored");
    state.counters["instructed"] = static_cast<double>(described);
    state.counters["transactions/s"] = benchmark::Counter(
        static_cast<double>(state.iterations() * kTransactions), benchmark::Counter::kIsRate);
}

} // namespace

int main(int argc, char** argv) {
    useProcessTimeZone();
    benchmark::RegisterBenchmark("no instructions", batchRun, false)
        ->Iterations(2)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("with instructions", batchRun, true)
        ->Iterations(2)
        ->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter({"with instructions", "CPU s, 10,000 instructions"},
                           {"no instructions", "CPU s, no instructions"}, 1.5);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.summary();
    benchmark::Shutdown();
    return 0;
}

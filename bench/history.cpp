// The conversion history's costs. First, a duplicate lookup and a category suggestion in a
// history of 1,000,000 transactions (each should cost well under a millisecond). Then a whole
// batch conversion of a generated QIF statement of 100,000 transactions as tavvel-cli --batch
// makes it, with the history on (holding 100,000 earlier transactions of the account; every
// transaction looked up before the walk and recorded after the file is written) and off; prints the
// ratio, which should stay within 1.5. Times are processor times: the machines these run on are
// shared.

#include "CliOptions.h"
#include "RatioReporter.h"
#include "RunCommand.h"
#include "SettingsCommand.h"
#include "TerminalDialogs.h"
#include "app/StartUp.h"
#include "context/Context.h"
#include "history/CategorySuggester.h"
#include "history/HistoryDatabase.h"
#include "recognize/CalendarDate.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <sstream>
#include <unistd.h>

namespace {

using namespace tavvel;
namespace fs = std::filesystem;

constexpr unsigned kStored = 1000000;
constexpr unsigned kRun = 100000;

const char* const kWords[] = {"AMAZON", "MKTP",   "SHELL",   "OIL",    "COSTCO", "WHSE",
                              "TARGET", "STORE",  "NETFLIX", "UBER",   "TRIP",   "CITY",
                              "WATER",  "POWER",  "GROCERY", "MARKET", "CAFE",   "PIZZA",
                              "HOTEL",  "BAKERY", "GARAGE",  "BOOKS",  "BLUE",   "BOTTLE"};

std::string payee(std::mt19937& rng) {
    std::string text = kWords[rng() % std::size(kWords)];
    text += " ";
    text += kWords[rng() % std::size(kWords)];
    return text + " #" + std::to_string(rng() % 10000);
}

std::string day(std::mt19937& rng) {
    return std::to_string(rng() % 12 + 1) + "/" + std::to_string(rng() % 28 + 1) + "/2024";
}

std::string amount(std::mt19937& rng) {
    char text[32];
    std::snprintf(text, sizeof text, "-%u.%02u", static_cast<unsigned>(rng() % 2000),
                  static_cast<unsigned>(rng() % 100));
    return text;
}

struct Folder {
    fs::path path =
        fs::temp_directory_path() / ("tavvel-bench-history-" + std::to_string(getpid()));
    Folder() { fs::create_directories(path); }
    ~Folder() {
        std::error_code ec;
        fs::remove_all(path, ec);
    }
};

Folder& folder() {
    static Folder once;
    return once;
}

// A million transactions, in runs of 10,000 as a year of statements would bring them.
HistoryDatabase& bigHistory() {
    static HistoryDatabase db;
    if (db.isOpen())
        return db;
    if (db.open(folder().path / "big.sqlite") != HistoryDatabase::Opened::ok)
        std::abort();
    std::mt19937 rng(7);
    for (unsigned run = 0; run < kStored / 10000; ++run) {
        std::vector<HistoryEntry> entries;
        for (unsigned i = 0; i < 10000; ++i)
            entries.push_back(
                {{day(rng), amount(rng), "", payee(rng), std::to_string(run * 10000 + i)},
                 i % 3 ? "Household" : "Dining",
                 ""});
        db.recordRun("Checking", run, entries);
    }
    return db;
}

void lookUpById(benchmark::State& state) {
    HistoryDatabase& db = bigHistory();
    std::mt19937 rng(11);
    for (auto _ : state) {
        TransactionKey key{"", "", "", "", std::to_string(rng() % (2 * kStored))};
        benchmark::DoNotOptimize(db.lookUp("Checking", key));
    }
}

void lookUpByFields(benchmark::State& state) {
    HistoryDatabase& db = bigHistory();
    std::mt19937 rng(13);
    for (auto _ : state) {
        TransactionKey key{day(rng), amount(rng), "", payee(rng), ""};
        benchmark::DoNotOptimize(db.lookUp("Checking", key));
    }
}

void suggest(benchmark::State& state) {
    CategorySuggester suggester(&bigHistory());
    std::mt19937 rng(17);
    for (auto _ : state)
        benchmark::DoNotOptimize(suggester.suggest("SQ *" + payee(rng) + " SEATTLE WA"));
}

fs::path statementFile() {
    fs::path file = folder().path / "statement.qif";
    if (fs::exists(file))
        return file;
    std::mt19937 rng(23);
    std::ofstream out(file, std::ios::binary);
    out << "!Type:Bank\n";
    for (unsigned i = 0; i < kRun; ++i)
        out << "D" << day(rng) << "\nT" << amount(rng) << "\nP" << payee(rng) << "\n^\n";
    return file;
}

// An earlier year of 100,000 other transactions of the same account (the statement's own
// account is none), so that every transaction of the run is really looked up.
fs::path seededHistory() {
    fs::path file = folder().path / "seed.sqlite";
    if (fs::exists(file))
        return file;
    HistoryDatabase db;
    db.open(file);
    std::mt19937 rng(29);
    std::vector<HistoryEntry> entries;
    for (unsigned i = 0; i < kRun; ++i)
        entries.push_back({{day(rng), amount(rng), "", payee(rng), ""}, "Household", ""});
    db.recordRun("", 0, entries);
    return file;
}

void batchRun(benchmark::State& state, bool withHistory) {
    static const Configuration config = Configuration::load(TAVVEL_CONFIG_FILE).value();
    CliOptions options;
    options.batch = true;
    options.inputFile = statementFile().string();
    options.run.output = (folder().path / "converted.qif").string();
    for (auto _ : state) {
        state.PauseTiming();
        fs::remove_all(folder().path / "config");
        fs::remove_all(folder().path / "data");
        Places places;
        places.prefsFolder = folder().path / "config";
        if (withHistory) {
            places.dataFolder = folder().path / "data";
            fs::create_directories(places.dataFolder);
            fs::copy_file(seededHistory(), places.dataFolder / "history.sqlite");
        }
        std::istringstream in;
        std::ostringstream said, out, err;
        TerminalDialogs dialogs(in, said, true);
        Context ctx(config, Clock::system(), places);
        awakeFromNib(ctx, dialogs);
        state.ResumeTiming();
        if (runConversion(ctx, dialogs, options, out, err) != kExitOK)
            state.SkipWithError(("the run failed: " + said.str() + err.str()).c_str());
    }
    if (withHistory) {
        HistoryDatabase db;
        db.open(folder().path / "data" / "history.sqlite");
        if (db.transactionCount() != 2 * kRun)
            state.SkipWithError("the run was not recorded");
    }
}

} // namespace

int main(int argc, char** argv) {
    useProcessTimeZone();
    benchmark::RegisterBenchmark("lookup by FITID, 1,000,000 stored", lookUpById)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("lookup by fields, 1,000,000 stored", lookUpByFields)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("suggestion, 1,000,000 stored", suggest)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("run without history", batchRun, false)
        ->Iterations(3)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("run with history", batchRun, true)
        ->Iterations(3)
        ->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter({"run with history", "CPU s, 100,000 with history"},
                           {"run without history", "CPU s, without history"}, 1.5);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.summary();
    benchmark::Shutdown();
    return 0;
}

// How fast the instruction store finds the instruction for a description: 100,000
// descriptions looked up among 1,000 and among 100,000 stored instructions, in first-match,
// longest-match and contains modes. Prints lookups per second and, per mode, how much longer
// a lookup takes among 100,000 instructions than among 1,000 (the starts-with modes must not
// grow with the list).

#include "knowledge/Instructions.h"
#include "knowledge/KnowledgeKeys.h"
#include "prefs/Settings.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

using namespace tavvel;

namespace {

constexpr std::size_t kDescriptions = 100000;
const char* const kModes[] = {"first-match", "longest", "contains"};

const char* const kWords[] = {"AMAZON",  "MKTP",   "SHELL",    "OIL",  "COSTCO", "WHSE",
                              "TARGET",  "STORE",  "NETFLIX",  "COM",  "UBER",   "TRIP",
                              "PAYPAL",  "INST",   "XFER",     "CITY", "WATER",  "POWER",
                              "GROCERY", "MARKET", "PHARMACY", "CAFE", "PIZZA",  "HOTEL"};

std::string word(std::mt19937& random) {
    return kWords[random() % std::size(kWords)];
}

// Payee-like match texts, unique: two or three words and a store number.
std::vector<std::string> matchTexts(std::size_t count) {
    std::mt19937 random(static_cast<unsigned>(count));
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < count; ++i) {
        std::string text = word(random) + " " + word(random);
        if (random() % 2)
            text += " " + word(random);
        texts.push_back(text + " " + std::to_string(i));
    }
    return texts;
}

// Three in four descriptions carry a stored match text, in the middle for contains mode.
std::vector<std::string> descriptions(const std::vector<std::string>& matches, bool contains) {
    std::mt19937 random(7);
    std::vector<std::string> texts;
    texts.reserve(kDescriptions);
    for (std::size_t i = 0; i < kDescriptions; ++i) {
        std::string text = random() % 4 == 0 ? word(random) + " " + word(random)
                                             : matches[random() % matches.size()];
        if (contains)
            text = "POS PURCHASE " + text;
        texts.push_back(text + " " + std::to_string(random() % 100000) + " CA");
    }
    return texts;
}

struct Setup {
    TvPrefs prefs;
    Instructions store{prefs};
    std::vector<std::string> texts;
};

std::unique_ptr<Setup> makeSetup(std::size_t count, int mode) {
    auto setup = std::make_unique<Setup>();
    if (mode == 1)
        addOption(setup->prefs, option::longestInstructionMatch);
    if (mode == 2)
        addOption(setup->prefs, option::matchDescriptionWithContains);
    std::vector<std::string> matches = matchTexts(count);
    Array list;
    for (const std::string& match : matches)
        list.emplace_back(Dictionary{{std::string(ikey::descriptionMatch), Value(match)},
                                     {std::string(ikey::category), Value("Misc")}});
    setup->store.setInstructionsArray(std::move(list));
    // Storing keeps the list's order; the index is built here, outside the timing.
    setup->store.indexOfInstructionMatching("", ikey::descriptionMatch);
    setup->texts = descriptions(matches, mode == 2);
    return setup;
}

void lookups(benchmark::State& state) {
    auto count = static_cast<std::size_t>(state.range(0));
    int mode = static_cast<int>(state.range(1));
    std::unique_ptr<Setup> setup = makeSetup(count, mode);
    std::size_t found = 0;
    for (auto _ : state)
        for (const std::string& text : setup->texts)
            found += setup->store.instructionMatching(text, ikey::descriptionMatch).has_value();
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * kDescriptions));
    state.counters["found"] = static_cast<double>(found / state.iterations());
    state.SetLabel(kModes[mode]);
}

BENCHMARK(lookups)
    ->ArgsProduct({{1000, 100000}, {0, 1, 2}})
    ->ArgNames({"instructions", "mode"})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(2)
    ->Repetitions(5)
    ->ComputeStatistics("min",
                        [](const std::vector<double>& v) {
                            return *std::min_element(v.begin(), v.end());
                        })
    ->ReportAggregatesOnly(true);

// Keeps each configuration's least processor time per pass, the figure that other work on a
// shared machine disturbs least, so that the ratios can be printed at the end.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs)
            if (run.aggregate_name == "min")
                seconds_[run.report_label][run.run_name.args] = run.GetAdjustedCPUTime() / 1e3;
    }
    void printRatios() const {
        std::printf("\n%-12s %16s %16s %8s\n", "mode", "lookups/s 1k", "lookups/s 100k", "ratio");
        for (const char* mode : kModes) {
            auto at = seconds_.find(mode);
            if (at == seconds_.end() || at->second.size() < 2)
                continue;
            double small = at->second.at("instructions:1000/mode:" + modeNumber(mode));
            double large = at->second.at("instructions:100000/mode:" + modeNumber(mode));
            std::printf("%-12s %16.0f %16.0f %8.2f\n", mode, kDescriptions / small,
                        kDescriptions / large, large / small);
        }
    }

private:
    static std::string modeNumber(const std::string& mode) {
        for (std::size_t i = 0; i < std::size(kModes); ++i)
            if (mode == kModes[i])
                return std::to_string(i);
        return "?";
    }
    std::map<std::string, std::map<std::string, double>> seconds_;
};

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printRatios();
    benchmark::Shutdown();
    return 0;
}

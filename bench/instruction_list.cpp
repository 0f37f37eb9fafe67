// How the instruction editor's list keeps up with a large knowledge base: reading the list,
// one search keystroke and one sort by category, among 10,000 and 100,000 instructions. The
// rate per instruction must not fall as the list grows (nothing quadratic); the counter
// "instructions_per_s" shows it.

#include "forms/InstructionList.h"
#include "knowledge/KnowledgeKeys.h"
#include "prefs/Settings.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <random>
#include <string>

using namespace tavvel;

namespace {

const char* const kWords[] = {"AMAZON", "SHELL", "COSTCO", "TARGET", "NETFLIX", "UBER",
                              "PAYPAL", "CITY",  "WATER",  "POWER",  "GROCERY", "CAFE"};
const char* const kCategories[] = {"Food", "Auto:Fuel", "Bills:Water", "Leisure", "Home"};

TvPrefs storeWith(std::size_t count) {
    std::mt19937 random(static_cast<unsigned>(count));
    Array list;
    list.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        char number[24];
        std::snprintf(number, sizeof number, "%08zu", i);
        std::string match = std::string(kWords[random() % std::size(kWords)]) + " " + number;
        list.emplace_back(Dictionary{
            {std::string(ikey::descriptionMatch), Value(match)},
            {std::string(ikey::category), Value(kCategories[random() % std::size(kCategories)])}});
    }
    TvPrefs prefs;
    prefs.setObject(prefkey::Instructions, Value(std::move(list)));
    return prefs;
}

template <class Step> void perInstruction(benchmark::State& state, Step step) {
    const auto count = static_cast<std::size_t>(state.range(0));
    TvPrefs prefs = storeWith(count);
    InstructionList list(prefs);
    for (auto _ : state)
        step(list);
    state.counters["instructions_per_s"] =
        benchmark::Counter(static_cast<double>(count), benchmark::Counter::kIsIterationInvariantRate);
}

void Refresh(benchmark::State& state) {
    perInstruction(state, [](InstructionList& list) { list.refresh(); });
}

void SearchKeystroke(benchmark::State& state) {
    perInstruction(state, [](InstructionList& list) {
        list.search("cost");
        benchmark::DoNotOptimize(list.numberOfRows());
    });
}

void SortByCategory(benchmark::State& state) {
    perInstruction(state, [](InstructionList& list) {
        list.sortBy(InstructionList::SortBy::category);
        list.sortBy(InstructionList::SortBy::match);
    });
}

} // namespace

BENCHMARK(Refresh)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(SearchKeystroke)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(SortByCategory)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();

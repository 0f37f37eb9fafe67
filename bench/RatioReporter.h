#pragma once
// The console report of a benchmark that compares two runs, followed by their processor times
// and the ratio of the first to the second against a target.

#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <string>

class RatioReporter : public benchmark::ConsoleReporter {
public:
    struct Side {
        std::string benchmark; // the registered name
        std::string label;     // as the summary names it
    };
    RatioReporter(Side measured, Side baseline, double target)
        : measured_(std::move(measured)), baseline_(std::move(baseline)), target_(target) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs)
            seconds_[run.run_name.function_name] =
                run.GetAdjustedCPUTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
    }

    void summary() const {
        auto with = seconds_.find(measured_.benchmark),
             without = seconds_.find(baseline_.benchmark);
        if (with == seconds_.end() || without == seconds_.end())
            return;
        std::printf("\n%-34s %10.3f\n%-34s %10.3f\n%-34s %10.2f (target <= %.2f)\n",
                    measured_.label.c_str(), with->second, baseline_.label.c_str(), without->second,
                    "ratio", with->second / without->second, target_);
    }

private:
    Side measured_, baseline_;
    double target_;
    std::map<std::string, double> seconds_;
};

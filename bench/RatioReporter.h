// Keeps each run's time per iteration, so a benchmark can print its results
// as ratios against baselines measured in the same run.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

class RatioReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override {
        // By full name and by the name as registered, before the settings
        // (min time, warm-up, real time) that the full name appends.
        for (const Run& run : runs) {
            times_[run.benchmark_name()] = run.GetAdjustedRealTime();
            times_[run.run_name.function_name] = run.GetAdjustedRealTime();
        }
        ConsoleReporter::ReportRuns(runs);
    }
    double Time(const std::string& name) const {
        const auto it = times_.find(name);
        return it == times_.end() ? 0.0 : it->second;
    }

  private:
    std::map<std::string, double> times_;
};

#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <exception>
#include <map>
#include <string>
#include <utility>
#include <vector>

/// How one median stands to another, and the most it should be.
struct Ratio {
    std::string name;
    double value;
    double aim;
};

/// What a benchmark's times are. On a busy machine a long piece of work loses more of its elapsed time to
/// other programs than a short one, so work that never waits for the disk is measured by the processor's
/// time.
enum class Measured { ElapsedTime, ProcessorTime };

/// One benchmark's rounds. In each round every piece of work is timed once, so that what else the machine is
/// doing slows all of them alike; what is compared are the medians over the rounds.
class Rounds {
public:
    Rounds(benchmark::State& state, Measured measured, std::vector<Ratio>& ratios)
        : state_(state), measured_(measured), ratios_(ratios) {}

    /// Starts the next round; false after the last one.
    bool Next() { return state_.KeepRunning(); }

    /// Runs and times one piece of work of this round. The benchmark's own figure is that of the first piece.
    template<class Work>
    void Time(const std::string& piece, Work&& work) {
        const double start = Now();
        std::forward<Work>(work)();
        const double taken = Now() - start;
        if (times_.empty())
            firstPiece_ = piece;
        if (piece == firstPiece_)
            state_.SetIterationTime(taken);
        times_[piece].push_back(taken);
    }

    /// Gives every piece's median, in milliseconds, as a figure of the benchmark.
    void ShowMedians() {
        for (const auto& [piece, times] : times_)
            state_.counters[piece + "_ms"] = Median(piece) * 1000;
    }

    /// The median of one piece over that of another becomes one of the program's ratio lines.
    void Compare(const std::string& name, const std::string& piece, const std::string& base, double aim) {
        AddRatio(name, Median(piece) / Median(base), aim);
    }

    /// A ratio of something else than times.
    void AddRatio(const std::string& name, double value, double aim) {
        ratios_.push_back({name, value, aim});
    }

    /// Gives a value that is no time as a figure of the benchmark.
    void Tell(const std::string& figure, double value) { state_.counters[figure] = value; }

private:
    /// In seconds, from any moment on.
    double Now() const {
        if (measured_ == Measured::ProcessorTime)
            return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
        return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
    }

    /// In seconds.
    double Median(const std::string& piece) const {
        std::vector<double> times = times_.at(piece);
        const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
        std::nth_element(times.begin(), middle, times.end());
        return *middle;
    }

    benchmark::State& state_;
    Measured measured_;
    std::vector<Ratio>& ratios_;
    std::string firstPiece_;
    std::map<std::string, std::vector<double>> times_;
};

/// A program of benchmarks: runs them and prints the ratio lines last, "ratio NAME VALUE aim AIM".
class BenchProgram {
public:
    BenchProgram(int argc, char** argv) { benchmark::Initialize(&argc, argv); }

    void Add(const char* name, Measured measured, int rounds, void (*body)(Rounds&)) {
        const auto run = [this, measured, body](benchmark::State& state) {
            Rounds all(state, measured, ratios_);
            body(all);
            all.ShowMedians();
        };
        benchmark::RegisterBenchmark(name, run)->UseManualTime()->Iterations(rounds)->Unit(
            benchmark::kMillisecond);
    }

    /// The exit code for main.
    int Run() {
        try {
            benchmark::RunSpecifiedBenchmarks();
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s\n", error.what());
            return 1;
        }
        for (const Ratio& ratio : ratios_)
            std::printf("ratio %s %.3g aim %g\n", ratio.name.c_str(), ratio.value, ratio.aim);
        return 0;
    }

private:
    std::vector<Ratio> ratios_;
};

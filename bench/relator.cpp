#include "bench/relator.h"

#include <algorithm>
#include <cstdio>

namespace medidas
{

namespace
{

struct Measurement {
    std::string name;
    double limit;
};

std::vector<Measurement> &measurements()
{
    static std::vector<Measurement> all;
    return all;
}

bool overLimit = false;

constexpr int repetitions = 7;

void enlist(const std::string &name, std::function<void(benchmark::State &)> body)
{
    benchmark::RegisterBenchmark(name.c_str(), std::move(body))
        ->Repetitions(repetitions)
        ->UseRealTime()
        ->Unit(benchmark::kMicrosecond);
}

} // namespace

void compara(const std::string &name, double limit, std::function<void(benchmark::State &)> program,
             std::function<void(benchmark::State &)> bare)
{
    measurements().push_back({name, limit});
    enlist(name + "/programa", std::move(program));
    enlist(name + "/cru", std::move(bare));
}

void mostra(const std::string &name, double value, double limit)
{
    std::printf("razao %s %.2f %.1f\n", name.c_str(), value, limit);
    std::fflush(stdout);
    overLimit = overLimit || value > limit;
}

bool acimaDoLimite()
{
    return overLimit;
}

bool Relator::ReportContext(const Context &)
{
    return true;
}

void Relator::ReportRuns(const std::vector<Run> &runs)
{
    for (const auto &run : runs) {
        if (run.run_type != Run::RT_Iteration) {
            continue;
        }
        const auto name = run.run_name.function_name;
        const auto time = run.GetAdjustedRealTime();
        const auto [place, first] = shortest_.try_emplace(name, time);
        place->second = first ? time : std::min(place->second, time);
    }
}

void Relator::Finalize()
{
    for (const auto &[name, limit] : measurements()) {
        const auto program = shortest_.find(name + "/programa");
        const auto bare = shortest_.find(name + "/cru");
        if (program != shortest_.end() && bare != shortest_.end()) {
            mostra(name, program->second / bare->second, limit);
        }
    }
}

} // namespace medidas

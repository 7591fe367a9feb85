#include "bench/relator.h"

#include <algorithm>
#include <cstdio>

namespace medidas
{

namespace
{

std::vector<Medida> &measurements()
{
    static std::vector<Medida> all;
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

void compara(const Medida &medida, std::function<void(benchmark::State &)> program,
             std::function<void(benchmark::State &)> bare)
{
    measurements().push_back(medida);
    enlist(medida.nome + "/programa", std::move(program));
    enlist(medida.nome + "/cru", std::move(bare));
}

void mostra(const Medida &medida, double valor)
{
    std::printf("razao %s %.2f %.2f\n    %s\n", medida.nome.c_str(), valor, medida.limite, medida.texto.c_str());
    std::fflush(stdout);
    overLimit = overLimit || valor > medida.limite;
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
    for (const auto &measurement : measurements()) {
        const auto program = shortest_.find(measurement.nome + "/programa");
        const auto bare = shortest_.find(measurement.nome + "/cru");
        if (program != shortest_.end() && bare != shortest_.end()) {
            mostra(measurement, program->second / bare->second);
        }
    }
}

} // namespace medidas

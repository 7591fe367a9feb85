#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace medidas
{

/// What a figure is called, the highest ratio it may have, and what it is, for the reader of the figures.
struct Medida {
    std::string nome;
    double limite;
    std::string texto;
};

/// A measurement of the program against a bare one: both are run in turn, many times, in the same process.
/// Printed as `razao NAME VALUE LIMIT`, the ratio of the two shortest times, and what it is in the line below.
void compara(const Medida &medida, std::function<void(benchmark::State &)> program,
             std::function<void(benchmark::State &)> bare);

/// Prints a ratio that was not measured by time.
void mostra(const Medida &medida, double valor);

/// True when a printed ratio was over its limit.
bool acimaDoLimite();

/// Collects the shortest time of each side and prints the ratios at the end.
class Relator : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context &context) override;
    void ReportRuns(const std::vector<Run> &runs) override;
    void Finalize() override;

private:
    std::map<std::string, double> shortest_;
};

} // namespace medidas

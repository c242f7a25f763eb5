// SPDX-License-Identifier: GPL-3.0-or-later
// Micro-benchmarks of the measuring pass: one walk against the same tree
// split one level down over the parallel loop.
//   medicion-bench [--benchmark_...]   (tree: $VORLANO_BENCH_ARBOL, or a
//   20,000-file tree generated once under /tmp)
#include "escaner/medicion.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace {

fs::path arbol()
{
    if (const char* a = std::getenv("VORLANO_BENCH_ARBOL"); a && *a)
        return a;
    const fs::path p = "/tmp/vorlano-bench/medicion-20000";
    if (!fs::exists(p / ".listo")) {
        for (int d = 0; d < 100; ++d) {
            const fs::path dir = p / ("d" + std::to_string(d)) / "sub";
            fs::create_directories(dir);
            for (int f = 0; f < 200; ++f)
                std::ofstream(dir / ("f" + std::to_string(f))) << std::string(size_t(100 + f), 'x');
        }
        std::ofstream(p / ".listo") << "1";
    }
    return p;
}

void BM_TamanoEnDisco(benchmark::State& estado)
{
    const fs::path p = arbol();
    for (auto _ : estado)
        benchmark::DoNotOptimize(tamanoEnDisco(p));
}

void BM_MedirEnParalelo(benchmark::State& estado)
{
    const std::vector<std::vector<fs::path>> listas{{arbol()}};
    for (auto _ : estado)
        benchmark::DoNotOptimize(medirEnParalelo(listas));
}

} // namespace

BENCHMARK(BM_TamanoEnDisco)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_MedirEnParalelo)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_MAIN();

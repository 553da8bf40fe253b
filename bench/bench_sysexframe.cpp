// What it costs to build and to classify one frame, beside the same bytes copied bare.

#include "sysexframe.h"

#include <benchmark/benchmark.h>

#include <cstring>

namespace
{

void copyBare(benchmark::State& state)
{
    const sysex::Frame frame = sysex::buildFrame(sysex::Type::PresetParameter);
    for (auto _ : state) {
        sysex::Frame copy;
        std::memcpy(copy.data(), frame.data(), frame.size());
        benchmark::DoNotOptimize(copy);
    }
}
BENCHMARK(copyBare);

void buildFrame(benchmark::State& state)
{
    int value = 0;
    for (auto _ : state) {
        const auto bytes = sysex::encodeValue(++value);
        auto frame =
            sysex::buildFrame(sysex::Type::PresetParameter, {2, 1, 0, 15, bytes.high, bytes.low});
        benchmark::DoNotOptimize(frame);
    }
}
BENCHMARK(buildFrame);

void classifyFrame(benchmark::State& state)
{
    const sysex::Frame frame = sysex::buildFrame(static_cast<sysex::Type>(state.range(0)));
    for (auto _ : state) {
        auto data = std::span(frame).subspan(1, frame.size() - 2);
        benchmark::DoNotOptimize(data);
        benchmark::DoNotOptimize(sysex::classify(data));
    }
}
BENCHMARK(classifyFrame)->ArgName("type")->Arg(0x02)->Arg(0x10)->Arg(0x7F);

} // namespace

BENCHMARK_MAIN();

// What it costs to encode and to decode one parameter, beside the same by a table made beforehand:
// the floor.

#include "globalcodec.h"
#include "presetcodec.h"
#include "presetdefaults.h"

#include <benchmark/benchmark.h>

#include <QHash>
#include <QVariantMap>

#include <cstring>

namespace
{

using Names = QList<QString>;

const Names& presetNames()
{
    static const Names names = [] {
        Names all = presetdefaults::preset().keys();
        all.removeOne(QStringLiteral("preset_name"));
        return all;
    }();
    return names;
}
const Names& globalNames()
{
    static const Names names = presetdefaults::globals().keys();
    return names;
}

template <auto Encode, auto GetNames> void encode(benchmark::State& state)
{
    const Names& names = GetNames();
    qsizetype i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(Encode(names.at(i), 8938));
        i = (i + 1) % names.size();
    }
}
BENCHMARK(encode<sysex::encodePresetParameter, presetNames>)->Name("encode/preset");
BENCHMARK(encode<sysex::encodeGlobalParameter, globalNames>)->Name("encode/global");

template <auto Encode, auto GetNames> void encodeByTable(benchmark::State& state)
{
    const Names& names = GetNames();
    QHash<QString, sysex::Payload> table;
    for (const QString& name : names)
        table.insert(name, *Encode(name, 0).payload);
    qsizetype i = 0;
    for (auto _ : state) {
        sysex::Payload payload = table.value(names.at(i));
        const auto bytes = sysex::encodeValue(8938);
        payload[4] = bytes.high;
        payload[5] = bytes.low;
        benchmark::DoNotOptimize(payload);
        i = (i + 1) % names.size();
    }
}
BENCHMARK(encodeByTable<sysex::encodePresetParameter, presetNames>)->Name("encode/preset by table");
BENCHMARK(encodeByTable<sysex::encodeGlobalParameter, globalNames>)->Name("encode/global by table");

template <auto Encode, auto GetNames> std::vector<sysex::Payload> payloads()
{
    std::vector<sysex::Payload> all;
    for (const QString& name : GetNames())
        all.push_back(*Encode(name, 100).payload);
    return all;
}

template <auto Encode, auto Decode, auto GetNames> void decode(benchmark::State& state)
{
    const auto all = payloads<Encode, GetNames>();
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(Decode(all[i]));
        i = (i + 1) % all.size();
    }
}
BENCHMARK(decode<sysex::encodePresetParameter, sysex::decodePresetParameter, presetNames>)
    ->Name("decode/preset");
BENCHMARK(decode<sysex::encodeGlobalParameter, sysex::decodeGlobalParameter, globalNames>)
    ->Name("decode/global");

template <auto Encode, auto GetNames> void decodeByTable(benchmark::State& state)
{
    const auto address = [](const sysex::Payload& payload) {
        quint32 key = 0;
        std::memcpy(&key, payload.data(), sizeof key);
        return key;
    };
    const auto all = payloads<Encode, GetNames>();
    QHash<quint32, QString> table;
    for (std::size_t i = 0; i < all.size(); ++i)
        table.insert(address(all[i]), GetNames().at(static_cast<qsizetype>(i)));
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(table.value(address(all[i])));
        benchmark::DoNotOptimize(sysex::decodeValue(all[i][4], all[i][5]));
        i = (i + 1) % all.size();
    }
}
BENCHMARK(decodeByTable<sysex::encodePresetParameter, presetNames>)->Name("decode/preset by table");

} // namespace

BENCHMARK_MAIN();

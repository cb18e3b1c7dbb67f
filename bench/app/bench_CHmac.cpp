#include <core/app/CHmac.h>

#include <benchmark/benchmark.h>

namespace {

const QByteArray KEY("0123456789abcdef0123");

QByteArray message(const benchmark::State& state)
{
    return QByteArray(static_cast<int>(state.range(0)), 'm');
}

void Hmac_tlx(benchmark::State& state)
{
    const QByteArray text = message(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(CHmac::hmac(text, QCryptographicHash::Sha1, KEY));
    }
}

void Hmac_Qt(benchmark::State& state)
{
    const QByteArray text = message(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(QMessageAuthenticationCode::hash(text, KEY, QCryptographicHash::Sha1));
    }
}

} // namespace

BENCHMARK(Hmac_tlx)->Name("BM_Hmac/tlx")->Arg(8)->Arg(4096);
BENCHMARK(Hmac_Qt)->Name("BM_Hmac/Qt")->Arg(8)->Arg(4096);

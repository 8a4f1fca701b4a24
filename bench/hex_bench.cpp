// Hexadecimal text to bytes and back, and a preview; bytes a second count the text.
#include "convert/hex.h"
#include "convert/texture_picture.h"

#include <benchmark/benchmark.h>
#include <string>
#include <vector>

namespace {

using namespace tamarind::convert;

constexpr std::size_t kBytes = 11'184'824; // 4096 x 4096 in DXT1 with 13 levels

std::string Noise(std::size_t size) {
    std::string bytes(size, '\0');
    std::uint32_t random = 1;
    for (char& byte : bytes) {
        random = random * 1664525U + 1013904223U;
        byte = static_cast<char>(random >> 24);
    }
    return bytes;
}

std::string Lines(std::size_t size) {
    std::string text;
    AppendHexLines(text, Noise(size));
    return text;
}

void Decode(benchmark::State& state, const std::string& text) {
    std::vector<std::uint8_t> bytes(text.size() / 2);
    for (auto _ : state) {
        benchmark::DoNotOptimize(DecodeHex(text, bytes));
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}

void DecodeLines(benchmark::State& state) { Decode(state, Lines(kBytes)); }
BENCHMARK(DecodeLines)->Unit(benchmark::kMillisecond);

void DecodeWithoutBlanks(benchmark::State& state) {
    std::string text = Lines(kBytes);
    std::erase_if(text, [](char c) { return c == ' ' || c == '\n'; });
    Decode(state, text);
}
BENCHMARK(DecodeWithoutBlanks)->Unit(benchmark::kMillisecond);

/// One character in fifty is none that belongs there.
void DecodeDirty(benchmark::State& state) {
    std::string text = Lines(kBytes);
    for (std::size_t i = 0; i < text.size(); i += 50)
        text[i] = 'G';
    Decode(state, text);
}
BENCHMARK(DecodeDirty)->Unit(benchmark::kMillisecond);

void Encode(benchmark::State& state) {
    const std::string bytes = Noise(kBytes);
    std::string text;
    text.reserve(HexLinesLength(bytes.size()));
    for (auto _ : state) {
        text.clear();
        AppendHexLines(text, bytes);
        benchmark::DoNotOptimize(text.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}
BENCHMARK(Encode)->Unit(benchmark::kMillisecond);

void Preview2048(benchmark::State& state) {
    const std::string xml = "<T><Width>2048</Width><Height>2048</Height><Format>HC_IMAGE_FORMAT_COMPRESSED</Format>"
                            "<d:blob d:size=\"2097152\">" +
                            Lines(2'097'152) + "</d:blob></T>";
    for (auto _ : state) {
        const DecodedTexture decoded = DecodeTexture(xml, 0);
        benchmark::DoNotOptimize(decoded.picture->rgba.data());
    }
}
BENCHMARK(Preview2048)->Unit(benchmark::kMillisecond);

} // namespace

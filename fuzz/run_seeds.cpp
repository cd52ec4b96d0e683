// SPDX-License-Identifier: MIT

// Feeds a fuzz target with its seeds, and with so many texts that are made of them by chance.
// usage: check_NAME FOLDER COUNT

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Text = std::vector<std::uint8_t>;

std::vector<Text> seedsIn(const std::filesystem::path& folder)
{
    std::vector<Text> seeds;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::ifstream file(entry.path(), std::ios::binary);
        seeds.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return seeds;
}

/// Cuts, doubles or overwrites a piece, or puts one of another text in its place.
void change(Text& text, const Text& other, std::mt19937& random)
{
    const auto place = [&random](const Text& in) {
        return std::ptrdiff_t(random() % (in.size() + 1));
    };
    const auto begin = text.begin() + place(text);
    const auto end = begin + std::min<std::ptrdiff_t>(text.end() - begin, random() % 8);
    switch (random() % 4) {
    case 0:
        text.erase(begin, end);
        return;
    case 1: {
        const Text copy(begin, end);
        text.insert(begin, copy.begin(), copy.end());
        return;
    }
    case 2:
        std::generate(begin, end, [&random] { return std::uint8_t(random()); });
        return;
    default:
        const auto from = other.begin() + place(other);
        text.insert(begin, from, from + std::min<std::ptrdiff_t>(other.end() - from, random() % 32));
    }
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 3)
        return EXIT_FAILURE;
    const std::vector<Text> seeds = seedsIn(argv[1]);
    if (seeds.empty())
        return EXIT_FAILURE;
    for (const Text& seed : seeds)
        LLVMFuzzerTestOneInput(seed.data(), seed.size());
    std::mt19937 random(1);
    const int count = std::atoi(argv[2]);
    for (int i = 0; i < count; ++i) {
        Text text = seeds[random() % seeds.size()];
        for (unsigned changes = random() % 6; changes > 0; --changes)
            change(text, seeds[random() % seeds.size()], random);
        LLVMFuzzerTestOneInput(text.data(), text.size());
    }
    std::printf("%zu seeds and %d texts made of them\n", seeds.size(), count);
    return EXIT_SUCCESS;
}

// Picture tag lists: BuildArray and ToString for 1,000 and 10,000 tags in
// random caption order, beside the floor of the insertion algorithm itself:
// the same duplicate search and backward scan over bare captions in a
// std::vector<std::string>, with the same comparisons (the case-folded byte
// order of CompareNoCase and twutil's CompareStringA).
#include "picture/picture_tag_array.h"
#include "picture/picture_tag_refusal.h"
#include "string_helpers.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

// Unique captions (ignoring case) of eight letters, in random order.
std::vector<std::string> RandomCaptions(int count)
{
    std::mt19937 random(20240601u + static_cast<unsigned>(count));
    std::uniform_int_distribution<int> letter(0, 25);
    std::set<std::string> taken;
    std::vector<std::string> captions;
    while (static_cast<int>(captions.size()) < count) {
        std::string caption(8, 'a');
        for (char& c : caption)
            c = static_cast<char>('a' + letter(random));
        if (!taken.insert(caption).second)
            continue;
        caption[0] = static_cast<char>(caption[0] - 'a' + 'A');
        captions.push_back(caption);
    }
    return captions;
}

std::string ListOf(const std::vector<std::string>& captions)
{
    std::string list;
    int i = 0;
    for (const std::string& caption : captions) {
        const int x = (i * 37) % 2000;
        const int y = (i * 91) % 1500;
        char head[64];
        std::snprintf(head, sizeof head, "R%d,%d,40,30,%d,%d,\"", x, y, x, y + 35);
        list += head;
        list += caption;
        list += "\";";
        ++i;
    }
    return list;
}

void IgnoreRefusal(const CPictureTag&) {}

void BM_BuildArray(benchmark::State& state)
{
    const std::string list = ListOf(RandomCaptions(static_cast<int>(state.range(0))));
    const CString text(list.c_str());
    SetPictureTagRefusedNotifier(&IgnoreRefusal);
    for (auto _ : state) {
        CPictureTagArray tags;
        tags.BuildArray(text);
        benchmark::DoNotOptimize(tags.GetData());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void BM_ToString(benchmark::State& state)
{
    CPictureTagArray tags;
    tags.BuildArray(ListOf(RandomCaptions(static_cast<int>(state.range(0)))).c_str());
    for (auto _ : state) {
        CString list = tags.ToString();
        benchmark::DoNotOptimize(list.GetString());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// CompareNoCase's order: bytes folded with AfxToLower1252, then the length.
struct FoldedOrder
{
    std::array<unsigned char, 256> lower{};
    FoldedOrder()
    {
        for (int c = 0; c < 256; ++c)
            lower[c] = static_cast<unsigned char>(AfxToLower1252(static_cast<char>(c)));
    }
    int operator()(const std::string& a, const std::string& b) const
    {
        const size_t common = std::min(a.size(), b.size());
        for (size_t i = 0; i < common; ++i) {
            const unsigned char x = lower[static_cast<unsigned char>(a[i])];
            const unsigned char y = lower[static_cast<unsigned char>(b[i])];
            if (x != y)
                return x < y ? -1 : 1;
        }
        return (a.size() > b.size()) - (a.size() < b.size());
    }
};

// The insertion algorithm of AddSorted over bare captions.
long FloorAddSorted(std::vector<std::string>& held, const std::string& caption, const FoldedOrder& noCase)
{
    if (held.empty()) {
        held.push_back(caption);
        return 0;
    }
    for (const std::string& h : held)
        if (noCase(h, caption) == 0)
            return -1;
    if (CompareStringA(caption.c_str(), held.back().c_str(), true) >= 0) {
        held.push_back(caption);
        return static_cast<long>(held.size()) - 1;
    }
    for (long i = static_cast<long>(held.size()) - 1; i >= 0; --i) {
        if (CompareStringA(caption.c_str(), held[i].c_str(), true) >= 0) {
            held.insert(held.begin() + i + 1, caption);
            return i + 1;
        }
    }
    held.insert(held.begin(), caption);
    return 0;
}

void BM_FloorInsertion(benchmark::State& state)
{
    const std::vector<std::string> captions = RandomCaptions(static_cast<int>(state.range(0)));
    const FoldedOrder noCase;
    for (auto _ : state) {
        std::vector<std::string> held;
        for (const std::string& caption : captions)
            benchmark::DoNotOptimize(FloorAddSorted(held, caption, noCase));
        benchmark::DoNotOptimize(held.data());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

}  // namespace

BENCHMARK(BM_BuildArray)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FloorInsertion)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ToString)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();

// SPDX-License-Identifier: MIT
#include "lexicon/packing/huffmancode.h"

#include <algorithm>
#include <array>

namespace teskel
{

namespace
{

/// Depths of the leaves of a Huffman tree over ascending weights, by the two-queue method.
std::vector<unsigned> leafDepths(const std::vector<uint64_t>& weights)
{
    const size_t leaves = weights.size();
    const size_t nodes = 2 * leaves - 1;
    std::vector<uint64_t> weight(weights);
    weight.reserve(nodes);
    std::vector<size_t> parent(nodes, 0);
    size_t nextLeaf = 0;
    size_t nextInner = leaves;
    const auto takeLightest = [&] {
        const bool leaf = nextLeaf < leaves &&
                          (nextInner >= weight.size() || weight[nextLeaf] <= weight[nextInner]);
        return leaf ? nextLeaf++ : nextInner++;
    };
    while (weight.size() < nodes) {
        const size_t first = takeLightest();
        const size_t second = takeLightest();
        parent[first] = parent[second] = weight.size();
        weight.push_back(weight[first] + weight[second]);
    }
    std::vector<unsigned> depth(nodes, 0);
    for (size_t node = nodes - 1; node-- > 0;)
        depth[node] = depth[parent[node]] + 1;
    depth.resize(leaves);
    return depth;
}

/// Moves leaves up until none is deeper than the limit; the tree stays complete.
void limitDepths(std::vector<unsigned>& leavesAtDepth)
{
    for (size_t depth = leavesAtDepth.size() - 1; depth > HuffmanCode::maxLength; --depth) {
        while (leavesAtDepth[depth] > 0) {
            // Two siblings leave: one takes the place of their parent, the other becomes the
            // sibling of a leaf from higher up, which moves down one level.
            size_t donor = depth - 2;
            while (leavesAtDepth[donor] == 0)
                --donor;
            leavesAtDepth[depth] -= 2;
            leavesAtDepth[depth - 1] += 1;
            leavesAtDepth[donor] -= 1;
            leavesAtDepth[donor + 1] += 2;
        }
    }
}

} // namespace

HuffmanCode::HuffmanCode(const std::vector<uint32_t>& counts)
    : _lengths(counts.size(), 0)
    , _codes(counts.size(), 0)
{
    std::vector<unsigned> sorted;
    for (unsigned symbol = 0; symbol < counts.size(); ++symbol) {
        if (counts[symbol] > 0)
            sorted.push_back(symbol);
    }
    if (sorted.size() <= 1) {
        _isLone = true;
        _loneSymbol = sorted.empty() ? 0 : sorted.front();
        return;
    }
    std::stable_sort(sorted.begin(), sorted.end(),
                     [&](unsigned a, unsigned b) { return counts[a] < counts[b]; });
    assignLengths(counts, sorted);
    assignCodes();
}

void HuffmanCode::assignLengths(const std::vector<uint32_t>& counts,
                                const std::vector<unsigned>& sorted)
{
    std::vector<uint64_t> weights;
    weights.reserve(sorted.size());
    for (const unsigned symbol : sorted)
        weights.push_back(counts[symbol]);
    const std::vector<unsigned> depths = leafDepths(weights);
    std::vector<unsigned> leavesAtDepth(*std::max_element(depths.begin(), depths.end()) + 1, 0);
    for (const unsigned depth : depths)
        ++leavesAtDepth[depth];
    limitDepths(leavesAtDepth);
    // The rarest symbols get the longest codes.
    size_t next = 0;
    for (size_t depth = leavesAtDepth.size() - 1; depth > 0; --depth) {
        for (unsigned i = 0; i < leavesAtDepth[depth]; ++i)
            _lengths[sorted[next++]] = static_cast<uint8_t>(depth);
    }
}

void HuffmanCode::assignCodes()
{
    std::array<uint32_t, maxLength + 2> next{};
    for (const uint8_t length : _lengths) {
        if (length > 0)
            ++next[length + 1U];
    }
    // next[n] held the number of codes of length n - 1; turn it into the first code of length n.
    uint32_t first = 0;
    for (unsigned length = 1; length <= maxLength; ++length) {
        first = (first + next[length]) << 1;
        next[length] = first;
    }
    for (size_t symbol = 0; symbol < _lengths.size(); ++symbol) {
        if (_lengths[symbol] > 0)
            _codes[symbol] = static_cast<uint16_t>(next[_lengths[symbol]]++);
    }
}

unsigned HuffmanCode::usedSymbols() const
{
    unsigned used = symbolCount();
    while (used > 0 && _lengths[used - 1] == 0)
        --used;
    return used;
}

} // namespace teskel

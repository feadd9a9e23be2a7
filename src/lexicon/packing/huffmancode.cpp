// SPDX-License-Identifier: MIT
#include "lexicon/packing/huffmancode.h"

#include <algorithm>

namespace teskel
{

namespace
{

constexpr std::size_t mostNodes = std::size_t{2} * HuffmanCode::maxSymbols;

/// The used symbols, the rarest first; of equally rare ones the lower first.
class Ranking
{
public:
    explicit Ranking(std::span<const uint32_t> counts)
    {
        for (uint32_t symbol = 0; symbol < counts.size(); ++symbol) {
            if (counts[symbol] > 0)
                _keys[_size++] = uint64_t{counts[symbol]} << symbolBits | symbol;
        }
        std::sort(_keys.begin(), _keys.begin() + _size);
    }

    unsigned size() const { return _size; }
    unsigned symbol(unsigned rank) const { return _keys[rank] & ((1U << symbolBits) - 1); }
    uint32_t count(unsigned rank) const { return static_cast<uint32_t>(_keys[rank] >> symbolBits); }

private:
    static constexpr unsigned symbolBits = 16;

    unsigned _size = 0;
    std::array<uint64_t, HuffmanCode::maxSymbols> _keys; // _size of them are set
};

/// A leaf at depth n has at least Fibonacci number n uses beside it: 47 are too many to count.
constexpr unsigned maxDepth = 47;
using LeavesAtDepth = std::array<unsigned, maxDepth + 1>;

/// The depths of a Huffman tree over ascending weights, by the two-queue method: leaves and inner
/// nodes each come in ascending order, so that the lightest node is always the next of one of them.
class Tree
{
public:
    /// There are two symbols at least.
    explicit Tree(const Ranking& ranking)
        : _leaves(ranking.size())
    {
        for (unsigned rank = 0; rank < _leaves; ++rank)
            _weight[rank] = ranking.count(rank);
        unsigned nextLeaf = 0;
        unsigned nextInner = _leaves;
        for (unsigned made = _leaves; made <= root(); ++made) {
            _weight[made] = 0;
            for (int child = 0; child < 2; ++child) {
                const bool isLeaf = nextLeaf < _leaves &&
                                    (nextInner == made || _weight[nextLeaf] <= _weight[nextInner]);
                const unsigned lightest = isLeaf ? nextLeaf++ : nextInner++;
                _weight[made] += _weight[lightest];
                _parent[lightest] = static_cast<uint16_t>(made);
            }
        }
    }

    LeavesAtDepth leavesAtDepth() const
    {
        LeavesAtDepth leaves{};
        std::array<uint8_t, mostNodes> depth;
        depth[root()] = 0;
        for (unsigned node = root(); node-- > 0;) {
            depth[node] = static_cast<uint8_t>(depth[_parent[node]] + 1);
            leaves[depth[node]] += node < _leaves ? 1 : 0;
        }
        return leaves;
    }

private:
    unsigned root() const { return 2 * _leaves - 2; }

    unsigned _leaves;
    std::array<uint32_t, mostNodes> _weight; // those of nodes that there are
    std::array<uint16_t, mostNodes> _parent; // likewise
};

/// Moves leaves up until none is deeper than the limit; the tree stays complete.
void limitDepths(LeavesAtDepth& leavesAtDepth)
{
    for (size_t depth = maxDepth; depth > HuffmanCode::maxLength; --depth) {
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

HuffmanCode::HuffmanCode(std::span<const uint32_t> counts)
    : _symbolCount(static_cast<unsigned>(counts.size()))
{
    const Ranking ranking(counts);
    if (ranking.size() <= 1) {
        _isLone = true;
        _loneSymbol = ranking.size() == 0 ? 0 : ranking.symbol(0);
        return;
    }
    LeavesAtDepth leavesAtDepth = Tree(ranking).leavesAtDepth();
    limitDepths(leavesAtDepth);
    // The rarest symbols get the longest codes.
    unsigned rank = 0;
    for (unsigned depth = maxLength; depth > 0; --depth) {
        for (unsigned i = 0; i < leavesAtDepth[depth]; ++i)
            _lengths[ranking.symbol(rank++)] = static_cast<uint8_t>(depth);
    }
    _usedSymbols = _symbolCount;
    while (_lengths[_usedSymbols - 1] == 0)
        --_usedSymbols;
    assignCodes(leavesAtDepth);
}

void HuffmanCode::assignCodes(std::span<const unsigned> leavesAtDepth)
{
    std::array<uint32_t, maxLength + 1> next{};
    for (unsigned length = 2; length <= maxLength; ++length)
        next[length] = (next[length - 1] + leavesAtDepth[length - 1]) << 1;
    for (unsigned symbol = 0; symbol < _usedSymbols; ++symbol)
        _codes[symbol] = static_cast<uint16_t>(next[_lengths[symbol]]++);
}

} // namespace teskel

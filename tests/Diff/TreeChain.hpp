// A tree item for very deep trees: a link of a chain that does not own the next link, so that
// building and freeing a chain of any length needs no recursion.
#pragma once

#include "DiffTestItems.hpp"

#include <deque>
#include <string>

namespace DiffTest {

class ChainLink : public WZ::TreeDiffable {
public:
    ChainLink(NK::UInt64 number, std::string text) : id(Id(number)), text(std::move(text)) {}
    NK::Guid GetId() const override { return id; }
    bool IsEqual(const WZ::TreeDiffable& other) const override { return static_cast<const ChainLink&>(other).text == text; }
    NK::Array<const WZ::TreeDiffable*> GetDiffableChildren() const override
    {
        return child != nullptr ? NK::Array<const WZ::TreeDiffable*> {child} : NK::Array<const WZ::TreeDiffable*> {};
    }

    NK::Guid id;
    std::string text;
    const ChainLink* child = nullptr;
};

// Links numbered from `first`, each the child of the one before; the deepest has `deepestText`.
inline std::deque<ChainLink> MakeChain(NK::UInt64 first, NK::UInt64 depth, const std::string& deepestText)
{
    std::deque<ChainLink> links;
    for (NK::UInt64 k = 0; k < depth; ++k)
        links.emplace_back(first + k, k + 1 == depth ? deepestText : "link");
    for (NK::UInt64 k = 0; k + 1 < depth; ++k)
        links[k].child = &links[k + 1];
    return links;
}

}  // namespace DiffTest

// Items for the difference tests: list items with a text (their content) that count the content
// comparisons made on them, and tree nodes that own their children.
#pragma once

#include "NK/NKGuid.hpp"
#include "WZSources/Diff/WZDiffable.hpp"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace DiffTest {

inline NK::Guid Id(NK::UInt64 number)
{
    return NK::Guid::FromNumber(0x5A5A, number);
}

// Counts IsEqual calls and remembers on which item each was made, with which argument.
struct EqualCalls {
    int count = 0;
    std::vector<std::pair<const void*, const void*>> made;  // (called on, argument)
};

class TextItem : public WZ::SeparatableItem {
public:
    TextItem(NK::UInt64 number, std::string text, EqualCalls* calls = nullptr, bool separator = false)
        : id(Id(number)), text(std::move(text)), calls(calls), separator(separator)
    {
    }

    NK::Guid GetId() const override { return id; }
    bool IsEqual(const WZ::Diffable& other) const override
    {
        if (calls != nullptr) {
            ++calls->count;
            calls->made.emplace_back(this, &other);
        }
        const auto* item = dynamic_cast<const TextItem*>(&other);
        return item != nullptr && item->text == text && item->separator == separator;
    }
    bool IsSeparator() const override { return separator; }

    const std::string& GetText() const { return text; }

private:
    NK::Guid id;
    std::string text;
    EqualCalls* calls;
    bool separator;
};

class TreeNode : public WZ::TreeDiffable {
public:
    TreeNode(NK::UInt64 number, std::string text) : id(Id(number)), text(std::move(text)) {}

    TreeNode& Add(NK::UInt64 number, std::string childText)
    {
        children.push_back(std::make_unique<TreeNode>(number, std::move(childText)));
        return *children.back();
    }

    NK::Guid GetId() const override { return id; }
    bool IsEqual(const WZ::TreeDiffable& other) const override
    {
        return static_cast<const TreeNode&>(other).text == text;
    }
    NK::Array<const WZ::TreeDiffable*> GetDiffableChildren() const override
    {
        NK::Array<const WZ::TreeDiffable*> result;
        for (const auto& child : children)
            result.Push(child.get());
        return result;
    }

    const std::string& GetText() const { return text; }

private:
    NK::Guid id;
    std::string text;
    std::vector<std::unique_ptr<TreeNode>> children;
};

}  // namespace DiffTest

// Test model for the foldered data view: named items with explicit or name-derived ids, a
// compact forest builder and a text form of tree-item forests ("A(B(D),C),E").
#pragma once

#include "NK/NKAssert.hpp"
#include "NK/NKGuid.hpp"
#include "NK/NKUniString.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableModelItem.hpp"
#include "WZSources/CompoundControls/FolderedDataView/WZFolderableTreeItem.hpp"

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace FDVTest {

using WZ::Folderable::ModelItem;

inline NK::Guid IdOf(const std::string& name) { return NK::Guid::FromNumber(0xF0F0, NK::UniString(name).GenerateHashValue()); }

class NamedItem : public ModelItem {
public:
    explicit NamedItem(std::string name, std::vector<std::string> searchTexts = {})
        : name(std::move(name)), searchTexts(std::move(searchTexts)), id(IdOf(this->name))
    {
    }
    NamedItem(std::string name, const NK::Guid& id) : name(std::move(name)), id(id) {}

    NK::Guid GetId() const override { return id; }
    const std::string& GetName() const { return name; }
    const std::vector<std::string>& GetSearchTexts() const { return searchTexts; }

private:
    std::string name;
    std::vector<std::string> searchTexts;
    NK::Guid id;
};

inline const NamedItem& AsNamed(const ModelItem& item) { return static_cast<const NamedItem&>(item); }

// One node of a forest to build: a name, its search texts and its children.
struct Node {
    Node(std::string name, std::vector<Node> children = {}, std::vector<std::string> searchTexts = {})
        : name(std::move(name)), children(std::move(children)), searchTexts(std::move(searchTexts))
    {
    }
    std::string name;
    std::vector<Node> children;
    std::vector<std::string> searchTexts;
};

inline NK::Owner<ModelItem> Build(const Node& node)
{
    auto item = NK::NewOwned<NamedItem>(node.name, node.searchTexts);
    for (const Node& child : node.children)
        item->AddChild(Build(child));
    return item;
}

inline NK::Array<NK::Owner<ModelItem>> BuildForest(const std::vector<Node>& nodes)
{
    NK::Array<NK::Owner<ModelItem>> forest;
    for (const Node& node : nodes)
        forest.Push(Build(node));
    return forest;
}

// A chain of `depth` items, each the only child of the one before; ids differ by level.
inline NK::Array<NK::Owner<ModelItem>> BuildChain(int depth, ModelItem*& bottom)
{
    NK::Array<NK::Owner<ModelItem>> chain;
    chain.Push(NK::NewOwned<NamedItem>("level 0"));
    bottom = chain[0].Get();
    for (int level = 1; level < depth; ++level) {  // top-down, the way a client fills folders
        auto next = NK::NewOwned<NamedItem>("level " + std::to_string(level));
        ModelItem* added = next.Get();
        bottom->AddChild(std::move(next));
        bottom = added;
    }
    return chain;
}

inline std::string Names(const NK::Array<const ModelItem*>& items)
{
    std::string text;
    for (const ModelItem* item : items)
        text += (text.empty() ? "" : " ") + AsNamed(*item).GetName();
    return text;
}

inline std::string Describe(const NK::Array<NK::Owner<WZ::Folderable::TreeItem>>& forest)
{
    std::string text;
    for (const auto& item : forest) {
        if (!text.empty())
            text += ",";
        text += item->GetDisplayName().ToUtf8();
        if (!item->GetChildren().IsEmpty())
            text += "(" + Describe(item->GetChildren()) + ")";
    }
    return text;
}

// Makes NK_UNREACHABLE throw while alive, so that a stop can be checked without dying.
struct UnreachableThrows {
    struct Stopped : std::runtime_error {
        using std::runtime_error::runtime_error;
    };
    UnreachableThrows()
    {
        previous = NK::AssertImpl::SetUnreachableHandler(
            [](const NK::AssertImpl::Report& report) { throw Stopped(report.expression); });
    }
    ~UnreachableThrows() { NK::AssertImpl::SetUnreachableHandler(std::move(previous)); }
    NK::AssertImpl::UnreachableHandler previous;
};

}  // namespace FDVTest

// A small client of the hierarchical table view for the tests: a forest of named nodes with
// numeric ids, keys that point at the nodes, the two comparators, a provider that keeps the
// previous forest alive while the table reloads, and a delegate that writes down what it hears.
#pragma once

#include "NK/NKGuid.hpp"
#include "QM/QMHierarchicalTableView.hpp"

#include <memory>
#include <string>
#include <vector>

namespace QMViewsTest {

struct Node {
    NK::UInt64 number = 0;
    std::string name;
    std::string size;
    std::vector<std::unique_ptr<Node>> children;

    // A deep chain is let go of without a destructor call per level.
    ~Node()
    {
        std::vector<std::unique_ptr<Node>> pending = std::move(children);
        while (!pending.empty()) {
            std::unique_ptr<Node> node = std::move(pending.back());
            pending.pop_back();
            for (auto& child : node->children)
                pending.push_back(std::move(child));
            node->children.clear();
        }
    }
};

using Forest = std::vector<std::unique_ptr<Node>>;

inline std::unique_ptr<Node> N(NK::UInt64 number, std::string name, Forest children = {})
{
    return std::unique_ptr<Node>(new Node {number, std::move(name), std::to_string(number * 10) + " KB", std::move(children)});
}

template <typename... Nodes>
Forest Kids(Nodes... nodes)
{
    Forest list;
    (list.push_back(std::move(nodes)), ...);
    return list;
}

inline NK::Guid IdOf(NK::UInt64 number) { return NK::Guid::FromNumber(0x7AB1E, number); }

inline const NK::Guid rootId = NK::Guid::FromNumber(0, 0);

struct Key {
    NK::Guid id = rootId;
    const Node* node = nullptr;

    NK::UInt32 GenerateHashValue() const noexcept { return id.GenerateHashValue(); }
};

// Counts its comparisons, so that a test can tell linear work from a walk per row.
struct IdComparator {
    bool operator()(const Key& a, const Key& b) const noexcept { return (*this)(a, b.id); }
    bool operator()(const Key& a, const NK::Guid& b) const noexcept { return ++comparisons, a.id == b; }
    inline static std::size_t comparisons = 0;
};

struct ContentComparator {
    bool operator()(const Key& a, const Key& b) const noexcept
    {
        return a.node == b.node || (a.node != nullptr && b.node != nullptr && a.node->name == b.node->name);
    }
};

using Table = QM::HierarchicalTableView<Key, IdComparator, ContentComparator>;

class Provider : public QM::TableView::Hierarchical::DataProvider<Key> {
public:
    Key GetVirtualRoot() const override { return Key {}; }
    NK::Array<Key> GetChildren(const Key& parent) const override
    {
        const Forest& list = parent.node == nullptr ? forest : parent.node->children;
        NK::Array<Key> keys;
        for (const auto& child : list)
            keys.Push(Key {IdOf(child->number), child.get()});
        ++childrenRequests;
        return keys;
    }

    // Takes the new forest and reloads the table; the old forest lives until the reload is over.
    void Replace(Forest next, Table& table)
    {
        Forest old = std::move(forest);
        forest = std::move(next);
        table.Reload();
    }

    Forest forest;
    mutable int childrenRequests = 0;
};

class RecordingDelegate : public QM::TableView::Hierarchical::Delegate<Key> {
public:
    NK::UniString GetCellText(const Key& node, const NK::UniString& columnId) const override
    {
        return node.node == nullptr ? NK::UniString() : columnId == NK::UniString("size") ? node.node->size : node.node->name;
    }
    NK::Array<QM::Icon> GetCellIcons(const Key& node, const NK::UniString&) const override
    {
        return node.node != nullptr && !node.node->children.empty() ? NK::Array<QM::Icon> {QM::Icon(1, 7)} : NK::Array<QM::Icon> {};
    }
    void SelectionChanged(QM::Origin origin) override { events.push_back(std::string("selection") + By(origin)); }
    void NodeExpanded(const Key& node, QM::Origin origin) override { events.push_back("open " + NameOf(node) + By(origin)); }
    void NodeCollapsed(const Key& node, QM::Origin origin) override { events.push_back("close " + NameOf(node) + By(origin)); }
    void NodeDoubleClicked(const Key& node) override { events.push_back("double click " + NameOf(node)); }
    void NodeTextEdited(const Key& node, const NK::UniString& text) override
    {
        events.push_back("edited " + NameOf(node) + " to " + text.ToUtf8());
    }
    void ColumnLayoutChanged(QM::Origin origin) override { events.push_back(std::string("columns") + By(origin)); }

    static std::string NameOf(const Key& node) { return node.node == nullptr ? "?" : node.node->name; }
    static const char* By(QM::Origin origin) { return origin == QM::Origin::User ? " by user" : ""; }

    std::vector<std::string> events;
};

inline std::vector<std::string> NamesOf(const NK::Array<Key>& keys)
{
    std::vector<std::string> names;
    for (const Key& key : keys)
        names.push_back(RecordingDelegate::NameOf(key));
    return names;
}

}  // namespace QMViewsTest

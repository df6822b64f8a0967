#include "WZSources/Diff/WZDiffResult.hpp"

#include "NK/NKOwnedTree.hpp"

namespace WZ::Diff {

namespace {

NK::UInt32 HalfSum(NK::UInt64 value) noexcept
{
    return static_cast<NK::UInt32>(value >> 32) + static_cast<NK::UInt32>(value);
}

}  // namespace

NK::UInt32 Move::GenerateHashValue() const noexcept
{
    return HalfSum(from) + 65599u * HalfSum(to);
}

bool Result::HasChanges() const noexcept
{
    return !inserted.IsEmpty() || !deleted.IsEmpty() || !changed.IsEmpty() || !moved.IsEmpty();
}

TreeResult::Update::Update(bool itemChanged, NK::Owner<TreeResult> subTree, NK::UInt64 oldIndex)
    : itemChanged(itemChanged), subTree(std::move(subTree)), oldIndex(oldIndex)
{
}

TreeResult::Update::Update(const Update& other)
    : itemChanged(other.itemChanged),
      subTree(other.subTree ? NK::NewOwned<TreeResult>(*other.subTree) : NK::Owner<TreeResult>()),
      oldIndex(other.oldIndex)
{
}

TreeResult::Update& TreeResult::Update::operator=(const Update& other)
{
    if (this != &other) {
        Update copy(other);
        *this = std::move(copy);
    }
    return *this;
}

TreeResult::Update::~Update() = default;

TreeResult::TreeResult(const TreeResult& other)
{
    // Level by level: each level's updates are copied without their nested results, which are
    // then filled from the stack.
    std::vector<std::pair<TreeResult*, const TreeResult*>> pending {{this, &other}};
    while (!pending.empty()) {
        auto [target, source] = pending.back();
        pending.pop_back();
        target->inserted = source->inserted;
        target->deleted = source->deleted;
        target->moved = source->moved;
        for (const auto& [index, update] : source->updates) {
            Update copy(update.itemChanged, nullptr, update.oldIndex);
            if (update.subTree) {
                copy.subTree = NK::NewOwned<TreeResult>();
                pending.emplace_back(copy.subTree.Get(), update.subTree.Get());
            }
            target->updates.Add(index, std::move(copy));
        }
    }
}

TreeResult& TreeResult::operator=(const TreeResult& other)
{
    if (this != &other) {
        TreeResult copy(other);
        *this = std::move(copy);
    }
    return *this;
}

TreeResult::~TreeResult()
{
    NK::Array<NK::Owner<TreeResult>> subTrees;
    TakeSubTrees(*this, subTrees);
    NK::DestroyOwnedTree(std::move(subTrees), TakeSubTrees);
}

void TreeResult::TakeSubTrees(TreeResult& result, NK::Array<NK::Owner<TreeResult>>& pending)
{
    for (auto& entry : result.updates)
        if (entry.second.subTree)
            pending.Push(std::move(entry.second.subTree));
}

bool TreeResult::HasChanges() const noexcept
{
    return !inserted.IsEmpty() || !deleted.IsEmpty() || !updates.IsEmpty() || !moved.IsEmpty();
}

}  // namespace WZ::Diff

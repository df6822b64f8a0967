#include "WZSources/Diff/WZDiffResult.hpp"

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

TreeResult::Update::Update(bool itemChanged, NK::Owner<TreeResult> subTree)
    : itemChanged(itemChanged), subTree(std::move(subTree))
{
}

TreeResult::Update::Update(const Update& other)
    : itemChanged(other.itemChanged),
      subTree(other.subTree ? NK::NewOwned<TreeResult>(*other.subTree) : NK::Owner<TreeResult>())
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

bool TreeResult::HasChanges() const noexcept
{
    return !inserted.IsEmpty() || !deleted.IsEmpty() || !updates.IsEmpty() || !moved.IsEmpty();
}

}  // namespace WZ::Diff

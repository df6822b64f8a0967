#include "WZSources/Diff/WZDiffable.hpp"

namespace WZ {

Diffable::~Diffable() = default;

SeparatorDiffable::SeparatorDiffable(const NK::Guid& id) : id(id) {}

NK::Guid SeparatorDiffable::GetId() const
{
    return id;
}

bool SeparatorDiffable::IsEqual(const Diffable& other) const
{
    const auto* separator = dynamic_cast<const SeparatorDiffable*>(&other);
    return separator != nullptr && separator->id == id;
}

bool SeparatorDiffable::IsSeparator() const
{
    return true;
}

bool TreeDiffable::IsEqual(const Diffable& other) const
{
    return IsEqual(static_cast<const TreeDiffable&>(other));
}

bool IsSeparatorItem(const Diffable& item)
{
    const auto* separatable = dynamic_cast<const SeparatableItem*>(&item);
    return separatable != nullptr && separatable->IsSeparator();
}

}  // namespace WZ

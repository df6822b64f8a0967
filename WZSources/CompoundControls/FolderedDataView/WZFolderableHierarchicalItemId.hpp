// WZ::Folderable::HierarchicalItemId: the key of a row of the hierarchical table view, and the
// two comparators with which the table recognises rows across rebuilds. The default id is the
// table's virtual root (virtualRootId, no item); the model itself has no root.
// - Identity: two ids name the same row when their Guids are equal.
// - Content: two ids show the same content when they point at the same item object; otherwise
//   not when either has no item; otherwise the first item's IsEqual with the second.
#pragma once

#include "NK/NKGuid.hpp"

namespace WZ::Folderable {

class HierarchicalTreeItem;

struct HierarchicalItemId {
    // {52A9B915-21A6-4926-94B1-A8E678EE2CFB}
    static constexpr NK::Guid virtualRootId {0x52A9B915, 0x21A6, 0x4926, {0x94, 0xB1, 0xA8, 0xE6, 0x78, 0xEE, 0x2C, 0xFB}};

    HierarchicalItemId() noexcept = default;
    explicit HierarchicalItemId(HierarchicalTreeItem& row);

    bool IsVirtualRoot() const noexcept { return item == nullptr && id == virtualRootId; }
    // Hashes like the bare Guid, so that the toolkit's table finds rows by id or by Guid.
    NK::UInt32 GenerateHashValue() const noexcept { return id.GenerateHashValue(); }

    NK::Guid id = virtualRootId;
    HierarchicalTreeItem* item = nullptr;  // not owned
};

struct HierarchicalTreeItemIdComparator {
    bool operator()(const HierarchicalItemId& a, const HierarchicalItemId& b) const noexcept { return a.id == b.id; }
    bool operator()(const HierarchicalItemId& a, const NK::Guid& b) const noexcept { return a.id == b; }
};

struct HierarchicalTreeItemContentComparator {
    bool operator()(const HierarchicalItemId& a, const HierarchicalItemId& b) const;
};

}  // namespace WZ::Folderable

// The item interfaces that make items comparable by identity. Every list and tree item of the
// library derives from WZ::Diffable: two items with the same GetId() are the same item in two
// versions of a list, and IsEqual tells whether they would be displayed alike.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKGuid.hpp"

namespace WZ {

class Diffable {
public:
    virtual NK::Guid GetId() const = 0;
    // True when `other` would be displayed exactly like this item. Called only on items of the
    // same id.
    virtual bool IsEqual(const Diffable& other) const = 0;
    virtual ~Diffable();
};

// An item that may stand for a separator row. Items that are not SeparatableItems never are.
class SeparatableItem : public Diffable {
public:
    virtual bool IsSeparator() const = 0;
};

// A separator row with nothing but an id; equal only to another separator of the same id.
class SeparatorDiffable : public SeparatableItem {
public:
    explicit SeparatorDiffable(const NK::Guid& id);

    NK::Guid GetId() const override;
    bool IsEqual(const Diffable& other) const override;
    bool IsSeparator() const override;

private:
    NK::Guid id;
};

// An item of a tree: compared with items of its own kind and able to list its children.
class TreeDiffable : public Diffable {
public:
    virtual bool IsEqual(const TreeDiffable& other) const = 0;
    // The children in display order, in a new array; the items stay owned by their owner.
    virtual NK::Array<const TreeDiffable*> GetDiffableChildren() const = 0;

private:
    // Tree items are only ever compared with tree items of the same id, so no type test here.
    bool IsEqual(const Diffable& other) const final;
};

// True when the item is a SeparatableItem that says it is a separator.
bool IsSeparatorItem(const Diffable& item);

}  // namespace WZ

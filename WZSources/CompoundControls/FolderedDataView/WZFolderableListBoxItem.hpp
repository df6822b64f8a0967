// WZ::Folderable::ListBoxItem: a row of the foldered data view's list box. The client's
// ListItemFactory makes one per model item and gives it the model item's Guid, which is how rows
// are matched across rebuilds and how the selection is kept. Content equality (IsEqual) is the
// client's, since only the client knows what its rows show.
#pragma once

#include "NK/NKGuid.hpp"
#include "WZSources/Diff/WZDiffable.hpp"

namespace WZ::Folderable {

class ListBoxItem : public WZ::SeparatableItem {
public:
    ~ListBoxItem() override;

    NK::Guid GetId() const final;
    // Rows of a foldered data view are never separators unless a client says so.
    bool IsSeparator() const override;

protected:
    explicit ListBoxItem(const NK::Guid& id);

private:
    NK::Guid id;
};

}  // namespace WZ::Folderable

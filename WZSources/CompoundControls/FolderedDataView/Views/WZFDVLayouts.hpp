// The layouts of the single-control views of a foldered data view.
//
// NormalLayout: the search field across the top (searchFieldHeight high, when it is shown), and
// below it, after a gap, one content control that fills the rest. Its state says whether the
// search field is shown (one Bool on a channel); a hidden search field leaves its room to the
// content. FlatListLayout places the list box as the content, HierarchicalLayout the
// hierarchical table. A control the resource lacks leaves its place empty.
#pragma once

#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVLayout.hpp"

namespace WZ::Layouting {
class VerticalLinearLayout;
}

namespace WZ::Folderable {

class NormalLayout : public Layout {
public:
    static constexpr short searchFieldHeight = 20;
    static constexpr short gap = 4;

    class LayoutState : public Layout::LayoutState {
    public:
        explicit LayoutState(bool searchFieldVisible = true) : searchFieldVisible(searchFieldVisible) {}

        NK::ErrCode Write(NK::OChannel& channel) const override;
        NK::ErrCode Read(NK::IChannel& channel) override;
        NK::Owner<Layout::LayoutState> Clone() const override;
        bool IsEqual(const Layout::LayoutState& other) const override;

        bool IsSearchFieldVisible() const noexcept { return searchFieldVisible; }
        void SetSearchFieldVisible(bool visible) noexcept { searchFieldVisible = visible; }

    private:
        bool searchFieldVisible;
    };

    // content: the control below the search field; may be null (nothing placed there).
    NormalLayout(LayoutResource& resource, QM::Item* content);
    ~NormalLayout() override;

    NK::Owner<Layout::LayoutState> CreateDefaultState() const override;
    NK::Owner<Layout::LayoutState> GetState() const override;
    // A state that is not a NormalLayout::LayoutState is reported and ignored.
    void ApplyState(const Layout::LayoutState& state) override;

    void ApplyLayout(const QM::Rect& rect) override;
    NK::Array<QM::Item*> GetPlacedItems() const override;
    // Shows what the layout places, the search field only when the state says so.
    void Show() override;
    void Hide() override;

    bool IsSearchFieldVisible() const noexcept { return searchFieldVisible; }
    // Shows or hides the search field and places the controls again.
    void SetSearchFieldVisible(bool visible);

protected:
    // Adds the content below the search field to the column that ApplyLayout lays out.
    virtual void AddContent(Layouting::VerticalLinearLayout& column) const;
    // The part of the state that NormalLayout keeps.
    void ApplyNormalState(const LayoutState& state);
    bool IsShownNow() const noexcept { return shownNow; }

private:
    QM::Item* content;
    bool searchFieldVisible = true;
    bool shownNow = false;
};

class FlatListLayout : public NormalLayout {
public:
    explicit FlatListLayout(LayoutResource& resource);
};

class HierarchicalLayout : public NormalLayout {
public:
    explicit HierarchicalLayout(LayoutResource& resource);
};

}  // namespace WZ::Folderable

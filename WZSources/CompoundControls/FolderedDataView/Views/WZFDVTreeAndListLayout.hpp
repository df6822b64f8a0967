// WZ::Folderable::TreeAndListLayout: the layout of the tree-and-list view. Below the search
// field (as in NormalLayout) the tree takes the left part, treeWidth wide; the splitter bar
// follows, and right of it a row with the up button and the pop-up of the chosen folder's
// ancestors above the list of the folder's children.
//
// The splitter state is the tree's width. A user who drags the splitter sets it, and the
// controls are placed again at once; the splitter's limits keep the tree at least minTreeWidth
// and the list at least minListWidth wide while the rectangle allows it. On a channel the state
// is the NormalLayout part followed by the tree width (Int16); a negative width reads as -7003.
#pragma once

#include "QM/QMSplitter.hpp"
#include "WZSources/CompoundControls/FolderedDataView/Views/WZFDVLayouts.hpp"

namespace WZ::Folderable {

class TreeAndListLayout : public NormalLayout, protected QM::SplitterObserver {
public:
    static constexpr short defaultTreeWidth = 180;
    static constexpr short minTreeWidth = 40;
    static constexpr short minListWidth = 60;
    static constexpr short splitterWidth = 4;
    static constexpr short headerHeight = 20;
    static constexpr short upButtonWidth = 24;

    struct SplitterState {
        short treeWidth = defaultTreeWidth;
        bool operator==(const SplitterState&) const = default;
    };

    class LayoutState : public NormalLayout::LayoutState {
    public:
        LayoutState(bool searchFieldVisible, SplitterState splitterState)
            : NormalLayout::LayoutState(searchFieldVisible), splitterState(splitterState)
        {
        }

        NK::ErrCode Write(NK::OChannel& channel) const override;
        NK::ErrCode Read(NK::IChannel& channel) override;
        NK::Owner<Layout::LayoutState> Clone() const override;
        bool IsEqual(const Layout::LayoutState& other) const override;

        const SplitterState& GetSplitterState() const noexcept { return splitterState; }

    private:
        SplitterState splitterState;
    };

    explicit TreeAndListLayout(LayoutResource& resource);
    ~TreeAndListLayout() override;

    NK::Owner<Layout::LayoutState> CreateDefaultState() const override;
    NK::Owner<Layout::LayoutState> GetState() const override;
    // A state that is not a TreeAndListLayout::LayoutState is reported and ignored.
    void ApplyState(const Layout::LayoutState& state) override;

    // Sets the splitter's limits for the rectangle, then places the controls.
    void ApplyLayout(const QM::Rect& rect) override;
    NK::Array<QM::Item*> GetPlacedItems() const override;

    const SplitterState& GetSplitterState() const noexcept { return splitterState; }

protected:
    void AddContent(Layouting::VerticalLinearLayout& column) const override;

private:
    void SplitterMoved(const QM::SplitterMoveEvent& event) override;
    // The tree width that fits the rectangle: the wanted width within the limits.
    short GetFittingTreeWidth() const;

    SplitterState splitterState;
    bool placing = false;  // the layout's own moves of the splitter are not the user's
};

}  // namespace WZ::Folderable

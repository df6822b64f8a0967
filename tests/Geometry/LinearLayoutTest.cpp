#include "WZSources/Layouting/WZLinearLayout.hpp"

#include "NK/NKAssert.hpp"
#include "QM/QMDialog.hpp"
#include "QM/QMItem.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <memory>
#include <random>
#include <type_traits>
#include <vector>

namespace {

using namespace WZ::Layouting;

// Records every pass: the room told and the rectangle each layout was last given.
class Recorder : public LayoutBase::Delegate {
public:
    void WillCalculateLayout(const LayoutBase& layout, const QM::Rect& rect, short available) override
    {
        rects[&layout] = rect;
        rooms.push_back(available);
    }
    std::map<const LayoutBase*, QM::Rect> rects;
    std::vector<short> rooms;
};

// A client object that remembers where it was put.
class Area : public ILayoutableItem {
public:
    explicit Area(QM::Item& managed) : managed(managed) {}
    void ApplyRect(const QM::Rect& rect) override { placed.push_back(rect); }
    void SetVisibility(bool isVisible) override { visible = isVisible; }
    bool IsVisible() const override { return visible; }
    ManagedQMItems GetManagedQMItems() const override { return ManagedQMItems {&managed}; }

    std::vector<QM::Rect> placed;
    bool visible = true;
    QM::Item& managed;
};

class LinearLayoutTest : public ::testing::Test {
protected:
    QM::Item& NewItem()
    {
        items.push_back(std::make_unique<QM::Item>(dialog, QM::Rect(-1, -1, -1, -1)));
        return *items.back();
    }

    QM::Dialog dialog {"Layouts", 600, 400};
    std::vector<std::unique_ptr<QM::Item>> items;
    const HFixedHeight top20 {VerticalAlignment::Top, 20};
};

TEST_F(LinearLayoutTest, GravityPacksAtTheStartOrWithEndAtTheEndInReverseOrderInEitherDirection)
{
    QM::Item& a = NewItem();
    QM::Item& b = NewItem();
    HorizontalLinearLayout layout;
    layout.Add(a, HFixedWidth {50}, top20);
    layout.Add(b, HFixedWidth {30}, top20);
    layout.SetGap(10);
    layout.ApplyLayout(QM::Rect(20, 5, 220, 45));
    EXPECT_EQ(a.GetRect(), QM::Rect(20, 5, 70, 25));
    EXPECT_EQ(b.GetRect(), QM::Rect(80, 5, 110, 25));  // left + 60
    // End puts the filler first and the items in reverse order.
    layout.SetGravity(Gravity::End);
    layout.ApplyLayout(QM::Rect(20, 5, 220, 45));
    EXPECT_EQ(b.GetRect(), QM::Rect(130, 5, 160, 25));  // left + 110
    EXPECT_EQ(a.GetRect(), QM::Rect(170, 5, 220, 25));  // left + 150, ends at the right edge
    // With no room over, the filler still takes its one pixel (its minimum) and pushes the
    // items past the far edge.
    layout.SetGap(0);
    layout.ApplyLayout(QM::Rect(0, 5, 80, 45));
    EXPECT_EQ(b.GetRect(), QM::Rect(1, 5, 31, 25));
    EXPECT_EQ(a.GetRect(), QM::Rect(31, 5, 81, 25));

    // A vertical layout stacks inside its margin and packs at the bottom with End.
    VerticalLinearLayout column;
    column.SetMargin(Inset {3, 4, 6, 8});
    column.Add(a, VFixedHeight {20}, VFixedWidth {HorizontalAlignment::Right, 50}, Inset {0, 1, 0, 2});
    column.Add(b, VFixedHeight {30}, VAutoFillWidth {}, Inset {10, 0, 5, 0});
    column.SetGap(5);
    // Across: x from 3, room 100 - 3 - 6 = 91.
    column.ApplyLayout(QM::Rect(0, 0, 100, 200));
    EXPECT_EQ(a.GetRect(), QM::Rect(44, 5, 94, 25));
    EXPECT_EQ(b.GetRect(), QM::Rect(13, 32, 89, 62));
    column.SetGravity(Gravity::End);
    column.ApplyLayout(QM::Rect(0, 0, 100, 200));
    EXPECT_EQ(b.GetRect(), QM::Rect(13, 134, 89, 164));
    EXPECT_EQ(a.GetRect(), QM::Rect(44, 170, 94, 190));  // ends at 200 - 8 less its bottom inset
}

TEST_F(LinearLayoutTest, MarginGapsAndInsetsAreTakenFromTheRoomAndToldToTheDelegate)
{
    QM::Item& a = NewItem();
    QM::Item& b = NewItem();
    HorizontalLinearLayout layout;
    Recorder delegate;
    layout.SetDelegate(&delegate);
    layout.SetMargin(Inset {4, 3, 6, 5});
    layout.SetGap(8);
    layout.Add(a, HFixedWidth {40}, HAutoFillHeight {}, Inset {2, 1, 3, 2});
    layout.Add(b, HProportionalWidth {1}, HAutoFillHeight {});
    layout.ApplyLayout(QM::Rect(0, 0, 200, 50));

    EXPECT_EQ(delegate.rooms, (std::vector<short> {200 - (8 + 6 + 4) - (2 + 3)}));
    EXPECT_EQ(delegate.rects[&layout], QM::Rect(0, 0, 200, 50));
    // Cross room 50 - 5 - 3 = 42; the filling item leaves its own top and bottom inset.
    EXPECT_EQ(a.GetRect(), QM::Rect(6, 4, 46, 43));
    EXPECT_EQ(b.GetRect(), QM::Rect(57, 3, 194, 45));  // 46 + right inset 3 + gap 8; ends at 200 - 6
}

// Offsets and sizes across the axis, in room 45 (horizontal) or 100 (vertical). The alignment
// codes differ between the directions: 2 is bottom only, 4 right only.
TEST_F(LinearLayoutTest, CrossAxisOffsetsAndSizes)
{
    struct Case {
        HCrossPolicy h;
        VCrossPolicy v;
        Inset inset;
        short offset, size;
    };
    const auto hFixed = [](int code, short height) { return HFixedHeight {static_cast<VerticalAlignment>(code), height}; };
    const auto vFixed = [](int code, short width) { return VFixedWidth {static_cast<HorizontalAlignment>(code), width}; };
    const std::vector<Case> cases {
        {hFixed(1, 20), std::monostate {}, {}, 12, 20},  // (45 - 20) / 2 in integers
        {hFixed(2, 20), std::monostate {}, {}, 25, 20},
        {hFixed(4, 20), std::monostate {}, {}, 0, 20},
        {hFixed(1, 60), std::monostate {}, {}, -7, 60},  // larger than the room: centred over it
        {hFixed(0, -5), std::monostate {}, {}, 0, 0},
        {HAutoFillHeight {}, std::monostate {}, {1, 3, 2, 4}, 3, 38},
        {HAutoFillHeight {}, std::monostate {}, {0, 30, 0, 30}, 30, 0},  // insets beyond the room
        {std::monostate {}, vFixed(4, 30), {}, 70, 30},
        {std::monostate {}, vFixed(2, 30), {}, 0, 30},
        {std::monostate {}, vFixed(1, 31), {}, 34, 31},
        {std::monostate {}, vFixed(0, -5), {}, 0, 0},
        {std::monostate {}, VAutoFillWidth {}, {5, 1, 7, 2}, 5, 88},
        {std::monostate {}, VAutoFillWidth {}, {60, 0, 60, 0}, 60, 0},
    };
    NK::AssertCapture capture;  // the negative sizes are reported
    for (const Case& c : cases) {
        if (!std::holds_alternative<std::monostate>(c.h)) {
            HQMItemDescriptor item(NewItem(), HFixedWidth {10}, c.h, c.inset);
            EXPECT_EQ(item.GetY(45), c.offset);
            EXPECT_EQ(item.GetHeight(45), c.size);
            EXPECT_EQ(item.GetOwnInsetsForHeight(), c.inset.top + c.inset.bottom);
        } else {
            VQMItemDescriptor item(NewItem(), VFixedHeight {10}, c.v, c.inset);
            EXPECT_EQ(item.GetX(100), c.offset);
            EXPECT_EQ(item.GetWidth(100), c.size);
            EXPECT_EQ(item.GetOwnInsetsForWidth(), c.inset.left + c.inset.right);
        }
    }
    // A rectangle turned inside out becomes an empty one where it starts.
    QM::Item& squeezed = NewItem();
    HQMItemDescriptor(squeezed, HFixedWidth {10}, HAutoFillHeight {}, {}).ApplyRect(QM::Rect(10, 20, 4, 12));
    EXPECT_EQ(squeezed.GetRect(), QM::Rect(10, 20, 10, 20));
}

// Bad sizes are reported and taken as the nearest lengths: no item moves backwards, no position
// wraps around the 16-bit range.
TEST_F(LinearLayoutTest, BadSizesAreClampedAndNeverWrap)
{
    struct Case {
        const char* what;
        HMainPolicy first, second;
        short gap, inset;
        std::vector<short> lefts, rights;
        size_t reports;
    };
    const std::vector<Case> cases {
        {"negative fixed width", HFixedWidth {-50}, HFixedWidth {30}, 0, 0, {0, 0}, {0, 30}, 1},
        {"negative weight", HProportionalWidth {-1}, HProportionalWidth {3}, 0, 0, {0, 0}, {0, 100}, 1},
        {"NaN weight", HProportionalWidth {NAN}, HProportionalWidth {3}, 0, 0, {0, 0}, {0, 100}, 1},
        {"infinite weight", HProportionalWidth {INFINITY}, HFixedWidth {30}, 0, 0, {0, 32767}, {32767, 32767}, 1},
        {"huge gap", HFixedWidth {10}, HFixedWidth {30}, 30000, 0, {0, 30010}, {10, 30040}, 0},
        {"negative gap", HFixedWidth {10}, HFixedWidth {30}, -20, 0, {0, 10}, {10, 40}, 1},
        {"huge insets", HFixedWidth {10}, HFixedWidth {30}, 0, 20000, {20000, 32767}, {20010, 32767}, 0},
        // An item without a main policy is neither sized nor moved, and takes no room.
        {"no main policy", std::monostate {}, HFixedWidth {30}, 0, 0, {-1, 0}, {-1, 30}, 0},
    };
    for (const Case& c : cases) {
        NK::AssertCapture capture;
        QM::Item& a = NewItem();
        QM::Item& b = NewItem();
        HorizontalLinearLayout layout;
        layout.SetGap(c.gap);
        layout.Add(a, c.first, top20, Inset {c.inset, 0, c.inset, 0});
        layout.Add(b, c.second, top20, Inset {c.inset, 0, c.inset, 0});
        layout.ApplyLayout(QM::Rect(0, 0, 100, 20));
        EXPECT_EQ((std::vector<short> {a.GetRect().GetLeft(), b.GetRect().GetLeft()}), c.lefts) << c.what;
        EXPECT_EQ((std::vector<short> {a.GetRect().GetRight(), b.GetRect().GetRight()}), c.rights) << c.what;
        EXPECT_EQ(capture.GetReports().size(), c.reports) << c.what;
    }
}

TEST_F(LinearLayoutTest, HiddenItemsAndSpacingTakeRoomOnlyWhileVisible)
{
    QM::Item& a = NewItem();
    QM::Item& b = NewItem();
    HorizontalLinearLayout layout;
    layout.Add(a, HFixedWidth {30}, top20);
    HSpacingItem& space = layout.AddSpacing(HFixedWidth {15});
    layout.Add(b, HProportionalWidth {1}, top20);
    layout.SetGap(5);
    std::vector<short> lefts;
    for (auto step : {+[](HSpacingItem&, QM::Item&) {}, +[](HSpacingItem& s, QM::Item&) { s.Hide(); },
                      +[](HSpacingItem&, QM::Item& i) { i.Hide(); }}) {
        step(space, a);
        layout.ApplyLayout(QM::Rect(0, 0, 100, 20));
        lefts.push_back(b.GetRect().GetLeft());
    }
    EXPECT_EQ(lefts, (std::vector<short> {55, 35, 0}));
    layout.HideAll();
    space.Show();
    EXPECT_FALSE(layout.ContainsVisible());  // spacing alone shows nothing
}

TEST_F(LinearLayoutTest, NestedLayoutsAreItemsOfTheirParent)
{
    QM::Item& label = NewItem();
    QM::Item& list = NewItem();
    QM::Item& ok = NewItem();
    QM::Item& cancel = NewItem();
    VerticalLinearLayout root;
    root.SetGap(4);
    auto& body = root.AddLayout(NK::NewOwned<HorizontalLinearLayout>(), VProportionalHeight {1}, VAutoFillWidth {});
    body.GetLayout().Add(label, HFixedWidth {60}, top20);
    body.GetLayout().Add(list, HProportionalWidth {1}, HAutoFillHeight {});
    auto& buttons = root.AddLayout(NK::NewOwned<HorizontalLinearLayout>(), VFixedHeight {24}, VAutoFillWidth {});
    buttons.GetLayout().SetGravity(Gravity::End);
    buttons.GetLayout().SetGap(6);
    buttons.GetLayout().Add(ok, HFixedWidth {70}, HAutoFillHeight {});
    buttons.GetLayout().Add(cancel, HFixedWidth {70}, HAutoFillHeight {});
    // A client object between the buttons' row and the bottom edge.
    QM::Item& inner = NewItem();
    auto owned = NK::NewOwned<Area>(inner);
    Area& area = *owned;
    root.Add(NK::Owner<ILayoutableItem>(std::move(owned)), VFixedHeight {10}, VAutoFillWidth {});

    root.ApplyLayout(QM::Rect(0, 0, 300, 214));
    EXPECT_EQ(list.GetRect(), QM::Rect(60, 0, 300, 172));
    EXPECT_EQ(cancel.GetRect(), QM::Rect(154, 176, 224, 200));
    EXPECT_EQ(ok.GetRect(), QM::Rect(230, 176, 300, 200));
    EXPECT_EQ(area.placed, (std::vector<QM::Rect> {QM::Rect(0, 204, 300, 214)}));
    EXPECT_EQ(root.GetManagedQMItems(), (ManagedQMItems {&label, &list, &ok, &cancel, &inner}));

    // A nested layout whose content is all hidden gives its room away; a hidden object is not placed.
    root.HideAll();
    EXPECT_FALSE(area.visible);
    body.Show();
    root.ApplyLayout(QM::Rect(0, 0, 300, 214));
    EXPECT_EQ(list.GetRect(), QM::Rect(60, 0, 300, 214));
    EXPECT_EQ(area.placed.size(), 1u);

    EXPECT_TRUE(root.IsValid());  // validity looks into nested layouts
    buttons.GetLayout().AddSpacing(std::monostate {});
    EXPECT_FALSE(root.IsValid());
}

// An item already in place is not moved again; a dialog is laid out in one move/resize bracket.
TEST_F(LinearLayoutTest, ItemsAreMovedOnlyWhenTheirPlaceChanges)
{
    QM::Item& a = NewItem();
    HorizontalLinearLayout layout;
    layout.Add(a, HProportionalWidth {1}, HAutoFillHeight {});
    layout.ApplyLayout(dialog, dialog.GetClientRect());
    EXPECT_EQ(a.GetRect(), dialog.GetClientRect());
    EXPECT_EQ(dialog.GetMoveResizeBracketCount(), 1u);
    EXPECT_FALSE(dialog.IsMovingResizingItems());
    for (short width : {600, 600, 90})
        layout.ApplyLayout(QM::Rect(0, 0, width, 20));
    EXPECT_EQ(a.GetJournal().GetCount(QM::Op::Move), 3u);  // the dialog's pass, 600 once, 90
}

// Random trees of nested layouts whose minimums fit (nested layouts take proportional shares of a
// root far larger than any generated minimum), with every alignment valid for its axis: every
// toolkit item lies inside the rectangle of the layout that holds it, and that one inside the root's.
TEST_F(LinearLayoutTest, GeneratedNestedLayoutsKeepEveryItemInsideItsLayoutsRectangle)
{
    std::mt19937 random(77u);
    auto pick = [&](int low, int high) { return static_cast<short>(std::uniform_int_distribution<int>(low, high)(random)); };
    Recorder rects;
    std::map<QM::Item*, const LayoutBase*> owner;
    const VerticalAlignment vertical[] = {VerticalAlignment::Top, VerticalAlignment::Center, VerticalAlignment::Bottom};
    const HorizontalAlignment horizontal[] = {HorizontalAlignment::Left, HorizontalAlignment::Center, HorizontalAlignment::Right};

    // Fills a layout of either direction; depth is bounded, so the recursion is too.
    auto fill = [&](auto& self, auto& layout, int depth) -> void {
        using Layout = std::decay_t<decltype(layout)>;
        constexpr bool isHorizontal = std::is_same_v<Layout, HorizontalLinearLayout>;
        using D = typename Layout::Descriptor;
        layout.SetDelegate(&rects);
        layout.SetGap(pick(0, 3));
        layout.SetGravity(pick(0, 1) ? Gravity::End : Gravity::Start);
        for (int i = pick(1, 4); i > 0; --i) {
            if (depth < 3 && pick(0, 2) == 0) {
                using Other = std::conditional_t<isHorizontal, VerticalLinearLayout, HorizontalLinearLayout>;
                self(self, layout.AddLayout(NK::NewOwned<Other>(), typename D::MainProportionalPolicy {2}, typename D::CrossFillPolicy {}).GetLayout(), depth + 1);
                continue;
            }
            typename D::MainPolicy main = pick(0, 1) ? typename D::MainPolicy(typename D::MainFixedPolicy {pick(1, 6)})
                                                     : typename D::MainPolicy(typename D::MainProportionalPolicy {static_cast<float>(pick(1, 3))});
            typename D::CrossPolicy cross = typename D::CrossFillPolicy {};
            if (pick(0, 1) == 0) {
                if constexpr (isHorizontal)
                    cross = HFixedHeight {vertical[pick(0, 2)], pick(0, 5)};
                else
                    cross = VFixedWidth {horizontal[pick(0, 2)], pick(0, 5)};
            }
            QM::Item& item = NewItem();
            owner[&item] = &layout;
            layout.Add(item, main, cross, Inset {pick(0, 1), pick(0, 1), pick(0, 1), pick(0, 1)});
        }
    };

    for (int round = 0; round < 200; ++round) {
        items.clear();
        owner.clear();
        rects.rects.clear();
        HorizontalLinearLayout root;
        fill(fill, root, 0);
        root.SetMargin(Inset {2, 3, 4, 5});
        QM::Rect rect(pick(0, 50), pick(0, 50), 0, 0);
        rect.SetSize(pick(2600, 3000), pick(2600, 3000));
        root.ApplyLayout(rect);
        SCOPED_TRACE("round " + std::to_string(round));

        ASSERT_EQ(root.GetManagedQMItems().GetSize(), owner.size());
        for (const auto& [layout, layoutRect] : rects.rects)
            EXPECT_TRUE(rect.Contains(layoutRect)) << layoutRect.ToString() << " outside " << rect.ToString();
        for (const auto& [item, layout] : owner) {
            EXPECT_EQ(item->GetJournal().GetCount(QM::Op::Move), 1u);
            EXPECT_TRUE(rects.rects.at(layout).Contains(item->GetRect())) << item->GetRect().ToString();
        }
    }
}

}  // namespace
